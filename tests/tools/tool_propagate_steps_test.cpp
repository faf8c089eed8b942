// What the propagate panel asks of a host, step by step, and a host with odd answers.

#include "host/basics.h"
#include "hostkit/gadgets/select_chooser.h"
#include "tests/tools/own_registry.h"
#include "tools/tool_propagate.h"

#include <gtest/gtest.h>

using namespace own_registry;

namespace {

constexpr unsigned window_number = 3;
constexpr unsigned long long everything = 1ull << 60;
constexpr unsigned long long frame_changed = 1ull << 21;

std::vector<Changed_Child> changed;
std::vector<Changed_Child> changed_before_call;

struct Call {
    void* from;
    void* to;
    bool operator==(const Call&) const = default;
};
std::vector<Call> calls;

int carry(void* from, void* to)
{
    changed_before_call = changed;
    calls.push_back({from, to});
    return 1;
}

// No window is needed: only what is asked of the host is looked at.
class PropagateSteps : public ::testing::Test {
protected:
    PropagateSteps()
    {
        changed.clear();
        changed_before_call.clear();
        calls.clear();
        shown[window_number] = frame(2);
        define_array("$FRAME_CUR", shown);
        define_array("$WINDOW_CUR", window);
        set_shown_index(2);
        on_change_child([this](const Changed_Child& change) {
            changed.push_back(change);
            if (delivers_at_once) {
                shown[window_number] = change.shown;
                panel.Update(frame_changed);
            }
        });
        panel.Set(carry);
        panel.Update(everything);
    }

    ~PropagateSteps() override { on_change_child({}); }

    Strato_2D* frame(int index) const { return series->Child_Get_Pt(index); }

    Strato_2D* series = make_series(5);
    Strato_Window* window = make_window(window_number);
    Strato_2D* shown[8] = {};
    Tool_Propagate panel;
    bool delivers_at_once = false;
};

}

TEST_F(PropagateSteps, WithoutALockVariableItPropagatesAllTheSame)
{
    EXPECT_EQ(panel.Propagate(1), 1); // first of all: the variable does not exist yet
    EXPECT_EQ(calls, (std::vector<Call>{{frame(2), frame(3)}}));
    EXPECT_TRUE(asked_to_create().empty());
    define_byte("$INTERFACE_LOCK_FOCUS", 0);
}

TEST_F(PropagateSteps, TheWindowIsSwitchedFromTheShownFrameBeforeTheFunctionIsCalled)
{
    set_shown_index(3);
    panel.Propagate(1);
    const std::vector<Changed_Child> expected{{window, frame(3), frame(2)}};
    EXPECT_EQ(changed, expected);
    EXPECT_EQ(changed_before_call, expected);
    panel.Propagate(-1);
    EXPECT_EQ(changed.back(), (Changed_Child{window, frame(2), frame(3)}));
    EXPECT_TRUE(take_sent().empty());
}

TEST_F(PropagateSteps, AHostThatTellsAtOnceDoesNotChangeWhereItStartsFrom)
{
    delivers_at_once = true;
    panel.Propagate(1);
    EXPECT_EQ(calls, (std::vector<Call>{{frame(2), frame(3)}}));
    EXPECT_EQ(changed, (std::vector<Changed_Child>{{window, frame(3), frame(2)}}));
}

TEST_F(PropagateSteps, TheHostHasTheLastWordOnTheShownIndex)
{
    set_shown_index(0); // whatever it was asked for
    panel.Propagate(1);
    EXPECT_EQ(panel.Propagate(-1), 0) << "at the first frame";
    EXPECT_EQ(panel.Propagate(1), 1);
    EXPECT_EQ(calls.back().to, frame(1));
}

TEST_F(PropagateSteps, OddShownIndicesAreTheNearestFrames)
{
    for (const int below : {-1, -70000}) {
        set_shown_index(below);
        panel.Update(frame_changed);
        EXPECT_EQ(panel.Propagate(-1), 0) << below;
    }
    for (const int beyond : {5, 65536, 70000}) {
        set_shown_index(beyond);
        panel.Update(frame_changed);
        EXPECT_EQ(panel.Propagate(1), 0) << beyond;
        EXPECT_EQ(panel.Propagate(-1), 1);
        EXPECT_EQ(calls.back().to, frame(3)) << beyond;
    }
}

TEST_F(PropagateSteps, AFrameThatTheSeriesHasLostIsNotGoneTo)
{
    cut_series(series, 3); // and the change is not told yet
    EXPECT_EQ(panel.Propagate(1), 0);
    EXPECT_TRUE(changed.empty());
    EXPECT_TRUE(calls.empty());
}
