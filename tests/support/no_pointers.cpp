#include "host/structures.h"

// A host without pens, touches and files to choose.

int Fct_Pointer_Pen(HWND, UINT, WPARAM, LPARAM, Pen_Record*)
{
    return 0;
}

int Fct_Pointer_Touch(HWND, UINT, WPARAM, LPARAM, Gesture_Record*)
{
    return 0;
}

int Fct_Save_FileName(const char*, const char*, const char*, const char*, char*, int)
{
    return 0;
}

char* Fct_Create_szFilter(int, ...)
{
    static char nothing[] = {0, 0};
    return nothing;
}
