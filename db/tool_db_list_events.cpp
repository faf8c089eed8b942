#include "db/browse_view.h"
#include "db/edit_layout.h"
#include "db/edit_view.h"
#include "db/tool_db_list.h"
#include "frame/change_flags.h"
#include "frame/events.h"
#include "frame/registry.h"
#include "frame/report.h"

#include <algorithm>

namespace level = frame::level;
namespace change = frame::change;
using db::drag;
using db::List_Point;

namespace {

constexpr unsigned short marks = DB_List::partly_selected | DB_List::selected;

// Scrolls by a step, as far as there is something. @return by how much
int scroll_by(Sliders& slider, float step)
{
    if (!slider.Active())
        return 0;
    const float before = slider.value;
    slider.value = std::clamp(before + step, 0.0f, std::max(slider.maximum, 0.0f));
    if (slider.value == before)
        return 0;
    slider.Adjust();
    return static_cast<int>(slider.value) - static_cast<int>(before);
}

void mark_rows(int nb, DB_List* list, unsigned short mark)
{
    for (int i = 0; list && i < nb; ++i)
        list[i].select = static_cast<unsigned short>((list[i].select & ~marks) | mark);
}

// The windows show nothing any more.
void empty_windows()
{
    static frame::Kept_Address<Strato_2D**> shown("$FRAME_CUR");
    static frame::Kept_Address<unsigned short> windows("$WINDOW_NB");
    if (Strato_2D** frames = shown.value())
        std::fill_n(frames, windows.value(), nullptr);
}

}

// ---------------------------------------------------------------------------------------------------- the pointer

List_Point Tool_DB_List::Origin() const
{
    return db::list_origin(list_box, vertical, horizontal);
}

List_Point Tool_DB_List::Pointer() const
{
    return db::list_pointer(list_box, Origin());
}

int Tool_DB_List::Row_Under_Pointer() const
{
    if (!list_box.window || !list_box.Pointer_Inside())
        return -1;
    if (!Edits())
        return db::row_on_line(db::line_at(Pointer()), nb, list_pt);
    const auto hit = db::find_in_diagram(Pointer(), nb, list_pt);
    return hit ? db::row_of_hit(*hit) : -1;
}

// ---------------------------------------------------------------------------------------------------------- clicks

int Tool_DB_List::Click(int up_down)
{
    Error_Fct(hwnd, level::database_trace, "in Tool_DB_List::Click(up_down=0x%08x)", static_cast<unsigned>(up_down));
    if (list_box.Select(up_down)) {
        if (Edits() ? Click_Diagram(up_down) : Click_Rows(up_down))
            return 1;
    }
    return Take_Slider(vertical, up_down) || Take_Slider(horizontal, up_down) || Click_Buttons(up_down);
}

bool Tool_DB_List::Click_Diagram(int up_down)
{
    if (DB_Edit_Click_DB(mode, &list_box, up_down, nb, list_pt, &vertical, &horizontal) == db_edit_tree_changed)
        Refresh_After_Edit();
    return true;
}

bool Tool_DB_List::Click_Rows(int up_down)
{
    return DB_2D_Class_List_Click(this, up_down) != 0 && DB_2D_Class_List_Select(this) != 0;
}

bool Tool_DB_List::Take_Slider(Sliders& slider, int up_down)
{
    if (!slider.Select(up_down))
        return false;
    slider.Read();
    slider.Adjust();
    Paint(DB_Lines::as_they_are);
    return true;
}

bool Tool_DB_List::Click_Buttons(int up_down)
{
    if (Edits())
        return false;
    const bool all = select_all.Select(up_down) != 0;
    if (!all && !select_none.Select(up_down))
        return false;
    Buttons& button = all ? select_all : select_none;
    button.pressed = 1;
    button.Adjust();
    mark_rows(nb, list_pt, all ? DB_List::selected : 0);
    List_Select_To_DB(nb, list_pt);
    if (!all)
        empty_windows();
    Paint(DB_Lines::as_they_are);
    button.pressed = 0;
    button.Adjust();
    return true;
}

