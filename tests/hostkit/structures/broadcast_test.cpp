#include "host/basics.h"
#include "hostkit/basics/report.h"
#include "hostkit/structures/broadcast.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

using namespace hostkit;

namespace {

using Words = std::vector<unsigned long long>;

void send(unsigned long long flags)
{
    Fct_Update(flags, nullptr, nullptr, nullptr);
}

struct Listening {
    Words words;
    Subscription subscription = On_Update([this](unsigned long long flags) { words.push_back(flags); });
};

}

TEST(Broadcast, IsDeliveredAtOnceWhenNothingGoesOn)
{
    Listening listener;
    send(0x400000);
    EXPECT_EQ(listener.words, Words{0x400000});
}

TEST(Broadcast, WaitsForTheOutermostPanelCall)
{
    Listening listener;
    {
        const Panel_Call outer;
        {
            const Panel_Call inner;
            send(1);
        }
        EXPECT_TRUE(listener.words.empty());
    }
    EXPECT_EQ(listener.words, Words{1});
}

TEST(Broadcast, AWaitingWordIsNotQueuedTwiceAndWordsAreNeverMerged)
{
    Listening listener;
    {
        const Panel_Call call;
        for (int i = 0; i < 1000; ++i)
            send(0x102);
        send(0x101);
        send(0x402);
        send(0x101);
    }
    EXPECT_EQ(listener.words, (Words{0x102, 0x101, 0x402}));
}

TEST(Broadcast, AWordSentWhileItIsDeliveredComesAgainAfterwards)
{
    Words words;
    bool again = true;
    const auto subscription = On_Update([&](unsigned long long flags) {
        words.push_back(flags);
        if (std::exchange(again, false)) {
            send(2);
            send(flags);
            EXPECT_EQ(words.size(), 1u) << "called back in the middle";
        }
    });
    send(1);
    EXPECT_EQ(words, (Words{1, 2, 1}));
}

TEST(Broadcast, EveryListenerHearsAWordBeforeTheNext)
{
    std::vector<int> order;
    const auto first = On_Update([&](unsigned long long flags) { order.push_back(static_cast<int>(flags) * 10 + 1); });
    const auto second = On_Update([&](unsigned long long flags) { order.push_back(static_cast<int>(flags) * 10 + 2); });
    {
        const Panel_Call call;
        send(1);
        send(2);
    }
    EXPECT_EQ(order, (std::vector<int>{11, 12, 21, 22}));
}

TEST(Broadcast, RedrawMasksAreMergedAndComeAfterTheWords)
{
    std::vector<std::pair<char, unsigned long long>> order;
    const auto updates = On_Update([&](unsigned long long flags) { order.emplace_back('u', flags); });
    const auto redraws = On_Redraw([&](unsigned long long mask) { order.emplace_back('r', mask); });
    {
        const Panel_Call call;
        Fct_Redraw(1, nullptr, nullptr, nullptr);
        send(7);
        Fct_Redraw(4, nullptr, nullptr, nullptr);
    }
    const std::vector<std::pair<char, unsigned long long>> expected{{'u', 7}, {'r', 5}};
    EXPECT_EQ(order, expected);
}

TEST(Broadcast, AListenerThatLeftHearsNothing)
{
    Listening stays;
    {
        Listening leaves;
        send(1);
        EXPECT_EQ(leaves.words.size(), 1u);
    }
    send(2);
    EXPECT_EQ(stays.words, (Words{1, 2}));
}

TEST(Broadcast, AListenerMayLeaveWhileOthersAreTold)
{
    int heard = 0;
    Subscription second;
    const auto first = On_Update([&](unsigned long long) { second = Subscription(); });
    second = On_Update([&](unsigned long long) { ++heard; });
    send(1);
    EXPECT_EQ(heard, 0);
}

TEST(Broadcast, LaterWorkRunsWhenEverythingIsDelivered)
{
    std::vector<char> order;
    const auto updates = On_Update([&](unsigned long long) { order.push_back('u'); });
    {
        const Panel_Call call;
        After_Delivery([&] { order.push_back('l'); });
        send(1);
        EXPECT_TRUE(order.empty());
    }
    EXPECT_EQ(order, (std::vector<char>{'u', 'l'}));
}

TEST(Broadcast, AListenerThatThrowsIsReportedAndTheOthersHear)
{
    std::vector<std::string> reports;
    Set_Report_Sink({[&](const Report& report) {
                         reports.push_back(report.text);
                         return true;
                     },
        nullptr});
    int heard = 0;
    const auto bad = On_Update([](unsigned long long) { throw std::runtime_error("no more paper"); });
    const auto good = On_Update([&](unsigned long long) { ++heard; });
    send(1);
    Set_Report_Sink({});
    EXPECT_EQ(heard, 1);
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_NE(reports[0].find("no more paper"), std::string::npos);
}
