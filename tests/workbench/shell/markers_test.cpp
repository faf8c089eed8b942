#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "tests/workbench/shell/shell_test.h"

#include <QAction>
#include <QApplication>
#include <QColorDialog>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QUrl>

using namespace workbench;

namespace {

class MarkersOf : public test::Shell {
protected:
    void clickVoxel(int x, int y) { driver.click(window.view(), window.view().positionOf(x, y).toPoint()); }

    // An image with two markers, the second in another slice.
    void openAndSet()
    {
        open(imageFile("first.nii"));
        driver.type("m");
        clickVoxel(10, 12);
        driver.key(Qt::Key_PageDown);
        clickVoxel(20, 15);
        driver.type("m");
        ASSERT_TRUE(markers.isSet(0) && markers.isSet(1));
        ASSERT_FALSE(window.view().isPlacing());
    }

    // The middle of a marker's button, or its mark.
    QPoint markerPlace(unsigned marker)
    {
        const int pitch =
            hostkit::Variable<short>("$INTERFACE_BUTTON_DIM_SML") + hostkit::Variable<short>("$INTERFACE_BORDER_DIM");
        const int column = static_cast<int>(marker % 4), row = static_cast<int>(marker / 4);
        return {panel().width() * (2 * column + 1) / 8, 4 + row * pitch + pitch / 2};
    }
    QPoint markPlace(unsigned marker) { return markerPlace(marker) + QPoint(panel().width() / 8 - 10, 0); }

    QAction& action(const QString& text)
    {
        for (QAction* menu : window.menuBar()->actions())
            for (QAction* entry : menu->menu()->actions())
                if (entry->text().remove('&').startsWith(text))
                    return *entry;
        ADD_FAILURE() << text.toStdString();
        return *window.menuBar()->actions().front();
    }

    void save(const QString& name)
    {
        window.files().saveMarkersTo(path(name));
        waitUntilIdle();
    }

    QByteArray bytes(const QString& name)
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }

    void answerFileDialog(const QString& name)
    {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        dialog->findChild<QLineEdit*>()->setText(path(name));
        driver.key(Qt::Key_Return);
        waitUntilIdle();
    }

    QWidget& panel() { return window.panels().markerWidget(); }
    QString statusText() { return window.statusLine().message(); }

    Markers& markers = session.markers();
};

}

// --------------------------------------------------------------------------------------------- view, panel and keys

TEST_F(MarkersOf, AreSetWithOneKeyAndClicks)
{
    openAndSet();
    EXPECT_EQ(markers.place(0)->frame, 2);
    EXPECT_EQ(markers.place(1)->frame, 3);
    EXPECT_EQ(session.undoStack().count(), 2);
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(markers.isSet(1));
    driver.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(markers.isSet(1));
}

TEST_F(MarkersOf, TheMenuShowsWhetherOneIsPlacing)
{
    EXPECT_FALSE(action("Place markers").isEnabled());
    showImage();
    EXPECT_TRUE(action("Place markers").isEnabled());
    driver.type("m");
    EXPECT_TRUE(action("Place markers").isChecked());
    driver.key(Qt::Key_Escape);
    EXPECT_FALSE(action("Place markers").isChecked());
}

TEST_F(MarkersOf, AClickInThePanelShowsTheMarkersSlice)
{
    openAndSet();
    driver.click(panel(), markerPlace(0));
    EXPECT_EQ(markers.current(), 0u);
    EXPECT_EQ(session.frame(), 2);
    driver.click(panel(), markerPlace(1));
    EXPECT_EQ(session.frame(), 3);
    driver.click(panel(), markerPlace(3)); // not set
    EXPECT_EQ(markers.current(), 3u);
    EXPECT_EQ(session.frame(), 3);
    EXPECT_EQ(session.undoStack().count(), 2);
}

