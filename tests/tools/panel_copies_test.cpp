#include "tests/tools/brush_panel_fixture.h"
#include "tests/tools/marker_panel_fixture.h"
#include "tests/tools/propagate_panel_fixture.h"
#include "tests/tools/tag_panel_fixture.h"

#include <memory>
#include <optional>

using namespace test;
using hostkit::Variable;

namespace {

constexpr auto current_tag = bit(22);
constexpr int enter = 13;

}

TEST_F(TagPanel, ACopyIsLaidOutAsItsSource)
{
    Tool_Tag panel(Tool_Tag::marks_locked);
    lay_out(panel, scrolled, 66 | 0x100000);
    panel.Scroll(-1);
    click_on(panel, 6);
    Tool_Tag copy(panel);
    EXPECT_EQ(copy.Read(), panel.Read());
    grid.offset = 13;
    for (int tag = 0; tag < 16; ++tag)
        EXPECT_EQ(click_on(copy, tag), grid.visible(tag) ? tag : -1);
    hostkit::Tag_Lock(5, true);
    copy.Update(bit(44));
    leave(copy);
    EXPECT_TRUE(shows(5, pressed(5))) << "the options are copied";
}

TEST_F(TagPanel, CopiesShareTheirButtons)
{
    Tool_Tag panel;
    lay_out(panel);
    Tool_Tag copy(panel);
    Variable<unsigned short>("$TAG_CUR") = 5;
    copy.Update(current_tag);
    cover(main_window());
    panel.Draw();
    EXPECT_TRUE(shows(5, current(5)));
    EXPECT_EQ(copy.Read(), 5);
    EXPECT_EQ(panel.Read(), 0) << "numbers are each panel's own";
}

TEST_F(TagPanel, ACopyKeepsItsOwnSlider)
{
    Tool_Tag panel;
    lay_out(panel, scrolled);
    Tool_Tag copy(panel);
    panel.Scroll(-5);
    EXPECT_EQ(copy.Scroll(-1), 1);
    grid.offset = 13;
    EXPECT_EQ(click_on(copy, 6), 6);
}

TEST_F(TagPanel, ACopyContinuesAnEdit)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    Tool_Tag copy(panel);
    copy.Keyboard('a');
    EXPECT_EQ(copy.Keyboard(enter), 1);
    EXPECT_STREQ(hostkit::Tag_Label(6), "6a");
}

TEST_F(TagPanel, AssignmentTakesEverythingOver)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6);
    Tool_Tag other(0);
    other = panel;
    EXPECT_EQ(other.Read(), 6);
    EXPECT_EQ(click_on(other, 9), 9);
    hostkit::Tag_Lock(5, true);
    other.Update(bit(44));
    EXPECT_EQ(click_on(panel, 5), -1) << "options and buttons are the source's";
}

TEST_F(TagPanel, SelfAssignmentIsHarmless)
{
    Tool_Tag panel;
    lay_out(panel);
    Tool_Tag& same = panel;
    panel = same;
    EXPECT_EQ(click_on(panel, 9), 9);
}

TEST_F(TagPanel, ButtonsLiveAsLongAsTheLastCopy)
{
    auto panel = std::make_unique<Tool_Tag>();
    lay_out(*panel);
    std::optional<Tool_Tag> copy(*panel);
    Tool_Tag assigned;
    assigned = *copy;
    panel.reset();
    EXPECT_EQ(click_on(*copy, 9), 9);
    copy.reset();
    EXPECT_EQ(click_on(assigned, 8), 8);
}

TEST_F(TagPanel, ACopyOfAPanelWithoutLayoutIsOneToo)
{
    const Tool_Tag panel;
    Tool_Tag copy(panel);
    EXPECT_EQ(copy.Click(left_press), -1);
    lay_out(copy);
    EXPECT_EQ(click_on(copy, 9), 9);
}

