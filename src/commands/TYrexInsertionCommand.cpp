#include "TYrexInsertionCommand.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "YrexSpectrumBytes.h"
#include "history/THistoryCommand.h"

TYrexInsertionCommand::TYrexInsertionCommand(const QString &description, TCanvasYrexSpectrum *item,
                                             const TYrexSpectrumList &spectra)
    : TCommand(description)
    , fItem(item)
    , fSpectra(spectra)
{
}

TYrexInsertionCommand::~TYrexInsertionCommand()
{
    if (!isDone())
        qDeleteAll(fSpectra);
}

void TYrexInsertionCommand::setSources(const TCanvasItemList &items)
{
    fSources.clear();
    for (ICanvasItem *entry : items) {
        const TCanvasItem *source = canvasItem(entry);
        if (!source || !source->canvas()) { // one that a drag brings from a file
            fSources.clear();
            return;
        }
        fSources.append(TScriptStep::item(source));
    }
}

TScriptStep TYrexInsertionCommand::insertionStep(const QString &name) const
{
    TScriptStep step = TScriptStep(name).on({fItem});
    return fSources.isEmpty() ? step.with("data", YrexSpectrumBytes::store(fSpectra))
                              : step.with("sources", fSources.size() == 1 ? fSources.first() : QVariant(fSources));
}

T1DYrexPlot *TYrexInsertionCommand::plot() const
{
    return fItem->activeYrexPlot();
}

void TYrexInsertionCommand::doCmd()
{
    TViewHistoryEntry before;
    fItem->captureView(before);
    fPlots.capture(fItem);
    fCurrent = fItem->stack().current();
    const bool wasStacked = fItem->isStacked();
    insert();
    if (!wasStacked && fItem->isStacked() && plot())
        beginStack();
    if (plot())
        plot()->updateStackedState();
    rememberView(before);
    if (fWasDone)
        fNewPlots.restore(fItem); // scales found anew would not be those of the first time
    else
        fNewPlots.capture(fItem);
    fWasDone = true;
    fItem->update();
}

/// The view to come back to has the rows of the stack as it is now, with the axes as they were.
void TYrexInsertionCommand::rememberView(const TViewHistoryEntry &before)
{
    T1DYrexPlot *shown = plot();
    fPushed = false;
    if (!shown)
        return;
    const TRange scale = shown->horzAxis().getScale();
    const TRange heights = shown->curveAxis().getScale();
    const QVector<TRange> hidden = shown->horzRanges().invert(shown->horzAxis().getFullScale()).toVector();
    shown->resetView();
    TViewHistoryEntry full;
    fItem->captureView(full);
    if (full == before)
        return;
    shown->setScale(horzDir, scale.a, scale.b);
    for (const TRange &range : hidden)
        shown->hideRange(horzDir, range);
    shown->setScale(shown->curveAxis(), heights.a, heights.b);
    fPushed = fItem->pushView(description(), false);
    shown->resetView();
    shown->setScaleToFull(horzDir | vertDir);
}

void TYrexInsertionCommand::undoCmd()
{
    remove();
    restoreSnapshot(fSnapshot);
    if (!fItem->isStacked() && plot())
        plot()->setStackedDisplayMode(activeOnlyMode);
    fPlots.restore(fItem);
    fItem->stack().setCurrent(fCurrent);
    if (fPushed)
        fItem->popView();
    fItem->update();
}

void TYrexInsertionCommand::takeBack(int index, int place)
{
    TYrexSpectrum *spectrum = fItem->stack().at(index);
    fItem->stack().removeAt(index);
    fSpectra[place] = spectrum;
}

void TYrexInsertionCommand::putBack(int index, TYrexSpectrum *former)
{
    fSpectra[0] = fItem->stack().at(index);
    fItem->stack().replaceAt(index, former);
}

void TYrexInsertionCommand::insertColors(int first, int count)
{
    T1DYrexPlot *shown = plot();
    if (!shown)
        return;
    T1DStackedPlotProperties &properties = shown->stackedProperties();
    const bool own = properties.hasOwnColors();
    QVector<QColor> colors = properties.colors();
    for (int i = first; i < first + count; ++i) {
        if (own && colors.size() < i)
            colors.resize(i);
        if (i <= colors.size()) // those behind keep theirs
            colors.insert(i, own ? shown->properties().curvePen.color() : QColor());
    }
    properties.setColors(colors);
    if (!own)
        fItem->updateStackedColors();
}

void TYrexInsertionCommand::doHistoryCommand()
{
    auto *entry = new THistoryCommand(description(), fItem, QString());
    describe(*entry);
    appendHistoryCommand(entry, fItem);
}
