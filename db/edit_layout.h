#pragma once

#include "db/db_list.h"
#include "db/drag.h"

#include <optional>

/// The diagram of a class tree: each row in the column of its level, a first child beside its parent, its siblings
/// below. Where everything is, in list coordinates.
namespace db {

constexpr int column_width = 330;
constexpr int diagram_line_height = 50;
constexpr int box_width = 250;
constexpr int box_top = 10; ///< below the top of its line
constexpr int box_height = 40;
constexpr int handle_depth = 30; ///< the middle of the box, below the top of its line
constexpr int handle_radius = 8;
constexpr int fold_handle_x = 290; ///< from the left edge of the box

/// The parts of a box that take the pointer.
enum Diagram_Part : int {
    box_body = 0,
    parent_handle = 1,
    children_handle = 2,
    fold_handle = 3,
};

/// A row and a part of it in one number, as handlers pass it on; 0 also stands for nothing.
constexpr int hit_code(int row, Diagram_Part part)
{
    return 10 * row + part;
}
constexpr int row_of_hit(int code)
{
    return code / 10;
}
constexpr Diagram_Part part_of_hit(int code)
{
    return static_cast<Diagram_Part>(code % 10);
}

constexpr bool has_children_handle(const DB_List& row)
{
    return row.nb_child >= 1;
}
constexpr bool has_fold_handle(const DB_List& row)
{
    return row.nb_child >= 2;
}

struct Diagram_Size {
    int lines = 0;
    int deepest = 0; ///< level of a row that is shown
};

/// Gives each row its line in the diagram: of a folded class only the first child is shown.
Diagram_Size number_diagram(int nb, DB_List* list);

/// The row in a line and column; -1 when there is none. The lines are numbered.
int row_in_diagram(int line, int level, int nb, const DB_List* list);

/// The hit code of a place; nothing where there is nothing. The lines are numbered.
std::optional<int> find_in_diagram(const List_Point& place, int nb, const DB_List* list);

/// The same as handlers pass it on: 0 also for nothing.
inline int hit_in_diagram(const List_Point& place, int nb, const DB_List* list)
{
    return find_in_diagram(place, nb, list).value_or(0);
}

}
