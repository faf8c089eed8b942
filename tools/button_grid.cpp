#include "tools/button_grid.h"

#include "frame/registry.h"
#include "frame/report.h"
#include "frame/widget_layout.h"
#include "frame/widget_state.h"

#include <algorithm>
#include <utility>

namespace tools {

namespace state = frame::state;

constexpr int columns = 4;

// The interface's dimensions as they are now, and what follows from them for a panel box.
struct Button_Grid::Measures {
    int items;
    int space = frame::dimension("$INTERFACE_SPACE_DIM");
    int slider_width = frame::dimension("$INTERFACE_CURSOR_DIM");
    int pitch = frame::dimension("$INTERFACE_BORDER_DIM") + frame::dimension("$INTERFACE_BUTTON_DIM_SML");
    int margin;
    bool needs_slider;
    int content_height;

    Measures(const Boxs& box, unsigned count)
        : items(static_cast<int>(count)), margin(box.border + 2), content_height(items / columns * pitch)
    {
        needs_slider = content_height > box.height - 2 * SPACE;
    }

    int slider_share() const { return needs_slider ? slider_width + space : 0; }
    int first_placed() const { return items % columns; }

    // Items are placed from the last one backwards, so that a count that is no multiple of four leaves out the lowest.
    int row(int item) const { return (items - 1 - item) / columns; }
    int column(int item) const { return columns - 1 - (items - 1 - item) % columns; }
};

Button_Grid::Button_Grid(unsigned capacity, const char* source) : buttons_(capacity)
{
    if (buttons_.size() == 0)
        frame::report_new_failed(__LINE__, source);
    slider_.state = state::hidden_slider;
    editor_.state = state::closed_editor;
}

unsigned Button_Grid::Items(unsigned count) const
{
    return std::min(count, buttons_.size());
}

bool Button_Grid::Shows_Marks() const
{
    return (list_.state & state::shows_marks) != 0;
}

bool Button_Grid::Visible(unsigned item) const
{
    return buttons_[item].y >= first_ && buttons_[item].y <= last_;
}

int Button_Grid::Height(unsigned short rows)
{
    const int border = frame::dimension("$INTERFACE_BORDER_DIM");
    return 2 * border + 5 + rows * (frame::dimension("$INTERFACE_BUTTON_DIM_SML") + border);
}

void Button_Grid::Resize(const Boxs& area, unsigned count)
{
    frame::take_area(box_, area, state::panel_box);
    const Measures measures(box_, Items(count));
    frame::take_look(slider_, area);
    frame::take_place(slider_, box_.x + measures.margin, box_.y + measures.margin, measures.slider_width,
        box_.height - 2 * measures.margin);
    Place_Slider(measures);
    slider_.Init(area.window);

    frame::take_look(list_, area);
    list_.state = state::panel_box | (area.state & state::shows_marks);
    list_.y = slider_.y;
    list_.height = slider_.height;
    Place_List(measures);
    list_.Init(area.window);

    for (Buttons& button : buttons_) {
        frame::take_look(button, area);
        button.state = Shows_Marks() ? state::row_button_marked : state::row_button;
    }
    editor_.state = state::closed_editor;
    frame::take_look(editor_, area);
    Place_Editor(measures);
    editor_.Init(area.window);
    Place_Buttons(measures);
}

void Button_Grid::Place_Slider(const Measures& measures)
{
    if (!measures.needs_slider) {
        slider_.state = state::hidden_slider;
        slider_.maximum = 1.0f;
        slider_.value = 0;
        return;
    }
    slider_.state = state::slider;
    slider_.maximum = static_cast<float>(measures.content_height - slider_.height);
    slider_.value = slider_.maximum;
    slider_.step = static_cast<float>(measures.pitch);
    slider_.Larg_Adjust(slider_.height, static_cast<float>(measures.content_height));
}

void Button_Grid::Place_List(const Measures& measures)
{
    list_.x = frame::to_short(box_.x + measures.margin + measures.slider_share());
    list_.width = frame::to_short(box_.width - 2 * measures.margin - measures.slider_share());
    first_ = list_.y - 1;
    last_ = list_.y + 1 + list_.height - measures.pitch;
}

// Where an item's row is for the slider's present value; the row of the last items lies lowest.
int Button_Grid::Row_Y(const Measures& measures, int item) const
{
    return list_.y + measures.row(item) * measures.pitch - static_cast<int>(slider_.value);
}

// Four to a row. Says whether a button moved.
bool Button_Grid::Place_Buttons(const Measures& measures)
{
    const int width = list_.width / columns;
    bool moved = false;
    for (int item = 0; item < measures.items; ++item) {
        Buttons& button = buttons_[static_cast<unsigned>(item)];
        if (item < measures.first_placed())
            moved |=
                frame::take_place(button, list_.x, first_ - 1, 0, 0); // no place in the grid: never drawn, never hit
        else
            moved |= frame::take_place(
                button, list_.x + measures.column(item) * width, Row_Y(measures, item), width, measures.pitch);
    }
    return moved;
}

void Button_Grid::Place_Editor(const Measures& measures)
{
    editor_.width = frame::to_short(list_.width / columns);
    editor_.height = frame::to_short(measures.pitch);
}

void Button_Grid::Follow_Slider(unsigned count)
{
    if (!Laid_Out() || Items(count) < columns)
        return;
    const Measures measures(box_, Items(count));
    for (int item = measures.first_placed(); item < measures.items; ++item)
        buttons_[static_cast<unsigned>(item)].y = frame::to_short(Row_Y(measures, item));
    Init_Buttons(nullptr, count);
}

unsigned Button_Grid::Lay_Out_Again(unsigned count)
{
    if (!Laid_Out())
        return 0;
    const Measures measures(box_, Items(count));
    const auto band = std::pair(first_, last_);
    Place_Slider(measures);
    Place_List(measures);
    Place_Editor(measures);
    const bool moved = Place_Buttons(measures) || band != std::pair(first_, last_);
    return redo::slider | (moved ? redo::init | redo::clear | redo::draw : 0u);
}

void Button_Grid::Init_Buttons(HWND window, unsigned count)
{
    for (unsigned item = 0; item < Items(count); ++item)
        buttons_[item].Init(window);
}

void Button_Grid::Draw(unsigned count)
{
    box_.Draw();
    slider_.Draw();
    for (unsigned item = 0; item < Items(count); ++item) {
        if (Visible(item))
            buttons_[item].Draw();
    }
}

}
