#include "TMMActYrexManualPeakPicking.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexManualPeakPicking.h"
#include "TYrexModePaint.h"
#include "TYrexPeakPicking.h"
#include "TYrexUnits.h"
#include "YrexModeIds.h"
#include "commands/TCommandHistory.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "settings/TNumberFormat.h"
#include "ui/PlotHabits.h"

#include <QElapsedTimer>
#include <algorithm>
#include <cmath>

namespace {

constexpr int cBudget = 20;     // milliseconds that a preview may take
constexpr int cRestPause = 150; // milliseconds after the last move
constexpr double cBandAlpha = 0.12;

} // namespace

TMMActYrexManualPeakPicking::TMMActYrexManualPeakPicking(IPluginHost &host)
    : TMMActYrexMark(YrexModes::manualPeakPickingModeID, host, ":/cursors/cursor-peak-pick.png")
{
    fAtRest.setSingleShot(true);
    fAtRest.setInterval(cRestPause);
    QObject::connect(&fAtRest, &QTimer::timeout, &fAtRest, [this] { pickWhenAtRest(); });
}

TMMActYrexManualPeakPicking::~TMMActYrexManualPeakPicking() = default;

void TMMActYrexManualPeakPicking::leave()
{
    TMMActYrexMark::leave();
    fAtRest.stop();
    fSample.reset();
    fIsSlow = false;
}

bool TMMActYrexManualPeakPicking::isBand(const TYrexModePlot &plot, const TYrexModeDrag &drag)
{
    return drag.fWidth >= PlotHabits::boxThreshold() * plot.curves().width();
}

bool TMMActYrexManualPeakPicking::isUp(const TYrexModePlot &plot)
{
    return TYrexPeakPicking::openLevel(*plot.spectrum()) == 0.0; // below a maximum, beyond every minimum
}

/// A threshold means something in items that show the same y unit only.
TCanvasItemList TMMActYrexManualPeakPicking::reached(const TYrexModePlot &plot, bool deletes) const
{
    TCanvasItemList items;
    for (ICanvasItem *entry : targetsOf(plot.item())) {
        const TCanvasYrexSpectrum *item = yrexItem(entry);
        if (item && item->activeYrexPlot() && (deletes || item->shownYUnits() == plot.plot()->yUnits()))
            items.append(entry);
    }
    return items;
}

QString TMMActYrexManualPeakPicking::spectraText() const
{
    if (!view())
        return QString();
    const TYrexModePlot pointed = shownPlot();
    const TYrexModePlot plot(pointed.isValid() ? pointed.item() : activeItem(), *view());
    int count = 0;
    for (ICanvasItem *entry : plot.isValid() ? reached(plot, false) : TCanvasItemList())
        count += yrexItem(entry)->stack().count();
    return count > 1 ? ' ' + tr("Picks in all %1 spectra.").arg(count) : QString();
}

QString TMMActYrexManualPeakPicking::countText(int count)
{
    return count == 1 ? tr("1 peak") : tr("%1 peaks").arg(count);
}

QString TMMActYrexManualPeakPicking::rangeText(const TYrexModePlot &plot, const TYrexModeDrag &drag) const
{
    const QString range =
        tr("%1 to %2").arg(plot.xText(std::min(drag.fStartX, drag.fX)), plot.xText(std::max(drag.fStartX, drag.fX)));
    if (drag.fKeys & Qt::AltModifier)
        return range + QStringLiteral(": ") + countText(peaksIn(plot, drag).size());
    const QString level = plot.valueText(plot.valueAt(drag.fPos));
    const QString text = range + QStringLiteral(", ") + (isUp(plot) ? tr("above %1") : tr("below %1")).arg(level);
    return fIsCounted && fSample ? text + QStringLiteral(": ") + countText(fSample->peaks().size()) : text;
}

/// The direction is said because it is not that of automatic picking in every unit.
QString TMMActYrexManualPeakPicking::restHint() const
{
    QString text = tr("Drag a box: its free edge is the threshold.");
    if (!view())
        return text;
    const TYrexModePlot pointed = shownPlot();
    const TYrexModePlot plot(pointed.isValid() ? pointed.item() : activeItem(), *view());
    if (plot.isValid())
        text += ' ' + (isUp(plot) ? tr("Takes maxima.") : tr("Takes minima."));
    return text + spectraText();
}

QString TMMActYrexManualPeakPicking::hint() const
{
    if (!isDragging())
        return restHint();
    const TYrexModePlot plot = shownPlot();
    if (!plot.isValid() || !isBand(plot, drag(plot)))
        return restHint();
    const bool deletes = keys() & Qt::AltModifier;
    return rangeText(plot, drag(plot)) + QStringLiteral(". ") +
           (deletes ? tr("Release to delete.") : tr("Release to pick."));
}

/// Those that the command will replace, or delete.
QVector<const TYrexDPLib::TYrexDPPeak *> TMMActYrexManualPeakPicking::peaksIn(const TYrexModePlot &plot,
                                                                              const TYrexModeDrag &drag) const
{
    const double from = plot.pointAt(drag.fStartX);
    const double to = plot.pointAt(drag.fX);
    QVector<const TYrexDPLib::TYrexDPPeak *> found;
    for (const TYrexDPLib::TYrexDPPeak *peak : plot.spectrum()->peaks()) {
        if (peak->position >= std::min(from, to) && peak->position <= std::max(from, to))
            found.append(peak);
    }
    return found;
}

