#include "workbench/command/histogram_report.h"

#include "histo/tool_histo.h"
#include "workbench/document/text.h"
#include "workbench/histogram/peak_table.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <numeric>
#include <span>

namespace workbench {

namespace {

using document::number_text;
using Json = nlohmann::ordered_json;

std::span<const unsigned> counts(const Tool_Histo& panel, const unsigned* array)
{
    return {array, array ? panel.histo->nb_bins : std::size_t{0}};
}

std::string padded(const std::string& text, std::size_t width)
{
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string withUnit(double value, const std::string& unit)
{
    return number_text(value) + (unit.empty() ? "" : " " + unit);
}

// A row for some neighbouring bins each, with a bar.
std::string rows(const Tool_Histo& panel, double factor)
{
    constexpr int mostRows = 16;
    constexpr unsigned long long longestBar = 40;
    const Histo_Record& histogram = *panel.histo;
    const unsigned* shown = panel.Shown_Counts();
    const int perRow = (histogram.nb_bins + mostRows - 1) / mostRows;
    std::vector<unsigned long long> sums;
    for (int bin = 0; bin < histogram.nb_bins; bin += perRow)
        sums.push_back(std::accumulate(shown + bin, shown + std::min<int>(bin + perRow, histogram.nb_bins), 0ull));
    const auto largest = std::max(1ull, *std::max_element(sums.begin(), sums.end()));
    std::string text = padded("from", 12) + padded("count", 14) + '\n';
    for (std::size_t row = 0; row < sums.size(); ++row) {
        const double from = (histogram.min + static_cast<double>(row) * perRow * histogram.width) / factor;
        const std::string bar(static_cast<std::size_t>(sums[row] * longestBar / largest), '#');
        text += padded(number_text(from), 12) + padded(std::to_string(sums[row]), 14);
        text += (bar.empty() ? "" : "  " + bar) + '\n';
    }
    return text;
}

std::string peakRows(const Tool_Histo& panel, double factor)
{
    const auto peaks = fittedPeaks(panel, factor);
    std::string text = std::to_string(peaks.size()) + (peaks.size() == 1 ? " peak\n" : " peaks\n");
    if (peaks.empty())
        return text;
    text += padded("center", 12) + padded("height", 14) + padded("half width", 12) + '\n';
    for (const FittedPeak& peak : peaks)
        text += padded(number_text(peak.centerValue), 12) + padded(number_text(peak.height), 14) +
                padded(number_text(peak.widthValue), 12) + '\n';
    return text;
}

bool isToldInJson(int level)
{
    return level == 1 || level == 2 || level == 4 || level == 11;
}

// Reports are bytes, not always UTF-8: each becomes the character of its number.
std::string bytesAsCharacters(const std::string& bytes)
{
    std::string utf8;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x80) {
            utf8 += byte;
        } else {
            utf8 += static_cast<char>(0xC0 | code >> 6);
            utf8 += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    return utf8;
}

void addFit(Json& object, const Tool_Histo& panel, const std::vector<hostkit::Report>& reports)
{
    const Histo_Peaks* found = panel.Peaks();
    const bool smoothed = found && found->smooth;
    object["smoothed"] = std::span(smoothed ? found->smooth : nullptr, smoothed ? std::size_t(found->nb_pts) : 0);
    object["peaks"] = Json::array();
    for (const FittedPeak& peak : fittedPeaks(panel))
        object["peaks"].push_back({{"center", peak.center}, {"center_value", peak.centerValue}, {"height", peak.height},
            {"width", peak.width}});
    object["messages"] = Json::array();
    for (const auto& report : reports) {
        if (isToldInJson(report.level))
            object["messages"].push_back(Json::array({report.level, bytesAsCharacters(report.text)}));
    }
}

}

std::string histogramTable(const Tool_Histo& panel, const std::string& title, double factor, const std::string& unit)
{
    const Histo_Record& histogram = *panel.histo;
    const auto shown = counts(panel, panel.Shown_Counts());
    const auto largest = std::max_element(shown.begin(), shown.end());
    const double at = histogram.min + (static_cast<double>(largest - shown.begin()) + 0.5) * histogram.width;
    std::string text = title + '\n';
    text += std::to_string(histogram.nb_bins) + " bins of " + withUnit(histogram.width / factor, unit) + " from " +
            withUnit(histogram.min / factor, unit) + '\n';
    text += std::to_string(std::accumulate(shown.begin(), shown.end(), 0ull)) + " pixels; the largest count is " +
            std::to_string(*largest) + " at " + withUnit(at / factor, unit) + '\n';
    text += rows(panel, factor);
    if (panel.Peaks())
        text += peakRows(panel, factor);
    return text;
}

std::string histogramJson(const Tool_Histo& panel, const std::vector<hostkit::Report>* reports)
{
    const Histo_Record& histogram = *panel.histo;
    Json object;
    object["nb_bins"] = histogram.nb_bins;
    object["min"] = static_cast<double>(histogram.min);
    object["width"] = static_cast<double>(histogram.width);
    object["max_count"] = histogram.max_count;
    object["count"] = counts(panel, histogram.count);
    if (histogram.flags & 1) {
        object["red"] = counts(panel, histogram.red);
        object["green"] = counts(panel, histogram.green);
        object["blue"] = counts(panel, histogram.blue);
        object["max_component"] = counts(panel, histogram.max_component);
    }
    object["x_unit"] = panel.x_unit;
    if (reports)
        addFit(object, panel, *reports);
    return object.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

}
