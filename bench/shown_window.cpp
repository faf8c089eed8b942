#include "bench/shown_window.h"

HWND bench::shown_window(int width, int height)
{
    WNDCLASSA description{};
    description.lpfnWndProc = DefWindowProcA;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = "Vetra bench";
    RegisterClassA(&description);
    const HWND window = CreateWindowExA(0, description.lpszClassName, "", WS_OVERLAPPEDWINDOW, 0, 0, width, height,
        nullptr, nullptr, description.hInstance, nullptr);
    ShowWindow(window, SW_SHOW);
    return window;
}
