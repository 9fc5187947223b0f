#include "HeapTrim.h"

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace HeapTrim {

void releaseFreePages()
{
#if defined(__GLIBC__)
    malloc_trim(0);
#endif
}

} // namespace HeapTrim
