#include "tests/histo/graph_window.h"

#include "histo/tool_histo_blow.h"

// The curves of the graph window: which, in which colour, and where.

using namespace test;

namespace {

constexpr Colors sum_color{0, 0xa0, 0xff}, slope_color{0xd8, 0xd8, 0xd8};

class GraphCurves : public Graph_Window {
protected:
    /// Counts of colours that differ everywhere: 10, 20, 30, 40 and the largest 50.
    void give_colors()
    {
        const auto flat = [](unsigned count) { return Counts(101, count); };
        Histogram colors(0, 1, flat(10), {flat(20), flat(30), flat(40), flat(50)});
        give(colors);
    }

    /// The counts, of 10 to 50, at which a curve of this colour runs in the middle of the plot.
    std::vector<int> counts_with(Colors color) const
    {
        std::vector<int> found;
        for (int count = 10; count <= 50; count += 10) {
            if (is_near(px + pw / 2 + 3, y_of(count), color))
                found.push_back(count);
        }
        return found;
    }

    void show_component(unsigned char component)
    {
        panel.color_component = component;
        changed();
    }
};

using Numbers = std::vector<int>;

}

TEST_F(GraphCurves, AGreyHistogramIsAYellowLineThroughItsBins)
{
    Counts counts(11, 0u);
    counts[3] = 900;
    counts[4] = 1000;
    give(std::move(counts));
    open();
    EXPECT_TRUE(is_near(x_of(3), y_of(900), yellow));
    EXPECT_TRUE(is_near(x_of(4), y_of(1000), yellow));
    EXPECT_TRUE(is_near(x_of(3.5), y_of(950), yellow)) << "joined by a straight line";
    EXPECT_TRUE(is_near(x_of(2.5), y_of(450), yellow));
    EXPECT_TRUE(is_near(x_of(8), y_of(0), yellow));
    EXPECT_FALSE(is_near(x_of(8), y_of(100), yellow));
    EXPECT_FALSE(is_near(x_of(-0.3), y_of(0), yellow)) << "nothing before the first bin";
    EXPECT_FALSE(is_near(x_of(10.3), y_of(0), yellow));
}

TEST_F(GraphCurves, BinsStandAtTheirLowerEdges)
{
    Counts counts(5, 0u);
    counts[2] = 100;
    give(Histogram(-1000, 50, std::move(counts)));
    open();
    EXPECT_TRUE(is_near(x_of(-900), y_of(100), yellow));
    EXPECT_NEAR(x_of(-900), px + pw / 2, 1);
}

TEST_F(GraphCurves, AGreyHistogramHasNoComponents)
{
    give(Counts(101, 10u));
    open();
    for (const unsigned char component : std::initializer_list<unsigned char>{0, 1, 2, 3, 4, 5}) {
        show_component(component);
        EXPECT_GT(count_of(yellow), 500);
        EXPECT_EQ(count_of(red), 0);
    }
}

TEST_F(GraphCurves, AColourHistogramShowsTheLargestComponentOrAllThreeOrGrey)
{
    give_colors();
    open();
    show_component(0);
    EXPECT_EQ(counts_with(yellow), Numbers{50});
    EXPECT_EQ(count_of(red) + count_of(green) + count_of(blue), 0);
    for (const unsigned char component : std::initializer_list<unsigned char>{1, 2, 3}) {
        show_component(component);
        EXPECT_EQ(counts_with(red), Numbers{20});
        EXPECT_EQ(counts_with(green), Numbers{30});
        EXPECT_EQ(counts_with(blue), Numbers{40});
        EXPECT_EQ(count_of(yellow), 0);
    }
    show_component(4);
    EXPECT_EQ(counts_with(yellow), Numbers{10});
    show_component(5);
    EXPECT_EQ(count_of(yellow) + count_of(red) + count_of(green) + count_of(blue), 0);
}

TEST_F(GraphCurves, ACurveWithoutItsArrayIsLeftOut)
{
    const Counts flat(101, 20u);
    give(Histogram(0, 1, flat, {flat, {}, flat, {}}));
    open();
    show_component(1);
    EXPECT_GT(count_of(red) + count_of(blue), 500);
    EXPECT_EQ(count_of(green), 0);
    show_component(0);
    EXPECT_EQ(count_of(yellow), 0);
}

TEST_F(GraphCurves, TheSmoothedHistogramIsMagenta)
{
    give_peaks();
    open();
    EXPECT_GT(count_of(magenta), 300);
    EXPECT_TRUE(is_near(x_of(100), y_of(panel.Peaks()->smooth[100]), magenta));
    EXPECT_EQ(count_of(sum_color), 0);
    EXPECT_EQ(count_of(slope_color), 0);
}

TEST_F(GraphCurves, SumAndSlopeAreSeenWithATraceLevelOnly)
{
    give_peaks();
    open();
    Flag_Trace = 1;
    changed();
    EXPECT_GT(count_of(sum_color), 100);
    EXPECT_GT(count_of(slope_color), 100);
    Flag_Trace = 0;
    changed();
    EXPECT_EQ(count_of(sum_color) + count_of(slope_color), 0);
}

TEST_F(GraphCurves, NothingIsDrawnOutsideThePlot)
{
    give_peaks();
    open();
    Flag_Trace = 1;
    drag({px + 200, plot().y + 20}, {px + 260, plot().y + 60});
    const Plot_Area inner = plot();
    const Boxs& box = graph().plot;
    for (int y = box.y; y < box.y + box.height; ++y) {
        for (int x = box.x; x < box.x + box.width; ++x) {
            if (x >= inner.x && x <= inner.x + inner.width && y >= inner.y && y <= inner.y + inner.height)
                continue;
            const Colors color = seen(x, y);
            ASSERT_TRUE(color != yellow && color != magenta && color != sum_color && color != slope_color)
                << x << ", " << y;
        }
    }
    EXPECT_GT(count_of(yellow) + count_of(magenta), 20);
}

TEST_F(GraphCurves, AFitOfMoreBinsThanThereAreNowIsShownToItsEnd)
{
    give_peaks();
    open();
    Histo_Graph_Display(2, 0, 0);
    give(Counts(50, 1000u));
    changed();
    EXPECT_GT(count_of(yellow), 300);
    Histo_Graph_Display(1, 0, 0);
    give(Counts(2000, 1000u));
    changed();
    EXPECT_GT(count_of(green), 20);
}

TEST_F(GraphCurves, DeepInAZoomTheLineIsStillThere)
{
    give(Counts(101, 10u));
    open();
    for (int i = 0; i < 12; ++i)
        turn({px + 357, static_cast<int>(graph().y.pixel_of(10))}, -600);
    EXPECT_GT(count_of(yellow), 500);
}
