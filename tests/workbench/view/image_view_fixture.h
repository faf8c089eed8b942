#pragma once

#include "tests/workbench/session_fixture.h"
#include "workbench/view/image_view.h"

#include <QEvent>
#include <QImage>

namespace test {

/// An image view of 400 x 300 on an image of 40 x 30 pixels and 9 frames: fitted, ten widget pixels a pixel.
class ImageViewTest : public SessionTest {
protected:
    ImageViewTest();

    QPoint at(int x, int y) const { return view.positionOf(x, y).toPoint(); } ///< the middle of a pixel
    void press(QPoint place, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {});
    void move(QPoint place, Qt::MouseButtons held = Qt::NoButton, Qt::KeyboardModifiers keys = {});
    void release(QPoint place, Qt::MouseButton button = Qt::LeftButton);
    void drag(QPoint from, QPoint to, Qt::MouseButton button, Qt::KeyboardModifiers keys = {});
    void leave();
    void turn_wheel(QPoint place, int angle, Qt::KeyboardModifiers keys = {});
    void press_key(int key) { key_event(QEvent::KeyPress, key); }
    void release_key(int key) { key_event(QEvent::KeyRelease, key); }

    QImage picture();                    ///< what the view shows, at the scale of the screen
    QPoint in_picture(QPoint place);     ///< where it shows a place of the widget
    void keep_picture(const char* name); ///< out/NAME.png
    QColor colour_at(int x, int y) { return picture().pixelColor(in_picture(at(x, y))); }

    workbench::ImageView view{session};

private:
    void key_event(QEvent::Type type, int key);
    void mouse_event(
        QEvent::Type type, QPoint place, Qt::MouseButton button, Qt::MouseButtons held, Qt::KeyboardModifiers keys);
};

}
