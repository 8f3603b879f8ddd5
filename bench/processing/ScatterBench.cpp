// The stack-wide pre-passes of scatter correction and quotient normalisation. The same sizes go through NumPy in
// bench/compare/scatter_scipy.py.
#include "TYrexProcIds.h"
#include "TYrexScatter.h"
#include "TYrexSpectrum.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <memory>
#include <vector>

namespace {

constexpr int cSpectra = 1000;
constexpr int cPoints = 2000;

/// Spectra that differ by an offset, a factor and some noise.
class TBenchStack
{
public:
    TBenchStack()
    {
        quint32 noise = 12345;
        for (int s = 0; s < cSpectra; ++s) {
            QVector<double> y(cPoints);
            for (int i = 0; i < cPoints; ++i) {
                noise = noise * 1664525u + 1013904223u;
                y[i] = 1e-3 * s + (1.0 + 1e-3 * s) * (2.0 + std::sin(0.01 * i)) + (noise >> 8) / 16777216.0 * 1e-2;
            }
            fOwned.push_back(std::make_unique<TYrexSpectrum>());
            fOwned.back()->setPointCount(cPoints);
            fOwned.back()->setValues(y);
            fSpectra.append(fOwned.back().get());
        }
    }
    const QVector<TYrexSpectrum *> &spectra() const { return fSpectra; }

private:
    std::vector<std::unique_ptr<TYrexSpectrum>> fOwned;
    QVector<TYrexSpectrum *> fSpectra;
};

void scatterFit(benchmark::State &state)
{
    const TBenchStack stack;
    for (auto _ : state)
        TYrexScatter::mscPrepass(stack.spectra());
    state.SetItemsProcessed(state.iterations() * cSpectra * cPoints);
}

void quotients(benchmark::State &state, int reference)
{
    const TBenchStack stack;
    const QVariantMap action = {{"normpqnreference", reference}};
    for (auto _ : state)
        TYrexScatter::pqnPrepass(stack.spectra(), action);
    state.SetItemsProcessed(state.iterations() * cSpectra * cPoints);
}

} // namespace

BENCHMARK(scatterFit)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(quotients, ofTheMean, cQuotientMean)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(quotients, ofTheMedian, cQuotientMedian)->Unit(benchmark::kMillisecond);
