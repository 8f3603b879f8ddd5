#pragma once

#include <QVector>

/// How wide a peak is as it stands in the data.
///
/// The width that the detector leaves in the record of a peak is taken at half the height above zero, in data that
/// were shifted before, which makes it far wider than the band for every spectrum whose bands are lower than the shift.
/// It serves algorithms. What users read is measured here, above the ground that the peak stands on.
namespace TYrexPeakWidth {

/// The two places, in fractions of points, where the flanks pass through half the height.
struct TSpan
{
    double fLeft = 0.0;
    double fRight = 0.0;
    bool isValid() const { return fRight > fLeft; }
};

/// The full width at half prominence. The ground of a peak is the higher of the lowest values to its left and right, as
/// far as no value is higher than the peak; half-way to it the flanks are cut, by linear interpolation. `position` is
/// in points; the highest value within a point of it counts as the summit, since peaks may be placed freely or come
/// from data that were processed otherwise. `isUp` is false for a peak that was picked pointing down; where the data
/// have none that way by now (transmittance became absorbance), the other way is measured.
///
/// Invalid for a position outside of the data, for a place on a slope, which is no peak, and where values are no
/// numbers. Time O(n) at most. Source of the measure: topographic prominence as in SciPy's `peak_widths`
/// (doi:10.1038/s41592-019-0686-2).
TSpan measure(const QVector<double> &y, double position, bool isUp);

} // namespace TYrexPeakWidth
