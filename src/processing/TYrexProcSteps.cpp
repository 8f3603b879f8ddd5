#include "TYrexProcSteps.h"

#include "TYrexAutoBaseline.h"
#include "TYrexDerivative.h"
#include "TYrexMultipointBaseline.h"
#include "TYrexNormalization.h"
#include "TYrexPeakPicking.h"
#include "TYrexProcIds.h"
#include "TYrexProcLabels.h"
#include "TYrexScatter.h"
#include "TYrexSmoothing.h"
#include "TYrexSpectrum.h"
#include "TYrexUnitConversion.h"
#include "TYrexUnits.h"
#include "log/TLogger.h"
#include "params/TSpectrumParam.h"

#include <algorithm>

namespace {

void scale(TYrexSpectrum &spectrum, double factor)
{
    double *y = spectrum.data();
    std::for_each(y, y + spectrum.pointCount(), [factor](double &value) { value *= factor; });
}

void invertSign(TYrexSpectrum &spectrum, const QVariantMap &)
{
    scale(spectrum, -1.0);
}

void firstIntegration(TYrexSpectrum &spectrum, const QVariantMap &)
{
    TYrexProcSteps::integrateOnce(spectrum.data(), spectrum.pointCount());
}

constexpr TYrexProcStep cSteps[] = {
    {cProcDerivative, TYrexDerivative::derivative, nullptr, nullptr},
    {cProcStandardNormalVariate, TYrexScatter::snv, nullptr, nullptr},
    {cProcAutoBaseline, TYrexAutoBaseline::autoBaseline, nullptr, TYrexAutoBaseline::searchLambda},
    {cProcAutoPeakPicking, TYrexPeakPicking::autoPeakPicking, nullptr, nullptr},
    {cProcNormalization, TYrexNormalization::normalize, nullptr, nullptr},
    {cProcScatterCorrection, TYrexScatter::mscApply, nullptr, nullptr},
    {cProcMultipointBaseline, TYrexMultipointBaseline::apply, TYrexMultipointBaseline::preview, nullptr},
    {cProcSmoothing, TYrexSmoothing::smooth, nullptr, nullptr},
    {cProcUnitConversion, TYrexUnitConversion::convertUnits, nullptr, nullptr},
    {cProcFirstIntegration, firstIntegration, nullptr, nullptr},
    {cProcInvertSign, invertSign, nullptr, nullptr},
    {cProcQuotientNormalization, TYrexScatter::pqnApply, nullptr, nullptr},
};

} // namespace

const TYrexProcStep *TYrexProcSteps::step(int action)
{
    const auto found = std::find_if(std::begin(cSteps), std::end(cSteps),
                                    [action](const TYrexProcStep &step) { return step.fAction == action; });
    return found == std::end(cSteps) ? nullptr : found;
}

bool TYrexProcSteps::isStepBuilt(int action)
{
    return step(action) != nullptr;
}

void TYrexProcSteps::labelArbitrary(TYrexSpectrum &spectrum)
{
    spectrum.setParamValue(TSpectrumParam::cYUnits, 1, yrexUnitDisplayName(cUnitArbitrary));
    spectrum.setUnits(spectrum.xUnits(), cUnitArbitrary);
}

void TYrexProcSteps::logLeftOut(int action, const QString &reason)
{
    TLogger::printToLogger(QStringLiteral("YREX"),
                           QStringLiteral("%1 left out: %2").arg(TYrexProcLabels::sourceLabel(action), reason),
                           TLogger::cError);
}

void TYrexProcSteps::integrateOnce(double *y, int n)
{
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
        const double value = y[i];
        y[i] = sum;
        sum += value;
    }
}
