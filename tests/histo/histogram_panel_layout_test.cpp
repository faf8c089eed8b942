#include "tests/histo/histogram_panel.h"

// Where the panel's widgets are, and what its events answer.

using namespace test;
using hostkit::Variable;

using HistogramPanel = Histogram_Panel;

namespace {

using Lines = std::vector<std::string>;

void expect_place(const Tools& widget, int x, int y, int width, int height)
{
    EXPECT_EQ(widget.x, x);
    EXPECT_EQ(widget.y, y);
    EXPECT_EQ(widget.width, width);
    EXPECT_EQ(widget.height, height);
}

}

TEST_F(HistogramPanel, StartsEmpty)
{
    EXPECT_EQ(panel.histo, nullptr);
    EXPECT_EQ(panel.cursor_x, -1);
    EXPECT_EQ(panel.range_nb, 0);
    EXPECT_EQ(panel.color_component, 0);
    EXPECT_EQ(panel.Peaks(), nullptr);
    EXPECT_FALSE(panel.Ready());
    for (const char* axis : {panel.x_title, panel.y_title, panel.x_unit, panel.y_unit})
        EXPECT_STREQ(axis, "");
}

TEST_F(HistogramPanel, PutsZoomAndButtonToTheRightOfTheHistogram)
{
    lay_out();
    expect_place(panel, 10, 20, 200 - 2 * 19, 150);
    expect_place(panel.zoom, 10 + 162 + 3, 20, 16, 150);
    expect_place(panel.blow, 175 + 16 + 3, 20, 16, 150);
    EXPECT_EQ(panel.blow.x + panel.blow.width, 210) << "they fill the area";
}

TEST_F(HistogramPanel, FollowsTheWidthOfControlsAtEveryLayout)
{
    lay_out();
    Variable<short>("$INTERFACE_CURSOR_DIM") = 24;
    lay_out();
    expect_place(panel, 10, 20, 146, 150);
    expect_place(panel.zoom, 159, 20, 24, 150);
    expect_place(panel.blow, 186, 20, 24, 150);
}

TEST_F(HistogramPanel, WidgetsLookAsTheAreaWants)
{
    const HFONT font = Y_Create_Font(nullptr, 12, nullptr);
    area.font = font;
    lay_out(10, 20, 200, 150, 5);
    EXPECT_EQ(panel.border, 5);
    EXPECT_EQ(panel.state, 66u);
    EXPECT_EQ(panel.zoom.state, 0x0A000004u);
    EXPECT_EQ(panel.blow.state, 4u);
    EXPECT_STREQ(panel.blow.name.get(), "Blow");
    for (const Tools* widget :
        {static_cast<Tools*>(&panel), static_cast<Tools*>(&panel.zoom), static_cast<Tools*>(&panel.blow)}) {
        EXPECT_EQ(widget->window, main_window());
        EXPECT_EQ(widget->frame, frame);
        EXPECT_EQ(widget->back, back);
        EXPECT_EQ(widget->text, text);
        EXPECT_EQ(widget->font, font);
    }
    DeleteObject(font);
}

TEST_F(HistogramPanel, ALayoutResetsTheZoom)
{
    lay_out();
    EXPECT_EQ(panel.zoom.value, 1.0f);
    EXPECT_EQ(panel.zoom.minimum, 0.001f);
    EXPECT_EQ(panel.zoom.maximum, 1.0f);
    panel.zoom.value = 0.25f;
    lay_out();
    EXPECT_EQ(panel.zoom.value, 1.0f);
}

TEST_F(HistogramPanel, TakesAnyHeight)
{
    for (const int height : {0, 1, 150, 65535})
        EXPECT_EQ(panel.Height(static_cast<unsigned short>(height)), height);
}

TEST_F(HistogramPanel, HandlersAreTracedFirst)
{
    lay_out();
    point(main_window(), middle(panel));
    panel.Height(5);
    panel.Resize(&area);
    panel.Draw();
    panel.Click(0);
    panel.Click(0x7fffffff);
    panel.Keyboard(2081);
    panel.Scroll(2);
    panel.Update(0);
    panel.Set(0);
    panel.Set(33);
    EXPECT_EQ(traces(), (Lines{"16 in Tool_Histo::Height()", "16 in Tool_Histo::Resize()", "16 in Tool_Histo::Draw()",
                            "17 in Histo_Paint()", "16 in Tool_Histo::Click(up_down=0x00000000)",
                            "16 in Tool_Histo::Click(up_down=0x7fffffff)", "16 in Tool_Histo::Keyboard(key=0x00000821)",
                            "16 in Tool_Histo::Scroll()", "17 in Histo_Paint()", "16 in Tool_Histo::Update()",
                            "16 in Tool_Histo::Set()", "16 in Tool_Histo::Set()"}));
    EXPECT_EQ(reports.all().size(), traces().size());
}

