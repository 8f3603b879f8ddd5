#pragma once

#include <QColor>
#include <QFont>
#include <QPen>

class TDataStream;

/// How the integrals of a plot are drawn.
struct TYrexIntegralPlotProperties
{
    enum TFlag : quint32 {
        cShowIntegrals = 0x01,
        cShowCurve = 0x02,
        cShowLabels = 0x04,
        cShowMethod = 0x08,
        cShowSegment = 0x10
    };

    TYrexIntegralPlotProperties();

    quint32 flags = cShowIntegrals | cShowCurve | cShowLabels | cShowSegment;
    QPen pen;
    QColor labelColor = Qt::darkBlue;
    QFont font;                  // the point size is the height in canvas units
    qint32 labelPosition = 0;    // 0 "On Segment", 1 "On Curve"
    qint32 labelOrientation = 0; // 0 "Vertical", 1 "Horizontal"
    // fractions of the curves rectangle's height
    double rangeMargin = 0.02;
    qint32 decimals = 2;
    double curveMargin = 0.3;
    double curveMaxHeight = 0.4;

    void store(TDataStream &stream) const;
    /// Keeps the defaults for a stream that holds none.
    void load(TDataStream &stream);
};
