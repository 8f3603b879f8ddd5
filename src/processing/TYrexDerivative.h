#pragma once

#include <QVariantMap>

class TYrexSpectrum;

/// Derivatives are taken per point: nothing is divided by the x step.
namespace TYrexDerivative {

/// First derivative of y[0..n-1] in place by central differences. The end points become 0 and their neighbours the
/// one-sided differences y[1] - y[0] and y[n-1] - y[n-2], which `invert` does not negate, as it does all others.
void centeredDerivative1(double *y, int n, bool invert);
/// Second derivative in the same way, with the same first differences next to the ends.
void centeredDerivative2(double *y, int n, bool invert);

/// The chain's step: the derivative of "derivativeorder" by the method of "derivativeapprox", negated for
/// "derivativeinvertsign"; the y unit becomes arbitrary. A derivative that cannot be computed leaves data and unit, and
/// a line in the log: a method or an order that is not offered, a Savitzky-Golay filter that does not exist, values
/// that are not finite for the robust noise method.
void derivative(TYrexSpectrum &spectrum, const QVariantMap &action);

} // namespace TYrexDerivative
