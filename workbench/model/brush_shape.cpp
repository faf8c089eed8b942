#include "workbench/model/brush_shape.h"

#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"

#include <algorithm>

namespace workbench {

namespace {

/// The runs of the pixels (x, y), from -radius to radius, for which covers(x, y).
template <class Covers>
std::vector<Run> runs_of(int radius, Covers covers)
{
    std::vector<Run> runs;
    for (int y = -radius; y <= radius; ++y) {
        bool inside = false;
        for (int x = -radius; x <= radius; ++x) {
            const bool covered = covers(x, y);
            if (covered && !inside)
                runs.push_back({y, x, x});
            else if (covered)
                runs.back().last = x;
            inside = covered;
        }
    }
    return runs;
}

int extent_of(const std::vector<Run>& runs)
{
    int extent = 0;
    for (const Run& run : runs)
        extent = std::max({extent, std::abs(run.y), std::abs(run.first), std::abs(run.last)});
    return extent;
}

}

BrushShape BrushShape::current()
{
    return of(hostkit::Variable<unsigned short>("$BRUSH_CUR"));
}

BrushShape BrushShape::of(unsigned brush)
{
    BrushShape shape;
    const auto* rows = hostkit::Brush_Shape(brush);
    if (!rows)
        return shape;
    const int grid = hostkit::Variable<unsigned short>("$BRUSH_RADIUS");
    const auto covers = [&](int x, int y) {
        return std::abs(x) <= grid && std::abs(y) <= grid && rows[grid + y][grid + x] != 0;
    };
    shape.whole_ = runs_of(grid, covers);
    shape.radius_ = extent_of(shape.whole_);
    for (int dy = -1; dy <= 1; ++dy)
        for (int dx = -1; dx <= 1; ++dx)
            shape.ahead_[std::size_t(3 * (dy + 1) + dx + 1)] =
                runs_of(shape.radius_, [&](int x, int y) { return covers(x, y) && !covers(x + dx, y + dy); });
    return shape;
}

}
