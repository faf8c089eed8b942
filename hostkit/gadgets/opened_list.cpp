#include "hostkit/gadgets/opened_list.h"

#include "hostkit/gadgets/input.h"
#include "hostkit/gadgets/opened_list_place.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace hostkit {

namespace {

constexpr const char* class_name = "Vetra List";
constexpr int frame_width = 1;
constexpr int rows_per_notch = 3;
constexpr unsigned scroll_slider = 0xC000004; // vertical, its minimum at the top
constexpr unsigned hidden_slider = 7;
constexpr int left_press = 18;
constexpr int left_drag = 17;

void register_class(WNDPROC procedure)
{
    WNDCLASSA description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleA(nullptr);
    description.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    description.lpszClassName = class_name;
    RegisterClassA(&description); // fails, harmlessly, when it is there already
}

RECT on_screen(const Tools& widget)
{
    RECT client{};
    GetClientRect(widget.window, &client);
    POINT corner{widget.x, client.bottom - widget.y - widget.height};
    ClientToScreen(widget.window, &corner);
    return {corner.x, corner.y, corner.x + widget.width, corner.y + widget.height};
}

// What windows may cover of the screen that a place is on.
RECT screen_around(const RECT& place)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromPoint({place.left, place.top}, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

int row_height_of(const Selects& select)
{
    constexpr int least = 8;
    return std::max<int>(select.item_height > 0 ? select.item_height : select.height, least);
}

POINT point_of(LPARAM lparam)
{
    return {static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))};
}

}

Opened_List::Opened_List(const Selects& select)
    : select_(select), row_height_(row_height_of(select)), highlighted_(std::min<int>(select.value, select.Count() - 1))
{
    register_class(Procedure);
    const RECT widget = on_screen(select);
    const auto [place, rows] =
        place_opened_list(widget, screen_around(widget), select.Count(), row_height_, frame_width);
    rows_ = rows;
    window_ = CreateWindowExA(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, class_name, "", WS_POPUP, place.left, place.top,
        place.right - place.left, place.bottom - place.top, select.window, nullptr, GetModuleHandleA(nullptr), nullptr);
    if (window_)
        Open();
}

