#include "tests/workbench/shell/shell_test.h"

#include <QCoreApplication>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>

using namespace workbench;

namespace {

class FilesOf : public test::Shell {
protected:
    void openAndPaint()
    {
        open(imageFile("first.nii"));
        ASSERT_TRUE(session.hasImage());
        paint();
        ASSERT_TRUE(session.isModified());
    }

    // What must be true after something went wrong with another file.
    void expectFirstImageUnharmed(const std::vector<std::uint8_t>& labels)
    {
        EXPECT_EQ(session.imageName(), "first.nii");
        EXPECT_TRUE(session.isModified());
        EXPECT_TRUE(std::ranges::equal(labels, session.labels().tags()));
    }

    std::vector<std::uint8_t> labels() const
    {
        const auto tags = session.labels().tags();
        return {tags.begin(), tags.end()};
    }

    void expectRefused(const QString& path, const QString& named)
    {
        openAndPaint();
        const auto before = labels();
        open(path);
        EXPECT_TRUE(message().contains(named)) << message().toStdString();
        answer(QMessageBox::Ok);
        EXPECT_EQ(message(), "");
        expectFirstImageUnharmed(before);
    }
};

}

TEST_F(FilesOf, AMissingFileLeavesWhatIsOpen)
{
    expectRefused(path("nowhere.nii"), "nowhere.nii");
}

TEST_F(FilesOf, AnEmptyFileLeavesWhatIsOpen)
{
    expectRefused(file("empty.nii", {}), "empty.nii");
}

TEST_F(FilesOf, AFileOfNoFormatLeavesWhatIsOpen)
{
    expectRefused(file("letter.txt", QByteArray(5000, 'x')), "letter.txt");
}

TEST_F(FilesOf, ATruncatedFileLeavesWhatIsOpen)
{
    QFile whole(imageFile("whole.nii"));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    expectRefused(file("half.nii", bytes.left(bytes.size() / 2)), "half.nii");
}

TEST_F(FilesOf, AFolderWithoutImagesLeavesWhatIsOpen)
{
    ASSERT_TRUE(QDir().mkpath(path("nothing")));
    expectRefused(path("nothing"), "nothing");
}

TEST_F(FilesOf, TheTitleTellsTheImageAndWhatIsUnsaved)
{
    EXPECT_EQ(window.windowTitle(), "Vetra");
    open(imageFile("first.nii"));
    EXPECT_EQ(window.windowTitle(), QString("first.nii \u2014 Vetra"));
    EXPECT_FALSE(window.isWindowModified());

    paint();
    EXPECT_EQ(window.windowTitle(), QString("first.nii \u2014 labels[*] \u2014 Vetra"));
    EXPECT_TRUE(window.isWindowModified());

    driver.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(window.isWindowModified());
    driver.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(window.isWindowModified());

    window.files().saveTo(path("mine.nii.gz"));
    waitUntilIdle();
    EXPECT_EQ(window.windowTitle(), QString("first.nii \u2014 mine.nii.gz \u2014 Vetra"));
    EXPECT_FALSE(window.isWindowModified());
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window.windowTitle(), QString("first.nii \u2014 mine.nii.gz[*] \u2014 Vetra"));
}

TEST_F(FilesOf, TheTitleMarksTheProgramWhereAnotherSeriesIsUnsaved)
{
    open(imageFile("first.nii"));
    paint();
    open(imageFile("second.nii"));
    EXPECT_EQ(window.windowTitle(), QString("second.nii \u2014 Vetra[*]"));
    EXPECT_TRUE(window.isWindowModified());
    paint();
    EXPECT_EQ(window.windowTitle(), QString("second.nii \u2014 labels[*] \u2014 Vetra"));
}

TEST_F(FilesOf, SeveralThatAreOpenedTogetherAreCounted)
{
    open(imageFile("first.nii"));
    window.files().open({imageFile("second.nii"), imageFile("third.nii")});
    waitUntilIdle();
    EXPECT_EQ(session.series().size(), 3u);
    EXPECT_TRUE(window.statusLine().message().startsWith("2 series were opened."))
        << window.statusLine().message().toStdString();
}

