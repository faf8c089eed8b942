#include "tests/frame/failing_memory.h"

#include <new>

namespace test {

int successes_before_failure = -1;

bool Allocation_Fails()
{
    return successes_before_failure >= 0 && successes_before_failure-- == 0;
}

}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    try {
        return test::Allocation_Fails() ? nullptr : ::operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    try {
        return test::Allocation_Fails() ? nullptr : ::operator new[](size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
