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

/// Where list coordinates begin, in the window.
List_Point list_origin(const Boxs& list_box, const Sliders& vertical, const Sliders& horizontal);

/// The recorded pointer in list coordinates.
List_Point list_pointer(const Boxs& list_box, const List_Point& origin);

/// The drag that is going on. There is one pointer, so there is one for all panels.
struct Drag {
    bool going_on = false;
    const Boxs* begun_in = nullptr; ///< the list box
    int anchor_line = 0;
    int end_line = 0;
    List_Point start;
    List_Point current;

    // What a drag shows: lines from corner to corner, each pixel drawn once.
    const Boxs* shown_in = nullptr; ///< the list box; null when nothing is shown
    std::array<POINT, 5> corners{}; ///< as they are drawn, in the window
    int nb_corners = 0;
};

inline Drag drag;

/// Shows lines through these corners in a list box, in place of those that it shows. @param count 5 at most
void show_drag(const Boxs& list_box, const POINT* corners, int count);

/// Takes them away, if this box shows them.
void erase_drag(const Boxs& list_box);

/// They have been painted over, if this box showed them.
void forget_drag(const Boxs& list_box);

}
