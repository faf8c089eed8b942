#include "db/drag.h"
#include "tests/db/database_list.h"

// What the list does on events and changes, besides the selection.

using namespace test;
using Numbers = std::vector<int>;
using Lines = std::vector<std::string>;

class DatabaseEvents : public Database_List {};

TEST_F(DatabaseEvents, LeadFoldsAndUnfolds)
{
    EXPECT_EQ(press(on_line(1, 1)), 0);
    EXPECT_EQ(row(1).state & DB_List::expanded, 0);
    EXPECT_EQ(lines(), (Numbers{0, 1, 65535, 65535, 65535, 2, 3}));
    EXPECT_FALSE(db::drag.going_on);
    EXPECT_EQ(release(on_line(1, 1)), 0);
    press(on_line(1, 1));
    EXPECT_EQ(lines(), (Numbers{0, 1, 2, 3, 4, 5, 6}));
}

TEST_F(DatabaseEvents, RowUnderThePointerIsThatOfTheLine)
{
    press(on_line(1, 1)); // three rows are hidden
    const auto row_at = [&](Place place) {
        point(main_window(), place);
        return panel.Row_Under_Pointer();
    };
    EXPECT_EQ(row_at(on_line(0)), 0);
    EXPECT_EQ(row_at(on_line(2)), 5);
    EXPECT_EQ(row_at(on_line(4)), -1);
    EXPECT_EQ(row_at({500, 500}), -1);
}

TEST_F(DatabaseEvents, LeadOfALeafBeginsADrag)
{
    press(on_line(2, 2));
    EXPECT_TRUE(db::drag.going_on);
}

TEST_F(DatabaseEvents, PressOnALineWithoutRowDoesNothing)
{
    press(on_line(1, 1));
    release(on_line(1, 1)); // four lines, seven rows
    press(on_line(5));
    EXPECT_FALSE(db::drag.going_on);
    press(on_line(7));
    EXPECT_TRUE(db::drag.going_on) << "beyond the number of rows";
}

TEST_F(DatabaseEvents, HandlersTrace)
{
    point(main_window(), {500, 500});
    panel.Draw();
    panel.Click(0);
    panel.Keyboard(2094);
    const Lines traces = reports.texts(15);
    EXPECT_EQ(traces, (Lines{"in Tool_DB_List::Draw()", "in Tool_DB_List::Click(up_down=0x00000000)",
                          "in Tool_DB_List::Keyboard(key=0x0000082e)"}));
    reports.clear();
    press(on_line(3));
    EXPECT_EQ(reports.texts(15),
        (Lines{"in Tool_DB_List::Click(up_down=0x00000012)", "in DB_2D_Class_List_Click(up_down=0x00000012)"}));
    reports.clear();
    panel.Motion(held);
    panel.Scroll(1);
    panel.Leave();
    panel.Update(0);
    EXPECT_EQ(reports.texts(15), Lines());
}

TEST_F(DatabaseEvents, WheelScrollsDownByRowsAndAcrossOnTheHorizontalBar)
{
    add_series(20, 3);
    add_image(series_b, std::string(100, 'w'));
    rebuild();
    point(main_window(), on_line(2));
    EXPECT_EQ(panel.Scroll(-2), 1);
    EXPECT_EQ(panel.vertical.value, 36);
    EXPECT_EQ(panel.Scroll(1), 1);
    EXPECT_EQ(panel.vertical.value, 18);
    point(main_window(), middle(panel.horizontal));
    EXPECT_EQ(panel.Scroll(-1), 1);
    EXPECT_EQ(panel.horizontal.value, 20);
    EXPECT_EQ(panel.vertical.value, 18);
    point(main_window(), {500, 500});
    EXPECT_EQ(panel.Scroll(-1), 0);
}

TEST_F(DatabaseEvents, WheelOverAnIdleHorizontalBarScrollsDown)
{
    add_series(20, 3);
    ASSERT_FALSE(panel.horizontal.Active());
    point(main_window(), middle(panel.horizontal));
    EXPECT_EQ(panel.Scroll(-1), 1);
    EXPECT_EQ(panel.vertical.value, 18);
}

