#include "tests/platform/canvas.h"

#include <algorithm>
#include <cstdlib>
#include <random>

// What each call draws, pixel by pixel.

namespace {

using Drawing = test::Canvas;
using test::black;
using test::white;

// What the drawing calls must come to, written as plainly as possible.
class Reference {
public:
    static constexpr int width = 60;
    static constexpr int height = 40;

    void fill(int left, int top, int right, int bottom, bool exclusive_or)
    {
        for (int y = std::max(top, 0); y < std::min(bottom, height); ++y)
            for (int x = std::max(left, 0); x < std::min(right, width); ++x)
                dots_[static_cast<size_t>(y * width + x)] ^=
                    exclusive_or ? 1 : dots_[static_cast<size_t>(y * width + x)] ^ 1;
    }

    // An axis-parallel line, one pixel wide, without its end.
    void line(int x1, int y1, int x2, int y2, bool exclusive_or)
    {
        const int dx = (x2 > x1) - (x2 < x1);
        const int dy = (y2 > y1) - (y2 < y1);
        for (int x = x1, y = y1; x != x2 || y != y2; x += dx, y += dy)
            fill(x, y, x + 1, y + 1, exclusive_or);
    }

    std::string picture() const
    {
        std::string result;
        for (int i = 0; i < width * height; ++i) {
            result += dots_[static_cast<size_t>(i)] ? '#' : '.';
            if (i % width == width - 1)
                result += '\n';
        }
        return result;
    }

private:
    std::vector<int> dots_ = std::vector<int>(width * height, 0);
};

}

TEST_F(Drawing, LineLeavesOutItsLastPoint)
{
    use_pen(PS_SOLID, 1, white);
    line(1, 1, 5, 1);
    line(7, 0, 7, 3);
    EXPECT_EQ(picture(9, 4), ".......#.\n"
                             ".####..#.\n"
                             ".......#.\n"
                             ".........\n");
}

TEST_F(Drawing, LineBackwardsLeavesOutItsLastPointToo)
{
    use_pen(PS_SOLID, 1, white);
    line(5, 1, 1, 1);
    line(7, 3, 7, 0);
    EXPECT_EQ(picture(9, 4), ".........\n"
                             "..####.#.\n"
                             ".......#.\n"
                             ".......#.\n");
}

TEST_F(Drawing, LineGoesOnWhereTheLastOneEnded)
{
    use_pen(PS_SOLID, 1, white);
    MoveToEx(dc, 1, 0, nullptr);
    LineTo(dc, 4, 0);
    LineTo(dc, 4, 2);
    POINT before{};
    MoveToEx(dc, 9, 9, &before);
    EXPECT_EQ(before.x, 4);
    EXPECT_EQ(before.y, 2);
    EXPECT_EQ(picture(6, 3), ".####.\n"
                             "....#.\n"
                             "......\n");
}

TEST_F(Drawing, LineToItsOwnStartDrawsNothing)
{
    use_pen(PS_SOLID, 1, white);
    line(3, 3, 3, 3);
    EXPECT_EQ(pixel(3, 3), black);
}

TEST_F(Drawing, WidePenIsCentredOnItsPath)
{
    use_pen(PS_SOLID, 3, white);
    line(2, 10, 40, 10);
    EXPECT_EQ(pixel(20, 8), black);
    EXPECT_EQ(pixel(20, 9), white);
    EXPECT_EQ(pixel(20, 10), white);
    EXPECT_EQ(pixel(20, 11), white);
    EXPECT_EQ(pixel(20, 12), black);
}

TEST_F(Drawing, SlantedLineHasOnePixelAColumnNearItsPath)
{
    use_pen(PS_SOLID, 1, white);
    line(2, 3, 42, 19);
    for (int x = 2; x < 42; ++x) {
        int dots = 0;
        for (int y = 0; y < height; ++y) {
            if (pixel(x, y) == black)
                continue;
            ++dots;
            EXPECT_LE(std::abs((x - 2) * 16 - (y - 3) * 40), 40) << x << ", " << y;
        }
        EXPECT_EQ(dots, 1) << x;
    }
    EXPECT_EQ(pixel(2, 3), white);
    EXPECT_EQ(pixel(42, 19), black);
}

