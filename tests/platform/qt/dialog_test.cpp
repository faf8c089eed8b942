#include "platform/qt/window_widget.h"
#include "tests/platform/test_dialog.h"
#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QTest>
#include <QTimer>
#include <QWindow>

using test::run_dialog;
using test::Test_Window;

// Dialogs from a template, used as a user does.

namespace {

class Qt_Dialog : public ::testing::Test {
protected:
    Qt_Dialog()
    {
        Widget_From_Window(owner.handle())->activateWindow();
        QTest::qWait(1);
    }

    /// Runs a dialog, does the work once it is shown, and ends it when it does not end by itself. Remembers what it was
    /// told.
    INT_PTR Use(const std::function<void(QWidget&)>& work, HWND of, test::Dialog_Handler also = {},
        test::Dialog_Template description = test::Dialog_Template())
    {
        return run_dialog(
            of,
            [&](HWND window, UINT message, WPARAM wparam, LPARAM lparam) -> INT_PTR {
                dialog = window;
                told.push_back({message, wparam, lparam});
                if (message == WM_USER)
                    QTimer::singleShot(0, [this, window, &work] {
                        work(*Widget_From_Window(window));
                        if (!ends_by_itself && IsWindowVisible(window))
                            EndDialog(window, -5);
                    });
                return also ? also(window, message, wparam, lparam) : FALSE;
            },
            0, std::move(description));
    }
    INT_PTR Use(const std::function<void(QWidget&)>& work) { return Use(work, owner.handle()); }

    std::vector<WPARAM> Told(UINT message) const
    {
        std::vector<WPARAM> words;
        for (const test::Message& one : told) {
            if (one.message == message)
                words.push_back(one.wparam);
        }
        return words;
    }

    using Words = std::vector<WPARAM>;
    Test_Window owner{nullptr, 300, 200};
    std::vector<test::Message> told;
    HWND dialog = nullptr;
    bool ends_by_itself = false;
};

}