TEST_F(DatabaseEvents, BarsAreDragged)
{
    add_series(40, 3);
    const Sliders& bar = panel.vertical;
    const Place top{bar.x + bar.width / 2, bar.y + bar.height - 3};
    EXPECT_EQ(press(top), 1);
    EXPECT_EQ(move({top.x, top.y - 40}, held), 1);
    EXPECT_GT(bar.value, 100);
    const auto shown = pixels(main_window());
    panel.Draw();
    EXPECT_EQ(pixels(main_window()), shown) << "list and thumb";
    const float before = bar.value;
    EXPECT_EQ(move({panel.list_box.x + 20, top.y - 80}, held), 1) << "beside the bar, over the list";
    EXPECT_GT(bar.value, before);
    release({panel.list_box.x + 20, top.y - 80});
    const float released = bar.value;
    move({panel.list_box.x + 20, top.y - 20}, 0);
    EXPECT_EQ(bar.value, released);
}

TEST_F(DatabaseEvents, FoldingBringsTheViewBackIntoTheContent)
{
    add_series(20, 3);
    panel.vertical.value = panel.vertical.maximum;
    panel.list_pt[0].state &= static_cast<unsigned short>(~DB_List::expanded);
    panel.Draw();
    EXPECT_EQ(panel.vertical.value, 0);
    EXPECT_EQ(panel.vertical.state, 0x0C000027u);
}

TEST_F(DatabaseEvents, DragScrollsNearTheEdges)
{
    add_series(20, 3);
    add_image(series_b, std::string(100, 'w'));
    rebuild();
    press(on_line(3));
    const Place below{panel.list_box.x + 100, panel.bottom_zone.y + 2};
    EXPECT_EQ(move(below, held), 1);
    EXPECT_EQ(panel.vertical.value, 3);
    move(below, held);
    EXPECT_EQ(panel.vertical.value, 6);
    EXPECT_EQ(panel.horizontal.value, 0);
    const Place corner{panel.right_zone.x + panel.right_zone.width - 1, panel.bottom_zone.y + 2};
    move(corner, held);
    EXPECT_EQ(panel.vertical.value, 9);
    EXPECT_EQ(panel.horizontal.value, 3);
    const Place upper_left{panel.left_zone.x + 2, panel.top_zone.y + panel.top_zone.height - 2};
    for (int i = 0; i < 5; ++i)
        move(upper_left, held);
    EXPECT_EQ(panel.vertical.value, 0);
    EXPECT_EQ(panel.horizontal.value, 0);
}

TEST_F(DatabaseEvents, MotionWithoutAButtonEndsADragAndSelectsNothing)
{
    const Numbers before = selects();
    press(on_line(2));
    EXPECT_EQ(move(on_line(4), held), 1);
    release({500, 500});
    EXPECT_TRUE(db::drag.going_on);
    EXPECT_EQ(move({500, 500}, 0), 1);
    EXPECT_FALSE(db::drag.going_on);
    EXPECT_EQ(selects(), before);
}

TEST_F(DatabaseEvents, RubberBandLeavesNoTrace)
{
    panel.Draw();
    const auto clean = pixels(main_window());
    press(on_line(2));
    move(on_line(4, 12), held);
    EXPECT_NE(pixels(main_window()), clean);
    move(on_line(5, 3), held);
    EXPECT_NE(pixels(main_window()), clean);
    move(on_line(5, 3), 0);
    EXPECT_EQ(pixels(main_window()), clean);
}

TEST_F(DatabaseEvents, RubberBandIsXorOfItsFourSides)
{
    panel.Draw();
    const Place from = on_line(2, 6), to = on_line(5, 10), side{from.x, (from.y + to.y) / 2};
    const Colors before = pixel(main_window(), side);
    press(from);
    move(to, held);
    const Colors band = pixel(main_window(), side);
    EXPECT_EQ(band.get(), before.get() ^ 0x00008080u);
}