TEST_F(Drawing, NoPenDrawsNoLine)
{
    use_no_pen();
    line(1, 1, 9, 1);
    use_pen(PS_NULL, 1, white);
    line(1, 2, 9, 2);
    EXPECT_EQ(picture(10, 3), "..........\n..........\n..........\n");
}

TEST_F(Drawing, DottedPenLeavesGaps)
{
    SetBkMode(dc, TRANSPARENT);
    use_pen(PS_DOT, 1, white);
    line(0, 5, 50, 5);
    int dots = 0;
    for (int x = 0; x < 50; ++x)
        dots += pixel(x, 5) != black;
    EXPECT_GT(dots, 10);
    EXPECT_LT(dots, 40);
}

TEST_F(Drawing, PolylineIsItsLinesWithoutTheVeryLastPoint)
{
    use_pen(PS_SOLID, 1, white);
    const POINT points[] = {{1, 1}, {5, 1}, {5, 4}};
    EXPECT_TRUE(Polyline(dc, points, 3));
    EXPECT_EQ(picture(7, 5), ".......\n"
                             ".#####.\n"
                             ".....#.\n"
                             ".....#.\n"
                             ".......\n");
}

TEST_F(Drawing, RectangleLeavesOutRightAndBottom)
{
    use_pen(PS_SOLID, 1, white);
    use_no_brush();
    EXPECT_TRUE(Rectangle(dc, 1, 1, 6, 5));
    EXPECT_EQ(picture(7, 6), ".......\n"
                             ".#####.\n"
                             ".#...#.\n"
                             ".#...#.\n"
                             ".#####.\n"
                             ".......\n");
}

TEST_F(Drawing, RectangleFillsInsideItsFrame)
{
    use_pen(PS_SOLID, 1, RGB(255, 0, 0));
    use_brush(RGB(0, 0, 255));
    Rectangle(dc, 1, 1, 6, 5);
    EXPECT_EQ(pixel(1, 1), RGB(255, 0, 0));
    EXPECT_EQ(pixel(5, 4), RGB(255, 0, 0));
    EXPECT_EQ(pixel(2, 2), RGB(0, 0, 255));
    EXPECT_EQ(pixel(4, 3), RGB(0, 0, 255));
}

TEST_F(Drawing, RectangleWithoutAPenIsOnePixelLess)
{
    use_no_pen();
    use_brush(white);
    Rectangle(dc, 1, 1, 6, 5);
    EXPECT_EQ(picture(7, 6), ".......\n"
                             ".####..\n"
                             ".####..\n"
                             ".####..\n"
                             ".......\n"
                             ".......\n");
}

TEST_F(Drawing, WideFrameIsCentredOnTheEdge)
{
    use_pen(PS_SOLID, 3, white);
    use_no_brush();
    Rectangle(dc, 10, 10, 30, 30);
    EXPECT_EQ(pixel(20, 8), black);
    EXPECT_EQ(pixel(20, 9), white);
    EXPECT_EQ(pixel(20, 11), white);
    EXPECT_EQ(pixel(20, 12), black);
    EXPECT_EQ(pixel(20, 27), black);
    EXPECT_EQ(pixel(20, 28), white);
    EXPECT_EQ(pixel(20, 30), white);
    EXPECT_EQ(pixel(20, 31), black);
}

TEST_F(Drawing, FillLeavesOutRightAndBottom)
{
    fill(1, 1, 5, 3, white);
    EXPECT_EQ(picture(6, 4), "......\n"
                             ".####.\n"
                             ".####.\n"
                             "......\n");
}

TEST_F(Drawing, FillTurnsARectangleRound)
{
    fill(1, 3, 5, 1, white);
    EXPECT_EQ(picture(6, 4), "......\n"
                             ".####.\n"
                             ".####.\n"
                             "......\n");
}

TEST_F(Drawing, FillOfNoAreaOrNoBrushDrawsNothing)
{
    fill(3, 3, 3, 9, white);
    const RECT area{1, 1, 9, 9};
    FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(NULL_BRUSH)));
    EXPECT_EQ(pixel(3, 3), black);
    EXPECT_EQ(pixel(1, 1), black);
}

