#include "host/structures.h"
#include "platform/qt/window_widget.h"
#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointingDevice>
#include <QTabletEvent>
#include <QTest>
#include <QTouchEvent>
#include <QWidget>

#include <memory>

using test::Test_Window;

// Pens and touches from Qt's events to what panels are told.

namespace {

class Pen : public ::testing::Test {
protected:
    Pen()
    {
        window.handler = [this](UINT message, WPARAM wparam, LPARAM lparam) -> std::optional<LRESULT> {
            if (message < WM_POINTERUPDATE || message > WM_POINTERUP)
                return {};
            records.push_back({});
            filled = Fct_Pointer_Pen(window.handle(), message, wparam, lparam, &records.back());
            return uses ? std::optional<LRESULT>(0) : std::nullopt;
        };
        test::pump();
        window.forget();
    }

    /// @return whether the window used the event, so that Qt makes no mouse of it
    bool tell(QEvent::Type type, QPoint place, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QWidget* const widget = Widget_From_Window(window.handle());
        QTabletEvent event(type, QPointingDevice::primaryPointingDevice(), place, widget->mapToGlobal(place), 0.5, 0, 0,
            0, 0, 0, Qt::NoModifier, button, buttons);
        event.ignore();
        QApplication::sendEvent(widget, &event);
        return event.isAccepted();
    }

    POINT on_screen(LONG x, LONG y)
    {
        POINT place{x, y};
        ClientToScreen(window.handle(), &place);
        return place;
    }

    Test_Window window;
    std::vector<Pen_Record> records;
    int filled = 0;
    bool uses = true;
};

class Touch : public ::testing::Test {
protected:
    Touch()
    {
        window.handler = [this](UINT message, WPARAM wparam, LPARAM lparam) -> std::optional<LRESULT> {
            if (message != WM_TOUCH)
                return {};
            Gesture_Record gesture{};
            if (!Fct_Pointer_Touch(window.handle(), message, wparam, lparam, &gesture))
                return {};
            gestures.push_back(gesture);
            EXPECT_FALSE(CloseTouchInputHandle(reinterpret_cast<HTOUCHINPUT>(lparam))) << "it is closed already";
            return 0;
        };
        test::pump();
        RegisterTouchWindow(window.handle(), 0);
        window.forget();
    }
    ~Touch() override
    {
        BYTE keys[256] = {};
        SetKeyboardState(keys);
    }

    QTest::QTouchEventWidgetSequence fingers() { return QTest::touchEvent(widget(), device()); }
    QWidget* widget() { return Widget_From_Window(window.handle()); }

    static QPointingDevice* device()
    {
        static QPointingDevice* screen = QTest::createTouchDevice();
        return screen;
    }

    void expect_last(float move_x, float move_y, float zoom_x, float zoom_y) const
    {
        ASSERT_FALSE(gestures.empty());
        EXPECT_FLOAT_EQ(gestures.back().move_x, move_x);
        EXPECT_FLOAT_EQ(gestures.back().move_y, move_y);
        EXPECT_FLOAT_EQ(gestures.back().zoom_x, zoom_x);
        EXPECT_FLOAT_EQ(gestures.back().zoom_y, zoom_y);
    }

    Test_Window window{nullptr, 400, 400};
    std::vector<Gesture_Record> gestures;
};

}

TEST_F(Pen, TipArrivesAsPointerMessages)
{
    EXPECT_TRUE(tell(QEvent::TabletPress, {10, 20}, Qt::LeftButton, Qt::LeftButton));
    ASSERT_EQ(window.count(WM_POINTERDOWN), 1);
    EXPECT_NE(filled, 0);
    EXPECT_EQ(records.back().buttons, 16);
    EXPECT_EQ(records.back().x, on_screen(10, 20).x);
    EXPECT_EQ(records.back().y, on_screen(10, 20).y);
    EXPECT_TRUE(tell(QEvent::TabletMove, {30, 25}, Qt::NoButton, Qt::LeftButton));
    ASSERT_EQ(window.count(WM_POINTERUPDATE), 1);
    EXPECT_EQ(records.back().buttons, 17);
    EXPECT_EQ(records.back().x, on_screen(30, 25).x);
    EXPECT_TRUE(tell(QEvent::TabletRelease, {30, 25}, Qt::LeftButton, Qt::NoButton));
    ASSERT_EQ(window.count(WM_POINTERUP), 1);
    EXPECT_EQ(records.back().buttons, 0);
}

TEST_F(Pen, MessageCarriesItsPlace)
{
    tell(QEvent::TabletPress, {10, 20}, Qt::LeftButton, Qt::LeftButton);
    const LPARAM place = window.last(WM_POINTERDOWN)->lparam;
    EXPECT_EQ(static_cast<short>(LOWORD(static_cast<std::uintptr_t>(place))), on_screen(10, 20).x);
    EXPECT_EQ(static_cast<short>(HIWORD(static_cast<std::uintptr_t>(place))), on_screen(10, 20).y);
}

