#include "tests/frame/failing_memory.h"
#include "tests/tools/brush_panel_fixture.h"
#include "tests/tools/failing_strdup.h"
#include "tests/tools/tag_panel_fixture.h"

#include <cstdlib>
#include <cstring>
#include <new>

// Panels when memory runs out.

using namespace test;
using hostkit::Tag_Label;
using hostkit::Tag_Label_Set;
using hostkit::Variable;

namespace {

constexpr int enter = 13;

// Edits tag 6 and finishes while strdup fails.
int rename_without_memory(Tool_Tag& panel)
{
    for (const char letter : std::string("Liver"))
        panel.Keyboard(letter);
    const Failing_Strdup failing;
    return panel.Keyboard(enter);
}

}

TEST_F(TagPanel, AFailedStrdupIsReportedAndLeavesTheTagUnnamed)
{
    ASSERT_TRUE(Tag_Label_Set(6, "Old"));
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    EXPECT_EQ(rename_without_memory(panel), 0);
    EXPECT_EQ(
        reports.texts(1), (std::vector<std::string>{
                              "line 225  of tool_tag \nmemory error in strdup (var=(*TAG_Label_Pt)[Tag_Label_Cur])"}));
    EXPECT_EQ(reports.all().back().level, 1) << "the trace comes first";
    EXPECT_EQ(Tag_Label(6), nullptr);
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(TagPanel, AfterAFailedStrdupThePanelGoesOn)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    cover(main_window());
    rename_without_memory(panel);
    EXPECT_FALSE(covered(main_window(), grid.button(6))) << "the button is drawn";
    EXPECT_EQ(panel.Keyboard('x'), 0) << "the editor is closed";
    EXPECT_EQ(click_on(panel, 6), 6);
    EXPECT_EQ(click_on(panel, 6, right_press), -1);
    type(panel, "a");
    EXPECT_EQ(panel.Keyboard(enter), 1);
    ASSERT_NE(Tag_Label(6), nullptr);
    EXPECT_EQ(Tag_Label(6)[std::strlen(Tag_Label(6)) - 1], 'a');
    panel.Update(bit(47));
    leave(panel);
    EXPECT_TRUE(shows(6, usual(6)));
}

TEST_F(TagPanel, AnEmptyNameNeedsNoMemory)
{
    Tool_Tag panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    panel.Keyboard(8);
    const Failing_Strdup failing;
    EXPECT_EQ(panel.Keyboard(enter), 1);
    EXPECT_TRUE(reports.texts(1).empty());
}

TEST_F(TagPanel, WithoutMemoryForItsButtonsItIsAnEmptyPanel)
{
    for (int n = 1; n <= 2; ++n) {
        reports.clear();
        auto* const place = static_cast<Tool_Tag*>(std::malloc(sizeof(Tool_Tag)));
        {
            const Failing_New failing(n);
            new (place) Tool_Tag;
            EXPECT_TRUE(failing.has_failed()) << "allocation " << n;
        }
        Tool_Tag& panel = *place;
        expect_reports_of_new(reports.all(), "tool_tag");
        EXPECT_EQ(panel.Height(4), 97);
        lay_out(panel);
        EXPECT_EQ(click_on(panel, 6), -1);
        EXPECT_EQ(click_on(panel, 6, right_press), -1);
        EXPECT_EQ(panel.Motion(0), 0);
        EXPECT_EQ(panel.Keyboard('x'), 0);
        EXPECT_EQ(panel.Scroll(1), 1);
        Variable<unsigned short>("$TAG_CUR") = 3;
        panel.Update(~0ull);
        panel.Draw();
        panel.Leave();
        EXPECT_EQ(pixel(main_window(), place_of(6)), back);
        EXPECT_TRUE(reports.texts(1).empty());
        panel.~Tool_Tag();
        std::free(place);
    }
}

TEST_F(BrushPanel, WithoutMemoryItIsAnEmptyPanel)
{
    for (int n = 1; n <= 4; ++n) {
        reports.clear();
        auto* const place = static_cast<Tool_Brush*>(std::malloc(sizeof(Tool_Brush)));
        {
            const Failing_New failing(n);
            new (place) Tool_Brush;
            EXPECT_TRUE(failing.has_failed()) << "allocation " << n;
        }
        Tool_Brush& panel = *place;
        expect_reports_of_new(reports.all(), "tool_brush");
        EXPECT_EQ(panel.Height(), 40);
        lay_out(panel);
        panel.Update(~0ull);
        panel.Draw();
        panel.Motion(0);
        panel.Click(left_press);
        panel.Scroll(1);
        panel.Leave();
        EXPECT_TRUE(reports.texts(1).empty());
        panel.~Tool_Brush();
        std::free(place);
    }
}
