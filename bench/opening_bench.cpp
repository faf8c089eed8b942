#include "workbench/view/image_view.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <itkImage.h>
#include <itkImageFileReader.h>
#include <itkNiftiImageIOFactory.h>
#include <QApplication>
#include <string>

namespace {

std::string file = "/usr/share/mricron/templates/ch2.nii.gz";

/// A value of /proc/self/status in kilobytes; 0 where there is no such file.
long status(const std::string& key)
{
    std::ifstream lines("/proc/self/status");
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(key + ":"))
            return std::atol(line.c_str() + key.size() + 1);
    return 0;
}

/// Everything from the file to the picture on the screen.
struct Opening {
    workbench::Session session;
    workbench::ImageView view{session};

    Opening()
    {
        view.resize(900, 700);
        view.show();
    }

    void run()
    {
        session.closeSeries(); // the last one's
        auto opened = document::open({file});
        const auto failure = opened ? session.adoptImage(std::move(*opened)) : opened.failure();
        if (failure) {
            std::cerr << failure->message << '\n';
            std::exit(1);
        }
        view.repaint();
    }
};

void Open(benchmark::State& state)
{
    Opening opening;
    for (auto _ : state)
        opening.run();
}
BENCHMARK(Open)->Unit(benchmark::kMillisecond);

void ItkAlone(benchmark::State& state)
{
    using Image = itk::Image<float, 3>;
    for (auto _ : state) {
        auto reader = itk::ImageFileReader<Image>::New();
        reader->SetFileName(file);
        reader->Update();
        benchmark::DoNotOptimize(reader->GetOutput()->GetBufferPointer());
    }
}
BENCHMARK(ItkAlone)->Unit(benchmark::kMillisecond);

void print_memory()
{
    Opening opening;
    QApplication::processEvents();
    const long before = status("VmRSS");
    opening.run();
    const auto& volume = opening.session.volume();
    std::cout << "memory: " << status("VmRSS") - before << " kB more after opening, " << status("VmHWM") - before
              << " kB at most while opening; pixels " << volume.pixels.size() / 1024 << " kB, labels "
              << volume.geometry.voxels() / 1024 << " kB\n";
}

}

int main(int count, char** arguments)
{
    QApplication application(count, arguments);
    benchmark::Initialize(&count, arguments);
    if (count > 1)
        file = arguments[1];
    itk::NiftiImageIOFactory::RegisterOneFactory();
    print_memory();
    benchmark::RunSpecifiedBenchmarks();
}
