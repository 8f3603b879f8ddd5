#pragma once

#include "plot/T1DBasePlotter.h"
#include <QMap>
#include <QStringList>

class T1DStackedPlot;
class T1DStackedPlotProperties;

/// Draws several curves: over each other, in rows, side by side or in grouped rows.
///
/// `orders` name curves by their plot index: it decides the colour (arrayedColor) and is what hot areas and the search
/// for the pointed curve answer. `rows`, one per curve, are places in the display order, of which the rank among the
/// curves drawn is the row; without them the orders decide. Row 0 is the lowest.
class T1DStackedBasePlotter : public T1DBasePlotter
{
public:
    using TSeries = QVector<T1DPlotData<double>>;
    struct TGroupMember
    {
        T1DPlotData<double> x;
        T1DPlotData<double> y;
        QPen pen;
        int order = -1;
    };
    using TGroups = QVector<QVector<TGroupMember>>;
    static constexpr double cQueueGap = 40.0;   // between two columns
    static constexpr double cPointedReach = 12; // pixels of the view
    static constexpr double cPointedUnits = 15; // canvas units, without a view

    explicit T1DStackedBasePlotter(T1DStackedPlot *plot);

    QUuid id() const override;
    void setStackMatrix(int row) override;
    /// Without a row set, that of the front row: to it the horizontal axis belongs.
    QRectF adjustedPlotArea() const override;
    const TAxis &vertAxis() const override;
    const TRanges &vertRanges() const override;
    double getTitleSpace(const TTitleProperties &title) const override;
    void drawSelectedStackedMark(QPainter &painter, int active, const QVector<int> &deselected,
                                 const QVector<int> &groupSizes) const override;

    /// The one curve of a plot that holds no others.
    void drawLone(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y, int order);
    /// All in one frame, the curve with the order `active` last and wider.
    void drawOverlay(QPainter &painter, const TSeries &xs, const TSeries &ys, const QVector<int> &orders, int active);
    /// The active curve alone, in its own colour.
    void drawActive(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y, int active);
    /// In rows; with `whiteWash` each curve hides what lies behind it.
    void drawStack(QPainter &painter, const TSeries &xs, const TSeries &ys, const QVector<int> &orders, bool whiteWash,
                   const QVector<int> &rows = {});
    /// Side by side.
    void drawQueue(QPainter &painter, const TSeries &xs, const TSeries &ys, const QVector<int> &orders,
                   const QVector<int> &rows = {});
    /// A row per group, its members over each other.
    void drawGroupedStack(QPainter &painter, const TGroups &groups);
    /// A title per curve at the right end of its row (over its column), moved apart where they would overlap, the
    /// rectangle of each under its order. An invalid colour means the curve's own. Over a column too narrow for its
    /// title stands the number of the column.
    void drawStackedTitles(QPainter &painter, const QStringList &texts, const QVector<int> &orders,
                           const TTitleProperties &title, const QColor &color, QMap<int, QRectF> &rects,
                           const QVector<int> &rows = {}) const;
    /// Line samples and titles of the curves of a frame in the corner that curves and `obstacles` leave emptiest; more
    /// than 12 curves get a bar of their colours. Orders as in drawOverlay.
    void drawLegend(QPainter &painter, const TSeries &xs, const TSeries &ys, const QStringList &texts,
                    const QVector<int> &orders, int active, const QVector<QRectF> &obstacles) const;
    /// A line of small text at the upper right end of the curves, paper behind it.
    void drawNotice(QPainter &painter, const QString &text) const;
    /// The pen of the curve with that order as it is stored, colours not yet mapped for the paper. Dashes tell curves
    /// apart when the palette begins anew, and in black and white.
    QPen arrayedPen(int order, double widthFactor) const;
    /// The axis under each column of a queue: in the first only where columns are narrow.
    void drawQueueAxes(QPainter &painter, int columns) const;

    /// The band of a row (or the column of a queue) of the last draw; the curves rectangle in a mode without them.
    QRectF getArrayedCurveRect(int row) const;
    int rowCount() const { return fRowCount; }
    /// The order of the curve of the last draw that is vertically nearest to an item point within reach, of equals the
    /// one on top; -1 for none.
    int indexOfPointedStackedCurve(const QPointF &pos) const;
    /// The curve with that order as the last draw left it, as wide as the active one; only onto the same pixels.
    void drawPointedCurve(QPainter &painter, int order) const;

protected:
    QRectF curveClip() const override;
    QMarginsF titleMargins(const TTitleProperties &title) const override;

private:
    struct TPointable
    {
        int order;
        QVector<TDrawnCurve> parts;
    };
    const T1DStackedPlotProperties &stackedProperties() const;
    void beginRows(int count);
    QVector<int> ranked(const QVector<int> &places) const;
    QRectF rowRect(int row, bool pitchOnly) const;
    QRectF columnRect(int column) const;
    QPolygonF selectionMark(int row, double size) const;
    TCurveChange changeOf(int curve) const;
    void drawMember(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y, int curve, int order,
                    TCurveStyle style);
    QRectF emptiestPlace(const QVector<QRectF> &places, const TSeries &xs, const TSeries &ys,
                         const QVector<QRectF> &obstacles) const;
    void drawColorBar(QPainter &painter, const QRectF &rect, const QVector<int> &orders) const;
    bool hasTitlePerCurve(const TTitleProperties &title) const;
    TRange shownRows(int rows) const;
    double rowPitch(int rows) const;
    double rowStep(int rows) const;

    T1DStackedPlot *fStackedPlot;
    int fRowCount = 0;
    QVector<quint32> fDrawnIds; // by curve, of the present draw
    struct TTitleWidth
    {
        QStringList texts;
        QFont font;
        double widest = 0.0;
    };
    mutable TTitleWidth fTitleWidth; // measuring hundreds of titles takes longer than drawing them
    QVector<TPointable> fPointable;  // in drawing order
};
