#pragma once

#include "tests/histo/vectors.h"

namespace test {

/// What a fit got and gave: the program is linked so that fits are seen on their way.
struct Seen_Fit {
    struct Start {
        std::vector<double> param;
        std::vector<double> min;
        std::vector<double> max;
    };
    std::vector<Start> start;
    double returned = 0;
    double limit = 0;
    int n = 0;
};
const Seen_Fit& last_fit();

std::vector<double> values_of(const Vector_N& vector);

/// Compares the peaks of a list, in order, with [centre, amplitude, width] each.
void compare_peaks(const Histo_Peaks& peaks, const json& expected, double sensitivity);

/// Compares the lines that were reported, and what the fit returned, with those of a case. Numbers of the lines that
/// the case calls fragile may differ in their last printed place.
void compare_log(const std::vector<std::string>& lines, const json& expected);
void compare_returned(double returned, const json& expected);

/// Compares the sum of the starting shapes.
void compare_sum(const Histo_Peaks& peaks, const json& expected);

}
