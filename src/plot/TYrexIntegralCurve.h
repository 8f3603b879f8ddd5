#pragma once

#include "data/T1DPlotData.h"
#include "plot/TAxisMap.h"

#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QVector>

/// The running sum of a spectrum over an integration region, as lines on the canvas.
class TYrexIntegralCurve
{
public:
    struct TSource
    {
        T1DPlotData<double> y; // ascending in x as stored; `reversed`: shown from high to low
        TRange xRange;         // first and last x, in the stored unit
        int storedUnit = 50;
        int xUnits = 50; // shown
        int yUnits = 50;
    };
    struct TBand
    {
        double base = 0.0;   // y at which the sum starts
        double height = 0.0; // a sum of the region's value goes up by half of it
    };

    explicit TYrexIntegralCurve(const TSource &source);

    /// The curve of a region, its bounds in the shown unit, in each of the visible pieces of the horizontal axis,
    /// clipped to `curves`. Nothing when the region holds fewer than three samples.
    void build(const TRange &region, double value, const TBand &band, const QVector<TAxisMap::TPiece> &pieces,
               const QRectF &curves);

    const QVector<QLineF> &lines() const { return fLines; }
    bool isEmpty() const { return fLines.isEmpty(); }
    /// What the lines take, cut to the curves; null without any.
    QRectF rect() const { return fRect; }
    /// Where the last line ends.
    QPointF lastPoint() const { return fLines.isEmpty() ? QPointF() : fLines.last().p2(); }
    /// A sample as it is summed: transmittance (10, 11) as absorbance, held between 0 and 4; values without a logarithm
    /// count as 4. In other units a value that is not finite counts nothing.
    static double summed(double sample, int yUnits);

private:
    void appendPiece(const TAxisMap::TPiece &piece, const TRange &samples, double scale, double base,
                     const QRectF &clip);

    TSource fSource;
    int fGridUnit;
    TRange fGrid; // ascending, in the grid's unit
    double fStep = 0.0;
    QVector<QLineF> fLines;
    QRectF fRect;
};
