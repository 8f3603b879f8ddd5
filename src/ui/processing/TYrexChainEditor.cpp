#include "TYrexChainEditor.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdSetYrexSpectrumVerticalUnits.h"
#include "TCmdYrexProcessing.h"
#include "TYrexChainRules.h"
#include "TYrexUnits.h"
#include "canvas/TDocument.h"
#include "commands/TCommandHistory.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"

#include <QElapsedTimer>

TYrexChainEditor::TYrexChainEditor(IPluginHost &host, QObject *parent)
    : QObject(parent)
    , fHost(host)
{
    fEnd.setSingleShot(true);
    fEnd.setInterval(cRunTime);
    connect(&fEnd, &QTimer::timeout, this, &TYrexChainEditor::endRun);
    fLater.setSingleShot(true);
    fLater.setInterval(0); // behind the events that are waiting
    connect(&fLater, &QTimer::timeout, this, &TYrexChainEditor::flush);
}

TCanvasItemList TYrexChainEditor::items() const
{
    return fHost.itemList().getByRtti(TCanvasYrexSpectrum::cRtti);
}

void TYrexChainEditor::edit(const TYrexProcParams &params, const QObject *run)
{
    const TCanvasItemList list = items();
    if (list.isEmpty())
        return;
    if (run && run == fRun && fLastTime > cLiveTime) {
        fWaiting = params;
        fWaitingItems.clear();
        for (ICanvasItem *entry : list)
            fWaitingItems.append(canvasItem(entry)->uniqueId());
        fIsWaiting = true;
        fLater.start();
        return;
    }
    flush();
    startRun(run);
    this->run(params, list);
}

void TYrexChainEditor::flush()
{
    fLater.stop();
    if (!fIsWaiting)
        return;
    fIsWaiting = false;
    TCanvasItemList list;
    for (const QUuid &id : qAsConst(fWaitingItems)) {
        if (TCanvasItem *item = fHost.document()->item(id))
            list.append(item);
    }
    if (!list.isEmpty())
        run(fWaiting, list);
}

void TYrexChainEditor::startRun(const QObject *run)
{
    TDocument *document = fHost.document();
    const bool isSame = run && run == fRun && document == fDocument && document->history().gesture() == fGesture;
    if (isSame) {
        fEnd.start();
        return;
    }
    endRun();
    if (!run)
        return;
    fRun = run;
    fDocument = document;
    document->history().beginEditRun();
    fGesture = document->history().gesture();
    fEnd.start();
}

void TYrexChainEditor::endRun()
{
    flush();
    if (fIsHeld && sender() == &fEnd) {
        fEnd.start();
        return;
    }
    fEnd.stop();
    // a gesture on the plot may have begun since
    if (fRun && fDocument && fDocument->history().gesture() == fGesture)
        fDocument->history().endGesture();
    fRun = nullptr;
}

void TYrexChainEditor::setHeld(bool isHeld)
{
    fIsHeld = isHeld;
    endRun();
}

void TYrexChainEditor::run(const TYrexProcParams &params, const TCanvasItemList &items)
{
    fIsRunning = true;
    fHost.gui()->setWaitCursor();
    QElapsedTimer timer;
    timer.start();
    push(params, items);
    fLastTime = int(timer.elapsed());
    fHost.gui()->restoreCursor();
    fIsRunning = false;
    fHost.gui()->updateActions();
    emit done();
}

/// The axis follows the chain: figures without a physical unit stand on an arbitrary one. Spectra of arbitrary units
/// have no other to go to.
void TYrexChainEditor::push(const TYrexProcParams &params, const TCanvasItemList &items)
{
    TCommandHistory &history = fHost.history();
    auto *command = new TCmdYrexProcessing(items, params);
    command->setMergeableFlag(true);
    const TCanvasYrexSpectrum *first = yrexItem(items.isRttiActive(TCanvasYrexSpectrum::cRtti));
    if (!first)
        first = yrexItem(items.first());
    const TYrexSpectrum *spectrum = first->currentSpectrum();
    const T1DYrexPlot *plot = first->activeYrexPlot();
    const int unit = spectrum ? spectrum->yUnits() : int(cUnitArbitrary);
    const int target = TYrexChainRules::shownYUnit(params.actions(), unit);
    if (unit == cUnitArbitrary || !plot || plot->yUnits() == target) {
        if (history.push(command))
            tell(command->remarks());
        return;
    }
    history.beginMerged(command->description());
    QStringList remarks;
    if (history.push(command))
        remarks = command->remarks();
    const TYrexSpectrum *after = first->currentSpectrum(); // a run of edits has made new records
    const int end = after ? TYrexChainRules::endYUnit(params.actions(), after->origYUnits()) : target;
    const bool isLeftOut = after && end == cUnitArbitrary && after->yUnits() != end; // it could not be computed
    if (!isLeftOut) {
        bool isNone = false;
        const QString refusal = TCmdSetYrexSpectrumVerticalUnits::refusal(target, items, &isNone);
        history.push(new TCmdSetYrexSpectrumVerticalUnits(target, items));
        if (isNone && !refusal.isEmpty())
            remarks.append(tr("No axis in %1: %2").arg(yrexUnitDisplayName(target), refusal));
    }
    history.endMerged();
    tell(remarks);
}

void TYrexChainEditor::tell(const QStringList &remarks)
{
    if (!remarks.isEmpty())
        fHost.gui()->statusMessage(remarks.join(QStringLiteral("; ")));
}
