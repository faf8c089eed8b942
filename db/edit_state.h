#pragma once

#include "db/edit_layout.h"

namespace db {

/// A diagram that is being worked with.
struct Diagram_View {
    int dimension;
    const Boxs& box;
    int nb;
    DB_List* list;
    const Sliders& vertical;
    const Sliders& horizontal;

    bool empty() const { return nb <= 0 || !list; }
    List_Point origin() const { return list_origin(box, vertical, horizontal); }
};

/// What the pointer is doing in a diagram. There is one pointer, so there is one for all panels.
struct Edit_State {
    const Boxs* hovered_in = nullptr; ///< the list box
    int hovered = 0;                  ///< hit code of the part that is highlighted; 0 for none
    int begun = 0; ///< hit code of the handle where the drag began: what is dragged follows from it; 0 for no drag
};

inline Edit_State edit_state;

/// Where the drag of this diagram began; 0 when there is none.
inline int begun_in(const Boxs& box)
{
    return drag.going_on && drag.begun_in == &box ? edit_state.begun : 0;
}

/// No part of this diagram is highlighted any more: it has been painted over.
inline void forget_hover(const Boxs& box)
{
    if (edit_state.hovered_in == &box)
        edit_state.hovered = 0;
}

/// Calls a function for the rows that are dragged, in their order, until it returns true. @return whether it did
template <class Call>
bool any_dragged(const Diagram_View& view, const Call& call)
{
    const int begun = begun_in(view.box);
    const int row = row_of_hit(begun);
    if (part_of_hit(begun) == parent_handle)
        return call(row);
    if (part_of_hit(begun) != children_handle)
        return false;
    for (int i = row + 1; i < view.nb && view.list[i].level > view.list[row].level; ++i) {
        if (view.list[i].parent == row && call(i))
            return true;
    }
    return false;
}

inline bool is_dragged(const Diagram_View& view, int row)
{
    const int begun = begun_in(view.box);
    if (part_of_hit(begun) == parent_handle)
        return row == row_of_hit(begun);
    return part_of_hit(begun) == children_handle && row > 0 && view.list[row].parent == row_of_hit(begun);
}

}
