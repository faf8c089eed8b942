#include "tests/platform/test_dialog.h"
#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <algorithm>

using test::run_dialog;
using test::Test_Window;

// Dialogs from a template.

namespace {

class Template_Dialog : public ::testing::Test {
protected:
    Template_Dialog() { test::pump(); }

    /// Posts messages to a dialog, and ends it when they have arrived. @return which it was told, of those from first
    /// to last
    std::vector<test::Message> Told(
        const std::vector<test::Message>& posted, UINT first, UINT last, LRESULT wanted_keys = 0)
    {
        std::vector<test::Message> told;
        run_dialog(owner.handle(), [&](HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) -> INT_PTR {
            if (message >= first && message <= last)
                told.push_back({message, wparam, lparam});
            if (message == WM_GETDLGCODE)
                SetWindowLongPtrA(dialog, DWLP_MSGRESULT, wanted_keys);
            if (message == WM_USER) {
                for (const test::Message& one : posted)
                    PostMessageA(dialog, one.message, one.wparam, one.lparam);
                PostMessageA(dialog, WM_USER + 1, 0, 0);
            }
            if (message == WM_USER + 1)
                EndDialog(dialog, 1);
            return message == WM_GETDLGCODE;
        });
        return told;
    }

    Test_Window owner{nullptr, 300, 200};
};

}

TEST_F(Template_Dialog, RunsUntilItIsEndedWithAResult)
{
    HWND seen = nullptr;
    const INT_PTR result = run_dialog(owner.handle(), [&](HWND dialog, UINT message, WPARAM, LPARAM) {
        if (message == WM_USER) {
            seen = dialog;
            EXPECT_TRUE(IsWindowVisible(dialog));
            EXPECT_TRUE(EndDialog(dialog, 7));
            EXPECT_TRUE(IsWindow(dialog)) << "until its procedure has returned";
            EXPECT_FALSE(IsWindowVisible(dialog));
        }
        return message == WM_USER;
    });
    EXPECT_EQ(result, 7);
    EXPECT_NE(seen, nullptr);
    EXPECT_FALSE(IsWindow(seen));
}

TEST_F(Template_Dialog, IsToldOfItsStartFirstAndWithTheParameter)
{
    std::vector<test::Message> told;
    run_dialog(
        owner.handle(),
        [&](HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) -> INT_PTR {
            told.push_back({message, wparam, lparam});
            if (message == WM_INITDIALOG) {
                EXPECT_FALSE(IsWindowVisible(dialog));
            }
            if (message == WM_USER)
                EndDialog(dialog, 1);
            return message == WM_INITDIALOG;
        },
        1234);
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.front().message, UINT{WM_INITDIALOG});
    EXPECT_EQ(told.front().lparam, 1234);
    EXPECT_TRUE(std::any_of(told.begin(), told.end(), [](auto& one) { return one.message == WM_DESTROY; }));
}

TEST_F(Template_Dialog, ThatEndsAtItsStartIsNeverShown)
{
    bool painted = false;
    const INT_PTR result = run_dialog(owner.handle(), [&](HWND dialog, UINT message, WPARAM, LPARAM) {
        painted = painted || message == WM_PAINT;
        return message == WM_INITDIALOG && EndDialog(dialog, 3);
    });
    EXPECT_EQ(result, 3);
    EXPECT_FALSE(painted);
}

TEST_F(Template_Dialog, HasTheSizeAndTheCaptionOfItsTemplate)
{
    RECT client{};
    char caption[50] = "";
    run_dialog(owner.handle(), [&](HWND dialog, UINT message, WPARAM, LPARAM) {
        if (message != WM_INITDIALOG)
            return FALSE;
        GetClientRect(dialog, &client);
        GetWindowTextA(dialog, caption, sizeof caption);
        return EndDialog(dialog, 0);
    });
    const auto units = static_cast<unsigned>(GetDialogBaseUnits());
    EXPECT_EQ(client.right, 240 * LOWORD(units) / 4);
    EXPECT_EQ(client.bottom, 75 * HIWORD(units) / 8);
    EXPECT_STREQ(caption, "Rename");
}

TEST_F(Template_Dialog, DisablesItsOwnerMeanwhile)
{
    bool at_start = true, later = true, at_end = false;
    run_dialog(owner.handle(), [&](HWND dialog, UINT message, WPARAM, LPARAM) {
        if (message == WM_INITDIALOG)
            at_start = IsWindowEnabled(owner.handle()) != 0;
        if (message != WM_USER)
            return FALSE;
        later = IsWindowEnabled(owner.handle()) != 0;
        EndDialog(dialog, 1);
        at_end = IsWindowEnabled(owner.handle()) != 0;
        return TRUE;
    });
    EXPECT_FALSE(at_start);
    EXPECT_FALSE(later);
    EXPECT_TRUE(at_end);
    EXPECT_TRUE(IsWindowEnabled(owner.handle()));
}

TEST_F(Template_Dialog, AnOwnerThatWasDisabledStaysSo)
{
    EnableWindow(owner.handle(), FALSE);
    run_dialog(owner.handle(),
        [](HWND dialog, UINT message, WPARAM, LPARAM) { return message == WM_USER && EndDialog(dialog, 1); });
    EXPECT_FALSE(IsWindowEnabled(owner.handle()));
}

TEST_F(Template_Dialog, NeedsNoOwner)
{
    EXPECT_EQ(run_dialog(nullptr,
                  [](HWND dialog, UINT message, WPARAM, LPARAM) { return message == WM_USER && EndDialog(dialog, 5); }),
        5);
}

