#include "tests/hostkit/charts/axes_fixture.h"

#include <algorithm>
#include <cmath>
#include <limits>

using test::Axes;
using test::dark;
using test::Range;

namespace {

constexpr int rim = 7;
constexpr Range percent{0, 100};

class Charts : public Axes {
protected:
    Charts() { Make_Box(400, 300, rim); }

    Plot_Area Plot() const { return Plot_Area_Of(box); }

    bool Drawn_At(int x, int y) const { return !(test::pixel(main_window(), {x, y}) == dark); }

    bool Anything_Drawn() const
    {
        const auto all = test::pixels(main_window());
        return std::any_of(all.begin(), all.end(), [](COLORREF pixel) { return pixel != dark.get(); });
    }

    // Columns of the plot that are drawn from its lower to its upper edge, counted from its left one.
    std::vector<int> Vertical_Lines() const
    {
        const Plot_Area plot = Plot();
        std::vector<int> columns;
        for (int x = 0; x <= plot.width; ++x) {
            if (Drawn_At(plot.x + x, plot.y) && Drawn_At(plot.x + x, plot.y + plot.height - 1))
                columns.push_back(x);
        }
        return columns;
    }

    std::vector<int> Horizontal_Lines() const
    {
        const Plot_Area plot = Plot();
        std::vector<int> rows;
        for (int y = 0; y <= plot.height; ++y) {
            if (Drawn_At(plot.x, plot.y + y) && Drawn_At(plot.x + plot.width - 1, plot.y + y))
                rows.push_back(y);
        }
        return rows;
    }

    std::vector<COLORREF> Picture_Of(Range range, short scale = 8)
    {
        Clear();
        Draw_X(range, scale);
        Draw_Y(range, scale);
        return test::pixels(main_window());
    }
};

}

TEST(PlotArea, LeavesTheAxesTheirMargins)
{
    Boxs box;
    box.x = 8;
    box.y = 100;
    box.width = 784;
    box.height = 292;
    const Plot_Area plot = Plot_Area_Of(box);
    EXPECT_EQ(plot.x, 60);
    EXPECT_EQ(plot.y, 152);
    EXPECT_EQ(plot.width, 715);
    EXPECT_EQ(plot.height, 223);
}

TEST(PlotArea, HasMarginsThatGrowWithTheSmallerSide)
{
    Boxs box;
    box.width = 1000;
    box.height = 99;
    EXPECT_EQ(Plot_Area_Of(box).x, 44);
    EXPECT_EQ(Plot_Area_Of(box).y, 40);
    EXPECT_EQ(Plot_Area_Of(box).width, 943);
    EXPECT_EQ(Plot_Area_Of(box).height, 46);
    box.width = 40;
    EXPECT_LT(Plot_Area_Of(box).width, 1);
}

TEST_F(Charts, GridLinesStandAtTheirValues)
{
    Draw_X(percent);
    const int width = Plot().width;
    std::vector<int> expected;
    for (int value = 0; value <= 100; value += 10)
        expected.push_back(static_cast<int>(std::lround(value / 100.0 * width)));
    EXPECT_EQ(Vertical_Lines(), expected);
    Clear();
    Draw_Y({-5, 25});
    const int height = Plot().height;
    expected.clear();
    for (int value = -5; value <= 25; value += 5)
        expected.push_back(static_cast<int>(std::lround((value + 5) / 30.0 * height)));
    EXPECT_EQ(Horizontal_Lines(), expected);
}

TEST_F(Charts, LinesLieBesideThePlot)
{
    Draw_X(percent);
    const Plot_Area plot = Plot();
    for (const int x : {plot.x - 1, plot.x + 9, plot.x + plot.width})
        EXPECT_TRUE(Drawn_At(x, plot.y - 1)) << x;
    EXPECT_FALSE(Drawn_At(plot.x + 9, plot.y));
    Clear();
    Draw_Y({1, 2});
    for (const int y : {plot.y - 1, plot.y + 9, plot.y + plot.height})
        EXPECT_TRUE(Drawn_At(plot.x - 1, y)) << y;
    EXPECT_FALSE(Drawn_At(plot.x + 9, plot.y + 9));
}

