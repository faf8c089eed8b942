#pragma once

#include "db/db_list.h"

// The class tree as a diagram that is rearranged with the mouse. A panel in edit mode hands its events on to these.

/// What a click did.
enum DB_Edit_Result : int { db_edit_unused = 0, db_edit_used = 1, db_edit_tree_changed = 2 };

/// Paints the diagram and sets the ranges of the sliders, without drawing them. @param mode of the panel
/// @return 1, or 0 when there is no list
int DB_Edit_Paint(int mode, Boxs* box, int nb, DB_List* list, Sliders* vertical, Sliders* horizontal);

/// What is under the pointer. @return 10 times the row, and the part: 0 the box, 1 the handle to its parent, 2 to its
/// children, 3 the one that folds; 0 also for nothing
int DB_Edit_Locate(const Boxs* box, int nb, const DB_List* list, const Sliders* horizontal, const Sliders* vertical);

/// @return a DB_Edit_Result
int DB_Edit_Click_DB(int mode, Boxs* box, int up_down, int nb, DB_List* list, Sliders* vertical, Sliders* horizontal);

/// @return 1 when the tree was changed, else 0
int DB_Edit_Key_DB(int mode, Boxs* box, int key, int nb, DB_List* list, Sliders* vertical, Sliders* horizontal);

/// A motion without a button ends a drag. @return 1 when it was used, else 0
int DB_Edit_Motion_DB(int mode, Boxs* box, int up_down, int nb, DB_List* list, Sliders* vertical, Sliders* horizontal);
