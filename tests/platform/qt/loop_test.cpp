#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

using test::Test_Window;

namespace {

// Ends a loop that would wait for ever.
class Loop {
public:
    Loop()
    {
        QTimer::singleShot(5000, &loop_, [this] { loop_.exit(1); });
    }
    bool run() { return loop_.exec() == 0; }
    void end() { loop_.exit(0); }

private:
    QEventLoop loop_;
};

}

TEST(Qt_Loop, PostedMessageArrivesUnderSomebodyElsesLoop)
{
    Test_Window window;
    Loop loop;
    window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message == WM_USER)
            loop.end();
        return {};
    };
    PostMessageA(window.handle(), WM_USER, 0, 0);
    EXPECT_TRUE(loop.run());
    EXPECT_EQ(window.count(WM_USER), 1);
}

TEST(Qt_Loop, PostedMessageThatAPeekLeftStillArrives)
{
    Test_Window window;
    PostMessageA(window.handle(), WM_USER, 0, 0);
    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE));
    Loop loop;
    window.handler = [&](UINT seen, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (seen == WM_USER)
            loop.end();
        return {};
    };
    EXPECT_TRUE(loop.run());
}

TEST(Qt_Loop, PostedMessageArrivesInALoopThatAProcedureRuns)
{
    Test_Window window;
    bool arrived = false;
    window.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_USER)
            return {};
        Loop inner;
        window.handler = [&](UINT seen, WPARAM, LPARAM) -> std::optional<LRESULT> {
            if (seen == WM_USER + 1)
                inner.end();
            return {};
        };
        PostMessageA(window.handle(), WM_USER + 1, 0, 0);
        arrived = inner.run();
        PostQuitMessage(0);
        return 0;
    };
    // Input reaches procedures while the loop waits.
    QTimer::singleShot(0, [&] { SendMessageA(window.handle(), WM_USER, 0, 0); });
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0))
        DispatchMessageA(&message);
    EXPECT_TRUE(arrived);
}

TEST(Qt_Loop, QuitEndsTheApplicationsLoop)
{
    QTimer::singleShot(0, [] { PostQuitMessage(3); });
    QTimer::singleShot(5000, qApp, [] { QApplication::exit(99); });
    EXPECT_EQ(QApplication::exec(), 3);
}