TEST_F(Charts, NothingIsDrawnBesideTheBox)
{
    Picture_Of({-1000, 3000});
    for (int along = 0; along < 300 + 2 * rim; ++along) {
        for (int from_edge = 0; from_edge < rim; ++from_edge) {
            ASSERT_FALSE(Drawn_At(from_edge, along));
            ASSERT_FALSE(Drawn_At(400 + 2 * rim - 1 - from_edge, along));
            ASSERT_FALSE(Drawn_At(along, from_edge));
            ASSERT_FALSE(Drawn_At(along, 300 + 2 * rim - 1 - from_edge));
        }
    }
}

TEST_F(Charts, BoundsThatAreNoRangeDrawNothing)
{
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinity = std::numeric_limits<float>::infinity();
    for (const Range range : {Range{nan, 1}, {0, nan}, {-infinity, 1}, {0, infinity}, {3, 3}, {4, 3}}) {
        Draw_X(range);
        Draw_Y(range);
        EXPECT_FALSE(Anything_Drawn()) << range.from << " to " << range.to;
    }
}

TEST_F(Charts, RangesAtTheEndsOfTheNumbersAreDrawn)
{
    constexpr float most = std::numeric_limits<float>::max();
    constexpr float least = std::numeric_limits<float>::denorm_min();
    for (const Range range : {Range{-most, most}, {0, least}, {1, std::nextafter(1.0f, 2.0f)}}) {
        Picture_Of(range);
        EXPECT_FALSE(Vertical_Lines().empty());
        EXPECT_FALSE(Horizontal_Lines().empty());
    }
}

TEST_F(Charts, BoxWithoutRoomOrWindowDrawsNothing)
{
    for (const auto& [width, height] : {std::pair{56, 300}, {400, 51}, {0, 0}, {1, 1}}) {
        box.width = static_cast<short>(width);
        box.height = static_cast<short>(height);
        ASSERT_TRUE(Plot().width < 1 || Plot().height < 1);
        Draw_X(percent);
        Draw_Y(percent);
        EXPECT_FALSE(Anything_Drawn()) << width << " x " << height;
    }
    Make_Box(400, 300, rim);
    box.window = nullptr;
    Draw_X(percent);
    Plot_Window_Axes_Y(nullptr, 144, 8, "", "", "", "", 0, 100);
    EXPECT_FALSE(Anything_Drawn());
}

TEST_F(Charts, TitlesMayBeMissing)
{
    Draw_X(percent, 8, nullptr, nullptr);
    Draw_Y(percent, 8, "", nullptr);
    const auto untitled = test::pixels(main_window());
    EXPECT_NE(Picture_Of(percent), untitled);
    Clear();
    Draw_X(percent, 8, nullptr, nullptr);
    Draw_Y(percent, 8, nullptr, "");
    EXPECT_EQ(test::pixels(main_window()), untitled);
}

TEST_F(Charts, FontFollowsItsVariables)
{
    char bold[] = "bold";
    char none[] = "";
    const auto usual = Picture_Of(percent);
    hostkit::String_Variable("$INTERFACE_TOOL_FONT_WEIGHT") = bold;
    EXPECT_NE(Picture_Of(percent), usual);
    hostkit::String_Variable("$INTERFACE_TOOL_FONT_WEIGHT") = none;
    EXPECT_EQ(Picture_Of(percent), usual);
    hostkit::String_Variable("$INTERFACE_TOOL_FONT_NAME") = nullptr;
    hostkit::String_Variable("$INTERFACE_TOOL_FONT_WEIGHT") = nullptr;
    EXPECT_EQ(Picture_Of(percent), usual);
}

TEST_F(Charts, FontHasTheSizeThatIsAskedFor)
{
    EXPECT_NE(Picture_Of(percent, 7), Picture_Of(percent, 8));
    EXPECT_EQ(Picture_Of(percent, 0), Picture_Of(percent, -3)) << "too small to be read";
}

TEST_F(Charts, ColoursAreTheBoxs)
{
    box.text = {200, 0, 0};
    Picture_Of(percent);
    for (const COLORREF pixel : test::pixels(main_window())) {
        ASSERT_LE(GetGValue(pixel), dark.green);
        ASSERT_LE(GetBValue(pixel), dark.blue);
    }
}

TEST_F(Charts, WhatTheyDrawOnStays)
{
    const Plot_Area plot = Plot();
    Boxs below = box;
    below.x = static_cast<short>(plot.x + 3);
    below.y = static_cast<short>(plot.y + 3);
    below.width = below.height = 5;
    below.Clear({1, 2, 3});
    Draw_X(percent);
    Draw_Y(percent);
    EXPECT_EQ(test::pixel(main_window(), {below.x, below.y}), (Colors{1, 2, 3}));
}
