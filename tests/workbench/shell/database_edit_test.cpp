#include "hostkit/structures/tree.h"
#include "tests/workbench/shell/database_fixture.h"
#include "workbench/shell/class_rows.h"
#include "workbench/shell/class_trees.h"
#include "workbench/shell/database_editor.h"
#include "workbench/tour/database_rows.h"

#include <QAction>
#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <optional>

using namespace workbench;
using namespace test;

namespace {

class DatabaseEditing : public Database {
protected:
    // Opens the series and the window that edits the database.
    void edit()
    {
        browse();
        openEditor();
        ASSERT_TRUE(editor);
        ASSERT_EQ(diagram().nb, 17);
    }

    void openEditor()
    {
        driver.key(Qt::Key_D, Qt::ShiftModifier);
        editor = dock.editor();
        ASSERT_TRUE(editor);
        hand.emplace(*editor);
        activate(*editor);
    }

    void closeEditor()
    {
        editor->close();
        Driver::settle();
        activate(window);
    }

    static void activate(QWidget& one)
    {
        one.activateWindow();
        Driver::waitFor([&] { return one.isActiveWindow(); });
    }

    Tool_DB_Class& diagram() const { return editor->trees().panel(); }
    const QWidget& paper() const { return editor->trees().panelWidget(); }

    // The row of a class: "Series 1: Liver".
    int rowOf(const QString& label)
    {
        for (int row = 0; row < diagram().nb; ++row)
            if (session.databaseEdits().label(objectOf(diagram(), row)) == label)
                return row;
        ADD_FAILURE() << label.toStdString();
        return 0;
    }
    QPoint place(const QString& label, db::Diagram_Part part)
    {
        return diagramPlace(diagram(), paper(), rowOf(label), part);
    }
    void drag(const QString& from, db::Diagram_Part handle, const QString& to)
    {
        const QPoint begin = place(from, handle), end = place(to, db::children_handle);
        hand->drag(paper(), {begin, (begin + end) / 2, end});
    }
    void point(const QString& label) { hand->moveTo(paper(), place(label, db::box_body)); }
    void press(const QString& button)
    {
        for (const auto* one : editor->findChildren<QToolButton*>())
            if (one->text() == button)
                return hand->click(*one, middleOf(*one));
        ADD_FAILURE() << button.toStdString();
    }

    static QInputDialog* nameDialog() { return qobject_cast<QInputDialog*>(QApplication::activeModalWidget()); }
    static void enterName(const QString& name)
    {
        ASSERT_TRUE(nameDialog());
        nameDialog()->findChild<QLineEdit*>()->setText(name);
        nameDialog()->accept();
        Driver::settle();
    }

    // "Images(Study(...))", as the list of the dock has it.
    std::string tree() const { return textOf(hostkit::Root_2D()); }
    static std::string textOf(const Strato_2D* object)
    {
        std::string text = object->Name_Get();
        text = text.substr(0, text.find(','));
        for (int i = 0; i < object->Child_Get_Nb(); ++i)
            text += (i == 0 ? "(" : " ") + textOf(object->Child_Get_Pt(i));
        return text + (object->Child_Get_Nb() > 0 ? ")" : "");
    }

    QString undoText() { return session.databaseEdits().steps().undoText(); }

    DatabaseEditor* editor = nullptr;
    std::optional<Driver> hand; // at work in it
    const QString liver = "Series 1: Liver", axial = "Series 2: Axial T1";
    const std::string asOpened = "Images(Doe Jane(1: Scout(1) 2: Axial T1(1 2 3 4 5 6)) Doe Jane(1: Liver(1 2 3 4)))";
};

}

