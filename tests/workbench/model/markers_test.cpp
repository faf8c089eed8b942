#include "tests/workbench/session_fixture.h"
#include "workbench/model/markers.h"

#include <QSignalSpy>

namespace {

constexpr unsigned long long current = 1ull << 22;
constexpr unsigned long long colours = 1ull << 38;
constexpr unsigned long long enables = 1ull << 45;
constexpr unsigned long long names = 1ull << 47;
using Words = std::vector<unsigned long long>;
using Position = std::array<double, 3>;

class Markers : public test::SessionTest {
protected:
    Markers()
    {
        open(40, 30, 9, {2, 3, 4});
        broadcasts();
    }

    void set(QPointF pixel)
    {
        const QString refused = markers.beginSetting(pixel);
        ASSERT_TRUE(refused.isEmpty()) << refused.toStdString();
        markers.endMoving();
    }

    void move(unsigned marker, QPointF pixel)
    {
        markers.beginMoving(marker);
        markers.moveTo(pixel);
        markers.endMoving();
    }

    // As the marker panel does when a name was typed.
    static void rename_in_panel(unsigned marker, const char* name)
    {
        const hostkit::Panel_Call call;
        hostkit::Marker_Label_Set(marker, name);
        Fct_Update(names, nullptr, nullptr, nullptr);
    }

    Position position(unsigned marker) const { return markers.at(marker).position.value_or(Position{-1, -1, -1}); }
    QString undo_text() { return session.undoStack().undoText(); }
    int steps() { return session.undoStack().count(); }
    void undo() { session.undoStack().undo(); }
    void redo() { session.undoStack().redo(); }
    void save() { markers.markSaved("/tmp/points.mrk.json", markers.snapshot()); }