TEST_F(Qt_Dialog, IsADialogOfTheSizeAndPlaceOfItsTemplate)
{
    Widget_From_Window(owner.handle())->move(100, 120);
    Use([&](QWidget& widget) {
        EXPECT_EQ(widget.size(), QSize(480, 150));
        EXPECT_EQ(widget.minimumSize(), widget.maximumSize());
        EXPECT_EQ(widget.frameGeometry().topLeft(), Widget_From_Window(owner.handle())->mapToGlobal(QPoint(20, 20)));
        EXPECT_TRUE(widget.windowFlags().testFlag(Qt::WindowTitleHint));
        EXPECT_TRUE(widget.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        EXPECT_EQ(widget.windowTitle(), QStringLiteral("Rename"));
    });
}

TEST_F(Qt_Dialog, LiesOnTheScreen)
{
    Widget_From_Window(owner.handle())->move(790, 790);
    Use([&](QWidget& widget) { EXPECT_TRUE(widget.screen()->availableGeometry().contains(widget.frameGeometry())); });
}

TEST_F(Qt_Dialog, ItsCaptionHasAnyCharacters)
{
    QString title;
    const char* const caption = "H\xC3\xB6he \xE2\x82\xAC \xF0\x9F\x98\x80";
    Use([&](QWidget& widget) { title = widget.windowTitle(); }, owner.handle(), {}, test::Dialog_Template(caption));
    EXPECT_EQ(title, QString::fromUtf8(caption));
}

TEST_F(Qt_Dialog, KeysAndWhatTheyTypeArrive)
{
    Use([](QWidget& widget) {
        QTest::keyClick(widget.windowHandle(), 'a');
        QTest::keyClick(widget.windowHandle(), Qt::Key_Home);
        QTest::keyClick(widget.windowHandle(), Qt::Key_Backspace);
    });
    EXPECT_EQ(Told(WM_KEYDOWN), (Words{'A', VK_HOME, VK_BACK}));
    EXPECT_EQ(Told(WM_CHAR), (Words{'a', 8}));
}

TEST_F(Qt_Dialog, EnterAndEscapeComeAsCommandsAndTypeNothing)
{
    Use([](QWidget& widget) {
        QTest::keyClick(widget.windowHandle(), Qt::Key_Return);
        QTest::keyClick(widget.windowHandle(), Qt::Key_Escape);
        QTest::keyClick(widget.windowHandle(), Qt::Key_Tab);
        QTest::keyClick(widget.windowHandle(), Qt::Key_Left);
    });
    EXPECT_EQ(Told(WM_COMMAND), (Words{IDOK, IDCANCEL}));
    EXPECT_EQ(Told(WM_KEYDOWN), Words{});
    EXPECT_EQ(Told(WM_CHAR), Words{});
    EXPECT_EQ(Told(WM_KEYUP).size(), 4u);
}

TEST_F(Qt_Dialog, WhatAKeyTypesCanBeTakenWhileTheKeyIsTold)
{
    Words taken;
    const auto take = [&](HWND window, UINT message, WPARAM, LPARAM) -> INT_PTR {
        MSG typed{};
        if (message == WM_KEYDOWN && PeekMessageA(&typed, window, WM_CHAR, WM_CHAR, PM_REMOVE))
            taken.push_back(typed.wParam);
        return message == WM_KEYDOWN;
    };
    Use(
        [](QWidget& widget) {
            QKeyEvent euro(QEvent::KeyPress, Qt::Key_E, Qt::NoModifier, QStringLiteral("\u20ac"));
            QApplication::sendEvent(&widget, &euro);
            QTest::keyClick(widget.windowHandle(), Qt::Key_Home);
            QTest::keyClick(widget.windowHandle(), 'b');
        },
        owner.handle(), take);
    EXPECT_EQ(taken, (Words{0x20ac, 'b'}));
    EXPECT_EQ(Told(WM_CHAR), Words{});
}

TEST_F(Qt_Dialog, TextWithoutAKeyArrives)
{
    Use([](QWidget& widget) {
        QKeyEvent composed(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QStringLiteral("\u00ea"));
        QApplication::sendEvent(&widget, &composed);
    });
    EXPECT_EQ(Told(WM_KEYDOWN), Words{});
    EXPECT_EQ(Told(WM_CHAR), Words{0xea});
}

TEST_F(Qt_Dialog, GetsThePressesAndItsOwnerDoesNot)
{
    Use([&](QWidget& widget) {
        owner.forget();
        QTest::mouseClick(widget.windowHandle(), Qt::LeftButton, {}, {30, 40});
        QTest::mouseClick(Widget_From_Window(owner.handle())->windowHandle(), Qt::LeftButton, {}, {5, 5});
        QTest::keyClick(Widget_From_Window(owner.handle())->windowHandle(), 'x');
    });
    EXPECT_EQ(Told(WM_LBUTTONDOWN).size(), 1u);
    EXPECT_EQ(Told(WM_LBUTTONUP).size(), 1u);
    EXPECT_EQ(owner.count(WM_LBUTTONDOWN), 0);
    EXPECT_EQ(owner.count(WM_KEYDOWN), 0);
}

TEST_F(Qt_Dialog, TheCloseBoxAsksToClose)
{
    const INT_PTR result = Use([](QWidget& widget) { widget.close(); }, owner.handle(),
        [](HWND window, UINT message, WPARAM, LPARAM) -> INT_PTR {
            return message == WM_CLOSE && EndDialog(window, 2);
        });
    EXPECT_EQ(result, 2);
    EXPECT_EQ(Told(WM_CLOSE).size(), 1u);
}

TEST_F(Qt_Dialog, TheFocusGoesBackToWhatHadIt)
{
    const Test_Window child(owner.handle());
    SetFocus(child.handle());
    ASSERT_EQ(GetFocus(), child.handle());
    Use([&](QWidget&) { EXPECT_EQ(GetFocus(), dialog); });
    EXPECT_EQ(GetFocus(), child.handle());
    EXPECT_EQ(GetActiveWindow(), owner.handle());
}

TEST_F(Qt_Dialog, ACaptureEndsWhereItStarts)
{
    SetCapture(owner.handle());
    HWND captured = owner.handle();
    Use([&](QWidget&) { captured = GetCapture(); });
    EXPECT_EQ(captured, nullptr);
    EXPECT_EQ(owner.count(WM_CANCELMODE), 1);
}

TEST_F(Qt_Dialog, AButtonThatCameUpMeanwhileIsUpAfterwards)
{
    QWindow* const below = Widget_From_Window(owner.handle())->windowHandle();
    bool held = false, held_afterwards = true;
    owner.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_RBUTTONDOWN)
            return {};
        held = GetKeyState(VK_RBUTTON) < 0;
        Use([&](QWidget&) { QTest::mouseRelease(below, Qt::RightButton, {}, {5, 5}); });
        held_afterwards = GetKeyState(VK_RBUTTON) < 0;
        return 0;
    };
    QTest::mousePress(below, Qt::RightButton, {}, {5, 5});
    EXPECT_TRUE(held);
    EXPECT_FALSE(held_afterwards);
}

TEST_F(Qt_Dialog, ShortcutsOfTheProgramWait)
{
    QWidget* const program = Widget_From_Window(owner.handle());
    QAction action(program);
    int triggered = 0;
    action.setShortcut(Qt::Key_A);
    action.setShortcutContext(Qt::ApplicationShortcut);
    QObject::connect(&action, &QAction::triggered, [&] { ++triggered; });
    program->addAction(&action);
    Use([](QWidget& widget) { QTest::keyClick(widget.windowHandle(), 'a'); });
    EXPECT_EQ(triggered, 0);
    EXPECT_EQ(Told(WM_CHAR), Words{'a'});
}

