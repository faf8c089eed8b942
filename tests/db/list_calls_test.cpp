#include "db/drag.h"
#include "db/rows.h"
#include "tests/db/database_list.h"

// What the list asks of its provider, and when; what panels share.

using namespace test;
using Lines = std::vector<std::string>;
using Numbers = std::vector<int>;

namespace {

// A provider of a root with three leaves that notes what it is asked.
class Noted_List : public Tool_DB_List {
public:
    Lines calls;

    unsigned short List_Create_From_DB(int* count, DB_List** list, int level, int parent, void* object) override
    {
        calls.push_back(*count == 0 && !*list && level == 0 && parent == 0 && !object ? "create" : "create otherwise");
        for (; *count < 4; ++*count) {
            db::add_row(*count, list);
            DB_List& row = (*list)[*count];
            row.state = *count == 0 ? DB_List::expanded : DB_List::leaf;
            row.level = *count != 0;
        }
        (*list)[0].nb_child = (*list)[0].nb_desc = 3;
        return 4;
    }
    void List_Select_From_DB(int, DB_List*) override { calls.emplace_back("from"); }
    void List_Select_To_DB(int count, DB_List* list) override
    {
        std::string call = select_all.pressed ? "to with All" : select_none.pressed ? "to with None" : "to";
        for (int i = 0; i < count; ++i)
            call += ' ' + std::to_string(list[i].select);
        calls.push_back(call);
    }

    Lines take() { return std::exchange(calls, {}); }
};

class DatabaseCalls : public Database_List {
protected:
    DatabaseCalls() { other.Resize(&area); }

    Lines calls_of(unsigned long long word)
    {
        other.take();
        other.Update(word);
        return other.take();
    }

    int event(Tool_DB_List& list, Place place, int up_down)
    {
        point(main_window(), place);
        return list.Click(up_down);
    }

    Noted_List other;
};

}

TEST_F(DatabaseCalls, EachWordAsksForItsOwn)
{
    EXPECT_EQ(calls_of(0x400), Lines{"create"});
    EXPECT_EQ(calls_of(0x200), Lines{"create"});
    EXPECT_EQ(calls_of(0x501), Lines{"create"});
    EXPECT_EQ(calls_of(0x504), Lines{"create"});
    EXPECT_EQ(calls_of(0x502), (Lines{"create", "from"}));
    EXPECT_EQ(calls_of(0x102), Lines{"from"});
    EXPECT_EQ(calls_of(0x1102), Lines{"from"});
    EXPECT_EQ(calls_of(0xFFFFFFFFFFEFF8FFull), Lines()) << "everything but 8, 9, 10 and 20";
}

TEST_F(DatabaseCalls, CurrentWindowIsReadWhenThereIsOne)
{
    calls_of(0x400);
    EXPECT_EQ(calls_of(0x100000), Lines());
    EXPECT_EQ(calls_of(0x100102), Lines()) << "without a window there is no more";
    EXPECT_EQ(calls_of(0x100502), Lines{"create"});
    hostkit::Window_Add("w");
    EXPECT_EQ(calls_of(0x100000), Lines{"from"});
    EXPECT_EQ(calls_of(0x100102), (Lines{"from", "from"}));
}

TEST_F(DatabaseCalls, CurrentWindowDrawsThePanel)
{
    hostkit::Window_Add("w");
    other.Update(0x400);
    reports.clear();
    other.Update(0x100000);
    EXPECT_EQ(reports.texts(15), Lines{"in Tool_DB_List::Draw()"});
    other.Update(0x502);
    EXPECT_EQ(reports.texts(15).size(), 1u) << "others paint the list alone";
}

TEST_F(DatabaseCalls, GesturesWriteWhatIsSelected)
{
    calls_of(0x400);
    event(other, on_line(2), left_press);
    EXPECT_EQ(other.take(), Lines());
    event(other, on_line(2), 0);
    EXPECT_EQ(other.take(), Lines{"to 1 0 2 0"}) << "rolled up before";
    event(other, middle(other.select_all), left_press);
    EXPECT_EQ(other.take(), Lines{"to with All 2 2 2 2"});
    EXPECT_EQ(other.select_all.pressed, 0);
    event(other, middle(other.select_none), left_press);
    EXPECT_EQ(other.take(), Lines{"to with None 0 0 0 0"});
    other.list_pt[1].select = 16 | 1;
    event(other, middle(other.select_all), left_press);
    EXPECT_EQ(other.take(), Lines{"to with All 2 18 2 2"}) << "only the mark changes";
}

TEST_F(DatabaseCalls, EmptyListWritesThatNothingIsSelected)
{
    event(other, on_line(2), left_press);
    EXPECT_EQ(event(other, on_line(2), 0), 1);
    event(other, middle(other.select_all), left_press);
    EXPECT_EQ(other.take(), (Lines{"to", "to with All"}));
}

TEST_F(DatabaseCalls, GreyedButtonsTakeNothing)
{
    calls_of(0x400);
    other.select_all.state = other.select_none.state = 35;
    EXPECT_EQ(event(other, middle(other.select_all), left_press), 0);
    EXPECT_EQ(event(other, middle(other.select_none), left_press), 0);
    EXPECT_EQ(other.take(), Lines());
}

TEST_F(DatabaseCalls, PanelsShareTheDrag)
{
    calls_of(0x400);
    press(on_line(1));
    EXPECT_TRUE(db::drag.going_on);
    EXPECT_EQ(event(other, on_line(2), 0), 1) << "begun in one panel, ended in the other";
    EXPECT_EQ(other.take(), Lines{"to 1 2 2 0"});
    EXPECT_FALSE(db::drag.going_on);
    EXPECT_EQ(selects(), Numbers(7, 0));
    press(on_line(1));
    EXPECT_EQ(other.Motion(0), 1) << "any panel ends it";
    EXPECT_FALSE(db::drag.going_on);
}

TEST_F(DatabaseCalls, ShiftAtThePressKeepsTheOtherPanelsAnchor)
{
    calls_of(0x400);
    press(on_line(1));
    release(on_line(1));
    hold_keys(true, false);
    event(other, on_line(3), left_press);
    hold_keys(false, false);
    event(other, on_line(2), 0);
    EXPECT_EQ(other.take(), Lines{"to 1 2 2 0"});
}

TEST_F(DatabaseCalls, PressOfAnyButtonIsAPress)
{
    calls_of(0x400);
    for (const int word : {18, 34, 66}) {
        event(other, on_line(3), word);
        EXPECT_TRUE(db::drag.going_on);
        EXPECT_EQ(event(other, on_line(3), 0), 1);
    }
}
