#include "db/browse_measure.h"
#include "db/browse_view.h"
#include "db/drag.h"
#include "db/rows.h"
#include "db/tool_db_list.h"
#include "frame/events.h"
#include "frame/report.h"

#include <algorithm>

namespace level = frame::level;
using db::drag;
using db::List_Point;

namespace {

constexpr int shift_key = 16;
constexpr int control_key = 17;
constexpr unsigned short marks = DB_List::partly_selected | DB_List::selected;

void begin_drag(const Boxs& list_box, const List_Point& point)
{
    drag.going_on = true;
    drag.begun_in = &list_box;
    drag.start = drag.current = point;
    if (!getkey(shift_key))
        drag.anchor_line = db::line_at(point);
}

void show_or_hide_below(Tool_DB_List& panel, DB_List& row)
{
    row.state ^= DB_List::expanded;
    DB_2D_Class_List_Paint(&panel);
    panel.vertical.Draw();
    panel.horizontal.Draw();
}

void press(Tool_DB_List& panel, const List_Point& point)
{
    const int line = db::line_at(point);
    if (line >= 0 && line < panel.nb) {
        const int row = db::row_on_line(line, panel.nb, panel.list_pt);
        if (row < 0)
            return;
        DB_List& pressed = panel.list_pt[row];
        if (pressed.nb_child > 0 && point.x / db::indent == pressed.level)
            return show_or_hide_below(panel, pressed);
    }
    begin_drag(panel.list_box, point);
}

// Gives what is below a row its selection. @return the row behind that
int copy_to_subtree(Tool_DB_List& panel, int row)
{
    const int end = db::end_of_subtree(row, panel.nb, panel.list_pt);
    for (int i = row + 1; i < end; ++i)
        panel.list_pt[i].select = panel.list_pt[row].select;
    return end;
}

// Lines are in the order of rows, so the next line is not far.
void select_lines(Tool_DB_List& panel)
{
    const int first = std::max(std::min(drag.anchor_line, drag.end_line), 0);
    const int last = std::max(drag.anchor_line, drag.end_line);
    int row = db::row_on_line(first, panel.nb, panel.list_pt);
    while (row >= 0 && row < panel.nb && panel.list_pt[row].line <= last) {
        panel.last_row = row;
        panel.list_pt[row].select ^= DB_List::selected;
        row = copy_to_subtree(panel, row);
        while (row < panel.nb && panel.list_pt[row].line == DB_List::hidden_line)
            ++row;
    }
}

// What is below a row that was selected is selected already.
void select_range(Tool_DB_List& panel)
{
    const int end = db::row_on_line(std::clamp(drag.end_line, 0, panel.nb - 1), panel.nb, panel.list_pt);
    if (end < 0)
        return;
    const int anchor = std::clamp(panel.last_row, 0, panel.nb - 1);
    for (int row = std::min(anchor, end); row <= std::max(anchor, end);) {
        panel.list_pt[row].select |= DB_List::selected;
        row = copy_to_subtree(panel, row);
    }
}

}

int DB_2D_Class_List_Click(Tool_DB_List* panel, int up_down)
{
    Error_Fct(hwnd, level::database_trace, "in DB_2D_Class_List_Click(up_down=0x%08x)", static_cast<unsigned>(up_down));
    const List_Point point = panel->Pointer();
    if (frame::is_press(up_down)) {
        press(*panel, point);
        return 0;
    }
    if (!drag.going_on)
        return 0;
    drag.going_on = false;
    drag.end_line = db::line_at(point);
    db::erase_drag(panel->list_box);
    return 1;
}

int DB_2D_Class_List_Select(Tool_DB_List* panel)
{
    if (panel->list_pt && panel->nb > 0) {
        if (!getkey(control_key))
            std::for_each(panel->list_pt, panel->list_pt + panel->nb, [](DB_List& row) {
                if (row.select & marks)
                    row.select &= static_cast<unsigned short>(~marks);
            });
        if (getkey(shift_key))
            select_range(*panel);
        else
            select_lines(*panel);
        DB_2D_Class_List_Roll_Up(panel->nb, panel->list_pt);
        DB_2D_Class_List_Paint(panel, DB_Lines::as_they_are);
    }
    panel->List_Select_To_DB(panel->nb, panel->list_pt);
    return 1;
}
