#include "hostkit/structures/histogram_counting.h"

#include "hostkit/structures/parallel.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <mutex>
#include <type_traits>
#include <utility>

namespace hostkit {

namespace {

constexpr int most_bins = 65535;
constexpr int float_bins = 4096;
constexpr int color_bins = 256;

struct Rgb {
    std::uint8_t red, green, blue;
};

struct Grid {
    float min = 0;
    float width = 1;
    int bins = 1;
    int arrays = 1; // 5 of colours
};

std::size_t frame_pixels(const Series_Pixels& pixels)
{
    return static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height);
}

template <class Pixel>
const Pixel* frame_of(const Series_Pixels& pixels, int z)
{
    return static_cast<const Pixel*>(pixels.data) + static_cast<std::size_t>(z) * frame_pixels(pixels);
}

// Records with their arrays, all counts 0.
Series_Histograms make_records(const Grid& grid, int frames)
{
    Series_Histograms made;
    const auto bins = static_cast<std::size_t>(grid.bins);
    made.counts.resize(static_cast<std::size_t>(frames * grid.arrays) * bins);
    unsigned* counts = made.counts.data();
    for (int z = 0; z < frames; ++z) {
        Histo_Record record{};
        record.nb_bins = static_cast<unsigned short>(grid.bins);
        record.min = grid.min;
        record.width = grid.width;
        record.flags = grid.arrays > 1;
        for (unsigned** array : {&record.count, &record.red, &record.green, &record.blue, &record.max_component}) {
            if (array != &record.count && grid.arrays == 1)
                break;
            *array = counts;
            counts += bins;
        }
        made.frames.push_back(record);
    }
    return made;
}

// So that panels leave nothing out.
void keep_within_grid(Series_Histograms& histograms)
{
    const int last = last_kept_bin(histograms.frames.front());
    for (Histo_Record& record : histograms.frames) {
        for (int bin = last + 1; bin < record.nb_bins; ++bin)
            record.count[last] += std::exchange(record.count[bin], 0u);
    }
}

void find_largest_counts(Series_Histograms& histograms)
{
    for (Histo_Record& record : histograms.frames) {
        for (const unsigned* counts : {record.count, record.red, record.green, record.blue, record.max_component}) {
            for (int bin = 0; counts && bin < record.nb_bins; ++bin)
                record.max_count = std::max(record.max_count, counts[bin]);
        }
    }
}

// ------------------------------------------------------------------------------------------------- whole numbers

// The grid of whole stored values, and where each goes in it.
class Level_Grid {
public:
    Level_Grid(const Series_Pixels& pixels, std::int64_t lowest, std::int64_t highest)
    {
        const std::int64_t levels = highest - lowest + 1;
        bins_.downward = pixels.slope < 0;
        bins_.first = bins_.downward ? highest : lowest;
        bins_.per_bin = (levels + most_bins - 1) / most_bins;
        grid_.bins = static_cast<int>((levels + bins_.per_bin - 1) / bins_.per_bin);
        const double least = grey(pixels, bins_.first), most = grey(pixels, bins_.downward ? lowest : highest);
        const double width = std::abs(pixels.slope) * static_cast<double>(bins_.per_bin);
        exponent_ = exponent_for(least, most, width);
        const double factor = std::pow(10.0, exponent_);
        grid_.min = static_cast<float>(least * factor);
        if (levels > 1)
            grid_.width = static_cast<float>(width * factor);
    }

    const Grid& grid() const { return grid_; }
    const Level_Bins& bins() const { return bins_; }
    int decimal_exponent() const { return exponent_; }

private:
    static double grey(const Series_Pixels& pixels, std::int64_t stored)
    {
        return static_cast<double>(stored) * pixels.slope + pixels.intercept;
    }

    // Whole numbers are left as they are, unless panels would lose them: beyond one million, or within so little that
    // the one grey value that panels add to the range is most of it.
    static int exponent_for(double least, double most, double width)
    {
        constexpr double largest_shown = 1e6, least_range = 0.1;
        const double reach = std::max({std::abs(least), std::abs(most), least < most ? width : 0.0});
        if (reach > largest_shown)
            return decimal_exponent_for(-reach, reach);
        return most - least < least_range ? decimal_exponent_for(least, most) : 0;
    }

    Level_Bins bins_;
    int exponent_ = 0;
    Grid grid_;
};

Series_Histograms make_level_records(const Series_Pixels& pixels, std::int64_t lowest, std::int64_t highest)
{
    const Level_Grid grid(pixels, lowest, highest);
    Series_Histograms made = make_records(grid.grid(), pixels.frames);
    made.levels = grid.bins();
    made.decimal_exponent = grid.decimal_exponent();
    return made;
}

// What a frame of 8- or 16-bit pixels was counted as: from its lowest to its highest value.
template <class Pixel>
struct Frame_Counts {
    Pixel lowest{};
    std::vector<unsigned> counts;
};

// Tables with a place for every value that a pixel can have. There are four, because counting one value again and again
// in one place would wait for the last time each time.
template <class Pixel>
class Value_Tables {
public:
    Value_Tables() : tables_(std::make_unique<Tables>()) {}

