#pragma once

#include "db/tool_db_list.h"

/// The list of the host's classes: the tree of 1D, 2D or 3D objects below `"$DB_1D_ROOT_PT"`, `"$DB_2D_ROOT_PT"` or
/// `"$DB_3D_ROOT_PT"`, by its dimension. A leaf that cannot be selected is not accessible. Of the 2D tree, objects
/// titled "Cuda_Volume" are left out with all below them, and those whose titles begin with "Acquis" are shown
/// collapsed.
///
/// A selection goes to the host (0x101, 0x102 or 0x104 is sent, and everything redrawn), the uppermost selected 2D
/// object into the current window.
class VETRA_TOOLS_API Tool_DB_Class : public Tool_DB_List {
public:
    /// @param mode the dimension, and whether it edits, as Tool_DB_List::Mode says
    explicit Tool_DB_Class(int mode = 2);

    unsigned short List_Create_From_DB(int* nb, DB_List** list_pt, int level, int parent, void* object) override;
    void List_Select_From_DB(int nb, DB_List* list) override;
    void List_Select_To_DB(int nb, DB_List* list) override;
};
