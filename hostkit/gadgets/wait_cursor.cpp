#include "host/gadgets.h"

namespace {

int waiting = 0; // how many wait
HCURSOR before = nullptr;

}

void Set_Curs_Wait(HWND)
{
    if (waiting++ == 0)
        before = SetCursor(LoadCursorA(nullptr, IDC_WAIT));
}

void Reset_Curs_Wait(HWND)
{
    if (waiting == 0)
        return;
    if (--waiting == 0)
        SetCursor(before);
}
