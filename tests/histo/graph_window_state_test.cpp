#include "tests/histo/graph_window.h"

#include "histo/tool_histo_blow.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <utility>

// The graph window when something is missing or goes; its messages and traces.

using namespace test;

namespace {

class GraphState : public Graph_Window {
protected:
    /// What the window does at a message, at a trace level: "LEVEL text".
    template <class Work>
    std::vector<std::string> traces_of(signed char level, const Work& work)
    {
        Flag_Trace = level;
        reports.clear();
        work();
        Flag_Trace = 0;
        std::vector<std::string> found;
        for (const std::string& line : reports.lines()) {
            if (line.find("Mode Histo") != std::string::npos)
                found.push_back(line);
        }
        return found;
    }

    bool plot_is_empty() const
    {
        const Boxs& box = graph().plot;
        return count_of(box.back) == box.width * box.height;
    }
};

using Lines = std::vector<std::string>;

}

TEST_F(GraphState, WithoutAHistogramThePlotIsEmpty)
{
    open();
    EXPECT_TRUE(plot_is_empty());
    turn({400, 250}, -120);
    drag({200, 200}, {300, 300});
    changed();
    SendMessageA(window(), WM_USER + 1, 0, 0);
    EXPECT_FALSE(graph().zoomed);
    EXPECT_TRUE(plot_is_empty());
}

TEST_F(GraphState, AWindowThatCannotBeOpenedLeavesTheButtonUp)
{
    lay_out();
    ASSERT_TRUE(UnregisterClassA("Histogram", graph().instance));
    point(main_window(), middle(panel.blow));
    EXPECT_EQ(panel.Click(left_press), 1);
    EXPECT_EQ(panel.blow.pressed, 0);
    EXPECT_EQ(window(), nullptr);
    panel.Update(~0ull);
    panel.Draw();
    EXPECT_EQ(panel.blow.pressed, 0);
    graph().registered = false; // as after a registration that failed: the next press tries again
    EXPECT_EQ(panel.Click(left_press), 1);
    EXPECT_NE(window(), nullptr);
    EXPECT_EQ(panel.blow.pressed, 1);
}

TEST_F(GraphState, AHistogramThatComesIsShown)
{
    open();
    give(Counts(101, 10u));
    panel.Update(test::repaint);
    EXPECT_TRUE(plot_is_empty()) << "once the message comes";
    deliver();
    EXPECT_GT(count_of(yellow), 500);
}

TEST_F(GraphState, AHistogramThatVanishesLeavesAnEmptyPlot)
{
    give_peaks();
    open();
    Histo_Graph_Display(2, 1, 1);
    changed();
    Histo_Record* const record = std::exchange(panel.histo, nullptr);
    changed();
    EXPECT_TRUE(plot_is_empty());
    SendMessageA(window(), WM_USER + 1, 0, 0);
    repaint();
    EXPECT_TRUE(plot_is_empty());
    panel.histo = record;
    changed();
    EXPECT_FALSE(plot_is_empty());
}

TEST_F(GraphState, OneBinIsInTheMiddleOfItsWidth)
{
    give(Histogram(70, 4, {12}));
    open();
    EXPECT_FLOAT_EQ(graph().x.full_min, 68 - 0.2f);
    EXPECT_FLOAT_EQ(graph().x.full_max, 72 + 0.2f);
    EXPECT_FLOAT_EQ(graph().y.full_max, 13.2f);
    turn({400, 250}, -120);
    turn({400, 250}, 240);
    drag({200, 200}, {300, 300});
    EXPECT_TRUE(graph().x.is_usable());
}

TEST_F(GraphState, OneBinWithoutAWidthIsOneGreyValueWide)
{
    give(Histogram(70, 0, {12}));
    open();
    EXPECT_FLOAT_EQ(graph().x.full_min, 69.5f - 0.05f);
    EXPECT_FLOAT_EQ(graph().x.full_max, 70.5f + 0.05f);
}

TEST_F(GraphState, NothingCountedIsALineAtZero)
{
    give(Counts(101, 0u));
    open();
    EXPECT_FLOAT_EQ(graph().y.full_max, 1.1f);
    EXPECT_TRUE(is_near(x_of(50), y_of(0), yellow));
}

TEST_F(GraphState, ColoursMayReplaceGreyAndTheOtherWayRound)
{
    give(Counts(101, 10u));
    open();
    const auto flat = [](unsigned count) { return Counts(256, count); };
    give(Histogram(0, 1, flat(10), {flat(20), flat(30), flat(40), flat(50)}));
    panel.color_component = 1;
    changed();
    EXPECT_GT(count_of(red), 500);
    give(Counts(101, 10u));
    changed();
    EXPECT_EQ(count_of(red), 0);
    EXPECT_GT(count_of(yellow), 500);
}

TEST_F(GraphState, NumbersBeyondAllMeasureAreHarmless)
{
    for (const auto& [min, width] : {std::pair{-3e38f, 3e38f}, {3e38f, 1e30f}, {0.0f, 1e-38f}, {1e9f, 1e-3f},
             {std::nanf(""), 1.0f}, {0.0f, std::nanf("")}, {0.0f, -1.0f}}) {
        give(Histogram(min, width, Counts(101, 4000000000u)));
        panel.Set(1, 2, -1e30, 1e30);
        if (!window())
            open();
        Histo_Graph_Display(2, 1, 1);
        changed();
        turn({400, 250}, -120);
        drag({200, 200}, {300, 300});
        SendMessageA(window(), WM_USER + 1, 0, 0);
        test::click(window(), middle(graph().reset));
    }
    give(Counts(101, 10u));
    changed();
    EXPECT_GT(count_of(yellow), 500);
}

