#pragma once

#include "workbench/model/marker_table.h"

#include <QUndoCommand>

namespace workbench {

class Markers;

/// A change of the markers.
class MarkerCommand : public QUndoCommand {
public:
    MarkerCommand(Markers& markers, const QString& text, MarkerTable::State before, MarkerTable::State after);
    void undo() override;
    void redo() override;

private:
    void put(const MarkerTable::State& from, const MarkerTable::State& to);

    Markers& markers_;
    MarkerTable::State before_, after_;
    bool first_ = true;
};

}