    Frame_Counts<Pixel> count(const Pixel* pixels, std::size_t size)
    {
        constexpr std::size_t block = 256;
        lowest_ = std::numeric_limits<Pixel>::max();
        highest_ = std::numeric_limits<Pixel>::min();
        for (std::size_t start = 0; start < size; start += block)
            count_block(pixels + start, std::min(block, size - start));
        return take();
    }

private:
    static constexpr int values = 1 << (8 * sizeof(Pixel));
    struct Tables {
        unsigned counts[4][values] = {};
    };

    static std::size_t place(Pixel value)
    {
        return static_cast<std::size_t>(value - std::numeric_limits<Pixel>::min());
    }

    // Images have wide areas of one value, so it pays to look.
    void count_block(const Pixel* pixels, std::size_t size)
    {
        Pixel lowest = pixels[0], highest = pixels[0];
        for (std::size_t i = 0; i < size; ++i) {
            lowest = std::min(lowest, pixels[i]);
            highest = std::max(highest, pixels[i]);
        }
        lowest_ = std::min(lowest_, lowest);
        highest_ = std::max(highest_, highest);
        auto& tables = tables_->counts;
        if (lowest == highest) {
            tables[0][place(lowest)] += static_cast<unsigned>(size);
            return;
        }
        std::size_t i = 0;
        for (; i + 4 <= size; i += 4) {
            ++tables[0][place(pixels[i])];
            ++tables[1][place(pixels[i + 1])];
            ++tables[2][place(pixels[i + 2])];
            ++tables[3][place(pixels[i + 3])];
        }
        for (; i < size; ++i)
            ++tables[0][place(pixels[i])];
    }

    // Adds the tables up and leaves them empty.
    Frame_Counts<Pixel> take()
    {
        auto& tables = tables_->counts;
        const std::size_t first = place(lowest_), last = place(highest_);
        Frame_Counts<Pixel> result{lowest_, std::vector<unsigned>(last - first + 1)};
        for (std::size_t i = first; i <= last; ++i)
            result.counts[i - first] = tables[0][i] + tables[1][i] + tables[2][i] + tables[3][i];
        for (auto& table : tables)
            std::fill(table + first, table + last + 1, 0u);
        return result;
    }

    std::unique_ptr<Tables> tables_;
    Pixel lowest_{}, highest_{};
};

// 8 and 16 bits: the range need not be known beforehand, so the pixels are read once.
template <class Pixel>
Series_Histograms count_small(const Series_Pixels& pixels)
{
    std::vector<Frame_Counts<Pixel>> counted(static_cast<std::size_t>(pixels.frames));
    share_work(pixels.frames, [&](const auto& next) {
        Value_Tables<Pixel> tables;
        for (int z = next(); z < pixels.frames; z = next())
            counted[static_cast<std::size_t>(z)] = tables.count(frame_of<Pixel>(pixels, z), frame_pixels(pixels));
    });
    std::int64_t lowest = counted[0].lowest, highest = lowest;
    for (const auto& frame : counted) {
        lowest = std::min<std::int64_t>(lowest, frame.lowest);
        highest = std::max<std::int64_t>(highest, frame.lowest + static_cast<std::int64_t>(frame.counts.size()) - 1);
    }
    Series_Histograms result = make_level_records(pixels, lowest, highest);
    for (std::size_t z = 0; z < counted.size(); ++z) {
        for (std::size_t i = 0; i < counted[z].counts.size(); ++i)
            result.frames[z].count[result.levels.bin_of(counted[z].lowest + static_cast<std::int64_t>(i))] +=
                counted[z].counts[i];
    }
    return result;
}

// What lies between the smallest and the largest value.
template <class Value>
struct Range {
    Value lowest = std::numeric_limits<Value>::max();
    Value highest = std::numeric_limits<Value>::lowest();
    unsigned long long left_out = 0; // neither finite

