// Smoothing a spectrum. Every round starts from the same noisy values; copying them back is part of the time.
#include "TYrexNlmPixelwise.h"
#include "TYrexProcIds.h"
#include "TYrexSavGol.h"
#include "TYrexSmoothing.h"

#include <QVector>
#include <benchmark/benchmark.h>
#include <cmath>

namespace {

/// Peaks of width 20 with 2 % noise of a generator that any language can repeat.
QVector<double> spectrum(int n)
{
    QVector<double> y;
    y.reserve(n);
    quint32 noise = 12345;
    for (int i = 0; i < n; ++i) {
        noise = noise * 1664525u + 1013904223u;
        y.append(std::exp(-0.5 * std::pow((i % 200 - 100) / 20.0, 2)) + 0.04 * (noise / 4294967296.0 - 0.5));
    }
    return y;
}

template <typename TSmooth>
void smooth(benchmark::State &state, TSmooth smoothing)
{
    const int n = int(state.range(0));
    const QVector<double> before = spectrum(n);
    QVector<double> y(n);
    for (auto unused : state) {
        std::copy(before.begin(), before.end(), y.begin());
        smoothing(y.data(), n);
        benchmark::DoNotOptimize(y.data());
    }
    state.SetItemsProcessed(state.iterations() * n);
}

void savitzkyGolay(benchmark::State &state)
{
    const int window = int(state.range(1));
    smooth(state, [window](double *y, int n) { TYrexSmoothing::savitzkyGolay(y, n, window, 4); });
}

void exponential(benchmark::State &state)
{
    smooth(state, [](double *y, int n) { TYrexSmoothing::exponentialSmooth(y, 5.0, n); });
}

void medianWiener(benchmark::State &state)
{
    smooth(state, [](double *y, int n) { TYrexSmoothing::medianWiener(y, n); });
}

void nonLocalMeans(benchmark::State &state, int mode)
{
    smooth(state, [mode](double *y, int n) { TYrexSmoothing::nonLocalMeans(y, n, 0.5, mode); });
}

/// The filter alone, on an image of eight rows.
void nlmImage(benchmark::State &state, bool fast)
{
    const int n = int(state.range(0));
    QVector<float> image;
    for (int row = 0; row < 8; ++row)
        for (const double value : spectrum(n))
            image.append(float(value));
    QVector<float> out(image.size());
    for (auto unused : state) {
        nlmPixelwise(image.constData(), out.data(), 8, n, fast);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetItemsProcessed(state.iterations() * n);
}

} // namespace

BENCHMARK(savitzkyGolay)->Args({1000000, 9})->Args({1000000, 21})->Args({1000000, 75})->Args({2000, 21});
BENCHMARK(exponential)->Arg(1000000);
BENCHMARK(medianWiener)->Arg(2000)->Arg(100000);
BENCHMARK_CAPTURE(nonLocalMeans, blockwise, cNlmBlockwise)->Arg(2000)->Arg(100000);
BENCHMARK_CAPTURE(nonLocalMeans, pixelwise, cNlmPixelwise)->Arg(2000)->Arg(100000);
BENCHMARK_CAPTURE(nonLocalMeans, fast, cNlmFastPixelwise)->Arg(2000)->Arg(100000);
BENCHMARK_CAPTURE(nlmImage, full, false)->Arg(100000)->UseRealTime();
BENCHMARK_CAPTURE(nlmImage, fast, true)->Arg(100000)->UseRealTime();
