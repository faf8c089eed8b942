#pragma once

#include "host/structures.h"

#include <array>
#include <vector>

namespace test {

using Counts = std::vector<unsigned>;

/// A histogram with its arrays, as a host keeps it of a frame.
class Histogram {
public:
    /// Of a grey frame.
    Histogram(float min, float width, Counts counts);

    /// Of a colour frame. An array without elements is not there.
    Histogram(float min, float width, Counts counts, std::array<Counts, 4> red_green_blue_largest);

    /// `bins` bins with one pixel each.
    static Histogram ones(float min, float width, int bins);

    /// `bins` empty bins but for one with a pixel.
    static Histogram one_at(int bin, float min, float width, int bins);

    Histogram(const Histogram&) = delete;
    Histogram& operator=(const Histogram&) = delete;
    Histogram(Histogram&&) = default;

    const Histo_Record* get() const { return &record_; }
    Histo_Record* operator->() { return &record_; }

private:
    Counts count_;
    std::array<Counts, 4> components_;
    Histo_Record record_{};
};

/// A record for a panel that will free its arrays: a copy of a histogram, with its largest count.
Histo_Record* panel_record(const Histogram& histogram);

/// The counts of a record's array; none when it has no such array.
Counts counts_of(const Histo_Record& record, const unsigned* array);
inline Counts counts_of(const Histo_Record& record)
{
    return counts_of(record, record.count);
}

unsigned sum_of(const Counts& counts);

}
