#include "tests/support/panel_host.h"

#include <stdexcept>

// What a panel hears from its window. The panel here only writes down what it is told.

namespace {

struct Heard {
    std::string what;
    int argument = 0;
    bool operator==(const Heard&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Heard& heard)
{
    return out << heard.what << "(" << heard.argument << ")";
}

class Recorder {
public:
    int Resize(Boxs* given)
    {
        area = *given;
        heard.push_back({"Resize", given->width});
        return 1;
    }
    void Draw() { heard.push_back({"Draw"}); }
    int Click(int up_down)
    {
        heard.push_back({"Click", up_down});
        if (swallows_release)
            release_buttons();
        return result;
    }
    int Motion(int up_down)
    {
        heard.push_back({"Motion", up_down});
        return 0;
    }
    int Keyboard(int key)
    {
        recorded_key = YKey;
        heard.push_back({"Keyboard", key});
        return result;
    }
    int Scroll(int amount)
    {
        heard.push_back({"Scroll", amount});
        return result;
    }
    void Update(unsigned long long flags)
    {
        words.push_back(flags);
        heard.push_back({"Update"});
    }
    void Leave() { heard.push_back({"Leave"}); }

    std::vector<Heard> take() { return std::exchange(heard, {}); }

    static void release_buttons()
    {
        BYTE keys[256] = {};
        SetKeyboardState(keys);
    }

    Boxs area;
    std::vector<Heard> heard;
    std::vector<unsigned long long> words;
    int result = 1;
    bool swallows_release = false;
    int recorded_key = 0;
};

using Events = std::vector<Heard>;

class PanelWindow : public test::Panel_Host {
protected:
    PanelWindow()
    {
        MoveWindow(slot.window(), 10, 20, 200, 100, TRUE);
        ShowWindow(slot.window(), SW_SHOW);
        UpdateWindow(slot.window());
        panel.take();
        panel.words.clear();
    }

    HWND window() { return slot.window(); }

    static void lock_focus(bool locked) { hostkit::Variable<unsigned char>("$INTERFACE_LOCK_FOCUS") = locked; }

