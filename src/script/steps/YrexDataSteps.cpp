#include "TCanvasYrexSpectrum.h"
#include "TCmdSetYrexSpectrumHorizontalUnits.h"
#include "TCmdSetYrexSpectrumVerticalUnits.h"
#include "TCmdYrexArithmeticOp.h"
#include "TCmdYrexArithmeticSetOrgDataToAbsOrg.h"
#include "TCmdYrexProcessing.h"
#include "TCmdYrexSeriesValues.h"
#include "TCmdYrexSetOrigUnits.h"
#include "YrexChainStep.h"
#include "YrexStepArguments.h"
#include "YrexSteps.h"
#include "script/TStepCall.h"

#include <algorithm>

namespace {

/// The chain that a call changes: that of the first spectrum that is meant.
TYrexProcParams chainBefore(const TCanvasItemList &items, const QVector<QVector<int>> &targets)
{
    const TCanvasYrexSpectrum *item = items.isEmpty() ? nullptr : yrexItem(items.first());
    const QVector<int> first = targets.value(0);
    const TYrexSpectrum *spectrum = item && !first.isEmpty() ? item->stack().at(first.first()) : nullptr;
    return spectrum ? spectrum->procParams().params() : TYrexProcParams();
}

TCommand *process(TStepCall &call)
{
    const TCanvasItemList items = YrexStepArguments::items(call);
    const QVector<QVector<int>> targets = YrexStepArguments::targets(call, items);
    TYrexProcParams params = chainBefore(items, targets);
    QString problem;
    if (call.has("template")) {
        if (!YrexChainStep::setTemplate(call.bytes("template"), params, problem))
            call.fail("template", problem);
    } else {
        if (!YrexChainStep::setActions(call.list("actions"), call.flag("only", false), params, problem))
            call.fail("actions", problem);
        if (call.has("multipoint") && !YrexChainStep::setMultipoint(call.map("multipoint"), params, problem))
            call.fail("multipoint", problem);
    }
    auto *command = new TCmdYrexProcessing(items, params);
    command->setTargets(targets);
    return command;
}

/// The axes of the spectra that are meant.
QVector<TYrexAxis> axesOf(const TCanvasItemList &items, const QVector<QVector<int>> &targets)
{
    QVector<TYrexAxis> axes;
    for (int i = 0; i < items.size(); ++i) {
        for (const int index : targets.value(i))
            axes.append(TYrexAxis(*yrexItem(items.at(i))->stack().at(index)));
    }
    return axes;
}

/// Other counts never go together; other x only when the call says so.
void checkAxes(TStepCall &call, const QVector<TYrexAxis> &axes, const TYrexAxis &reference)
{
    const bool isAccepted = call.flag("pointByPoint", false);
    const QString difference = TYrexAxis::difference(axes, reference);
    const bool isOfOtherCount = std::any_of(
        axes.begin(), axes.end(), [&reference](const TYrexAxis &axis) { return axis.fCount != reference.fCount; });
    if (isOfOtherCount)
        call.fail("reference", difference);
    else if (!difference.isEmpty() && !isAccepted)
        call.fail("reference", TStepCall::tr("%1; with pointByPoint: true they go point by point").arg(difference));
}

TCommand *addSpectrum(TStepCall &call)
{
    const TCanvasItemList items = YrexStepArguments::items(call);
    const QVector<QVector<int>> targets = YrexStepArguments::targets(call, items);
    TCanvasYrexSpectrum *reference = yrexItem(call.itemArgument("reference"));
    if (!reference)
        call.fail("reference", TStepCall::tr("expected an item with spectra"));
    const int index = call.integer("referenceSpectrum", reference ? reference->stack().current() : 0);
    if (reference && !reference->stack().contains(index))
        call.fail("referenceSpectrum", TStepCall::tr("there is no spectrum %1").arg(index));
    if (reference && reference->stack().contains(index))
        checkAxes(call, axesOf(items, targets), TYrexAxis(*reference->stack().at(index)));
    auto *command = new TCmdYrexArithmeticOp(items, reference, index, call.number("factor", 1.0));
    command->setTargets(targets);
    return command;
}

TCommand *restoreOriginalData(TStepCall &call)
{
    const TCanvasItemList items = YrexStepArguments::items(call);
    auto *command = new TCmdYrexArithmeticSetOrgDataToAbsOrg(items);
    command->setTargets(YrexStepArguments::targets(call, items));
    return command;
}

TCommand *setSeriesValues(TStepCall &call)
{
    QMap<int, double> values;
    const QMap<int, QVariant> given = call.byIndex("values");
    for (auto it = given.constBegin(); it != given.constEnd(); ++it) {
        if (it.value().userType() != QMetaType::Double && it.value().userType() != QMetaType::Int)
            call.fail("values", TStepCall::tr("expected numbers"));
        values.insert(it.key(), it.value().toDouble());
    }
    return new TCmdYrexSeriesValues(YrexStepArguments::items(call), values);
}

TCommand *setOriginalUnits(TStepCall &call)
{
    const TCanvasItemList items = YrexStepArguments::items(call);
    const TAxisDir axis = call.has("xUnits") ? horzDir : vertDir;
    const int unit = YrexStepArguments::unit(call, axis == horzDir ? "xUnits" : "yUnits", axis);
    return new TCmdYrexSetOrigUnits(items, axis, unit, YrexStepArguments::targets(call, items));
}

TCommand *setXUnits(TStepCall &call)
{
    const int unit = YrexStepArguments::unit(call, "xUnits", horzDir);
    const TCanvasItemList items = YrexStepArguments::items(call);
    const int refused = int(std::count_if(items.begin(), items.end(), [unit](ICanvasItem *item) {
        return TCmdSetYrexSpectrumHorizontalUnits::spansZero(*yrexItem(item), unit);
    }));
    if (refused > 0 && refused == items.size())
        call.fail("xUnits", TStepCall::tr("the x range spans zero, which has no place in this unit"),
                  TStepCall::cOutOfRange);
    else if (refused > 0)
        call.warn(TStepCall::tr("items whose x range spans zero keep their unit"));
    return new TCmdSetYrexSpectrumHorizontalUnits(unit, items, call.flag("original", false));
}

TCommand *setYUnits(TStepCall &call)
{
    const int unit = YrexStepArguments::unit(call, "yUnits", vertDir);
    const TCanvasItemList items = YrexStepArguments::items(call);
    bool isNone = false;
    const QString refusal = TCmdSetYrexSpectrumVerticalUnits::refusal(unit, items, &isNone);
    if (isNone && !refusal.isEmpty())
        call.fail("yUnits", refusal, TStepCall::cOutOfRange);
    else if (!refusal.isEmpty())
        call.warn(refusal);
    return new TCmdSetYrexSpectrumVerticalUnits(unit, items);
}

} // namespace

QVector<TStepKind> yrexDataSteps()
{
    return {
        {"process", "items, {actions: [{action}], only, multipoint, template, spectra: [index]}",
         "Runs a processing chain. Actions are given as in chains in JSON, by their labels; those that are not listed "
         "are switched off.",
         process},
        {"addSpectrum", "items, {reference: item, referenceSpectrum, factor, pointByPoint, spectra: [index]}",
         "Adds a multiple of a reference spectrum; a negative factor subtracts it.", addSpectrum},
        {"restoreOriginalData", "items, {spectra: [index]}", "Takes spectra back to the data that were read.",
         restoreOriginalData},
        {"setSeriesValues", "items, {values: {index: number}}", "Sets the values by which a series is ordered.",
         setSeriesValues},
        {"setOriginalUnits", "items, {xUnits or yUnits, spectra: [index]}",
         "Says what an axis is where the file did not; no value changes.", setOriginalUnits},
        {"setXUnits", "items, {xUnits, original}", "Shows the x axis in other units.", setXUnits},
        {"setYUnits", "items, {yUnits}", "Gives all spectra other y units, in which their chains end.", setYUnits},
    };
}
