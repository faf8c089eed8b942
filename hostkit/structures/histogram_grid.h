#pragma once

#include "hostkit/structures/series_pixels.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

/// Where grey values stand in the bins of a histogram, as panels find them: in single precision.
namespace hostkit {

/// Which bin a stored whole number is counted in.
struct Level_Bins {
    std::int64_t first = 0; ///< the level with the smallest grey value
    std::int64_t per_bin = 1;
    bool downward = false; ///< grey values fall as levels rise

    std::size_t bin_of(std::int64_t stored) const
    {
        const std::int64_t level = downward ? first - stored : stored - first;
        return static_cast<std::size_t>(per_bin == 1 ? level : level / per_bin);
    }
};

/// The decimal exponent that brings floating-point grey values into what panels can show: a range of at least 1,000 if
/// no value gets beyond one million, and no value beyond one million in any case.
int decimal_exponent_for(double lowest, double highest);

/// The grey value of a stored one, as panels see it.
float grey_value(const Series_Pixels& pixels, int decimal_exponent, double stored);

/// The bin of a floating-point grey value; the first or the last for one outside.
inline std::size_t nearest_bin(const Histo_Record& grid, float value)
{
    return static_cast<std::size_t>(
        std::clamp((value - grid.min) / grid.width, 0.0f, static_cast<float>(grid.nb_bins - 1)));
}

/// The value next to `value` from which a panel finds the bin, (value - min) / width cut to a whole number: values at
/// the edge of two bins are rounded to either side. `value` itself where single precision cannot tell bins apart.
float value_in_bin(const Histo_Record& grid, std::size_t bin, float value);

/// The last bin that panels keep, who look for a bin by its centre. Where bins are narrower than single precision can
/// tell, the centres of the last ones come out behind the end.
int last_kept_bin(const Histo_Record& grid);

}
