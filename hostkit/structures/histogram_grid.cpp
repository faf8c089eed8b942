#include "hostkit/structures/histogram_grid.h"

#include <cmath>
#include <limits>

namespace hostkit {

int decimal_exponent_for(double lowest, double highest)
{
    constexpr double least_range = 1e3, most = 1e6;
    constexpr int last_exponent = 303; // that brings the largest number there is to one million
    const double range = highest - lowest, largest = std::max(std::abs(lowest), std::abs(highest));
    int exponent = 0;
    while (largest * std::pow(10.0, exponent) > most && exponent > -last_exponent)
        --exponent;
    if (exponent < 0 || range <= 0)
        return exponent;
    while (range * std::pow(10.0, exponent) < least_range && largest * std::pow(10.0, exponent + 1) <= most &&
           exponent < last_exponent)
        ++exponent;
    return exponent;
}

float grey_value(const Series_Pixels& pixels, int decimal_exponent, double stored)
{
    return static_cast<float>((stored * pixels.slope + pixels.intercept) * std::pow(10.0, decimal_exponent));
}

float value_in_bin(const Histo_Record& grid, std::size_t bin, float value)
{
    constexpr int most_steps = 4;
    const auto first = static_cast<float>(bin);
    const auto place = [&](float at) { return std::trunc((at - grid.min) / grid.width); };
    const float largest = std::max(std::abs(grid.min), std::abs(value));
    const float step = std::nextafter(largest, std::numeric_limits<float>::max()) - largest;
    float beside = value;
    for (int i = 0; i < most_steps && place(beside) != first; ++i)
        beside += place(beside) < first ? step : -step;
    return place(beside) == first ? beside : value;
}

int last_kept_bin(const Histo_Record& grid)
{
    const auto is_kept = [&](int bin) {
        const float centre = (static_cast<float>(bin) + 0.5f) * grid.width + grid.min;
        return (centre - grid.min) / grid.width < static_cast<float>(grid.nb_bins);
    };
    int bin = grid.nb_bins - 1;
    while (bin > 0 && !is_kept(bin))
        --bin;
    return bin;
}

}
