#include "tests/tools/marker_panel_fixture.h"

using namespace test;
using hostkit::Array_Variable;
using hostkit::Variable;

TEST_F(MarkerPanel, WantsTwoBordersFivePixelsAndItsRows)
{
    Tool_Marker panel;
    EXPECT_EQ(panel.Height(0), 9);
    EXPECT_EQ(panel.Height(4), 97);
    Variable<short>("$INTERFACE_BORDER_DIM") = 3;
    Variable<short>("$INTERFACE_BUTTON_DIM_SML") = 31;
    Variable<short>("$INTERFACE_SPACE_DIM") = 50;
    EXPECT_EQ(panel.Height(2), 6 + 5 + 2 * 34);
    EXPECT_EQ(reports.all(), (std::vector<Report>(3, {15, "in Tool_Marker::Height()"})));
}

TEST_F(MarkerPanel, ResizeAndDrawAreTraced)
{
    Tool_Marker panel;
    lay_out(panel);
    EXPECT_EQ(panel.Resize(&area), 1);
    panel.Draw();
    EXPECT_EQ(reports.all(),
        (std::vector<Report>{{15, "in Tool_Marker::Resize(dim=408x97)"}, {15, "in Tool_Marker::Draw()"}}));
}

TEST_F(MarkerPanel, EveryMarkerAnswersInItsOwnRectangle)
{
    Tool_Marker panel;
    lay_out(panel);
    ASSERT_FALSE(grid.scrolled);
    EXPECT_EQ(grid.button(15), (Extent{314, 24, 100, 22}));
    EXPECT_EQ(grid.button(0), (Extent{14, 90, 100, 22}));
    for (int marker = 0; marker < 16; ++marker) {
        EXPECT_EQ(click_on(panel, marker), marker);
        EXPECT_EQ(hit_area(panel, place_of(marker)), grid.button(marker)) << "marker " << marker;
    }
}

TEST_F(MarkerPanel, DrawsItsBoxAndItsMarkers)
{
    Tool_Marker panel;
    lay_out(panel);
    EXPECT_EQ(pixel(main_window(), {10, 20}), frame);
    EXPECT_EQ(pixel(main_window(), {12, 22}), back);
    EXPECT_TRUE(shows(0, current(0)));
    for (int marker = 1; marker < 16; ++marker)
        EXPECT_TRUE(shows(marker, usual(marker))) << "marker " << marker;
    keep_picture(main_window(), "marker_panel_layout");
}

TEST_F(MarkerPanel, StartsScrolledToTheHighestRow)
{
    Tool_Marker panel;
    lay_out(panel, scrolled);
    EXPECT_EQ(grid.offset, 35);
    EXPECT_TRUE(shows_slider(35));
    for (int marker = 0; marker < 8; ++marker)
        EXPECT_EQ(hit_area(panel, place_of(marker)), grid.button(marker)) << "marker " << marker;
}

TEST_F(MarkerPanel, TheCurrentMarkerIsMarkedByTheLayoutAlready)
{
    set_current(6);
    Tool_Marker panel;
    lay_out(panel);
    EXPECT_TRUE(shows(6, current(6)));
    EXPECT_TRUE(shows(0, usual(0)));
    EXPECT_EQ(panel.Read(), 0) << "the panel's own number follows clicks and changes";
    set_current(9);
    lay_out(panel);
    EXPECT_TRUE(shows(6, usual(6)));
    EXPECT_TRUE(shows(9, current(9)));
}

TEST_F(MarkerPanel, ColoursHaveRedInTheLowByte)
{
    color(5) = 0xff563412;
    Tool_Marker panel;
    lay_out(panel);
    EXPECT_TRUE(shows(5, {"5", {0x12, 0x34, 0x56}}));
}

TEST_F(MarkerPanel, MarkerZeroHasItsOwnColour)
{
    color(0) = 0x0000fa;
    set_current(1);
    Tool_Marker panel;
    lay_out(panel);
    EXPECT_TRUE(shows(0, {"0", {0xfa, 0, 0}}));
}

TEST_F(MarkerPanel, WithoutColoursTheyStayAsTheyWere)
{
    Tool_Marker panel;
    lay_out(panel);
    const Row_Look before = usual(7);
    color(7) = 0x010203;
    unsigned* const kept = std::exchange(Array_Variable<unsigned>("$MARKER_COLOR"), nullptr);
    lay_out(panel);
    EXPECT_TRUE(shows(7, before));
    Array_Variable<unsigned>("$MARKER_COLOR") = kept;
}

TEST_F(MarkerPanel, CaptionsAreNamesOrElseNumbers)
{
    set_label(6, "Apex");
    Tool_Marker panel;
    lay_out(panel);
    EXPECT_EQ(caption_of(panel, 6), "Apex");
    EXPECT_EQ(caption_of(panel, 11), "11");
    char** const kept = std::exchange(Array_Variable<char*>("$MARKER_LABEL"), nullptr);
    lay_out(panel);
    EXPECT_EQ(caption_of(panel, 6), "6");
    Array_Variable<char*>("$MARKER_LABEL") = kept;
}

