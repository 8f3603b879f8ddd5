#pragma once

#include "TYrexProcIds.h"
#include "TYrexUnits.h"
#include "YrexModeIds.h"

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

/// An action that enters a mouse mode, and leaves it when it is on.
struct TYrexModeAction
{
    const char *fName;
    QUuid fMode;
};

constexpr TYrexModeAction cModeActions[] = {
    {"yrexIntegrateManual", YrexModes::integrateModeID},
    {"yrexIntegrateDeleting", YrexModes::deleteIntegralsModeID},
    {"yrexManualPeakPicking", YrexModes::manualPeakPickingModeID},
    {"yrexPeakByPeak", YrexModes::peakByPeakModeID},
    {"yrexPeakDeleting", YrexModes::deletePeaksModeID},
    {"yrexRegionSum", YrexModes::regionSumModeID},
    {"yrexRegionPeak", YrexModes::regionPeakModeID},
};

/// An action that shows a dock, or hides it.
struct TYrexDockAction
{
    const char *fName;
    const char *fDock;
};

constexpr TYrexDockAction cDockActions[] = {
    {"yrexIntegralsTableShow", "yrexIntegralsTable"},
    {"yrexPeaksTableShow", "yrexPeaksTable"},
    {"yrexBaselinePoints", "yrexMultipointBCWidget"},
};

constexpr char cProcessingDock[] = "yrexProcessingWidget";
constexpr char cRecentProcessingKey[] = "Zarnu/Recent/Processing";
constexpr char cIntegralsDock[] = "yrexIntegralsTable";
constexpr char cPeaksDock[] = "yrexPeaksTable";
constexpr char cParametersDock[] = "parametersTable";
constexpr char cMultipointDock[] = "yrexMultipointBCWidget";
