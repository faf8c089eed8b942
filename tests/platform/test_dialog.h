#pragma once

#include "platform/windows_api.h"

#include <functional>
#include <string>
#include <vector>

namespace test {

/// What a dialog's procedure does with a message; TRUE when it is done with.
using Dialog_Handler = std::function<INT_PTR(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam)>;

/// A template without controls.
class Dialog_Template {
public:
    explicit Dialog_Template(const std::string& caption = "Rename", short width = 240, short height = 75);
    DLGTEMPLATE* get() { return reinterpret_cast<DLGTEMPLATE*>(bytes_.data()); }

private:
    std::vector<DWORD> bytes_;
};

/// Runs a dialog. WM_USER is posted to it before it runs.
INT_PTR run_dialog(
    HWND owner, const Dialog_Handler& handler, LPARAM parameter = 0, Dialog_Template description = Dialog_Template());

}
