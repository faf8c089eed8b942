#include "tests/platform/canvas.h"

#include <algorithm>

// Contexts, the objects that are selected in them, pictures and texts.

namespace {

using Context = test::Canvas;
using Objects = test::Canvas;
using Picture = test::Canvas;
using Text = test::Canvas;
using test::black;
using test::white;
using test::wide;

BITMAPINFO bitmap(int width, int height)
{
    BITMAPINFO description{};
    description.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    description.bmiHeader.biWidth = width;
    description.bmiHeader.biHeight = height;
    description.bmiHeader.biPlanes = 1;
    description.bmiHeader.biBitCount = 32;
    description.bmiHeader.biCompression = BI_RGB;
    return description;
}

// Blue in the low byte: red, green / blue, white.
constexpr unsigned four[] = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF};

// The smallest box around what is not black.
RECT bounds(const std::string& picture)
{
    RECT box{1000, 1000, 0, 0};
    LONG x = 0, y = 0;
    for (const char dot : picture) {
        if (dot == '#')
            box = {
                std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1), std::max(box.bottom, y + 1)};
        x = dot == '\n' ? 0 : x + 1;
        y += dot == '\n';
    }
    return box;
}

}

TEST_F(Context, OfAnotherWindowIsNotReleased)
{
    const test::Test_Window other;
    EXPECT_EQ(ReleaseDC(other.handle(), nullptr), 0);
    const HDC mine = GetDC(window());
    EXPECT_EQ(ReleaseDC(window(), mine), 1);
}

TEST_F(Context, NestsOnOneWindow)
{
    const HDC inner = GetDC(window());
    ASSERT_NE(inner, nullptr);
    IntersectClipRect(inner, 0, 0, 5, 5);
    SetPixel(dc, 20, 20, white);
    SetPixel(inner, 21, 21, white);
    SetPixel(inner, 3, 3, white);
    EXPECT_EQ(ReleaseDC(window(), inner), 1);
    SetPixel(dc, 22, 22, white);
    EXPECT_EQ(pixel(20, 20), white);
    EXPECT_EQ(pixel(21, 21), black);
    EXPECT_EQ(pixel(3, 3), white);
    EXPECT_EQ(pixel(22, 22), white);
}

TEST_F(Context, NoneMakesEveryCallFail)
{
    const RECT area{0, 0, 5, 5};
    const POINT points[] = {{0, 0}, {5, 0}, {5, 5}};
    POINT place{};
    SIZE size{};
    TEXTMETRICA metrics{};
    const auto text = wide("a");
    const BITMAPINFO description = bitmap(2, -2);
    EXPECT_EQ(SaveDC(nullptr), 0);
    EXPECT_FALSE(RestoreDC(nullptr, 1));
    EXPECT_EQ(SetMapMode(nullptr, MM_TEXT), 0);
    EXPECT_FALSE(SetWindowExtEx(nullptr, 1, 1, nullptr));
    EXPECT_FALSE(SetViewportExtEx(nullptr, 1, 1, nullptr));
    EXPECT_FALSE(SetViewportOrgEx(nullptr, 1, 1, nullptr));
    EXPECT_FALSE(LPtoDP(nullptr, &place, 1));
    EXPECT_FALSE(DPtoLP(nullptr, &place, 1));
    EXPECT_EQ(SelectObject(nullptr, GetStockObject(NULL_PEN)), nullptr);
    EXPECT_EQ(SelectClipRgn(nullptr, nullptr), RGN_ERROR);
    EXPECT_EQ(IntersectClipRect(nullptr, 0, 0, 1, 1), RGN_ERROR);
    EXPECT_EQ(SetROP2(nullptr, R2_COPYPEN), 0);
    EXPECT_FALSE(MoveToEx(nullptr, 0, 0, nullptr));
    EXPECT_FALSE(LineTo(nullptr, 1, 1));
    EXPECT_FALSE(Polyline(nullptr, points, 3));
    EXPECT_FALSE(Polygon(nullptr, points, 3));
    EXPECT_FALSE(Rectangle(nullptr, 0, 0, 1, 1));
    EXPECT_FALSE(Ellipse(nullptr, 0, 0, 1, 1));
    EXPECT_EQ(FillRect(nullptr, &area, static_cast<HBRUSH>(GetStockObject(NULL_BRUSH))), 0);
    EXPECT_EQ(FrameRect(nullptr, &area, static_cast<HBRUSH>(GetStockObject(NULL_BRUSH))), 0);
    EXPECT_EQ(SetPixel(nullptr, 0, 0, 0), CLR_INVALID);
    EXPECT_EQ(GetPixel(nullptr, 0, 0), CLR_INVALID);
    EXPECT_EQ(StretchDIBits(nullptr, 0, 0, 2, 2, 0, 0, 2, 2, four, &description, DIB_RGB_COLORS, SRCCOPY), 0);
    EXPECT_EQ(SetTextColor(nullptr, 0), CLR_INVALID);
    EXPECT_EQ(SetBkMode(nullptr, TRANSPARENT), 0);
    EXPECT_EQ(SetTextAlign(nullptr, TA_LEFT), 0xFFFFFFFF);
    EXPECT_FALSE(TextOutW(nullptr, 0, 0, text.c_str(), 1));
    EXPECT_FALSE(GetTextExtentPoint32W(nullptr, text.c_str(), 1, &size));
    EXPECT_FALSE(GetTextMetricsA(nullptr, &metrics));
}

