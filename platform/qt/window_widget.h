#pragma once

#include "platform/windows_api.h"

class QImage;
class QWidget;

// Where windows meet Qt: for the workbench and the tests that know Qt.

/// The widget of a window, to be put into a layout or given another parent; null for a window that is none. The window
/// is made with WS_CHILD and no parent then.
WINAPI_CALL QWidget* Widget_From_Window(HWND window);

/// The window of a widget; null for a widget that is none of ours.
WINAPI_CALL HWND Window_From_Widget(const QWidget* widget);

/// What the window shows, at the screen's scale.
WINAPI_CALL QImage Window_Picture(HWND window);

/// While set, keys go to the window before they are shortcuts, and Tab does not move the focus: a text is being typed.
WINAPI_CALL void Window_Takes_Keys(HWND window, bool takes);
