#pragma once

#include "plot/TCurveCache.h"
#include <QColor>
#include <QRect>
#include <QVector>

class QPainter;

/// Many curves that are drawn onto pixels as one picture: several threads share the columns of the picture, and the
/// painter gets it in one piece. Later curves cover earlier ones, as if each had been drawn on its own.
class TCurveLayer
{
public:
    static constexpr int cWorthIt = 24; // curves from which a layer is faster

    /// `clip` in device pixels, `penWidth` in pixels; the curve's x must never turn back.
    void append(const QSharedPointer<const TReducedCurve> &curve, const QRect &clip, double penWidth,
                const QColor &color, bool antialiasing);
    /// Draws what was appended and forgets it.
    void paint(QPainter &painter);

private:
    struct TJob
    {
        QSharedPointer<const TReducedCurve> curve;
        QRect clip;
        double penWidth;
        QColor color;
        bool antialiasing;
    };
    void fillBand(QRgb *pixels, qptrdiff stride, int from, int to) const;

    QVector<TJob> fJobs;
    QRect fBounds;
};
