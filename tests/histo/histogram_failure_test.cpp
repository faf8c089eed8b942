#include "tests/frame/failing_memory.h"
#include "tests/histo/peak_list.h"

#include <cmath>
#include <cstdio>
#include <deque>
#include <fstream>

// Histograms when memory runs out. Every allocation of the panel can fail, and those of vectors and matrices where they
// can be linked into the program.

using namespace test;

// Vectors and matrices are in the program and in the library that the widgets need; both have the program's variables.
extern "C" VETRA_EXPORT const char* __asan_default_options();
extern "C" const char* __asan_default_options()
{
    return "detect_odr_violation=0";
}

namespace {

class HistogramMemory : public Own_Host {
protected:
    /// A colour frame behind a grey one.
    int compute_colors() { return compute({&grey, &colors}); }

    static Histogram colored()
    {
        const Counts each{1, 2, 3};
        return {0, 1, each, {each, each, each, each}};
    }

    void use_without_harm()
    {
        panel.Draw();
        Histo_Paint(&panel);
        Histo_Cursor(&panel);
        panel.Fit();
    }

    const Histogram grey = Histogram::ones(0, 1, 3), colors = colored();
};

std::string report_of_record(const std::string& line)
{
    return "line " + line + " of tool_histo \nmemory error in calloc (var=histo, dim=56x1)";
}

}

TEST_F(HistogramMemory, WithoutItsRecordThereIsNoHistogram)
{
    {
        const Failing_New failing(1);
        EXPECT_EQ(compute(grey), 0);
        EXPECT_TRUE(failing.has_failed());
    }
    EXPECT_EQ(panel.histo, nullptr);
    ASSERT_EQ(reports.all().size(), 2u);
    int line = 0;
    ASSERT_EQ(std::sscanf(reports.all()[1].text.c_str(), "line %d", &line), 1);
    char number[20];
    std::snprintf(number, sizeof number, "%-4d", line);
    EXPECT_EQ(reports.all()[1], (Report{1, report_of_record(number)}));
    EXPECT_EQ(own_frames::take_calls(), std::vector<std::string>{});
    EXPECT_EQ(shared_bins(), 9);
    use_without_harm();
    EXPECT_EQ(compute(grey), 1);
}

TEST_F(HistogramMemory, WithoutCountsTheNumberOfBinsIsSharedAllTheSame)
{
    compute(Histogram(0, 1, {1}));
    {
        const Failing_New failing(1);
        EXPECT_EQ(compute(grey), 0);
        EXPECT_TRUE(failing.has_failed());
    }
    int line = 0;
    EXPECT_TRUE(is_report_of_new(reports.all().back(), "tool_histo", line));
    EXPECT_EQ(shared_bins(), 4);
    EXPECT_EQ(panel.histo->flags, 0);
    EXPECT_FALSE(panel.Ready());
    EXPECT_EQ(own_frames::open_iterators(), 0);
    use_without_harm();
    EXPECT_EQ(compute(grey), 1);
}

TEST_F(HistogramMemory, EachColourArrayFailsByItself)
{
    compute(grey);
    int last_line = 0;
    for (int n = 2; n <= 5; ++n) {
        reports.clear();
        const int open_before = own_frames::open_iterators();
        {
            const Failing_New failing(n);
            EXPECT_EQ(compute_colors(), 0);
            EXPECT_TRUE(failing.has_failed());
        }
        int line = 0;
        ASSERT_EQ(reports.all().size(), 2u);
        EXPECT_TRUE(is_report_of_new(reports.all()[1], "tool_histo", line));
        EXPECT_GT(line, last_line) << "a line of its own for each";
        last_line = line;
        EXPECT_EQ(own_frames::open_iterators(), open_before + 1) << "left for the host to end";
        EXPECT_EQ(record().flags, 1);
        EXPECT_EQ(counts(), (Counts{1, 1, 1, 0})) << "what was counted so far";
        EXPECT_EQ(record().red != nullptr, n > 2);
        EXPECT_EQ(record().green != nullptr, n > 3);
        EXPECT_EQ(record().blue != nullptr, n > 4);
        EXPECT_EQ(record().max_component, nullptr);
        for (unsigned char component = 0; component < 5; ++component) {
            panel.color_component = component;
            EXPECT_NE(panel.Shown_Counts(), nullptr);
            use_without_harm();
        }
    }
    EXPECT_EQ(compute_colors(), 1);
    EXPECT_EQ(counts_of(record(), record().max_component), (Counts{1, 2, 3, 0}));
}

// ------------------------------------------------------------------------------------------------------- export

TEST_F(HistogramMemory, ExportStopsWhereItsListOfFramesCannotGrow)
{
    compute(grey);
    std::deque<own_frames::Frame> frames(4);
    own_frames::show({&frames[0], &frames[1], &frames[2], &frames[3]});
    std::string path = ::testing::TempDir() + "histogram without memory.csv";
    reports.clear();
    {
        const Failing_New failing(3);
        EXPECT_EQ(panel.Write(path.data()), 0);
        EXPECT_TRUE(failing.has_failed());
    }
    ASSERT_EQ(reports.all().size(), 1u);
    int line = 0;
    ASSERT_EQ(std::sscanf(reports.all()[0].text.c_str(), "line %d", &line), 1);
    char expected[200];
    std::snprintf(
        expected, sizeof expected, "line %-4d of tool_histo \nmemory error in realloc (var=frame_pt, dim=3x8)", line);
    EXPECT_EQ(reports.all()[0], (Report{1, expected}));
    EXPECT_EQ(own_frames::open_iterators(), 4) << "those of the colour arrays alone";
    EXPECT_EQ(std::ifstream(path).peek(), std::ifstream::traits_type::eof()) << "the file is there, empty";
    EXPECT_EQ(panel.Write(path.data()), 1);
    std::remove(path.c_str());
}

