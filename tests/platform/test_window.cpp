#include "tests/platform/test_window.h"

#include <algorithm>

namespace test {

const char* test_class()
{
    return "platform test window";
}

Test_Window::Test_Window(HWND parent, int width, int height, Handler early, bool visible) : handler(std::move(early))
{
    WNDCLASSA description{};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.lpszClassName = test_class();
    RegisterClassA(&description); // refused for all windows but the first
    const DWORD kind = parent ? WS_CHILD : WS_OVERLAPPEDWINDOW;
    handle_ = CreateWindowExA(0, test_class(), "test", kind | (visible ? WS_VISIBLE : 0), parent ? 0 : 50,
        parent ? 0 : 50, width, height, parent, nullptr, description.hInstance, this);
}

Test_Window::~Test_Window()
{
    if (!IsWindow(handle_))
        return;
    SetWindowLongPtrA(handle_, GWLP_USERDATA, 0);
    DestroyWindow(handle_);
}

LRESULT CALLBACK Test_Window::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    if (message == WM_CREATE) {
        const auto* create = reinterpret_cast<const CREATESTRUCTA*>(lparam);
        SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<Test_Window*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!self)
        return DefWindowProcA(window, message, wparam, lparam);
    self->handle_ = window;
    self->messages_.push_back({message, wparam, lparam});
    const Handler now = self->handler; // it may be replaced while it runs
    const std::optional<LRESULT> answer = now ? now(message, wparam, lparam) : std::nullopt;
    return answer ? *answer : DefWindowProcA(window, message, wparam, lparam);
}

int Test_Window::count(UINT message) const
{
    return static_cast<int>(
        std::count_if(messages_.begin(), messages_.end(), [=](const Message& one) { return one.message == message; }));
}

const Message* Test_Window::last(UINT message) const
{
    const auto found =
        std::find_if(messages_.rbegin(), messages_.rend(), [=](const Message& one) { return one.message == message; });
    return found == messages_.rend() ? nullptr : &*found;
}

void pump()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

std::basic_string<WCHAR> wide(const std::string& text)
{
    const int bytes = static_cast<int>(text.size());
    const int units = MultiByteToWideChar(CP_UTF8, 0, text.c_str(), bytes, nullptr, 0);
    std::basic_string<WCHAR> result(static_cast<size_t>(units), WCHAR{});
    MultiByteToWideChar(CP_UTF8, 0, text.c_str(), bytes, result.data(), units);
    return result;
}

}
