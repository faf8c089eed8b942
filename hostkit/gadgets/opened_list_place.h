#pragma once

#include "host/gadgets.h"

namespace hostkit {

/// Where an opened list goes: its window in screen coordinates, and how many rows it shows at once.
struct Opened_List_Place {
    RECT window;
    int rows;
};

constexpr int most_opened_rows = 16;

/// Places a list of `count` items by the widget that opens it, as wide as the widget: below it, above it when only
/// there is room for all its rows, else where there is more room, with as many rows as fit. The widget is not covered,
/// and the list stays on the screen.
/// @param row_height  pixels @param frame  width of the list's frame, pixels
GADGETS_API Opened_List_Place place_opened_list(
    const RECT& widget, const RECT& screen, int count, int row_height, int frame);

}
