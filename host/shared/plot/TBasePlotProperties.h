#pragma once

#include "plot/TAxisDir.h"
#include "plot/TAxisProperties.h"
#include <QColor>
#include <QFont>
#include <QPen>

class TDataStream;

/// Lines around the curves.
enum TPlotFrame {
    noFrame = 0,
    axesFrame = 1, // along the axes only
    boxFrame = 2
};

/// To which side of its axis a tick points.
enum TTickDirection { ticksOut = 0, ticksIn = 1, ticksBoth = 2 };

/// What every plot can be told about its looks. Lengths are canvas units (0.1 mm); a font's point size is its height in
/// canvas units.
struct TBasePlotProperties
{
    static constexpr double cDefCurveWidth = 3.5;
    static constexpr double cDefPenWidth = 3.0; // of marks
    static constexpr double cDefPlotAreaMargin = 15.0;
    static constexpr double cAutoMargin = -1.0;
    static constexpr int cNoSecondAxis = -1;

    QPen curvePen;
    double fillAlpha = 0.0;   // area between curve and base line, 0 (none) to 1
    bool showMarkers = false; // a dot per point where fewer than 200 are in view
    bool isBaseLineShown = false;

    QColor background = Qt::white; // invalid: the paper shows through
    int frame = axesFrame;
    double marginLeft = cAutoMargin; // from the item's border to the curves rectangle; negative: what the axis needs
    double marginTop = cAutoMargin;
    double marginRight = cAutoMargin;
    double marginBottom = cAutoMargin;
    double plotAreaMargin = cDefPlotAreaMargin; // between the curves rectangle and the axis lines
    bool keepFitting = false;
    bool antialiasing = true;
    bool showLegend = false;
    int secondAxis = cNoSecondAxis; // unit of the horizontal axis on the other side, in the plug-in's numbers

    QColor axesColor = Qt::black;
    QFont axesFont; // of the numbers
    QFont axesTitleFont;
    double axesLineWidth = 2.5;
    int tickDirection = ticksOut;
    TAxisProperties horzAxis;
    TAxisProperties vertAxis;

    TBasePlotProperties();

    const TAxisProperties &axis(TAxisDir dir) const { return dir == horzDir ? horzAxis : vertAxis; }

    void store(TDataStream &stream) const;
    /// Keeps the values as they were when the stream holds none or broken ones.
    void load(TDataStream &stream);
    bool operator==(const TBasePlotProperties &other) const;
};
