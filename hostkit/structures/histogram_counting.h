#pragma once

#include "hostkit/structures/histogram_grid.h"
#include "hostkit/structures/series_pixels.h"

#include <vector>

namespace hostkit {

/// The histograms of all frames of a series, on one grid.
struct Series_Histograms {
    std::vector<Histo_Record> frames; ///< one each; empty when there is nothing to count
    std::vector<unsigned> counts;     ///< what the records' arrays point into
    Level_Bins levels;                ///< of whole numbers
    int decimal_exponent = 0;         ///< grey values are multiplied by this power of ten
    unsigned long long left_out = 0;  ///< pixels whose grey value is infinite or not a number
};

/// Counts. Uses several processors. Throws std::bad_alloc.
Series_Histograms count_series(const Series_Pixels& pixels);

}
