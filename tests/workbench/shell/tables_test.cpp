#include "tests/workbench/shell/shell_test.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>

using namespace workbench;

namespace {

class Tables : public test::Shell {
protected:
    void nameTag(unsigned tag, const char* name, std::optional<Thresholds> thresholds = {})
    {
        auto entry = session.tagEntry(tag);
        entry.name = name;
        entry.thresholds = thresholds;
        session.editTag(entry);
    }

    void openPaintAndName()
    {
        open(imageFile("first.nii"));
        paint();
        nameTag(1, "Liver", Thresholds{40, 60.5});
        session.setTagColour(2, QColor(1, 2, 3));
        ASSERT_TRUE(session.areLabelsModified());
        ASSERT_TRUE(session.isTableModified());
    }

    void save(const QString& name)
    {
        window.files().saveTo(path(name));
        waitUntilIdle();
    }

    void openLabels(const QString& name)
    {
        window.files().openLabels(path(name));
        waitUntilIdle();
    }

    void openTable(const QString& name)
    {
        window.files().openTable(path(name));
        waitUntilIdle();
    }

    void undoAll()
    {
        session.undoStack().setIndex(0);
        ASSERT_EQ(session.tagName(1), "");
    }

    QByteArray bytes(const QString& name)
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return file.readAll();
    }

    bool exists(const QString& name) { return QFile::exists(path(name)); }
    QString statusText() { return window.statusLine().message(); }

    // Answers the file dialog that is open.
    void chooseFile(const QString& name)
    {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        dialog->findChild<QLineEdit*>()->setText(path(name));
        driver.key(Qt::Key_Return);
        waitUntilIdle();
    }

    void keepForeignTable()
    {
        openPaintAndName();
        file("mine.label", foreign);
        save("mine.nii.gz");
        waitForMessage();
    }

    const QByteArray foreign = "7 1 2 3 1 1 1 \"Theirs\"\n";
};

}

// -------------------------------------------------------------------------------------------- beside the label map

