#include "TYrexProcLabels.h"

#include "TYrexProcIds.h"

#include <QCoreApplication>

namespace {

constexpr char cContext[] = "TYrexProcParams";

// clang-format off
const char *const cLabels[] = {
    QT_TRANSLATE_NOOP("TYrexProcParams", "Derivative"), // 0
    QT_TRANSLATE_NOOP("TYrexProcParams", "Centered Differences"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Robust Noise"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Smoothing"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Exponential Smoothing"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Whittaker"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "CS Auto Baseline Correction"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "CS Auto Baseline Correction"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Multipoint Baseline Correction"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Nonlocal Means"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Noise Factor"), // 10
    QT_TRANSLATE_NOOP("TYrexProcParams", "Nonlocal Means Mode"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Blockwise"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Pixelwise"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Fast Pixelwise"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Modified Median Wiener"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Smoothing Factor"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "GSD Peak Picking"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Pre-GSD Resampling Lambda"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Pre-GSD Resampling Factor (even)"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Visualize Resampling Result"), // 20
    QT_TRANSLATE_NOOP("TYrexProcParams", "Standard Normal Variate"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Auto Baseline Correction"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Asymmetry"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Ratio"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Show Baseline"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Auto Peak Picking"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Peaks Direction"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Both Directions"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Upwards"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Downwards"), // 30
    QT_TRANSLATE_NOOP("TYrexProcParams", "Noise Factor"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Sensitivity"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Max. Number of Peaks"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Use Parabolic Interpolation"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Multipoint Baseline Correction"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Create or Edit MP Baseline"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Apply the current MP Baseline\nCorrection by checking\nthe processing action."),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Have the action unchecked\nto enable editing MP Baseline."),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Normalization"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Derivative Order"), // 40
    QT_TRANSLATE_NOOP("TYrexProcParams", "Robust Noise Approx. Lambda"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Savitzky–Golay"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "SG Window Width"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "SG Polynomial Degree"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Savitzky–Golay"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "SG Kernel Length"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "SG Polynomial Degree"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Invert Derivative Sign"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Derivative Method"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Intensity Units Conversion"), // 50
    QT_TRANSLATE_NOOP("TYrexProcParams", "Spectrum Y Units To:"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Transmittance"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "% Transmittance"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Absorbance"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Reflectance"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "K-M Absorption Coef."),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Max. Absorbance"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Min. Transmittance"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "[K-M model] Diffusion (scattering) Coef."),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Auto"), // 60
    QT_TRANSLATE_NOOP("TYrexProcParams", "Baseline by asymmetrically reweighted penalized least squares:\nS.-J. Baek et al., Analyst 140 (2015) 250, DOI 10.1039/c4an01061b"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Values between 0.1 and 12 are allowed"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Values from 0.000001 (no additional smoothing while resampling) and 1 are allowed"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Multiplicative Scatter Correction"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Full MSC"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "MSC - Offset"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "MSC - Amplification"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "First Integration Mode"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Invert Sign"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Largest Peak"), // 70
    QT_TRANSLATE_NOOP("TYrexProcParams", "Integral"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Vector Length"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Probabilistic Quot. Norm."),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Reference"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Mean Spectrum"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Median Spectrum"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "PLS AsLeastSquares"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "PLS IAsLeastSquares"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Baseline by the improved reweighting for Raman spectra:\nJ. Ye et al., Appl. Opt. 59 (2020) 10933, DOI 10.1364/AO.404863"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Algorithm"), // 80
    QT_TRANSLATE_NOOP("TYrexProcParams", "SNIP"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Smoothing Factor"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Baseline by Sensitive Nonlinear Iterative Peak clipping:\nC. G. Ryan et al., Nucl. Instrum. Methods B 34 (1988) 396, DOI 10.1016/0168-583X(88)90063-8"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "X Range From"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "X Range To"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Value"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Target Normalization Value"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Interval Bound in Original X Units"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Interval Bound in Original X Units"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Full X Range"), // 90
    QT_TRANSLATE_NOOP("TYrexProcParams", "Auto Asymmetry"),
    QT_TRANSLATE_NOOP("TYrexProcParams", "Auto Smoothing Factor"),
};
// clang-format on

static_assert(sizeof(cLabels) / sizeof(cLabels[0]) == cProcIdCount, "one text per id");

bool isKnown(int id)
{
    return id >= 0 && id < cProcIdCount;
}

} // namespace

QString TYrexProcLabels::label(int id)
{
    return isKnown(id) ? QCoreApplication::translate(cContext, cLabels[id]) : QString();
}

QString TYrexProcLabels::sourceLabel(int id)
{
    return isKnown(id) ? QString::fromUtf8(cLabels[id]) : QString();
}
