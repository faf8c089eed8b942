#include "tests/support/modal_work.h"

#include <utility>

namespace test {

namespace {

std::function<void(HWND)> posted;

LRESULT CALLBACK worker(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    if (message != WM_USER)
        return DefWindowProcA(window, message, wparam, lparam);
    const HWND captured = GetCapture();
    if (const auto work = std::exchange(posted, {}))
        work(captured);
    SendMessageA(captured, WM_KEYDOWN, VK_ESCAPE, 0);
    return 0;
}

HWND make_worker()
{
    WNDCLASSA description{};
    description.lpfnWndProc = worker;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = "Vetra modal work";
    RegisterClassA(&description);
    return CreateWindowExA(0, "Vetra modal work", "", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10, nullptr, nullptr,
        GetModuleHandleA(nullptr), nullptr);
}

}

Modal_Work::Modal_Work() : window_(make_worker()) {}

Modal_Work::~Modal_Work()
{
    DestroyWindow(window_);
}

void Modal_Work::post(std::function<void(HWND)> work)
{
    posted = std::move(work);
    PostMessageA(window_, WM_USER, 0, 0);
}

bool Modal_Work::done() const
{
    return !posted;
}

}
