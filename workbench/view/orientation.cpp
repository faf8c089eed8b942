#include "workbench/view/orientation.h"

#include <cmath>

namespace workbench {

EdgeLetters edge_letters(const std::array<double, 3>& axis)
{
    constexpr double nearly_along = 0.8;
    constexpr EdgeLetters letters[] = {{'L', 'R'}, {'P', 'A'}, {'S', 'I'}};
    for (std::size_t i = 0; i < 3; ++i) {
        if (axis[i] > nearly_along)
            return letters[i];
        if (axis[i] < -nearly_along)
            return {letters[i].away, letters[i].towards};
    }
    return {};
}

}
