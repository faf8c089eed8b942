#include "platform/qt/window_widget.h"
#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QTest>
#include <QWidget>
#include <QWindow>

using test::Test_Window;

namespace {

// What the last popup was told.
std::vector<test::Message> told;

LRESULT CALLBACK remember(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    told.push_back({message, wparam, lparam});
    return message == WM_CLOSE ? 0 : DefWindowProcA(window, message, wparam, lparam);
}

const test::Message* first(UINT message)
{
    for (const test::Message& one : told) {
        if (one.message == message)
            return &one;
    }
    return nullptr;
}

class Qt_Popup : public ::testing::Test {
protected:
    Qt_Popup()
    {
        WNDCLASSA description{};
        description.lpfnWndProc = remember;
        description.hInstance = GetModuleHandleA(nullptr);
        description.lpszClassName = "Qt popup";
        RegisterClassA(&description);
        popup = CreateWindowExA(WS_EX_TOOLWINDOW, "Qt popup", "", WS_POPUP, 300, 300, 50, 40, owner.handle(), nullptr,
            description.hInstance, nullptr);
        ShowWindow(popup, SW_SHOW);
        SetFocus(popup);
        QTest::qWait(1);
        told.clear();
    }
    ~Qt_Popup() override { DestroyWindow(popup); }

    QWindow* outside() { return Widget_From_Window(owner.handle())->windowHandle(); }

    Test_Window owner{nullptr, 200, 150};
    HWND popup = nullptr;
};

}

TEST_F(Qt_Popup, GetsPressesOnOtherWindowsAndTheyDoNot)
{
    owner.forget();
    QTest::mousePress(outside(), Qt::LeftButton, {}, {20, 30});
    const test::Message* const press = first(WM_LBUTTONDOWN);
    ASSERT_NE(press, nullptr);
    POINT place{static_cast<short>(LOWORD(press->lparam)), static_cast<short>(HIWORD(press->lparam))};
    ClientToScreen(popup, &place);
    POINT pressed{20, 30};
    ClientToScreen(owner.handle(), &pressed);
    EXPECT_EQ(place.x, pressed.x);
    EXPECT_EQ(place.y, pressed.y);
    QTest::mouseRelease(outside(), Qt::LeftButton, {}, {20, 30});
    EXPECT_NE(first(WM_LBUTTONUP), nullptr);
    EXPECT_EQ(owner.count(WM_LBUTTONDOWN), 0);
    EXPECT_EQ(owner.count(WM_LBUTTONUP), 0);
}

TEST_F(Qt_Popup, GetsTheKeysOfOtherWindows)
{
    owner.forget();
    QTest::keyClick(outside(), Qt::Key_Down);
    ASSERT_NE(first(WM_KEYDOWN), nullptr);
    EXPECT_EQ(first(WM_KEYDOWN)->wparam, static_cast<WPARAM>(VK_DOWN));
    EXPECT_EQ(owner.count(WM_KEYDOWN), 0);
}

TEST_F(Qt_Popup, IsAskedToCloseAndMayStay)
{
    Widget_From_Window(popup)->close();
    EXPECT_NE(first(WM_CLOSE), nullptr);
    EXPECT_TRUE(IsWindowVisible(popup));
}

TEST(Qt_Cursor, TheWaitCursorIsShownOverEveryWindow)
{
    SetCursor(LoadCursorA(nullptr, IDC_ARROW));
    ASSERT_EQ(QGuiApplication::overrideCursor(), nullptr);
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    SetCursor(LoadCursorA(nullptr, IDC_WAIT));
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    SetCursor(LoadCursorA(nullptr, IDC_CROSS));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}