TEST_F(DatabaseEvents, RubberBandStaysWithTheContentWhenADragScrolls)
{
    add_series(20, 3);
    const Place from = on_line(2, 6), below{panel.list_box.x + 100, panel.bottom_zone.y + 2};
    press(from);
    for (int i = 0; i < 5; ++i)
        move(below, held);
    ASSERT_EQ(panel.vertical.value, 15);
    const auto banded = pixels(main_window());
    panel.Draw(); // without the band
    const auto plain = pixels(main_window());
    const int top = 799 - (from.y + 15);
    for (int row = 0; row < 800; ++row) {
        for (int x = 0; x < 800; ++x) {
            const auto at = static_cast<size_t>(row * 800 + x);
            const Place place{x, 799 - row};
            const bool across = row == top && x >= below.x && x <= from.x;
            const bool upright = (x == below.x || x == from.x) && row >= top;
            const bool drawn = (across || upright) && place.y >= panel.list_box.y;
            ASSERT_EQ(banded[at] ^ plain[at], drawn ? 0x00008080u : 0u) << x << ", " << place.y;
        }
    }
}

TEST_F(DatabaseEvents, RubberBandIsForgottenWhenTheListIsEmptied)
{
    press(on_line(2));
    move(on_line(4, 12), held);
    hostkit::Tree_Reset();
    panel.Update(0x402);
    const auto empty = pixels(main_window());
    move(on_line(5, 10), held);
    EXPECT_NE(pixels(main_window()), empty);
    panel.Draw();
    EXPECT_EQ(pixels(main_window()), empty);
    move(on_line(3, 11), held);
    move(on_line(3, 11), 0);
    EXPECT_EQ(pixels(main_window()), empty);
}

TEST_F(DatabaseEvents, TreeWordsRebuildAndScrollBack)
{
    add_series(20, 3);
    panel.vertical.value = 90;
    panel.list_pt[1].state &= static_cast<unsigned short>(~DB_List::expanded);
    for (const auto word : {0x200ull, 0x400ull, 0x600ull, 0x401ull}) {
        panel.vertical.value = 90;
        panel.Update(word);
        EXPECT_EQ(panel.vertical.value, 0);
        EXPECT_EQ(panel.nb, 87);
        EXPECT_EQ(row(1).state & DB_List::expanded, 1);
    }
}

TEST_F(DatabaseEvents, SelectionNeedsBothBits)
{
    images[1]->Flag_Set_On(16, reinterpret_cast<void*>(4), 512);
    for (const auto word : {0x100ull, 0x002ull, 0x101ull, 0x104ull}) {
        panel.Update(word);
        EXPECT_EQ(row(3).select, 0);
    }
    panel.Update(0x102);
    EXPECT_EQ(selects(), (Numbers{1, 1, 0, 2, 0, 0, 0}));
}

TEST_F(DatabaseEvents, CurrentWindowGreysTheButtons)
{
    images[1]->Flag_Set_On(16, reinterpret_cast<void*>(4), 512);
    panel.Update(0x100102);
    EXPECT_EQ(row(3).select, 0) << "without a window nothing is read";
    hostkit::Window_Add("w");
    panel.Update(0x100000);
    EXPECT_EQ(row(3).select, 2);
    EXPECT_EQ(panel.select_all.state, 0u);
    EXPECT_EQ(panel.select_none.state, 0u);
}

TEST_F(DatabaseEvents, PointerHighlightsAndLeaveTakesItAway)
{
    add_series(20, 3);
    add_image(series_b, std::string(100, 'w'));
    rebuild();
    panel.Draw();
    const auto plain = pixels(main_window());
    for (const Tools* widget :
        {static_cast<const Tools*>(&panel.select_all), static_cast<const Tools*>(&panel.select_none),
            static_cast<const Tools*>(&panel.vertical), static_cast<const Tools*>(&panel.horizontal)}) {
        EXPECT_EQ(move(middle(*widget), 0), 0);
        EXPECT_NE(pixels(main_window()), plain);
        panel.Leave();
        EXPECT_EQ(pixels(main_window()), plain);
    }
    EXPECT_EQ(move(on_line(3), 0), 1) << "over the list";
    EXPECT_EQ(move({500, 500}, 0), 0);
}

