#include "platform/qt/window_widget.h"
#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QScreen>
#include <QWidget>

using test::Test_Window;

namespace {

class Scale_Two : public ::testing::Test {
protected:
    Scale_Two()
    {
        test::pump();
        dc = GetDC(window.handle());
        pen = CreatePen(PS_SOLID, 1, RGB(255, 255, 255));
        SelectObject(dc, pen);
        SelectObject(dc, GetStockObject(NULL_BRUSH));
    }
    ~Scale_Two() override
    {
        ReleaseDC(window.handle(), dc);
        DeleteObject(pen);
    }

    // All pixels of the screen that are not black; every one belongs to a block of two by two.
    int blocks()
    {
        const QImage picture = Window_Picture(window.handle());
        int lit = 0;
        for (int y = 0; y < picture.height(); y += 2) {
            for (int x = 0; x < picture.width(); x += 2) {
                const QRgb color = picture.pixel(x, y);
                EXPECT_EQ(picture.pixel(x + 1, y), color) << x << ", " << y;
                EXPECT_EQ(picture.pixel(x, y + 1), color) << x << ", " << y;
                EXPECT_EQ(picture.pixel(x + 1, y + 1), color) << x << ", " << y;
                lit += color != qRgb(0, 0, 0);
            }
        }
        return lit;
    }

    void line(int x1, int y1, int x2, int y2)
    {
        MoveToEx(dc, x1, y1, nullptr);
        LineTo(dc, x2, y2);
    }

    Test_Window window{nullptr, 50, 40};
    HDC dc = nullptr;
    HPEN pen = nullptr;
};

}

TEST_F(Scale_Two, PictureHasTwiceThePixels)
{
    const QImage picture = Window_Picture(window.handle());
    EXPECT_EQ(picture.size(), QSize(100, 80));
    EXPECT_EQ(picture.devicePixelRatio(), 2.0);
}

TEST_F(Scale_Two, SizesAndPlacesStayInTheLibrarysPixels)
{
    RECT area{};
    GetClientRect(window.handle(), &area);
    EXPECT_EQ(area.right, 50);
    EXPECT_EQ(area.bottom, 40);
    const QSize screen = Widget_From_Window(window.handle())->screen()->size();
    EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), screen.width());
    EXPECT_EQ(GetSystemMetrics(SM_CYSCREEN), screen.height());
}

TEST_F(Scale_Two, PixelIsABlockOfFour)
{
    SetPixel(dc, 3, 4, RGB(255, 255, 255));
    EXPECT_EQ(blocks(), 1);
    EXPECT_EQ(Window_Picture(window.handle()).pixel(7, 9), qRgb(255, 255, 255));
    EXPECT_EQ(GetPixel(dc, 3, 4), RGB(255, 255, 255));
}

TEST_F(Scale_Two, AxisParallelLinesAndFramesAreWholeBlocks)
{
    line(2, 2, 12, 2);
    EXPECT_EQ(blocks(), 10);
    line(20, 5, 20, 12);
    EXPECT_EQ(blocks(), 17);
    Rectangle(dc, 30, 10, 36, 15);
    EXPECT_EQ(blocks(), 17 + 18);
}

TEST_F(Scale_Two, FillIsWholeBlocks)
{
    const RECT area{5, 6, 9, 8};
    HBRUSH brush = CreateSolidBrush(RGB(9, 9, 9));
    FillRect(dc, &area, brush);
    DeleteObject(brush);
    EXPECT_EQ(blocks(), 8);
}

TEST_F(Scale_Two, TwoExclusiveOrsLeaveWhatWasThere)
{
    HBRUSH brush = CreateSolidBrush(RGB(30, 90, 200));
    const RECT area{5, 6, 45, 30};
    FillRect(dc, &area, brush);
    DeleteObject(brush);
    const QImage before = Window_Picture(window.handle());
    SetROP2(dc, R2_XORPEN);
    const POINT polygon[] = {{3, 30}, {20, 5}, {45, 25}};
    for (int time = 0; time < 2; ++time) {
        line(1, 1, 49, 33);
        line(1, 20, 49, 20);
        Rectangle(dc, 8, 8, 40, 35);
        Polygon(dc, polygon, 3);
        Ellipse(dc, 10, 3, 45, 37);
        EXPECT_EQ(Window_Picture(window.handle()) == before, time == 1);
    }
}
