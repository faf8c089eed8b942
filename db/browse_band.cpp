#include "db/browse_view.h"
#include "db/drag.h"
#include "db/tool_db_list.h"
#include "frame/events.h"

using db::drag;
using db::List_Point;

namespace {

// The corners one after the other, back to the first: each pixel is drawn once.
std::array<POINT, 5> band(const List_Point& origin)
{
    const auto in_window = [&](int x, int y) { return POINT{origin.x + x, origin.y - y}; };
    return {in_window(drag.start.x, drag.start.y), in_window(drag.current.x, drag.start.y),
        in_window(drag.current.x, drag.current.y), in_window(drag.start.x, drag.current.y),
        in_window(drag.start.x, drag.start.y)};
}

}

int DB_2D_Class_List_Motion(Tool_DB_List* panel, int up_down)
{
    if (!drag.going_on)
        return 0;
    if (up_down == frame::up_down::release) {
        db::erase_drag(panel->list_box);
        return 0;
    }
    drag.current = panel->Pointer();
    const auto corners = band(panel->Origin());
    db::show_drag(panel->list_box, corners.data(), static_cast<int>(corners.size()));
    return 1;
}
