#include "hostkit/structures/series_pixels.h"
#include "hostkit/structures/tree.h"
#include "tests/workbench/session_fixture.h"

#include <QSignalSpy>

using document::CarryMode;

namespace {

class SessionPropagation : public test::SessionTest {
protected:
    SessionPropagation()
    {
        open(64, 48, 5);
        session.setFrame(1);
        choose_brush_of_radius(4);
        session.setCurrentTag(3);
        paint({20, 20}, {40, 30});
    }

    static Strato_2D* frame(int z)
    {
        return hostkit::Window_Frame(hostkit::Object_Variable<Strato_Window>("$WINDOW_CUR"))
            ->Parent_Get_Pt()
            ->Child_Get_Pt(z);
    }
    bool propagate(int from, int to) { return session.propagate(frame(from), frame(to)); }
    bool propagate_over(int count, int direction)
    {
        const auto work = session.propagationOver(count, direction);
        return work && work->run({}) && session.adoptPropagation(*work);
    }
    bool are_alike(int z, int other) const
    {
        return std::ranges::equal(session.labels().frame(z), session.labels().frame(other));
    }
    std::size_t painted_on(int z, unsigned tag) const
    {
        return std::size_t(std::ranges::count(session.labels().frame(z), std::uint8_t(tag)));
    }
    QString last_message() const { return messages.isEmpty() ? QString() : messages.last()[0].toString(); }

    QSignalSpy messages{&session, &workbench::Session::message};
};

TEST_F(SessionPropagation, CarriesTheTagsToTheOtherFrameAndShowsIt)
{
    ASSERT_TRUE(propagate(1, 2));
    EXPECT_TRUE(are_alike(1, 2));
    EXPECT_EQ(session.frame(), 2);
}

TEST_F(SessionPropagation, IsOneStepWithAName)
{
    const auto before = tags();
    const int steps = session.undoStack().count();
    ASSERT_TRUE(propagate(1, 2));
    const auto after = tags();
    EXPECT_EQ(session.undoStack().count(), steps + 1);
    EXPECT_EQ(session.undoStack().undoText(), "Propagate to slice 3");
    session.undoStack().undo();
    EXPECT_EQ(tags(), before);
    session.undoStack().redo();
    EXPECT_EQ(tags(), after);
}

TEST_F(SessionPropagation, ViewsHearOfTheChangedFrame)
{
    QSignalSpy changes(&session, &workbench::Session::labelsChanged);
    ASSERT_TRUE(propagate(1, 0));
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toInt(), 0);
    EXPECT_TRUE(changes[0][1].toRect().contains(30, 25));
}

TEST_F(SessionPropagation, LockedTagsStayWhereTheyAre)
{
    session.toggleLock(3);
    ASSERT_TRUE(propagate(1, 2));
    EXPECT_EQ(painted_on(2, 3), 0u);
    EXPECT_TRUE(last_message().contains("Nothing was carried"));
    EXPECT_EQ(session.undoStack().count(), 1);
}

TEST_F(SessionPropagation, DisabledTagsStayWhereTheyAre)
{
    session.setCurrentTag(4);
    paint({50, 10});
    hostkit::Array_Variable<unsigned char>("$TAG_ENABLE")[3] = 0;
    ASSERT_TRUE(propagate(1, 2));
    EXPECT_EQ(painted_on(2, 3), 0u);
    EXPECT_EQ(painted_on(2, 4), painted_on(1, 4));
}

TEST_F(SessionPropagation, TheModeSaysWhatHappensToWhatIsPaintedThere)
{
    session.setFrame(2);
    session.setCurrentTag(3);
    paint({5, 5});
    session.setCurrentTag(4);
    paint({30, 25});
    const auto there = painted_on(2, 4);

    QSignalSpy changes(&session, &workbench::Session::carryModeChanged);
    ASSERT_EQ(session.carryMode(), CarryMode::add);
    ASSERT_TRUE(propagate(1, 2));
    EXPECT_EQ(painted_on(2, 4), there);
    EXPECT_GT(painted_on(2, 3), painted_on(1, 3) - there);
    session.undoStack().undo();

    session.setCarryMode(CarryMode::replace);
    session.setCarryMode(CarryMode::replace);
    EXPECT_EQ(changes.count(), 1);
    ASSERT_TRUE(propagate(1, 2));
    EXPECT_EQ(painted_on(2, 4), 0u);
    EXPECT_TRUE(are_alike(1, 2));
}

TEST_F(SessionPropagation, AStrokeInProgressIsEndedAndCarriedToo)
{
    session.setCurrentTag(5);
    ASSERT_EQ(session.beginStroke({10, 40}, false), "");
    ASSERT_TRUE(propagate(1, 2));
    EXPECT_FALSE(session.isPainting());
    EXPECT_GT(painted_on(2, 5), 0u);
    EXPECT_EQ(session.undoStack().undoText(), "Propagate to slice 3");
    session.undoStack().undo();
    EXPECT_EQ(session.undoStack().undoText(), "Paint Tag 5");
}

