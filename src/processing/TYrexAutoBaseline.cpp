#include "TYrexAutoBaseline.h"

#include "TYrexPeakPicking.h"
#include "TYrexProcIds.h"
#include "TYrexProcSteps.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "numerics/MatrixUtils.h"
#include "numerics/TReweightedSmoother.h"

#include <QVector>
#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr int cMaxIterations = 50;
constexpr int cKeptPoints = 1 << 16; // a larger work space is given back after the call
constexpr double cStartFactor = 5.0;

enum TOrientation { cNoBaseline, cPeaksUp, cPeaksDown };

TOrientation orientation(int yUnit)
{
    switch (yUnit) {
    case cUnitTransmittance:
    case cUnitPercentTransmittance:
        return cPeaksDown;
    case cUnitAbsorbance:
    case cUnitReflectance:
    case cUnitCounts:
    case cUnitIntensity:
    case cUnitArbitrary:
        return cPeaksUp;
    default:
        return cNoBaseline;
    }
}

bool isFinite(const QVector<double> &values)
{
    return std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}

/// The data with their peaks upwards: as they are, or their distance from `top`.
QVector<double> peaksUpwards(const QVector<double> &values, TOrientation kind, double top)
{
    QVector<double> work = values;
    if (kind == cPeaksDown)
        std::transform(work.begin(), work.end(), work.begin(), [top](double value) { return top - value; });
    return work;
}

/// False when the action has no known algorithm.
bool computeBaseline(const QVector<double> &work, QVector<double> &z, const QVariantMap &action)
{
    const double factor = action.value(QLatin1String(cKeyBaselineLambda)).toDouble();
    const double ratio = action.value(QLatin1String(cKeyBaselineRatio)).toDouble();
    const int n = work.size();
    switch (action.value(QLatin1String(cKeyBaselineAlgorithm)).toInt()) {
    case cBaselineAsLs:
        TYrexAutoBaseline::arpls(n, work.constData(), z.data(), std::pow(10.0, factor), ratio);
        return true;
    case cBaselineIAsLs:
        Utils::Matrix::iarplss(n, work.constData(), z.data(), std::pow(10.0, factor), ratio);
        return true;
    case cBaselineSnip:
        Utils::Matrix::snipBC(n, work.constData(), z.data(), factor);
        return true;
    default:
        return false;
    }
}

/// 1 within a peak's width to both sides of it. Widths outside the middle half of all are not trusted: such a peak
/// takes the mean of the middle half times n/3800, in whole numbers, so that in short spectra it marks its own point.
std::vector<unsigned char> footprints(const TYrexDPLib::TYrexDPPeakList &peaks, int n)
{
    constexpr int cPointsOfMeanWidth = 3800;
    QVector<float> widths;
    for (const TYrexDPLib::TYrexDPPeak *peak : peaks)
        widths.append(std::isfinite(peak->width) ? float(peak->width) : 0.0f);
    std::sort(widths.begin(), widths.end());
    const int low = int(0.25 * widths.size());
    const int high = int(0.75 * widths.size());
    double mean = 0.0;
    for (int i = low; i <= high; ++i)
        mean += double(widths.at(i));
    mean = mean / (high - low + 1) * (n / cPointsOfMeanWidth);

    std::vector<unsigned char> mask(size_t(n), 0);
    for (const TYrexDPLib::TYrexDPPeak *peak : peaks) {
        const bool trusted = peak->width > double(widths.at(low)) && peak->width < double(widths.at(high));
        const double width = trusted ? peak->width : mean;
        if (!(peak->position >= 0.0 && peak->position < n && std::fabs(width) <= n))
            continue; // cannot lie within the data; such numbers may not fit an int either
        const int from = int(peak->position) - int(width);
        const int to = int(width) + 1 + int(peak->position);
        if (from >= 0 && to <= n && from < to)
            std::fill(mask.begin() + from, mask.begin() + to, static_cast<unsigned char>(1));
    }
    return mask;
}

/// Adds what stands out beside the peaks that are there, be they the same ones.
void pickPeaks(TYrexSpectrum &spectrum)
{
    TYrexDPLib::TYrexDPPeakList known;
    known.swap(spectrum.peaks());
    TYrexPeakPicking::autoPeakPicking(spectrum, {{QString::fromLatin1(cKeyApply), false},
                                                 {QStringLiteral("yrexstdppsensitivity"), 0.8},
                                                 {QStringLiteral("yrexstdppmaxnbrpeaks"), 2000},
                                                 {QStringLiteral("yrexstdpppsign"), int(cPeaksAuto)}});
    spectrum.peaks() = known + spectrum.peaks();
}

/// 1 / (1 + exp((d - shift) * steepness)), in three loops of which the first and the last run on several points at
/// once.
void logisticWeights(double shift, double steepness, const double *d, double *w, int count)
{
    // beyond these the weight is 1 and 0 to the last bit
    constexpr double cFullWeight = -37.0;
    constexpr double cNoWeight = 710.0;
    for (int i = 0; i < count; ++i)
        w[i] = (d[i] - shift) * steepness;
    for (int i = 0; i < count; ++i)
        w[i] = w[i] < cFullWeight ? 0.0 : w[i] >= cNoWeight ? std::numeric_limits<double>::infinity() : std::exp(w[i]);
    for (int i = 0; i < count; ++i)
        w[i] = 1.0 / (1.0 + w[i]);
}

