#pragma once

#include <QPointF>
#include <QString>

/// What a plot can tell of a place, for the status bar and beside crosshairs.
struct TPlotReadout
{
    bool fIsValid = false;
    int fIndex = -1;      // of the spectrum, by its place in the list; -1 for none
    int fCount = 0;       // spectra of the plot
    QPointF fPoint;       // scale units; y is the curve's
    QString fX;           // "1601.2 cm-1"
    QString fSecondX;     // "6245.3 nm"; empty where x does not convert
    double fSecond = 0.0; // the same as a number, its digits and its unit
    int fSecondDecimals = 0;
    QString fSecondUnit;
    QString fY;
    QString fTitle;
    QString fMark; // of the mark under the mouse, which stands for all of these

    /// "x 1601.2 cm-1 (6245.3 nm)  y 0.842  polystyrene  #4 of 12"
    QString text() const;
};
