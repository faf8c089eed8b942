#include "tests/histo/graph_window.h"

#include "histo/tool_histo_blow.h"
#include "hostkit/structures/series_pixels.h"
#include "hostkit/structures/tree.h"

// The cursor of the graph window: where the grey value under the pointer is.

using namespace test;

namespace {

constexpr unsigned long long component_changed = bit(39);

class GraphCursor : public Graph_Window {
protected:
    GraphCursor()
    {
        give(Counts(101, 0u));
        panel.histo->max_count = 1000;
    }

    /// An image of a row of grey values.
    void show_image(std::vector<short> values)
    {
        values_ = std::move(values);
        Strato_2D* const series = hostkit::Object_2D_Add(hostkit::Root_2D(), {.name = "series"});
        Strato_2D_Frame* const image = hostkit::Frame_Add(series, {.name = "1", .class_a = hostkit::frame_class});
        hostkit::Series_Pixels_Set(series, {.type = hostkit::Pixel_Type::i16,
                                               .data = values_.data(),
                                               .width = static_cast<int>(values_.size()),
                                               .height = 1,
                                               .frames = 1});
        hostkit::Object_Variable<Strato_2D_Frame>("$FRAME_OVR") = image;
    }

    void open_with_cursor()
    {
        Histo_Graph_Display(0, 0, 1);
        open();
        before_ = picture();
    }

    /// The pointer goes to a pixel of the image; the panel tells the window.
    void move_to(float x)
    {
        auto* const mouse =
            static_cast<float*>(hostkit::Variable_Define("$MOUSE_FRM", hostkit::Variable_Type::Four_Floats));
        mouse[1] = x;
        mouse[2] = 0;
        panel.Update(pointer_moved);
        deliver();
    }

    /// The columns that are the inverse of what was there, in the middle of the plot.
    std::vector<int> cursor() const
    {
        const auto now = picture();
        std::vector<int> found;
        const size_t row = static_cast<size_t>(graph().height - 1 - (py + 100)) * static_cast<size_t>(graph().width);
        for (size_t x = 0; x < static_cast<size_t>(graph().width); ++x) {
            if ((now[row + x] ^ before_[row + x]) == 0xffffff)
                found.push_back(static_cast<int>(x));
        }
        return found;
    }

    std::vector<COLORREF> before_;

private:
    std::vector<short> values_;
};

using Numbers = std::vector<int>;

Numbers line_at(int x)
{
    return {x - 1, x};
}

}

TEST_F(GraphCursor, StandsAtTheLowerEdgeOfTheValuesBin)
{
    show_image({0, 10, 50, 100});
    open_with_cursor();
    EXPECT_EQ(cursor(), Numbers{});
    move_to(1);
    EXPECT_EQ(cursor(), line_at(x_of(10)));
    move_to(2);
    EXPECT_EQ(cursor(), line_at(x_of(50)));
    move_to(3);
    EXPECT_EQ(cursor(), line_at(x_of(100)));
    move_to(0);
    EXPECT_EQ(cursor(), line_at(x_of(0)));
}

TEST_F(GraphCursor, ReachesOverTheWholeHeight)
{
    show_image({50});
    open_with_cursor();
    move_to(0);
    const int x = x_of(50);
    const auto now = picture();
    const auto inverse = [&](int y) {
        const auto index = static_cast<size_t>((graph().height - 1 - y) * graph().width + x);
        return (now[index] ^ before_[index]) == 0xffffff;
    };
    for (const int y : {py, py + 1, py + 100, py + ph - 1})
        EXPECT_TRUE(inverse(y)) << y;
    EXPECT_FALSE(inverse(py + ph + 3));
    EXPECT_FALSE(inverse(py - 3));
}

TEST_F(GraphCursor, ValuesBesideTheHistogramAreItsFirstAndLastBin)
{
    show_image({-500, 500});
    open_with_cursor();
    move_to(0);
    EXPECT_EQ(cursor(), line_at(x_of(0)));
    move_to(1);
    EXPECT_EQ(cursor(), line_at(x_of(100)));
}

