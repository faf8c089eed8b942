#include "tests/histo/own_host.h"

#include <numeric>

// Which places of the slope and of the smoothed data are accepted as maxima.

using namespace test;

namespace {

// A slope that falls through zero just before `top`: `rise` in each of the bins before it, `fall` behind it, and 0 at
// `top` itself.
std::vector<float> roof(int n, int top, float rise = 10, float fall = -10)
{
    std::vector<float> slope(static_cast<size_t>(n), rise);
    std::fill(slope.begin() + top, slope.end(), fall);
    slope[static_cast<size_t>(top)] = 0;
    return slope;
}

class SlopeCrossing : public Own_Host {
protected:
    static int at(const std::vector<float>& slope, int x, int half_window = 15, float least = 5)
    {
        return Is_Zero_Peak(static_cast<int>(slope.size()), slope.data(), x, half_window, least);
    }
    static int& last() { return histo::peak_settings.last_crossing; }
};

class DataMaximum : public Own_Host {
protected:
    DataMaximum() { histo::peak_settings.least_height = 10; }

    static int at(const std::vector<double>& smooth, int x, int half_window = 15, float rise = 2)
    {
        return Is_Data_Peak(static_cast<int>(smooth.size()), smooth.data(), x, half_window, rise);
    }

    static std::vector<double> flat(int n, double height)
    {
        return std::vector<double>(static_cast<size_t>(n), height);
    }
};

}

TEST_F(SlopeCrossing, IsAcceptedWithTheLengthOfItsFlank)
{
    EXPECT_EQ(at(roof(100, 40), 40), 60) << "to the last bin";
    last() = 0;
    auto slope = roof(100, 40);
    slope[70] = 0;
    EXPECT_EQ(at(slope, 40), 30);
    last() = 0;
    slope[70] = -1;
    slope[55] = 1;
    EXPECT_EQ(at(slope, 40), 15);
}

TEST_F(SlopeCrossing, NeedsARiseBeforeAndNoneAtIt)
{
    auto slope = roof(100, 40);
    slope[39] = 0;
    EXPECT_EQ(at(slope, 40), 0);
    slope = roof(100, 40);
    slope[40] = 0.001f;
    EXPECT_EQ(at(slope, 40), 0);
    EXPECT_EQ(last(), 0) << "nothing was crossed";
    EXPECT_EQ(at(slope, 41), 59) << "it is one bin later";
}

TEST_F(SlopeCrossing, MustBeMoreThanAHalfWindowAfterTheLast)
{
    last() = 25;
    EXPECT_EQ(at(roof(100, 40), 40), 0);
    EXPECT_EQ(last(), 40) << "kept although it is refused";
    last() = 24;
    EXPECT_EQ(at(roof(100, 40), 40), 60);
    EXPECT_EQ(at(roof(100, 40), 40), 0) << "the last one is itself";
    last() = 200;
    EXPECT_EQ(at(roof(100, 40), 40), 0) << "one that lies behind counts too";
    EXPECT_EQ(last(), 40);
}

TEST_F(SlopeCrossing, RisesAndFallsThroughoutTheWindow)
{
    for (const int k : {2, 7, 14}) {
        auto slope = roof(100, 40);
        slope[static_cast<size_t>(40 - k)] = 0;
        last() = 0;
        EXPECT_EQ(at(slope, 40), 0) << k;
        slope = roof(100, 40);
        slope[static_cast<size_t>(40 + k)] = 0;
        last() = 0;
        EXPECT_EQ(at(slope, 40), 0) << k;
    }
    auto slope = roof(100, 40);
    slope[40 - 15] = -1;
    slope[40 + 15] = 0;
    last() = 0;
    EXPECT_EQ(at(slope, 40), 15) << "what lies 15 bins away is outside";
}

