#include "db/edit_view.h"

#include "frame/report.h"

namespace level = frame::level;

// The diagram is not drawn yet: its place stays empty, and no event is used.

int DB_Edit_Paint(int, Boxs* box, int, DB_List* list, Sliders*, Sliders*)
{
    if (!list)
        return 0;
    box->Clear(box->back);
    return 1;
}

int DB_Edit_Locate(const Boxs*, int, const DB_List*, const Sliders*, const Sliders*)
{
    Error_Fct(hwnd, level::database_trace, "in DB_Edit_Locate()");
    return 0;
}

int DB_Edit_Click_DB(int, Boxs*, int up_down, int, DB_List*, Sliders*, Sliders*)
{
    Error_Fct(hwnd, level::database_trace, "in DB_Edit_Click_DB(up_down=0x%08x)", static_cast<unsigned>(up_down));
    return db_edit_unused;
}

int DB_Edit_Key_DB(int, Boxs*, int key, int, DB_List*, Sliders*, Sliders*)
{
    Error_Fct(hwnd, level::database_trace, "in DB_Edit_Key_DB(key=0x%08x)", static_cast<unsigned>(key));
    return 0;
}

int DB_Edit_Motion_DB(int, Boxs*, int up_down, int, DB_List*, Sliders*, Sliders*)
{
    Error_Fct(hwnd, level::database_trace, "in DB_Edit_Motion_DB(up_down=0x%08x)", static_cast<unsigned>(up_down));
    return 0;
}