TEST_F(Drawing, FrameIsOnePixelInside)
{
    const RECT area{1, 1, 5, 4};
    HBRUSH brush = CreateSolidBrush(white);
    EXPECT_NE(FrameRect(dc, &area, brush), 0);
    DeleteObject(brush);
    EXPECT_EQ(picture(6, 5), "......\n"
                             ".####.\n"
                             ".#..#.\n"
                             ".####.\n"
                             "......\n");
}

TEST_F(Drawing, PolygonOfAxisParallelSidesFillsWhatLiesBetween)
{
    use_no_pen();
    use_brush(white);
    const POINT points[] = {{1, 1}, {5, 1}, {5, 4}, {1, 4}};
    EXPECT_TRUE(Polygon(dc, points, 4));
    EXPECT_EQ(picture(6, 5), "......\n"
                             ".####.\n"
                             ".####.\n"
                             ".####.\n"
                             "......\n");
}

TEST_F(Drawing, PolygonFillsByTheAlternateRule)
{
    use_no_pen();
    use_brush(white);
    const POINT twice_round[] = {
        {2, 2}, {32, 2}, {32, 32}, {2, 32}, {2, 2}, {12, 12}, {22, 12}, {22, 22}, {12, 22}, {12, 12}};
    Polygon(dc, twice_round, 10);
    EXPECT_EQ(pixel(5, 15), white);
    EXPECT_EQ(pixel(17, 17), black);
    EXPECT_EQ(pixel(28, 17), white);
}

TEST_F(Drawing, PolygonClosesItsOutline)
{
    use_pen(PS_SOLID, 1, white);
    use_no_brush();
    const POINT points[] = {{1, 1}, {5, 1}, {5, 4}, {1, 4}};
    Polygon(dc, points, 4);
    EXPECT_EQ(picture(7, 6), ".......\n"
                             ".#####.\n"
                             ".#...#.\n"
                             ".#...#.\n"
                             ".#####.\n"
                             ".......\n");
}

TEST_F(Drawing, EllipseStaysInItsRectangleAndTouchesItsSides)
{
    use_pen(PS_SOLID, 1, white);
    use_brush(white);
    EXPECT_TRUE(Ellipse(dc, 5, 5, 25, 17));
    bool left = false, right = false, top = false, bottom = false;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (pixel(x, y) == black)
                continue;
            EXPECT_TRUE(x >= 5 && x < 25 && y >= 5 && y < 17) << x << ", " << y;
            left = left || x == 5;
            right = right || x == 24;
            top = top || y == 5;
            bottom = bottom || y == 16;
        }
    }
    EXPECT_TRUE(left && right && top && bottom);
    EXPECT_EQ(pixel(15, 11), white);
    EXPECT_EQ(pixel(5, 5), black);
}

TEST_F(Drawing, EllipseIsAsBroadOnBothSides)
{
    use_pen(PS_SOLID, 1, white);
    use_brush(white);
    Ellipse(dc, 0, 0, 12, 12);
    for (int y = 0; y < 12; ++y) {
        for (int x = 0; x < 12; ++x) {
            EXPECT_EQ(pixel(x, y), pixel(11 - x, y)) << x << ", " << y;
            EXPECT_EQ(pixel(x, y), pixel(x, 11 - y)) << x << ", " << y;
        }
    }
}

