#include "tests/histo/peak_list.h"

#include <algorithm>
#include <cmath>
#include <utility>

// Searches for peaks in whole histograms.

using namespace test;

namespace {

using Params = std::vector<std::vector<double>>;

// Bell curves on nothing, as whole counts.
Counts bells(int n, const Params& peaks)
{
    Counts counts;
    for (int x = 0; x < n; ++x) {
        double sum = 0;
        for (const auto& peak : peaks) {
            const double d = (x - peak[0]) / peak[2];
            sum += peak[1] * std::exp(-0.693147181 * d * d);
        }
        counts.push_back(static_cast<unsigned>(sum));
    }
    return counts;
}

class PeakSearch : public Own_Host {
protected:
    void show(Counts counts) { panel.histo = panel_record(Histogram(0, 1, std::move(counts))); }

    int search(const Counts& counts)
    {
        show(counts);
        return panel.Fit();
    }

    ~PeakSearch() override
    {
        if (panel.histo)
            free_histogram();
    }

    void free_histogram()
    {
        delete[] panel.histo->count;
        panel.histo->count = nullptr;
    }

    std::vector<std::string> traces_that_begin_with(const std::string& start) const
    {
        std::vector<std::string> found;
        for (const std::string& text : reports.texts(11)) {
            if (text.starts_with(start))
                found.push_back(text);
        }
        return found;
    }
};

const Params two_bells{{80, 4000, 9}, {170, 9000, 12}};

}

TEST_F(PeakSearch, SmoothsOverTenBinsToEachSide)
{
    Counts counts(50, 0u);
    counts[25] = 2100;
    counts[0] = 1100;
    search(counts);
    const Histo_Peaks& peaks = *panel.Peaks();
    ASSERT_EQ(peaks.nb_pts, 50);
    EXPECT_EQ(peaks.smooth[0], 100.0) << "of 11 bins";
    EXPECT_EQ(peaks.smooth[1], 1100.0 / 12);
    EXPECT_EQ(peaks.smooth[10], 1100.0 / 21);
    EXPECT_EQ(peaks.smooth[11], 0.0);
    EXPECT_EQ(peaks.smooth[15], 100.0);
    EXPECT_EQ(peaks.smooth[35], 100.0);
    EXPECT_EQ(peaks.smooth[36], 0.0);
    EXPECT_EQ(peaks.slope[0], 0.0f);
    EXPECT_EQ(peaks.slope[1], static_cast<float>(1100.0 / 12 - 100.0));
    EXPECT_EQ(peaks.slope[15], 100.0f);
    EXPECT_EQ(peaks.slope[16], 0.0f) << "a plateau is exactly flat";
    EXPECT_EQ(peaks.slope[36], -100.0f);
}

TEST_F(PeakSearch, FewBinsAreSmoothedOverAllThatAreThere)
{
    search({3, 4, 9});
    for (const int x : {0, 1, 2})
        EXPECT_EQ(panel.Peaks()->smooth[x], 16.0 / 3);
}

TEST_F(PeakSearch, LargestCountsAreSummedExactly)
{
    const Counts counts(60, 0xFFFFFFFFu);
    search(counts);
    for (int x = 0; x < 60; ++x)
        ASSERT_EQ(panel.Peaks()->smooth[x], 4294967295.0) << x;
}

TEST_F(PeakSearch, TellsHowManyBinsAndTheLargestCount)
{
    search({1, 16777217, 3});
    EXPECT_EQ(reports.all().front(), (Report{11, "nb pts:3 max val: 16777216.000000"})) << "in single precision";
}

TEST_F(PeakSearch, FindsMaximaWithTheirStartingValues)
{
    search(bells(256, two_bells));
    EXPECT_EQ(traces_that_begin_with("Locate"),
        (std::vector<std::string>{"Locate a peak with zero at x = 81", "Locate a peak with zero at x = 171"}))
        << "one bin to the right of the maximum";
    const double* smooth = panel.Peaks()->smooth;
    char text[100];
    std::snprintf(text, sizeof text, "before[0]: C=%10.2f  A=%10.2f W=%10.2f", 81.0, smooth[81], 5.0);
    EXPECT_EQ(traces_that_begin_with("before[0]").at(0), text);
    EXPECT_EQ(reports.texts(4), std::vector<std::string>{"Computing Peak Fit: \x01"
                                                         "2\x02 peaks ..."});
}

TEST_F(PeakSearch, ReportsInOrder)
{
    search(bells(256, two_bells));
    std::vector<std::string> starts;
    for (const Report& report : reports.all()) {
        const std::string start =
            std::to_string(report.level) + ' ' + report.text.substr(0, report.text.find_first_of("[:=0"));
        if (starts.empty() || starts.back() != start)
            starts.push_back(start);
    }
    const auto until_fit = std::find(starts.begin(), starts.end(), "11 ++ mse");
    EXPECT_EQ(std::vector<std::string>(starts.begin(), until_fit),
        (std::vector<std::string>{
            "11 nb pts", "11 Locate a peak with zero at x ", "4 Computing Peak Fit", "11 before"}));
    EXPECT_TRUE(starts.end()[-2].starts_with("11   -> Stop after \x01")) << starts.end()[-2];
    EXPECT_EQ(starts.back(), "11 last peak");
}

