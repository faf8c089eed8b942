#include "tests/histo/histogram_panel.h"

// The ranges of tags in the histogram.

using namespace test;

namespace {

constexpr Colors orange{200, 100, 50};
constexpr Colors violet{120, 40, 220};

class HistogramRanges : public Histogram_Panel {
protected:
    HistogramRanges()
    {
        hostkit::Tag_Color_Set(3, orange);
        hostkit::Tag_Color_Set(4, violet);
    }

    /// Bars that are half as high as the panel.
    void give_half_high(float width, int bins)
    {
        give(Histogram(0, width, Counts(static_cast<size_t>(bins), 50u)));
        panel.histo->max_count = 100;
    }

    /// 12 bins, each 13 pixels wide.
    void show_twelve_bins()
    {
        give_half_high(1, 12);
        lay_out();
    }

    /// The columns with a colour somewhere in the upper half, where no bars are.
    std::pair<int, int> band(Colors color) const
    {
        int first = -1, end = -1;
        for (int x = panel.x; x < panel.x + panel.width; ++x) {
            if (at(x, 150) != color && at(x, 151) != color)
                continue;
            first = first < 0 ? x : first;
            end = x + 1;
        }
        return {first, end};
    }

    static std::pair<int, int> columns(int first_bin, int end_bin)
    {
        return {left + 13 * first_bin, left + 13 * end_bin};
    }
    static constexpr std::pair<int, int> none{-1, -1};
};

}

TEST_F(HistogramRanges, ABandIsAFineChecker)
{
    show_twelve_bins();
    panel.Set(1, 3, 2.0, 4.0);
    panel.Update(repaint);
    EXPECT_EQ(band(orange), columns(2, 5)) << "the last bin is part of it";
    for (int y = 110; y < 150; ++y) {
        for (int x = left + 26; x < left + 65; ++x) {
            ASSERT_EQ(at(x, y), at(x + 1 < left + 65 ? x + 1 : x - 1, y + 1)) << x << ',' << y;
            ASSERT_EQ(at(x, y) == orange, at(x, y + 1) == black) << x << ',' << y;
        }
    }
    keep_picture(main_window(), "histogram_panel_range");
}

TEST_F(HistogramRanges, ABandIsAsHighAsTheHistogram)
{
    show_twelve_bins();
    panel.Set(1, 3, 2.0, 2.0);
    panel.Update(repaint);
    std::vector<int> rows;
    for (int y = panel.y; y < panel.y + panel.height; ++y) {
        if (at(left + 30, y) == orange || at(left + 31, y) == orange)
            rows.push_back(y);
    }
    EXPECT_EQ(rows.front(), bottom + 1);
    EXPECT_EQ(rows.back(), bottom + inner_height);
    EXPECT_EQ(rows.size(), static_cast<size_t>(inner_height - 1)) << "the curve lies over one of them";
}

TEST_F(HistogramRanges, CheckersOfNeighboursContinueEachOther)
{
    show_twelve_bins();
    panel.Set(2, 3, 2.0, 2.0, 3, 3.0, 3.0);
    panel.Update(repaint);
    for (int x = left + 26; x < left + 51; ++x)
        ASSERT_NE(at(x, 150) == orange, at(x + 1, 150) == orange) << x;
}

TEST_F(HistogramRanges, BarsAreFilled)
{
    show_twelve_bins();
    panel.Set(1, 3, 2.0, 4.0);
    panel.Update(repaint);
    for (int y = bottom + 1; y < bottom + 70; ++y) {
        for (int x = left + 27; x < left + 64; ++x)
            ASSERT_EQ(at(x, y), orange) << x << ',' << y;
    }
    EXPECT_EQ(at(left + 40, bottom + inner_height / 2), yellow) << "the curve lies over them";
}

TEST_F(HistogramRanges, ARangeOfOneBinHasNoBars)
{
    show_twelve_bins();
    for (const double grey : {0.0, 5.0, 11.0}) {
        panel.Set(1, 3, grey, grey);
        panel.Update(repaint);
        EXPECT_EQ(band(orange), columns(static_cast<int>(grey), static_cast<int>(grey) + 1));
        const int x = left + 13 * static_cast<int>(grey) + 5;
        EXPECT_NE(at(x, bottom + 20) == orange, at(x + 1, bottom + 20) == orange) << grey;
    }
}

TEST_F(HistogramRanges, LongRangesHaveNoSeams)
{
    give_half_high(1, 60);
    lay_out();
    panel.Set(1, 3, 0.0, 59.0);
    panel.Update(repaint);
    for (int x = left + 1; x <= left + 59 * inner_width / 60; ++x)
        ASSERT_EQ(at(x, bottom + 20), orange) << x;
}

TEST_F(HistogramRanges, GreyValuesAreCutToWholeOnes)
{
    show_twelve_bins();
    panel.Set(1, 3, 2.99, 4.99);
    panel.Update(repaint);
    EXPECT_EQ(band(orange), columns(2, 5));
    give_half_high(0.5f, 12);
    panel.Set(1, 3, 2.9, 3.9);
    panel.Update(repaint);
    EXPECT_EQ(band(orange), columns(4, 7));
}

