#include "platform/qt/window_widget.h"
#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <QImage>

#include <random>
#include <string>

// What holds on screens of every scale.

namespace {

class Scaled : public ::testing::Test {
protected:
    Scaled()
    {
        test::pump();
        dc = GetDC(window.handle());
    }
    ~Scaled() override { ReleaseDC(window.handle(), dc); }

    QImage picture() const { return Window_Picture(window.handle()); }

    void use_pen(int width)
    {
        HPEN pen = CreatePen(PS_SOLID, width, RGB(255, 255, 255));
        DeleteObject(SelectObject(dc, pen));
    }

    void fill(const RECT& area, HBRUSH brush)
    {
        FillRect(dc, &area, brush);
        DeleteObject(brush);
    }

    void paint_stripes()
    {
        for (int x = 0; x < 60; ++x)
            fill({x, 0, x + 1, 40}, CreateSolidBrush(RGB(x * 4, 255 - x, x * 7 % 256)));
    }

    void line(int x1, int y1, int x2, int y2)
    {
        MoveToEx(dc, x1, y1, nullptr);
        LineTo(dc, x2, y2);
    }

    test::Test_Window window{nullptr, 60, 40};
    HDC dc = nullptr;
};

int scaled(int place, qreal scale)
{
    return qRound(place * scale);
}

}

TEST_F(Scaled, PictureHasTheScreensScale)
{
    EXPECT_EQ(picture().devicePixelRatio(), std::stod(VETRA_TEST_SCALE));
}

TEST_F(Scaled, CursorLineDrawnTwiceLeavesEveryPixelAsItWas)
{
    paint_stripes();
    const QImage before = picture();
    SetROP2(dc, R2_XORPEN);
    use_pen(2);
    for (const int x : {0, 1, 20, 21, 33, 59, 60}) {
        line(x, 3, x, 37);
        EXPECT_NE(picture(), before) << x;
        line(x, 3, x, 37);
        EXPECT_EQ(picture(), before) << x;
    }
}

TEST_F(Scaled, CursorLineIsTakenBackThroughTheSameClip)
{
    paint_stripes();
    const QImage before = picture();
    SetROP2(dc, R2_XORPEN);
    use_pen(2);
    IntersectClipRect(dc, 11, 7, 21, 33);
    for (const int x : {11, 12, 21}) {
        line(x, 3, x, 37);
        EXPECT_NE(picture(), before) << x;
        line(x, 3, x, 37);
        EXPECT_EQ(picture(), before) << x;
    }
}

TEST_F(Scaled, CursorLineLeftOfTheWindowTouchesNothing)
{
    paint_stripes();
    const QImage before = picture();
    SetROP2(dc, R2_XORPEN);
    use_pen(2);
    line(-1, 0, -1, 40);
    EXPECT_EQ(picture(), before);
}

TEST_F(Scaled, LongLineIsTheSameAsItsLinesOneByOne)
{
    std::mt19937 random(3);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    use_pen(1);
    for (int time = 0; time < 30; ++time) {
        std::vector<POINT> points{{below(60), below(40)}};
        for (int i = 0; i < 12; ++i)
            points.push_back({below(2) ? points.back().x : below(60), below(2) ? points.back().y : below(40)});
        fill({0, 0, 60, 40}, CreateSolidBrush(0));
        MoveToEx(dc, points[0].x, points[0].y, nullptr);
        for (const POINT& point : points)
            LineTo(dc, point.x, point.y);
        const QImage expected = picture();
        fill({0, 0, 60, 40}, CreateSolidBrush(0));
        Polyline(dc, points.data(), static_cast<int>(points.size()));
        ASSERT_EQ(picture(), expected) << time;
    }
}

TEST_F(Scaled, OutlineOfAPolygonOfBarsIsItsLines)
{
    const POINT bars[] = {{2, 30}, {2, 15}, {5, 15}, {5, 8}, {9, 8}, {9, 30}, {2, 30}};
    use_pen(1);
    Polyline(dc, bars, 7);
    const QImage expected = picture();
    fill({0, 0, 60, 40}, CreateSolidBrush(0));
    SelectObject(dc, GetStockObject(NULL_BRUSH));
    Polygon(dc, bars, 6);
    EXPECT_EQ(picture(), expected);
}

// Every pixel of the tile is a pixel of the library, which reaches from one rounded edge to the next.
TEST_F(Scaled, PatternIsSharpAndStartsAtTheOriginOfTheWindow)
{
    struct {
        BITMAPINFOHEADER header{.biSize = sizeof(BITMAPINFOHEADER),
            .biWidth = 2,
            .biHeight = 2,
            .biPlanes = 1,
            .biBitCount = 32,
            .biCompression = BI_RGB};
        unsigned pixels[4] = {0x30A0F0, 0, 0, 0x30A0F0};
    } checker;
    fill({3, 5, 40, 30}, CreateDIBPatternBrushPt(&checker, DIB_RGB_COLORS));
    const QImage shown = picture();
    const qreal scale = shown.devicePixelRatio();
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x) {
            const bool lit = x >= 3 && x < 40 && y >= 5 && y < 30 && (x + y) % 2 == 1;
            for (int row = scaled(y, scale); row < scaled(y + 1, scale); ++row) {
                for (int column = scaled(x, scale); column < scaled(x + 1, scale); ++column)
                    ASSERT_EQ(shown.pixel(column, row), lit ? 0xFF30A0F0 : 0xFF000000) << column << ", " << row;
            }
        }
    }
}