TEST_F(PeakSearch, FittedPeaksAreThoseOfTheData)
{
    search(bells(256, two_bells));
    const Params fitted = params_of(*panel.Peaks());
    ASSERT_EQ(fitted.size(), 2u);
    EXPECT_NEAR(fitted[0][0], 80, 0.1);
    EXPECT_NEAR(fitted[1][0], 170, 0.1);
    EXPECT_GT(fitted[0][2], 9) << "smoothing widens";
    EXPECT_LT(fitted[1][1], 9000);
}

TEST_F(PeakSearch, EachPeakGetsItsCurve)
{
    search(bells(256, two_bells));
    const Histo_Peaks& peaks = *panel.Peaks();
    ASSERT_EQ(peaks.nb, 2);
    for (const Histo_Peak* peak = peaks.head; peak; peak = peak->next) {
        ASSERT_EQ(peak->nb_pts, 256);
        for (int x = 0; x < 256; ++x)
            ASSERT_EQ(peak->curve[x], static_cast<float>(peak->eval(x, peak->param))) << x;
    }
}

TEST_F(PeakSearch, TheSumIsOfTheStartingShapes)
{
    search(bells(256, two_bells));
    const Histo_Peaks& peaks = *panel.Peaks();
    Peak_List start;
    start.add(81, peaks.smooth[81], 5);
    start.add(171, peaks.smooth[171], 5);
    const auto model = start.model(256);
    for (int x = 0; x < 256; ++x)
        ASSERT_NEAR(static_cast<double>(peaks.sum[x]), model[static_cast<size_t>(x)], 1e-3) << x;
}

TEST_F(PeakSearch, BoundsAreAroundTheBinWhereAPeakWasFound)
{
    histo::peak_settings = {};
    search(bells(257, two_bells));
    EXPECT_EQ(histo::peak_settings.maximum_width, 51.4f);
    EXPECT_EQ(histo::peak_settings.centre_freedom, 1.25f);
    EXPECT_EQ(histo::peak_settings.least_height, 10.0f);
    const Histo_Peak& peak = *panel.Peaks()->head;
    EXPECT_EQ((*peak.param_min)[0], 79.75);
    EXPECT_EQ((*peak.param_max)[0], 82.25);
    EXPECT_EQ((*peak.param_min)[1], 0.0);
    EXPECT_EQ((*peak.param_max)[1], 2 * panel.Peaks()->smooth[81]);
    EXPECT_EQ((*peak.param_min)[2], 1.0);
    EXPECT_EQ((*peak.param_max)[2], static_cast<double>(51.4f));
    EXPECT_EQ(peak.nb_param, 3);
    EXPECT_EQ(peak.prev, nullptr);
    EXPECT_EQ(peak.next->prev, &peak);
    EXPECT_EQ(peak.next->next, nullptr);
}

TEST_F(PeakSearch, ShallowMaximaAreFoundInTheDataTheySay)
{
    search(bells(256, {{100, 40, 12}}));
    EXPECT_EQ(traces_that_begin_with("Locate").at(0), "Locate a peak with data at x = 101");
    const double height = panel.Peaks()->smooth[101];
    char text[100];
    std::snprintf(text, sizeof text, "before[0]: C=%10.2f  A=%10.2f W=%10.2f", 101.0, 0.25 * height, 10.0);
    EXPECT_EQ(traces_that_begin_with("before").at(0), text);
}

TEST_F(PeakSearch, ASecondSearchOfTheSameDataDoesNotFindTheFirstPeakAsBefore)
{
    search(bells(256, two_bells));
    EXPECT_EQ(histo::peak_settings.last_crossing, 171);
    reports.clear();
    panel.Fit();
    EXPECT_EQ(traces_that_begin_with("Locate"),
        (std::vector<std::string>{"Locate a peak with data at x = 81", "Locate a peak with zero at x = 171"}));
    EXPECT_EQ(panel.Peaks()->nb, 2) << "only those of this search";
}

TEST_F(PeakSearch, NothingIsFoundByTheSlopeBeforeBinSixteen)
{
    Counts counts(256, 0u);
    for (size_t x = 0; x < 60; ++x)
        counts[x] = static_cast<unsigned>(30000 - 500 * std::abs(static_cast<int>(x) - 14));
    search(counts);
    ASSERT_FALSE(traces_that_begin_with("Locate").empty());
    for (const std::string& text : traces_that_begin_with("Locate a peak with zero"))
        EXPECT_GE(std::stoi(text.substr(text.rfind(' '))), 16);
}

