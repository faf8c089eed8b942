#include "tests/workbench/view/image_view_fixture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

class ImageViewKeys : public test::ImageViewTest {};

TEST_F(ImageViewKeys, TurnFrames)
{
    const std::pair<int, int> expected[] = {{Qt::Key_PageDown, 5}, {Qt::Key_PageUp, 4}, {Qt::Key_Down, 5},
        {Qt::Key_Right, 6}, {Qt::Key_Up, 5}, {Qt::Key_Left, 4}, {Qt::Key_Home, 0}, {Qt::Key_Up, 0}, {Qt::Key_End, 8},
        {Qt::Key_Down, 8}};
    for (const auto& [key, frame] : expected) {
        press_key(key);
        EXPECT_EQ(session.frame(), frame) << key;
    }
}

TEST_F(ImageViewKeys, ZeroFits)
{
    view.zoomIn();
    EXPECT_EQ(view.zoom(), 12.5);
    press_key(Qt::Key_0);
    EXPECT_EQ(view.zoom(), 10);
    view.zoomOut();
    EXPECT_EQ(view.zoom(), 8);
}

TEST_F(ImageViewKeys, OthersAreLeftToTheProgram)
{
    for (const int key : {int(Qt::Key_L), int(Qt::Key_BracketLeft), int(Qt::Key_Escape), int(Qt::Key_F1)}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&view, &event);
        EXPECT_FALSE(event.isAccepted()) << key;
    }
}

TEST_F(ImageViewKeys, LosingTheFocusForgetsSpace)
{
    press_key(Qt::Key_Space);
    QFocusEvent lost(QEvent::FocusOut);
    QApplication::sendEvent(&view, &lost);
    EXPECT_EQ(view.cursor().shape(), Qt::CrossCursor);
}

TEST(ImageViewWithoutImage, TakesEveryEventInItsStride)
{
    workbench::Session session;
    workbench::ImageView view(session);
    view.resize(300, 200);
    for (const int key : {int(Qt::Key_0), int(Qt::Key_End), int(Qt::Key_Space), int(Qt::Key_Escape)}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&view, &event);
    }
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&view, &event);
    }
    view.zoomIn();
    view.fit();
    EXPECT_FALSE(view.voxelAt({5, 5}));
    const QImage picture = view.grab().toImage();
    EXPECT_TRUE(picture.save(VETRA_OUT "/image_view_empty.png"));
    int bright = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            bright += qGray(picture.pixel(x, y)) > 100;
    EXPECT_GT(bright, 100); // it says what to do
}

}
