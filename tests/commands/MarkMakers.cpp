#include "MakerValues.h"
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexDeleteIntegrals.h"
#include "TCmdYrexDeletePeaks.h"
#include "TCmdYrexEditArrayedIntegrals.h"
#include "TCmdYrexEditIntegral.h"
#include "TCmdYrexEditIntegrals.h"
#include "TCmdYrexEditIntegralsNormalization.h"
#include "TCmdYrexEditOneParam.h"
#include "TCmdYrexEditParameterTemplates.h"
#include "TCmdYrexEditParameters.h"
#include "TCmdYrexEditPeak.h"
#include "TCmdYrexIntegralCurveMove.h"
#include "TCmdYrexIntegralElementMove.h"
#include "TCmdYrexIntegralNormalize.h"
#include "TCmdYrexManualIntegration.h"
#include "TCmdYrexManualPeakPicking.h"
#include "TCmdYrexPeakByPeak.h"
#include "TCommandMakers.h"
#include "TYrexParamsParsers.h"
#include "TYrexUnits.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"

#include <QImage>
#include <QPainter>
#include <limits>

namespace {

using TItems = const TCanvasItemList &;

TYrexSpectrum &currentOf(TItems items)
{
    return *firstOf(items).currentSpectrum();
}

double anyPoint(TDice &dice, TItems items)
{
    return dice.real(-5.0, currentOf(items).pointCount() + 5.0);
}

QRectF anyBand(TDice &dice, TItems items)
{
    const TRange range = anyRange(dice, items);
    const QPointF from(range.a, dice.real(-1.0, 1.0));
    const QPointF to(range.b, dice.real(0.0, 3.0));
    return dice.oneIn(2) ? QRectF(from, to) : QRectF(to, from);
}

int shownUnit(TItems items)
{
    return firstOf(items).activeYrexPlot()->xUnits();
}

TCommand *anyPeakDeletion(TDice &dice, TItems items)
{
    QSet<QUuid> ids;
    for (const TYrexDPLib::TYrexDPPeak *peak : currentOf(items).peaks()) {
        if (dice.oneIn(2))
            ids.insert(peak->id);
    }
    return new TCmdYrexDeletePeaks(items, ids);
}

TCommand *anyPeakByPeak(TDice &dice, TItems items)
{
    TYrexDPLib::TYrexDPPeak peak;
    peak.position = anyPoint(dice, items);
    peak.intensity = dice.real(0.0, 2.0);
    const TYrexDPLib::TYrexDPPeakList &peaks = currentOf(items).peaks();
    const bool deletes = dice.oneIn(2);
    if (deletes && peaks.count() > 0)
        peak.position = peaks.at(dice.below(peaks.count()))->position;
    return new TCmdYrexPeakByPeak(items, peak, deletes ? 1 : 0, dice.oneIn(2));
}

TCommand *anyPeakEdit(TDice &dice, TItems items)
{
    return new TCmdYrexEditPeak(dice.from(-1, 2), 0, QString("P%1").arg(dice.below(4)), items);
}

TCommand *anyPicking(TDice &dice, TItems items)
{
    const double level = dice.oneIn(2) ? std::numeric_limits<double>::quiet_NaN() : dice.real(-0.5, 2.0);
    return new TCmdYrexManualPeakPicking(items, anyBand(dice, items), dice.oneIn(3), level);
}

TCommand *anyIntegration(TDice &dice, TItems items)
{
    const TRange range = anyRange(dice, items);
    const int yUnit = dice.among<int>({cUnitAbsorbance, cUnitTransmittance, cUnitArbitrary});
    return new TCmdYrexManualIntegration(items, 0, range.a, range.b, shownUnit(items), yUnit);
}

QUuid anyRegion(TDice &dice, TItems items)
{
    const TYrexIntegrationRegions &regions = currentOf(items).integrals();
    return regions.count() == 0 ? QUuid() : regions.at(dice.below(regions.count()))->id;
}

TCommand *anyBoundEdit(TDice &dice, TItems items)
{
    const QUuid id = anyRegion(dice, items);
    const int edge = dice.oneIn(2) ? TCmdYrexEditIntegral::cFirstBound : TCmdYrexEditIntegral::cSecondBound;
    return new TCmdYrexEditIntegral(&firstOf(items), id, edge, anyRange(dice, items).a, shownUnit(items));
}

TYrexIntegrationRegion newRegion(TDice &dice, TItems items)
{
    TYrexIntegrationRegion region(TYrexIntegrationRegion::cManual);
    region.id = QUuid::createUuidV5(QUuid(), QString::number(dice.seed()));
    region.boundA = anyPoint(dice, items);
    region.boundB = anyPoint(dice, items);
    return region;
}

TCommand *anyRegionEdit(TDice &dice, TItems items)
{
    const QUuid id = anyRegion(dice, items);
    return new TCmdYrexEditIntegral(items, newRegion(dice, items), id);
}

TYrexIntegrationRegions anyRegions(TDice &dice, TItems items)
{
    TYrexIntegrationRegions regions;
    for (int i = dice.below(4); i > 0; --i)
        regions.append(newRegion(dice, items));
    regions.setNormValue(dice.real(0.5, 3.0));
    return regions;
}

TCommand *anyArrayedIntegrals(TDice &dice, TItems items)
{
    QMap<int, TYrexIntegrationRegions> regions;
    for (const int index : dice.some(countOf(items)))
        regions.insert(index, anyRegions(dice, items));
    return new TCmdYrexEditArrayedIntegrals(&firstOf(items), regions);
}

TCommand *anyIntegralDeletion(TDice &dice, TItems items)
{
    switch (dice.below(3)) {
    case 0:
        return new TCmdYrexDeleteIntegrals(items);
    case 1:
        return new TCmdYrexDeleteIntegrals(items, dice.some(3));
    default:
        return new TCmdYrexDeleteIntegrals(items, anyBand(dice, items), shownUnit(items));
    }
}

/// Curves are dragged where they were seen.
void drawFirst(TItems items)
{
    QImage image(120, 90, QImage::Format_ARGB32);
    QPainter painter(&image);
    firstOf(items).activeYrexPlot()->draw(painter, QRectF(0, 0, 1200, 900));
}

TCommand *anyCurveMove(TDice &dice, TItems items)
{
    drawFirst(items);
    const QRectF band(10.0, dice.real(50.0, 300.0), 100.0, dice.real(20.0, 400.0));
    return new TCmdYrexIntegralCurveMove(items, dice.oneIn(2), dice.real(-150.0, 150.0), band);
}

TCommand *anyElementMove(TDice &dice, TItems items)
{
    drawFirst(items);
    return new TCmdYrexIntegralElementMove(items, dice.below(3), dice.real(-150.0, 150.0));
}

int anyParam(TDice &dice)
{
    return dice.among<int>({TSpectrumParam::cTitle, TSpectrumParam::cClass, TSpectrumParam::cComment,
                            TSpectrumParam::cXUnits, TSpectrumParam::cYUnits, TSpectrumParam::cOrigXUnits,
                            TSpectrumParam::cOrigYUnits, TSpectrumParam::cSeriesValue, TSpectrumParam::cOperator});
}

QString anyText(TDice &dice)
{
    return dice.among<QString>(
        {"Absorbance", "Transmittance", "Nanometers", "Wavenumbers", "12.5", "acid", "nothing of all this", QString()});
}

TCommand *anyOneParam(TDice &dice, TItems items)
{
    const int id = anyParam(dice);
    const QString text = anyText(dice);
    return dice.oneIn(3) ? new TCmdYrexEditOneParam(items, id, text, anyIndex(dice, items))
                         : new TCmdYrexEditOneParam(items, id, text, dice.oneIn(2), dice.oneIn(2));
}

TCommand *anyParameters(TDice &dice, TItems items)
{
    QMap<int, QString> values;
    for (int i = dice.from(1, 4); i > 0; --i)
        values.insert(anyParam(dice), anyText(dice));
    return new TCmdYrexEditParameters(items, values);
}

TCommand *anyTemplates(TDice &dice, TItems items)
{
    const TParamsParser *parser = yrexParamsParsers().value(currentOf(items).fileFormat());
    if (!parser)
        return nullptr;
    TSpectrumParamsTemplate templates = parser->templates();
    templates.set(TSpectrumParam(anyParam(dice), QString("\"%1\"").arg(anyText(dice)), "datafile", -1));
    return new TCmdYrexEditParameterTemplates(items, templates);
}

} // namespace

QVector<TCommandMaker> markMakers()
{
    return {
        {"peaks deleted", anyPeakDeletion},
        {"peak by peak", anyPeakByPeak},
        {"peak edited", anyPeakEdit},
        {"peaks picked", anyPicking},
        {"integral", anyIntegration},
        {"bound", anyBoundEdit},
        {"region", anyRegionEdit},
        {"integrals deleted", anyIntegralDeletion},
        {"integrals",
         [](TDice &d, TItems items) { return new TCmdYrexEditIntegrals(&firstOf(items), anyRegions(d, items)); }},
        {"arrayed integrals", anyArrayedIntegrals},
        {"norm value",
         [](TDice &dice, TItems items) { return new TCmdYrexEditIntegralsNormalization(items, dice.real(0.5, 5.0)); }},
        {"reference",
         [](TDice &dice, TItems items) {
             return new TCmdYrexIntegralNormalize(items, dice.from(-1, 3), dice.oneIn(3) ? 0.0 : dice.real(0.5, 5.0));
         }},
        {"curves", anyCurveMove},
        {"element", anyElementMove},
        {"parameter", anyOneParam},
        {"parameters", anyParameters},
        {"templates", anyTemplates},
    };
}
