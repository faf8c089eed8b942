#include "histo/tool_histo_blow.h"

#include "histo/tool_histo.h"

namespace histo::graph {

namespace {

constexpr const char* class_name = "Histogram";
constexpr const char* title = "Histogram Graph";
constexpr COLORREF background = 0xAAAAAA;
constexpr int first_width = 800;
constexpr int first_height = 400;

// Plain data: it outlives every window and panel.
struct Graph {
    HINSTANCE instance = nullptr;
    bool registered = false;
    HWND window = nullptr;
    Tool_Histo* owner = nullptr;
};
Graph graph;

HINSTANCE instance_of_active_window()
{
    const HWND active = GetActiveWindow();
    const auto instance = active ? reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(active, GWLP_HINSTANCE)) : nullptr;
    return instance ? instance : GetModuleHandleA(nullptr);
}

void closed()
{
    graph.window = nullptr;
    if (Tool_Histo* owner = graph.owner) {
        graph.owner = nullptr;
        owner->Draw(); // its button is no longer pressed
    }
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    switch (message) {
    case WM_CREATE:
        graph.window = window; // messages come before the call that creates it has returned
        return 0;
    case WM_DESTROY:
        closed();
        return 0;
    default:
        return DefWindowProcA(window, message, wparam, lparam);
    }
}

HWND create(HINSTANCE instance)
{
    return CreateWindowExA(WS_EX_ACCEPTFILES, class_name, title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
        CW_USEDEFAULT, first_width, first_height, nullptr, nullptr, instance, nullptr);
}

void raise()
{
    EnableWindow(graph.window, TRUE);
    ShowWindow(graph.window, SW_SHOW);
    SetWindowPos(graph.window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

}

void register_class()
{
    if (graph.registered)
        return;
    graph.instance = instance_of_active_window();
    WNDCLASSA description{};
    description.style = CS_HREDRAW | CS_VREDRAW;
    description.lpfnWndProc = procedure;
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
    return graph.window != nullptr;
}

void open(Tool_Histo* panel)
{
    if (exists())
        return raise();
    register_class();
    graph.owner = panel;
    graph.window = create(instance_of_active_window());
    if (!graph.window) // the class is known by another instance's name
        graph.window = create(graph.instance);
    if (!graph.window) {
        graph.owner = nullptr;
        return;
    }
    RegisterTouchWindow(graph.window, 0);
    EnableWindow(graph.window, TRUE);
    BringWindowToTop(graph.window);
}

void close(const Tool_Histo* going)
{
    if (graph.owner == going)
        graph.owner = nullptr;
    if (exists())
        DestroyWindow(graph.window);
    graph.window = nullptr;
}

void post(UINT message)
{
    if (exists())
        PostMessageA(graph.window, message, 0, 0);
}

}
