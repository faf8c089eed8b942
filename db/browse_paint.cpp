#include "db/browse_measure.h"
#include "db/browse_view.h"
#include "db/drag.h"
#include "db/rows.h"
#include "db/scroll_range.h"
#include "db/tool_db_list.h"
#include "frame/drawing.h"
#include "frame/painting.h"
#include "frame/registry.h"
#include "frame/wide_text.h"
#include "host/basics.h"

#include <algorithm>
#include <array>

using db::indent;
using db::line_height;
using frame::Wide_Text;

namespace {

constexpr COLORREF blue = 0x00FF0000;
constexpr COLORREF yellow = 0x0000FFFF;
constexpr COLORREF black = 0x00000000;
constexpr COLORREF dark_red = 0x00000080;

// ---------------------------------------------------------------------------------------------------- numbering

using Level_Flags = std::array<bool, db::deepest_level + 1>;

std::size_t level_index(int level)
{
    return static_cast<std::size_t>(std::min(level, db::deepest_level));
}

struct Numbering {
    int lines = 0;              // that the list has
    int row = 0;                // on the line that was asked for
    Level_Flags last_sibling{}; // whether the last row of a level, above that line, had no further sibling
};

// Memory is written only where there is something new.
void set_line(DB_List& row, int line)
{
    if (row.line != line)
        row.line = static_cast<unsigned short>(line);
}

int hide(DB_List* first, DB_List* end)
{
    for (DB_List* row = first; row < end; ++row)
        set_line(*row, DB_List::hidden_line);
    return static_cast<int>(end - first);
}

Numbering number_lines(int nb, DB_List* list, int asked_line)
{
    Numbering result;
    for (int i = 0; i < nb; ++i) {
        DB_List& row = list[i];
        if (result.lines == DB_List::hidden_line) {
            hide(list + i, list + nb);
            break;
        }
        if (result.lines == asked_line)
            result.row = i;
        else if (result.lines < asked_line)
            result.last_sibling[level_index(row.level)] = (row.state & DB_List::last_sibling) != 0;
        set_line(row, result.lines++);
        // Where nothing is hidden the next row is known before this one has come from memory.
        if (row.nb_desc > 0 && !(row.state & DB_List::expanded))
            i += hide(list + i + 1, list + std::min(i + 1 + row.nb_desc, nb));
    }
    return result;
}

// The same, when the lines have their numbers. What is above a row and matters is what it lies in.
bool find_lines(int nb, const DB_List* list, int asked_line, Numbering& result)
{
    const int last = nb > 0 ? db::shown_row(nb - 1, list) : -1;
    if (last < 0 || asked_line > list[last].line)
        return false;
    result.lines = list[last].line + 1;
    result.row = db::row_on_line(asked_line, nb, list);
    if (result.row < 0 || list[result.row].level > db::deepest_level)
        return false;
    for (int row = result.row; list[row].level > 0;) {
        if (list[row].parent >= row)
            return false;
        row = list[row].parent;
        result.last_sibling[level_index(list[row].level)] = (list[row].state & DB_List::last_sibling) != 0;
    }
    return true;
}

// A line begins half a line below the first one's edge, so one more is seen in part.
int first_line(const Sliders& vertical)
{
    return std::max(static_cast<int>(vertical.value) / line_height - 1, 0);
}

// ------------------------------------------------------------------------------------------------------- drawing

void icon(const Boxs& box, int x, int line_y, const char* file)
{
    constexpr int below_text = 5; // its middle is that of the small letters
    if (file)
        Icon_Draw_Image(&box, x, line_y - below_text, Prog_Name, file);
}

bool is_inaccessible(const DB_List& row)
{
    return (row.state & DB_List::inaccessible) || (row.select & DB_List::locked);
}

COLORREF name_color(const DB_List& row)
{
    if (row.state & DB_List::inaccessible)
        return blue;
    if (row.select == DB_List::selected)
        return black;
    return row.select & DB_List::locked ? dark_red : blue;
}

// Draws the rows that are seen.
class Row_Painter {
public:
    Row_Painter(const Boxs& box, const db::List_Point& origin, const db::Row_Fonts& fonts, int space)
        : box_(box), origin_(origin), fonts_(fonts), space_(space), colon_(": ")
    {
        SetTextAlign(Y_DC, TA_LEFT | TA_BASELINE);
        SetBkMode(Y_DC, TRANSPARENT);
        SelectObject(Y_DC, fonts.title);
        colon_width_ = colon_.width();
    }

    void draw_anchor() const
    {
        constexpr int below_top = 3, icon_height = 16;
        Icon_Draw_Image(&box_, origin_.x, origin_.y - below_top - icon_height, Prog_Name, "icon anchor.tga");
    }

    int y_of(int line) const
    {
        constexpr int first = 19;
        return origin_.y - first - line_height * line;
    }

    // Connectors reach up into the line above.
    bool is_seen(int line) const { return y_of(line) + line_height > box_.y; }

