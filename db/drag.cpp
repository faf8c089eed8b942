#include "db/drag.h"

#include "frame/drawing.h"
#include "frame/painting.h"
#include "frame/registry.h"

#include <algorithm>

namespace db {

namespace {

constexpr COLORREF color = 0x00008080;

// What is drawn a second time is taken away.
class Toggling {
public:
    explicit Toggling(const Boxs& box)
        : drawing_(box.window, "DB_Drag"), clip_(box), pen_(CreatePen(PS_SOLID, 1, color))
    {
    }

    void toggle() const { Polyline(Y_DC, drag.corners.data(), drag.nb_corners); }

private:
    frame::Drawing drawing_;
    frame::Clip clip_;
    frame::Xor_Drawing xored_;
    frame::Selected pen_;
};

}

List_Point list_origin(const Boxs& list_box, const Sliders& vertical, const Sliders& horizontal)
{
    const int space = frame::dimension("$INTERFACE_SPACE_DIM");
    return {list_box.x + space - static_cast<int>(horizontal.value),
        list_box.y + list_box.height + static_cast<int>(vertical.value)};
}

List_Point list_pointer(const Boxs& list_box, const List_Point& origin)
{
    POINT pointer{YCursor_X, YCursor_Y};
    RECT client{};
    ScreenToClient(list_box.window, &pointer);
    GetClientRect(list_box.window, &client);
    return {pointer.x - origin.x, origin.y - (client.bottom - 1 - pointer.y)};
}

void show_drag(const Boxs& list_box, const POINT* corners, int count)
{
    if (!list_box.window)
        return;
    const Toggling lines(list_box);
    if (drag.shown_in == &list_box)
        lines.toggle();
    drag.shown_in = &list_box;
    drag.nb_corners = std::min(count, static_cast<int>(drag.corners.size()));
    std::copy_n(corners, drag.nb_corners, drag.corners.begin());
    lines.toggle();
}

void erase_drag(const Boxs& list_box)
{
    if (drag.shown_in != &list_box)
        return;
    Toggling(list_box).toggle();
    forget_drag(list_box);
}

void forget_drag(const Boxs& list_box)
{
    if (drag.shown_in == &list_box)
        drag.shown_in = nullptr;
}

}
