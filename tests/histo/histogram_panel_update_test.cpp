#include "tests/histo/histogram_panel.h"

#include "hostkit/structures/series_pixels.h"
#include "hostkit/structures/tree.h"

// What the panel does when something has changed elsewhere, and what it tells the graph window.

using namespace test;
using hostkit::Variable;

namespace {

using Lines = std::vector<std::string>;

constexpr UINT changed = 0x400;
constexpr UINT moved = 0x401;

class HistogramUpdate : public Histogram_Panel {
protected:
    void press_blow(Tool_Histo& pressed)
    {
        point(main_window(), middle(pressed.blow));
        EXPECT_EQ(pressed.Click(left_press), 1);
        point(main_window(), {700, 700});
    }

    /// What waits for the graph window.
    static std::vector<MSG> posted()
    {
        std::vector<MSG> messages;
        MSG message;
        while (PeekMessageA(&message, nullptr, changed, moved, PM_REMOVE))
            messages.push_back(message);
        return messages;
    }

    static std::vector<UINT> posted_kinds()
    {
        std::vector<UINT> kinds;
        for (const MSG& message : posted()) {
            kinds.push_back(message.message);
            EXPECT_EQ(message.wParam, 0u);
            EXPECT_EQ(message.lParam, 0);
        }
        return kinds;
    }

    /// The graph window; null when there is none.
    HWND graph()
    {
        posted();
        panel.Update(repaint);
        const auto messages = posted();
        reports.clear();
        return messages.empty() ? nullptr : messages[0].hwnd;
    }

    /// The internal work of an update: "Compute", "Cursor", "Paint".
    Lines work_of(unsigned long long flags)
    {
        posted();
        reports.clear();
        panel.Update(flags);
        Lines work;
        for (const std::string& trace : reports.texts(17))
            work.push_back(trace.substr(9, trace.size() - 11));
        EXPECT_EQ(reports.texts(16), Lines{"in Tool_Histo::Update()"});
        return work;
    }

    void expect_reaction(unsigned long long flags, const Lines& work, const std::vector<UINT>& messages)
    {
        EXPECT_EQ(work_of(flags), work) << std::hex << flags;
        EXPECT_EQ(posted_kinds(), messages) << std::hex << flags;
    }
};

}

TEST_F(HistogramUpdate, EachChangeHasItsReaction)
{
    give({5, 5});
    lay_out();
    press_blow(panel);
    ASSERT_NE(graph(), nullptr);
    expect_reaction(frames_selected, {"Compute"}, {changed});
    expect_reaction(bit(24), {"Compute", "Cursor"}, {changed});
    expect_reaction(bit(31), {"Paint"}, {changed});
    expect_reaction(bit(38), {"Paint"}, {changed});
    expect_reaction(bit(22), {"Paint"}, {changed});
    expect_reaction(bit(18), {"Cursor"}, {moved});
    expect_reaction(bit(39), {"Cursor", "Paint"}, {changed});
    expect_reaction(bit(60), {}, {});
}

TEST_F(HistogramUpdate, AllChangesAreDealtWithInOrder)
{
    lay_out();
    press_blow(panel);
    ASSERT_NE(graph(), nullptr);
    expect_reaction(~0ull, {"Compute", "Compute", "Cursor", "Paint", "Paint", "Paint", "Cursor", "Cursor", "Paint"},
        {changed, changed, changed, changed, changed, moved, changed});
}

TEST_F(HistogramUpdate, OtherChangesAreNoneOfItsBusiness)
{
    lay_out();
    press_blow(panel);
    ASSERT_NE(graph(), nullptr);
    const auto its_own = bit(18) | bit(22) | bit(24) | bit(31) | bit(38) | bit(39) | bit(60);
    for (int i = 0; i < 64; ++i) {
        if (!(bit(i) & its_own))
            expect_reaction(bit(i), {}, {});
    }
    for (const unsigned long long pair : {0x101ull, 0x104ull, 0x402ull, 0x404ull, 0x200ull})
        expect_reaction(pair, {}, {});
    expect_reaction(~(its_own | 0x2ull), {}, {});
    expect_reaction(~(its_own | 0x100ull), {}, {});
    expect_reaction(0x103, {"Compute"}, {changed});
}

TEST_F(HistogramUpdate, WithoutAGraphWindowNothingIsPosted)
{
    lay_out();
    panel.Update(~0ull);
    EXPECT_TRUE(posted().empty());
    EXPECT_EQ(graph(), nullptr);
}

