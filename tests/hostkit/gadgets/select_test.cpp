#include "hostkit/gadgets/select_chooser.h"
#include "tests/hostkit/gadgets/widget_fixture.h"

using namespace test;

// The closed select list.

namespace {

constexpr unsigned active = 8448;
constexpr unsigned greyed = 8483;

class Select : public Widgets {
protected:
    Select()
    {
        Place_Widget(list, 20, 30, 160, 24);
        list.state = active;
        list.arrow = 16;
        list.Set_Name(" Frame: ");
        Fill(40);
        list.Draw();
        Point_Away();
    }
    ~Select() override
    {
        hostkit::Set_Select_Chooser({});
        YKey = 0;
    }

    void Fill(int count)
    {
        list.Grow(count, 0);
        for (int i = 0; i < count; ++i)
            list.Set_Item(i, std::to_string(i + 1).c_str());
    }

    void Point_At_It() { Point(100, 40); }

    // How it looks with this item, drawn afresh.
    std::vector<COLORREF> Drawn(int value)
    {
        Selects other(list);
        other.value = static_cast<unsigned short>(value);
        other.Draw();
        const auto look = Look(list);
        list.Draw();
        return look;
    }

    int By_Key(int key)
    {
        YKey = key;
        return list.Scroll(0);
    }

    Selects list;
};

}

// ------------------------------------------------------------------------------------------------------- items

TEST_F(Select, GrowingKeepsItemsAndAddsEmptyOnes)
{
    list.Grow(42, 0);
    EXPECT_EQ(list.Count(), 42);
    EXPECT_STREQ(list.Item(39), "40");
    EXPECT_STREQ(list.Item(40), "");
    EXPECT_STREQ(list.Item(41), "");
}

