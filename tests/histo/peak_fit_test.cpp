#include "tests/histo/peak_list.h"

#include <cmath>
#include <limits>

// Fits, from peaks and data that a test gives.

using namespace test;

namespace {

using Params = std::vector<std::vector<double>>;

class PeakFit : public Own_Host {
protected:
    PeakFit() { histo::peak_settings.maximum_width = 1000; }

    static constexpr int n = 200;

    double fit(const std::vector<double>& data, double limit = 0.1)
    {
        return Gauss_Newton(list.get(), static_cast<unsigned short>(data.size()), data.data(), limit);
    }

    /// The sum of these shapes, which the list need not have.
    static std::vector<double> data_of(const Params& peaks)
    {
        Peak_List shapes;
        for (const auto& peak : peaks)
            shapes.add(peak[0], peak[1], peak[2]);
        return shapes.model(n);
    }

    std::string last_trace() const { return reports.texts(11).empty() ? "" : reports.texts(11).back(); }

    Peak_List list{1};
};

void expect_near(const Params& values, const Params& expected, double tolerance)
{
    ASSERT_EQ(values.size(), expected.size());
    for (size_t i = 0; i < values.size(); ++i) {
        for (size_t k = 0; k < 3; ++k)
            EXPECT_NEAR(values[i][k], expected[i][k], tolerance) << "peak " << i << ", parameter " << k;
    }
}

}

TEST_F(PeakFit, FindsTheParametersOfItsData)
{
    list.add(60.5, 80, 6);
    list.add(119, 150, 9);
    EXPECT_NEAR(fit(data_of({{60, 100, 7}, {120, 130, 10}})), 0, 1e-3);
    expect_near(list.params(), {{60, 100, 7}, {120, 130, 10}}, 1e-4);
    EXPECT_TRUE(reports.texts(2).empty());
}

TEST_F(PeakFit, AStartThatFitsStopsAtOnce)
{
    list.add(60, 100, 7);
    EXPECT_EQ(fit(list.model(n)), 0.0);
    EXPECT_EQ(reports.lines(),
        (std::vector<std::string>{"11 ++ mse: 0.0000% delta mse =          0", "11   -> Stop after \x01"
                                                                               "1\x02 iterations"}));
    EXPECT_EQ(list.params(), (Params{{60, 100, 7}}));
}

TEST_F(PeakFit, ReturnsTheMeanSquareInPercent)
{
    const std::vector<double> data(10, 3.0);
    EXPECT_EQ(fit(data), 900.0);
    EXPECT_EQ(reports.texts(11).front(), "++ mse: 900.0000% delta mse =         90");
}

TEST_F(PeakFit, WithoutPeaksItStopsAfterTwoIterations)
{
    EXPECT_EQ(fit({50}), 250000.0);
    EXPECT_EQ(reports.lines(), (std::vector<std::string>{"11 ++ mse: 250000.0000% delta mse =    2.5e+03",
                                   "11 ++ mse: 250000.0000% delta mse =          0",
                                   "11   -> Stop after \x01"
                                   "2\x02 iterations"}));
    reports.clear();
    EXPECT_EQ(fit({0, 0}), 0.0);
    EXPECT_EQ(last_trace(), "  -> Stop after \x01"
                            "1\x02 iterations");
}

TEST_F(PeakFit, TheLimitIsOfTheChange)
{
    const std::vector<double> data(1, 3.0);
    fit(data, 9.0);
    EXPECT_EQ(last_trace(), "  -> Stop after \x01"
                            "2\x02 iterations")
        << "9 is not below 9";
    fit(data, 9.01);
    EXPECT_EQ(last_trace(), "  -> Stop after \x01"
                            "1\x02 iterations");
}

TEST_F(PeakFit, TakesAtMostTenIterations)
{
    list.add(60, 100, 7);
    fit(list.model(n), 0); // nothing is below 0
    EXPECT_EQ(last_trace(), "  -> Stop after \x01"
                            "11\x02 iterations");
    const auto traces = reports.texts(11);
    EXPECT_EQ(traces.size(), 21u);
    EXPECT_EQ(traces[1], "Iteration[0] peak[0]: C=     60.00  A=    100.00 W=      7.00");
    EXPECT_EQ(traces[19], "Iteration[9] peak[0]: C=     60.00  A=    100.00 W=      7.00");
}

TEST_F(PeakFit, KeepsTheSumOfTheStartingShapes)
{
    list.add(60.5, 80, 6);
    list.add(64, 30, 5);
    const auto start = list.model(n);
    fit(data_of({{60, 100, 7}}));
    for (int x = 0; x < n; ++x)
        ASSERT_NEAR(static_cast<double>(list->sum[x]), start[static_cast<size_t>(x)], 1e-4) << x;
    EXPECT_NE(list.params(), (Params{{60.5, 80, 6}, {64, 30, 5}}));
}

TEST_F(PeakFit, ASecondFitReplacesTheSum)
{
    list.add(60, 100, 7);
    fit(list.model(n));
    EXPECT_EQ(list->sum[60], 100.0f);
    (*list->head->param)[1] = 50;
    fit(list.model(n));
    EXPECT_EQ(list->sum[60], 50.0f);
}

