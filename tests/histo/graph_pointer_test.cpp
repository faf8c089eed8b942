#include "tests/histo/graph_window.h"

#include <optional>

// Pen and touch in the graph window. What they say is a test's: this takes the place of the host's two functions.

using namespace test;

namespace {

std::optional<Pen_Record> pen;
std::optional<Gesture_Record> gesture;
UINT asked = 0;

}

int Fct_Pointer_Pen(HWND, UINT message, WPARAM, LPARAM, Pen_Record* record)
{
    asked = message;
    if (pen)
        *record = *pen;
    return pen.has_value();
}

int Fct_Pointer_Touch(HWND, UINT message, WPARAM, LPARAM, Gesture_Record* record)
{
    asked = message;
    if (gesture)
        *record = *gesture;
    return gesture.has_value();
}

namespace {

class GraphPointer : public Graph_Window {
protected:
    static constexpr int tip = 16, barrel = 64;

    GraphPointer()
    {
        pen.reset();
        gesture.reset();
        Counts counts(101, 500u);
        counts[50] = 1000;
        give(std::move(counts));
    }

    /// The pen says that it is at a place; the window is told.
    LRESULT tell(UINT message, Place place, int buttons)
    {
        POINT point{place.x, graph().height - 1 - place.y};
        ClientToScreen(window(), &point);
        pen = Pen_Record{buttons, point.x, point.y};
        return SendMessageA(window(), message, 0, 0);
    }

    LRESULT pinch(Gesture_Record said)
    {
        gesture = said;
        return SendMessageA(window(), WM_TOUCH, 0, 0);
    }

    void post_moves()
    {
        for (int i = 0; i < 5; ++i)
            PostMessageA(window(), WM_MOUSEMOVE, 0, MAKELPARAM(20 + i, 20));
    }

    static bool waits(UINT message)
    {
        MSG waiting;
        return PeekMessageA(&waiting, window(), message, message, PM_NOREMOVE) != FALSE;
    }
};

}

TEST_F(GraphPointer, ThePenZoomsAsTheMouseDoes)
{
    open();
    EXPECT_EQ(tell(WM_POINTERDOWN, {px + 143, py + 23}, tip), 0);
    EXPECT_EQ(asked, WM_POINTERDOWN);
    EXPECT_TRUE(graph().dragging);
    EXPECT_EQ(graph().drag_start.x, px + 143);
    EXPECT_EQ(graph().drag_start.y, py + 23);
    EXPECT_EQ(tell(WM_POINTERUPDATE, {px + 286, py + 123}, tip | 1), 0);
    EXPECT_EQ(graph().drag_end.x, px + 286);
    EXPECT_EQ(tell(WM_POINTERUP, {px + 286, py + 123}, 0), 0);
    EXPECT_FALSE(graph().dragging);
    EXPECT_NEAR(graph().x.origin, 17, 1e-3);
    EXPECT_NEAR(graph().x.end(), 39, 1e-3);
}

TEST_F(GraphPointer, ThePenPressesButtons)
{
    open();
    turn({400, 250}, -120);
    EXPECT_TRUE(graph().zoomed);
    tell(WM_POINTERDOWN, middle(graph().reset), tip);
    EXPECT_FALSE(graph().zoomed);
}

TEST_F(GraphPointer, APressIsNoMotion)
{
    open();
    Flag_Trace = 4;
    reports.clear();
    tell(WM_POINTERDOWN, {2, 2}, tip | 1);
    tell(WM_POINTERUP, {2, 2}, 1);
    Flag_Trace = 0;
    EXPECT_EQ(reports.texts(14), (std::vector<std::string>{"Mode Histo: Histo_Blow_Click(up_down=00000012)",
                                     "Mode Histo: Histo_Blow_Click(up_down=00000001)"}));
}

TEST_F(GraphPointer, OfMovesThatWaitOnlyTheLastIsMade)
{
    open();
    tell(WM_POINTERDOWN, {px + 143, py + 23}, tip);
    for (int i = 0; i < 5; ++i)
        PostMessageA(window(), WM_POINTERUPDATE, 0, 0);
    post_moves();
    tell(WM_POINTERUPDATE, {px + 200, py + 100}, tip | 1);
    EXPECT_FALSE(waits(WM_POINTERUPDATE));
    EXPECT_TRUE(waits(WM_MOUSEMOVE)) << "others are left alone";
}

TEST_F(GraphPointer, FingersMoveAndMagnify)
{
    open();
    turn({px + 357, py + 111}, -600);
    const float origin = graph().x.origin, scale = graph().x.scale;
    const float count_origin = graph().y.origin, count_scale = graph().y.scale;
    EXPECT_EQ(pinch({20, 10, 1.1f, 1.05f}), 0);
    EXPECT_EQ(asked, WM_TOUCH);
    EXPECT_NEAR(graph().x.origin, origin - 20 * scale, 1e-3);
    EXPECT_NEAR(graph().y.origin, count_origin + 10 * count_scale, 1e-2);
    EXPECT_NEAR(graph().x.scale, scale / 1.1f, 1e-6);
    EXPECT_NEAR(graph().y.scale, count_scale / 1.05f, 1e-5);
    EXPECT_TRUE(graph().zoomed);
}

TEST_F(GraphPointer, FingersStopADrag)
{
    open();
    press({200, 200});
    drag_to({300, 300});
    post_moves();
    pinch({0, 0, 5, 5}); // too much
    EXPECT_FALSE(graph().dragging);
    EXPECT_FALSE(graph().zoomed);
    EXPECT_NE(GetCapture(), window()) << "the mouse is free again";
    EXPECT_FALSE(waits(WM_MOUSEMOVE));
    release({300, 300});
    EXPECT_FALSE(graph().zoomed);
}

TEST_F(GraphPointer, WhatTheHostLeavesIsForTheDefaultProcedure)
{
    open();
    press({200, 200});
    for (const UINT message : {WM_POINTERDOWN, WM_POINTERUPDATE, WM_POINTERUP, WM_TOUCH}) {
        reports.clear();
        SendMessageA(window(), message, 0, 0);
        EXPECT_EQ(asked, message);
        EXPECT_TRUE(reports.all().empty());
    }
    EXPECT_TRUE(graph().dragging);
}
