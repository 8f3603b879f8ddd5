#pragma once

#include <QColor>
#include <QFont>
#include <QPen>

class TDataStream;

/// How the peaks of a plot are labelled.
struct TYrexPeakPlotProperties
{
    enum TFlag : quint32 {
        cReservedViewFlags = 0x007,
        cShowLabels = 0x200,
        cShowTicks = 0x400,
        cInCurveColor = 0x800,
        cHiddenInOverview = 0x607
    };
    enum TContent { cPosition = 1, cAnnotation = 2 };

    TYrexPeakPlotProperties();

    quint32 flags = 0x700;
    QFont font; // the point size is the height in canvas units
    QPen pen;
    qint32 reserved = 2;
    qint32 orientation = 0; // 0 vertical, 1 horizontal labels
    qint32 position = 0;    // 0 "Top", 1 "Bottom", 2 "Peak (Simple)", 3 "Peak (Crowded)", 4 "Peak Groups"
    qint32 units = 0;
    qint32 decimals = 2;
    qint32 content = cPosition | cAnnotation;
    QColor curveColor{128, 0, 0, 196};
    QColor otherColor{0, 0, 128, 196};
    double margin = 0.0; // fraction of the curves rectangle's height

    void store(TDataStream &stream) const;
    void load(TDataStream &stream);
};
