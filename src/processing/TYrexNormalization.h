#pragma once

#include <QVariantMap>

class TYrexSpectrum;

namespace TYrexNormalization {

/// The chain's step: moves or scales the whole spectrum so that a figure of it, or of a range, becomes
/// "normalizationvalue". The y unit becomes arbitrary; an unknown "normalizationmode" changes nothing at all.
///
/// Largest peak: the range's minimum goes to 0 and its maximum to the value. Integral: the sum of absolute values.
/// Vector length: the root of the sum of squares. A flat range, or one with a sum of 0, gives zeros; a vector length of
/// 0 is not guarded and gives NaN.
///
/// The range is [first, last) in points: the last point takes no part, also on the full range. With
/// "normalizationfullrange" false, "normalizationrangefrom" and "normalizationrangeto" are its bounds in the original x
/// unit, in any order; bounds that meet at one point mean the full range, and a range beside the data has no points.
void normalize(TYrexSpectrum &spectrum, const QVariantMap &action);

} // namespace TYrexNormalization
