#include "workbench/tour/driver.h"

#include <QApplication>
#include <QCursor>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPixmap>
#include <QSpontaneKeyEvent>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>

namespace workbench {

namespace {

constexpr int longestWait = 60000; // milliseconds

QWindow* frontWindow(QWidget& otherwise)
{
    QWidget* front = QApplication::activePopupWidget();
    if (!front)
        front = QApplication::activeModalWidget();
    return (front ? front : &otherwise)->windowHandle();
}

}

QPoint Driver::inWindow(const QWidget& widget, QPoint place) const
{
    return widget.mapTo(&window_, place);
}

void Driver::moveTo(const QWidget& widget, QPoint place)
{
    QCursor::setPos(widget.mapToGlobal(place));
    QTest::mouseMove(window_.windowHandle(), inWindow(widget, place));
    settle();
}

void Driver::click(const QWidget& widget, QPoint place, Qt::MouseButton button)
{
    moveTo(widget, place);
    QTest::mouseClick(window_.windowHandle(), button, {}, inWindow(widget, place));
    settle();
}

void Driver::drag(
    const QWidget& widget, const std::vector<QPoint>& places, Qt::MouseButton button, Qt::KeyboardModifiers modifiers)
{
    QWindow* window = window_.windowHandle();
    moveTo(widget, places.front());
    QTest::mousePress(window, button, modifiers, inWindow(widget, places.front()));
    for (const QPoint place : places) {
        QCursor::setPos(widget.mapToGlobal(place));
        QTest::mouseEvent(QTest::MouseMove, window, button, modifiers, inWindow(widget, place));
    }
    QTest::mouseRelease(window, button, modifiers, inWindow(widget, places.back()));
    settle();
}

void Driver::wheel(const QWidget& widget, QPoint place, int notches, Qt::KeyboardModifiers modifiers)
{
    moveTo(widget, place);
    QWidget* target = window_.childAt(inWindow(widget, place));
    if (!target)
        return;
    const QPointF global = widget.mapToGlobal(QPointF(place));
    QWheelEvent event(target->mapFromGlobal(global), global, {}, {0, notches * QWheelEvent::DefaultDeltasPerStep},
        Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event); // only what comes from outside goes on to a widget's parents
    QCoreApplication::instance()->notify(target, &event);
    settle();
}

void Driver::key(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(frontWindow(window_), static_cast<Qt::Key>(key), modifiers);
    settle();
}

void Driver::type(const QString& text)
{
    for (const QChar character : text) {
        const Qt::KeyboardModifiers shift = character.isUpper() ? Qt::ShiftModifier : Qt::NoModifier;
        QTest::keyClick(frontWindow(window_), character.toLatin1(), shift);
    }
    settle();
}

// A round of painting may ask for another one.
void Driver::settle()
{
    for (int round = 0; round < 5; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

bool Driver::waitFor(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < longestWait)
        QTest::qWait(5);
    settle();
    return condition();
}

QString Driver::openMessage()
{
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        const auto* box = qobject_cast<const QMessageBox*>(widget);
        if (box && box->isVisible())
            return box->text();
    }
    return {};
}

QImage Driver::picture() const
{
    settle();
    return window_.grab().toImage();
}

}
