#include <cstdio>

int main()
{
    std::puts("Pictray");
    return 0;
}
