#pragma once

#include "hostkit/structures/series_pixels.h"

#include <vector>

namespace hostkit {

/// The histograms of all frames of a series, on one grid.
struct Series_Histograms {
    std::vector<Histo_Record> frames; ///< one each; empty when there is nothing to count
    std::vector<unsigned> counts;     ///< what the records' arrays point into
    int decimal_exponent = 0;         ///< grey values are multiplied by this power of ten
    unsigned long long left_out = 0;  ///< pixels that are infinite or not a number
};

/// Counts. Uses several processors. Throws std::bad_alloc.
Series_Histograms count_series(const Series_Pixels& pixels);

/// The decimal exponent that brings floating-point grey values into what panels can show: a range of at least 1,000 if
/// no value gets beyond one million, and no value beyond one million in any case.
int decimal_exponent_for(double lowest, double highest);

/// The grey value of a stored one, as panels see it.
float grey_value(const Series_Pixels& pixels, int decimal_exponent, double stored);

}
