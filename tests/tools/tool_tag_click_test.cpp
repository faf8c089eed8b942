#include "tests/tools/tag_panel_fixture.h"

using namespace test;
using hostkit::Array_Variable;
using hostkit::Variable;

namespace {

struct Run {
    int tag;
    int y;
    int height;
};

/// The runs of equal answers along a column of a panel, from the bottom.
std::vector<Run> runs_in_column(Tool_Tag& panel, HWND window, int x, int from, int to)
{
    std::vector<Run> runs;
    for (int y = from; y < to; ++y) {
        point(window, {x, y});
        const int tag = panel.Click(left_press);
        if (!runs.empty() && runs.back().tag == tag)
            ++runs.back().height;
        else
            runs.push_back({tag, y, 1});
    }
    return runs;
}

}

TEST_F(TagPanel, ALeftPressChoosesATag)
{
    Tool_Tag panel;
    lay_out(panel);
    EXPECT_EQ(panel.Read(), 0);
    EXPECT_EQ(click_on(panel, 7), 7);
    EXPECT_EQ(panel.Read(), 7);
    EXPECT_EQ(click_on(panel, 0), 0);
    EXPECT_EQ(panel.Read(), 0);
}

TEST_F(TagPanel, ClickTracesItsWordAndNothingElse)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 7);
    click_on(panel, 7, 0);
    click_on(panel, 7, right_press);
    const std::vector<Report> expected{{16, "in Tool_Tag::Click(up_down=0x00000012)"},
        {16, "in Tool_Tag::Click(up_down=0x00000000)"}, {16, "in Tool_Tag::Click(up_down=0x00000042)"}};
    EXPECT_EQ(reports.all(), expected);
}

TEST_F(TagPanel, ChoosingWritesNoVariableAndSendsNothing)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 7);
    EXPECT_EQ(Variable<unsigned short>("$TAG_CUR"), 0);
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(TagPanel, AReleaseChangesNothing)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 7);
    cover(main_window());
    EXPECT_EQ(click_on(panel, 9, 0), -1);
    EXPECT_EQ(panel.Read(), 7);
    EXPECT_TRUE(covered(main_window(), {open.x, open.y, open.width, open.height}));
}

TEST_F(TagPanel, AMissChoosesNothing)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 7);
    EXPECT_EQ(click_at(panel, {5, 5}), -1);
    EXPECT_EQ(click_at(panel, {11, 30}), -1) << "the margin";
    EXPECT_EQ(panel.Read(), 7);
}

TEST_F(TagPanel, AnyPressButTheRightAloneChooses)
{
    Tool_Tag panel;
    lay_out(panel);
    int tag = 1;
    for (const int word : {18, 34, 50, 82, 98, 114, 2})
        EXPECT_EQ(click_on(panel, ++tag, word), tag) << word;
    EXPECT_EQ(panel.Keyboard('x'), 0) << "nothing is being edited";
}

TEST_F(TagPanel, WordsWithoutAPressChooseNothing)
{
    Tool_Tag panel;
    lay_out(panel);
    for (const int word : {16, 32, 64, 80})
        EXPECT_EQ(click_on(panel, 5, word), -1) << word;
    EXPECT_EQ(panel.Read(), 0);
}

TEST_F(TagPanel, AGreyedTagCanBeNeitherChosenNorRenamed)
{
    Array_Variable<unsigned char>("$TAG_LOCK")[5] = 1;
    Tool_Tag panel;
    lay_out(panel);
    panel.Update(bit(44));
    EXPECT_EQ(click_on(panel, 5), -1);
    EXPECT_EQ(click_on(panel, 5, right_press), -1);
    EXPECT_EQ(panel.Keyboard('x'), 0);
    EXPECT_EQ(panel.Read(), 0);
}

