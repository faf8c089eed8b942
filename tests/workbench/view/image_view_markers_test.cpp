#include "tests/workbench/view/image_view_fixture.h"

#include <algorithm>
#include <QApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QSignalSpy>

namespace {

constexpr auto Left = Qt::LeftButton;

class ImageViewMarkers : public test::ImageViewTest {
protected:
    ImageViewMarkers() { session.setWindow({500, 1000}); }

    void click(QPoint place, Qt::KeyboardModifiers keys = {}) { drag(place, place, Left, keys); }
    void set(int x, int y)
    {
        click(at(x, y), Qt::AltModifier);
        leave();
    }
    QPointF pixel(unsigned marker) const
    {
        const auto place = markers.place(marker);
        return place ? place->pixel : QPointF(-1, -1);
    }
    int steps() { return session.undoStack().count(); }

    // Pixels of a colour in the part of the view around a place.
    int seen(QColor colour, QPoint place)
    {
        const QImage image = picture();
        int count = 0;
        for (int y = place.y() - 15; y <= place.y() + 15; ++y)
            for (int x = place.x() - 15; x <= place.x() + 15; ++x) {
                const QPoint in = in_picture({x, y});
                count += image.valid(in) && image.pixelColor(in) == colour;
            }
        return count;
    }
    bool isMarked(unsigned marker, int x, int y) { return seen(markers.colour(marker), at(x, y)) > 4; }

    workbench::Markers& markers = session.markers();
};

/// Collects what a widget is asked to paint again.
class Paints : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            region |= static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion region;
};

TEST_F(ImageViewMarkers, AClickSetsOneWhilePlacing)
{
    QSignalSpy told(&view, &workbench::ImageView::placingChanged);
    view.setPlacing(true);
    click(at(10, 12));
    EXPECT_EQ(pixel(0), QPointF(10.5, 12.5));
    EXPECT_EQ(markers.place(0)->frame, 4);
    click(at(30, 12));
    EXPECT_EQ(pixel(1), QPointF(30.5, 12.5));
    EXPECT_EQ(steps(), 2);
    EXPECT_EQ(painted(session.currentTag()), 0u);
    view.setPlacing(false);
    view.setPlacing(false);
    EXPECT_EQ(told.size(), 2);
    drag(at(20, 20), at(25, 20), Left);
    EXPECT_GT(painted(session.currentTag()), 0u);
    EXPECT_FALSE(markers.isSet(2));
}

TEST_F(ImageViewMarkers, AltSetsAndMovesWithoutPlacing)
{
    click(at(10, 12), Qt::AltModifier);
    EXPECT_EQ(pixel(0), QPointF(10.5, 12.5));
    drag(at(10, 12), at(20, 14), Left, Qt::AltModifier);
    EXPECT_EQ(pixel(0), QPointF(20.5, 14.5));
    EXPECT_FALSE(markers.isSet(1));
    EXPECT_EQ(session.undoStack().undoText(), "Move Marker 0");
    EXPECT_EQ(painted(session.currentTag()), 0u);
}

TEST_F(ImageViewMarkers, SettingAndAdjustingIsOneStep)
{
    view.setPlacing(true);
    drag(at(10, 12), at(13, 15), Left);
    EXPECT_EQ(pixel(0), QPointF(13.5, 15.5));
    EXPECT_EQ(steps(), 1);
    EXPECT_EQ(session.undoStack().undoText(), "Set Marker 0");
}

TEST_F(ImageViewMarkers, OneIsHeldWhereItIsGrasped)
{
    set(10, 12);
    view.setPlacing(true);
    const QPoint beside = at(10, 12) + QPoint(7, -5);
    drag(beside, beside, Left);
    EXPECT_EQ(pixel(0), QPointF(10.5, 12.5));
    EXPECT_EQ(steps(), 1);
    drag(beside, beside + QPoint(50, 20), Left);
    EXPECT_NEAR(pixel(0).x(), 15.5, 1e-9);
    EXPECT_NEAR(pixel(0).y(), 14.5, 1e-9);
}

TEST_F(ImageViewMarkers, AClickOnOneMakesItCurrent)
{
    set(10, 12);
    set(30, 12);
    ASSERT_EQ(markers.current(), 1u);
    view.setPlacing(true);
    click(at(10, 12));
    EXPECT_EQ(markers.current(), 0u);
    EXPECT_EQ(steps(), 2);
}

