#include "hostkit/charts/ticks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace hostkit;

namespace {

std::vector<double> values(double from, double to, Round_Step step)
{
    const Ticks ticks = Ticks_In(from, to, step);
    std::vector<double> result;
    for (int index = 0; index < ticks.count; ++index)
        result.push_back(Tick_Value(ticks, index));
    return result;
}

std::vector<std::string> labels(double from, double to, Round_Step step)
{
    return Tick_Labels(Ticks_In(from, to, step));
}

using Values = std::vector<double>;
using Written = std::vector<std::string>;

}

TEST(RoundStep, IsTheSmallestOneTwoOrFiveThatIsLongEnough)
{
    EXPECT_EQ(Round_Step_Of(1), (Round_Step{1, 0}));
    EXPECT_EQ(Round_Step_Of(1.1), (Round_Step{2, 0}));
    EXPECT_EQ(Round_Step_Of(2), (Round_Step{2, 0}));
    EXPECT_EQ(Round_Step_Of(2.1), (Round_Step{5, 0}));
    EXPECT_EQ(Round_Step_Of(5.1), (Round_Step{1, 1}));
    EXPECT_EQ(Round_Step_Of(0.03), (Round_Step{5, -2}));
    EXPECT_EQ(Round_Step_Of(734), (Round_Step{1, 3}));
}

TEST(RoundStep, DoesNotMindRounding)
{
    EXPECT_EQ(Round_Step_Of(0.1f), (Round_Step{1, -1}));
    EXPECT_EQ(Round_Step_Of(1000.0001), (Round_Step{1, 3}));
    EXPECT_EQ(Round_Step_Of(0.3 - 0.1), (Round_Step{2, -1}));
}

TEST(RoundStep, HasANextLargerOne)
{
    Round_Step step{1, -1};
    for (const Round_Step next : {Round_Step{2, -1}, Round_Step{5, -1}, Round_Step{1, 0}, Round_Step{2, 0}}) {
        step = step.next();
        EXPECT_EQ(step, next);
    }
}

TEST(Ticks, AreTheMultiplesInTheRange)
{
    EXPECT_EQ(values(-1.5, 2.5, {1, 0}), (Values{-1, 0, 1, 2}));
    EXPECT_EQ(values(3, 19, {5, 0}), (Values{5, 10, 15}));
    EXPECT_EQ(values(-1228.8, 3276.8, {1, 3}), (Values{-1000, 0, 1000, 2000, 3000}));
    EXPECT_EQ(values(1, 4, {5, 0}), Values{});
}

TEST(Ticks, IncludeTheBounds)
{
    EXPECT_EQ(values(0, 10, {5, 0}), (Values{0, 5, 10}));
    EXPECT_EQ(values(0.1f, 0.3f, {1, -1}), (Values{0.1, 0.2, 0.3})) << "the bounds are not quite decimals";
}

TEST(Ticks, AreTheNumbersNextToTheDecimals)
{
    EXPECT_EQ(values(0, 1, {1, -1}), (Values{0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 1}));
    EXPECT_EQ(values(0.0015, 0.0045, {2, -3}), (Values{0.002, 0.004}));
}

TEST(Ticks, AreFewAtTheEndsOfTheNumbers)
{
    constexpr double most = std::numeric_limits<float>::max();
    for (const auto& [from, to] : {std::pair{-most, most}, {0.0, 1.4e-45}, {most * 0.9999999, most}}) {
        const Ticks ticks = Ticks_In(from, to, Round_Step_Of((to - from) / 10));
        EXPECT_GE(ticks.count, 2);
        EXPECT_LE(ticks.count, 11);
        for (int index = 0; index < ticks.count; ++index)
            EXPECT_TRUE(std::isfinite(Tick_Value(ticks, index)));
    }
}

TEST(TickLabels, HaveNoNeedlessDigits)
{
    EXPECT_EQ(labels(0, 1.5, {5, -1}), (Written{"0", "0.5", "1", "1.5"}));
    EXPECT_EQ(labels(1234.5, 1234.6, {5, -2}), (Written{"1234.5", "1234.55", "1234.6"}));
    EXPECT_EQ(labels(0, 0.0002, {1, -4}), (Written{"0", "0.0001", "0.0002"}));
}

TEST(TickLabels, HaveATrueMinus)
{
    EXPECT_EQ(labels(-1000, 1000, {1, 3}), (Written{"\xE2\x88\x92"
                                                    "1000",
                                               "0", "1000"}));
    EXPECT_EQ(labels(-0.2, 0, {1, -1}).back(), "0");
}

TEST(TickLabels, AreWrittenOutUpToFiveDigits)
{
    EXPECT_EQ(labels(0, 60000, {2, 4}), (Written{"0", "20000", "40000", "60000"}));
}

TEST(TickLabels, OfLargeNumbersHaveOneUnit)
{
    EXPECT_EQ(labels(0, 150000, {5, 4}), (Written{"0", "50k", "100k", "150k"}));
    EXPECT_EQ(labels(0, 1500000, {5, 5}), (Written{"0", "0.5M", "1M", "1.5M"}));
    EXPECT_EQ(labels(0, 4e9, {2, 9}), (Written{"0", "2G", "4G"}));
}

TEST(TickLabels, AreWrittenOutWhereAUnitWouldBeLonger)
{
    EXPECT_EQ(labels(1234520, 1234540, {1, 1}), (Written{"1234520", "1234530", "1234540"}));
    EXPECT_EQ(labels(123456.5, 123457, {5, -1}), (Written{"123456.5", "123457"}));
}

TEST(TickLabels, OfExtremeNumbersHaveAPowerOfTen)
{
    EXPECT_EQ(labels(0, 2e-9, {1, -9}), (Written{"0", "1e-09", "2e-09"}));
    EXPECT_EQ(labels(0, 2e20, {1, 20}), (Written{"0", "1e+20", "2e+20"}));
}

TEST(TickLabels, AreNoneWithoutTicks)
{
    EXPECT_EQ(labels(1, 4, {5, 0}), Written{});
}
