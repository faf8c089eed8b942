#include "hostkit/structures/tree.h"
#include "tests/workbench/session_fixture.h"
#include "workbench/model/host_words.h"

#include <memory>
#include <QAction>
#include <random>
#include <set>

namespace {

namespace word = workbench::word;
using Choice = workbench::FrameSelection::Choice;

// Edits as a panel makes them: in the trees, then it tells.
class DatabaseEdits : public test::SessionTest {
protected:
    // Two studies of one series each, of five and three frames.
    void open_two()
    {
        open(8, 6, 5);
        auto other = test::made_image(8, 6, 3);
        other.volume.study_uid = "1.2";
        other.volume.study = "Other";
        other.volume.series = "Second";
        other.volume.files = {"/images/second.nii"};
        ASSERT_FALSE(session.adoptImage(std::move(other)));
        first = series_in_tree(0);
        second = series_in_tree(1);
        for (int z = 0; z < 5; ++z)
            frames.push_back(first->Child_Get_Pt(z));
    }

    static void move(Strato_2D* object, Strato_2D* target)
    {
        target->Child_Add(object->Parent_Get_Pt()->Child_Remove(object));
        word::tell(word::tree_2D);
    }

    static void take_out(Strato_2D* object)
    {
        Strato_2D* const parent = object->Parent_Get_Pt();
        object->Parent_Set_Pt(nullptr);
        const int place = parent->Child_Get_Id(object);
        for (int k = object->Child_Get_Nb() - 1; k >= 0; --k)
            parent->Child_Insert(place + 1, object->Child_Remove(k));
        parent->Child_Remove(place);
        word::tell(word::tree_2D);
    }

    // "Images(Made(1 2) Second)": names below the root; of frames the number.
    static std::string text_of(const Strato_2D* object)
    {
        std::string text = object->Name_Get();
        text = text.substr(0, text.find(','));
        for (int i = 0; i < object->Child_Get_Nb(); ++i)
            text += (i == 0 ? "(" : " ") + text_of(object->Child_Get_Pt(i));
        return text + (object->Child_Get_Nb() > 0 ? ")" : "");
    }
    static std::string tree() { return text_of(hostkit::Root_2D()); }

    QUndoStack& steps() { return session.databaseEdits().steps(); }
    int shown_value() { return session.volume().frame_as<std::uint16_t>(session.frame())[0]; }

