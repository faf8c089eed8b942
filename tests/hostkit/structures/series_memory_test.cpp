#include "tests/hostkit/structures/limited_memory.h"
#include "tests/hostkit/structures/made_series.h"

#include <cstdint>
#include <limits>

using namespace test;

namespace {

class SeriesMemory : public Made_Series {
protected:
    ~SeriesMemory() override { largest_allocation = std::numeric_limits<std::size_t>::max(); }
};

}

TEST_F(SeriesMemory, TooLittleIsReportedOnceAndLeavesNoHistogram)
{
    std::vector<std::uint16_t> pixels(60000);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        pixels[i] = static_cast<std::uint16_t>(i);
    make(pixels, 1, 0, 3);
    largest_allocation = 10000;
    for (auto* frame : frames)
        EXPECT_EQ(frame->Histogram_Get(), nullptr);
    EXPECT_EQ(raw(5), no_value);
    EXPECT_EQ(Fct_GLI_2_Float(frames[0], 5), 0);
    EXPECT_EQ(hostkit::Series_Grey_Factor(series), 1);
    EXPECT_EQ(reports.texts(2), std::vector<std::string>{"There is not enough memory for the histograms of \"made\". "
                                                         "Close other programs and open it again."});
    largest_allocation = std::numeric_limits<std::size_t>::max();
    EXPECT_EQ(frames[0]->Histogram_Get(), nullptr) << "nobody waits for another try with each frame";
    hostkit::Series_Pixels_Changed(series);
    EXPECT_EQ(sum_of(histogram(2)), 20000u);
}
