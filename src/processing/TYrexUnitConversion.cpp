#include "TYrexUnitConversion.h"

#include "TYrexProcIds.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "params/TSpectrumParam.h"

#include <algorithm>
#include <cmath>

namespace {

/// y := convert(y), kept where `isKept` says so and replaced by the limit elsewhere, NaN included.
template <typename TConvert, typename TKept>
void convertEach(double *y, int n, double limit, TConvert convert, TKept isKept)
{
    std::transform(y, y + n, y, [=](double value) {
        const double converted = convert(value);
        return isKept(converted, limit) ? converted : limit;
    });
}

const auto cAbove = [](double value, double limit) { return value > limit; };
const auto cBelow = [](double value, double limit) { return value < limit; };

bool toTransmittance(double *y, int n, int source, double min)
{
    if (source == cUnitPercentTransmittance)
        convertEach(
            y, n, min, [](double p) { return p * 0.01; }, cAbove);
    else if (source == cUnitAbsorbance)
        convertEach(
            y, n, min, [](double a) { return std::pow(10.0, -a); }, cAbove);
    return source == cUnitTransmittance || source == cUnitPercentTransmittance || source == cUnitAbsorbance;
}

bool toPercentTransmittance(double *y, int n, int source, double min)
{
    if (source == cUnitTransmittance)
        convertEach(
            y, n, 100.0 * min, [](double t) { return t * 100.0; }, cAbove);
    else if (source == cUnitAbsorbance)
        convertEach(
            y, n, 100.0 * min, [](double a) { return std::pow(10.0, -a) * 100.0; }, cAbove);
    return source == cUnitTransmittance || source == cUnitPercentTransmittance || source == cUnitAbsorbance;
}

bool toAbsorbance(double *y, int n, int source, double max)
{
    if (source == cUnitTransmittance)
        convertEach(
            y, n, max, [](double t) { return -std::log10(t); }, cBelow);
    else if (source == cUnitPercentTransmittance)
        convertEach(
            y, n, max, [](double p) { return 2.0 - std::log10(p); }, cBelow);
    return source == cUnitTransmittance || source == cUnitPercentTransmittance || source == cUnitAbsorbance;
}

} // namespace

bool yrexConvertIntensity(double *y, int n, int sourceUnit, int target, double maxAbsorbance)
{
    if (sourceUnit == cUnitCounts || sourceUnit == cUnitIntensity || sourceUnit == cUnitArbitrary)
        return false;
    const double minTransmittance = std::pow(10.0, -maxAbsorbance);
    switch (target) {
    case cToTransmittance:
        return toTransmittance(y, n, sourceUnit, minTransmittance);
    case cToPercentTransmittance:
        return toPercentTransmittance(y, n, sourceUnit, minTransmittance);
    case cToAbsorbance:
        return toAbsorbance(y, n, sourceUnit, maxAbsorbance);
    case cToReflectance:
    case cToKubelkaMunk:
        return true;
    default:
        return false;
    }
}

int yrexTargetUnit(int target)
{
    switch (target) {
    case cToTransmittance:
        return cUnitTransmittance;
    case cToPercentTransmittance:
        return cUnitPercentTransmittance;
    case cToAbsorbance:
        return cUnitAbsorbance;
    case cToReflectance:
        return cUnitReflectance;
    case cToKubelkaMunk:
        return cUnitKubelkaMunk;
    default:
        return -1;
    }
}

void TYrexUnitConversion::convertUnits(TYrexSpectrum &spectrum, const QVariantMap &action)
{
    const int target = action.value(QLatin1String(cKeyToYUnits)).toInt();
    const double maxAbsorbance = action.value(QLatin1String(cKeyMaxAbsorbance)).toDouble();
    if (!yrexConvertIntensity(spectrum.data(), spectrum.pointCount(), spectrum.origYUnits(), target, maxAbsorbance))
        return;
    const int unit = yrexTargetUnit(target);
    spectrum.setParamValue(TSpectrumParam::cYUnits, 1, yrexUnitDisplayName(unit));
    spectrum.setUnits(spectrum.xUnits(), unit);
}
