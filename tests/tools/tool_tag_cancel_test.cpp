#include "tests/tools/tag_panel_fixture.h"

using namespace test;
using hostkit::Tag_Label;
using hostkit::Variable;

namespace {

constexpr int enter = 13;

std::string label(unsigned tag)
{
    return Tag_Label(tag) ? Tag_Label(tag) : "(none)";
}

}

TEST_F(TagPanel, APressElsewhereCancelsTheEdit)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    type(panel, "xyz");
    EXPECT_EQ(click_on(panel, 9), 9);
    EXPECT_EQ(label(6), "(none)");
    EXPECT_TRUE(broadcasts().empty());
    EXPECT_TRUE(shows(6, usual(6))) << "drawn again";
    EXPECT_EQ(panel.Keyboard('x'), 0);
}

TEST_F(TagPanel, APressOnTheEditedTagCancelsAndChoosesIt)
{
    for (const int word : {left_press, right_press}) {
        Tool_Tag panel;
        lay_out(panel);
        click_on(panel, 6, right_press);
        EXPECT_EQ(click_on(panel, 6, word), 6) << word;
        EXPECT_EQ(panel.Keyboard('x'), 0);
    }
}

TEST_F(TagPanel, AnyWordButAPlainReleaseCancels)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    EXPECT_EQ(click_at(panel, {5, 5}, 0), -1);
    EXPECT_EQ(panel.Keyboard('x'), 1) << "the release of the press that opened it";
    EXPECT_EQ(click_at(panel, {5, 5}, 16), -1);
    EXPECT_EQ(panel.Keyboard('x'), 0);
}

TEST_F(TagPanel, ASecondRightPressMovesTheEditor)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    type(panel, "xyz");
    cover(main_window());
    EXPECT_EQ(click_on(panel, 9, right_press), -1);
    EXPECT_FALSE(covered(main_window(), grid.button(6))) << "drawn again";
    EXPECT_TRUE(shows_editor(9, "9"));
    panel.Motion(0);
    EXPECT_TRUE(shows(6, usual(6)));
    type(panel, "b");
    panel.Keyboard(enter);
    EXPECT_EQ(label(6), "(none)");
    EXPECT_EQ(label(9), "9b");
    EXPECT_EQ(click_on(panel, 6), 6);
    EXPECT_EQ(click_on(panel, 9), 9);
}

TEST_F(TagPanel, LeavingCancelsTheEdit)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    type(panel, "xyz");
    point(main_window(), {700, 700});
    panel.Leave();
    EXPECT_TRUE(shows(6, usual(6)));
    EXPECT_EQ(label(6), "(none)");
    EXPECT_EQ(panel.Keyboard('x'), 0);
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(TagPanel, ScrollingCancelsTheEdit)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    click_on(panel, 6, right_press);
    type(panel, "xyz");
    panel.Scroll(-1);
    EXPECT_EQ(panel.Keyboard('x'), 0);
    EXPECT_EQ(label(6), "(none)");
    panel.Scroll(5);
    leave(panel);
    EXPECT_TRUE(shows(6, usual(6)));
    EXPECT_EQ(click_on(panel, 6), 6);
}

TEST_F(TagPanel, PressingTheSliderCancelsTheEdit)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    click_on(panel, 6, right_press);
    EXPECT_EQ(press_slider_bottom(panel), -1);
    EXPECT_EQ(panel.Keyboard('x'), 0);
    drag_slider_to_top(panel);
    EXPECT_EQ(click_on(panel, 6), 6);
}

TEST_F(TagPanel, DraggingTheSliderCancelsAnEditBegunMeanwhile)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    press_slider_bottom(panel);
    grid.offset = 0;
    EXPECT_EQ(click_on(panel, 9, right_press), -1);
    EXPECT_EQ(panel.Keyboard('x'), 1);
    EXPECT_EQ(drag_slider_to_top(panel), 1);
    EXPECT_EQ(panel.Keyboard('x'), 0);
    EXPECT_EQ(label(9), "(none)");
}

TEST_F(TagPanel, MotionOverOtherTagsKeepsTheEdit)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    point(main_window(), place_of(3));
    EXPECT_EQ(panel.Motion(0), 0);
    EXPECT_EQ(panel.Motion(65), 0);
    EXPECT_EQ(panel.Keyboard('x'), 1);
}

TEST_F(TagPanel, AnEditedTagIsNotHighlighted)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    const auto before = picture(main_window(), grid.button(6));
    panel.Motion(0);
    EXPECT_EQ(picture(main_window(), grid.button(6)), before);
}

TEST_F(TagPanel, ALayoutClosesTheEditor)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    type(panel, "xyz");
    lay_out(panel, scrolled);
    EXPECT_EQ(panel.Keyboard('x'), 0);
    EXPECT_EQ(label(6), "(none)");
    leave(panel);
    EXPECT_TRUE(shows(6, usual(6)));
    EXPECT_EQ(click_on(panel, 6), 6);
}

TEST_F(TagPanel, AnEditOfATagThatIsGoneStoresNothing)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 13, right_press);
    type(panel, "b");
    Variable<unsigned short>("$TAG_NB") = 8;
    panel.Keyboard(enter);
    EXPECT_EQ(label(13), "(none)");
    EXPECT_EQ(panel.Keyboard('x'), 0) << "the editor is closed";
}

TEST_F(TagPanel, AnEditOfATagThatIsGoneIsCancelledLikeAnyOther)
{
    for (int way = 0; way < 4; ++way) {
        Variable<unsigned short>("$TAG_NB") = 16;
        Tool_Tag panel;
        lay_out(panel);
        click_on(panel, 13, right_press);
        Variable<unsigned short>("$TAG_NB") = 8;
        if (way == 0)
            panel.Leave();
        else if (way == 1)
            panel.Scroll(1);
        else if (way == 2)
            panel.Click(left_press);
        else
            lay_out(panel);
        EXPECT_EQ(panel.Keyboard('x'), 0) << way;
        EXPECT_EQ(label(13), "(none)");
    }
}
