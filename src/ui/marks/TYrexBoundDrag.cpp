#include "TYrexBoundDrag.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexEditIntegral.h"
#include "TYrexIntegralCurve.h"
#include "TYrexIntegralGroup.h"
#include "TYrexMarkPlaces.h"
#include "TYrexModePaint.h"
#include "TYrexModePlot.h"
#include "TYrexUnits.h"
#include "plot/ColorUtils.h"
#include "settings/TNumberFormat.h"
#include "ui/IPlotView.h"
#include "utils/GeometryUtils.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr double cSnapReach = 10.0; // pixels
constexpr int cValueDecimals = 3;
constexpr double cFollowerAlpha = 0.5;

} // namespace

TYrexBoundDrag::TYrexBoundDrag(TCanvasYrexSpectrum *item, const QUuid &region, TPart part, const QPointF &start)
    : fItem(item)
    , fPart(part)
    , fStart(start)
    , fMouse(start)
{
    const TYrexSpectrum *active = spectrum();
    if (const TYrexIntegrationRegion *found = active ? active->integrals().region(region) : nullptr)
        fBefore = *found;
    else
        fItem = TSecurePtr<TCanvasYrexSpectrum>();
    fEdited = fBefore;
    if (!fItem || part == cWhole)
        return;
    const int left = leftEdge(*item, fBefore);
    const int right = left == TCmdYrexEditIntegral::cFirstBound ? TCmdYrexEditIntegral::cSecondBound
                                                                : TCmdYrexEditIntegral::cFirstBound;
    fEdge = part == cLeft ? left : right;
}

TYrexSpectrum *TYrexBoundDrag::spectrum() const
{
    return fItem ? fItem->currentSpectrum() : nullptr;
}

T1DYrexPlot *TYrexBoundDrag::plot() const
{
    return fItem ? fItem->activeYrexPlot() : nullptr;
}

int TYrexBoundDrag::leftEdge(const TCanvasYrexSpectrum &item, const TYrexIntegrationRegion &region)
{
    const double a = YrexMarkPlaces::canvasX(item, region.boundA);
    const double b = YrexMarkPlaces::canvasX(item, region.boundB);
    return b < a ? TCmdYrexEditIntegral::cSecondBound : TCmdYrexEditIntegral::cFirstBound;
}

double TYrexBoundDrag::placeAt(double x) const
{
    const T1DYrexPlot *shown = plot();
    const double value = shown->plotter()->canvas2Scale(horzDir, x);
    const double place = spectrum()->xIndexOf(shown->xUnits(), value);
    return std::isfinite(place) ? std::clamp(place, 0.0, double(spectrum()->pointCount() - 1)) : fBefore.boundA;
}

double TYrexBoundDrag::lowestNear(double x, double reach) const
{
    double from = placeAt(x - reach);
    double to = placeAt(x + reach);
    if (to < from)
        std::swap(from, to);
    const QVector<double> &values = spectrum()->values();
    double best = placeAt(x);
    double lowest = std::numeric_limits<double>::infinity();
    for (int i = int(std::ceil(from)); i <= int(std::floor(to)) && i < values.size(); ++i) {
        const double height = TYrexIntegralCurve::summed(values.at(i), spectrum()->yUnits());
        if (height < lowest) {
            lowest = height;
            best = i;
        }
    }
    return best;
}

/// Stops one point before the other bound.
void TYrexBoundDrag::moveBound(double place)
{
    const bool isFirst = fEdge == TCmdYrexEditIntegral::cFirstBound;
    const double other = isFirst ? fBefore.boundB : fBefore.boundA;
    const double before = isFirst ? fBefore.boundA : fBefore.boundB;
    const double held = before < other ? std::min(place, std::max(other - 1.0, 0.0))
                                       : std::max(place, std::min(other + 1.0, spectrum()->pointCount() - 1.0));
    (isFirst ? fEdited.boundA : fEdited.boundB) = held;
}

void TYrexBoundDrag::moveWhole(double way)
{
    const double low = std::min(fBefore.boundA, fBefore.boundB);
    const double high = std::max(fBefore.boundA, fBefore.boundB);
    const double most = std::max(spectrum()->pointCount() - 1.0 - high, 0.0);
    const double held = std::clamp(way, -std::max(low, 0.0), most);
    fEdited.boundA = fBefore.boundA + held;
    fEdited.boundB = fBefore.boundB + held;
}

