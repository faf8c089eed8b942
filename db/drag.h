#pragma once

#include "host/gadgets.h"

#include <array>

namespace db {

/// A place in list coordinates: x to the right from the list box's left edge and spacing, y downward from its upper
/// edge, both with what is scrolled away.
struct List_Point {
    int x = 0;
    int y = 0;
};

/// The drag that is going on. There is one pointer, so there is one for all panels.
struct Drag {
    bool going_on = false;
    int anchor_line = 0;
    int end_line = 0;
    List_Point start;
    List_Point current;

    const Boxs* band_box = nullptr;      ///< the list box in which the rubber band is drawn; null when it is not
    std::array<POINT, 5> band_corners{}; ///< as it is drawn
};

inline Drag drag;

}