TEST_F(Drawing, PixelIsSetAndRead)
{
    EXPECT_EQ(SetPixel(dc, 4, 5, RGB(1, 2, 3)), RGB(1, 2, 3));
    EXPECT_EQ(GetPixel(dc, 4, 5), RGB(1, 2, 3));
    EXPECT_EQ(GetPixel(dc, -1, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(dc, 0, height), CLR_INVALID);
}

TEST_F(Drawing, AnyTwoExclusiveOrsLeaveWhatWasThere)
{
    for (int x = 0; x < width; ++x)
        fill(x, 0, x + 1, height, RGB(x * 4, 255 - x, x * 7 % 256));
    std::vector<COLORREF> before;
    for (int i = 0; i < width * height; ++i)
        before.push_back(pixel(i % width, i / width));

    SetROP2(dc, R2_XORPEN);
    use_pen(PS_SOLID, 1, RGB(90, 200, 17));
    use_brush(RGB(255, 128, 3));
    const POINT polygon[] = {{3, 30}, {20, 5}, {50, 25}, {30, 38}};
    for (int time = 0; time < 2; ++time) {
        line(3, 3, 50, 30);
        line(50, 2, 7, 2);
        Rectangle(dc, 10, 10, 40, 30);
        Polygon(dc, polygon, 4);
        Ellipse(dc, 20, 3, 55, 37);
    }
    for (int i = 0; i < width * height; ++i)
        ASSERT_EQ(pixel(i % width, i / width), before[static_cast<size_t>(i)]) << i % width << ", " << i / width;
}

TEST_F(Drawing, ExclusiveOrCombinesBitByBit)
{
    fill_canvas(RGB(0xF0, 0x0F, 0xAA));
    EXPECT_EQ(SetROP2(dc, R2_XORPEN), R2_COPYPEN);
    use_pen(PS_SOLID, 1, RGB(0xFF, 0xFF, 0x0F));
    line(1, 1, 5, 1);
    EXPECT_EQ(pixel(2, 1), RGB(0x0F, 0xF0, 0xA5));
    EXPECT_EQ(SetROP2(dc, R2_COPYPEN), R2_XORPEN);
}

TEST_F(Drawing, NotInvertsWhateverThePen)
{
    fill_canvas(RGB(0xF0, 0x0F, 0xAA));
    SetROP2(dc, R2_NOT);
    use_pen(PS_SOLID, 1, RGB(1, 2, 3));
    line(1, 1, 5, 1);
    EXPECT_EQ(pixel(2, 1), RGB(0x0F, 0xF0, 0x55));
}

TEST_F(Drawing, FillCopiesWhateverTheRasterOperation)
{
    fill_canvas(RGB(0xF0, 0x0F, 0xAA));
    SetROP2(dc, R2_XORPEN);
    fill(1, 1, 5, 5, RGB(1, 2, 3));
    EXPECT_EQ(pixel(2, 2), RGB(1, 2, 3));
}

TEST_F(Drawing, AxisParallelShapesAreWhatTheyShouldBeToThePixel)
{
    Reference reference;
    std::mt19937 random(7);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    use_pen(PS_SOLID, 1, white);
    use_no_brush();
    for (int i = 0; i < 300; ++i) {
        const bool exclusive_or = below(2) == 1;
        SetROP2(dc, exclusive_or ? R2_XORPEN : R2_COPYPEN);
        const int x = below(width), y = below(height), end_x = below(width), end_y = below(height);
        if (below(2) == 1) {
            line(x, y, end_x, y);
            reference.line(x, y, end_x, y, exclusive_or);
        } else {
            line(x, y, x, end_y);
            reference.line(x, y, x, end_y, exclusive_or);
        }
        const int left = below(width), top = below(height), right = left + 2 + below(20), bottom = top + 2 + below(20);
        Rectangle(dc, left, top, right, bottom);
        reference.fill(left, top, right, top + 1, exclusive_or);
        reference.fill(left, bottom - 1, right, bottom, exclusive_or);
        reference.fill(left, top + 1, left + 1, bottom - 1, exclusive_or);
        reference.fill(right - 1, top + 1, right, bottom - 1, exclusive_or);
    }
    EXPECT_EQ(picture(width, height), reference.picture());
}

TEST_F(Drawing, TheContextsBrushHasTheColourThatIsSet)
{
    const RECT area{1, 1, 3, 3};
    auto* const brush = static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
    SetDCBrushColor(dc, RGB(10, 20, 30));
    FillRect(dc, &area, brush);
    EXPECT_EQ(pixel(1, 1), RGB(10, 20, 30));
    EXPECT_EQ(SetDCBrushColor(dc, white), RGB(10, 20, 30));
    FillRect(dc, &area, brush);
    EXPECT_EQ(pixel(2, 2), white);
}
