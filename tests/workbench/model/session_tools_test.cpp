#include "tests/workbench/session_fixture.h"

#include <QSignalSpy>

namespace {

using SessionTools = test::SessionTest;

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
