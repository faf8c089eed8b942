#include "tests/tools/propagate_panel_fixture.h"

using namespace test;
using hostkit::Array_Variable;
using hostkit::Object_Variable;
using hostkit::Variable;

namespace {

constexpr auto frame_tree = bit(1) | bit(10);

}

TEST_F(PropagatePanel, ReactsToFramesTreesAndFullRefreshesOnly)
{
    Tool_Propagate panel;
    prepare(panel);
    const auto reacts = [&](unsigned long long flags) {
        show(frames[2]);
        panel.Update(frame_changed);
        show(frames[3]);
        panel.Update(flags);
        return shows_list(3);
    };
    for (int number = 0; number < 64; ++number)
        EXPECT_EQ(reacts(bit(number)), number == 21 || number == 60) << number;
    EXPECT_TRUE(reacts(frame_tree));
    EXPECT_TRUE(reacts(frame_tree | bit(8)));
    EXPECT_FALSE(reacts(~(bit(1) | bit(21) | bit(60))));
    EXPECT_FALSE(reacts(~(bit(10) | bit(21) | bit(60))));
    EXPECT_FALSE(reacts(0));
}

TEST_F(PropagatePanel, SendsNothing)
{
    Tool_Propagate panel;
    prepare(panel);
    panel.Update(~0ull);
    EXPECT_TRUE(broadcasts().empty());
    EXPECT_TRUE(calls.empty());
}

TEST_F(PropagatePanel, FollowsTheWindowToAnotherFrame)
{
    Tool_Propagate panel;
    prepare(panel);
    show(frames[3]);
    panel.Update(frame_changed);
    EXPECT_TRUE(shows_list(3));
    panel.Propagate(-1);
    EXPECT_EQ(calls.back(), (Call{frames[3], frames[2]}));
}

TEST_F(PropagatePanel, FollowsTheCurrentWindow)
{
    Tool_Propagate panel;
    prepare(panel);
    Strato_Window* const other = hostkit::Window_Add("other");
    Fct_Change_Child(other, frames[0], nullptr);
    Object_Variable<Strato_Window>("$WINDOW_CUR") = other;
    panel.Update(everything);
    EXPECT_TRUE(shows_list(0));
    EXPECT_TRUE(shows_down(true));
    panel.Propagate(1);
    EXPECT_EQ(hostkit::Window_Frame(other), frames[1]);
    EXPECT_EQ(hostkit::Window_Frame(window), frames[2]);
}

// ------------------------------------------------------------------------------------------- what is drawn again

TEST_F(PropagatePanel, WithoutAChangeNothingIsDrawn)
{
    Tool_Propagate panel;
    prepare(panel);
    cover(main_window());
    panel.Update(frame_changed);
    panel.Update(everything);
    EXPECT_TRUE(covered(main_window(), usual));
}

TEST_F(PropagatePanel, AnotherFrameInTheMiddleDrawsTheListOnly)
{
    Tool_Propagate panel;
    prepare(panel);
    cover(main_window());
    show(frames[3]);
    panel.Update(frame_changed);
    EXPECT_TRUE(shows_list(3));
    EXPECT_TRUE(covered(main_window(), up()));
    EXPECT_TRUE(covered(main_window(), down()));
}

TEST_F(PropagatePanel, AtAnEndTheButtonThatChangesIsDrawnAndTheOtherLeftAlone)
{
    Tool_Propagate panel;
    prepare(panel);
    cover(main_window());
    show(frames[4]);
    panel.Update(frame_changed);
    EXPECT_TRUE(shows_up(true));
    EXPECT_TRUE(covered(main_window(), down()));

    cover(main_window());
    show(frames[0]);
    panel.Update(frame_changed);
    EXPECT_TRUE(shows_up(false));
    EXPECT_TRUE(shows_down(true));

    cover(main_window());
    show(frames[1]);
    panel.Update(frame_changed);
    EXPECT_TRUE(shows_down(false));
    EXPECT_TRUE(covered(main_window(), up()));
}

TEST_F(PropagatePanel, AGreyedButtonTakesNoPressAndComesBack)
{
    Tool_Propagate panel;
    prepare(panel);
    show(frames[4]);
    panel.Update(frame_changed);
    EXPECT_EQ(press_up(panel), 0);
    show(frames[3]);
    panel.Update(frame_changed);
    EXPECT_EQ(press_up(panel), 1);
}

// ------------------------------------------------------------------------------------------------------- counts

