// A whole chain on a stack of 1,000 spectra of 2,000 points: units, automatic baseline, standard normal variate,
// smoothing, peaks. The chain alone, and as a command with its snapshot, undone and done again; what a user waits for
// in the history, beside the time that compressing the snapshot takes; a dock's run of a hundred edits; edits that are
// steps of their own.
#include "../import/TPeakMemory.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexProcessing.h"
#include "TYrexProcIds.h"
#include "TYrexProcSteps.h"
#include "TYrexSnapshot.h"
#include "TYrexUnits.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QUndoStack>
#include <benchmark/benchmark.h>
#include <cmath>
#include <functional>
#include <memory>

namespace {

constexpr int cSpectra = 1000;
constexpr int cPoints = 2000;

TYrexSpectrum *bands(int number)
{
    quint32 noise = quint32(number) * 2654435761u + 1u;
    QVector<double> y(cPoints);
    for (int i = 0; i < cPoints; ++i) {
        noise = noise * 1664525u + 1013904223u;
        y[i] = 0.1 + 2e-4 * i + (noise >> 8) / 16777216.0 * 2e-3;
        for (const int centre : {300, 700, 1100, 1650})
            y[i] += (0.5 + 1e-3 * number) / (1.0 + std::pow((i - centre) / 12.0, 2));
    }
    auto *spectrum = new TYrexSpectrum;
    spectrum->setPointCount(cPoints);
    spectrum->setValues(y);
    spectrum->copyDataToOrgData();
    spectrum->copyDataToAbsOrgData();
    spectrum->setAxis(4000.0, 400.0, 1.0, 0.0, 1.0);
    spectrum->setOrigUnits(cUnitWavenumber, cUnitAbsorbance);
    spectrum->setUnits(cUnitWavenumber, cUnitAbsorbance);
    return spectrum;
}

TYrexProcParams wholeChain()
{
    TYrexProcParams params;
    for (const int id :
         {cProcUnitConversion, cProcAutoBaseline, cProcStandardNormalVariate, cProcSmoothing, cProcAutoPeakPicking}) {
        const int index = params.indexOfAction(id);
        QVariantMap action = params.action(index);
        action[cKeyApply] = true;
        params.setAction(index, action);
    }
    return params;
}

/// Smoothing alone, over another width for each step.
TYrexProcParams smoothedBy(int step)
{
    TYrexProcParams chain;
    const int index = chain.indexOfAction(cProcSmoothing);
    QVariantMap action = chain.action(index);
    action[cKeyApply] = true;
    action[cKeySmoothWindow] = 5 + 2 * step;
    chain.setAction(index, action);
    return chain;
}

TCanvasYrexSpectrum *addStack(TDocument &document)
{
    TYrexSpectrumList spectra;
    for (int i = 0; i < cSpectra; ++i)
        spectra.append(bands(i));
    auto *item = new TCanvasYrexSpectrum(spectra, nullptr, nullptr);
    document.appendPage()->insertItem(item);
    return item;
}

void report(benchmark::State &state, const TPeakMemory &memory)
{
    state.SetItemsProcessed(state.iterations() * cSpectra); // spectra
    state.counters["peak MB"] = double(memory.peak()) / 1e6;
}

void chainOnStack(benchmark::State &state)
{
    TDocument document;
    TCanvasYrexSpectrum *item = addStack(document);
    const TYrexProcParams chain = wholeChain();
    const TPeakMemory memory;
    for (auto _ : state) {
        for (int i = 0; i < cSpectra; ++i) {
            TYrexSpectrum *spectrum = item->stack().at(i);
            spectrum->procParams() = chain;
            spectrum->process(0, 0, chain.actionCount() - 1);
        }
    }
    report(state, memory);
}

void commandOnStack(benchmark::State &state)
{
    TDocument document;
    addStack(document);
    const TPeakMemory memory;
    qint64 bytes = 0;
    for (auto _ : state) {
        TCmdYrexProcessing command(document.items(), wholeChain());
        command.execute();
        command.revert();
        bytes = command.snapshotBytes();
    }
    report(state, memory);
    state.counters["snapshot MB"] = double(bytes) / 1e6;
}

double seconds(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) * 1e-9;
}

/// Do, undo and redo one after the other, as a user has them who does not wait for the snapshot; then undo from the
/// compressed one.
void historyOnStack(benchmark::State &state)
{
    TDocument document;
    TCanvasYrexSpectrum *item = addStack(document);
    QUndoStack *stack = document.history().stack();
    QByteArray bytes;
    item->storeFullState(bytes);
    for (auto _ : state) {
        auto *command = new TCmdYrexProcessing(document.items(), wholeChain());
        state.counters["compress s"] = seconds([&bytes] { benchmark::DoNotOptimize(qCompress(bytes, -1)); });
        state.counters["do s"] = seconds([&document, command] { document.history().push(command); });
        state.counters["undo s"] = seconds([stack] { stack->undo(); });
        state.counters["redo s"] = seconds([stack] { stack->redo(); });
        state.counters["snapshot MB"] = double(command->snapshotBytes()) / 1e6;
        state.counters["late undo s"] = seconds([stack] { stack->undo(); });
    }
}

void editRunOnStack(benchmark::State &state)
{
    constexpr int cEdits = 100;
    TDocument document;
    addStack(document);
    const TYrexProcParams chain = smoothedBy(0);
    const TPeakMemory memory;
    for (auto _ : state) {
        document.history().beginEditRun();
        for (int i = 0; i < cEdits; ++i) {
            auto *command = new TCmdYrexProcessing(document.items(), chain);
            command->setMergeableFlag(true);
            document.history().push(command);
        }
        document.history().endGesture();
    }
    state.counters["steps"] = document.history().stack()->count();
    state.counters["peak MB"] = double(memory.peak()) / 1e6;
}

/// Edits that are undo steps of their own. Beyond TYrexSnapshot::cMostKept their states are on disk.
void separateStepsOnStack(benchmark::State &state)
{
    constexpr int cSteps = 100;
    TDocument document;
    addStack(document);
    document.history().push(new TCmdYrexProcessing(document.items(), wholeChain())); // what a first run allocates stays
    const TPeakMemory memory;
    const qint64 before = TPeakMemory::now();
    QVector<TCmdYrexProcessing *> commands;
    for (auto _ : state) {
        const double pushed = seconds([&] {
            for (int i = 0; i < cSteps; ++i) {
                commands.append(new TCmdYrexProcessing(document.items(), smoothedBy(i)));
                document.history().push(commands.last());
            }
        });
        state.counters["do s"] = pushed / cSteps;
    }
    qint64 bytes = 0;
    for (const TCmdYrexProcessing *command : qAsConst(commands))
        bytes += command->snapshotBytes(); // waits for the workers
    state.counters["snapshot MB"] = double(bytes) / cSteps / 1e6;
    state.counters["peak MB"] = double(memory.peak()) / 1e6;
    state.counters["snapshots in memory MB"] = double(TYrexSnapshot::keptBytes()) / 1e6;
    state.counters["MB held"] = double(TPeakMemory::now() - before) / 1e6;
    state.counters["undo s"] = seconds([&] { document.history().stack()->undo(); });
}

} // namespace

BENCHMARK(chainOnStack)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(commandOnStack)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(2);
BENCHMARK(historyOnStack)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK(separateStepsOnStack)
    ->Name("separateStepsOnStack/100 steps")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1);
BENCHMARK(editRunOnStack)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
