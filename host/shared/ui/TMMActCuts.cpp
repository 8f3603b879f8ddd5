#include "ui/TMMActCuts.h"

#include "canvas/TCanvasSpectrum.h"
#include "commands/TCmdSpectraCuts.h"
#include "commands/TCommandHistory.h"
#include "consts/Consts.h"
#include "plot/T1DStackedPlot.h"
#include "settings/TNumberFormat.h"
#include "ui/PlotCursors.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr double cClickUnits = 15.0; // a shorter drag is a click, canvas units
constexpr double cGapReach = 30.0;   // of a click beside a gap

bool isQueued(const TBasePlot *plot)
{
    const auto *stacked = dynamic_cast<const T1DStackedPlot *>(plot);
    return stacked && stacked->isArrayed() && stacked->isQueued();
}

TBasePlot *plotOf(TCanvasItem *item)
{
    const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(item);
    return spectrum ? spectrum->activePlot() : nullptr;
}

QBrush hatch(int alpha)
{
    return QBrush(QColor(0x60, 0x64, 0x6A, alpha), Qt::BDiagPattern);
}

/// The hidden stretches between visible ones, and where the axis closes up over each.
struct TGap
{
    TRange values;
    double place = 0.0;
};

QVector<TGap> gapsOf(const TBasePlot &plot)
{
    QVector<TGap> gaps;
    const QVector<TAxisMap::TPiece> pieces = plot.plotter()->axisMap(horzDir).pieces();
    for (int i = 1; i < pieces.size(); ++i) {
        const TAxisMap::TPiece &low = pieces.at(i - 1);
        const TAxisMap::TPiece &high = pieces.at(i);
        const bool ascends = high.places.a > low.places.a;
        const double left = ascends ? low.places.b : high.places.b;
        const double right = ascends ? high.places.a : low.places.a;
        gaps.append({TRange(low.values.b, high.values.a), (left + right) / 2});
    }
    return gaps;
}

} // namespace

TMMActCuts::TMMActCuts(TKind kind)
    : TMMAct(kind == cHide ? Consts::Common::rangesHideModeID : Consts::Common::rangesShowModeID)
    , fKind(kind)
{
}

QCursor TMMActCuts::cursor(const TMouseSpot &spot) const
{
    if (!spot.inCurves)
        return QCursor(Qt::ArrowCursor);
    if (isQueued(spot.plot))
        return QCursor(Qt::ForbiddenCursor);
    return fKind == cHide ? PlotCursors::cut() : PlotCursors::uncut();
}

QString TMMActCuts::hint() const
{
    if (fOnQueue)
        return QCoreApplication::translate("TMMActCuts", "Not in a queued stack.");
    if (fKind == cHide)
        return QCoreApplication::translate("TMMActCuts", "Hide Ranges: drag over the stretch to hide.");
    return QCoreApplication::translate("TMMActCuts",
                                       "Show Ranges: click a break mark, or drag; double click shows all.");
}

QPointF TMMActCuts::itemPos(const TMouseSpot &spot) const
{
    return view()->itemToView(*fItem.get()).inverted().map(spot.viewPos);
}

bool TMMActCuts::mousePress(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() == Qt::RightButton)
        return cancelGesture();
    if (event->button() != Qt::LeftButton || !spot.inCurves)
        return false;
    if (isQueued(spot.plot))
        return true;
    fItem = TSecurePtr<TCanvasItem>(spot.item);
    fFrom = fTo = spot.itemPos.x();
    return true;
}

bool TMMActCuts::mouseMove(QMouseEvent *, const TMouseSpot &spot)
{
    fOnQueue = isQueued(spot.plot);
    fShown = TSecurePtr<TCanvasItem>(spot.item);
    view()->updateOverlay();
    if (!fItem)
        return false;
    fTo = itemPos(spot).x();
    return true;
}

