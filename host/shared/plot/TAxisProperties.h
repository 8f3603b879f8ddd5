#pragma once

#include "plot/TAxisTicks.h"
#include <QColor>

class TDataStream;

/// How one axis is drawn: numbers, ticks, grid. Lengths in canvas units.
struct TAxisProperties
{
    TAxisTicks::TOptions ticks;
    bool reversed = false; // against the direction in which its kind of values runs
    bool majorGrid = false;
    bool minorGrid = false;
    QColor gridColor;
    double majorGridWidth = 1.5;
    double minorGridWidth = 0.8;
    Qt::PenStyle gridStyle = Qt::SolidLine;

    TAxisProperties();

    void store(TDataStream &stream) const;
    /// Keeps the values as they were when the stream holds none or broken ones.
    void load(TDataStream &stream);
    bool operator==(const TAxisProperties &other) const;
};
