#include "platform/qt/window_widget.h"
#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

#include <stdexcept>

using test::Test_Window;

namespace {

// Remembers what its children left unused.
class Outside final : public QWidget {
public:
    std::vector<int> keys;
    int wheels = 0;
    int presses = 0;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys.push_back(event->key()); }
    void wheelEvent(QWheelEvent* event) override
    {
        ++wheels;
        event->accept();
    }
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

class Qt_Input : public ::testing::Test {
protected:
    Qt_Input()
    {
        outside.resize(300, 200);
        widget = Widget_From_Window(window.handle());
        widget->setParent(&outside);
        widget->setGeometry(20, 30, 100, 80);
        outside.show();
        widget->show();
        QTest::qWait(1);
        window.forget();
        BYTE keys[256] = {};
        SetKeyboardState(keys);
    }
    ~Qt_Input() override
    {
        ReleaseCapture();
        widget->setParent(nullptr);
    }

    // Answers a message itself, with 0 or another result.
    void use(UINT used, LRESULT result = 0)
    {
        window.handler = [=](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
            return message == used ? std::optional<LRESULT>(result) : std::nullopt;
        };
    }

    void turn_wheel(int delta, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QPoint place = widget->mapTo(&outside, QPoint(10, 10));
        QWheelEvent event(
            place, outside.mapToGlobal(place), {}, {0, delta}, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event); // Qt passes on only what the system sent
        qApp->notify(outside.windowHandle(), &event);
    }

    Outside outside;
    Test_Window window;
    QWidget* widget;
};

}

TEST_F(Qt_Input, MouseButtonsArriveWithPlaceAndState)
{
    const struct {
        Qt::MouseButton button;
        UINT down, up;
        WPARAM flag;
        int key;
    } buttons[] = {{Qt::LeftButton, WM_LBUTTONDOWN, WM_LBUTTONUP, MK_LBUTTON, VK_LBUTTON},
        {Qt::MiddleButton, WM_MBUTTONDOWN, WM_MBUTTONUP, MK_MBUTTON, VK_MBUTTON},
        {Qt::RightButton, WM_RBUTTONDOWN, WM_RBUTTONUP, MK_RBUTTON, VK_RBUTTON}};
    for (const auto& [button, down, up, flag, key] : buttons) {
        QTest::mousePress(widget, button, Qt::ShiftModifier, {12, 34});
        ASSERT_EQ(window.count(down), 1);
        EXPECT_EQ(window.last(down)->wparam, flag | MK_SHIFT);
        EXPECT_EQ(LOWORD(window.last(down)->lparam), 12);
        EXPECT_EQ(HIWORD(window.last(down)->lparam), 34);
        EXPECT_LT(GetKeyState(key), 0);
        QTest::mouseRelease(widget, button, {}, {12, 34});
        ASSERT_EQ(window.count(up), 1);
        EXPECT_EQ(window.last(up)->wparam, 0u);
        EXPECT_GE(GetKeyState(key), 0);
    }
}

TEST_F(Qt_Input, SecondPressOfADoubleClickIsAPress)
{
    QTest::mouseClick(widget, Qt::LeftButton, {}, {5, 5});
    QTest::mouseDClick(widget, Qt::LeftButton, {}, {5, 5}); // the second press alone
    QTest::mouseRelease(widget, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(window.count(WM_LBUTTONDOWN), 2);
    EXPECT_EQ(window.count(WM_LBUTTONUP), 2);
}

TEST_F(Qt_Input, ButtonsAreKnownWhileTheProcedureRuns)
{
    SHORT during = 0;
    window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_LBUTTONDOWN)
            during = GetKeyState(VK_LBUTTON);
        return {};
    };
    QTest::mouseClick(widget, Qt::LeftButton);
    EXPECT_LT(during, 0);
}