void TMMActCuts::showCutAt(const TMouseSpot &spot)
{
    const TBasePlot *plot = plotOf(spot.item);
    if (!plot)
        return;
    for (const TGap &gap : gapsOf(*plot)) {
        if (qAbs(gap.place - spot.itemPos.x()) <= cGapReach) {
            view()->history().push(new TCmdSpectraCuts({spot.item}, TCmdSpectraCuts::cShow, gap.values));
            return;
        }
    }
}

bool TMMActCuts::mouseRelease(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() != Qt::LeftButton || !fItem)
        return false;
    TCanvasItem *item = fItem.get();
    const TBasePlot *plot = plotOf(item);
    fTo = itemPos(spot).x();
    fItem = TSecurePtr<TCanvasItem>();
    const bool isClick = qAbs(fTo - fFrom) < cClickUnits;
    if (isClick && fKind == cShow) {
        showCutAt(spot);
    } else if (!isClick && plot) {
        const QRectF curves = plot->plotter()->getPlotCurvesRect();
        const auto value = [&](double place) {
            return plot->plotter()->canvas2Scale(horzDir, qBound(curves.left(), place, curves.right()));
        };
        const auto mode = fKind == cHide ? TCmdSpectraCuts::cHide : TCmdSpectraCuts::cShow;
        view()->history().push(new TCmdSpectraCuts({item}, mode, TRange(value(fFrom), value(fTo)).sorted()));
    }
    view()->updateOverlay();
    return true;
}

bool TMMActCuts::mouseDoubleClick(QMouseEvent *, const TMouseSpot &spot)
{
    if (!spot.inCurves)
        return false;
    if (fKind == cShow)
        view()->history().push(new TCmdSpectraCuts({spot.item}, TCmdSpectraCuts::cRestoreAll, TRange()));
    return true;
}

bool TMMActCuts::cancelGesture()
{
    if (!fItem)
        return false;
    fItem = TSecurePtr<TCanvasItem>();
    if (view())
        view()->updateOverlay();
    return true;
}

void TMMActCuts::paintBand(QPainter &painter) const
{
    const TBasePlot *plot = plotOf(fItem.get());
    if (!plot)
        return;
    const QRectF curves = plot->plotter()->getPlotCurvesRect();
    const QRectF band = QRectF(QPointF(fFrom, curves.top()), QPointF(fTo, curves.bottom())).normalized() & curves;
    const QRectF pixels = view()->itemToView(*fItem.get()).mapRect(band);
    painter.fillRect(pixels, QColor(0x60, 0x64, 0x6A, 30));
    painter.fillRect(pixels, hatch(140));
}

void TMMActCuts::paintGaps(QPainter &painter) const
{
    constexpr double cHalfWidth = 9.0; // pixels
    const TBasePlot *plot = plotOf(fShown.get());
    if (!plot)
        return;
    const QRectF curves = plot->plotter()->getPlotCurvesRect();
    const QTransform map = view()->itemToView(*fShown.get());
    for (const TGap &gap : gapsOf(*plot)) {
        const QPointF top = map.map(QPointF(gap.place, curves.top()));
        const QPointF foot = map.map(QPointF(gap.place, curves.bottom()));
        const QRectF strip(top.x() - cHalfWidth, top.y(), 2 * cHalfWidth, foot.y() - top.y());
        painter.fillRect(strip, hatch(160));
        const int decimals = plot->viewDecimals(horzDir);
        const QString text =
            QString("%1 .. %2")
                .arg(TNumberFormat::fixed(gap.values.a, decimals), TNumberFormat::fixed(gap.values.b, decimals));
        const double width = painter.fontMetrics().horizontalAdvance(text);
        painter.drawText(QPointF(top.x() - width / 2, top.y() - 4), text);
    }
}

void TMMActCuts::paint(QPainter &painter)
{
    painter.save();
    painter.setPen(QColor(0x40, 0x44, 0x4A));
    if (fItem)
        paintBand(painter);
    if (fKind == cShow && fShown)
        paintGaps(painter);
    painter.restore();
}
