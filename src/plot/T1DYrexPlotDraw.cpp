// The drawing of T1DYrexPlot.
#include "T1DYrexPlot.h"

#include "IYrexPlotData.h"
#include "IYrexPlotable.h"
#include "TYrexDataView.h"
#include "TYrexUnits.h"

#include <QCoreApplication>
#include <QPainter>
#include <algorithm>

namespace {

constexpr int cHorzSubType = 1;
constexpr int cVertSubType = 2;
constexpr int cMostCurves = 1000;    // of one plot; more are neither seen nor drawn in time
constexpr double cReachPixels = 4.0; // how near the mouse must be to hit an area

/// Items in number evenly spread over a list, a certain one always among them.
QVector<int> spread(const QVector<int> &all, int count, int wanted)
{
    QVector<int> chosen;
    for (int i = 0; i < count; ++i)
        chosen.append(all.at(int(qint64(i) * all.size() / count)));
    const int place = all.indexOf(wanted);
    if (place >= 0 && !chosen.contains(wanted))
        chosen[int(qint64(place) * count / all.size())] = wanted;
    return chosen;
}

/// Digits in threes from five digits on, as in 12 000.
QString grouped(int number)
{
    QString text = QString::number(number);
    for (int i = text.size() - 3; i > 0 && number >= 10000; i -= 3)
        text.insert(i, QChar(0x202F)); // a narrow space that does not break
    return text;
}

} // namespace

T1DYrexPlot::TSeries T1DYrexPlot::plotSeries(const TYrexDataView &view)
{
    if (!view.isValid())
        return TSeries();
    TSeries series(view.values, view.count, 1, view.descending);
    series.stamp = view.stamp;
    return series;
}

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
    setRect(rect);
    prepareDraw();
    const QMap<int, QRectF> shownLabels = fStackedLabelRects;
    fStackedLabelRects.clear();
    if (!keepsAreas())
        fHotAreas.clear();
    T1DStackedPlot::draw(painter, rect);
    if (!keepsAreas()) {
        fHotAreas.setReach(viewReach(cReachPixels, cDefReach));
        for (auto it = fStackedLabelRects.constBegin(); it != fStackedLabelRects.constEnd(); ++it)
            fHotAreas.append(TPlotHotArea(it.value(), it.key(), TPlotHotArea::stackedTitle, 0));
    } else {
        fStackedLabelRects = shownLabels; // those of the view stay
    }
}

/// What a draw asks for more often than it changes.
void T1DYrexPlot::prepareDraw()
{
    fMarkRects.clear();
    fDrawn.clear();
    fDeselected.clear();
    fRowTitles.clear();
    const IYrexPlotData *plotData = data();
    if (plotData && isArrayed()) {
        fDrawn = plotData->visibleIndices();
        if (fDrawn.size() > cMostCurves)
            fDrawn = spread(fDrawn, cMostCurves, plotData->currentIndex());
        for (const int index : plotData->deselectedVisibleIndices())
            fDeselected.insert(index);
        for (const TRowTitle &title : titlesOfRows(*plotData))
            fRowTitles.append(title.text);
    }
    reserveLabelStrips();
}

/// The visible spectra from the front row to the last.
QVector<int> T1DYrexPlot::displayOrder(const IYrexPlotData &plotData) const
{
    QVector<int> order = plotData.visibleIndices();
    const QVector<int> places = plotData.allDisplayPositions();
    std::stable_sort(order.begin(), order.end(), [&](int l, int r) { return places.value(l) < places.value(r); });
    return order;
}

bool T1DYrexPlot::hasRowTitles() const
{
    return fTitleProperties.visible && isArrayed() && fTitleProperties.stacked &&
           (isStacked() || isQueued() || isGrouped()) && fTitleProperties.position == titleOnTop;
}

