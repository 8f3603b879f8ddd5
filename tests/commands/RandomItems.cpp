#include "RandomItems.h"

#include "SpectrumBuilder.h"
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexIntegrationRegion.h"
#include "TYrexProcIds.h"
#include "TYrexUnits.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"

#include <cmath>

namespace {

constexpr int cFewestPoints = 20;
constexpr int cMostPoints = 200;
constexpr int cCsv = 37; // a file format with templates of parameters

QVector<double> bands(TDice &dice, int count)
{
    QVector<double> values(count);
    const double level = dice.real(-0.2, 2.0);
    const double place = dice.real(0.1, 0.9) * count;
    const double width = dice.real(1.0, 10.0);
    for (int i = 0; i < count; ++i)
        values[i] = level + std::exp(-std::pow((i - place) / width, 2)) + dice.real(0.0, 0.02);
    return values;
}

void addParams(TDice &dice, TYrexSpectrum &spectrum, int number)
{
    for (const int id :
         {TSpectrumParam::cTitle, TSpectrumParam::cXUnits, TSpectrumParam::cYUnits, TSpectrumParam::cOrigXUnits,
          TSpectrumParam::cOrigYUnits, TSpectrumParam::cSeriesValue, TSpectrumParam::cComment}) {
        if (!dice.oneIn(4))
            spectrum.params().append(TSpectrumParam(id, QString(), QString(), -1));
    }
    spectrum.setParamValue(TSpectrumParam::cTitle, 1, QString("S%1").arg(number));
    if (dice.oneIn(2))
        spectrum.setParamValue(TSpectrumParam::cXUnits, 1, yrexUnitDisplayName(spectrum.xUnits()));
    if (dice.oneIn(3))
        spectrum.setSpectrumClass(dice.oneIn(2) ? "acid" : "base");
    if (dice.oneIn(2))
        spectrum.setSeriesValue(dice.real(0.0, 100.0));
}

void addMarks(TDice &dice, TYrexSpectrum &spectrum)
{
    for (int i = dice.below(3); i > 0; --i) {
        auto *peak = new TYrexDPLib::TYrexDPPeak;
        peak->position = dice.real(0.0, spectrum.pointCount() - 1);
        peak->intensity = dice.real(0.0, 2.0);
        peak->flags = dice.below(2);
        peak->annotation = dice.oneIn(2) ? "seen" : "";
        spectrum.peaks().append(peak);
    }
    for (int i = dice.below(3); i > 0; --i) {
        TYrexIntegrationRegion region;
        region.id = QUuid::createUuidV5(QUuid(), QString::number(dice.seed()));
        region.boundA = dice.real(0.0, spectrum.pointCount() - 1);
        region.boundB = dice.real(0.0, spectrum.pointCount() - 1);
        spectrum.integrals().appendCalculated(region, spectrum, spectrum.yUnits());
    }
}

TYrexSpectrum *randomSpectrum(TDice &dice, int number, int xUnit, int yUnit, int points)
{
    TYrexSpectrum *spectrum = newSpectrum(bands(dice, points), dice.oneIn(2) ? 4000.0 : 400.0, 1000.0, xUnit, yUnit);
    addParams(dice, *spectrum, number);
    addMarks(dice, *spectrum);
    if (dice.oneIn(3)) {
        spectrum->setFileFormat(cCsv);
        spectrum->paramsBundle().setFileFormat(cCsv);
    }
    if (dice.oneIn(3)) {
        spectrum->procParams() = randomChain(dice);
        if (dice.oneIn(2))
            spectrum->process(0, 0, spectrum->procParams().actionCount() - 1);
    }
    return spectrum;
}

} // namespace

int randomXUnit(TDice &dice)
{
    return dice.among<int>({cUnitWavenumber, cUnitNanometers, cUnitMicrometers, cUnitRamanShift, cUnitArbitrary});
}

int randomYUnit(TDice &dice)
{
    return dice.among<int>({cUnitAbsorbance, cUnitTransmittance, cUnitPercentTransmittance, cUnitReflectance,
                            cUnitCounts, cUnitIntensity, cUnitKubelkaMunk, cUnitArbitrary});
}

TYrexProcParams randomChain(TDice &dice)
{
    TYrexProcParams params;
    QVariantList actions = params.actions();
    for (QVariant &action : actions) {
        QVariantMap map = action.toMap();
        map.insert(cKeyApply, dice.oneIn(5));
        action = map;
    }
    for (int i = dice.below(4); i > 0; --i)
        actions.swapItemsAt(dice.below(actions.size()), dice.below(actions.size()));
    if (dice.oneIn(5)) // a chain never lacks an action, but may have one twice
        actions.append(actions.at(dice.below(actions.size())));
    params.setActions(actions);
    return params;
}

TYrexSpectrumList randomSpectra(TDice &dice, int count)
{
    TYrexSpectrumList spectra;
    const int points = dice.from(cFewestPoints, cMostPoints);
    const int xUnit = randomXUnit(dice);
    const int yUnit = randomYUnit(dice);
    for (int i = 0; i < count; ++i)
        spectra.append(randomSpectrum(dice, i, xUnit, dice.oneIn(5) ? randomYUnit(dice) : yUnit, points));
    return spectra;
}

TCanvasYrexSpectrum *randomItem(TDice &dice)
{
    const int count = dice.from(1, 5);
    const TYrexSpectrumList spectra = randomSpectra(dice, count);
    auto *item = new TCanvasYrexSpectrum(spectra, nullptr, nullptr);
    if (count > 1) {
        item->stackedContext()->setDisplayMode(dice.among<int>(
            {activeOnlyMode, stackedMode, overlayMode, bitmapMode, hiddenLinesMode, queuedMode, groupedMode}));
        item->stackedContext()->refit();
    }
    for (int i = 1; i < count; ++i) {
        item->stack().setHidden(i, dice.oneIn(5));
        item->stack().setDeselected(i, dice.oneIn(4));
    }
    item->stack().setCurrent(dice.below(count));
    return item;
}

void fillDocument(quint32 seed, TDocument &document)
{
    TDice dice(seed);
    TPage *page = document.appendPage();
    for (int i = dice.oneIn(3) ? 2 : 1; i > 0; --i) {
        TCanvasYrexSpectrum *item = randomItem(dice);
        item->setRect(QRectF(100, 100, 1200, 900));
        page->insertItem(item);
    }
}