TEST_F(MarkersOf, AClickOnTheMarkHidesAndShows)
{
    openAndSet();
    driver.click(panel(), markPlace(0));
    EXPECT_FALSE(markers.at(0).enabled);
    EXPECT_EQ(markers.current(), 0u);
    EXPECT_EQ(session.frame(), 3);
    EXPECT_EQ(session.undoStack().undoText(), "Hide Marker 0");
    driver.click(panel(), markPlace(0));
    EXPECT_TRUE(markers.at(0).enabled);
    driver.type("h");
    EXPECT_FALSE(markers.at(0).enabled);
    EXPECT_EQ(action("Show").text().remove('&'), "Show \"Marker 0\"");
}

TEST_F(MarkersOf, AreRenamedInThePanel)
{
    openAndSet();
    driver.click(panel(), markerPlace(1), Qt::RightButton);
    ASSERT_TRUE(window.panels().editing());
    driver.key(Qt::Key_Backspace);
    driver.type("nmh");
    driver.key(Qt::Key_Return);
    EXPECT_EQ(markers.name(1), "nmh");
    EXPECT_EQ(session.undoStack().undoText(), "Rename Marker 1 to nmh");
    EXPECT_FALSE(window.view().isPlacing());
}

TEST_F(MarkersOf, TheCurrentOneIsRenamedInADialogMarkerZeroToo)
{
    openAndSet();
    driver.click(panel(), markerPlace(0));
    driver.key(Qt::Key_F2);
    auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->windowTitle(), "Rename Marker 0");
    EXPECT_EQ(dialog->textValue(), "");
    test::keepPicture(*dialog, "marker-name");
    dialog->setTextValue(" Nasion ");
    dialog->accept();
    EXPECT_EQ(markers.name(0), "Nasion");
    EXPECT_EQ(session.undoStack().undoText(), "Rename Marker 0 to Nasion");
    action("Rename \"Nasion\"").trigger();
    dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->textValue(), "Nasion");
    dialog->reject();
    EXPECT_EQ(markers.name(0), "Nasion");
}

TEST_F(MarkersOf, ThePanelGrowsWithThem)
{
    showImage();
    EXPECT_EQ(panel().height(), Tool_Marker().Height(1));
    driver.type("m");
    for (int i = 0; i < 5; ++i)
        clickVoxel(3 + 5 * i, 10);
    Driver::settle();
    EXPECT_EQ(markers.count(), 8u);
    EXPECT_EQ(panel().height(), Tool_Marker().Height(2));
    for (int i = 0; i < 12; ++i)
        clickVoxel(3 + 2 * i, 20);
    Driver::settle();
    EXPECT_LE(panel().height(), Tool_Marker().Height(4));
    showImage();
    Driver::settle();
    EXPECT_EQ(panel().height(), Tool_Marker().Height(1));
}

TEST_F(MarkersOf, NextGoesRound)
{
    showImage();
    driver.type("n");
    EXPECT_TRUE(statusText().startsWith("No marker is set"));
    openAndSet();
    driver.type("n");
    EXPECT_EQ(markers.current(), 0u);
    EXPECT_EQ(session.frame(), 2);
    driver.type("N");
    EXPECT_EQ(markers.current(), 1u);
    EXPECT_EQ(session.frame(), 3);
}

TEST_F(MarkersOf, DeleteTakesTheOneUnderThePointerOrElseTheCurrentOne)
{
    openAndSet();
    driver.click(panel(), markerPlace(0));
    session.setFrame(3);
    driver.moveTo(window.view(), window.view().positionOf(20, 15).toPoint());
    driver.key(Qt::Key_Delete);
    EXPECT_FALSE(markers.isSet(1));
    EXPECT_TRUE(markers.isSet(0));
    EXPECT_EQ(statusText(), "Marker 1 is deleted; Undo brings it back.");
    driver.key(Qt::Key_Delete);
    EXPECT_FALSE(markers.isSet(0));
    driver.key(Qt::Key_Delete);
    EXPECT_TRUE(statusText().startsWith("There is no marker to delete"));
    EXPECT_EQ(session.undoStack().count(), 4);
}

