#include "db/browse_view.h"
#include "db/drag.h"
#include "db/tool_db_list.h"
#include "frame/drawing.h"
#include "frame/events.h"
#include "frame/painting.h"

using db::drag;
using db::List_Point;

namespace {

constexpr COLORREF band_color = 0x00008080;

// The corners one after the other, back to the first: each pixel is drawn once.
std::array<POINT, 5> corners(const Tool_DB_List& panel)
{
    const List_Point origin = panel.Origin();
    const auto in_window = [&](int x, int y) { return POINT{origin.x + x, origin.y - y}; };
    return {in_window(drag.start.x, drag.start.y), in_window(drag.current.x, drag.start.y),
        in_window(drag.current.x, drag.current.y), in_window(drag.start.x, drag.current.y),
        in_window(drag.start.x, drag.start.y)};
}

void draw_or_erase()
{
    Polyline(Y_DC, drag.band_corners.data(), static_cast<int>(drag.band_corners.size()));
}

}

void DB_2D_Class_List_Band(const Tool_DB_List* panel)
{
    if (!panel) {
        drag.band_box = nullptr;
        return;
    }
    const Boxs& box = panel->list_box;
    const frame::Drawing drawing(box.window, "DB_2D_Class_List_Band");
    if (!drawing.ready())
        return;
    const frame::Clip clip(box);
    const frame::Xor_Drawing xored;
    const frame::Selected pen(CreatePen(PS_SOLID, 1, band_color));
    if (drag.band_box == &box)
        draw_or_erase();
    drag.band_box = &box;
    drag.band_corners = corners(*panel);
    draw_or_erase();
}

int DB_2D_Class_List_Motion(Tool_DB_List* panel, int up_down)
{
    if (!drag.going_on)
        return 0;
    if (up_down == frame::up_down::release) {
        DB_2D_Class_List_Paint(panel);
        DB_2D_Class_List_Band(nullptr);
        return 0;
    }
    drag.current = panel->Pointer();
    DB_2D_Class_List_Band(panel);
    return 1;
}
