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

bool is_shown_in(const Tool_DB_List& panel)
{
    return drag.band_box == &panel.list_box;
}

// Draws the band, and a second time takes it away.
class Band_Drawing {
public:
    explicit Band_Drawing(const Boxs& box)
        : drawing_(box.window, "DB_2D_Class_List_Band"), clip_(box), pen_(CreatePen(PS_SOLID, 1, band_color))
    {
    }

    void toggle() const { Polyline(Y_DC, drag.band_corners.data(), static_cast<int>(drag.band_corners.size())); }

private:
    frame::Drawing drawing_;
    frame::Clip clip_;
    frame::Xor_Drawing xored_;
    frame::Selected pen_;
};

}

void DB_2D_Class_List_Band(const Tool_DB_List* panel)
{
    if (!panel) {
        drag.band_box = nullptr;
        return;
    }
    if (!panel->list_box.window)
        return;
    const Band_Drawing band(panel->list_box);
    if (is_shown_in(*panel))
        band.toggle();
    drag.band_box = &panel->list_box;
    drag.band_corners = corners(*panel);
    band.toggle();
}

void DB_2D_Class_List_Erase_Band(const Tool_DB_List* panel)
{
    if (!is_shown_in(*panel))
        return;
    Band_Drawing(panel->list_box).toggle();
    DB_2D_Class_List_Band(nullptr);
}

int DB_2D_Class_List_Motion(Tool_DB_List* panel, int up_down)
{
    if (!drag.going_on)
        return 0;
    if (up_down == frame::up_down::release) {
        DB_2D_Class_List_Erase_Band(panel);
        return 0;
    }
    drag.current = panel->Pointer();
    DB_2D_Class_List_Band(panel);
    return 1;
}
