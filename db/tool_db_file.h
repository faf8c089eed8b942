#pragma once

#include "db/tool_db_list.h"

/// The list of the files that are open (`"$DB_2D_FILE_NB"`, `"$DB_2D_FILE_PT"`), by directories, with their frames. A
/// frame is selected when a 2D object that shows it is. The dimension does not matter.
///
/// A selection goes to those objects; for each that changes 0x102 is sent and a redraw asked for.
class VETRA_TOOLS_API Tool_DB_File : public Tool_DB_List {
public:
    explicit Tool_DB_File(int mode = 2);

    /// Appends all files; the last three arguments do not matter. @return 1, or 0 when memory or row numbers run out:
    /// the rows so far stay
    unsigned short List_Create_From_DB(int* nb, DB_List** list_pt, int level, int parent, void* object) override;
    void List_Select_From_DB(int nb, DB_List* list) override;
    void List_Select_To_DB(int nb, DB_List* list) override;
};
