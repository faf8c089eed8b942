#include "tests/histo/histogram_panel.h"

// What the panel shows of a histogram.

using namespace test;

using HistogramPaint = Histogram_Panel;

namespace {

constexpr Colors red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255};

// Of four bins, each 39 pixels wide: counts whose curve can be told from each other.
Histogram colored()
{
    return {0, 1, {0, 10, 0, 0}, {Counts{0, 20, 0, 0}, Counts{0, 30, 0, 0}, Counts{0, 40, 0, 0}, Counts{0, 100, 0, 0}}};
}

}

TEST_F(HistogramPaint, WithoutAHistogramThereIsAnEmptyBox)
{
    lay_out();
    EXPECT_EQ(at(90, 90), back);
    EXPECT_EQ(panel.cursor_x, -1);
    panel.cursor_x = 50;
    panel.Draw();
    EXPECT_EQ(panel.cursor_x, -1) << "whatever was drawn there is gone";
    panel.Update(repaint);
    EXPECT_EQ(at(90, 90), back);
}

TEST_F(HistogramPaint, TheGroundIsBlackWithinTheFrame)
{
    give({0, 0, 0});
    lay_out();
    EXPECT_EQ(columns_with(black, 100), all_from(13, 170))
        << "three columns of the frame stay on the left, two on the right";
    EXPECT_EQ(rows_with(black, 160), all_from(23, 168));
}

TEST_F(HistogramPaint, TheGroundFollowsTheFramesWidth)
{
    give({0, 0, 0});
    lay_out(10, 20, 200, 150, 0);
    EXPECT_EQ(columns_with(black, 100), all_from(11, 172));
    EXPECT_EQ(rows_with(black, 170), all_from(21, 170));
}

TEST_F(HistogramPaint, TheCurveGoesThroughTheLowerLeftOfEachBin)
{
    give({0, 0, 50, 100, 0, 0}); // 26 pixels a bin
    lay_out();
    for (int x = 0; x < inner_width; ++x) {
        const bool flat = x < 26 || (x >= 104 && x < 130); // the last bin ends it
        if (x != 26) {                                     // where a slanted line begins
            EXPECT_EQ(at(left + x, bottom), flat ? yellow : black) << x;
        }
    }
    EXPECT_EQ(at(left + 52, bottom + inner_height / 2), yellow);
    EXPECT_EQ(at(left + 78, bottom + inner_height), yellow);
    EXPECT_TRUE(columns_with(yellow, bottom + inner_height + 1).empty());
    keep_picture(main_window(), "histogram_panel");
}

TEST_F(HistogramPaint, ManyBinsOfOneColumnShowTheirExtremes)
{
    Counts counts(156 * 16, 0u);
    for (size_t bin = 0; bin < counts.size(); ++bin)
        counts[bin] = bin % 16 == 5 ? 100 : bin % 16 == 9 ? 10 : 50;
    give(std::move(counts));
    lay_out();
    for (const int x : {0, 50, 155})
        EXPECT_EQ(rows_with(yellow, left + x), all_from(x == 0 ? bottom : bottom + 14, bottom + 145)) << x;
}

TEST_F(HistogramPaint, SixtyFiveThousandBinsAreShown)
{
    Counts counts(65535, 1u);
    counts[40000] = 100;
    give(std::move(counts));
    lay_out();
    EXPECT_EQ(rows_with(yellow, left + 40000 * inner_width / 65535), all_from(bottom + 1, bottom + 145));
    EXPECT_EQ(rows_with(yellow, left + 60), std::vector<int>{bottom + 1});
}

TEST_F(HistogramPaint, TheZoomStretchesTheCurveAndCutsItAtTheTop)
{
    give({0, 30, 100, 0, 0, 0});
    lay_out();
    EXPECT_EQ(at(left + 26, bottom + 43), yellow);
    panel.zoom.value = 0.5f;
    panel.Update(repaint);
    EXPECT_EQ(at(left + 26, bottom + 86), yellow);
    EXPECT_EQ(at(left + 52, bottom + inner_height), yellow);
    EXPECT_NE(at(left + 52, bottom + inner_height + 1), yellow);
    keep_picture(main_window(), "histogram_panel_zoomed");
}

TEST_F(HistogramPaint, EmptyCountsAreAFlatLine)
{
    give({0, 0, 0, 0});
    lay_out();
    EXPECT_EQ(columns_with(yellow, bottom), all_from(left, left + 117)) << "up to the last bin, which ends it";
    EXPECT_TRUE(columns_with(yellow, bottom + 1).empty());
    panel.zoom.value = 0;
    panel.histo->max_count = 5;
    panel.Update(repaint);
    EXPECT_EQ(columns_with(yellow, bottom).size(), 117u);
}

TEST_F(HistogramPaint, LargestCountsReachTheTop)
{
    give({0, 0xFFFFFFFFu, 0, 0});
    lay_out();
    EXPECT_EQ(at(left + 39, bottom + inner_height), yellow);
    panel.zoom.value = 0.001f;
    panel.Update(repaint);
    EXPECT_EQ(at(left + 39, bottom + inner_height), yellow);
}

TEST_F(HistogramPaint, EachComponentHasItsCountsAndColour)
{
    lay_out();
    struct Look {
        unsigned char component;
        Colors color;
        int height;
    };
    for (const Look& look : {Look{0, yellow, 144}, {1, red, 28}, {2, green, 43}, {3, blue, 57}, {4, yellow, 14},
             {5, yellow, 14}, {255, yellow, 14}}) {
        give(colored());
        panel.color_component = look.component;
        panel.Update(repaint);
        EXPECT_EQ(at(left + 39, bottom + look.height), look.color) << int{look.component};
        EXPECT_EQ(rows_with(look.color, left + 39).back(), bottom + look.height);
    }
    keep_picture(main_window(), "histogram_panel_colour");
}

TEST_F(HistogramPaint, AMissingComponentIsTheCountsInYellow)
{
    lay_out();
    for (const int component : {0, 1, 2, 3}) {
        give({0, 70, 100, 0});
        panel.color_component = static_cast<unsigned char>(component);
        panel.Update(repaint);
        EXPECT_EQ(at(left + 39, bottom + 100), yellow) << component;
    }
}

TEST_F(HistogramPaint, PaintsOverWhatWasThere)
{
    give({0, 100, 0, 0});
    lay_out();
    panel.cursor_x = 77;
    give({0, 50, 0, 0});
    panel.histo->max_count = 100;
    panel.Update(repaint);
    EXPECT_EQ(at(left + 39, bottom + 144), black);
    EXPECT_EQ(at(left + 39, bottom + 72), yellow);
    EXPECT_EQ(panel.cursor_x, -1);
}

TEST_F(HistogramPaint, ATinyPanelShowsNoCurve)
{
    give({0, 100, 0, 0});
    for (const int size : {1, 5, 6}) {
        lay_out(10, 20, size + 2 * 19, 150);
        EXPECT_TRUE(rows_with(yellow, panel.x + 3).empty()) << size;
        lay_out(10, 20, 200, size);
        EXPECT_TRUE(columns_with(yellow, panel.y + 3).empty()) << size;
        panel.cursor_x = 5;
        panel.Update(repaint);
        EXPECT_EQ(panel.cursor_x, -1);
    }
}

TEST_F(HistogramPaint, WithoutAWindowNothingIsDrawn)
{
    give({0, 100, 0, 0});
    panel.Update(~0ull);
    panel.Draw();
    panel.Motion(0);
    panel.Scroll(1);
    SUCCEED();
}
