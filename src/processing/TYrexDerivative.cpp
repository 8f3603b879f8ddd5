#include "TYrexDerivative.h"

#include "TYrexProcIds.h"
#include "TYrexProcSteps.h"
#include "TYrexSavGol.h"
#include "TYrexSpectrum.h"
#include "numerics/RobustDerivative.h"

#include <QVector>
#include <algorithm>
#include <cmath>

namespace {

constexpr int cHighestDegree = 7;
constexpr int cWidestWindow = 1 << 20; // far beyond any use; what a damaged file asks for is not allocated

int integer(const QVariantMap &action, const char *key)
{
    return action.value(QLatin1String(key)).toInt();
}

/// What both centered derivatives have at their ends.
QVector<double> framed(const double *y, int n)
{
    QVector<double> out(n, 0.0);
    if (n < 2)
        return out;
    out[1] = y[1] - y[0];
    out[n - 2] = y[n - 1] - y[n - 2];
    return out;
}

// Each of the methods returns why it left the data alone; empty when it did not.

QString noSuchOrder(int order)
{
    return QStringLiteral("the method has no order %1").arg(order);
}

QString centered(TYrexSpectrum &spectrum, int order, bool invert)
{
    if (order == 1)
        TYrexDerivative::centeredDerivative1(spectrum.data(), spectrum.pointCount(), invert);
    else if (order == 2)
        TYrexDerivative::centeredDerivative2(spectrum.data(), spectrum.pointCount(), invert);
    else
        return noSuchOrder(order);
    return QString();
}

/// The filter's weights are those of a derivative divided by the factorial of its order.
double factorial(int order)
{
    double product = 1.0;
    for (int i = 2; i <= order; ++i)
        product *= i;
    return product;
}

QString savitzkyGolay(TYrexSpectrum &spectrum, const QVariantMap &action, int order, bool invert)
{
    const int width = integer(action, "derivativesgkerlen");
    const int half = width / 2; // an even width is raised by one
    const int length = 2 * half + 1;
    const int degree = qMin(integer(action, "derivativesgpolydeg"), cHighestDegree);
    if (width > cWidestWindow || !TYrexSavGol::areUsable(length, half, half, order, degree))
        return QStringLiteral("no Savitzky-Golay filter of %1 points, degree %2 and order %3")
            .arg(width)
            .arg(degree)
            .arg(order);
    QVector<double> kernel(length);
    TYrexSavGol::savgol(kernel.data(), length, half, half, order, degree);
    const double factor = invert ? -factorial(order) : factorial(order);
    std::for_each(kernel.begin(), kernel.end(), [factor](double &weight) { weight *= factor; });
    TYrexSavGol::convolve(spectrum.data(), spectrum.pointCount(), kernel.data(), length, true);
    return QString();
}

QString robustNoise(TYrexSpectrum &spectrum, const QVariantMap &action, int order, bool invert)
{
    double *y = spectrum.data();
    const int n = spectrum.pointCount();
    const int lambda = integer(action, "derivativerobustnoiselambda");
    if (order != 1 && order != 2)
        return noSuchOrder(order);
    if (!std::all_of(y, y + n, [](double value) { return std::isfinite(value); }))
        return QStringLiteral("the robust noise method needs finite values");
    if (order == 1)
        Utils::Algorithm::robustNoiseDerivative(y, n, lambda, invert);
    else
        Utils::Algorithm::robustNoiseSecondDerivative(y, n, lambda, invert);
    if (n > 0)
        y[0] = y[n - 1] = 0.0;
    return QString();
}

QString run(TYrexSpectrum &spectrum, const QVariantMap &action)
{
    const int order = integer(action, "derivativeorder");
    const bool invert = action.value(QStringLiteral("derivativeinvertsign")).toBool();
    switch (integer(action, "derivativeapprox")) {
    case cDerivativeCentered:
        return centered(spectrum, order, invert);
    case cDerivativeSavitzkyGolay:
        return savitzkyGolay(spectrum, action, order, invert);
    case cDerivativeRobustNoise:
        return robustNoise(spectrum, action, order, invert);
    default:
        return QStringLiteral("there is no such method");
    }
}

} // namespace

void TYrexDerivative::centeredDerivative1(double *y, int n, bool invert)
{
    const double sign = invert ? -1.0 : 1.0;
    QVector<double> out = framed(y, n);
    double *to = out.data();
    for (int i = 2; i < n - 2; ++i)
        to[i] = sign * (y[i + 1] - y[i - 1]) / 2.0;
    std::copy_n(to, out.size(), y);
}

void TYrexDerivative::centeredDerivative2(double *y, int n, bool invert)
{
    const double sign = invert ? -1.0 : 1.0;
    QVector<double> out = framed(y, n);
    double *to = out.data();
    for (int i = 2; i < n - 2; ++i)
        to[i] = sign * (y[i + 1] - 2.0 * y[i] + y[i - 1]);
    std::copy_n(to, out.size(), y);
}

void TYrexDerivative::derivative(TYrexSpectrum &spectrum, const QVariantMap &action)
{
    const QString reason = run(spectrum, action);
    if (reason.isEmpty())
        TYrexProcSteps::labelArbitrary(spectrum);
    else
        TYrexProcSteps::logLeftOut(cProcDerivative, reason);
}
