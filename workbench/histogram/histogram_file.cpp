#include "workbench/histogram/histogram_file.h"

#include "histo/tool_histo.h"
#include "workbench/document/safe_file.h"
#include "workbench/document/text.h"
#include "workbench/histogram/report_recorder.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace workbench {

namespace {

int peaksOf(const Tool_Histo& panel)
{
    return panel.Peaks() ? panel.Peaks()->nb : 0;
}

// Of the whole file: separator, title and empty line, header, bins and empty line; for peaks two empty lines, their
// number, header, rows and empty line.
long expectedLines(const Tool_Histo& panel)
{
    const int peaks = peaksOf(panel);
    return panel.histo->nb_bins + 5L + (peaks > 0 ? peaks + 5L : 0L);
}

bool isWhole(const std::filesystem::path& file, long lines)
{
    std::ifstream stream(file, std::ios::binary);
    const long found = std::count(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>(), '\n');
    return !stream.bad() && found == lines;
}

}

std::optional<document::Failure> exportHistogram(Tool_Histo& panel, const std::filesystem::path& target)
{
    constexpr std::uint64_t bytesOfLine = 32;
    const long lines = expectedLines(panel);
    return document::replace_file(target, bytesOfLine * static_cast<std::uint64_t>(lines),
        [&](const std::filesystem::path& temporary) -> std::optional<document::Failure> {
            std::string name = temporary.string();
            const ReportRecorder recorder;
            if (panel.Write(name.data()) != 1)
                return document::Failure{"the table could not be written (" + recorder.warnings() + ")"};
            if (!isWhole(temporary, lines))
                return document::Failure{"the table could not be written whole"};
            return std::nullopt;
        });
}

}
