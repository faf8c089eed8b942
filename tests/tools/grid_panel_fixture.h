#pragma once

#include "hostkit/gadgets/text_editing.h"
#include "tests/support/panel_host.h"

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace test {

constexpr int left_press = 18;
constexpr int right_press = 66;

constexpr unsigned long long bit(int number)
{
    return 1ull << number;
}

struct Extent {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool operator==(const Extent&) const = default;
};

inline void PrintTo(const Extent& extent, std::ostream* out)
{
    *out << extent.width << 'x' << extent.height << " at " << extent.x << ',' << extent.y;
}

/// Where the grid of buttons has to be, computed from the panel's area and the interface's dimensions.
struct Grid {
    Extent list;
    Extent slider;
    bool scrolled = false;
    int content = 0; // height of all rows
    int pitch = 0;
    int offset = 0;
    int count = 0;

    bool has_place(int item) const { return (count - 1 - item) / 4 < count / 4; }
    Extent button(int item) const;
    bool visible(int item) const;
};

Grid grid_of(const Boxs& area, int count);

/// What a row button has to look like.
struct Row_Look {
    std::string caption;
    Colors color;
    bool current = false;
    bool pressed = false;
    bool greyed = false;
};

/// The pixels of a part of a window.
std::vector<COLORREF> picture(HWND window, Extent part);

/// Fills a window with a colour that no panel uses; covered() tells whether a part still has it everywhere.
void cover(HWND window);
bool covered(HWND window, Extent part);

/// A second window, for widgets to compare with.
HWND make_reference_window();

constexpr Colors area_frame{0x20, 0x60, 0xa0};
constexpr Colors area_back{0x18, 0x1c, 0x24};
constexpr Colors area_text{0xe8, 0xe0, 0xd0};

/// Makes a box the area of a panel, in these colours; the font is the caller's.
void set_area(Boxs& area, HWND window, Extent place, unsigned state, short border);

/// Gives such a widget its place and the look of an area.
void place_reference(Tools& widget, const Boxs& area, Extent place);

/// The part around a place that answers as the place itself does.
Extent extent_of(Place inside, const std::function<int(Place)>& answer);

inline Place middle(Extent place)
{
    return {place.x + place.width / 2, place.y + place.height / 2};
}

}

/// A panel of a button grid in a window, and what its buttons must look like: a second window shows the same widget,
/// drawn by itself.
class GridPanel : public test::Panel_Host {
protected:
    static constexpr test::Extent open{10, 20, 408, 97};     // shows all of 16 items
    static constexpr test::Extent scrolled{10, 20, 428, 61}; // shows two of their four rows
    static constexpr Colors frame = test::area_frame;
    static constexpr Colors back = test::area_back;
    static constexpr Colors text = test::area_text;

    GridPanel();
    ~GridPanel() override;

    /// How many items the host has, and how its variables want one to be shown, unmarked.
    virtual int count() const = 0;
    virtual test::Row_Look usual(int item) const = 0;

    /// Gives a panel its area and draws it.
    template <class Panel>
    void lay_out(Panel& panel, test::Extent place = open, unsigned state = 66, short border = 2)
    {
        test::set_area(area, main_window(), place, state, border);
        grid = test::grid_of(area, count());
        EXPECT_EQ(panel.Resize(&area), 1);
        panel.Draw();
        reports.clear();
    }

    test::Place place_of(int item) const { return test::middle(grid.button(item)); }

    /// Points at a place or an item and clicks there.
    template <class Panel>
    int click_at(Panel& panel, test::Place place, int up_down = test::left_press)
    {
        test::point(main_window(), place);
        return panel.Click(up_down);
    }

    template <class Panel>
    int click_on(Panel& panel, int item, int up_down = test::left_press)
    {
        return click_at(panel, place_of(item), up_down);
    }

    /// The part around a place that answers as the place itself does.
    template <class Panel>
    test::Extent hit_area(Panel& panel, test::Place inside)
    {
        return test::extent_of(inside, [&](test::Place place) { return click_at(panel, place); });
    }

    /// Moves the slider's thumb to one of its ends.
    template <class Panel>
    int press_slider_bottom(Panel& panel)
    {
        return click_at(panel, {grid.slider.x + 2, grid.slider.y});
    }

    template <class Panel>
    int drag_slider_to_top(Panel& panel)
    {
        test::point(main_window(), {grid.slider.x + 2, grid.slider.y + 2 * grid.slider.height});
        return panel.Motion(17);
    }

    /// Takes the pointer away, so that nothing is highlighted.
    template <class Panel>
    void leave(Panel& panel)
    {
        test::point(main_window(), {700, 700});
        panel.Motion(0);
        panel.Leave();
    }

    template <class Panel>
    void type(Panel& panel, const std::string& letters)
    {
        for (const char letter : letters)
            panel.Keyboard(static_cast<unsigned char>(letter));
    }

    /// An item's caption, as its editor is given it.
    template <class Panel>
    std::string caption_of(Panel& panel, int item)
    {
        EXPECT_EQ(click_on(panel, item, test::right_press), -1);
        const Texts* editor = hostkit::Active_Text();
        const std::string caption = editor ? editor->Content() : "no editor";
        leave(panel);
        return caption;
    }

    /// The usual look, with a mark.
    test::Row_Look current(int item) const;
    test::Row_Look greyed(int item) const;
    test::Row_Look pressed(int item) const;

    bool shows(int item, const test::Row_Look& look);
    bool shows_editor(int item, const std::string& content);
    bool shows_slider(float value);

    Boxs area;
    test::Grid grid;
    HWND reference_window;
    Sliders reference_slider;
};
