#pragma once

#include "TYrexDPLib.h"

/// Finds the extremes of plain arrays and measures them. Positions are in points; y[0..n-1] is never changed.
namespace TYrexPeakDetector {

/// What the detector looks for.
enum TDirection { cMaxima = 1, cMinima = 2 };
/// Which way an extreme points: as the sign of its value says, up, or down.
enum TSense { cBySign = 0, cUp = 1, cDown = 2 };

/// Appends a record for every extreme that stands out by more than `delta` on both sides: maxima above 0 or minima
/// below 0 whose absolute value exceeds `minHeight`, from left to right, until the list has maxPeaks records. An
/// extreme at an end of the data counts. `refine` moves the position to the nearest strict maximum, otherwise it is the
/// extreme's point. Only position and width of a record are set.
///
/// A hysteresis follows the data once, and the flanks of neighbouring peaks overlap nowhere or are measured together:
/// time O(n + peaks * log n) for every delta, without `refine`. NaNs end flanks and are passed over by the hysteresis,
/// but a NaN as first value, or as delta, lets nothing be found.
void detectPeaks(const double *w, int n, TYrexDPLib::TYrexDPPeakList &peaks, int maxPeaks, float delta, float minHeight,
                 bool refine, int direction);

/// The vertex of the parabola through y[i] and its neighbours: returns its position and gives its height, and the full
/// width at half of that height. The width is measured along the flanks as far as they fall, by linear interpolation;
/// when only one flank reaches the half height its part counts twice, when none does the flanks' lengths are taken.
/// Three values on a line give i, with height and width untouched. `stride` is the distance of neighbours in y; `mode`
/// is a TSense. Needs 0 <= i < n. Time O(flanks).
double peakShape(const double *y, int n, int i, double &height, double &width, int stride, int mode);

/// The extreme nearest to i that two climbs find, one starting to the right and one to the left, each turning round
/// once; the left one when both are as near. A climb that ends at the edge of the data yields to the other, and i is
/// returned when both do. With level 0 every step rises strictly, in the sense of `mode`, a TSense. With a positive
/// level, values that are not above it count as 0 and level steps are taken; with a negative level the same downwards,
/// with values that are not below it. i is clamped into the data; 0 when there are none. Time O(n).
int nearestExtreme(const double *y, int n, int i, double level, int stride, int mode);

} // namespace TYrexPeakDetector
