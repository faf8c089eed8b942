#include "workbench/histogram/peak_table.h"

#include "histo/tool_histo.h"
#include "tests/workbench/session_fixture.h"

namespace {

class PeakTable : public test::SessionTest {
protected:
    void open_two_peaks()
    {
        ASSERT_FALSE(session.adoptImage(test::image_of_two_peaks()));
        panel.Update(0x102);
    }

    Tool_Histo panel;
};

}

TEST_F(PeakTable, IsEmptyWithoutAFit)
{
    EXPECT_TRUE(workbench::fittedPeaks(panel).empty());
    open_two_peaks();
    EXPECT_TRUE(workbench::fittedPeaks(panel).empty());
}

TEST_F(PeakTable, HasBinsAndGreyValues)
{
    open_two_peaks();
    panel.Fit();
    const auto peaks = workbench::fittedPeaks(panel);
    ASSERT_EQ(peaks.size(), static_cast<std::size_t>(panel.Peaks()->nb));
    ASSERT_GE(peaks.size(), 1u);
    const Vector_N& first = *panel.Peaks()->head->param;
    EXPECT_EQ(peaks[0].center, first[0]);
    EXPECT_EQ(peaks[0].height, first[1]);
    EXPECT_EQ(peaks[0].width, first[2]);
    EXPECT_DOUBLE_EQ(peaks[0].centerValue, 0.5 * first[0] + panel.histo->min);
    EXPECT_DOUBLE_EQ(peaks[0].widthValue, 0.5 * first[2]);
    for (std::size_t i = 1; i < peaks.size(); ++i)
        EXPECT_GT(peaks[i].center, peaks[i - 1].center);
}

TEST_F(PeakTable, TakesTheFactorOutOfGreyValuesOnly)
{
    open_two_peaks();
    panel.Fit();
    const auto plain = workbench::fittedPeaks(panel), divided = workbench::fittedPeaks(panel, 100);
    ASSERT_EQ(plain.size(), divided.size());
    ASSERT_FALSE(plain.empty());
    EXPECT_EQ(divided[0].center, plain[0].center);
    EXPECT_EQ(divided[0].width, plain[0].width);
    EXPECT_DOUBLE_EQ(divided[0].centerValue, plain[0].centerValue / 100);
    EXPECT_DOUBLE_EQ(divided[0].widthValue, plain[0].widthValue / 100);
}
