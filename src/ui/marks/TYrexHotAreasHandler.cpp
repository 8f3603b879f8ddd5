#include "TYrexHotAreasHandler.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexIntegralCurveMove.h"
#include "TCmdYrexIntegralElementMove.h"
#include "TYrexBandDrag.h"
#include "TYrexBoundDrag.h"
#include "TYrexDataAnalysisHandler.h"
#include "TYrexHighlightHandler.h"
#include "TYrexRegionDrag.h"
#include "TYrexTitleDrag.h"
#include "YrexModeIds.h"
#include "commands/TCommandHistory.h"
#include "contexts/DARegions.h"
#include "plot/ColorUtils.h"
#include "plot/TPlotReadout.h"
#include "services/IPluginHost.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace {

constexpr double cDecideReach = 6.0;  // pixels until a drag of the middle handle has its direction
constexpr double cWheelHeight = 10.0; // canvas units a notch
constexpr double cNotch = 120.0;
constexpr double cBandAlpha = 0.15;
constexpr double cStripAlpha = 0.10;

constexpr int cHandles = T1DYrexPlot::cSegmentMiddle | T1DYrexPlot::cSegmentLeft | T1DYrexPlot::cSegmentRight |
                         T1DYrexPlot::cCurveTop | T1DYrexPlot::cCurveBottom;

bool isHandle(const TPlotHotArea &area)
{
    return area.type() == TPlotHotArea::integral && (area.subType() & cHandles) != 0;
}

/// Modes in which integrals can be changed by their handles.
bool keepsHandles(const QUuid &mode)
{
    using namespace YrexModes;
    return mode == integrateModeID || mode == manualPeakPickingModeID || mode == peakByPeakModeID ||
           mode == deletePeaksModeID;
}

} // namespace

TYrexHotAreasHandler::TYrexHotAreasHandler(IPluginHost &host, TYrexHighlightHandler &highlights)
    : fHost(host)
    , fHighlights(highlights)
    , fNotifier(TCanvasYrexSpectrum::cRtti, fInfo)
{
}

TYrexHotAreasHandler::~TYrexHotAreasHandler() = default;

bool TYrexHotAreasHandler::answers(const TMouseSpot &spot) const
{
    const TCanvasYrexSpectrum *item = yrexItem(spot.item);
    if (!item || item->isLocked())
        return false;
    if (!mode().isNull()) // those of integrals that are highlighted, since others are not seen
        return isHandle(spot.area) && keepsHandles(mode()) && fHighlights.isKept(item->uniqueId(), spot.area.id());
    switch (spot.area.type()) {
    case TPlotHotArea::peak:
    case TPlotHotArea::integral:
    case TPlotHotArea::stackedTitle:
    case TPlotHotArea::axis:
    case TPlotHotArea::daRegion:
        return true;
    default:
        return false;
    }
}

bool TYrexHotAreasHandler::escape()
{
    return fHighlights.clear();
}

QCursor TYrexHotAreasHandler::cursor(const TMouseSpot &spot) const
{
    if (fDrag)
        return QCursor(fDrag->cursor());
    if (spot.area.type() == TPlotHotArea::daRegion)
        return QCursor(Qt::SizeHorCursor);
    if (spot.area.type() != TPlotHotArea::integral)
        return QCursor(Qt::PointingHandCursor);
    switch (spot.area.subType()) {
    case T1DYrexPlot::cSegmentLeft:
    case T1DYrexPlot::cSegmentRight:
        return QCursor(Qt::SizeHorCursor);
    case T1DYrexPlot::cSegmentMiddle:
        return QCursor(Qt::SizeAllCursor);
    case T1DYrexPlot::cCurveTop:
    case T1DYrexPlot::cCurveBottom:
        return QCursor(Qt::SizeVerCursor);
    default:
        return QCursor(Qt::PointingHandCursor);
    }
}

QString TYrexHotAreasHandler::hint() const
{
    switch (area().type()) {
    case TPlotHotArea::peak:
        return tr("Click highlights (Ctrl adds), double click annotates, Delete removes.");
    case TPlotHotArea::stackedTitle:
        return tr("Click makes it the active spectrum, drag reorders, double click edits the title.");
    case TPlotHotArea::daRegion:
        return tr("Drag moves the limit of the region, double click renames, Delete removes it.");
    case TPlotHotArea::integral:
        break;
    default:
        return QString();
    }
    switch (area().subType()) {
    case T1DYrexPlot::cSegmentLeft:
    case T1DYrexPlot::cSegmentRight:
        return tr("Drag moves the limit, Shift snaps to the lowest point.");
    case T1DYrexPlot::cSegmentMiddle:
        return tr("Drag sideways moves the integral, up or down all rows.");
    case T1DYrexPlot::cCurveTop:
    case T1DYrexPlot::cCurveBottom:
        return tr("Drag changes the height of the curves.");
    case T1DYrexPlot::cCurveArea:
        return tr("Drag moves all curves, Ctrl + wheel changes their height, double click edits.");
    default:
        return tr("Click highlights (Ctrl adds), drag moves all rows, double click edits, Delete removes.");
    }
}

