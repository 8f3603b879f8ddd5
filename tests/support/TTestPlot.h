#pragma once

#include "plot/T1DStackedBasePlotter.h"
#include "plot/T1DStackedPlot.h"
#include "plot/TTitleProperties.h"
#include <QVector>
#include <limits>

/// The plotter of TTestPlot: a title takes its room from the curves.
class TTestPlotter : public T1DStackedBasePlotter
{
public:
    TTestPlotter(T1DStackedPlot *plot, const TTitleProperties *title)
        : T1DStackedBasePlotter(plot)
        , fTitle(title)
    {
    }
    QRectF getPlotCurvesRect() const override
    {
        if (isLayoutHeld())
            return heldCurvesRect();
        return adjustPlotCurvesRectToTitle(T1DStackedBasePlotter::getPlotCurvesRect(), *fTitle);
    }

private:
    const TTitleProperties *fTitle;
};

/// A plot of several curves over one x, as a plug-in would make it.
class TTestPlot : public T1DStackedPlot
{
public:
    QVector<double> x;
    QVector<QVector<double>> ys;
    QString text;
    QStringList titles; // one per curve
    QMap<int, QRectF> titleRects;
    int active = 0;
    TTitleProperties title;

    TTestPlot()
        : T1DStackedPlot(7, QUuid())
        , fPlotter(this, &title)
    {
    }

    /// Full scales from the data: x in the order of the data, y with a margin of 8 %.
    void fit()
    {
        double lowest = std::numeric_limits<double>::max();
        double highest = -lowest;
        for (const QVector<double> &y : ys) {
            for (const double value : y) {
                lowest = std::min(lowest, value);
                highest = std::max(highest, value);
            }
        }
        const double margin = 0.08 * (highest - lowest);
        setFullScale(horzDir, x.first(), x.last());
        setFullScale(intensityAxis(), intensityRanges(), lowest - margin, highest + margin);
        setFullScale(stackIndexAxis(), stackIndexRanges(), 0.0, ys.size());
        setStackedScaleToFull();
    }

    TTestPlotter *plotter() override { return &fPlotter; }
    const TTestPlotter *plotter() const override { return &fPlotter; }
    bool isArrayed() const override { return ys.size() > 1; }
    QString titleText() const override { return text; }
    QStringList numberedLabels() const override
    {
        QStringList labels;
        for (int i = 0; i < ys.size(); ++i)
            labels.append(QString::number(i + 1));
        return labels;
    }

    QStringList rowTitles() const override { return titles; }

    void drawCurves(QPainter &painter) override
    {
        T1DStackedBasePlotter::TSeries xs;
        T1DStackedBasePlotter::TSeries series;
        QVector<int> orders;
        for (int i = 0; i < ys.size(); ++i) {
            xs.append(T1DPlotData<double>(x.constData(), x.size()));
            series.append(T1DPlotData<double>(ys.at(i).constData(), ys.at(i).size()));
            orders.append(i);
        }
        if (properties().isBaseLineShown)
            fPlotter.plotBaseline(painter, 0.0);
        switch (isArrayed() ? stackedProperties().displayMode() : int(activeOnlyMode)) {
        case stackedMode:
        case hiddenLinesMode:
            fPlotter.drawStack(painter, xs, series, orders, stackedProperties().displayMode() == hiddenLinesMode);
            break;
        case queuedMode:
            fPlotter.drawQueue(painter, xs, series, orders);
            break;
        case overlayMode:
            fPlotter.drawOverlay(painter, xs, series, orders, active);
            break;
        default:
            if (!ys.isEmpty())
                fPlotter.plot1DXY(painter, xs.at(active), series.at(active));
        }
    }
    void drawTitle(QPainter &painter) override
    {
        if (!isArrayed() || !(isStacked() || isQueued())) {
            fPlotter.plotTitle(painter, text, title);
            return;
        }
        QVector<int> orders;
        for (int i = 0; i < ys.size(); ++i)
            orders.append(i);
        fPlotter.drawStackedTitles(painter, titles, orders, title, QColor(), titleRects);
    }

private:
    TTestPlotter fPlotter;
};
