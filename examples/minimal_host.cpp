// The least that a program does to be a host: one window with a tag panel in it, the panel's variables, and what a
// click on a tag means. No toolkit is named here; the window comes from the platform layer.
//
//     minimal_host                    opens the window and runs until it is closed
//     minimal_host --picture FILE     chooses a tag, names it, writes what the panel shows as FILE (PPM) and ends

#include "host/basics.h"
#include "hostkit/embedding/panel_slot.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "tools/tool_tag.h"

#include <cstdio>
#include <cstring>
#include <string>

using namespace hostkit;

namespace {

constexpr unsigned long long current_tag_changed = 1ull << 22;
constexpr int rows = 4;

// A tag was clicked: it becomes the current one, and every panel hears of it.
void choose_tag(int tag)
{
    if (tag < 0)
        return;
    Variable<unsigned short>("$TAG_CUR") = static_cast<unsigned short>(tag);
    Fct_Update(current_tag_changed, nullptr, nullptr, nullptr);
}

LRESULT CALLBACK main_window(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    if (message == WM_SIZE) {
        if (const HWND panel = reinterpret_cast<HWND>(GetWindowLongPtrA(window, GWLP_USERDATA)))
            MoveWindow(panel, 0, 0, LOWORD(lparam), HIWORD(lparam), TRUE);
        return 0;
    }
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    return DefWindowProcA(window, message, wparam, lparam);
}

HWND open_window(int width, int height)
{
    WNDCLASSA description{};
    description.lpfnWndProc = main_window;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.lpszClassName = "Minimal host";
    RegisterClassA(&description);
    return CreateWindowExA(0, description.lpszClassName, "Tags", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
        width, height, nullptr, nullptr, description.hInstance, nullptr);
}

int run_until_closed()
{
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return 0;
}

// What a person does: a right click on a tag, Backspace over its number, a name, Enter; then a left click on it. `x`
// and `y` count from the upper left corner, as window messages do.
void name_and_choose(HWND panel, int x, int y, const char* name)
{
    const LPARAM place = MAKELPARAM(x, y);
    SendMessageA(panel, WM_RBUTTONDOWN, MK_RBUTTON, place);
    SendMessageA(panel, WM_RBUTTONUP, 0, place);
    SendMessageA(panel, WM_CHAR, VK_BACK, 0); // an unnamed tag offers its number
    for (const char* letter = name; *letter; ++letter)
        SendMessageA(panel, WM_CHAR, static_cast<WPARAM>(*letter), 0);
    SendMessageA(panel, WM_CHAR, VK_RETURN, 0);
    SendMessageA(panel, WM_LBUTTONDOWN, MK_LBUTTON, place);
    SendMessageA(panel, WM_LBUTTONUP, 0, place);
}

bool write_picture(HWND window, const char* path)
{
    RECT client;
    GetClientRect(window, &client);
    std::string pixels = "P6\n" + std::to_string(client.right) + " " + std::to_string(client.bottom) + "\n255\n";
    const HDC context = GetDC(window);
    for (int y = 0; y < client.bottom; ++y) {
        for (int x = 0; x < client.right; ++x) {
            const COLORREF color = GetPixel(context, x, y);
            for (const int channel : {GetRValue(color), GetGValue(color), GetBValue(color)})
                pixels += static_cast<char>(channel);
        }
    }
    ReleaseDC(window, context);
    std::FILE* file = std::fopen(path, "wb");
    if (!file)
        return false;
    const bool written = std::fwrite(pixels.data(), 1, pixels.size(), file) == pixels.size();
    return std::fclose(file) == 0 && written;
}

}

int main(int argc, char** argv)
{
    Registry_Reset();
    Segmentation_Reset();
    const int width = 420;
    const int height = Tool_Tag().Height(rows);
    hwnd = open_window(width, height);

    Panel_Slot<Tool_Tag> tags(hwnd, {.clicked = choose_tag});
    SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(tags.window()));
    MoveWindow(tags.window(), 0, 0, width, height, TRUE);
    ShowWindow(tags.window(), SW_SHOW);
    ShowWindow(hwnd, SW_SHOW);

    if (argc == 3 && std::strcmp(argv[1], "--picture") == 0) {
        name_and_choose(tags.window(), width / 3, height / 2, "Liver");
        if (write_picture(tags.window(), argv[2]))
            return 0;
        std::fprintf(stderr, "%s could not be written\n", argv[2]);
        return 1;
    }
    return run_until_closed();
}