// -------------------------------------------------------------------------------------------------------- peaks

namespace {

class PeakMemory : public Own_Host {
protected:
    PeakMemory()
    {
        Counts counts;
        for (int x = 0; x < 300; ++x)
            counts.push_back(static_cast<unsigned>(
                9000 * std::exp(-0.01 * (x - 80) * (x - 80)) + 4000 * std::exp(-0.008 * (x - 200) * (x - 200))));
        panel.histo = panel_record(Histogram(0, 1, std::move(counts)));
    }

    std::vector<std::vector<double>> fit()
    {
        histo::peak_settings.last_crossing = 0;
        EXPECT_EQ(panel.Fit(), 1);
        return panel.Peaks() ? params_of(*panel.Peaks()) : std::vector<std::vector<double>>();
    }

    /// What the readers of the peaks rely on.
    void expect_consistent() const
    {
        if (!panel.Peaks())
            return;
        const Histo_Peaks& peaks = *panel.Peaks();
        int count = 0;
        const Histo_Peak* before = nullptr;
        bool all_curves = true;
        for (const Histo_Peak* peak = peaks.head; peak; before = peak, peak = peak->next, ++count) {
            EXPECT_EQ(peak->prev, before);
            EXPECT_TRUE(peak->param && peak->param_min && peak->param_max);
            EXPECT_FALSE(peak->curve && !all_curves) << "curves are made in order";
            all_curves = all_curves && peak->curve;
        }
        EXPECT_EQ(count, peaks.nb);
        EXPECT_TRUE(count == 0 || (peaks.smooth && peaks.slope));
    }

    static bool is_known(const Report& report)
    {
        return report.text == "line 70   of tool_histo_Gauss_Newton \nmemory error in new" ||
               report.text == "line 320  of tool_histo_Gauss_Newton \nmemory error in new";
    }
};

}

TEST_F(PeakMemory, EveryAllocationOfAFitMayFail)
{
    const auto usual = fit();
    ASSERT_EQ(usual.size(), 2u);
    int records = 0, curves = 0, others = 0;
    for (int n = 1;; ++n) {
        SCOPED_TRACE("allocation " + std::to_string(n));
        reports.clear();
        bool failed = false;
        {
            const Failing_New failing(n);
            fit();
            failed = failing.has_failed();
        }
        expect_consistent();
        const auto memory = reports.texts(1);
        ASSERT_LE(memory.size(), 1u);
        if (memory.empty())
            ++others;
        else
            ++(memory[0].starts_with("line 70 ") ? records : curves);
        for (const std::string& text : memory)
            EXPECT_TRUE(is_known({1, text})) << text;
        for (const std::string& text : reports.texts(2))
            EXPECT_EQ(text, "\xf1\x05WARNING:\x02 Gauss_Newton invalid matrix");
        if (!failed)
            break;
        ASSERT_LT(n, 10000);
        ASSERT_EQ(fit(), usual) << "the panel goes on";
    }
    EXPECT_GE(records, 8) << "two records of four allocations each";
    EXPECT_EQ(curves, 2);
    EXPECT_GE(others, 5);
}

TEST_F(PeakMemory, AFailedRecordLosesThatPeakAlone)
{
    Peak_List list(20);
    Histo_Peak* tail = nullptr;
    ASSERT_NE(Peak_Add(list.get(), &tail, 3, 1, 5), nullptr);
    Histo_Peak* const first = tail;
    for (int n = 1; n <= 4; ++n) {
        reports.clear();
        const Failing_New failing(n);
        EXPECT_EQ(Peak_Add(list.get(), &tail, 9, 1, 5), nullptr);
        EXPECT_EQ(
            reports.lines(), std::vector<std::string>{"1 line 70   of tool_histo_Gauss_Newton \nmemory error in new"});
        EXPECT_EQ(tail, first);
        EXPECT_EQ(list->nb, 1);
    }
    EXPECT_NE(Peak_Add(list.get(), &tail, 9, 1, 5), nullptr);
    EXPECT_EQ(list.centres(), (std::vector<double>{3, 9}));
}

TEST_F(PeakMemory, AFailedSampleIsReported)
{
    Peak_List list;
    const Histo_Peak* const peak = list.add(5, 10, 2);
    reports.clear();
    const Failing_New failing(1);
    EXPECT_EQ(Peak_Sample(20, peak->param), nullptr);
    EXPECT_EQ(reports.lines(), std::vector<std::string>{"1 line 97   of tool_histo_peak \nmemory error in new"});
}

TEST_F(PeakMemory, WithoutItsSumAFitEndsQuietly)
{
    Peak_List list;
    list.add(5, 10, 2);
    const std::vector<double> data(20, 3.0);
    reports.clear();
    const Failing_New failing(1);
    EXPECT_EQ(Gauss_Newton(list.get(), 20, data.data(), 0.1), 0.0);
    EXPECT_TRUE(failing.has_failed());
    EXPECT_TRUE(reports.all().empty());
    EXPECT_EQ(list.params(), (std::vector<std::vector<double>>{{5, 10, 2}}));
}
