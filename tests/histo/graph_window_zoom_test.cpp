#include "tests/histo/graph_window.h"

#include <algorithm>
#include <cstdio>

// What part of the histogram the graph window shows: wheel, rectangles, fingers, "Reset Zoom".

using namespace test;

namespace {

constexpr Place center{60 + 357, 152 + 111};

/// Grey values 0 to 100, counts up to 1000: -5 to 105 and -100 to 1100 on 715 x 223 pixels.
class GraphZoom : public Graph_Window {
protected:
    GraphZoom()
    {
        Counts counts(101, 500u);
        counts[50] = 1000;
        give(std::move(counts));
    }

    struct View {
        float x, width, y, height;
    };

    static View view()
    {
        const auto& [x, y] = std::pair{graph().x, graph().y};
        return {x.origin, x.end() - x.origin, y.origin, y.end() - y.origin};
    }

    static void expect_view(const View& expected)
    {
        const View seen = view();
        EXPECT_NEAR(seen.x, expected.x, 1e-3);
        EXPECT_NEAR(seen.width, expected.width, 1e-3);
        EXPECT_NEAR(seen.y, expected.y, 1e-2);
        EXPECT_NEAR(seen.height, expected.height, 1e-2);
    }

    static constexpr View everything{-5, 110, -100, 1200};
};

}

TEST_F(GraphZoom, BeginsWithEverything)
{
    open();
    expect_view(everything);
    EXPECT_FALSE(graph().zoomed);
    resize(1000, 600);
    expect_view(everything);
}

// ----------------------------------------------------------------------------------------------------------- wheel

TEST_F(GraphZoom, HalfATurnOfTheWheelWaitsForItsOtherHalf)
{
    open();
    turn(center, -60);
    expect_view(everything);
    EXPECT_FALSE(graph().zoomed);
    turn(center, -60);
    EXPECT_TRUE(graph().zoomed);
    EXPECT_NEAR(view().width, 99, 1e-3);
    EXPECT_NEAR(view().height, 1080, 1e-2);
}

TEST_F(GraphZoom, StepsThatComeTogetherAreOneFactor)
{
    open();
    turn(center, -360); // 0.7
    EXPECT_NEAR(view().width, 77, 1e-3);
    turn(center, 240); // 1.2
    EXPECT_NEAR(view().width, 92.4, 1e-3);
    turn(center, 240);
    EXPECT_NEAR(view().width, 110, 1e-3) << "everything is the most";
    EXPECT_NEAR(view().x, -5, 1e-3);
    EXPECT_TRUE(graph().zoomed);
}

TEST_F(GraphZoom, WhatIsLeftOfATurnIsKept)
{
    open();
    turn(center, 130);
    EXPECT_EQ(graph().wheel, 10);
    turn(center, -260);
    EXPECT_EQ(graph().wheel, -10);
    EXPECT_NEAR(view().width, 88, 1e-3) << "-250 are two steps";
}

TEST_F(GraphZoom, OppositeTurnsCancel)
{
    open();
    turn(center, 100);
    turn(center, -40);
    EXPECT_EQ(graph().wheel, 60);
    EXPECT_FALSE(graph().zoomed);
}

TEST_F(GraphZoom, ANewWindowBeginsItsTurnsAnew)
{
    open();
    turn(center, -60);
    close();
    open();
    turn(center, -60);
    EXPECT_FALSE(graph().zoomed);
}

TEST_F(GraphZoom, TheValueUnderThePointerStaysThere)
{
    open();
    const Place place{300, 200};
    const double grey = static_cast<double>(graph().x.origin + graph().x.scale * (300 - px));
    const double count = static_cast<double>(graph().y.origin + graph().y.scale * (200 - py));
    turn(place, -240);
    EXPECT_NEAR(graph().x.pixel_of(grey), 300, 0.01);
    EXPECT_NEAR(graph().y.pixel_of(count), 200, 0.01);
}

TEST_F(GraphZoom, InTheMarginTheWheelZoomsAtThePlotsEdge)
{
    open();
    turn({10, 390}, -240); // upper left corner of the box
    expect_view({-5, 88, -100 + 240, 960});
}

TEST_F(GraphZoom, BesideTheBoxTheWheelDoesNotZoom)
{
    open();
    turn({400, 98}, -120);
    turn(middle(graph().reset), -120);
    expect_view(everything);
    EXPECT_FALSE(graph().zoomed);
}

TEST_F(GraphZoom, TenStepsAtOnceShowEverythingAgain)
{
    for (const int steps : {-10, -11, -200}) {
        open();
        turn(center, -240);
        turn(center, 120 * steps);
        expect_view(everything);
        EXPECT_FALSE(graph().zoomed) << steps;
        turn(center, -120);
        EXPECT_NEAR(view().width, 99, 1e-3) << "and the wheel turns on";
        close();
    }
}

