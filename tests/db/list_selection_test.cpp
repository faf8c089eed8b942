#include "tests/db/database_list.h"

#include <algorithm>

// Which rows gestures select, in the list and in the host.

using namespace test;
using Numbers = std::vector<int>;

namespace {

class DatabaseSelection : public Database_List {
protected:
    Strato_Window* const window = hostkit::Window_Add("w");

    Numbers selected_images() const
    {
        Numbers result;
        for (size_t i = 0; i < images.size(); ++i) {
            if (images[i]->Flag_Get_Bit(16, reinterpret_cast<void*>(4), 512))
                result.push_back(static_cast<int>(i));
        }
        return result;
    }
};

}

TEST_F(DatabaseSelection, ClickSelectsARowAndTellsTheHost)
{
    click(3);
    EXPECT_EQ(selects(), (Numbers{1, 1, 0, 2, 0, 0, 0}));
    EXPECT_EQ(panel.last_row, 3);
    EXPECT_EQ(selected_images(), Numbers{1});
    EXPECT_EQ(hostkit::Window_Frame(window), images[1]);
    const auto sent = broadcasts();
    EXPECT_NE(std::find(sent.begin(), sent.end(), 0x102ull), sent.end());
}

TEST_F(DatabaseSelection, ClickOnAFolderSelectsWhatIsBelow)
{
    click(1);
    EXPECT_EQ(selects(), (Numbers{1, 2, 2, 2, 2, 0, 0}));
    EXPECT_EQ(hostkit::Window_Frame(window), images[0]) << "the uppermost";
    click(6);
    EXPECT_EQ(selects(), (Numbers{1, 0, 0, 0, 0, 2, 2}));
}

TEST_F(DatabaseSelection, DragTakesAllLinesInBetween)
{
    drag(3, 6);
    EXPECT_EQ(selects(), (Numbers{1, 1, 0, 2, 2, 2, 2}));
    EXPECT_EQ(panel.last_row, 5) << "what is below the folder went with it";
    drag(4, 2);
    EXPECT_EQ(selects(), (Numbers{1, 2, 2, 2, 2, 0, 0}));
}

TEST_F(DatabaseSelection, ControlTogglesAndKeepsTheRest)
{
    click(3);
    hold_keys(false, true);
    click(6);
    EXPECT_EQ(selects(), (Numbers{1, 1, 0, 2, 0, 2, 2}));
    drag(2, 4);
    EXPECT_EQ(selects(), (Numbers{1, 1, 2, 0, 2, 2, 2}));
}

TEST_F(DatabaseSelection, ShiftSelectsFromTheLastRow)
{
    click(3);
    hold_keys(true, false);
    click(6);
    EXPECT_EQ(selects(), (Numbers{1, 1, 0, 2, 2, 2, 2}));
    EXPECT_EQ(panel.last_row, 3);
    click(2);
    EXPECT_EQ(selects(), (Numbers{1, 1, 2, 2, 0, 0, 0}));
}

TEST_F(DatabaseSelection, ShiftTakesFoldedRowsToo)
{
    click(1);
    press(on_line(1, 1));
    hold_keys(true, false);
    click(2); // series b
    EXPECT_EQ(selects(), (Numbers{2, 2, 2, 2, 2, 2, 2}));
}

TEST_F(DatabaseSelection, LastRowBeyondTheListCounts)
{
    panel.last_row = 4000;
    hold_keys(true, false);
    click(5);
    EXPECT_EQ(selects(), (Numbers{1, 0, 0, 0, 0, 2, 2}));
}

TEST_F(DatabaseSelection, SelectAllMarksEveryRow)
{
    panel.list_pt[6].state |= DB_List::inaccessible;
    EXPECT_EQ(press(middle(panel.select_all)), 1);
    EXPECT_EQ(selects(), (Numbers{2, 2, 2, 2, 2, 2, 2}));
    EXPECT_EQ(selected_images(), (Numbers{0, 1, 2})) << "only what is accessible reaches the host";
    EXPECT_EQ(panel.select_all.pressed, 0);
}

TEST_F(DatabaseSelection, SelectNoneEmptiesTheWindows)
{
    press(middle(panel.select_all));
    release(middle(panel.select_all));
    ASSERT_NE(hostkit::Window_Frame(window), nullptr);
    EXPECT_EQ(press(middle(panel.select_none)), 1);
    EXPECT_EQ(selects(), Numbers(7, 0));
    EXPECT_EQ(selected_images(), Numbers());
    EXPECT_EQ(hostkit::Window_Frame(window), nullptr);
}

TEST_F(DatabaseSelection, SelectNoneEmptiesNoMoreThanTheWindows)
{
    hostkit::Window_Add("second");
    auto** const shown = hostkit::Array_Variable<Strato_2D*>("$FRAME_CUR");
    std::fill_n(shown, 3, images[0]);
    press(middle(panel.select_none));
    EXPECT_EQ(shown[0], nullptr);
    EXPECT_EQ(shown[1], nullptr);
    EXPECT_EQ(shown[2], images[0]);
}

TEST_F(DatabaseSelection, HalfSelectedFolderIsSelectedByAClick)
{
    click(3);
    ASSERT_EQ(row(1).select, 1);
    hold_keys(false, true);
    click(1);
    EXPECT_EQ(selects(), (Numbers{1, 2, 2, 2, 2, 0, 0}));
}
