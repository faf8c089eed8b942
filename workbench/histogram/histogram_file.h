#pragma once

#include "workbench/document/result.h"

#include <filesystem>
#include <optional>

class Tool_Histo;

namespace workbench {

/// Writes the panel's histogram, and its peaks, into a file for a spreadsheet. It is written beside the target and
/// checked to be whole before it takes the target's place: whatever fails, a file that was there stays. The panel must
/// have a histogram. Returns what went wrong, or nothing.
std::optional<document::Failure> exportHistogram(Tool_Histo& panel, const std::filesystem::path& target);

}
