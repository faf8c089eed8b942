#include "workbench/histogram/first_zoom.h"

#include "histo/tool_histo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

using workbench::zoomToShow;

namespace {

// A panel with these counts.
class FirstZoom : public ::testing::Test {
protected:
    float zoom_of(std::vector<unsigned> counts)
    {
        Histo_Record record{};
        record.nb_bins = static_cast<unsigned short>(counts.size());
        record.width = 1;
        record.count = counts.data();
        record.max_count = counts.empty() ? 0 : *std::max_element(counts.begin(), counts.end());
        Tool_Histo panel;
        panel.zoom.minimum = 0.001f;
        panel.zoom.maximum = 1;
        panel.zoom.value = 0.25f;
        panel.histo = &record;
        zoomToShow(panel);
        panel.histo = nullptr;
        return panel.zoom.value;
    }
};

}

TEST_F(FirstZoom, CutsABinThatTowersAboveTheOthers)
{
    std::vector<unsigned> counts(100, 50);
    counts[0] = 1000;
    EXPECT_FLOAT_EQ(zoom_of(counts), 1.2f * 50 / 1000);
}

TEST_F(FirstZoom, CutsOneInFiftyBinsAtMost)
{
    std::vector<unsigned> counts(100, 50);
    counts[0] = counts[7] = counts[90] = 1000;
    EXPECT_EQ(zoom_of(counts), 1);
}

TEST_F(FirstZoom, ShowsAllOfWhatIsMuchAlike)
{
    std::vector<unsigned> counts(100, 50);
    counts[0] = 100;
    EXPECT_EQ(zoom_of(counts), 1);
}

TEST_F(FirstZoom, StaysWithinTheZoom)
{
    std::vector<unsigned> counts(100, 1);
    counts[0] = 4'000'000'000;
    EXPECT_EQ(zoom_of(counts), 0.001f);
}

TEST_F(FirstZoom, IsAllWhereThereIsNothingToCut)
{
    EXPECT_EQ(zoom_of({}), 1);
    EXPECT_EQ(zoom_of({0, 0, 0}), 1);
    EXPECT_EQ(zoom_of({7}), 1);
    std::vector<unsigned> counts(100, 0);
    counts[3] = 1000;
    EXPECT_EQ(zoom_of(counts), 1) << "nothing else would be seen";
    Tool_Histo panel;
    panel.zoom.maximum = 1;
    zoomToShow(panel);
    EXPECT_EQ(panel.zoom.value, 1);
}
