#include "TCanvasYrexSpectrum.h"
#include "TCmdEditYrexArrayedData.h"
#include "TCmdYrexArrayedFromSelection.h"
#include "TCmdYrexInsert.h"
#include "TCmdYrexReplace.h"
#include "TCmdYrexSetClasses.h"
#include "TCmdZarnuInsertGroupedSpectrum.h"
#include "YrexGathering.h"
#include "YrexSpectrumBytes.h"
#include "YrexStepArguments.h"
#include "YrexStepWords.h"
#include "YrexSteps.h"
#include "plot/T1DStackedPlotProperties.h"
#include "script/TStepCall.h"

namespace {

/// New spectra: copies of all that the items "sources" hold, or "data".
TYrexSpectrumList givenSpectra(TStepCall &call)
{
    TYrexSpectrumList spectra;
    if (!call.has("sources")) {
        spectra = YrexSpectrumBytes::load(call.bytes("data"));
        if (spectra.isEmpty())
            call.fail("data", TStepCall::tr("expected spectra"));
        return spectra;
    }
    for (ICanvasItem *entry : call.itemsArgument("sources")) {
        if (const TCanvasYrexSpectrum *source = yrexItem(entry))
            spectra += YrexGathering::copiesOf(*source);
        else
            call.fail("sources", TStepCall::tr("expected items with spectra"));
    }
    return spectra;
}

TCommand *insertSpectra(TStepCall &call)
{
    TCanvasYrexSpectrum *item = YrexStepArguments::item(call);
    const int place = call.integer("at", TCmdYrexInsert::cAtEnd);
    const int mode = call.has("display") ? YrexStepArguments::word(call, "display", YrexStepWords::displayModes())
                                         : int(stackedMode);
    const bool isAbove = call.flag("above", false);
    auto *command = new TCmdYrexInsert(item, givenSpectra(call), place, mode);
    command->setShownAbove(isAbove);
    if (call.has("sources"))
        command->setSources(call.itemsArgument("sources"));
    return command;
}

TCommand *replaceSpectrum(TStepCall &call)
{
    TCanvasYrexSpectrum *item = YrexStepArguments::item(call);
    const int place = call.integer("spectrum");
    if (item && !item->stack().contains(place))
        call.fail("spectrum", TStepCall::tr("there is no spectrum %1").arg(place));
    auto *command = new TCmdYrexReplace(item, givenSpectra(call), place);
    if (call.has("sources"))
        command->setSources(call.itemsArgument("sources"));
    return command;
}

TCommand *insertIntoClass(TStepCall &call)
{
    TCanvasYrexSpectrum *item = YrexStepArguments::item(call);
    auto *command = new TCmdZarnuInsertGroupedSpectrum(item, givenSpectra(call), call.text("className"));
    if (call.has("sources"))
        command->setSources(call.itemsArgument("sources"));
    return command;
}

TCommand *stackSpectra(TStepCall &call)
{
    const QStringList modes{"stacked", "overlay"};
    const TCanvasItemList items = YrexStepArguments::items(call);
    const bool isStacked = !call.has("display") || YrexStepArguments::word(call, "display", modes) == 0;
    TPage *page = call.has("page") ? call.page("page") : nullptr;
    TYrexStackSelection selection;
    selection.fOnePerXUnits = call.flag("onePerXUnits", false);
    if (call.has("spectra"))
        selection.fSpectra = YrexStepArguments::targets(call, items);
    return new TCmdYrexArrayedFromSelection(items, &call.document(), nullptr, isStacked, call.number("angle", 0.0),
                                            call.flag("onePerYUnits", true), call.flag("newPage", false), page,
                                            selection);
}

TCommand *setSeriesLabel(TStepCall &call)
{
    const TCmdEditYrexArrayedData::TValues values{{TCmdEditYrexArrayedData::cLabel, call.text("label")}};
    return new TCmdEditYrexArrayedData(YrexStepArguments::items(call), values);
}

TCommand *setClasses(TStepCall &call)
{
    TCanvasYrexSpectrum *item = YrexStepArguments::item(call);
    const QVariantList given = call.list("classNames");
    QStringList names;
    for (const QVariant &name : given)
        names.append(name.toString());
    if (item && names.size() != item->stack().count())
        call.fail("classNames", TStepCall::tr("expected one for each spectrum"));
    const auto classes = TCmdYrexSetClasses::fromTold(call.has("classes") ? call.map("classes") : QVariantMap());
    return new TCmdYrexSetClasses(item, names, classes);
}

} // namespace

QVector<TStepKind> yrexStackSteps()
{
    return {
        {"insertSpectra", "item, {sources or data, at, above, display}",
         "Puts copies of the spectra of other items into an item, at its end without a place.", insertSpectra},
        {"replaceSpectrum", "item, {spectrum, sources or data}",
         "Puts copies of spectra in the place of one of an item.", replaceSpectrum},
        {"insertIntoClass", "item, {className, sources or data}", "Puts copies of spectra into a class of an item.",
         insertIntoClass},
        {"stackSpectra", "items, {display, angle, onePerYUnits, onePerXUnits, newPage, page, spectra: [index]}",
         "Makes a new stack of copies of spectra of items, the angle in degrees.", stackSpectra},
        {"setClasses", "item, {classNames: [name], classes: {name: {color, colors}}}",
         "Gives each spectrum its class, and the classes their colours.", setClasses},
        {"setSeriesLabel", "items, {label}", "Says what orders a series of spectra.", setSeriesLabel},
    };
}
