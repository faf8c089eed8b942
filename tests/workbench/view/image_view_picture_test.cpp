#include "tests/workbench/view/image_view_fixture.h"

#include <algorithm>
#include <QApplication>
#include <QPaintEvent>

namespace {

class ImageViewPicture : public test::ImageViewTest {
protected:
    ImageViewPicture() { session.setWindow({500, 1000}); } // stored values 0 to 1000

    int grey(int x, int y) const { return int(session.volume().grey(x, y, session.frame()) * 255 / 1000 + 0.5); }

    QColor mixed(int grey_level, unsigned tag) const
    {
        const QColor tag_colour = session.tagColour(tag);
        const double part = session.overlayOpacity();
        const auto channel = [&](int of_tag) { return int(grey_level * (1 - part) + of_tag * part); };
        return {channel(tag_colour.red()), channel(tag_colour.green()), channel(tag_colour.blue())};
    }

    static void expect_close(QColor found, QColor expected)
    {
        EXPECT_NEAR(found.red(), expected.red(), 1);
        EXPECT_NEAR(found.green(), expected.green(), 1);
        EXPECT_NEAR(found.blue(), expected.blue(), 1);
    }
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

TEST_F(ImageViewPicture, ShowsTheGreyValues)
{
    for (const int z : {0, 4, 8}) {
        session.setFrame(z);
        for (const auto& [x, y] : {std::pair(10, 10), std::pair(20, 14), std::pair(30, 15)}) {
            const int level = grey(x, y);
            expect_close(colour_at(x, y), QColor(level, level, level));
        }
    }
}

TEST_F(ImageViewPicture, ShowsEachPixelAsASquare)
{
    session.setWindow({500, 10}); // neighbours differ as much as they can
    session.setFrame(4);
    const QImage shown = picture();
    for (int y = 11; y < 14; ++y)
        for (int x = 10; x < 20; ++x)
            EXPECT_EQ(
                shown.pixel(in_picture({10 * x + 1, 10 * y + 1})), shown.pixel(in_picture({10 * x + 8, 10 * y + 8})))
                << x << " " << y;
}

TEST_F(ImageViewPicture, FollowsTheWindow)
{
    const QColor before = colour_at(20, 14);
    session.setWindow({500, 200});
    EXPECT_NE(colour_at(20, 14), before);
}

TEST_F(ImageViewPicture, LaysTagsOverTheImage)
{
    session.setCurrentTag(2);
    paint({10, 10}, {30, 10});
    for (const double opacity : {0.0, 0.3, 1.0}) {
        session.setOverlayOpacity(opacity);
        expect_close(colour_at(20, 10), mixed(grey(20, 10), 2));
        const int level = grey(20, 20);
        expect_close(colour_at(20, 20), QColor(level, level, level));
    }
}

TEST_F(ImageViewPicture, FollowsUndoAndColours)
{
    session.setCurrentTag(2);
    paint({20, 10});
    hostkit::Tag_Color_Set(2, {10, 200, 30});
    Fct_Update(1ull << 38, nullptr, nullptr, nullptr);
    expect_close(colour_at(20, 10), mixed(grey(20, 10), 2));
    session.undoStack().undo();
    const int level = grey(20, 10);
    expect_close(colour_at(20, 10), QColor(level, level, level));
}

TEST_F(ImageViewPicture, ShowsTheBrushAtThePointer)
{
    choose_brush_of_radius(4);
    const QImage before = picture();
    move(at(20, 15));
    const QImage hovering = picture();
    EXPECT_NE(hovering, before);
    const QPoint middle = in_picture(at(20, 15));
    EXPECT_EQ(hovering.pixelColor(middle), before.pixelColor(middle)); // only its edge
    const QColor tag = session.tagColour(session.currentTag());
    int of_the_tag = 0;
    for (int x = 0; x < hovering.width(); ++x)
        of_the_tag += hovering.pixelColor(x, middle.y()) == tag;
    EXPECT_EQ(of_the_tag, 2); // the left and the right side
    leave();
    EXPECT_EQ(picture(), before);
}

TEST_F(ImageViewPicture, HoveringRepaintsOnlyAroundTheBrush)
{
    choose_brush_of_radius(2);
    move(at(20, 15));
    QApplication::processEvents();
    Paints paints;
    view.installEventFilter(&paints);
    move(at(22, 15));
    QApplication::processEvents();
    EXPECT_FALSE(paints.region.isEmpty());
    const QRect around = QRect(at(20, 15), at(22, 15)).adjusted(-30, -30, 30, 30);
    EXPECT_TRUE(around.contains(paints.region.boundingRect()));
    view.removeEventFilter(&paints);
}

TEST_F(ImageViewPicture, PaintingRepaintsOnlyWhatChanged)
{
    choose_brush_of_radius(2);
    session.beginStroke({20, 15}, false);
    QApplication::processEvents();
    Paints paints;
    view.installEventFilter(&paints);
    session.continueStroke({24, 15});
    QApplication::processEvents();
    const QRect around = QRect(at(20, 15), at(24, 15)).adjusted(-50, -50, 50, 50);
    EXPECT_TRUE(around.contains(paints.region.boundingRect()));
    EXPECT_FALSE(paints.region.isEmpty());
    view.removeEventFilter(&paints);
    session.endStroke();

    // What was repainted in part is what a new picture of everything is.
    const QImage in_parts = picture();
    session.setOverlayOpacity(0.1);
    session.setOverlayOpacity(0.5);
    EXPECT_EQ(picture(), in_parts);
}

TEST_F(ImageViewPicture, UnequalSpacingKeepsMillimetresSquare)
{
    open(40, 30, 3, {1, 2, 1});
    const QPointF way = view.positionOf(10, 10) - view.positionOf(9, 9);
    EXPECT_NEAR(way.y(), 2 * way.x(), 1e-9);
}

TEST_F(ImageViewPicture, LooksLikeAPictureOfAHead)
{
    view.resize(700, 520);
    open(180, 220, 40);
    session.setWindow({1500, 3500});
    for (unsigned tag = 1; tag < 6; ++tag) {
        session.setCurrentTag(tag);
        choose_brush_of_radius(tag % 2 ? 12 : 8);
        paint({20 + 25 * int(tag), 40}, {30 + 20 * int(tag), 160});
    }
    choose_brush_of_radius(20);
    move(at(90, 150));
    keep_picture("image_view");
    view.zoomIn();
    view.zoomIn();
    view.zoomIn();
    view.zoomIn();
    move(at(90, 110), {}, Qt::ShiftModifier);
    keep_picture("image_view_zoomed");
    EXPECT_GT(std::ranges::count_if(session.labels().frame(session.frame()), [](auto tag) { return tag != 0; }), 5000);
}

}