TEST_F(GraphZoom, TheWheelTurnsForEver)
{
    open();
    for (int i = 0; i < 400; ++i)
        turn(center, -120);
    for (int i = 0; i < 600; ++i)
        turn(center, 120);
    expect_view(everything);
    EXPECT_GT(count_of(yellow), 500);
}

TEST_F(GraphZoom, BeforeTheFirstPlotNothingZooms)
{
    lay_out();
    point(main_window(), middle(panel.blow));
    panel.Click(left_press);
    ASSERT_NE(window(), nullptr);
    ASSERT_FALSE(graph().has_view());
    turn(center, -120);
    histo::graph::pinch(0, 0, 1, 1);
    EXPECT_FALSE(graph().zoomed);
}

// ------------------------------------------------------------------------------------------------------ rectangles

TEST_F(GraphZoom, ADraggedRectangleIsWhatIsSeen)
{
    open();
    drag({px + 143, py + 23}, {px + 286, py + 123}); // a fifth of the width
    expect_view({-5 + 110 * 0.2f, 22, -100 + 1200 * 23.0f / 223, 1200 * 100.0f / 223});
    EXPECT_TRUE(graph().zoomed);
    EXPECT_FALSE(graph().dragging);
}

TEST_F(GraphZoom, TheDirectionOfADragDoesNotMatter)
{
    open();
    drag({px + 286, py + 123}, {px + 143, py + 23});
    expect_view({-5 + 110 * 0.2f, 22, -100 + 1200 * 23.0f / 223, 1200 * 100.0f / 223});
}

TEST_F(GraphZoom, ASecondRectangleIsOfWhatIsSeen)
{
    open();
    drag({px, py}, {px + pw / 5, py + ph - 1});
    drag({px + pw / 5 * 2, py}, {px + pw / 5 * 3, py + ph - 1});
    EXPECT_NEAR(view().x, -5 + 22 * 0.4, 1e-2);
    EXPECT_NEAR(view().width, 22 * 0.2, 1e-2);
}

TEST_F(GraphZoom, TenPixelsBothWaysAreTheLeastRectangle)
{
    open();
    drag({300, 200}, {309, 300});
    drag({300, 200}, {400, 209});
    drag({300, 200}, {291, 191});
    expect_view(everything);
    EXPECT_FALSE(graph().zoomed);
    drag({300, 200}, {310, 210});
    EXPECT_TRUE(graph().zoomed);
    EXPECT_NEAR(view().width, 110.0 * 10 / 715, 1e-3);
}

TEST_F(GraphZoom, ARectangleIsCutToThePlot)
{
    open();
    drag({20, 110}, {px + 143, py + 100});
    expect_view({-5, 22, -100, 1200 * 100.0f / 223});
}

TEST_F(GraphZoom, ADragInAMarginDoesNothing)
{
    open();
    drag({10, 200}, {50, 300});
    drag({200, 105}, {400, 140});
    drag({780, 200}, {790, 300});
    expect_view(everything);
    EXPECT_FALSE(graph().zoomed);
}

TEST_F(GraphZoom, ADragThatLeavesTheBoxKeepsItsLastPlaceInside)
{
    open();
    press({px + 143, py + 23});
    drag_to({px + 286, py + 123});
    drag_to({2000, 900});
    drag_to({-50, -20});
    release({-50, -20});
    expect_view({-5 + 110 * 0.2f, 22, -100 + 1200 * 23.0f / 223, 1200 * 100.0f / 223});
}

TEST_F(GraphZoom, ADragHoldsTheMouseUntilItEnds)
{
    open();
    press({200, 200});
    EXPECT_EQ(GetCapture(), window());
    drag_to({300, 300});
    release({300, 300});
    EXPECT_NE(GetCapture(), window());
}

TEST_F(GraphZoom, WhileAnotherButtonIsHeldTheDragGoesOn)
{
    open();
    press({px + 143, py + 23});
    drag_to({px + 200, py + 60});
    BYTE keys[256] = {};
    keys[VK_RBUTTON] = 0x80;
    SetKeyboardState(keys);
    SendMessageA(window(), WM_LBUTTONUP, MK_RBUTTON, MAKELPARAM(px + 200, 400 - 1 - py - 60));
    EXPECT_TRUE(graph().dragging);
    EXPECT_FALSE(graph().zoomed);
    drag_to({px + 286, py + 123});
    SetKeyboardState(std::fill_n(keys, 256, BYTE{0}) - 256);
    SendMessageA(window(), WM_LBUTTONUP, 0, MAKELPARAM(px + 286, 400 - 1 - py - 123));
    EXPECT_FALSE(graph().dragging);
    EXPECT_NEAR(view().width, 22, 1e-3);
}