void TYrexBoundDrag::moveTo(const QPointF &itemPos, double pixel, Qt::KeyboardModifiers keys)
{
    if (!spectrum() || !plot())
        return;
    fMouse = itemPos;
    if (fPart == cWhole)
        moveWhole(placeAt(itemPos.x()) - placeAt(fStart.x()));
    else
        moveBound(keys & Qt::ShiftModifier ? lowestNear(itemPos.x(), cSnapReach * pixel) : placeAt(itemPos.x()));
    TYrexIntegrationRegions::calculateArea(*spectrum(), fEdited, spectrum()->yUnits());
    show(fEdited);
}

/// The marks of the region as they would stand: its segment, its curve, its label and its handles.
void TYrexBoundDrag::show(const TYrexIntegrationRegion &region)
{
    TYrexIntegrationRegion *shown = spectrum()->integrals().region(region.id);
    if (!shown)
        return;
    *shown = region;
    fIsShown = region.boundA != fBefore.boundA || region.boundB != fBefore.boundB;
    fItem->refreshGraphics();
}

void TYrexBoundDrag::giveUp()
{
    if (spectrum() && fIsShown)
        show(fBefore);
}

TYrexBoundDrag::~TYrexBoundDrag()
{
    TYrexBoundDrag::giveUp();
}

QString TYrexBoundDrag::text() const
{
    const int unit = plot()->xUnits();
    const int decimals = plot()->viewDecimals(horzDir);
    const double a = YrexMarkPlaces::xAt(*spectrum(), fEdited.boundA, unit);
    const double b = YrexMarkPlaces::xAt(*spectrum(), fEdited.boundB, unit);
    const double value = spectrum()->integrals().integralValue(&fEdited, true);
    return QStringLiteral("%1 .. %2   %3")
        .arg(TNumberFormat::fixed(std::min(a, b), decimals), TNumberFormat::fixed(std::max(a, b), decimals),
             TNumberFormat::fixed(value, cValueDecimals));
}

void TYrexBoundDrag::appendFollowers(QVector<double> &places) const
{
    if (fPart == cWhole)
        return;
    const QRectF rect = YrexIntegralGroup::rectOf(fBefore);
    for (const int index : YrexIntegralGroup::spectraOf(*fItem.get(), fItem->stack().current())) {
        if (index == fItem->stack().current())
            continue;
        for (const TYrexIntegrationRegion *region : fItem->stack().at(index)->integrals()) {
            if (!Utils::Geometry::intersect(rect, YrexIntegralGroup::rectOf(*region)).isNull())
                places << region->boundA << region->boundB;
        }
    }
}

void TYrexBoundDrag::paintLimit(QPainter &painter, const IPlotView &view, double place) const
{
    const double x = YrexMarkPlaces::canvasX(*fItem.get(), place);
    const QRectF curves = plot()->plotter()->getPlotCurvesRect();
    if (!std::isfinite(x) || x < curves.left() || x > curves.right())
        return;
    const QTransform map = view.itemToView(*fItem.get());
    painter.drawLine(QLineF(map.map(QPointF(x, curves.top())), map.map(QPointF(x, curves.bottom()))));
}

void TYrexBoundDrag::paint(QPainter &painter, const IPlotView &view) const
{
    if (!spectrum() || !plot())
        return;
    painter.save();
    QColor color = Utils::Color::cSelectionColors.first();
    QPen pen(color, 1.0, Qt::DashLine);
    painter.setPen(pen);
    paintLimit(painter, view, fEdited.boundA);
    paintLimit(painter, view, fEdited.boundB);
    QVector<double> followers;
    appendFollowers(followers);
    color.setAlphaF(cFollowerAlpha);
    pen.setColor(color);
    painter.setPen(pen);
    for (const double place : qAsConst(followers))
        paintLimit(painter, view, place);
    painter.restore();
    const TYrexModePlot plot(fItem.get(), view);
    if (plot.isValid())
        TYrexModePaint(painter, plot).note(plot.itemToView().map(fMouse), text());
}

TCommand *TYrexBoundDrag::finish()
{
    giveUp();
    if (!spectrum() || (fEdited.boundA == fBefore.boundA && fEdited.boundB == fBefore.boundB))
        return nullptr;
    if (fPart == cWhole)
        return new TCmdYrexEditIntegral(TCanvasItemList{fItem.get()}, fEdited, fBefore.id);
    const int unit = plot()->xUnits();
    const double place = fEdge == TCmdYrexEditIntegral::cFirstBound ? fEdited.boundA : fEdited.boundB;
    return new TCmdYrexEditIntegral(fItem.get(), fBefore.id, fEdge, YrexMarkPlaces::xAt(*spectrum(), place, unit),
                                    unit);
}
