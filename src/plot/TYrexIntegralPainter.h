#pragma once

#include "TYrexIntegralCurve.h"
#include "TYrexIntegralPlotProperties.h"
#include "plot/T1DLabelInfo.h"
#include "plot/TTypesetter.h"

#include <QPair>
#include <QUuid>

class QPainter;
class T1DYrexPlotter;
class TYrexIntegrationRegion;
class TYrexIntegrationRegions;

/// Rectangles of what was drawn of integrals, one per integral; empty where nothing was.
struct TYrexIntegralHits
{
    using TRects = QVector<QPair<QUuid, QRectF>>;
    TRects segments;
    TRects curves;
    TRects labels;
};

/// Draws integrals: a row of range segments near the bottom, a running sum over each region, and labels at one of the
/// two. Lengths and places are item canvas units.
class TYrexIntegralPainter
{
public:
    /// `source` is the series that is summed, with its units.
    TYrexIntegralPainter(const T1DYrexPlotter &plotter, const TYrexIntegralPlotProperties &properties,
                         const TYrexIntegralCurve::TSource &source);

    /// Bounds of the regions in the shown unit. `hits` may be null.
    void draw(QPainter &painter, const TYrexIntegrationRegions &regions, TYrexIntegralHits *hits);

private:
    struct TSegment
    {
        QVector<QLineF> lines;
        QVector<QLineF> marks; // ticks at true ends, arrowheads at cut ones
        QRectF rect;
        QPointF labelAnchor;
    };

    void drawOne(QPainter &painter, const TYrexIntegrationRegion &region, const QString &text, double heightFactor,
                 int index, TYrexIntegralHits *hits);
    TSegment segmentOf(const TRange &region, double y) const;
    QRectF drawCurveLabel(QPainter &painter, const QPointF &at, const QString &text) const;
    void drawSegmentLabels(QPainter &painter, const TYrexIntegrationRegions &regions, TYrexIntegralHits *hits) const;
    QRectF drawSegmentLabel(QPainter &painter, const T1DLabelInfo &label, double room) const;
    bool shows(TYrexIntegralPlotProperties::TFlag flag) const { return fProperties.flags & flag; }
    bool isOnCurve() const;
    bool isHorizontal() const;
    double rowHeight() const;
    QPen labelPen() const;

    const T1DYrexPlotter &fPlotter;
    const TYrexIntegralPlotProperties &fProperties;
    TYrexIntegralCurve fCurve;
    TTypesetter fTypesetter;
    QRectF fCurves;
    QPen fPen;
    QVector<T1DLabelInfo> fLabels; // at segments, to be arranged when all are known
};