TEST_F(Context, OfADestroyedWindowIsRefused)
{
    test::Test_Window another;
    const HDC stale = GetDC(another.handle());
    DestroyWindow(another.handle());
    EXPECT_FALSE(LineTo(stale, 3, 3));
    EXPECT_EQ(SetPixel(stale, 0, 0, white), CLR_INVALID);
}

TEST_F(Objects, SelectedGiveBackWhatWasThere)
{
    HPEN pen = CreatePen(PS_SOLID, 1, white);
    const HGDIOBJ first = SelectObject(dc, pen);
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(SelectObject(dc, first), pen);
    EXPECT_TRUE(DeleteObject(pen));
    EXPECT_FALSE(DeleteObject(nullptr));
}

TEST_F(Objects, OfEachKindAreSelectedApart)
{
    HPEN pen = CreatePen(PS_SOLID, 1, white);
    HBRUSH brush = CreateSolidBrush(white);
    const HGDIOBJ old_pen = SelectObject(dc, pen);
    const HGDIOBJ old_brush = SelectObject(dc, brush);
    EXPECT_EQ(SelectObject(dc, old_pen), pen);
    EXPECT_EQ(SelectObject(dc, old_brush), brush);
    DeleteObject(pen);
    DeleteObject(brush);
}

TEST_F(Objects, OfTheStockSurviveADeletion)
{
    const HGDIOBJ stock = GetStockObject(NULL_PEN);
    ASSERT_NE(stock, nullptr);
    EXPECT_TRUE(DeleteObject(stock));
    EXPECT_EQ(GetStockObject(NULL_PEN), stock);
    EXPECT_NE(SelectObject(dc, stock), nullptr);
}

TEST_F(Objects, DeletedWhileSelectedDoNoHarm)
{
    HPEN pen = CreatePen(PS_SOLID, 1, white);
    const HGDIOBJ before = SelectObject(dc, pen);
    DeleteObject(pen);
    EXPECT_TRUE(LineTo(dc, 9, 9));
    EXPECT_NE(SelectObject(dc, before), nullptr);
    DeleteObject(pen);
}

TEST_F(Picture, WithANegativeHeightStartsAtTheTop)
{
    const BITMAPINFO description = bitmap(2, -2);
    EXPECT_EQ(StretchDIBits(dc, 4, 5, 2, 2, 0, 0, 2, 2, four, &description, DIB_RGB_COLORS, SRCCOPY), 2);
    EXPECT_EQ(pixel(4, 5), RGB(255, 0, 0));
    EXPECT_EQ(pixel(5, 5), RGB(0, 255, 0));
    EXPECT_EQ(pixel(4, 6), RGB(0, 0, 255));
    EXPECT_EQ(pixel(5, 6), white);
    EXPECT_EQ(pixel(6, 6), black);
}

