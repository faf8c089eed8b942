#pragma once

#include "workbench/document/geometry.h"
#include "workbench/view/view_transform.h"

#include <array>

namespace workbench {

/// The letters at the right and left or the lower and upper edge of a picture.
struct EdgeLetters {
    char towards = 0, away = 0; ///< 0 when the axis is oblique
};

/// Where an axis points to, in patient coordinates that grow to the left, to the back (posterior) and to the head
/// (superior).
EdgeLetters edge_letters(const std::array<double, 3>& axis);

/// Where an axis of a volume points to: 0 along the rows, 1 along the columns, 2 from frame to frame.
std::array<double, 3> axis_of(const document::Geometry& geometry, std::size_t axis);

/// How a frame is turned to be looked at as films are: the patient's right at the left of the screen, the front at the
/// top or, seen from the side, at the left, the head at the top. @param across @param down where the frame's rows and
/// columns point to
Mirror usual_view(const std::array<double, 3>& across, const std::array<double, 3>& down);
Mirror usual_view(const document::Geometry& geometry);

/// Where the screen's right (0) or lower edge (1) points to, when the volume is looked at so.
std::array<double, 3> shown_axis(const document::Geometry& geometry, std::size_t axis);

}