TEST_F(GraphState, KeysAreTracedAndDoNothing)
{
    give(Counts(101, 10u));
    open();
    const auto before = picture();
    EXPECT_EQ(traces_of(4, [&] { SendMessageA(window(), WM_CHAR, 'x', 0); }), Lines{"14 Mode Histo: Histo_Blow_Key()"});
    EXPECT_EQ(traces_of(4, [&] { SendMessageA(window(), WM_KEYDOWN, VK_PRIOR, 0); }),
        Lines{"14 Mode Histo: Histo_Blow_Key()"});
    EXPECT_EQ(traces_of(4, [&] { SendMessageA(window(), WM_KEYUP, VK_PRIOR, 0); }), Lines{});
    EXPECT_EQ(traces_of(4, [&] { SendMessageA(window(), WM_KEYDOWN, 'X', 0); }), Lines{}) << "it comes as a character";
    EXPECT_EQ(picture(), before);
}

TEST_F(GraphState, EveryMotionIsReportedWhateverTheTraceLevel)
{
    give(Counts(101, 10u));
    open();
    EXPECT_EQ(traces_of(0, [&] { drag_to({10, 10}); }), Lines{"10 Mode Histo: Histo_Blow_Motion()"});
    EXPECT_EQ(traces_of(4,
                  [&] {
                      drag_to({20, 10});
                  }),
        (Lines{"14 Mode Histo: Histo_Blow_Motion()", "10 Mode Histo: Histo_Blow_Motion()"}));
}

TEST_F(GraphState, EventsAreTracedFromLevelFourOn)
{
    give(Counts(101, 10u));
    open();
    for (const signed char level : std::initializer_list<signed char>{3, 4}) {
        const bool traced = level >= 4;
        const auto expected = [&](const char* line) { return traced ? Lines{line} : Lines{}; };
        EXPECT_EQ(traces_of(level,
                      [&] {
                          press({2, 2});
                      }),
            expected("14 Mode Histo: Histo_Blow_Click(up_down=00000012)"));
        EXPECT_EQ(traces_of(level,
                      [&] {
                          release({2, 2});
                      }),
            expected("14 Mode Histo: Histo_Blow_Click(up_down=00000000)"));
        EXPECT_EQ(traces_of(level, [&] { turn({2, 2}, 120); }), expected("14 Mode Histo: Histo_Blow_Scroll()"));
        EXPECT_EQ(traces_of(level, [&] { turn({2, 2}, 60); }), Lines{});
        EXPECT_EQ(traces_of(level, [&] { turn({2, 2}, -60); }), Lines{});
        EXPECT_EQ(traces_of(level, [&] { repaint(); }), expected("14 Mode Histo: Histo_Blow_Draw()"));
        char line[200];
        std::snprintf(line, sizeof line, "14 Mode Histo: Histo_Blow_Resize(wind=%08x,dim=800x400)",
            static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(window())));
        EXPECT_EQ(traces_of(level, [&] { SendMessageA(window(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(800, 400)); }),
            expected(line));
    }
}

TEST_F(GraphState, MessagesAreNamedFromLevelEightOn)
{
    open();
    Flag_Trace = 7;
    reports.clear();
    SendMessageA(window(), WM_KILLFOCUS, 0, 0);
    EXPECT_TRUE(reports.texts(18).empty());
    Flag_Trace = 8;
    SendMessageA(window(), WM_KILLFOCUS, 0, 0);
    ASSERT_EQ(reports.texts(18).size(), 1u);
    EXPECT_NE(reports.texts(18)[0].find("WndProc_Histo_Blow"), std::string::npos);
}

TEST_F(GraphState, MessagesAfterClosingAreNoMatter)
{
    give_peaks();
    open();
    const HWND closed = window();
    panel.Update(test::repaint);
    panel.Update(pointer_moved);
    PostMessageA(closed, WM_MOUSEMOVE, 0, MAKELPARAM(20, 20));
    close();
    deliver();
    for (const UINT message :
        {UINT(WM_USER), UINT(WM_USER + 1), UINT(WM_MOUSEMOVE), UINT(WM_LBUTTONDOWN), UINT(WM_CLOSE)})
        SendMessageA(closed, message, 0, MAKELPARAM(20, 20));
    panel.Update(test::repaint);
    Histo_Graph_Display(1, 1, 1);
    EXPECT_EQ(window(), nullptr);
    EXPECT_EQ(Histo_Graph_Window(), nullptr);
}

TEST_F(GraphState, PointersThatAreNoneGoToTheDefaultProcedure)
{
    give(Counts(101, 10u));
    open();
    const auto before = picture();
    for (const UINT message : {WM_POINTERDOWN, WM_POINTERUPDATE, WM_POINTERUP, WM_TOUCH})
        SendMessageA(window(), message, 0, 0);
    EXPECT_EQ(picture(), before);
    EXPECT_FALSE(graph().dragging);
    EXPECT_FALSE(graph().zoomed);
}

TEST_F(GraphState, WithoutAnOwnerTheControlsAreDrawn)
{
    give(Counts(101, 10u));
    open();
    graph().owner = nullptr;
    repaint();
    EXPECT_TRUE(plot_is_empty());
    for (const Tools* widget : std::initializer_list<const Tools*>{&graph().reset, &graph().save, &graph().tag_select})
        test::click(window(), middle(*widget));
    drag({200, 200}, {300, 300});
    resize(500, 300);
    SendMessageA(window(), WM_USER + 1, 0, 0);
    EXPECT_TRUE(plot_is_empty());
    close();
}