void TYrexHotAreasHandler::hover(const TMouseSpot &spot)
{
    TPlotReadout readout;
    readout.fMark = fNotifier.notify(spot);
    view()->showReadout(readout);
}

void TYrexHotAreasHandler::click(const TMouseSpot &spot, Qt::KeyboardModifiers keys, Qt::MouseButton button)
{
    TCanvasYrexSpectrum *spectrum = yrexItem(spot.item);
    const bool isPeak = spot.area.type() == TPlotHotArea::peak;
    const QUuid id = spectrum->uniqueId();
    if (button == Qt::LeftButton)
        view()->selectItem(spectrum, false);
    if (spot.area.type() == TPlotHotArea::stackedTitle) {
        if (button != Qt::LeftButton)
            return;
        view()->history().push(spectrum->activeSpectrumCommand(TCanvasItemList{spectrum}, spot.area.index()));
        view()->stackChanged(spectrum);
    } else if (spot.area.type() == TPlotHotArea::daRegion) {
        return; // the mouse over it is enough for its keys
    } else if (keys & Qt::ControlModifier && button == Qt::LeftButton) {
        fHighlights.toggle(id, spot.area.id(), isPeak);
    } else if (button == Qt::RightButton && fHighlights.isKept(id, spot.area.id())) {
        return; // the menu acts on all that are highlighted
    } else if (isPeak) {
        fHighlights.highlightPeaks(id, {spot.area.id()});
    } else {
        fHighlights.highlightIntegrals(id, {spot.area.id()});
    }
}

bool TYrexHotAreasHandler::doubleClick(const TMouseSpot &spot)
{
    if (spot.area.type() == TPlotHotArea::peak)
        emit editPeakWanted(spot.spectrum, spot.area.id());
    else if (spot.area.type() == TPlotHotArea::integral)
        emit editIntegralWanted(spot.spectrum, spot.area.id(), spot.area.subType());
    else if (spot.area.type() == TPlotHotArea::daRegion && fHost.gui())
        TYrexDataAnalysisHandler(*fHost.gui()).askForName(view()->history(), *yrexItem(spot.item), spot.area.id());
    else
        return false; // the window edits titles
    return true;
}

std::unique_ptr<TYrexAreaDrag> TYrexHotAreasHandler::rowsDrag(const TMouseSpot &press) const
{
    TCanvasYrexSpectrum *spectrum = yrexItem(press.item);
    return std::make_unique<TYrexBandDrag>(spectrum, press.itemPos, [spectrum](double way) {
        return new TCmdYrexIntegralElementMove({spectrum}, TCmdYrexIntegralElementMove::cLabels, -way);
    });
}

std::unique_ptr<TYrexAreaDrag> TYrexHotAreasHandler::dragOf(const TMouseSpot &press) const
{
    TCanvasYrexSpectrum *spectrum = yrexItem(press.item);
    const QUuid id = press.area.id();
    const bool isTop = press.area.subType() == T1DYrexPlot::cCurveTop;
    switch (press.area.subType()) {
    case T1DYrexPlot::cSegmentLeft:
        return std::make_unique<TYrexBoundDrag>(spectrum, id, TYrexBoundDrag::cLeft, press.itemPos);
    case T1DYrexPlot::cSegmentRight:
        return std::make_unique<TYrexBoundDrag>(spectrum, id, TYrexBoundDrag::cRight, press.itemPos);
    case T1DYrexPlot::cCurveArea:
        return std::make_unique<TYrexBandDrag>(spectrum, press.itemPos, [spectrum](double way) {
            return new TCmdYrexIntegralElementMove({spectrum}, TCmdYrexIntegralElementMove::cCurves, way);
        });
    case T1DYrexPlot::cCurveTop:
    case T1DYrexPlot::cCurveBottom: {
        QRectF band;
        for (const TPlotHotArea &area : spectrum->activeYrexPlot()->hotAreasOf(id)) {
            if (area.subType() == T1DYrexPlot::cCurveArea)
                band = area.rect();
        }
        return std::make_unique<TYrexBandDrag>(spectrum, press.itemPos, [spectrum, isTop, band](double way) {
            return new TCmdYrexIntegralCurveMove({spectrum}, isTop, -way, band);
        });
    }
    default:
        return rowsDrag(press);
    }
}

