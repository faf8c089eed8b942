#pragma once

#include "histo/record_arrays.h"

namespace histo {

/// Adds the counts of frames to a record on another grid.
///
/// Counts are whole numbers that wrap, so their order does not matter: frames that follow each other on one grid are
/// first added up bin by bin, and only the sum is carried over. For one user at a time.
class Histogram_Sum {
public:
    explicit Histogram_Sum(Histo_Record& target) : target_(target) {}

    /// Adds a frame's counts: to `count`, and of a colour frame to the component arrays that both have.
    void add(const Histo_Record& frame);

    /// Carries over what is waiting. Due at the end, and before the target gets more arrays.
    void flush();

private:
    bool same_grid(const Histo_Record& frame) const;

    Histo_Record& target_;
    Histo_Record grid_{}; // of what is waiting
    bool waits_[array_count] = {};
};

}
