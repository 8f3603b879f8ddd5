// Spectra on a page: drawn through their item, and documents that are opened.
#include "TPeakMemory.h"
#include "TSpectrumPage.h"
#include "canvas/TLoadReport.h"

#include <QApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

enum TStep { cRedraw, cZoomStep, cPanStep, cPointing };

TCanvasItem *makeItem(int rtti)
{
    return rtti == TCanvasYrexSpectrum::cRtti ? new TCanvasYrexSpectrum({}, nullptr, nullptr) : nullptr;
}

/// arguments: curves, points of each, display mode, unit of x, step
void drawItem(benchmark::State &state)
{
    TSpectrumPage page(int(state.range(0)), int(state.range(1)), 0.004, int(state.range(2)), int(state.range(3)));
    page.draw(); // fonts are loaded once
    if (state.range(4) == cPointing)
        page.drawPointed();
    for (auto _ : state) {
        switch (state.range(4)) {
        case cZoomStep:
            page.zoom();
            break;
        case cPanStep:
            page.pan();
            break;
        case cPointing:
            page.drawPointed();
            continue;
        default:
            break;
        }
        page.draw();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0) * state.range(1));
}
BENCHMARK(drawItem)
    ->ArgNames({"curves", "points", "mode", "unit", "step"})
    ->Args({1, 1000000, overlayMode, cUnitWavenumber, cRedraw})
    ->Args({1, 1000000, overlayMode, cUnitWavenumber, cZoomStep})
    ->Args({1, 1000000, overlayMode, cUnitNanometers, cZoomStep})
    ->Args({1, 1000000, overlayMode, cUnitWavenumber, cPanStep})
    ->Args({1000, 2000, overlayMode, cUnitWavenumber, cRedraw})
    ->Args({1000, 2000, overlayMode, cUnitWavenumber, cZoomStep})
    ->Args({1000, 2000, overlayMode, cUnitWavenumber, cPointing})
    ->Args({500, 2000, stackedMode, cUnitWavenumber, cRedraw})
    ->Args({500, 2000, stackedMode, cUnitWavenumber, cZoomStep})
    ->Args({500, 2000, stackedMode, cUnitWavenumber, cPointing})
    ->MeasureProcessCPUTime() // curves are filled by several threads
    ->Unit(benchmark::kMillisecond);

/// A document of items of 10,000 points each; with the peak memory per byte of the y values.
void openDocument(benchmark::State &state)
{
    constexpr int cPoints = 10000;
    const QTemporaryDir folder;
    const QString path = folder.filePath("many.klm");
    {
        TDocument document;
        for (int i = 0; i < state.range(0); ++i) {
            TPage *page = document.appendPage();
            auto *item = new TCanvasYrexSpectrum({TSpectrumPage::newFilmSpectrum(cPoints, 0.004, i)}, page, nullptr);
            item->setRect(page->offeredRect(item));
            page->insertItem(item);
        }
        if (!document.saveTo(path)) {
            state.SkipWithError("the document cannot be written");
            return;
        }
    }
    double most = 0.0;
    for (auto _ : state) {
        const TPeakMemory memory;
        TDocument document;
        TLoadReport report;
        if (!document.loadFrom(path, report))
            state.SkipWithError("the document cannot be read");
        state.PauseTiming();
        most = std::max(most, double(memory.peak()) / (double(state.range(0)) * cPoints * sizeof(double)));
        state.ResumeTiming();
    }
    state.counters["peak/y"] = most;
}
BENCHMARK(openDocument)->ArgName("items")->Arg(100)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    TDocument::setItemFactory(makeItem);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
