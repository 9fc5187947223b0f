#include "FreedMemory.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

void returnFreedMemoryToSystem()
{
#ifdef __GLIBC__
    malloc_trim(0);
#endif
}
