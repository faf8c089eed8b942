#include "workbench/histogram/tag_ranges.h"

#include "histo/tool_histo.h"

#include <gtest/gtest.h>

#include <limits>

using workbench::showTagRanges;

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();

// A panel with a histogram from -100 to 100.
class TagRanges : public ::testing::Test {
protected:
    TagRanges()
    {
        record.nb_bins = 200;
        record.min = -100;
        record.width = 1;
        record.count = counts;
        panel.histo = &record;
    }
    ~TagRanges() override { panel.histo = nullptr; }

    struct Shown {
        int tag;
        float lower, upper;
        bool operator==(const Shown&) const = default;
    };
    std::vector<Shown> shown() const
    {
        std::vector<Shown> all;
        for (int i = 0; i < panel.range_nb; ++i)
            all.push_back({panel.range_tag[i], panel.range_min[i], panel.range_max[i]});
        return all;
    }

    Histo_Record record{};
    unsigned counts[200] = {};
    Tool_Histo panel;
};

}

TEST_F(TagRanges, AreShownAsTheyAre)
{
    showTagRanges(panel, {{3, -50, 20.5}, {4, 30, 30}});
    EXPECT_EQ(shown(), (std::vector<Shown>{{3, -50, 20.5f}, {4, 30, 30}}));
}

TEST_F(TagRanges, AreCutToTheHistogram)
{
    showTagRanges(panel, {{1, -infinite, 0}, {2, 0, infinite}, {3, -infinite, infinite}, {4, -5000, 5000}});
    EXPECT_EQ(shown(), (std::vector<Shown>{{1, -100, 0}, {2, 0, 100}, {3, -100, 100}, {4, -100, 100}}));
}

TEST_F(TagRanges, ThatMissTheHistogramAreLeftOut)
{
    showTagRanges(panel, {{1, -300, -200}, {2, 200, infinite}, {3, 0, 1}});
    EXPECT_EQ(shown(), (std::vector<Shown>{{3, 0, 1}}));
}

TEST_F(TagRanges, BeginWithinAHistogramOfFractions)
{
    record.min = -100.75f;
    showTagRanges(panel, {{1, -infinite, 0}});
    EXPECT_EQ(shown(), (std::vector<Shown>{{1, -100, 0}})) << "the panel cuts bounds to whole numbers";
}

TEST_F(TagRanges, OnlyThirtyTwoFitIn)
{
    std::vector<workbench::TagRange> many(5, {99, 500, 600});
    for (int tag = 0; tag < 40; ++tag)
        many.push_back({tag, 0.0 + tag, 1.0 + tag});
    showTagRanges(panel, many);
    ASSERT_EQ(panel.range_nb, 32);
    EXPECT_EQ(shown().front(), (Shown{0, 0, 1}));
    EXPECT_EQ(shown().back(), (Shown{31, 31, 32}));
}

TEST_F(TagRanges, NoneTakeTheOldOnesAway)
{
    showTagRanges(panel, {{1, 0, 1}});
    showTagRanges(panel, {});
    EXPECT_EQ(panel.range_nb, 0);
    showTagRanges(panel, {{1, 0, 1}});
    panel.histo = nullptr;
    showTagRanges(panel, {{1, 0, 1}});
    EXPECT_EQ(panel.range_nb, 0) << "there is no histogram";
}
