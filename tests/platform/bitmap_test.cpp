#include "tests/platform/canvas.h"

#include <algorithm>
#include <array>

// Bitmaps with alpha.

namespace {

using test::black;
using test::white;

constexpr BLENDFUNCTION over{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
constexpr unsigned opaque_red = 0xFFFF0000;
constexpr unsigned half_white = 0x80808080;

// Two by two pixels in a context of their own.
class Bitmap : public test::Canvas {
protected:
    Bitmap()
    {
        description.bmiHeader.biSize = sizeof description.bmiHeader;
        description.bmiHeader.biWidth = 2;
        description.bmiHeader.biHeight = -2;
        description.bmiHeader.biPlanes = 1;
        description.bmiHeader.biBitCount = 32;
        description.bmiHeader.biCompression = BI_RGB;
        void* bits = nullptr;
        source = CreateCompatibleDC(nullptr);
        bitmap = CreateDIBSection(nullptr, &description, DIB_RGB_COLORS, &bits, nullptr, 0);
        pixels = static_cast<unsigned*>(bits);
        before = SelectObject(source, bitmap);
    }
    ~Bitmap() override
    {
        SelectObject(source, before);
        DeleteObject(bitmap);
        DeleteDC(source);
    }

    void set(const std::array<unsigned, 4>& values) { std::copy(values.begin(), values.end(), pixels); }
    BOOL blend(int x, int y) { return AlphaBlend(dc, x, y, 2, 2, source, 0, 0, 2, 2, over); }

    BITMAPINFO description{};
    HDC source;
    HBITMAP bitmap;
    HGDIOBJ before;
    unsigned* pixels;
};

}

TEST_F(Bitmap, IsEmptyAtFirst)
{
    fill_canvas(white);
    EXPECT_NE(blend(3, 4), 0);
    EXPECT_EQ(pixel(3, 4), white);
    EXPECT_EQ(pixel(4, 5), white);
}

TEST_F(Bitmap, IsDrawnOverWhatIsThere)
{
    set({opaque_red, half_white, 0, opaque_red});
    EXPECT_NE(blend(3, 4), 0);
    EXPECT_EQ(pixel(3, 4), RGB(255, 0, 0));
    EXPECT_EQ(pixel(4, 4), RGB(128, 128, 128));
    EXPECT_EQ(pixel(3, 5), black);
    EXPECT_EQ(pixel(4, 5), RGB(255, 0, 0));
    EXPECT_EQ(pixel(5, 4), black);
    blend(3, 4);
    EXPECT_NEAR(GetRValue(pixel(4, 4)), 128 + 64, 1);
}

TEST_F(Bitmap, CoversWhateverTheRasterOperation)
{
    set({opaque_red, opaque_red, opaque_red, opaque_red});
    fill_canvas(white);
    SetROP2(dc, R2_XORPEN);
    blend(0, 0);
    EXPECT_EQ(pixel(0, 0), RGB(255, 0, 0));
}

TEST_F(Bitmap, IsCutByTheClip)
{
    set({opaque_red, opaque_red, opaque_red, opaque_red});
    IntersectClipRect(dc, 0, 0, 4, 40);
    const int state = SaveDC(dc);
    blend(3, 4);
    RestoreDC(dc, state);
    blend(3, 8);
    for (const int y : {4, 8}) {
        EXPECT_EQ(pixel(3, y), RGB(255, 0, 0));
        EXPECT_EQ(pixel(4, y), black);
    }
}

TEST_F(Bitmap, PartsCanBeDrawnLarger)
{
    set({opaque_red, 0xFF0000FF, opaque_red, opaque_red});
    EXPECT_NE(AlphaBlend(dc, 10, 10, 8, 8, source, 1, 0, 1, 1, over), 0);
    EXPECT_EQ(pixel(10, 10), RGB(0, 0, 255));
    EXPECT_EQ(pixel(17, 17), RGB(0, 0, 255));
    EXPECT_EQ(pixel(18, 17), black);
}

TEST_F(Bitmap, OnlyPartsOfItCanBeDrawn)
{
    EXPECT_EQ(AlphaBlend(dc, 0, 0, 3, 2, source, 0, 0, 3, 2, over), 0);
    EXPECT_EQ(AlphaBlend(dc, 0, 0, 2, 2, source, -1, 0, 2, 2, over), 0);
}

TEST_F(Bitmap, OnlyContextsOfBitmapsAreSources)
{
    EXPECT_EQ(AlphaBlend(dc, 0, 0, 2, 2, nullptr, 0, 0, 2, 2, over), 0);
    const HDC empty = CreateCompatibleDC(nullptr);
    EXPECT_EQ(AlphaBlend(dc, 0, 0, 2, 2, empty, 0, 0, 2, 2, over), 0);
    EXPECT_NE(DeleteDC(empty), 0);
    EXPECT_EQ(DeleteDC(empty), 0);
}

TEST_F(Bitmap, IsSelectedInsteadOfTheOneBefore)
{
    EXPECT_NE(before, nullptr);
    EXPECT_EQ(SelectObject(source, before), bitmap);
    EXPECT_EQ(SelectObject(source, bitmap), before);
}

TEST_F(Bitmap, ScreenIsAtLeastAsFineAsItsPixels)
{
    EXPECT_GT(GetDeviceCaps(dc, HORZRES), 0);
    EXPECT_GE(GetDeviceCaps(dc, DESKTOPHORZRES), GetDeviceCaps(dc, HORZRES));
}
