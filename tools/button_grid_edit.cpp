#include "frame/change_flags.h"
#include "frame/events.h"
#include "frame/report.h"
#include "frame/widget_state.h"
#include "host/structures.h"
#include "tools/button_grid.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

// The grid's mouse, wheel and keyboard events.

namespace tools {

namespace state = frame::state;

namespace {

constexpr size_t longest_shown_name = 39; // bytes of an edited name that its button shows

// Cuts the text to what a button shows, at the end of a whole UTF-8 character.
void show_name(Buttons& button, const char* text)
{
    char shown[longest_shown_name + 1];
    size_t length = std::strlen(text);
    if (length > longest_shown_name) {
        length = longest_shown_name;
        while (length > 0 && (text[length] & 0xc0) == 0x80)
            --length;
    }
    std::memcpy(shown, text, length);
    shown[length] = 0;
    button.Set_Name(shown);
}

}

int Button_Grid::First_Taking(int up_down, unsigned first, unsigned count)
{
    for (unsigned item = first; Laid_Out() && item < Items(count); ++item) {
        if (Visible(item) && buttons_[item].Select(up_down))
            return static_cast<int>(item);
    }
    return -1;
}

Button_Grid::Clicked Button_Grid::Click(int up_down, unsigned count, HWND editor_window)
{
    if (up_down == frame::up_down::release)
        return {-1, false};
    if (up_down == frame::up_down::right_press && Start_Edit(up_down, count, editor_window))
        return {-1, false};
    Cancel_Edit(count);
    if (Slide(up_down, count))
        return {-1, true};
    return {First_Taking(up_down, 0, count), false};
}

bool Button_Grid::Motion(int up_down, unsigned count)
{
    for (unsigned item = 0; Laid_Out() && item < Items(count); ++item) {
        if (Visible(item))
            buttons_[item].Select(up_down);
    }
    editor_.Select(up_down, 0, 0);
    return Slide(up_down, count);
}

// Lets the slider have a mouse event. Says whether it took it.
bool Button_Grid::Slide(int up_down, unsigned count)
{
    if (!Laid_Out() || !slider_.Select(up_down))
        return false;
    slider_.Read();
    Cancel_Edit(count);
    Follow_Slider(count);
    return true;
}

void Button_Grid::Scroll(int amount, unsigned count)
{
    Uncover_Edited(count);
    slider_.Scroll(-amount);
    Follow_Slider(count);
}

void Button_Grid::Leave(unsigned count)
{
    Cancel_Edit(count);
    for (unsigned item = 0; Laid_Out() && item < Items(count); ++item) {
        if (Visible(item))
            buttons_[item].Deselect();
    }
    slider_.Deselect();
}

// ---------------------------------------------------------------------------------------------- the name editor

bool Button_Grid::Editing() const
{
    return editor_.state == state::editor;
}

// Opens the editor over the visible item that takes the event. The first one cannot be named.
bool Button_Grid::Start_Edit(int up_down, unsigned count, HWND editor_window)
{
    constexpr unsigned first_nameable = 1;
    const int item = First_Taking(up_down, first_nameable, count);
    if (item < 0)
        return false;
    Cancel_Edit(count); // a second edit must not leave the first one's button hidden
    edited_ = static_cast<unsigned short>(item);
    Buttons& button = buttons_[edited_];
    editor_.x = button.x;
    editor_.y = button.y;
    editor_.state = state::editor;
    editor_.Init(editor_window);
    editor_.Read(button.name.get());
    editor_.Draw();
    button.state |= state::being_edited;
    return true;
}

// Closes the editor without a result. The edited button is active again but not drawn. Says whether there is one.
bool Button_Grid::Uncover_Edited(unsigned count)
{
    if (!Editing())
        return false;
    editor_.Input(frame::escape_key);
    editor_.state = state::closed_editor;
    if (edited_ >= Items(count))
        return false;
    buttons_[edited_].state &= ~state::being_edited;
    return true;
}

// Ends an edit without keeping the text, and shows its button again.
void Button_Grid::Cancel_Edit(unsigned count)
{
    if (Uncover_Edited(count))
        buttons_[edited_].Draw();
}

int Button_Grid::Keyboard(int key, unsigned count, const Label_Store& store)
{
    if (!store.labels || !editor_.Select(frame::is_active_question, 0, 0))
        return 0;
    editor_.Input(frame::key_code(key));
    const char* text = editor_.Update();
    if (!text)
        return 1;
    editor_.state = state::closed_editor;
    if (edited_ >= Items(count))
        return 1;
    const bool kept = *text == 0 || Keep_Label(text, store);
    buttons_[edited_].state &= ~state::being_edited;
    buttons_[edited_].Draw();
    if (kept)
        Fct_Update(frame::change::labels, nullptr, nullptr, nullptr);
    return kept;
}

bool Button_Grid::Keep_Label(const char* text, const Label_Store& store)
{
    char*& label = store.labels[edited_];
    std::free(label);
    label = strdup(text);
    if (!label) {
        frame::report_strdup_failed(store.line, store.source, store.variable);
        return false;
    }
    show_name(buttons_[edited_], text);
    return true;
}

}