TEST_F(DatabaseEditing, IsAWindowOfItsOwnThatOpensAndClosesWithAKey)
{
    browse();
    EXPECT_FALSE(dock.editor());
    openEditor();
    EXPECT_TRUE(editor->isWindow() && editor->isVisible());
    EXPECT_TRUE(dock.editAction()->isChecked());
    hand->key(Qt::Key_D, Qt::ShiftModifier);
    EXPECT_FALSE(dock.editor());
    EXPECT_FALSE(dock.editAction()->isChecked());
    activate(window);
    auto* button = dock.findChild<QToolButton*>("editDatabase");
    ASSERT_TRUE(button);
    driver.click(*button, middleOf(*button));
    ASSERT_TRUE(dock.editor());
    dock.editor()->close();
    Driver::settle();
    EXPECT_FALSE(dock.editAction()->isChecked());
}

TEST_F(DatabaseEditing, ASliceIsMovedToAnotherSeries)
{
    edit();
    ASSERT_EQ(tree(), asOpened);
    drag("Frame 2, 2.5 mm", db::parent_handle, liver);
    const std::string moved = "Images(Doe Jane(1: Scout(1) 2: Axial T1(1 3 4 5 6)) Doe Jane(1: Liver(1 2 3 4 2)))";
    EXPECT_EQ(tree(), moved);
    EXPECT_EQ(undoText(), "Move Frame 2, 2.5 mm to Series 1: Liver");
    EXPECT_STREQ(list.list_pt[16].name, "2, 2.5 mm") << "the list follows";
    EXPECT_EQ(session.frameCount(), 6) << "the image is whole";
    keepPicture(*editor, "workbench-edit-moved");
    hand->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(tree(), asOpened);
    hand->key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(tree(), moved);
    EXPECT_EQ(session.undoStack().count(), 0) << "the image's steps are others";
}

TEST_F(DatabaseEditing, ABroodIsMovedAtOnceAndASeriesNeverIntoItself)
{
    edit();
    drag(liver, db::children_handle, axial);
    EXPECT_EQ(tree(), "Images(Doe Jane(1: Scout(1) 2: Axial T1(1 2 3 4 5 6 1 2 3 4)) Doe Jane(1: Liver))");
    EXPECT_EQ(undoText(), "Move 4 classes to Series 2: Axial T1");
    press("Undo");
    EXPECT_EQ(tree(), asOpened);
    drag("Root Images", db::children_handle, liver);
    EXPECT_EQ(session.databaseEdits().steps().index(), 1) << tree() << " only the other study could go";
    press("Undo");
    EXPECT_EQ(tree(), asOpened);
}

TEST_F(DatabaseEditing, DeleteTakesOutTheClassUnderThePointerAndNoOther)
{
    edit();
    point("Frame 3, 5 mm");
    hand->key(Qt::Key_Delete);
    EXPECT_EQ(undoText(), "Delete Frame 3, 5 mm");
    EXPECT_EQ(session.databaseEdits().steps().count(), 1);
    EXPECT_EQ(session.selection().count(), 5);
    point(axial);
    hand->key(Qt::Key_Delete);
    EXPECT_EQ(tree(), "Images(Doe Jane(1: Scout(1) 1 2 4 5 6) Doe Jane(1: Liver(1 2 3 4)))");
    EXPECT_EQ(session.frameCount(), 6);
    keepPicture(*editor, "workbench-edit-deleted");
    point("Root Images");
    hand->key(Qt::Key_Delete);
    EXPECT_EQ(session.databaseEdits().steps().count(), 2);
    hand->key(Qt::Key_Z, Qt::ControlModifier);
    hand->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(tree(), asOpened);
    EXPECT_EQ(session.selection().count(), 6);
}

TEST_F(DatabaseEditing, AFoldedSeriesShowsOnlyItsFirstSlice)
{
    edit();
    hand->click(paper(), place(axial, db::fold_handle));
    const int folded = rowOf(axial);
    EXPECT_EQ(diagram().list_pt[folded + 1].line, diagram().list_pt[folded].line);
    EXPECT_EQ(diagram().list_pt[folded + 2].line, 65535);
    EXPECT_FALSE(session.databaseEdits().steps().canUndo());
    keepPicture(*editor, "workbench-edit-folded");
}

