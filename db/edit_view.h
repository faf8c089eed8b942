#pragma once

#include "db/db_list.h"

// The class tree as a diagram that is rearranged with the mouse. A panel in edit mode hands its events on to these,
// with its list box, rows and bars. Every change is made in the host's objects at once, and the host is told
// (0x401, 0x402 or 0x404); the rows follow when they are made anew.

/// What a click did.
enum DB_Edit_Result : int { db_edit_unused = 0, db_edit_used = 1, db_edit_tree_changed = 2 };

/// Paints the diagram and sets the ranges of the sliders, without drawing them. @param mode of the panel
/// @return 1, or 0 when there is no list
int DB_Edit_Paint(int mode, Boxs* box, int nb, DB_List* list, Sliders* vertical, Sliders* horizontal);

/// What is under the pointer. @return 10 times the row, and the part: 0 the box, 1 the handle to its parent, 2 to its
/// children, 3 the one that folds; 0 also for nothing. Of a diagram that was painted
int DB_Edit_Locate(const Boxs* box, int nb, const DB_List* list, const Sliders* horizontal, const Sliders* vertical);

/// A press on a parent's handle begins to drag a class, on a children's handle all the children of one; a release on a
/// children's handle puts them there. A class is never put under itself or what is below it. A press on the third
/// handle folds and unfolds, the right button on a box renames.
/// @return a DB_Edit_Result
int DB_Edit_Click_DB(int mode, Boxs* box, int up_down, int nb, DB_List* list, Sliders* vertical, Sliders* horizontal);

/// Delete on a box takes a class out of the tree; its children take its place.
/// @return 1 when the tree was changed, else 0: the root stays
int DB_Edit_Key_DB(int mode, Boxs* box, int key, int nb, DB_List* list, Sliders* vertical, Sliders* horizontal);

/// Shows what is dragged, and what is under the pointer. A motion without a button ends a drag. @return 1
int DB_Edit_Motion_DB(int mode, Boxs* box, int up_down, int nb, DB_List* list, Sliders* vertical, Sliders* horizontal);

/// The pointer is elsewhere: nothing is highlighted.
void DB_Edit_Leave(
    int mode, const Boxs* box, int nb, DB_List* list, const Sliders* vertical, const Sliders* horizontal);

/// Forgets what is dragged and what is under the pointer: the rows of this box are others.
void DB_Edit_Forget(const Boxs* box);
