// The marks of T1DYrexPlot: baseline preview, peaks, integrals, highlights, and the hot areas that belong to them.
#include "T1DYrexPlot.h"

#include "IYrexPlotData.h"
#include "TYrexDataView.h"
#include "TYrexUnits.h"
#include "plot/ColorUtils.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

constexpr double cHandleSide = 1.5;   // of the host's handle size
constexpr double cHandleShift = 0.67; // from the anchor to the handle's corner
constexpr double cHighlightAlpha = 0.4;
constexpr int cHandlePriority = 2;
constexpr int cPeakPriority = -1;
constexpr int cPeakSubType = 1;

QRectF handleAt(const QPointF &anchor)
{
    constexpr double cShift = cHandleShift * TBasePlotter::cHandlerSize;
    constexpr double cSide = cHandleSide * TBasePlotter::cHandlerSize;
    return QRectF(anchor.x() - cShift, anchor.y() - cShift, cSide, cSide);
}

QVector<double> mapped(const T1DPlotData<double> &values, const TLinearMap &map)
{
    QVector<double> heights(values.count);
    for (int i = 0; i < values.count; ++i)
        heights[i] = map(values.at(i));
    return heights;
}

/// A baseline by points is 0 on its outermost points and beyond them, where it says nothing.
void hideEnds(QVector<double> &heights, double zero)
{
    const auto isCurve = [zero](double height) { return height != zero; };
    const auto first = std::find_if(heights.begin(), heights.end(), isCurve);
    const auto last = std::find_if(heights.rbegin(), heights.rend(), isCurve);
    std::fill(heights.begin(), first, std::nan(""));
    std::fill(heights.rbegin(), last, std::nan(""));
}

TYrexPeakPainter::TPeaks drawnPeaks(const T1DYrexPlot &plot, const IYrexPlotData &plotData)
{
    TYrexPeakPainter::TPeaks peaks = plotData.peaks(plot.xUnits(), -1);
    const TLinearMap heights = plot.drawnHeights(plotData.currentIndex());
    for (TYrexDPLib::TYrexDPPeak &peak : peaks) {
        peak.intensity = heights(peak.intensity);
        peak.positive = peak.positive == (heights.factor > 0.0);
    }
    return peaks;
}

} // namespace

bool T1DYrexPlot::showsMarks() const
{
    const int mode = stackedProperties().displayMode();
    return isArrayed() ? mode == activeOnlyMode || mode == overlayMode : mode != stackedMode && mode != hiddenLinesMode;
}

void T1DYrexPlot::drawMarks(QPainter &painter)
{
    drawBaseline(painter);
    drawPeaks(painter);
    drawIntegrals(painter);
}

void T1DYrexPlot::drawBaseline(QPainter &painter)
{
    IYrexPlotData *plotData = data();
    if (!plotData)
        return;
    const TLinearMap heights = drawnHeights(plotData->currentIndex());
    QVector<double> values = mapped(plotSeries(plotData->previewData(1, fYUnits, -1)), heights);
    if (plotData->baselinePointData(0, fXUnits, -1).count > 0)
        hideEnds(values, heights(0.0));
    const TSeries y(values.constData(), values.size());
    const TSeries x = xSeries(*plotData, -1);
    if (x.isEmpty() || y.isEmpty())
        return;
    painter.save();
    QPen pen = properties().curvePen;
    pen.setColor(Qt::blue);
    fPlotter.plot1DXYCommon(painter, x, y, pen, QPointF(1.0, 1.0), false);
    if (!keepsAreas())
        fHotAreas.clearBy(TPlotHotArea::baselinePoint);
    const TSeries pointsX = plotSeries(plotData->baselinePointData(0, fXUnits, -1));
    const QVector<double> pointHeights = mapped(plotSeries(plotData->baselinePointData(1, fYUnits, -1)), heights);
    const TSeries pointsY(pointHeights.constData(), pointHeights.size());
    const QVector<QRectF> rects = fPlotter.drawBaselinePoints(painter, pointsX, pointsY, plotData->baselineFlags(-1),
                                                              -1, plotData->baselineKinds(-1));
    fMarkRects += rects;
    for (int i = 0; i < rects.size() && !keepsAreas(); ++i)
        fHotAreas.append(TPlotHotArea(rects.at(i), i, TPlotHotArea::baselinePoint, 0));
    painter.restore();
}

QStringList T1DYrexPlot::peakTexts(const TYrexPeakPainter::TPeaks &peaks) const
{
    QStringList texts;
    for (const TYrexDPLib::TYrexDPPeak &peak : peaks) {
        QString text;
        if (fPeakProperties.content & TYrexPeakPlotProperties::cPosition)
            text = QString::number(peak.position, 'f', fPeakProperties.decimals) + ' ';
        if (fPeakProperties.content & TYrexPeakPlotProperties::cAnnotation)
            text += peak.annotation;
        texts.append(text);
    }
    return texts;
}

