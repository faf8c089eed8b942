#include "tests/hostkit/structures/limited_memory.h"

#include <cstdlib>
#include <limits>
#include <new>

std::size_t test::largest_allocation = std::numeric_limits<std::size_t>::max();

void* operator new(std::size_t size)
{
    if (size <= test::largest_allocation) {
        if (void* memory = std::malloc(size))
            return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
