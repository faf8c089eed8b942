#include "tests/hostkit/structures/made_series.h"

#include "hostkit/structures/tree.h"

#include <numeric>

namespace test {

Made_Series::Made_Series()
{
    hostkit::Window_Add("View");
}

Made_Series::~Made_Series()
{
    hostkit::Tree_Reset();
}

Strato_2D* Made_Series::make(const hostkit::Series_Pixels& pixels, int count)
{
    if (series)
        hostkit::Object_2D_Remove(series);
    frames.clear();
    series = hostkit::Object_2D_Add(hostkit::Root_2D(), {.name = "made", .title = "Series"});
    for (int z = 0; z < count; ++z) {
        frames.push_back(hostkit::Frame_Add(series,
            {.name = "frame", .title = "Frame", .class_a = hostkit::frame_class, .magic = hostkit::frame_magic}));
        frames.back()->Flag_Set_On(16, reinterpret_cast<void*>(std::uintptr_t{4}), 512);
    }
    hostkit::Series_Pixels_Set(series, pixels);
    return series;
}

int Made_Series::raw(int x, std::size_t z)
{
    return frames.at(z)->Value_Get({static_cast<float>(x), 0, static_cast<float>(frames[z]->index_z), 0});
}

std::vector<unsigned> counts_of(const Histo_Record& histogram)
{
    return {histogram.count, histogram.count + histogram.nb_bins};
}

unsigned long long sum_of(const Histo_Record& histogram)
{
    return std::accumulate(histogram.count, histogram.count + histogram.nb_bins, 0ull);
}

int bin_of(const Histo_Record& histogram, float grey)
{
    return static_cast<int>((grey - histogram.min) / histogram.width);
}

}
