#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexDeleteIntegrals.h"
#include "TCmdYrexEditArrayedIntegrals.h"
#include "TCmdYrexEditIntegral.h"
#include "TCmdYrexEditIntegralsNormalization.h"
#include "TCmdYrexIntegralElementMove.h"
#include "TCmdYrexIntegralNormalize.h"
#include "TCmdYrexManualIntegration.h"
#include "TYrexRegionsAsMap.h"
#include "TYrexStepValues.h"
#include "TYrexUnits.h"
#include "YrexStepReading.h"
#include "YrexSteps.h"
#include "script/TStepCall.h"

#include <algorithm>

namespace {

/// The x unit that the first of the items shows.
int shownUnit(const TCanvasItemList &items)
{
    const T1DYrexPlot *plot = items.isEmpty() ? nullptr : yrexItem(items.first())->activeYrexPlot();
    return plot ? plot->xUnits() : int(cUnitArbitrary);
}

TCommand *integrate(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    const int xUnit = YrexStepReading::unit(call, "xUnits", shownUnit(items));
    const int areaUnit = YrexStepReading::unit(call, "areaUnits", cUnitArbitrary);
    auto *command = new TCmdYrexManualIntegration(items, 0, call.number("from"), call.number("to"), xUnit, areaUnit);
    YrexStepReading::withSpectra(call, items, command);
    if (command->missesAny())
        call.warn(TStepCall::tr("the range holds no data of some of the spectra, which get no integral"));
    return command;
}

/// An error where none of the items has an integral at that place of its list.
void checkIntegral(TStepCall &call, const QString &argument, int integral, const TCanvasItemList &items,
                   const TYrexSpectrumPlaces &places)
{
    const bool isThere = std::any_of(items.begin(), items.end(), [&](ICanvasItem *item) {
        const TYrexSpectrum *spectrum = places.spectrum(yrexItem(item));
        return spectrum && integral >= 0 && integral < spectrum->integrals().count();
    });
    if (!isThere)
        call.fail(argument, TStepCall::tr("there is no such integral"));
}

TCommand *deleteIntegrals(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    const TYrexSpectrumPlaces places = YrexStepReading::places(call, items);
    if (call.has("integrals")) {
        const QVector<int> integrals = call.integers("integrals");
        for (const int integral : integrals)
            checkIntegral(call, "integrals", integral, items, places);
        return new TCmdYrexDeleteIntegrals(items, integrals, places);
    }
    if (!call.has("from") && !call.has("to"))
        return new TCmdYrexDeleteIntegrals(items, places);
    const int unit = YrexStepReading::unit(call, "xUnits", shownUnit(items));
    return new TCmdYrexDeleteIntegrals(items, call.number("from"), call.number("to"), unit, places);
}

/// The integral that a call names, in the first of the items; null with an error.
const TYrexIntegrationRegion *integralOf(TStepCall &call, const TCanvasItemList &items,
                                         const TYrexSpectrumPlaces &places)
{
    const int place = call.integer("integral");
    const TYrexSpectrum *spectrum = items.isEmpty() ? nullptr : places.spectrum(yrexItem(items.first()));
    if (spectrum && place >= 0 && place < spectrum->integrals().count())
        return spectrum->integrals().at(place);
    call.fail("integral", TStepCall::tr("there is no such integral"));
    return nullptr;
}

TCommand *moveIntegralBound(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::oneItem(call);
    const TYrexSpectrumPlaces places = YrexStepReading::places(call, items);
    const TYrexIntegrationRegion *integral = integralOf(call, items, places);
    const QString bound = call.text("bound");
    if (bound != "first" && bound != "second")
        call.fail("bound", TStepCall::tr("expected \"first\" or \"second\""));
    const double x = call.number("x");
    const int unit = YrexStepReading::unit(call, "xUnits", shownUnit(items));
    const int edge = bound == "first" ? TCmdYrexEditIntegral::cFirstBound : TCmdYrexEditIntegral::cSecondBound;
    return integral ? new TCmdYrexEditIntegral(yrexItem(items.first()), integral->id, edge, x, unit, places) : nullptr;
}

TCommand *setIntegralBounds(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    const TYrexSpectrumPlaces places = YrexStepReading::places(call, items);
    const TYrexIntegrationRegion *integral = integralOf(call, items, places);
    if (!integral)
        return nullptr;
    TYrexIntegrationRegion region = *integral;
    region.boundA = call.number("fromPoint");
    region.boundB = call.number("toPoint");
    region.maximum = call.number("maximum", region.maximum);
    return new TCmdYrexEditIntegral(items, region, integral->id, places);
}

TCommand *setIntegrals(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::oneItem(call);
    const QMap<int, QVariant> told = call.byIndex("spectra");
    if (items.isEmpty())
        return nullptr;
    TCanvasYrexSpectrum *item = yrexItem(items.first());
    QMap<int, TYrexIntegrationRegions> regions;
    for (auto it = told.constBegin(); it != told.constEnd(); ++it) {
        const TYrexSpectrum *spectrum = item->stack().at(it.key());
        const QString problem = spectrum ? YrexRegionsAsMap::read(it.value(), *spectrum, regions[it.key()])
                                         : TStepCall::tr("there is no such spectrum");
        if (!problem.isEmpty())
            call.fail("spectra", problem);
    }
    return new TCmdYrexEditArrayedIntegrals(item, regions);
}

TCommand *setIntegralNorm(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    return new TCmdYrexEditIntegralsNormalization(items, call.number("norm"));
}

TCommand *normalizeIntegrals(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    const TYrexSpectrumPlaces places = YrexStepReading::places(call, items);
    const int reference = call.integer("integral");
    checkIntegral(call, "integral", reference, items, places);
    return new TCmdYrexIntegralNormalize(items, reference, call.number("norm", 0.0), places);
}

/// What users call the change from the plot's present band.
int elementOf(const TYrexIntegralBand &before, const TYrexIntegralBand &after)
{
    if (before.fCurveMaxHeight != after.fCurveMaxHeight)
        return TCmdYrexIntegralElementMove::cCurveHeight;
    return before.fCurveMargin != after.fCurveMargin ? TCmdYrexIntegralElementMove::cCurves
                                                     : TCmdYrexIntegralElementMove::cLabels;
}

bool readFraction(const QVariantMap &map, const char *name, double &fraction)
{
    return !map.contains(name) || YrexStepValues::readNumber(map.value(name), fraction);
}

TCommand *placeIntegrals(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    const QVariantList told = call.list("bands");
    if (told.size() != items.size())
        call.fail("bands", TStepCall::tr("expected one for each item"));
    QVector<TYrexIntegralBand> bands;
    int element = TCmdYrexIntegralElementMove::cLabels;
    for (int i = 0; i < items.size(); ++i) {
        T1DYrexPlot *plot = yrexItem(items.at(i))->activeYrexPlot();
        const TYrexIntegralBand before = plot ? TYrexIntegralBand::of(*plot) : TYrexIntegralBand();
        TYrexIntegralBand band = before;
        const QVariantMap map = told.value(i).toMap();
        if (told.value(i).userType() != QMetaType::QVariantMap || !readFraction(map, "labels", band.fRangeMargin) ||
            !readFraction(map, "curves", band.fCurveMargin) || !readFraction(map, "curveHeight", band.fCurveMaxHeight))
            call.fail("bands", TStepCall::tr("expected objects with labels, curves and curveHeight"));
        element = qMax(element, elementOf(before, band));
        bands.append(band);
    }
    return new TCmdYrexIntegralElementMove(items, element, bands);
}

} // namespace