TEST_F(FilesOf, SavedLabelsCanBeOpenedAgain)
{
    openAndPaint();
    const auto painted = labels();
    window.files().saveTo(path("mine.nii.gz"));
    waitUntilIdle();
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_NE(labels(), painted);
    window.files().openLabels(path("mine.nii.gz"));
    waitUntilIdle();
    EXPECT_EQ(labels(), painted);
    EXPECT_EQ(message(), "");
}

TEST_F(FilesOf, LabelsOfAnotherGeometryAreRefused)
{
    openAndPaint();
    const auto before = labels();
    window.files().openLabels(imageFile("other.nii", {40, 30, 6}));
    waitUntilIdle();
    EXPECT_TRUE(message().contains("other.nii")) << message().toStdString();
    expectFirstImageUnharmed(before);
}

TEST_F(FilesOf, LabelsNeedAnImage)
{
    window.files().openLabels(path("mine.nii.gz"));
    EXPECT_TRUE(message().contains("mine.nii.gz")) << message().toStdString();
}

TEST_F(FilesOf, LabelsAreNeverSavedOverTheImage)
{
    openAndPaint();
    QFile image(path("first.nii"));
    ASSERT_TRUE(image.open(QIODevice::ReadOnly));
    const QByteArray before = image.readAll();
    image.close();

    ASSERT_TRUE(QFile::link(path("first.nii"), path("link.nii")));
    for (const QString& name : {path("first.nii"), path("./first.nii"), path("link.nii")}) {
        window.files().saveTo(name);
        waitUntilIdle();
        EXPECT_TRUE(message().contains(".nii")) << name.toStdString();
        answer(QMessageBox::Ok);
    }
    ASSERT_TRUE(image.open(QIODevice::ReadOnly));
    EXPECT_EQ(image.readAll(), before);
    EXPECT_TRUE(session.isModified());
}

TEST_F(FilesOf, ATargetThatCannotBeWrittenIsToldAndTheLabelsStayUnsaved)
{
    openAndPaint();
    ASSERT_TRUE(QDir().mkpath(path("folder.nii.gz")));
    window.files().saveTo(path("folder.nii.gz"));
    waitUntilIdle();
    EXPECT_TRUE(message().contains("folder.nii.gz")) << message().toStdString();
    EXPECT_TRUE(session.isModified());
    EXPECT_EQ(session.labelPath(), "");
}

TEST_F(FilesOf, PaintingGoesOnWhileSavingAndStaysUnsaved)
{
    openAndPaint();
    const auto saved = labels();
    window.files().saveTo(path("mine.nii.gz"));
    ASSERT_TRUE(window.files().busy());
    const QPoint corner = window.view().positionOf(3, 3).toPoint();
    driver.drag(window.view(), {corner, corner + QPoint(3, 3)});
    waitUntilIdle();
    EXPECT_TRUE(session.isModified());
    const auto read = document::load_labels(path("mine.nii.gz").toStdString(), session.volume().geometry);
    ASSERT_TRUE(read);
    EXPECT_TRUE(std::ranges::equal(read->tags(), saved));
}

TEST_F(FilesOf, UsualNameOfLabelsIsBesideTheImage)
{
    open(imageFile("first.nii.gz"));
    EXPECT_EQ(usualLabelPath(session), path("first-labels.nii.gz"));
}

TEST_F(FilesOf, ASecondRequestWaitsForTheFirst)
{
    const QString first = imageFile("first.nii");
    const QString second = imageFile("second.nii");
    window.files().open({first});
    ASSERT_TRUE(window.files().busy());
    window.files().open({second});
    EXPECT_TRUE(window.statusLine().message().contains("wait")) << window.statusLine().message().toStdString();
    waitUntilIdle();
    EXPECT_EQ(session.imageName(), "first.nii");
}

TEST_F(FilesOf, AFileDroppedOnTheWindowIsOpened)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(imageFile("first.nii"))});
    QDragEnterEvent enter({500, 300}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(500, 300), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &drop);
    waitUntilIdle();
    EXPECT_EQ(session.imageName(), "first.nii");
}

TEST_F(FilesOf, WhatIsNoFileCannotBeDropped)
{
    QMimeData data;
    data.setUrls({QUrl("https://example.org/first.nii")});
    QDragEnterEvent enter({500, 300}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &enter);
    QDropEvent drop(QPointF(500, 300), Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&window, &drop);
    EXPECT_NE(message(), "");
    EXPECT_FALSE(session.hasImage());
}

// ------------------------------------------------------------------------------------------ before something is lost

