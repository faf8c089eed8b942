#include "tests/frame/failing_memory.h"
#include "tests/tools/failing_strdup.h"
#include "tests/tools/marker_panel_fixture.h"

#include <new>

using namespace test;

namespace {

constexpr int enter = 13;

}

TEST_F(MarkerPanel, AFailedStrdupIsReportedAndLeavesTheMarkerUnnamed)
{
    set_label(6, "Old");
    Tool_Marker panel;
    lay_out(panel);
    click_on(panel, 6, right_press);
    type(panel, "er");
    cover(main_window());
    {
        const Failing_Strdup failing;
        EXPECT_EQ(panel.Keyboard(enter), 0);
    }
    EXPECT_EQ(reports.texts(1),
        (std::vector<std::string>{
            "line 236  of tool_marker \nmemory error in strdup (var=(*Marker_Label_Pt)[ID_Label_Cur])"}));
    EXPECT_EQ(reports.all().back().level, 1) << "the trace comes first";
    EXPECT_EQ(label_text(6), "(none)");
    EXPECT_TRUE(broadcasts().empty());
    EXPECT_FALSE(covered(main_window(), grid.button(6))) << "the button is drawn";
    EXPECT_EQ(panel.Keyboard('x'), 0) << "the editor is closed";
    EXPECT_EQ(click_on(panel, 6), 6);
}

TEST_F(MarkerPanel, WithoutMemoryForItsButtonsItIsAnEmptyPanel)
{
    for (int n = 1; n <= 2; ++n) {
        reports.clear();
        alignas(Tool_Marker) unsigned char place[sizeof(Tool_Marker)];
        {
            const Failing_New failing(n);
            new (place) Tool_Marker;
            EXPECT_TRUE(failing.has_failed()) << "allocation " << n;
        }
        auto& panel = *std::launder(reinterpret_cast<Tool_Marker*>(place));
        expect_reports_of_new(reports.all(), "tool_marker");
        lay_out(panel);
        EXPECT_EQ(click_on(panel, 6), -1);
        EXPECT_EQ(click_on(panel, 6, right_press), -1);
        EXPECT_EQ(panel.Motion(0), 0);
        EXPECT_EQ(panel.Keyboard('x'), 0);
        EXPECT_EQ(panel.Scroll(1), 1);
        panel.Update(~0ull);
        panel.Draw();
        panel.Leave();
        EXPECT_EQ(pixel(main_window(), place_of(6)), back);
        EXPECT_TRUE(reports.texts(1).empty());
        panel.~Tool_Marker();
    }
}
