#include "TYrexModePlot.h"

#include "IYrexPlotData.h"
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "settings/TNumberFormat.h"
#include "ui/IPlotView.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int cPointsPerColumn = 4; // of a pixel; more are drawn by their extremes

T1DYrexPlot *spectrumPlot(const TCanvasYrexSpectrum *item)
{
    T1DYrexPlot *plot = item ? item->activeYrexPlot() : nullptr;
    const TYrexSpectrum *spectrum = plot ? item->currentSpectrum() : nullptr;
    const bool hasPoints =
        spectrum && spectrum->pointCount() > 1 && spectrum->values().size() >= spectrum->pointCount();
    return hasPoints && plot->kind() == T1DYrexPlot::cSpectrumKind ? plot : nullptr;
}

} // namespace

TYrexModePlot::TYrexModePlot(TCanvasItem *item, const IPlotView &view)
    : fItem(yrexItem(item))
    , fPlot(spectrumPlot(fItem))
{
    if (!fPlot)
        return;
    fMap = view.itemToView(*fItem);
    fHeights = fPlot->drawnHeights(fItem->stack().current());
    fPlotter.emplace(static_cast<const T1DYrexPlotter &>(*fPlot->plotter()));
    fPlotter->holdLayout(); // thousands of places are asked for
    fPlotter->setStackMatrix(ownRow());
}

TYrexModePlot::TYrexModePlot(TCanvasItem *item, const IPlotView &view, const QPointF &viewPos)
    : TYrexModePlot(item, view)
{
    if (fPlot)
        fPlotter->setStackMatrix(rowAt(fMap.inverted().map(viewPos)));
}

TYrexSpectrum *TYrexModePlot::spectrum() const
{
    return fItem->currentSpectrum();
}

int TYrexModePlot::xUnits() const
{
    return fPlot->xUnits();
}

/// The row of the active spectrum, counted among those that are drawn.
int TYrexModePlot::ownRow() const
{
    const IYrexPlotData *plotData = fPlot->data();
    if (!plotData || !fPlot->isArrayed())
        return -1;
    const int current = fItem->stack().current();
    if (fPlot->isGrouped()) {
        const QVector<QVector<int>> groups = plotData->displayGroups(true);
        const auto found =
            std::find_if(groups.begin(), groups.end(), [&](const auto &group) { return group.contains(current); });
        return found == groups.end() ? -1 : int(found - groups.begin());
    }
    const QVector<int> places = plotData->allDisplayPositions();
    const QVector<int> visible = plotData->visibleIndices();
    return int(std::count_if(visible.begin(), visible.end(),
                             [&](int index) { return places.value(index) < places.value(current); }));
}

int TYrexModePlot::rowAt(const QPointF &itemPos) const
{
    const int own = ownRow();
    const bool isQueue = fPlot->isQueued();
    const auto holds = [&](int row) {
        const QRectF rect = fPlotter->getArrayedCurveRect(row);
        return isQueue ? rect.left() <= itemPos.x() && itemPos.x() <= rect.right()
                       : rect.top() <= itemPos.y() && itemPos.y() <= rect.bottom();
    };
    if (own < 0 || holds(own))
        return own;
    for (int row = 0; row < fPlotter->rowCount(); ++row) {
        if (holds(row))
            return row;
    }
    return own;
}

QRectF TYrexModePlot::curves() const
{
    const bool isColumn = fPlot->isArrayed() && fPlot->isQueued();
    return fMap.mapRect(isColumn ? fPlotter->adjustedPlotArea() : fPlotter->getPlotCurvesRect());
}

double TYrexModePlot::xAt(const QPointF &viewPos) const
{
    const QRectF whole = curves();
    const QPointF held(qBound(whole.left(), viewPos.x(), whole.right()), viewPos.y());
    return fPlotter->canvas2Scale(horzDir, fMap.inverted().map(held).x());
}

double TYrexModePlot::valueAt(const QPointF &viewPos) const
{
    return fHeights.inverse(fPlotter->canvas2Scale(vertDir, fMap.inverted().map(viewPos).y()));
}

