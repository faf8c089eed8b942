#pragma once

#include <QImage>
#include <QPoint>
#include <QString>

#include <functional>
#include <vector>

class QWidget;

namespace workbench {

/// Works a window as a person does: the events go to the window, which finds out itself whom they concern.
class Driver {
public:
    explicit Driver(QWidget& window) : window_(window) {}

    /// @param place  in the coordinates of `widget`
    void click(const QWidget& widget, QPoint place, Qt::MouseButton button = Qt::LeftButton);
    void moveTo(const QWidget& widget, QPoint place);

    /// Presses at the first place, moves along the others and releases at the last.
    void drag(const QWidget& widget, const std::vector<QPoint>& places, Qt::MouseButton button = Qt::LeftButton,
        Qt::KeyboardModifiers modifiers = {});

    /// Turns the wheel. @param notches  away from the user
    void wheel(const QWidget& widget, QPoint place, int notches, Qt::KeyboardModifiers modifiers = {});

    /// Types into the window that is in front: the dialog if there is one.
    void key(int key, Qt::KeyboardModifiers modifiers = {});
    void type(const QString& text);

    /// Lets everything happen that is due.
    static void settle();

    /// Waits until something has become true. @return whether it has, within a minute
    static bool waitFor(const std::function<bool()>& condition);

    /// What the message box says that is open; empty when there is none.
    static QString openMessage();

    QImage picture() const;

private:
    QPoint inWindow(const QWidget& widget, QPoint place) const;

    QWidget& window_;
};

}