    std::vector<int> clicked;
    hostkit::Panel_Slot<Recorder> slot{
        main_window(), {.clicked = [this](int result) { clicked.push_back(result); }, .redraw_bits = 0x1000000}};
    Recorder& panel = slot.panel();
};

}

TEST_F(PanelWindow, ANewSizeLaysThePanelOutDrawsItAndRefreshesIt)
{
    MoveWindow(window(), 10, 20, 240, 120, FALSE);
    const Events heard = panel.take();
    ASSERT_GE(heard.size(), 3u);
    EXPECT_EQ(heard[0], (Heard{"Resize", 240}));
    EXPECT_EQ(heard[1], (Heard{"Draw"}));
    EXPECT_EQ(heard[2], (Heard{"Update"}));
    EXPECT_EQ(panel.words, (std::vector<unsigned long long>{0x1000F04000E00000ull}));
    EXPECT_EQ(panel.area.x, 0);
    EXPECT_EQ(panel.area.y, 0);
    EXPECT_EQ(panel.area.height, 120);
    EXPECT_EQ(panel.area.window, window());
    EXPECT_EQ(panel.area.border, hostkit::Variable<short>("$INTERFACE_BORDER_DIM"));
}

TEST_F(PanelWindow, AMovedWindowIsNotLaidOutAgain)
{
    MoveWindow(window(), 50, 60, 200, 100, FALSE);
    for (const Heard& heard : panel.take())
        EXPECT_NE(heard.what, "Resize");
}

TEST_F(PanelWindow, APressAndAReleaseAreClicksAndTheResultGoesToTheProgram)
{
    panel.result = 5;
    test::press(window(), {10, 10});
    EXPECT_EQ(panel.take(), (Events{{"Click", 18}}));
    EXPECT_EQ(clicked, (std::vector<int>{5}));
    test::release(window(), {10, 10});
    EXPECT_EQ(panel.take(), (Events{{"Click", 0}, {"Motion", 0}}));
    EXPECT_EQ(clicked.size(), 1u) << "a release chooses nothing";
}

TEST_F(PanelWindow, ThePointerIsRecordedBeforeTheEvent)
{
    test::press(window(), {30, 40});
    POINT pointer{YCursor_X, YCursor_Y};
    ScreenToClient(window(), &pointer);
    EXPECT_EQ(pointer.x, 30);
    EXPECT_EQ(pointer.y, 100 - 1 - 40);
    test::release(window(), {30, 40});
}

TEST_F(PanelWindow, TheUpperLeftPixelIsAPlaceLikeAnyOther)
{
    SetCursorPos(77, 88);
    test::press(window(), {0, 99});
    POINT pointer{YCursor_X, YCursor_Y};
    ScreenToClient(window(), &pointer);
    EXPECT_EQ(pointer.x, 0);
    EXPECT_EQ(pointer.y, 0);
    test::release(window(), {0, 99});
}

TEST_F(PanelWindow, WhileAButtonIsHeldMotionsOutsideReachThePanelAndLeaveWaits)
{
    test::press(window(), {10, 10});
    panel.take();
    test::move(window(), {-50, 10});
    SendMessageA(window(), WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(panel.take(), (Events{{"Motion", 17}}));
    test::release(window(), {-50, 10});
    EXPECT_EQ(panel.take(), (Events{{"Click", 0}, {"Motion", 0}, {"Leave"}}));
}

TEST_F(PanelWindow, WithoutAHeldButtonMotionsOutsideDoNotReachThePanel)
{
    test::move(window(), {-50, 10});
    EXPECT_EQ(panel.take(), Events{});
    test::move(window(), {5, 5});
    EXPECT_EQ(panel.take(), (Events{{"Motion", 0}}));
    SendMessageA(window(), WM_MOUSELEAVE, 0, 0);
    SendMessageA(window(), WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(panel.take(), (Events{{"Leave"}})) << "once";
}

TEST_F(PanelWindow, ReleasingOneOfTwoButtonsKeepsTheCapture)
{
    test::press(window(), {10, 10});
    panel.take();
    SendMessageA(window(), WM_RBUTTONUP, MK_LBUTTON, MAKELPARAM(10, 10));
    test::move(window(), {-9, 0});
    EXPECT_EQ(panel.take(), (Events{{"Click", 16}, {"Motion", 17}}));
    test::release(window(), {10, 10});
}

TEST_F(PanelWindow, AReleaseSwallowedInsideAClickEndsTheCapture)
{
    panel.swallows_release = true;
    test::press(window(), {10, 10});
    EXPECT_EQ(panel.take(), (Events{{"Click", 18}, {"Motion", 0}}));
    test::move(window(), {-50, 10});
    EXPECT_EQ(panel.take(), Events{}) << "no longer captured";
}

TEST_F(PanelWindow, TheWheelComesInNotchesAndKeepsItsRest)
{
    test::turn_wheel(window(), {10, 10}, 120);
    test::turn_wheel(window(), {10, 10}, -240);
    EXPECT_EQ(panel.take(), (Events{{"Scroll", 1}, {"Scroll", -2}}));
    test::turn_wheel(window(), {10, 10}, 50);
    test::turn_wheel(window(), {10, 10}, 50);
    EXPECT_EQ(panel.take(), Events{});
    test::turn_wheel(window(), {10, 10}, 50);
    EXPECT_EQ(panel.take(), (Events{{"Scroll", 1}}));
}

TEST_F(PanelWindow, WithAltTheWheelIsNotForwarded)
{
    BYTE keys[256] = {};
    keys[VK_MENU] = 0x80;
    SetKeyboardState(keys);
    test::turn_wheel(window(), {10, 10}, 120);
    keys[VK_MENU] = 0;
    SetKeyboardState(keys);
    EXPECT_EQ(panel.take(), Events{});
}

TEST_F(PanelWindow, KeysReachThePanel)
{
    test::type(window(), "a");
    test::key(window(), VK_DELETE);
    test::key(window(), VK_F1);
    EXPECT_EQ(panel.take(), (Events{{"Keyboard", 'a'}, {"Keyboard", 2094}}));
    EXPECT_TRUE(slot.host().Keyboard(27));
    panel.result = 0;
    EXPECT_FALSE(slot.host().Keyboard(27));
}

TEST_F(PanelWindow, AKeyIsRecordedForTheWidgetsWhileThePanelIsTold)
{
    test::key(window(), VK_END);
    EXPECT_EQ(panel.recorded_key, 2083);
    EXPECT_EQ(YKey, 0) << "a key that nobody used does not stay";
    slot.host().Keyboard('a');
    EXPECT_EQ(panel.recorded_key, 'a');
    EXPECT_EQ(YKey, 0);
}

TEST_F(PanelWindow, WhileTheFocusIsLockedNoEventReachesThePanel)
{
    test::move(window(), {10, 10});
    panel.take();
    lock_focus(true);
    test::move(window(), {20, 10});
    test::click(window(), {10, 10});
    test::turn_wheel(window(), {10, 10}, 120);
    test::type(window(), "a");
    test::key(window(), VK_END);
    SendMessageA(window(), WM_KILLFOCUS, 0, 0);
    SendMessageA(window(), WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(panel.take(), Events{});
    EXPECT_TRUE(clicked.empty());
    EXPECT_TRUE(slot.host().Keyboard('a')) << "no shortcut takes it either";
    EXPECT_EQ(panel.take(), Events{});
}

TEST_F(PanelWindow, ALockedPanelIsStillDrawnAndToldOfChanges)
{
    lock_focus(true);
    InvalidateRect(window(), nullptr, FALSE);
    UpdateWindow(window());
    Fct_Update(0x400000, nullptr, nullptr, nullptr);
    EXPECT_EQ(panel.take(), (Events{{"Draw"}, {"Update"}}));
}

TEST_F(PanelWindow, AfterTheLockEventsAreTheSameAgain)
{
    lock_focus(true);
    test::click(window(), {10, 10});
    lock_focus(false);
    test::click(window(), {10, 10});
    EXPECT_EQ(panel.take(), (Events{{"Click", 18}, {"Click", 0}, {"Motion", 0}}));
    test::turn_wheel(window(), {10, 10}, 120);
    EXPECT_EQ(panel.take(), (Events{{"Scroll", 1}}));
}

TEST_F(PanelWindow, ALeaveThatWasDueDuringTheLockComesWithTheNextChange)
{
    test::move(window(), {10, 10});
    lock_focus(true);
    SendMessageA(window(), WM_MOUSELEAVE, 0, 0);
    Fct_Update(0x400000, nullptr, nullptr, nullptr);
    EXPECT_EQ(panel.take(), (Events{{"Motion", 0}, {"Update"}})) << "still locked";
    lock_focus(false);
    Fct_Update(0x400000, nullptr, nullptr, nullptr);
    Fct_Update(0x400000, nullptr, nullptr, nullptr);
    EXPECT_EQ(panel.take(), (Events{{"Leave"}, {"Update"}, {"Update"}})) << "once";
}

TEST_F(PanelWindow, APointerThatHasComeBackAfterTheLockOwesNoLeave)
{
    test::move(window(), {10, 10});
    lock_focus(true);
    SendMessageA(window(), WM_MOUSELEAVE, 0, 0);
    lock_focus(false);
    test::move(window(), {20, 10});
    Fct_Update(0x400000, nullptr, nullptr, nullptr);
    EXPECT_EQ(panel.take(), (Events{{"Motion", 0}, {"Motion", 0}, {"Update"}}));
    SendMessageA(window(), WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(panel.take(), (Events{{"Leave"}}));
}

TEST_F(PanelWindow, AClickThatLocksTheFocusForAWhileEndsItsCapture)
{
    hostkit::Panel_Slot<Recorder> locking(main_window(), {.clicked = [this](int) {
        lock_focus(true);
        Recorder::release_buttons();
        SendMessageA(GetCapture(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5)); // while the work goes on
        lock_focus(false);
    }});
    MoveWindow(locking.window(), 0, 0, 20, 20, TRUE);
    locking.panel().take();
    test::press(locking.window(), {5, 5});
    EXPECT_EQ(locking.panel().take(), (Events{{"Click", 18}, {"Motion", 0}}));
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(PanelWindow, ChangesReachThePanelAndSomeRedrawIt)
{
    Fct_Update(0x400000, nullptr, nullptr, nullptr);
    EXPECT_EQ(panel.take(), (Events{{"Update"}}));
    Fct_Update(0x1000000, nullptr, nullptr, nullptr);
    EXPECT_EQ(panel.take(), (Events{{"Update"}, {"Draw"}}));
    EXPECT_EQ(panel.words, (std::vector<unsigned long long>{0x400000, 0x1000000}));
}

TEST_F(PanelWindow, WhatAClickSendsIsDeliveredAfterTheClick)
{
    bool inside = false;
    std::vector<bool> delivered_inside;
    const auto listening = hostkit::On_Update([&](unsigned long long) { delivered_inside.push_back(inside); });
    hostkit::Panel_Slot<Recorder> sender(main_window(), {.clicked = [&](int) {
        inside = true;
        Fct_Update(1, nullptr, nullptr, nullptr);
        inside = false;
    }});
    MoveWindow(sender.window(), 0, 0, 20, 20, TRUE);
    test::click(sender.window(), {5, 5});
    EXPECT_EQ(delivered_inside, (std::vector<bool>{false}));
}

TEST_F(PanelWindow, AnErrorInTheProgramsAnswerIsReportedAndEndsThere)
{
    hostkit::Panel_Slot<Recorder> failing(
        main_window(), {.clicked = [](int) { throw std::runtime_error("disk full"); }});
    MoveWindow(failing.window(), 0, 0, 20, 20, TRUE);
    test::press(failing.window(), {5, 5});
    ASSERT_EQ(reports.texts(2).size(), 1u);
    EXPECT_NE(reports.texts(2)[0].find("disk full"), std::string::npos);
    test::release(failing.window(), {5, 5});
}

TEST_F(PanelWindow, ASlotThatIsGoneHearsNothing)
{
    HWND gone;
    {
        hostkit::Panel_Slot<Recorder> brief(main_window(), {});
        gone = brief.window();
        EXPECT_TRUE(IsWindow(gone));
    }
    EXPECT_FALSE(IsWindow(gone));
    Fct_Update(1, nullptr, nullptr, nullptr);
}

TEST_F(PanelWindow, ASlotMayOutliveItsWindow)
{
    auto orphan = std::make_unique<hostkit::Panel_Slot<Recorder>>(main_window(), hostkit::Panel_Rules{});
    DestroyWindow(orphan->window());
    Fct_Update(1, nullptr, nullptr, nullptr);
    orphan.reset();
}