TEST_F(TagPanel, PressingTheSliderScrollsAndChoosesNothing)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    click_on(panel, 7);
    reports.clear();
    EXPECT_EQ(press_slider_bottom(panel), -1);
    EXPECT_EQ(traces(), (std::vector<std::string>{"in Tool_Tag::Click(up_down=0x00000012)", "in Tool_Tag::Draw()"}));
    EXPECT_EQ(panel.Read(), 7);
    leave(panel);
    grid.offset = 0;
    for (int tag = 8; tag < 16; ++tag) {
        EXPECT_TRUE(grid.visible(tag));
        EXPECT_TRUE(shows(tag, usual(tag))) << "tag " << tag;
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
    }
    leave(panel);
    EXPECT_TRUE(shows_slider(0));
}

TEST_F(TagPanel, DraggingTheSliderScrolls)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    press_slider_bottom(panel);
    reports.clear();
    EXPECT_EQ(drag_slider_to_top(panel), 1);
    EXPECT_EQ(traces(), (std::vector<std::string>{"in Tool_Tag::Draw()"})) << "motions are not traced";
    leave(panel);
    for (int tag = 0; tag < 8; ++tag) {
        EXPECT_TRUE(shows(tag, usual(tag))) << "tag " << tag;
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
    }
}

TEST_F(TagPanel, ADragEndsWithTheFirstMotionWithoutAButton)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    press_slider_bottom(panel);
    EXPECT_EQ(panel.Click(0), -1);
    EXPECT_EQ(panel.Motion(0), 0);
    EXPECT_EQ(drag_slider_to_top(panel), 0);
    grid.offset = 0;
    EXPECT_EQ(click_on(panel, 15), 15);
}

TEST_F(TagPanel, RowsStayAPitchApartWhereverTheThumbIs)
{
    Tool_Tag panel;
    Variable<unsigned short>("$TAG_NB") = 64;
    lay_out(panel, {10, -50, 428, 239}); // some rows lie below the window's lower edge
    for (int y = -46; y < 180; y += 3) {
        ASSERT_EQ(click_at(panel, {16, y}), -1);
        ASSERT_EQ(panel.Motion(17), 1) << y;
        panel.Motion(0);
        const auto runs = runs_in_column(panel, main_window(), 60, -46, 185);
        for (size_t i = 1; i + 1 < runs.size(); ++i)
            EXPECT_EQ(runs[i].height, 22) << "tag " << runs[i].tag << " at " << runs[i].y << ", thumb at " << y;
    }
}

TEST_F(TagPanel, ScrollingByTheSliderReadsTheRowHeightAgain)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    Variable<short>("$INTERFACE_BUTTON_DIM_SML") = 28;
    press_slider_bottom(panel);
    EXPECT_EQ(click_at(panel, {60, 24}), 12);
    EXPECT_EQ(click_at(panel, {60, 24 + 30}), 8);
}

TEST_F(TagPanel, ScrollingByTheSliderKeepsTheButtonsSize)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    Variable<short>("$INTERFACE_BUTTON_DIM_SML") = 28;
    press_slider_bottom(panel);
    EXPECT_EQ(hit_area(panel, {60, 30}), (Extent{34, 24, 100, 22})) << "only the rows' places are laid out again";
}

TEST_F(TagPanel, BelowFourTagsTheSliderOnlyRedraws)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    Variable<unsigned short>("$TAG_NB") = 3;
    EXPECT_EQ(press_slider_bottom(panel), -1);
    EXPECT_EQ(traces(), (std::vector<std::string>{"in Tool_Tag::Click(up_down=0x00000012)", "in Tool_Tag::Draw()"}));
    reports.clear();
    EXPECT_EQ(drag_slider_to_top(panel), 1);
    EXPECT_EQ(traces(), (std::vector<std::string>{"in Tool_Tag::Draw()"}));
    press_slider_bottom(panel);
    Variable<unsigned short>("$TAG_NB") = 16;
    EXPECT_EQ(click_on(panel, 7), 7) << "the rows are where they were";
}

TEST_F(TagPanel, TheWheelScrollsOneRowANotch)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    reports.clear();
    EXPECT_EQ(panel.Scroll(-1), 1);
    EXPECT_EQ(traces(), (std::vector<std::string>{"in Tool_Tag::Scroll(val=-1)", "in Tool_Tag::Draw()"}));
    grid.offset = 13;
    for (int tag = 4; tag < 12; ++tag) {
        EXPECT_TRUE(shows(tag, usual(tag))) << "tag " << tag;
        EXPECT_EQ(hit_area(panel, place_of(tag)), grid.button(tag)) << "tag " << tag;
    }
}