TEST_F(HistogramPanel, MotionAndLeaveAreNotTraced)
{
    lay_out();
    point(main_window(), {30, 30});
    panel.Motion(0);
    panel.Leave();
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(HistogramPanel, KeysAreLeftToOthers)
{
    lay_out();
    for (const int key : {27, 13, 97, 2081, 2088})
        EXPECT_EQ(panel.Keyboard(key), 0);
}

TEST_F(HistogramPanel, AReleaseAndAMissAreNotUsed)
{
    lay_out();
    point(main_window(), middle(panel.zoom));
    EXPECT_EQ(panel.Click(0), 0);
    point(main_window(), middle(panel));
    EXPECT_EQ(panel.Click(left_press), 0);
    EXPECT_EQ(panel.Motion(0), 0);
}

TEST_F(HistogramPanel, APressOnTheZoomTakesItWithoutPainting)
{
    give({5, 5});
    lay_out();
    point(main_window(), {panel.zoom.x + 8, panel.zoom.y + panel.zoom.height / 2});
    EXPECT_EQ(panel.Click(left_press), 1);
    EXPECT_EQ(traces(), Lines{"16 in Tool_Histo::Click(up_down=0x00000012)"});
    reports.clear();
    point(main_window(), {panel.zoom.x + 8, panel.zoom.y + panel.zoom.height / 4});
    EXPECT_EQ(panel.Motion(17), 1);
    EXPECT_EQ(traces(), Lines{"17 in Histo_Paint()"});
    EXPECT_LT(panel.zoom.value, 1.0f);
    EXPECT_GE(panel.zoom.value, 0.001f);
    panel.Leave();
    EXPECT_EQ(panel.Motion(17), 0) << "it has let go";
}

TEST_F(HistogramPanel, TheZoomReachesItsEndsExactly)
{
    lay_out();
    point(main_window(), middle(panel.zoom));
    panel.Click(left_press);
    const int to[] = {-500, 700};
    float values[2];
    for (int i = 0; i < 2; ++i) {
        point(main_window(), {panel.zoom.x + 8, to[i]});
        EXPECT_EQ(panel.Motion(17), 1);
        values[i] = panel.zoom.value;
    }
    EXPECT_EQ(std::min(values[0], values[1]), 0.001f);
    EXPECT_EQ(std::max(values[0], values[1]), 1.0f);
}

TEST_F(HistogramPanel, TheWheelTurnsTheZoomTheOtherWayRoundAndPaints)
{
    give({5, 5});
    lay_out();
    Valuators alike = panel.zoom;
    alike.value = panel.zoom.value = 0.1f;
    EXPECT_EQ(panel.Scroll(3), 1);
    alike.Scroll(-3);
    EXPECT_EQ(panel.zoom.value, alike.value);
    EXPECT_NE(panel.zoom.value, 0.1f);
    EXPECT_EQ(traces(), (Lines{"16 in Tool_Histo::Scroll()", "17 in Histo_Paint()"}));
    panel.zoom.value = 1.0f;
    EXPECT_EQ(panel.Scroll(0), 1) << "used, even when nothing turns";
}

TEST_F(HistogramPanel, RangesAreReplacedAsAWhole)
{
    EXPECT_EQ(panel.Set(2, 7, 10.5, 20.25, 300, -5.0, 1e9), 1);
    ASSERT_EQ(panel.range_nb, 2);
    EXPECT_EQ(panel.range_tag[0], 7);
    EXPECT_EQ(panel.range_min[0], 10.5f);
    EXPECT_EQ(panel.range_max[0], 20.25f);
    EXPECT_EQ(panel.range_tag[1], 300);
    EXPECT_EQ(panel.range_min[1], -5.0f);
    EXPECT_EQ(panel.range_max[1], 1e9f);
    EXPECT_EQ(panel.Set(1, 65539, 0.1, 0.2), 1);
    EXPECT_EQ(panel.range_nb, 1);
    EXPECT_EQ(panel.range_tag[0], 3) << "tags have 16 bits";
    EXPECT_EQ(panel.range_min[0], 0.1f);
    EXPECT_EQ(panel.Set(0), 1);
    EXPECT_EQ(panel.range_nb, 0);
}

TEST_F(HistogramPanel, TooManyOrTooFewRangesChangeNothing)
{
    panel.Set(1, 7, 10.5, 20.25);
    for (const int n : {33, 34, 32767, 32768, 40000, 65535}) {
        EXPECT_EQ(panel.Set(static_cast<unsigned short>(n), 1, 2.0, 3.0), 0) << n;
        EXPECT_EQ(panel.range_nb, 1);
        EXPECT_EQ(panel.range_tag[0], 7);
    }
}

TEST_F(HistogramPanel, SetDoesNotPaint)
{
    give({5, 5});
    lay_out();
    const auto before = pixels(main_window());
    panel.Set(1, 3, 0.0, 1.0);
    EXPECT_EQ(traces(), Lines{"16 in Tool_Histo::Set()"});
    EXPECT_EQ(pixels(main_window()), before);
}