    bool empty() const { return lowest > highest; }
    void take(Value value)
    {
        if constexpr (std::is_floating_point_v<Value>) {
            if (!std::isfinite(value)) {
                ++left_out;
                return;
            }
        }
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
    }
    void take(const Range& other)
    {
        lowest = std::min(lowest, other.lowest);
        highest = std::max(highest, other.highest);
        left_out += other.left_out;
    }
};

// Of what `value` makes of each pixel.
template <class Pixel, class Value_Of>
auto range_of(const Series_Pixels& pixels, const Value_Of& value)
{
    Range<decltype(value(Pixel{}))> all;
    std::mutex adding;
    share_work(pixels.frames, [&](const auto& next) {
        decltype(all) mine;
        for (int z = next(); z < pixels.frames; z = next()) {
            const Pixel* frame = frame_of<Pixel>(pixels, z);
            for (std::size_t i = 0; i < frame_pixels(pixels); ++i)
                mine.take(value(frame[i]));
        }
        const std::lock_guard lock(adding);
        all.take(mine);
    });
    return all;
}

template <class Pixel>
Series_Histograms count_large(const Series_Pixels& pixels)
{
    const auto range = range_of<Pixel>(pixels, [](Pixel stored) { return stored; });
    Series_Histograms result = make_level_records(pixels, range.lowest, range.highest);
    share_work(pixels.frames, [&, levels = result.levels](const auto& next) {
        for (int z = next(); z < pixels.frames; z = next()) {
            const Pixel* frame = frame_of<Pixel>(pixels, z);
            unsigned* counts = result.frames[static_cast<std::size_t>(z)].count;
            for (std::size_t i = 0; i < frame_pixels(pixels); ++i)
                ++counts[levels.bin_of(frame[i])];
        }
    });
    return result;
}

// ---------------------------------------------------------------------------------------- floating-point numbers

template <class Pixel>
Series_Histograms count_float(const Series_Pixels& pixels)
{
    const auto plain = [&](Pixel stored) { return static_cast<double>(stored) * pixels.slope + pixels.intercept; };
    const auto range = range_of<Pixel>(pixels, plain);
    if (range.empty()) {
        Series_Histograms none;
        none.left_out = range.left_out;
        return none;
    }
    const int exponent = decimal_exponent_for(range.lowest, range.highest);
    const double factor = std::pow(10.0, exponent);
    Grid grid{static_cast<float>(range.lowest * factor), 1, 1, 1};
    const auto width = static_cast<float>((range.highest * factor - range.lowest * factor) / float_bins);
    if (width > 0) {
        grid.bins = float_bins;
        grid.width = width;
    }
    Series_Histograms result = make_records(grid, pixels.frames);
    result.decimal_exponent = exponent;
    result.left_out = range.left_out;
    share_work(pixels.frames, [&](const auto& next) {
        for (int z = next(); z < pixels.frames; z = next()) {
            const Pixel* frame = frame_of<Pixel>(pixels, z);
            const Histo_Record& record = result.frames[static_cast<std::size_t>(z)];
            for (std::size_t i = 0; i < frame_pixels(pixels); ++i) {
                const double grey = plain(frame[i]);
                if (std::isfinite(grey))
                    ++record.count[nearest_bin(record, static_cast<float>(grey * factor))];
            }
        }
    });
    return result;
}

// ------------------------------------------------------------------------------------------------------- colours

Series_Histograms count_color(const Series_Pixels& pixels)
{
    Series_Histograms result = make_records({0, 1, color_bins, 5}, pixels.frames);
    share_work(pixels.frames, [&](const auto& next) {
        for (int z = next(); z < pixels.frames; z = next()) {
            const Rgb* frame = frame_of<Rgb>(pixels, z);
            const Histo_Record& record = result.frames[static_cast<std::size_t>(z)];
            for (std::size_t i = 0; i < frame_pixels(pixels); ++i) {
                const auto [red, green, blue] = frame[i];
                ++record.count[red * 30 / 100 + green * 59 / 100 + blue * 11 / 100];
                ++record.red[red];
                ++record.green[green];
                ++record.blue[blue];
                ++record.max_component[std::max({red, green, blue})];
            }
        }
    });
    return result;
}

Series_Histograms count_type(const Series_Pixels& pixels)
{
    switch (pixels.type) {
    case Pixel_Type::u8:
        return count_small<std::uint8_t>(pixels);
    case Pixel_Type::i8:
        return count_small<std::int8_t>(pixels);
    case Pixel_Type::u16:
        return count_small<std::uint16_t>(pixels);
    case Pixel_Type::i16:
        return count_small<std::int16_t>(pixels);
    case Pixel_Type::u32:
        return count_large<std::uint32_t>(pixels);
    case Pixel_Type::i32:
        return count_large<std::int32_t>(pixels);
    case Pixel_Type::f32:
        return count_float<float>(pixels);
    case Pixel_Type::f64:
        return count_float<double>(pixels);
    case Pixel_Type::rgb:
        break;
    }
    return count_color(pixels);
}

}

Series_Histograms count_series(const Series_Pixels& pixels)
{
    if (!pixels.data || pixels.frames <= 0 || frame_pixels(pixels) == 0)
        return {};
    Series_Histograms result = count_type(pixels);
    if (result.frames.empty())
        return result;
    keep_within_grid(result);
    find_largest_counts(result);
    return result;
}

}
