#include "tests/workbench/view/image_view_fixture.h"

#include <QApplication>
#include <QMouseEvent>

namespace test {

ImageViewTest::ImageViewTest()
{
    open(40, 30, 9);
    view.resize(400, 300);
    view.show();
    QApplication::processEvents();
    leave(); // wherever the screen's pointer is
}

void ImageViewTest::leave()
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&view, &event);
}

void ImageViewTest::mouse_event(
    QEvent::Type type, QPoint place, Qt::MouseButton button, Qt::MouseButtons held, Qt::KeyboardModifiers keys)
{
    QMouseEvent event(type, QPointF(place), view.mapToGlobal(QPointF(place)), button, held, keys);
    QApplication::sendEvent(&view, &event);
}

void ImageViewTest::press(QPoint place, Qt::MouseButton button, Qt::KeyboardModifiers keys)
{
    mouse_event(QEvent::MouseButtonPress, place, button, button, keys);
}

void ImageViewTest::move(QPoint place, Qt::MouseButtons held, Qt::KeyboardModifiers keys)
{
    mouse_event(QEvent::MouseMove, place, Qt::NoButton, held, keys);
}

void ImageViewTest::release(QPoint place, Qt::MouseButton button)
{
    mouse_event(QEvent::MouseButtonRelease, place, button, Qt::NoButton, {});
}

void ImageViewTest::drag(QPoint from, QPoint to, Qt::MouseButton button, Qt::KeyboardModifiers keys)
{
    press(from, button, keys);
    move(to, button, keys);
    release(to, button);
}

void ImageViewTest::turn_wheel(QPoint place, int angle, Qt::KeyboardModifiers keys)
{
    QWheelEvent event(
        QPointF(place), view.mapToGlobal(QPointF(place)), {}, {0, angle}, Qt::NoButton, keys, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view, &event);
}

void ImageViewTest::key_event(QEvent::Type type, int key)
{
    QKeyEvent event(type, key, Qt::NoModifier);
    QApplication::sendEvent(&view, &event);
}

QImage ImageViewTest::picture()
{
    return view.grab().toImage();
}

QPoint ImageViewTest::in_picture(QPoint place)
{
    return (QPointF(place) * view.devicePixelRatioF()).toPoint();
}

void ImageViewTest::keep_picture(const char* name)
{
    EXPECT_TRUE(picture().save(QStringLiteral(VETRA_OUT "/%1.png").arg(name)));
}

}
