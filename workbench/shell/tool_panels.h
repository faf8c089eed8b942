#pragma once

#include "hostkit/embedding/panel_slot.h"
#include "tools/tool_brush.h"
#include "tools/tool_tag.h"
#include "workbench/shell/histogram_section.h"
#include "workbench/shell/marker_panel.h"
#include "workbench/shell/panel_keys.h"
#include "workbench/shell/propagate_section.h"

#include <QObject>

namespace workbench {

class Session;
class ToolColumn;

/// The panels as sections of the tool column.
class ToolPanels final : public QObject {
    Q_OBJECT
public:
    /// Makes the panels and appends their sections. Session, column and worker must outlive them.
    ToolPanels(Session& session, ToolColumn& column, Worker& worker);

    /// Lays all panels out again, after a change of the interface's size or of the number of tags.
    void layOut();

    QWidget& tagWidget() const { return *tagWidget_; }
    QWidget& brushWidget() const { return *brushWidget_; }
    PropagateSection& propagation() const { return *propagation_; }
    QWidget& markerWidget() const { return markers_.widget(); }
    HistogramSection& histogram() const { return *histogram_; }
    bool editing() { return tags_.host().Editing() || brushes_.host().Editing() || markers_.host().Editing(); }

private:
    void fitHeights();
    void followTagCount();

    Session& session_;
    ToolColumn& column_;
    hostkit::Panel_Slot<Tool_Tag> tags_;
    hostkit::Panel_Slot<Tool_Brush> brushes_;
    QWidget* tagWidget_;
    QWidget* brushWidget_;
    PropagateSection* propagation_;
    MarkerPanel markers_;
    HistogramSection* histogram_;
    unsigned laidOutTags_ = 0;
    PanelKeys keys_;
};

}
