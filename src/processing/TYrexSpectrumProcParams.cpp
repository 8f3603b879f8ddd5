#include "TYrexSpectrumProcParams.h"

#include "TYrexProcSteps.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "params/TSpectrumParam.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <QElapsedTimer>
#include <algorithm>

namespace {

bool isIntensityUnit(int unit)
{
    switch (unit) {
    case cUnitTransmittance:
    case cUnitPercentTransmittance:
    case cUnitAbsorbance:
    case cUnitReflectance:
    case cUnitCounts:
    case cUnitKubelkaMunk:
    case cUnitIntensity:
    case cUnitArbitrary:
        return true;
    default:
        return false;
    }
}

} // namespace

TYrexSpectrumProcParams::TYrexSpectrumProcParams(TYrexSpectrum *spectrum)
    : fLastApplied(params()) // the same start, without asking the settings store again
    , fSpectrum(spectrum)
{
}

TYrexSpectrumProcParams &TYrexSpectrumProcParams::operator=(const TYrexProcParams &params)
{
    TYrexProcParams::operator=(params);
    return *this;
}

void TYrexSpectrumProcParams::store(TDataStream &stream) const
{
    write(stream);
    fLastApplied.write(stream);
    TDataStreamAdaptor later(stream);
    later.startStore();
    later.endStore();
}

void TYrexSpectrumProcParams::load(TDataStream &stream)
{
    read(stream);
    fLastApplied.read(stream);
    fLastApplied.shareActions(*this);
    TDataStreamAdaptor(stream).skipData(); // room for later versions
}

void TYrexSpectrumProcParams::process(int flags, int from, int to)
{
    if (!fSpectrum || fSpectrum->pointCount() <= 0 || fSpectrum->orgData().size() != fSpectrum->pointCount())
        return;
    const QVariantMap multipoint = defaultMap(cProcMultipointBaseline);
    const bool previewing = multipoint.contains(QLatin1String(cKeyMultipointPreview));
    const bool editing = multipoint.contains(QLatin1String(cKeyMultipointSetup));
    // what was applied before counts too: switching the last action off takes the data back to the original
    const bool needed =
        isAnyApplied() || fLastApplied.isAnyApplied() || previewing || editing || fSpectrum->isTouched();
    if ((!needed && !(flags & cProcessForced)) || (flags & cProcessOnlyAccept)) {
        fLastApplied = params();
        return;
    }
    if (from == 0)
        resetData();
    else if (fSpectrum->values().size() != fSpectrum->pointCount())
        return; // a section cannot go on from data that were cleared

    bool baselineRan = false;
    bool goOn = true;
    int index = 0;
    fRunTimes.resize(std::min(from, fRunTimes.size()));
    QElapsedTimer timer;
    while (index <= to && index < actionCount()) {
        timer.start();
        if (index >= from)
            goOn = runAction(index, baselineRan);
        if (index >= from && isApplied(index)) {
            fRunTimes.resize(index + 1);
            fRunTimes[index] = double(timer.nsecsElapsed()) * 1e-6;
        }
        if (!goOn)
            break;
        ++index;
    }
    if (!baselineRan)
        fSpectrum->freePreview();
    if (!previewing && index == actionCount())
        fLastApplied = params();

    for (int i = 0; i < fSpectrum->integrals().count(); ++i) {
        TYrexIntegrationRegion *region = fSpectrum->integrals().at(i);
        if (region->mode & (TYrexIntegrationRegion::cAutomatic | TYrexIntegrationRegion::cManual))
            TYrexIntegrationRegions::calculateArea(*fSpectrum, *region, fSpectrum->yUnits());
    }
}

void TYrexSpectrumProcParams::resetData()
{
    fFactorScores.clear();
    fSpectrum->copyOrgDataToData();
    fSpectrum->setTouched(false);
    const int unit = fSpectrum->origYUnits();
    fSpectrum->setUnits(fSpectrum->xUnits(), unit);
    if (!isIntensityUnit(unit))
        return; // such data keep their picked peaks too
    fSpectrum->setParamValue(TSpectrumParam::cYUnits, 1, yrexUnitDisplayName(unit));
    TYrexDPLib::deleteAutoPeaks(fSpectrum->peaks());
}

/// Runs one action of the chain; false when the walk stops behind it.
bool TYrexSpectrumProcParams::runAction(int index, bool &baselineRan)
{
    const QVariantMap map = action(index);
    const int id = actionId(index);
    if (id == cProcMultipointBaseline)
        return runMultipoint(map);
    const TYrexProcStep *step = TYrexProcSteps::step(id);
    if (!step || !isApplied(index))
        return true;
    if (id == cProcAutoBaseline) {
        baselineRan = true;
        return runBaseline(index);
    }
    step->fRun(*fSpectrum, map);
    return true;
}

/// The multipoint action matters even when it does not take part: while its dock is open, the spectrum shows the stage
/// at which the action stands.
bool TYrexSpectrumProcParams::runMultipoint(const QVariantMap &map)
{
    const TYrexProcStep *step = TYrexProcSteps::step(cProcMultipointBaseline);
    if (map.value(QLatin1String(cKeyApply)).toBool()) {
        step->fRun(*fSpectrum, map);
        return true;
    }
    const QVariantMap settings = defaultMap(cProcMultipointBaseline);
    if (settings.contains(QLatin1String(cKeyMultipointPreview))) {
        step->fPreview(*fSpectrum, map);
        return false;
    }
    return !settings.contains(QLatin1String(cKeyMultipointSetup));
}

bool TYrexSpectrumProcParams::runBaseline(int index)
{
    const TYrexProcStep *step = TYrexProcSteps::step(cProcAutoBaseline);
    QVariantMap map = action(index);
    const bool showOnly = map.value(QLatin1String(cKeyBaselineShowOnly)).toBool();
    if (showOnly && map.value(QLatin1String(cKeyBaselineAutoLambda)).toBool()) {
        // what the search finds stays in the chain, for the run that will subtract the baseline
        step->fSearch(*fSpectrum, map);
        QVariantMap defaults = defaultMap(cProcAutoBaseline);
        defaults.insert(QLatin1String(cKeyBaselineLambda), map.value(QLatin1String(cKeyBaselineLambda)));
        setDefaultMap(cProcAutoBaseline, defaults);
        setAction(index, map);
    }
    step->fRun(*fSpectrum, map);
    return !showOnly;
}