/// Room for the labels of peaks, so that curves stay clear of them.
void T1DYrexPlot::reserveLabelStrips()
{
    fPlotter.setLabelStrips(0.0, 0.0);
    const IYrexPlotData *plotData = data();
    if (!plotData || !showsMarks() || !(fPeakProperties.flags & TYrexPeakPlotProperties::cShowLabels))
        return;
    const TYrexPeakPainter::TPeaks peaks = drawnPeaks(*this, *plotData);
    if (peaks.isEmpty())
        return;
    const double height = TYrexPeakPainter(fPlotter, fPeakProperties).stripHeight(peaks, peakTexts(peaks));
    constexpr int cAtBottom = 1;
    if (fPeakProperties.position == cAtBottom)
        fPlotter.setLabelStrips(0.0, height);
    else
        fPlotter.setLabelStrips(height, 0.0);
}

void T1DYrexPlot::drawPeaks(QPainter &painter)
{
    const IYrexPlotData *plotData = data();
    if (!plotData)
        return;
    const TYrexPeakPainter::TPeaks peaks = drawnPeaks(*this, *plotData);
    if (peaks.isEmpty() || !(fPeakProperties.flags & TYrexPeakPlotProperties::cShowLabels))
        return;
    TYrexPeakPainter::THits hits;
    fPlotter.drawPeaks(painter, peaks, peakTexts(peaks), &hits, fXUnits == cUnitWavenumber);
    for (const auto &hit : qAsConst(hits)) {
        fMarkRects.append(hit.second);
        if (keepsAreas())
            continue;
        fHotAreas.append(TPlotHotArea(hit.second, hit.first, TPlotHotArea::peak, cPeakSubType));
        fHotAreas.last().setPriority(cPeakPriority);
    }
}

void T1DYrexPlot::drawIntegrals(QPainter &painter)
{
    IYrexPlotData *plotData = data();
    if (!plotData)
        return;
    const TYrexIntegrationRegions regions = plotData->integrals(fXUnits, -1);
    if (regions.count() == 0) {
        if (!keepsAreas())
            fHotAreas.clearBy(TPlotHotArea::integral);
        return;
    }
    if (!(fIntegralProperties.flags & TYrexIntegralPlotProperties::cShowIntegrals))
        return;
    const int stored = plotData->origXUnits();
    const TSeries x = xSeries(*plotData, -1);
    const bool isShownDown = x.count > 1 && x.at(0) > x.at(x.count - 1);
    const TSeries y = ySeries(*plotData, -1);
    const int count = std::min(x.count, y.count);
    if (count < 2)
        return;
    const TRange xRange(yrexConvertX(x.at(0), fXUnits, stored), yrexConvertX(x.at(count - 1), fXUnits, stored));
    QVector<double> values(y.data, y.data + count);
    bool isReversed = isShownDown;
    if (xRange.a > xRange.b) {
        std::reverse(values.begin(), values.end());
        isReversed = fXUnits != cUnitWavenumber;
    }
    TYrexIntegralHits hits;
    fPlotter.drawIntegrals(painter, regions, TSeries(values.constData(), count, 1, isReversed), xRange,
                           fIntegralProperties, fYUnits, &hits, stored, fXUnits);
    for (const TYrexIntegralHits::TRects *rects : {&hits.segments, &hits.curves, &hits.labels}) {
        for (const auto &hit : *rects)
            fMarkRects.append(hit.second);
    }
    if (!keepsAreas())
        addIntegralHotAreas(hits);
}

void T1DYrexPlot::addIntegralHotAreas(const TYrexIntegralHits &hits)
{
    fHotAreas.clearBy(TPlotHotArea::integral);
    const auto append = [this](const QRectF &rect, const QUuid &id, int subType) {
        fHotAreas.append(TPlotHotArea(rect, id, TPlotHotArea::integral, subType));
    };
    const auto appendHandle = [&](const QPointF &anchor, const QUuid &id, int subType) {
        append(handleAt(anchor), id, subType);
        fHotAreas.last().setPriority(cHandlePriority);
    };
    const quint32 flags = fIntegralProperties.flags;
    for (const auto &hit : hits.segments) {
        const QRectF &rect = hit.second;
        if (!(flags & TYrexIntegralPlotProperties::cShowSegment) || rect.isEmpty())
            continue;
        append(rect, hit.first, cSegmentArea);
        appendHandle(rect.center(), hit.first, cSegmentMiddle); // the ends of a narrow region lie over it
        appendHandle(QPointF(rect.left(), rect.center().y()), hit.first, cSegmentLeft);
        appendHandle(QPointF(rect.right(), rect.center().y()), hit.first, cSegmentRight);
    }
    for (const auto &hit : hits.curves) {
        const QRectF &rect = hit.second;
        if (!(flags & TYrexIntegralPlotProperties::cShowCurve) || rect.isEmpty())
            continue;
        append(rect, hit.first, cCurveArea);
        appendHandle(QPointF(rect.center().x(), rect.top()), hit.first, cCurveTop);
        appendHandle(QPointF(rect.center().x(), rect.bottom()), hit.first, cCurveBottom);
    }
    for (const auto &hit : hits.labels) {
        if (flags & TYrexIntegralPlotProperties::cShowLabels && !hit.second.isEmpty())
            append(hit.second, hit.first, cLabelArea);
    }
}

