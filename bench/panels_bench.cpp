#include "bench/shown_window.h"
#include "hostkit/embedding/panel_slot.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "tools/tool_brush.h"
#include "tools/tool_tag.h"

#include <benchmark/benchmark.h>

namespace {

using hostkit::Panel_Slot;
using hostkit::Variable;

HWND main_window()
{
    static const HWND window = bench::shown_window(800, 2000);
    return window;
}

void reset_host(unsigned short tags)
{
    hostkit::Registry_Reset();
    hostkit::Segmentation_Reset();
    Variable<unsigned short>("$TAG_NB") = tags;
}

template <class Panel>
void show(Panel_Slot<Panel>& slot, int width, int height)
{
    MoveWindow(slot.window(), 0, 0, width, height, TRUE);
    ShowWindow(slot.window(), SW_SHOW);
}

Boxs area_of(HWND window, int width, int height)
{
    Boxs area;
    area.window = window;
    area.width = static_cast<short>(width);
    area.height = static_cast<short>(height);
    area.border = Variable<short>("$INTERFACE_BORDER_DIM");
    area.state = 66;
    return area;
}

void TagUpdate(benchmark::State& state)
{
    reset_host(256);
    Panel_Slot<Tool_Tag> tags(main_window(), {});
    show(tags, 240, tags.panel().Height(64));
    auto& current = Variable<unsigned short>("$TAG_CUR");
    for (auto _ : state) {
        current = current == 130 ? 131 : 130;
        tags.panel().Update(0x400000);
    }
}
BENCHMARK(TagUpdate)->Unit(benchmark::kMicrosecond);

void TagLayout(benchmark::State& state)
{
    reset_host(256);
    Panel_Slot<Tool_Tag> tags(main_window(), {});
    const int height = tags.panel().Height(64);
    show(tags, 240, height);
    Boxs area = area_of(tags.window(), 240, height);
    for (auto _ : state) {
        tags.panel().Resize(&area);
        tags.panel().Draw();
    }
}
BENCHMARK(TagLayout)->Unit(benchmark::kMillisecond);

void BrushRecolour(benchmark::State& state)
{
    constexpr unsigned short radii[] = {1, 2, 4, 8, 12, 20, 32, 50};
    reset_host(16);
    hostkit::Brushes_Set(radii);
    Panel_Slot<Tool_Brush> brushes(main_window(), {});
    const int rim = 2 * Variable<short>("$INTERFACE_SPACE_DIM");
    show(brushes, 8 * 64 + rim, 64 + rim);
    brushes.panel().Update(1ull << 60);
    auto& current = Variable<unsigned short>("$TAG_CUR");
    for (auto _ : state) {
        current = current == 3 ? 4 : 3;
        brushes.panel().Update(0x400000);
    }
}
BENCHMARK(BrushRecolour)->Unit(benchmark::kMillisecond);

}

BENCHMARK_MAIN();
