#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexDeletePeaks.h"
#include "TCmdYrexEditPeak.h"
#include "TCmdYrexManualPeakPicking.h"
#include "TCmdYrexPeakByPeak.h"
#include "TCmdYrexStandardPeaks.h"
#include "YrexStepReading.h"
#include "YrexSteps.h"
#include "script/TStepCall.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double cFarthestPoint = 1e9; // places are whole numbers at times

TCommand *deletePeaks(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    const TYrexSpectrumPlaces places = YrexStepReading::places(call, items);
    const QVector<QVector<int>> peaks = YrexStepReading::listsByItem(call, "peaks", items.size());
    QSet<QUuid> ids;
    for (int i = 0; i < items.size(); ++i) {
        const TYrexSpectrum *spectrum = places.spectrum(yrexItem(items.at(i)));
        for (const int peak : peaks.at(i)) {
            if (spectrum && peak >= 0 && peak < spectrum->peaks().size())
                ids.insert(spectrum->peaks().at(peak)->id);
            else
                call.fail("peaks", TStepCall::tr("there is no such peak"));
        }
    }
    return new TCmdYrexDeletePeaks(items, ids, places);
}

TCommand *annotatePeak(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    const TYrexSpectrumPlaces places = YrexStepReading::places(call, items);
    const QString text = YrexStepReading::text(call, "annotation");
    const int peak = call.integer("peak");
    const bool isThere = std::any_of(items.begin(), items.end(), [&](ICanvasItem *item) {
        const TYrexSpectrum *spectrum = places.spectrum(yrexItem(item));
        return spectrum && peak >= 0 && peak < spectrum->peaks().size();
    });
    if (!isThere)
        call.fail("peak", TStepCall::tr("there is no such peak"));
    return new TCmdYrexEditPeak(peak, TCmdYrexEditPeak::cAnnotation, text, items, places);
}

/// Picks in a range, or only deletes there.
TCommand *pick(TStepCall &call, bool deleteOnly)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    const double cNoLevel = std::numeric_limits<double>::quiet_NaN();
    const double level = deleteOnly ? cNoLevel : call.number("threshold", cNoLevel);
    const int unit = YrexStepReading::unit(call, "xUnits", TCmdYrexManualPeakPicking::cShownUnit);
    return new TCmdYrexManualPeakPicking(items, call.number("from"), call.number("to"), unit, deleteOnly, level);
}

TCommand *addPeak(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::oneItem(call);
    TYrexDPLib::TYrexDPPeak peak;
    peak.position = call.number("point");
    peak.width = call.number("width", peak.width);
    peak.positive = call.flag("upwards", peak.positive);
    peak.annotation = YrexStepReading::text(call, "annotation");
    const TYrexSpectrumPlaces places = YrexStepReading::places(call, items);
    const TYrexSpectrum *spectrum = items.isEmpty() ? nullptr : places.spectrum(yrexItem(items.first()));
    if (!(std::abs(peak.position) <= cFarthestPoint))
        call.fail("point", TStepCall::tr("expected the number of a point"));
    else if (spectrum)
        peak.intensity = spectrum->values().value(int(peak.position));
    peak.intensity = call.number("height", peak.intensity);
    return new TCmdYrexPeakByPeak(items, peak, TCmdYrexPeakByPeak::cAdd, false, places);
}

} // namespace

QVector<TStepKind> yrexPeakSteps()
{
    return {
        {"deletePeaks", "items, {peaks: [place], spectrum}",
         "Deletes peaks of a spectrum, by their places in its list.", deletePeaks},
        {"annotatePeak", "items, {peak, annotation, spectrum}", "Gives a peak another annotation.", annotatePeak},
        {"pickPeaks", "items, {from, to, xUnits, threshold}",
         "Picks the peaks of a range anew in all spectra of the items, above a threshold in y units.",
         [](TStepCall &call) { return pick(call, false); }},
        {"deletePeaksBetween", "items, {from, to, xUnits}", "Deletes the peaks of a range in all spectra of the items.",
         [](TStepCall &call) { return pick(call, true); }},
        {"pickStandardPeaks", "items, {spectrum}", "Picks the peaks of whole spectra that have none.",
         [](TStepCall &call) {
             const TCanvasItemList items = YrexStepReading::items(call);
             return new TCmdYrexStandardPeaks(items, YrexStepReading::places(call, items));
         }},
        {"addPeak", "item, {point, height, width, upwards, annotation, spectrum}",
         "Adds a peak at a point of a spectrum, counted from 0.", addPeak},
    };
}
