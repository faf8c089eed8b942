#pragma once

#include "hostkit/structures/save_chooser.h"

namespace workbench {

class Files;
class HistogramPanel;

/// Lets "Export" of the graph window, while this lives, write as the workbench's own export does: whole or not at all,
/// never in the place of the open image, and told.
class GraphExport {
public:
    /// Both must outlive it.
    GraphExport(Files& files, HistogramPanel& histogram);
    ~GraphExport();
    GraphExport(const GraphExport&) = delete;
    GraphExport& operator=(const GraphExport&) = delete;

private:
    hostkit::Save_Chooser before_;
};

}
