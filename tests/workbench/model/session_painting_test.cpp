#include "tests/workbench/session_fixture.h"

#include <QSignalSpy>
#include <random>

namespace {

class SessionPainting : public test::SessionTest {
protected:
    SessionPainting()
    {
        open(64, 48, 5);
        choose_brush_of_radius(4);
        session.setCurrentTag(3);
    }
};

TEST_F(SessionPainting, PaintsTheCurrentTagOnTheShownFrame)
{
    session.setFrame(1);
    paint({10, 10}, {40, 30});
    EXPECT_EQ(session.labels().at(25, 20, 1), 3);
    EXPECT_EQ(session.labels().at(25, 20, 2), 0);
    EXPECT_TRUE(session.isModified());
    EXPECT_EQ(session.undoStack().undoText(), "Paint Tag 3");
}

TEST_F(SessionPainting, NamesTheTagInTheStep)
{
    hostkit::Tag_Label_Set(3, "Liver");
    paint({10, 10});
    EXPECT_EQ(session.undoStack().undoText(), "Paint Liver");
    paint({10, 10}, true);
    EXPECT_EQ(session.undoStack().undoText(), "Erase");
    EXPECT_EQ(painted(0), session.labels().tags().size());
}

TEST_F(SessionPainting, NothingChangedIsNoStep)
{
    paint({10, 10});
    paint({10, 10});
    paint({-50, -50});
    paint({40, 40}, true);
    EXPECT_EQ(session.undoStack().count(), 1);
}

TEST_F(SessionPainting, UndoAndRedoAreExact)
{
    std::mt19937 random(2);
    std::uniform_int_distribution<int> place(-5, 60), frame(0, 4), tag(0, 9);
    std::vector<std::vector<std::uint8_t>> states{tags()};
    for (int i = 0; i < 60; ++i) {
        session.setFrame(frame(random));
        session.setCurrentTag(unsigned(tag(random)));
        paint({place(random), place(random)}, {place(random), place(random)}, i % 7 == 0);
        if (tags() != states.back())
            states.push_back(tags());
    }
    ASSERT_EQ(session.undoStack().count(), int(states.size()) - 1);
    for (std::size_t i = states.size() - 1; i-- > 0;) {
        session.undoStack().undo();
        ASSERT_EQ(tags(), states[i]) << i;
    }
    EXPECT_FALSE(session.isModified());
    for (std::size_t i = 1; i < states.size(); ++i) {
        session.undoStack().redo();
        ASSERT_EQ(tags(), states[i]) << i;
    }
}

TEST_F(SessionPainting, UndoShowsTheFrameThatItChanges)
{
    session.setFrame(0);
    paint({10, 10});
    session.setFrame(4);
    session.undoStack().undo();
    EXPECT_EQ(session.frame(), 0);
    session.setFrame(3);
    session.undoStack().redo();
    EXPECT_EQ(session.frame(), 0);
}

TEST_F(SessionPainting, ALockedTagIsNeitherPaintedNorPaintedOver)
{
    paint({20, 20}, {40, 20});
    const auto before = tags();
    session.toggleLock(3);
    const QString why = session.beginStroke({10, 10}, false);
    EXPECT_TRUE(why.contains("Tag 3") && why.contains("locked")) << why.toStdString();
    EXPECT_FALSE(session.isPainting());
    paint({20, 20}, {40, 20}, true);
    EXPECT_EQ(tags(), before);
    session.setCurrentTag(4);
    paint({30, 10}, {30, 30});
    EXPECT_EQ(painted(3), std::size_t(std::count(before.begin(), before.end(), 3)));
    EXPECT_GT(painted(4), 0u);
    session.toggleLock(3);
    paint({20, 20}, {40, 20}, true);
    EXPECT_EQ(painted(3), 0u);
}

TEST_F(SessionPainting, ALockedBackgroundCannotBeErasedTo)
{
    session.toggleLock(0);
    EXPECT_TRUE(session.beginStroke({10, 10}, true).contains("Background"));
}

TEST_F(SessionPainting, CancellingTakesTheStrokeBack)
{
    paint({20, 20});
    const auto before = tags();
    session.setCurrentTag(5);
    session.beginStroke({20, 20}, false);
    session.continueStroke({50, 40});
    ASSERT_NE(tags(), before);
    QSignalSpy changed(&session, &workbench::Session::labelsChanged);
    session.cancelStroke();
    EXPECT_EQ(tags(), before);
    EXPECT_EQ(session.undoStack().count(), 1);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_TRUE(changed[0][1].toRect().contains(QRect(17, 17, 36, 26)));
}

TEST_F(SessionPainting, UndoDuringAStrokeTakesBothBack)
{
    const auto empty = tags();
    paint({20, 20});
    session.beginStroke({20, 22}, false);
    session.continueStroke({50, 40});
    session.undoStack().undo();
    EXPECT_EQ(tags(), empty);
    EXPECT_FALSE(session.isPainting());
    session.continueStroke({10, 10});
    session.endStroke();
    EXPECT_EQ(tags(), empty);
    session.undoStack().redo();
    EXPECT_EQ(session.undoStack().count(), 1);
}

TEST_F(SessionPainting, AnotherFrameEndsTheStroke)
{
    session.beginStroke({20, 20}, false);
    const int first = session.frame();
    session.setFrame(4);
    EXPECT_FALSE(session.isPainting());
    EXPECT_EQ(session.labels().at(20, 20, first), 3);
    EXPECT_EQ(session.undoStack().count(), 1);
}

TEST_F(SessionPainting, TellsWhatChanged)
{
    QSignalSpy changed(&session, &workbench::Session::labelsChanged);
    paint({20, 20}, {30, 20});
    ASSERT_EQ(changed.size(), 2);
    EXPECT_EQ(changed[0][0].toInt(), session.frame());
    EXPECT_TRUE(changed[0][1].toRect().contains(QRect(17, 17, 7, 7)));
    EXPECT_TRUE(changed[1][1].toRect().contains(QRect(24, 17, 10, 7)));
    session.undoStack().undo();
    ASSERT_EQ(changed.size(), 3);
    EXPECT_TRUE(changed[2][1].toRect().contains(QRect(17, 17, 17, 7)));
}

TEST_F(SessionPainting, ModifiedIsExactThroughSavingAndUndo)
{
    paint({20, 20});
    session.markSaved("/tmp/a.nrrd", *session.snapshot());
    EXPECT_FALSE(session.isModified());
    EXPECT_EQ(session.labelPath(), "/tmp/a.nrrd");
    session.undoStack().undo();
    EXPECT_TRUE(session.isModified());
    session.undoStack().redo();
    EXPECT_FALSE(session.isModified());
    session.undoStack().undo();
    paint({40, 20}); // the saved state cannot be reached any more
    EXPECT_TRUE(session.isModified());
    session.undoStack().undo();
    EXPECT_TRUE(session.isModified());
}

TEST_F(SessionPainting, PaintingWhileSavingStaysUnsaved)
{
    paint({20, 20});
    const auto saved = session.snapshot();
    ASSERT_TRUE(saved);
    paint({40, 20});
    EXPECT_EQ(saved->labels.at(40, 20, session.frame()), 0);
    EXPECT_EQ(saved->labels.at(20, 20, session.frame()), 3);
    session.markSaved("/tmp/a.nrrd", *saved);
    EXPECT_TRUE(session.isModified());
    session.undoStack().undo();
    EXPECT_FALSE(session.isModified());
}

TEST_F(SessionPainting, ASnapshotEndsTheStroke)
{
    session.beginStroke({20, 20}, false);
    const auto saved = session.snapshot();
    EXPECT_FALSE(session.isPainting());
    EXPECT_EQ(saved->labels.at(20, 20, session.frame()), 3);
    session.markSaved("/tmp/a.nrrd", *saved);
    EXPECT_FALSE(session.isModified());
}

TEST_F(SessionPainting, SavedLabelsOfAnImageThatIsGoneCountForNothing)
{
    paint({20, 20});
    const auto saved = session.snapshot();
    session.closeSeries();
    open(10, 10, 2);
    paint({5, 5});
    session.markSaved("/tmp/a.nrrd", *saved);
    EXPECT_TRUE(session.isModified());
    EXPECT_TRUE(session.labelPath().isEmpty());
}

TEST_F(SessionPainting, LoadedLabelsAreOneStep)
{
    paint({20, 20});
    const auto painted_by_hand = tags();
    auto loaded = document::LabelMap::create(session.volume().geometry);
    loaded->set(1, 2, 0, 8);
    loaded->set(3, 4, 4, 9);
    EXPECT_FALSE(session.adoptLabels(*loaded, "/tmp/labels.nrrd"));
    EXPECT_TRUE(std::ranges::equal(session.labels().tags(), loaded->tags()));
    EXPECT_FALSE(session.isModified());
    EXPECT_EQ(session.labelPath(), "/tmp/labels.nrrd");
    EXPECT_EQ(session.undoStack().undoText(), "Load labels.nrrd");
    session.undoStack().undo();
    EXPECT_EQ(tags(), painted_by_hand);
    EXPECT_TRUE(session.isModified());
    session.undoStack().redo();
    EXPECT_TRUE(std::ranges::equal(session.labels().tags(), loaded->tags()));
    EXPECT_FALSE(session.isModified());
}

TEST_F(SessionPainting, LabelsOfAnotherSizeAreRefused)
{
    paint({20, 20});
    const auto before = tags();
    document::Geometry geometry;
    geometry.size = {64, 48, 4};
    const auto failure = session.adoptLabels(*document::LabelMap::create(geometry), "/tmp/labels.nrrd");
    ASSERT_TRUE(failure);
    EXPECT_NE(failure->message.find("64 x 48 x 4"), std::string::npos) << failure->message;
    EXPECT_EQ(tags(), before);
    EXPECT_TRUE(session.isModified());
    EXPECT_TRUE(session.labelPath().isEmpty());
}

}