TEST_F(Qt_Input, ButtonsPressedOnAnyWidgetAreKnown)
{
    QTest::mousePress(&outside, Qt::RightButton, {}, {250, 150});
    EXPECT_LT(GetKeyState(VK_RBUTTON), 0);
    QTest::mouseRelease(&outside, Qt::RightButton, {}, {250, 150});
    EXPECT_GE(GetKeyState(VK_RBUTTON), 0);
}

TEST_F(Qt_Input, MouseMovesArriveWithoutAButton)
{
    QTest::mouseMove(widget, {40, 41});
    QTest::qWait(1);
    ASSERT_GE(window.count(WM_MOUSEMOVE), 1);
    EXPECT_EQ(LOWORD(window.last(WM_MOUSEMOVE)->lparam), 40);
    EXPECT_EQ(HIWORD(window.last(WM_MOUSEMOVE)->lparam), 41);
}

TEST_F(Qt_Input, PressThatAWindowLeavesDoesNotReachItsParent)
{
    QTest::mouseClick(widget, Qt::LeftButton, {}, {5, 5});
    EXPECT_EQ(window.count(WM_LBUTTONDOWN), 1);
    EXPECT_EQ(outside.presses, 0);
}

TEST_F(Qt_Input, CaptureBringsTheMouseOfOtherWindows)
{
    Test_Window other;
    SetCapture(window.handle());
    QTest::mousePress(Widget_From_Window(other.handle()), Qt::LeftButton, {}, {3, 3});
    EXPECT_EQ(window.count(WM_LBUTTONDOWN), 1);
    EXPECT_EQ(other.count(WM_LBUTTONDOWN), 0);
    QTest::mouseRelease(Widget_From_Window(other.handle()), Qt::LeftButton, {}, {3, 3});
}

TEST_F(Qt_Input, LeaveIsToldOnceToThoseWhoAsked)
{
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(widget, &leave);
    EXPECT_EQ(window.count(WM_MOUSELEAVE), 0);
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof track;
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = window.handle();
    TrackMouseEvent(&track);
    QApplication::sendEvent(widget, &leave);
    QApplication::sendEvent(widget, &leave);
    EXPECT_EQ(window.count(WM_MOUSELEAVE), 1);
}

TEST_F(Qt_Input, WheelHasItsDeltaItsKeysAndAScreenPlace)
{
    use(WM_MOUSEWHEEL);
    turn_wheel(-240, Qt::ControlModifier);
    ASSERT_EQ(window.count(WM_MOUSEWHEEL), 1);
    const test::Message* wheel = window.last(WM_MOUSEWHEEL);
    EXPECT_EQ(static_cast<short>(HIWORD(wheel->wparam)), -240);
    EXPECT_EQ(LOWORD(wheel->wparam), MK_CONTROL);
    const QPoint place = widget->mapToGlobal(QPoint(10, 10));
    EXPECT_EQ(static_cast<short>(LOWORD(wheel->lparam)), place.x());
    EXPECT_EQ(static_cast<short>(HIWORD(wheel->lparam)), place.y());
    EXPECT_EQ(outside.wheels, 0);
}

TEST_F(Qt_Input, WheelLeftUnusedScrollsWhatIsAround)
{
    turn_wheel(120);
    EXPECT_EQ(outside.wheels, 1);
}

TEST_F(Qt_Input, KeyIsAVirtualKeyAndThenACharacter)
{
    QTest::keyClick(widget, Qt::Key_A);
    ASSERT_EQ(window.count(WM_KEYDOWN), 1);
    EXPECT_EQ(window.last(WM_KEYDOWN)->wparam, WPARAM{'A'});
    ASSERT_EQ(window.count(WM_CHAR), 1);
    EXPECT_EQ(window.last(WM_CHAR)->wparam, WPARAM{'a'});
    EXPECT_LT(window.last(WM_KEYDOWN), window.last(WM_CHAR));
    EXPECT_EQ(window.count(WM_KEYUP), 1);
}