bool TYrexHotAreasHandler::startDrag(const TMouseSpot &press)
{
    TCanvasYrexSpectrum *spectrum = yrexItem(press.item);
    fPress = press;
    fIsUndecided = press.area.type() == TPlotHotArea::integral && press.area.subType() == T1DYrexPlot::cSegmentMiddle;
    if (press.area.type() == TPlotHotArea::stackedTitle)
        fDrag = std::make_unique<TYrexTitleDrag>(spectrum, press.area.index());
    else if (press.area.type() == TPlotHotArea::daRegion)
        fDrag =
            std::make_unique<TYrexRegionDrag>(spectrum, press.area.id(), press.area.subType() == DARegions::cToLimit);
    else if (press.area.type() == TPlotHotArea::integral && !fIsUndecided)
        fDrag = dragOf(press);
    if (fDrag || fIsUndecided)
        view()->selectItem(spectrum, false);
    if (press.area.type() == TPlotHotArea::integral)
        fHighlights.highlightIntegrals(spectrum->uniqueId(), {press.area.id()});
    return fDrag || fIsUndecided;
}

void TYrexHotAreasHandler::dragTo(const TMouseSpot &spot, Qt::KeyboardModifiers keys)
{
    if (!item())
        return;
    const QTransform toView = view()->itemToView(*item());
    if (fIsUndecided) {
        const QPointF way = spot.viewPos - fPress.viewPos;
        if (std::max(std::abs(way.x()), std::abs(way.y())) < cDecideReach)
            return;
        fIsUndecided = false;
        if (std::abs(way.x()) >= std::abs(way.y()))
            fDrag = std::make_unique<TYrexBoundDrag>(yrexItem(item()), fPress.area.id(), TYrexBoundDrag::cWhole,
                                                     fPress.itemPos);
        else
            fDrag = rowsDrag(fPress);
    }
    if (fDrag)
        fDrag->moveTo(toView.inverted().map(spot.viewPos), toView.m11() > 0.0 ? 1.0 / toView.m11() : 1.0, keys);
}

void TYrexHotAreasHandler::finishDrag()
{
    fIsUndecided = false;
    const std::unique_ptr<TYrexAreaDrag> drag = std::move(fDrag);
    TCommand *command = drag ? drag->finish() : nullptr;
    if (command)
        view()->history().push(command);
}

void TYrexHotAreasHandler::giveUpDrag()
{
    fIsUndecided = false;
    if (fDrag)
        fDrag->giveUp();
    fDrag.reset();
}

void TYrexHotAreasHandler::showBand(TCanvasYrexSpectrum *spectrum, double from, double to)
{
    fBandItem = TSecurePtr<TCanvasSpectrum>(spectrum);
    fBandFrom = from;
    fBandTo = to;
    if (view())
        view()->updateOverlay();
}

void TYrexHotAreasHandler::paintBand(QPainter &painter) const
{
    const TBasePlot *plot = fBandItem ? fBandItem->activePlot() : nullptr;
    if (!plot || !view())
        return;
    const QRectF curves = plot->plotter()->getPlotCurvesRect();
    double from = 0.0;
    double to = 0.0;
    if (!plot->plotter()->scale2Canvas(horzDir, fBandFrom, from) ||
        !plot->plotter()->scale2Canvas(horzDir, fBandTo, to))
        return;
    const QRectF band = QRectF(QPointF(from, curves.top()), QPointF(to, curves.bottom())).normalized() & curves;
    QColor fill = Utils::Color::cSelectionColors.first();
    const QColor line = fill;
    fill.setAlphaF(cBandAlpha);
    painter.save();
    painter.setBrush(fill);
    painter.setPen(QPen(line, 1.0, Qt::DashLine));
    painter.drawRect(view()->itemToView(*fBandItem.get()).mapRect(band));
    painter.restore();
}

void TYrexHotAreasHandler::paint(QPainter &painter)
{
    paintBand(painter);
    if (fDrag && view())
        fDrag->paint(painter, *view());
    if (!item() || !view() || isDragging())
        return;
    const QRectF rect = view()->itemToView(*item()).mapRect(area().rect());
    painter.save();
    if (area().type() == TPlotHotArea::axis) {
        QColor tint(0x4A, 0x90, 0xD9);
        tint.setAlphaF(cStripAlpha);
        painter.fillRect(rect, tint);
    } else if (area().type() == TPlotHotArea::stackedTitle) {
        painter.setPen(QPen(QColor(0x4A, 0x90, 0xD9), 1.0));
        painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    }
    painter.restore();
}

bool TYrexHotAreasHandler::wheel(QWheelEvent *event, const TMouseSpot &spot)
{
    const bool isCurve =
        answers(spot) && spot.area.type() == TPlotHotArea::integral &&
        (spot.area.subType() & (T1DYrexPlot::cCurveArea | T1DYrexPlot::cCurveTop | T1DYrexPlot::cCurveBottom)) != 0;
    if (!isCurve || !(event->modifiers() & Qt::ControlModifier) || !mode().isNull())
        return false;
    const double notches = event->angleDelta().y() / cNotch;
    view()->history().push(new TCmdYrexIntegralElementMove({spot.item}, TCmdYrexIntegralElementMove::cCurveHeight,
                                                           notches * cWheelHeight));
    return true;
}
