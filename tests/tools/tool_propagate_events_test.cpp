#include "hostkit/gadgets/select_chooser.h"
#include "tests/tools/propagate_panel_fixture.h"

using namespace test;
using hostkit::Object_Variable;
using hostkit::Variable;

namespace {

struct Key_Case {
    int key;
    int to; // from frame 2 of 30
};

constexpr Key_Case moving_keys[] = {
    {2084, 0}, {2083, 29}, {2081, 0}, {2082, 12}, {2085, 1}, {2094, 1}, {2087, 3}, {2093, 3}};

}

// ------------------------------------------------------------------------------------------------------- clicks

TEST_F(PropagatePanel, AReleaseIsNotUsed)
{
    Tool_Propagate panel;
    prepare(panel);
    cover(main_window());
    for (const Extent& place : {down(), list(), up()})
        EXPECT_EQ(click_at(panel, middle(place), 0), 0);
    EXPECT_TRUE(covered(main_window(), usual));
    EXPECT_TRUE(calls.empty());
}

TEST_F(PropagatePanel, WordsWithoutAPressAndMissesAreNotUsed)
{
    Tool_Propagate panel;
    prepare(panel);
    for (const int word : {16, 32, 64})
        EXPECT_EQ(click_at(panel, middle(up()), word), 0) << word;
    EXPECT_EQ(click_at(panel, {12, 22}), 0);
    EXPECT_EQ(click_at(panel, {65, 30}), 0) << "between two widgets";
    EXPECT_TRUE(calls.empty());
    EXPECT_EQ(shown_index(), 2);
}

TEST_F(PropagatePanel, ThePressedListOffersTheFramesCountedFromOne)
{
    Tool_Propagate panel;
    prepare(panel);
    int asked = 0;
    hostkit::Set_Select_Chooser([&](const Selects& select) {
        ++asked;
        EXPECT_EQ(select.Count(), 5);
        EXPECT_STREQ(select.Item(0), "1");
        EXPECT_STREQ(select.Item(4), "5");
        EXPECT_STREQ(select.name.get(), " Frame: ");
        EXPECT_EQ(select.value, 2);
        return -1;
    });
    EXPECT_EQ(click_at(panel, middle(list())), 1);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(broadcasts().empty()) << "nothing was chosen";
}

TEST_F(PropagatePanel, AChosenFrameIsShownAndNothingIsCarried)
{
    Tool_Propagate panel;
    prepare(panel);
    EXPECT_EQ(choose(panel, 4), 1);
    EXPECT_EQ(shown_index(), 4);
    EXPECT_EQ(broadcasts(), std::vector{frame_changed});
    EXPECT_TRUE(calls.empty());
    leave(panel);
    EXPECT_TRUE(shows_list(4));
    EXPECT_TRUE(shows_up(false)) << "the change that follows greys it";
}

TEST_F(PropagatePanel, ChoosingTheSameFrameShowsItAgain)
{
    Tool_Propagate panel;
    prepare(panel);
    EXPECT_EQ(choose(panel, 2), 1);
    EXPECT_EQ(shown_index(), 2);
    EXPECT_EQ(broadcasts(), std::vector{frame_changed});
}

TEST_F(PropagatePanel, AnyButtonOpensTheListAndPressesTheButtons)
{
    Tool_Propagate panel;
    prepare(panel);
    for (const int word : {18, 34, 66}) {
        hostkit::Set_Select_Chooser([](const Selects&) { return 1; });
        EXPECT_EQ(click_at(panel, middle(list()), word), 1);
        EXPECT_EQ(shown_index(), 1);
        panel.Update(frame_changed);
        EXPECT_EQ(click_at(panel, middle(up()), word), 1);
        EXPECT_EQ(shown_index(), 2);
        panel.Update(frame_changed);
    }
    EXPECT_EQ(calls.size(), 3u);
}

TEST_F(PropagatePanel, AChoiceWithoutAWindowOnlyShowsInTheList)
{
    Tool_Propagate panel;
    prepare(panel);
    Object_Variable<Strato_Window>("$WINDOW_CUR") = nullptr;
    EXPECT_EQ(choose(panel, 4), 1);
    EXPECT_TRUE(broadcasts().empty());
    EXPECT_EQ(shown_index(), 2);
    leave(panel);
    EXPECT_TRUE(shows_list(4));
}

