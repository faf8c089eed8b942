#include "tools/tool_propagate.h"

#include "frame/change_flags.h"
#include "frame/events.h"
#include "frame/registry.h"
#include "frame/report.h"
#include "frame/widget_layout.h"
#include "frame/widget_state.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace level = frame::level;
namespace change = frame::change;
namespace state = frame::state;

namespace {

// Most of this panel's traces are not even offered to the host below this trace level.
bool traced()
{
    return Flag_Trace >= 6;
}

Strato_Window* current_window()
{
    return static_cast<Strato_Window*>(frame::value_of("$WINDOW_CUR"));
}

// The frame that the current window shows, or null.
Strato_2D* frame_of(const Strato_Window* window)
{
    Strato_2D* const* frames = frame::array<Strato_2D*>("$FRAME_CUR");
    return frames && window ? frames[window->Class_B_Get()] : nullptr;
}

bool moves_the_list(int key)
{
    constexpr int keys[] = {frame::page_up_key, frame::page_down_key, frame::end_key, frame::home_key, frame::left_key,
        frame::right_key, frame::insert_key, frame::delete_key};
    return std::find(std::begin(keys), std::end(keys), key) != std::end(keys);
}

// Shows another state; a widget that has it already is left alone.
template <class Widget>
void show_state(Widget& widget, unsigned wanted, bool clears, Colors back)
{
    if (widget.state == wanted)
        return;
    widget.state = wanted;
    if (clears)
        widget.Clear(back);
    widget.Draw();
}

unsigned button_state(bool greyed)
{
    return greyed ? state::greyed : state::active;
}

}

Tool_Propagate::Tool_Propagate() = default;
Tool_Propagate::Tool_Propagate(const Tool_Propagate&) = default;
Tool_Propagate& Tool_Propagate::operator=(const Tool_Propagate&) = default;
Tool_Propagate::~Tool_Propagate() = default;

int Tool_Propagate::Set(int (*function)(void*, void*))
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Brush::Set()"); // known to hosts by this text
    function_ = function;
    return 1;
}

// ------------------------------------------------------------------------------------------- layout and drawing

int Tool_Propagate::Height()
{
    if (traced())
        Error_Fct(hwnd, level::handler_trace, "in Tool_Propagate::Height()");
    return frame::dimension("$INTERFACE_TITLE_DIM_SML") + frame::dimension("$INTERFACE_SPACE_DIM") +
           frame::dimension("$INTERFACE_LIST_DIM_SML");
}

int Tool_Propagate::Resize(Boxs* area)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Propagate::Resize(dim=%dx%d)", area->width, area->height);
    frame::take_area(box_, *area, state::panel_box);
    box_.Set_Name("Propagate");
    list_.Set_Name(" Frame: ");
    up_.Set_Name("Up");
    down_.Set_Name("Down");

    const int space = frame::dimension("$INTERFACE_SPACE_DIM");
    const int height = frame::dimension("$INTERFACE_LIST_DIM_SML");
    const int quarter = (box_.width - 4 * space) / 4;
    int x = box_.x + space;
    const auto place = [&](auto& widget, int width, unsigned widget_state) {
        frame::take_look(widget, box_);
        frame::take_place(widget, x, box_.y + space, width, height);
        widget.border = box_.border;
        widget.state = widget_state;
        widget.Init(box_.window);
        x += width + space;
    };
    list_.arrow = frame::dimension("$INTERFACE_LIST_DIM_ARROW");
    place(down_, quarter, button_state(count_ <= 1 || At_First()));
    place(list_, 2 * quarter, count_ != 0 ? state::select_list : state::greyed_select_list);
    place(up_, quarter, button_state(count_ <= 1 || At_Last()));
    return 1;
}

void Tool_Propagate::Draw()
{
    if (traced())
        Error_Fct(hwnd, level::handler_trace, "in Tool_Propagate::Draw()");
    box_.Draw();
    list_.Draw();
    up_.Draw();
    down_.Draw();
}

// ---------------------------------------------------------------------------------------------- following the host

void Tool_Propagate::Update(unsigned long long flags)
{
    if (traced())
        Error_Fct(hwnd, level::handler_trace, "in Tool_Propagate::Update(flag:%016llx)", flags);
    const bool concerned =
        frame::has_any(flags, change::current_frame | change::everything) || frame::has_all(flags, change::frame_tree);
    if (!concerned)
        return;
    Find_Frames();
    Show_States();
}

void Tool_Propagate::Find_Frames()
{
    Strato_Window* const window = current_window();
    shown_ = function_ ? frame_of(window) : nullptr;
    series_ = shown_ ? shown_->Parent_Get_Pt() : nullptr;
    if (!series_) {
        shown_ = nullptr;
        Set_Count(0);
        return;
    }
    const int count = series_->Child_Get_Nb();
    if (count != count_) {
        Set_Count(count);
        list_.state = state::select_list;
        list_.Init(box_.window);
        list_.Draw();
    }
    Show_Index(series_, window);
}