void Opened_List::Open()
{
    SetWindowLongPtrA(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    open_ = true;
    Place_Slider();
    Scroll_To(highlighted_ - rows_ / 2);
    focus_before_ = GetFocus();
    ShowWindow(window_, SW_SHOW);
    SetFocus(window_);
    capture_before_ = SetCapture(window_);
}

Opened_List::~Opened_List()
{
    open_ = false;
    const bool had_focus = GetFocus() == window_;
    if (IsWindow(window_)) {
        SetWindowLongPtrA(window_, GWLP_USERDATA, 0);
        ReleaseCapture();
        DestroyWindow(window_);
    }
    if (had_focus && focus_before_)
        SetFocus(focus_before_);
    if (capture_before_)
        SetCapture(capture_before_);
}

int Opened_List::Run()
{
    MSG message;
    while (open_) {
        const BOOL received = GetMessageA(&message, nullptr, 0, 0);
        if (received == 0)
            PostQuitMessage(static_cast<int>(message.wParam)); // for the loop around this one
        if (received <= 0)
            break;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return chosen_;
}

// The loop waits for a message: this is one.
void Opened_List::Close(int chosen)
{
    if (!std::exchange(open_, false))
        return;
    chosen_ = chosen;
    PostMessageA(nullptr, WM_NULL, 0, 0);
}

// ----------------------------------------------------------------------------------------------------- messages

LRESULT CALLBACK Opened_List::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    auto* self = reinterpret_cast<Opened_List*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (self && self->Handle(message, wparam, lparam))
        return 0;
    return DefWindowProcA(window, message, wparam, lparam);
}

bool Opened_List::Handle(UINT message, WPARAM wparam, LPARAM lparam)
{
    switch (message) {
    case WM_PAINT:
        Paint();
        return true;
    case WM_LBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_RBUTTONDOWN:
        Press(point_of(lparam));
        return true;
    case WM_LBUTTONUP:
    case WM_MBUTTONUP:
    case WM_RBUTTONUP:
        Release(point_of(lparam));
        return true;
    case WM_MOUSEMOVE:
        Move(point_of(lparam), (wparam & (MK_LBUTTON | MK_MBUTTON | MK_RBUTTON)) != 0);
        return true;
    case WM_MOUSEWHEEL:
        Turn_Wheel(static_cast<short>(HIWORD(wparam)), point_of(lparam));
        return true;
    case WM_KEYDOWN:
        Key(static_cast<int>(wparam));
        return true;
    case WM_KILLFOCUS:
    case WM_CLOSE:
    case WM_DESTROY:
        Close(-1);
        return true;
    default:
        return false;
    }
}

// ------------------------------------------------------------------------------------------------------ drawing

void Opened_List::Paint()
{
    PAINTSTRUCT paint;
    BeginPaint(window_, &paint);
    EndPaint(window_, &paint); // widgets take contexts of their own
    Draw();
}

void Opened_List::Draw()
{
    RECT client{};
    GetClientRect(window_, &client);
    const hostkit::Paint paint(window_, "Opened_List::Draw");
    paint.frame({0, 0, client.right, client.bottom}, frame_width, blend(select_.text, select_.back, 90));
    for (int row = 0; row < rows_; ++row)
        Draw_Row(paint, row);
    slider_.Draw();
}

// The current item has a bar at its left.
void Opened_List::Draw_Row(const hostkit::Paint& paint, int row) const
{
    constexpr int bar = 3;
    constexpr int margin = 8;
    const int item = First() + row;
    const Area area{frame_width, frame_width + (rows_ - 1 - row) * row_height_, slider_.x - frame_width, row_height_};
    paint.fill(area, blend(select_.text, select_.back, item == highlighted_ ? 60 : 14));
    if (item == select_.value)
        paint.fill({area.x, area.y, bar, area.height}, select_.text);
    paint.text({area.x + margin, area.y, area.width - margin - 2, area.height}, select_.Item(item), select_.font,
        select_.text);
}

// ---------------------------------------------------------------------------------------------------- scrolling

// Takes no room when all items are shown.
void Opened_List::Place_Slider()
{
    constexpr int usual_width = 12;
    RECT client{};
    GetClientRect(window_, &client);
    const bool scrolls = rows_ < select_.Count();
    const int slider_width = !scrolls ? 0 : select_.arrow > 0 ? select_.arrow : usual_width;
    slider_.x = static_cast<short>(client.right - frame_width - slider_width);
    slider_.y = frame_width;
    slider_.width = static_cast<short>(slider_width);
    slider_.height = static_cast<short>(rows_ * row_height_);
    slider_.back = select_.back;
    slider_.text = select_.text;
    slider_.state = scrolls ? scroll_slider : hidden_slider;
    slider_.maximum = static_cast<float>(select_.Count() - rows_);
    slider_.step = 1;
    slider_.Larg_Adjust(static_cast<float>(rows_), static_cast<float>(select_.Count()));
    slider_.Init(window_);
}

int Opened_List::First() const
{
    return static_cast<int>(std::lround(slider_.value));
}

void Opened_List::Scroll_To(int first)
{
    slider_.value = static_cast<float>(std::clamp(first, 0, select_.Count() - rows_));
}

void Opened_List::Show(int item)
{
    if (item < First())
        Scroll_To(item);
    else if (item >= First() + rows_)
        Scroll_To(item - rows_ + 1);
}

void Opened_List::Turn_Wheel(int delta, POINT screen)
{
    wheel_rest_ += delta;
    const int notches = wheel_rest_ / WHEEL_DELTA;
    wheel_rest_ %= WHEEL_DELTA;
    ScreenToClient(window_, &screen);
    Scroll_To(First() - notches * rows_per_notch);
    Highlight_At(screen);
    Draw();
}

// -------------------------------------------------------------------------------------------- pointer and keys

// -1 beside the items.
int Opened_List::Item_At(POINT pointer) const
{
    const int from_top = pointer.y - frame_width;
    const bool inside =
        pointer.x >= frame_width && pointer.x < slider_.x && from_top >= 0 && from_top < rows_ * row_height_;
    return inside ? First() + from_top / row_height_ : -1;
}

void Opened_List::Highlight_At(POINT pointer)
{
    const int item = Item_At(pointer);
    if (item >= 0)
        highlighted_ = item;
}

void Opened_List::Press(POINT pointer)
{
    RECT client{};
    GetClientRect(window_, &client);
    if (pointer.x < 0 || pointer.y < 0 || pointer.x >= client.right || pointer.y >= client.bottom)
        return Close(-1);
    Record_Pointer(window_, pointer);
    sliding_ = slider_.Select(left_press) != 0;
    if (sliding_)
        slider_.Read();
    Highlight_At(pointer);
    Draw();
}

void Opened_List::Release(POINT pointer)
{
    Record_Pointer(window_, pointer);
    slider_.Select(0);
    if (std::exchange(sliding_, false))
        return;
    const int item = Item_At(pointer);
    if (item >= 0)
        Close(item);
}

// Windows come with a motion of their own under a pointer that stands still: it must not undo what keys did.
void Opened_List::Move(POINT pointer, bool held)
{
    if (pointer.x == pointer_.x && pointer.y == pointer_.y)
        return;
    pointer_ = pointer;
    Record_Pointer(window_, pointer);
    if (slider_.Select(held ? left_drag : 0))
        slider_.Read();
    if (!sliding_)
        Highlight_At(pointer);
    Draw();
}

void Opened_List::Key(int key)
{
    const int last = select_.Count() - 1;
    switch (key) {
    case VK_RETURN:
        return Close(highlighted_);
    case VK_ESCAPE:
        return Close(-1);
    case VK_UP:
    case VK_LEFT:
        highlighted_ -= 1;
        break;
    case VK_DOWN:
    case VK_RIGHT:
        highlighted_ += 1;
        break;
    case VK_PRIOR:
        highlighted_ -= rows_;
        break;
    case VK_NEXT:
        highlighted_ += rows_;
        break;
    case VK_HOME:
        highlighted_ = 0;
        break;
    case VK_END:
        highlighted_ = last;
        break;
    default:
        return;
    }
    highlighted_ = std::clamp(highlighted_, 0, last);
    Show(highlighted_);
    Draw();
}

}
