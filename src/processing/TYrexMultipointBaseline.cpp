#include "TYrexMultipointBaseline.h"

#include "TYrexMultipointSetup.h"
#include "TYrexProcIds.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"

namespace {

bool subtract(TYrexSpectrum &spectrum, const QVariantMap &action)
{
    const QVariantList list = action.value(QLatin1String(cKeyMultipointBaseline)).toList();
    QVector<double> baseline;
    baseline.reserve(list.size());
    for (const QVariant &value : list)
        baseline.append(value.toDouble());
    return yrexSubtractBaseline(spectrum.data(), spectrum.pointCount(), baseline, spectrum.yUnits());
}

} // namespace

bool yrexSubtractBaseline(double *y, int n, QVector<double> baseline, int yUnit)
{
    if (baseline.isEmpty() || baseline.size() != n)
        return false;
    if (n > 1) {
        baseline[0] = baseline[1];
        baseline[n - 1] = baseline[n - 2];
    }
    const bool inverted = yUnit == cUnitTransmittance || yUnit == cUnitPercentTransmittance;
    const double top = yUnit == cUnitTransmittance ? 1.0 : 100.0;
    for (int i = 0; i < n; ++i)
        y[i] += inverted ? top - baseline[i] : -baseline[i];
    return true;
}

void TYrexMultipointBaseline::applyMultipoint(TYrexSpectrum &spectrum, const QVariantMap &action, bool isPreview)
{
    if (!subtract(spectrum, action) || !isPreview)
        return;
    spectrum.zeroPreview();
    spectrum.setMultiPointBaseline(nullptr);
}

void TYrexMultipointBaseline::apply(TYrexSpectrum &spectrum, const QVariantMap &action)
{
    applyMultipoint(spectrum, action, false);
}

void TYrexMultipointBaseline::preview(TYrexSpectrum &spectrum, const QVariantMap &action)
{
    applyMultipoint(spectrum, action, true);
}