/// The limit of the logistic for an infinite steepness.
void stepWeights(double shift, const double *d, double *w, int count)
{
    for (int i = 0; i < count; ++i)
        w[i] = d[i] < shift ? 1.0 : d[i] > shift ? 0.0 : 0.5;
}

} // namespace

void TYrexAutoBaseline::autoBaseline(TYrexSpectrum &spectrum, const QVariantMap &action)
{
    const TOrientation kind = orientation(spectrum.yUnits());
    const double top = spectrum.maxValue(0, 0);
    const int n = spectrum.values().size();
    QVector<double> z(n);
    const bool computed = kind != cNoBaseline && isFinite(spectrum.values()) &&
                          computeBaseline(peaksUpwards(spectrum.values(), kind, top), z, action);
    const bool showOnly = action.value(QLatin1String(cKeyBaselineShowOnly)).toBool();
    if (!computed || !showOnly)
        spectrum.freePreview();
    if (!computed) {
        TYrexProcSteps::logLeftOut(cProcAutoBaseline,
                                   kind == cNoBaseline            ? QStringLiteral("there is none in this y unit")
                                   : !isFinite(spectrum.values()) ? QStringLiteral("it needs finite values")
                                                                  : QStringLiteral("there is no such algorithm"));
        return;
    }
    if (showOnly) {
        spectrum.allocPreview(n);
        for (int i = 0; i < n; ++i)
            spectrum.preview()[i] = kind == cPeaksDown ? top - z.at(i) : z.at(i);
        return;
    }
    double *y = spectrum.data();
    const double fullScale = spectrum.yUnits() == cUnitTransmittance ? 1.0 : 100.0;
    for (int i = 0; i < n; ++i)
        y[i] += kind == cPeaksDown ? fullScale - top + z.at(i) : -z.at(i);
}

void TYrexAutoBaseline::searchLambda(TYrexSpectrum &spectrum, QVariantMap &action)
{
    if (!action.value(QLatin1String(cKeyBaselineAutoLambda)).toBool())
        return;
    const QString key = QString::fromLatin1(cKeyBaselineLambda);
    std::vector<Utils::Matrix::TFactorScore> scores;
    spectrum.procParams().setFactorScores(scores);
    pickPeaks(spectrum);
    if (spectrum.peaks().isEmpty()) {
        action.insert(key, cStartFactor);
        return;
    }
    const int n = spectrum.values().size();
    const std::vector<unsigned char> mask = footprints(spectrum.peaks(), n);
    TYrexDPLib::deleteAllPeaks(spectrum.peaks());

    double factor = cStartFactor;
    const TOrientation kind = orientation(spectrum.yUnits());
    if (kind != cNoBaseline) {
        const QVector<double> work = peaksUpwards(spectrum.values(), kind, spectrum.maxValue(0, 0));
        const double ratio = action.value(QLatin1String(cKeyBaselineRatio)).toDouble();
        switch (action.value(QLatin1String(cKeyBaselineAlgorithm)).toInt()) {
        case cBaselineAsLs:
        case cBaselineIAsLs:
            Utils::Matrix::iarplssGA(n, mask.data(), work.constData(), factor, ratio, &scores);
            break;
        case cBaselineSnip:
            Utils::Matrix::snipBCGA(n, mask.data(), work.constData(), factor, &scores);
            break;
        default:
            break;
        }
    }
    spectrum.procParams().setFactorScores(scores);
    action.insert(key, raisedFactor(factor, kind == cPeaksDown));
}

double TYrexAutoBaseline::raisedFactor(double factor, bool inverted)
{
    const double multiplier = inverted ? 2.0 : 1.0;
    if (factor < 2.0)
        return factor * 3.0 * multiplier;
    return factor < 3.0 ? factor * 2.0 * multiplier : factor;
}

void TYrexAutoBaseline::arpls(int n, const double *y, double *z, double lambda, double ratio)
{
    if (n < 3 || !(lambda > 0.0) || !std::all_of(y, y + n, [](double value) { return std::isfinite(value); })) {
        std::copy_n(y, std::max(0, n), z);
        return;
    }
    // the spectra of a stack come one after the other: each thread keeps the work space of the last one
    static thread_local Utils::Matrix::TReweightedSmoother smoother;
    smoother.start(n, y);
    for (int k = 0; k < cMaxIterations; ++k) {
        smoother.smooth(lambda);
        const auto below = smoother.below();
        const double shift = 2.0 * below.fDeviation - below.fMean;
        const double steepness = 2.0 / below.fDeviation; // infinite for less than two negative residuals
        const double change = smoother.reweight([shift, steepness](const double *d, double *w, int count) {
            if (std::isinf(steepness))
                stepWeights(shift, d, w, count);
            else
                logisticWeights(shift, steepness, d, w, count);
        });
        if (change < ratio || !smoother.canAccept())
            break;
        smoother.accept();
    }
    smoother.write(z);
    smoother.trim(cKeptPoints);
}
