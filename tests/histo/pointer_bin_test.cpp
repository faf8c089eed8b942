#include "tests/histo/own_host.h"

#include <limits>

// Which bin the cursor stands at, and what is asked of the frame under the pointer.

using namespace test;
using own_frames::Frame;
using own_frames::raw_of;

namespace {

class PointerBin : public Own_Host {
protected:
    PointerBin()
    {
        own_registry::define_array("$FRAME_OVR", &frame);
        own_registry::define_floats("$MOUSE_FRM", {1.5f, 12.25f, 7.5f, 99});
        panel.x = 0;
        panel.y = 0;
        panel.width = 102; // a pixel a bin
        panel.height = 102;
        show(0, 1);
    }
    ~PointerBin() override
    {
        own_registry::define_array("$FRAME_OVR", nullptr);
        free_histogram();
    }

    void show(float min, float width)
    {
        free_histogram();
        panel.histo = panel_record(Histogram(min, width, Counts(100, 1u)));
    }

    int bin_of(float grey)
    {
        frame.raw = raw_of(grey);
        EXPECT_EQ(Histo_Cursor(&panel), 1);
        return panel.cursor_x - 1;
    }

    Frame frame;

private:
    void free_histogram()
    {
        if (panel.histo) {
            delete[] panel.histo->count;
            panel.histo->count = nullptr;
        }
    }
};

}

TEST_F(PointerBin, IsThatOfTheFramesValueAtThePointer)
{
    frame.index_z = 3;
    frame.index_t = 65535;
    EXPECT_EQ(bin_of(42), 42);
    EXPECT_EQ(frame.asked_at.x, 12.25f);
    EXPECT_EQ(frame.asked_at.y, 7.5f);
    EXPECT_EQ(frame.asked_at.z, 3.0f);
    EXPECT_EQ(frame.asked_at.t, 65535.0f);
}

TEST_F(PointerBin, IsCutAndKeptWithinTheHistogram)
{
    EXPECT_EQ(bin_of(42.999f), 42);
    EXPECT_EQ(bin_of(-0.5f), 0);
    EXPECT_EQ(bin_of(-1e30f), 0);
    EXPECT_EQ(bin_of(99.5f), 99);
    EXPECT_EQ(bin_of(100), 99);
    EXPECT_EQ(bin_of(1e30f), 99);
    EXPECT_EQ(bin_of(std::numeric_limits<float>::infinity()), 99);
    EXPECT_EQ(bin_of(-std::numeric_limits<float>::infinity()), 0);
    show(-7.5f, 0.1f);
    EXPECT_EQ(bin_of(-7), 5);
}

TEST_F(PointerBin, OfAWidthOfZeroIsAtAnEnd)
{
    show(5, 0);
    EXPECT_EQ(bin_of(5), 0);
    EXPECT_EQ(bin_of(6), 99);
    EXPECT_EQ(bin_of(4), 0);
}

TEST_F(PointerBin, WhereThereIsNoValueThereIsNoCursor)
{
    for (const int code : {0x7FFFFFFF, 0x7FFFFFFE}) {
        bin_of(42);
        frame.raw = code;
        EXPECT_EQ(Histo_Cursor(&panel), 1);
        EXPECT_EQ(panel.cursor_x, 0);
    }
    frame.color = 1;
    frame.raw = 0x7FFFFFFE;
    EXPECT_EQ(Histo_Cursor(&panel), 1);
    EXPECT_EQ(panel.cursor_x, 0) << "nor in a colour image";
    frame.raw = 0x7FFFFFFD;
    EXPECT_EQ(Histo_Cursor(&panel), 1);
    EXPECT_NE(panel.cursor_x, 0);
}

TEST_F(PointerBin, WithoutAFrameOrAHistogramThereIsNone)
{
    bin_of(42);
    own_registry::define_array("$FRAME_OVR", nullptr);
    EXPECT_EQ(Histo_Cursor(&panel), 0);
    EXPECT_EQ(panel.cursor_x, 0);
    Tool_Histo empty;
    EXPECT_EQ(Histo_Cursor(&empty), 0);
    EXPECT_EQ(empty.cursor_x, -1);
}

TEST_F(PointerBin, ABrokenHistogramIsNone)
{
    bin_of(42);
    panel.histo->nb_bins = 0;
    EXPECT_EQ(Histo_Cursor(&panel), 0);
    EXPECT_EQ(panel.cursor_x, 0) << "erased all the same";
    EXPECT_EQ(Histo_Paint(&panel), 0);
    EXPECT_EQ(panel.Fit(), 1);
    EXPECT_EQ(panel.Peaks(), nullptr);
    panel.histo->nb_bins = 100;
}

TEST_F(PointerBin, IsTraced)
{
    Histo_Cursor(&panel);
    EXPECT_EQ(reports.lines().front(), "17 in Histo_Cursor()");
    EXPECT_EQ(reports.texts(17).size(), 1u);
}
