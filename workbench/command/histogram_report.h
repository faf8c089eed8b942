#pragma once

#include "hostkit/basics/report.h"

#include <string>
#include <vector>

class Tool_Histo;

namespace workbench {

/// A short table of the panel's histogram, and of its peaks after a fit, to be read by people: in the image's own grey
/// values.
/// @param title   what it is of, with the number of frames
/// @param factor  what panels see grey values multiplied by
/// @param unit    of grey values; may be empty
std::string histogramTable(const Tool_Histo& panel, const std::string& title, double factor, const std::string& unit);

/// The panel's histogram, as the panel sees it, as one JSON object; numbers read back exactly. After a fit (`reports`
/// is not null) with the smoothed counts, the peaks and the reports at levels 1, 2, 4 and 11.
std::string histogramJson(const Tool_Histo& panel, const std::vector<hostkit::Report>* reports);

}