    void draw(const DB_List& row, const Level_Flags& last_sibling) const
    {
        const int y = y_of(row.line);
        const int x = origin_.x + indent * row.level;
        draw_connectors(row, last_sibling, y);
        draw_lead(row, x, y);
        icon(box_, x + indent, y, row.icon);
        if (row.select == DB_List::partly_selected)
            icon(box_, x + 2 * indent, y, "icon check yellow.tga");
        else if (row.select == DB_List::selected && !(row.state & DB_List::inaccessible))
            icon(box_, x + 2 * indent, y, "icon check green.tga");
        draw_texts(x + 3 * indent + space_, y, row.title, row.color, row.name, name_color(row));
        draw_items(row, y);
    }

private:
    const Boxs& box_;
    db::List_Point origin_;
    db::Row_Fonts fonts_;
    int space_;
    Wide_Text colon_;
    int colon_width_ = 0;

    void draw_connectors(const DB_List& row, const Level_Flags& last_sibling, int y) const
    {
        constexpr int in_lead = 7, down = 2, up = 18;
        Current_Color = blue;
        const frame::Selected pen(CreatePen(PS_SOLID, 1, Current_Color));
        for (int level = 0; level < row.level; ++level) {
            if (last_sibling[level_index(level)])
                continue;
            const int x = origin_.x + in_lead + indent * level;
            MoveToEx(Y_DC, x, y - down, nullptr);
            LineTo(Y_DC, x, y + up);
        }
    }

    void draw_lead(const DB_List& row, int x, int y) const
    {
        constexpr int down = 8, up = 16;
        const auto draw_kind = is_inaccessible(row)            ? Icon_Lead_No_Access
                               : row.state & DB_List::leaf     ? Icon_Lead_Leaf
                               : row.state & DB_List::expanded ? Icon_Lead_Expand
                                                               : Icon_Lead_Collapse;
        draw_kind(&box_, !(row.state & DB_List::last_sibling), x, x + indent, y - down, y + up);
    }

    void draw_texts(int x, int y, const char* title, COLORREF color, const char* name, COLORREF color_of_name) const
    {
        if (title) {
            const Wide_Text text(title);
            SelectObject(Y_DC, fonts_.title);
            SetTextColor(Y_DC, color ? color : yellow);
            text.draw(x, y);
            x += text.width();
            colon_.draw(x, y);
            x += colon_width_;
        }
        if (name) {
            SelectObject(Y_DC, fonts_.name);
            SetTextColor(Y_DC, color_of_name);
            Wide_Text(name).draw(x, y);
        }
    }

    void draw_items(const DB_List& row, int y) const
    {
        for (int i = 0; row.item_x && i < std::min<int>(row.nb_item, db::most_columns); ++i)
            draw_texts(origin_.x + static_cast<int>(row.item_x[i]), y, row.item_title ? row.item_title[i] : nullptr,
                row.item_color ? row.item_color[i] : 0, row.item_name ? row.item_name[i] : nullptr, name_color(row));
    }
};

void draw_rows(const Tool_DB_List& panel, const db::Row_Fonts& fonts, int space, const Numbering& numbered)
{
    const Boxs& box = panel.list_box;
    const frame::Clip clip(box);
    const HGDIOBJ font_before = SelectObject(Y_DC, fonts.title);
    const Row_Painter painter(box, panel.Origin(), fonts, space);
    painter.draw_anchor();
    Level_Flags last_sibling = numbered.last_sibling;
    for (int i = numbered.row; i < panel.nb; ++i) {
        const DB_List& row = panel.list_pt[i];
        if (row.line == DB_List::hidden_line)
            continue;
        if (!painter.is_seen(row.line))
            break;
        painter.draw(row, last_sibling);
        last_sibling[level_index(row.level)] = (row.state & DB_List::last_sibling) != 0;
    }
    SelectObject(Y_DC, font_before);
}

}

int DB_2D_Class_List_Paint(Tool_DB_List* panel, DB_Lines lines)
{
    if (!panel->list_pt)
        return 0;
    const Boxs& box = panel->list_box;
    Numbering numbered;
    if (lines == DB_Lines::anew || !find_lines(panel->nb, panel->list_pt, first_line(panel->vertical), numbered))
        numbered = number_lines(panel->nb, panel->list_pt, first_line(panel->vertical));
    if (!box.window)
        return 1;
    const int height = (numbered.lines + 1) * line_height;
    const frame::Drawing context(box.window, "DB_2D_Class_List_Paint");
    if (!context.ready() || box.width <= 0 || box.height <= 0)
        return 1;
    const int space = frame::dimension("$INTERFACE_SPACE_DIM");
    const db::Row_Fonts fonts = db::row_fonts(box);
    const int width = panel->List_Width(fonts, space) + 2 * space;
    const bool moved_down = db::keep_within(panel->vertical, box.height, height);
    const bool moved_across = db::keep_within(panel->horizontal, box.width, width);
    if (moved_down)
        numbered = number_lines(panel->nb, panel->list_pt, first_line(panel->vertical));
    panel->list_box.Clear(box.back);
    draw_rows(*panel, fonts, space, numbered);
    db::forget_drag(box);
    db::set_range(panel->vertical, box.height, height, db::vertical_looks);
    db::set_range(panel->horizontal, box.width, width, db::horizontal_looks);
    if (moved_down)
        panel->vertical.Adjust();
    if (moved_across)
        panel->horizontal.Adjust();
    return 1;
}

void DB_2D_Class_List_Reset_Sliders(Tool_DB_List* panel)
{
    db::set_range(panel->vertical, panel->list_box.height, 0, db::vertical_looks);
    db::set_range(panel->horizontal, panel->list_box.width, 0, db::horizontal_looks);
}