TEST_F(MarkersOf, TheColourOfTheCurrentOneIsChosen)
{
    openAndSet();
    action("Colour of \"Marker 1\"").trigger();
    auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->currentColor(), markers.colour(1));
    dialog->setCurrentColor(QColor(1, 2, 3));
    dialog->accept();
    EXPECT_EQ(markers.colour(1), QColor(1, 2, 3));
    EXPECT_EQ(session.undoStack().undoText(), "Set colour of Marker 1");
}

// ------------------------------------------------------------------------------------------------------------- files

TEST_F(MarkersOf, AreSavedAndOpenedAgain)
{
    openAndSet();
    EXPECT_EQ(window.windowTitle(), QString("first.nii \u2014 markers[*] \u2014 Vetra"));
    EXPECT_TRUE(window.isWindowModified());
    action("Save markers").trigger();
    answerFileDialog("mine");
    EXPECT_EQ(statusText(), "Markers saved to \"mine.mrk.json\".");
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(bytes("mine.mrk.json").contains("\"positionStatus\": \"defined\""));
    const auto saved = markers.snapshot().rows;

    markers.remove(0);
    EXPECT_TRUE(window.isWindowModified());
    action("Open markers").trigger();
    answerFileDialog("mine.mrk.json");
    EXPECT_EQ(markers.snapshot().rows, saved);
    EXPECT_EQ(statusText(), "Markers are as in \"mine.mrk.json\"; Undo brings the former ones back.");
    EXPECT_FALSE(window.isWindowModified());

    markers.remove(0);
    action("Save markers").trigger(); // where they are
    waitUntilIdle();
    EXPECT_FALSE(window.isWindowModified());
    save("table.csv");
    EXPECT_EQ(statusText(), "Markers saved to \"table.csv\". Colours have no place in a .csv file.");
    EXPECT_TRUE(bytes("table.csv").startsWith("label,l,p,s,"));
    EXPECT_EQ(message(), "");
}

TEST_F(MarkersOf, SavedUnderAnotherNameTheFormerIsOffered)
{
    openAndSet();
    action("Save markers as").trigger();
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->findChild<QLineEdit*>()->text(), "first-markers.mrk.json");
    dialog->reject();
    EXPECT_TRUE(window.isWindowModified());
    save("mine.mrk.json");
    action("Save markers as").trigger();
    dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->findChild<QLineEdit*>()->text(), "mine.mrk.json");
    dialog->reject();
}

TEST_F(MarkersOf, ADroppedFileIsOpened)
{
    openAndSet();
    save("mine.mrk.json");
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_FALSE(markers.isSet(1));
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path("mine.mrk.json"))});
    QDragEnterEvent enter({500, 300}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &enter);
    QDropEvent drop(QPointF(500, 300), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &drop);
    waitUntilIdle();
    EXPECT_TRUE(markers.isSet(1));
    EXPECT_EQ(session.imageName(), "first.nii");
    EXPECT_EQ(session.undoStack().undoText(), "Load mine.mrk.json");
}

TEST_F(MarkersOf, WhatIsLeftOutOfAFileIsTold)
{
    showImage();
    QByteArray rows = "label,l,p,s\n";
    for (int i = 0; i < 66; ++i)
        rows += "P,1,2," + QByteArray::number(i < 64 ? i / 13 : 0) + "\n";
    window.files().openMarkers(file("many.csv", rows + "P,-5,0,0\n"));
    waitUntilIdle();
    EXPECT_TRUE(statusText().endsWith("\"many.csv\" holds 67 markers: the first 64 are there, 3 are left out."));
    EXPECT_EQ(markers.count(), 64u);
    window.files().openMarkers(file("beyond.csv", "label,l,p,s\nA,-5,0,0\nB,1,1,1\n"));
    waitUntilIdle();
    EXPECT_TRUE(statusText().endsWith("One lies beyond the image."));
}

TEST_F(MarkersOf, ABrokenFileLeavesThemAsTheyAre)
{
    openAndSet();
    const auto before = markers.snapshot().rows;
    open(file("broken.mrk.json", "{\n nonsense"));
    EXPECT_TRUE(message().startsWith("\"broken.mrk.json\", line 2: this is no JSON.")) << message().toStdString();
    answer(QMessageBox::Ok);
    EXPECT_EQ(markers.snapshot().rows, before);
}

