#pragma once

#include <cstddef>

namespace test {

/// Linked into a test program, this lets allocations that are larger fail.
extern std::size_t largest_allocation;

}
