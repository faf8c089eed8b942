#pragma once

#include "hostkit/embedding/panel_slot.h"
#include "tools/tool_propagate.h"

#include <QWidget>

class QComboBox;
class QPushButton;
class QSpinBox;

namespace workbench {

class Session;
class Worker;

/// Propagating in the tool column: the panel that goes to a neighbouring slice and carries the tags along, how they are
/// carried, and doing it over several slices at once. There is one at a time.
class PropagateSection final : public QWidget {
    Q_OBJECT
public:
    /// @param worker  runs what takes longer. Session and worker must outlive it
    PropagateSection(Session& session, Worker& worker, QWidget* parent = nullptr);
    ~PropagateSection() override;

    hostkit::Panel_Window& host() { return slot_.host(); }
    QWidget& panelWidget() const { return *panelWidget_; }

    /// After a change of the interface's size.
    void layOut();

    /// To the next (1) or the previous slice (-1), as the panel's buttons do.
    void propagate(int direction);

    /// Over as many slices as the number says.
    void propagateOver(int direction);

signals:
    void said(const QString& text); ///< for the status bar

private:
    QWidget* makeModeRow();
    QWidget* makeOverRow();
    bool leadsSomewhere(int direction);
    void followFrame();
    void followMode();

    Session& session_;
    Worker& worker_;
    hostkit::Panel_Slot<Tool_Propagate> slot_;
    QWidget* panelWidget_;
    QComboBox* mode_;
    QSpinBox* count_;
    QPushButton* down_;
    QPushButton* up_;
};

}