TEST_F(MarkerPanel, WhereTheAreaAsksForItEnabledMarkersHaveAMark)
{
    for (int marker = 0; marker < 16; ++marker)
        enabled(marker) = marker % 2 == 0;
    set_current(1);
    Tool_Marker panel;
    lay_out(panel, open, marked_area);
    EXPECT_TRUE(shows(2, pressed(2)));
    EXPECT_TRUE(shows(3, usual(3)));
    enabled(2) = 0;
    enabled(3) = 0x80;
    lay_out(panel, open, marked_area);
    EXPECT_TRUE(shows(2, usual(2)));
    EXPECT_TRUE(shows(3, pressed(3))) << "any non-zero byte";
}

TEST_F(MarkerPanel, WhereTheAreaDoesNotAskEnabledAndDisabledLookAlike)
{
    enabled(2) = 0;
    Tool_Marker panel;
    lay_out(panel);
    EXPECT_TRUE(shows(2, usual(2)));
    EXPECT_TRUE(shows(3, usual(3)));
    EXPECT_EQ(click_on(panel, 2), 2) << "a disabled marker is not greyed";
}

TEST_F(MarkerPanel, WithoutEnableStatesNoMarkIsOn)
{
    Tool_Marker panel;
    lay_out(panel, open, marked_area);
    EXPECT_TRUE(shows(2, pressed(2)));
    auto* const kept = std::exchange(Array_Variable<unsigned char>("$MARKER_ENABLE"), nullptr);
    lay_out(panel, open, marked_area);
    EXPECT_TRUE(shows(2, usual(2)));
    Array_Variable<unsigned char>("$MARKER_ENABLE") = kept;
}

TEST_F(MarkerPanel, HasPlaceForSixtyFourMarkers)
{
    set_count(64);
    Tool_Marker panel;
    lay_out(panel, {10, 20, 428, 361});
    ASSERT_FALSE(grid.scrolled);
    for (const int marker : {0, 3, 17, 63})
        EXPECT_EQ(hit_area(panel, place_of(marker)), grid.button(marker)) << "marker " << marker;
}

TEST_F(MarkerPanel, MarkersBeyondSixtyFourHaveNoButton)
{
    set_count(80);
    Tool_Marker panel;
    lay_out(panel, {10, 20, 428, 239});
    for (const int scroll : {0, -1000}) {
        panel.Scroll(scroll);
        for (int y = 24; y < 255; y += 11)
            EXPECT_LT(click_at(panel, {60, y}), 64);
    }
    set_current(70);
    panel.Update(~0ull);
    EXPECT_EQ(panel.Read(), 70);
}

TEST_F(MarkerPanel, BelowFourMarkersThereAreNoRows)
{
    for (const int count : {0, 3}) {
        set_count(count);
        Tool_Marker panel;
        lay_out(panel);
        for (int y = 0; y < 140; y += 7) {
            for (int x = 0; x < 430; x += 23) {
                EXPECT_EQ(click_at(panel, {x, y}), -1) << x << ' ' << y;
                EXPECT_EQ(panel.Click(right_press), -1);
            }
        }
        EXPECT_EQ(panel.Keyboard('a'), 0) << "no editor was opened";
    }
}

TEST_F(MarkerPanel, FollowsTheInterfaceDimensionsAtEveryLayout)
{
    Tool_Marker panel;
    lay_out(panel, scrolled);
    Variable<short>("$INTERFACE_SPACE_DIM") = 9;
    Variable<short>("$INTERFACE_CURSOR_DIM") = 25;
    Variable<short>("$INTERFACE_BUTTON_DIM_SML") = 27;
    Variable<short>("$INTERFACE_BORDER_DIM") = 3;
    lay_out(panel, {30, 40, 454, 100});
    EXPECT_EQ(grid.pitch, 30);
    for (const int marker : {0, 3, 5, 8})
        EXPECT_EQ(hit_area(panel, place_of(marker)), grid.button(marker)) << "marker " << marker;
}

TEST_F(MarkerPanel, TakesTheFontOfItsArea)
{
    const HFONT font = Y_Create_Font(nullptr, 13, "bold");
    area.font = font;
    Tool_Marker panel;
    lay_out(panel);
    EXPECT_TRUE(shows(10, usual(10)));
    click_on(panel, 6, right_press);
    EXPECT_TRUE(shows_editor(6, "6"));
    leave(panel);
    area.font = nullptr;
    EXPECT_FALSE(shows(10, usual(10))) << "the comparison sees fonts";
    DeleteObject(font);
}

TEST_F(MarkerPanel, BeforeItsLayoutItTakesNoEvents)
{
    Tool_Marker panel;
    cover(main_window());
    point(main_window(), {0, 0});
    EXPECT_EQ(panel.Click(left_press), -1);
    EXPECT_EQ(panel.Click(right_press), -1);
    EXPECT_EQ(panel.Motion(17), 0);
    EXPECT_EQ(panel.Keyboard('a'), 0);
    EXPECT_EQ(panel.Scroll(1), 1);
    panel.Update(~0ull);
    panel.Draw();
    panel.Leave();
    EXPECT_TRUE(broadcasts().empty());
    EXPECT_TRUE(reports.texts(11).empty()) << "no drawing context was asked for";
    EXPECT_TRUE(covered(main_window(), {0, 0, 500, 300}));
}
