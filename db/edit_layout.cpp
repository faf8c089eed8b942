#include "db/edit_layout.h"

#include "db/rows.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace db {

namespace {

// Of a folded class all children but the first are hidden.
bool is_folded_away(int row, const DB_List* list)
{
    const DB_List& one = list[row];
    const bool first_child = one.parent == row - 1;
    return one.level > 0 && !first_child && !(list[one.parent].state & DB_List::expanded);
}

// The row itself, or the last one before it that is shown: what lies below the first child of the class that hides it.
int shown_until(int row, const DB_List* list)
{
    while (list[row].line == DB_List::hidden_line) {
        int folded = row;
        do {
            if (list[folded].parent >= folded)
                return -1;
            folded = list[folded].parent;
        } while (list[folded].line == DB_List::hidden_line);
        const int last_below_first_child = folded + 1 + list[folded + 1].nb_desc;
        if (last_below_first_child >= row)
            return -1;
        row = last_below_first_child;
    }
    return row;
}

}

Diagram_Size number_diagram(int nb, DB_List* list)
{
    Diagram_Size size;
    int level_before = 0;
    for (int i = 0; i < nb;) {
        if (is_folded_away(i, list)) {
            for (const int end = end_of_subtree(i, nb, list); i < end; ++i)
                list[i].line = DB_List::hidden_line;
            continue;
        }
        DB_List& row = list[i++];
        if (size.lines == 0 || row.level <= level_before)
            ++size.lines;
        row.line = static_cast<unsigned short>(size.lines - 1);
        level_before = row.level;
        size.deepest = std::max<int>(size.deepest, row.level);
    }
    return size;
}

// What is shown is in the order of lines, and within a line of levels.
int row_in_diagram(int line, int level, int nb, const DB_List* list)
{
    if (!list || nb <= 0 || line < 0 || line >= DB_List::hidden_line || level < 0)
        return -1;
    const auto place = [&](int row) { return std::pair<int, int>(list[row].line, list[row].level); };
    const std::pair wanted(line, level);
    int first = 0, last = nb - 1;
    while (first < last) {
        const int middle = (first + last + 1) / 2;
        const int shown = shown_until(middle, list);
        if (shown < 0)
            return -1;
        if (place(shown) <= wanted)
            first = middle;
        else
            last = shown - 1;
    }
    const int found = shown_until(std::max(last, 0), list);
    return found >= 0 && place(found) == wanted ? found : -1;
}

std::optional<int> find_in_diagram(const List_Point& place, int nb, const DB_List* list)
{
    constexpr int reach = 10, handle_reach = 11, above_box = 5; // pixels
    const int column = (place.x + handle_radius) / column_width;
    const int line = (place.y - above_box) / diagram_line_height;
    const int found = row_in_diagram(line, column, nb, list);
    if (found < 0)
        return {};
    const DB_List& row = list[found];
    const int x = place.x - column_width * column;
    const int y = place.y - diagram_line_height * line;
    if (std::abs(y - handle_depth) < handle_reach) {
        if (std::abs(x - box_width) <= reach && has_children_handle(row))
            return hit_code(found, children_handle);
        if (std::abs(x - fold_handle_x) <= reach)
            return has_fold_handle(row) ? std::optional(hit_code(found, fold_handle)) : std::nullopt;
        if (std::abs(x) <= reach && found != 0)
            return hit_code(found, parent_handle);
    }
    const bool in_box = y <= box_top + box_height && x <= box_width;
    return in_box ? std::optional(hit_code(found, box_body)) : std::nullopt;
}

}
