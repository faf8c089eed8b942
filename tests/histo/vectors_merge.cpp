#include "tests/histo/vectors.h"

#include <deque>

// Computations one after the other in one panel, and what is exported of a histogram.

namespace test {

namespace {

class Merge_Case : public Vector_Case {
public:
    using Vector_Case::Vector_Case;

    void TestBody() override
    {
        for (size_t run = 0; run < one_.at("runs").size(); ++run) {
            SCOPED_TRACE("run " + std::to_string(run));
            const int result = compute_run(one_["runs"][run]);
            const json& expected = one_.at("expected")[run];
            EXPECT_EQ(result, expected.at("result").get<int>());
            EXPECT_EQ(shared_bins(), expected.at("bins_nb").get<int>());
            EXPECT_EQ(panel.color_component, expected.at("color_component").get<int>());
            EXPECT_EQ(panel.x_title, bytes_of(expected.at("x_title")));
            EXPECT_EQ(panel.y_title, bytes_of(expected.at("y_title")));
            EXPECT_EQ(panel.x_unit, bytes_of(expected.at("x_unit")));
            EXPECT_EQ(panel.y_unit, bytes_of(expected.at("y_unit")));
            EXPECT_EQ(reports.lines(), lines_of(expected.at("log")));
            compare_record(expected.at("record"));
        }
    }

private:
    int compute_run(const json& run)
    {
        limit_bins(run.at("bins_max"));
        own_registry::define_number("$GLI_HISTO_BINS_NB", run.at("bins_nb_before"));
        choose_component(run.at("color_component"));
        own_registry::define_array("$WINDOW_CUR", run.at("window").get<bool>() ? window() : nullptr);
        own_frames::fail_to_open(run.at("iterator_fail"));
        std::deque<Histogram> histograms;
        std::deque<std::string> units;
        std::deque<own_frames::Frame> frames;
        std::vector<own_frames::Frame*> shown;
        for (const json& frame : run.at("frames")) {
            const Histo_Record* histogram =
                frame.at("hist").is_null() ? nullptr : histograms.emplace_back(histogram_of(frame["hist"])).get();
            const char* unit =
                frame.at("unit").is_null() ? nullptr : units.emplace_back(bytes_of(frame["unit"])).c_str();
            shown.push_back(&frames.emplace_back(histogram, unit));
        }
        own_frames::show(shown);
        reports.clear();
        const int result = Histo_Compute(&panel);
        own_frames::show({});
        return result;
    }

    void compare_record(const json& expected) const
    {
        ASSERT_EQ(panel.histo == nullptr, expected.is_null());
        if (expected.is_null())
            return;
        EXPECT_EQ(record().flags, expected.at("flags").get<int>());
        EXPECT_EQ(record().nb_bins, expected.at("nb_bins").get<int>());
        EXPECT_EQ(record().min, expected.at("min").get<float>());
        EXPECT_EQ(record().width, expected.at("width").get<float>());
        EXPECT_EQ(record().max_count, expected.at("max_count").get<unsigned>());
        EXPECT_EQ(counts(), counts_of(expected.at("count")));
        EXPECT_EQ(counts_of(record(), record().red), counts_of(expected.at("red")));
        EXPECT_EQ(counts_of(record(), record().green), counts_of(expected.at("green")));
        EXPECT_EQ(counts_of(record(), record().blue), counts_of(expected.at("blue")));
        EXPECT_EQ(counts_of(record(), record().max_component), counts_of(expected.at("max_component")));
    }
};

}

std::unique_ptr<Vector_Case> make_merge_case(const json& one)
{
    return std::make_unique<Merge_Case>(one);
}

}