void TMMActYrexManualPeakPicking::moved(const TYrexModePlot &plot)
{
    fIsCounted = false;
    if (!isDragging())
        return;
    const TYrexModeDrag now = drag(plot);
    if (!isBand(plot, now) || now.fKeys & Qt::AltModifier)
        return;
    if (fIsSlow)
        fAtRest.start();
    else
        pick(plot, now);
}

void TMMActYrexManualPeakPicking::pickWhenAtRest()
{
    if (!view())
        return;
    const TYrexModePlot plot = shownPlot();
    if (!isDragging() || !plot.isValid() || !isBand(plot, drag(plot)))
        return;
    pick(plot, drag(plot));
    view()->updateOverlay();
}

/// What the command will do to the active spectrum, done to a copy of its values.
void TMMActYrexManualPeakPicking::pick(const TYrexModePlot &plot, const TYrexModeDrag &drag)
{
    QElapsedTimer time;
    time.start();
    const TYrexSpectrum &own = *plot.spectrum();
    if (!fSample || fSample->values().constData() != own.values().constData()) {
        fSample = std::make_unique<TYrexSpectrum>();
        fSample->setPointCount(own.pointCount());
        fSample->setValues(own.values());
        fSample->setOrigUnits(own.origXUnits(), own.origYUnits());
        fSample->setUnits(own.xUnits(), own.yUnits());
        fSample->procParams() = own.procParams().params();
    }
    TYrexDPLib::deleteAllPeaks(fSample->peaks());
    const double from = plot.pointAt(drag.fStartX);
    const double to = plot.pointAt(drag.fX);
    if (std::isfinite(from) && std::isfinite(to))
        TYrexPeakPicking::pickInRange(*fSample, std::min(from, to), std::max(from, to), plot.valueAt(drag.fPos));
    fIsCounted = true;
    fIsSlow = time.elapsed() > cBudget;
}

void TMMActYrexManualPeakPicking::finished(const TYrexModePlot &plot, const TYrexModeDrag &drag)
{
    fAtRest.stop();
    fSample.reset();
    if (!isBand(plot, drag))
        return;
    const bool deletes = drag.fKeys & Qt::AltModifier;
    const double level = deletes ? std::nan("") : plot.valueAt(drag.fPos);
    const int unit = plot.xUnits();
    QMap<int, TCanvasItemList> byUnit; // each item reads the range in the unit that it shows
    for (ICanvasItem *entry : reached(plot, deletes))
        byUnit[yrexItem(entry)->shownXUnits()].append(entry);
    TCommandHistory &history = host().history();
    if (byUnit.size() > 1)
        history.beginMerged();
    for (auto it = byUnit.constBegin(); it != byUnit.constEnd(); ++it) {
        const QRectF range(QPointF(yrexConvertX(drag.fStartX, unit, it.key()), 0.0),
                           QPointF(yrexConvertX(drag.fX, unit, it.key()), 0.0));
        history.push(new TCmdYrexManualPeakPicking(it.value(), range, deletes, level));
    }
    if (byUnit.size() > 1)
        history.endMerged();
    host().gui()->updateActions();
}

void TMMActYrexManualPeakPicking::paintHover(const TYrexModePaint &paint, const TYrexModePlot &plot, const TMouseSpot &)
{
    QColor faint = TYrexModePaint::markColor();
    faint.setAlphaF(0.5);
    paint.level(pointer().y(), plot.curves().left(), plot.curves().right(), faint);
}

void TMMActYrexManualPeakPicking::paintFound(const TYrexModePaint &paint, const TYrexModePlot &plot) const
{
    QElapsedTimer time;
    time.start();
    const QVector<double> &values = plot.spectrum()->values();
    const int decimals = plot.plot()->peakProperties().decimals;
    QVector<QRectF> taken;
    for (const TYrexDPLib::TYrexDPPeak *peak : qAsConst(fSample->peaks())) {
        QPointF place;
        const double x = plot.xOf(peak->position);
        if (!plot.toView(x, values.value(int(peak->position)), place))
            continue;
        paint.peakTick(place, peak->positive, TNumberFormat::fixed(x, decimals), TYrexModePaint::markColor(), taken);
        if (time.elapsed() > cBudget)
            return; // the number tells the rest
    }
}

void TMMActYrexManualPeakPicking::paintDrag(const TYrexModePaint &paint, const TYrexModePlot &plot,
                                            const TYrexModeDrag &drag)
{
    const bool deletes = drag.fKeys & Qt::AltModifier;
    const QColor color = deletes ? TYrexModePaint::deletionColor() : TYrexModePaint::markColor();
    const double start = plot.columnOf(drag.fStartX);
    const double end = plot.columnOf(drag.fX);
    if (!isBand(plot, drag)) {
        paint.upright(drag.fStartX, color, Qt::DashLine);
        return;
    }
    paint.band(drag.fStartX, drag.fX, color, cBandAlpha);
    const TYrexModePlot own(plot.item(), *view());
    const TYrexModePaint ownPaint = paint.on(own);
    for (const TYrexDPLib::TYrexDPPeak *peak : peaksIn(plot, drag))
        ownPaint.peakGoes(*peak, deletes);
    if (!deletes) {
        paint.level(drag.fPos.y(), std::min(start, end), std::max(start, end), color);
        if (fIsCounted && !fIsSlow && fSample)
            paintFound(ownPaint, own);
    }
    paint.note(drag.fPos, rangeText(plot, drag), deletes ? color : QColor(), isUp(plot)); // clear of the peaks
}