TEST_F(PropagatePanel, FramesThatComeAndGoChangeTheList)
{
    Tool_Propagate panel;
    prepare(panel);
    hostkit::Frame_Add(frames[0]->Parent_Get_Pt(), {.class_a = hostkit::frame_class});
    show(frames[4]);
    panel.Update(frame_tree);
    EXPECT_TRUE(shows_list(4));
    EXPECT_TRUE(shows_up(false)) << "there is a sixth frame";
    EXPECT_EQ(choose(panel, 5), 1);
    EXPECT_EQ(shown_index(), 5);

    hostkit::Object_2D_Remove(frames[0]->Parent_Get_Pt()->Child_Get_Pt(5));
    show(frames[4]);
    panel.Update(frame_tree);
    EXPECT_TRUE(shows_up(true));
    EXPECT_EQ(choose(panel, 5), 1);
    EXPECT_EQ(shown_index(), 4) << "no such item any more";
}

TEST_F(PropagatePanel, ASeriesOfOneFrameGreysBothButtonsAndKeepsTheList)
{
    Tool_Propagate panel;
    prepare(panel);
    show(make_series(1)[0]);
    panel.Update(frame_changed);
    EXPECT_TRUE(shows_list(0));
    EXPECT_TRUE(shows_up(true));
    EXPECT_TRUE(shows_down(true));
    keep_picture(main_window(), "propagate_panel_one_frame");
}

TEST_F(PropagatePanel, AnotherSeriesOfTheSameLengthIsFollowed)
{
    Tool_Propagate panel;
    prepare(panel);
    const std::vector<Strato_2D*> others = make_series(5);
    show(others[2]);
    cover(main_window());
    panel.Update(frame_changed);
    EXPECT_TRUE(covered(main_window(), usual)) << "it looks the same";
    panel.Propagate(1);
    EXPECT_EQ(calls.back(), (Call{others[2], others[3]}));
}

TEST_F(PropagatePanel, HoldsTheLongestSeries)
{
    const std::vector<Strato_2D*> many = make_series(65535);
    show(many[65534]);
    Tool_Propagate panel;
    prepare(panel);
    EXPECT_TRUE(shows_list(65534));
    EXPECT_TRUE(shows_up(true));
    panel.Propagate(-1);
    EXPECT_EQ(hostkit::Window_Frame(window), many[65533]);
    EXPECT_EQ(press_key(panel, 2083), 1);
    EXPECT_EQ(hostkit::Window_Frame(window), many[65534]);
}

// ------------------------------------------------------------------------------------------------ nothing there

TEST_F(PropagatePanel, WithoutAWindowFrameOrFunctionEverythingIsGreyed)
{
    for (int missing = 0; missing < 5; ++missing) {
        Tool_Propagate panel;
        prepare(panel);
        ASSERT_TRUE(shows_list(2));
        Strato_2D** const shown = Array_Variable<Strato_2D*>("$FRAME_CUR");
        if (missing == 0)
            panel.Set(nullptr);
        else if (missing == 1)
            Object_Variable<Strato_Window>("$WINDOW_CUR") = nullptr;
        else if (missing == 2)
            Array_Variable<Strato_2D*>("$FRAME_CUR") = nullptr;
        else if (missing == 3)
            shown[window->Class_B_Get()] = nullptr;
        else
            shown[window->Class_B_Get()] = hostkit::Root_2D(); // which has no parent
        panel.Update(frame_changed);
        EXPECT_TRUE(shows_list(-1, true)) << missing;
        EXPECT_TRUE(shows_up(true)) << missing;
        EXPECT_TRUE(shows_down(true)) << missing;
        EXPECT_EQ(panel.Propagate(1), 0);
        EXPECT_EQ(press_key(panel, 2083), 0);
        keep_picture(main_window(), "propagate_panel_greyed");

        cover(main_window());
        panel.Update(frame_changed);
        EXPECT_TRUE(covered(main_window(), usual)) << "drawn once";

        Object_Variable<Strato_Window>("$WINDOW_CUR") = window;
        Array_Variable<Strato_2D*>("$FRAME_CUR") = shown;
        show(frames[2]);
        panel.Set(carry);
        panel.Update(everything);
        EXPECT_TRUE(shows_list(2)) << "it comes back";
        EXPECT_TRUE(shows_up(false));
        EXPECT_TRUE(shows_down(false));
    }
    EXPECT_TRUE(calls.empty());
}

TEST_F(PropagatePanel, AFunctionInstalledLaterIsNoticedWithTheNextRefresh)
{
    Tool_Propagate panel;
    lay_out(panel);
    panel.Update(everything);
    EXPECT_TRUE(shows_list(-1, true));
    panel.Set(carry);
    EXPECT_TRUE(shows_list(-1, true));
    panel.Update(everything);
    EXPECT_TRUE(shows_list(2));
}

TEST_F(PropagatePanel, ASeriesTakenOutOfTheTreeIsForgotten)
{
    Tool_Propagate panel;
    prepare(panel);
    const auto following = hostkit::On_Update([&](unsigned long long flags) { panel.Update(flags); });
    hostkit::Object_2D_Remove(frames[0]->Parent_Get_Pt());
    EXPECT_TRUE(shows_list(-1, true));
    EXPECT_EQ(press_up(panel), 0);
    EXPECT_EQ(panel.Propagate(1), 0);
}
