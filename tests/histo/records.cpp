#include "tests/histo/records.h"

#include <algorithm>
#include <deque>
#include <numeric>
#include <utility>

namespace test {

namespace {

constexpr unsigned* Histo_Record::*components[] = {
    &Histo_Record::red, &Histo_Record::green, &Histo_Record::blue, &Histo_Record::max_component};

unsigned* or_null(Counts& counts)
{
    return counts.empty() ? nullptr : counts.data();
}

}

Histogram::Histogram(float min, float width, Counts counts) : count_(std::move(counts))
{
    record_.nb_bins = static_cast<unsigned short>(count_.size());
    record_.min = min;
    record_.width = width;
    record_.count = or_null(count_);
}

Histogram::Histogram(float min, float width, Counts counts, std::array<Counts, 4> red_green_blue_largest)
    : Histogram(min, width, std::move(counts))
{
    components_ = std::move(red_green_blue_largest);
    record_.flags = 1;
    for (size_t i = 0; i < components_.size(); ++i)
        record_.*components[i] = or_null(components_[i]);
}

Histogram Histogram::ones(float min, float width, int bins)
{
    return {min, width, Counts(static_cast<size_t>(bins), 1u)};
}

Histogram Histogram::one_at(int bin, float min, float width, int bins)
{
    Counts counts(static_cast<size_t>(bins), 0u);
    counts[static_cast<size_t>(bin)] = 1;
    return {min, width, std::move(counts)};
}

Histo_Record* panel_record(const Histogram& histogram)
{
    static std::deque<Histo_Record> records; // panels leave them behind
    Histo_Record& record = records.emplace_back(*histogram.get());
    record.max_count = 0;
    for (auto array : {&Histo_Record::count, components[0], components[1], components[2], components[3]}) {
        const Counts counts = counts_of(record, record.*array);
        if (counts.empty())
            continue;
        record.*array = new unsigned[counts.size()];
        std::copy(counts.begin(), counts.end(), record.*array);
        record.max_count = std::max(record.max_count, *std::max_element(counts.begin(), counts.end()));
    }
    return &record;
}

Counts counts_of(const Histo_Record& record, const unsigned* array)
{
    return array ? Counts(array, array + record.nb_bins) : Counts();
}

unsigned sum_of(const Counts& counts)
{
    return std::accumulate(counts.begin(), counts.end(), 0u);
}

}
