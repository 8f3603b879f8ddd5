#pragma once

#include <QVector>

/// Whether ascending x values are uneven: their mean lies more than 1 % off the middle of their ends. A quotient that
/// is no number (both ends zero) counts as even, and so do fewer than two values.
bool isUnevenAxis(const QVector<double> &x);

/// Whether every point of an ascending axis lies within half a step of its place on an even grid of as many points.
bool isNearEvenGrid(const QVector<double> &x);

/// The smallest distance of neighbours; infinity for fewer than two values.
double smallestStep(const QVector<double> &x);

/// The even grid on which uneven values are put: it begins at the first x, has the smallest distance of neighbours as
/// its step and ends one step before the last x.
struct TFinestGrid
{
    double fStep = 0.0;
    double fCount = 0.0; // points; may be more than memory holds or no number, so check it before use
};
TFinestGrid finestGrid(const QVector<double> &x);

/// Resamples the y values at `x` onto the first `count` points of the grid that begins at the first x. Where the grid
/// has no more points than x, the first `count` values stay as they are.
void putOnGrid(const QVector<double> &x, double step, int count, QVector<double> *y);