/// A title per row, by the plot index that gives it its colour. A row of a class has the class' name.
QVector<T1DYrexPlot::TRowTitle> T1DYrexPlot::titlesOfRows(const IYrexPlotData &plotData) const
{
    QVector<TRowTitle> titles;
    if (!hasRowTitles() || !fPlotable)
        return titles;
    const auto textOf = [&](int index, const QString &format) { return fPlotable->titleText(id(), format, 0, index); };
    if (isGrouped()) {
        for (const QVector<int> &group : plotData.displayGroups(true)) {
            const QString name = textOf(group.first(), QStringLiteral("{Class}"));
            titles.append({name.isEmpty() ? textOf(group.first(), fTitleProperties.format) : name, group.first()});
        }
        return titles;
    }
    for (const int index : displayOrder(plotData)) {
        if (fDrawn.size() < cMostCurves || fDrawn.contains(index))
            titles.append({textOf(index, fTitleProperties.format), index});
    }
    return titles;
}

int T1DYrexPlot::drawnRows() const
{
    const IYrexPlotData *plotData = data();
    if (!plotData || !isArrayed())
        return 1;
    const int count = isGrouped() ? plotData->displayGroups(true).size() : plotData->visibleIndices().size();
    return qBound(1, count, isGrouped() ? count : cMostCurves);
}

bool T1DYrexPlot::hasSecondAxis() const
{
    const int second = properties().secondAxis;
    const auto isLength = [](int unit) { return unit >= cUnitWavenumber && unit <= cUnitNanometers; };
    if (!isLength(second) || !isLength(fXUnits) || second == fXUnits || !horzAxis().isVisible())
        return false;
    // a row that is moved to the right, or a column, has no axis above it
    return !isArrayed() || !(isQueued() || (hasRows() && !isGrouped() && stackedProperties().angle() > 0.0));
}

QVector<QPair<int, QString>> T1DYrexPlot::secondAxisUnits() const
{
    QVector<QPair<int, QString>> units;
    const int own = fXUnits;
    if (own < cUnitWavenumber || own > cUnitNanometers)
        return units;
    const QPair<int, QString> cAll[] = {{cUnitWavenumber, QCoreApplication::translate("T1DYrexPlot", "cm-1")},
                                        {cUnitNanometers, QCoreApplication::translate("T1DYrexPlot", "nm")},
                                        {cUnitMicrometers, QCoreApplication::translate("T1DYrexPlot", "um")}};
    for (const auto &unit : cAll) {
        if (unit.first != own)
            units.append(unit);
    }
    return units;
}

QString T1DYrexPlot::secondAxisTitle() const
{
    return horzLabel(properties().secondAxis);
}

double T1DYrexPlot::toSecondAxis(double value) const
{
    return yrexConvertX(value, fXUnits, properties().secondAxis);
}

double T1DYrexPlot::fromSecondAxis(double value) const
{
    return yrexConvertX(value, properties().secondAxis, fXUnits);
}

void T1DYrexPlot::addAxisHotAreas()
{
    if (keepsAreas())
        return;
    const QRectF curves = fPlotter.getPlotCurvesRect();
    if (horzAxis().isVisible())
        fHotAreas.append(TPlotHotArea(fPlotter.getAxisRect(horzDir, curves), TPlotHotArea::axis, cHorzSubType, 0));
    if (vertAxis().isVisible() && !(isArrayed() && isStacked()))
        fHotAreas.append(TPlotHotArea(fPlotter.getAxisRect(vertDir, curves), TPlotHotArea::axis, cVertSubType, 0));
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
    fPlotter.drawLone(painter, xSeries(plotData, -1), ySeries(plotData, -1), plotData.currentIndex());
    drawMarks(painter);
}