TEST_F(MarkersOf, BelongToAnImage)
{
    open(file("early.mrk.json", "{}"));
    EXPECT_TRUE(message().startsWith("Markers belong to an image."));
    answer(QMessageBox::Ok);
}

TEST_F(MarkersOf, DoNotTakeThePlaceOfTheImage)
{
    openAndSet();
    save("first.nii");
    EXPECT_TRUE(message().contains("is an open image itself"));
    answer(QMessageBox::Ok);
    save("points.txt");
    EXPECT_TRUE(message().contains("is no name for markers"));
    answer(QMessageBox::Ok);
    EXPECT_TRUE(markers.isModified());
}

TEST_F(MarkersOf, OfTwoSeriesAreNeverInOneFile)
{
    openAndSet();
    save("mine.mrk.json");
    open(imageFile("second.nii"));
    window.files().openMarkers(path("mine.mrk.json"));
    waitUntilIdle();
    EXPECT_TRUE(markers.isSet(0) && markers.isSet(1));
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(markers.path(), "") << "the file stays the first one's";
    markers.remove(0);
    save("mine.mrk.json");
    EXPECT_TRUE(message().contains("holds the markers of \"first.nii\"")) << message().toStdString();
    answer(QMessageBox::Ok);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(bytes("mine.mrk.json").count("positionStatus"), 2);
}

TEST_F(MarkersOf, ClosingAsksForUnsavedOnes)
{
    openAndSet();
    window.close();
    EXPECT_EQ(message(), "The markers of \"first.nii\" are not saved.");
    answer(QMessageBox::Cancel);
    EXPECT_TRUE(window.isVisible());
    save("mine.mrk.json");
    session.undoStack().undo();
    window.close();
    answer(QMessageBox::Save); // where they are
    waitUntilIdle();
    EXPECT_TRUE(Driver::waitFor([this] { return !window.isVisible(); }));
    EXPECT_FALSE(bytes("mine.mrk.json").contains("\"id\": \"2\""));
}

TEST_F(MarkersOf, ClosingTheSeriesAsksForUnsavedOnesToo)
{
    openAndSet();
    paint();
    save("mine.mrk.json");
    window.files().saveTo(path("mine.nii.gz"));
    waitUntilIdle();
    session.setCurrentTag(2);
    paint();
    markers.setColour(0, Qt::red);
    window.files().closeSeries();
    EXPECT_EQ(message(), "The labels and the markers of \"first.nii\" are not saved.");
    answer(QMessageBox::Save);
    EXPECT_TRUE(Driver::waitFor([this] { return !session.hasImage(); }));
    EXPECT_EQ(message(), "");
    EXPECT_TRUE(bytes("mine.mrk.json").contains("255,\n                        0,\n"));
    EXPECT_FALSE(markers.isSet(0));
    EXPECT_FALSE(window.isWindowModified());
}

// ----------------------------------------------------------------------------------------------------------- picture

TEST_F(MarkersOf, LookLikePartOfTheWorkbench)
{
    window.resize(1280, 860);
    showImage({181, 217, 9});
    test::keepPicture(window, "workbench-no-markers");
    driver.type("m");
    const std::pair<const char*, QPoint> points[] = {{"Nasion", {90, 30}}, {"Commissure", {92, 100}},
        {"Left ear", {150, 118}}, {"", {30, 118}}, {"Inion", {91, 196}}};
    unsigned marker = 0;
    for (const auto& [name, place] : points) {
        clickVoxel(place.x(), place.y());
        hostkit::Marker_Label_Set(marker++, name);
        Fct_Update(1ull << 47, nullptr, nullptr, nullptr);
    }
    markers.setShown(2, false);
    markers.setCurrent(1);
    Driver::settle();
    test::keepPicture(window, "workbench-markers");
    EXPECT_EQ(markers.count(), 8u);
}
