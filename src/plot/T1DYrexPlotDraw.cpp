// The drawing of T1DYrexPlot.
#include "T1DYrexPlot.h"

#include "IYrexPlotData.h"
#include "IYrexPlotable.h"
#include "TYrexDataView.h"

#include <QPainter>

namespace {

constexpr int cHorzSubType = 1;
constexpr int cVertSubType = 2;
constexpr double cReachPixels = 4.0; // how near the mouse must be to hit an area

T1DPlotData<double> plotSeries(const TYrexDataView &view)
{
    return view.isValid() ? T1DPlotData<double>(view.values, view.count, 1, view.descending) : T1DPlotData<double>();
}

} // namespace

T1DYrexPlot::TSeries T1DYrexPlot::xSeries(IYrexPlotData &plotData, int index) const
{
    return plotSeries(plotData.axisData(0, fXUnits, index));
}

T1DYrexPlot::TSeries T1DYrexPlot::ySeries(IYrexPlotData &plotData, int index) const
{
    return plotSeries(plotData.axisData(1, fYUnits, index));
}

void T1DYrexPlot::draw(QPainter &painter, const QRectF &rect)
{
    const bool keepsAreas = stateWord() & cKeepHotAreas;
    if (!keepsAreas)
        fHotAreas.clear();
    T1DStackedPlot::draw(painter, rect);
    if (!keepsAreas) {
        fHotAreas.setReach(viewReach(cReachPixels, cDefReach));
        for (auto it = fStackedLabelRects.constBegin(); it != fStackedLabelRects.constEnd(); ++it)
            fHotAreas.append(TPlotHotArea(it.value(), it.key(), TPlotHotArea::stackedTitle, 0));
    }
    fStackedLabelRects.clear();
}

void T1DYrexPlot::addAxisHotAreas()
{
    if (stateWord() & cKeepHotAreas)
        return;
    const QRectF curves = fPlotter.getPlotCurvesRect();
    if (horzAxis().isVisible())
        fHotAreas.append(TPlotHotArea(fPlotter.getAxisRect(horzDir, curves), TPlotHotArea::axis, cHorzSubType, 0));
    if (vertAxis().isVisible() && !(isArrayed() && isStacked()))
        fHotAreas.append(TPlotHotArea(fPlotter.getAxisRect(vertDir, curves), TPlotHotArea::axis, cVertSubType, 0));
}

void T1DYrexPlot::drawMarks(QPainter &painter)
{
    drawBaseline(painter);
    drawPeaks(painter);
    drawIntegrals(painter);
}

void T1DYrexPlot::drawSingle(QPainter &painter, IYrexPlotData &plotData)
{
    const int mode = stackedProperties().displayMode();
    if (mode == stackedMode || mode == hiddenLinesMode) {
        const int current = plotData.currentIndex();
        fPlotter.drawStack(painter, {xSeries(plotData, current)}, {ySeries(plotData, current)},
                           plotData.visibleIndices(), mode == hiddenLinesMode);
        return;
    }
    fPlotter.plot1DXY(painter, xSeries(plotData, -1), ySeries(plotData, -1));
    drawMarks(painter);
}

void T1DYrexPlot::drawGroups(QPainter &painter, IYrexPlotData &plotData)
{
    T1DStackedBasePlotter::TGroups groups;
    for (const QVector<int> &members : plotData.displayGroups(true)) {
        QVector<T1DStackedBasePlotter::TGroupMember> curves;
        for (const int index : members) {
            QPen pen = properties().curvePen;
            const QColor color = stackedProperties().arrayedColor(index);
            if (color.isValid())
                pen.setColor(color);
            if (index == plotData.currentIndex())
                pen.setWidthF(pen.widthF() * stackedProperties().activePenWidthFactor());
            curves.append({xSeries(plotData, index), ySeries(plotData, index), pen});
        }
        groups.append(curves);
    }
    fPlotter.drawGroupedStack(painter, groups);
}

