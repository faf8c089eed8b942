#include "tests/tools/propagate_panel_fixture.h"

using namespace test;
using hostkit::Variable;

TEST_F(PropagatePanel, WantsATitleASpaceAndAList)
{
    Tool_Propagate panel;
    EXPECT_EQ(panel.Height(), 20 + 4 + 24);
    Variable<short>("$INTERFACE_TITLE_DIM_SML") = 31;
    Variable<short>("$INTERFACE_SPACE_DIM") = 7;
    Variable<short>("$INTERFACE_LIST_DIM_SML") = 50;
    EXPECT_EQ(panel.Height(), 31 + 7 + 50);
    Variable<short>("$INTERFACE_TOOL_FONT_SCALE") = 99;
    Variable<short>("$INTERFACE_BORDER_DIM") = 99;
    EXPECT_EQ(panel.Height(), 31 + 7 + 50);
}

TEST_F(PropagatePanel, EveryWidgetAnswersInItsOwnRectangle)
{
    Tool_Propagate panel;
    prepare(panel);
    EXPECT_EQ(down(), (Extent{14, 24, 50, 24}));
    EXPECT_EQ(list(), (Extent{68, 24, 100, 24}));
    EXPECT_EQ(up(), (Extent{172, 24, 50, 24}));
    const auto used = [&](Place place) { return press_at(panel, place); };
    for (const Extent& place : {down(), list(), up()})
        EXPECT_EQ(extent_of(middle(place), used), place);
}

TEST_F(PropagatePanel, RoundsAQuarterDown)
{
    Tool_Propagate panel;
    prepare(panel, {10, 20, 219, 48});
    EXPECT_EQ(up(), (Extent{172, 24, 50, 24}));
    EXPECT_EQ(press_at(panel, {221, 30}), 1);
    EXPECT_EQ(press_at(panel, {222, 30}), 0);
}

TEST_F(PropagatePanel, FollowsTheInterfaceDimensionsAtEveryLayout)
{
    Tool_Propagate panel;
    prepare(panel);
    Variable<short>("$INTERFACE_SPACE_DIM") = 10;
    Variable<short>("$INTERFACE_LIST_DIM_SML") = 33;
    Variable<short>("$INTERFACE_LIST_DIM_ARROW") = 25;
    Variable<short>("$INTERFACE_BUTTON_DIM_BIG") = 99;
    lay_out(panel, {30, 40, 280, 70});
    EXPECT_EQ(list(), (Extent{110, 50, 120, 33}));
    EXPECT_EQ(extent_of(middle(list()), [&](Place place) { return press_at(panel, place); }), list());
    EXPECT_TRUE(shows_list(2)) << "with its wider arrow";
}

TEST_F(PropagatePanel, AnAreaWithoutRoomBreaksNothing)
{
    Tool_Propagate panel;
    for (const Extent place : {Extent{}, Extent{10, 10, 3, 2}, Extent{10, 10, 15, 60}}) {
        prepare(panel, place);
        EXPECT_EQ(press_at(panel, {500, 500}), 0);
        panel.Motion(0);
        panel.Update(everything);
        panel.Draw();
        panel.Leave();
    }
}

TEST_F(PropagatePanel, IsABoxWithATitle)
{
    Tool_Propagate panel;
    prepare(panel);
    panel.Draw();
    EXPECT_EQ(pixel(main_window(), {10, 20}), area_frame);
    EXPECT_EQ(pixel(main_window(), {10 + 215, 20 + 47}), area_frame);
    EXPECT_EQ(pixel(main_window(), {11, 21}), area_back);
    const auto title = picture(main_window(), {11, 49, 214, 18});
    EXPECT_NE(std::count(title.begin(), title.end(), area_back.get()), static_cast<long>(title.size()));
    Boxs reference;
    place_reference(reference, area, usual);
    reference.border = 2;
    reference.state = 66;
    reference.Set_Name("Propagate");
    reference.Init(main_window());
    reference.Draw();
    EXPECT_EQ(picture(main_window(), {11, 49, 214, 18}), title);
}

TEST_F(PropagatePanel, DrawsNothingOutsideItsArea)
{
    Tool_Propagate panel;
    prepare(panel);
    cover(main_window());
    panel.Draw();
    EXPECT_TRUE(covered(main_window(), {0, 0, 10, 100}));
    EXPECT_TRUE(covered(main_window(), {226, 0, 60, 100}));
    EXPECT_TRUE(covered(main_window(), {0, 0, 300, 20}));
    EXPECT_TRUE(covered(main_window(), {0, 68, 300, 60}));
}

TEST_F(PropagatePanel, DrawsItsWidgets)
{
    Tool_Propagate panel;
    prepare(panel);
    cover(main_window());
    panel.Draw();
    EXPECT_TRUE(shows_list(2));
    EXPECT_TRUE(shows_up(false));
    EXPECT_TRUE(shows_down(false));
    keep_picture(main_window(), "propagate_panel_layout");
}

