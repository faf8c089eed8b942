#include "tests/workbench/session_fixture.h"

#include <QSignalSpy>

namespace {

constexpr unsigned long long names = 1ull << 47;

class SessionTools : public test::SessionTest {
protected:
    // As the tag panel does when a name was typed.
    static void rename_in_panel(unsigned tag, const char* name)
    {
        const hostkit::Panel_Call call;
        hostkit::Tag_Label_Set(tag, name);
        Fct_Update(names, nullptr, nullptr, nullptr);
    }
};

TEST_F(SessionTools, StartsReadyForPainting)
{
    EXPECT_EQ(session.currentTag(), 1u);
    EXPECT_EQ(session.tagCount(), 16u);
    EXPECT_EQ(session.brushCount(), 8u);
    EXPECT_EQ(session.brushRadius(), 4u);
    EXPECT_EQ(session.tagTitle(0), "Background");
    EXPECT_EQ(session.tagTitle(5), "Tag 5");
}

TEST_F(SessionTools, ChoosingATagTellsTheHost)
{
    QSignalSpy told(&session, &workbench::Session::currentTagChanged);
    session.setCurrentTag(7);
    EXPECT_EQ(hostkit::Variable<unsigned short>("$TAG_CUR"), 7);
    EXPECT_EQ(broadcasts(), std::vector<unsigned long long>{0x400000});
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0][0].toUInt(), 7u);
    session.setCurrentTag(16); // there is none
    EXPECT_EQ(session.currentTag(), 7u);
    EXPECT_TRUE(broadcasts().empty());
}

TEST_F(SessionTools, LocksAndUnlocks)
{
    session.toggleLock(2);
    EXPECT_TRUE(session.isTagLocked(2));
    EXPECT_TRUE(hostkit::Tag_Locked(2));
    EXPECT_EQ(broadcasts(), std::vector<unsigned long long>{1ull << 44});
    session.toggleLock(2);
    EXPECT_FALSE(session.isTagLocked(2));
}

TEST_F(SessionTools, ARenamingCanBeUndone)
{
    QSignalSpy told(&session, &workbench::Session::tagsChanged);
    rename_in_panel(3, "Leber");
    rename_in_panel(3, "Milz");
    EXPECT_EQ(session.undoStack().count(), 2);
    EXPECT_EQ(session.undoStack().undoText(), "Rename Leber to Milz");
    EXPECT_EQ(told.size(), 2);
    broadcasts();

    session.undoStack().undo();
    EXPECT_STREQ(hostkit::Tag_Label(3), "Leber");
    EXPECT_EQ(broadcasts(), std::vector<unsigned long long>{names});
    session.undoStack().undo();
    EXPECT_EQ(hostkit::Tag_Label(3), nullptr);
    session.undoStack().redo();
    session.undoStack().redo();
    EXPECT_EQ(session.tagName(3), "Milz");
    EXPECT_EQ(session.undoStack().count(), 2);
}

TEST_F(SessionTools, TheSameNameIsNoStep)
{
    rename_in_panel(3, "Leber");
    rename_in_panel(3, "Leber");
    Fct_Update(names, nullptr, nullptr, nullptr);
    EXPECT_EQ(session.undoStack().count(), 1);
}

TEST_F(SessionTools, TakingANameAwayIsAStep)
{
    rename_in_panel(3, "Leber");
    rename_in_panel(3, "");
    EXPECT_EQ(session.undoStack().undoText(), "Clear the name of Leber");
    session.undoStack().undo();
    EXPECT_EQ(session.tagTitle(3), "Leber");
}

TEST_F(SessionTools, RenamingAmongStrokesIsTakenBackInOrder)
{
    open(32, 32, 1);
    paint({10, 10});
    rename_in_panel(1, "Leber");
    paint({20, 20});
    EXPECT_EQ(session.undoStack().undoText(), "Paint Leber");
    session.undoStack().undo();
    session.undoStack().undo();
    EXPECT_EQ(session.tagName(1), "");
    EXPECT_GT(painted(1), 0u);
    session.undoStack().undo();
    EXPECT_EQ(painted(1), 0u);
}

TEST_F(SessionTools, ARenamingIsNothingToSave)
{
    open(32, 32, 1);
    rename_in_panel(1, "Leber");
    EXPECT_FALSE(session.isModified()); // a label map holds no names
}

TEST_F(SessionTools, BrushesGetSmallerAndLargerUpToTheirEnds)
{
    session.setCurrentBrush(0);
    broadcasts();
    session.smallerBrush();
    EXPECT_EQ(session.currentBrush(), 0u);
    EXPECT_TRUE(broadcasts().empty());
    unsigned last = session.brushRadius();
    for (unsigned brush = 1; brush < session.brushCount(); ++brush) {
        session.largerBrush();
        EXPECT_EQ(session.currentBrush(), brush);
        EXPECT_GT(session.brushRadius(), last);
        last = session.brushRadius();
    }
    session.largerBrush();
    EXPECT_EQ(session.currentBrush(), session.brushCount() - 1);
    EXPECT_EQ(broadcasts().front(), 0x800000u);
    EXPECT_LE(last, 181u);
}

}
