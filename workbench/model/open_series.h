#pragma once

#include "workbench/document/label_map.h"
#include "workbench/document/volume.h"
#include "workbench/model/marker_table.h"

#include <cstdint>
#include <QString>
#include <QUndoStack>

class Strato_2D;

namespace workbench {

/// The markers of a series and the file that they are in.
struct MarkerSheet {
    MarkerTable::Sheet table;
    QString path;
    unsigned current = 0;
};

/// A series that is open, with all that is its own. Markers are kept here while another series is the current one.
struct OpenSeries {
    document::Volume volume;
    document::LabelMap labels;
    document::Window window;
    Strato_2D* object = nullptr; ///< in the host's tree
    QString labelPath;           ///< that the labels were saved to or loaded from; may be empty

    // Each state of the labels has a number of its own, so that it is known which of them a file holds.
    std::uint64_t revision = 0;
    std::uint64_t savedRevision = 0;

    MarkerSheet markers;
    QUndoStack undo{nullptr};

    bool areLabelsModified() const { return revision != savedRevision; }
};

}