void T1DYrexPlot::drawArrayed(QPainter &painter, IYrexPlotData &plotData)
{
    const int mode = stackedProperties().displayMode();
    const int active = plotData.currentIndex();
    if (mode == activeOnlyMode) {
        fPlotter.drawActive(painter, xSeries(plotData, -1), ySeries(plotData, -1), active);
        drawMarks(painter);
        return;
    }
    if (mode == groupedMode) {
        drawGroups(painter, plotData);
        return;
    }
    const QVector<int> visible = plotData.visibleIndices();
    QVector<TSeries> xs;
    QVector<TSeries> ys;
    for (const int index : visible) {
        xs.append(xSeries(plotData, index));
        ys.append(ySeries(plotData, index));
    }
    switch (mode) {
    case stackedMode:
    case hiddenLinesMode:
        fPlotter.drawStack(painter, xs, ys, visible, mode == hiddenLinesMode);
        break;
    case queuedMode:
        fPlotter.drawQueue(painter, xs, ys, visible);
        break;
    case overlayMode:
        fPlotter.drawOverlay(painter, xs, ys, visible, active);
        drawMarks(painter);
        break;
    default:
        break;
    }
}

void T1DYrexPlot::drawCurves(QPainter &painter)
{
    IYrexPlotData *plotData = data();
    if (!plotData)
        return;
    if (properties().isBaseLineShown)
        fPlotter.plotBaseline(painter, fPlotter.baselineScaleValue());
    addAxisHotAreas();
    if (isArrayed())
        drawArrayed(painter, *plotData);
    else
        drawSingle(painter, *plotData);
}

QString T1DYrexPlot::titleText() const
{
    if (!fTitleProperties.visible || !fPlotable)
        return QString("");
    return fPlotable->titleText(id(), fTitleProperties.format, 0, -1);
}

void T1DYrexPlot::drawTitle(QPainter &painter)
{
    const IYrexPlotData *plotData = data();
    if (!fTitleProperties.visible || !plotData)
        return;
    const bool inRows = isStacked() || isQueued() || isGrouped();
    if (isArrayed() && fTitleProperties.stacked && inRows && fTitleProperties.position == titleOnTop) {
        QStringList texts;
        QVector<int> orders;
        const QVector<int> positions = plotData->allDisplayPositions();
        for (const int index : plotData->displayIndices()) {
            texts.append(fPlotable->titleText(id(), fTitleProperties.format, 0, index));
            orders.append(positions.at(index));
        }
        fPlotter.drawStackedTitles(painter, texts, orders, fTitleProperties, QColor(), fStackedLabelRects);
        return;
    }
    TTitleProperties title = fTitleProperties;
    if (isArrayed())
        title.color = curveColor();
    const QString text = titleText();
    if (!text.isEmpty())
        fPlotter.plotTitle(painter, text, title);
}

void T1DYrexPlot::drawBaseline(QPainter &painter)
{
    IYrexPlotData *plotData = data();
    if (!plotData)
        return;
    const TSeries y = plotSeries(plotData->previewData(1, fYUnits, -1));
    const TSeries x = xSeries(*plotData, -1);
    if (x.isEmpty() || y.isEmpty())
        return;
    painter.save();
    QPen pen = properties().curvePen;
    pen.setColor(Qt::blue);
    fPlotter.plot1DXYCommon(painter, x, y, pen, QPointF(1.0, 1.0), false);
    const bool keepsAreas = stateWord() & cKeepHotAreas;
    if (!keepsAreas)
        fHotAreas.clearBy(TPlotHotArea::baselinePoint);
    const TSeries pointsX = plotSeries(plotData->baselinePointData(0, fXUnits, -1));
    const TSeries pointsY = plotSeries(plotData->baselinePointData(1, fYUnits, -1));
    const QVector<QRectF> rects =
        fPlotter.drawBaselinePoints(painter, pointsX, pointsY, plotData->baselineFlags(-1), -1);
    if (!keepsAreas) {
        for (int i = 0; i < rects.size(); ++i)
            fHotAreas.append(TPlotHotArea(rects.at(i), i, TPlotHotArea::baselinePoint, 0));
    }
    painter.restore();
}

QVector<quint32> T1DYrexPlot::drawnIds() const
{
    QVector<quint32> ids;
    const IYrexPlotData *plotData = data();
    if (plotData) {
        for (const int index : plotData->visibleIndices())
            ids.append(plotData->spectrumId(index));
    }
    return ids;
}
