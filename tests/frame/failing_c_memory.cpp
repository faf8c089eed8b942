#include "tests/frame/failing_memory.h"

#include <cstddef>

// Linked with --wrap: what the program's own objects take from the C library can fail, too.
extern "C" {
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_malloc(std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size);
void* __wrap_malloc(std::size_t size);

void* __wrap_calloc(std::size_t count, std::size_t size)
{
    return test::Allocation_Fails() ? nullptr : __real_calloc(count, size);
}

void* __wrap_malloc(std::size_t size)
{
    return test::Allocation_Fails() ? nullptr : __real_malloc(size);
}
}
