#pragma once

#include "workbench/shell/histogram_panel.h"

#include <QWidget>

#include <optional>

class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace workbench {

/// The histogram in the tool column: which slices and which colour it is of, the panel, and what a fit found.
class HistogramSection final : public QWidget {
    Q_OBJECT
public:
    explicit HistogramSection(Session& session, QWidget* parent = nullptr);

    HistogramPanel& histogram() { return histogram_; }

    /// After a change of the interface's size.
    void layOut();

signals:
    void exportWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makeFrameRow();
    QWidget* makeButtonRow();
    void chooseFrames(int index);
    void chooseRange();
    void followImage();
    void followSelection();
    void showResult();
    QString peakLines() const;

    Session& session_;
    HistogramPanel histogram_;
    QWidget* panelWidget_;
    QComboBox* frames_;
    QSpinBox* first_;
    QSpinBox* last_;
    QLabel* to_;
    QComboBox* component_;
    QPushButton* fit_;
    QPushButton* export_;
    QLabel* result_;
    std::optional<float> keptZoom_; // while the panel is laid out
};

}
