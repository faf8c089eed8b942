#pragma once

#include "host/charts.h"

#include <string>
#include <vector>

/// Round numbers on an axis.
namespace hostkit {

/// 1, 2 or 5 times a power of ten.
struct Round_Step {
    int digit = 1;
    int exponent = 0;

    CHARTS_API Round_Step next() const; ///< the next larger one
    bool operator==(const Round_Step&) const = default;
};

/// The smallest round step of at least a distance, which is finite and above 0.
CHARTS_API Round_Step Round_Step_Of(double distance);

/// The multiples of a round step in a range.
struct Ticks {
    Round_Step step;
    double first = 0; ///< which multiple the first one is
    int count = 0;
};

/// The ticks from `from` to `to`, which are finite and ascend; a bound that is a tick but for rounding is one.
CHARTS_API Ticks Ticks_In(double from, double to, Round_Step step);

/// The value of a tick, 0 <= index < count: the number nearest to the decimal that is meant.
CHARTS_API double Tick_Value(const Ticks& ticks, int index);

/// What is written at the ticks: as few characters as tell the values exactly. From 100,000 on in thousands (k),
/// millions (M) or billions (G), all ticks alike, where that is shorter. UTF-8, with a true minus.
CHARTS_API std::vector<std::string> Tick_Labels(const Ticks& ticks);

}
