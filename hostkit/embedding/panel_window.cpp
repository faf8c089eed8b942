#include "hostkit/embedding/panel_window.h"

#include "host/basics.h"
#include "hostkit/embedding/mouse_words.h"
#include "hostkit/gadgets/input.h"
#include "hostkit/gadgets/text_editing.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/windows.h"

#include <exception>
#include <utility>

namespace hostkit {

namespace {

constexpr const char* class_name = "Vetra Panel";

void register_class(WNDPROC procedure)
{
    WNDCLASSA description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.lpszClassName = class_name;
    RegisterClassA(&description); // fails, harmlessly, when it is there already
}

HFONT make_tool_font()
{
    return Y_Create_Font(String_Variable("$INTERFACE_TOOL_FONT_NAME"), Variable<short>("$INTERFACE_TOOL_FONT_SCALE"),
        String_Variable("$INTERFACE_TOOL_FONT_WEIGHT"));
}

}

Panel_Window::Panel_Window(HWND parent, Panel_Events& panel, Panel_Rules rules)
    : panel_(panel), rules_(std::move(rules))
{
    register_class(Procedure);
    window_ =
        CreateWindowExA(0, class_name, "", WS_CHILD, 0, 0, 0, 0, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    updates_ = On_Update([this](unsigned long long flags) { Updated(flags); });
}

Panel_Window::~Panel_Window()
{
    SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
    if (IsWindow(window_))
        DestroyWindow(window_);
    if (own_font_)
        DeleteObject(own_font_);
}

LRESULT CALLBACK Panel_Window::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    auto* self = reinterpret_cast<Panel_Window*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (!self)
        return DefWindowProcA(window, message, wparam, lparam);
    try {
        return self->Handle(message, wparam, lparam);
    } catch (const std::exception& error) {
        Error_Fct(hwnd, 2, "A panel could not finish what it was asked for: %s", error.what());
        return 0;
    }
}

LRESULT Panel_Window::Handle(UINT message, WPARAM wparam, LPARAM lparam)
{
    bool used = true;
    switch (message) {
    case WM_SIZE:
        Sized(LOWORD(lparam), HIWORD(lparam));
        break;
    case WM_PAINT:
        Paint();
        break;
    case WM_MOUSELEAVE:
    case WM_KILLFOCUS:
        Leave();
        break;
    case WM_MOUSEWHEEL:
        used = Wheel(wparam, lparam);
        break;
    case WM_CHAR:
    case WM_KEYDOWN:
        used = Key(message, wparam, lparam);
        break;
    default:
        used = Mouse(message, wparam, lparam);
    }
    return used ? 0 : DefWindowProcA(window_, message, wparam, lparam);
}

// --------------------------------------------------------------------------------------- layout and painting

void Panel_Window::Set_Look(const Panel_Look& look)
{
    look_ = look;
    Lay_Out();
}

void Panel_Window::Sized(int width, int height)
{
    if (width == width_ && height == height_)
        return;
    width_ = width;
    height_ = height;
    Lay_Out();
}

void Panel_Window::Lay_Out()
{
    if (width_ <= 0 || height_ <= 0)
        return;
    if (own_font_)
        DeleteObject(own_font_);
    own_font_ = look_.font ? nullptr : make_tool_font();

    Boxs area;
    area.window = window_;
    area.width = static_cast<short>(width_);
    area.height = static_cast<short>(height_);
    area.border = Variable<short>("$INTERFACE_BORDER_DIM");
    area.state = look_.state;
    area.frame = look_.frame;
    area.back = look_.back;
    area.text = look_.text;
    area.font = look_.font ? look_.font : own_font_;

    const Panel_Call call;
    panel_.Resize(&area);
    Draw();
    panel_.Update(refresh_after_layout);
}

void Panel_Window::Paint()
{
    PAINTSTRUCT paint;
    BeginPaint(window_, &paint);
    EndPaint(window_, &paint); // the panel takes contexts of its own
    const Panel_Call call;
    Draw();
}

void Panel_Window::Draw()
{
    panel_.Draw();
    Draw_Editor();
}

bool Panel_Window::Editing() const
{
    const Texts* editor = Active_Text();
    return editor && editor->window == window_;
}

// Panels draw their buttons, not the editor that lies over one of them.
void Panel_Window::Draw_Editor()
{
    if (Editing())
        Active_Text()->Draw();
}

void Panel_Window::Updated(unsigned long long flags)
{
    Leave_If_Owed();
    panel_.Update(flags);
    if (flags & rules_.redraw_bits)
        panel_.Draw();
    Draw_Editor();
}

// ------------------------------------------------------------------------------------------------------- mouse

bool Panel_Window::Mouse(UINT message, WPARAM wparam, LPARAM lparam)
{
    const Mouse_Event event = Mouse_Event_Of(message);
    if (event == Mouse_Event::none)
        return false;
    Record_Pointer(window_, {static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))});
    if (Focus_Is_Locked())
        return true;
    const int up_down = Up_Down_Word(event, wparam);
    switch (event) {
    case Mouse_Event::press:
        Press(up_down);
        break;
    case Mouse_Event::release:
        Release(up_down);
        break;
    default:
        Move(up_down);
    }
    End_Capture_If_Released();
    return true;
}