TEST_F(ImageViewMarkers, OfTwoTogetherTheCurrentOneIsMoved)
{
    set(10, 12);
    view.setPlacing(true);
    click(at(10, 12) + QPoint(3, 3)); // on the first: nothing new
    click(at(30, 20));
    drag(at(30, 20), at(10, 12) + QPoint(6, 0), Left);
    ASSERT_EQ(markers.current(), 1u);
    drag(at(10, 12), at(20, 12), Left);
    EXPECT_EQ(pixel(0), QPointF(10.5, 12.5));
    EXPECT_GT(pixel(1).x(), 20);
}

TEST_F(ImageViewMarkers, EscapeTakesAMoveBackAndThenEndsPlacing)
{
    set(10, 12);
    view.setPlacing(true);
    press(at(10, 12));
    move(at(20, 12), Left);
    EXPECT_EQ(pixel(0), QPointF(20.5, 12.5));
    press_key(Qt::Key_Escape);
    EXPECT_EQ(pixel(0), QPointF(10.5, 12.5));
    EXPECT_TRUE(view.isPlacing());
    move(at(30, 12), Left);
    release(at(30, 12));
    EXPECT_EQ(pixel(0), QPointF(10.5, 12.5));
    EXPECT_EQ(steps(), 1);
    press_key(Qt::Key_Escape);
    EXPECT_FALSE(view.isPlacing());
}

TEST_F(ImageViewMarkers, WhyNoneIsSetIsTold)
{
    QSignalSpy refused(&view, &workbench::ImageView::strokeRefused);
    view.resize(500, 300); // wider than the picture
    view.setPlacing(true);
    click({2, 150});
    ASSERT_EQ(refused.size(), 1);
    EXPECT_TRUE(refused[0][0].toString().contains("beside the image"));
    EXPECT_EQ(steps(), 0);
}

TEST_F(ImageViewMarkers, TheFrameStaysWhileOneIsDragged)
{
    view.setPlacing(true);
    press(at(10, 12));
    turn_wheel(at(10, 12), -120);
    press_key(Qt::Key_Down);
    EXPECT_EQ(session.frame(), 4);
    session.setFrame(6); // by a shortcut
    move(at(20, 12), Left);
    release(at(20, 12));
    EXPECT_EQ(pixel(0), QPointF(10.5, 12.5));
    EXPECT_EQ(markers.place(0)->frame, 4);
    EXPECT_EQ(steps(), 1);
}

TEST_F(ImageViewMarkers, ALostReleaseEndsTheMove)
{
    view.setPlacing(true);
    press(at(10, 12));
    move(at(15, 12), Left);
    move(at(30, 12));
    EXPECT_FALSE(markers.isMoving());
    EXPECT_EQ(pixel(0), QPointF(15.5, 12.5));
}

TEST_F(ImageViewMarkers, ThePointerKnowsWhichItIsOver)
{
    set(10, 12);
    EXPECT_FALSE(view.markerUnderPointer());
    move(at(10, 12) + QPoint(4, 4));
    EXPECT_EQ(view.markerUnderPointer(), 0u);
    EXPECT_EQ(view.cursor().shape(), Qt::CrossCursor);
    view.setPlacing(true);
    EXPECT_EQ(view.cursor().shape(), Qt::OpenHandCursor);
    move(at(20, 20));
    EXPECT_EQ(view.cursor().shape(), Qt::CrossCursor);
    EXPECT_FALSE(view.markerUnderPointer());
    markers.setShown(0, false);
    move(at(10, 12));
    EXPECT_FALSE(view.markerUnderPointer());
    markers.setShown(0, true);
    session.setFrame(5);
    EXPECT_FALSE(view.markerUnderPointer());
}

TEST(ImageViewMarkersWithoutImage, CannotBePlaced)
{
    workbench::Session session;
    workbench::ImageView view(session);
    view.setPlacing(true);
    EXPECT_FALSE(view.isPlacing());
}

// ---------------------------------------------------------------------------------------------------------- pictures

TEST_F(ImageViewMarkers, AreShownInTheirFrameOnly)
{
    const QImage before = picture();
    set(10, 12);
    const QColor centre = before.pixelColor(in_picture(at(10, 12)));
    EXPECT_TRUE(isMarked(0, 10, 12));
    EXPECT_EQ(colour_at(10, 12), centre); // the place itself stays to be seen
    for (const int frame : {3, 5}) {
        session.setFrame(frame);
        EXPECT_FALSE(isMarked(0, 10, 12)) << frame;
    }
    session.setFrame(4);
    session.undoStack().undo();
    EXPECT_EQ(picture(), before);
}

