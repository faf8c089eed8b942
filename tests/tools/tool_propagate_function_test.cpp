#include "tests/tools/propagate_panel_fixture.h"

#include <climits>

using namespace test;
using hostkit::Object_Variable;
using hostkit::Variable;

// Carrying the segmentation over by the host's function.

namespace {

constexpr const char* no_function_text = "\xf1\x05WARNING:\x02 No function associated with propagate";

// What the function finds when it is called.
struct Seen {
    int lock = -1;
    bool waits = false;
    Strato_2D* shown = nullptr;
} seen;

Strato_Window* seen_window = nullptr;

HCURSOR cursor()
{
    const HCURSOR present = SetCursor(LoadCursorA(nullptr, IDC_ARROW));
    SetCursor(present);
    return present;
}

int look_around(void*, void*)
{
    seen = {Variable<unsigned char>("$INTERFACE_LOCK_FOCUS"), cursor() == LoadCursorA(nullptr, IDC_WAIT),
        hostkit::Window_Frame(seen_window)};
    return -5;
}

int answer_nine(void*, void*)
{
    return 9;
}

}

TEST_F(PropagatePanel, CarriesFromTheShownFrameToItsNeighbour)
{
    Tool_Propagate panel;
    prepare(panel);
    carry_result = 42;
    EXPECT_EQ(panel.Propagate(1), 42);
    EXPECT_EQ(calls, (std::vector<Call>{{frames[2], frames[3]}}));
    EXPECT_EQ(shown_index(), 3);
    EXPECT_TRUE(shows_list(3));
    EXPECT_EQ(broadcasts(), std::vector{frame_changed});
    EXPECT_EQ(panel.Propagate(-1), 42);
    EXPECT_EQ(calls.back(), (Call{frames[3], frames[2]})) << "the frame it went to is where it starts from";
    EXPECT_EQ(shown_index(), 2);
}

TEST_F(PropagatePanel, ReturnsWhatTheFunctionReturns)
{
    Tool_Propagate panel;
    prepare(panel);
    for (const int result : {0, 1, -1, INT_MIN}) {
        carry_result = result;
        EXPECT_EQ(panel.Propagate(1), result);
        panel.Propagate(-1);
    }
}

