#include "tests/tools/marker_panel_fixture.h"

using namespace test;
using hostkit::Array_Variable;
using hostkit::Variable;

namespace {

constexpr auto current_marker = bit(22);
constexpr auto colours = bit(38);
constexpr auto locks = bit(44);
constexpr auto enables = bit(45);
constexpr auto selections = bit(46);
constexpr auto labels = bit(47);

}

TEST_F(MarkerPanel, UpdateTracesEveryCallOnceAndSendsNothing)
{
    Tool_Marker panel;
    panel.Update(0);
    lay_out(panel);
    panel.Update(~0ull);
    EXPECT_EQ(reports.all(), (std::vector<Report>{{15, "in Tool_Marker::Update()"}}));
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(MarkerPanel, OtherBitsSelectionsAndLocksChangeNothing)
{
    Tool_Marker panel;
    lay_out(panel, open, marked_area);
    set_current(3);
    enabled(2) = 0;
    set_label(5, "x");
    color(6) = 0x010203;
    cover(main_window());
    panel.Update(selections | locks);
    panel.Update(~(current_marker | colours | enables | labels));
    EXPECT_TRUE(covered(main_window(), open));
    EXPECT_EQ(panel.Read(), 0);
}

TEST_F(MarkerPanel, TheCurrentMarkerMovesItsMarkAndNothingElseIsDrawn)
{
    Tool_Marker panel;
    lay_out(panel);
    set_current(5);
    cover(main_window());
    panel.Update(current_marker);
    EXPECT_EQ(panel.Read(), 5);
    for (int marker = 0; marker < 16; ++marker)
        EXPECT_EQ(covered(main_window(), grid.button(marker)), marker != 0 && marker != 5) << "marker " << marker;
    EXPECT_TRUE(shows(0, usual(0)));
    EXPECT_TRUE(shows(5, current(5)));
    cover(main_window());
    panel.Update(current_marker);
    EXPECT_TRUE(covered(main_window(), open)) << "nothing changed";
}

TEST_F(MarkerPanel, ChangedNamesAreShown)
{
    set_label(4, "Old");
    Tool_Marker panel;
    lay_out(panel);
    set_label(4, nullptr);
    set_label(5, "Apex");
    panel.Update(labels);
    EXPECT_TRUE(shows(4, {"4", usual(4).color}));
    EXPECT_TRUE(shows(5, {"Apex", usual(5).color}));
    set_label(5, "Apex"); // another address
    cover(main_window());
    panel.Update(labels);
    EXPECT_TRUE(covered(main_window(), open));
}

TEST_F(MarkerPanel, ChangedEnableStatesAreShownAsMarks)
{
    set_current(1);
    Tool_Marker panel;
    lay_out(panel, open, marked_area);
    enabled(2) = 0;
    panel.Update(enables);
    EXPECT_TRUE(shows(2, usual(2)));
    EXPECT_TRUE(shows(3, pressed(3)));
    EXPECT_EQ(click_on(panel, 2), 2) << "never greyed";
    leave(panel);
    enabled(2) = 0x40;
    panel.Update(enables);
    EXPECT_TRUE(shows(2, pressed(2))) << "any non-zero byte";
    cover(main_window());
    panel.Update(enables);
    EXPECT_TRUE(covered(main_window(), open)) << "nothing changed";
}

TEST_F(MarkerPanel, ChangedColoursAreShownMarkerZerosToo)
{
    set_current(1);
    Tool_Marker panel;
    lay_out(panel);
    color(5) = 0x563412;
    color(0) = 0x00ff00;
    panel.Update(colours);
    EXPECT_TRUE(shows(5, {"5", {0x12, 0x34, 0x56}}));
    EXPECT_TRUE(shows(0, {"0", {0, 0xff, 0}}));
    color(5) = 0x7f563412; // the highest byte is no colour
    cover(main_window());
    panel.Update(colours);
    EXPECT_TRUE(covered(main_window(), open));
}

TEST_F(MarkerPanel, AColourChangeLaysNothingOutAgain)
{
    Tool_Marker panel;
    lay_out(panel, scrolled);
    panel.Scroll(-5);
    color(9) = 0x563412;
    cover(main_window());
    panel.Update(colours);
    EXPECT_TRUE(covered(main_window(), grid.slider));
    grid.offset = 0;
    EXPECT_TRUE(shows(9, {"9", {0x12, 0x34, 0x56}}));
    EXPECT_EQ(click_on(panel, 15), 15) << "scrolled as before";
}

TEST_F(MarkerPanel, AChangedCountWaitsForALayout)
{
    Tool_Marker panel;
    lay_out(panel);
    set_count(8);
    panel.Update(~0ull);
    EXPECT_EQ(click_on(panel, 7), 7) << "where it was";
    EXPECT_EQ(click_on(panel, 12), -1);
    lay_out(panel);
    EXPECT_EQ(click_on(panel, 7), 7);
    EXPECT_EQ(grid.button(7).y, 24);
}

TEST_F(MarkerPanel, OnlyMarkersInSightAreDrawn)
{
    Tool_Marker panel;
    lay_out(panel, scrolled, marked_area);
    set_current(15);
    panel.Update(current_marker);
    enabled(15) = 0; // out of sight
    cover(main_window());
    panel.Update(enables);
    for (int marker = 0; marker < 8; ++marker)
        EXPECT_TRUE(shows(marker, pressed(marker))) << "marker " << marker;
    EXPECT_TRUE(covered(main_window(), {0, 0, 480, scrolled.y + 4})) << "rows below";
    panel.Scroll(-5);
    grid.offset = 0;
    EXPECT_TRUE(shows(15, current(15)));
    EXPECT_TRUE(shows(14, pressed(14)));
}

TEST_F(MarkerPanel, BlocksRunInTheirOrderUntilOneMissesItsVariable)
{
    struct Case {
        const char* array;
        unsigned long long flag;
    };
    Tool_Marker panel;
    lay_out(panel);
    int marker = 1;
    for (const Case& missing :
        {Case{"$MARKER_LABEL", labels}, Case{"$MARKER_ENABLE", enables}, Case{"$MARKER_COLOR", colours}}) {
        auto* const kept = std::exchange(Array_Variable<unsigned char>(missing.array), nullptr);
        set_current(++marker);
        cover(main_window());
        panel.Update(current_marker | missing.flag);
        EXPECT_EQ(panel.Read(), marker) << "the block before it";
        EXPECT_TRUE(covered(main_window(), open)) << missing.array;
        Array_Variable<unsigned char>(missing.array) = kept;
    }
}

TEST_F(MarkerPanel, BlocksBehindAMissingVariableAreNotRun)
{
    Tool_Marker panel;
    lay_out(panel);
    const Row_Look before = usual(5);
    color(5) = 0x010203;
    for (const char* array : {"$MARKER_LABEL", "$MARKER_ENABLE"}) {
        auto* const kept = std::exchange(Array_Variable<unsigned char>(array), nullptr);
        panel.Update(labels | enables | colours);
        panel.Draw();
        EXPECT_TRUE(shows(5, before)) << array;
        Array_Variable<unsigned char>(array) = kept;
    }
    panel.Update(labels | enables | colours);
    EXPECT_TRUE(shows(5, usual(5)));
}

TEST_F(MarkerPanel, WithoutMarkersNothingIsDrawn)
{
    Tool_Marker panel;
    lay_out(panel);
    set_count(0);
    set_current(5);
    color(3) = 0x010203;
    cover(main_window());
    panel.Update(~0ull);
    EXPECT_TRUE(covered(main_window(), open));
    EXPECT_EQ(panel.Read(), 5);
}
