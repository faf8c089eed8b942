#include "tests/histo/graph_window.h"

#include "tests/frame/failing_memory.h"

#include <algorithm>

// Fitted peaks in the graph window, with their names.

using namespace test;

namespace {

constexpr Colors composite_label{0x80, 0x80, 0xff}, individual_label{0x80, 0xff, 0x80};

enum { off, composite, individual };

class GraphPeaks : public Graph_Window {
protected:
    /// Whether the label's line stands at a grey value, a little above the zero level.
    bool has_line(double grey, Colors color) const { return seen(x_of(grey), y_of(0) + 3) == color; }

    /// The pixels of a label's text below the zero level around a grey value.
    int text_pixels(double grey, Colors color) const
    {
        int found = 0;
        for (int y = y_of(0) - 20; y < y_of(0) - 2; ++y) {
            for (int x = x_of(grey) - 20; x <= x_of(grey) + 20; ++x)
                found += seen(x, y) == color;
        }
        return found;
    }

    double center(int index) const
    {
        const Histo_Peak* peak = panel.Peaks()->head;
        while (index-- > 0)
            peak = peak->next;
        return (*peak->param)[0] * static_cast<double>(panel.histo->width) + static_cast<double>(panel.histo->min);
    }

    /// The view's first grey value and its last, and its first count and its last.
    void show(float x, float x_end, float y, float y_end)
    {
        graph().zoomed = true;
        graph().x.origin = x;
        graph().x.scale = (x_end - x) / static_cast<float>(graph().x.size);
        graph().y.origin = y;
        graph().y.scale = (y_end - y) / static_cast<float>(graph().y.size);
        changed();
    }
};

}

TEST_F(GraphPeaks, OffTheyAreNotThere)
{
    give_peaks();
    open();
    EXPECT_EQ(count_of(green) + count_of(composite_label) + count_of(individual_label), 0);
}

TEST_F(GraphPeaks, IndividuallyEachHasItsCurve)
{
    give_peaks(400, {{150, 1000, 15}, {210, 1000, 15}});
    open();
    choose(graph().peak_select, individual);
    const double valley = 180;
    const double one = (panel.Peaks()->head->curve)[180];
    EXPECT_TRUE(is_near(x_of(valley), y_of(one), green)) << "where they cross";
    EXPECT_FALSE(is_near(x_of(valley), y_of(2 * one), green));
    EXPECT_TRUE(has_line(center(0), individual_label));
    EXPECT_TRUE(has_line(center(1), individual_label));
    EXPECT_GT(text_pixels(center(0), individual_label), 5);
    EXPECT_EQ(count_of(composite_label), 0);
}

TEST_F(GraphPeaks, TogetherTheyAreOneCurve)
{
    give_peaks(400, {{150, 1000, 15}, {210, 1000, 15}});
    open();
    choose(graph().peak_select, composite);
    const Histo_Peak* first = panel.Peaks()->head;
    const double sum = static_cast<double>(first->curve[180]) + static_cast<double>(first->next->curve[180]);
    EXPECT_TRUE(is_near(x_of(180), y_of(sum), green));
    EXPECT_FALSE(is_near(x_of(180), y_of(sum / 2), green));
    EXPECT_TRUE(has_line(center(0), composite_label));
    EXPECT_GT(text_pixels(center(1), composite_label), 5);
    EXPECT_EQ(count_of(individual_label), 0);
}

TEST_F(GraphPeaks, CentersAreGreyValues)
{
    Counts counts = counts_of_bumps(400, {{100, 1000, 12}, {250, 600, 15}});
    give(Histogram(-1000, 5, std::move(counts)));
    histo::peak_settings.last_crossing = 0;
    panel.Fit();
    ASSERT_EQ(panel.Peaks()->nb, 2);
    open();
    choose(graph().peak_select, individual);
    EXPECT_NEAR(center(0), -500, 3);
    EXPECT_TRUE(has_line(center(0), individual_label));
    EXPECT_TRUE(has_line(center(1), individual_label));
    keep_picture(window(), "graph-peaks-grey-values");
}