TEST_F(GraphZoom, TheNewViewIsReported)
{
    open();
    drag({px + 143, py}, {px + 286, py + 100});
    const auto notices = reports.texts(11);
    ASSERT_EQ(notices.size(), 1u);
    char expected[200];
    std::snprintf(expected, sizeof expected, "org: %.2f/%.2f  scale: %.2f/%.2f", 17.0, -100.0, 22.0 / 715,
        1200.0 * 100 / 223 / 223);
    EXPECT_EQ(notices[0], expected);
    reports.clear();
    drag({300, 200}, {305, 205});
    turn(center, 120);
    EXPECT_TRUE(reports.texts(11).empty());
}

// ---------------------------------------------------------------------------------------------------------- fingers

TEST_F(GraphZoom, FingersMoveFirstAndThenMagnify)
{
    open();
    turn(center, -600); // half of it, around the middle
    const View before = view();
    histo::graph::pinch(20, 10, 1.1f, 1.05f);
    expect_view({before.x - before.width * 20 / 715, before.width / 1.1f, before.y + before.height * 10 / 223,
        before.height / 1.05f});
}

TEST_F(GraphZoom, FingersStayWithinEverything)
{
    open();
    turn(center, -600);
    histo::graph::pinch(5000, -5000, 1, 1);
    EXPECT_NEAR(view().x, -5, 1e-3);
    EXPECT_NEAR(view().y, -100, 1e-2);
    histo::graph::pinch(-5000, 5000, 1, 1);
    EXPECT_NEAR(view().x + view().width, 105, 1e-3);
    EXPECT_NEAR(view().y + view().height, 1100, 1e-2);
    histo::graph::pinch(5000, -5000, 1, 1);
    histo::graph::pinch(0, 0, 0.09f, 0.09f);
    expect_view(everything);
}

TEST_F(GraphZoom, AGestureTooLargeIsIgnored)
{
    open();
    turn(center, -600);
    const View before = view();
    histo::graph::pinch(20, 10, 1.11f, 1);
    histo::graph::pinch(20, 10, 1, 0.08f);
    histo::graph::pinch(20, 10, -1, 1);
    expect_view(before);
    histo::graph::pinch(0, 0, 1.1f, 0.09f);
    EXPECT_NEAR(view().width, before.width / 1.1f, 1e-3) << "the limits belong to it";
}

// ------------------------------------------------------------------------------------------------------ "Reset Zoom"

TEST_F(GraphZoom, ResetZoomShowsEverything)
{
    open();
    const auto before = picture();
    turn(center, -240);
    EXPECT_NE(picture(), before);
    press(middle(graph().reset));
    expect_view(everything);
    EXPECT_FALSE(graph().zoomed);
    EXPECT_EQ(graph().reset.pressed, 0) << "it is released at once";
    release(middle(graph().reset));
    drag_to(center);
    repaint();
    EXPECT_EQ(picture(), before);
}

// -------------------------------------------------------------------------------------------------------- other data

TEST_F(GraphZoom, AZoomOutlivesRedrawsAndOtherCounts)
{
    open();
    drag({px + 143, py + 23}, {px + 286, py + 123});
    const View before = view();
    repaint();
    Counts counts(101, 700u);
    counts[3] = 1000;
    give(std::move(counts));
    changed();
    expect_view(before);
    EXPECT_TRUE(graph().zoomed);
}

TEST_F(GraphZoom, AnotherHistogramIsShownWhole)
{
    open();
    give(Histogram(-1000, 10, Counts(201, 50u)));
    changed();
    expect_view({-1100, 2200, -5, 60});
}

TEST_F(GraphZoom, AZoomBeyondAnotherHistogramMovesIntoIt)
{
    open();
    drag({px + 429, py + 23}, {px + 572, py + 123}); // 61 to 83
    give(Counts(21, 500u));                          // -1 to 21
    changed();
    EXPECT_NEAR(view().x + view().width, 21, 1e-3);
    EXPECT_GE(view().x, -1 - 1e-3f);
    EXPECT_LE(view().width, 22 + 1e-3f);
}

TEST_F(GraphZoom, AFarEdgeBeyondAnotherHistogramIsLimited)
{
    open();
    drag({px + 143, py + 23}, {px + 286, py + 123}); // 17 to 39
    give(Counts(31, 500u));                          // -1.5 to 31.5
    changed();
    EXPECT_NEAR(view().x, 17, 1e-3);
    EXPECT_NEAR(view().width, 14.5, 1e-3);
    EXPECT_NEAR(graph().x.pixel_of(31.5), px + pw, 0.01) << "curves have the same scale";
}

TEST_F(GraphZoom, ANewWindowShowsEverything)
{
    open();
    turn(center, -240);
    close();
    open();
    expect_view(everything);
    EXPECT_FALSE(graph().zoomed);
}
