#include "tests/histo/histogram_panel.h"

#include "hostkit/structures/series_pixels.h"
#include "hostkit/structures/tree.h"

// The cursor in the histogram while the pointer moves over an image.

using namespace test;

namespace {

constexpr Colors white{255, 255, 255};

class HistogramCursor : public Histogram_Panel {
protected:
    /// An image of 4 x 1 grey values.
    void show_image(std::vector<short> values)
    {
        values_ = std::move(values);
        Strato_2D* const series = hostkit::Object_2D_Add(hostkit::Root_2D(), {.name = "series"});
        image_ = hostkit::Frame_Add(series, {.name = "1", .class_a = hostkit::frame_class});
        hostkit::Series_Pixels_Set(
            series, {.type = hostkit::Pixel_Type::i16, .data = values_.data(), .width = 4, .height = 1, .frames = 1});
        hostkit::Object_Variable<Strato_2D_Frame>("$FRAME_OVR") = image_;
    }

    void show_color(unsigned char red, unsigned char green, unsigned char blue)
    {
        rgb_ = {red, green, blue};
        Strato_2D* const series = hostkit::Object_2D_Add(hostkit::Root_2D(), {.name = "series"});
        image_ = hostkit::Frame_Add(series, {.name = "1", .class_a = hostkit::frame_class});
        hostkit::Series_Pixels_Set(
            series, {.type = hostkit::Pixel_Type::rgb, .data = rgb_.data(), .width = 1, .height = 1, .frames = 1});
        hostkit::Object_Variable<Strato_2D_Frame>("$FRAME_OVR") = image_;
    }

    void move_to(float x, float y = 0)
    {
        auto* const mouse =
            static_cast<float*>(hostkit::Variable_Define("$MOUSE_FRM", hostkit::Variable_Type::Four_Floats));
        mouse[1] = x;
        mouse[2] = y;
        panel.Update(pointer_moved);
    }

    void leave_image()
    {
        hostkit::Object_Variable<Strato_2D_Frame>("$FRAME_OVR") = nullptr;
        panel.Update(pointer_moved);
    }

    /// 12 empty bins, each 13 pixels wide, whose curve is the lowest row.
    void show_twelve_bins(float min = 0, float width = 1)
    {
        give(Histogram(min, width, Counts(12, 0u)));
        lay_out();
    }

    /// The white columns in the middle of the panel.
    std::vector<int> cursor() const { return columns_with(white, 100); }

    static std::vector<int> cursor_at_bin(int bin)
    {
        if (bin == 0)
            return {left}; // its other column lies on the frame's ground, where it is not white
        return {left + 13 * bin - 1, left + 13 * bin};
    }

private:
    std::vector<short> values_;
    std::vector<unsigned char> rgb_;
    Strato_2D_Frame* image_ = nullptr;
};

}

TEST_F(HistogramCursor, StandsAtTheBinOfTheValueUnderThePointer)
{
    show_image({0, 3, 7, 11});
    show_twelve_bins();
    for (const int x : {1, 2, 3}) {
        move_to(static_cast<float>(x));
        const int bin = x == 1 ? 3 : x == 2 ? 7 : 11;
        EXPECT_EQ(cursor(), cursor_at_bin(bin)) << x;
        EXPECT_EQ(panel.cursor_x, left + 13 * bin);
    }
    keep_picture(main_window(), "histogram_panel_cursor");
}

TEST_F(HistogramCursor, IsAsHighAsTheHistogram)
{
    show_image({0, 3, 7, 11});
    show_twelve_bins();
    move_to(2);
    EXPECT_EQ(rows_with(white, left + 13 * 7), all_from(bottom + 1, bottom + inner_height))
        << "where the curve is, it has another colour";
}

TEST_F(HistogramCursor, LeavesNoTrace)
{
    show_image({0, 3, 7, 11});
    give(Histogram(0, 1, {5, 9, 2, 8, 8, 1, 0, 40, 7, 7, 3, 1}));
    lay_out();
    panel.Set(1, 3, 5.0, 9.0);
    panel.Update(repaint);
    const auto before = pixels(main_window());
    for (const float x : {0.0f, 2.0f, 3.0f, 1.0f, 1.0f, 2.5f}) {
        move_to(x);
        EXPECT_NE(pixels(main_window()), before);
    }
    leave_image();
    EXPECT_EQ(pixels(main_window()), before);
    EXPECT_EQ(panel.cursor_x, 0);
    leave_image();
    EXPECT_EQ(pixels(main_window()), before);
}

TEST_F(HistogramCursor, OutsideTheImageThereIsNone)
{
    show_image({0, 3, 7, 11});
    show_twelve_bins();
    const auto before = pixels(main_window());
    for (const float x : {-0.5f, 4.0f, 1e9f}) {
        move_to(2);
        move_to(x);
        EXPECT_EQ(pixels(main_window()), before) << x;
        EXPECT_EQ(panel.cursor_x, 0);
    }
    move_to(2);
    move_to(2, 1);
    EXPECT_EQ(pixels(main_window()), before);
}

