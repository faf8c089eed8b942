#include "tests/platform/canvas.h"

// Mapping from logical to device coordinates, and the clip.

namespace {

using Mapping = test::Canvas;
using Clip = test::Canvas;
using test::black;
using test::white;

}

TEST_F(Mapping, StartsOneToOne)
{
    POINT place{3, 4};
    EXPECT_TRUE(LPtoDP(dc, &place, 1));
    EXPECT_EQ(place.x, 3);
    EXPECT_EQ(place.y, 4);
    EXPECT_EQ(SetMapMode(dc, MM_ANISOTROPIC), MM_TEXT);
    EXPECT_EQ(SetMapMode(dc, MM_TEXT), MM_ANISOTROPIC);
}

TEST_F(Mapping, UpwardAxisHasItsOriginAtTheLowerLeftPixel)
{
    y_upward();
    POINT places[] = {{0, 0}, {7, 10}, {59, 39}};
    EXPECT_TRUE(LPtoDP(dc, places, 3));
    EXPECT_EQ(places[0].x, 0);
    EXPECT_EQ(places[0].y, 39);
    EXPECT_EQ(places[1].x, 7);
    EXPECT_EQ(places[1].y, 29);
    EXPECT_EQ(places[2].y, 0);
    EXPECT_TRUE(DPtoLP(dc, places, 3));
    EXPECT_EQ(places[1].x, 7);
    EXPECT_EQ(places[1].y, 10);
}

TEST_F(Mapping, ExtentsAndOriginAreExchanged)
{
    SetMapMode(dc, MM_ANISOTROPIC);
    SIZE extent{};
    POINT origin{};
    SetWindowExtEx(dc, 10, 20, nullptr);
    SetViewportExtEx(dc, 30, -40, nullptr);
    SetViewportOrgEx(dc, 1, 2, nullptr);
    EXPECT_TRUE(SetWindowExtEx(dc, 11, 21, &extent));
    EXPECT_EQ(extent.cx, 10);
    EXPECT_EQ(extent.cy, 20);
    EXPECT_TRUE(SetViewportExtEx(dc, 31, -41, &extent));
    EXPECT_EQ(extent.cx, 30);
    EXPECT_EQ(extent.cy, -40);
    EXPECT_TRUE(SetViewportOrgEx(dc, 5, 6, &origin));
    EXPECT_EQ(origin.x, 1);
    EXPECT_EQ(origin.y, 2);
}

TEST_F(Mapping, ScalesByItsExtents)
{
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, 10, 10, nullptr);
    SetViewportExtEx(dc, 40, 20, nullptr);
    SetViewportOrgEx(dc, 5, 6, nullptr);
    POINT place{3, -2};
    LPtoDP(dc, &place, 1);
    EXPECT_EQ(place.x, 17);
    EXPECT_EQ(place.y, 2);
}

TEST_F(Mapping, PixelUpwardIsThatManyRowsAboveTheLowest)
{
    y_upward();
    SetPixel(dc, 2, 0, white);
    SetPixel(dc, 3, 5, white);
    EXPECT_EQ(pixel(2, 39), white);
    EXPECT_EQ(pixel(3, 34), white);
    EXPECT_EQ(GetPixel(dc, 3, 5), white);
}

// Of the two rows that the edges fall on, the lower one on the screen is left out.
TEST_F(Mapping, RectanglesUpwardLeaveOutTheLowerRowOnTheScreen)
{
    y_upward();
    fill(1, 10, 4, 12, white);
    EXPECT_EQ(pixel(1, 26), black);
    EXPECT_EQ(pixel(1, 27), white);
    EXPECT_EQ(pixel(3, 28), white);
    EXPECT_EQ(pixel(4, 28), black);
    EXPECT_EQ(pixel(1, 29), black);

    use_pen(PS_SOLID, 1, white);
    use_no_brush();
    Rectangle(dc, 20, 10, 26, 15);
    EXPECT_EQ(pixel(20, 23), black);
    EXPECT_EQ(pixel(20, 24), white);
    EXPECT_EQ(pixel(25, 28), white);
    EXPECT_EQ(pixel(26, 28), black);
    EXPECT_EQ(pixel(20, 29), black);
    EXPECT_EQ(pixel(22, 26), black);
}

TEST_F(Mapping, FillUpwardIsTheSameWhicheverEdgeIsNamedFirst)
{
    y_upward();
    fill(1, 12, 4, 10, white);
    EXPECT_EQ(pixel(1, 26), black);
    EXPECT_EQ(pixel(1, 27), white);
    EXPECT_EQ(pixel(1, 28), white);
    EXPECT_EQ(pixel(1, 29), black);
}

