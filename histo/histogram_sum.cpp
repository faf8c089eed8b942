#include "histo/histogram_sum.h"

#include <algorithm>
#include <array>

namespace histo {

namespace {

constexpr int most_bins = 65536;
constexpr int chunk = 1024;

// What is waiting; of one sum at a time. No memory to be asked for in the middle of a sum.
std::array<std::array<unsigned, most_bins>, array_count> waiting;

// The record's bins of the frame's bins [first, first + count): truncated, all in single precision.
void find_bins(const Histo_Record& from, const Histo_Record& to, int first, int count, float* bins)
{
    for (int i = 0; i < count; ++i)
        bins[i] = (((static_cast<float>(first + i) + 0.5f) * from.width + from.min) - to.min) / to.width;
}

}

bool Histogram_Sum::same_grid(const Histo_Record& frame) const
{
    return grid_.nb_bins == frame.nb_bins && grid_.min == frame.min && grid_.width == frame.width;
}

void Histogram_Sum::add(const Histo_Record& frame)
{
    if (!same_grid(frame)) {
        flush();
        grid_.nb_bins = frame.nb_bins;
        grid_.min = frame.min;
        grid_.width = frame.width;
    }
    const int used = frame.flags & 1 ? array_count : 1;
    for (int which = 0; which < used; ++which) {
        const unsigned* counts = frame.*arrays[which];
        if (!counts || !(target_.*arrays[which]))
            continue;
        unsigned* sum = waiting[static_cast<size_t>(which)].data();
        if (waits_[which]) {
            for (int bin = 0; bin < frame.nb_bins; ++bin)
                sum[bin] += counts[bin];
        } else {
            std::copy_n(counts, frame.nb_bins, sum);
        }
        waits_[which] = true;
    }
}

void Histogram_Sum::flush()
{
    if (std::none_of(std::begin(waits_), std::end(waits_), [](bool waits) { return waits; }))
        return;
    // Deliberately also against the frame's own number of bins: a frame whose values lie far above the record's lower
    // edge is left out, coarse frames keep only what lies near it.
    const auto end = static_cast<float>(std::min(grid_.nb_bins, target_.nb_bins));
    float bins[chunk];
    for (int first = 0; first < grid_.nb_bins; first += chunk) {
        const int count = std::min(chunk, grid_.nb_bins - first);
        find_bins(grid_, target_, first, count, bins);
        for (int which = 0; which < array_count; ++which) {
            if (!waits_[which])
                continue;
            unsigned* counts = target_.*arrays[which];
            const unsigned* sum = waiting[static_cast<size_t>(which)].data() + first;
            for (int i = 0; i < count; ++i) {
                if (bins[i] > -1.0f && bins[i] < end) // (-1, 0) is cut to 0
                    counts[static_cast<int>(bins[i])] += sum[i];
            }
        }
    }
    std::fill(std::begin(waits_), std::end(waits_), false);
}

}
