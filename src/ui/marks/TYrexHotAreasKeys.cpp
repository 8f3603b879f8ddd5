// The keys of TYrexHotAreasHandler: a walk through the marks, and what is done with them.
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexDeleteIntegrals.h"
#include "TCmdYrexDeletePeaks.h"
#include "TYrexDataAnalysisHandler.h"
#include "TYrexHighlightHandler.h"
#include "TYrexHotAreasHandler.h"
#include "TYrexMarkPlaces.h"
#include "YrexModeIds.h"
#include "commands/TCommandHistory.h"
#include "plot/TPlotReadout.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"

#include <QKeyEvent>
#include <algorithm>
#include <cmath>

TCanvasYrexSpectrum *TYrexHotAreasHandler::keyItem() const
{
    TCanvasItemList &selected = fHost.itemList();
    ICanvasItem *active = selected.isRttiActive(TCanvasYrexSpectrum::cRtti);
    return yrexItem(active ? active : selected.firstRtti(TCanvasYrexSpectrum::cRtti));
}

/// Keys go to the item that is active, or to the mark under the mouse: what was highlighted before another item was
/// chosen may be on another page. Marks that others deleted are none.
TCanvasYrexSpectrum *TYrexHotAreasHandler::markedItem() const
{
    TCanvasYrexSpectrum *marked = fHighlights.item();
    const TYrexSpectrum *spectrum = marked ? marked->currentSpectrum() : nullptr;
    if (!spectrum || (marked != keyItem() && marked != item()) || (fHost.gui() && fHost.gui()->editSession()))
        return nullptr;
    const QSet<QUuid> &peaks = fHighlights.peaks();
    const QSet<QUuid> &integrals = fHighlights.integrals();
    const bool isThere =
        std::any_of(peaks.begin(), peaks.end(),
                    [spectrum](const QUuid &id) { return TYrexDPLib::indexOfId(spectrum->peaks(), id) >= 0; }) ||
        std::any_of(integrals.begin(), integrals.end(),
                    [spectrum](const QUuid &id) { return spectrum->integrals().indexOf(id) >= 0; });
    return isThere ? marked : nullptr;
}

int TYrexHotAreasHandler::highlighted(const QVector<TYrexMarkPlace> &marks) const
{
    if (fHighlights.peaks().size() + fHighlights.integrals().size() != 1)
        return -1;
    for (int i = 0; i < marks.size(); ++i) {
        const QSet<QUuid> &ids = marks.at(i).fIsPeak ? fHighlights.peaks() : fHighlights.integrals();
        if (ids.contains(marks.at(i).fId))
            return i;
    }
    return -1;
}

bool TYrexHotAreasHandler::wantsKey(const QKeyEvent &event) const
{
    const bool isPlain = (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    if (!isPlain || !view())
        return false;
    const TCanvasYrexSpectrum *item = keyItem();
    switch (event.key()) {
    case Qt::Key_Delete:
        return markedItem() || area().type() == TPlotHotArea::daRegion;
    case Qt::Key_Tab:
    case Qt::Key_Backtab: {
        if (mode() == YrexModes::baselinePointsModeID)
            return false; // it walks through its points
        const QVector<TYrexMarkPlace> all = item ? YrexMarkPlaces::inOrder(*item) : QVector<TYrexMarkPlace>();
        if (all.isEmpty())
            return false;
        const int last = event.key() == Qt::Key_Tab ? all.size() - 1 : 0;
        return highlighted(all) != last; // behind the last one the focus moves on
    }
    default:
        return false;
    }
}

bool TYrexHotAreasHandler::keyPress(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Delete:
        return deleteMarks();
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        if (mode() == YrexModes::baselinePointsModeID)
            return false;
        return step(event->key() == Qt::Key_Backtab);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return editMark();
    default:
        return false;
    }
}

bool TYrexHotAreasHandler::markSpot(TMouseSpot &spot) const
{
    const TCanvasYrexSpectrum *item = view() ? markedItem() : nullptr;
    const QVector<TYrexMarkPlace> all = item ? YrexMarkPlaces::inOrder(*item) : QVector<TYrexMarkPlace>();
    const int place = highlighted(all);
    if (place < 0)
        return false;
    const TYrexMarkPlace &mark = all.at(place);
    const QRectF curves = item->activeYrexPlot()->plotter()->getPlotCurvesRect();
    if (std::isnan(mark.fCanvasX))
        return false; // hidden
    const QPointF at(qBound(curves.left(), mark.fCanvasX, curves.right()), curves.center().y());
    spot = view()->spotAt(view()->itemToView(*item).map(at));
    spot.area =
        TPlotHotArea(QRectF(at, QSizeF()), mark.fId, mark.fIsPeak ? TPlotHotArea::peak : TPlotHotArea::integral, 0);
    return spot.item == item;
}

bool TYrexHotAreasHandler::step(bool back)
{
    TCanvasYrexSpectrum *item = keyItem();
    const QVector<TYrexMarkPlace> all = item ? YrexMarkPlaces::inOrder(*item) : QVector<TYrexMarkPlace>();
    if (all.isEmpty())
        return false;
    const int present = highlighted(all);
    const int next = present < 0 ? (back ? all.size() - 1 : 0) : present + (back ? -1 : 1);
    if (next < 0 || next >= all.size())
        return false;
    const TYrexMarkPlace &mark = all.at(next);
    if (mark.fIsPeak)
        fHighlights.highlightPeaks(item->uniqueId(), {mark.fId});
    else
        fHighlights.highlightIntegrals(item->uniqueId(), {mark.fId});
    TPlotReadout readout;
    readout.fMark = mark.fIsPeak ? TYrexCursorInfoHandler::peakText(*item, mark.fId)
                                 : TYrexCursorInfoHandler::integralText(*item, mark.fId);
    view()->showReadout(readout);
    return true;
}

bool TYrexHotAreasHandler::deleteMarks()
{
    TCanvasYrexSpectrum *pointed = yrexItem(TYrexHotAreasHandler::item());
    if (area().type() == TPlotHotArea::daRegion && pointed && fHost.gui()) {
        const QUuid region = area().id();
        leaveView();
        TYrexDataAnalysisHandler(*fHost.gui()).remove(fHost.history(), *pointed, region);
        return true;
    }
    TCanvasYrexSpectrum *item = markedItem();
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    if (!spectrum)
        return false;
    const QSet<QUuid> peaks = fHighlights.peaks();
    QVector<int> integrals;
    for (const QUuid &id : fHighlights.integrals())
        integrals.append(spectrum->integrals().indexOf(id));
    integrals.removeAll(-1);
    fHighlights.clear();
    leaveView();
    TCommandHistory &history = fHost.history();
    history.beginMerged(); // marks of both kinds go in one step
    if (!peaks.isEmpty())
        history.push(new TCmdYrexDeletePeaks({item}, peaks));
    if (!integrals.isEmpty())
        history.push(new TCmdYrexDeleteIntegrals({item}, integrals));
    history.endMerged();
    return true;
}

bool TYrexHotAreasHandler::editMark()
{
    TCanvasYrexSpectrum *item = markedItem();
    const QVector<TYrexMarkPlace> all = item ? YrexMarkPlaces::inOrder(*item) : QVector<TYrexMarkPlace>();
    const int place = highlighted(all);
    if (place < 0)
        return false;
    if (all.at(place).fIsPeak)
        emit editPeakWanted(item, all.at(place).fId);
    else
        emit editIntegralWanted(item, all.at(place).fId, 0);
    return true;
}
