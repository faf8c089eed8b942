#include "tests/tools/marker_panel_fixture.h"

using namespace test;
using hostkit::Array_Variable;
using hostkit::Variable;

// Mouse, wheel, keyboard and the name editor.

namespace {

constexpr int enter = 13;
constexpr int escape = 27;
constexpr int backspace = 8;
constexpr auto labels_changed = bit(47);

}

TEST_F(MarkerPanel, ALeftPressChoosesAMarker)
{
    Tool_Marker panel;
    lay_out(panel);
    EXPECT_EQ(click_on(panel, 7), 7);
    EXPECT_EQ(panel.Read(), 7);
    EXPECT_EQ(click_on(panel, 0), 0);
    EXPECT_EQ(panel.Read(), 0);
    EXPECT_EQ(Variable<unsigned short>("$MARKER_CUR"), 0) << "that is the host's to write";
    EXPECT_TRUE(broadcasts().empty());
    EXPECT_EQ(reports.all(), (std::vector<Report>(2, {15, "in Tool_Marker::Click(up_down=0x00000012)"})));
}

TEST_F(MarkerPanel, AReleaseChangesNothing)
{
    Tool_Marker panel;
    lay_out(panel);
    click_on(panel, 7);
    cover(main_window());
    EXPECT_EQ(click_on(panel, 9, 0), -1);
    EXPECT_EQ(panel.Read(), 7);
    EXPECT_TRUE(covered(main_window(), open));
    EXPECT_EQ(traces().back(), "in Tool_Marker::Click(up_down=0x00000000)");
}

TEST_F(MarkerPanel, AMissChoosesNothing)
{
    Tool_Marker panel;
    lay_out(panel);
    click_on(panel, 7);
    EXPECT_EQ(click_at(panel, {5, 5}), -1);
    EXPECT_EQ(click_at(panel, {11, 30}), -1) << "the margin";
    EXPECT_EQ(panel.Read(), 7);
}

TEST_F(MarkerPanel, ThePressedSliderScrollsAndChoosesNothing)
{
    Tool_Marker panel;
    lay_out(panel, scrolled);
    click_on(panel, 7);
    reports.clear();
    EXPECT_EQ(press_slider_bottom(panel), -1);
    EXPECT_EQ(
        traces(), (std::vector<std::string>{"in Tool_Marker::Click(up_down=0x00000012)", "in Tool_Marker::Draw()"}));
    EXPECT_EQ(panel.Read(), 7);
    grid.offset = 0;
    for (int marker = 8; marker < 16; ++marker)
        EXPECT_EQ(click_on(panel, marker), marker);
}

TEST_F(MarkerPanel, TheDraggedSliderScrollsAndMotionsAreNotTraced)
{
    Tool_Marker panel;
    lay_out(panel, scrolled);
    press_slider_bottom(panel);
    reports.clear();
    EXPECT_EQ(drag_slider_to_top(panel), 1);
    EXPECT_EQ(traces(), std::vector<std::string>{"in Tool_Marker::Draw()"});
    EXPECT_EQ(click_on(panel, 3), 3);
}

TEST_F(MarkerPanel, TheWheelScrollsOneRowANotchAndIsAlwaysUsed)
{
    Tool_Marker panel;
    lay_out(panel, scrolled);
    reports.clear();
    EXPECT_EQ(panel.Scroll(-1), 1);
    EXPECT_EQ(traces(), (std::vector<std::string>{"in Tool_Marker::Scroll(val=-1)", "in Tool_Marker::Draw()"}));
    grid.offset = 13;
    EXPECT_EQ(click_on(panel, 6), 6);
    EXPECT_EQ(panel.Scroll(-100), 1);
    EXPECT_EQ(panel.Scroll(-1), 1) << "at the end";
    grid.offset = 0;
    EXPECT_EQ(click_on(panel, 15), 15);
}

TEST_F(MarkerPanel, BelowFourMarkersTheRowsStayWhereTheyAre)
{
    Tool_Marker panel;
    lay_out(panel, scrolled);
    set_count(3);
    EXPECT_EQ(panel.Scroll(-5), 1);
    press_slider_bottom(panel);
    EXPECT_EQ(drag_slider_to_top(panel), 1);
    set_count(16);
    EXPECT_EQ(click_on(panel, 7), 7);
}

TEST_F(MarkerPanel, MotionHighlightsTheMarkerUnderThePointerOnly)
{
    Tool_Marker panel;
    lay_out(panel);
    point(main_window(), place_of(6));
    EXPECT_EQ(panel.Motion(0), 0);
    EXPECT_FALSE(shows(6, usual(6)));
    EXPECT_TRUE(shows(5, usual(5)));
    panel.Leave();
    EXPECT_TRUE(shows(6, usual(6)));
    EXPECT_TRUE(reports.all().empty()) << "neither is traced";
}

TEST_F(MarkerPanel, MotionAndLeaveReadTheCountEachTime)
{
    Tool_Marker panel;
    lay_out(panel);
    set_count(4);
    point(main_window(), place_of(6));
    panel.Motion(0);
    EXPECT_TRUE(shows(6, usual(6))) << "there are four markers only";
    set_count(16);
    panel.Motion(0);
    EXPECT_FALSE(shows(6, usual(6)));
    set_count(4);
    panel.Leave();
    EXPECT_FALSE(shows(6, usual(6)));
    set_count(16);
    panel.Leave();
    EXPECT_TRUE(shows(6, usual(6)));
}

// --------------------------------------------------------------------------------------------- the name editor

