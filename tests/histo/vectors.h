#pragma once

#include "tests/histo/own_host.h"

#include <nlohmann/json.hpp>

#include <memory>
#include <string>

/// Cases of a folder, each with inputs and what has to come out.
namespace test {

using nlohmann::json;

/// One case. What it needs besides the host, its kind knows.
class Vector_Case : public Own_Host {
public:
    explicit Vector_Case(json one) : one_(std::move(one)) {}

protected:
    const json one_;
};

/// A test for a case of a kind; null when the kind is not known here.
std::unique_ptr<Vector_Case> make_merge_case(const json& one);
std::unique_ptr<Vector_Case> make_panel_case(const json& one);
std::unique_ptr<Vector_Case> make_shape_case(const json& one);
std::unique_ptr<Vector_Case> make_peaks_case(const json& one);
std::unique_ptr<Vector_Case> make_fit_case(const json& one);
std::unique_ptr<Vector_Case> make_export_case(const json& one);

/// Texts are kept as bytes, a code point each.
std::string bytes_of(const std::string& text);

Histogram histogram_of(const json& histogram);

/// The counts of an array; none of null.
Counts counts_of(const json& array);

/// Reports as lines, "LEVEL text".
std::vector<std::string> lines_of(const json& log);

/// Whether two numbers differ by less than `relative` times the larger of `expected` and `least`.
bool is_near(double value, double expected, double relative, double least = 0);

}