TEST_F(Mapping, LineUpwardLeavesOutItsLastPoint)
{
    y_upward();
    use_pen(PS_SOLID, 1, white);
    line(5, 0, 5, 3);
    EXPECT_EQ(pixel(5, 39), white);
    EXPECT_EQ(pixel(5, 37), white);
    EXPECT_EQ(pixel(5, 36), black);
}

TEST_F(Mapping, IsSavedAndRestoredWithEverythingElse)
{
    y_upward();
    SetTextColor(dc, RGB(1, 2, 3));
    const int saved = SaveDC(dc);
    EXPECT_GT(saved, 0);
    SetMapMode(dc, MM_TEXT);
    SetViewportOrgEx(dc, 0, 0, nullptr);
    SetTextColor(dc, RGB(9, 9, 9));
    SetROP2(dc, R2_XORPEN);
    use_pen(PS_SOLID, 1, RGB(200, 0, 0));
    IntersectClipRect(dc, 0, 0, 1, 1);
    EXPECT_TRUE(RestoreDC(dc, saved));
    EXPECT_FALSE(RestoreDC(dc, saved));
    EXPECT_EQ(SetTextColor(dc, 0), RGB(1, 2, 3));
    EXPECT_EQ(SetROP2(dc, R2_COPYPEN), R2_COPYPEN);
    SetPixel(dc, 10, 0, white);
    EXPECT_EQ(pixel(10, 39), white);
}

TEST_F(Mapping, RestoresTheLatestOfSeveral)
{
    SetTextColor(dc, 1);
    SaveDC(dc);
    SetTextColor(dc, 2);
    SaveDC(dc);
    SetTextColor(dc, 3);
    EXPECT_TRUE(RestoreDC(dc, -1));
    EXPECT_EQ(SetTextColor(dc, 4), 2u);
    EXPECT_TRUE(RestoreDC(dc, -1));
    EXPECT_EQ(SetTextColor(dc, 5), 1u);
    EXPECT_FALSE(RestoreDC(dc, -1));
}

TEST_F(Clip, KeepsDrawingInside)
{
    EXPECT_EQ(IntersectClipRect(dc, 2, 1, 5, 3), SIMPLEREGION);
    fill_canvas(white);
    SelectClipRgn(dc, nullptr);
    EXPECT_EQ(picture(7, 4), ".......\n"
                             "..###..\n"
                             "..###..\n"
                             ".......\n");
}

TEST_F(Clip, HoldsForLinesToo)
{
    IntersectClipRect(dc, 2, 1, 5, 3);
    use_pen(PS_SOLID, 1, white);
    line(0, 1, 9, 1);
    line(0, 0, 9, 9);
    SelectClipRgn(dc, nullptr);
    EXPECT_EQ(picture(7, 4), ".......\n"
                             "..###..\n"
                             "..#....\n"
                             ".......\n");
}

TEST_F(Clip, OnlyShrinksByIntersection)
{
    IntersectClipRect(dc, 0, 0, 10, 10);
    IntersectClipRect(dc, 5, 5, 20, 20);
    fill_canvas(white);
    EXPECT_EQ(IntersectClipRect(dc, 30, 30, 40, 40), NULLREGION);
    fill_canvas(RGB(200, 0, 0));
    SelectClipRgn(dc, nullptr);
    EXPECT_EQ(pixel(4, 4), black);
    EXPECT_EQ(pixel(5, 5), white);
    EXPECT_EQ(pixel(9, 9), white);
    EXPECT_EQ(pixel(10, 10), black);
    EXPECT_EQ(pixel(31, 31), black);
}

TEST_F(Clip, RegionIsInDeviceCoordinatesWhateverTheMapping)
{
    y_upward();
    HRGN region = CreateRectRgn(0, 0, 10, 5);
    EXPECT_EQ(SelectClipRgn(dc, region), SIMPLEREGION);
    DeleteObject(region); // the context has a copy
    fill(-5, -5, 100, 100, white);
    SelectClipRgn(dc, nullptr);
    EXPECT_EQ(pixel(9, 4), white);
    EXPECT_EQ(pixel(9, 5), black);
    EXPECT_EQ(pixel(10, 4), black);
}

TEST_F(Clip, IntersectionFollowsTheMapping)
{
    y_upward();
    IntersectClipRect(dc, 0, 0, 10, 5);
    fill(-5, -5, 100, 100, white);
    SelectClipRgn(dc, nullptr);
    EXPECT_EQ(pixel(0, 34), white);
    EXPECT_EQ(pixel(0, 38), white);
    EXPECT_EQ(pixel(0, 33), black);
}

TEST_F(Clip, ReplacedByARegionMayGrowAgain)
{
    IntersectClipRect(dc, 0, 0, 2, 2);
    HRGN region = CreateRectRgn(0, 0, 10, 10);
    SelectClipRgn(dc, region);
    DeleteObject(region);
    SetPixel(dc, 9, 9, white);
    EXPECT_EQ(pixel(9, 9), white);
}
