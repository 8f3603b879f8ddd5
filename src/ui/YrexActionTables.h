#pragma once

#include "TYrexProcIds.h"
#include "TYrexUnits.h"

/// An action of the mark-up and the code that it stands for.
struct TYrexActionCode
{
    const char *fName;
    int fCode;
};

/// Actions that take a processing action into the chain, or out of it.
constexpr TYrexActionCode cProcessingToggles[] = {
    {"yrexAutoPeakPicking", cProcAutoPeakPicking},
    {"yrexALSBaselineCorr", cProcAutoBaseline},
    {"yrexMultipointBaselineCorr", cProcMultipointBaseline},
    {"yrexNormalization", cProcNormalization},
    {"yrexStdNormalVariate", cProcStandardNormalVariate},
    {"yrexMSCCorr", cProcScatterCorrection},
    {"yrexPQNormalization", cProcQuotientNormalization},
    {"yrexSmoothing", cProcSmoothing},
    {"yrexDerivative", cProcDerivative},
};

constexpr TYrexActionCode cHorizontalUnits[] = {
    {"yrexSetSpecHUnitsToDefault", cUnitWavenumber},
    {"yrexSetSpecHUnitsToMicrometers", cUnitMicrometers},
    {"yrexSetSpecHUnitsToNanometers", cUnitNanometers},
};

constexpr TYrexActionCode cVerticalUnits[] = {
    {"yrexSetSpecVUnitsToDefault", cUnitTransmittance},
    {"yrexSetSpecVUnitsToTransmittancePc", cUnitPercentTransmittance},
    {"yrexSetSpecVUnitsToAbsorbance", cUnitAbsorbance},
};