TEST_F(Qt_Input, NamedKeysHaveTheirCodes)
{
    const std::pair<int, int> keys[] = {{Qt::Key_Backspace, VK_BACK}, {Qt::Key_Return, VK_RETURN},
        {Qt::Key_Enter, VK_RETURN}, {Qt::Key_Escape, VK_ESCAPE}, {Qt::Key_Space, VK_SPACE}, {Qt::Key_PageUp, VK_PRIOR},
        {Qt::Key_PageDown, VK_NEXT}, {Qt::Key_End, VK_END}, {Qt::Key_Home, VK_HOME}, {Qt::Key_Left, VK_LEFT},
        {Qt::Key_Up, VK_UP}, {Qt::Key_Right, VK_RIGHT}, {Qt::Key_Down, VK_DOWN}, {Qt::Key_Insert, VK_INSERT},
        {Qt::Key_Delete, VK_DELETE}, {Qt::Key_F3, VK_F1 + 2}, {Qt::Key_7, '7'}};
    for (const auto& [qt, code] : keys) {
        window.forget();
        QTest::keyClick(widget, static_cast<Qt::Key>(qt));
        ASSERT_EQ(window.count(WM_KEYDOWN), 1) << code;
        EXPECT_EQ(window.last(WM_KEYDOWN)->wparam, static_cast<WPARAM>(code));
    }
}

TEST_F(Qt_Input, KeysAreKnownWhileTheyAreDown)
{
    QTest::keyPress(widget, Qt::Key_Control);
    EXPECT_LT(GetKeyState(VK_CONTROL), 0);
    QTest::keyPress(widget, Qt::Key_B, Qt::ControlModifier);
    EXPECT_LT(GetKeyState('B'), 0);
    QTest::keyRelease(widget, Qt::Key_B, Qt::ControlModifier);
    QTest::keyRelease(widget, Qt::Key_Control);
    EXPECT_GE(GetKeyState(VK_CONTROL), 0);
    EXPECT_GE(GetKeyState('B'), 0);
}

TEST_F(Qt_Input, KeyWithAltIsTheSystemsAndTypesNothing)
{
    constexpr LPARAM alt_is_down = LPARAM{1} << 29;
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_A, Qt::AltModifier, QStringLiteral("a"));
        QApplication::sendEvent(widget, &event);
    }
    ASSERT_EQ(window.count(WM_SYSKEYDOWN), 1);
    EXPECT_EQ(window.last(WM_SYSKEYDOWN)->wparam, WPARAM{'A'});
    EXPECT_TRUE(window.last(WM_SYSKEYDOWN)->lparam & alt_is_down);
    EXPECT_EQ(window.count(WM_SYSKEYUP), 1);
    EXPECT_EQ(window.count(WM_KEYDOWN) + window.count(WM_KEYUP) + window.count(WM_CHAR), 0);
    EXPECT_EQ(outside.keys, std::vector<int>{Qt::Key_A}) << "nobody used it";
}

TEST_F(Qt_Input, AltItselfIsTheSystems)
{
    QTest::keyClick(widget, Qt::Key_Alt);
    ASSERT_EQ(window.count(WM_SYSKEYDOWN), 1);
    EXPECT_EQ(window.last(WM_SYSKEYDOWN)->wparam, WPARAM{VK_MENU});
    EXPECT_EQ(window.count(WM_KEYDOWN), 0);
}

TEST_F(Qt_Input, KeyWithAltAndControlIsTyped)
{
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Q, Qt::AltModifier | Qt::ControlModifier, QStringLiteral("@"));
    QApplication::sendEvent(widget, &event);
    EXPECT_EQ(window.count(WM_SYSKEYDOWN), 0);
    ASSERT_EQ(window.count(WM_KEYDOWN), 1);
    EXPECT_EQ(window.last(WM_KEYDOWN)->lparam, 1);
    ASSERT_EQ(window.count(WM_CHAR), 1);
    EXPECT_EQ(window.last(WM_CHAR)->wparam, WPARAM{'@'});
}

