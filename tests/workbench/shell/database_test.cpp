#include "tests/workbench/document/fixtures.h"
#include "tests/workbench/shell/shell_test.h"
#include "workbench/shell/database_dock.h"
#include "workbench/tour/database_rows.h"

#include <QAction>

#include <cmath>

using namespace workbench;

namespace {

constexpr int studyLevel = 1, seriesLevel = 2, frameLevel = 3;

// Slices with a round shape that is larger further up.
void writeSeries(const document_test::Folder& folder, const std::string& study, const std::string& name, int number,
    const std::string& modality, int slices)
{
    constexpr int side = 64;
    for (int z = 0; z < slices; ++z) {
        document_test::Dicom dicom;
        dicom.rows = dicom.columns = side;
        dicom.series_uid = study + "." + std::to_string(number);
        dicom.series = name;
        dicom.modality = modality;
        dicom.instance = z + 1;
        dicom.position = {0, 0, 2.5 * z};
        dicom.more[0x0020000D] = {"UI", study};
        dicom.more[0x00081030] = {"LO", study == "1.2" ? "Head" : "Abdomen"};
        dicom.more[0x00080020] = {"DA", "20240531"};
        dicom.more[0x00200011] = {"IS", std::to_string(number)};
        if (name == "Scout")
            dicom.more[0x00080008] = {"CS", "ORIGINAL\\PRIMARY\\LOCALIZER"};
        std::vector<std::uint16_t> pixels;
        for (int i = 0; i < side * side; ++i) {
            const double away = std::hypot(i % side - 32.0, i / side - 32.0);
            pixels.push_back(static_cast<std::uint16_t>(away < 12 + 2 * z ? 600 + 10 * number + i % 7 : 20 + i % 5));
        }
        dicom.pixels = document_test::as_bytes(pixels);
        document_test::write_dicom(folder / (name + std::to_string(z) + ".dcm"), dicom);
    }
}

class Database : public test::Shell {
protected:
    // Two studies with three series of 1, 6 and 4 slices.
    void browse()
    {
        window.resize(1280, 860);
        writeSeries(folder, "1.2", "Scout", 1, "MR", 1);
        writeSeries(folder, "1.2", "Axial T1", 2, "MR", 6);
        writeSeries(folder, "1.3", "Liver", 1, "CT", 4);
        open(QString::fromStdString(folder.path().string()));
        ASSERT_EQ(message(), "");
        ASSERT_EQ(session.series().size(), 3u);
        ASSERT_TRUE(dock.isVisible());
    }

    int row(int level, int behind = -1) { return rowOfLevel(list, level, behind); }
    void click(int at) { driver.click(dock.classWidget(), rowPlace(list, dock.classWidget(), at)); }

    // "1020": 2 for the selected, 1 for those in part.
    std::string selected(const Tool_DB_List& of) const
    {
        std::string text;
        for (int i = 0; i < of.nb; ++i)
            text += static_cast<char>('0' + (of.list_pt[i].select & 3));
        return text;
    }

    document_test::Folder folder;
    DatabaseDock& dock = window.database();
    const Tool_DB_Class& list = dock.classes();
};

}

TEST_F(Database, ListsAFolderAsStudiesSeriesAndSlices)
{
    browse();
    EXPECT_EQ(list.nb, 1 + 2 + 3 + 11);
    EXPECT_STREQ(list.list_pt[row(studyLevel)].name, "Doe Jane, Head, 2024-05-31");
    const int scout = row(seriesLevel);
    const int axial = row(seriesLevel, scout);
    EXPECT_STREQ(list.list_pt[scout].name, "1: Scout");
    EXPECT_STREQ(list.list_pt[axial].name, "2: Axial T1");
    EXPECT_STREQ(list.list_pt[row(frameLevel, axial + 1)].name, "2, 2.5 mm");
    EXPECT_EQ(dock.files().nb, 1 + 11 + 11);
    EXPECT_EQ(session.frameCount(), 6) << "the largest is shown";
    test::keepPicture(window, "workbench-database-classes");
    dock.showFiles();
    Driver::settle();
    test::keepPicture(window, "workbench-database-files");
}

