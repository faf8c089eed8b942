#include "tests/platform/test_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <cstring>
#include <functional>

// The dialog for the name of a file, answered as a user does.

namespace {

class FileDialog : public ::testing::Test {
protected:
    FileDialog() { std::strcpy(path, (folder.filePath("histogram")).toUtf8().constData()); }

    /// Asks, and answers with what is done to the dialog.
    BOOL ask(const std::function<void(QFileDialog&)>& answer)
    {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            answer(*dialog);
            if (dialog->isVisible())
                dialog->reject(); // it would wait for ever
        });
        return GetSaveFileNameA(&asked);
    }

    static void type(QFileDialog& dialog, const QString& name)
    {
        auto* line = dialog.findChild<QLineEdit*>();
        ASSERT_NE(line, nullptr);
        line->setText(name);
    }

    /// Confirms, and answers the question whether the file that is there may go. @return whether it was asked
    static bool confirm(QFileDialog& dialog, QMessageBox::StandardButton answer)
    {
        bool was_asked = false;
        QTimer::singleShot(0, [&] {
            if (auto* question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                was_asked = true;
                question->button(answer)->click();
            }
        });
        QMetaObject::invokeMethod(&dialog, "accept");
        QCoreApplication::processEvents();
        return was_asked;
    }

    void make_file(const char* name) const
    {
        QFile file(folder.filePath(QString::fromUtf8(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    std::string in_folder(const char* name) const { return folder.filePath(QString::fromUtf8(name)).toStdString(); }

    QTemporaryDir folder;
    char path[1024] = "";
    OPENFILENAMEA asked{sizeof(OPENFILENAMEA), nullptr, "Tables\0*.csv;*.txt\0All\0*\0", path, sizeof path, "Write it",
        OFN_OVERWRITEPROMPT, "csv"};
};

}

TEST_F(FileDialog, OffersWhatItIsTold)
{
    ask([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Write it"));
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(dialog.directory().path(), folder.path());
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), QStringLiteral("histogram"));
        EXPECT_EQ(dialog.nameFilters(), (QStringList{"Tables (*.csv *.txt)", "All (*)"}));
    });
}

TEST_F(FileDialog, GivesTheConfirmedNameWithItsExtension)
{
    EXPECT_TRUE(ask([&](QFileDialog& dialog) { EXPECT_FALSE(confirm(dialog, QMessageBox::No)); }));
    EXPECT_EQ(path, in_folder("histogram.csv"));
    std::strcpy(path, in_folder("x").c_str());
    EXPECT_TRUE(ask([&](QFileDialog& dialog) {
        type(dialog, QString::fromUtf8("H\xC3\xB6he.txt"));
        confirm(dialog, QMessageBox::No);
    }));
    EXPECT_EQ(path, in_folder("H\xC3\xB6he.txt"));
}

TEST_F(FileDialog, DismissedLeavesTheNameAlone)
{
    EXPECT_FALSE(ask([](QFileDialog& dialog) { dialog.reject(); }));
    EXPECT_EQ(path, in_folder("histogram"));
}

TEST_F(FileDialog, AsksBeforeAFileIsReplaced)
{
    make_file("histogram.csv");
    EXPECT_FALSE(ask([](QFileDialog& dialog) { EXPECT_TRUE(confirm(dialog, QMessageBox::No)); }));
    EXPECT_TRUE(ask([](QFileDialog& dialog) { EXPECT_TRUE(confirm(dialog, QMessageBox::Yes)); }));
    EXPECT_EQ(path, in_folder("histogram.csv"));
}

TEST_F(FileDialog, DoesNotAskWhenItIsNotToldTo)
{
    make_file("histogram.csv");
    asked.Flags = 0;
    EXPECT_TRUE(ask([](QFileDialog& dialog) { EXPECT_FALSE(confirm(dialog, QMessageBox::No)); }));
}

TEST_F(FileDialog, NameWithoutFolderIsInTheCurrentOne)
{
    std::strcpy(path, "histogram");
    ask([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path(), QDir::currentPath());
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), QStringLiteral("histogram"));
    });
}

TEST_F(FileDialog, FolderAloneOffersNoName)
{
    std::strcpy(path, (in_folder("") + "/").c_str());
    ask([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path(), folder.path());
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), QString());
    });
}

TEST_F(FileDialog, NameThatIsTooLongIsRefused)
{
    asked.nMaxFile = 10;
    EXPECT_FALSE(ask([](QFileDialog& dialog) { confirm(dialog, QMessageBox::Yes); }));
    EXPECT_EQ(path, in_folder("histogram"));
}

TEST_F(FileDialog, BelongsToItsOwner)
{
    const test::Test_Window owner;
    asked.hwndOwner = owner.handle();
    test::pump();
    ask([](QFileDialog& dialog) { EXPECT_NE(dialog.parentWidget(), nullptr); });
}

TEST_F(FileDialog, QuestionOfAnotherSizeIsNone)
{
    asked.lStructSize = 4;
    EXPECT_FALSE(GetSaveFileNameA(&asked));
    EXPECT_FALSE(GetSaveFileNameA(nullptr));
    asked.lStructSize = sizeof asked;
    asked.lpstrFile = nullptr;
    EXPECT_FALSE(GetSaveFileNameA(&asked));
}
