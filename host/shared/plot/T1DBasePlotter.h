#pragma once

#include "data/T1DPlotData.h"
#include "plot/TBasePlotter.h"
#include "plot/TCurvePainter.h"
#include <QPen>
#include <QSharedPointer>

struct TTitleProperties;

/// A curve's own scaling: in x around the axis' first limit, in y around the baseline value, an offset added.
struct TCurveChange
{
    double factorX = 1.0;
    double factorY = 1.0;
    double offset = 0.0;
};

/// Draws curves into the axes of a plot, and its title.
class T1DBasePlotter : public TBasePlotter
{
public:
    explicit T1DBasePlotter(TBasePlot *plot);

    QUuid id() const override;

    /// A curve with the plot's curve pen, its area and its points as the properties ask.
    /// What was drawn onto pixels is appended to `drawn`.
    void plot1DXY(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                  QVector<TDrawnCurve> *drawn = nullptr);
    /// A curve with any pen. `sizeFactor` scales it, in y around the baseline value, in x around the axis' first limit;
    /// `fill` paints the area down to the baseline value in the pen's colour.
    void plot1DXYCommon(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y, const QPen &pen,
                        const QPointF &sizeFactor, bool fill, QVector<TDrawnCurve> *drawn = nullptr);
    /// A thin line across the curves at a value of the vertical axis; nothing when it is out of view.
    void plotBaseline(QPainter &painter, double value) const;
    /// The title in its place, in at most two lines; an empty text draws nothing.
    void plotTitle(QPainter &painter, const QString &text, const TTitleProperties &title) const;
    /// Markers of baseline points: a ring, filled where the flag is set; the point with the index `highlighted` is
    /// larger. A shape of 1 is a square instead, of 3 a diamond. The rectangles of all, in order; empty ones for hidden
    /// points.
    QVector<QRectF> drawBaselinePoints(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                                       const QVector<char> &flags, int highlighted,
                                       const QVector<char> &shapes = QVector<char>()) const;
    /// The curves rectangle less what the title takes.
    QRectF adjustPlotCurvesRectToTitle(const QRectF &rect, const TTitleProperties &title) const;

protected:
    /// Into the present row, clipped to the visible pieces; what was drawn onto pixels is appended to `drawn`.
    void drawCurve(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                   const TCurveStyle &style, const TCurveChange &change = TCurveChange(),
                   QVector<TDrawnCurve> *drawn = nullptr);
    TCurveStyle styleOf(const QPen &pen) const;
    /// While there is one, solid curves go into the layer, and to the painter when it is painted.
    void setLayer(TCurveLayer *layer) { fLayer = layer; }
    /// Clips curves of a row: a curve that leaves its row goes on to the border of the plot.
    virtual QRectF curveClip() const;

private:
    void drawMarkers(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                     const QPen &pen) const;

    TCurveLayer *fLayer = nullptr;      // that takes the curves up, while many are drawn
    QSharedPointer<TCurveCache> fCache; // copies of a plotter share it
};
