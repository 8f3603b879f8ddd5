#pragma once

#include "TYrexUnits.h"

#include <QString>
#include <QVector>

class TYrexSpectrum;

/// The x axis of a spectrum as it is stored: evenly spaced points in the original unit.
struct TYrexAxis
{
    double fFirst = 0.0;
    double fLast = 0.0;
    int fCount = 0; // points
    int fUnit = cUnitArbitrary;

    TYrexAxis() = default;
    explicit TYrexAxis(const TYrexSpectrum &spectrum);

    /// Distance of neighbours, never negative; 0 for fewer than two points.
    double step() const;
    /// Whether a calculation may take points with the same index for points at the same x: as many points, the same
    /// unit, and no point farther from its like than a tenth of the smaller step. An axis with a limit that is not
    /// finite is the same as none.
    bool isSameAs(const TYrexAxis &other) const;
    /// The largest distance of points with the same index on axes of the same count and unit.
    double farthestFrom(const TYrexAxis &other) const;

    /// Why one of the axes is not the same as the reference, in words for users ("the x axes differ by up to 3 cm-1"):
    /// a count before a unit before the largest distance of all. Empty when all are the same.
    static QString difference(const QVector<TYrexAxis> &axes, const TYrexAxis &reference);
};
