#include "tests/platform/canvas.h"

#include <random>

// Cursor lines that are drawn and taken back, and lines of many points.

namespace {

using test::black;
using test::white;

class Lines : public test::Canvas {
protected:
    std::vector<COLORREF> pixels()
    {
        std::vector<COLORREF> all;
        for (int i = 0; i < width * height; ++i)
            all.push_back(pixel(i % width, i / width));
        return all;
    }

    void paint_stripes()
    {
        for (int x = 0; x < width; ++x)
            fill(x, 0, x + 1, height, RGB(x * 4, 255 - x, x * 7 % 256));
    }

    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

    // Points that go on along one axis twice in three times.
    std::vector<POINT> random_points(int count)
    {
        std::vector<POINT> points{{below(width), below(height)}};
        while (static_cast<int>(points.size()) < count) {
            POINT next{below(width + 10) - 5, below(height + 10) - 5};
            const int kind = below(3);
            if (kind == 0)
                next.x = points.back().x;
            if (kind == 1)
                next.y = points.back().y;
            points.push_back(next);
        }
        return points;
    }

    void draw_one_by_one(const std::vector<POINT>& points)
    {
        MoveToEx(dc, points[0].x, points[0].y, nullptr);
        for (size_t i = 1; i < points.size(); ++i)
            LineTo(dc, points[i].x, points[i].y);
    }

    void draw_at_once(const std::vector<POINT>& points)
    {
        EXPECT_TRUE(Polyline(dc, points.data(), static_cast<int>(points.size())));
    }

private:
    std::mt19937 random_{11};
};

using Cursor_Line = Lines;
using Long_Line = Lines;

}

TEST_F(Cursor_Line, CoversTheColumnBeforeItAndItsOwn)
{
    y_upward();
    SetROP2(dc, R2_XORPEN);
    use_pen(PS_SOLID, 2, white);
    line(20, 5, 20, 15);
    SetMapMode(dc, MM_TEXT);
    SetViewportOrgEx(dc, 0, 0, nullptr);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool lit = (x == 19 || x == 20) && y > height - 1 - 15 && y <= height - 1 - 5;
            ASSERT_EQ(pixel(x, y), lit ? white : black) << x << ", " << y;
        }
    }
}

TEST_F(Cursor_Line, DrawnTwiceLeavesEveryPixelAsItWas)
{
    y_upward();
    paint_stripes();
    const auto before = pixels();
    SetROP2(dc, R2_XORPEN);
    use_pen(PS_SOLID, 2, white);
    for (const int x : {0, 1, 17, width - 1, width}) {
        line(x, 2, x, 36);
        EXPECT_NE(pixels(), before) << x;
        line(x, 2, x, 36);
        EXPECT_EQ(pixels(), before) << x;
    }
}

TEST_F(Cursor_Line, IsTakenBackThroughTheSameClip)
{
    y_upward();
    paint_stripes();
    const auto before = pixels();
    SetROP2(dc, R2_XORPEN);
    use_pen(PS_SOLID, 2, white);
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, 10, 30, 21, 7);
    line(20, 2, 20, 36);
    line(21, 2, 21, 36);
    EXPECT_NE(pixels(), before);
    line(20, 2, 20, 36);
    line(21, 2, 21, 36);
    RestoreDC(dc, saved);
    EXPECT_EQ(pixels(), before);
}

TEST_F(Cursor_Line, LeftOfTheWindowTouchesNothing)
{
    y_upward();
    paint_stripes();
    const auto before = pixels();
    SetROP2(dc, R2_XORPEN);
    use_pen(PS_SOLID, 2, white);
    line(-1, 0, -1, height);
    EXPECT_EQ(pixels(), before);
}

TEST_F(Long_Line, IsTheSameAsItsLinesOneByOne)
{
    use_pen(PS_SOLID, 1, white);
    for (int time = 0; time < 60; ++time) {
        const auto points = random_points(2 + below(20));
        fill_canvas(black);
        draw_one_by_one(points);
        const auto expected = pixels();
        fill_canvas(black);
        draw_at_once(points);
        ASSERT_EQ(pixels(), expected) << time;
    }
}

TEST_F(Long_Line, OfManyPointsAColumnIsTheSameToo)
{
    use_pen(PS_SOLID, 1, white);
    std::vector<POINT> points;
    for (int i = 0; i < 20000; ++i)
        points.push_back({i * width / 20000, 5 + below(20)});
    draw_one_by_one(points);
    const auto expected = pixels();
    fill_canvas(black);
    draw_at_once(points);
    EXPECT_EQ(pixels(), expected);
}

TEST_F(Long_Line, CombinesEachOfItsLinesWithWhatIsThere)
{
    use_pen(PS_SOLID, 1, white);
    SetROP2(dc, R2_XORPEN);
    for (int time = 0; time < 20; ++time) {
        const auto points = random_points(12);
        draw_one_by_one(points);
        EXPECT_NE(pixels(), std::vector<COLORREF>(width * height, black));
        draw_at_once(points);
        ASSERT_EQ(pixels(), std::vector<COLORREF>(width * height, black)) << time;
    }
}

TEST_F(Long_Line, GoingBackOnItselfLeavesOutNothingButItsEnd)
{
    use_pen(PS_SOLID, 1, white);
    const POINT up_and_back[] = {{3, 1}, {3, 6}, {3, 2}, {3, 2}, {3, 8}};
    Polyline(dc, up_and_back, 5);
    const POINT there_and_back[] = {{5, 2}, {8, 2}, {5, 2}};
    Polyline(dc, there_and_back, 3);
    EXPECT_EQ(picture(10, 10), "..........\n"
                               "...#......\n"
                               "...#.####.\n"
                               "...#......\n"
                               "...#......\n"
                               "...#......\n"
                               "...#......\n"
                               "...#......\n"
                               "..........\n"
                               "..........\n");
}

TEST_F(Long_Line, LeavesTheCurrentPositionAlone)
{
    use_pen(PS_SOLID, 1, white);
    MoveToEx(dc, 4, 5, nullptr);
    draw_at_once({{1, 1}, {9, 1}});
    POINT position{};
    MoveToEx(dc, 0, 0, &position);
    EXPECT_EQ(position.x, 4);
    EXPECT_EQ(position.y, 5);
}

TEST_F(Long_Line, OutlinesAPolygonOfBars)
{
    use_pen(PS_SOLID, 1, white);
    use_brush(RGB(255, 0, 0));
    const POINT bars[] = {{2, 9}, {2, 5}, {5, 5}, {5, 2}, {8, 2}, {8, 9}};
    Polygon(dc, bars, 6);
    EXPECT_EQ(picture(10, 11), "..........\n"
                               "..........\n"
                               ".....####.\n"
                               ".....####.\n"
                               ".....####.\n"
                               "..#######.\n"
                               "..#######.\n"
                               "..#######.\n"
                               "..#######.\n"
                               "..#######.\n"
                               "..........\n");
    EXPECT_EQ(pixel(8, 8), white);
    EXPECT_EQ(pixel(3, 9), white);
    EXPECT_EQ(pixel(2, 9), white);
    EXPECT_EQ(pixel(7, 8), RGB(255, 0, 0));
}
