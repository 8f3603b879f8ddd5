#pragma once

#include "plot/TCurveCache.h"
#include "plot/TCurveLayer.h"
#include <QColor>
#include <QPen>
#include <QRectF>
#include <QTransform>

class QPainter;
class QPainterPath;

/// How a curve is drawn. Lengths in item canvas units.
struct TCurveStyle
{
    QPen pen;
    QColor fill;           // of the area down (up) to fillBase; invalid for none
    double fillBase = 0.0; // y
    bool antialiasing = true;
};

/// A curve as it stands on the pixels of a view, to find it again under the mouse.
struct TDrawnCurve
{
    QSharedPointer<const TReducedCurve> curve; // device pixels
    QTransform device;                         // from the item to them
    QRectF clip;                               // item

    /// Vertical distance of an item point from the curve, in item units; negative when the curve is not there.
    double distance(const QPointF &pos) const;
};

/// Draws curves of any density: onto pixels as filled columns, into SVG and PDF as one path, both from the reduced
/// points and both clipped to a rectangle.
class TCurvePainter
{
public:
    explicit TCurvePainter(TCurveCache *cache)
        : fCache(cache)
    {
    }

    /// `mapX` and `mapY` take the data to item canvas units. The answer has no curve where nothing was drawn or where
    /// the output has no pixels. A curve that goes into the `layer` is drawn when that is painted.
    TDrawnCurve draw(QPainter &painter, const T1DPlotData<double> &x, const T1DPlotData<double> &y,
                     const TLinearMap &mapX, const TLinearMap &mapY, const QRectF &clip, const TCurveStyle &style,
                     TCurveLayer *layer = nullptr) const;

    /// A curve of an earlier draw once more, with another pen. Nothing when the painter maps to other pixels by now.
    static void drawAgain(QPainter &painter, const TDrawnCurve &drawn, const QPen &pen);

private:
    void drawColumns(QPainter &painter, const TReducedCurve &curve, const QRect &pixels, double penWidth,
                     const TCurveStyle &style) const;
    void drawDashes(QPainter &painter, const TReducedCurve &curve, const QRectF &clip, double penWidth,
                    const QPen &pen) const;
    void drawRuns(QPainter &painter, const TReducedCurve &curve, const QRectF &clip, const QPen &pen) const;
    void drawPath(QPainter &painter, const TReducedCurve &curve, const QRectF &clip, const TCurveStyle &style) const;

    TCurveCache *fCache;
};