TEST_F(ImageViewMarkers, BetweenFramesAreShownInTheNearest)
{
    markers.adopt({{.position = std::array<double, 3>{10, 12, 4.4}}}, "/tmp/points.csv");
    EXPECT_TRUE(isMarked(0, 10, 12));
    session.setFrame(5);
    EXPECT_FALSE(isMarked(0, 10, 12));
}

TEST_F(ImageViewMarkers, ThatAreSwitchedOffAreNotShown)
{
    const QImage before = picture();
    set(10, 12);
    markers.setShown(0, false);
    EXPECT_EQ(picture(), before);
    markers.setShown(0, true);
    EXPECT_TRUE(isMarked(0, 10, 12));
}

TEST_F(ImageViewMarkers, FollowTheirColourNameAndWhichIsCurrent)
{
    set(10, 12);
    set(30, 20);
    markers.setColour(0, QColor(255, 255, 0));
    EXPECT_GT(seen(QColor(255, 255, 0), at(10, 12)), 4);
    const QImage unnamed = picture();
    hostkit::Marker_Label_Set(0, "Nasion");
    Fct_Update(1ull << 47, nullptr, nullptr, nullptr);
    const QImage named = picture();
    EXPECT_NE(named, unnamed);
    markers.setCurrent(0);
    EXPECT_NE(picture(), named);
}

TEST_F(ImageViewMarkers, AreReadableOnBlackAndWhite)
{
    set(10, 12);
    for (const document::Window window : {document::Window{100000, 1}, document::Window{-100000, 1}}) {
        session.setWindow(window);
        EXPECT_TRUE(isMarked(0, 10, 12));
        EXPECT_NE(colour_at(10, 12), markers.colour(0));
    }
}

TEST_F(ImageViewMarkers, MovingRepaintsOnlyWhereTheyWereAndAre)
{
    set(10, 12);
    picture();
    markers.beginMoving(0);
    QApplication::processEvents();
    Paints paints;
    view.installEventFilter(&paints);
    markers.moveTo({15.5, 12.5});
    QApplication::processEvents();
    view.removeEventFilter(&paints);
    EXPECT_FALSE(paints.region.isEmpty());
    EXPECT_TRUE(QRect(at(10, 12), at(15, 12)).adjusted(-60, -30, 60, 30).contains(paints.region.boundingRect()));
    EXPECT_FALSE(isMarked(0, 10, 12));
    EXPECT_TRUE(isMarked(0, 15, 12));
}

TEST_F(ImageViewMarkers, FarAwayOnesDoNoHarm)
{
    const QImage before = picture();
    document::MarkerList away(4);
    away[0].position = {1e300, 0, 4};
    away[1].position = {-1e9, 1e9, 4};
    away[2].position = {0, 0, -1e300};
    away[3].position = {1e7, -50, 4};
    EXPECT_EQ(markers.adopt(away, "/tmp/points.csv"), 4);
    EXPECT_EQ(picture(), before);
    EXPECT_TRUE(markers.showNext(1));
}

TEST_F(ImageViewMarkers, LookLikeMarkersOfAHead)
{
    view.resize(700, 520);
    open(180, 220, 40);
    session.setWindow({1500, 3500});
    const std::pair<const char*, QPointF> points[] = {{"Nasion", {90, 30}}, {"Anterior commissure", {92, 100}},
        {"Left ear", {150, 118}}, {"", {30, 118}}, {"Inion", {91, 196}}, {"At the edge", {178, 60}}};
    unsigned marker = 0;
    for (const auto& [name, place] : points) {
        markers.beginSetting(place);
        markers.endMoving();
        hostkit::Marker_Label_Set(marker++, name);
        Fct_Update(1ull << 47, nullptr, nullptr, nullptr);
    }
    markers.setCurrent(1);
    view.setPlacing(true);
    keep_picture("image_view_markers");
    view.setPlacing(false);
    for (int i = 0; i < 4; ++i)
        view.zoomIn();
    session.setWindow({100000, 1});
    keep_picture("image_view_markers_black");
    session.setWindow({-100000, 1});
    keep_picture("image_view_markers_white");
    EXPECT_EQ(markers.count(), 8u);
}

}
