#include "frame/widget_state.h"
#include "tools/button_grid.h"

#include <cstdio>
#include <cstring>

// Keeping the grid's buttons in step with the host. Each setter says what must be redone, 0 when nothing changed.

namespace tools {

namespace state = frame::state;

unsigned Button_Grid::Set_Captions(unsigned count, char* const* labels)
{
    unsigned needed = 0;
    for (unsigned item = 0; item < Items(count); ++item) {
        char number[12];
        std::snprintf(number, sizeof number, "%d", static_cast<int>(item));
        const char* caption = labels && labels[item] ? labels[item] : number;
        if (std::strcmp(buttons_[item].name.get(), caption) == 0)
            continue;
        buttons_[item].Set_Name(caption);
        needed = redo::draw;
    }
    return needed;
}

unsigned Button_Grid::Set_Current(unsigned count, unsigned current)
{
    unsigned needed = 0;
    for (unsigned item = 0; item < Items(count); ++item) {
        const unsigned short mark = item == current;
        if (buttons_[item].cur == mark)
            continue;
        buttons_[item].cur = mark;
        needed = redo::adjust;
    }
    return needed;
}

unsigned Button_Grid::Set_Pressed(unsigned item, unsigned short pressed)
{
    if (buttons_[item].pressed == pressed)
        return 0;
    buttons_[item].pressed = pressed;
    return redo::draw;
}

// The button under the editor keeps its mark, or it would come up through the editor.
unsigned Button_Grid::Set_Greyed(unsigned item, bool greyed)
{
    Buttons& button = buttons_[item];
    const unsigned edit_mark = Editing() && item == edited_ ? state::being_edited : 0;
    const unsigned wanted = greyed ? button.state | state::greyed : (button.state & ~state::greyed) | edit_mark;
    if (button.state == wanted)
        return 0;
    button.state = wanted;
    return greyed ? redo::clear | redo::draw : redo::draw;
}

unsigned Button_Grid::Set_Color(unsigned item, Colors color)
{
    Buttons& button = buttons_[item];
    if (button.color == color)
        return 0;
    button.Set_Color(color.red, color.green, color.blue);
    return redo::init | redo::draw;
}

void Button_Grid::Apply(unsigned needed, unsigned count)
{
    if (needed == 0 || !Laid_Out())
        return;
    if (needed & redo::slider)
        slider_.Draw();
    needed &= ~redo::slider;
    for (unsigned item = 0; needed != 0 && item < Items(count); ++item) {
        if (Visible(item))
            Apply_To(buttons_[item], needed);
    }
}

void Button_Grid::Apply_To(Buttons& button, unsigned needed)
{
    if (needed & redo::init)
        button.Init(nullptr);
    if (needed & redo::clear)
        button.Clear(box_.back);
    if (needed & redo::draw)
        button.Draw();
    else if (needed == redo::adjust)
        button.Adjust();
}

}
