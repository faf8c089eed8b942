#include "hostkit/structures/children.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/strato_record.h"
#include "hostkit/structures/tree.h"
#include "hostkit/structures/windows.h"

#include <stdexcept>

namespace {

constexpr unsigned most_windows = 16;

// `"$FRAME_CUR"`: panels keep the address, so the array stays.
Strato_2D* shown_frames[most_windows] = {};
std::vector<Strato_Window*> windows;

struct Made_Window final : Strato_Window {
    explicit Made_Window(Record* record) : Strato_Window(record) {}
};

}

void Fct_Change_Child(Strato_Window* window, Strato_2D* new_frame, Strato_2D*)
{
    if (!window || !new_frame)
        return;
    shown_frames[window->Class_B_Get()] = new_frame;
    Fct_Update(0x200000, nullptr, nullptr, nullptr);
    Fct_Redraw(1ull << window->Class_B_Get(), nullptr, nullptr, nullptr);
}

namespace hostkit {

Strato_Window* Window_Add(const std::string& name)
{
    if (windows.size() == most_windows)
        throw std::length_error("there can be no more than 16 image windows");
    auto* record = new Strato::Record;
    record->name = name;
    record->title = "Window";
    record->class_b = static_cast<unsigned>(windows.size());
    windows.push_back(new Made_Window(record));
    Array_Variable<Strato_2D*>("$FRAME_CUR") = shown_frames;
    Variable_Count_Set("$FRAME_CUR", most_windows);
    Variable<unsigned short>("$WINDOW_NB") = static_cast<unsigned short>(windows.size());
    auto*& current = Object_Variable<Strato_Window>("$WINDOW_CUR");
    if (!current)
        current = windows.back();
    return windows.back();
}

bool Focus_Is_Locked()
{
    return Variable<unsigned char>("$INTERFACE_LOCK_FOCUS") != 0;
}

bool Window_Make_Current(Strato_Window* window)
{
    auto*& current = Object_Variable<Strato_Window>("$WINDOW_CUR");
    if (current == window || Focus_Is_Locked())
        return current == window;
    current = window;
    Fct_Update(current_window_changed, nullptr, nullptr, nullptr);
    return true;
}

Strato_2D* Window_Frame(const Strato_Window* window)
{
    return window ? shown_frames[window->Class_B_Get()] : nullptr;
}

void Windows_Forget(const Strato* object)
{
    for (auto*& frame : shown_frames) {
        if (Is_Or_Is_Below(frame, object))
            frame = nullptr;
    }
    auto*& under_pointer = Object_Variable<Strato_2D>("$FRAME_OVR");
    if (Is_Or_Is_Below(under_pointer, object))
        under_pointer = nullptr;
}

void Windows_Reset()
{
    for (auto* window : windows)
        delete static_cast<Made_Window*>(window);
    windows.clear();
    for (auto*& frame : shown_frames)
        frame = nullptr;
    Object_Variable<Strato_Window>("$WINDOW_CUR") = nullptr;
    Object_Variable<Strato_2D>("$FRAME_OVR") = nullptr;
    Variable<unsigned short>("$WINDOW_NB") = 0;
}

}