TEST_F(DatabaseEditing, F2RenamesTheClassUnderThePointerOrTheOneThatWasClicked)
{
    edit();
    point(liver);
    hand->key(Qt::Key_F2);
    ASSERT_TRUE(nameDialog());
    EXPECT_EQ(nameDialog()->textValue(), "1: Liver");
    keepPicture(*nameDialog(), "workbench-edit-rename");
    enterName("Hepar");
    EXPECT_EQ(undoText(), "Rename Series 1: Liver");
    EXPECT_STREQ(list.list_pt[12].name, "Hepar");
    hand->click(paper(), place(axial, db::box_body));
    press("Rename...");
    enterName("");
    EXPECT_EQ(undoText(), "Rename Series 2: Axial T1");
    EXPECT_EQ(list.list_pt[row(seriesLevel, 3)].name, nullptr);
    press("Undo");
    press("Undo");
    EXPECT_EQ(tree(), asOpened);
}

TEST_F(DatabaseEditing, TheRightButtonRenamesInTheLibrarysDialog)
{
    edit();
    QTimer opened;
    opened.callOnTimeout([&] {
        QWidget* const dialog = QApplication::activeModalWidget();
        if (!dialog)
            return;
        opened.stop();
        Driver inside(*dialog);
        QTest::mouseRelease(dialog->windowHandle(), Qt::RightButton); // that opened it
        inside.type("s");
        keepPicture(*dialog, "workbench-edit-library-rename");
        inside.click(*dialog, {dialog->width() / 4, dialog->height() - 20});
        if (dialog->isVisible())
            dialog->close();
    });
    opened.start(1);
    hand->click(paper(), place(liver, db::box_body), Qt::RightButton);
    Driver::settle();
    EXPECT_EQ(undoText(), "Rename Series 1: Liver");
    EXPECT_STREQ(list.list_pt[12].name, "1: Livers");
}

TEST_F(DatabaseEditing, UpdateBringsBackWhatTheFilesSay)
{
    edit();
    drag(liver, db::parent_handle, "Study Doe Jane, Head, 2024-05-31");
    point(axial);
    hand->key(Qt::Key_Delete);
    press("Update DB");
    EXPECT_EQ(tree(), asOpened);
    EXPECT_EQ(undoText(), "Update DB");
    press("Undo");
    EXPECT_NE(tree(), asOpened);
    press("Redo");
    EXPECT_EQ(tree(), asOpened);
    press("Update DB");
    EXPECT_EQ(session.databaseEdits().steps().count(), 3);
    EXPECT_TRUE(window.statusLine().message().contains("nothing to bring back"));
}

TEST_F(DatabaseEditing, IsKeptWhenTheWindowIsClosedAndSeriesComeAndGo)
{
    edit();
    drag("Frame 2, 2.5 mm", db::parent_handle, liver);
    drag(axial, db::parent_handle, "Study Doe Jane, Abdomen, 2024-05-31");
    closeEditor();
    driver.key(Qt::Key_W, Qt::ControlModifier); // the axial one, which is shown
    EXPECT_EQ(tree(), "Images(Doe Jane(1: Scout(1)) Doe Jane(1: Liver(1 2 3 4)))");
    open(imageFile("other.nii"));
    openEditor();
    EXPECT_EQ(diagram().nb, 1 + 2 + 2 + 5 + 7);
    hand->key(Qt::Key_Z, Qt::ControlModifier);
    hand->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(session.databaseEdits().steps().canUndo());
    EXPECT_EQ(diagram().nb, 1 + 2 + 2 + 5 + 7) << "what is closed stays closed";
    EXPECT_EQ(session.frameCount(), 5);
}

