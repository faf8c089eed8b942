#pragma once

#include "histo/tool_histo.h"
#include "tests/histo/records.h"
#include "tests/support/panel_host.h"

#include <optional>
#include <string>
#include <vector>

namespace test {

constexpr int left_press = 18;

constexpr unsigned long long bit(int number)
{
    return 1ull << number;
}

constexpr auto frames_selected = 0x102ull;
constexpr auto pointer_moved = bit(18);
constexpr auto repaint = bit(31);

/// A histogram panel in a window of the host, with histograms that a test gives it.
class Histogram_Panel : public Panel_Host {
protected:
    static constexpr Colors frame{0x20, 0x60, 0xa0};
    static constexpr Colors back{0x18, 0x1c, 0x24};
    static constexpr Colors text{0xe8, 0xe0, 0xd0};
    static constexpr Colors black{0, 0, 0};
    static constexpr Colors yellow{255, 255, 0};

    Histogram_Panel();
    ~Histogram_Panel() override;

    /// Gives the panel its area and draws it. With the usual one the histogram's box is 162 x 150 at (10, 20), its
    /// curve lies within 156 x 144 at (13, 23).
    void lay_out(int x = 10, int y = 20, int width = 200, int height = 150, short border = 2);

    void give(const Histogram& histogram);

    /// Counts on a grid of grey values 0, 1, 2...
    void give(Counts counts) { give(Histogram(0, 1, std::move(counts))); }

    Colors at(int x, int y) const { return pixel(main_window(), {x, y}); }

    /// The columns of a row of the histogram's box, or the rows of a column, that have a colour.
    std::vector<int> columns_with(Colors color, int y) const;
    std::vector<int> rows_with(Colors color, int x) const;

    /// Traces of levels 16 and 17, "LEVEL text".
    std::vector<std::string> traces() const;

    Boxs area;
    Tool_Histo panel;

    static constexpr int left = 13, bottom = 23, inner_width = 156, inner_height = 144;

private:
    void free_counts();
};

/// first, first + 1, ... end - 1
std::vector<int> all_from(int first, int end);

}