TEST_F(Picture, WithAPositiveHeightStartsAtTheBottom)
{
    const BITMAPINFO description = bitmap(2, 2);
    StretchDIBits(dc, 4, 5, 2, 2, 0, 0, 2, 2, four, &description, DIB_RGB_COLORS, SRCCOPY);
    EXPECT_EQ(pixel(4, 5), RGB(0, 0, 255));
    EXPECT_EQ(pixel(5, 5), white);
    EXPECT_EQ(pixel(4, 6), RGB(255, 0, 0));
    EXPECT_EQ(pixel(5, 6), RGB(0, 255, 0));
}

TEST_F(Picture, IsStretchedOverItsRectangle)
{
    const BITMAPINFO description = bitmap(2, -2);
    StretchDIBits(dc, 0, 0, 8, 4, 0, 0, 2, 2, four, &description, DIB_RGB_COLORS, SRCCOPY);
    EXPECT_EQ(pixel(0, 0), RGB(255, 0, 0));
    EXPECT_EQ(pixel(3, 1), RGB(255, 0, 0));
    EXPECT_EQ(pixel(4, 0), RGB(0, 255, 0));
    EXPECT_EQ(pixel(0, 2), RGB(0, 0, 255));
    EXPECT_EQ(pixel(7, 3), white);
    EXPECT_EQ(pixel(8, 3), black);
}

TEST_F(Picture, IsCopiedWhateverTheRasterOperation)
{
    fill_canvas(RGB(0xF0, 0x0F, 0xAA));
    SetROP2(dc, R2_XORPEN);
    const BITMAPINFO description = bitmap(2, -2);
    StretchDIBits(dc, 0, 0, 2, 2, 0, 0, 2, 2, four, &description, DIB_RGB_COLORS, SRCCOPY);
    EXPECT_EQ(pixel(0, 0), RGB(255, 0, 0));
}

TEST_F(Text, HasTheExtentOfItsMetrics)
{
    use_font(12);
    TEXTMETRICA metrics{};
    SIZE one{};
    SIZE three{};
    ASSERT_TRUE(GetTextMetricsA(dc, &metrics));
    ASSERT_TRUE(GetTextExtentPoint32W(dc, wide("n").c_str(), 1, &one));
    ASSERT_TRUE(GetTextExtentPoint32W(dc, wide("nnn").c_str(), 3, &three));
    EXPECT_EQ(one.cy, metrics.tmHeight);
    EXPECT_EQ(metrics.tmHeight, metrics.tmAscent + metrics.tmDescent);
    EXPECT_GT(one.cx, 0);
    EXPECT_NEAR(three.cx, 3 * one.cx, 3); // a letter may be as wide as a fraction of a pixel
    SIZE none{7, 7};
    EXPECT_TRUE(GetTextExtentPoint32W(dc, wide("n").c_str(), 0, &none));
    EXPECT_EQ(none.cx, 0);
}

TEST_F(Text, IsAsLargeAsItsFont)
{
    SIZE small{};
    SIZE large{};
    use_font(8);
    GetTextExtentPoint32W(dc, wide("nnnn").c_str(), 4, &small);
    use_font(24);
    GetTextExtentPoint32W(dc, wide("nnnn").c_str(), 4, &large);
    EXPECT_GT(large.cx, 2 * small.cx);
    EXPECT_GT(large.cy, 2 * small.cy);
}