TEST_F(DatabaseEvents, ChangesOfOtherThingsPaintNothing)
{
    panel.Draw();
    press(on_line(2));
    move(on_line(4, 12), held);
    const auto before = pixels(main_window()); // a repaint would take the band away
    for (const auto word : {0ull, 0x100ull, 0x2ull, 0x101ull, 0x104ull, 0x1000F04000E00000ull, 0x100000ull})
        panel.Update(word);
    EXPECT_EQ(pixels(main_window()), before);
}

TEST_F(DatabaseEvents, EmptiedListLeavesAnEmptyPicture)
{
    add_series(20, 3);
    add_image(series_b, std::string(100, 'w'));
    rebuild();
    ASSERT_TRUE(panel.vertical.Active() && panel.horizontal.Active());
    hostkit::Tree_Reset();
    panel.Update(0x402);
    EXPECT_EQ(panel.nb, 0);
    EXPECT_EQ(panel.list_pt, nullptr);
    EXPECT_EQ(panel.vertical.state, 0x0C000027u);
    EXPECT_EQ(panel.horizontal.state, 0x08000023u);
    for (int line = 0; line < 7; ++line) {
        for (int level = 0; level < 8; ++level)
            EXPECT_EQ(pixel(main_window(), on_line(line, level)), area.back);
    }
    const auto empty = pixels(main_window());
    press(on_line(2));
    move(on_line(4, 3), held);
    EXPECT_NE(pixels(main_window()), empty);
    EXPECT_EQ(release(on_line(4, 3)), 1);
    EXPECT_EQ(pixels(main_window()), empty) << "the rubber band is gone";
    click(0);
    press(middle(panel.select_all));
    panel.Update(0x102);
    EXPECT_EQ(panel.nb, 0);
}

TEST_F(DatabaseEvents, EditModeShowsWarningsInTurnAndRoutesEvents)
{
    Tool_DB_Class edit(18);
    edit.Resize(&area);
    edit.Update(0x402);
    edit.Draw();
    const std::string first = edit.warning_message.name.get();
    panel.Draw(); // shows none
    Tool_DB_Class other(18);
    other.Resize(&area);
    other.Draw();
    const std::string second = other.warning_message.name.get();
    edit.Draw();
    EXPECT_EQ(edit.warning_message.name.get(), first);
    const Lines both{
        "Please make sure you know what you are doing!", "Pressing: \"Update DB\" will reset all changes made here."};
    EXPECT_EQ(first, both[0]);
    EXPECT_EQ(second, both[1]);

    reports.clear();
    point(main_window(), on_line(2));
    EXPECT_EQ(edit.Click(left_press), 1);
    EXPECT_EQ(edit.Motion(0), 1);
    EXPECT_EQ(edit.Keyboard(13), 0);
    EXPECT_EQ(edit.Keyboard(2094), 0);
    EXPECT_EQ(reports.texts(15),
        (Lines{"in Tool_DB_List::Click(up_down=0x00000012)", "in DB_Edit_Click_DB(up_down=0x00000012)",
            "in DB_Edit_Locate()", "in DB_Edit_Motion_DB(up_down=0x00000000)", "in DB_Edit_Locate()",
            "in Tool_DB_List::Keyboard(key=0x0000000d)", "in Tool_DB_List::Keyboard(key=0x0000082e)",
            "in DB_Edit_Key_DB(key=0x0000082e)", "in DB_Edit_Locate()"}));
    point(main_window(), middle(edit.select_all));
    EXPECT_EQ(edit.Click(left_press), 0) << "there are no buttons";
}