TEST_F(MarkerPanel, ARightPressOpensAnEditorOverTheMarker)
{
    set_label(9, "Apex");
    Tool_Marker panel;
    lay_out(panel);
    EXPECT_EQ(click_on(panel, 9, right_press), -1);
    EXPECT_TRUE(shows_editor(9, "Apex"));
    EXPECT_EQ(panel.Read(), 0);
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(MarkerPanel, RightPressOnMarkerZeroStartsNoEdit)
{
    Tool_Marker panel;
    lay_out(panel);
    EXPECT_EQ(click_on(panel, 0, right_press), 0);
    EXPECT_EQ(panel.Keyboard('x'), 0);
}

TEST_F(MarkerPanel, TheEditorFollowsThePanelToAnotherWindow)
{
    Tool_Marker panel;
    lay_out(panel);
    area.window = reference_window;
    panel.Resize(&area);
    point(reference_window, place_of(6));
    EXPECT_EQ(panel.Click(right_press), -1);
    const Texts* const editor = hostkit::Active_Text();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->window, reference_window);
    panel.Leave();
}

TEST_F(MarkerPanel, EnterStoresTheNameAndTellsEverybody)
{
    Tool_Marker panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    panel.Keyboard(backspace);
    type(panel, "Apex");
    EXPECT_EQ(label_text(6), "(none)");
    reports.clear();
    EXPECT_EQ(panel.Keyboard(enter), 1);
    EXPECT_EQ(label_text(6), "Apex");
    EXPECT_EQ(label_text(5), "(none)");
    EXPECT_EQ(broadcasts(), std::vector{labels_changed});
    EXPECT_EQ(reports.all(), (std::vector<Report>{{15, "in Tool_Marker::Keyboard(key=0x0000000d)"}}));
    leave(panel);
    EXPECT_TRUE(shows(6, usual(6)));
    EXPECT_EQ(panel.Keyboard('x'), 0) << "the editor is closed";
    EXPECT_EQ(click_on(panel, 6), 6);
}

TEST_F(MarkerPanel, AnEmptyNameOrEscapeKeepsTheOldOne)
{
    set_label(6, "Old");
    Tool_Marker panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    for (int i = 0; i < 3; ++i)
        panel.Keyboard(backspace);
    EXPECT_EQ(panel.Keyboard(enter), 1);
    EXPECT_EQ(label_text(6), "Old");
    click_on(panel, 6, right_press);
    type(panel, "er");
    EXPECT_EQ(panel.Keyboard(escape), 1);
    EXPECT_EQ(label_text(6), "Old");
    EXPECT_EQ(broadcasts(), (std::vector{labels_changed, labels_changed}));
    leave(panel);
    EXPECT_TRUE(shows(6, usual(6)));
}

TEST_F(MarkerPanel, ALongNameIsStoredWholeAndShownCutToThirtyNineBytes)
{
    const std::string long_name(45, 'i');
    Tool_Marker panel;
    lay_out(panel, {10, 20, 788, 97});
    click_on(panel, 6, right_press);
    panel.Keyboard(backspace);
    type(panel, long_name);
    panel.Keyboard(enter);
    EXPECT_EQ(label_text(6), long_name);
    EXPECT_EQ(caption_of(panel, 6), long_name.substr(0, 39));
    panel.Update(labels_changed);
    EXPECT_EQ(caption_of(panel, 6), long_name);
}

TEST_F(MarkerPanel, KeysAreUsedOnlyWhileEditing)
{
    Tool_Marker panel;
    lay_out(panel);
    EXPECT_EQ(panel.Keyboard('a'), 0);
    click_on(panel, 6, right_press);
    EXPECT_EQ(panel.Keyboard(0x70000 | 'b'), 1) << "the low 16 bits count";
    EXPECT_EQ(panel.Keyboard(enter), 1);
    EXPECT_EQ(label_text(6), "6b");
}

TEST_F(MarkerPanel, WithoutANameArrayKeysAreNotUsed)
{
    Tool_Marker panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    char** const kept = std::exchange(Array_Variable<char*>("$MARKER_LABEL"), nullptr);
    EXPECT_EQ(panel.Keyboard('x'), 0);
    EXPECT_EQ(panel.Keyboard(enter), 0);
    Array_Variable<char*>("$MARKER_LABEL") = kept;
    EXPECT_EQ(label_text(6), "(none)");
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(MarkerPanel, APressElsewhereScrollingOrLeavingCancelsTheEdit)
{
    for (int way = 0; way < 5; ++way) {
        Tool_Marker panel;
        lay_out(panel, scrolled);
        click_on(panel, 6, right_press);
        type(panel, "xyz");
        if (way == 0)
            EXPECT_EQ(click_on(panel, 5), 5);
        else if (way == 1)
            panel.Scroll(1);
        else if (way == 2)
            press_slider_bottom(panel);
        else if (way == 3)
            leave(panel);
        else
            lay_out(panel, scrolled);
        EXPECT_EQ(panel.Keyboard('x'), 0) << way;
        EXPECT_EQ(label_text(6), "(none)");
    }
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(MarkerPanel, ASecondRightPressMovesTheEditor)
{
    Tool_Marker panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    type(panel, "xyz");
    EXPECT_EQ(click_on(panel, 9, right_press), -1);
    EXPECT_TRUE(shows_editor(9, "9"));
    panel.Motion(0);
    EXPECT_TRUE(shows(6, usual(6)));
    type(panel, "b");
    panel.Keyboard(enter);
    EXPECT_EQ(label_text(6), "(none)");
    EXPECT_EQ(label_text(9), "9b");
}
