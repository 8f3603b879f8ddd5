// The keys of TYrexHotAreasHandler: a walk through the marks, and what is done with them.
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexDeleteIntegrals.h"
#include "TCmdYrexDeletePeaks.h"
#include "TYrexHighlightHandler.h"
#include "TYrexHotAreasHandler.h"
#include "TYrexMarkPlaces.h"
#include "commands/TCommandHistory.h"
#include "plot/TPlotReadout.h"
#include "services/IPluginHost.h"

#include <QKeyEvent>
#include <algorithm>

TCanvasYrexSpectrum *TYrexHotAreasHandler::keyItem() const
{
    TCanvasItemList &selected = fHost.itemList();
    ICanvasItem *active = selected.isRttiActive(TCanvasYrexSpectrum::cRtti);
    return yrexItem(active ? active : selected.firstRtti(TCanvasYrexSpectrum::cRtti));
}

/// Peaks, then integrals, both from left to right.
QVector<TYrexHotAreasHandler::TMark> TYrexHotAreasHandler::marks(const TCanvasYrexSpectrum &item) const
{
    const TYrexSpectrum *spectrum = item.currentSpectrum();
    if (!spectrum || !item.activeYrexPlot())
        return {};
    using TPlace = QPair<double, TMark>;
    QVector<TPlace> peaks;
    QVector<TPlace> integrals;
    for (const TYrexDPLib::TYrexDPPeak *peak : spectrum->peaks())
        peaks.append({YrexMarkPlaces::canvasX(item, peak->position), {peak->id, true}});
    for (const TYrexIntegrationRegion *region : spectrum->integrals()) {
        const double middle = (region->boundA + region->boundB) / 2.0;
        integrals.append({YrexMarkPlaces::canvasX(item, middle), {region->id, false}});
    }
    QVector<TMark> marks;
    for (QVector<TPlace> *places : {&peaks, &integrals}) {
        std::stable_sort(places->begin(), places->end(),
                         [](const TPlace &l, const TPlace &r) { return l.first < r.first; });
        for (const TPlace &place : qAsConst(*places))
            marks.append(place.second);
    }
    return marks;
}

int TYrexHotAreasHandler::highlighted(const QVector<TMark> &marks) const
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
        return fHighlights.item();
    case Qt::Key_Tab:
    case Qt::Key_Backtab: {
        const QVector<TMark> all = item ? marks(*item) : QVector<TMark>();
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
        return step(event->key() == Qt::Key_Backtab);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return editMark();
    default:
        return false;
    }
}

bool TYrexHotAreasHandler::step(bool back)
{
    TCanvasYrexSpectrum *item = keyItem();
    const QVector<TMark> all = item ? marks(*item) : QVector<TMark>();
    if (all.isEmpty())
        return false;
    const int present = highlighted(all);
    const int next = present < 0 ? (back ? all.size() - 1 : 0) : present + (back ? -1 : 1);
    if (next < 0 || next >= all.size())
        return false;
    const TMark &mark = all.at(next);
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
    TCanvasYrexSpectrum *item = fHighlights.item();
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
    TCanvasYrexSpectrum *item = fHighlights.item();
    const QVector<TMark> all = item ? marks(*item) : QVector<TMark>();
    const int place = highlighted(all);
    if (place < 0)
        return false;
    if (all.at(place).fIsPeak)
        emit editPeakWanted(item, all.at(place).fId);
    else
        emit editIntegralWanted(item, all.at(place).fId, 0);
    return true;
}
