#include "tests/histo/histogram_panel.h"

#include <memory>

// Copies of a panel.

using namespace test;

namespace {

using HistogramCopies = Histogram_Panel;

Counts two_bells()
{
    Counts counts;
    for (int x = 0; x < 256; ++x) {
        const int first = x - 80, second = x - 180;
        counts.push_back(
            static_cast<unsigned>(9000.0 / (1 + 0.02 * first * first) + 6000.0 / (1 + 0.02 * second * second)));
    }
    return counts;
}

int peaks_of(const Tool_Histo& panel)
{
    return panel.Peaks() ? panel.Peaks()->nb : -1;
}

}

TEST_F(HistogramCopies, HaveEverythingThatThePanelHas)
{
    give(two_bells());
    lay_out();
    panel.Set(2, 3, 1.0, 2.0, 4, 3.0, 4.0);
    panel.color_component = 2;
    panel.zoom.value = 0.25f;
    std::snprintf(panel.x_title, sizeof panel.x_title, "title");
    std::snprintf(panel.y_unit, sizeof panel.y_unit, "unit");
    panel.cursor_x = 44;
    const Tool_Histo copy(panel);
    EXPECT_EQ(copy.histo, panel.histo);
    EXPECT_EQ(copy.x, 10);
    EXPECT_EQ(copy.width, 162);
    EXPECT_EQ(copy.window, main_window());
    EXPECT_EQ(copy.blow.x, panel.blow.x);
    EXPECT_STREQ(copy.blow.name.get(), "Blow");
    EXPECT_EQ(copy.zoom.value, 0.25f);
    EXPECT_EQ(copy.range_nb, 2);
    EXPECT_EQ(copy.range_tag[1], 4);
    EXPECT_EQ(copy.range_max[1], 4.0f);
    EXPECT_EQ(copy.color_component, 2);
    EXPECT_EQ(copy.cursor_x, 44);
    EXPECT_STREQ(copy.x_title, "title");
    EXPECT_STREQ(copy.y_unit, "unit");
}

TEST_F(HistogramCopies, LoseTheHistogramWithTheFirstThatGoes)
{
    give(two_bells());
    lay_out();
    auto copy = std::make_unique<Tool_Histo>(panel);
    EXPECT_TRUE(copy->Ready());
    copy.reset();
    EXPECT_FALSE(panel.Ready());
    EXPECT_EQ(panel.histo->count, nullptr);
    panel.Draw();
    panel.Update(pointer_moved);
    EXPECT_EQ(panel.Fit(), 1);
    EXPECT_EQ(at(90, 90), back);
}

TEST_F(HistogramCopies, KeepTheirPeaks)
{
    give(two_bells());
    panel.Fit();
    const int found = peaks_of(panel);
    ASSERT_GT(found, 0);
    auto copy = std::make_unique<Tool_Histo>(panel);
    auto third = std::make_unique<Tool_Histo>();
    *third = *copy;
    EXPECT_EQ(peaks_of(*copy), found);
    panel.Fit();
    EXPECT_EQ(peaks_of(*third), found) << "a fit of one leaves the others' peaks alone";
    copy.reset();
    EXPECT_EQ(peaks_of(*third), found);
    EXPECT_NE(third->Peaks()->head->curve, nullptr);
    third.reset();
    EXPECT_GE(peaks_of(panel), 0);
}

TEST_F(HistogramCopies, AssignmentTakesOverWhatTheOtherHas)
{
    give(two_bells());
    panel.Fit();
    Tool_Histo other;
    other = panel;
    EXPECT_EQ(other.histo, panel.histo);
    EXPECT_EQ(peaks_of(other), peaks_of(panel));
    const Tool_Histo empty;
    panel = empty;
    EXPECT_EQ(panel.histo, nullptr);
    EXPECT_EQ(peaks_of(panel), -1);
    EXPECT_GT(peaks_of(other), 0);
}

TEST_F(HistogramCopies, SelfAssignmentIsHarmless)
{
    give(two_bells());
    panel.Fit();
    const int found = peaks_of(panel);
    const Tool_Histo& same = panel;
    panel = same;
    EXPECT_TRUE(panel.Ready());
    EXPECT_EQ(peaks_of(panel), found);
}

TEST_F(HistogramCopies, AFitReplacesTheLastOnesPeaks)
{
    give(two_bells());
    panel.Fit();
    give(Counts(50, 0u));
    EXPECT_GT(peaks_of(panel), 0) << "they stay until the next fit";
    panel.Fit();
    EXPECT_EQ(peaks_of(panel), 0);
    EXPECT_EQ(panel.Peaks()->nb_pts, 50);
}