TEST_F(HistogramUpdate, SendsNothing)
{
    lay_out();
    panel.Update(~0ull);
    press_blow(panel);
    panel.Scroll(1);
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(HistogramUpdate, ASelectionIsComputedFromTheHostsFrames)
{
    Strato_2D* const series = hostkit::Object_2D_Add(hostkit::Root_2D(), {.name = "series"});
    auto* const words = reinterpret_cast<void*>(std::uintptr_t{4});
    for (const char* name : {"1", "2", "3"})
        hostkit::Frame_Add(series, {.name = name, .class_a = hostkit::frame_class});
    const unsigned char pixels[3][4] = {{1, 1, 2, 5}, {1, 2, 2, 2}, {9, 9, 9, 9}};
    hostkit::Series_Pixels_Set(
        series, {.type = hostkit::Pixel_Type::u8, .data = pixels, .width = 2, .height = 2, .frames = 3, .unit = "HU"});
    hostkit::Window_Add("window");
    lay_out();
    panel.Update(frames_selected);
    EXPECT_FALSE(panel.Ready()) << "no frame is selected";
    series->Child_Get_Pt(0)->Flag_Set_On(16, words, 512);
    series->Child_Get_Pt(1)->Flag_Set_On(16, words, 512);
    panel.Update(frames_selected);
    ASSERT_TRUE(panel.Ready());
    EXPECT_EQ(panel.histo->min, 1.0f);
    EXPECT_EQ(panel.histo->width, 1.0f);
    EXPECT_EQ(counts_of(*panel.histo), (Counts{3, 4, 0, 0, 1, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Variable<unsigned short>("$GLI_HISTO_BINS_NB"), 10);
    EXPECT_STREQ(panel.x_unit, "HU");
    EXPECT_EQ(at(left + 15, bottom + 120), back) << "nothing is painted";
    panel.Draw();
    EXPECT_EQ(at(left + 15, bottom + 144), yellow);
}

// ------------------------------------------------------------------------------------------------ graph window

TEST_F(HistogramUpdate, BlowOpensTheGraphWindow)
{
    lay_out();
    EXPECT_EQ(panel.blow.pressed, 0);
    press_blow(panel);
    const HWND window = graph();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(panel.blow.pressed, 1);
    char title[100] = {};
    GetWindowTextA(window, title, sizeof title);
    EXPECT_STREQ(title, "Histogram Graph");
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_TRUE(IsWindowEnabled(window));
    EXPECT_EQ(GetParent(window), nullptr);
    RECT client{};
    GetClientRect(window, &client);
    EXPECT_GT(client.right, 700);
    EXPECT_LE(client.right, 800);
    EXPECT_GT(client.bottom, 300);
    EXPECT_LE(client.bottom, 400);
}

TEST_F(HistogramUpdate, BlowAgainRaisesTheSameWindow)
{
    lay_out();
    press_blow(panel);
    const HWND window = graph();
    MoveWindow(window, 30, 40, 500, 300, TRUE);
    RECT before{}, after{};
    GetClientRect(window, &before);
    EnableWindow(window, FALSE);
    ShowWindow(window, SW_HIDE);
    press_blow(panel);
    EXPECT_EQ(graph(), window);
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_TRUE(IsWindowEnabled(window));
    GetClientRect(window, &after);
    EXPECT_EQ(after.right, before.right) << "as large as it was";
    EXPECT_EQ(after.bottom, before.bottom);
}

TEST_F(HistogramUpdate, ClosingTheGraphWindowReleasesItsPanelsButton)
{
    lay_out();
    press_blow(panel);
    const HWND window = graph();
    SendMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(traces(), (Lines{"16 in Tool_Histo::Draw()", "17 in Histo_Paint()"}));
    EXPECT_EQ(panel.blow.pressed, 0);
    EXPECT_EQ(graph(), nullptr);
    press_blow(panel);
    EXPECT_NE(graph(), nullptr);
    EXPECT_EQ(panel.blow.pressed, 1);
}

TEST_F(HistogramUpdate, WhatWasPostedToAClosedWindowDoesNothing)
{
    lay_out();
    press_blow(panel);
    const HWND window = graph();
    panel.Update(repaint);
    DestroyWindow(window);
    reports.clear();
    for (const MSG& message : posted())
        DispatchMessageA(&message);
    EXPECT_TRUE(reports.all().empty());
    EXPECT_EQ(graph(), nullptr);
}

TEST_F(HistogramUpdate, OtherPanelsMirrorTheWindowWhenTheyLook)
{
    lay_out();
    Tool_Histo other;
    EXPECT_EQ(other.Resize(&area), 1);
    EXPECT_EQ(other.blow.pressed, 0);
    press_blow(panel);
    EXPECT_EQ(other.blow.pressed, 0);
    other.Update(bit(60));
    EXPECT_EQ(other.blow.pressed, 1);
    other.blow.pressed = 0;
    other.Draw();
    EXPECT_EQ(other.blow.pressed, 1);
    other.blow.pressed = 0;
    other.Resize(&area);
    EXPECT_EQ(other.blow.pressed, 1);
    DestroyWindow(graph());
    EXPECT_EQ(other.blow.pressed, 1) << "it has not looked yet";
    other.Update(bit(60));
    EXPECT_EQ(other.blow.pressed, 0);
}

TEST_F(HistogramUpdate, EveryPanelPostsToTheOneWindow)
{
    lay_out();
    press_blow(panel);
    const HWND window = graph();
    Tool_Histo other;
    other.Update(bit(18));
    const auto messages = posted();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].hwnd, window);
    EXPECT_EQ(messages[0].message, moved);
}

TEST_F(HistogramUpdate, TheWindowStaysThatOfThePanelWhichOpenedIt)
{
    lay_out();
    press_blow(panel);
    const HWND window = graph();
    Tool_Histo other;
    other.Resize(&area);
    press_blow(other);
    EXPECT_EQ(other.blow.pressed, 1);
    EXPECT_EQ(graph(), window);
    SendMessageA(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(panel.blow.pressed, 0);
    EXPECT_EQ(other.blow.pressed, 1) << "it is not drawn";
}

TEST_F(HistogramUpdate, AnyPanelThatGoesTakesTheWindowAlong)
{
    lay_out();
    std::optional<Tool_Histo> other(std::in_place);
    press_blow(panel);
    const HWND window = graph();
    other.reset();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(traces(), (Lines{"16 in Tool_Histo::Draw()", "17 in Histo_Paint()"})) << "the owner's button is released";
    EXPECT_EQ(panel.blow.pressed, 0);
    EXPECT_EQ(graph(), nullptr);
}

TEST_F(HistogramUpdate, APanelThatGoesDoesNotDrawItself)
{
    lay_out();
    std::optional<Tool_Histo> other(std::in_place);
    other->Resize(&area);
    press_blow(*other);
    const HWND window = graph();
    ASSERT_NE(window, nullptr);
    other.reset();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_TRUE(reports.all().empty());
}
