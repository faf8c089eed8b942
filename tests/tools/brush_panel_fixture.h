#pragma once

#include "tests/tools/grid_panel_fixture.h"
#include "tools/tool_brush.h"

#include <initializer_list>

/// Brush panels, and what they must show: the same button, with pictures that the tests paint themselves.
class BrushPanel : public test::Panel_Host {
protected:
    static constexpr unsigned long long brushes_changed = test::bit(23);
    static constexpr unsigned long long tag_changed = test::bit(22);
    static constexpr unsigned long long colours_changed = test::bit(38);
    static constexpr unsigned long long everything = test::bit(60);

    BrushPanel();
    ~BrushPanel() override;

    void lay_out(Tool_Brush& panel, test::Extent place = {10, 20, 308, 48}, short border = 2);

    /// The rectangle of a brush's button, computed from the area.
    test::Extent button(int brush) const;

    int click_at(Tool_Brush& panel, test::Place place, int up_down = test::left_press);
    int click_on(Tool_Brush& panel, int brush, int up_down = test::left_press);
    void leave(Tool_Brush& panel);

    enum class State { normal = 1, highlighted, held, current };

    /// Whether a brush's button shows its disc in this colour and state.
    bool shows(int brush, Colors color, State state = State::normal);

    /// All reports, each with its level in front.
    std::vector<std::string> traces() const;

    Boxs area;

private:
    HWND reference_window_;
};

namespace test {

/// A shape as rows of 0 and 1.
std::vector<std::string> shape(unsigned brush);
int points(unsigned brush);
void set_brushes(std::initializer_list<unsigned short> radii);

}