TEST_F(Template_Dialog, EnterAndEscapeComeAsCommands)
{
    const auto told = Told({{WM_KEYDOWN, VK_RETURN, 1}, {WM_KEYDOWN, VK_ESCAPE, 1}}, WM_KEYDOWN, WM_COMMAND);
    std::vector<WPARAM> commands;
    for (const test::Message& one : told) {
        if (one.message == WM_COMMAND)
            commands.push_back(one.wparam);
        EXPECT_NE(one.message, UINT{WM_KEYDOWN});
    }
    EXPECT_EQ(commands, (std::vector<WPARAM>{IDOK, IDCANCEL}));
}

TEST_F(Template_Dialog, OtherKeysComeAsTheyAre)
{
    const auto told = Told({{WM_KEYDOWN, VK_HOME, 1}, {WM_KEYDOWN, VK_DELETE, 1}}, WM_KEYDOWN, WM_KEYDOWN);
    ASSERT_EQ(told.size(), 2u);
    EXPECT_EQ(told[0].wparam, WPARAM{VK_HOME});
    EXPECT_EQ(told[1].wparam, WPARAM{VK_DELETE});
}

TEST_F(Template_Dialog, TabAndArrowsComeWhenTheyAreAskedFor)
{
    const std::vector<test::Message> keys{{WM_KEYDOWN, VK_LEFT, 1}, {WM_KEYDOWN, VK_DOWN, 1}, {WM_KEYDOWN, VK_TAB, 1}};
    EXPECT_EQ(Told(keys, WM_KEYDOWN, WM_KEYDOWN).size(), 0u);
    EXPECT_EQ(Told(keys, WM_KEYDOWN, WM_KEYDOWN, DLGC_WANTARROWS).size(), 2u);
    EXPECT_EQ(Told(keys, WM_KEYDOWN, WM_KEYDOWN, DLGC_WANTTAB).size(), 1u);
    EXPECT_EQ(Told(keys, WM_KEYDOWN, WM_KEYDOWN, DLGC_WANTALLKEYS).size(), 3u);
}

TEST_F(Template_Dialog, ClosingThatIsNotDealtWithIsCancelling)
{
    std::vector<WPARAM> commands;
    const INT_PTR result = run_dialog(owner.handle(), [&](HWND dialog, UINT message, WPARAM wparam, LPARAM) -> INT_PTR {
        if (message == WM_USER)
            PostMessageA(dialog, WM_CLOSE, 0, 0);
        if (message != WM_COMMAND)
            return FALSE;
        commands.push_back(wparam);
        return EndDialog(dialog, 9);
    });
    EXPECT_EQ(result, 9);
    EXPECT_EQ(commands, (std::vector<WPARAM>{IDCANCEL}));
}

TEST_F(Template_Dialog, AnswersWhatItsProcedureLeaves)
{
    LRESULT answer = 0, none = 5;
    run_dialog(owner.handle(), [&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_USER + 5)
            SetWindowLongPtrA(dialog, DWLP_MSGRESULT, 42);
        if (message != WM_USER)
            return message == WM_USER + 5 || message == WM_USER + 6;
        answer = SendMessageA(dialog, WM_USER + 5, 0, 0);
        none = SendMessageA(dialog, WM_USER + 6, 0, 0);
        return EndDialog(dialog, 1);
    });
    EXPECT_EQ(answer, 42);
    EXPECT_EQ(none, 0);
}

TEST_F(Template_Dialog, AnotherOneRunsWithinIt)
{
    INT_PTR inner = 0;
    const INT_PTR outer = run_dialog(owner.handle(), [&](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message != WM_USER)
            return FALSE;
        inner = run_dialog(dialog, [&](HWND within, UINT told, WPARAM, LPARAM) -> INT_PTR {
            if (told != WM_USER)
                return FALSE;
            EXPECT_FALSE(IsWindowEnabled(dialog));
            return EndDialog(within, 2);
        });
        EXPECT_TRUE(IsWindowEnabled(dialog));
        return EndDialog(dialog, 3);
    });
    EXPECT_EQ(inner, 2);
    EXPECT_EQ(outer, 3);
}

TEST_F(Template_Dialog, TheEndOfTheProgramEndsItAndIsNotLost)
{
    int left_after = 0;
    run_dialog(owner.handle(), [&](HWND, UINT message, WPARAM, LPARAM) {
        if (message == WM_USER)
            PostQuitMessage(6);
        left_after += message == WM_DESTROY;
        return message == WM_USER;
    });
    EXPECT_EQ(left_after, 1);
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    EXPECT_EQ(message.wParam, 6u);
}

TEST_F(Template_Dialog, OtherWindowsCannotBeEnded)
{
    EXPECT_FALSE(EndDialog(owner.handle(), 1));
    EXPECT_FALSE(EndDialog(nullptr, 1));
}

TEST_F(Template_Dialog, WhatIsPostedToOthersArrivesMeanwhile)
{
    int arrived = 0;
    owner.handler = [&](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        arrived += message == WM_USER + 3;
        return {};
    };
    PostMessageA(owner.handle(), WM_USER + 3, 0, 0);
    run_dialog(owner.handle(), [&](HWND dialog, UINT message, WPARAM, LPARAM) {
        if (message == WM_USER)
            PostMessageA(dialog, WM_USER + 4, 0, 0);
        return message == WM_USER + 4 && EndDialog(dialog, 1);
    });
    EXPECT_EQ(arrived, 1);
}