TEST_F(GraphCursor, GoesWithoutATraceWhereThereIsNoValue)
{
    show_image({50, 20});
    open_with_cursor();
    move_to(0);
    move_to(-7);
    EXPECT_EQ(picture(), before_);
    move_to(1);
    hostkit::Object_Variable<Strato_2D_Frame>("$FRAME_OVR") = nullptr;
    move_to(1);
    EXPECT_EQ(picture(), before_);
}

TEST_F(GraphCursor, OffItDoesNotFollow)
{
    show_image({50});
    open_with_cursor();
    Histo_Graph_Display(0, 0, 0);
    deliver();
    move_to(0);
    EXPECT_EQ(picture(), before_);
}

TEST_F(GraphCursor, TurnedOffItIsGone)
{
    show_image({50});
    open_with_cursor();
    move_to(0);
    EXPECT_FALSE(cursor().empty());
    choose(graph().cursor_select, 0);
    EXPECT_TRUE(cursor().empty());
}

TEST_F(GraphCursor, FollowsTheZoom)
{
    show_image({10, 50});
    open_with_cursor();
    drag({x_of(40), py + 20}, {x_of(70), py + 200});
    before_ = picture();
    move_to(1);
    const int x = static_cast<int>(graph().x.pixel_of(50));
    EXPECT_GT(x, px + 100);
    EXPECT_EQ(cursor(), line_at(x));
    move_to(0);
    EXPECT_EQ(picture(), before_) << "its value is not seen";
}

TEST_F(GraphCursor, APlotTakesItAwayUntilThePointerMoves)
{
    show_image({50, 60});
    open_with_cursor();
    move_to(0);
    changed();
    EXPECT_EQ(picture(), before_);
    move_to(1);
    EXPECT_EQ(cursor(), line_at(x_of(60))) << "and no ghost is left";
    turn({400, 250}, -120);
    before_ = picture();
    move_to(0);
    EXPECT_EQ(cursor(), line_at(x_of(50)));
}

TEST_F(GraphCursor, ALayoutLeavesNoGhost)
{
    show_image({50, 60});
    open_with_cursor();
    move_to(0);
    resize(700, 350);
    const auto clean = picture();
    move_to(1);
    SendMessageA(window(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(700, 350));
    SendMessageA(window(), WM_USER + 1, 0, 0);
    UpdateWindow(window());
    EXPECT_EQ(picture(), clean);
}

TEST_F(GraphCursor, ColoursHaveTheBinOfTheComponent)
{
    const unsigned char rgb[] = {30, 60, 90};
    Strato_2D* const series = hostkit::Object_2D_Add(hostkit::Root_2D(), {.name = "series"});
    Strato_2D_Frame* const image = hostkit::Frame_Add(series, {.name = "1", .class_a = hostkit::frame_class});
    hostkit::Series_Pixels_Set(
        series, {.type = hostkit::Pixel_Type::rgb, .data = rgb, .width = 1, .height = 1, .frames = 1});
    hostkit::Object_Variable<Strato_2D_Frame>("$FRAME_OVR") = image;
    open_with_cursor();
    const int bins[] = {90, 30, 60, 90, 9 + 35 + 9};
    for (unsigned char component = 0; component < 5; ++component) {
        hostkit::Variable<unsigned char>("$GLI_COLOR_COMPONENT") = component;
        panel.Update(component_changed);
        deliver();
        before_ = picture();
        move_to(0);
        EXPECT_EQ(cursor(), line_at(x_of(bins[component]))) << int(component);
    }
}

TEST_F(GraphCursor, IsTraced)
{
    show_image({50});
    open_with_cursor();
    Flag_Trace = 4;
    reports.clear();
    SendMessageA(window(), WM_USER + 1, 0, 0);
    EXPECT_EQ(reports.texts(14), std::vector<std::string>{"in Histo_Cursor()"});
}
