#include "TYrexHighlightHandler.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "canvas/TDocument.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"

TYrexHighlightHandler::TYrexHighlightHandler(IPluginHost &host)
    : fHost(host)
{
}

TCanvasYrexSpectrum *TYrexHighlightHandler::item() const
{
    return isEmpty() || !fHost.document() ? nullptr : yrexItem(fHost.document()->item(fItem));
}

void TYrexHighlightHandler::highlightPeaks(const QUuid &itemId, const QSet<QUuid> &peaks)
{
    set(itemId, peaks, {});
}

void TYrexHighlightHandler::highlightIntegrals(const QUuid &itemId, const QSet<QUuid> &integrals)
{
    set(itemId, {}, integrals);
}

void TYrexHighlightHandler::toggle(const QUuid &itemId, const QUuid &mark, bool isPeak)
{
    const bool isSame = itemId == fItem;
    QSet<QUuid> peaks = isSame ? fPeaks : QSet<QUuid>();
    QSet<QUuid> integrals = isSame ? fIntegrals : QSet<QUuid>();
    QSet<QUuid> &marks = isPeak ? peaks : integrals;
    if (!marks.remove(mark))
        marks.insert(mark);
    set(itemId, peaks, integrals);
}

bool TYrexHighlightHandler::clear()
{
    const bool held = !isEmpty();
    set(QUuid(), {}, {});
    return held;
}

void TYrexHighlightHandler::set(const QUuid &itemId, const QSet<QUuid> &peaks, const QSet<QUuid> &integrals)
{
    const QUuid shown = peaks.isEmpty() && integrals.isEmpty() ? QUuid() : itemId;
    if (shown == fItem && peaks == fPeaks && integrals == fIntegrals)
        return;
    if (TCanvasYrexSpectrum *before = item()) {
        if (T1DYrexPlot *plot = before->activeYrexPlot()) {
            plot->clearHighlightedIntegrals();
            plot->setHighlightedPeaks({});
        }
        before->refreshHighlight();
    }
    fItem = shown;
    fPeaks = peaks;
    fIntegrals = integrals;
    show();
    emit changed();
    if (fHost.gui())
        fHost.gui()->updateActions();
}

void TYrexHighlightHandler::show() const
{
    TCanvasYrexSpectrum *shown = item();
    T1DYrexPlot *plot = shown ? shown->activeYrexPlot() : nullptr;
    if (!plot)
        return;
    for (const QUuid &id : fIntegrals)
        plot->setIntegralHighlighted(id, true);
    plot->setHighlightedPeaks(fPeaks);
    shown->refreshHighlight();
}
