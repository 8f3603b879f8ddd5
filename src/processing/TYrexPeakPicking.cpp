#include "TYrexPeakPicking.h"

#include "TYrexPeakDetector.h"
#include "TYrexPeakWidth.h"
#include "TYrexProcIds.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "numerics/Median.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using TYrexPeakDetector::cMaxima;
using TYrexPeakDetector::cMinima;
using TPeakList = TYrexDPLib::TYrexDPPeakList;

enum TWhich { cBoth = 0, cUpwards = 1, cDownwards = 2 };

/// What automatic picking reads from its action.
struct TPickSettings
{
    float fSensitivity;
    int fMaxPeaks;
};

double roundHalfUp(double value)
{
    return std::floor(value + 0.5);
}

bool isTransmittance(int yUnit)
{
    return yUnit == cUnitTransmittance || yUnit == cUnitPercentTransmittance;
}

/// Both ways where the unit says nothing. That holds for the arbitrary unit too.
TWhich autoDirection(int sign, int yUnit)
{
    if (sign == cPeaksUpwards)
        return cUpwards;
    if (sign == cPeaksDownwards)
        return cDownwards;
    if (sign != cPeaksAuto)
        return cBoth;
    if (isTransmittance(yUnit))
        return cDownwards;
    switch (yUnit) {
    case cUnitAbsorbance:
    case cUnitReflectance:
    case cUnitCounts:
    case cUnitKubelkaMunk:
    case cUnitIntensity:
        return cUpwards;
    default:
        return cBoth;
    }
}

/// Unlike the automatic route this one takes the arbitrary unit as upwards, and not the intensity.
TWhich manualDirection(int sign, int yUnit)
{
    if (sign == cPeaksUpwards)
        return cUpwards;
    if (sign == cPeaksDownwards)
        return cDownwards;
    if (sign != cPeaksBoth && sign != cPeaksAuto)
        return cBoth;
    if (isTransmittance(yUnit))
        return cDownwards;
    switch (yUnit) {
    case cUnitAbsorbance:
    case cUnitReflectance:
    case cUnitCounts:
    case cUnitKubelkaMunk:
    case cUnitArbitrary:
        return cUpwards;
    default:
        return cBoth;
    }
}

/// The direction option of the chain's first picking action.
int chainSign(const TYrexSpectrum &spectrum)
{
    const TYrexProcParams &params = spectrum.procParams();
    const int index = params.indexOfAction(cProcAutoPeakPicking);
    return index < 0 ? cPeaksAuto : params.action(index).value(QStringLiteral("yrexstdpppsign")).toInt();
}

/// The data shifted away from zero, so that what shall be picked lies on one side of it.
class TShiftedData
{
public:
    TShiftedData(const TYrexSpectrum &spectrum, bool down);

    /// Ten times the deviation of a typical block.
    float noise() const;
    void pick(TPeakList &peaks, const TPickSettings &settings) const;

private:
    bool fDown;
    std::vector<double> fValues;
    std::vector<float> fMagnitudes;
    float fLargest = 0.0f;
};

TShiftedData::TShiftedData(const TYrexSpectrum &spectrum, bool down)
    : fDown(down)
    , fValues(size_t(spectrum.pointCount()))
    , fMagnitudes(fValues.size())
{
    const double edge = down ? -1.05 * spectrum.maxValue(0, 0) : std::fabs(1.05 * spectrum.minValue(0, 0));
    const double *y = spectrum.values().constData();
    for (size_t i = 0; i < fValues.size(); ++i) {
        const double value = down ? y[i] + edge - 1.0 : y[i] + qMax(edge, 1.0);
        const float magnitude = float(std::fabs(value));
        fValues[i] = value;
        fMagnitudes[i] = magnitude;
        fLargest = magnitude > fLargest ? magnitude : fLargest;
    }
}

float TShiftedData::noise() const
{
    constexpr double cBlocks = 128.0;
    constexpr double cShortestBlock = 4.0;
    const int n = int(fMagnitudes.size());
    const int length = int(qMax(roundHalfUp(n / cBlocks), cShortestBlock));
    const int count = int(roundHalfUp(double(n) / length)) - 1; // the last block may be short
    std::vector<float> variances;
    variances.reserve(size_t(qMax(0, count)));
    for (int k = 0; k < count; ++k)
        variances.push_back(TYrexPeakPicking::blockVariance(fMagnitudes.data() + size_t(k) * size_t(length), length));
    return 10.0f * std::sqrt(std::fabs(Utils::Algorithm::calcMedian(variances.data(), variances.size())));
}

void TShiftedData::pick(TPeakList &peaks, const TPickSettings &settings) const
{
    const float depth = noise();
    TPeakList found;
    TYrexPeakDetector::detectPeaks(fValues.data(), int(fValues.size()), found, settings.fMaxPeaks,
                                   depth * settings.fSensitivity, depth * 5.0f / fLargest, false,
                                   fDown ? cMinima : cMaxima);
    for (TYrexDPLib::TYrexDPPeak *peak : found)
        peak->positive = !fDown;
    peaks.append(found);
}

/// What manual picking works on: the range turned so that its peaks point up.
std::vector<double> rangeForPicking(const double *y, int n, int from, int to, bool up)
{
    std::vector<double> work(y + from, y + to);
    if (up)
        return work;
    double top = std::numeric_limits<double>::min();
    for (int i = from; i <= to && i < n; ++i)
        top = y[i] > top ? y[i] : top;
    for (double &value : work)
        value = top - value;
    return work;
}

