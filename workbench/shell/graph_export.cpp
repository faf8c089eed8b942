#include "workbench/shell/graph_export.h"

#include "workbench/shell/files.h"

#include <utility>

namespace workbench {

// Only the graph window asks for such names. It is told that nothing was chosen, because all is done.
GraphExport::GraphExport(Files& files, HistogramPanel& histogram)
    : before_(hostkit::Set_Save_Chooser(
          [&files, &histogram](const hostkit::Save_Question& question) -> std::optional<std::string> {
              if (const auto path = hostkit::Ask_With_System_Dialog(question))
                  files.exportHistogramTo(histogram, QString::fromStdString(*path));
              return std::nullopt;
          }))
{
}

GraphExport::~GraphExport()
{
    hostkit::Set_Save_Chooser(std::move(before_));
}

}
