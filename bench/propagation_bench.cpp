#include "workbench/document/label_map.h"
#include "workbench/document/open.h"
#include "workbench/document/propagate.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

// How well carrying tags from slice to slice meets what an atlas says of the slices: the overlap (Dice) after 1, 5 and
// 10 slices, of plain copies and of copies that follow the grey values.

namespace {

using document::CarryMode;
using Mask = std::vector<std::uint8_t>;

constexpr std::array distances = {1, 5, 10};
const std::string folder = "/usr/share/mricron/templates/";

document::Volume read(const std::string& name)
{
    auto opened = document::open({folder + name});
    if (!opened) {
        std::fprintf(stderr, "%s\n", opened.failure().message.c_str());
        std::exit(1);
    }
    return std::move(opened->volume);
}

struct Region {
    const char* name;
    int value; ///< in the atlas; 0: whatever is not 0 in the other file
};

constexpr Region regions[] = {{"brain", 0}, {"hippocampus, left", 37}, {"hippocampus, right", 38},
    {"amygdala, left", 41}, {"cuneus, left", 45}, {"fusiform, left", 55}, {"caudate, left", 71}, {"putamen, left", 73},
    {"precuneus, left", 67}, {"thalamus, left", 77}, {"insula, left", 29}};

struct Head {
    document::Volume image = read("ch2.nii.gz");
    document::Volume atlas = read("aal.nii.gz");
    document::Volume brain = read("ch2bet.nii.gz");

    Mask slice(const Region& region, int z) const
    {
        Mask mask(image.geometry.frame_voxels());
        std::size_t i = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                mask[i++] =
                    region.value ? int(std::lround(atlas.stored(x, y, z))) == region.value : brain.stored(x, y, z) > 0;
        return mask;
    }

    int largest_slice(const Region& region) const
    {
        std::ptrdiff_t most = 0;
        int largest = 0;
        for (int z = 0; z < image.frame_count(); ++z) {
            const auto mask = slice(region, z);
            const auto size = std::count(mask.begin(), mask.end(), 1);
            if (size > most) {
                most = size;
                largest = z;
            }
        }
        return largest;
    }
};

double dice(const Mask& one, const Mask& other)
{
    std::size_t both = 0, sum = 0;
    for (std::size_t i = 0; i < one.size(); ++i) {
        both += one[i] && other[i];
        sum += std::size_t(one[i] + other[i]);
    }
    return sum ? 2.0 * double(both) / double(sum) : 1;
}

struct Overlap {
    double copied = 0, adapted = 0;
    int count = 0;

    void add(double copy, double adaption)
    {
        copied += copy;
        adapted += adaption;
        ++count;
    }
    Overlap mean() const { return {copied / count, adapted / count, 1}; }
    void print() const { std::printf("  %5.3f %5.3f", copied / count, adapted / count); }
};
using Overlaps = std::array<Overlap, distances.size()>;

Mask carried(const Head& head, const Mask& mask, int from, int to, CarryMode mode)
{
    const Mask empty(mask.size());
    return document::carry(head.image, from, to, mask, empty, mode, document::TagSet().set());
}

/// From a slice in one direction, slice to slice. Where the region has ended nothing is compared.
void follow(const Head& head, const Region& region, int start, int direction, Overlaps& overlaps)
{
    Mask copy = head.slice(region, start), adaption = copy;
    for (int n = 1; n <= distances.back(); ++n) {
        const int z = start + n * direction;
        if (z < 0 || z >= head.image.frame_count())
            return;
        copy = carried(head, copy, z - direction, z, CarryMode::add);
        adaption = carried(head, adaption, z - direction, z, CarryMode::adapt);
        const auto* distance = std::find(distances.begin(), distances.end(), n);
        const auto truth = head.slice(region, z);
        if (distance != distances.end() && std::count(truth.begin(), truth.end(), 1) > 0)
            overlaps[std::size_t(distance - distances.begin())].add(dice(copy, truth), dice(adaption, truth));
    }
}

void print_overlaps()
{
    const Head head;
    Overlaps means;
    std::printf("%-20s slice  1: copy adapt  5: copy adapt 10: copy adapt\n", "region");
    for (const Region& region : regions) {
        const int start = head.largest_slice(region);
        Overlaps overlaps;
        follow(head, region, start, 1, overlaps);
        follow(head, region, start, -1, overlaps);
        std::printf("%-20s %5d", region.name, start + 1);
        for (std::size_t i = 0; i < distances.size(); ++i) {
            overlaps[i].print();
            means[i].add(overlaps[i].mean().copied, overlaps[i].mean().adapted);
        }
        std::printf("\n");
    }
    std::printf("%-20s      ", "mean");
    for (const Overlap& mean : means)
        mean.print();
    std::printf("\n");
}

/// Two square frames with waves, the second a little further on.
document::Volume waves(int side)
{
    document::Volume volume;
    volume.type = document::PixelType::i16;
    volume.geometry.size = {side, side, 2};
    volume.pixels = document::PixelMemory::allocate(volume.geometry.voxels() * 2);
    auto* pixel = reinterpret_cast<std::int16_t*>(volume.pixels.data());
    for (int z = 0; z < 2; ++z)
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                *pixel++ = std::int16_t(1000 * std::sin((x + 3 * z) * 0.05) * std::cos(y * 0.07));
    return volume;
}

/// A region that fills the frame: all of it is compared.
void Adapt(benchmark::State& state)
{
    const auto volume = waves(int(state.range(0)));
    const Mask source(volume.geometry.frame_voxels(), 1), empty(source.size());
    for (auto _ : state)
        benchmark::DoNotOptimize(
            document::carry(volume, 0, 1, source, empty, CarryMode::adapt, document::TagSet().set()));
}
BENCHMARK(Adapt)->ArgName("side")->Arg(256)->Arg(512)->Unit(benchmark::kMillisecond);

}

int main(int count, char** arguments)
{
    benchmark::Initialize(&count, arguments);
    print_overlaps();
    benchmark::RunSpecifiedBenchmarks();
}
