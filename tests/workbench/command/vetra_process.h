#pragma once

#include "tests/workbench/document/fixtures.h"

#include <QStringList>

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace test {

struct Outcome {
    int status;
    std::string output, errors;

    nlohmann::json json() const { return nlohmann::json::parse(output); }
};

/// Runs the command line. @param shell what a shell does before, e.g. "ulimit -f 1"
Outcome vetra(const QStringList& arguments, const std::string& shell = ":");

/// A volume of whole numbers in a file.
void write_volume(const document_test::Path& path, std::array<int, 3> size, const std::vector<std::uint16_t>& values);

/// Two peaks, at 300 and at 700, over five frames of 60 x 50.
std::vector<std::uint16_t> two_peaks();
constexpr std::array<int, 3> size_of_two_peaks{60, 50, 5};

}