TEST_F(Qt_Dialog, BelongsToTheTopLevelWindowOfItsOwner)
{
    const Test_Window child(owner.handle());
    Use(
        [&](QWidget&) {
            EXPECT_EQ(GetParent(dialog), owner.handle());
            EXPECT_FALSE(IsWindowEnabled(owner.handle()));
        },
        child.handle());
}

// As a panel in the workbench does: its window is a child of a widget of Qt's, and nobody knows an active window.
TEST_F(Qt_Dialog, IsModalToAProgramOfQts)
{
    QMainWindow program;
    Test_Window press_here;
    auto* const panel = Widget_From_Window(press_here.handle());
    panel->setParent(&program);
    program.setCentralWidget(panel);
    program.show();
    program.activateWindow();
    QTest::qWait(1);
    EXPECT_EQ(GetActiveWindow(), nullptr);
    int presses = 0;
    INT_PTR result = 0;
    press_here.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_LBUTTONDOWN || ++presses > 1)
            return {};
        SetFocus(press_here.handle());
        result = Use(
            [&](QWidget& widget) {
                EXPECT_EQ(widget.parentWidget(), &program);
                EXPECT_EQ(QApplication::activeModalWidget(), &widget);
                EXPECT_TRUE(program.isEnabled()) << "its widgets do not look disabled";
                QTest::mouseClick(program.windowHandle(), Qt::LeftButton, {}, {20, 20});
                EndDialog(dialog, 4);
            },
            GetActiveWindow());
        return 0;
    };
    QTest::mouseClick(program.windowHandle(), Qt::LeftButton, {}, {20, 20});
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(result, 4);
    EXPECT_EQ(QApplication::activeWindow(), &program);
    EXPECT_EQ(GetFocus(), press_here.handle());
}

TEST_F(Qt_Dialog, EndsWithItsWindow)
{
    ends_by_itself = true;
    EXPECT_EQ(Use([&](QWidget&) { DestroyWindow(dialog); }), 0);
    EXPECT_TRUE(IsWindowEnabled(owner.handle()));
    EXPECT_EQ(Told(WM_DESTROY).size(), 1u);
}

TEST_F(Qt_Dialog, EndsWithItsOwner)
{
    ends_by_itself = true;
    EXPECT_EQ(Use([&](QWidget&) { DestroyWindow(owner.handle()); }), 0);
    EXPECT_FALSE(IsWindow(dialog));
    EXPECT_EQ(Told(WM_DESTROY).size(), 1u);
}

TEST_F(Qt_Dialog, EndsWithTheWidgetThatOwnsIt)
{
    auto* const program = new QWidget;
    program->show();
    program->activateWindow();
    QTest::qWait(1);
    ends_by_itself = true;
    EXPECT_EQ(Use([&](QWidget&) { delete program; }, nullptr), 0);
    EXPECT_FALSE(IsWindow(dialog));
}

TEST_F(Qt_Dialog, EndsWithTheLoopOfTheProgram)
{
    ends_by_itself = true;
    for (const bool by_message : {false, true}) {
        INT_PTR result = 5;
        QTimer::singleShot(0, [&] {
            result = Use([=](QWidget&) {
                if (by_message)
                    PostQuitMessage(8);
                else
                    QApplication::exit(8);
            });
        });
        QTimer::singleShot(5000, qApp, [] { QApplication::exit(99); });
        EXPECT_EQ(QApplication::exec(), 8);
        EXPECT_EQ(result, 0);
        EXPECT_FALSE(IsWindow(dialog));
    }
}

TEST(Qt_Dialog_Box, CannotRunWithoutWhatItNeeds)
{
    const DLGPROC procedure = [](HWND window, UINT message, WPARAM, LPARAM) -> INT_PTR {
        return message == WM_INITDIALOG && EndDialog(window, 5);
    };
    test::Dialog_Template usual;
    EXPECT_EQ(DialogBoxIndirectParamA(nullptr, nullptr, nullptr, procedure, 0), -1);
    EXPECT_EQ(DialogBoxIndirectParamA(nullptr, usual.get(), nullptr, nullptr, 0), -1);
    EXPECT_EQ(DialogBoxIndirectParamA(nullptr, usual.get(), reinterpret_cast<HWND>(3), procedure, 0), 0);
    EXPECT_EQ(DialogBoxIndirectParamA(nullptr, usual.get(), nullptr, procedure, 0), 5);
    test::Dialog_Template with_controls;
    with_controls.get()->cdit = 1;
    EXPECT_EQ(DialogBoxIndirectParamA(nullptr, with_controls.get(), nullptr, procedure, 0), -1);
    test::Dialog_Template extended;
    extended.get()->style = 0xFFFF0001;
    EXPECT_EQ(DialogBoxIndirectParamA(nullptr, extended.get(), nullptr, procedure, 0), -1);
}
