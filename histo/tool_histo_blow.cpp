#include "histo/tool_histo_blow.h"

#include "frame/own_window.h"
#include "frame/report.h"
#include "histo/graph_window.h"
#include "histo/tool_histo.h"
#include "host/basics.h"
#include "host/structures.h"

#include <cstdint>

namespace histo::graph {

namespace {

constexpr const char* class_name = "Histogram";
constexpr const char* title = "Histogram Graph";
constexpr COLORREF background = 0xAAAAAA;
constexpr int first_width = 800;
constexpr int first_height = 400;

// ------------------------------------------------------------------------------------------------------ positions

// From the client area's upper left corner to its lower left one.
Place upward(int x, int y)
{
    return {x, the_window().height - y - 1};
}

// Where a mouse message happened; widgets are told, too.
Place record_pointer(HWND window, LPARAM lparam)
{
    const POINT place = frame::record_pointer(window, lparam);
    return upward(place.x, place.y);
}

// ------------------------------------------------------------------------------------------------------- messages

void created(HWND window, const CREATESTRUCTA* description)
{
    Window& graph = the_window();
    graph.handle = window; // messages come before the call that creates it has returned
    graph.instance = description->hInstance;
    RECT client{};
    GetClientRect(window, &client);
    graph.width = static_cast<short>(client.right);
    graph.height = static_cast<short>(client.bottom);
    graph.zoomed = false;
    graph.x = graph.y = {};
    graph.dragging = false;
    graph.band.reset();
    graph.banded = false;
    graph.cursor_x = 0;
    graph.wheel = 0;
    lay_out(window);
    EnableWindow(window, TRUE);
    ShowWindow(window, SW_SHOW);
    graph.frame_x = GetSystemMetrics(SM_CXFRAME) + 4;
    graph.caption = GetSystemMetrics(SM_CYCAPTION);
    graph.frame_y = GetSystemMetrics(SM_CYFRAME) + 4;
}

void destroyed()
{
    Window& graph = the_window();
    graph.handle = nullptr;
    if (Tool_Histo* owner = graph.owner) {
        graph.owner = nullptr;
        owner->Draw(); // its button is no longer pressed
    }
}

void sized(HWND window, WPARAM kind, LPARAM lparam)
{
    Window& graph = the_window();
    graph.width = static_cast<short>(LOWORD(static_cast<std::uintptr_t>(lparam)));
    graph.height = static_cast<short>(HIWORD(static_cast<std::uintptr_t>(lparam)));
    if (kind == SIZE_MINIMIZED || graph.width <= 0 || graph.height <= 0)
        return;
    lay_out(window);
    InvalidateRect(window, nullptr, TRUE);
}

void wheel(HWND window, WPARAM wparam, LPARAM lparam)
{
    Window& graph = the_window();
    graph.wheel += static_cast<short>(HIWORD(wparam));
    if (graph.wheel > -WHEEL_DELTA && graph.wheel < WHEEL_DELTA)
        return;
    const int steps = graph.wheel / WHEEL_DELTA;
    graph.wheel %= WHEEL_DELTA;
    // The wheel's positions are the screen's.
    POINT point{static_cast<short>(LOWORD(static_cast<std::uintptr_t>(lparam))),
        static_cast<short>(HIWORD(static_cast<std::uintptr_t>(lparam)))};
    ScreenToClient(window, &point);
    Y_Cursor(window, point.x, point.y);
    scroll(upward(point.x, point.y), steps);
}

// Takes messages out of the queue that a later one makes needless.
void drain(HWND window, UINT message)
{
    MSG waiting;
    while (PeekMessageA(&waiting, window, message, message, PM_REMOVE)) {
    }
}

LRESULT pen(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    Pen_Record record{};
    if (!Fct_Pointer_Pen(window, message, wparam, lparam, &record))
        return DefWindowProcA(window, message, wparam, lparam);
    const Window& graph = the_window();
    RECT outside{};
    GetWindowRect(window, &outside);
    const int x = record.x - outside.left - graph.frame_x;
    const int y = record.y - outside.top - graph.caption - graph.frame_y;
    Y_Cursor(window, x, y);
    if (message == WM_POINTERUPDATE) {
        drain(window, WM_POINTERUPDATE);
        motion(upward(x, y), record.buttons);
        return 0;
    }
    int up_down = (message == WM_POINTERDOWN ? 2 : 0) | record.buttons;
    if ((up_down & 3) == 3)
        up_down &= ~1;
    click(upward(x, y), up_down);
    return 0;
}

LRESULT touch(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    Gesture_Record gesture{};
    if (!Fct_Pointer_Touch(window, message, wparam, lparam, &gesture))
        return DefWindowProcA(window, message, wparam, lparam);
    stop_drag();
    drain(window, WM_MOUSEMOVE);
    pinch(gesture.move_x, gesture.move_y, gesture.zoom_x, gesture.zoom_y);
    return 0;
}

void paint(HWND window)
{
    PAINTSTRUCT painted;
    BeginPaint(window, &painted);
    draw();
    EndPaint(window, &painted);
}

}

LRESULT CALLBACK WndProc_Histo_Blow(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    constexpr int message_level = 18;
    if (Flag_Trace >= 8)
        SystMessage_Stool(message_level, "WndProc_Histo_Blow", window, message);
    switch (message) {
    case WM_CREATE:
        created(window, reinterpret_cast<const CREATESTRUCTA*>(lparam));
        return 0;
    case WM_DESTROY:
        destroyed();
        return 0;
    case WM_SIZE:
        sized(window, wparam, lparam);
        return 0;
    case WM_KILLFOCUS:
        return 0;
    case WM_PAINT:
        paint(window);
        return 0;
    case WM_CLOSE:
        DestroyWindow(window);
        return 0;
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_CHAR:
    case WM_SYSKEYDOWN:
        if (!Parse_Keyboard(window, message, wparam, lparam))
            return DefWindowProcA(window, message, wparam, lparam); // Alt and F4 close it
        key();
        return 0;
    case WM_MOUSEMOVE: {
        const int buttons = frame::held_buttons();
        motion(record_pointer(window, lparam), buttons ? buttons | 1 : 0);
        return 0;
    }
    case WM_LBUTTONDOWN:
        click(record_pointer(window, lparam), 2 | frame::held_buttons());
        return 0;
    case WM_LBUTTONUP:
        click(record_pointer(window, lparam), frame::held_buttons());
        return 0;
    case WM_MOUSEWHEEL:
        wheel(window, wparam, lparam);
        return 0;
    case WM_POINTERDOWN:
    case WM_POINTERUP:
    case WM_POINTERUPDATE:
        return pen(window, message, wparam, lparam);
    case WM_TOUCH:
        return touch(window, message, wparam, lparam);
    case changed:
        if (the_window().has_peaks() != the_window().laid_out_with_peaks)
            draw();
        else
            plot();
        return 0;
    case pointer_moved:
        if (the_window().shows_cursor())
            move_cursor();
        return 0;
    default:
        return DefWindowProcA(window, message, wparam, lparam);
    }
}

namespace {

HWND create(HINSTANCE instance)
{
    return CreateWindowExA(WS_EX_ACCEPTFILES, class_name, title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
        CW_USEDEFAULT, first_width, first_height, nullptr, nullptr, instance, nullptr);
}

void raise(HWND window)
{
    EnableWindow(window, TRUE);
    ShowWindow(window, SW_SHOW);
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

}

Window& the_window()
{
    static Window& window = *new Window;
    return window;
}

void register_class()
{
    Window& graph = the_window();
    if (graph.registered)
        return;
    graph.instance = frame::instance_of_active_window();
    WNDCLASSA description{};
    description.style = CS_HREDRAW | CS_VREDRAW;
    description.lpfnWndProc = WndProc_Histo_Blow;
    description.hInstance = graph.instance;
    description.hIcon = LoadIconA(graph.instance, "MAINICON");
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.hbrBackground = CreateSolidBrush(background);
    description.lpszClassName = class_name;
    graph.registered = RegisterClassA(&description) != 0;
    if (!graph.registered)
        DeleteObject(description.hbrBackground);
}

bool exists()
{
    return the_window().handle != nullptr;
}

void open(Tool_Histo* panel)
{
    Window& graph = the_window();
    if (exists())
        return raise(graph.handle);
    register_class();
    const HINSTANCE registered_for = graph.instance;
    graph.owner = panel;
    graph.handle = create(frame::instance_of_active_window());
    if (!graph.handle) // the class is known by another instance's name
        graph.handle = create(registered_for);
    if (!graph.handle) {
        graph.owner = nullptr;
        return;
    }
    RegisterTouchWindow(graph.handle, 0);
    EnableWindow(graph.handle, TRUE);
    BringWindowToTop(graph.handle);
}

void close(const Tool_Histo* going)
{
    Window& graph = the_window();
    if (graph.owner == going)
        graph.owner = nullptr;
    if (exists())
        DestroyWindow(graph.handle);
    graph.handle = nullptr;
}

void post(UINT message)
{
    if (exists())
        PostMessageA(the_window().handle, message, 0, 0);
}

}

HWND Histo_Graph_Window()
{
    return histo::graph::the_window().handle;
}