void T1DYrexPlot::drawGroups(QPainter &painter, IYrexPlotData &plotData)
{
    T1DStackedBasePlotter::TGroups groups;
    for (const QVector<int> &members : plotData.displayGroups(true)) {
        QVector<T1DStackedBasePlotter::TGroupMember> curves;
        for (const int index : members) {
            const bool isActive = index == plotData.currentIndex();
            const QPen pen = fPlotter.arrayedPen(index, isActive ? stackedProperties().activePenWidthFactor() : 1.0);
            curves.append({xSeries(plotData, index), ySeries(plotData, index), pen, index});
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
    QVector<TSeries> xs;
    QVector<TSeries> ys;
    QVector<int> rows;
    const QVector<int> places = plotData.allDisplayPositions();
    for (const int index : qAsConst(fDrawn)) {
        xs.append(xSeries(plotData, index));
        ys.append(ySeries(plotData, index));
        rows.append(places.value(index));
    }
    switch (mode) {
    case stackedMode:
    case hiddenLinesMode:
        fPlotter.drawStack(painter, xs, ys, fDrawn, mode == hiddenLinesMode, rows);
        break;
    case queuedMode:
        fPlotter.drawQueue(painter, xs, ys, fDrawn, rows);
        break;
    case overlayMode:
        fPlotter.drawOverlay(painter, xs, ys, fDrawn, active);
        drawMarks(painter);
        if (properties().showLegend)
            drawLegend(painter, plotData);
        break;
    default:
        return;
    }
    const int visible = plotData.visibleIndices().size();
    if (fDrawn.size() < visible)
        fPlotter.drawNotice(
            painter,
            QCoreApplication::translate("T1DYrexPlot", "%1 of %2 shown").arg(grouped(fDrawn.size()), grouped(visible)));
}

/// In the order in which the spectra stand. The series are asked for again: marks may have used the same buffers.
void T1DYrexPlot::drawLegend(QPainter &painter, IYrexPlotData &plotData)
{
    QVector<TSeries> xs;
    QVector<TSeries> ys;
    QVector<int> orders;
    QStringList texts;
    for (const int index : displayOrder(plotData)) {
        if (!fDrawn.contains(index))
            continue;
        xs.append(xSeries(plotData, index));
        ys.append(ySeries(plotData, index));
        orders.append(index);
        texts.append(fPlotable->titleText(id(), fTitleProperties.format, 0, index));
    }
    fPlotter.drawLegend(painter, xs, ys, texts, orders, plotData.currentIndex(), fMarkRects);
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

QRectF T1DYrexPlot::titleRect() const
{
    return hasRowTitles() || titleText().isEmpty() ? QRectF() : fPlotter.getTitleRect(fTitleProperties);
}

void T1DYrexPlot::drawTitle(QPainter &painter)
{
    const IYrexPlotData *plotData = data();
    if (!fTitleProperties.visible || !plotData)
        return;
    if (hasRowTitles()) {
        QStringList texts;
        QVector<int> orders;
        QVector<int> rows;
        for (const TRowTitle &row : titlesOfRows(*plotData)) {
            rows.append(rows.size());
            texts.append(row.text);
            orders.append(row.order);
        }
        fPlotter.drawStackedTitles(painter, texts, orders, fTitleProperties, QColor(), fStackedLabelRects, rows);
        return;
    }
    TTitleProperties title = fTitleProperties;
    if (isArrayed())
        title.color = curveColor();
    const QString text = titleText();
    if (!text.isEmpty())
        fPlotter.plotTitle(painter, text, title);
}

QVector<quint32> T1DYrexPlot::drawnIds() const
{
    QVector<quint32> ids;
    const IYrexPlotData *plotData = data();
    if (!plotData)
        return ids;
    if (isArrayed() && isGrouped()) {
        for (const QVector<int> &group : plotData->displayGroups(true)) {
            for (const int index : group)
                ids.append(plotData->spectrumId(index));
        }
        return ids;
    }
    for (const int index : isArrayed() ? fDrawn : plotData->visibleIndices())
        ids.append(plotData->spectrumId(index));
    return ids;
}
