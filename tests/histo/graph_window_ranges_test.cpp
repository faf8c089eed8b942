#include "tests/histo/graph_window.h"

#include "histo/tool_histo_blow.h"

// Ranges of tags in the graph window.

using namespace test;

namespace {

constexpr Colors color{200, 100, 50};

class GraphRanges : public Graph_Window {
protected:
    GraphRanges()
    {
        hostkit::Tag_Color_Set(2, color);
        Counts counts(101, 500u);
        counts[0] = 1000;
        give(std::move(counts));
    }

    void show(double lower, double upper)
    {
        panel.Set(1, 2, lower, upper);
        if (!window())
            open();
        Histo_Graph_Display(0, 1, 0);
        changed();
    }

    /// Whether the band's checker is at a grey value, high above the counts.
    bool banded(double grey) const
    {
        const int x = x_of(grey) + 1, y = y_of(900) + 1; // beside the grid
        const bool here = seen(x, y) == color, right = seen(x + 1, y) == color;
        return here != right && (seen(x, y + 1) == color) == right;
    }

    /// How many of 25 pixels have a colour; lines of the axes' grid may cross there.
    int pixels_around(double grey, double count, Colors of) const
    {
        int found = 0;
        for (int dy = -2; dy <= 2; ++dy) {
            for (int dx = -2; dx <= 2; ++dx)
                found += seen(x_of(grey) + dx, y_of(count) + dy) == of;
        }
        return found;
    }

    /// Whether the range's area is at a grey value and a count.
    bool filled(double grey, double count) const { return pixels_around(grey, count, color) >= 15; }
};

}

TEST_F(GraphRanges, HaveABandAndFilledCounts)
{
    show(20, 40);
    EXPECT_TRUE(banded(21));
    EXPECT_TRUE(banded(30));
    EXPECT_TRUE(banded(39));
    EXPECT_FALSE(banded(19));
    EXPECT_FALSE(banded(41));
    EXPECT_TRUE(filled(21, 100));
    EXPECT_TRUE(filled(30, 470));
    EXPECT_TRUE(filled(39.5, 300));
    EXPECT_FALSE(filled(30, 520));
    EXPECT_FALSE(filled(19, 100));
    EXPECT_FALSE(filled(41, 100));
    EXPECT_FALSE(filled(30, -50)) << "from the zero level on";
}

TEST_F(GraphRanges, AreNotThereWithoutTheDisplay)
{
    show(20, 40);
    const int with = count_of(color);
    Histo_Graph_Display(0, 0, 0);
    changed();
    EXPECT_EQ(count_of(color), 0);
    EXPECT_GT(with, 1000);
}

TEST_F(GraphRanges, BandsReachFromTheLowestRowToTheHighest)
{
    show(20, 40);
    const int x = x_of(30);
    const auto either = [&](int y) { return seen(x, y) == color || seen(x + 1, y) == color; };
    EXPECT_TRUE(either(py));
    EXPECT_TRUE(either(py + ph));
    EXPECT_FALSE(either(py + ph + 1));
    EXPECT_FALSE(either(py - 1));
}

TEST_F(GraphRanges, BoundsAreRoundedTowardZeroAfterAHalf)
{
    give(Histogram(-50, 1, Counts(101, 500u)));
    show(-3.0, 9.5);
    EXPECT_FALSE(filled(-2.5, 300));
    EXPECT_TRUE(filled(-1.5, 300)) << "-3.0 becomes -2";
    EXPECT_TRUE(filled(9.5, 300)) << "9.5 becomes 10";
    EXPECT_FALSE(filled(10.5, 300));
}

TEST_F(GraphRanges, OfOneBinHaveItsCount)
{
    show(33, 33);
    EXPECT_EQ(pixels_around(33, 150, color), 5);
    EXPECT_EQ(pixels_around(33, 450, color), 5);
    EXPECT_EQ(pixels_around(33, 550, color), 0);
    EXPECT_EQ(pixels_around(32, 150, color), 0);
    EXPECT_EQ(pixels_around(34, 150, color), 0);
}

TEST_F(GraphRanges, AreCutToTheHistogramAndThePlot)
{
    show(-1e6, 1e6);
    EXPECT_TRUE(banded(-4));
    EXPECT_TRUE(banded(104));
    EXPECT_TRUE(filled(1, 100));
    EXPECT_TRUE(filled(99, 100));
    EXPECT_FALSE(filled(102, 100)) << "there are no counts";
    EXPECT_NE(seen(px - 3, y_of(900)), color);
    EXPECT_NE(seen(px + pw + 2, y_of(900)), color);
}

TEST_F(GraphRanges, UpsideDownTheyHaveABandOnly)
{
    show(40, 20);
    EXPECT_TRUE(banded(30));
    EXPECT_FALSE(filled(30, 300));
}

TEST_F(GraphRanges, OutsideTheViewTheyAreNotSeen)
{
    show(20, 40);
    drag({x_of(50), y_of(0)}, {x_of(80), y_of(600)});
    EXPECT_EQ(count_of(color), 0);
}

TEST_F(GraphRanges, ThatThePlotLiesInsideAreAllOfIt)
{
    show(20, 40);
    drag({x_of(25), y_of(100)}, {x_of(35), y_of(300)});
    EXPECT_GE(count_of(color), pw * ph * 9 / 10) << "but for the grid";
}

TEST_F(GraphRanges, FillTheCountsOfTheComponent)
{
    const auto flat = [](unsigned count) { return Counts(101, count); };
    give(Histogram(0, 1, flat(10), {flat(200), flat(300), flat(400), flat(500)}));
    panel.color_component = 2;
    show(20, 40);
    EXPECT_TRUE(filled(30, 280));
    EXPECT_FALSE(filled(30, 320));
    panel.color_component = 0;
    changed();
    EXPECT_TRUE(filled(30, 480));
}

TEST_F(GraphRanges, OfUnknownTagsAreLeftOut)
{
    panel.Set(2, 300, 20.0, 40.0, 2, 50.0, 60.0);
    open();
    Histo_Graph_Display(0, 1, 0);
    changed();
    EXPECT_FALSE(banded(30));
    EXPECT_TRUE(banded(55));
}

TEST_F(GraphRanges, LaterOnesLieOverEarlierOnes)
{
    constexpr Colors other{10, 220, 30};
    hostkit::Tag_Color_Set(3, other);
    panel.Set(2, 2, 20.0, 60.0, 3, 40.0, 80.0);
    open();
    Histo_Graph_Display(0, 1, 0);
    changed();
    EXPECT_TRUE(filled(30, 200));
    EXPECT_GE(pixels_around(50, 200, other), 15);
    EXPECT_GE(pixels_around(70, 200, other), 15);
}
