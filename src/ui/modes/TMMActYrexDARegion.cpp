#include "TMMActYrexDARegion.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexModePaint.h"
#include "TYrexModePlot.h"
#include "contexts/DARegions.h"
#include "ui/PlotCursors.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <cmath>

namespace {

constexpr double cClickPixels = 2.0; // a shorter drag is a click
constexpr double cReachPixels = 5.0; // about a limit
constexpr double cBandAlpha = 0.2;

double pixelSize(const IPlotView &view, const TCanvasItem &item)
{
    const double scale = view.itemToView(item).mapRect(QRectF(0, 0, 1, 1)).width();
    return scale > 0.0 ? 1.0 / scale : 1.0;
}

bool isDelete(int key)
{
    return key == Qt::Key_Delete || key == Qt::Key_Backspace;
}

} // namespace

/// Keeps the key from the window, which would delete the item, while the mouse is on a limit.
class TMMActYrexDARegion::TDeleteKey : public QObject
{
public:
    explicit TDeleteKey(const TMMActYrexDARegion &mode)
        : fMode(mode)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() != QEvent::ShortcutOverride || object != dynamic_cast<QObject *>(fMode.view()))
            return false;
        const int key = static_cast<QKeyEvent *>(event)->key();
        const bool isTaken = isDelete(key) && fMode.fHovered.isValid();
        if (isTaken)
            event->accept();
        return isTaken;
    }

private:
    const TMMActYrexDARegion &fMode;
};

TMMActYrexDARegion::TMMActYrexDARegion(const QUuid &id, int kind, IGuiHost &gui)
    : TMMAct(id)
    , fKind(kind)
    , fHandler(gui)
{
}

TMMActYrexDARegion::~TMMActYrexDARegion() = default;

QCursor TMMActYrexDARegion::cursor(const TMouseSpot &spot) const
{
    if (!spot.inCurves || !yrexItem(spot.item))
        return QCursor(Qt::ArrowCursor);
    if (fLimit.isValid() || limitAt(spot).isValid())
        return QCursor(Qt::SizeHorCursor);
    const bool isSum = fKind == TDARegion::cSum;
    const QPixmap own(isSum ? ":/cursors/cursor-integrate.png" : ":/cursors/cursor-peak-pick.png");
    return own.isNull() ? PlotCursors::cross() : QCursor(own, 0, 0);
}

QString TMMActYrexDARegion::hint() const
{
    const QString name = fKind == TDARegion::cSum ? tr("Region Sum") : tr("Region Peak");
    if (fLimit.isValid())
        return tr("%1: release to move the limit, Escape to cancel.").arg(name);
    if (item())
        return tr("%1: release to add the region, Escape to cancel.").arg(name);
    if (fHovered.isValid())
        return tr("%1: drag moves the limit, double click renames, Delete removes the region.").arg(name);
    return fKind == TDARegion::cSum ? tr("%1: drag over a band to sum it in all spectra.").arg(name)
                                    : tr("%1: drag over a band to take its highest peak in all spectra.").arg(name);
}

TCanvasYrexSpectrum *TMMActYrexDARegion::item() const
{
    return yrexItem(fItem.get());
}

TYrexDataAnalysisHandler::TLimit TMMActYrexDARegion::limitAt(const TMouseSpot &spot) const
{
    const TCanvasYrexSpectrum *pointed = yrexItem(spot.item);
    if (!pointed || !spot.inCurves || !view())
        return {};
    return TYrexDataAnalysisHandler::limitAt(*pointed, fKind, spot.itemPos.x(),
                                             cReachPixels * pixelSize(*view(), *pointed));
}

bool TMMActYrexDARegion::mousePress(QMouseEvent *event, const TMouseSpot &spot)
{
    if (event->button() == Qt::RightButton)
        return cancelGesture();
    const TCanvasYrexSpectrum *pressed = yrexItem(spot.item);
    if (event->button() != Qt::LeftButton || !spot.inCurves || !pressed || !pressed->currentSpectrum())
        return false;
    fItem = TSecurePtr<TCanvasItem>(spot.item);
    fPixel = pixelSize(*view(), *pressed);
    fLimit = limitAt(spot);
    fFrom = fTo = spot.itemPos.x();
    fPos = spot.viewPos;
    return true;
}

/// Where the mouse is along the axis, held within the curves.
double TMMActYrexDARegion::heldX(const TCanvasYrexSpectrum &item, const QPointF &viewPos) const
{
    const QRectF curves = item.activePlotter()->getPlotCurvesRect();
    return qBound(curves.left(), view()->itemToView(item).inverted().map(viewPos).x(), curves.right());
}

bool TMMActYrexDARegion::mouseMove(QMouseEvent *, const TMouseSpot &spot)
{
    const TCanvasYrexSpectrum *dragged = item();
    if (!dragged || !dragged->activePlotter()) {
        fPointed = TSecurePtr<TCanvasItem>(spot.item);
        fHovered = limitAt(spot);
        return false;
    }
    fTo = heldX(*dragged, spot.viewPos);
    fPos = spot.viewPos;
    view()->updateOverlay();
    return true;
}

