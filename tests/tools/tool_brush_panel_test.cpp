#include "tests/tools/brush_panel_fixture.h"

using namespace test;
using hostkit::Array_Variable;
using hostkit::Variable;

namespace {

constexpr Colors grey{170, 170, 170};

}

TEST_F(BrushPanel, WantsAListsHeightEightPixelsAndTwoSpaces)
{
    Tool_Brush panel;
    EXPECT_EQ(panel.Height(), 24 + 8 + 8);
    Variable<short>("$INTERFACE_LIST_DIM_SML") = 31;
    Variable<short>("$INTERFACE_SPACE_DIM") = 7;
    EXPECT_EQ(panel.Height(), 31 + 8 + 14);
    Variable<short>("$INTERFACE_BORDER_DIM") = 50;
    EXPECT_EQ(panel.Height(), 31 + 8 + 14);
    EXPECT_TRUE(reports.all().empty()) << "not traced";
}

TEST_F(BrushPanel, ResizeTracesItselfThenItsPictures)
{
    Tool_Brush panel;
    lay_out(panel);
    EXPECT_EQ(panel.Resize(&area), 1);
    EXPECT_EQ(traces(), (std::vector<std::string>{"16 in Tool_Brush::Resize(dim=308x48)",
                            "17 in Tool_Brush::Set_Color()", "17 in Tool_Brush::Set_Border()"}));
}

