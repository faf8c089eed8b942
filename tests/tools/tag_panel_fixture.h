#pragma once

#include "tests/support/panel_host.h"
#include "tools/tool_tag.h"

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

/// Where the grid of tags has to be, computed from the panel's area and the interface's dimensions.
struct Grid {
    Extent list;
    Extent slider;
    bool scrolled = false;
    int content = 0; // height of all rows
    int pitch = 0;
    int offset = 0;
    int count = 0;

    bool has_place(int tag) const { return (count - 1 - tag) / 4 < count / 4; }
    Extent button(int tag) const;
    bool visible(int tag) const;
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

inline Place middle(Extent place)
{
    return {place.x + place.width / 2, place.y + place.height / 2};
}

}

/// A tag panel in a window, and what its buttons must look like: a second window shows the same widget, drawn by
/// itself.
class TagPanel : public test::Panel_Host {
protected:
    static constexpr test::Extent open{10, 20, 408, 97};     // shows all 16 tags
    static constexpr test::Extent scrolled{10, 20, 428, 61}; // shows two of their four rows
    static constexpr Colors frame{0x20, 0x60, 0xa0};
    static constexpr Colors back{0x18, 0x1c, 0x24};
    static constexpr Colors text{0xe8, 0xe0, 0xd0};

    TagPanel();
    ~TagPanel() override;

    /// Gives a panel its area and draws it.
    void lay_out(Tool_Tag& panel, test::Extent place = open, unsigned state = 66, short border = 2);

    test::Place place_of(int tag) const { return middle(grid.button(tag)); }

    /// Points at a place or a tag and clicks there.
    int click_at(Tool_Tag& panel, test::Place place, int up_down = test::left_press);
    int click_on(Tool_Tag& panel, int tag, int up_down = test::left_press);

    /// The part around a place that answers as the place itself does.
    test::Extent hit_area(Tool_Tag& panel, test::Place inside);

    /// Moves the slider's thumb to one of its ends.
    int press_slider_bottom(Tool_Tag& panel);
    int drag_slider_to_top(Tool_Tag& panel);

    /// Takes the pointer away, so that nothing is highlighted.
    void leave(Tool_Tag& panel);

    /// How the variables want a tag to be shown, unmarked.
    test::Row_Look usual(int tag) const;
    test::Row_Look current(int tag) const;
    test::Row_Look greyed(int tag) const;
    test::Row_Look pressed(int tag) const;

    bool shows(int tag, const test::Row_Look& look);
    bool shows_editor(int tag, const std::string& content);
    bool shows_slider(float value);

    void type(Tool_Tag& panel, const std::string& letters);

    /// A tag's caption, as its editor is given it.
    std::string caption_of(Tool_Tag& panel, int tag);

    std::vector<std::string> traces() const { return reports.texts(16); }

    Boxs area;
    test::Grid grid;
    HWND reference_window = nullptr;
    Sliders reference_slider;
};
