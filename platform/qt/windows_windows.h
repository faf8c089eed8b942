#pragma once

#include "platform/qt/windows_types.h"

// Windows, messages, keyboard and mouse. What the Windows documentation says of a call is what it does here.

using WNDPROC = LRESULT (*)(HWND, UINT, WPARAM, LPARAM);

struct WNDCLASSA {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
};

struct WNDCLASSEXA {
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
    HICON hIconSm;
};

struct CREATESTRUCTA {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCSTR lpszName;
    LPCSTR lpszClass;
    DWORD dwExStyle;
};

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};

struct TRACKMOUSEEVENT {
    DWORD cbSize;
    DWORD dwFlags;
    HWND hwndTrack;
    DWORD dwHoverTime;
};

struct MONITORINFO {
    DWORD cbSize;
    RECT rcMonitor; ///< the screen
    RECT rcWork;    ///< what windows may cover of it
    DWORD dwFlags;
};

constexpr UINT CS_HREDRAW = 0x0002;
constexpr UINT CS_VREDRAW = 0x0001;

constexpr DWORD WS_OVERLAPPED = 0x00000000;
constexpr DWORD WS_POPUP = 0x80000000;
constexpr DWORD WS_CHILD = 0x40000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
constexpr DWORD WS_CAPTION = 0x00C00000;
constexpr DWORD WS_SYSMENU = 0x00080000;
constexpr DWORD WS_OVERLAPPEDWINDOW = 0x00CF0000;
constexpr DWORD WS_EX_ACCEPTFILES = 0x00000010;
constexpr DWORD WS_EX_TOPMOST = 0x00000008;
constexpr DWORD WS_EX_TOOLWINDOW = 0x00000080;
constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000);

constexpr UINT WM_NULL = 0x0000;
constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_ENABLE = 0x000A;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_QUIT = 0x0012;
constexpr UINT WM_CANCELMODE = 0x001F;
constexpr UINT WM_NCCREATE = 0x0081;
constexpr UINT WM_GETDLGCODE = 0x0087; ///< which keys a window wants for itself
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;
constexpr UINT WM_CHAR = 0x0102;
constexpr UINT WM_SYSKEYDOWN = 0x0104; ///< with Alt, or Alt itself; no character follows
constexpr UINT WM_SYSKEYUP = 0x0105;
constexpr UINT WM_INITDIALOG = 0x0110;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONUP = 0x0205;
constexpr UINT WM_MBUTTONDOWN = 0x0207;
constexpr UINT WM_MBUTTONUP = 0x0208;
constexpr UINT WM_MOUSEWHEEL = 0x020A;
constexpr UINT WM_MOUSELEAVE = 0x02A3;
constexpr UINT WM_USER = 0x0400;

constexpr WPARAM SIZE_RESTORED = 0;
constexpr WPARAM SIZE_MINIMIZED = 1;

constexpr WPARAM MK_LBUTTON = 0x0001;
constexpr WPARAM MK_RBUTTON = 0x0002;
constexpr WPARAM MK_SHIFT = 0x0004;
constexpr WPARAM MK_CONTROL = 0x0008;
constexpr WPARAM MK_MBUTTON = 0x0010;
constexpr int WHEEL_DELTA = 120;

constexpr int VK_LBUTTON = 0x01;
constexpr int VK_RBUTTON = 0x02;
constexpr int VK_MBUTTON = 0x04;
constexpr int VK_BACK = 0x08;
constexpr int VK_TAB = 0x09;
constexpr int VK_RETURN = 0x0D;
constexpr int VK_SHIFT = 0x10;
constexpr int VK_CONTROL = 0x11;
constexpr int VK_MENU = 0x12;
constexpr int VK_ESCAPE = 0x1B;
constexpr int VK_SPACE = 0x20;
constexpr int VK_PRIOR = 0x21;
constexpr int VK_NEXT = 0x22;
constexpr int VK_END = 0x23;
constexpr int VK_HOME = 0x24;
constexpr int VK_LEFT = 0x25;
constexpr int VK_UP = 0x26;
constexpr int VK_RIGHT = 0x27;
constexpr int VK_DOWN = 0x28;
constexpr int VK_INSERT = 0x2D;
constexpr int VK_DELETE = 0x2E;
constexpr int VK_F1 = 0x70;

constexpr UINT PM_NOREMOVE = 0x0000;
constexpr UINT PM_REMOVE = 0x0001;
constexpr int SW_HIDE = 0;
constexpr int SW_SHOW = 5;
constexpr UINT SWP_NOSIZE = 0x0001;
constexpr UINT SWP_NOMOVE = 0x0002;
constexpr UINT SWP_NOZORDER = 0x0004;
constexpr UINT SWP_NOACTIVATE = 0x0010;
constexpr UINT SWP_SHOWWINDOW = 0x0040;
constexpr int GWLP_USERDATA = -21;
constexpr int GWLP_HINSTANCE = -6;
constexpr DWORD TME_LEAVE = 0x00000002;
constexpr DWORD MONITOR_DEFAULTTONEAREST = 2;
constexpr int SM_CXSCREEN = 0;
constexpr int SM_CYSCREEN = 1;
constexpr int SM_CYCAPTION = 4;
constexpr int SM_CXFRAME = 32;
constexpr int SM_CYFRAME = 33;

