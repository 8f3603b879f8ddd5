// When the actions of the module can be used, are checked and are seen.
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexActions.h"
#include "TYrexHighlightHandler.h"
#include "YrexActionTables.h"
#include "ui/TUpdateItem.h"

#include <algorithm>

namespace {

/// What the rules ask.
struct TYrexFacts
{
    const TYrexSpectrum *fSpectrum = nullptr; // of the active item with a plot of spectra
    const T1DYrexPlot *fPlot = nullptr;
    bool fIsMany = false;
    QString fNoSpectrum; // why nothing can be done; empty when there is a spectrum
};

TYrexFacts factsOf(const TUpdateItem &update, const QString &noSpectrum)
{
    TYrexFacts facts;
    facts.fNoSpectrum = noSpectrum;
    const TCanvasYrexSpectrum *item = yrexItem(update.item);
    const T1DYrexPlot *plot = item ? item->activeYrexPlot() : nullptr;
    if (!plot || plot->kind() != T1DYrexPlot::cSpectrumKind || !item->currentSpectrum())
        return facts;
    facts.fPlot = plot;
    facts.fSpectrum = item->currentSpectrum();
    facts.fIsMany = item->stack().visibleIndices().size() >= 2;
    facts.fNoSpectrum.clear();
    return facts;
}

bool isStackAction(int action)
{
    return action == cProcScatterCorrection || action == cProcQuotientNormalization;
}

void updateProcessing(TUpdateItem &update, const TYrexFacts &facts, const QString &notInChain, const QString &notMany)
{
    for (const TYrexActionCode &toggle : cProcessingToggles) {
        TActionState &state = update[toggle.fName];
        state.fWhyNot = facts.fNoSpectrum;
        if (!facts.fSpectrum)
            continue;
        const TYrexProcParams &params = facts.fSpectrum->procParams();
        const int index = params.indexOfAction(toggle.fCode);
        state.fIsChecked = index >= 0 && params.isApplied(index);
        if (index < 0)
            state.fWhyNot = notInChain;
        else if (isStackAction(toggle.fCode) && !facts.fIsMany && !state.fIsChecked)
            state.fWhyNot = notMany; // one that is on can be switched off
    }
}

/// The limits of regions are drawn in the unit of the axis, which stays while they are.
bool isRegionMode(const QUuid &mode)
{
    return mode == YrexModes::regionSumModeID || mode == YrexModes::regionPeakModeID;
}

void updateUnits(TUpdateItem &update, const TYrexFacts &facts)
{
    const bool canChoose = !isRegionMode(update.mode);
    const int x = facts.fPlot ? facts.fPlot->xUnits() : int(cUnitWavenumber);
    const int y = facts.fPlot ? facts.fPlot->yUnits() : int(cUnitTransmittance);
    const bool isHorzKnown = x != cUnitArbitrary && x != cUnitRamanShift;
    const bool isVertKnown = y != cUnitReflectance && y != cUnitCounts && y != cUnitKubelkaMunk &&
                             y != cUnitIntensity && y != cUnitArbitrary;
    for (const TYrexActionCode &unit : cHorizontalUnits)
        update[unit.fName] = {facts.fNoSpectrum, facts.fPlot && x == unit.fCode, isHorzKnown && canChoose};
    for (const TYrexActionCode &unit : cVerticalUnits)
        update[unit.fName] = {facts.fNoSpectrum, y == unit.fCode, isVertKnown && canChoose};
    update["yrexNextHorizontalUnits"] = {facts.fNoSpectrum, false, isHorzKnown};
    update["yrexSwapAbsorbance"] = {facts.fNoSpectrum, false, isVertKnown};
}

void updatePeaks(TUpdateItem &update, const TYrexFacts &facts, const QString &noPeaks)
{
    const bool hasPeaks = facts.fSpectrum && !facts.fSpectrum->peaks().isEmpty();
    const QString whyNot = facts.fSpectrum && !hasPeaks ? noPeaks : facts.fNoSpectrum;
    for (const char *name : {"yrexPeakDeleting", "yrexDeleteAllPeaksVisible", "yrexPeaksShow", "yrexPeaksTableShow"})
        update[name].fWhyNot = whyNot;
    update["yrexPeaksShow"].fIsChecked =
        hasPeaks && (facts.fPlot->peakProperties().flags & TYrexPeakPlotProperties::cShowLabels);
}

void updateIntegrals(TUpdateItem &update, const TYrexFacts &facts, const QString &noIntegrals, const QString &hidden)
{
    using TFlags = TYrexIntegralPlotProperties;
    const bool hasIntegrals = facts.fSpectrum && !facts.fSpectrum->integrals().isEmpty();
    const QString whyNot = facts.fSpectrum && !hasIntegrals ? noIntegrals : facts.fNoSpectrum;
    const quint32 flags = facts.fPlot ? facts.fPlot->integralProperties().flags : 0;
    const bool isShown = flags & TFlags::cShowIntegrals;
    const QString whyNotPart = whyNot.isEmpty() && !isShown ? hidden : whyNot;
    const auto all = [flags](quint32 mask) { return (flags & mask) == mask; };
    update["yrexIntegrateDeleting"].fWhyNot = whyNot;
    update["yrexIntegrateDeleteAll"].fWhyNot = whyNot;
    update["yrexIntegrateRecalc"].fWhyNot = whyNot;
    update["yrexIntegralsTableShow"].fWhyNot = whyNot;
    update["yrexIntegralsShow"] = {whyNot, isShown, true};
    update["yrexIntegralCurvesShow"] = {whyNotPart, all(TFlags::cShowIntegrals | TFlags::cShowCurve), true};
    update["yrexIntegralLabelsShow"] = {whyNotPart,
                                        all(TFlags::cShowIntegrals | TFlags::cShowLabels | TFlags::cShowSegment), true};
}

bool isHorizontalUnit(const QString &name)
{
    return name == QLatin1String("yrexNextHorizontalUnits") ||
           std::any_of(std::begin(cHorizontalUnits), std::end(cHorizontalUnits),
                       [&name](const TYrexActionCode &unit) { return name == QLatin1String(unit.fName); });
}

void updateModes(TUpdateItem &update)
{
    for (const TYrexModeAction &action : cModeActions)
        update[action.fName].fIsChecked = update.mode == action.fMode;
}

void updateHighlighted(TUpdateItem &update, const TYrexFacts &facts, int peaks, int integrals, const QStringList &needs)
{
    const auto whyNot = [&facts](bool can, const QString &need) {
        return can || !facts.fNoSpectrum.isEmpty() ? facts.fNoSpectrum : need;
    };
    update["yrexAnnotateCurPeak"].fWhyNot = whyNot(peaks == 1, needs.at(0));
    update["yrexDeleteCurPeak"].fWhyNot = whyNot(peaks > 0, needs.at(1));
    update["yrexEditIntegral"].fWhyNot = whyNot(integrals == 1, needs.at(2));
    update["yrexDeleteCurrentIntegral"].fWhyNot = whyNot(integrals > 0, needs.at(3));
}

} // namespace