TEST_F(Database, AClickOnASliceOfAnotherSeriesShowsIt)
{
    browse();
    const int liver = row(seriesLevel, row(studyLevel, row(studyLevel)));
    click(liver + 3);
    EXPECT_EQ(session.frameCount(), 4);
    EXPECT_EQ(session.frame(), 2);
    EXPECT_EQ(session.selection().count(), 1);
    EXPECT_TRUE(window.windowTitle().startsWith("Liver")) << window.windowTitle().toStdString();
    EXPECT_EQ(std::ranges::count(selected(dock.files()), '2'), 2) << "the slice and its file";
    test::keepPicture(window, "workbench-database-slice");
    click(liver);
    EXPECT_EQ(session.selection().choice(), FrameSelection::Choice::all);
    EXPECT_EQ(session.frame(), 0) << "the uppermost of the selected ones";
}

TEST_F(Database, ShowsWhatIsSelectedElsewhere)
{
    browse();
    session.selection().chooseRange(1, 2);
    const int axial = row(seriesLevel, row(seriesLevel));
    EXPECT_EQ(selected(list).substr(static_cast<std::size_t>(axial), 7), "1022000");
    EXPECT_EQ(std::ranges::count(selected(dock.files()), '2'), 4);
    EXPECT_EQ(session.frame(), 1);
}

TEST_F(Database, AFoldedSeriesHidesItsSlices)
{
    browse();
    const int axial = row(seriesLevel, row(seriesLevel));
    driver.click(dock.classWidget(), foldPlace(list, dock.classWidget(), axial));
    EXPECT_EQ(list.list_pt[axial].state & 1, 0);
    EXPECT_EQ(list.list_pt[axial + 1].line, 65535);
    test::keepPicture(window, "workbench-database-folded");
}

TEST_F(Database, SelectNoneShowsNothingUntilTheWheelIsTurned)
{
    browse();
    driver.click(dock.classWidget(), buttonPlace(list.select_none, dock.classWidget()));
    EXPECT_FALSE(session.showsFrame());
    EXPECT_EQ(session.selection().count(), 0);
    test::keepPicture(window, "workbench-database-nothing");
    driver.wheel(window.view(), middleOf(window.view()), -1);
    EXPECT_TRUE(session.showsFrame());
    EXPECT_EQ(session.frame(), 4);
    dock.showFiles();
    Driver::settle();
    driver.click(dock.fileWidget(), buttonPlace(dock.files().select_none, dock.fileWidget()));
    EXPECT_FALSE(session.showsFrame()) << "nothing changed, and nobody was told";
    driver.click(dock.fileWidget(), buttonPlace(dock.files().select_all, dock.fileWidget()));
    EXPECT_EQ(session.selection().count(), 11);
    EXPECT_TRUE(session.showsFrame());
}

TEST_F(Database, AClosedSeriesIsNoLongerListed)
{
    browse();
    driver.key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(list.nb, 1 + 2 + 2 + 5);
    EXPECT_EQ(dock.files().nb, 1 + 5 + 5);
    driver.key(Qt::Key_W, Qt::ControlModifier);
    driver.key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(session.hasImage());
    EXPECT_EQ(list.nb, 1);
    EXPECT_EQ(dock.files().nb, 0);
    test::keepPicture(window, "workbench-database-empty");
}

TEST_F(Database, IsShownInWideWindowsUntilTheUserSaysOtherwise)
{
    EXPECT_FALSE(dock.isVisible()) << "the window is narrow";
    window.resize(1400, 800);
    Driver::settle();
    EXPECT_TRUE(dock.isVisible());
    EXPECT_NEAR(dock.width(), DatabaseDock::usualWidth, 4);
    driver.key(Qt::Key_D);
    EXPECT_FALSE(dock.isVisible());
    window.resize(1500, 800);
    Driver::settle();
    EXPECT_FALSE(dock.isVisible());
    window.resize(1000, 700);
    driver.key(Qt::Key_D);
    EXPECT_TRUE(dock.isVisible());
}

TEST_F(Database, WhatCannotBeOpenedIsToldInOneMessage)
{
    writeSeries(folder, "1.2", "Axial", 1, "MR", 3);
    document_test::Dicom damaged;
    damaged.pixels = "short";
    for (const char* uid : {"1.5", "1.6"}) {
        damaged.series_uid = uid;
        document_test::write_dicom(folder / uid, damaged);
    }
    open(QString::fromStdString(folder.path().string()));
    EXPECT_EQ(message().count('\n'), 1) << message().toStdString();
    EXPECT_TRUE(message().contains("\"1.5\""));
    EXPECT_EQ(session.frameCount(), 3);
}