TEST_F(HistogramRanges, WhatLiesBelowStandsAtTheEnd)
{
    show_twelve_bins();
    panel.Set(1, 3, -5.0, 8.0);
    panel.Update(repaint);
    EXPECT_EQ(band(orange), columns(9, 11)) << "between the last bin's start and the upper value's end";
    EXPECT_EQ(at(left + 13 * 9 + 5, bottom + 20) == orange, at(left + 13 * 9 + 6, bottom + 20) == black) << "no bars";
    panel.Set(1, 3, -0.9, 0.5);
    panel.Update(repaint);
    EXPECT_EQ(band(orange), columns(0, 1)) << "less than a bin below is the first bin";
    give_half_high(2, 12);
    panel.Set(1, 3, -1.0, -1.0);
    panel.Update(repaint);
    EXPECT_EQ(band(orange), columns(0, 1));
    panel.Set(1, 3, -2.0, -2.0);
    panel.Update(repaint);
    EXPECT_EQ(band(orange), columns(11, 12));
}

TEST_F(HistogramRanges, WhatLiesAboveIsTheLastBin)
{
    show_twelve_bins();
    panel.Set(1, 3, 10.0, 1e30);
    panel.Update(repaint);
    EXPECT_EQ(band(orange), columns(10, 12));
    panel.Set(1, 3, 500.0, 900.0);
    panel.Update(repaint);
    EXPECT_EQ(band(orange), columns(11, 12));
}

TEST_F(HistogramRanges, TurnedRangesShowTheBandBetween)
{
    show_twelve_bins();
    panel.Set(1, 3, 9.0, 3.0);
    panel.Update(repaint);
    EXPECT_EQ(band(orange), columns(4, 9));
    panel.Set(1, 3, 9.0, 8.0);
    panel.Update(repaint);
    EXPECT_EQ(band(orange), none) << "nothing lies between";
}

TEST_F(HistogramRanges, NotANumberIsGreyValueZero)
{
    show_twelve_bins();
    panel.Set(1, 3, std::numeric_limits<double>::quiet_NaN(), 1.0);
    panel.Update(repaint);
    EXPECT_EQ(band(orange), columns(0, 2));
}

TEST_F(HistogramRanges, LaterOnesCoverEarlierOnes)
{
    show_twelve_bins();
    panel.Set(2, 3, 2.0, 6.0, 4, 4.0, 8.0);
    panel.Update(repaint);
    EXPECT_EQ(band(violet), columns(4, 9));
    EXPECT_EQ(band(orange), columns(2, 4));
    EXPECT_EQ(at(left + 13 * 5, bottom + 20), violet);
    EXPECT_EQ(at(left + 13 * 3, bottom + 20), orange);
    keep_picture(main_window(), "histogram_panel_ranges");
}

TEST_F(HistogramRanges, ThirtyTwoAreShown)
{
    give_half_high(1, 32);
    lay_out();
    panel.range_nb = 32;
    for (int i = 0; i < 32; ++i) {
        panel.range_tag[i] = static_cast<unsigned short>(i == 31 ? 4 : 3);
        panel.range_min[i] = panel.range_max[i] = static_cast<float>(i);
    }
    panel.Update(repaint);
    EXPECT_EQ(band(violet).second, left + inner_width);
    EXPECT_EQ(band(orange).first, left);
}

TEST_F(HistogramRanges, OfTagsThatAreNotThereAreLeftOut)
{
    show_twelve_bins();
    panel.Set(3, 256, 1.0, 2.0, 65535, 3.0, 4.0, 3, 6.0, 6.0);
    panel.Update(repaint);
    EXPECT_EQ(at(left + 20, 150), black);
    EXPECT_EQ(band(orange), columns(6, 7));
    hostkit::Tag_Color_Set(255, violet);
    panel.Set(1, 255, 1.0, 2.0);
    panel.Update(repaint);
    EXPECT_EQ(band(violet), columns(1, 3));
}

TEST_F(HistogramRanges, TagZeroHasItsOwnColour)
{
    hostkit::Tag_Color_Set(0, violet);
    show_twelve_bins();
    panel.Set(1, 0, 1.0, 2.0);
    panel.Update(repaint);
    EXPECT_EQ(band(violet), columns(1, 3));
}

TEST_F(HistogramRanges, FollowTheColoursOfTags)
{
    show_twelve_bins();
    panel.Set(1, 3, 2.0, 4.0);
    panel.Update(repaint);
    hostkit::Tag_Color_Set(3, violet);
    panel.Update(bit(38));
    EXPECT_EQ(band(orange), none);
    EXPECT_EQ(band(violet), columns(2, 5));
}

TEST_F(HistogramRanges, FollowTheHostsArrays)
{
    show_twelve_bins();
    panel.Set(1, 3, 2.0, 4.0);
    panel.Update(repaint);
    std::vector<unsigned short> other(256, 0x8040);
    auto*& reds = hostkit::Array_Variable<unsigned short>("$TAG_RED");
    unsigned short* const before = reds;
    reds = other.data();
    panel.Update(bit(38));
    EXPECT_EQ(band({0x80, 100, 50}), columns(2, 5)) << "the high byte counts";
    reds = nullptr;
    panel.Update(bit(38));
    EXPECT_EQ(at(left + 30, bottom + 20), black) << "no ranges without one of the arrays";
    EXPECT_EQ(at(left + 30, bottom + inner_height / 2), yellow) << "but the curve";
    reds = before;
}

TEST_F(HistogramRanges, ShowTheBarsOfTheChosenComponent)
{
    give(Histogram(0, 1, Counts(12, 10u), {Counts(12, 60u), Counts(12, 5u), Counts(12, 5u), Counts(12, 100u)}));
    lay_out();
    panel.Set(1, 3, 2.0, 4.0);
    panel.color_component = 1;
    panel.Update(repaint);
    EXPECT_EQ(at(left + 40, bottom + 80), orange);
    EXPECT_EQ(at(left + 40, bottom + 90) == orange, at(left + 41, bottom + 90) == black);
}
