#include "tests/histo/graph_window.h"

#include "histo/tool_histo_blow.h"

// Where the graph window's controls are, and what they are.

using namespace test;

namespace {

constexpr unsigned active_list = 0x2100, greyed_list = 0x2123, greyed = 35;

class GraphLayout : public Graph_Window {
protected:
    static std::vector<int> place(const Tools& widget) { return {widget.x, widget.y, widget.width, widget.height}; }

    static std::vector<std::string> items(const Selects& list)
    {
        std::vector<std::string> result;
        for (int i = 0; i < list.Count(); ++i)
            result.push_back(list.Item(i));
        return result;
    }
};

using Numbers = std::vector<int>;
using Names = std::vector<std::string>;

}

TEST_F(GraphLayout, WithoutPeaksTwoListsLieBetweenButtonsAndPlot)
{
    give({1, 2, 3});
    open();
    EXPECT_EQ(place(graph().outer), (Numbers{1, 1, 798, 398}));
    EXPECT_EQ(place(graph().reset), (Numbers{5, 5, 393, 24}));
    EXPECT_EQ(place(graph().save), (Numbers{402, 5, 393, 24}));
    EXPECT_EQ(place(graph().peak_select), place(graph().save));
    EXPECT_EQ(place(graph().tag_select), (Numbers{5, 33, 790, 28}));
    EXPECT_EQ(place(graph().cursor_select), (Numbers{5, 65, 790, 28}));
    EXPECT_EQ(place(graph().selection), (Numbers{5, 97, 790, 298}));
    EXPECT_EQ(place(graph().plot), (Numbers{8, 100, 784, 292}));
    EXPECT_EQ(plot().x, px);
    EXPECT_EQ(plot().y, py);
    EXPECT_EQ(plot().width, pw);
    EXPECT_EQ(plot().height, ph);
}

TEST_F(GraphLayout, WithPeaksTheirListIsTheLowest)
{
    give_peaks();
    open();
    EXPECT_EQ(place(graph().peak_select), (Numbers{5, 33, 790, 28}));
    EXPECT_EQ(place(graph().tag_select), (Numbers{5, 65, 790, 28}));
    EXPECT_EQ(place(graph().cursor_select), (Numbers{5, 97, 790, 28}));
    EXPECT_EQ(place(graph().selection), (Numbers{5, 129, 790, 266}));
    EXPECT_EQ(place(graph().plot), (Numbers{8, 132, 784, 260}));
}

TEST_F(GraphLayout, ControlsSayWhatTheyAre)
{
    give_peaks();
    open();
    EXPECT_STREQ(graph().reset.name.get(), "Reset Zoom");
    EXPECT_STREQ(graph().save.name.get(), "Export");
    EXPECT_STREQ(graph().peak_select.name.get(), "Display Peak    ");
    EXPECT_STREQ(graph().tag_select.name.get(), "Display TAG      ");
    EXPECT_STREQ(graph().cursor_select.name.get(), "Display Cursor ");
    EXPECT_EQ(items(graph().peak_select), (Names{"Off", "Composite", "Individual"}));
    EXPECT_EQ(items(graph().tag_select), (Names{"Off", "On"}));
    EXPECT_EQ(items(graph().cursor_select), (Names{"Off", "On"}));
    EXPECT_EQ(graph().tag_select.item_height, 24 - 4 - 2);
    EXPECT_EQ(graph().outer.state, 66u);
    EXPECT_EQ(graph().selection.state, 80u);
    EXPECT_EQ(graph().plot.state, 83u);
    for (const Tools* widget : std::initializer_list<const Tools*>{
             &graph().outer, &graph().reset, &graph().save, &graph().peak_select, &graph().selection, &graph().plot})
        EXPECT_EQ(widget->border, 2);
}

