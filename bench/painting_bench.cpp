#include "hostkit/structures/registry.h"
#include "hostkit/structures/segmentation.h"
#include "tools/tool_brush.h"
#include "workbench/view/image_view.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <QApplication>
#include <QMouseEvent>

namespace {

constexpr int side = 2048;
constexpr int first = 524, length = 1000;

document::Opened large_image()
{
    document::Opened opened;
    auto& volume = opened.volume;
    volume.type = document::PixelType::i16;
    volume.geometry.size = {side, side, 1};
    volume.pixels = document::PixelMemory::allocate(volume.geometry.voxels() * 2);
    auto* pixels = reinterpret_cast<std::int16_t*>(volume.pixels.data());
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            *pixels++ = std::int16_t(1000 * std::sin(x * 0.01) * std::cos(y * 0.013));
    return opened;
}

/// A session with the large image and the brush of radius 50.
struct Painter {
    workbench::Session session;
    Tool_Brush brushes;

    Painter()
    {
        constexpr unsigned short radius = 50;
        hostkit::Brushes_Set({&radius, 1});
        hostkit::Variable<unsigned short>("$BRUSH_CUR") = 0;
        brushes.Update(1ull << 23); // fills the shapes
        if (const auto failure = session.adoptImage(large_image())) {
            std::cerr << failure->message << '\n';
            std::exit(1);
        }
    }
};

QPoint on_path(int i)
{
    return {first + i, 1024 + int(200 * std::sin(i * 0.012))};
}

void send(QWidget& view, QEvent::Type type, QPointF place)
{
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, place, view.mapToGlobal(place), button, held, Qt::NoModifier);
    QApplication::sendEvent(&view, &event);
    QApplication::processEvents(); // repaints
}

void Stroke(benchmark::State& state)
{
    Painter painter;
    workbench::ImageView view(painter.session);
    view.resize(1000, 1000);
    view.show();
    QApplication::processEvents();
    const auto place = [&](int i) { return view.positionOf(on_path(i).x(), on_path(i).y()); };
    for (auto _ : state) {
        send(view, QEvent::MouseButtonPress, place(0));
        for (int i = 10; i <= length; i += 10)
            send(view, QEvent::MouseMove, place(i));
        send(view, QEvent::MouseButtonRelease, place(length));
        state.PauseTiming();
        painter.session.undoStack().undo();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(Stroke)->Unit(benchmark::kMillisecond);

void StrokeLabels(benchmark::State& state)
{
    Painter painter;
    for (auto _ : state) {
        painter.session.beginStroke(on_path(0), false);
        for (int i = 10; i <= length; i += 10)
            painter.session.continueStroke(on_path(i));
        painter.session.endStroke();
        state.PauseTiming();
        painter.session.undoStack().undo();
        state.ResumeTiming();
    }
}
BENCHMARK(StrokeLabels)->Unit(benchmark::kMillisecond);

void LabelStep(benchmark::State& state)
{
    Painter painter;
    for (auto _ : state) {
        state.PauseTiming();
        painter.session.beginStroke(on_path(0), false);
        for (int i = 10; i <= length; i += 10)
            painter.session.continueStroke(on_path(i));
        state.ResumeTiming();
        painter.session.endStroke();
        state.PauseTiming();
        painter.session.undoStack().undo();
        state.ResumeTiming();
    }
}
BENCHMARK(LabelStep)->Unit(benchmark::kMillisecond);

void RenderFrame(benchmark::State& state)
{
    Painter painter;
    workbench::FramePicture picture;
    for (auto _ : state)
        picture.render(painter.session);
}
BENCHMARK(RenderFrame)->Unit(benchmark::kMillisecond);

void BlendLabels(benchmark::State& state)
{
    Painter painter;
    painter.session.beginStroke({1024, 1024}, false);
    painter.session.continueStroke({300, 400});
    painter.session.endStroke();
    workbench::FramePicture picture;
    picture.render(painter.session);
    for (auto _ : state)
        picture.blend(painter.session);
}
BENCHMARK(BlendLabels)->Unit(benchmark::kMillisecond);

}

int main(int count, char** arguments)
{
    QApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