TEST_F(PeakSearch, ASingleTallBinIsAPlateauOfFourPeaksThatCannotBeFitted)
{
    Counts counts(256, 0u);
    counts[100] = 2100;
    search(counts);
    EXPECT_EQ(traces_that_begin_with("Locate"),
        (std::vector<std::string>{"Locate a peak with data at x = 91", "Locate a peak with data at x = 97",
            "Locate a peak with data at x = 103", "Locate a peak with data at x = 109"}));
    ASSERT_EQ(reports.texts(2).size(), 1u);
    EXPECT_TRUE(reports.texts(2)[0].starts_with("\xf1\x05WARNING:\x02 Gauss_Newton ")) << reports.texts(2)[0];
    EXPECT_EQ(params_of(*panel.Peaks()), (Params{{91, 25, 10}, {97, 25, 10}, {103, 25, 10}, {109, 25, 10}}));
    EXPECT_NE(panel.Peaks()->head->curve, nullptr) << "curves are made all the same";
}

TEST_F(PeakSearch, APeakAtTheRightEdgeOfAPlateauStartsWithoutAmplitudeAndCannotBeFitted)
{
    Counts counts(256, 0u);
    counts[100] = 2100;
    counts[134] =
        1050; // its first two bins are too close to the higher plateau: the last peak is found in its last bin
    search(counts);
    const Params found = params_of(*panel.Peaks());
    EXPECT_EQ(Params(found.begin() + 4, found.end()),
        (Params{{127, 12.5, 10}, {133, 12.5, 10}, {139, 12.5, 10}, {145, 0, 10}}));
    EXPECT_EQ(reports.texts(2), std::vector<std::string>{"\xf1\x05WARNING:\x02 Gauss_Newton invalid matrix"});
}

TEST_F(PeakSearch, WithOneBinNothingIsSearchedAndTheFitIsToldSo)
{
    search({50});
    EXPECT_EQ(reports.lines(),
        (std::vector<std::string>{"11 nb pts:1 max val: 50.000000",
            "4 Computing Peak Fit: \x01"
            "0\x02 peaks ...",
            "11 ++ mse: 250000.0000% delta mse =    2.5e+03", "11 ++ mse: 250000.0000% delta mse =          0",
            "11   -> Stop after \x01"
            "2\x02 iterations"}));
    EXPECT_EQ(panel.Peaks()->nb, 0);
}

TEST_F(PeakSearch, OfEmptyBinsTheFitStopsAtOnce)
{
    search({0, 0, 0});
    EXPECT_EQ(reports.texts(11).back(), "  -> Stop after \x01"
                                        "1\x02 iterations");
    EXPECT_TRUE(reports.texts(2).empty()) << "no peak is no failure";
}

TEST_F(PeakSearch, OfColoursTheChosenComponentIsSearched)
{
    panel.histo = panel_record(Histogram(0, 1, {5}, {Counts{1}, Counts{2}, Counts{3}, Counts{4}}));
    const std::pair<int, double> smoothed[] = {
        {0, 4}, {1, 1}, {2, 2}, {3, 3}, {4, 5}, {5, 0}, {127, 0}, {200, 0}, {255, 0}};
    for (const auto& [component, value] : smoothed) {
        panel.color_component = static_cast<unsigned char>(component);
        EXPECT_EQ(panel.Fit(), 1);
        EXPECT_EQ(panel.Peaks()->smooth[0], value) << component;
    }
    delete[] std::exchange(panel.histo->red, nullptr);
    panel.color_component = 1;
    panel.Fit();
    EXPECT_EQ(panel.Peaks()->smooth[0], 0.0) << "what is not there is empty";
    panel.histo->flags = 2;
    for (const int component : {0, 2, 4, 200}) {
        panel.color_component = static_cast<unsigned char>(component);
        panel.Fit();
        EXPECT_EQ(panel.Peaks()->smooth[0], 5.0) << "of no colour histogram the counts, whatever is chosen";
    }
    for (auto array : {&Histo_Record::green, &Histo_Record::blue, &Histo_Record::max_component})
        delete[] std::exchange(panel.histo->*array, nullptr);
}

TEST_F(PeakSearch, WithoutAHistogramTheLastPeaksStay)
{
    search(bells(256, two_bells));
    free_histogram();
    reports.clear();
    EXPECT_EQ(panel.Fit(), 1);
    EXPECT_EQ(panel.Peaks()->nb, 2);
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(PeakSearch, WithoutBinsNothingIsTouched)
{
    Histo_Peaks peaks;
    peaks.smooth = new double[1];
    for (const int n : {0, -5}) {
        reports.clear();
        Peak_Locate(&peaks, n, nullptr);
        EXPECT_EQ(peaks.smooth, nullptr) << "what the last search left is gone";
        EXPECT_EQ(peaks.nb, 0);
        ASSERT_EQ(reports.all().size(), 4u);
        EXPECT_EQ(reports.all()[0].text, "nb pts:" + std::to_string(n) + " max val: 0.000000");
        EXPECT_EQ(reports.all()[2].text, "++ mse: 0.0000% delta mse =          0");
    }
}
