#pragma once

#include "platform/qt/window.h"

#include <QPointer>

/// A dialog from a template, for as long as the call that shows it.
class Dialog {
public:
    /// @param owner  the top-level widget that it belongs to; may be null
    Dialog(HINSTANCE instance, const DLGTEMPLATE& description, QWidget* owner, DLGPROC procedure);
    ~Dialog();
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    /// The dialog of a window; null for other windows.
    static Dialog* of(HWND window);

    INT_PTR run(LPARAM parameter);
    void end(INT_PTR result);

    /// Whether a key that goes to a window is its dialog's own; then it has been dealt with.
    static bool takes_key(const MSG& message);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT handle(UINT message, WPARAM wparam, LPARAM lparam);
    void take_input();
    void give_input_back();

    QPointer<QWidget> owner_;
    QPointer<QWidget> had_focus_;
    HWND disabled_ = nullptr;
    DLGPROC procedure_;
    HBRUSH background_;
    HWND window_ = nullptr;
    Modal_Loop loop_;
    INT_PTR result_ = 0;
    bool started_ = false;
    bool ended_ = false;
    bool has_input_ = false;
};