TEST_F(PropagatePanel, UpAndDownAreUsedWhateverTheFunctionReturns)
{
    Tool_Propagate panel;
    prepare(panel);
    for (const int result : {0, -1, 7}) {
        carry_result = result;
        EXPECT_EQ(press_up(panel), 1);
        EXPECT_EQ(press_down(panel), 1);
    }
    EXPECT_EQ(calls.size(), 6u);
}

TEST_F(PropagatePanel, UpGoesToTheNextFrameAndDownToThePrevious)
{
    Tool_Propagate panel;
    prepare(panel);
    press_up(panel);
    EXPECT_EQ(shown_index(), 3);
    press_down(panel);
    press_down(panel);
    EXPECT_EQ(shown_index(), 1);
    EXPECT_EQ(calls, (std::vector<Call>{{frames[2], frames[3]}, {frames[3], frames[2]}, {frames[2], frames[1]}}));
}

// ---------------------------------------------------------------------------------------------- motion and leave

TEST_F(PropagatePanel, MotionHighlightsWhatIsUnderThePointer)
{
    Tool_Propagate panel;
    prepare(panel);
    const auto all_plain = [&] { return shows_list(2) && shows_up(false) && shows_down(false); };
    for (const Extent& place : {down(), list(), up()}) {
        point(main_window(), middle(place));
        EXPECT_EQ(panel.Motion(0), 0);
        EXPECT_FALSE(all_plain()) << place.x;
        panel.Leave();
        EXPECT_TRUE(all_plain()) << place.x;
        EXPECT_EQ(panel.Motion(17), 0);
        point(main_window(), {500, 500});
        panel.Motion(0);
        EXPECT_TRUE(all_plain()) << place.x;
    }
    EXPECT_TRUE(calls.empty());
}

// --------------------------------------------------------------------------------------------------------- keys

TEST_F(PropagatePanel, KeysOverTheListGoToAnotherFrame)
{
    frames = make_series(30);
    Tool_Propagate panel;
    prepare(panel);
    for (const Key_Case& one : moving_keys) {
        show(frames[2]);
        panel.Update(frame_changed);
        EXPECT_EQ(press_key(panel, one.key), 1) << one.key;
        EXPECT_EQ(shown_index(), one.to) << one.key;
        EXPECT_TRUE(shows_list(one.to));
        EXPECT_EQ(broadcasts(), std::vector{frame_changed});
    }
    EXPECT_TRUE(calls.empty()) << "going there carries nothing";
}

