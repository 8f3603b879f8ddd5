#include "TMMActYrexDeletePeaks.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexDeletePeaks.h"
#include "TYrexModePaint.h"
#include "YrexModeIds.h"
#include "commands/TCommandHistory.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double cReach = 12.0; // pixels
constexpr double cBandAlpha = 0.12;
constexpr double cRing = 8.0;

double distance(const QRectF &rect, const QPointF &pos)
{
    return std::hypot(std::max({rect.left() - pos.x(), 0.0, pos.x() - rect.right()}),
                      std::max({rect.top() - pos.y(), 0.0, pos.y() - rect.bottom()}));
}

} // namespace

TMMActYrexDeletePeaks::TMMActYrexDeletePeaks(IPluginHost &host)
    : TMMActYrexMark(YrexModes::deletePeaksModeID, host, ":/cursors/cursor-peak-delete.png")
{
}

QString TMMActYrexDeletePeaks::hint() const
{
    return tr("Click a peak or drag over several to delete them.");
}

bool TMMActYrexDeletePeaks::hasWork(const TYrexSpectrum &spectrum) const
{
    return !spectrum.peaks().isEmpty();
}

/// The peak whose label or top is nearest; null for none within reach.
QUuid TMMActYrexDeletePeaks::pointedPeak(const TYrexModePlot &plot, const QPointF &viewPos)
{
    QUuid found;
    double nearest = cReach;
    const TYrexSpectrum &spectrum = *plot.spectrum();
    for (const TYrexDPLib::TYrexDPPeak *peak : spectrum.peaks()) {
        double away = std::numeric_limits<double>::max();
        QPointF place;
        if (plot.toView(plot.xOf(peak->position), spectrum.values().value(int(peak->position)), place))
            away = distance(QRectF(place, place), viewPos);
        for (const TPlotHotArea &area : plot.plot()->hotAreasOf(peak->id))
            away = std::min(away, distance(plot.itemToView().mapRect(area.rect()), viewPos));
        if (away <= nearest) {
            nearest = away;
            found = peak->id;
        }
    }
    return found;
}

QSet<QUuid> TMMActYrexDeletePeaks::peaksIn(const TYrexModePlot &plot, const TYrexModeDrag &drag)
{
    const double from = plot.pointAt(drag.fStartX);
    const double to = plot.pointAt(drag.fX);
    QSet<QUuid> ids;
    for (const TYrexDPLib::TYrexDPPeak *peak : plot.spectrum()->peaks()) {
        if (peak->position >= std::min(from, to) && peak->position <= std::max(from, to))
            ids.insert(peak->id);
    }
    return ids;
}

void TMMActYrexDeletePeaks::finished(const TYrexModePlot &plot, const TYrexModeDrag &drag)
{
    QSet<QUuid> ids;
    if (!drag.fIsClick) {
        ids = peaksIn(plot, drag);
    } else {
        const QUuid peak = pointedPeak(TYrexModePlot(plot.item(), *view()), drag.fPos);
        if (!peak.isNull())
            ids.insert(peak);
    }
    if (!ids.isEmpty() && host().history().push(new TCmdYrexDeletePeaks({plot.item()}, ids)))
        host().gui()->updateActions();
}

void TMMActYrexDeletePeaks::paintHover(const TYrexModePaint &paint, const TYrexModePlot &plot, const TMouseSpot &)
{
    const TYrexModePlot own(plot.item(), *view());
    const QUuid pointed = pointedPeak(own, pointer());
    const TYrexSpectrum &spectrum = *own.spectrum();
    const int index = TYrexDPLib::indexOfId(spectrum.peaks(), pointed);
    if (index < 0)
        return;
    const TYrexDPLib::TYrexDPPeak &peak = *spectrum.peaks().at(index);
    for (const TPlotHotArea &area : own.plot()->hotAreasOf(pointed))
        paint.tint(own.itemToView().mapRect(area.rect()), TYrexModePaint::deletionColor());
    QPointF place;
    if (own.toView(own.xOf(peak.position), spectrum.values().value(int(peak.position)), place))
        paint.ring(place, cRing, TYrexModePaint::deletionColor());
}

void TMMActYrexDeletePeaks::paintDrag(const TYrexModePaint &paint, const TYrexModePlot &plot, const TYrexModeDrag &drag)
{
    if (drag.fIsClick)
        return;
    paint.band(drag.fStartX, drag.fX, TYrexModePaint::deletionColor(), cBandAlpha);
    const TYrexModePlot own(plot.item(), *view());
    const QSet<QUuid> ids = peaksIn(plot, drag);
    for (const TYrexDPLib::TYrexDPPeak *peak : own.spectrum()->peaks()) {
        if (ids.contains(peak->id))
            paint.on(own).peakGoes(*peak, true);
    }
}
