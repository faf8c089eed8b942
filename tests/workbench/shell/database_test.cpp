#include "tests/workbench/shell/database_fixture.h"
#include "workbench/tour/database_rows.h"

#include <QAction>
#include <QTest>

using namespace workbench;
using namespace test;

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

TEST_F(Database, ListsVolumesAndSignalsAsWell)
{
    browse();
    choose(3);
    const Tool_DB_Class& volumes = dock.trees().panel();
    ASSERT_EQ(volumes.nb, 1 + 2 + 3);
    EXPECT_EQ(selected(volumes), "110200");
    test::keepPicture(window, "workbench-database-volumes");
    click(5);
    EXPECT_EQ(selected(volumes), "100022");
    EXPECT_EQ(session.frameCount(), 4);
    EXPECT_EQ(session.selection().choice(), FrameSelection::Choice::all);
    choose(1);
    const Tool_DB_Class& histograms = dock.trees().panel();
    ASSERT_EQ(histograms.nb, 1 + 2 + 2 * 3);
    EXPECT_EQ(selected(histograms), "100000222");
    click(3);
    EXPECT_EQ(session.frameCount(), 1) << "the scout";
    EXPECT_EQ(selected(volumes), "112000");
    test::keepPicture(window, "workbench-database-signals");
    choose(2);
    EXPECT_EQ(selected(list).substr(0, 5), "11220");
    session.selection().chooseRange(0, 0);
    click(row(seriesLevel, row(seriesLevel)));
    EXPECT_EQ(selected(volumes), "110200") << "a list that is not seen follows, too";
}

TEST_F(Database, SelectNoneOfTheVolumesShowsNothing)
{
    browse();
    choose(3);
    driver.click(dock.classWidget(), buttonPlace(dock.trees().panel().select_none, dock.classWidget()));
    EXPECT_EQ(session.selection().count(), 0);
    EXPECT_FALSE(session.showsFrame());
    driver.click(dock.classWidget(), buttonPlace(dock.trees().panel().select_all, dock.classWidget()));
    EXPECT_EQ(session.selection().count(), 11);
    EXPECT_TRUE(session.showsFrame());
}

TEST_F(Database, ADragGoesOnScrollingWhileThePointerRestsBeyondTheRows)
{
    browse();
    window.resize(1280, 300);
    Driver::settle();
    QWindow* const screen = window.windowHandle();
    const QWidget& panel = dock.classWidget();
    const auto at = [&](int y) { return panel.mapTo(&window, QPoint(150, y)); };
    const Sliders& scrolled = list.vertical;
    for (const int y : {panel.height() - 2, panel.height() + 20}) {
        const float before = scrolled.value;
        QTest::mousePress(screen, Qt::LeftButton, {}, at(40));
        QTest::mouseEvent(QTest::MouseMove, screen, Qt::LeftButton, {}, at(y));
        EXPECT_TRUE(Driver::waitFor([&] { return scrolled.value >= before + 15; })) << y;
        QTest::mouseRelease(screen, Qt::LeftButton, {}, at(y));
        const float after = scrolled.value;
        QTest::qWait(100);
        EXPECT_EQ(scrolled.value, after) << "it is over";
    }
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