TEST_F(PeakFit, StaysWithinTheBounds)
{
    list.add(60, 100, 7);
    fit(data_of({{64, 90, 7}}));
    EXPECT_EQ(list.params()[0][0], 61.25);
    (*list->head->param_max)[0] = 100;
    (*list->head->param_max)[1] = 85;
    fit(data_of({{64, 90, 7}}));
    EXPECT_NEAR(list.params()[0][0], 64, 0.1);
    EXPECT_EQ(list.params()[0][1], 85.0);
}

TEST_F(PeakFit, WhereBoundsCrossTheUpperOneHolds)
{
    Histo_Peak* const peak = list.add(60, 100, 7);
    assign(*peak->param_min, {59, 0, 5});
    assign(*peak->param_max, {61, 200, 3});
    reports.clear();
    fit(list.model(n), 0);
    ASSERT_GE(reports.texts(11).size(), 2u);
    EXPECT_EQ(reports.texts(11)[1], "******* Delete peak at 60.00: Peak to small (amp=100.0, width=3.0)");
}

TEST_F(PeakFit, AStepThatLeadsNowhereIsNotTaken)
{
    list.add(30, 50, 5);
    Histo_Peak* const peak = list.add(60, 100, 7);
    assign(*peak->param_max, {61.25, 1e-6, 1000});
    const auto before = list.params();
    EXPECT_EQ(fit(std::vector<double>(n, 1e4)), 0.0);
    EXPECT_EQ(list.params(), before) << "not even the parameters of the first peak have changed";
    EXPECT_EQ(reports.texts(2), std::vector<std::string>{"\xf1\x05WARNING:\x02 Gauss_Newton failed!"});
    EXPECT_EQ(reports.all().back().level, 2) << "it does not tell after how many iterations it stopped";
    EXPECT_EQ(reports.all().size(), 2u);
}

TEST_F(PeakFit, AnyStepLeadsNowhereWhereTheBoundsAreZero)
{
    Histo_Peak* const peak = list.add(60, 100, 7);
    assign(*peak->param_min, {58, 0, 1});
    assign(*peak->param_max, {62, 0, 100});
    EXPECT_EQ(fit(data_of({{60, 101, 7}})), 0.0);
    EXPECT_EQ(reports.texts(2).size(), 1u);
    EXPECT_EQ(list.params(), (Params{{60, 100, 7}}));
}

TEST_F(PeakFit, TheLargerOfBothBoundsLimitsAStep)
{
    Histo_Peak* const peak = list.add(60, 100, 7);
    assign(*peak->param_min, {-1000, -5, 1});
    assign(*peak->param_max, {0.001, 0.001, 100});
    fit(data_of({{60, 104, 7}}));
    EXPECT_TRUE(reports.texts(2).empty()) << "4 is less than 1000 times 5";
}

TEST_F(PeakFit, EqualPeaksCannotBeFitted)
{
    list.add(60, 100, 7);
    list.add(60, 100, 7);
    EXPECT_EQ(fit(data_of({{61, 250, 8}})), 0.0);
    EXPECT_EQ(reports.texts(2), std::vector<std::string>{"\xf1\x05WARNING:\x02 Gauss_Newton invalid matrix"});
    EXPECT_EQ(list.params(), (Params{{60, 100, 7}, {60, 100, 7}}));
    EXPECT_EQ(reports.all().size(), 2u);
}

TEST_F(PeakFit, APeakWithoutAmplitudeOrBinsCannotBeFitted)
{
    list.add(60, 0, 7);
    EXPECT_EQ(fit(data_of({{61, 250, 8}})), 0.0);
    EXPECT_EQ(reports.texts(2), std::vector<std::string>{"\xf1\x05WARNING:\x02 Gauss_Newton invalid matrix"});
    reports.clear();
    Peak_List outside;
    outside.add(-500, 100, 7);
    const auto data = data_of({{61, 250, 8}});
    EXPECT_EQ(Gauss_Newton(outside.get(), n, data.data(), 0.1), 0.0);
    EXPECT_EQ(reports.texts(2), std::vector<std::string>{"\xf1\x05WARNING:\x02 Gauss_Newton invalid matrix"});
}

TEST_F(PeakFit, LargeAmplitudesAreNoObstacle)
{
    list.add(60.5, 3.9e9, 5.5);
    list.add(119, 1.1e9, 4.5);
    fit(data_of({{60, 4e9, 5}, {120, 1e9, 5}}));
    EXPECT_TRUE(reports.texts(2).empty());
    ASSERT_EQ(list->nb, 2);
    EXPECT_NEAR(list.params()[0][1], 4e9, 1e3);
    EXPECT_NEAR(list.params()[1][2], 5, 1e-6);
}

TEST_F(PeakFit, MoreParametersThanBinsCannotBeFitted)
{
    list.add(0, 10, 3);
    EXPECT_EQ(fit({20, 30}), 0.0);
    EXPECT_EQ(reports.texts(2).size(), 1u);
}

TEST_F(PeakFit, BrokenDataDoNotReachThePeaks)
{
    list.add(60, 100, 7);
    auto data = list.model(n);
    data[50] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(fit(data), 0.0);
    EXPECT_EQ(list.params(), (Params{{60, 100, 7}}));
    EXPECT_EQ(reports.texts(2), std::vector<std::string>{"\xf1\x05WARNING:\x02 Gauss_Newton failed!"});
}

TEST_F(PeakFit, WithoutBinsTheErrorIsZero)
{
    EXPECT_EQ(Gauss_Newton(list.get(), 0, nullptr, 0.1), 0.0);
    EXPECT_EQ(reports.lines().front(), "11 ++ mse: 0.0000% delta mse =          0");
}
