#include "hostkit/gadgets/opened_list_place.h"

#include <algorithm>

namespace hostkit {

Opened_List_Place place_opened_list(const RECT& widget, const RECT& screen, int count, int row_height, int frame)
{
    const auto height_of = [&](int rows) { return rows * row_height + 2 * frame; };
    const int wanted = std::clamp(count, 1, most_opened_rows);
    const int room_below = screen.bottom - widget.bottom;
    const int room_above = widget.top - screen.top;
    const bool below = room_below >= height_of(wanted) || room_below >= room_above;
    const int fitting = ((below ? room_below : room_above) - 2 * frame) / row_height;
    const int rows = std::clamp(fitting, 1, wanted);

    const int width = std::min(widget.right - widget.left, screen.right - screen.left);
    const int height = height_of(rows);
    const int left = std::clamp<int>(widget.left, screen.left, screen.right - width);
    const int top = std::clamp<int>(
        below ? widget.bottom : widget.top - height, screen.top, std::max<int>(screen.bottom - height, screen.top));
    return {{left, top, left + width, top + height}, rows};
}

}
