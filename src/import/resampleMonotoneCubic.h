#pragma once

#include <QVector>

/// An even grid: point i lies at first + i * step.
struct TEvenGrid
{
    double fFirst = 0.0;
    double fStep = 0.0;
    int fCount = 0;
};

/// Resamples y, given at the ascending positions x, onto the ascending positions newX, in place.
///
/// A shape-preserving piecewise cubic Hermite interpolation: no overshoot between two points, slopes of the ends from
/// three points. Points before the first and behind the last x extrapolate the cubic of that end, but for the first
/// point of all: it takes y[0] as it is. 0 on success, and y then has the size of newX. 1, with y untouched, when newX
/// has no more points than x, when y has not as many as x, when x has fewer than two, and when a step of x or of newX
/// is negative. Equal neighbours and numbers that are not finite are calculated with as the formulas have it.
///
/// Time O(n + m), one array of m values. newX may hold NaN; each costs a binary search.
/// Reference: F. N. Fritsch, R. E. Carlson, SIAM J. Numer. Anal. 17 (1980) 238-246, doi:10.1137/0717021; the slopes
/// inside are those of F. N. Fritsch, J. Butland, SIAM J. Sci. Stat. Comput. 5 (1984) 300-304, doi:10.1137/0905021.
int resampleMonotoneCubic(const QVector<double> &x, QVector<double> &y, const QVector<double> &newX);

/// The same for an even grid, which then needs no array.
int resampleMonotoneCubic(const QVector<double> &x, QVector<double> &y, const TEvenGrid &newX);