TEST_F(GraphLayout, ThePeakListIsGreyedAtTheLayoutAndAtEachDrawing)
{
    give({1, 2, 3});
    open();
    EXPECT_EQ(graph().peak_select.state, greyed_list);
    EXPECT_EQ(graph().peak_select.Count(), 0);
    EXPECT_EQ(graph().tag_select.state, active_list);
    EXPECT_EQ(graph().cursor_select.state, active_list);
    SendMessageA(window(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(800, 400));
    EXPECT_EQ(graph().peak_select.state, greyed);
    repaint();
    EXPECT_EQ(graph().peak_select.state, greyed_list);
}

TEST_F(GraphLayout, ExportIsSeenAndPressedThoughTheGreyedListLiesOverIt)
{
    give({1, 2, 3});
    open();
    const Place middle = test::middle(graph().save);
    const auto before = picture();
    drag_to(middle);
    EXPECT_NE(picture(), before) << "the button answers the pointer";
    press(middle);
    release(middle);
    drag_to({2, 2});
    drag_to({20, 20});
    drag_to({2, 2});
    EXPECT_EQ(picture(), before) << "the list is never drawn over it";
}

TEST_F(GraphLayout, AFitWhileTheWindowIsOpenBringsThePeakList)
{
    give(counts_of_bumps(400, {{100, 1000, 12}, {250, 600, 15}}));
    open();
    histo::peak_settings.last_crossing = 0;
    panel.Fit();
    panel.Update(test::repaint);
    deliver();
    EXPECT_EQ(place(graph().peak_select), (Numbers{5, 33, 790, 28}));
    EXPECT_EQ(graph().peak_select.state, active_list);
    EXPECT_EQ(items(graph().peak_select), (Names{"Off", "Composite", "Individual"}));
    EXPECT_EQ(place(graph().plot), (Numbers{8, 132, 784, 260}));
    const auto now = picture();
    repaint();
    EXPECT_EQ(picture(), now) << "nothing of the old layout is left";
}

TEST_F(GraphLayout, PeaksThatGoTakeTheirListAlong)
{
    give_peaks();
    open();
    const_cast<Histo_Peaks*>(panel.Peaks())->Release();
    changed();
    deliver();
    EXPECT_EQ(graph().peak_select.state, greyed_list);
    EXPECT_EQ(graph().peak_select.Count(), 0);
    EXPECT_EQ(place(graph().plot), (Numbers{8, 100, 784, 292}));
    const auto now = picture();
    repaint();
    EXPECT_EQ(picture(), now);
}

TEST_F(GraphLayout, WhatListsShowOutlivesLayoutsAndTheWindow)
{
    give_peaks();
    open();
    choose(graph().peak_select, 2);
    choose(graph().tag_select, 1);
    choose(graph().cursor_select, 1);
    resize(500, 500);
    EXPECT_EQ(graph().peak_select.value, 2);
    close();
    open();
    EXPECT_EQ(graph().peak_select.value, 2);
    EXPECT_EQ(graph().tag_select.value, 1);
    EXPECT_EQ(graph().cursor_select.value, 1);
}

TEST_F(GraphLayout, TheInterfacesDimensionsAreReadAtEachLayout)
{
    give({1, 2, 3});
    open();
    hostkit::Variable<short>("$INTERFACE_SPACE_DIM") = 6;
    hostkit::Variable<short>("$INTERFACE_BUTTON_DIM_BIG") = 30;
    hostkit::Variable<short>("$INTERFACE_BORDER_DIM") = 1;
    resize(800, 401);
    EXPECT_EQ(place(graph().reset), (Numbers{7, 7, 390, 30}));
    EXPECT_EQ(place(graph().tag_select), (Numbers{7, 43, 786, 36}));
    EXPECT_EQ(place(graph().selection), (Numbers{7, 127, 786, 267}));
    EXPECT_EQ(place(graph().plot), (Numbers{9, 129, 782, 263}));
}

TEST_F(GraphLayout, BetweenTheControlsTheClasssGreyShows)
{
    give({1, 2, 3});
    open();
    EXPECT_EQ(seen(2, 31), (Colors{0xaa, 0xaa, 0xaa}));
    EXPECT_EQ(seen(400, 31), (Colors{0xaa, 0xaa, 0xaa}));
}

TEST_F(GraphLayout, AnySizeIsHarmless)
{
    give_peaks();
    panel.Set(1, 1, 50.0, 150.0);
    open();
    Histo_Graph_Display(2, 1, 1);
    for (const auto& [width, height] : {std::pair{1, 1}, {1, 300}, {300, 1}, {20, 20}, {60, 120}, {57, 190}, {120, 160},
             {200, 200}, {3000, 40}, {40, 1500}, {800, 400}}) {
        resize(width, height);
        for (const Place place : {Place{0, 0}, {width / 2, height / 2}, {width - 1, height - 1}}) {
            drag({0, 0}, place);
            drag(place, {width, height});
            turn(place, 120);
            turn(place, -240);
        }
        changed();
        SendMessageA(window(), WM_USER + 1, 0, 0);
    }
    EXPECT_EQ(place(graph().selection), (Numbers{5, 129, 790, 266}));
    test::click(window(), middle(graph().reset));
    EXPECT_GT(count_of(yellow), 300);
}

TEST_F(GraphLayout, AMinimisedWindowKeepsItsLayoutAndItsZoom)
{
    give(Counts(101, 10u));
    open();
    drag({100, 200}, {300, 300});
    const float origin = graph().x.origin, scale = graph().x.scale;
    SendMessageA(window(), WM_SIZE, SIZE_MINIMIZED, MAKELPARAM(0, 0));
    EXPECT_EQ(graph().width, 0);
    EXPECT_EQ(graph().height, 0);
    EXPECT_EQ(place(graph().plot), (Numbers{8, 100, 784, 292}));
    changed();
    SendMessageA(window(), WM_USER + 1, 0, 0);
    SendMessageA(window(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(800, 400));
    repaint();
    EXPECT_EQ(graph().x.origin, origin);
    EXPECT_EQ(graph().x.scale, scale);
    EXPECT_TRUE(graph().zoomed);
}
