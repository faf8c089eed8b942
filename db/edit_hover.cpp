#include "db/edit_diagram.h"
#include "db/edit_state.h"
#include "db/edit_tree.h"
#include "db/edit_view.h"
#include "db/tool_db_list.h"
#include "frame/events.h"
#include "frame/report.h"

namespace level = frame::level;
using db::Diagram_View;
using db::drag;
using db::edit_state;

namespace {

// Whether nothing of what is dragged could be put there.
bool is_refused(const Diagram_View& view, int code)
{
    if (!db::begun_in(view.box) || db::part_of_hit(code) != db::children_handle)
        return false;
    const void* const target = view.list[db::row_of_hit(code)].object;
    return !db::any_dragged(view, [&](int row) { return db::can_move(view.dimension, view.list[row].object, target); });
}

void highlight(const Diagram_View& view, int code)
{
    if (edit_state.hovered_in != &view.box)
        edit_state.hovered = 0;
    if (code == edit_state.hovered)
        return;
    db::Diagram diagram(view);
    if (edit_state.hovered)
        diagram.draw_part(edit_state.hovered, Emphasis::none);
    if (code)
        diagram.draw_part(code, is_refused(view, code) ? Emphasis::refusing : Emphasis::hovered);
    edit_state.hovered = code;
    edit_state.hovered_in = &view.box;
}

// From the handle where the drag began to the pointer.
void draw_feedback(const Diagram_View& view)
{
    const int begun = db::begun_in(view.box);
    if (!begun)
        return;
    const DB_List& row = view.list[db::row_of_hit(begun)];
    if (row.line == DB_List::hidden_line) // folded away meanwhile
        return;
    const int handle_x = db::part_of_hit(begun) == db::children_handle ? db::box_width : 0;
    const auto origin = view.origin();
    const POINT ends[] = {{origin.x + db::column_width * row.level + handle_x,
                              origin.y - db::diagram_line_height * row.line - db::handle_depth},
        {origin.x + drag.current.x, origin.y - drag.current.y}};
    db::show_drag(view.box, ends, 2);
}

}

int DB_Edit_Locate(const Boxs* box, int nb, const DB_List* list, const Sliders* horizontal, const Sliders* vertical)
{
    Error_Fct(hwnd, level::database_trace, "in DB_Edit_Locate()");
    const auto origin = db::list_origin(*box, *vertical, *horizontal);
    return db::hit_in_diagram(db::list_pointer(*box, origin), nb, list);
}

// What the pointer is over is drawn while the line is away: drawn over it, the line could not be taken away any more.
int DB_Edit_Motion_DB(int mode, Boxs* box, int up_down, int nb, DB_List* list, Sliders* vertical, Sliders* horizontal)
{
    Error_Fct(hwnd, level::database_trace, "in DB_Edit_Motion_DB(up_down=0x%08x)", static_cast<unsigned>(up_down));
    const Diagram_View view{mode & Tool_DB_List::dimension_part, *box, nb, list, *vertical, *horizontal};
    db::erase_drag(*box);
    if (up_down == frame::up_down::release)
        edit_state.begun = 0;
    if (view.empty())
        return 1;
    if (drag.going_on)
        drag.current = db::list_pointer(*box, view.origin());
    highlight(view, DB_Edit_Locate(box, nb, list, horizontal, vertical));
    if (drag.going_on)
        draw_feedback(view);
    return 1;
}

void DB_Edit_Leave(int mode, const Boxs* box, int nb, DB_List* list, const Sliders* vertical, const Sliders* horizontal)
{
    const Diagram_View view{mode & Tool_DB_List::dimension_part, *box, nb, list, *vertical, *horizontal};
    if (!view.empty() && edit_state.hovered_in == box && drag.shown_in != box)
        highlight(view, 0);
}

void DB_Edit_Forget(const Boxs* box)
{
    db::forget_hover(*box);
    if (drag.begun_in == box)
        edit_state.begun = 0;
}
