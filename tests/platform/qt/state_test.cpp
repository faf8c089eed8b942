#include "platform/qt/window_widget.h"
#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QShowEvent>
#include <QTest>
#include <QWidget>

using test::Test_Window;

// What the desktop does to a window: put it away, bring it back, uncover it.

namespace {

class Desktop : public ::testing::Test {
protected:
    Desktop()
    {
        test::pump();
        QTest::qWait(20);
        window.forget();
    }

    QWidget* widget() { return Widget_From_Window(window.handle()); }

    void expect_size(WPARAM kind, int width, int height) const
    {
        ASSERT_EQ(window.count(WM_SIZE), 1);
        EXPECT_EQ(window.last(WM_SIZE)->wparam, kind);
        EXPECT_EQ(window.last(WM_SIZE)->lparam, MAKELPARAM(width, height));
    }

    Test_Window window{nullptr, 200, 150};
};

}

TEST_F(Desktop, WindowThatIsPutAwayHasNoSize)
{
    widget()->showMinimized();
    QTest::qWait(20);
    expect_size(SIZE_MINIMIZED, 0, 0);
    window.forget();
    widget()->showNormal();
    QTest::qWait(20);
    expect_size(SIZE_RESTORED, 200, 150);
}

TEST_F(Desktop, OtherStatesOfAWindowOfTheSameSizeAreNoNews)
{
    widget()->setWindowState(Qt::WindowActive);
    QTest::qWait(20);
    EXPECT_EQ(window.count(WM_SIZE), 0);
}

TEST_F(Desktop, UncoveredWindowShowsItsPictureAndIsNotAskedToPaint)
{
    widget()->repaint();
    QTest::qWait(20);
    EXPECT_EQ(window.count(WM_PAINT), 0);
    QShowEvent shown;
    QSpontaneKeyEvent::setSpontaneous(&shown);
    qApp->notify(widget(), &shown);
    QTest::qWait(20);
    EXPECT_EQ(window.count(WM_PAINT), 0);
}

TEST_F(Desktop, WindowThatDrawsWhilePaintingIsNotAskedAgain)
{
    window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_PAINT)
            return {};
        PAINTSTRUCT paint{};
        BeginPaint(window.handle(), &paint);
        const HDC own = GetDC(window.handle());
        const RECT all{0, 0, 200, 150};
        FillRect(own, &all, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        ReleaseDC(window.handle(), own);
        EndPaint(window.handle(), &paint);
        return 0;
    };
    InvalidateRect(window.handle(), nullptr, FALSE);
    QTest::qWait(100);
    EXPECT_EQ(window.count(WM_PAINT), 1);
}
