#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <thread>

// In a program of its own: a queue that threads break ends the process, and no other test is to be lost with it.

TEST(Messages, PostedByAnotherThreadArriveWholeAndInOrder)
{
    test::Test_Window window;
    constexpr WPARAM total = 2000;
    std::vector<WPARAM> seen;
    window.handler = [&](UINT message, WPARAM wparam, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_USER)
            return {};
        seen.push_back(wparam);
        return 0;
    };
    std::thread sender([&] {
        for (WPARAM i = 0; i < total; ++i)
            PostMessageA(window.handle(), WM_USER, i, 0);
    });
    // A message that got lost is to fail the test, not to stop it.
    const auto give_up = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (seen.size() < total && std::chrono::steady_clock::now() < give_up)
        test::pump();
    sender.join();
    ASSERT_EQ(seen.size(), total);
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
}
