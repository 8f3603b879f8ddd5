// Peak picking and its parts on long spectra: lines on a slope, with and without noise. The same data go through SciPy
// in bench/compare/peaks_scipy.py.
#include "TYrexDPLib.h"
#include "TYrexPeakPicking.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "numerics/Median.h"
#include "numerics/RobustDerivative.h"

#include <benchmark/benchmark.h>
#include <cmath>

namespace {

/// A line of 1000 counts, 40 points wide, every 500 points on a slope; noise of that amplitude, even and from a fixed
/// series.
QVector<double> lines(int n, double amplitude)
{
    QVector<double> y(n);
    quint32 noise = 12345;
    for (int i = 0; i < n; ++i) {
        noise = noise * 1664525u + 1013904223u;
        const double offset = (i % 500 - 250) / 20.0;
        y[i] = 1e-3 * i + 1e3 / (1.0 + offset * offset) + amplitude * ((noise >> 8) / 16777216.0 - 0.5);
    }
    return y;
}

void autoPicking(benchmark::State &state, double amplitude, int sign)
{
    const int n = int(state.range(0));
    TYrexSpectrum spectrum;
    spectrum.setPointCount(n);
    spectrum.setValues(lines(n, amplitude));
    spectrum.setUnits(cUnitWavenumber, cUnitAbsorbance);
    const QVariantMap action = {
        {"yrexstdpppsign", sign}, {"yrexstdppmaxnbrpeaks", 1000000}, {"yrexstdppsensitivity", 0.02}};
    for (auto _ : state) {
        TYrexDPLib::deleteAllPeaks(spectrum.peaks());
        TYrexPeakPicking::autoPeakPicking(spectrum, action);
    }
    state.counters["peaks"] = spectrum.peaks().size();
    state.SetItemsProcessed(state.iterations() * n);
}

void median(benchmark::State &state)
{
    const int n = int(state.range(0));
    QVector<float> values;
    for (const double value : lines(n, 1.0))
        values.append(float(value));
    for (auto _ : state)
        benchmark::DoNotOptimize(Utils::Algorithm::calcMedian(values.data(), size_t(n)));
    state.SetItemsProcessed(state.iterations() * n);
}

void robustDerivative(benchmark::State &state)
{
    const int n = int(state.range(0));
    const QVector<double> y = lines(n, 10.0);
    for (auto _ : state) {
        QVector<double> work = y;
        Utils::Algorithm::robustNoiseDerivative(work.data(), n, 10, false);
        benchmark::DoNotOptimize(work.constData());
    }
    state.SetItemsProcessed(state.iterations() * n);
}

} // namespace

BENCHMARK_CAPTURE(autoPicking, smooth, 0.0, 29)->Arg(2000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(autoPicking, noisy, 10.0, 29)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(autoPicking, bothWays, 10.0, 28)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(median)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
BENCHMARK(robustDerivative)->Arg(2000)->Arg(1000000)->Unit(benchmark::kMicrosecond);