void Tool_DB_List::Refresh_After_Edit()
{
    constexpr frame::Change_Flags by_dimension[] = {0, 1, 2, 4};
    if (Dimension() >= 1 && Dimension() <= 3)
        Update(change::selection | change::tree | by_dimension[Dimension()]);
    list_box.Draw();
    Paint();
    Draw_Sliders();
}

// --------------------------------------------------------------------------------------------------------- motions

int Tool_DB_List::Motion(int up_down)
{
    if (drag.going_on) {
        if (up_down == frame::up_down::release)
            End_Drag(up_down);
        else
            Drag_On(up_down);
        return 1;
    }
    // A slider that is held is followed wherever the pointer goes; one that is not loses its highlight.
    if (Take_Slider(vertical, up_down) || Take_Slider(horizontal, up_down))
        return 1;
    if (!Edits()) {
        select_all.Select(up_down);
        select_none.Select(up_down);
    }
    if (!list_box.Select(up_down)) {
        Leave_Diagram();
        return 0;
    }
    if (Edits())
        DB_Edit_Motion_DB(mode, &list_box, up_down, nb, list_pt, &vertical, &horizontal);
    else
        DB_2D_Class_List_Motion(this, up_down);
    return 1;
}

void Tool_DB_List::End_Drag(int up_down)
{
    drag.going_on = false;
    if (Edits())
        DB_Edit_Motion_DB(mode, &list_box, up_down, nb, list_pt, &vertical, &horizontal);
    db::erase_drag(list_box);
    Paint(DB_Lines::as_they_are);
}

void Tool_DB_List::Drag_On(int up_down)
{
    if (Scroll_By_Drag())
        Paint(DB_Lines::as_they_are);
    if (Edits())
        DB_Edit_Motion_DB(mode, &list_box, up_down, nb, list_pt, &vertical, &horizontal);
    else
        DB_2D_Class_List_Motion(this, up_down);
}

bool Tool_DB_List::Scroll_By_Drag()
{
    const float step = Edits() ? 12.0f : 3.0f;
    int across = 0, down = 0;
    constexpr int question = frame::is_under_pointer_question;
    if (right_zone.Select(question))
        across = scroll_by(horizontal, step);
    else if (left_zone.Select(question))
        across = scroll_by(horizontal, -step);
    if (bottom_zone.Select(question))
        down = scroll_by(vertical, step);
    else if (top_zone.Select(question))
        down = scroll_by(vertical, -step);
    drag.current.x -= across;
    drag.current.y += down;
    return across != 0 || down != 0;
}

int Tool_DB_List::Scroll(int amount)
{
    constexpr int question = frame::is_under_pointer_question;
    if (horizontal.Select(question))
        horizontal.Scroll(-amount);
    else if (box.Select(question))
        vertical.Scroll(-amount);
    else
        return 0;
    Paint(DB_Lines::as_they_are);
    return 1;
}

int Tool_DB_List::Keyboard(int key)
{
    Error_Fct(hwnd, level::database_trace, "in Tool_DB_List::Keyboard(key=0x%08x)", static_cast<unsigned>(key));
    if (Edits() && frame::key_code(key) == frame::delete_key) {
        DB_Edit_Key_DB(mode, &list_box, key, nb, list_pt, &vertical, &horizontal);
        Refresh_After_Edit();
    }
    return 0;
}

void Tool_DB_List::Leave()
{
    select_all.Deselect();
    select_none.Deselect();
    vertical.Deselect();
    horizontal.Deselect();
    Leave_Diagram();
}

void Tool_DB_List::Leave_Diagram()
{
    if (Edits())
        DB_Edit_Leave(mode, &list_box, nb, list_pt, &vertical, &horizontal);
}