TEST_F(Tables, AreSavedBesideTheLabelMapAndOpenedWithIt)
{
    openPaintAndName();
    save("mine.nii.gz");
    EXPECT_EQ(message(), "");
    EXPECT_FALSE(session.isModified());
    EXPECT_TRUE(bytes("mine.label").contains("\"Liver\"\n# vetra: threshold 1 40 60.5\n"));

    undoAll();
    EXPECT_TRUE(window.isWindowModified());
    openLabels("mine.nii.gz");
    EXPECT_EQ(session.undoStack().undoText(), "Load mine.nii.gz");
    EXPECT_EQ(session.tagName(1), "Liver");
    EXPECT_EQ(session.thresholds(1), (Thresholds{40, 60.5}));
    EXPECT_EQ(session.tagColour(2), QColor(1, 2, 3));
    EXPECT_FALSE(window.isWindowModified());

    driver.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(session.tagName(1), "");
    EXPECT_TRUE(window.isWindowModified());
    driver.key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(session.tagName(1), "Liver");
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(Tables, AreNotMadeWhenTheyWouldSayNothing)
{
    open(imageFile("first.nii"));
    paint();
    save("mine.nii.gz");
    EXPECT_TRUE(exists("mine.nii.gz"));
    EXPECT_FALSE(exists("mine.label"));
}

TEST_F(Tables, OfThisSessionFollowWhenTheLastNameIsTakenBack)
{
    openPaintAndName();
    save("mine.nii.gz");
    undoAll();
    save("mine.nii.gz");
    EXPECT_EQ(message(), "");
    EXPECT_FALSE(session.isModified());
    EXPECT_FALSE(bytes("mine.label").contains("Liver"));
}

TEST_F(Tables, OfLoadedLabelsAreReplacedWithoutAsking)
{
    openPaintAndName();
    save("mine.nii.gz");
    file("mine.label", foreign);
    openLabels("mine.nii.gz");
    EXPECT_EQ(session.tagName(7), "Theirs");
    EXPECT_EQ(session.tagName(1), "");
    nameTag(1, "Spleen");
    save("mine.nii.gz");
    EXPECT_EQ(message(), "");
    EXPECT_TRUE(bytes("mine.label").contains("Theirs"));
    EXPECT_TRUE(bytes("mine.label").contains("Spleen"));
}

TEST_F(Tables, ThatCannotBeReadDoNotKeepTheLabelsAway)
{
    openPaintAndName();
    save("mine.nii.gz");
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    driver.key(Qt::Key_Z, Qt::ControlModifier);
    nameTag(3, "Mine");
    file("mine.label", "7 1 2 300 1 1 1 \"Theirs\"\n");
    openLabels("mine.nii.gz");
    EXPECT_EQ(message(), "\"mine.label\", line 1: blue is \"300\", not a whole number from 0 to 255. Correct or remove "
                         "this line in a text editor. The labels are shown without it.");
    EXPECT_GT(std::ranges::count(session.labels().tags(), 1), 0);
    EXPECT_EQ(session.labelPath(), path("mine.nii.gz"));
    EXPECT_EQ(session.tagName(3), "Mine");
    EXPECT_TRUE(session.isTableModified());
}

TEST_F(Tables, ThatCannotBeWrittenAreToldAndStayUnsaved)
{
    openPaintAndName();
    ASSERT_TRUE(QDir().mkpath(path("mine.label")));
    save("mine.nii.gz");
    answer(QMessageBox::Yes);
    waitUntilIdle();
    EXPECT_TRUE(message().contains("mine.label\" cannot be saved")) << message().toStdString();
    EXPECT_EQ(statusText(), "Labels saved to \"mine.nii.gz\".");
    EXPECT_FALSE(session.areLabelsModified());
    EXPECT_TRUE(session.isTableModified());
}

TEST_F(Tables, TellWhatTheyCannotHold)
{
    open(imageFile("first.nii"));
    nameTag(1, "The \"big\" one");
    save("mine.nii.gz");
    EXPECT_EQ(statusText(), "Labels saved to \"mine.nii.gz\". Quotes and line ends in names cannot be saved: tag 1 is "
                            "called \"The 'big' one\" in the file.");
    file("mine.label", "300 1 2 3 1 1 1 \"Beyond\"\n");
    openLabels("mine.nii.gz");
    EXPECT_TRUE(statusText().endsWith("Tags above 255 are kept in the table, but cannot be shown."))
        << statusText().toStdString();
    save("mine.nii.gz");
    EXPECT_TRUE(bytes("mine.label").contains("\"Beyond\""));
}

// ---------------------------------------------------------------------------------------------- a table of others

TEST_F(Tables, OfOthersAreKeptWhenTheUserSaysSo)
{
    keepForeignTable();
    EXPECT_EQ(message(), "Beside the label map there is already a label table \"mine.label\".");
    EXPECT_FALSE(exists("mine.nii.gz")); // nothing is written before the answer
    answer(QMessageBox::No);
    waitUntilIdle();
    EXPECT_EQ(bytes("mine.label"), foreign);
    EXPECT_FALSE(session.areLabelsModified());
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(statusText(),
        "Labels saved to \"mine.nii.gz\". Names, colours and thresholds are not: \"mine.label\" is kept.");

    window.files().save(); // asked once is enough
    waitUntilIdle();
    EXPECT_EQ(message(), "");
    EXPECT_EQ(bytes("mine.label"), foreign);
}

TEST_F(Tables, OfOthersAreReplacedWhenTheUserSaysSo)
{
    keepForeignTable();
    answer(QMessageBox::Yes);
    waitUntilIdle();
    EXPECT_TRUE(bytes("mine.label").contains("Liver"));
    EXPECT_FALSE(session.isModified());
    nameTag(1, "Spleen");
    window.files().save(); // it is ours now
    waitUntilIdle();
    EXPECT_EQ(message(), "");
    EXPECT_TRUE(bytes("mine.label").contains("Spleen"));
}

TEST_F(Tables, OfOthersCanStopTheSaving)
{
    keepForeignTable();
    answer(QMessageBox::Cancel);
    waitUntilIdle();
    EXPECT_FALSE(exists("mine.nii.gz"));
    EXPECT_EQ(bytes("mine.label"), foreign);
    EXPECT_TRUE(session.areLabelsModified());
}

TEST_F(Tables, OfOthersDoNotMatterWhenThereIsNothingToSay)
{
    open(imageFile("first.nii"));
    paint();
    file("mine.label", foreign);
    save("mine.nii.gz");
    EXPECT_EQ(message(), "");
    EXPECT_FALSE(session.isModified());
    EXPECT_EQ(bytes("mine.label"), foreign);
}

// ------------------------------------------------------------------------------------------------- on their own

TEST_F(Tables, CanBeOpenedAndSavedWithoutAnImage)
{
    file("organs.label", foreign);
    openTable("organs.label");
    EXPECT_EQ(session.tagName(7), "Theirs");
    EXPECT_EQ(session.undoStack().undoText(), "Load organs.label");
    EXPECT_FALSE(session.isModified());
    session.setThresholds(7, Thresholds{1, 2});
    EXPECT_EQ(window.windowTitle(), QString("tags[*] \u2014 Vetra"));
    EXPECT_TRUE(window.isWindowModified());

    window.files().saveTableAs();
    chooseFile("mine"); // gets its ending
    EXPECT_TRUE(bytes("mine.label").contains("# vetra: threshold 7 1 2\n"));
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(window.windowTitle(), "Vetra");
    EXPECT_EQ(bytes("organs.label"), foreign);
}

TEST_F(Tables, AreInTheFileMenuAlsoWithoutAnImage)
{
    for (const char* entry : {"Open label &table...", "Sa&ve label table as..."}) {
        const auto actions = window.findChildren<QAction*>();
        const auto action = std::ranges::find(actions, QString(entry), &QAction::text);
        ASSERT_NE(action, actions.end()) << entry;
        EXPECT_TRUE((*action)->isEnabled()) << entry;
        (*action)->trigger();
        EXPECT_TRUE(qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) << entry;
        driver.key(Qt::Key_Escape);
    }
}

TEST_F(Tables, ThatCannotBeOpenedLeaveTheTags)
{
    nameTag(3, "Mine");
    file("organs.label", "nonsense\n");
    openTable("organs.label");
    EXPECT_TRUE(message().startsWith("\"organs.label\", line 1: ")) << message().toStdString();
    EXPECT_EQ(session.tagName(3), "Mine");
    EXPECT_EQ(session.undoStack().count(), 1);
}

TEST_F(Tables, AreNotSavedOverOtherFiles)
{
    nameTag(3, "Mine");
    const QByteArray image = [&] {
        imageFile("first.nii");
        return bytes("first.nii");
    }();
    window.files().saveTableTo(path("first.nii"));
    waitUntilIdle();
    EXPECT_TRUE(message().startsWith("\"first.nii\" is no name for a label table.")) << message().toStdString();
    EXPECT_EQ(bytes("first.nii"), image);
    EXPECT_TRUE(session.isModified());
}

// ------------------------------------------------------------------------------------------ before something is lost

TEST_F(Tables, AreAskedForBeforeClosing)
{
    nameTag(3, "Mine");
    EXPECT_FALSE(window.close());
    EXPECT_EQ(message(), "Names, colours and thresholds of the tags are not saved.");
    answer(QMessageBox::Cancel);
    EXPECT_TRUE(window.isVisible());
    window.close();
    answer(QMessageBox::Save);
    chooseFile("mine.label");
    EXPECT_TRUE(Driver::waitFor([this] { return !window.isVisible(); }));
    EXPECT_TRUE(bytes("mine.label").contains("Mine"));
}

TEST_F(Tables, OfSavedLabelsAreSavedAloneBeforeClosing)
{
    openPaintAndName();
    save("mine.nii.gz");
    ASSERT_TRUE(QFile::remove(path("mine.nii.gz")));
    nameTag(3, "Mine");
    window.close();
    answer(QMessageBox::Save);
    EXPECT_TRUE(Driver::waitFor([this] { return !window.isVisible(); }));
    EXPECT_TRUE(bytes("mine.label").contains("Mine"));
    EXPECT_FALSE(exists("mine.nii.gz")); // the labels had nothing new
}

TEST_F(Tables, ThatWereKeptAreAskedForAgainBeforeClosing)
{
    keepForeignTable();
    answer(QMessageBox::Cancel);
    window.close();
    answer(QMessageBox::Save); // the labels
    chooseFile("mine.nii.gz");
    answer(QMessageBox::No); // their table stays
    waitUntilIdle();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(message(), "Names, colours and thresholds of the tags are not saved.");
    answer(QMessageBox::Save);
    chooseFile("other.label");
    EXPECT_TRUE(Driver::waitFor([this] { return !window.isVisible(); }));
    EXPECT_EQ(bytes("mine.label"), foreign);
    EXPECT_TRUE(bytes("other.label").contains("Liver"));
}

TEST_F(Tables, StayWithTheNextImageSoNobodyIsAsked)
{
    open(imageFile("first.nii"));
    nameTag(3, "Mine");
    open(imageFile("second.nii"));
    EXPECT_EQ(message(), "");
    EXPECT_EQ(session.imageName(), "second.nii");
    EXPECT_EQ(session.tagName(3), "Mine");
    EXPECT_TRUE(window.isWindowModified());
}
