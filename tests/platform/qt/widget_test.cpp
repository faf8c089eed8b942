#include "platform/qt/window_widget.h"
#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QImage>
#include <QPaintEvent>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>
#include <QWindow>

using test::Test_Window;

namespace {

// What the widgets below it were asked to repaint.
class Paint_Watch final : public QObject {
public:
    QRegion painted;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

void set_pixel(HWND window, int x, int y, COLORREF color)
{
    const HDC dc = GetDC(window);
    SetPixel(dc, x, y, color);
    ReleaseDC(window, dc);
}

}

TEST(Qt_Widget, AndWindowAreFoundFromEachOther)
{
    const Test_Window window;
    QWidget* widget = Widget_From_Window(window.handle());
    ASSERT_NE(widget, nullptr);
    EXPECT_EQ(Window_From_Widget(widget), window.handle());
    QWidget stranger;
    EXPECT_EQ(Window_From_Widget(&stranger), nullptr);
    EXPECT_EQ(Window_From_Widget(nullptr), nullptr);
    EXPECT_EQ(Widget_From_Window(nullptr), nullptr);
}

TEST(Qt_Widget, InALayoutGetsItsSizeThere)
{
    QWidget outside;
    auto* layout = new QVBoxLayout(&outside);
    layout->setContentsMargins(0, 0, 0, 0);
    Test_Window window(nullptr, 10, 10, {}, false);
    layout->addWidget(Widget_From_Window(window.handle()));
    outside.resize(123, 77);
    outside.show();
    QTest::qWait(1);
    RECT area{};
    GetClientRect(window.handle(), &area);
    EXPECT_EQ(area.right, 123);
    EXPECT_EQ(area.bottom, 77);
    ASSERT_NE(window.last(WM_SIZE), nullptr);
    EXPECT_EQ(LOWORD(window.last(WM_SIZE)->lparam), 123);
    EXPECT_TRUE(IsWindowVisible(window.handle()));
    EXPECT_EQ(GetParent(window.handle()), nullptr);
}

TEST(Qt_Widget, DeletedByItsParentTakesItsWindowAlong)
{
    auto* outside = new QWidget;
    Test_Window window(nullptr, 10, 10, {}, false);
    const HWND handle = window.handle();
    Widget_From_Window(handle)->setParent(outside);
    delete outside;
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_EQ(window.count(WM_DESTROY), 1);
}

TEST(Qt_Widget, CloseAsksTheProcedure)
{
    Test_Window window;
    window.handler = [](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        return message == WM_CLOSE ? std::optional<LRESULT>(0) : std::nullopt;
    };
    Widget_From_Window(window.handle())->close();
    EXPECT_EQ(window.count(WM_CLOSE), 1);
    EXPECT_TRUE(IsWindowVisible(window.handle()));
    window.handler = {};
    Widget_From_Window(window.handle())->close();
    EXPECT_FALSE(IsWindow(window.handle()));
    QTest::qWait(1);
}

TEST(Qt_Widget, PictureIsWhatWasDrawn)
{
    const Test_Window window(nullptr, 50, 40);
    test::pump();
    set_pixel(window.handle(), 11, 12, RGB(10, 20, 30));
    const QImage picture = Window_Picture(window.handle());
    EXPECT_EQ(picture.size(), QSize(50, 40));
    EXPECT_EQ(picture.pixel(11, 12), qRgb(10, 20, 30));
    EXPECT_TRUE(Window_Picture(nullptr).isNull());
}

TEST(Qt_Widget, PictureIsAPrivateCopy)
{
    const Test_Window window(nullptr, 50, 40);
    QImage picture = Window_Picture(window.handle());
    picture.fill(Qt::red);
    EXPECT_NE(Window_Picture(window.handle()).pixel(5, 5), qRgb(255, 0, 0));
}

TEST(Qt_Widget, ShowsItsPicture)
{
    const Test_Window window(nullptr, 50, 40);
    test::pump();
    set_pixel(window.handle(), 7, 8, RGB(200, 100, 50));
    QWidget* widget = Widget_From_Window(window.handle());
    EXPECT_EQ(widget->grab().toImage().pixel(7, 8), qRgb(200, 100, 50));
}

TEST(Qt_Widget, KeepsItsPictureWhenItGrows)
{
    const Test_Window window(nullptr, 50, 40);
    test::pump();
    set_pixel(window.handle(), 7, 8, RGB(200, 100, 50));
    MoveWindow(window.handle(), 0, 0, 90, 80, TRUE);
    const QImage picture = Window_Picture(window.handle());
    EXPECT_EQ(picture.size(), QSize(90, 80));
    EXPECT_EQ(picture.pixel(7, 8), qRgb(200, 100, 50));
}

TEST(Qt_Widget, RepaintsOnlyWhatWasDrawn)
{
    const Test_Window window(nullptr, 200, 150);
    test::pump();
    QTest::qWait(20);
    Paint_Watch watch;
    Widget_From_Window(window.handle())->installEventFilter(&watch);
    set_pixel(window.handle(), 100, 50, RGB(1, 2, 3));
    QTest::qWait(50);
    EXPECT_TRUE(watch.painted.contains(QPoint(100, 50)));
    EXPECT_LE(watch.painted.boundingRect().width(), 5);
    EXPECT_LE(watch.painted.boundingRect().height(), 5);
}

TEST(Qt_Widget, IsNotRepaintedForAContextThatDrewNothing)
{
    const Test_Window window(nullptr, 200, 150);
    test::pump();
    QTest::qWait(20);
    Paint_Watch watch;
    Widget_From_Window(window.handle())->installEventFilter(&watch);
    const HDC dc = GetDC(window.handle());
    GetPixel(dc, 5, 5);
    ReleaseDC(window.handle(), dc);
    QTest::qWait(50);
    EXPECT_TRUE(watch.painted.isEmpty());
}

TEST(Qt_Widget, StaleContextIsRefusedThoughANewWindowTakesTheOldPlace)
{
    std::vector<HDC> stale;
    for (int i = 0; i < 20; ++i) {
        const Test_Window gone;
        stale.push_back(GetDC(gone.handle()));
    }
    const Test_Window fresh;
    for (const HDC dc : stale)
        EXPECT_EQ(SetPixel(dc, 1, 1, RGB(1, 2, 3)), CLR_INVALID);
}

TEST(Qt_Widget, TopmostIsKeptAboveAllAndStaysTheSameWindow)
{
    const Test_Window window;
    test::pump();
    QWidget* widget = Widget_From_Window(window.handle());
    const QWindow* native = widget->windowHandle();
    ASSERT_NE(native, nullptr);
    EXPECT_FALSE(native->flags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(SetWindowPos(window.handle(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE));
    EXPECT_TRUE(native->flags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE(widget->windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_EQ(widget->windowHandle(), native);
    EXPECT_TRUE(IsWindowVisible(window.handle()));
}

TEST(Qt_Widget, TopmostBeforeItIsShownIsKeptAboveAllToo)
{
    const Test_Window window(nullptr, 50, 40, {}, false);
    EXPECT_TRUE(SetWindowPos(window.handle(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW));
    const QWindow* native = Widget_From_Window(window.handle())->windowHandle();
    ASSERT_NE(native, nullptr);
    EXPECT_TRUE(native->flags() & Qt::WindowStaysOnTopHint);
}

TEST(Qt_Widget, OnTheTopOfItsParentIsRaisedThere)
{
    const Test_Window parent(nullptr, 200, 150);
    const Test_Window lower(parent.handle(), 50, 40);
    const Test_Window upper(parent.handle(), 50, 40);
    const QWidget* around = Widget_From_Window(parent.handle());
    EXPECT_EQ(around->childAt(5, 5), Widget_From_Window(upper.handle()));
    BringWindowToTop(lower.handle());
    EXPECT_EQ(around->childAt(5, 5), Widget_From_Window(lower.handle()));
}

TEST(Qt_Widget, TextIsUtf8)
{
    const Test_Window window;
    SetWindowTextA(window.handle(), "H\xC3\xB6he");
    EXPECT_EQ(Widget_From_Window(window.handle())->windowTitle(), QString::fromUtf8("H\xC3\xB6he"));
    char text[16] = "";
    EXPECT_EQ(GetWindowTextA(window.handle(), text, 16), 5);
    EXPECT_STREQ(text, "H\xC3\xB6he");
}

TEST(Qt_Widget, CursorIsShownWhereThePointerIs)
{
    const Test_Window window;
    test::pump();
    QTest::mouseMove(Widget_From_Window(window.handle()), {20, 20});
    QTest::qWait(1);
    SetCursor(LoadCursorA(nullptr, IDC_CROSS));
    EXPECT_EQ(Widget_From_Window(window.handle())->cursor().shape(), Qt::CrossCursor);
}