void Panel_Window::Press(int up_down)
{
    SetFocus(window_);
    SetCapture(window_);
    captured_ = true;
    pointer_in_ = true;
    const Panel_Call call;
    const int result = panel_.Click(up_down);
    if (rules_.clicked)
        rules_.clicked(result);
}

void Panel_Window::Release(int up_down)
{
    {
        const Panel_Call call;
        panel_.Click(up_down);
    }
    if (up_down == 0)
        End_Capture();
}

void Panel_Window::Move(int up_down)
{
    if (!captured_ && Pointer_Outside())
        return;
    if (!pointer_in_ || std::exchange(owes_leave_, false)) {
        TRACKMOUSEEVENT track{sizeof(TRACKMOUSEEVENT), TME_LEAVE, window_, 0};
        TrackMouseEvent(&track);
        pointer_in_ = true;
    }
    const Panel_Call call;
    panel_.Motion(up_down);
}

void Panel_Window::Leave()
{
    if (captured_ || !pointer_in_)
        return;
    owes_leave_ = Focus_Is_Locked();
    if (owes_leave_)
        return;
    pointer_in_ = false;
    const Panel_Call call;
    panel_.Leave();
}

void Panel_Window::Leave_If_Owed()
{
    if (std::exchange(owes_leave_, false))
        Leave();
}

bool Panel_Window::Pointer_Outside() const
{
    POINT pointer{YCursor_X, YCursor_Y};
    ScreenToClient(window_, &pointer);
    return pointer.x < 0 || pointer.y < 0 || pointer.x >= width_ || pointer.y >= height_;
}

void Panel_Window::End_Capture()
{
    captured_ = false;
    ReleaseCapture();
    {
        const Panel_Call call;
        panel_.Motion(0); // the thumb lets go
    }
    if (Pointer_Outside())
        Leave();
}

// A dialog or an opened list that ran inside the panel's call may have swallowed the release.
void Panel_Window::End_Capture_If_Released()
{
    if (captured_ && !getbutton(VK_LBUTTON) && !getbutton(VK_MBUTTON) && !getbutton(VK_RBUTTON))
        End_Capture();
}

bool Panel_Window::Wheel(WPARAM wparam, LPARAM lparam)
{
    if (getkey(VK_MENU))
        return false;
    if (Focus_Is_Locked())
        return true;
    YCursor_X = static_cast<short>(LOWORD(lparam));
    YCursor_Y = static_cast<short>(HIWORD(lparam));
    wheel_rest_ += static_cast<short>(HIWORD(wparam));
    const int notches = wheel_rest_ / WHEEL_DELTA;
    wheel_rest_ %= WHEEL_DELTA;
    if (notches == 0)
        return true;
    const Panel_Call call;
    const bool used = panel_.Scroll(notches) != 0;
    End_Capture_If_Released();
    return used;
}

// ---------------------------------------------------------------------------------------------------- keyboard

bool Panel_Window::Key(UINT message, WPARAM wparam, LPARAM lparam)
{
    const int key = Parse_Keyboard(window_, message, wparam, lparam);
    return key != 0 && Keyboard(key);
}

bool Panel_Window::Keyboard(int key)
{
    if (Focus_Is_Locked())
        return true;
    const Panel_Call call;
    YKey = key;
    const bool used = panel_.Keyboard(key) != 0;
    YKey = 0;
    return used;
}

}
