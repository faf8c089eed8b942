#include "workbench/document/mask_difference.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace document;

namespace {

LabelMap map_of(int x, int y, int z)
{
    Geometry geometry;
    geometry.size = {x, y, z};
    return std::move(*LabelMap::create(geometry));
}

std::vector<std::uint8_t> content(const LabelMap& map)
{
    return {map.tags().begin(), map.tags().end()};
}

}

TEST(MaskDifference, OfNothingIsNoStep)
{
    const auto map = map_of(5, 5, 5);
    const Box box{1, 1, 1, 3, 2, 1};
    EXPECT_FALSE(MaskDifference::since(box, map.copy(box), map));
}

TEST(MaskDifference, IsCutDownToWhatChanged)
{
    auto map = map_of(20, 20, 4);
    const Box box{2, 3, 1, 10, 12, 2};
    const auto before = map.copy(box);
    map.set(5, 6, 2, 9);
    map.set(7, 6, 2, 8);
    const auto step = MaskDifference::since(box, before, map);
    ASSERT_TRUE(step);
    EXPECT_EQ(step->box(), (Box{5, 6, 2, 3, 1, 1}));
    EXPECT_EQ(step->voxels_changed(), 2u);
}

TEST(MaskDifference, RandomStepsGoBackAndForth)
{
    std::mt19937 random(7);
    const auto below = [&](int n) { return int(random() % unsigned(n)); };
    auto map = map_of(31, 17, 9);
    std::vector<std::vector<std::uint8_t>> states = {content(map)};
    std::vector<MaskDifference> steps;
    while (steps.size() < 200) {
        Box box{below(31), below(17), below(9), 0, 0, 0};
        box.width = 1 + below(31 - box.x);
        box.height = 1 + below(17 - box.y);
        box.depth = 1 + below(9 - box.z);
        const auto before = map.copy(box);
        for (int i = below(60); i >= 0; --i)
            map.set(
                box.x + below(box.width), box.y + below(box.height), box.z + below(box.depth), std::uint8_t(random()));
        const auto step = MaskDifference::since(box, before, map);
        if (!step)
            continue;
        steps.push_back(*step);
        states.push_back(content(map));
    }
    for (std::size_t i = steps.size(); i-- > 0;) {
        steps[i].undo(map);
        ASSERT_EQ(content(map), states[i]) << i;
    }
    for (std::size_t i = 0; i < steps.size(); ++i) {
        steps[i].redo(map);
        ASSERT_EQ(content(map), states[i + 1]) << i;
    }
}

TEST(MaskDifference, TenThousandStrokesStayBelowAHundredMegabytes)
{
    auto map = map_of(2048, 2048, 1);
    std::mt19937 random(3);
    const int strokes = 100, radius = 50, length = 1000;
    std::size_t memory = 0;
    for (int stroke = 0; stroke < strokes; ++stroke) {
        const int x0 = radius + int(random() % (2048 - length - 2 * radius)), y0 = radius + int(random() % 1900);
        const Box box{x0 - radius, y0 - radius, 0, length + 2 * radius, 2 * radius + 1, 1};
        const auto before = map.copy(box);
        for (int step = 0; step < length; step += 10)
            for (int y = -radius; y <= radius; ++y)
                for (int x = -radius; x <= radius; ++x)
                    if (x * x + y * y <= radius * radius)
                        map.set(x0 + step + x, y0 + y, 0, std::uint8_t(1 + stroke % 15));
        const auto step = MaskDifference::since(box, before, map);
        ASSERT_TRUE(step);
        memory += step->memory();
    }
    EXPECT_LT(memory / strokes, 10'000u);
}