TEST_F(SlopeCrossing, NeedsOneSteepBinOnEachSide)
{
    EXPECT_EQ(at(roof(100, 40, 5, -10), 40), 0);
    last() = 0;
    EXPECT_EQ(at(roof(100, 40, 10, -5), 40), 0);
    auto slope = roof(100, 40, 5, -5);
    slope[26] = 5.001f;
    slope[54] = -5.001f;
    last() = 0;
    EXPECT_EQ(at(slope, 40), 60);
    slope[26] = 5;
    slope[25] = 100;
    last() = 0;
    EXPECT_EQ(at(slope, 40), 0) << "a steep bin outside the window does not help";
}

TEST_F(SlopeCrossing, AtTheEndsOnlyTheBinsThatAreThereCount)
{
    EXPECT_EQ(at(roof(19, 16), 16), 3);
    last() = 0;
    EXPECT_EQ(at(roof(18, 16), 16), 2) << "the shortest flank";
    last() = 0;
    EXPECT_EQ(at(roof(17, 16), 16), 0) << "nothing falls behind the last bin";
    last() = -100;
    EXPECT_EQ(at(roof(40, 5), 5), 35) << "with no bins on the left outside the data";
}

TEST_F(SlopeCrossing, AWindowOfOneBinFindsNothing)
{
    EXPECT_EQ(at(roof(100, 40), 40, 1), 0);
    last() = 0;
    EXPECT_EQ(at(roof(100, 40), 40, 2), 60);
}

TEST_F(DataMaximum, IsTheBinBefore)
{
    auto smooth = flat(100, 50);
    smooth[40] = 53;
    EXPECT_EQ(at(smooth, 41), 1);
    EXPECT_EQ(at(smooth, 40), 0);
    EXPECT_EQ(at(smooth, 42), 0);
    EXPECT_EQ(reports.texts(12), std::vector<std::string>{"  -> possile data peak at 40 -> max = 3"});
}

TEST_F(DataMaximum, StandsOutByTwoWholeCounts)
{
    auto smooth = flat(100, 50);
    smooth[40] = 52;
    EXPECT_EQ(at(smooth, 41), 1);
    smooth[40] = 51.999;
    EXPECT_EQ(at(smooth, 41), 0) << "cut to 1";
    EXPECT_EQ(reports.texts(12).back(), "  -> possile data peak at 40 -> max = 1") << "told all the same";
    smooth[55] = 49.5;
    EXPECT_EQ(at(smooth, 41), 1) << "above one of the bins within 15";
    smooth[55] = 50;
    smooth[56] = 0;
    EXPECT_EQ(at(smooth, 41), 0);
}

TEST_F(DataMaximum, IsNowhereExceeded)
{
    auto smooth = flat(100, 50);
    smooth[40] = 60;
    smooth[25] = 60;
    EXPECT_EQ(at(smooth, 41), 1) << "an equal one is allowed";
    smooth[25] = 60.001;
    EXPECT_EQ(at(smooth, 41), 0);
    smooth[25] = 50;
    smooth[55] = 60.001;
    EXPECT_EQ(at(smooth, 41), 0);
    smooth[55] = 50;
    smooth[56] = smooth[24] = 1000;
    EXPECT_EQ(at(smooth, 41), 1);
}

TEST_F(DataMaximum, IsAtLeastTenHigh)
{
    auto smooth = flat(100, 0);
    smooth[40] = 9.999;
    EXPECT_EQ(at(smooth, 41), 0);
    EXPECT_TRUE(reports.texts(12).empty());
    smooth[40] = 10;
    EXPECT_EQ(at(smooth, 41), 1);
}

TEST_F(DataMaximum, IsSoughtInTheBinsThatAreThere)
{
    auto smooth = flat(30, 50);
    smooth[0] = 60;
    EXPECT_EQ(at(smooth, 1), 1);
    smooth = flat(30, 50);
    smooth[28] = 60;
    EXPECT_EQ(at(smooth, 29), 1);
}

TEST_F(DataMaximum, AHugeRiseIsTheLargestInt)
{
    auto smooth = flat(30, 0);
    smooth[10] = 4e9;
    EXPECT_EQ(at(smooth, 11), 1);
    EXPECT_EQ(reports.texts(12).back(), "  -> possile data peak at 10 -> max = 2147483647");
}
