#include "bench/shown_window.h"
#include "db/tool_db_class.h"
#include "db/tool_db_file.h"
#include "hostkit/structures/files.h"
#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "hostkit/structures/tree.h"

#include <benchmark/benchmark.h>

#include <bit>
#include <string>
#include <vector>

// The database list, 400 x 800 pixels, over trees of three levels.

namespace {

constexpr int most_rows = 65535;

HWND main_window()
{
    static const HWND window = bench::shown_window(400, 800);
    return window;
}

// Classes, without what the host does about a selection.
class Quiet_Classes : public Tool_DB_Class {
public:
    void List_Select_To_DB(int, DB_List*) override {}
};

void make_tree(int rows)
{
    hostkit::Tree_Reset();
    hostkit::Registry_Reset();
    hostkit::Segmentation_Reset();
    constexpr int in_series = 257;
    Strato_2D* const root = hostkit::Root_2D();
    Strato_2D* series = nullptr;
    for (int row = 1, image = in_series; row < rows; ++row) {
        if (image == in_series) {
            series = hostkit::Object_2D_Add(root,
                {.name = "T1 weighted, axial " + std::to_string(row), .title = "Series", .icon = "icon series.tga"});
            image = 0;
            continue;
        }
        hostkit::Frame_Add(series, {.name = std::to_string(++image) + " (256x256)",
                                       .title = "Image",
                                       .class_a = hostkit::frame_class,
                                       .magic = hostkit::frame_magic,
                                       .icon = "icon image.tga"});
    }
}

template <class Panel>
void show(Panel& panel)
{
    Boxs area;
    area.window = main_window();
    area.width = 400;
    area.height = 800;
    area.border = 1;
    area.back = {0xc8, 0xcc, 0xd0};
    panel.Resize(&area);
    panel.Update(0x402);
    panel.Draw();
}

void point(int x, int y)
{
    RECT client{};
    GetClientRect(main_window(), &client);
    POINT place{x, client.bottom - 1 - y};
    ClientToScreen(main_window(), &place);
    YCursor_X = place.x;
    YCursor_Y = place.y;
}

void point_at_line(const Tool_DB_List& panel, int line, int level)
{
    const auto origin = panel.Origin();
    point(origin.x + 20 * level + 3, origin.y - 18 * line - 18);
}

void ListBuild(benchmark::State& state)
{
    make_tree(most_rows);
    Tool_DB_Class panel;
    for (auto _ : state) {
        panel.List_Create_From_DB(&panel.nb, &panel.list_pt, 0, 0, nullptr);
        state.PauseTiming();
        state.counters["MB beyond texts"] =
            static_cast<double>(std::bit_ceil(static_cast<unsigned>(panel.nb)) * sizeof(DB_List)) / 1e6;
        state.counters["rows"] = panel.nb;
        panel.List_Free(&panel);
        state.ResumeTiming();
    }
}
BENCHMARK(ListBuild)->Unit(benchmark::kMillisecond);

void ListUpdateToThePicture(benchmark::State& state)
{
    make_tree(most_rows);
    Quiet_Classes panel;
    show(panel);
    for (auto _ : state)
        panel.Update(0x402);
}
BENCHMARK(ListUpdateToThePicture)->Unit(benchmark::kMillisecond);

void ListRepaint(benchmark::State& state)
{
    make_tree(static_cast<int>(state.range(0)));
    Quiet_Classes panel;
    show(panel);
    for (auto _ : state)
        panel.Draw();
}
BENCHMARK(ListRepaint)->Arg(1000)->Arg(most_rows)->Unit(benchmark::kMillisecond);

void ListWheel(benchmark::State& state)
{
    make_tree(most_rows);
    Quiet_Classes panel;
    show(panel);
    point(100, 400);
    panel.Scroll(-30000);
    int way = 1;
    for (auto _ : state)
        panel.Scroll(way = -way);
}
BENCHMARK(ListWheel)->Unit(benchmark::kMillisecond);

void ListFold(benchmark::State& state)
{
    make_tree(most_rows);
    Quiet_Classes panel;
    show(panel);
    const int line = static_cast<int>(state.range(0));
    point_at_line(panel, line, line);
    for (auto _ : state)
        panel.Click(18);
}
BENCHMARK(ListFold)->ArgName("line")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void ListDrag(benchmark::State& state)
{
    make_tree(most_rows);
    Quiet_Classes panel;
    show(panel);
    for (auto _ : state) {
        panel.vertical.value = 0;
        point_at_line(panel, 5, 9);
        panel.Click(18);
        panel.vertical.value = 18 * 10000.0f;
        point_at_line(panel, 10005, 9);
        panel.Click(0);
    }
}
BENCHMARK(ListDrag)->Unit(benchmark::kMillisecond);

void ListSelectAll(benchmark::State& state)
{
    make_tree(most_rows);
    Quiet_Classes panel;
    show(panel);
    point(panel.select_all.x + 5, panel.select_all.y + 5);
    for (auto _ : state)
        panel.Click(18);
}
BENCHMARK(ListSelectAll)->Unit(benchmark::kMillisecond);

// ---------------------------------------------------------------------------------------------------------- files

constexpr unsigned short frames = 10000;

void make_files()
{
    make_tree(0);
    const std::vector<hostkit::Frame_Description> described(frames, {{0x4D52, 0, 256, 256, 1, 1}, true});
    File_Record* const file = hostkit::File_Add("/data/series.dcm", described);
    Strato_2D* const series = hostkit::Object_2D_Add(hostkit::Root_2D(), {.title = "Series"});
    for (unsigned short i = 0; i < frames; ++i) {
        Strato_2D* const frame = hostkit::Frame_Add(
            series, {.title = "Image", .class_a = hostkit::frame_class, .magic = hostkit::frame_magic});
        hostkit::Frame_Shows(frame, file, i);
    }
    hostkit::Window_Add("window");
}

void FilesRead(benchmark::State& state)
{
    make_files();
    Tool_DB_File panel;
    panel.Update(0x402);
    for (auto _ : state)
        panel.List_Select_From_DB(panel.nb, panel.list_pt);
}
BENCHMARK(FilesRead)->Unit(benchmark::kMillisecond);

void FilesWrite(benchmark::State& state)
{
    make_files();
    Tool_DB_File panel;
    panel.Update(0x402);
    for (auto _ : state) {
        for (int i = 0; i < panel.nb; ++i)
            panel.list_pt[i].select ^= DB_List::selected;
        panel.List_Select_To_DB(panel.nb, panel.list_pt);
    }
}
BENCHMARK(FilesWrite)->Unit(benchmark::kMillisecond);

// ------------------------------------------------------------------------------------------------------ the diagram

constexpr int classes = 20000;

void show_middle(Tool_DB_Class& panel)
{
    panel.vertical.value = panel.vertical.maximum / 2;
    panel.horizontal.value = panel.horizontal.maximum;
    panel.Draw();
}

// A series with many images; a class that is the only child of another, many times; or all of them below the root.
enum Shape { series_of_images, chain, one_brood };

void make_shape(benchmark::State& state)
{
    if (state.range(0) == series_of_images)
        return make_tree(classes);
    make_tree(0);
    Strato_2D* parent = hostkit::Root_2D();
    for (int i = 1; i < classes; ++i) {
        Strato_2D* const added =
            hostkit::Object_2D_Add(parent, {.name = "class " + std::to_string(i), .title = "Series"});
        if (state.range(0) == chain)
            parent = added;
    }
}

void show_diagram(Tool_DB_Class& panel, benchmark::State& state)
{
    make_shape(state);
    show(panel);
    show_middle(panel);
}

// From a box to another place, so that one is highlighted and then not.
class Walk {
public:
    explicit Walk(const Tool_DB_Class& panel)
    {
        for (int i = 0; i < panel.nb; ++i) {
            const DB_List& row = panel.list_pt[i];
            const int x = panel.Origin().x + 330 * row.level + 60, y = panel.Origin().y - 50 * row.line - 20;
            if (x > 20 && x < 350 && y > 120 && y < 790)
                here_ = {x, y};
        }
    }
    bool found() const { return here_.x > 0; }
    void step() { point(here_.x, here_.y - (there_ = !there_) * 50); }

private:
    POINT here_{};
    bool there_ = false;
};

void DiagramRepaint(benchmark::State& state)
{
    Tool_DB_Class panel(Tool_DB_List::edit_mode | 2);
    show_diagram(panel, state);
    for (auto _ : state)
        panel.Draw();
}
BENCHMARK(DiagramRepaint)->DenseRange(series_of_images, one_brood)->Unit(benchmark::kMillisecond);

void DiagramHover(benchmark::State& state)
{
    Tool_DB_Class panel(Tool_DB_List::edit_mode | 2);
    show_diagram(panel, state);
    Walk walk(panel);
    if (!walk.found())
        return state.SkipWithError("no box is seen");
    for (auto _ : state) {
        walk.step();
        panel.Motion(0);
    }
}
BENCHMARK(DiagramHover)->DenseRange(series_of_images, one_brood)->Unit(benchmark::kMillisecond);

// With all children of the root dragged.
void DiagramDrag(benchmark::State& state)
{
    Tool_DB_Class panel(Tool_DB_List::edit_mode | 2);
    make_shape(state);
    show(panel);
    const auto origin = panel.Origin();
    point(origin.x + 250, origin.y - 30);
    panel.Click(18);
    show_middle(panel);
    Walk walk(panel);
    if (!walk.found())
        return state.SkipWithError("no box is seen");
    for (auto _ : state) {
        walk.step();
        panel.Motion(17);
    }
    panel.Motion(0);
}
BENCHMARK(DiagramDrag)->DenseRange(series_of_images, one_brood)->Unit(benchmark::kMillisecond);

// Of a folded class a chain is hidden: places are searched past it.
void DiagramHoverBesideWhatIsFolded(benchmark::State& state)
{
    make_tree(0);
    Strato_2D* const root = hostkit::Root_2D();
    hostkit::Object_2D_Add(root, {.title = "Series"});
    Strato_2D* parent = root;
    for (int i = 2; i < classes; ++i)
        parent = hostkit::Object_2D_Add(parent, {.title = "Series"});
    Tool_DB_Class panel(Tool_DB_List::edit_mode | 2);
    show(panel);
    panel.list_pt[0].state = 0;
    panel.Draw();
    Walk walk(panel);
    if (!walk.found())
        return state.SkipWithError("no box is seen");
    for (auto _ : state) {
        walk.step();
        panel.Motion(0);
    }
}
BENCHMARK(DiagramHoverBesideWhatIsFolded)->Unit(benchmark::kMillisecond);

}

BENCHMARK_MAIN();