// The names of the system's cursors are numbers in the place of texts.
#define IDC_ARROW reinterpret_cast<LPCSTR>(std::uintptr_t{32512})
#define IDC_IBEAM reinterpret_cast<LPCSTR>(std::uintptr_t{32513})
#define IDC_WAIT reinterpret_cast<LPCSTR>(std::uintptr_t{32514})
#define IDC_CROSS reinterpret_cast<LPCSTR>(std::uintptr_t{32515})
#define IDC_HAND reinterpret_cast<LPCSTR>(std::uintptr_t{32649})

// Places in the stack of windows, in the place of one's handle.
#define HWND_TOP reinterpret_cast<HWND>(std::intptr_t{0})
#define HWND_TOPMOST reinterpret_cast<HWND>(std::intptr_t{-1})

WINAPI_CALL HMODULE GetModuleHandleA(LPCSTR name);

/// The path of the running program, whatever the module. @return its length; 0 when it is not known, `size` when there
/// is not enough room, which is filled then
WINAPI_CALL DWORD GetModuleFileNameW(HMODULE module, WCHAR* path, DWORD size);

/// Classes are known by their names alone, before there is an application, too.
WINAPI_CALL ATOM RegisterClassA(const WNDCLASSA* description);
WINAPI_CALL ATOM RegisterClassExA(const WNDCLASSEXA* description);
WINAPI_CALL BOOL UnregisterClassA(LPCSTR name, HINSTANCE instance);

/// The first window makes the QApplication if there is none; without a display that is an offscreen one. The size of a
/// top-level window is its client area's: the frame is the desktop's. A WS_POPUP window has no frame; while it is shown
/// it gets the mouse and the keys of the whole program, whether it asks for the capture or not.
WINAPI_CALL HWND CreateWindowExA(DWORD extended_style, LPCSTR class_name, LPCSTR title, DWORD style, int x, int y,
    int width, int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter);
WINAPI_CALL BOOL DestroyWindow(HWND window);
WINAPI_CALL BOOL IsWindow(HWND window);
WINAPI_CALL BOOL IsWindowVisible(HWND window);
WINAPI_CALL BOOL ShowWindow(HWND window, int command);
WINAPI_CALL BOOL EnableWindow(HWND window, BOOL enable);
WINAPI_CALL BOOL IsWindowEnabled(HWND window);
WINAPI_CALL BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);

/// `after` is HWND_TOP, or HWND_TOPMOST, which keeps a window of its own above all others as far as the desktop lets
/// it.
WINAPI_CALL BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
WINAPI_CALL BOOL BringWindowToTop(HWND window);

/// Null, too, while what is active is no window of this kind, as when it is a widget of Qt's.
WINAPI_CALL HWND GetActiveWindow();

WINAPI_CALL HWND GetParent(HWND window);
WINAPI_CALL BOOL GetClientRect(HWND window, RECT* client);

/// In screen coordinates. A top-level window with a title has a frame of SM_CXFRAME + 4 at its sides, SM_CYFRAME + 4 at
/// its top and bottom and a caption of SM_CYCAPTION around its client area, whatever the desktop shows.
WINAPI_CALL BOOL GetWindowRect(HWND window, RECT* rectangle);
WINAPI_CALL BOOL ClientToScreen(HWND window, POINT* point);
WINAPI_CALL BOOL ScreenToClient(HWND window, POINT* point);
WINAPI_CALL BOOL SetWindowTextA(HWND window, LPCSTR text);
WINAPI_CALL int GetWindowTextA(HWND window, LPSTR text, int size);
WINAPI_CALL LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
WINAPI_CALL LONG_PTR GetWindowLongPtrA(HWND window, int index);
WINAPI_CALL BOOL InvalidateRect(HWND window, const RECT* rectangle, BOOL erase);
WINAPI_CALL BOOL UpdateWindow(HWND window);
WINAPI_CALL HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
WINAPI_CALL BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);
WINAPI_CALL LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

WINAPI_CALL BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last);

/// A peek for some messages only (`last` is not 0) looks at what was posted and runs nothing else.
WINAPI_CALL BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove);
WINAPI_CALL BOOL TranslateMessage(const MSG* message);
WINAPI_CALL LRESULT DispatchMessageA(const MSG* message);
WINAPI_CALL LRESULT SendMessageA(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
WINAPI_CALL BOOL PostMessageA(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
WINAPI_CALL void PostQuitMessage(int exit_code);

WINAPI_CALL HWND SetFocus(HWND window);
WINAPI_CALL HWND GetFocus();
WINAPI_CALL HWND SetCapture(HWND window);
WINAPI_CALL HWND GetCapture();
WINAPI_CALL BOOL ReleaseCapture();
WINAPI_CALL BOOL TrackMouseEvent(TRACKMOUSEEVENT* track);
WINAPI_CALL BOOL GetCursorPos(POINT* point);
WINAPI_CALL BOOL SetCursorPos(int x, int y);
WINAPI_CALL HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name);

/// Always null: programs bring no icons here, their windows have the application's.
WINAPI_CALL HICON LoadIconA(HINSTANCE instance, LPCSTR name);
WINAPI_CALL HCURSOR SetCursor(HCURSOR cursor);
WINAPI_CALL int GetSystemMetrics(int index);
WINAPI_CALL HMONITOR MonitorFromPoint(POINT point, DWORD otherwise);
WINAPI_CALL BOOL GetMonitorInfoA(HMONITOR monitor, MONITORINFO* information);

/// The interface thread's table of keys and buttons; bit 15 of the result and bit 7 of a byte: down.
WINAPI_CALL SHORT GetKeyState(int key);
WINAPI_CALL BOOL GetKeyboardState(BYTE* keys);
WINAPI_CALL BOOL SetKeyboardState(BYTE* keys);
