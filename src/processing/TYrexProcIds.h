#pragma once

/// Ids of processing actions, of the options of enumerated keys and of display texts: one number space, persisted in
/// chains and templates. Only the ids that code names stand here; the texts of all of them are in TYrexProcLabels.
enum TYrexProcId : int {
    // actions
    cProcDerivative = 0,
    cProcSmoothing = 3,
    cProcGsdPeakPicking = 17,
    cProcStandardNormalVariate = 21,
    cProcAutoBaseline = 22,
    cProcAutoPeakPicking = 26,
    cProcMultipointBaseline = 35,
    cProcNormalization = 39,
    cProcUnitConversion = 50,
    cProcScatterCorrection = 64,
    cProcFirstIntegration = 68,
    cProcInvertSign = 69,
    cProcQuotientNormalization = 73,

    // actions of older versions, which no chain keeps
    cProcOldBaselineA = 6,
    cProcOldBaselineB = 7,
    cProcOldGsdLambda = 18,
    cProcOldGsdFactor = 19,
    cProcOldGsdShow = 20,

    // "derivativeapprox"
    cDerivativeCentered = 1,
    cDerivativeRobustNoise = 2,
    cDerivativeSavitzkyGolay = 42,
    // "smoothmethod"
    cSmoothExponential = 4,
    cSmoothNonlocalMeans = 9,
    cSmoothMedianWiener = 15,
    cSmoothSavitzkyGolay = 45,
    // "nlmmode"
    cNlmBlockwise = 12,
    cNlmPixelwise = 13,
    cNlmFastPixelwise = 14,
    // "yrexstdpppsign"
    cPeaksBoth = 28,
    cPeaksUpwards = 29,
    cPeaksDownwards = 30,
    cPeaksAuto = 60,
    // "yrexuctoyunits"
    cToTransmittance = 52,
    cToPercentTransmittance = 53,
    cToAbsorbance = 54,
    cToReflectance = 55,
    cToKubelkaMunk = 56,
    // "msccorrmode"
    cScatterFull = 65,
    cScatterOffset = 66,
    cScatterAmplification = 67,
    // "normalizationmode"
    cNormLargestPeak = 70,
    cNormIntegral = 71,
    cNormVectorLength = 72,
    // "normpqnreference"
    cQuotientMean = 75,
    cQuotientMedian = 76,
    // "alsbaselinealgorithm"
    cBaselineAsLs = 77,
    cBaselineIAsLs = 78,
    cBaselineSnip = 81
};

/// Number of ids that have a display text, 0 to cProcIdCount - 1.
constexpr int cProcIdCount = 93;

/// Keys of an action's map that more than one room reads.
constexpr char cKeyOpId[] = "yrexProcOpId";
constexpr char cKeyApply[] = "apply";
constexpr char cKeyMultipointBaseline[] = "mpbaseline";
constexpr char cKeyMultipointPreview[] = "mpbcpreview";
constexpr char cKeyMultipointSetup[] = "mpbcsetup";
constexpr char cKeyBaselineLambda[] = "alsbaselinelog10lambda";
constexpr char cKeyBaselineRatio[] = "alsbaselineratio";
constexpr char cKeyBaselineAlgorithm[] = "alsbaselinealgorithm";
constexpr char cKeyBaselineShowOnly[] = "alsbaselineshowonly";
constexpr char cKeyBaselineAutoLambda[] = "alsbaselineautolambda";
constexpr char cKeySmoothMethod[] = "smoothmethod";
constexpr char cKeySmoothParam[] = "smoothparam";
constexpr char cKeyNlmNoiseFactor[] = "nlmnoisefactor";
constexpr char cKeyNlmMode[] = "nlmmode";
constexpr char cKeySmoothWindow[] = "sgsmoothingkerlen";
constexpr char cKeySmoothDegree[] = "sgsmoothinggpolydeg";
constexpr char cKeyMaxAbsorbance[] = "yrexucmaxabs";
constexpr char cKeyToYUnits[] = "yrexuctoyunits";
constexpr char cKeyNormMode[] = "normalizationmode";
constexpr char cKeyNormRangeFrom[] = "normalizationrangefrom";

/// Flags of process().
enum TYrexProcessFlag : int {
    cProcessForced = 1,    // run even though nothing is applied: the data were just reset
    cProcessOnlyAccept = 2 // do not run; take the present parameters as applied
};
