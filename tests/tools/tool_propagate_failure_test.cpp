#include "tests/frame/failing_memory.h"
#include "tests/tools/propagate_panel_fixture.h"

using namespace test;

TEST_F(PropagatePanel, WithoutMemoryForItsListItStillPropagates)
{
    Tool_Propagate panel;
    panel.Set(carry);
    lay_out(panel);
    bool failed; // where libraries have an allocator of their own the list gets its memory
    {
        const Failing_New failing(1);
        panel.Update(everything);
        failed = failing.has_failed();
    }
    EXPECT_TRUE(reports.texts(1).empty());
    EXPECT_EQ(press_at(panel, middle(list())), !failed) << "a list without items takes nothing";
    EXPECT_EQ(press_up(panel), 1);
    EXPECT_EQ(calls, (std::vector<Call>{{frames[2], frames[3]}}));
    panel.Draw();
    show(make_series(3)[1]);
    panel.Update(frame_changed);
    EXPECT_TRUE(shows_list(1)) << "with memory it is whole again";
}
