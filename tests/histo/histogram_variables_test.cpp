#include "tests/histo/own_host.h"
#include "tests/platform/test_window.h"

#include <cstdio>
#include <fstream>
#include <iterator>

// The panel in a host whose variables do not exist at first. In order: the panel keeps addresses for the life of the
// process.

using namespace test;
using namespace own_registry;
using own_frames::Frame;

namespace {

class HistogramVariables : public ::testing::Test {
protected:
    HistogramVariables()
    {
        area.window = window.handle();
        area.width = 200;
        area.height = 150;
        area.border = 2;
        area.state = 66;
        histogram->max_count = 1;
        own_frames::show({&frame});
    }
    ~HistogramVariables() override { own_frames::show({}); }

    void send_everything()
    {
        EXPECT_EQ(panel.Resize(&area), 1);
        panel.Draw();
        for (int i = 0; i < 64; ++i)
            panel.Update(1ull << i);
        panel.Update(0x102);
        panel.Update(~0ull);
        panel.Motion(0);
        panel.Scroll(1);
        panel.Fit();
        panel.Leave();
        for (const Report& report : reports.all())
            EXPECT_GT(report.level, 2) << report.text;
    }

    std::string written()
    {
        std::string path = ::testing::TempDir() + "histogram variables.csv";
        EXPECT_EQ(panel.Write(path.data()), 1);
        std::string text;
        {
            std::ifstream file(path);
            text.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
        }
        std::remove(path.c_str());
        return text;
    }

    Reports reports;
    Test_Window window{nullptr, 400, 300};
    Boxs area;
    Histogram histogram = Histogram::ones(0, 1, 20);
    Frame frame{histogram.get()};
    Tool_Histo panel;
};

unsigned short colors[256];

}

TEST_F(HistogramVariables, NoneIsNeeded)
{
    send_everything();
    EXPECT_EQ(panel.histo, nullptr) << "there is no window";
    EXPECT_EQ(panel.width, 200 - 2 * 3);
    EXPECT_TRUE(take_sent().empty());
}

TEST_F(HistogramVariables, AWindowAloneIsEnoughForAHistogram)
{
    define_array("$WINDOW_CUR", &window);
    panel.color_component = 77;
    panel.Update(0x102);
    ASSERT_TRUE(panel.Ready());
    EXPECT_EQ(panel.histo->nb_bins, 21);
    EXPECT_EQ(panel.color_component, 77) << "what is not there changes nothing";
    EXPECT_EQ(
        asked_to_create(), (std::vector<std::string>{"$GLI_HISTO_BINS_NB", "$SELECT_GLI_MAX", "$SELECT_GLI_MIN"}));
    panel.Update(1ull << 39);
    EXPECT_EQ(panel.color_component, 0);
    EXPECT_TRUE(written().starts_with("sep=\t\n"));
    panel.Set(1, 3, 2.0, 5.0);
    send_everything();
}

TEST_F(HistogramVariables, WithoutALimitItIsThatOfTheRecord)
{
    const auto most = Histogram::ones(0, 1, 65534), more = Histogram::ones(0, 1, 65535);
    frame.histogram = most.get();
    panel.Update(0x102);
    EXPECT_EQ(panel.histo->nb_bins, 65535);
    frame.histogram = more.get();
    panel.Update(0x102);
    EXPECT_EQ(panel.histo->nb_bins, 32768);
}

TEST_F(HistogramVariables, ThoseThatComeLaterAreFound)
{
    define_number("$GLI_HISTO_BINS_MAX", 10);
    define_number("$GLI_HISTO_BINS_NB", 0);
    define_number("$GLI_COLOR_COMPONENT", 3);
    panel.Update(0x102);
    EXPECT_EQ(panel.histo->nb_bins, 10); // 21 / 2
    EXPECT_EQ(number("$GLI_HISTO_BINS_NB"), 10);
    EXPECT_EQ(panel.color_component, 3);
    define_number("$REGIONAL_SEPARATOR", ';');
    EXPECT_TRUE(written().starts_with("sep=;\n"));
    define_dimension("$INTERFACE_CURSOR_DIM", 16);
    panel.Resize(&area);
    EXPECT_EQ(panel.width, 200 - 2 * 19);
}

TEST_F(HistogramVariables, TheCursorNeedsAFrameAndAPlace)
{
    panel.Resize(&area);
    panel.Update(0x102);
    frame.raw = own_frames::raw_of(5);
    EXPECT_EQ(Histo_Cursor(&panel), 0);
    define_array("$FRAME_OVR", &frame);
    EXPECT_EQ(Histo_Cursor(&panel), 0);
    define_floats("$MOUSE_FRM", {0, 1, 2, 3});
    EXPECT_EQ(Histo_Cursor(&panel), 1);
    EXPECT_GT(panel.cursor_x, 0);
    define_array("$FRAME_OVR", nullptr);
}

TEST_F(HistogramVariables, RangesNeedAllThreeColours)
{
    const auto pixel_in_range = [&] {
        panel.Update(1ull << 38);
        const HDC context = GetDC(window.handle());
        RECT client{};
        GetClientRect(window.handle(), &client);
        const COLORREF color = GetPixel(context, panel.x + 50, client.bottom - 1 - (panel.y + 20));
        ReleaseDC(window.handle(), context);
        return color;
    };
    panel.Resize(&area);
    panel.Update(0x102);
    panel.Set(1, 3, 0.0, 19.0);
    colors[3] = 0xff00;
    for (const char* name : {"$TAG_RED", "$TAG_GRN", "$TAG_BLU"}) {
        EXPECT_EQ(pixel_in_range(), 0u) << "before " << name;
        define_array(name, colors);
    }
    EXPECT_EQ(pixel_in_range(), 0xFFFFFFu);
}