TEST_F(Select, ShrinkingDropsTheTail)
{
    list.Grow(2, 0);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_STREQ(list.Item(1), "2");
    list.Grow(3, 0);
    EXPECT_STREQ(list.Item(2), "") << "what was dropped does not come back";
    list.Grow(-5, 0);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(Select, ItemsThatDoNotExistHaveNoTextAndTakeNone)
{
    list.Set_Item(40, "x");
    list.Set_Item(-1, "x");
    EXPECT_STREQ(list.Item(40), "");
    EXPECT_STREQ(list.Item(-1), "");
    EXPECT_EQ(list.Count(), 40);
}

TEST_F(Select, CopiesHaveItemsOfTheirOwn)
{
    Selects copy(list);
    list.Set_Item(3, "changed");
    EXPECT_STREQ(copy.Item(3), "4");
    copy = list;
    EXPECT_STREQ(copy.Item(3), "changed");
    copy = *&copy;
    EXPECT_STREQ(copy.Item(3), "changed");
    list.Grow(0, 0);
    EXPECT_EQ(copy.Count(), 40);
}

TEST_F(Select, HoldsAsManyItemsAsItsValueCanName)
{
    Fill(65535);
    list.value = 65534;
    EXPECT_STREQ(list.Item(list.value), "65535");
    EXPECT_EQ(list.Scroll(5), 0);
    EXPECT_EQ(list.value, 65534);
}

// ----------------------------------------------------------------------------------------------------- drawing

TEST_F(Select, ShowsItsCaptionAndTheCurrentItem)
{
    const auto first = Drawn(0);
    EXPECT_NE(first, Drawn(1));
    EXPECT_EQ(first, Drawn(0));
    list.Set_Name(" Slice: ");
    EXPECT_NE(Drawn(0), first);
}

TEST_F(Select, DrawsWithinItsRectangle)
{
    Wipe();
    list.Draw();
    EXPECT_FALSE(Spills(list));
    EXPECT_FALSE(Untouched(list));
}

TEST_F(Select, TheArrowTakesItsWidthAtTheRightEnd)
{
    const int y = list.y + list.height / 2;
    const int tip = list.x + list.width - 3 - 16 / 2 - 1;
    EXPECT_EQ(Pixel(tip, y - 1), light);
    EXPECT_NE(Pixel(tip - 8, y - 1), light);
    list.arrow = 30;
    list.Draw();
    EXPECT_EQ(Pixel(list.x + list.width - 3 - 15 - 1, y - 1), light);
    EXPECT_NE(Pixel(tip, y - 1), light);
}

TEST_F(Select, ALongItemIsCutBeforeTheArrow)
{
    list.Set_Item(0, "1");
    const int arrow_x = list.x + list.width - 3 - 16;
    const auto arrow_of = [&] {
        list.Draw();
        std::vector<Colors> column;
        for (int x = arrow_x; x < list.x + list.width; ++x)
            column.push_back(Pixel(x, list.y + 12));
        return column;
    };
    const auto before = arrow_of();
    list.Set_Item(0, std::string(300, 'W').c_str());
    EXPECT_EQ(arrow_of(), before);
}

TEST_F(Select, AnItemThatDoesNotExistIsShownEmpty)
{
    list.Set_Item(0, "");
    EXPECT_EQ(Drawn(0), Drawn(999));
}

TEST_F(Select, GreyedIsShownFainter)
{
    const auto before = Look(list);
    list.state = greyed;
    list.Draw();
    EXPECT_NE(Look(list), before);
    EXPECT_FALSE(Untouched(list));
}

TEST_F(Select, InactiveWithoutGreyIsNotDrawn)
{
    list.state = active | 3;
    Wipe();
    list.Draw();
    EXPECT_TRUE(Untouched(list));
}

TEST_F(Select, AdjustDrawsOnlyWhatChanged)
{
    Wipe();
    list.Adjust();
    EXPECT_TRUE(Untouched(list));
    list.value = 3;
    list.Adjust();
    EXPECT_FALSE(Untouched(list));
    Wipe();
    list.Set_Item(7, "another");
    list.Adjust();
    EXPECT_TRUE(Untouched(list)) << "an item that is not shown";
    list.Set_Item(3, "another");
    list.Adjust();
    EXPECT_FALSE(Untouched(list));
    Wipe();
    list.state = greyed;
    list.Adjust();
    EXPECT_FALSE(Untouched(list));
}

TEST_F(Select, WithoutAWindowItDrawsAndTakesNothing)
{
    Selects nowhere;
    nowhere.Grow(3, 0);
    nowhere.Draw();
    nowhere.Deselect();
    YCursor_X = YCursor_Y = 0;
    EXPECT_EQ(nowhere.Select(left_press), 0);
    EXPECT_EQ(nowhere.Read(), -1);
    EXPECT_EQ(nowhere.Scroll(1), 1) << "its value is its own";
    EXPECT_TRUE(reports.texts(11).empty());
}

// ------------------------------------------------------------------------------------------------------- mouse

TEST_F(Select, TakesAPressInsideAndNothingElse)
{
    Point_At_It();
    for (const int word : {18, 34, 66})
        EXPECT_NE(list.Select(word), 0) << word;
    for (const int word : {0, 1, 17, 16})
        EXPECT_EQ(list.Select(word), 0) << word;
    Point(19, 40);
    EXPECT_EQ(list.Select(left_press), 0);
    Point(180, 40);
    EXPECT_EQ(list.Select(left_press), 0);
    Point(100, 29);
    EXPECT_EQ(list.Select(left_press), 0);
    Point(179, 53);
    EXPECT_NE(list.Select(left_press), 0);
}

TEST_F(Select, GreyedOrEmptyItTakesNothing)
{
    Point_At_It();
    list.state = greyed;
    EXPECT_EQ(list.Select(left_press), 0);
    EXPECT_EQ(list.Select(question), 0);
    list.state = active;
    list.Grow(0, 0);
    EXPECT_EQ(list.Select(left_press), 0);
    EXPECT_EQ(list.Select(question), 0);
}

TEST_F(Select, TheQuestionChangesNothing)
{
    Wipe();
    EXPECT_EQ(list.Select(question), 0);
    Point_At_It();
    EXPECT_NE(list.Select(question), 0);
    EXPECT_TRUE(Untouched(list)) << "no highlight";
    EXPECT_EQ(list.Read(), -1) << "nothing was pressed";
}

TEST_F(Select, IsHighlightedUnderThePointer)
{
    const auto plain = Look(list);
    Point_At_It();
    list.Select(0);
    EXPECT_NE(Look(list), plain);
    Point_Away();
    list.Select(0);
    EXPECT_EQ(Look(list), plain);
    Point_At_It();
    list.Select(0);
    list.Deselect();
    EXPECT_EQ(Look(list), plain);
}

TEST_F(Select, ReadAsksTheChooserOnceAfterAPress)
{
    int asked = 0;
    hostkit::Set_Select_Chooser([&](const Selects& select) {
        ++asked;
        EXPECT_EQ(&select, &list);
        return 7;
    });
    EXPECT_EQ(list.Read(), -1);
    EXPECT_EQ(asked, 0);
    Point_At_It();
    list.Select(left_press);
    EXPECT_EQ(asked, 0) << "a press only marks the list";
    EXPECT_EQ(list.Read(), 7);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(list.value, 0) << "the choice is the caller's to show";
    EXPECT_EQ(list.Read(), -1);
    EXPECT_EQ(asked, 1);
}

TEST_F(Select, OnlyItemsCanBeChosen)
{
    for (const int chosen : {-1, -7, 40, 1000}) {
        hostkit::Set_Select_Chooser([chosen](const Selects&) { return chosen; });
        Point_At_It();
        list.Select(left_press);
        EXPECT_EQ(list.Read(), -1) << chosen;
    }
}

TEST_F(Select, LeavingForgetsThePress)
{
    hostkit::Set_Select_Chooser([](const Selects&) { return 7; });
    Point_At_It();
    list.Select(left_press);
    list.Deselect();
    EXPECT_EQ(list.Read(), -1);
}

TEST_F(Select, AChooserIsGivenBackByTheNext)
{
    hostkit::Set_Select_Chooser([](const Selects&) { return 3; });
    const auto before = hostkit::Set_Select_Chooser({});
    ASSERT_TRUE(before);
    EXPECT_EQ(before(list), 3);
    EXPECT_FALSE(hostkit::Set_Select_Chooser({}));
}

// ---------------------------------------------------------------------------------------------- wheel and keys

TEST_F(Select, ScrollsByItemsAndStopsAtTheEnds)
{
    EXPECT_EQ(list.Scroll(1), 1);
    EXPECT_EQ(list.value, 1);
    EXPECT_EQ(list.Scroll(5), 1);
    EXPECT_EQ(list.value, 6);
    EXPECT_EQ(list.Scroll(-2), 1);
    EXPECT_EQ(list.value, 4);
    EXPECT_EQ(list.Scroll(-100), 1);
    EXPECT_EQ(list.value, 0);
    EXPECT_EQ(list.Scroll(-1), 0);
    EXPECT_EQ(list.Scroll(100), 1);
    EXPECT_EQ(list.value, 39);
    EXPECT_EQ(list.Scroll(1), 0);
}

TEST_F(Select, ScrollingDrawsWhatChanged)
{
    const auto second = Drawn(1);
    list.Scroll(1);
    EXPECT_EQ(Look(list), second);
    Wipe();
    list.Scroll(0);
    EXPECT_TRUE(Untouched(list));
}

TEST_F(Select, GreyedOrEmptyItDoesNotScroll)
{
    list.state = greyed;
    EXPECT_EQ(list.Scroll(1), 0);
    list.state = active;
    list.Grow(0, 0);
    EXPECT_EQ(list.Scroll(1), 0);
    EXPECT_EQ(list.value, 0);
}

TEST_F(Select, MovesByTheRecordedKey)
{
    struct Case {
        int key;
        int from;
        int to;
    };
    for (const Case& one :
        {Case{2084, 20, 0}, {2083, 20, 39}, {2081, 20, 10}, {2082, 20, 30}, {2085, 20, 19}, {2094, 20, 19},
            {2087, 20, 21}, {2093, 20, 21}, {2081, 4, 0}, {2082, 35, 39}, {2085, 0, 0}, {2087, 39, 39}}) {
        list.value = static_cast<unsigned short>(one.from);
        EXPECT_EQ(By_Key(one.key), one.from != one.to) << one.key;
        EXPECT_EQ(list.value, one.to) << one.key;
    }
}

TEST_F(Select, AKeyIsUsedUp)
{
    list.value = 5;
    By_Key(2087);
    EXPECT_EQ(YKey, 0);
    EXPECT_EQ(list.Scroll(0), 0);
    EXPECT_EQ(list.value, 6);
}

TEST_F(Select, OtherKeysMoveNothing)
{
    list.value = 5;
    for (const int key : {0, 27, 97, 2086, 2088, 2089, 2092}) {
        EXPECT_EQ(By_Key(key), 0) << key;
        EXPECT_EQ(list.value, 5) << key;
    }
}

TEST_F(Select, AnAmountLeavesTheKeyAlone)
{
    YKey = 2083;
    EXPECT_EQ(list.Scroll(1), 1);
    EXPECT_EQ(list.value, 1);
    EXPECT_EQ(YKey, 2083);
}