TEST_F(Qt_Input, CharacterBeyondSixteenBitsComesAsOne)
{
    QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUtf8("\xF0\x9F\x98\x80"));
    QApplication::sendEvent(widget, &event);
    ASSERT_EQ(window.count(WM_CHAR), 1);
    EXPECT_EQ(window.last(WM_CHAR)->wparam, 0x1F600u);
}

TEST_F(Qt_Input, DeleteTypesNoCharacter)
{
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QStringLiteral("\x7F"));
    QApplication::sendEvent(widget, &event);
    EXPECT_EQ(window.count(WM_KEYDOWN), 1);
    EXPECT_EQ(window.count(WM_CHAR), 0);
}

TEST_F(Qt_Input, KeyLeftUnusedGoesToTheParent)
{
    QTest::keyClick(widget, Qt::Key_F5);
    EXPECT_EQ(outside.keys, std::vector<int>{Qt::Key_F5});
}

TEST_F(Qt_Input, KeyUsedStaysInTheWindow)
{
    use(WM_KEYDOWN);
    QTest::keyClick(widget, Qt::Key_F5);
    EXPECT_TRUE(outside.keys.empty());
    use(WM_CHAR);
    QTest::keyClick(widget, Qt::Key_A);
    EXPECT_TRUE(outside.keys.empty());
}

TEST_F(Qt_Input, KeyAnsweredWithAnotherResultThanZeroIsUnused)
{
    use(WM_KEYDOWN, 1);
    QTest::keyClick(widget, Qt::Key_F5);
    EXPECT_EQ(outside.keys, std::vector<int>{Qt::Key_F5});
}

TEST_F(Qt_Input, KeyIsUsedThoughAMessageSentMeanwhileWasLeftToTheDefault)
{
    window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_KEYDOWN)
            return {};
        SendMessageA(window.handle(), WM_USER, 0, 0);
        return 0;
    };
    QTest::keyClick(widget, Qt::Key_F5);
    EXPECT_TRUE(outside.keys.empty());
}

TEST_F(Qt_Input, KeysAreTakenBeforeShortcutsOnlyWhenAskedFor)
{
    QKeyEvent question(QEvent::ShortcutOverride, Qt::Key_B, Qt::NoModifier, QStringLiteral("b"));
    question.ignore();
    QApplication::sendEvent(widget, &question);
    EXPECT_FALSE(question.isAccepted());
    Window_Takes_Keys(window.handle(), true);
    QApplication::sendEvent(widget, &question);
    EXPECT_TRUE(question.isAccepted());
    Window_Takes_Keys(window.handle(), false);
}

TEST_F(Qt_Input, DisabledWindowIsLeftAlone)
{
    EnableWindow(window.handle(), FALSE);
    QTest::mouseClick(widget, Qt::LeftButton);
    QTest::keyClick(widget, Qt::Key_A);
    turn_wheel(120);
    EXPECT_EQ(window.count(WM_LBUTTONDOWN), 0);
    EXPECT_EQ(window.count(WM_KEYDOWN), 0);
    EXPECT_EQ(window.count(WM_MOUSEWHEEL), 0);
    EnableWindow(window.handle(), TRUE);
    QTest::mouseClick(widget, Qt::LeftButton);
    EXPECT_EQ(window.count(WM_LBUTTONDOWN), 1);
}

TEST_F(Qt_Input, ExceptionOfAProcedureStaysInThePlatform)
{
    window.handler = [](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_LBUTTONDOWN)
            throw std::runtime_error("thrown by a procedure");
        return {};
    };
    EXPECT_NO_THROW(QTest::mouseClick(widget, Qt::LeftButton));
}

TEST_F(Qt_Input, WindowMayDestroyItselfOnAPress)
{
    Test_Window child(window.handle(), 30, 30);
    child.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_LBUTTONDOWN)
            return {};
        DestroyWindow(child.handle());
        return 0;
    };
    QTest::mousePress(Widget_From_Window(child.handle()), Qt::LeftButton, {}, {5, 5});
    EXPECT_FALSE(IsWindow(child.handle()));
    QTest::qWait(1);
}