TEST_F(PropagatePanel, AtTheEndsNothingHappens)
{
    Tool_Propagate panel;
    prepare(panel);
    for (const int end : {0, 4}) {
        show(frames[static_cast<size_t>(end)]);
        panel.Update(frame_changed);
        cover(main_window());
        EXPECT_EQ(panel.Propagate(end == 0 ? -1 : 1), 0);
        EXPECT_TRUE(covered(main_window(), usual));
        EXPECT_EQ(shown_index(), end);
    }
    EXPECT_TRUE(calls.empty());
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(PropagatePanel, OneFrameOrNoneLeadsNowhere)
{
    show(make_series(1)[0]);
    Tool_Propagate panel;
    prepare(panel);
    EXPECT_EQ(panel.Propagate(1), 0);
    EXPECT_EQ(panel.Propagate(-1), 0);
    Tool_Propagate without;
    without.Set(carry);
    EXPECT_EQ(without.Propagate(1), 0);
    EXPECT_EQ(without.Propagate(-1), 0);
    EXPECT_TRUE(calls.empty());
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(PropagatePanel, NoDirectionIsNoWay)
{
    Tool_Propagate panel;
    prepare(panel);
    EXPECT_EQ(panel.Propagate(0), 0);
    EXPECT_TRUE(calls.empty());
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(PropagatePanel, ALongerStepMustEndWithinTheSeries)
{
    Tool_Propagate panel;
    prepare(panel);
    for (const int step : {3, -3, 100, INT_MAX, INT_MIN})
        EXPECT_EQ(panel.Propagate(step), 0) << step;
    EXPECT_TRUE(broadcasts().empty());
    EXPECT_EQ(panel.Propagate(2), 1);
    EXPECT_EQ(panel.Propagate(-4), 1);
    EXPECT_EQ(calls, (std::vector<Call>{{frames[2], frames[4]}, {frames[4], frames[0]}}));
}

TEST_F(PropagatePanel, TheFocusIsLockedAndTheCursorWaitsMeanwhile)
{
    Tool_Propagate panel;
    prepare(panel);
    panel.Set(look_around);
    seen_window = window;
    SetCursor(LoadCursorA(nullptr, IDC_CROSS));
    EXPECT_EQ(panel.Propagate(1), -5);
    EXPECT_EQ(seen.lock, 1);
    EXPECT_TRUE(seen.waits);
    EXPECT_EQ(seen.shown, frames[3]) << "the window shows the frame already";
    EXPECT_EQ(Variable<unsigned char>("$INTERFACE_LOCK_FOCUS"), 0) << "whatever the function returns";
    EXPECT_EQ(cursor(), LoadCursorA(nullptr, IDC_CROSS));
}

TEST_F(PropagatePanel, SetReplacesTheFunction)
{
    Tool_Propagate panel;
    prepare(panel);
    EXPECT_EQ(panel.Set(answer_nine), 1);
    EXPECT_EQ(panel.Propagate(1), 9);
    EXPECT_TRUE(calls.empty());
}

TEST_F(PropagatePanel, AFunctionTakenAwayLeavesTheWindowSwitchedAndIsReported)
{
    Tool_Propagate panel;
    prepare(panel);
    EXPECT_EQ(panel.Set(nullptr), 1);
    reports.clear();
    EXPECT_EQ(panel.Propagate(1), 0);
    EXPECT_EQ(reports.all(), (std::vector<Report>{{2, no_function_text}}));
    EXPECT_EQ(shown_index(), 3);
    EXPECT_TRUE(shows_list(3));
    EXPECT_EQ(Variable<unsigned char>("$INTERFACE_LOCK_FOCUS"), 0);

    panel.Set(carry);
    EXPECT_EQ(panel.Propagate(1), 1);
    EXPECT_EQ(calls, (std::vector<Call>{{frames[2], frames[4]}})) << "until it is told, it starts from where it was";
}

TEST_F(PropagatePanel, AtTheEndsAMissingFunctionIsNotReported)
{
    Tool_Propagate panel;
    prepare(panel);
    show(frames[4]);
    panel.Update(frame_changed);
    panel.Set(nullptr);
    reports.clear();
    EXPECT_EQ(panel.Propagate(1), 0);
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(PropagatePanel, WithoutAWindowOnlyTheListMoves)
{
    Tool_Propagate panel;
    prepare(panel);
    Object_Variable<Strato_Window>("$WINDOW_CUR") = nullptr;
    EXPECT_EQ(panel.Propagate(1), 0);
    EXPECT_TRUE(shows_list(3));
    EXPECT_TRUE(calls.empty());
    EXPECT_TRUE(broadcasts().empty());
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(PropagatePanel, PropagatingLeavesTheButtonsToTheChangeThatFollows)
{
    Tool_Propagate panel;
    prepare(panel);
    panel.Propagate(1);
    panel.Propagate(1);
    EXPECT_TRUE(shows_up(false));
    panel.Update(frame_changed);
    EXPECT_TRUE(shows_up(true));
    EXPECT_TRUE(shows_down(false));
}

TEST_F(PropagatePanel, AListChoiceLeavesWhereToStartFromToTheChangeThatFollows)
{
    Tool_Propagate panel;
    prepare(panel);
    choose(panel, 3);
    panel.Propagate(1);
    EXPECT_EQ(calls.back(), (Call{frames[2], frames[4]}));
    choose(panel, 1);
    panel.Update(frame_changed);
    panel.Propagate(1);
    EXPECT_EQ(calls.back(), (Call{frames[1], frames[2]}));
}

TEST_F(PropagatePanel, AHostThatTellsAtOnceChangesNothing)
{
    Tool_Propagate panel;
    prepare(panel);
    const auto at_once = hostkit::On_Update([&](unsigned long long flags) { panel.Update(flags); });
    EXPECT_EQ(panel.Propagate(1), 1);
    EXPECT_EQ(panel.Propagate(1), 1);
    EXPECT_EQ(calls, (std::vector<Call>{{frames[2], frames[3]}, {frames[3], frames[4]}}));
    EXPECT_EQ(shown_index(), 4);
    EXPECT_TRUE(shows_list(4));
    EXPECT_TRUE(shows_up(true));
}
