#include "tests/frame/failing_memory.h"

#include <new>

namespace test {

int successes_before_failure = -1;

}

namespace {

// Whether the allocation that is due to fail has come.
bool fails()
{
    return test::successes_before_failure >= 0 && test::successes_before_failure-- == 0;
}

}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    try {
        return fails() ? nullptr : ::operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    try {
        return fails() ? nullptr : ::operator new[](size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
