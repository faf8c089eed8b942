#pragma once

#include "hostkit/embedding/panel_events.h"
#include "hostkit/structures/broadcast.h"

#include <functional>

namespace hostkit {

/// The colours and the font of a panel.
struct Panel_Look {
    Colors frame{0x3a, 0x40, 0x48};
    Colors back{0x20, 0x24, 0x28};
    Colors text{0xd6, 0xda, 0xde};
    HFONT font = nullptr; ///< null: the font that the variables `"$INTERFACE_TOOL_FONT_..."` name
    unsigned state = 66;  ///< the area's option bits: 66, and bit 20 (0x100000) to show pressed marks
};

/// What a program knows of a panel that its slot cannot know.
struct Panel_Rules {
    /// Receives what `Click` returned, while the panel call is still on the stack: the place to write a variable and to
    /// send the change. Null: the result says nothing.
    std::function<void(int result)> clicked;

    /// After the delivery of a word with any of these bits the panel is drawn again.
    unsigned long long redraw_bits = 0;
};

/// Bits 60, 47, 46, 45, 44, 38, 23, 22 and 21: what a panel must read again after a layout.
constexpr unsigned long long refresh_after_layout = 0x1000F04000E00000ull;

/// The child window of a panel: its client area is the panel's rectangle. It feeds the panel with layout, painting,
/// mouse, wheel, keyboard and changes.
///
/// From the press to the release of all mouse buttons every event goes to the panel where the press happened; it hears
/// `Leave` only afterwards. With Alt held the wheel is left to the parent window. While `"$INTERFACE_LOCK_FOCUS"` is
/// not 0 no panel hears of mouse, wheel, keys or `Leave`: they end here.
class STRUCTURES_API Panel_Window {
public:
    /// @param parent  the window that the panel's own becomes a child of; empty and hidden until it is moved and shown
    Panel_Window(HWND parent, Panel_Events& panel, Panel_Rules rules);
    ~Panel_Window();
    Panel_Window(const Panel_Window&) = delete;
    Panel_Window& operator=(const Panel_Window&) = delete;

    HWND window() const { return window_; }

    /// Gives the panel other colours and lays it out with them.
    void Set_Look(const Panel_Look& look);

    /// Resize, Draw and a full refresh: after a change of the interface's dimensions, of the font or of a count that
    /// the layout depends on. A new window size does it by itself.
    void Lay_Out();

    /// Gives the panel a key, as the pointer's panel gets them before any shortcut: a character (Unicode), 8, 9, 13,
    /// 27, or 2048 + virtual-key code. @return whether the panel used it
    bool Keyboard(int key);

    /// Whether a name is being edited in this panel, so that keys are text and no shortcuts.
    bool Editing() const;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
    LRESULT Handle(UINT message, WPARAM wparam, LPARAM lparam);
    bool Mouse(UINT message, WPARAM wparam, LPARAM lparam);
    bool Wheel(WPARAM wparam, LPARAM lparam);
    bool Key(UINT message, WPARAM wparam, LPARAM lparam);

    void Sized(int width, int height);
    void Paint();
    void Draw();
    void Draw_Editor();
    void Press(int up_down);
    void Release(int up_down);
    void Move(int up_down);
    void Leave();
    void Leave_If_Owed();
    void End_Capture();
    void End_Capture_If_Released();
    void Updated(unsigned long long flags);
    bool Pointer_Outside() const;

    Panel_Events& panel_;
    Panel_Rules rules_;
    Panel_Look look_;
    HWND window_ = nullptr;
    HFONT own_font_ = nullptr;
    int width_ = 0;
    int height_ = 0;
    int wheel_rest_ = 0;      // what is left of the wheel's turn below one notch
    bool captured_ = false;   // between a press and the release of all buttons
    bool pointer_in_ = false; // the panel will have to hear Leave
    bool owes_leave_ = false; // it was due while the focus was locked
    Subscription updates_;
};

}