TEST_F(PropagatePanel, TakesTheFontAndTheFrameWidthOfItsArea)
{
    const HFONT font = Y_Create_Font(nullptr, 13, "bold");
    area.font = font;
    Tool_Propagate panel;
    panel.Set(carry);
    panel.Update(everything);
    lay_out(panel, usual, 0);
    EXPECT_TRUE(shows_list(2));
    EXPECT_TRUE(shows_up(false));
    area.border = 2;
    EXPECT_FALSE(shows_up(false)) << "the comparison sees frames";
    area.border = 0;
    area.font = nullptr;
    EXPECT_FALSE(shows_up(false)) << "and fonts";
    DeleteObject(font);
}

TEST_F(PropagatePanel, WithoutFramesALayoutGreysEverything)
{
    Tool_Propagate panel;
    lay_out(panel);
    EXPECT_TRUE(shows_list(-1, true));
    EXPECT_TRUE(shows_up(true));
    EXPECT_TRUE(shows_down(true));
    for (const Extent& place : {down(), list(), up()})
        EXPECT_EQ(press_at(panel, middle(place)), 0);
}

TEST_F(PropagatePanel, ALayoutGreysWhatLeadsNowhere)
{
    struct Case {
        int index;
        bool up_greyed;
        bool down_greyed;
    };
    for (const Case& one : {Case{0, false, true}, {1, false, false}, {3, false, false}, {4, true, false}}) {
        Tool_Propagate panel;
        panel.Set(carry);
        show(frames[static_cast<size_t>(one.index)]);
        panel.Update(everything);
        lay_out(panel);
        EXPECT_TRUE(shows_list(one.index));
        EXPECT_TRUE(shows_up(one.up_greyed)) << one.index;
        EXPECT_TRUE(shows_down(one.down_greyed)) << one.index;
    }
}

TEST_F(PropagatePanel, ALayoutOfASingleFrameGreysBothButtons)
{
    show(make_series(1)[0]);
    Tool_Propagate panel;
    panel.Set(carry);
    panel.Update(everything);
    lay_out(panel);
    EXPECT_TRUE(shows_list(0)) << "the list is active";
    EXPECT_TRUE(shows_up(true));
    EXPECT_TRUE(shows_down(true));
}

// ------------------------------------------------------------------------------------------------------- traces

TEST_F(PropagatePanel, LayoutWheelAndSetAreTracedAlways)
{
    Tool_Propagate panel;
    for (const int level : {-1, 0, 5, 6}) {
        lay_out(panel);
        Flag_Trace = static_cast<signed char>(level);
        panel.Resize(&area);
        panel.Scroll(1);
        EXPECT_EQ(panel.Set(carry), 1);
        EXPECT_EQ(reports.all(), (std::vector<Report>{{16, "in Tool_Propagate::Resize(dim=216x48)"},
                                     {16, "in Tool_Propagate::Scroll()"}, {16, "in Tool_Brush::Set()"}}))
            << level;
    }
}

TEST_F(PropagatePanel, OtherEventsAreTracedFromLevelSix)
{
    Tool_Propagate panel;
    lay_out(panel);
    for (const int level : {-1, 0, 5, 6, 7, 127}) {
        Flag_Trace = static_cast<signed char>(level);
        reports.clear();
        panel.Click(left_press);
        panel.Keyboard(2083);
        panel.Draw();
        panel.Height();
        panel.Update(0x123456789abcdef0ull);
        const std::vector<Report> traced{{16, "in Tool_Propagate::Click(up_down=0x00000012)"},
            {16, "in Tool_Propagate::Keyboard(key=0x00000823)"}, {16, "in Tool_Propagate::Draw()"},
            {16, "in Tool_Propagate::Height()"}, {16, "in Tool_Propagate::Update(flag:123456789abcdef0)"}};
        EXPECT_EQ(reports.all(), level >= 6 ? traced : std::vector<Report>{}) << level;
    }
}

TEST_F(PropagatePanel, MotionLeaveAndPropagateAreNotTraced)
{
    Tool_Propagate panel;
    prepare(panel);
    Flag_Trace = 9;
    panel.Motion(0);
    panel.Leave();
    panel.Propagate(1);
    EXPECT_TRUE(reports.all().empty());
}

TEST_F(PropagatePanel, EachUpdateIsTracedEvenWhenItConcernsNothing)
{
    Tool_Propagate panel;
    Flag_Trace = 6;
    panel.Update(0);
    EXPECT_EQ(traces(), std::vector<std::string>{"in Tool_Propagate::Update(flag:0000000000000000)"});
}

TEST_F(PropagatePanel, TracesComeBeforeTheWork)
{
    Tool_Propagate panel;
    prepare(panel);
    panel.Set(nullptr);
    Flag_Trace = 6;
    reports.clear();
    press_up(panel);
    ASSERT_EQ(reports.all().size(), 2u);
    EXPECT_EQ(reports.all()[0].level, 16);
    EXPECT_EQ(reports.all()[1].level, 2);
}