QVector<TStepKind> yrexIntegralSteps()
{
    return {
        {"integrate", "items, {from, to, xUnits, areaUnits, spectra: [index]}",
         "Adds an integral; without spectra to the used ones.", integrate},
        {"deleteIntegrals", "items, {integrals: [place], from, to, xUnits, spectrum}",
         "Deletes integrals of a spectrum, and of its class where stacks are shown in groups: those at places of its "
         "list, those that touch a range, or all.",
         deleteIntegrals},
        {"moveIntegralBound", "item, {integral, bound, x, xUnits, spectrum}",
         "Moves the first or second bound of an integral.", moveIntegralBound},
        {"setIntegralBounds", "items, {integral, fromPoint, toPoint, maximum, spectrum}",
         "Gives an integral other bounds, in points from 0.", setIntegralBounds},
        {"setIntegrals", "item, {spectra: {index: {integrals: [{fromPoint, toPoint}], norm}}}",
         "Gives spectra of a stack other integrals, with bounds in points from 0.", setIntegrals},
        {"setIntegralNorm", "items, {norm}", "Sets the area that is shown as 1, in all spectra of the items.",
         setIntegralNorm},
        {"normalizeIntegrals", "items, {integral, norm, spectrum}",
         "Makes an integral the reference, and sets the area that is shown as 1.", normalizeIntegrals},
        {"placeIntegrals", "items, {bands: [{labels, curves, curveHeight}]}",
         "Places labels and curves of integrals, in fractions of the height of the area in which curves stand.",
         placeIntegrals},
    };
}
