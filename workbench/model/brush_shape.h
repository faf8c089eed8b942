#pragma once

#include <array>
#include <vector>

namespace workbench {

/// A horizontal run of pixels, relative to a brush's centre.
struct Run {
    int y = 0;
    int first = 0, last = 0; ///< x, both included
};

/// The pixels that one stamp of a brush covers.
class BrushShape {
public:
    /// The host's current brush, or another; without any pixel when there is no such brush.
    static BrushShape current();
    static BrushShape of(unsigned brush);

    bool empty() const { return whole_.empty(); }
    int radius() const { return radius_; } ///< no pixel is farther from the centre, along either axis

    /// All pixels, row by row.
    const std::vector<Run>& whole() const { return whole_; }

    /// The pixels that a stamp covers and one that lies (-dx, -dy) from it does not; dx and dy are -1, 0 or 1. Strokes
    /// that move pixel by pixel need no more than these.
    const std::vector<Run>& ahead(int dx, int dy) const { return ahead_[std::size_t(3 * (dy + 1) + dx + 1)]; }

private:
    int radius_ = 0;
    std::vector<Run> whole_;
    std::array<std::vector<Run>, 9> ahead_;
};

}
