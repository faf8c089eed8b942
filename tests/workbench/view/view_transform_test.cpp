#include "workbench/view/orientation.h"
#include "workbench/view/view_transform.h"

#include <gtest/gtest.h>

namespace {

using workbench::edge_letters;
using workbench::ViewTransform;

ViewTransform fitted(QSizeF pixels, QSizeF spacing, QSizeF view)
{
    ViewTransform place;
    place.setViewSize(view);
    place.setFrame(pixels, spacing);
    return place;
}

void expect_near(QPointF a, QPointF b)
{
    EXPECT_NEAR(a.x(), b.x(), 1e-6);
    EXPECT_NEAR(a.y(), b.y(), 1e-6);
}

TEST(ViewTransform, FitsTheFrameIntoTheMiddle)
{
    const auto place = fitted({100, 50}, {1, 1}, {400, 400});
    EXPECT_EQ(place.zoom(), 4);
    EXPECT_EQ(place.frameRect(), QRectF(0, 100, 400, 200));
    expect_near(place.toPixel({200, 200}), {50, 25});
}

TEST(ViewTransform, UnequalSpacingStretches)
{
    const auto place = fitted({100, 50}, {0.5, 2}, {400, 400});
    EXPECT_EQ(place.frameRect(), QRectF(100, 0, 200, 400)); // 50 mm by 100 mm
    EXPECT_EQ(place.zoom(), 2);
}

TEST(ViewTransform, ThereAndBackIsWhereItStarted)
{
    auto place = fitted({100, 50}, {0.7, 1.3}, {333, 471});
    place.setZoom(7.3, {12, 400});
    expect_near(place.toPixel(place.toView({31.25, 7.5})), {31.25, 7.5});
}

TEST(ViewTransform, ZoomKeepsWhatIsAtTheAnchor)
{
    auto place = fitted({100, 50}, {1, 2}, {400, 300});
    const QPointF anchor(130, 120), held = place.toPixel(anchor);
    for (const double zoom : {9.0, 0.5, 33.0, 1.0}) {
        place.setZoom(zoom, anchor);
        EXPECT_EQ(place.zoom(), zoom);
        expect_near(place.toPixel(anchor), held);
    }
}

TEST(ViewTransform, ZoomHasLimits)
{
    auto place = fitted({100, 50}, {1, 1}, {400, 300});
    place.setZoom(1e9, {200, 150});
    EXPECT_EQ(place.zoom(), ViewTransform::greatest_zoom);
    place.setZoom(0, {200, 150});
    EXPECT_EQ(place.zoom(), ViewTransform::least_zoom);
}

TEST(ViewTransform, PanningKeepsSomeOfTheFrameInTheView)
{
    for (const QPointF by : {QPointF(1e6, 0), QPointF(-1e6, 0), QPointF(0, 1e6), QPointF(-1e6, -1e6)}) {
        auto place = fitted({100, 50}, {1, 1}, {400, 300});
        place.pan(by);
        const QRectF seen = place.frameRect() & QRectF(0, 0, 400, 300);
        EXPECT_GE(seen.width(), 31.9);
        EXPECT_GE(seen.height(), 31.9);
    }
}

TEST(ViewTransform, AFittedFrameStaysFitted)
{
    auto place = fitted({100, 50}, {1, 1}, {400, 400});
    place.setViewSize({200, 200});
    EXPECT_EQ(place.zoom(), 2);
    place.pan({10, 0});
    place.setViewSize({400, 400});
    EXPECT_EQ(place.zoom(), 2);
    EXPECT_FALSE(place.isFitted());
}

TEST(ViewTransform, AResizedViewKeepsItsMiddle)
{
    auto place = fitted({100, 50}, {1, 1}, {400, 400});
    place.setZoom(6, {100, 200});
    const QPointF middle = place.toPixel({200, 200});
    place.setViewSize({300, 500});
    expect_near(place.toPixel({150, 250}), middle);
}

TEST(ViewTransform, SenselessSpacingIsTakenAsEqual)
{
    EXPECT_EQ(fitted({10, 10}, {0, 1}, {100, 100}).zoom(), 10);
    EXPECT_EQ(fitted({10, 10}, {-1, 1}, {100, 100}).zoom(), 10);
}

TEST(Orientation, NamesTheNearestSideOfThePatient)
{
    EXPECT_EQ(edge_letters({1, 0, 0}).towards, 'L');
    EXPECT_EQ(edge_letters({1, 0, 0}).away, 'R');
    EXPECT_EQ(edge_letters({-0.99, 0.1, 0}).towards, 'R');
    EXPECT_EQ(edge_letters({0, 1, 0}).towards, 'P');
    EXPECT_EQ(edge_letters({0, 0, -1}).towards, 'I');
    EXPECT_EQ(edge_letters({0.7, 0.7, 0}).towards, 0);
}

}

TEST(Orientation, FilmsAreSeenFromTheFeetAndFromTheFront)
{
    using workbench::Mirror;
    using workbench::usual_view;
    EXPECT_EQ(usual_view({1, 0, 0}, {0, 1, 0}), (Mirror{false, false})) << "as DICOM stores axial frames";
    EXPECT_EQ(usual_view({-1, 0, 0}, {0, -1, 0}), (Mirror{true, true})) << "as NIfTI files often do";
    EXPECT_EQ(usual_view({1, 0, 0}, {0, 0, 1}), (Mirror{false, true})) << "coronal, head at the top";
    EXPECT_EQ(usual_view({0, -1, 0}, {0, 0, -1}), (Mirror{true, false})) << "sagittal, front at the left";
}

TEST(ViewTransform, AMirroredFrameCoversTheSamePlaceTheOtherWayRound)
{
    workbench::ViewTransform place;
    place.setViewSize({300, 200});
    place.setFrame({100, 50}, {1, 1}, {true, true});
    const QRectF rect = place.frameRect();
    EXPECT_NEAR(place.toView({0, 0}).x(), rect.right(), 1e-9);
    EXPECT_NEAR(place.toView({0, 0}).y(), rect.bottom(), 1e-9);
    const QPointF anchor(60, 120);
    const QPointF held = place.toPixel(anchor);
    place.setZoom(7, anchor);
    EXPECT_NEAR(place.toPixel(anchor).x(), held.x(), 1e-9);
    EXPECT_NEAR(place.toPixel(anchor).y(), held.y(), 1e-9);
    const QPointF pixel(3.25, 4.75);
    EXPECT_NEAR(place.toPixel(place.toView(pixel)).x(), pixel.x(), 1e-9);
}