TEST_F(GraphPeaks, ALinesHeightIsThePeaks)
{
    give_peaks();
    open();
    choose(graph().peak_select, individual);
    const double height = (*panel.Peaks()->head->next->param)[1];
    EXPECT_EQ(seen(x_of(center(1)), y_of(height) - 2), individual_label);
    EXPECT_NE(seen(x_of(center(1)), y_of(height) + 2), individual_label);
}

TEST_F(GraphPeaks, TheTopOfThePlotIsKeptFree)
{
    give_peaks();
    open();
    choose(graph().peak_select, individual);
    show(0, 400, -50, 500);
    const int x = x_of(center(0));
    const int top = y_of(-50 + 0.91 * 550);
    EXPECT_EQ(seen(x, top - 2), individual_label);
    EXPECT_NE(seen(x, top + 2), individual_label);
}

TEST_F(GraphPeaks, LabelsOutsideTheViewAreLeftOut)
{
    give_peaks();
    open();
    choose(graph().peak_select, individual);
    show(150, 400, -50, 1000);
    EXPECT_TRUE(has_line(center(1), individual_label));
    const int both = count_of(individual_label);
    show(150, 200, -50, 1000);
    EXPECT_EQ(count_of(individual_label), 0);
    EXPECT_GT(both, 0);
    show(0, 400, 10, 1000);
    EXPECT_EQ(count_of(individual_label), 0) << "without a zero level";
    show(0, 400, -100, 5);
    EXPECT_EQ(count_of(individual_label), 0) << "without room above it";
    show(0, 400, -100, 12);
    EXPECT_GT(count_of(individual_label), 0);
}

TEST_F(GraphPeaks, APeakWithoutItsCurveHasItsLabel)
{
    give_peaks();
    open();
    Histo_Peak* peak = panel.Peaks()->head;
    float* const curve = std::exchange(peak->curve, nullptr);
    choose(graph().peak_select, composite);
    EXPECT_TRUE(has_line(center(0), composite_label));
    choose(graph().peak_select, individual);
    EXPECT_TRUE(has_line(center(0), individual_label));
    EXPECT_FALSE(is_near(x_of(100), y_of(990), green));
    peak->curve = curve;
}

TEST_F(GraphPeaks, AFarCenterHasALongNameAndDoesNoHarm)
{
    give_peaks();
    open();
    choose(graph().peak_select, individual);
    (*panel.Peaks()->head->param)[0] = 1e300;
    changed();
    (*panel.Peaks()->head->param)[0] = -1e300;
    changed();
    EXPECT_FALSE(has_line(100, individual_label));
    EXPECT_TRUE(has_line(center(1), individual_label));
}

TEST_F(GraphPeaks, LabelsAreTraced)
{
    give_peaks();
    open();
    choose(graph().peak_select, individual);
    Flag_Trace = 4;
    reports.clear();
    changed();
    EXPECT_EQ(reports.texts(14), std::vector<std::string>{"Mode Histo: Histo_Plot_Peak_Label"});
}

TEST_F(GraphPeaks, WithoutMemoryForTheSumThePlotEndsThere)
{
    give_peaks();
    open();
    choose(graph().peak_select, composite);
    reports.clear();
    {
        const Failing_New failing(1);
        changed();
        EXPECT_TRUE(failing.has_failed());
    }
    const auto texts = reports.texts(1);
    ASSERT_EQ(texts.size(), 1u);
    int line = 0;
    ASSERT_EQ(std::sscanf(texts[0].c_str(), "line %d", &line), 1);
    char expected[100];
    std::snprintf(expected, sizeof expected, "line %-4d of tool_histo_blow \nmemory error in new", line);
    EXPECT_EQ(texts[0], expected);
    EXPECT_GT(count_of(magenta), 100);
    EXPECT_EQ(count_of(green) + count_of(composite_label), 0);
    changed();
    EXPECT_GT(count_of(green), 100);
}