TEST_F(PropagatePanel, OtherKeysAreNotUsed)
{
    Tool_Propagate panel;
    prepare(panel);
    for (const int key : {0, 13, 27, 97, 2080, 2086, 2088, 2089, 2090, 2091, 2092, 2095}) {
        EXPECT_EQ(press_key(panel, key), 0) << key;
        EXPECT_EQ(shown_index(), 2);
    }
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(PropagatePanel, KeysBesideTheListAreNotUsed)
{
    Tool_Propagate panel;
    prepare(panel);
    for (const Place place : {middle(up()), middle(down()), Place{500, 500}}) {
        point(main_window(), place);
        for (const Key_Case& one : moving_keys) {
            YKey = one.key;
            EXPECT_EQ(panel.Keyboard(one.key), 0) << one.key;
        }
    }
    EXPECT_EQ(shown_index(), 2);
}

TEST_F(PropagatePanel, AKeyOverAGreyedListIsNotUsed)
{
    Tool_Propagate panel;
    lay_out(panel);
    EXPECT_EQ(press_key(panel, 2083), 0);
}

TEST_F(PropagatePanel, TheLowSixteenBitsOfAKeyCount)
{
    Tool_Propagate panel;
    prepare(panel);
    point_at_list();
    YKey = 2083;
    EXPECT_EQ(panel.Keyboard(0x30000 | 2083), 1);
    EXPECT_EQ(shown_index(), 4);
}

TEST_F(PropagatePanel, AKeyThatMovesNothingIsUsedAllTheSame)
{
    Tool_Propagate panel;
    prepare(panel);
    show(frames[4]);
    panel.Update(frame_changed);
    EXPECT_EQ(press_key(panel, 2083), 1);
    EXPECT_EQ(shown_index(), 4);
    EXPECT_EQ(broadcasts(), std::vector{frame_changed}) << "the frame is shown again";
}

TEST_F(PropagatePanel, AKeyWithoutAWindowIsUsedAndMovesTheList)
{
    Tool_Propagate panel;
    prepare(panel);
    Object_Variable<Strato_Window>("$WINDOW_CUR") = nullptr;
    EXPECT_EQ(press_key(panel, 2083), 1);
    EXPECT_TRUE(shows_list(4));
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(PropagatePanel, AKeyLeavesTheButtonsToTheChangeThatFollows)
{
    Tool_Propagate panel;
    prepare(panel);
    press_key(panel, 2083);
    EXPECT_TRUE(shows_up(false));
    panel.Update(frame_changed);
    EXPECT_TRUE(shows_up(true));
}

// -------------------------------------------------------------------------------------------------------- wheel

TEST_F(PropagatePanel, TheWheelAwayFromTheUserGoesBack)
{
    Tool_Propagate panel;
    prepare(panel);
    point_at_list();
    EXPECT_EQ(panel.Scroll(1), 1);
    EXPECT_EQ(shown_index(), 1);
    EXPECT_TRUE(shows_list(1));
    EXPECT_EQ(panel.Scroll(-2), 1);
    EXPECT_EQ(shown_index(), 3);
    EXPECT_EQ(broadcasts(), (std::vector{frame_changed, frame_changed}));
    EXPECT_TRUE(calls.empty());
}

TEST_F(PropagatePanel, TheWheelStopsAtBothEndsAndGreysTheButtonsAtOnce)
{
    Tool_Propagate panel;
    prepare(panel);
    point_at_list();
    panel.Scroll(-100);
    EXPECT_EQ(shown_index(), 4);
    EXPECT_TRUE(shows_up(true));
    EXPECT_TRUE(shows_down(false));
    panel.Scroll(100);
    EXPECT_EQ(shown_index(), 0);
    EXPECT_TRUE(shows_up(false));
    EXPECT_TRUE(shows_down(true));
}

TEST_F(PropagatePanel, TheWheelLeavesAButtonWhoseStateStaysAlone)
{
    Tool_Propagate panel;
    prepare(panel);
    point_at_list();
    cover(main_window());
    panel.Scroll(-1);
    EXPECT_TRUE(covered(main_window(), up()));
    EXPECT_TRUE(covered(main_window(), down()));
    panel.Scroll(-1);
    EXPECT_TRUE(shows_up(true));
    EXPECT_TRUE(covered(main_window(), down()));
}

TEST_F(PropagatePanel, TheWheelBesideTheListIsUsedAndMovesNothing)
{
    Tool_Propagate panel;
    prepare(panel);
    for (const Place place : {middle(up()), Place{500, 500}}) {
        point(main_window(), place);
        EXPECT_EQ(panel.Scroll(1), 1);
    }
    EXPECT_EQ(shown_index(), 2);
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(PropagatePanel, TheWheelOverAGreyedListIsUsedAndMovesNothing)
{
    Tool_Propagate panel;
    lay_out(panel);
    point_at_list();
    EXPECT_EQ(panel.Scroll(1), 1);
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(PropagatePanel, TheWheelWithoutAWindowMovesTheListOnly)
{
    Tool_Propagate panel;
    prepare(panel);
    Object_Variable<Strato_Window>("$WINDOW_CUR") = nullptr;
    point_at_list();
    EXPECT_EQ(panel.Scroll(-2), 1);
    EXPECT_TRUE(shows_list(4));
    EXPECT_TRUE(shows_up(true));
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(PropagatePanel, BeforeItsLayoutItTakesNoEvents)
{
    Tool_Propagate panel;
    panel.Set(carry);
    panel.Update(everything);
    reports.clear();
    cover(main_window());
    point(main_window(), {0, 0});
    EXPECT_EQ(panel.Click(left_press), 0);
    EXPECT_EQ(panel.Motion(0), 0);
    YKey = 2083;
    EXPECT_EQ(panel.Keyboard(2083), 0);
    EXPECT_EQ(panel.Scroll(1), 1);
    panel.Draw();
    panel.Leave();
    EXPECT_TRUE(reports.texts(11).empty()) << "no drawing context was asked for";
    EXPECT_TRUE(covered(main_window(), {0, 0, 500, 300}));
    EXPECT_EQ(panel.Propagate(1), carry_result) << "for this it needs no place";
    EXPECT_EQ(shown_index(), 3);
}
