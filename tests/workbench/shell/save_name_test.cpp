#include "tests/workbench/shell/shell_test.h"

#include "host/structures.h"
#include "hostkit/structures/registry.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>

#include <cstdio>
#include <cstring>

// The dialog in which panels ask for the name of a file.

namespace {

using SaveName = test::Shell;

int ask(char* name, const std::function<void(QFileDialog&)>& answer)
{
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        answer(*dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
    char* filter = Fct_Create_szFilter(2, "DB Files", "$FILE_EXTENSION_EXCEL", "All Files", "$FILE_EXTENSION_ALL");
    return Fct_Save_FileName("Write histogram info to file", filter, name, "csv", name, 0);
}

}

TEST_F(SaveName, IsOfferedInTheHomeFolder)
{
    char name[1024] = "";
    std::snprintf(name, sizeof name, "%shistogram", hostkit::String_Variable("$DEFAULT_FILE_PATH"));
    EXPECT_EQ(ask(name,
                  [&](QFileDialog& dialog) {
                      EXPECT_EQ(dialog.directory(), QDir::home());
                      EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), QStringLiteral("histogram"));
                      EXPECT_EQ(dialog.nameFilters(), (QStringList{"DB Files (*.csv)", "All Files (*)"}));
                      EXPECT_EQ(dialog.parentWidget(), &window) << "it stays above the window that asks";
                      EXPECT_TRUE(dialog.isModal());
                      dialog.reject();
                  }),
        0);
}

namespace {

void accept(QFileDialog& dialog)
{
    QMetaObject::invokeMethod(&dialog, "accept");
}

}

TEST_F(SaveName, ThatIsConfirmedIsWritten)
{
    showImage();
    char name[1024] = "";
    std::strcpy(name, path("histogram").toUtf8().constData());
    EXPECT_EQ(ask(name, accept), 0) << "there is nothing left to write for who asked";
    QFile table(path("histogram.csv"));
    ASSERT_TRUE(table.open(QIODevice::ReadOnly));
    EXPECT_TRUE(table.readAll().startsWith("sep="));
    EXPECT_TRUE(message().isEmpty()) << message().toStdString();
}

TEST_F(SaveName, DoesNotTakeTheImagesPlace)
{
    const QString image = imageFile("image.nii");
    open(image);
    QFile before(image);
    ASSERT_TRUE(before.open(QIODevice::ReadOnly));
    const QByteArray bytes = before.readAll();
    char name[1024] = "";
    std::strcpy(name, image.toUtf8().constData());
    EXPECT_EQ(ask(name,
                  [](QFileDialog& dialog) {
                      QTimer::singleShot(0, [] { answer(QMessageBox::Yes); }); // it may be written over
                      accept(dialog);
                  }),
        0);
    waitForMessage();
    EXPECT_TRUE(message().contains("is the open image itself")) << message().toStdString();
    answer(QMessageBox::Ok);
    QFile after(image);
    ASSERT_TRUE(after.open(QIODevice::ReadOnly));
    EXPECT_EQ(after.readAll(), bytes);
}

TEST_F(SaveName, ThatCannotBeWrittenIsTold)
{
    showImage();
    QFile old(path("old.csv"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    ASSERT_TRUE(old.setPermissions(QFile::ReadOwner));
    char name[1024] = "";
    std::strcpy(name, path("old.csv").toUtf8().constData());
    ask(name, [](QFileDialog& dialog) {
        QTimer::singleShot(0, [] { answer(QMessageBox::Yes); });
        accept(dialog);
    });
    waitForMessage();
    EXPECT_TRUE(message().contains("read-only")) << message().toStdString();
    answer(QMessageBox::Ok);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), "old");
}