double deviationFromMedian(const std::vector<double> &values)
{
    std::vector<float> rounded(values.size());
    for (size_t i = 0; i < values.size(); ++i)
        rounded[i] = float(values[i]);
    const double median = double(Utils::Algorithm::calcMedian(rounded.data(), rounded.size()));
    double sum = 0.0;
    for (const double value : values)
        sum += (value - median) * (value - median);
    return std::sqrt(std::fabs(sum / double(values.size())));
}

/// A bound of a range as an index from 0 to n.
int boundIndex(double position, int n)
{
    return position > 0.0 ? int(roundHalfUp(qMin(position, double(n)))) : 0;
}

/// Takes away what is nearer to a peak of the spectrum than half its width, and than a point: it is that peak, which
/// the user has kept and perhaps named.
void dropKnown(const TYrexSpectrum &spectrum, TPeakList &peaks)
{
    for (const TYrexDPLib::TYrexDPPeak *known : spectrum.peaks()) {
        const TYrexPeakWidth::TSpan span = TYrexPeakWidth::measure(spectrum.values(), known->position, known->positive);
        const double reach = qMax(1.0, span.isValid() ? 0.5 * (span.fRight - span.fLeft) : 0.0);
        const auto isKnown = [known, reach](TYrexDPLib::TYrexDPPeak *peak) {
            const bool isNear = std::fabs(peak->position - known->position) < reach;
            if (isNear)
                delete peak;
            return isNear;
        };
        peaks.erase(std::remove_if(peaks.begin(), peaks.end(), isKnown), peaks.end());
    }
}

} // namespace

float TYrexPeakPicking::blockVariance(const float *values, int length)
{
    if (length < 1)
        return 0.0f;
    const float median = Utils::Algorithm::calcMedian(values, size_t(length));
    float sum = 0.0f;
    for (int i = 0; i < length; ++i)
        sum += (values[i] - median) * (values[i] - median);
    return sum / float(length);
}

void TYrexPeakPicking::autoPeakPicking(TYrexSpectrum &spectrum, const QVariantMap &action)
{
    if (spectrum.pointCount() < 1)
        return;
    const TPickSettings settings = {action.value(QStringLiteral("yrexstdppsensitivity")).toFloat(),
                                    action.value(QStringLiteral("yrexstdppmaxnbrpeaks")).toInt()};
    const TWhich which = autoDirection(action.value(QStringLiteral("yrexstdpppsign")).toInt(), spectrum.yUnits());
    TPeakList peaks;
    if (which != cUpwards)
        TShiftedData(spectrum, true).pick(peaks, settings);
    if (which != cDownwards)
        TShiftedData(spectrum, false).pick(peaks, settings);
    dropKnown(spectrum, peaks);
    for (TYrexDPLib::TYrexDPPeak *peak : peaks) {
        peak->flags |= TYrexDPLib::cAutoPicked;
        peak->intensity = spectrum.values().at(int(peak->position));
    }
    spectrum.peaks().append(peaks);
}

void TYrexPeakPicking::pickInRange(TYrexSpectrum &spectrum, double from, double to, double level)
{
    const int n = spectrum.pointCount();
    const int a = qMin(boundIndex(from, n), boundIndex(to, n));
    const int b = qMax(boundIndex(from, n), boundIndex(to, n));
    if (a == b)
        return;
    const bool up = manualDirection(chainSign(spectrum), spectrum.yUnits()) == cUpwards;
    const double *y = spectrum.values().constData();
    const std::vector<double> work = rangeForPicking(y, n, a, b, up);
    TPeakList peaks;
    TYrexPeakDetector::detectPeaks(work.data(), b - a, peaks, std::numeric_limits<int>::max(),
                                   float(0.1 * deviationFromMedian(work)), up ? float(level) : 0.0f, false, cMaxima);
    for (TYrexDPLib::TYrexDPPeak *peak : peaks) {
        peak->positive = up;
        peak->position += a;
        peak->intensity = y[int(peak->position)];
        if (!up && peak->intensity > level)
            delete peak;
        else
            spectrum.peaks().append(peak);
    }
}

double TYrexPeakPicking::openLevel(const TYrexSpectrum &spectrum)
{
    // maxima must rise above the level, minima must lie at or below it
    const bool up = manualDirection(chainSign(spectrum), spectrum.yUnits()) == cUpwards;
    return up ? 0.0 : std::numeric_limits<double>::max();
}

QPair<double, double> TYrexPeakPicking::peakNear(const TYrexSpectrum &spectrum, double x, double level,
                                                 TYrexDPLib::TYrexDPPeak *peak, bool free)
{
    const int n = spectrum.pointCount();
    const double rounded = roundHalfUp(x);
    if (!(rounded >= 0.0 && rounded <= n) || n == 0)
        return {rounded, 0.0};
    const int start = qMin(int(rounded), n - 1);
    const int sign = chainSign(spectrum);
    const bool up = sign == cPeaksUpwards || (sign != cPeaksDownwards && !isTransmittance(spectrum.yUnits()));
    const double *y = spectrum.values().constData();
    int found = start;
    if (!free || !peak) {
        const double top = 0.99 * spectrum.maxValue(0, 0);
        const double mirror = top + 1.01 * spectrum.minValue(0, 0);
        std::vector<double> work(y, y + n);
        if (!up) {
            for (double &value : work)
                value = mirror - value;
            level = mirror - level;
        }
        const int nearest =
            TYrexPeakDetector::nearestExtreme(work.data(), n, start, qMin(level, top), 1, TYrexPeakDetector::cUp);
        found = nearest > 0 && nearest < n - 1 ? nearest : start;
    }
    if (peak) {
        peak->position = found;
        peak->intensity = y[found];
        peak->positive = up;
    }
    return {double(found), y[found]};
}