double TYrexModePlot::columnOf(double x) const
{
    const QRectF whole = curves();
    double place = 0.0;
    if (!fPlotter->scale2Canvas(horzDir, x, place)) {
        double nearest = std::numeric_limits<double>::max();
        for (const TAxisMap::TPiece &piece : fPlotter->axisMap(horzDir).pieces()) {
            const double limit = qBound(piece.values.a, x, piece.values.b);
            if (std::fabs(limit - x) < nearest) {
                nearest = std::fabs(limit - x);
                place = piece.map(limit);
            }
        }
    }
    return qBound(whole.left(), fMap.map(QPointF(place, 0.0)).x(), whole.right());
}

double TYrexModePlot::mapY(double y) const
{
    return fMap.map(QPointF(0.0, y)).y();
}

double TYrexModePlot::rowOf(double value) const
{
    double place = 0.0;
    return fPlotter->scale2Canvas(vertDir, fHeights(value), place) ? mapY(place) : std::nan("");
}

bool TYrexModePlot::toView(double x, double value, QPointF &viewPos) const
{
    double column = 0.0;
    const double row = rowOf(value);
    if (!std::isfinite(row) || !fPlotter->scale2Canvas(horzDir, x, column))
        return false;
    const QPointF place(fMap.map(QPointF(column, 0.0)).x(), row);
    if (!curves().adjusted(-0.5, -0.5, 0.5, 0.5).contains(place))
        return false;
    viewPos = place;
    return true;
}

double TYrexModePlot::pointAt(double x) const
{
    return spectrum()->xIndexOf(xUnits(), x);
}

double TYrexModePlot::xOf(double point) const
{
    const TYrexSpectrum &own = *spectrum();
    return yrexConvertX(own.firstX() + point * own.xStep(), own.origXUnits(), xUnits());
}

QPolygonF TYrexModePlot::curveBetween(double from, double to) const
{
    const TYrexSpectrum &own = *spectrum();
    const QVector<double> &values = own.values();
    const double last = own.pointCount() - 1;
    const int first = int(qBound(0.0, std::min(from, to), last));
    const int end = int(qBound(0.0, std::max(from, to), last));
    const double columns = std::fabs(columnOf(xOf(end)) - columnOf(xOf(first))) + 1.0;
    const int stride = qMax(1, int((end - first + 1) / (columns * cPointsPerColumn)));
    const QRectF whole = curves();
    QPolygonF line;
    const auto add = [&](int point) {
        const double row = rowOf(values.at(point));
        if (std::isfinite(row))
            line.append(QPointF(columnOf(xOf(point)), qBound(whole.top(), row, whole.bottom())));
    };
    for (int i = first; i <= end; i += stride) {
        const auto begin = values.constBegin() + i;
        const auto behind = values.constBegin() + qMin(i + stride, end + 1);
        const auto extremes = std::minmax_element(begin, behind);
        const int low = int(extremes.first - values.constBegin());
        const int high = int(extremes.second - values.constBegin());
        add(qMin(low, high));
        if (low != high)
            add(qMax(low, high));
    }
    return line;
}

double TYrexModePlot::lowestXNear(const QPointF &viewPos, double reach) const
{
    const TYrexSpectrum &own = *spectrum();
    const double last = own.pointCount() - 1;
    const double a = pointAt(xAt(viewPos - QPointF(reach, 0.0)));
    const double b = pointAt(xAt(viewPos + QPointF(reach, 0.0)));
    const double from = std::ceil(std::min(a, b));
    const double to = std::floor(std::max(a, b));
    if (!(from <= to) || to < 0.0 || from > last) // NaN too
        return xAt(viewPos);
    const auto begin = own.values().constBegin();
    const auto found = std::min_element(begin + int(qBound(0.0, from, last)), begin + int(qBound(0.0, to, last)) + 1);
    return xOf(double(found - begin));
}

QString TYrexModePlot::xText(double x) const
{
    return TNumberFormat::fixed(x, fPlot->viewDecimals(horzDir));
}

QString TYrexModePlot::valueText(double value) const
{
    constexpr int cRowDecimals = 4; // rows share the height, so the axis tells nothing of the digits
    return TNumberFormat::fixed(value, fPlot->hasRows() ? cRowDecimals : fPlot->viewDecimals(vertDir));
}
