#include "TYrexSmoothing.h"

#include "TYrexNlmPixelwise.h"
#include "TYrexProcIds.h"
#include "TYrexProcSteps.h"
#include "TYrexSavGol.h"
#include "TYrexSpectrum.h"
#include "numerics/ImageFilters.h"
#include "numerics/ImageScratch.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using namespace Utils::Algorithm::Image;

constexpr int cImageRows = 8; // equal rows that make an image of a spectrum
constexpr int cKeptRow = 4;   // the one that comes back
constexpr int cWienerWindow = 7;
constexpr int cWidestWindow = 1 << 20;
constexpr int cHighestDegree = 128; // the sums for this one leave the range of double in every window that holds it

std::size_t imageSize(int n)
{
    return std::size_t(cImageRows) * std::size_t(n);
}

/// The values over `span` as an image of equal rows; false when they are no finite floats.
bool toImage(const double *y, int n, float span, float *image)
{
    std::transform(y, y + n, image, [span](double value) { return float(value) / span; });
    repeatFirstRow(image, n, cImageRows);
    return allFinite(image, std::size_t(n));
}

void fromImage(const float *image, float span, double *y, int n)
{
    const float *row = image + std::size_t(cKeptRow) * std::size_t(n);
    std::transform(row, row + n, y, [span](float value) { return double(value * span); });
}

const QString cNotFinite = QStringLiteral("it needs finite values within the range of single precision");

} // namespace

void TYrexSmoothing::smooth(TYrexSpectrum &spectrum, const QVariantMap &action)
{
    const auto value = [&action](const char *key) { return action.value(QLatin1String(key)); };
    double *y = spectrum.data();
    const int n = spectrum.pointCount();
    const auto log = [](const QString &reason) { TYrexProcSteps::logLeftOut(cProcSmoothing, reason); };
    switch (value(cKeySmoothMethod).toInt()) {
    case cSmoothExponential:
        exponentialSmooth(y, value(cKeySmoothParam).toDouble(), n);
        break;
    case cSmoothNonlocalMeans:
        if (nonLocalMeans(y, n, value(cKeyNlmNoiseFactor).toDouble(), value(cKeyNlmMode).toInt()))
            break;
        log(value(cKeyNlmMode).toInt() != cNlmBlockwise && n < cNlmSmallestWidth
                ? QStringLiteral("pixelwise non-local means need %1 points, the spectrum has %2")
                      .arg(cNlmSmallestWidth)
                      .arg(n)
                : cNotFinite);
        break;
    case cSmoothMedianWiener:
        if (!medianWiener(y, n))
            log(cNotFinite);
        break;
    case cSmoothSavitzkyGolay: {
        const int window = value(cKeySmoothWindow).toInt();
        const int degree = value(cKeySmoothDegree).toInt();
        if (!savitzkyGolay(y, n, window, degree))
            log(QStringLiteral("no Savitzky-Golay filter of %1 points and degree %2").arg(window).arg(degree));
        break;
    }
    default:
        break;
    }
}

void TYrexSmoothing::exponentialSmooth(double *y, double lambda, int n)
{
    if (!y || n < 1 || std::isnan(lambda))
        return;
    const double r = 1.0 / std::abs(lambda);
    const double q = 1.0 / (1.0 + r * r + r * std::sqrt(r * r + 2.0)); // keeps its digits for a small lambda
    const double b = 1.0 - q;
    double last = y[0];
    for (int i = 0; i < n - 2; ++i) {
        last = b * y[i] + q * last;
        y[i] = last;
    }
    y[n - 1] = q / (q + 1.0) * last + 1.0 / (q + 1.0) * y[n - 1];
    last = y[n - 1];
    for (int i = n - 1; i >= 1; --i) {
        last = b * y[i] + q * last;
        y[i] = last;
    }
}

bool TYrexSmoothing::savitzkyGolay(double *y, int n, int window, int degree)
{
    const int half = window / 2;
    const int length = 2 * half + 1;
    if (half < 0 || window > cWidestWindow || degree > cHighestDegree ||
        !TYrexSavGol::areUsable(length, half, half, 0, degree))
        return false;
    std::vector<double> kernel(std::size_t(length), 0.0);
    TYrexSavGol::savgol(kernel.data(), length, half, half, 0, degree);
    if (!std::all_of(kernel.begin(), kernel.end(), [](double value) { return std::isfinite(value); }))
        return false;
    TYrexSavGol::convolve(y, n, kernel.data(), length, true);
    return true;
}

bool TYrexSmoothing::medianWiener(double *y, int n)
{
    if (!y || n < 1)
        return true;
    static thread_local std::vector<float> buffer;
    TScratch<float> scratch(buffer, 2 * imageSize(n));
    float *in = scratch.data();
    float *out = in + imageSize(n);
    if (!toImage(y, n, 1.0f, in))
        return false;
    Utils::Algorithm::mmwfFilter(in, out, n, cImageRows, cWienerWindow);
    fromImage(out, 1.0f, y, n);
    return true;
}

bool TYrexSmoothing::nonLocalMeans(double *y, int n, double noiseFactor, int mode)
{
    if (!y || n < 1 || float(noiseFactor) == 0.0f)
        return true;
    const auto range = std::minmax_element(y, y + n);
    const float span = float(*range.second - *range.first);
    if (span == 0.0f)
        return true;
    if (mode != cNlmBlockwise && n < cNlmSmallestWidth)
        return false;
    static thread_local std::vector<float> buffer;
    TScratch<float> scratch(buffer, 2 * imageSize(n));
    float *image = scratch.data();
    if (!std::isfinite(span) || !toImage(y, n, span, image))
        return false;
    if (mode == cNlmBlockwise) {
        Utils::Algorithm::nonLocalMeansDenoising(image, cImageRows, n, noiseFactor);
    } else {
        float *denoised = image + imageSize(n);
        nlmPixelwise(image, denoised, cImageRows, n, mode == cNlmFastPixelwise);
        image = denoised;
    }
    fromImage(image, span, y, n);
    return true;
}