// One item a frame, with its number counted from 1.
void Tool_Propagate::Set_Count(int count)
{
    count_ = count;
    list_.Grow(count, 0);
    for (int index = 0; index < count; ++index) {
        char number[12];
        std::snprintf(number, sizeof number, "%d", index + 1);
        list_.Set_Item(index, number);
    }
}

void Tool_Propagate::Show_Index(Strato_2D* series, Strato_Window* window)
{
    const int last = std::max(count_ - 1, 0);
    list_.value = static_cast<unsigned short>(std::clamp(series->Child_Get_Cur(window), 0, last));
    list_.Adjust();
}

void Tool_Propagate::Show_States()
{
    const bool empty = count_ == 0;
    show_state(list_, empty ? state::greyed_select_list : state::select_list, empty, box_.back);
    Show_Button_States();
}

void Tool_Propagate::Show_Button_States()
{
    const bool no_up = count_ <= 1 || At_Last();
    const bool no_down = count_ <= 1 || At_First();
    show_state(up_, button_state(no_up), no_up, box_.back);
    show_state(down_, button_state(no_down), no_down, box_.back);
}

// ---------------------------------------------------------------------------------------------------------- events

int Tool_Propagate::Click(int up_down)
{
    if (traced())
        Error_Fct(
            hwnd, level::handler_trace, "in Tool_Propagate::Click(up_down=0x%08x)", static_cast<unsigned>(up_down));
    if (up_down == frame::up_down::release)
        return 0;
    if (list_.Select(up_down)) {
        const int index = list_.Read();
        if (index < 0)
            return 1;
        list_.value = static_cast<unsigned short>(index);
        list_.Adjust();
        Show_Frame();
        return 1;
    }
    if (up_.Select(up_down)) {
        Propagate(1);
        return 1;
    }
    if (down_.Select(up_down)) {
        Propagate(-1);
        return 1;
    }
    return 0;
}

// Makes the current window show the frame that the list names. The host's broadcast of it refreshes the rest.
void Tool_Propagate::Show_Frame()
{
    Strato_Window* const window = current_window();
    if (window && series_)
        Fct_Change_Child(window, series_->Child_Get_Pt(list_.value), shown_);
}

int Tool_Propagate::Motion(int up_down)
{
    list_.Select(up_down);
    up_.Select(up_down);
    down_.Select(up_down);
    return 0;
}

int Tool_Propagate::Keyboard(int key)
{
    if (traced())
        Error_Fct(hwnd, level::handler_trace, "in Tool_Propagate::Keyboard(key=0x%08x)", static_cast<unsigned>(key));
    if (!moves_the_list(frame::key_code(key)) || !list_.Select(frame::is_under_pointer_question))
        return 0;
    list_.Scroll(0); // by the key that the host has recorded
    Show_Frame();
    return 1;
}

int Tool_Propagate::Scroll(int amount)
{
    Error_Fct(hwnd, level::handler_trace, "in Tool_Propagate::Scroll()");
    if (!list_.Select(frame::is_under_pointer_question))
        return 1;
    list_.Scroll(-amount);
    Show_Button_States();
    Show_Frame();
    return 1;
}

void Tool_Propagate::Leave()
{
    list_.Deselect();
    up_.Deselect();
    down_.Deselect();
}

// ----------------------------------------------------------------------------------------------------- propagation

bool Tool_Propagate::At_First() const
{
    return list_.value < 1;
}

bool Tool_Propagate::At_Last() const
{
    return list_.value >= count_ - 1;
}

bool Tool_Propagate::Can_Move(int direction) const
{
    const long long wanted = list_.value + static_cast<long long>(direction);
    return direction != 0 && wanted >= 0 && wanted < count_;
}

int Tool_Propagate::Propagate(int direction)
{
    if (!Can_Move(direction))
        return 0;
    list_.value = static_cast<unsigned short>(list_.value + direction);
    list_.Adjust();
    Strato_Window* const window = current_window();
    Strato_2D* const series = series_;
    if (!window || !series)
        return 0;

    // A host that tells of the change at once has changed what is shown when the call returns.
    Strato_2D* const from = shown_;
    Strato_2D* const to = series->Child_Get_Pt(list_.value);
    if (!to)
        return 0;
    Fct_Change_Child(window, to, from);
    if (!function_) {
        // 0xF1 and 0x05 begin a coloured word, 0x02 ends it.
        Error_Fct(hwnd, level::warning, "\xf1\x05WARNING:\x02 No function associated with propagate");
        return 0;
    }
    const int result = Call_Function(from, to);
    shown_ = to;
    Show_Index(series, window);
    return result;
}

// Meanwhile the user can neither go elsewhere nor start anything.
int Tool_Propagate::Call_Function(Strato_2D* from, Strato_2D* to)
{
    auto* const lock =
        static_cast<unsigned char*>(Fct_Variable_Get("$INTERFACE_LOCK_FOCUS", nullptr, nullptr, nullptr, 0));
    if (lock)
        *lock = 1;
    Set_Curs_Wait(nullptr);
    const int result = function_(from, to);
    if (lock)
        *lock = 0;
    Reset_Curs_Wait(nullptr);
    return result;
}