TEST_F(Text, IsDrawnInItsColorBelowAndRightOfItsPlace)
{
    use_font(14);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(255, 0, 0));
    EXPECT_TRUE(TextOutW(dc, 10, 5, wide("I").c_str(), 1));
    SIZE size{};
    GetTextExtentPoint32W(dc, wide("I").c_str(), 1, &size);
    const RECT box = bounds(picture(width, height));
    EXPECT_GE(box.left, 9);
    EXPECT_GE(box.top, 5);
    EXPECT_LE(box.right, 10 + size.cx + 1);
    EXPECT_LE(box.bottom, 5 + size.cy);
    EXPECT_GT(box.bottom - box.top, 7);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            EXPECT_EQ(GetBValue(pixel(x, y)) > GetRValue(pixel(x, y)), false);
}

TEST_F(Text, StandsOnItsBaselineAndEndsWhereItIsAligned)
{
    use_font(14);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, white);
    EXPECT_EQ(SetTextAlign(dc, TA_RIGHT | TA_BASELINE), static_cast<UINT>(TA_LEFT | TA_TOP));
    TextOutW(dc, 40, 30, wide("H").c_str(), 1);
    const RECT right = bounds(picture(width, height));
    EXPECT_LE(right.right, 41);
    EXPECT_NEAR(right.bottom, 30, 1);

    fill_canvas(black);
    SetTextAlign(dc, TA_CENTER | TA_BASELINE);
    TextOutW(dc, 30, 30, wide("H").c_str(), 1);
    const RECT centre = bounds(picture(width, height));
    EXPECT_NEAR((centre.left + centre.right) / 2.0, 30, 1.5);
}

TEST_F(Text, IsUprightWhereTheAxisGoesUpward)
{
    use_font(20);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, white);
    SetTextAlign(dc, TA_LEFT | TA_BASELINE);
    y_upward();
    TextOutW(dc, 10, 9, wide("L").c_str(), 1); // the foot of an L is at its bottom
    const RECT box = bounds(picture(width, height));
    EXPECT_NEAR(box.bottom, 30, 1);
    int upper = 0, lower = 0;
    for (int x = 0; x < width; ++x) {
        upper += pixel(x, static_cast<int>(box.top) + 2) != black;
        lower += pixel(x, static_cast<int>(box.bottom) - 2) != black;
    }
    EXPECT_GT(lower, upper);
}

TEST_F(Text, GoesUpwardFromItsPlaceWhereItsFontIsTurned)
{
    use_font(14);
    SIZE lying{};
    GetTextExtentPoint32W(dc, wide("LLL").c_str(), 3, &lying);
    use_font(14, 900);
    SIZE upright{};
    GetTextExtentPoint32W(dc, wide("LLL").c_str(), 3, &upright);
    EXPECT_EQ(upright.cx, lying.cx) << "the extent is the lying text's";
    EXPECT_EQ(upright.cy, lying.cy);

    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, white);
    TextOutW(dc, 20, 35, wide("LLL").c_str(), 3);
    const RECT box = bounds(picture(width, height));
    EXPECT_GE(box.left, 20);
    EXPECT_LE(box.right, 20 + lying.cy);
    EXPECT_GE(box.top, 35 - lying.cx - 1);
    EXPECT_LE(box.bottom, 36);
    EXPECT_GT(box.bottom - box.top, box.right - box.left);
    int left = 0, right = 0;
    for (int y = 0; y < height; ++y) {
        left += pixel(static_cast<int>(box.left) + 1, y) != black;
        right += pixel(static_cast<int>(box.right) - 2, y) != black;
    }
    EXPECT_GT(right, left) << "the feet of the letters are to the right";
}

TEST_F(Text, TouchesNothingAroundWhenTransparent)
{
    fill_canvas(RGB(0, 0, 200));
    use_font(14);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, white);
    TextOutW(dc, 10, 5, wide(".").c_str(), 1);
    EXPECT_EQ(pixel(11, 6), RGB(0, 0, 200));
}

TEST_F(Text, IgnoresTheRasterOperation)
{
    fill_canvas(white);
    use_font(20);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, RGB(255, 0, 0));
    SetROP2(dc, R2_XORPEN);
    TextOutW(dc, 10, 5, wide("I").c_str(), 1);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            ASSERT_EQ(GetRValue(pixel(x, y)), 255) << x << ", " << y;
}
