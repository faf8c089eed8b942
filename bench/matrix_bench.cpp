#include "host/basics.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <vector>

// The matrix work of one step of a fit: 20 peaks spread evenly over the rows, three columns a peak, each of them zero
// beyond 10 widths.
namespace {

constexpr int peaks = 20;
constexpr int parameters = 3 * peaks;
constexpr double width = 8.0;
constexpr int reach = static_cast<int>(10 * width);

struct Slopes {
    double values[3];
};

// The slopes of one peak at -reach .. reach.
const std::vector<Slopes>& slopes()
{
    static const std::vector<Slopes> table = [] {
        std::vector<Slopes> made;
        for (int d = -reach; d <= reach; ++d) {
            const double height = std::exp2(-(d / width) * (d / width));
            made.push_back({{1000.0 * d * height, height, 100.0 * d * d * height}});
        }
        return made;
    }();
    return table;
}

void fill(Matrix_NxM& jacobian, int rows)
{
    for (int peak = 0; peak < peaks; ++peak) {
        const int center = (2 * peak + 1) * rows / (2 * peaks);
        for (int x = std::max(center - reach, 0); x <= std::min(center + reach, rows - 1); ++x)
            std::copy_n(slopes()[static_cast<size_t>(x - center + reach)].values, 3, jacobian[x] + 3 * peak);
    }
}

Vector_N residuals(int rows)
{
    Vector_N vector(static_cast<unsigned>(rows), sizeof(double));
    for (int x = 0; x < rows; ++x)
        vector[x] = x % 7 - 3.0;
    return vector;
}

Matrix_NxM jacobian_of(int rows)
{
    return {parameters, static_cast<unsigned>(rows), sizeof(double)};
}

Vector_N step(const Matrix_NxM& jacobian, const Vector_N& residual)
{
    const Matrix_NxM transpose = ~jacobian;
    const Matrix_NxM inverse = !(transpose * jacobian);
    return inverse * (transpose * residual);
}

void Step(benchmark::State& state)
{
    const auto rows = static_cast<int>(state.range(0));
    const Vector_N residual = residuals(rows);
    for (auto _ : state) {
        state.PauseTiming();
        Matrix_NxM jacobian = jacobian_of(rows);
        fill(jacobian, rows);
        state.ResumeTiming();
        benchmark::DoNotOptimize(step(jacobian, residual).Size());
        state.PauseTiming();
        jacobian = Matrix_NxM(0, 0, sizeof(double));
        state.ResumeTiming();
    }
}
BENCHMARK(Step)->Arg(4096)->Arg(65535)->Unit(benchmark::kMicrosecond);

void StepWithItsJacobian(benchmark::State& state)
{
    const auto rows = static_cast<int>(state.range(0));
    const Vector_N residual = residuals(rows);
    for (auto _ : state) {
        Matrix_NxM jacobian = jacobian_of(rows);
        fill(jacobian, rows);
        benchmark::DoNotOptimize(step(jacobian, residual).Size());
    }
}
BENCHMARK(StepWithItsJacobian)->Arg(4096)->Arg(65535)->Unit(benchmark::kMicrosecond);

void Square(benchmark::State& state)
{
    const auto rows = static_cast<int>(state.range(0));
    Matrix_NxM jacobian = jacobian_of(rows);
    fill(jacobian, rows);
    for (auto _ : state)
        benchmark::DoNotOptimize((~jacobian * jacobian).Invalid());
}
BENCHMARK(Square)->Arg(4096)->Arg(65535)->Unit(benchmark::kMicrosecond);

void SquareOfWhole(benchmark::State& state)
{
    const auto rows = static_cast<int>(state.range(0));
    Matrix_NxM matrix = jacobian_of(rows);
    for (int x = 0; x < rows; ++x)
        std::fill_n(matrix[x], parameters, 1.0 + x % 3);
    for (auto _ : state)
        benchmark::DoNotOptimize((~matrix * matrix).Invalid());
}
BENCHMARK(SquareOfWhole)->Arg(4096)->Unit(benchmark::kMicrosecond);

void Inverse(benchmark::State& state)
{
    const int rows = 4096;
    Matrix_NxM jacobian = jacobian_of(rows);
    fill(jacobian, rows);
    const Matrix_NxM square = ~jacobian * jacobian;
    for (auto _ : state)
        benchmark::DoNotOptimize((!square).Invalid());
}
BENCHMARK(Inverse)->Unit(benchmark::kMicrosecond);

}

BENCHMARK_MAIN();