/// Text, tick and leader of highlighted peaks once more, in the colour of the selection.
void T1DYrexPlot::drawHighlightedPeaks(QPainter &painter) const
{
    const IYrexPlotData *plotData = data();
    if (!plotData || fHighlightedPeaks.isEmpty() || !showsMarks() ||
        !(fPeakProperties.flags & TYrexPeakPlotProperties::cShowLabels))
        return;
    const TYrexPeakPainter::TPeaks peaks = drawnPeaks(*this, *plotData);
    TYrexPeakPainter highlighter(fPlotter, fPeakProperties);
    highlighter.highlight(fHighlightedPeaks, Utils::Color::cSelectionColors.first());
    highlighter.draw(painter, peaks, peakTexts(peaks), nullptr, fXUnits == cUnitWavenumber);
}

bool T1DYrexPlot::needsSelectedMark() const
{
    const int mode = stackedProperties().displayMode();
    return isArrayed() && (mode == stackedMode || mode == hiddenLinesMode || mode == queuedMode);
}

bool T1DYrexPlot::hasHighlights() const
{
    return !fHighlightedIntegrals.isEmpty() || !fHighlightedPeaks.isEmpty() || needsSelectedMark();
}

void T1DYrexPlot::drawHighlights(QPainter &painter)
{
    constexpr int cHandles = 0xCF0;
    if (needsSelectedMark())
        drawSelectedStackedMark(painter);
    drawHighlightedPeaks(painter);
    painter.save();
    QColor color = Utils::Color::cSelectionColors.first();
    color.setAlphaF(cHighlightAlpha);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    QVector<QRectF> handles;
    QVector<QRectF> centres;
    for (const QUuid &id : qAsConst(fHighlightedIntegrals)) {
        QVector<QRectF> filled;
        for (const TPlotHotArea &area : fHotAreas.hotAreasBy(TPlotHotArea::integral)) {
            if (area.id() != id)
                continue;
            QVector<QRectF> &list = area.subType() & cHandles               ? handles
                                    : area.subType() == int(cSegmentMiddle) ? centres
                                                                            : filled;
            list.append(area.rect());
        }
        painter.drawRects(filled);
    }
    fPlotter.drawHandlers(painter, handles, true);
    fPlotter.drawHandlers(painter, centres, false);
    painter.restore();
}

QVector<TPlotHotArea> T1DYrexPlot::hotAreasOf(const QUuid &areaId) const
{
    QVector<TPlotHotArea> areas;
    for (const int index : fHotAreas.hitList(areaId))
        areas.append(fHotAreas.at(index));
    return areas;
}

void T1DYrexPlot::drawSelectedStackedMark(QPainter &painter)
{
    const IYrexPlotData *plotData = data();
    if (!plotData || !isArrayed() || !(isStacked() || isQueued() || isGrouped()))
        return;
    const QVector<int> places = plotData->allDisplayPositions();
    QVector<int> rowOfPlace(places.size(), -1);
    int active = -1;
    QVector<QVector<int>> rows; // of plot indices
    if (isGrouped()) {
        rows = plotData->displayGroups(true);
    } else {
        for (const int index : displayOrder(*plotData))
            rows.append(QVector<int>(1, index));
    }
    for (int row = 0; row < rows.size(); ++row) {
        const int place = rows.at(row).isEmpty() ? -1 : places.value(rows.at(row).first(), -1);
        if (place >= 0 && place < rowOfPlace.size())
            rowOfPlace[place] = row;
        if (rows.at(row).contains(plotData->currentIndex()))
            active = row;
    }
    // the data's lists count hidden classes too, the rows do not
    QVector<int> positions;
    QVector<int> groupSizes;
    plotData->deselectedPositions(positions, groupSizes);
    for (int &position : positions)
        position = rowOfPlace.value(position, -1);
    if (isGrouped()) {
        for (int i = 0; i < positions.size(); ++i) {
            if (positions.at(i) >= 0 && i < groupSizes.size()) // hidden members are neither drawn nor selected
                groupSizes[i] = rows.at(positions.at(i)).size();
        }
    }
    fPlotter.drawSelectedStackedMark(painter, active, positions, groupSizes);
}
