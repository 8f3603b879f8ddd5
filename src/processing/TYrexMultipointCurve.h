#pragma once

#include <QVector>

class TYrexSpectrum;
struct TYrexBaselinePoint;

/// The baseline that a user builds from control points: the curve through them, its correction, and points that the
/// program suggests.
namespace TYrexMultipointCurve {

/// Rebuilds the spectrum's preview from the multipoint set-up of its parameters, writing each control point's height
/// back into it. With `apply` the present data are corrected by the curve and the preview is freed. Nothing for a
/// set-up that is not active; one without points frees the preview. Transmittance is held within 0 and 1, percent
/// transmittance within 0 and 100; both are raised by 1 - curve.
void computeMultipointBaseline(TYrexSpectrum &spectrum, bool apply);

/// The curve over n points; knots are (x, y) with x ascending and distinct, `algorithm` is that of the set-up.
/// Linear, smooth (half cosine) and natural cubic spline segments have values strictly between the first and the last
/// knot only, 0 elsewhere. The Whittaker curve is the first-order smoother of the knots with penalty `lambda`, in
/// single precision, from the first knot up to, not including, the last. Reference: P. H. C. Eilers, Anal. Chem. 75
/// (2003) 3631-3636, doi 10.1021/ac034173t.
QVector<double> curve(const QVector<TYrexBaselinePoint> &knots, int n, int algorithm, int lambda);

/// Adds a point at either end of the spectrum where none stands exactly there.
void addBorderPoints(TYrexSpectrum &spectrum);

/// Adds points where the spectrum is flat, at least a hundredth of the spectrum away from those that stand, and notes
/// how many flat places it found. Nothing for fewer than four points.
void addAutomaticPoints(TYrexSpectrum &spectrum);

} // namespace TYrexMultipointCurve