TEST_F(BrushPanel, DrawAndClickAreTracedTheOtherEventsAreNot)
{
    Tool_Brush panel;
    lay_out(panel);
    panel.Draw();
    click_on(panel, 1);
    click_on(panel, 1, 0);
    EXPECT_EQ(
        traces(), (std::vector<std::string>{"16 in Tool_Brush::Draw()", "16 in Tool_Brush::Click(up_down=0x00000012)",
                      "16 in Tool_Brush::Click(up_down=0x00000000)"}));
    reports.clear();
    panel.Motion(0);
    panel.Keyboard('a');
    panel.Scroll(1);
    panel.Leave();
    panel.Read();
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(BrushPanel, EveryBrushAnswersInItsOwnRectangle)
{
    Tool_Brush panel;
    lay_out(panel);
    EXPECT_EQ(button(0), (Extent{14, 24, 60, 40}));
    EXPECT_EQ(button(4), (Extent{254, 24, 60, 40}));
    for (int y = 20; y < 68; ++y) {
        for (int x = 8; x < 322; ++x) {
            const bool inside = x >= 14 && x < 314 && y >= 24 && y < 64;
            ASSERT_EQ(click_at(panel, {x, y}), inside ? 1 : 0) << x << ' ' << y;
            if (inside) {
                ASSERT_EQ(panel.Read(), (x - 14) / 60) << x << ' ' << y;
            }
        }
    }
}

TEST_F(BrushPanel, RoundsTheButtonWidthDown)
{
    Tool_Brush panel;
    lay_out(panel, {0, 0, 311, 48}); // 303 / 5
    EXPECT_EQ(click_at(panel, {4 + 299, 20}), 1);
    EXPECT_EQ(click_at(panel, {4 + 300, 20}), 0);
}

TEST_F(BrushPanel, FollowsTheSpacingAtEveryLayout)
{
    Tool_Brush panel;
    lay_out(panel);
    Variable<short>("$INTERFACE_SPACE_DIM") = 10;
    lay_out(panel);
    EXPECT_EQ(click_at(panel, {19, 40}), 0);
    EXPECT_EQ(click_at(panel, {20, 40}), 1);
    EXPECT_EQ(click_at(panel, {20, 29}), 0);
}

TEST_F(BrushPanel, APressChoosesABrush)
{
    Tool_Brush panel;
    lay_out(panel);
    EXPECT_EQ(panel.Read(), 0);
    EXPECT_EQ(click_on(panel, 3), 1);
    EXPECT_EQ(panel.Read(), 3);
    leave(panel);
    EXPECT_TRUE(shows(3, grey, State::current));
    EXPECT_TRUE(shows(0, grey));
    EXPECT_EQ(Variable<unsigned short>("$BRUSH_CUR"), 0) << "that is the host's to write";
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(BrushPanel, AnyButtonChooses)
{
    Tool_Brush panel;
    lay_out(panel);
    int brush = 0;
    for (const int word : {34, 66, 50, 2}) {
        EXPECT_EQ(click_on(panel, ++brush, word), 1) << word;
        EXPECT_EQ(panel.Read(), brush);
    }
}

TEST_F(BrushPanel, ReleasesAndMissesChooseNothing)
{
    Tool_Brush panel;
    lay_out(panel);
    for (const int word : {0, 16, 32, 64})
        EXPECT_EQ(click_on(panel, 3, word), 0) << word;
    EXPECT_EQ(click_at(panel, {5, 5}), 0);
    EXPECT_EQ(panel.Read(), 0);
}

TEST_F(BrushPanel, HasNoKeysAndIgnoresTheWheel)
{
    Tool_Brush panel;
    lay_out(panel);
    cover(main_window());
    EXPECT_EQ(panel.Keyboard('a'), 0);
    EXPECT_EQ(panel.Keyboard(2094), 0);
    EXPECT_EQ(panel.Scroll(1), 1);
    EXPECT_EQ(panel.Scroll(-3), 1);
    EXPECT_TRUE(covered(main_window(), {0, 0, 400, 100}));
    EXPECT_EQ(panel.Read(), 0);
}

TEST_F(BrushPanel, MotionHighlightsAndLeaveTakesItAway)
{
    Tool_Brush panel;
    lay_out(panel);
    point(main_window(), middle(button(3)));
    EXPECT_EQ(panel.Motion(0), 0);
    EXPECT_TRUE(shows(3, grey, State::highlighted));
    EXPECT_TRUE(shows(2, grey));
    point(main_window(), middle(button(2)));
    EXPECT_EQ(panel.Motion(17), 0);
    EXPECT_TRUE(shows(3, grey));
    EXPECT_TRUE(shows(2, grey, State::held));
    panel.Leave();
    EXPECT_TRUE(shows(2, grey));
}

TEST_F(BrushPanel, DrawMarksTheHostsBrush)
{
    Tool_Brush panel;
    Variable<unsigned short>("$BRUSH_CUR") = 2;
    lay_out(panel);
    EXPECT_TRUE(shows(2, grey, State::current));
    EXPECT_TRUE(shows(0, grey));
    EXPECT_EQ(panel.Read(), 0) << "Draw shows, it does not choose";
}

TEST_F(BrushPanel, DrawTakesNoOtherMarkAway)
{
    Tool_Brush panel;
    lay_out(panel);
    click_on(panel, 3);
    leave(panel);
    panel.Draw();
    EXPECT_TRUE(shows(0, grey, State::current));
    EXPECT_TRUE(shows(3, grey, State::current));
}

TEST_F(BrushPanel, DrawFillsItsBoxAndNothingElse)
{
    Tool_Brush panel;
    lay_out(panel);
    cover(main_window());
    panel.Draw();
    EXPECT_EQ(pixel(main_window(), {10, 20}), area.frame);
    EXPECT_EQ(pixel(main_window(), {12, 22}), area.back);
    EXPECT_TRUE(covered(main_window(), {0, 0, 400, 20}));
    EXPECT_TRUE(covered(main_window(), {318, 0, 60, 100}));
    EXPECT_TRUE(covered(main_window(), {0, 68, 400, 40}));
}

TEST_F(BrushPanel, UpdateMovesTheMark)
{
    for (const auto word : {brushes_changed, everything}) {
        Variable<unsigned short>("$BRUSH_CUR") = 0;
        Tool_Brush panel;
        lay_out(panel);
        panel.Update(brushes_changed);
        Variable<unsigned short>("$BRUSH_CUR") = 3;
        panel.Update(word);
        EXPECT_EQ(panel.Read(), 3);
        EXPECT_TRUE(shows(3, grey, State::current));
        EXPECT_TRUE(shows(0, grey));
    }
}

TEST_F(BrushPanel, UpdateTakesAChoiceBackThatTheHostDidNotMake)
{
    Tool_Brush panel;
    lay_out(panel);
    panel.Update(brushes_changed);
    click_on(panel, 3);
    leave(panel);
    panel.Update(brushes_changed);
    EXPECT_EQ(panel.Read(), 0);
    EXPECT_TRUE(shows(0, grey, State::current));
    EXPECT_TRUE(shows(3, grey));
}

TEST_F(BrushPanel, OtherBitsMoveNoMark)
{
    Tool_Brush panel;
    lay_out(panel);
    panel.Update(brushes_changed);
    Variable<unsigned short>("$BRUSH_CUR") = 3;
    panel.Update(~(brushes_changed | everything));
    EXPECT_EQ(panel.Read(), 0);
}

TEST_F(BrushPanel, UpdateBeforeTheLayoutMovesTheCurrentBrush)
{
    Variable<unsigned short>("$BRUSH_CUR") = 3;
    Tool_Brush panel;
    panel.Update(brushes_changed);
    EXPECT_EQ(panel.Read(), 3);
    lay_out(panel);
    EXPECT_TRUE(shows(3, grey, State::current));
    EXPECT_TRUE(shows(0, grey));
}

TEST_F(BrushPanel, ABrushThatDoesNotExistIsIgnored)
{
    Tool_Brush panel;
    lay_out(panel);
    panel.Update(brushes_changed);
    for (const int brush : {5, 8, 65535}) {
        Variable<unsigned short>("$BRUSH_CUR") = static_cast<unsigned short>(brush);
        panel.Draw();
        panel.Update(brushes_changed);
        panel.Draw();
        EXPECT_EQ(panel.Read(), 0);
        for (int other = 1; other < 5; ++other)
            EXPECT_TRUE(shows(other, grey));
    }
}

TEST_F(BrushPanel, AChangedSetIsBuiltLaidOutAndDrawn)
{
    Tool_Brush panel;
    lay_out(panel);
    panel.Update(brushes_changed);
    set_brushes({2, 7, 20});
    cover(main_window());
    reports.clear();
    panel.Update(brushes_changed);
    EXPECT_EQ(traces(), (std::vector<std::string>{"16 in Tool_Brush::Update()", "17 in Tool_Brush::Init()",
                            "16 in Tool_Brush::Resize(dim=308x48)", "17 in Tool_Brush::Set_Color()",
                            "17 in Tool_Brush::Set_Border()", "16 in Tool_Brush::Draw()"}));
    EXPECT_TRUE(shows(0, grey, State::current));
    EXPECT_TRUE(shows(1, grey));
    EXPECT_TRUE(shows(2, grey));
    EXPECT_EQ(click_on(panel, 2), 1);
    EXPECT_EQ(panel.Read(), 2);
}

TEST_F(BrushPanel, TheFirstUpdateAfterALayoutBuildsTheSet)
{
    Tool_Brush panel;
    lay_out(panel);
    panel.Update(everything);
    EXPECT_EQ(
        traces(), (std::vector<std::string>{"16 in Tool_Brush::Update()", "17 in Tool_Brush::Init()",
                      "16 in Tool_Brush::Resize(dim=308x48)", "17 in Tool_Brush::Set_Color()",
                      "17 in Tool_Brush::Set_Border()", "16 in Tool_Brush::Draw()", "17 in Tool_Brush::Set_Color()"}));
}

TEST_F(BrushPanel, AnUnchangedSetIsNotBuiltAgain)
{
    Tool_Brush panel;
    lay_out(panel);
    panel.Update(brushes_changed);
    reports.clear();
    panel.Update(brushes_changed);
    EXPECT_EQ(traces(), std::vector<std::string>{"16 in Tool_Brush::Update()"});
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(BrushPanel, WithoutBrushesItIsAnEmptyBox)
{
    Variable<unsigned short>("$BRUSH_NB") = 0;
    Tool_Brush panel;
    lay_out(panel);
    panel.Update(~0ull);
    panel.Draw();
    EXPECT_EQ(pixel(main_window(), {60, 40}), area.back);
    EXPECT_EQ(click_at(panel, {60, 40}), 0);
    EXPECT_EQ(panel.Motion(0), 0);
    panel.Leave();
    EXPECT_EQ(panel.Read(), 0);
}

TEST_F(BrushPanel, ShowsEightBrushesOfNine)
{
    set_brushes({1, 1, 1, 1, 1, 1, 1, 1});
    Variable<unsigned short>("$BRUSH_NB") = 9;
    Tool_Brush panel;
    lay_out(panel, {0, 0, 328, 40});
    EXPECT_EQ(click_at(panel, {4 + 319, 20}), 1);
    EXPECT_EQ(panel.Read(), 7);
    EXPECT_EQ(click_at(panel, {4 + 320, 20}), 0);
}

TEST_F(BrushPanel, BeforeItsLayoutItTakesNoEvents)
{
    Tool_Brush panel;
    cover(main_window());
    point(main_window(), {0, 0});
    EXPECT_EQ(panel.Click(left_press), 0);
    EXPECT_EQ(panel.Motion(0), 0);
    EXPECT_EQ(panel.Keyboard('a'), 0);
    EXPECT_EQ(panel.Scroll(1), 1);
    panel.Draw();
    panel.Update(~0ull);
    panel.Leave();
    EXPECT_EQ(panel.Read(), 0);
    EXPECT_TRUE(covered(main_window(), {0, 0, 400, 100}));
    EXPECT_TRUE(reports.texts(11).empty()) << "no drawing context was asked for";
}

TEST_F(BrushPanel, AnAreaThatIsTooSmallBreaksNothing)
{
    for (const Extent place : {Extent{}, Extent{0, 0, 10, 10}, Extent{0, 0, 300, 5}, Extent{0, 0, 9, 300}}) {
        Tool_Brush panel;
        lay_out(panel, place);
        panel.Update(~0ull);
        EXPECT_EQ(click_at(panel, {500, 500}), 0);
    }
}
