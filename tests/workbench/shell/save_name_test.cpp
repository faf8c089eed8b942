#include "tests/workbench/shell/shell_test.h"

#include "host/structures.h"
#include "hostkit/structures/registry.h"

#include <QApplication>
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

TEST_F(SaveName, IsTheOneThatWasConfirmed)
{
    char name[1024] = "";
    std::strcpy(name, path("histogram").toUtf8().constData());
    EXPECT_EQ(ask(name, [](QFileDialog& dialog) { QMetaObject::invokeMethod(&dialog, "accept"); }), 1);
    EXPECT_EQ(QString::fromUtf8(name), path("histogram.csv"));
}
