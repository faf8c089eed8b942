#include "db/tool_db_list.h"
#include "frame/registry.h"
#include "frame/widget_layout.h"
#include "frame/widget_state.h"

#include <algorithm>

namespace state = frame::state;

namespace {

// Puts a widget into the panel: its place, and the look, frame width and window of the area.
template <class Widget>
void place(Widget& widget, const Boxs& area, int x, int y, int width, int height)
{
    frame::take_look(widget, area);
    frame::take_place(widget, x, y, std::max(width, 0), std::max(height, 0));
    widget.border = area.border;
    widget.Init(area.window);
}

void place_slider(Sliders& slider, unsigned look, float maximum, float step)
{
    slider.state = look;
    slider.minimum = 0;
    slider.maximum = maximum;
    slider.step = step;
    slider.Init(nullptr);
}

// One point larger than the interface's; made once for all panels.
HFONT title_font(HFONT otherwise)
{
    static HFONT font = nullptr;
    const auto* family = frame::array<const char>("$INTERFACE_TOOL_FONT_NAME");
    if (!font && family) {
        const int points = frame::dimension("$INTERFACE_TOOL_FONT_SCALE") + 1;
        font = Y_Create_Font(family, frame::to_short(points), frame::array<const char>("$INTERFACE_TOOL_FONT_WEIGHT"));
    }
    return font ? font : otherwise;
}

}

int Tool_DB_List::Resize(Boxs* given)
{
    const Boxs area = *given; // which may be the panel's own
    const int space = frame::dimension("$INTERFACE_SPACE_DIM");
    const int button = frame::dimension("$INTERFACE_BUTTON_DIM_SML");
    frame::take_area(box, area, state::panel_box);
    Lay_Out_Buttons(area, space, button);
    Lay_Out_List(area, space, button);
    Lay_Out_Zones(area);
    return 1;
}

void Tool_DB_List::Lay_Out_Buttons(const Boxs& area, int space, int button)
{
    constexpr int between = 2, title_width = 80;
    const int half = (area.width - 2 * space - between) / 2;
    const int x = area.x + space, y = area.y + space;
    place(select_all, area, x, y, half, button);
    select_all.Set_Name("Select All");
    place(select_none, area, x + half + between, y, half, button);
    select_none.Set_Name("Select None");

    place(warning_title, area, x, y, title_width, button);
    warning_title.state = state::label;
    warning_title.font = title_font(area.font);
    warning_title.Set_Name(" Warning!");
    warning_title.Set_Color(255, 0, 255);
    place(warning_message, area, x + title_width, y, 2 * (half - title_width / 2), button);
    warning_message.state = state::label;
    warning_message.Set_Color(0, 0, 1);
}

void Tool_DB_List::Lay_Out_List(const Boxs& area, int space, int button)
{
    constexpr float first_height = 100, first_width = 300; // until the rows are known
    const int slider = frame::dimension("$INTERFACE_VAL_DIM_SML");
    const int y = area.y + space + button + space;
    const int height = area.height - 2 * space - area.border - button - 1;
    const int width = area.width - 2 * space - slider - space;
    place(
        vertical, area, area.x + area.width - space - slider, y + slider + space, slider, height - 2 * space - slider);
    place_slider(vertical, state::vertical_scroll, first_height, db::line_height);
    place(horizontal, area, area.x + space, y, width, slider);
    place_slider(horizontal, state::horizontal_scroll, first_width, db::indent);
    place(list_box, area, area.x + space, y + slider + space, width, height - slider - space);
    list_box.state = state::panel_box;
}

void Tool_DB_List::Lay_Out_Zones(const Boxs& area)
{
    constexpr int into_list = 10, left_width = 20;
    const int list_top = list_box.y + list_box.height - into_list;
    const int list_right = list_box.x + list_box.width;
    place(top_zone, area, area.x, list_top, area.width, area.y + area.height - list_top);
    place(bottom_zone, area, area.x, area.y, area.width, list_box.y - area.y);
    place(left_zone, area, area.x, area.y, left_width, area.height);
    place(right_zone, area, list_right, area.y, area.x + area.width - list_right, area.height);
    for (Boxs* zone : {&top_zone, &bottom_zone, &left_zone, &right_zone})
        zone->state = state::panel_box;
}
