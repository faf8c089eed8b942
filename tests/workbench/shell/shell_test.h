#pragma once

#include "workbench/shell/main_window.h"
#include "workbench/shell/status_line.h"
#include "workbench/shell/tool_panels.h"
#include "workbench/tour/driver.h"

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QTemporaryDir>

#include <vector>

/// What the shell's tests share: a workbench on the screen, a folder for files, and a person at mouse and keys.
namespace test {

class Shell : public ::testing::Test {
protected:
    Shell();

    /// A file with an image of this size in the folder; its name.
    QString imageFile(const QString& name, std::array<int, 3> size = {40, 30, 5});

    /// A file with these bytes.
    QString file(const QString& name, const QByteArray& bytes);
    QString path(const QString& name) const { return folder_.filePath(name); }

    /// Shows an image that comes from no file.
    void showImage(std::array<int, 3> size = {40, 30, 5});

    void open(const QString& file);
    void paint(); ///< a stroke in the middle

    static QString message() { return workbench::Driver::openMessage(); }

    /// Presses a button of the message box that is open.
    static void answer(QMessageBox::StandardButton button);
    static void waitForMessage();
    void waitUntilIdle();

    QPoint middleOf(const QWidget& widget) const { return widget.rect().center(); }
    QPoint tagPlace(unsigned tag);
    QPoint brushPlace(unsigned brush);

    workbench::Session session;
    workbench::MainWindow window{session};
    workbench::Driver driver{window};

private:
    QTemporaryDir folder_;
};

/// Writes what a widget shows to out/NAME.png, for looking at.
void keepPicture(QWidget& widget, const QString& name);

}
