#include "tests/histo/fit_comparison.h"

#include <cmath>

// Searches for peaks, one after the other, and fits and shapes by themselves.

namespace test {

namespace {

class Peaks_Case : public Vector_Case {
public:
    using Vector_Case::Vector_Case;

    void TestBody() override
    {
        for (size_t search = 0; search < one_.at("searches").size(); ++search) {
            SCOPED_TRACE("search " + std::to_string(search));
            const json& expected = one_.at("expected")[search];
            EXPECT_EQ(histo::peak_settings.last_crossing, expected.at("last_crossing_before").get<int>());
            panel.color_component = one_["searches"][search].at("color_component");
            panel.histo = panel_record(histogram_of(one_["searches"][search].at("histo")));
            reports.clear();
            EXPECT_EQ(panel.Fit(), expected.at("result").get<int>());
            compare_search(expected);
            if (!expected.at("fragile"))
                compare_result(expected);
            free_counts();
        }
    }

private:
    // The panel frees those of its last histogram only.
    void free_counts() const
    {
        for (auto array : {&Histo_Record::count, &Histo_Record::red, &Histo_Record::green, &Histo_Record::blue,
                 &Histo_Record::max_component}) {
            delete[](panel.histo->*array);
            panel.histo->*array = nullptr;
        }
    }

    void compare_search(const json& expected) const
    {
        const Histo_Peaks& peaks = *panel.Peaks();
        const std::vector<double> smoothed = expected.at("smoothed");
        EXPECT_EQ(std::vector<double>(peaks.smooth, peaks.smooth + peaks.nb_pts), smoothed);
        EXPECT_EQ(std::vector<float>(peaks.slope, peaks.slope + peaks.nb_pts),
            expected.at("slope").get<std::vector<float>>());
        EXPECT_EQ(histo::peak_settings.last_crossing, expected.at("last_crossing_after").get<int>());
        EXPECT_EQ(last_fit().limit, 0.1);
        EXPECT_EQ(last_fit().n, static_cast<int>(smoothed.size()));
        const json& start = expected.at("start");
        ASSERT_EQ(last_fit().start.size(), start.size());
        for (size_t i = 0; i < start.size(); ++i) {
            EXPECT_EQ(last_fit().start[i].param, start[i].at("param").get<std::vector<double>>()) << i;
            EXPECT_EQ(last_fit().start[i].min, start[i].at("min").get<std::vector<double>>()) << i;
            EXPECT_EQ(last_fit().start[i].max, start[i].at("max").get<std::vector<double>>()) << i;
        }
        compare_found(expected);
    }

    void compare_found(const json& expected) const
    {
        std::vector<std::string> found;
        for (const json& one : expected.at("found"))
            found.push_back("Locate a peak with " + one.at("by").get<std::string>() +
                            " at x = " + std::to_string(one.at("x").get<int>()));
        std::vector<std::string> told;
        for (const std::string& text : reports.texts(11)) {
            if (text.starts_with("Locate"))
                told.push_back(text);
        }
        EXPECT_EQ(told, found);
        const std::string maximum = "nb pts:" + std::to_string(panel.Peaks()->nb_pts) +
                                    " max val: " + std::to_string(expected.at("max_val").get<double>());
        EXPECT_EQ(reports.texts(11).front(), maximum);
        compare_sum(*panel.Peaks(), expected.at("model_sum"));
    }

    void compare_result(const json& expected) const
    {
        compare_log(reports.lines(), expected);
        compare_returned(last_fit().returned, expected);
        compare_peaks(*panel.Peaks(), expected.at("peaks"), expected.at("sensitivity"));
        const Histo_Peak* peak = panel.Peaks()->head;
        for (const json& curve : expected.at("curves")) {
            ASSERT_NE(peak, nullptr);
            EXPECT_EQ(peak->nb_pts, panel.Peaks()->nb_pts);
            for (const json& sample : curve) {
                const int x = sample[0];
                ASSERT_TRUE(is_near(static_cast<double>(peak->curve[x]), sample[1], 1e-6, 1e-30)) << x;
            }
            peak = peak->next;
        }
    }
};

// ------------------------------------------------------------------------------------------------ the fit alone

void set(Vector_N& vector, const json& values)
{
    for (size_t i = 0; i < values.size(); ++i)
        vector[static_cast<int>(i)] = values[i];
}

class Fit_Case : public Vector_Case {
public:
    using Vector_Case::Vector_Case;

    void TestBody() override
    {
        Histo_Peaks peaks;
        peaks.smooth = new double[1]();
        Histo_Peak* tail = nullptr;
        for (const json& one : one_.at("peaks")) {
            const Histo_Peak* const peak = Peak_Add(&peaks, &tail, 0, 1, 1);
            set(*peak->param, one.at("param"));
            set(*peak->param_min, one.at("min"));
            set(*peak->param_max, one.at("max"));
        }
        histo::peak_settings.maximum_width = one_.at("max_width");
        const std::vector<double> data = one_.at("data");
        const double returned = Gauss_Newton(&peaks, one_.at("n"), data.data(), one_.at("limit"));
        const json& expected = one_.at("expected");
        compare_sum(peaks, expected.at("model_sum"));
        if (one_.at("fragile"))
            return;
        compare_log(reports.lines(), expected);
        compare_returned(returned, expected);
        compare_peaks(peaks, expected.at("remaining"), expected.at("sensitivity"));
    }
};

// ------------------------------------------------------------------------------------------------------- shapes

class Shape_Case : public Vector_Case {
public:
    using Vector_Case::Vector_Case;
    ~Shape_Case() override { histo::peak_settings.shape = 2; }

    void TestBody() override
    {
        histo::peak_settings.shape = one_.at("shape");
        Histo_Peaks peaks;
        peaks.smooth = new double[1]();
        Histo_Peak* tail = nullptr;
        const Histo_Peak* const peak = Peak_Add(&peaks, &tail, 0, 1, 1);
        set(*peak->param, one_.at("param"));
        const std::vector<double> places = one_.at("x");
        for (size_t i = 0; i < places.size(); ++i) {
            SCOPED_TRACE(places[i]);
            expect_near(peak->eval(places[i], peak->param), one_.at("eval")[i]);
            for (unsigned char k = 0; k < 3 && !one_.at("deriv").is_null(); ++k)
                expect_near(peak->deriv(k, places[i], peak->param), one_["deriv"][k][i]);
        }
        const std::unique_ptr<double[]> sample(Peak_Sample(32, peak->param));
        ASSERT_EQ(sample == nullptr, one_.at("sample_32").is_null());
        for (size_t x = 0; sample && x < 32; ++x)
            expect_near(sample[x], one_["sample_32"][x]);
    }

private:
    static void expect_near(double value, double expected)
    {
        EXPECT_TRUE(is_near(value, expected, 1e-13) || std::fabs(value - expected) <= 1e-300)
            << value << ", not " << expected;
    }
};

}

std::unique_ptr<Vector_Case> make_peaks_case(const json& one)
{
    return std::make_unique<Peaks_Case>(one);
}

std::unique_ptr<Vector_Case> make_fit_case(const json& one)
{
    return std::make_unique<Fit_Case>(one);
}

std::unique_ptr<Vector_Case> make_shape_case(const json& one)
{
    return std::make_unique<Shape_Case>(one);
}

}
