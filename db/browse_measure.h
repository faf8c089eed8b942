#pragma once

#include "db/db_list.h"
#include "db/drag.h"

namespace db {

/// What the rows' texts are drawn with.
struct Row_Fonts {
    HFONT title = nullptr;
    HFONT name = nullptr;
};

/// The interface's font, and the same in bold: made once for all panels, when there is a name for it. Until then those
/// of the list box.
Row_Fonts row_fonts(const Boxs& list_box);

/// How wide a list is. Known until its rows are others.
struct Measured_Rows {
    const DB_List* list = nullptr;
    int nb = 0;
    HFONT font = nullptr;
    int space = 0;
    int width = 0; ///< of the widest row, pixels

    bool is_of(int count, const DB_List* rows, const Row_Fonts& fonts, int between) const
    {
        return list == rows && nb == count && font == fonts.title && space == between;
    }
};

/// Measures all rows, hidden ones too, and places the columns of their items. Needs Y_DC.
Measured_Rows measure_rows(int nb, DB_List* list, const Row_Fonts& fonts, int space);

/// Columns of items beyond these are not shown.
constexpr int most_columns = 100;

/// Rows deeper than this are told apart no more.
constexpr int deepest_level = 99;

constexpr int line_height = 18;

/// The line at a place; lines need not be there.
constexpr int line_at(const List_Point& place)
{
    constexpr int above_first_line = 9; // pixels
    return (place.y - above_first_line) / line_height;
}

constexpr int indent = 20;

}