TEST_F(Pen, AboveTheSurfaceHoldsNoButton)
{
    tell(QEvent::TabletMove, {10, 20}, Qt::NoButton, Qt::NoButton);
    ASSERT_EQ(window.count(WM_POINTERUPDATE), 1);
    EXPECT_EQ(records.back().buttons, 0);
}

TEST_F(Pen, BarrelButtonsChangeWhatTheTipIs)
{
    tell(QEvent::TabletPress, {10, 20}, Qt::RightButton, Qt::RightButton);
    EXPECT_EQ(window.count(WM_POINTERDOWN), 0) << "the tip is not down";
    EXPECT_EQ(records.back().buttons, 0);
    tell(QEvent::TabletPress, {10, 20}, Qt::LeftButton, Qt::LeftButton | Qt::RightButton);
    EXPECT_EQ(window.count(WM_POINTERDOWN), 1);
    EXPECT_EQ(records.back().buttons, 64);
    tell(QEvent::TabletMove, {10, 20}, Qt::NoButton, Qt::LeftButton | Qt::MiddleButton);
    EXPECT_EQ(records.back().buttons, 33);
}

TEST_F(Pen, LeftToTheDefaultIsLeftToTheMouse)
{
    uses = false;
    EXPECT_FALSE(tell(QEvent::TabletPress, {10, 20}, Qt::LeftButton, Qt::LeftButton));
}

TEST_F(Pen, IsKnownOnlyWhileItsMessageIsHandled)
{
    tell(QEvent::TabletPress, {10, 20}, Qt::LeftButton, Qt::LeftButton);
    const WPARAM wparam = window.last(WM_POINTERDOWN)->wparam;
    Pen_Record record{};
    EXPECT_EQ(Fct_Pointer_Pen(window.handle(), WM_POINTERDOWN, wparam, 0, &record), 0);
    window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_POINTERUP) {
            EXPECT_EQ(Fct_Pointer_Pen(window.handle(), message, wparam + 1, 0, &record), 0) << "another pointer";
            EXPECT_EQ(Fct_Pointer_Pen(window.handle(), message, wparam, 0, nullptr), 0);
        }
        return {};
    };
    tell(QEvent::TabletRelease, {10, 20}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(window.count(WM_POINTERUP), 1);
}

TEST_F(Touch, OfOneFingerIsTheMouse)
{
    fingers().press(0, {10, 20}, widget());
    ASSERT_EQ(window.count(WM_LBUTTONDOWN), 1);
    EXPECT_EQ(window.last(WM_LBUTTONDOWN)->wparam, MK_LBUTTON);
    EXPECT_EQ(window.last(WM_LBUTTONDOWN)->lparam, MAKELPARAM(10, 20));
    EXPECT_LT(GetKeyState(VK_LBUTTON), 0);
    fingers().move(0, {15, 26}, widget());
    ASSERT_EQ(window.count(WM_MOUSEMOVE), 1);
    EXPECT_EQ(window.last(WM_MOUSEMOVE)->wparam, MK_LBUTTON);
    EXPECT_EQ(window.last(WM_MOUSEMOVE)->lparam, MAKELPARAM(15, 26));
    fingers().release(0, {15, 26}, widget());
    ASSERT_EQ(window.count(WM_LBUTTONUP), 1);
    EXPECT_EQ(window.last(WM_LBUTTONUP)->wparam, 0u);
    EXPECT_GE(GetKeyState(VK_LBUTTON), 0);
    EXPECT_EQ(window.count(WM_TOUCH), 0);
}

TEST_F(Touch, OfTwoFingersIsAGesture)
{
    fingers().press(0, {100, 100}, widget()).press(1, {200, 200}, widget());
    expect_last(0, 0, 1, 1);
    fingers().move(0, {90, 100}, widget()).move(1, {230, 220}, widget());
    expect_last(10, 10, 1.4f, 1.2f);
    fingers().move(0, {94, 98}, widget()).move(1, {230, 220}, widget());
    expect_last(2, -1, 136.0f / 140, 122.0f / 120);
    fingers().release(0, {94, 98}, widget()).release(1, {230, 220}, widget());
    EXPECT_EQ(gestures.size(), 3u);
    EXPECT_EQ(window.count(WM_TOUCH), 4);
    EXPECT_EQ(window.count(WM_LBUTTONDOWN), 0);
    EXPECT_EQ(window.count(WM_LBUTTONUP), 0);
}

TEST_F(Touch, FingersSideBySideZoomAcrossOnly)
{
    fingers().press(0, {100, 100}, widget()).press(1, {200, 110}, widget());
    fingers().move(0, {100, 100}, widget()).move(1, {210, 120}, widget());
    expect_last(5, 5, 1.1f, 1);
    fingers().release(0, {100, 100}, widget()).release(1, {210, 120}, widget());
}