double TMMActYrexDARegion::shownX(const TCanvasYrexSpectrum &item, double itemX) const
{
    return item.activePlotter()->canvas2Scale(horzDir, itemX);
}

bool TMMActYrexDARegion::hasMoved() const
{
    return std::abs(fTo - fFrom) >= cClickPixels * fPixel;
}

bool TMMActYrexDARegion::mouseRelease(QMouseEvent *event, const TMouseSpot &)
{
    TCanvasYrexSpectrum *dragged = item();
    if (event->button() != Qt::LeftButton || !dragged || !dragged->activePlotter())
        return false;
    const bool moved = hasMoved();
    const TYrexDataAnalysisHandler::TLimit limit = fLimit;
    const double from = shownX(*dragged, fFrom);
    const double to = shownX(*dragged, fTo);
    cancelGesture();
    if (moved && limit.isValid())
        fHandler.moveLimit(view()->history(), *dragged, limit, to);
    else if (moved)
        fHandler.add(view()->history(), *dragged, fKind, from, to);
    return true;
}

bool TMMActYrexDARegion::mouseDoubleClick(QMouseEvent *event, const TMouseSpot &spot)
{
    TCanvasYrexSpectrum *pointed = yrexItem(spot.item);
    if (event->button() != Qt::LeftButton || !spot.inCurves || !pointed)
        return false;
    const TYrexDataAnalysisHandler::TLimit limit = limitAt(spot);
    const QUuid id =
        limit.isValid() ? limit.fId : TYrexDataAnalysisHandler::regionAt(*pointed, fKind, spot.scalePos.x());
    cancelGesture();
    if (!id.isNull())
        fHandler.askForName(view()->history(), *pointed, id);
    return true;
}

bool TMMActYrexDARegion::keyPress(QKeyEvent *event)
{
    TCanvasYrexSpectrum *pointed = yrexItem(fPointed.get());
    if (!isDelete(event->key()) || !fHovered.isValid() || !pointed || item())
        return false;
    fHandler.remove(view()->history(), *pointed, fHovered.fId);
    fHovered = {};
    return true;
}

bool TMMActYrexDARegion::cancelGesture()
{
    const bool isActive = bool(fItem);
    fItem = TSecurePtr<TCanvasItem>();
    fLimit = {};
    if (isActive && view())
        view()->updateOverlay();
    return isActive;
}

void TMMActYrexDARegion::enter(const QByteArray &)
{
    fDeleteKey = std::make_unique<TDeleteKey>(*this);
}

void TMMActYrexDARegion::leave()
{
    fDeleteKey.reset();
    cancelGesture();
    fPointed = TSecurePtr<TCanvasItem>();
    fHovered = {};
}

/// What the region gives for the active spectrum, as it is drawn now.
QString TMMActYrexDARegion::valueText(TCanvasYrexSpectrum &item, double from, double to) const
{
    const QVector<TDARegion> regions = item.daRegions();
    const int place = DARegions::indexOf(regions, fLimit.fId);
    return TYrexDataAnalysisHandler::text(item, place >= 0 ? regions.at(place).kind : fKind, from, to);
}

void TMMActYrexDARegion::paint(QPainter &painter)
{
    TCanvasYrexSpectrum *dragged = item();
    if (!dragged || !dragged->activePlotter() || !hasMoved())
        return;
    const TBasePlotter &plotter = *dragged->activePlotter();
    double start = fFrom;
    if (fLimit.isValid() && !plotter.scale2Canvas(horzDir, fLimit.fOther, start))
        start = fFrom;
    const QRectF curves = plotter.getPlotCurvesRect();
    const QRectF band = QRectF(QPointF(start, curves.top()), QPointF(fTo, curves.bottom())).normalized() & curves;
    const QRectF pixels = view()->itemToView(*dragged).mapRect(band);
    const QVector<TDARegion> regions = dragged->daRegions();
    const int place = DARegions::indexOf(regions, fLimit.fId);
    const QColor color = place >= 0 ? regions.at(place).color : DARegions::nextColor(regions);
    painter.save();
    QColor fill = color;
    fill.setAlphaF(cBandAlpha);
    painter.fillRect(pixels, fill);
    painter.setPen(QPen(color, 1.0, Qt::DashLine));
    painter.drawLine(pixels.topLeft(), pixels.bottomLeft());
    painter.drawLine(pixels.topRight(), pixels.bottomRight());
    const double startX = fLimit.isValid() ? fLimit.fOther : shownX(*dragged, start);
    const QString text = valueText(*dragged, startX, shownX(*dragged, fTo));
    painter.restore();
    const TYrexModePlot plot(dragged, *view());
    if (plot.isValid())
        TYrexModePaint(painter, plot).note(fPos, text);
}