void TYrexActions::update(TUpdateItem &update) const
{
    const TYrexFacts facts = factsOf(update, tr("There is no spectrum selected."));
    for (const char *name : {"yrexArithmeticAdd", "yrexFullProcessing", "yrexManualPeakPicking", "yrexPeakByPeak",
                             "yrexIntegrateManual", "yrexRegionSum", "yrexRegionPeak"})
        update[name].fWhyNot = facts.fNoSpectrum;
    for (const char *name : {"yrexAnnotateCurPeak", "yrexDeleteCurPeak"})
        update[name].fIsVisible = !isRegionMode(update.mode);
    updateUnits(update, facts);
    updatePeaks(update, facts, tr("The spectrum has no peaks."));
    updateIntegrals(update, facts, tr("The spectrum has no integrals."), tr("The integrals are hidden."));
    updateHighlighted(update, facts, fHighlights.peaks().size(), fHighlights.integrals().size(),
                      {tr("Needs one highlighted peak."), tr("Needs highlighted peaks."),
                       tr("Needs one highlighted integral."), tr("Needs highlighted integrals.")});
    updateModes(update);
    for (const TYrexDockAction &action : cDockActions)
        update[action.fName].fIsChecked = isDockVisible(fHost, action.fDock);
    updateProcessing(update, facts, tr("The chain of the spectrum has no such action."),
                     tr("At least two spectra of a stack have to be visible."));
    update["yrexBaselinePoints"].fWhyNot = facts.fNoSpectrum;
    if (!isDockVisible(fHost, cMultipointDock))
        return;
    // the spectrum shows a stage of its chain, which no command may take for the data
    const QStringList free{"yrexBaselinePoints", "yrexFullProcessing", "yrexPeaksTableShow", "yrexIntegralsTableShow"};
    for (auto it = fRuns.constBegin(); it != fRuns.constEnd(); ++it) {
        const bool isView = free.contains(it.key()) || isHorizontalUnit(it.key());
        if (!isView && update[it.key()].fWhyNot.isEmpty())
            update[it.key()].fWhyNot = tr("Baseline points are being edited.");
    }
}