    workbench::Markers& markers = session.markers();
};

TEST_F(Markers, BeginWithOneRowOfThePanelAndNoneSet)
{
    EXPECT_EQ(markers.count(), 4u);
    EXPECT_EQ(markers.current(), 0u);
    for (unsigned marker = 0; marker < 64; ++marker) {
        EXPECT_FALSE(markers.isSet(marker));
        EXPECT_FALSE(markers.place(marker));
    }
    EXPECT_EQ(markers.title(0), "Marker 0");
    EXPECT_FALSE(session.isModified());
}

TEST_F(Markers, AreSetInMillimetres)
{
    QSignalSpy told(&markers, &workbench::Markers::changed);
    session.setFrame(5);
    set({10.5, 20.25});
    EXPECT_EQ(position(0), (Position{20, 3 * 19.75, 20}));
    EXPECT_EQ(markers.place(0)->pixel, QPointF(10.5, 20.25));
    EXPECT_EQ(markers.place(0)->frame, 5);
    EXPECT_EQ(undo_text(), "Set Marker 0");
    EXPECT_GT(told.size(), 0);
    undo();
    EXPECT_FALSE(markers.isSet(0));
    redo();
    EXPECT_EQ(position(0), (Position{20, 3 * 19.75, 20}));
    EXPECT_EQ(steps(), 1);
}

TEST_F(Markers, TheCurrentOneIsSetAndThenTheFirstThatIsNot)
{
    markers.setCurrent(2);
    for (int i = 0; i < 3; ++i)
        set({5.0 + i, 5});
    EXPECT_TRUE(markers.isSet(0) && markers.isSet(1) && markers.isSet(2));
    EXPECT_EQ(markers.current(), 1u);
    EXPECT_EQ(markers.place(2)->pixel.x(), 5);
    EXPECT_EQ(markers.place(0)->pixel.x(), 6);
    EXPECT_FALSE(markers.isSet(3));
}

TEST_F(Markers, AreAsManyAsNeededInRowsOfFourAndNeverMoreThan64)
{
    for (unsigned marker = 0; marker < 64; ++marker) {
        set({marker % 40 + 0.5, 3});
        EXPECT_EQ(markers.count(), (marker / 4 + 1) * 4);
        EXPECT_EQ(markers.current(), marker);
    }
    EXPECT_EQ(markers.beginSetting({1, 1}), "All 64 markers are set. Delete one, or move it.");
    EXPECT_FALSE(markers.isMoving());
    EXPECT_EQ(steps(), 64);
    undo();
    EXPECT_EQ(markers.count(), 64u); // nobody loses the current one
    markers.remove(7);
    set({20, 20});
    EXPECT_EQ(markers.current(), 63u);
    set({20, 20});
    EXPECT_EQ(markers.current(), 7u);
}

TEST_F(Markers, AreNotSetBesideTheImage)
{
    for (const QPointF beside : {QPointF(-0.1, 5), QPointF(40.1, 5), QPointF(5, 30.5)})
        EXPECT_EQ(markers.beginSetting(beside), "That is beside the image. Click where the marker should be.");
    EXPECT_EQ(steps(), 0);
    EXPECT_EQ(broadcasts(), Words{});
}

TEST_F(Markers, AMoveIsOneStep)
{
    set({10.5, 10.5});
    markers.beginMoving(0);
    markers.moveTo({12, 10});
    markers.moveTo({20.5, 15.5});
    EXPECT_EQ(markers.place(0)->pixel, QPointF(20.5, 15.5));
    markers.endMoving();
    EXPECT_EQ(steps(), 2);
    EXPECT_EQ(undo_text(), "Move Marker 0");
    undo();
    EXPECT_EQ(markers.place(0)->pixel, QPointF(10.5, 10.5));
    redo();
    EXPECT_EQ(markers.place(0)->pixel, QPointF(20.5, 15.5));
}

TEST_F(Markers, AMoveThereAndBackIsNoStep)
{
    set({10.5, 10.5});
    markers.beginMoving(0);
    markers.moveTo({12, 10});
    markers.moveTo({10.5, 10.5});
    markers.endMoving();
    EXPECT_EQ(steps(), 1);
    EXPECT_FALSE(markers.isMoving());
}

TEST_F(Markers, AMoveEndsAtTheEdgeOfTheImage)
{
    set({10, 10});
    move(0, {-100, 1000});
    EXPECT_EQ(markers.place(0)->pixel, QPointF(0, 30));
}

TEST_F(Markers, AMoveKeepsThePlaceBetweenFrames)
{
    markers.adopt({{.position = Position{10, 10, 4 * 4.25}}}, "/tmp/points.csv");
    session.setFrame(4);
    move(0, {20.5, 10.5});
    EXPECT_EQ(position(0), (Position{40, 30, 17}));
}

TEST_F(Markers, WhatIsHeldCanBeTakenBack)
{
    markers.beginSetting({10, 10});
    markers.cancelMoving();
    EXPECT_FALSE(markers.isSet(0));
    set({10, 10});
    save();
    markers.beginMoving(0);
    markers.moveTo({20, 20});
    EXPECT_TRUE(markers.isModified());
    markers.cancelMoving();
    EXPECT_EQ(markers.place(0)->pixel, QPointF(10, 10));
    EXPECT_FALSE(markers.isModified());
    EXPECT_EQ(steps(), 1);
}

TEST_F(Markers, AnUndoLetsGoOfWhatIsHeld)
{
    set({10, 10});
    move(0, {12, 12});
    markers.beginMoving(0);
    markers.moveTo({20, 20});
    undo();
    EXPECT_FALSE(markers.isMoving());
    EXPECT_EQ(markers.place(0)->pixel, QPointF(10, 10));
    markers.moveTo({30, 20});
    markers.endMoving();
    EXPECT_EQ(markers.place(0)->pixel, QPointF(10, 10));
    redo();
    EXPECT_EQ(markers.place(0)->pixel, QPointF(12, 12));
}

TEST_F(Markers, ADeletedOneIsAsInTheBeginning)
{
    const QColor usual = markers.colour(0);
    set({10, 10});
    rename_in_panel(0, "Nasion");
    markers.setColour(0, Qt::white);
    markers.setShown(0, false);
    broadcasts();
    markers.remove(0);
    EXPECT_EQ(undo_text(), "Delete Nasion");
    EXPECT_FALSE(markers.isSet(0));
    EXPECT_EQ(markers.name(0), "");
    EXPECT_EQ(markers.colour(0), usual);
    EXPECT_TRUE(markers.at(0).enabled);
    EXPECT_EQ(broadcasts(), (Words{names, enables, colours}));
    undo();
    EXPECT_EQ(markers.name(0), "Nasion");
    EXPECT_EQ(markers.colour(0), QColor(Qt::white));
    EXPECT_FALSE(hostkit::Marker_Enabled(0));
    EXPECT_TRUE(markers.isSet(0));
}

TEST_F(Markers, ColoursAndShowingAreSteps)
{
    markers.setColour(0, QColor(1, 128, 255)); // marker 0 is one like the others
    EXPECT_EQ(hostkit::Array_Variable<unsigned>("$MARKER_COLOR")[0], 0xFF8001u);
    EXPECT_EQ(undo_text(), "Set colour of Marker 0");
    EXPECT_EQ(broadcasts(), Words{colours});
    markers.setShown(3, false);
    EXPECT_EQ(hostkit::Array_Variable<unsigned char>("$MARKER_ENABLE")[3], 0);
    EXPECT_EQ(undo_text(), "Hide Marker 3");
    EXPECT_EQ(broadcasts(), Words{enables});
    markers.setShown(3, true);
    EXPECT_EQ(undo_text(), "Show Marker 3");
    undo();
    EXPECT_FALSE(markers.at(3).enabled);
    EXPECT_EQ(broadcasts(), (Words{enables, enables}));
    markers.setShown(3, false);
    markers.setColour(0, QColor(1, 128, 255));
    markers.remove(1);
    EXPECT_EQ(steps(), 3); // what is as before is none, but the undone one can still be redone
}

TEST_F(Markers, NamesAreStepsMarkerZerosToo)
{
    markers.setName(0, QString::fromUtf8("Naht\xc3\xa4"));
    EXPECT_STREQ(hostkit::Marker_Label(0), "Naht\xc3\xa4");
    EXPECT_EQ(broadcasts(), Words{names});
    EXPECT_EQ(undo_text(), QString::fromUtf8("Rename Marker 0 to Naht\xc3\xa4"));
    markers.setName(0, QString::fromUtf8("Naht\xc3\xa4"));
    EXPECT_EQ(steps(), 1);
    markers.setName(0, QString::fromLatin1("a\0b", 3)); // which the host would cut
    EXPECT_EQ(markers.name(0), "ab");
    markers.setName(0, {});
    EXPECT_EQ(undo_text(), "Clear the name of ab");
    EXPECT_EQ(hostkit::Marker_Label(0), nullptr);
    undo();
    EXPECT_STREQ(hostkit::Marker_Label(0), "ab");
}

TEST_F(Markers, ThatAreNotThereCannotBeChanged)
{
    for (const unsigned marker : {4u, 63u, 64u, 5000u}) {
        markers.setName(marker, "Nowhere");
        markers.setColour(marker, Qt::red);
        markers.setShown(marker, false);
        markers.remove(marker);
        markers.beginMoving(marker);
        markers.setCurrent(marker);
        markers.show(marker);
    }
    markers.beginMoving(1); // not set
    markers.moveTo({5, 5});
    markers.endMoving();
    EXPECT_EQ(steps(), 0);
    EXPECT_EQ(broadcasts(), Words{});
}

TEST_F(Markers, RenamingsOfThePanelAreSteps)
{
    QSignalSpy told(&markers, &workbench::Markers::changed);
    rename_in_panel(1, "Nasion");
    rename_in_panel(1, "Inion");
    EXPECT_EQ(undo_text(), "Rename Nasion to Inion");
    EXPECT_EQ(told.size(), 2);
    rename_in_panel(1, "");
    EXPECT_EQ(undo_text(), "Clear the name of Inion");
    EXPECT_EQ(steps(), 3);
    broadcasts();
    undo();
    undo();
    EXPECT_STREQ(hostkit::Marker_Label(1), "Nasion");
    EXPECT_EQ(broadcasts(), (Words{names, names}));
    Fct_Update(names, nullptr, nullptr, nullptr);
    EXPECT_EQ(steps(), 3);
}

TEST_F(Markers, TagsAndMarkersShareTheWordOfNames)
{
    rename_in_panel(1, "Nasion");
    {
        const hostkit::Panel_Call call;
        hostkit::Tag_Label_Set(1, "Liver");
        Fct_Update(names, nullptr, nullptr, nullptr);
    }
    EXPECT_EQ(steps(), 2);
    EXPECT_EQ(undo_text(), "Rename Tag 1 to Liver");
    EXPECT_EQ(session.tagName(1), "Liver");
    EXPECT_EQ(markers.name(1), "Nasion");
    undo();
    EXPECT_EQ(markers.name(1), "Nasion");
    EXPECT_EQ(session.tagName(1), "");
}

TEST_F(Markers, ThatSomeoneElseHidesAreHidden)
{
    hostkit::Marker_Enable(2, false);
    Fct_Update(enables, nullptr, nullptr, nullptr);
    EXPECT_FALSE(markers.at(2).enabled);
    EXPECT_EQ(undo_text(), "Hide Marker 2");
    undo();
    EXPECT_TRUE(hostkit::Marker_Enabled(2));
}

TEST_F(Markers, UndoShowsWhereItHappened)
{
    session.setFrame(2);
    set({10, 10});
    session.setFrame(7);
    set({10, 10});
    session.setFrame(0);
    undo();
    EXPECT_EQ(session.frame(), 7) << "where one was";
    undo();
    EXPECT_EQ(session.frame(), 2);
    session.setFrame(0);
    redo();
    EXPECT_EQ(session.frame(), 2);
    redo();
    EXPECT_EQ(session.frame(), 7);
    markers.remove(0);
    undo();
    EXPECT_EQ(session.frame(), 2);
    session.setFrame(0);
    redo();
    EXPECT_EQ(session.frame(), 2);
}

TEST_F(Markers, AreGoneThroughRoundAndRound)
{
    EXPECT_FALSE(markers.showNext(1));
    session.setFrame(1);
    set({10, 10});
    session.setFrame(7);
    markers.setCurrent(3);
    set({10, 10});
    QSignalSpy told(&markers, &workbench::Markers::currentChanged);
    broadcasts();
    EXPECT_TRUE(markers.showNext(1));
    EXPECT_EQ(markers.current(), 0u);
    EXPECT_EQ(session.frame(), 1);
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(broadcasts().front(), current);
    EXPECT_TRUE(markers.showNext(-1));
    EXPECT_EQ(markers.current(), 3u);
    EXPECT_EQ(session.frame(), 7);
    markers.show(1); // not set
    EXPECT_EQ(markers.current(), 1u);
    EXPECT_EQ(session.frame(), 7);
}

// ------------------------------------------------------------------------------------------------------------- files

TEST_F(Markers, ModifiedIsExactThroughSavingAndUndo)
{
    QSignalSpy told(&session, &workbench::Session::titleChanged);
    set({10, 10});
    EXPECT_TRUE(session.isModified());
    EXPECT_TRUE(session.isImageWorkModified());
    EXPECT_FALSE(session.areLabelsModified());
    EXPECT_FALSE(session.isTableModified());
    save();
    EXPECT_FALSE(session.isModified());
    EXPECT_EQ(markers.path(), "/tmp/points.mrk.json");
    undo();
    EXPECT_TRUE(session.isModified());
    redo();
    EXPECT_FALSE(session.isModified());
    markers.setShown(0, false);
    markers.setShown(0, true);
    EXPECT_FALSE(session.isModified());
    EXPECT_GE(told.size(), 6);
}

TEST_F(Markers, AnEditWhileSavingStaysUnsaved)
{
    set({10, 10});
    const auto saving = markers.snapshot();
    set({12, 12});
    markers.markSaved("/tmp/points.mrk.json", saving);
    EXPECT_TRUE(markers.isModified());
    undo();
    EXPECT_FALSE(markers.isModified());
}

TEST_F(Markers, ASavedListEndsWithTheLastThatSaysAnything)
{
    EXPECT_TRUE(markers.snapshot().rows.empty());
    markers.setCurrent(2);
    set({10.5, 10.5});
    const auto rows = markers.snapshot().rows;
    ASSERT_EQ(rows.size(), 3u); // the numbers of markers without names stay
    EXPECT_FALSE(rows[0].position);
    EXPECT_TRUE(rows[2].position);
    EXPECT_TRUE(rows[2].colour);
}

TEST_F(Markers, LoadedOnesAreOneStep)
{
    set({10, 10});
    set({20, 10});
    document::MarkerList file(6);
    file[1] = {.label = "Nasion", .position = Position{2, 3, 4}, .enabled = false, .colour = document::Rgb{1, 2, 3}};
    file[5] = {.label = "Away", .position = Position{-200, 0, 1e300}};
    broadcasts();
    EXPECT_EQ(markers.adopt(file, "/tmp/points.mrk.json"), 1);
    EXPECT_EQ(undo_text(), "Load points.mrk.json");
    EXPECT_EQ(broadcasts(), (Words{names, enables, colours}));
    EXPECT_FALSE(markers.isModified());
    EXPECT_EQ(markers.path(), "/tmp/points.mrk.json");
    EXPECT_EQ(markers.count(), 8u);
    EXPECT_FALSE(markers.isSet(0));
    EXPECT_EQ(markers.name(1), "Nasion");
    EXPECT_EQ(markers.colour(1), QColor(1, 2, 3));
    EXPECT_EQ(markers.place(1)->frame, 1);
    EXPECT_EQ(markers.place(5)->frame, 9);
    undo();
    EXPECT_TRUE(markers.isSet(0));
    EXPECT_EQ(markers.name(1), "");
    EXPECT_TRUE(markers.isModified());
    redo();
    EXPECT_EQ(markers.adopt(markers.snapshot().rows, "/tmp/points.mrk.json"), 1);
    EXPECT_EQ(steps(), 3);
}

TEST_F(Markers, AnotherImageBeginsWithoutAny)
{
    for (int i = 0; i < 6; ++i)
        set({5.0 + i, 5});
    rename_in_panel(1, "Nasion");
    const auto saving = markers.snapshot();
    QSignalSpy told(&markers, &workbench::Markers::changed);
    open(20, 20, 3);
    EXPECT_EQ(markers.count(), 4u);
    EXPECT_EQ(markers.current(), 0u);
    EXPECT_FALSE(markers.isSet(0));
    EXPECT_EQ(markers.name(1), "");
    EXPECT_FALSE(session.isImageWorkModified());
    EXPECT_EQ(markers.path(), "");
    EXPECT_EQ(steps(), 0);
    EXPECT_GT(told.size(), 0);
    EXPECT_TRUE(session.isModified());
    markers.markSaved("/tmp/late.mrk.json", saving); // it belongs to the image before
    EXPECT_EQ(markers.path(), "");
    EXPECT_FALSE(session.isModified());
    session.showSeries(session.series()[0]);
    EXPECT_EQ(markers.path(), "/tmp/late.mrk.json");
    EXPECT_EQ(markers.count(), 8u);
    EXPECT_EQ(markers.name(1), "Nasion");
    EXPECT_TRUE(markers.isSet(5));
    undo();
    EXPECT_EQ(markers.name(1), "");
}

TEST(MarkersWithoutImage, CanBeNamedButLieNowhere)
{
    workbench::Session session;
    workbench::Markers& markers = session.markers();
    markers.setColour(1, Qt::red);
    EXPECT_TRUE(session.isModified());
    EXPECT_FALSE(markers.showNext(1));
    EXPECT_FALSE(markers.place(1));
    markers.beginMoving(1);
    EXPECT_FALSE(markers.isMoving());
}

}
