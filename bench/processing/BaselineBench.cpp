// Baselines of one spectrum. bench/compare/baseline_scipy.py runs the same iteration with scipy.linalg.solveh_banded.
#include "TYrexAutoBaseline.h"
#include "numerics/MatrixUtils.h"
#include "numerics/PentadiagonalSolver.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <vector>

namespace {

constexpr int cIterations = 50; // all that arpls has, since no change of the weights is below a negative ratio

/// Twelve bands on a bent slope, with even noise from a fixed series.
std::vector<double> bands(int n)
{
    std::vector<double> y(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) {
        const double x = double(i) / n;
        double value = 0.5 + 0.8 * x + 0.3 * std::sin(3.0 * x);
        for (int k = 0; k < 12; ++k) {
            const double offset = (x - (k + 0.5) / 12.0) / (0.002 + 0.0005 * k);
            value += (0.2 + 0.1 * (k % 4)) * std::exp(-0.5 * offset * offset);
        }
        const auto series = quint32(quint64(i) * 2654435761u);
        y[size_t(i)] = value + 0.01 * (series / 4294967296.0 - 0.5);
    }
    return y;
}

void solve(benchmark::State &state)
{
    const int n = int(state.range(0));
    const std::vector<double> y = bands(n);
    const std::vector<double> w(y.size(), 0.5);
    std::vector<double> z(y.size());
    Utils::Matrix::TPentadiagonalSolver solver;
    for (auto _ : state) {
        solver.solve(n, y.data(), w.data(), 1e6, z.data());
        benchmark::DoNotOptimize(z.data());
    }
    state.SetItemsProcessed(state.iterations() * n);
}

/// Items are points times iterations.
void arpls(benchmark::State &state)
{
    const int n = int(state.range(0));
    const std::vector<double> y = bands(n);
    std::vector<double> z(y.size());
    for (auto _ : state) {
        TYrexAutoBaseline::arpls(n, y.data(), z.data(), 1e6, -1.0);
        benchmark::DoNotOptimize(z.data());
    }
    state.SetItemsProcessed(state.iterations() * n * cIterations);
}

void iarpls(benchmark::State &state)
{
    const int n = int(state.range(0));
    const std::vector<double> y = bands(n);
    std::vector<double> z(y.size());
    for (auto _ : state) {
        Utils::Matrix::iarplss(n, y.data(), z.data(), 1e6, 1e-6);
        benchmark::DoNotOptimize(z.data());
    }
    state.SetItemsProcessed(state.iterations() * n);
}

void snip(benchmark::State &state)
{
    const int n = int(state.range(0));
    const std::vector<double> y = bands(n);
    std::vector<double> z(y.size());
    for (auto _ : state) {
        Utils::Matrix::snipBC(n, y.data(), z.data(), 6.0);
        benchmark::DoNotOptimize(z.data());
    }
    state.SetItemsProcessed(state.iterations() * n);
}

void factorSearch(benchmark::State &state)
{
    const int n = int(state.range(0));
    const std::vector<double> y = bands(n);
    for (auto _ : state) {
        double factor = 5.0;
        Utils::Matrix::iarplssGA(n, nullptr, y.data(), factor, 1e-6);
        benchmark::DoNotOptimize(factor);
    }
    state.SetItemsProcessed(state.iterations() * n);
}

} // namespace

BENCHMARK(solve)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(arpls)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(iarpls)->Arg(2000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(snip)->Arg(2000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(factorSearch)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);