TEST_F(FilesOf, ClosingWithoutChangesDoesNotAsk)
{
    open(imageFile("first.nii"));
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FilesOf, ClosingAsksAndCancelStays)
{
    openAndPaint();
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(message().contains("first.nii")) << message().toStdString();
    answer(QMessageBox::Cancel);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(session.isModified());
}

TEST_F(FilesOf, ClosingAsksAndDiscardCloses)
{
    openAndPaint();
    window.close();
    answer(QMessageBox::Discard);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FilesOf, ClosingAsksAndSaveClosesOnceSaved)
{
    openAndPaint();
    window.files().saveTo(path("mine.nii.gz"));
    waitUntilIdle();
    const QPoint corner = window.view().positionOf(3, 3).toPoint();
    driver.drag(window.view(), {corner, corner + QPoint(3, 3)});
    const auto painted = labels();
    window.close();
    answer(QMessageBox::Save);
    ASSERT_TRUE(Driver::waitFor([this] { return !window.isVisible(); }));
    const auto read = document::load_labels(path("mine.nii.gz").toStdString(), session.volume().geometry);
    ASSERT_TRUE(read);
    EXPECT_TRUE(std::ranges::equal(read->tags(), painted));
}

TEST_F(FilesOf, ASaveThatFailsDoesNotClose)
{
    openAndPaint();
    window.files().saveTo(path("mine.nii.gz"));
    waitUntilIdle();
    ASSERT_TRUE(QFile::remove(path("mine.nii.gz")));
    ASSERT_TRUE(QDir().mkpath(path("mine.nii.gz")));
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    window.close();
    answer(QMessageBox::Save);
    waitForMessage();
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(session.isModified());
}

TEST_F(FilesOf, ClosingWhileSavingWaitsForItsEnd)
{
    openAndPaint();
    window.files().saveTo(path("mine.nii.gz"));
    ASSERT_TRUE(window.files().busy());
    EXPECT_FALSE(window.close());
    ASSERT_TRUE(Driver::waitFor([this] { return !window.isVisible(); }));
    EXPECT_TRUE(QFile::exists(path("mine.nii.gz")));
    EXPECT_EQ(message(), "");
}

TEST_F(FilesOf, ClosingTheSeriesAsksAndCancelKeepsIt)
{
    openAndPaint();
    const auto before = labels();
    driver.key(Qt::Key_W, Qt::ControlModifier);
    waitForMessage();
    answer(QMessageBox::Cancel);
    expectFirstImageUnharmed(before);
}

TEST_F(FilesOf, ClosingTheSeriesAsksAndDiscardShowsTheOther)
{
    open(imageFile("second.nii"));
    openAndPaint();
    driver.key(Qt::Key_W, Qt::ControlModifier);
    waitForMessage();
    EXPECT_EQ(session.imageName(), "first.nii");
    answer(QMessageBox::Discard);
    EXPECT_EQ(session.imageName(), "second.nii");
    EXPECT_FALSE(session.isModified());
    window.activateWindow(); // which a window manager does when a dialog has gone
    driver.key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(Driver::waitFor([this] { return !session.hasImage(); }));
    EXPECT_EQ(message(), "");
}

TEST_F(FilesOf, ClosingAsksForEachSeriesWithUnsavedWork)
{
    openAndPaint();
    open(imageFile("second.nii"));
    open(imageFile("third.nii"));
    paint();
    window.close();
    EXPECT_TRUE(message().contains("third.nii")) << message().toStdString();
    answer(QMessageBox::Discard);
    EXPECT_TRUE(message().contains("first.nii")) << message().toStdString();
    EXPECT_EQ(session.imageName(), "first.nii") << "it is seen behind the question";
    EXPECT_TRUE(window.isVisible());
    answer(QMessageBox::Discard);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(FilesOf, TwoSeriesAreNeverSavedIntoOneFile)
{
    openAndPaint();
    window.files().saveTo(path("mine.nii.gz"));
    waitUntilIdle();
    open(imageFile("second.nii"));
    paint();
    window.files().saveTo(path("mine.nii.gz"));
    EXPECT_TRUE(message().contains("holds the labels of \"first.nii\"")) << message().toStdString();
    answer(QMessageBox::Ok);
    EXPECT_EQ(session.labelPath(), "");
    EXPECT_TRUE(session.isModified());
}
