#include "TYrexHighlightHandler.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "canvas/TDocument.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"

bool TYrexHighlightHandler::TMarks::operator==(const TMarks &other) const
{
    return fItem == other.fItem && fPeaks == other.fPeaks && fIntegrals == other.fIntegrals;
}

TYrexHighlightHandler::TYrexHighlightHandler(IPluginHost &host)
    : fHost(host)
{
}

TCanvasYrexSpectrum *TYrexHighlightHandler::itemOf(const QUuid &id) const
{
    return id.isNull() || !fHost.document() ? nullptr : yrexItem(fHost.document()->item(id));
}

TCanvasYrexSpectrum *TYrexHighlightHandler::item() const
{
    return isEmpty() ? nullptr : itemOf(inUse().fItem);
}

bool TYrexHighlightHandler::isKept(const QUuid &itemId, const QUuid &mark) const
{
    return fKept.fItem == itemId && (fKept.fPeaks.contains(mark) || fKept.fIntegrals.contains(mark));
}

void TYrexHighlightHandler::highlightPeaks(const QUuid &itemId, const QSet<QUuid> &peaks)
{
    set({itemId, peaks, {}}, fHovered);
}

void TYrexHighlightHandler::highlightIntegrals(const QUuid &itemId, const QSet<QUuid> &integrals)
{
    set({itemId, {}, integrals}, fHovered);
}

void TYrexHighlightHandler::toggle(const QUuid &itemId, const QUuid &mark, bool isPeak)
{
    TMarks kept = itemId == fKept.fItem ? fKept : TMarks{itemId, {}, {}};
    QSet<QUuid> &marks = isPeak ? kept.fPeaks : kept.fIntegrals;
    if (!marks.remove(mark))
        marks.insert(mark);
    set(kept, fHovered);
}

void TYrexHighlightHandler::hover(const QUuid &itemId, const QUuid &mark, bool isPeak)
{
    TMarks hovered{itemId, {}, {}};
    (isPeak ? hovered.fPeaks : hovered.fIntegrals).insert(mark);
    set(fKept, hovered);
}

void TYrexHighlightHandler::clearHover()
{
    set(fKept, TMarks());
}

bool TYrexHighlightHandler::clear()
{
    const bool held = !fKept.isEmpty();
    set(TMarks(), TMarks());
    return held;
}

void TYrexHighlightHandler::set(const TMarks &kept, const TMarks &hovered)
{
    if (fIsTelling)
        return;
    const TMarks before = inUse();
    const QUuid keptBefore = fKept.fItem;
    const QUuid hoveredBefore = fHovered.fItem;
    const TMarks next = kept.isEmpty() ? TMarks() : kept;
    if (next == fKept && hovered == fHovered)
        return;
    fKept = next;
    fHovered = hovered;
    const QSet<QUuid> touched{keptBefore, hoveredBefore, fKept.fItem, fHovered.fItem};
    for (const QUuid &id : touched)
        show(id);
    if (inUse() == before)
        return;
    fIsTelling = true;
    emit changed();
    fIsTelling = false;
    if (fHost.gui())
        fHost.gui()->updateActions();
}

void TYrexHighlightHandler::show(const QUuid &itemId) const
{
    TCanvasYrexSpectrum *shown = itemOf(itemId);
    T1DYrexPlot *plot = shown ? shown->activeYrexPlot() : nullptr;
    if (!plot)
        return;
    plot->clearHighlightedIntegrals();
    QSet<QUuid> peaks;
    for (const TMarks *marks : {&fKept, &fHovered}) {
        if (marks->fItem != itemId)
            continue;
        peaks += marks->fPeaks;
        for (const QUuid &id : marks->fIntegrals)
            plot->setIntegralHighlighted(id, true);
    }
    plot->setHighlightedPeaks(peaks);
    shown->refreshHighlight();
}
