#include "host/basics.h"

namespace {

const char* name_of(UINT message)
{
#define NAME(name)                                                                                                     \
    case name:                                                                                                         \
        return #name
    switch (message) {
        NAME(WM_NULL);
        NAME(WM_CREATE);
        NAME(WM_DESTROY);
        NAME(WM_SIZE);
        NAME(WM_SETFOCUS);
        NAME(WM_KILLFOCUS);
        NAME(WM_ENABLE);
        NAME(WM_PAINT);
        NAME(WM_CLOSE);
        NAME(WM_QUIT);
        NAME(WM_NCCREATE);
        NAME(WM_KEYDOWN);
        NAME(WM_KEYUP);
        NAME(WM_CHAR);
        NAME(WM_SYSKEYDOWN);
        NAME(WM_MOUSEMOVE);
        NAME(WM_LBUTTONDOWN);
        NAME(WM_LBUTTONUP);
        NAME(WM_RBUTTONDOWN);
        NAME(WM_RBUTTONUP);
        NAME(WM_MBUTTONDOWN);
        NAME(WM_MBUTTONUP);
        NAME(WM_MOUSEWHEEL);
        NAME(WM_TOUCH);
        NAME(WM_POINTERUPDATE);
        NAME(WM_POINTERDOWN);
        NAME(WM_POINTERUP);
        NAME(WM_MOUSELEAVE);
    default:
        return nullptr;
    }
#undef NAME
}

}

int SystMessage_Stool(int level, const char* procedure, HWND window, UINT message)
{
    const char* const where = procedure ? procedure : "---";
    const char* const name = name_of(message);
    return name ? Error_Fct(window, level, "%s: %s", where, name)
                : Error_Fct(window, level, "%s: 0x%04x", where, message);
}
