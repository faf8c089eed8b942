#include "tests/workbench/session_fixture.h"

#include <QSignalSpy>

namespace {

constexpr unsigned long long names = 1ull << 47;
constexpr unsigned long long colours = 1ull << 38;
using Words = std::vector<unsigned long long>;
using workbench::Thresholds;

class SessionTags : public test::SessionTest {
protected:
    // As the tag panel does when a name was typed.
    static void rename_in_panel(unsigned tag, const char* name)
    {
        const hostkit::Panel_Call call;
        hostkit::Tag_Label_Set(tag, name);
        Fct_Update(names, nullptr, nullptr, nullptr);
    }

    QString undo_text() { return session.undoStack().undoText(); }
    void undo() { session.undoStack().undo(); }
    void redo() { session.undoStack().redo(); }
    void save_table() { session.markTableSaved(session.tableSnapshot().state); }

    document::LabelEntry row(int tag)
    {
        const auto rows = session.tableSnapshot().rows;
        const auto found = std::ranges::find(rows, tag, &document::LabelEntry::tag);
        EXPECT_NE(found, rows.end()) << tag;
        return found == rows.end() ? document::LabelEntry() : *found;
    }

    std::vector<int> row_tags()
    {
        std::vector<int> tags;
        for (const auto& entry : session.tableSnapshot().rows)
            tags.push_back(entry.tag);
        return tags;
    }
};

const document::LabelEntry spleen = {
    .tag = 2, .red = 10, .green = 20, .blue = 30, .opacity = 0.25f, .mesh = false, .name = "Spleen"};
const document::LabelEntry vessel = {.tag = 20, .red = 200, .name = "Vessel", .thresholds = {{100, 300}}};
const document::LabelEntry unheard_of = {.tag = 4711, .blue = 255, .name = "Too many"};

TEST_F(SessionTags, ARenamingCanBeUndone)
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

TEST_F(SessionTags, TheSameNameIsNoStep)
{
    rename_in_panel(3, "Leber");
    rename_in_panel(3, "Leber");
    Fct_Update(names, nullptr, nullptr, nullptr);
    EXPECT_EQ(session.undoStack().count(), 1);
}

TEST_F(SessionTags, TakingANameAwayIsAStep)
{
    rename_in_panel(3, "Leber");
    rename_in_panel(3, "");
    EXPECT_EQ(session.undoStack().undoText(), "Clear the name of Leber");
    session.undoStack().undo();
    EXPECT_EQ(session.tagTitle(3), "Leber");
}

TEST_F(SessionTags, RenamingAmongStrokesIsTakenBackInOrder)
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

// ------------------------------------------------------------------------------------------ colours and thresholds

TEST_F(SessionTags, ThresholdsAreStepsOfUndo)
{
    rename_in_panel(3, "Liver");
    broadcasts();
    QSignalSpy told(&session, &workbench::Session::thresholdsChanged);
    EXPECT_EQ(session.thresholds(3), std::nullopt);
    session.setThresholds(3, Thresholds{-150.5, 200});
    EXPECT_EQ(session.thresholds(3), (Thresholds{-150.5, 200}));
    EXPECT_EQ(session.thresholds(4), std::nullopt);
    EXPECT_EQ(undo_text(), "Set thresholds of Liver");
    session.setThresholds(3, {});
    EXPECT_EQ(undo_text(), "Clear thresholds of Liver");
    EXPECT_EQ(told.size(), 2);

    undo();
    EXPECT_EQ(session.thresholds(3), (Thresholds{-150.5, 200}));
    undo();
    EXPECT_EQ(session.thresholds(3), std::nullopt);
    redo();
    EXPECT_EQ(session.thresholds(3), (Thresholds{-150.5, 200}));
    EXPECT_EQ(told.size(), 5);
    EXPECT_EQ(broadcasts(), Words{}); // they are no variable of the host
    EXPECT_EQ(session.tagName(3), "Liver");
}

TEST_F(SessionTags, AColourIsAStepThatPanelsHearOf)
{
    QSignalSpy told(&session, &workbench::Session::tagsChanged);
    const QColor before = session.tagColour(5);
    session.setTagColour(5, QColor(1, 128, 255));
    EXPECT_EQ(hostkit::Array_Variable<unsigned short>("$TAG_RED")[5], 0x0100);
    EXPECT_EQ(hostkit::Array_Variable<unsigned short>("$TAG_GRN")[5], 0x8000);
    EXPECT_EQ(hostkit::Array_Variable<unsigned short>("$TAG_BLU")[5], 0xff00);
    EXPECT_EQ(session.tagColour(5), QColor(1, 128, 255));
    EXPECT_EQ(undo_text(), "Set colour of Tag 5");
    EXPECT_EQ(broadcasts(), Words{colours});
    undo();
    EXPECT_EQ(session.tagColour(5), before);
    EXPECT_EQ(broadcasts(), Words{colours});
    redo();
    EXPECT_EQ(session.tagColour(5), QColor(1, 128, 255));
    EXPECT_EQ(told.size(), 3);
}

TEST_F(SessionTags, WhatIsAsBeforeIsNoStep)
{
    session.setTagColour(5, session.tagColour(5));
    session.setThresholds(5, {});
    session.editTag(session.tagEntry(5));
    EXPECT_EQ(session.undoStack().count(), 0);
    EXPECT_EQ(broadcasts(), Words{});
}

TEST_F(SessionTags, TheBackgroundAndTagsThatAreNotThereCannotBeEdited)
{
    for (const unsigned tag : {0u, 16u, 255u, 256u, 5000u}) {
        session.setTagColour(tag, Qt::red);
        session.setThresholds(tag, Thresholds{1, 2});
        session.editTag({.tag = static_cast<int>(tag), .name = "X"});
        EXPECT_EQ(session.thresholds(tag), std::nullopt) << tag;
    }
    session.editTag({.tag = -1, .name = "X"});
    EXPECT_EQ(session.undoStack().count(), 0);
    EXPECT_FALSE(session.isModified());
}

TEST_F(SessionTags, AnEditOfSeveralThingsIsOneStep)
{
    document::LabelEntry liver = session.tagEntry(3);
    liver.name = "Liver";
    liver.red = 7;
    liver.thresholds = Thresholds{40, 60};
    session.editTag(liver);
    EXPECT_EQ(undo_text(), "Edit Liver");
    EXPECT_EQ(broadcasts(), (Words{names, colours}));
    EXPECT_EQ(session.tagName(3), "Liver");
    EXPECT_EQ(session.undoStack().count(), 1);
    undo();
    EXPECT_EQ(session.tagName(3), "");
    EXPECT_EQ(session.thresholds(3), std::nullopt);
    EXPECT_FALSE(session.isModified());
}

TEST_F(SessionTags, ANameIsRenamedByTheDialogAsByThePanel)
{
    document::LabelEntry liver = session.tagEntry(3);
    liver.name = "Liver";
    session.editTag(liver);
    EXPECT_EQ(undo_text(), "Rename Tag 3 to Liver");
    rename_in_panel(3, "Leber");
    EXPECT_EQ(undo_text(), "Rename Liver to Leber");
    EXPECT_EQ(session.undoStack().count(), 2);
}

TEST_F(SessionTags, RenamingsThatComeTogetherAreStepsOfTheirOwn)
{
    {
        const hostkit::Panel_Call call;
        hostkit::Tag_Label_Set(3, "Liver");
        hostkit::Tag_Label_Set(4, "Spleen");
        Fct_Update(names, nullptr, nullptr, nullptr);
    }
    EXPECT_EQ(session.undoStack().count(), 2);
    EXPECT_EQ(session.tagName(3), "Liver");
    undo();
    EXPECT_EQ(session.tagName(3), "Liver");
    EXPECT_EQ(session.tagName(4), "");
}

// ------------------------------------------------------------------------------------------------------ saved or not

TEST_F(SessionTags, NamesColoursAndThresholdsAreUnsavedWork)
{
    QSignalSpy told(&session, &workbench::Session::titleChanged);
    const auto expect_unsaved_until_undone = [&] {
        EXPECT_TRUE(session.isModified());
        EXPECT_TRUE(session.isTableModified());
        EXPECT_FALSE(session.areLabelsModified());
        undo();
        EXPECT_FALSE(session.isModified());
    };
    rename_in_panel(1, "Liver");
    expect_unsaved_until_undone();
    session.setTagColour(1, Qt::red);
    expect_unsaved_until_undone();
    session.setThresholds(1, Thresholds{1, 2});
    expect_unsaved_until_undone();
    EXPECT_EQ(told.size(), 6);
}

TEST_F(SessionTags, ModifiedIsExactThroughSavingAndUndo)
{
    open(32, 32, 1);
    rename_in_panel(1, "Liver");
    session.setThresholds(1, Thresholds{1, 2});
    save_table();
    EXPECT_FALSE(session.isModified());
    undo();
    EXPECT_TRUE(session.isModified());
    redo();
    EXPECT_FALSE(session.isModified());
    paint({10, 10});
    EXPECT_TRUE(session.isModified());
    EXPECT_FALSE(session.isTableModified());
    session.markSaved("/tmp/a.nrrd", *session.snapshot());
    EXPECT_FALSE(session.isModified());
    undo();
    undo();
    EXPECT_TRUE(session.areLabelsModified());
    EXPECT_TRUE(session.isTableModified());
    session.setThresholds(1, Thresholds{1, 2}); // typed again: as in the file
    EXPECT_FALSE(session.isTableModified());
}

TEST_F(SessionTags, AnEditWhileSavingStaysUnsaved)
{
    rename_in_panel(1, "Liver");
    const auto saving = session.tableSnapshot();
    rename_in_panel(1, "Spleen");
    EXPECT_EQ(saving.rows[1].name, "Liver");
    session.markTableSaved(saving.state);
    EXPECT_TRUE(session.isModified());
    undo();
    EXPECT_FALSE(session.isModified());
}

TEST_F(SessionTags, TagsStayWithTheNextImage)
{
    open(8, 8, 1);
    rename_in_panel(1, "Liver");
    session.setThresholds(1, Thresholds{1, 2});
    open(9, 9, 1);
    EXPECT_EQ(session.tagName(1), "Liver");
    EXPECT_EQ(session.thresholds(1), (Thresholds{1, 2}));
    EXPECT_TRUE(session.isTableModified());
    EXPECT_FALSE(session.areLabelsModified());
}

// ------------------------------------------------------------------------------------------------------------ tables

TEST_F(SessionTags, ATableNeedsAFileOnlyWhenItSaysSomething)
{
    EXPECT_FALSE(session.needsTable());
    session.setThresholds(1, Thresholds{1, 2});
    EXPECT_TRUE(session.needsTable());
    undo();
    EXPECT_FALSE(session.needsTable());
    session.setTagColour(1, Qt::red);
    EXPECT_TRUE(session.needsTable());
    undo();
    rename_in_panel(15, "Liver");
    EXPECT_TRUE(session.needsTable());
}

TEST_F(SessionTags, ASavedTableHasARowForEachTagThatIsShown)
{
    rename_in_panel(3, "Liver");
    session.setThresholds(3, Thresholds{-1, 1});
    ASSERT_EQ(session.tableSnapshot().rows.size(), 16u);
    EXPECT_EQ(row(0), (document::LabelEntry{.opacity = 0, .visible = false, .mesh = false, .name = "Clear Label"}));
    const QColor colour = session.tagColour(3);
    EXPECT_EQ(row(3), (document::LabelEntry{.tag = 3,
                          .red = std::uint8_t(colour.red()),
                          .green = std::uint8_t(colour.green()),
                          .blue = std::uint8_t(colour.blue()),
                          .name = "Liver",
                          .thresholds = Thresholds{-1, 1}}));
}

TEST_F(SessionTags, ALoadedTableIsOneStep)
{
    rename_in_panel(3, "Liver");
    session.setThresholds(3, Thresholds{1, 2});
    broadcasts();
    QSignalSpy told(&session, &workbench::Session::thresholdsChanged);
    session.adoptTable({spleen, vessel, unheard_of}, "/tmp/organs.label");
    EXPECT_EQ(undo_text(), "Load organs.label");
    EXPECT_FALSE(session.isModified());
    EXPECT_EQ(broadcasts(), (Words{names, colours}));
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(session.tagName(2), "Spleen");
    EXPECT_EQ(session.tagColour(2), QColor(10, 20, 30));
    EXPECT_EQ(session.tagName(3), ""); // the table does not know it
    EXPECT_EQ(session.thresholds(3), std::nullopt);
    EXPECT_EQ(session.thresholds(20), (Thresholds{100, 300}));

    undo();
    EXPECT_EQ(session.tagName(2), "");
    EXPECT_EQ(session.tagName(3), "Liver");
    EXPECT_EQ(session.thresholds(3), (Thresholds{1, 2}));
    EXPECT_TRUE(session.isModified());
    redo();
    EXPECT_EQ(session.tagName(20), "Vessel");
    EXPECT_FALSE(session.isModified());
}

TEST_F(SessionTags, NothingOfALoadedTableIsLost)
{
    const document::LabelEntry background = {.tag = 0, .red = 3, .name = "Air"};
    session.adoptTable({vessel, background, unheard_of, spleen}, "/tmp/organs.label");
    EXPECT_EQ(row(0), background);
    EXPECT_EQ(row(2), spleen);
    EXPECT_EQ(row(20), vessel);
    EXPECT_EQ(row(4711), unheard_of);
    EXPECT_EQ(session.tagTitle(0), "Background");

    rename_in_panel(2, "Milz");
    document::LabelEntry renamed = spleen;
    renamed.name = "Milz";
    EXPECT_EQ(row(2), renamed);
    EXPECT_EQ(row(4711), unheard_of);
}

TEST_F(SessionTags, ThereIsRoomForAllTagsOfATable)
{
    session.adoptTable({vessel}, "/tmp/organs.label");
    EXPECT_EQ(session.tagCount(), 21u);
    session.setThresholds(20, {});
    EXPECT_EQ(undo_text(), "Clear thresholds of Vessel");
    session.setCurrentTag(20);
    undo();
    undo();
    EXPECT_EQ(session.tagCount(), 21u); // nobody loses the tag that is being painted with
    EXPECT_EQ(session.currentTag(), 20u);
    EXPECT_EQ(session.tagName(20), "");
    session.adoptTable({{.tag = 255, .name = "Last"}}, "/tmp/organs.label");
    EXPECT_EQ(session.tagCount(), 256u);
    EXPECT_EQ(row_tags().back(), 255);
}

TEST_F(SessionTags, TheSameTableIsNoStepButSaved)
{
    rename_in_panel(3, "Liver");
    const auto rows = session.tableSnapshot().rows;
    EXPECT_TRUE(session.isModified());
    session.adoptTable(rows, "/tmp/organs.label");
    EXPECT_EQ(session.undoStack().count(), 1);
    EXPECT_FALSE(session.isModified());
}

TEST_F(SessionTags, LabelsAndTheirTableAreOneStep)
{
    open(8, 8, 3);
    rename_in_panel(1, "Liver");
    auto labels = document::LabelMap::create(session.volume().geometry);
    labels->set(1, 2, 0, 2);
    EXPECT_FALSE(session.adoptLabels(*labels, "/tmp/seg.nii.gz", document::LabelTable{spleen}));
    EXPECT_EQ(undo_text(), "Load seg.nii.gz");
    EXPECT_EQ(session.undoStack().count(), 2);
    EXPECT_EQ(session.tagName(2), "Spleen");
    EXPECT_EQ(painted(2), 1u);
    EXPECT_FALSE(session.isModified());
    undo();
    EXPECT_EQ(session.tagName(1), "Liver");
    EXPECT_EQ(session.tagName(2), "");
    EXPECT_EQ(painted(2), 0u);
    EXPECT_TRUE(session.areLabelsModified());
    EXPECT_TRUE(session.isTableModified());
    redo();
    EXPECT_EQ(painted(2), 1u);
    EXPECT_FALSE(session.isModified());
    undo();
    undo();
    EXPECT_FALSE(session.needsTable());
}

TEST_F(SessionTags, LabelsWithoutTableLeaveTheTags)
{
    open(8, 8, 3);
    rename_in_panel(1, "Liver");
    auto labels = document::LabelMap::create(session.volume().geometry);
    labels->set(1, 2, 0, 2);
    EXPECT_FALSE(session.adoptLabels(*labels, "/tmp/seg.nii.gz"));
    EXPECT_EQ(session.tagName(1), "Liver");
    EXPECT_FALSE(session.areLabelsModified());
    EXPECT_TRUE(session.isTableModified()); // no file holds the name
    undo();
    EXPECT_EQ(session.tagName(1), "Liver");
    EXPECT_EQ(painted(2), 0u);
}

}
