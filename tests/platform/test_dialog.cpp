#include "tests/platform/test_dialog.h"

#include "tests/platform/test_window.h"

#include <cstring>

namespace test {

namespace {

// Of the dialogs that run, the innermost last.
std::vector<Dialog_Handler> handlers;

INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam)
{
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(dialog, GWLP_USERDATA, static_cast<LONG_PTR>(handlers.size()));
        PostMessageA(dialog, WM_USER, 0, 0);
    }
    const auto number = static_cast<size_t>(GetWindowLongPtrA(dialog, GWLP_USERDATA));
    return number == 0 ? FALSE : Dialog_Handler(handlers[number - 1])(dialog, message, wparam, lparam);
}

}

Dialog_Template::Dialog_Template(const std::string& caption, short width, short height)
{
    constexpr WCHAR no_menu_and_class[] = {0, 0};
    const auto text = wide(caption);
    const size_t text_bytes = (text.size() + 1) * sizeof(WCHAR);
    bytes_.resize((sizeof(DLGTEMPLATE) + sizeof no_menu_and_class + text_bytes) / sizeof(DWORD) + 1);
    *get() = {WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, 0, 0, 10, 10, width, height};
    auto* const texts = reinterpret_cast<char*>(bytes_.data()) + sizeof(DLGTEMPLATE);
    std::memcpy(texts + sizeof no_menu_and_class, text.c_str(), text_bytes);
}

INT_PTR run_dialog(HWND owner, const Dialog_Handler& handler, LPARAM parameter, Dialog_Template description)
{
    handlers.push_back(handler);
    const INT_PTR result =
        DialogBoxIndirectParamA(GetModuleHandleA(nullptr), description.get(), owner, procedure, parameter);
    handlers.pop_back();
    return result;
}

}
