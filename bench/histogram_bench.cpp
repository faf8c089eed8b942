// The histogram: counting frames, merging, painting, finding and fitting peaks, exporting. With PEERS_DATA naming a
// folder that holds vol_i16.raw and fit_*.bin, these are what is counted and fitted; else data of the same kind.

#include "histo/tool_histo.h"
#include "histo/tool_histo_blow.h"
#include "hostkit/embedding/panel_slot.h"
#include "hostkit/structures/histogram_counting.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "hostkit/structures/series_pixels.h"
#include "hostkit/structures/tree.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <new>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

using hostkit::Panel_Slot;
using hostkit::Variable;

constexpr int frames = 300;
constexpr unsigned long long selection_changed = 0x102;
constexpr unsigned long long pointer_moved = 1ull << 18;
constexpr double half_width_of_sigma = 1.1774100225154747;

std::string data_file(const std::string& name)
{
    const char* folder = std::getenv("PEERS_DATA");
    return folder ? std::string(folder) + '/' + name : std::string();
}

template <class Value>
std::vector<Value> load(const std::string& path)
{
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::vector<Value> values(file ? static_cast<std::size_t>(file.tellg()) / sizeof(Value) : 0);
    file.seekg(0);
    file.read(reinterpret_cast<char*>(values.data()), static_cast<std::streamsize>(values.size() * sizeof(Value)));
    return values;
}

// 512 x 512 x 300 values from 0 to 4095, zero outside a circle, as a scanner gives them.
const std::vector<std::int16_t>& volume()
{
    static const std::vector<std::int16_t> made = [] {
        constexpr int side = 512;
        auto loaded = load<std::int16_t>(data_file("vol_i16.raw"));
        if (!loaded.empty())
            return loaded;
        std::mt19937 random(1);
        std::normal_distribution<float> tissue(1200, 150), air(40, 15);
        std::vector<std::int16_t> pixels(std::size_t(side) * side * frames);
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            const int x = int(i % side) - side / 2, y = int(i / side % side) - side / 2;
            const int radius = x * x + y * y;
            const float value = radius > 250 * 250 ? 0 : radius > 180 * 180 ? air(random) : tissue(random);
            pixels[i] = static_cast<std::int16_t>(std::clamp(value, 0.0f, 4095.0f));
        }
        pixels[0] = 0;
        pixels[1] = 4095;
        return pixels;
    }();
    return made;
}

hostkit::Series_Pixels volume_pixels()
{
    return {hostkit::Pixel_Type::i16, volume().data(), 512, 512, frames, 1, 0, "HU"};
}

void frame_histograms(benchmark::State& state)
{
    const auto pixels = volume_pixels();
    for (auto _ : state)
        benchmark::DoNotOptimize(hostkit::count_series(pixels));
}
BENCHMARK(frame_histograms)->Unit(benchmark::kMillisecond)->UseRealTime();