    const std::string as_opened = "Images(images(Made(1 2 3 4 5)) Other(Second(1 2 3)))";
    Strato_2D* first = nullptr;
    Strato_2D* second = nullptr;
    std::vector<Strato_2D*> frames; // of the first
};

TEST_F(DatabaseEdits, AreStepsWithTextsThatSayWhatHappened)
{
    open_two();
    EXPECT_EQ(tree(), as_opened);
    EXPECT_EQ(steps().count(), 0) << "opening is none";
    move(frames[1], second);
    EXPECT_EQ(steps().undoText(), "Move Frame 2, 1 mm to Series Second");
    {
        const hostkit::Panel_Call call;
        move(frames[2], second);
        move(frames[3], second);
    }
    EXPECT_EQ(steps().undoText(), "Move 2 classes to Series Second");
    take_out(first);
    EXPECT_EQ(steps().undoText(), "Delete Series Made");
    move(frames[0], frames[0]->Parent_Get_Pt());
    EXPECT_EQ(steps().undoText(), "Reorder Study images");
    session.databaseEdits().rename(second, "A new name");
    EXPECT_EQ(steps().undoText(), "Rename Series Second");
    EXPECT_STREQ(second->Name_Get(), "A new name");
    EXPECT_NE(second->Flag_Get_Bit(16, reinterpret_cast<void*>(8), 0x10000000), 0) << "modified";
    EXPECT_EQ(tree(), "Images(images(5 1) Other(A new name(1 2 3 2 3 4)))");
    EXPECT_EQ(steps().count(), 5);
    while (steps().canUndo())
        steps().undo();
    EXPECT_EQ(tree(), as_opened);
    while (steps().canRedo())
        steps().redo();
    EXPECT_EQ(tree(), "Images(images(5 1) Other(A new name(1 2 3 2 3 4)))");
    EXPECT_EQ(steps().count(), 5);
}

TEST_F(DatabaseEdits, WhatChangesNothingIsNoStep)
{
    open_two();
    word::tell(word::tree_2D);
    session.databaseEdits().rename(second, "Second");
    session.databaseEdits().rename(nullptr, "x");
    for (Strato_2D* frame : frames)
        first->Child_Add(first->Child_Remove(frame));
    word::tell(word::tree_2D);
    EXPECT_FALSE(session.databaseEdits().updateDatabase());
    EXPECT_EQ(steps().count(), 0);
}

TEST_F(DatabaseEdits, NamesMayBeEmptyOrLong)
{
    open_two();
    session.databaseEdits().rename(second, QString(5000, 'x'));
    EXPECT_EQ(std::string(second->Name_Get()).size(), 5000u);
    EXPECT_LT(steps().undoText().size(), 60);
    session.databaseEdits().rename(second, "");
    EXPECT_STREQ(second->Name_Get(), "");
    EXPECT_LT(steps().undoText().size(), 60);
    session.databaseEdits().rename(second, "x");
    EXPECT_EQ(steps().undoText(), "Rename Series");
    steps().undo();
    steps().undo();
    EXPECT_EQ(std::string(second->Name_Get()).size(), 5000u);
}

TEST_F(DatabaseEdits, FramesKeepTheirNumberWhereverTheyAre)
{
    open_two();
    session.showSeries(session.series()[0]);
    move(frames[3], second);
    move(frames[0], first);
    EXPECT_EQ(session.frameCount(), 5);
    session.setFrame(3);
    EXPECT_EQ(session.frame(), 3);
    EXPECT_EQ(session.currentSeries(), session.series()[0]);
    EXPECT_EQ(shown_value(), 300);
    session.selection().chooseRange(0, 0);
    EXPECT_TRUE(session.selection().choice() == Choice::range);
    EXPECT_EQ(session.selection().count(), 1);
    EXPECT_NE(frames[0]->Flag_Get_Bit(16, reinterpret_cast<void*>(4), 512), 0);
    EXPECT_EQ(session.frame(), 0) << "the one that is selected";
}

TEST_F(DatabaseEdits, AClassAmongFramesIsNotShown)
{
    open_two();
    session.showSeries(session.series()[0]);
    session.setFrame(3);
    move(frames[3], first->Parent_Get_Pt());
    EXPECT_EQ(session.frame(), 3);
    auto* const window = hostkit::Object_Variable<Strato_Window>("$WINDOW_CUR");
    Fct_Change_Child(window, first, frames[3]); // as one goes through the children of the study
    EXPECT_TRUE(session.showsFrame());
    EXPECT_EQ(session.frame(), 3);
    EXPECT_EQ(hostkit::Window_Frame(window), frames[3]);
}

TEST_F(DatabaseEdits, AFrameThatWasTakenOutIsNotSelectedButCanBeSeen)
{
    open_two();
    session.showSeries(session.series()[0]);
    session.setFrame(3);
    broadcasts();
    take_out(frames[3]);
    EXPECT_EQ(std::ranges::count(broadcasts(), word::selection_2D), 1);
    EXPECT_EQ(session.selection().count(), 4);
    EXPECT_EQ(session.selection().choice(), Choice::all) << "of those that are there";
    EXPECT_NE(session.frame(), 3);
    session.setFrame(3);
    EXPECT_EQ(session.frame(), 3);
    EXPECT_EQ(shown_value(), 300);
    paint({3, 3});
    EXPECT_GT(painted(1), 0u);
    steps().undo();
    EXPECT_EQ(session.selection().count(), 5);
}

TEST_F(DatabaseEdits, ClosingASeriesTakesItsObjectsFromWhereverTheyAre)
{
    open_two();
    move(frames[1], second);
    take_out(frames[2]);
    move(second->Child_Get_Pt(0), first); // another's
    session.showSeries(session.series()[0]);
    session.closeSeries();
    EXPECT_EQ(tree(), "Images(images(1) Other(Second(2 3)))") << "what is another's takes the place of the series";
    EXPECT_EQ(session.frameCount(), 3);
    session.setFrame(0);
    EXPECT_EQ(session.frame(), 0);
    session.closeSeries();
    EXPECT_EQ(tree(), "Images") << "and the studies go when they are empty";
}

TEST_F(DatabaseEdits, StepsOutliveSeriesThatAreClosedOrOpened)
{
    open_two();
    move(frames[1], second);
    Strato_2D* const study = first->Parent_Get_Pt();
    take_out(study);
    session.databaseEdits().rename(frames[0], "one");
    EXPECT_EQ(tree(), "Images(Made(one 3 4 5) Other(Second(1 2 3 2)))");
    session.closeSeries(); // the second
    EXPECT_EQ(tree(), "Images(Made(one 3 4 5) Other(2))");
    open(4, 4, 2);
    const std::string now = "Images(Made(one 3 4 5) Other(2) images(Made(1 2)))";
    EXPECT_EQ(tree(), now) << "the study that was taken out stays out";
    EXPECT_EQ(steps().count(), 3);
    steps().undo();
    steps().undo();
    EXPECT_EQ(tree(), "Images(images(Made(1 3 4 5)) Other(2) images(Made(1 2)))");
    steps().undo();
    EXPECT_EQ(tree(), "Images(images(Made(1 2 3 4 5)) Other images(Made(1 2)))");
    while (steps().canRedo())
        steps().redo();
    EXPECT_EQ(steps().undoText(), "Rename Frame 1, 0 mm");
    EXPECT_EQ(session.selection().count(), 2);
    while (!session.series().empty())
        session.closeSeries();
    while (steps().canUndo())
        steps().undo();
    EXPECT_EQ(tree(), "Images");
}

TEST_F(DatabaseEdits, StepsOfWhichNothingIsLeftAreNone)
{
    open_two();
    session.databaseEdits().rename(first, "Renamed");
    session.databaseEdits().rename(second, "Other name");
    move(second->Child_Get_Pt(0), second);
    session.databaseEdits().rename(frames[0], "One");
    move(second->Child_Get_Pt(0), second);
    steps().undo();
    EXPECT_EQ(steps().count(), 5);
    const std::unique_ptr<QAction> redo(steps().createRedoAction(nullptr));
    EXPECT_TRUE(redo->isEnabled());
    session.showSeries(session.series()[1]);
    session.closeSeries();
    EXPECT_EQ(steps().undoText(), "Rename Frame 1, 0 mm");
    EXPECT_FALSE(steps().canRedo());
    EXPECT_FALSE(redo->isEnabled());
    steps().undo();
    EXPECT_EQ(steps().undoText(), "Rename Series Made") << "those between have gone";
    steps().undo();
    EXPECT_FALSE(steps().canUndo());
    EXPECT_STREQ(first->Name_Get(), "Made");
    steps().redo();
    steps().redo();
    EXPECT_EQ(steps().count(), 2);
    EXPECT_STREQ(frames[0]->Name_Get(), "One");
    session.closeSeries();
    EXPECT_EQ(steps().count(), 0);
}

TEST_F(DatabaseEdits, WhatWasOpenedSinceStaysWhenAStudyIsTakenOutAgain)
{
    open_two();
    take_out(first->Parent_Get_Pt());
    steps().undo();
    open(4, 4, 2); // into that study
    steps().redo();
    EXPECT_EQ(tree(), "Images(Made(1 2 3 4 5) Other(Second(1 2 3)) Made(1 2))");
    steps().undo();
    EXPECT_EQ(tree(), "Images(images(Made(1 2 3 4 5)) Other(Second(1 2 3)) Made(1 2))");
}

TEST_F(DatabaseEdits, UpdateBringsBackWhatTheFilesSayInOneStep)
{
    open_two();
    move(frames[4], second);
    move(first, second);
    take_out(second);
    take_out(frames[0]);
    session.databaseEdits().rename(first, "x");
    Strato_3D* const volume = hostkit::Root_3D()->Child_Get_Pt(0)->Child_Get_Pt(0);
    session.databaseEdits().rename(volume, "y");
    const std::string edited = tree();
    EXPECT_TRUE(session.databaseEdits().updateDatabase());
    EXPECT_EQ(tree(), as_opened);
    EXPECT_STREQ(volume->Name_Get(), "Made");
    EXPECT_EQ(steps().undoText(), "Update DB");
    EXPECT_EQ(session.selection().count(), 3);
    steps().undo();
    EXPECT_EQ(tree(), edited);
    EXPECT_STREQ(volume->Name_Get(), "y");
    steps().redo();
    EXPECT_EQ(tree(), as_opened);
}

TEST_F(DatabaseEdits, UpdateTakesAwayStudiesThatNothingBelongsToAnyMore)
{
    open_two();
    move(frames[1], second);
    session.closeSeries();
    ASSERT_EQ(tree(), "Images(images(Made(1 3 4 5)) Other(2))");
    EXPECT_TRUE(session.databaseEdits().updateDatabase());
    EXPECT_EQ(tree(), "Images(images(Made(1 2 3 4 5)))");
    steps().undo();
    EXPECT_EQ(tree(), "Images(images(Made(1 3 4 5)) Other(2))");
}

TEST_F(DatabaseEdits, OfSignalsAndVolumesAreStepsToo)
{
    open_two();
    Strato_1D* const root = hostkit::Root_1D();
    Strato_1D* const signal = root->Child_Get_Pt(0)->Child_Get_Pt(0)->Child_Get_Pt(0);
    root->Child_Add(signal->Parent_Get_Pt()->Child_Remove(signal));
    word::tell(word::tree_1D);
    EXPECT_EQ(steps().undoText(), "Move Signal Histogram to Root Signals");
    session.showSeries(session.series()[0]);
    session.closeSeries();
    EXPECT_EQ(root->Child_Get_Nb(), 1);
    EXPECT_EQ(hostkit::Root_3D()->Child_Get_Nb(), 1);
    steps().undo();
    EXPECT_EQ(root->Child_Get_Nb(), 1);
}

TEST_F(DatabaseEdits, AThousandOfAllKindsLeaveATreeWithAllFrames)
{
    std::mt19937 random(20261121);
    const auto any = [&](std::size_t count) { return random() % count; };
    const auto listed = [] {
        std::vector<Strato_2D*> objects{hostkit::Root_2D()};
        for (std::size_t i = 0; i < objects.size(); ++i)
            for (int k = 0; k < objects[i]->Child_Get_Nb(); ++k)
                objects.push_back(objects[i]->Child_Get_Pt(k));
        return objects;
    };
    const auto lies_below = [](const Strato_2D* object, const Strato_2D* other) {
        while (object && object != other)
            object = object->Parent_Get_Pt();
        return object != nullptr;
    };
    const auto open_another = [&](int number) {
        auto image = test::made_image(4, 4, 1 + static_cast<int>(any(6)));
        image.volume.study_uid = std::to_string(any(3));
        image.volume.files = {"/images/" + std::to_string(number)};
        ASSERT_FALSE(session.adoptImage(std::move(image)));
    };
    open_two();
    for (int round = 0; round < 1000; ++round) {
        const auto objects = listed();
        Strato_2D* const one = objects[any(objects.size())];
        Strato_2D* const other = objects[any(objects.size())];
        switch (any(8)) {
        case 0:
        case 1:
            if (!lies_below(other, one))
                move(one, other);
            break;
        case 2:
            if (one != objects.front())
                take_out(one);
            break;
        case 3:
            session.databaseEdits().rename(one, QString::number(round));
            break;
        case 4:
            steps().undo();
            break;
        case 5:
            steps().redo();
            break;
        case 6:
            if (any(10) == 0)
                session.databaseEdits().updateDatabase();
            else if (any(4) == 0 && session.series().size() < 5)
                open_another(round);
            break;
        default:
            if (any(8) == 0 && session.series().size() > 1)
                session.closeSeries();
        }
        const auto now = listed();
        ASSERT_EQ(std::set(now.begin(), now.end()).size(), now.size()) << "once each";
        const auto& series = session.series()[any(session.series().size())];
        const int z = static_cast<int>(any(static_cast<std::size_t>(series->volume.frame_count())));
        session.showSeries(series);
        session.setFrame(z);
        ASSERT_EQ(session.currentSeries(), series);
        ASSERT_EQ(session.frame(), z);
    }
    session.databaseEdits().updateDatabase();
    std::size_t count = 1 + static_cast<std::size_t>(hostkit::Root_2D()->Child_Get_Nb());
    for (const auto& series : session.series())
        count += 1 + static_cast<std::size_t>(series->volume.frame_count());
    EXPECT_EQ(listed().size(), count);
    while (!session.series().empty())
        session.closeSeries();
    EXPECT_EQ(listed().size(), 1u);
}

TEST_F(DatabaseEdits, NothingOpenIsNothingToEdit)
{
    EXPECT_FALSE(session.databaseEdits().updateDatabase());
    session.databaseEdits().rename(hostkit::Root_2D(), "Mine");
    EXPECT_EQ(tree(), "Mine");
    EXPECT_TRUE(session.databaseEdits().updateDatabase());
    EXPECT_EQ(tree(), "Images");
}

}
