#pragma once

#include <array>

namespace workbench {

/// The letters at the right and left or the lower and upper edge of a picture.
struct EdgeLetters {
    char towards = 0, away = 0; ///< 0 when the axis is oblique
};

/// Where an axis points to, in patient coordinates that grow to the left, to the back (posterior) and to the head
/// (superior).
EdgeLetters edge_letters(const std::array<double, 3>& axis);

}
