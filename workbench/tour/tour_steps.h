#pragma once

#include "workbench/tour/driver.h"

#include <QStringList>

#include <cstdint>
#include <stdexcept>
#include <vector>

namespace workbench {

class DatabaseEditor;
class MainWindow;
class Session;

/// A step did not do what it should.
class StepFailed final : public std::runtime_error {
public:
    explicit StepFailed(const QString& reason) : std::runtime_error(reason.toStdString()) {}
};

/// The steps of the tour. Each works the window with mouse and keys, checks what came of it and says it in a line; it
/// throws StepFailed when it is not what it should be. They are played in this order.
class TourSteps {
public:
    /// @param labelFile  where the last step saves the label map; a file that is there is replaced
    TourSteps(Session& session, MainWindow& window, QStringList paths, QString labelFile);

    QString open();
    QString chooseTag();
    QString rename();
    QString chooseBrush();
    QString paint(); ///< on several slices
    QString paintSecondTag();
    QString erase();
    QString undo();
    QString redo();
    QString propagate(); ///< over ten slices, or as many as follow
    QString changeWindow();
    QString zoom();
    QString save();
    QString browse();    ///< folds the database and chooses a slice in it
    QString selectAll(); ///< in its list of files
    QString fitPeaks();
    QString exportHistogram(); ///< beside the label map
    QString openGraph();
    QString openStudies();   ///< of real DICOM files, where Debian's python3-pydicom has some
    QString chooseVolume();  ///< in the tree of volumes
    QString chooseSignals(); ///< all of a study
    QString editDatabase();  ///< opens the window for it
    QString moveSlice();     ///< to another series, when there is one
    QString deleteSeries();
    QString updateDatabase(); ///< as it was

    /// What the last step left on the screen.
    QImage picture() const;

private:
    using Tags = std::vector<std::uint8_t>;

    Tags tags() const;
    std::size_t painted(unsigned tag) const;
    std::size_t paintedOnFrame() const;
    QPoint tagPlace(unsigned tag) const;
    QPoint brushPlace(unsigned brush) const;
    QPoint inView(double x, double y) const;
    std::vector<QPoint> arc(double radius, double from, double to) const;
    void clickTag(unsigned tag);
    void chooseAdapting();
    void writeIntoDialog(const QString& path);
    DatabaseEditor& editor() const;

    Session& session_;
    MainWindow& window_;
    QStringList paths_;
    QString labelFile_;
    Driver driver_;
    Tags beforeErasing_;
    Tags afterErasing_;
};

}
