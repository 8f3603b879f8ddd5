#include "TCmdYrexInsert.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "YrexStepWords.h"

TCmdYrexInsert::TCmdYrexInsert(TCanvasYrexSpectrum *item, const TYrexSpectrumList &spectra, int position,
                               int displayMode)
    : TYrexInsertionCommand(tr("Insert Zarnu Spectra"), item, spectra)
    , fPosition(position)
    , fDisplayMode(displayMode)
{
    QByteArray snapshot;
    if (item)
        item->storeFullState(snapshot);
    setSnapshot(snapshot);
}

TScriptStep TCmdYrexInsert::scriptStep() const
{
    TScriptStep step = insertionStep("insertSpectra");
    if (fPosition >= 0)
        step.with("at", fPosition);
    if (fShownAbove)
        step.with("above", true);
    if (!item()->isStacked())
        step.with("display", YrexStepWords::displayMode(fDisplayMode));
    return step;
}

void TCmdYrexInsert::insert()
{
    TYrexStack &stack = item()->stack();
    const int count = stack.count();
    fFirst = fPosition < 0 ? count : qMin(fPosition, count);
    if (fPosition < 0) {
        for (TYrexSpectrum *spectrum : spectra())
            stack.append(spectrum);
    } else {
        const bool isInside = fFirst < count;
        const quint32 below = fFirst > 0 ? stack.idOf(fFirst - 1) : 0;
        const quint32 above = isInside ? stack.idOf(fFirst) : 0;
        stack.insertAt(fFirst, spectra());
        if (isInside || fShownAbove)
            order(fFirst, below, above);
    }
    stack.setCurrent(fFirst);
    insertColors(fFirst, spectra().size());
}

/// insertAt shows new spectra on top of all; they belong beside their neighbours.
void TCmdYrexInsert::order(int first, quint32 below, quint32 above)
{
    TYrexStack &stack = item()->stack();
    QList<quint32> order = stack.order();
    QList<quint32> fresh;
    for (int i = first; i < first + spectra().size(); ++i) {
        fresh.append(stack.idOf(i));
        order.removeAll(stack.idOf(i));
    }
    int place = fShownAbove && first > 0 ? order.indexOf(below) + 1 : order.indexOf(above);
    if (place < 0)
        place = order.size();
    for (const quint32 id : qAsConst(fresh))
        order.insert(place++, id);
    stack.setOrder(order);
}

void TCmdYrexInsert::beginStack()
{
    T1DStackedPlotProperties &properties = plot()->stackedProperties();
    item()->stack().setGrouped(fDisplayMode);
    plot()->setStackedDisplayMode(fDisplayMode);
    properties.setAngle(0.0);
    properties.setTopMargin(0.0);
    properties.setBottomMargin(0.0);
    properties.setColorMode(paletteColors);
    properties.setBaseColor(plot()->properties().curvePen.color());
    if (!properties.hasOwnColors())
        item()->updateStackedColors();
}

void TCmdYrexInsert::remove()
{
    for (int i = spectra().size() - 1; i >= 0; --i)
        takeBack(fFirst + i, i);
}

void TCmdYrexInsert::restoreSnapshot(const QByteArray &snapshot)
{
    item()->restoreFullState(snapshot);
}
