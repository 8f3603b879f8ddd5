#pragma once

#include "TYrexDPLib.h"

#include <QPair>
#include <QVariantMap>

class TYrexSpectrum;

/// Picks peaks of a spectrum's present data and appends them to its list.
namespace TYrexPeakPicking {

/// The chain's step: picks maxima, minima or both over the whole spectrum, as the action's "yrexstdpppsign" and the y
/// unit say. The noise of the data times "yrexstdppsensitivity" is the depth that separates two peaks. Each direction
/// gives at most "yrexstdppmaxnbrpeaks", those with the lowest indices. The peaks carry the auto-picked flag. None is
/// nearer to a peak that the spectrum has already, which the user made, than half its width (TYrexPeakWidth) or a
/// point.
void autoPeakPicking(TYrexSpectrum &spectrum, const QVariantMap &action);

/// Manual picking between two positions, in points, of any order. Maxima must rise above `level`, in y units; minima
/// must lie at or below it. Direction: the "yrexstdpppsign" of the chain's first picking action, else by the y unit.
/// The peaks carry no flag, so a later run of the chain keeps them.
void pickInRange(TYrexSpectrum &spectrum, double from, double to, double level);

/// The level for pickInRange that lets every peak through.
double openLevel(const TYrexSpectrum &spectrum);

/// The peak nearest to the point x, above `level` in y units: its position in points and its value. With `peak`, its
/// position, intensity and direction are set too. `free` with a record takes the point at x as it is. A position
/// outside the data gives itself, rounded, and 0, and leaves the record.
QPair<double, double> peakNear(const TYrexSpectrum &spectrum, double x, double level, TYrexDPLib::TYrexDPPeak *peak,
                               bool free);

/// Mean squared deviation from the median, in single precision; 0 for no values.
float blockVariance(const float *values, int length);

} // namespace TYrexPeakPicking
