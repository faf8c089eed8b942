#include "tests/histo/graph_window.h"

// The rubber band: drawn so that drawing it again takes it away.

using namespace test;

namespace {

class GraphBand : public Graph_Window {
protected:
    GraphBand() { give(Counts(101, 10u)); }

    void start(Place from, Place to)
    {
        press(from);
        drag_to(to);
    }

    /// Whether the outline of a rectangle is another than before, pixel for pixel, and nothing within.
    bool shows_band(const std::vector<COLORREF>& before, Place low, Place high) const
    {
        const auto now = picture();
        const auto differs = [&](int x, int y) {
            const auto index = static_cast<size_t>((graph().height - 1 - y) * graph().width + x);
            return (now[index] ^ before[index]) == 0x00ffff;
        };
        bool all = true;
        for (int x = low.x; x <= high.x; ++x)
            all = all && differs(x, low.y) && differs(x, high.y);
        for (int y = low.y; y <= high.y; ++y)
            all = all && differs(low.x, y) && differs(high.x, y);
        return all && !differs(low.x + 1, low.y + 1) && !differs(high.x - 1, high.y - 1);
    }
};

}

TEST_F(GraphBand, FollowsTheDrag)
{
    open();
    const auto before = picture();
    press({200, 200});
    EXPECT_EQ(picture(), before);
    drag_to({260, 250});
    EXPECT_TRUE(shows_band(before, {200, 200}, {260, 250}));
    drag_to({150, 170});
    EXPECT_TRUE(shows_band(before, {150, 170}, {200, 200}));
    drag_to({200, 200});
    drag_to({201, 340});
    drag_to({300, 320});
    EXPECT_TRUE(shows_band(before, {200, 200}, {300, 320}));
}

TEST_F(GraphBand, BackAtTheStartNothingOfItIsLeft)
{
    open();
    const auto before = picture();
    start({200, 200}, {500, 300});
    drag_to({200, 200});
    const auto now = picture();
    size_t different = 0;
    for (size_t i = 0; i < now.size(); ++i)
        different += now[i] != before[i];
    EXPECT_LE(different, 1u) << "the band is one pixel, or none";
}

TEST_F(GraphBand, StaysWithinTheSelectionBox)
{
    open();
    const auto before = picture();
    start({200, 200}, {5, 97});
    EXPECT_TRUE(shows_band(before, {5, 97}, {200, 200}));
    drag_to({4, 96});
    EXPECT_TRUE(shows_band(before, {5, 97}, {200, 200})) << "outside it does not move";
}

TEST_F(GraphBand, AZoomTakesItAway)
{
    open();
    start({200, 200}, {8, 300}); // over the selection box's frame
    drag_to({6, 300});
    release({6, 300});
    EXPECT_TRUE(graph().zoomed);
    const auto now = picture();
    repaint();
    EXPECT_EQ(picture(), now);
}

TEST_F(GraphBand, AfterASmallDragItStaysUntilTheNextPlot)
{
    open();
    const auto before = picture();
    start({6, 200}, {12, 205});
    EXPECT_TRUE(shows_band(before, {6, 200}, {12, 205}));
    release({12, 205});
    EXPECT_TRUE(shows_band(before, {6, 200}, {12, 205}));
    drag_to({100, 300});
    EXPECT_TRUE(shows_band(before, {6, 200}, {12, 205}));
    start({300, 200}, {400, 300});
    EXPECT_TRUE(shows_band(before, {6, 200}, {12, 205})) << "another one leaves it alone";
    EXPECT_TRUE(shows_band(before, {300, 200}, {400, 300}));
    changed();
    EXPECT_EQ(picture(), before) << "over the box's frame, too";
}

TEST_F(GraphBand, APlotDuringADragLeavesNoGhost)
{
    open();
    const auto before = picture();
    start({200, 200}, {300, 300});
    changed();
    EXPECT_EQ(picture(), before);
    drag_to({350, 320});
    EXPECT_TRUE(shows_band(before, {200, 200}, {350, 320}));
    drag_to({360, 330});
    EXPECT_TRUE(shows_band(before, {200, 200}, {360, 330}));
    repaint();
    EXPECT_EQ(picture(), before);
    drag_to({350, 320});
    EXPECT_TRUE(shows_band(before, {200, 200}, {350, 320}));
}

TEST_F(GraphBand, ANewWindowHasNone)
{
    open();
    start({200, 200}, {300, 300});
    close();
    open();
    EXPECT_FALSE(graph().dragging);
    const auto before = picture();
    drag_to({350, 320});
    EXPECT_EQ(picture(), before);
    EXPECT_NE(GetCapture(), window());
}