TEST_F(BrushPanel, CopiesShareTheirButtons)
{
    Tool_Brush panel;
    lay_out(panel);
    Tool_Brush copy(panel);
    EXPECT_EQ(click_on(copy, 3), 1);
    leave(copy);
    cover(main_window());
    panel.Draw();
    EXPECT_TRUE(shows(3, {170, 170, 170}, State::current));
    EXPECT_EQ(copy.Read(), 3);
    EXPECT_EQ(panel.Read(), 0);
}

TEST_F(BrushPanel, CopiesShareTheSizesTheyKeep)
{
    Tool_Brush panel;
    lay_out(panel);
    panel.Update(brushes_changed);
    Tool_Brush copy(panel);
    reports.clear();
    copy.Update(brushes_changed);
    EXPECT_EQ(traces(), std::vector<std::string>{"16 in Tool_Brush::Update()"}) << "the set is known";
}

TEST_F(BrushPanel, AssignmentTakesEverythingOver)
{
    Tool_Brush panel;
    lay_out(panel);
    click_on(panel, 3);
    Tool_Brush other;
    other = panel;
    Tool_Brush& same = other;
    other = same;
    EXPECT_EQ(other.Read(), 3);
    EXPECT_EQ(click_on(other, 4), 1);
}

TEST_F(BrushPanel, ButtonsLiveAsLongAsTheLastCopy)
{
    auto panel = std::make_unique<Tool_Brush>();
    lay_out(*panel);
    std::optional<Tool_Brush> copy(*panel);
    Tool_Brush assigned;
    assigned = *copy;
    panel.reset();
    EXPECT_EQ(click_on(*copy, 2), 1);
    copy.reset();
    EXPECT_EQ(click_on(assigned, 1), 1);
    assigned.Update(everything);
}

TEST_F(MarkerPanel, CopiesShareTheirButtons)
{
    auto panel = std::make_unique<Tool_Marker>();
    lay_out(*panel);
    Tool_Marker copy(*panel);
    set_current(5);
    copy.Update(current_tag);
    cover(main_window());
    panel->Draw();
    EXPECT_TRUE(shows(5, current(5)));
    EXPECT_EQ(copy.Read(), 5);
    EXPECT_EQ(panel->Read(), 0);
    Tool_Marker assigned;
    assigned = copy;
    Tool_Marker& same = assigned;
    assigned = same;
    panel.reset();
    EXPECT_EQ(click_on(assigned, 9), 9);
    EXPECT_EQ(assigned.Read(), 9);
    EXPECT_EQ(copy.Read(), 5);
}

TEST_F(MarkerPanel, ACopyContinuesAnEdit)
{
    Tool_Marker panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    Tool_Marker copy(panel);
    copy.Keyboard('a');
    EXPECT_EQ(copy.Keyboard(enter), 1);
    EXPECT_EQ(label_text(6), "6a");
}

TEST_F(PropagatePanel, ACopyKnowsFramesAndFunctionAndHasWidgetsOfItsOwn)
{
    auto panel = std::make_unique<Tool_Propagate>();
    prepare(*panel);
    Tool_Propagate copy(*panel);
    Tool_Propagate assigned;
    assigned = copy;
    Tool_Propagate& same = assigned;
    assigned = same;
    EXPECT_EQ(panel->Propagate(1), 1);
    EXPECT_EQ(panel->Propagate(1), 1);
    EXPECT_EQ(panel->Propagate(1), 0);
    panel.reset();
    EXPECT_EQ(copy.Propagate(1), 1) << "its list still names the third frame";
    EXPECT_EQ(calls.back(), (Call{frames[2], frames[3]}));
    EXPECT_EQ(press_down(assigned), 1);
    EXPECT_EQ(calls.back(), (Call{frames[2], frames[1]}));
    assigned.Draw();
    EXPECT_TRUE(shows_list(1));
}

TEST_F(PropagatePanel, ACopyOfAPanelWithoutLayoutIsOneToo)
{
    const Tool_Propagate panel;
    Tool_Propagate copy(panel);
    EXPECT_EQ(copy.Click(left_press), 0);
    prepare(copy);
    EXPECT_EQ(press_up(copy), 1);
}