TEST_F(SessionPropagation, RefusesFramesOfAnotherSizeAndNamesBoth)
{
    static const std::uint8_t pixels[6 * 4] = {};
    auto* series = hostkit::Object_2D_Add(hostkit::Root_2D(), {"Other", "Series"});
    auto* foreign = hostkit::Frame_Add(series, {"9, 8 mm", "Frame"});
    hostkit::Series_Pixels_Set(series, {hostkit::Pixel_Type::u8, pixels, 6, 4, 1});
    const auto before = tags();
    EXPECT_FALSE(session.propagate(frame(1), foreign));
    EXPECT_EQ(last_message(),
        "Slice 2 has 64 x 48 pixels, Slice 9 has 6 x 4: tags can only be carried between slices of the same size.");
    EXPECT_EQ(tags(), before);
    EXPECT_EQ(session.undoStack().count(), 1);
    hostkit::Object_2D_Remove(series);
}

TEST_F(SessionPropagation, RefusesFramesOfAnotherImage)
{
    static const std::uint8_t pixels[64 * 48] = {};
    auto* series = hostkit::Object_2D_Add(hostkit::Root_2D(), {"Other", "Series"});
    auto* foreign = hostkit::Frame_Add(series, {"9, 8 mm", "Frame"});
    hostkit::Series_Pixels_Set(series, {hostkit::Pixel_Type::u8, pixels, 64, 48, 1});
    EXPECT_FALSE(session.propagate(foreign, frame(1)));
    EXPECT_EQ(last_message(), "Slice 9 is no slice of the open image.");
    EXPECT_FALSE(session.propagate(nullptr, frame(1)));
    hostkit::Object_2D_Remove(series);
}

TEST_F(SessionPropagation, OverSeveralFramesIsOneStepThatEndsOnTheLast)
{
    const auto before = tags();
    ASSERT_TRUE(propagate_over(3, 1));
    EXPECT_EQ(session.frame(), 4);
    for (const int z : {2, 3, 4})
        EXPECT_TRUE(are_alike(1, z)) << z;
    EXPECT_EQ(session.undoStack().undoText(), "Propagate over 3 slices");
    session.undoStack().undo();
    EXPECT_EQ(tags(), before);
}

TEST_F(SessionPropagation, EndsWhereTheImageEnds)
{
    ASSERT_TRUE(propagate_over(100, -1));
    EXPECT_EQ(session.frame(), 0);
    EXPECT_TRUE(are_alike(1, 0));
    EXPECT_EQ(session.undoStack().undoText(), "Propagate to slice 1");
    EXPECT_FALSE(session.propagationOver(1, -1));
}

TEST_F(SessionPropagation, WhatIsPaintedMeanwhileStays)
{
    const auto work = session.propagationOver(2, 1);
    ASSERT_TRUE(work && work->run({}));
    session.setFrame(3);
    session.setCurrentTag(7);
    paint({30, 25});
    const auto meanwhile = painted_on(3, 7);
    ASSERT_TRUE(session.adoptPropagation(*work));
    EXPECT_TRUE(are_alike(1, 2));
    EXPECT_EQ(painted_on(3, 7), meanwhile);
    session.undoStack().undo();
    EXPECT_EQ(painted_on(3, 7), meanwhile);
    EXPECT_EQ(painted_on(3, 3), 0u);
}

TEST_F(SessionPropagation, TheOutcomeForAnImageThatIsClosedIsLeft)
{
    const auto work = session.propagationOver(2, 1);
    ASSERT_TRUE(work);
    session.closeSeries();
    open(20, 20, 5);
    ASSERT_TRUE(work->run({}));
    EXPECT_FALSE(session.adoptPropagation(*work));
    EXPECT_EQ(painted(3), 0u);
    EXPECT_EQ(session.undoStack().count(), 0);
}

TEST_F(SessionPropagation, StopsWhenItIsTold)
{
    const auto work = session.propagationOver(3, 1);
    std::atomic<bool> cancelled = false;
    std::vector<double> told;
    document::Progress progress;
    progress.cancelled = &cancelled;
    progress.report = [&](double done) {
        told.push_back(done);
        cancelled = told.size() == 2;
    };
    EXPECT_FALSE(work->run(progress));
    EXPECT_EQ(told.size(), 2u);
    EXPECT_LT(told.back(), 1);
}

TEST_F(SessionPropagation, ASingleFrameHasNowhereToGo)
{
    open(20, 20, 1);
    EXPECT_FALSE(session.propagationOver(1, 1));
    EXPECT_FALSE(session.propagationOver(1, -1));
}

using SessionWithoutImage = test::SessionTest;

TEST_F(SessionWithoutImage, PropagatesNothing)
{
    EXPECT_FALSE(session.propagationOver(1, 1));
    EXPECT_FALSE(session.propagate(nullptr, nullptr));
}

}
