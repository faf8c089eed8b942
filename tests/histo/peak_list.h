#pragma once

#include "tests/histo/own_host.h"

#include <initializer_list>

namespace test {

/// A list of peaks that a test puts together.
class Peak_List {
public:
    /// Room for smoothed data of n bins, zeros.
    explicit Peak_List(int n = 1);

    Histo_Peaks* get() { return &peaks_; }
    Histo_Peaks* operator->() { return &peaks_; }

    /// Appends a peak with wide bounds: the centre 1.25 bins to each side, amplitudes from 0 to twice this one, widths
    /// from 1 to 1000.
    Histo_Peak* add(double centre, double amplitude, double width);

    /// [centre, amplitude, width] of each.
    std::vector<std::vector<double>> params() const;
    std::vector<double> centres() const;

    /// The sum of the shapes at bins 0 .. n - 1, as a fit sums them.
    std::vector<double> model(int n) const;

private:
    Histo_Peaks peaks_;
    Histo_Peak* tail_ = nullptr;
};

void assign(Vector_N& vector, std::initializer_list<double> values);

std::vector<std::vector<double>> params_of(const Histo_Peaks& peaks);

}
