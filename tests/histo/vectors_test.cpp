// Compares the histogram with cases from a folder: histo_vectors_runner [FOLDER], or the folder in VETRA_VECTORS.
// Without a folder there is nothing to compare.

#include "tests/histo/vectors.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iostream>

namespace test {

std::string bytes_of(const std::string& text)
{
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        const auto lead = static_cast<unsigned char>(text[i]);
        bytes += lead < 0x80 ? text[i] : static_cast<char>((lead & 3) << 6 | (text[++i] & 0x3f));
    }
    return bytes;
}

Counts counts_of(const json& array)
{
    return array.is_null() ? Counts() : array.get<Counts>();
}

Histogram histogram_of(const json& histogram)
{
    const float min = histogram.at("min"), width = histogram.at("width");
    std::array<Counts, 4> components{counts_of(histogram.at("red")), counts_of(histogram.at("green")),
        counts_of(histogram.at("blue")), counts_of(histogram.at("max_component"))};
    Histogram result(min, width, counts_of(histogram.at("count")), std::move(components));
    result->flags = histogram.at("flags");
    result->nb_bins = histogram.at("nb_bins");
    return result;
}

std::vector<std::string> lines_of(const json& log)
{
    std::vector<std::string> lines;
    for (const json& line : log)
        lines.push_back(std::to_string(line[0].get<int>()) + ' ' + bytes_of(line[1]));
    return lines;
}

bool is_near(double value, double expected, double relative, double least)
{
    return std::fabs(value - expected) <= relative * std::max(std::fabs(expected), least);
}

}

namespace {

using test::json;

struct Kind {
    const char* name;
    std::unique_ptr<test::Vector_Case> (*make)(const json& one);
};

constexpr Kind kinds[] = {{"merge", test::make_merge_case}, {"panel", test::make_panel_case},
    {"shapes", test::make_shape_case}, {"peaks", test::make_peaks_case}, {"fit", test::make_fit_case},
    {"export", test::make_export_case}};

int register_cases(const std::string& folder, const Kind& kind)
{
    std::ifstream file(folder + '/' + kind.name + ".json");
    const json cases = json::parse(file, nullptr, false);
    if (!cases.is_object() || !cases.contains("cases") || cases["cases"].empty()) {
        std::cerr << folder << '/' << kind.name << ".json cannot be read as a list of cases.\n";
        return 1;
    }
    for (const json& one : cases["cases"]) {
        const std::string name = one.at("name");
        testing::RegisterTest(kind.name, name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
            [one, make = kind.make]() -> test::Own_Host* { return make(one).release(); });
    }
    return 0;
}

}

int main(int count, char** arguments)
{
    testing::InitGoogleTest(&count, arguments);
    const char* folder = count > 1 ? arguments[1] : std::getenv("VETRA_VECTORS");
    for (const Kind& kind : kinds) {
        if (folder && register_cases(folder, kind) != 0)
            return 1;
    }
    return RUN_ALL_TESTS();
}
