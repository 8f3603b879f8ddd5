#include "TYrexDerivative.h"

#include "TYrexProcIds.h"
#include "TYrexProcSteps.h"
#include "TYrexSavGol.h"
#include "TYrexSpectrum.h"
#include "numerics/RobustDerivative.h"

#include <QVector>
#include <algorithm>

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

void centered(TYrexSpectrum &spectrum, int order, bool invert)
{
    if (order == 1)
        TYrexDerivative::centeredDerivative1(spectrum.data(), spectrum.pointCount(), invert);
    else if (order == 2)
        TYrexDerivative::centeredDerivative2(spectrum.data(), spectrum.pointCount(), invert);
}

/// The filter's weights are those of a derivative divided by the factorial of its order.
double factorial(int order)
{
    double product = 1.0;
    for (int i = 2; i <= order; ++i)
        product *= i;
    return product;
}

void savitzkyGolay(TYrexSpectrum &spectrum, const QVariantMap &action, int order, bool invert)
{
    const int width = integer(action, "derivativesgkerlen");
    const int half = width / 2; // an even width is raised by one
    const int length = 2 * half + 1;
    const int degree = qMin(integer(action, "derivativesgpolydeg"), cHighestDegree);
    if (width > cWidestWindow || !TYrexSavGol::areUsable(length, half, half, order, degree))
        return;
    QVector<double> kernel(length);
    TYrexSavGol::savgol(kernel.data(), length, half, half, order, degree);
    const double factor = invert ? -factorial(order) : factorial(order);
    std::for_each(kernel.begin(), kernel.end(), [factor](double &weight) { weight *= factor; });
    TYrexSavGol::convolve(spectrum.data(), spectrum.pointCount(), kernel.data(), length, true);
}

void robustNoise(TYrexSpectrum &spectrum, const QVariantMap &action, int order, bool invert)
{
    double *y = spectrum.data();
    const int n = spectrum.pointCount();
    const int lambda = integer(action, "derivativerobustnoiselambda");
    if (order == 1)
        Utils::Algorithm::robustNoiseDerivative(y, n, lambda, invert);
    else if (order == 2)
        Utils::Algorithm::robustNoiseSecondDerivative(y, n, lambda, invert);
    if (n > 0)
        y[0] = y[n - 1] = 0.0;
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
    const int order = integer(action, "derivativeorder");
    const bool invert = action.value(QStringLiteral("derivativeinvertsign")).toBool();
    switch (integer(action, "derivativeapprox")) {
    case cDerivativeCentered:
        centered(spectrum, order, invert);
        break;
    case cDerivativeSavitzkyGolay:
        savitzkyGolay(spectrum, action, order, invert);
        break;
    case cDerivativeRobustNoise:
        robustNoise(spectrum, action, order, invert);
        break;
    default:
        break;
    }
    TYrexProcSteps::labelArbitrary(spectrum);
}