TEST_F(TagPanel, TheWheelStopsAtBothEnds)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    EXPECT_EQ(panel.Scroll(-5), 1);
    grid.offset = 0;
    EXPECT_EQ(click_on(panel, 15), 15);
    EXPECT_EQ(panel.Scroll(3), 1);
    grid.offset = 35;
    EXPECT_EQ(click_on(panel, 3), 3);
    EXPECT_EQ(panel.Scroll(3), 1) << "used even when nothing moves";
    EXPECT_EQ(click_on(panel, 3), 3);
}

TEST_F(TagPanel, TheWheelOverAnOpenGridMovesNothingButIsUsed)
{
    Tool_Tag panel;
    lay_out(panel);
    EXPECT_EQ(panel.Scroll(-2), 1);
    EXPECT_EQ(traces(), (std::vector<std::string>{"in Tool_Tag::Scroll(val=-2)", "in Tool_Tag::Draw()"}));
    EXPECT_EQ(hit_area(panel, place_of(15)), grid.button(15));
}

TEST_F(TagPanel, BelowFourTagsTheWheelLeavesTheRowsWhereTheyAre)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    Variable<unsigned short>("$TAG_NB") = 3;
    EXPECT_EQ(panel.Scroll(-5), 1);
    Variable<unsigned short>("$TAG_NB") = 16;
    EXPECT_EQ(click_on(panel, 7), 7);
}

TEST_F(TagPanel, MotionHighlightsTheTagUnderThePointerOnly)
{
    Tool_Tag panel;
    lay_out(panel);
    point(main_window(), place_of(6));
    EXPECT_EQ(panel.Motion(0), 0);
    EXPECT_FALSE(shows(6, usual(6)));
    EXPECT_TRUE(shows(5, usual(5)));
    point(main_window(), place_of(5));
    panel.Motion(0);
    EXPECT_TRUE(shows(6, usual(6)));
    EXPECT_FALSE(shows(5, usual(5)));
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(TagPanel, MotionOverATagIsNotUsed)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    for (const int word : {0, 17, 33, 65}) {
        point(main_window(), place_of(6));
        EXPECT_EQ(panel.Motion(word), 0) << word;
    }
}

TEST_F(TagPanel, LeaveTakesTheHighlightsAway)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    point(main_window(), place_of(6));
    panel.Motion(0);
    panel.Leave();
    EXPECT_TRUE(shows(6, usual(6)));
    point(main_window(), {grid.slider.x + 3, grid.slider.y + 3});
    panel.Motion(0);
    EXPECT_FALSE(shows_slider(35));
    panel.Leave();
    EXPECT_TRUE(shows_slider(35));
    EXPECT_TRUE(reports.all().empty()) << "neither is traced";
}

TEST_F(TagPanel, LeaveDropsTheSlider)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    press_slider_bottom(panel);
    panel.Leave();
    EXPECT_EQ(drag_slider_to_top(panel), 0);
}

TEST_F(TagPanel, BeforeItsLayoutItTakesNoEvents)
{
    Tool_Tag panel;
    cover(main_window());
    point(main_window(), {0, 0});
    EXPECT_EQ(panel.Click(left_press), -1);
    EXPECT_EQ(panel.Click(right_press), -1);
    EXPECT_EQ(panel.Motion(0), 0);
    EXPECT_EQ(panel.Motion(17), 0);
    EXPECT_EQ(panel.Keyboard('a'), 0);
    EXPECT_EQ(panel.Scroll(1), 1);
    panel.Draw();
    panel.Leave();
    EXPECT_EQ(panel.Read(), 0);
    EXPECT_TRUE(broadcasts().empty());
    EXPECT_TRUE(reports.texts(11).empty()) << "no drawing context was asked for";
    EXPECT_TRUE(covered(main_window(), {0, 0, 500, 300}));
}

TEST_F(TagPanel, ReadIsNotTraced)
{
    Tool_Tag panel;
    panel.Read();
    EXPECT_TRUE(reports.all().empty());
}
