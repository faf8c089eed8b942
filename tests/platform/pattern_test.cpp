#include "tests/platform/canvas.h"

#include <functional>

// Brushes that repeat a bitmap.

namespace {

using test::black;
using test::white;

constexpr COLORREF red = RGB(255, 0, 0);
constexpr COLORREF green = RGB(0, 255, 0);
constexpr COLORREF blue = RGB(0, 0, 255);

// Two by two pixels, which have blue in the low byte.
struct Tile {
    BITMAPINFOHEADER header{};
    unsigned pixels[4];

    Tile(int height, unsigned first, unsigned second, unsigned third, unsigned fourth)
        : pixels{first, second, third, fourth}
    {
        header.biSize = sizeof header;
        header.biWidth = 2;
        header.biHeight = height;
        header.biPlanes = 1;
        header.biBitCount = 32;
        header.biCompression = BI_RGB;
    }
};

const Tile checker(2, 0xFF0000, 0, 0, 0xFF0000);

class Pattern : public test::Canvas {
protected:
    ~Pattern() override { DeleteObject(brush); }

    void use(const Tile& tile)
    {
        brush = CreateDIBPatternBrushPt(&tile, DIB_RGB_COLORS);
        ASSERT_NE(brush, nullptr);
    }

    void fill_with_it(int left, int top, int right, int bottom)
    {
        const RECT area{left, top, right, bottom};
        EXPECT_NE(FillRect(dc, &area, brush), 0);
    }

    // Whether the canvas has the checker inside an area (device pixels) and is black elsewhere.
    void expect_checker(const std::function<bool(int, int)>& inside)
    {
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const bool lit = inside(x, y) && (x + y) % 2 == 1;
                ASSERT_EQ(pixel(x, y), lit ? red : black) << x << ", " << y;
            }
        }
    }

    HBRUSH brush = nullptr;
};

}

TEST_F(Pattern, StartsAtTheOriginOfTheWindowWhereverItFills)
{
    use(checker);
    fill_with_it(3, 4, 10, 9);
    fill_with_it(10, 5, 21, 12);
    fill_with_it(30, 0, 31, 1);
    expect_checker([](int x, int y) {
        return (x >= 3 && x < 10 && y >= 4 && y < 9) || (x >= 10 && x < 21 && y >= 5 && y < 12) || (x == 30 && y == 0);
    });
}

TEST_F(Pattern, OfAPositiveHeightHasItsFirstRowAtTheBottom)
{
    use(Tile(2, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF));
    fill_with_it(0, 0, 4, 4);
    for (int corner = 0; corner < 4; corner += 2) {
        EXPECT_EQ(pixel(corner, corner), blue);
        EXPECT_EQ(pixel(corner + 1, corner), white);
        EXPECT_EQ(pixel(corner, corner + 1), red);
        EXPECT_EQ(pixel(corner + 1, corner + 1), green);
    }
}

TEST_F(Pattern, OfANegativeHeightHasItsFirstRowAtTheTop)
{
    use(Tile(-2, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF));
    fill_with_it(0, 0, 4, 4);
    EXPECT_EQ(pixel(2, 2), red);
    EXPECT_EQ(pixel(3, 2), green);
    EXPECT_EQ(pixel(2, 3), blue);
    EXPECT_EQ(pixel(3, 3), white);
}

TEST_F(Pattern, StaysWhatItWasWhenTheBitmapChanges)
{
    Tile tile = checker;
    use(tile);
    for (unsigned& value : tile.pixels)
        value = 0x00FF00;
    fill_with_it(0, 0, 8, 8);
    expect_checker([](int x, int y) { return x < 8 && y < 8; });
}

TEST_F(Pattern, IsNotTurnedRoundByTheMapping)
{
    use(checker);
    y_upward();
    fill_with_it(3, 10, 9, 5);
    expect_checker([](int x, int y) { return x >= 3 && x < 9 && y >= height - 11 && y < height - 6; });
}

TEST_F(Pattern, StaysInsideTheClip)
{
    use(checker);
    IntersectClipRect(dc, 5, 6, 20, 15);
    fill_with_it(0, 0, width, height);
    SelectClipRgn(dc, nullptr);
    expect_checker([](int x, int y) { return x >= 5 && x < 20 && y >= 6 && y < 15; });
}

TEST_F(Pattern, FillsShapesToo)
{
    use(checker);
    use_no_pen();
    const HGDIOBJ before = SelectObject(dc, brush);
    const POINT corners[] = {{1, 1}, {8, 1}, {8, 6}, {1, 6}};
    Polygon(dc, corners, 4);
    Rectangle(dc, 20, 10, 31, 21);
    SelectObject(dc, before);
    expect_checker(
        [](int x, int y) { return (x >= 1 && x < 8 && y >= 1 && y < 6) || (x >= 20 && x < 30 && y >= 10 && y < 20); });
}

TEST_F(Pattern, FramesToo)
{
    use(checker);
    const RECT area{3, 4, 13, 12};
    EXPECT_NE(FrameRect(dc, &area, brush), 0);
    expect_checker([](int x, int y) {
        const bool outer = x >= 3 && x < 13 && y >= 4 && y < 12;
        return outer && (x == 3 || x == 12 || y == 4 || y == 11);
    });
}

TEST_F(Pattern, OfNoBitmapIsNoBrush)
{
    EXPECT_EQ(CreateDIBPatternBrushPt(nullptr, DIB_RGB_COLORS), nullptr);
}
