#pragma once

#include <limits>

namespace histo {

/// The integer part of a number, toward zero; what does not fit becomes the nearest int, and not-a-number 0.
template <class Number>
constexpr int int_part(Number value)
{
    if (value != value)
        return 0;
    // Written so that the comparison itself is exact: the largest int is no float.
    if (value >= -static_cast<Number>(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::max();
    if (value <= static_cast<Number>(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

}
