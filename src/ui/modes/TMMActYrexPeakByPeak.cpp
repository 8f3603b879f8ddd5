#include "TMMActYrexPeakByPeak.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexPeakByPeak.h"
#include "TYrexHighlightHandler.h"
#include "TYrexModePaint.h"
#include "TYrexPeakPicking.h"
#include "YrexModeIds.h"
#include "commands/TCommandHistory.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "settings/TNumberFormat.h"

#include <QAction>
#include <QKeyEvent>
#include <cmath>

TMMActYrexPeakByPeak::TMMActYrexPeakByPeak(IPluginHost &host, TYrexHighlightHandler &highlights)
    : TMMActYrexMark(YrexModes::peakByPeakModeID, host, ":/cursors/cursor-peak-pick.png")
    , fHighlights(highlights)
{
}

void TMMActYrexPeakByPeak::leave()
{
    TMMActYrexMark::leave();
    fLastPeak = QUuid();
}

TMMActYrexPeakByPeak::TFind TMMActYrexPeakByPeak::findAt(const TYrexModePlot &plot, const QPointF &viewPos) const
{
    TFind find;
    const TYrexSpectrum &spectrum = *plot.spectrum();
    const double point = plot.pointAt(plot.xAt(viewPos));
    if (!(point > -0.5 && point < spectrum.pointCount() - 0.5))
        return find;
    TYrexPeakPicking::peakNear(spectrum, point, plot.valueAt(viewPos), &find.fPeak, isFree());
    find.fStands = TYrexDPLib::hasPeakAt(spectrum.peaks(), find.fPeak.position);
    if (find.fStands) {
        const double position = find.fPeak.position;
        double nearest = TYrexDPLib::cSamePeakDistance;
        for (const TYrexDPLib::TYrexDPPeak *peak : spectrum.peaks()) {
            if (std::fabs(peak->position - position) < nearest) {
                nearest = std::fabs(peak->position - position);
                find.fPeak = *peak;
            }
        }
    }
    const double value = spectrum.values().value(int(find.fPeak.position));
    find.fIsShown = plot.toView(plot.xOf(find.fPeak.position), value, find.fPlace);
    return find;
}

QString TMMActYrexPeakByPeak::hint() const
{
    if (view()) {
        const TYrexModePlot pointed = shownPlot();
        const TYrexModePlot plot(pointed.isValid() ? pointed.item() : nullptr, *view());
        if (plot.isValid()) {
            const TFind find = findAt(plot, pointer());
            if (find.fIsShown && find.fStands)
                return tr("Click removes this peak.");
        }
    }
    return tr("Press Shift to swap the modes: snap to peak/pick a peak freely.");
}

void TMMActYrexPeakByPeak::finished(const TYrexModePlot &pointed, const TYrexModeDrag &drag)
{
    const TYrexModePlot plot(pointed.item(), *view());
    const TFind find = findAt(plot, drag.fPos);
    if (!find.fIsShown)
        return;
    const auto action = find.fStands ? TCmdYrexPeakByPeak::cDelete : TCmdYrexPeakByPeak::cAdd;
    if (!host().history().push(new TCmdYrexPeakByPeak({plot.item()}, find.fPeak, action, !isFree())))
        return;
    fLastItem = TSecurePtr<TCanvasItem>(plot.item());
    fLastPeak = find.fStands ? QUuid() : find.fPeak.id;
    plot.item()->update();
    host().gui()->updateActions();
}

/// Opens the annotation of the peak that the last click picked.
bool TMMActYrexPeakByPeak::annotateLast() const
{
    const TCanvasYrexSpectrum *item = yrexItem(fLastItem.get());
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    QAction *annotate = host().gui() ? host().gui()->action(QStringLiteral("yrexAnnotateCurPeak")) : nullptr;
    if (!spectrum || !annotate || TYrexDPLib::indexOfId(spectrum->peaks(), fLastPeak) < 0)
        return false;
    fHighlights.highlightPeaks(item->uniqueId(), {fLastPeak});
    annotate->trigger();
    return true;
}

bool TMMActYrexPeakByPeak::keyPress(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        return annotateLast();
    return TMMActYrexMark::keyPress(event);
}

void TMMActYrexPeakByPeak::paintFind(const TYrexModePaint &paint, const TYrexModePlot &pointed) const
{
    const TYrexModePlot plot(pointed.item(), *view());
    const TFind find = findAt(plot, pointer());
    if (!find.fIsShown)
        return;
    const double x = plot.xOf(find.fPeak.position);
    const QColor color = find.fStands ? TYrexModePaint::deletionColor() : TYrexModePaint::markColor();
    const QString text = TNumberFormat::fixed(x, plot.plot()->peakProperties().decimals);
    const TYrexModePaint own = paint.on(plot);
    own.peakCursor(find.fPeak, text, color, isFree());
    for (const TPlotHotArea &area : find.fStands ? plot.plot()->hotAreasOf(find.fPeak.id) : QVector<TPlotHotArea>())
        own.tint(plot.itemToView().mapRect(area.rect()), color);
}

void TMMActYrexPeakByPeak::paintHover(const TYrexModePaint &paint, const TYrexModePlot &plot, const TMouseSpot &)
{
    paintFind(paint, plot);
}

void TMMActYrexPeakByPeak::paintDrag(const TYrexModePaint &paint, const TYrexModePlot &plot, const TYrexModeDrag &)
{
    paintFind(paint, plot);
}
