#include "workbench/model/frame_selection.h"

#include "hostkit/structures/tree.h"
#include "tests/workbench/session_fixture.h"

#include <QSignalSpy>

using workbench::FrameSelection;
using Choice = FrameSelection::Choice;

namespace workbench {

void PrintTo(Choice choice, std::ostream* stream)
{
    *stream << std::array{"all", "shown", "range", "other"}.at(static_cast<std::size_t>(choice));
}

}

namespace {

class Selection : public test::SessionTest {
protected:
    // "11000" when the first two of five are selected.
    static std::string selected(int index = 0)
    {
        std::string text;
        const Strato_2D* series = series_in_tree(index);
        for (int z = 0; z < series->Child_Get_Nb(); ++z)
            text += series->Child_Get_Pt(z)->Flag_Get_Bit(16, display_state(), 512) ? '1' : '0';
        return text;
    }

    // As a panel does it.
    static void select(const std::string& wanted, int index = 0)
    {
        const Strato_2D* series = series_in_tree(index);
        for (int z = 0; z < series->Child_Get_Nb(); ++z) {
            if (wanted.at(static_cast<std::size_t>(z)) == '1')
                series->Child_Get_Pt(z)->Flag_Set_On(16, display_state(), 512);
            else
                series->Child_Get_Pt(z)->Flag_Set_Off(16, display_state(), 512);
        }
        Fct_Update(0x102, nullptr, nullptr, nullptr);
    }

    static void* display_state() { return reinterpret_cast<void*>(4); }

    FrameSelection& selection = session.selection();
};

TEST_F(Selection, WithoutAnImageThereIsNothingToSelect)
{
    selection.chooseAll();
    selection.chooseShown();
    selection.followShown();
    selection.chooseRange(2, 5);
    EXPECT_EQ(selection.count(), 0);
    EXPECT_EQ(selection.first(), 0);
    EXPECT_EQ(selection.last(), 0);
}

TEST_F(Selection, AnImageStartsWithAllFrames)
{
    open(4, 4, 5);
    EXPECT_EQ(selection.choice(), Choice::all);
    EXPECT_EQ(selection.count(), 5);
    EXPECT_EQ(selected(), "11111");
    selection.chooseShown();
    open(4, 4, 3);
    EXPECT_EQ(selection.choice(), Choice::all);
    EXPECT_EQ(selected(), "00000");
    session.setFrame(0);
    EXPECT_EQ(selected(1), "111") << "the choice for another image is forgotten";
}

TEST_F(Selection, TheShownFrameIsFollowed)
{
    open(4, 4, 5);
    selection.chooseShown();
    EXPECT_EQ(selected(), "00100");
    EXPECT_EQ(selection.choice(), Choice::shown);
    QSignalSpy changed(&selection, &FrameSelection::changed);
    broadcasts();
    session.setFrame(4);
    EXPECT_EQ(selected(), "00001");
    EXPECT_EQ(session.frame(), 4);
    EXPECT_EQ(selection.choice(), Choice::shown);
    const auto words = broadcasts();
    EXPECT_EQ(std::count(words.begin(), words.end(), 0x102ull), 1);
    EXPECT_GE(changed.size(), 1);
}

TEST_F(Selection, ARangeStaysWhateverIsShown)
{
    open(4, 4, 5);
    selection.chooseRange(1, 3);
    EXPECT_EQ(selected(), "01110");
    EXPECT_EQ(selection.choice(), Choice::range);
    EXPECT_EQ(selection.first(), 1);
    EXPECT_EQ(selection.last(), 3);
    EXPECT_EQ(selection.count(), 3);
    session.setFrame(4);
    EXPECT_EQ(selected(), "01110");
    EXPECT_EQ(session.frame(), 4);
}

TEST_F(Selection, ARangeThatDoesNotHoldTheShownFrameShowsItsFirst)
{
    open(4, 4, 5);
    selection.chooseRange(1, 3);
    EXPECT_EQ(session.frame(), 2) << "which is one of them";
    selection.chooseRange(3, 4);
    EXPECT_EQ(session.frame(), 3);
    selection.chooseRange(0, 1);
    EXPECT_EQ(session.frame(), 0);
    EXPECT_EQ(selected(), "11000");
}

TEST_F(Selection, ARangeMayBeTurnedRoundAndTooLarge)
{
    open(4, 4, 5);
    selection.chooseRange(3, 2);
    EXPECT_EQ(selected(), "00110");
    selection.chooseRange(-7, 1);
    EXPECT_EQ(selected(), "11000");
    selection.chooseRange(4, 100);
    EXPECT_EQ(selected(), "00001");
    selection.chooseRange(50, 100);
    EXPECT_EQ(selected(), "00001");
    selection.chooseRange(0, 4);
    EXPECT_EQ(selection.choice(), Choice::all);
}

TEST_F(Selection, ARangeOfTheShownFrameDoesNotFollowIt)
{
    open(4, 4, 5);
    selection.chooseShown();
    selection.chooseRange(2, 2);
    EXPECT_EQ(selection.choice(), Choice::range);
    session.setFrame(3);
    EXPECT_EQ(selected(), "00100");
}

TEST_F(Selection, AllAgainEndsFollowing)
{
    open(4, 4, 5);
    selection.chooseShown();
    selection.chooseAll();
    session.setFrame(0);
    EXPECT_EQ(selected(), "11111");
}

TEST_F(Selection, WhatAPanelSelectsIsToldAsItIs)
{
    open(4, 4, 5);
    QSignalSpy changed(&selection, &FrameSelection::changed);
    select("10101");
    EXPECT_EQ(selection.choice(), Choice::other);
    EXPECT_EQ(selection.count(), 3);
    EXPECT_EQ(changed.size(), 1);
    select("00110");
    EXPECT_EQ(selection.choice(), Choice::range);
    select("00000");
    EXPECT_EQ(selection.choice(), Choice::other);
    EXPECT_EQ(selection.count(), 0);
    select("11111");
    EXPECT_EQ(selection.choice(), Choice::all);
}

TEST_F(Selection, WhatAPanelSelectsEndsFollowing)
{
    open(4, 4, 5);
    selection.chooseShown();
    select("01110");
    session.setFrame(4);
    EXPECT_EQ(selected(), "01110");
    EXPECT_EQ(selection.choice(), Choice::range);
}

TEST_F(Selection, NobodyIsToldWhenNothingChanges)
{
    open(4, 4, 5);
    selection.chooseRange(1, 2);
    broadcasts();
    selection.chooseRange(1, 2);
    EXPECT_EQ(broadcasts(), std::vector<unsigned long long>{});
}

TEST_F(Selection, OfAPictureIsAll)
{
    open(4, 4, 1);
    EXPECT_EQ(selection.choice(), Choice::all);
    selection.chooseRange(0, 0);
    EXPECT_EQ(selection.choice(), Choice::all);
}

TEST_F(Selection, MayGoOverSeveralSeries)
{
    open(4, 4, 5);
    open(4, 4, 3);
    select("00011");
    EXPECT_EQ(selection.choice(), Choice::other);
    EXPECT_EQ(selection.count(), 5);
    EXPECT_EQ(selection.last(), 2) << "of the one that is shown";
    selection.chooseRange(0, 1);
    EXPECT_EQ(selected(), "00000");
    EXPECT_EQ(selected(1), "110");
}

}