TEST_F(HistogramCursor, ValuesOutsideTheHistogramStandAtItsEnds)
{
    show_image({-500, 0, 11, 30000});
    show_twelve_bins();
    move_to(0);
    EXPECT_EQ(cursor(), cursor_at_bin(0));
    move_to(3);
    EXPECT_EQ(cursor(), cursor_at_bin(11));
}

TEST_F(HistogramCursor, FollowsTheHistogramsGrid)
{
    show_image({0, -3, -2, 8});
    show_twelve_bins(-10, 2.5f);
    move_to(1);
    EXPECT_EQ(cursor(), cursor_at_bin(2));
    move_to(2);
    EXPECT_EQ(cursor(), cursor_at_bin(3));
    move_to(3);
    EXPECT_EQ(cursor(), cursor_at_bin(7));
}

TEST_F(HistogramCursor, OfAColourStandsAtTheComponentsValueWhateverTheGrid)
{
    show_color(5, 2, 9);
    struct Expected {
        unsigned char component;
        int bin;
    };
    show_twelve_bins(-100, 3);
    for (const Expected& expected : {Expected{0, 9}, {1, 5}, {2, 2}, {3, 9}, {4, 2}, {5, 0}, {255, 0}}) {
        panel.color_component = expected.component;
        move_to(0);
        EXPECT_EQ(cursor(), cursor_at_bin(expected.bin)) << int{expected.component};
    }
}

TEST_F(HistogramCursor, TheGreyOfAColourIsCutPerComponent)
{
    show_color(100, 50, 200);
    give(Counts(156, 0u)); // a pixel a bin
    lay_out();
    panel.color_component = 4;
    move_to(0);
    EXPECT_EQ(panel.cursor_x, left + 30 + 29 + 22);
}

TEST_F(HistogramCursor, IsGoneAfterARepaintAndComesBack)
{
    show_image({0, 3, 7, 11});
    show_twelve_bins();
    const auto before = pixels(main_window());
    for (const unsigned long long change : {repaint, bit(22), bit(38)}) {
        move_to(2);
        panel.Update(change);
        EXPECT_EQ(panel.cursor_x, -1);
        EXPECT_EQ(pixels(main_window()), before);
    }
    move_to(2);
    EXPECT_EQ(cursor(), cursor_at_bin(7));
    panel.Draw();
    EXPECT_EQ(pixels(main_window()), before);
    leave_image();
    EXPECT_EQ(pixels(main_window()), before);
    EXPECT_EQ(panel.cursor_x, 0);
}

TEST_F(HistogramCursor, ErasingAnEmptyPlaceTouchesNothing)
{
    show_twelve_bins();
    leave_image();
    ASSERT_EQ(panel.cursor_x, 0);
    const auto before = pixels(main_window());
    panel.cursor_x = -1;
    leave_image();
    EXPECT_EQ(pixels(main_window()), before);
}

TEST_F(HistogramCursor, WithoutAHistogramThereIsNone)
{
    show_image({0, 3, 7, 11});
    lay_out();
    const auto before = pixels(main_window());
    move_to(2);
    EXPECT_EQ(panel.cursor_x, -1) << "not even looked at";
    EXPECT_EQ(pixels(main_window()), before);
}

TEST_F(HistogramCursor, IsErasedWhenTheHistogramIsGone)
{
    show_image({0, 3, 7, 11});
    show_twelve_bins();
    const auto before = pixels(main_window());
    move_to(2);
    unsigned* const counts = std::exchange(panel.histo->count, nullptr);
    move_to(2);
    EXPECT_EQ(panel.cursor_x, 0);
    EXPECT_EQ(pixels(main_window()), before);
    panel.histo->count = counts;
}

TEST_F(HistogramCursor, InATinyPanelThereIsNone)
{
    show_image({0, 3, 7, 11});
    give(Counts(12, 0u));
    for (const int size : {1, 3, 6}) {
        for (const bool narrow : {false, true}) {
            lay_out(100, 20, narrow ? size + 38 : 200, narrow ? 150 : size);
            const auto before = pixels(main_window());
            move_to(2);
            EXPECT_EQ(pixels(main_window()), before) << size;
            EXPECT_EQ(panel.cursor_x, 0);
        }
    }
}

TEST_F(HistogramCursor, TheZoomDoesNotMoveIt)
{
    show_image({0, 3, 7, 11});
    show_twelve_bins();
    panel.zoom.value = 0.01f;
    move_to(2);
    EXPECT_EQ(cursor(), cursor_at_bin(7));
}

TEST_F(HistogramCursor, MovesWithTheColourComponent)
{
    show_color(5, 2, 9);
    show_twelve_bins();
    auto& component = hostkit::Variable<unsigned char>("$GLI_COLOR_COMPONENT");
    component = 1;
    reports.clear();
    panel.Update(bit(39));
    EXPECT_EQ(panel.color_component, 1);
    EXPECT_EQ(traces(),
        (std::vector<std::string>{"16 in Tool_Histo::Update()", "17 in Histo_Cursor()", "17 in Histo_Paint()"}));
    EXPECT_EQ(panel.cursor_x, -1) << "painted over";
    component = 0;
    panel.Update(bit(39));
    EXPECT_EQ(panel.color_component, 0);
}