TEST_F(DatabaseEditing, OfVolumesAndSignalsAsWell)
{
    edit();
    const QWidget& volumes = editor->chooser().button(3);
    hand->click(volumes, middleOf(volumes));
    ASSERT_EQ(diagram().nb, 6);
    point("Volume 1: Liver");
    hand->key(Qt::Key_Delete);
    EXPECT_EQ(undoText(), "Delete Volume 1: Liver");
    EXPECT_EQ(diagram().nb, 5);
    keepPicture(*editor, "workbench-edit-volumes");
    const QWidget& histograms = editor->chooser().button(1);
    hand->click(histograms, middleOf(histograms));
    ASSERT_EQ(diagram().nb, 9);
    drag("Series 1: Liver", db::parent_handle, "Series 1: Scout");
    EXPECT_EQ(undoText(), "Move Series 1: Liver to Series 1: Scout");
    keepPicture(*editor, "workbench-edit-signals");
}

TEST_F(DatabaseEditing, NothingOpenIsNothingToEdit)
{
    window.resize(1280, 860);
    Driver::settle();
    openEditor();
    ASSERT_EQ(diagram().nb, 1);
    point("Root Images");
    hand->key(Qt::Key_Delete);
    hand->key(Qt::Key_Z, Qt::ControlModifier);
    hand->drag(paper(), {place("Root Images", db::parent_handle), QPoint(500, 300)});
    EXPECT_EQ(session.databaseEdits().steps().count(), 0);
    hand->moveTo(paper(), {600, 400});
    hand->key(Qt::Key_F2);
    EXPECT_TRUE(nameDialog()) << "the class that was clicked last";
    nameDialog()->reject();
    Driver::settle();
    keepPicture(*editor, "workbench-edit-empty");
}

// ------------------------------------------------------------------------------------------------ in the main window

TEST_F(DatabaseEditing, OverTheListItsKeysAreTheDatabases)
{
    browse();
    click(row(studyLevel));
    driver.key(Qt::Key_F2);
    ASSERT_TRUE(nameDialog());
    EXPECT_EQ(nameDialog()->textValue(), "Doe Jane, Head, 2024-05-31");
    enterName("A study");
    activate(window);
    EXPECT_STREQ(list.list_pt[1].name, "A study");
    EXPECT_EQ(list.nb, 17);
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(tree(), asOpened);
    driver.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_STREQ(list.list_pt[1].name, "A study");

    paint(); // the pointer is over the image now
    ASSERT_EQ(session.undoStack().index(), 1);
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(session.undoStack().index(), 0);
    EXPECT_STREQ(list.list_pt[1].name, "A study");
    driver.key(Qt::Key_F2);
    ASSERT_TRUE(nameDialog());
    EXPECT_EQ(nameDialog()->windowTitle(), "Rename Marker 0");
    nameDialog()->reject();
}

TEST_F(DatabaseEditing, WithoutEditsUndoIsTheImagesOverTheListToo)
{
    browse();
    paint();
    driver.moveTo(dock.classWidget(), middleOf(dock.classWidget()));
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(session.undoStack().index(), 0);
    driver.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(session.undoStack().index(), 1);
}

TEST_F(DatabaseEditing, DeleteOverTheListTakesNoMarkerAway)
{
    browse();
    driver.type("m");
    driver.click(window.view(), middleOf(window.view()));
    driver.type("m");
    ASSERT_TRUE(session.markers().isSet(0));
    driver.moveTo(dock.classWidget(), middleOf(dock.classWidget()));
    driver.key(Qt::Key_Delete);
    EXPECT_TRUE(session.markers().isSet(0));
    EXPECT_EQ(tree(), asOpened);
    EXPECT_TRUE(window.statusLine().message().contains("Edit database"));
}

TEST_F(DatabaseEditing, TheMenuNamesTheClassThatItRenames)
{
    browse();
    EXPECT_EQ(session.databaseEdits().label(dock.chosen()), axial) << "the series that is shown";
    const int study = row(studyLevel, row(studyLevel));
    click(study);
    EXPECT_EQ(session.databaseEdits().label(dock.chosen()), "Study Doe Jane, Abdomen, 2024-05-31");
    driver.key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_NE(session.databaseEdits().label(dock.chosen()), "Study Doe Jane, Abdomen, 2024-05-31") << "it is closed";
    choose(3);
    EXPECT_EQ(dock.chosen(), nullptr);
}