TEST_F(Touch, SecondFingerEndsThePressOfTheFirstBehindTheGesture)
{
    fingers().press(0, {100, 100}, widget());
    ASSERT_EQ(window.count(WM_LBUTTONDOWN), 1);
    fingers().move(0, {100, 100}, widget()).press(1, {200, 200}, widget());
    ASSERT_EQ(window.count(WM_TOUCH), 1);
    ASSERT_EQ(window.count(WM_LBUTTONUP), 1);
    EXPECT_LT(window.last(WM_TOUCH), window.last(WM_LBUTTONUP));
    EXPECT_GE(GetKeyState(VK_LBUTTON), 0);
    fingers().move(0, {90, 90}, widget()).move(1, {200, 200}, widget());
    expect_last(-5, -5, 1.1f, 1.1f);
    fingers().release(0, {90, 90}, widget()).move(1, {200, 200}, widget());
    fingers().move(1, {210, 210}, widget());
    fingers().release(1, {210, 210}, widget());
    EXPECT_EQ(gestures.size(), 2u) << "one finger is no gesture";
    EXPECT_EQ(window.count(WM_LBUTTONDOWN), 1) << "nor the mouse again before it is lifted";
    EXPECT_EQ(window.count(WM_LBUTTONUP), 1);
    fingers().press(0, {10, 20}, widget());
    EXPECT_EQ(window.count(WM_LBUTTONDOWN), 2);
    fingers().release(0, {10, 20}, widget());
}

TEST_F(Touch, NewFingerBeginsANewGesture)
{
    fingers().press(0, {100, 100}, widget()).press(1, {200, 200}, widget());
    fingers().move(0, {100, 100}, widget()).release(1, {200, 200}, widget());
    fingers().move(0, {100, 100}, widget()).press(2, {300, 300}, widget());
    expect_last(0, 0, 1, 1);
    fingers().move(0, {100, 100}, widget()).move(2, {300, 310}, widget());
    expect_last(0, 5, 1, 1.05f);
    fingers().release(0, {100, 100}, widget()).release(2, {300, 310}, widget());
}

TEST_F(Touch, ThatIsTakenAwayLiftsItsFingers)
{
    fingers().press(0, {100, 100}, widget()).press(1, {200, 200}, widget());
    QTouchEvent cancel(QEvent::TouchCancel, device());
    QApplication::sendEvent(widget(), &cancel);
    EXPECT_EQ(window.count(WM_TOUCH), 2);
    EXPECT_EQ(gestures.size(), 1u);
    fingers().press(5, {50, 50}, widget()).press(6, {90, 90}, widget());
    expect_last(0, 0, 1, 1);
    EXPECT_EQ(gestures.size(), 2u);
    fingers().release(5, {50, 50}, widget()).release(6, {90, 90}, widget());
    fingers().press(0, {10, 20}, widget());
    QApplication::sendEvent(widget(), &cancel);
    EXPECT_EQ(window.count(WM_LBUTTONDOWN), 1);
    EXPECT_EQ(window.count(WM_LBUTTONUP), 1);
}

TEST_F(Touch, ThirdFingerChangesNothing)
{
    fingers().press(0, {100, 100}, widget()).press(1, {200, 200}, widget());
    fingers().move(0, {100, 100}, widget()).move(1, {200, 200}, widget()).press(2, {300, 300}, widget());
    expect_last(0, 0, 1, 1);
    fingers().move(0, {100, 100}, widget()).move(1, {220, 200}, widget()).move(2, {30, 30}, widget());
    expect_last(10, 0, 1.2f, 1);
    fingers().release(0, {100, 100}, widget()).release(1, {220, 200}, widget()).release(2, {30, 30}, widget());
}

TEST_F(Touch, OfAWindowThatIsNotRegisteredIsTheMouse)
{
    Test_Window other(nullptr, 400, 400);
    test::pump();
    other.forget();
    QWidget* const place = Widget_From_Window(other.handle());
    QTest::touchEvent(place, device()).press(0, {10, 20}, place);
    QTest::touchEvent(place, device()).release(0, {10, 20}, place);
    EXPECT_EQ(other.count(WM_LBUTTONDOWN), 1);
    EXPECT_EQ(other.count(WM_LBUTTONUP), 1);
    EXPECT_EQ(other.count(WM_TOUCH), 0);
}

TEST_F(Touch, MayDestroyItsWindow)
{
    window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_TOUCH)
            DestroyWindow(window.handle());
        return {};
    };
    fingers().press(0, {100, 100}, widget());
    QWidget* const gone = widget();
    QTest::touchEvent(gone, device()).move(0, {100, 100}, gone).press(1, {200, 200}, gone);
    EXPECT_FALSE(IsWindow(window.handle()));
    EXPECT_EQ(window.count(WM_LBUTTONUP), 0);
    test::pump();
}

TEST_F(Touch, FingersAreKnownOnlyWhileTheirMessageIsHandled)
{
    fingers().press(0, {100, 100}, widget()).press(1, {200, 200}, widget());
    const LPARAM touch = window.last(WM_TOUCH)->lparam;
    Gesture_Record gesture{};
    EXPECT_EQ(Fct_Pointer_Touch(window.handle(), WM_TOUCH, 2, touch, &gesture), 0);
    EXPECT_EQ(Fct_Pointer_Touch(window.handle(), WM_TOUCH, 2, 0, &gesture), 0);
    fingers().release(0, {100, 100}, widget()).release(1, {200, 200}, widget());
}
