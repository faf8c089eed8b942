#include "tests/frame/failing_memory.h"

#include "platform/export.h"

#include <cstddef>

// Linked with --wrap of these three: what the program's own objects take from the C library can fail, too. The linker
// gives the shared libraries them as well, so they have to be visible.
extern "C" {
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_malloc(std::size_t size);
void* __real_realloc(void* block, std::size_t size);
VETRA_EXPORT void* __wrap_calloc(std::size_t count, std::size_t size);
VETRA_EXPORT void* __wrap_malloc(std::size_t size);
VETRA_EXPORT void* __wrap_realloc(void* block, std::size_t size);

void* __wrap_calloc(std::size_t count, std::size_t size)
{
    return test::Allocation_Fails() ? nullptr : __real_calloc(count, size);
}

void* __wrap_malloc(std::size_t size)
{
    return test::Allocation_Fails() ? nullptr : __real_malloc(size);
}

void* __wrap_realloc(void* block, std::size_t size)
{
    return test::Allocation_Fails() ? nullptr : __real_realloc(block, size);
}
}