// What counting cannot be faster than without a trick: four tables, no range, one histogram of everything.
void plain_loop(benchmark::State& state)
{
    const auto& pixels = volume();
    std::vector<unsigned> tables(4 * 4096);
    for (auto _ : state) {
        std::fill(tables.begin(), tables.end(), 0u);
        for (std::size_t i = 0; i + 4 <= pixels.size(); i += 4) {
            ++tables[std::size_t(pixels[i])];
            ++tables[4096 + std::size_t(pixels[i + 1])];
            ++tables[8192 + std::size_t(pixels[i + 2])];
            ++tables[12288 + std::size_t(pixels[i + 3])];
        }
        benchmark::DoNotOptimize(tables.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(plain_loop)->Unit(benchmark::kMillisecond)->UseRealTime();

// ------------------------------------------------------------------------------------------------------- merging

// Frames of one row each whose histograms have the number of bins that is asked for.
class Series {
public:
    Series(int bins, bool grids_differ) : rows_(std::size_t(frames) * std::size_t(bins))
    {
        hostkit::Tree_Reset();
        hostkit::Registry_Reset();
        hostkit::Segmentation_Reset();
        hostkit::Window_Add("View");
        Variable<unsigned short>("$GLI_HISTO_BINS_MAX") = 65535;
        std::mt19937 random(2);
        for (auto& value : rows_)
            value = static_cast<std::uint16_t>(random() % unsigned(bins));
        for (int z = 0; z < frames; ++z) {
            rows_[std::size_t(z) * std::size_t(bins)] = 0;
            rows_[std::size_t(z) * std::size_t(bins) + 1] = static_cast<std::uint16_t>(bins - 1);
        }
        if (grids_differ) {
            for (int z = 0; z < frames; ++z)
                add_series(bins, z, 1, z * 0.01);
        } else {
            add_series(bins, 0, frames, 0);
        }
    }

private:
    void add_series(int bins, int first, int count, double intercept)
    {
        auto* series = hostkit::Object_2D_Add(hostkit::Root_2D(), {"Series", "Series", 0x2002, 0, 0x2002});
        for (int z = 0; z < count; ++z) {
            auto* frame = hostkit::Frame_Add(series, {"Frame", "Frame", hostkit::frame_class, 0, hostkit::frame_magic});
            frame->Flag_Set_On(16, reinterpret_cast<void*>(std::uintptr_t{4}), 512);
        }
        hostkit::Series_Pixels_Set(
            series, {hostkit::Pixel_Type::u16, rows_.data() + std::size_t(first) * std::size_t(bins), bins, 1, count, 1,
                        intercept, "HU"});
    }

    std::vector<std::uint16_t> rows_;
};

void merge(benchmark::State& state)
{
    const Series series(static_cast<int>(state.range(0)), state.range(1) != 0);
    Tool_Histo panel;
    panel.Update(selection_changed); // counts the frames
    for (auto _ : state)
        benchmark::DoNotOptimize(Histo_Compute(&panel));
}
BENCHMARK(merge)
    ->ArgNames({"bins", "grids_differ"})
    ->Args({4096, 0})
    ->Args({65535, 0})
    ->Args({4096, 1})
    ->Unit(benchmark::kMillisecond);

// ------------------------------------------------------------------------------------------------------ the panel

struct Shown_Panel {
    explicit Shown_Panel(int bins) : series(bins, false), slot(nullptr, {})
    {
        MoveWindow(slot.window(), 0, 0, 300, 200, TRUE);
        ShowWindow(slot.window(), SW_SHOW);
        slot.panel().Update(selection_changed);
        slot.panel().Draw();
    }
    Series series;
    Panel_Slot<Tool_Histo> slot;
};

void paint(benchmark::State& state)
{
    Shown_Panel shown(static_cast<int>(state.range(0)));
    for (auto _ : state)
        Histo_Paint(&shown.slot.panel());
}
BENCHMARK(paint)->Arg(4096)->Arg(65535)->Unit(benchmark::kMillisecond);

void move_cursor(benchmark::State& state)
{
    Shown_Panel shown(4096);
    Strato_2D* frame = hostkit::Root_2D()->Child_Get_Pt(0)->Child_Get_Pt(0);
    hostkit::Object_Variable<Strato_2D>("$FRAME_OVR") = frame;
    auto* mouse = static_cast<float*>(hostkit::Variable_Define("$MOUSE_FRM", hostkit::Variable_Type::Four_Floats));
    int x = 0;
    for (auto _ : state) {
        mouse[1] = static_cast<float>(++x % 4096);
        shown.slot.panel().Update(pointer_moved);
    }
}
BENCHMARK(move_cursor)->Unit(benchmark::kMillisecond);

void export_table(benchmark::State& state)
{
    Shown_Panel shown(65535);
    std::string path = (std::filesystem::temp_directory_path() / "vetra-bench.csv").string();
    for (auto _ : state)
        benchmark::DoNotOptimize(shown.slot.panel().Write(path.data()));
    std::filesystem::remove(path);
}
BENCHMARK(export_table)->Unit(benchmark::kMillisecond);

// -------------------------------------------------------------------------------------------------------- fitting

struct Fit_Case {
    int bins = 0, peaks = 0;
    std::vector<double> data;
    std::vector<double> start, low, high; // centre, sigma, height of each peak
};

Fit_Case make_case(int bins, int peaks)
{
    Fit_Case made{bins, peaks, std::vector<double>(std::size_t(bins)), {}, {}, {}};
    std::mt19937 random(3);
    std::uniform_real_distribution<double> share(0, 1);
    const double spacing = double(bins) / peaks;
    for (int k = 0; k < peaks; ++k) {
        const double centre = (k + 0.5 + 0.1 * (share(random) - 0.5)) * spacing, sigma = 7 + 1.5 * share(random);
        const double height = 200 + 1800 * share(random);
        for (int x = 0; x < bins; ++x)
            made.data[std::size_t(x)] += height * std::exp(-0.5 * std::pow((x - centre) / sigma, 2));
        for (const double value : {centre + 1, 5.0, height})
            made.start.push_back(value);
        for (const double value : {centre - spacing / 2, 1.0, 0.0})
            made.low.push_back(value);
        for (const double value : {centre + spacing / 2, spacing, 4000.0})
            made.high.push_back(value);
    }
    return made;
}

Fit_Case fit_case(int bins, int peaks)
{
    const auto raw = load<double>(data_file("fit_n" + std::to_string(bins) + "_K" + std::to_string(peaks) + ".bin"));
    if (raw.empty())
        return make_case(bins, peaks);
    const auto part = [&](std::size_t from, std::size_t count) {
        const auto begin = raw.begin() + static_cast<std::ptrdiff_t>(from);
        return std::vector<double>(begin, begin + static_cast<std::ptrdiff_t>(count));
    };
    const std::size_t n = std::size_t(bins), k = 3 * std::size_t(peaks);
    return {bins, peaks, part(2, n), part(2 + n, k), part(2 + n + k, k), part(2 + n + 2 * k, k)};
}

Vector_N* parameters(const std::vector<double>& values, int peak)
{
    auto* vector = new Vector_N(3, 8);
    const double* of_peak = values.data() + 3 * peak;
    (*vector)[0] = of_peak[0];
    (*vector)[1] = of_peak[2];
    (*vector)[2] = half_width_of_sigma * of_peak[1];
    return vector;
}

// The peaks as a search leaves them, with the case's own bounds.
void set_peaks(Histo_Peaks& peaks, const Fit_Case& given)
{
    peaks.Release();
    peaks.smooth = new double[given.data.size()];
    std::copy(given.data.begin(), given.data.end(), peaks.smooth);
    peaks.nb_pts = given.bins;
    histo::peak_settings.maximum_width = static_cast<float>(given.bins) / 5.0f;
    Histo_Peak* tail = nullptr;
    for (int k = 0; k < given.peaks; ++k) {
        Histo_Peak* peak = Peak_Add(&peaks, &tail, static_cast<int>(given.start[std::size_t(3 * k)]), 1, 5);
        for (auto [target, values] :
            {std::pair{&peak->param, &given.start}, {&peak->param_min, &given.low}, {&peak->param_max, &given.high}}) {
            delete *target;
            *target = parameters(*values, k);
        }
    }
}

double sum_of_squares(const Histo_Peaks& peaks, const Fit_Case& given)
{
    double sum = 0;
    for (int x = 0; x < given.bins; ++x) {
        double rest = given.data[std::size_t(x)];
        for (const Histo_Peak* peak = peaks.head; peak; peak = peak->next)
            rest -= peak->eval(x, peak->param);
        sum += rest * rest;
    }
    return sum;
}

void fit(benchmark::State& state)
{
    const Fit_Case given = fit_case(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    Histo_Peaks peaks;
    for (auto _ : state) {
        state.PauseTiming();
        set_peaks(peaks, given);
        state.ResumeTiming();
        Gauss_Newton(&peaks, static_cast<unsigned short>(given.bins), peaks.smooth, 0.1);
    }
    state.counters["peaks_left"] = peaks.nb;
    state.counters["SSE"] = benchmark::Counter(sum_of_squares(peaks, given));
}
BENCHMARK(fit)
    ->ArgNames({"bins", "peaks"})
    ->Args({4096, 10})
    ->Args({4096, 20})
    ->Args({65535, 20})
    ->Unit(benchmark::kMillisecond);

// The whole of it, from the counts.
void find_and_fit(benchmark::State& state)
{
    const Fit_Case given = fit_case(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    std::vector<unsigned> counts(given.data.size());
    std::transform(given.data.begin(), given.data.end(), counts.begin(),
        [](double value) { return static_cast<unsigned>(std::lround(std::max(value, 0.0))); });
    Histo_Record record{};
    record.nb_bins = static_cast<unsigned short>(given.bins);
    record.width = 1;
    Tool_Histo panel;
    panel.histo = &record;
    for (auto _ : state) {
        record.count = counts.data();
        histo::peak_settings.last_crossing = 0;
        panel.Fit();
    }
    record.count = nullptr; // the panel would free it
    panel.histo = nullptr;
    state.counters["peaks"] = panel.Peaks() ? panel.Peaks()->nb : 0;
}
BENCHMARK(find_and_fit)
    ->ArgNames({"bins", "peaks"})
    ->Args({4096, 20})
    ->Args({65535, 20})
    ->Unit(benchmark::kMillisecond);

// ----------------------------------------------------------------------------------------------- the graph window

// A panel with 20 peaks in 65,535 bins, and its graph window at 1600 x 900.
struct Shown_Graph {
    Shown_Graph() : shown(65535)
    {
        Histo_Record& histogram = *shown.slot.panel().histo;
        const Fit_Case given = make_case(histogram.nb_bins, 20);
        std::transform(given.data.begin(), given.data.end(), histogram.count,
            [](double value) { return static_cast<unsigned>(std::lround(value)); });
        histogram.max_count = *std::max_element(histogram.count, histogram.count + histogram.nb_bins);
        histo::peak_settings.last_crossing = 0;
        shown.slot.panel().Fit();
        const Buttons& blow = shown.slot.panel().blow;
        RECT client{};
        GetClientRect(shown.slot.window(), &client);
        Y_Cursor(shown.slot.window(), blow.x + 1, client.bottom - 2 - blow.y);
        Histo_Graph_Display(2, 0, 1);
        shown.slot.panel().Click(18);
        MoveWindow(Histo_Graph_Window(), 0, 0, 1600, 900, TRUE);
        UpdateWindow(Histo_Graph_Window());
    }
    Shown_Panel shown;
};

void graph_redraw(benchmark::State& state)
{
    Shown_Graph graph;
    for (auto _ : state) {
        InvalidateRect(Histo_Graph_Window(), nullptr, TRUE);
        UpdateWindow(Histo_Graph_Window());
    }
    state.counters["peaks"] = graph.shown.slot.panel().Peaks()->nb;
}
BENCHMARK(graph_redraw)->Unit(benchmark::kMillisecond);

void graph_cursor(benchmark::State& state)
{
    Shown_Graph graph;
    Strato_2D* frame = hostkit::Root_2D()->Child_Get_Pt(0)->Child_Get_Pt(0);
    hostkit::Object_Variable<Strato_2D>("$FRAME_OVR") = frame;
    auto* mouse = static_cast<float*>(hostkit::Variable_Define("$MOUSE_FRM", hostkit::Variable_Type::Four_Floats));
    int x = 0;
    for (auto _ : state) {
        mouse[1] = static_cast<float>(++x % 65535);
        SendMessageA(Histo_Graph_Window(), WM_USER + 1, 0, 0);
    }
}
BENCHMARK(graph_cursor)->Unit(benchmark::kMillisecond);

}

BENCHMARK_MAIN();
