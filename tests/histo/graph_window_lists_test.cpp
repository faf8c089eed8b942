#include "tests/histo/graph_window.h"

#include "histo/tool_histo_blow.h"
#include "hostkit/gadgets/select_chooser.h"

// The three lists of the graph window: by press and by wheel.

using namespace test;

namespace {

class GraphLists : public Graph_Window {
protected:
    GraphLists()
    {
        give_peaks();
        panel.Set(1, 2, 80.0, 120.0);
    }
};

}

TEST_F(GraphLists, AChosenItemIsShown)
{
    open();
    const auto plain = picture();
    choose(graph().tag_select, 1);
    EXPECT_EQ(graph().tag_select.value, 1);
    const auto tagged = picture();
    EXPECT_NE(tagged, plain);
    choose(graph().peak_select, 1);
    EXPECT_EQ(graph().peak_select.value, 1);
    EXPECT_NE(picture(), tagged);
    choose(graph().peak_select, 0);
    choose(graph().tag_select, 0);
    drag_to({2, 2});
    EXPECT_EQ(picture(), plain);
}

TEST_F(GraphLists, TheListThatIsPressedIsTheOneThatOpens)
{
    open();
    std::vector<const Selects*> asked;
    hostkit::Set_Select_Chooser([&](const Selects& list) {
        asked.push_back(&list);
        return -1;
    });
    for (const Selects* list : {&graph().cursor_select, &graph().tag_select, &graph().peak_select})
        test::click(window(), middle(*list));
    EXPECT_EQ(asked, (std::vector<const Selects*>{&graph().cursor_select, &graph().tag_select, &graph().peak_select}));
}

TEST_F(GraphLists, ADismissedListChangesNothing)
{
    open();
    drag_to(middle(graph().tag_select));
    const auto before = picture();
    choose(graph().tag_select, -1);
    drag_to(middle(graph().tag_select));
    EXPECT_EQ(graph().tag_select.value, 0);
    EXPECT_EQ(picture(), before);
}

TEST_F(GraphLists, WithoutPeaksTheirListDoesNotOpen)
{
    give({1, 2, 3});
    const_cast<Histo_Peaks*>(panel.Peaks())->Release();
    open();
    bool opened = false;
    hostkit::Set_Select_Chooser([&](const Selects&) {
        opened = true;
        return 1;
    });
    for (const int y : {45, 12})
        test::click(window(), {20, y}); // the first list now, and a button
    EXPECT_TRUE(opened);
    EXPECT_EQ(graph().peak_select.value, 0);
    EXPECT_EQ(graph().tag_select.value, 1);
}

TEST_F(GraphLists, AWindowThatIsClosedFromTheOpenListIsGone)
{
    open();
    const HWND opened = window();
    hostkit::Set_Select_Chooser([&](const Selects&) {
        SendMessageA(opened, WM_CLOSE, 0, 0);
        return 1;
    });
    test::click(opened, middle(graph().tag_select));
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(graph().tag_select.value, 0);
}

TEST_F(GraphLists, TheWheelTurnsTheListUnderThePointer)
{
    open();
    const auto plain = picture();
    turn(middle(graph().peak_select), -120);
    EXPECT_EQ(graph().peak_select.value, 1);
    turn(middle(graph().peak_select), -120);
    turn(middle(graph().peak_select), -120);
    EXPECT_EQ(graph().peak_select.value, 2) << "the last one";
    EXPECT_NE(picture(), plain);
    turn(middle(graph().peak_select), 240);
    EXPECT_EQ(graph().peak_select.value, 0);
    EXPECT_EQ(picture(), plain);
    turn(middle(graph().tag_select), -120);
    EXPECT_EQ(graph().tag_select.value, 1);
    EXPECT_NE(picture(), plain);
    EXPECT_EQ(graph().cursor_select.value, 0);
    EXPECT_FALSE(graph().zoomed);
}

TEST_F(GraphLists, TheCursorsListIsTurnedWithoutARedraw)
{
    open();
    press({300, 200});
    drag_to({304, 204});
    release({304, 204});
    const Colors banded = seen(304, 202);
    turn(middle(graph().cursor_select), -120);
    EXPECT_EQ(graph().cursor_select.value, 1);
    EXPECT_EQ(seen(304, 202), banded) << "what lies over the plot is still there";
    turn(middle(graph().tag_select), -120);
    EXPECT_NE(seen(304, 202), banded);
}

TEST_F(GraphLists, AHostChoosesTheSameWay)
{
    open();
    const auto plain = picture();
    Histo_Graph_Display(2, 7, -1);
    EXPECT_EQ(graph().peak_select.value, 2);
    EXPECT_EQ(graph().tag_select.value, 1);
    EXPECT_EQ(graph().cursor_select.value, 1);
    deliver();
    EXPECT_NE(picture(), plain);
    Histo_Graph_Display(9, 0, 0);
    EXPECT_EQ(graph().peak_select.value, 2);
    Histo_Graph_Display(-9, 0, 0);
    EXPECT_EQ(graph().peak_select.value, 0);
}
