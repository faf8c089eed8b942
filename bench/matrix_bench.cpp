#include "host/basics.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <vector>

// The matrix work of one step of a fit: peaks spread evenly over the rows, three columns a peak, each of them zero
// beyond 10 widths.
namespace {

constexpr double width = 8.0;
constexpr int reach = static_cast<int>(10 * width);

struct Problem {
    int rows;
    int peaks;

    explicit Problem(const benchmark::State& state)
        : rows(static_cast<int>(state.range(0))), peaks(static_cast<int>(state.range(1)))
    {
    }

    unsigned columns() const { return 3 * static_cast<unsigned>(peaks); }
    Matrix_NxM zeros() const { return {columns(), static_cast<unsigned>(rows), sizeof(double)}; }
    Matrix_NxM jacobian() const;
    Vector_N residual() const;
};

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

Matrix_NxM Problem::jacobian() const
{
    Matrix_NxM matrix = zeros();
    for (int peak = 0; peak < peaks; ++peak) {
        const int center = (2 * peak + 1) * rows / (2 * peaks);
        for (int x = std::max(center - reach, 0); x <= std::min(center + reach, rows - 1); ++x)
            std::copy_n(slopes()[static_cast<size_t>(x - center + reach)].values, 3, matrix[x] + 3 * peak);
    }
    return matrix;
}

Vector_N Problem::residual() const
{
    Vector_N vector(static_cast<unsigned>(rows), sizeof(double));
    for (int x = 0; x < rows; ++x)
        vector[x] = x % 7 - 3.0;
    return vector;
}

Vector_N step(const Matrix_NxM& jacobian, const Vector_N& residual)
{
    const Matrix_NxM transpose = ~jacobian;
    const Matrix_NxM inverse = !(transpose * jacobian);
    return inverse * (transpose * residual);
}

void Step(benchmark::State& state)
{
    const Problem problem(state);
    const Vector_N residual = problem.residual();
    for (auto _ : state) {
        state.PauseTiming();
        Matrix_NxM jacobian = problem.jacobian();
        state.ResumeTiming();
        benchmark::DoNotOptimize(step(jacobian, residual).Size());
        state.PauseTiming();
        jacobian = Matrix_NxM(0, 0, sizeof(double));
        state.ResumeTiming();
    }
}

void StepWithItsJacobian(benchmark::State& state)
{
    const Problem problem(state);
    const Vector_N residual = problem.residual();
    for (auto _ : state)
        benchmark::DoNotOptimize(step(problem.jacobian(), residual).Size());
}

void Square(benchmark::State& state)
{
    const Matrix_NxM jacobian = Problem(state).jacobian();
    for (auto _ : state)
        benchmark::DoNotOptimize((~jacobian * jacobian).Invalid());
}

void SquareWithoutZeros(benchmark::State& state)
{
    const Problem problem(state);
    Matrix_NxM matrix = problem.zeros();
    for (int x = 0; x < problem.rows; ++x)
        std::fill_n(matrix[x], problem.columns(), 1.0 + x % 3);
    for (auto _ : state)
        benchmark::DoNotOptimize((~matrix * matrix).Invalid());
}

void Inverse(benchmark::State& state)
{
    const Matrix_NxM jacobian = Problem(state).jacobian();
    const Matrix_NxM square = ~jacobian * jacobian;
    for (auto _ : state)
        benchmark::DoNotOptimize((!square).Invalid());
}

void sizes(benchmark::internal::Benchmark* measured)
{
    measured->ArgNames({"rows", "peaks"})->Unit(benchmark::kMicrosecond);
    measured->Args({4096, 20})->Args({65535, 20})->Args({4096, 100});
}

BENCHMARK(Step)->Apply(sizes);
BENCHMARK(StepWithItsJacobian)->Apply(sizes);
BENCHMARK(Square)->Apply(sizes);
BENCHMARK(SquareWithoutZeros)->Args({4096, 20})->Unit(benchmark::kMicrosecond);
BENCHMARK(Inverse)->Args({4096, 20})->Args({4096, 100})->Unit(benchmark::kMicrosecond);

}

BENCHMARK_MAIN();
