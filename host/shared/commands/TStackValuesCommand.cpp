#include "commands/TStackValuesCommand.h"

#include "canvas/TCanvasSpectrum.h"
#include "contexts/IStackedItemCtx.h"
#include "history/THistoryCommand.h"
#include "plot/T1DStackedPlot.h"

namespace {

T1DStackedPlotProperties *stackedPropertiesOf(TCanvasItem *item)
{
    const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(item);
    auto *plot = spectrum ? dynamic_cast<T1DStackedPlot *>(spectrum->activePlot()) : nullptr;
    return plot && item->stackedContext() ? &plot->stackedProperties() : nullptr;
}

} // namespace

TStackValuesCommand::TStackValuesCommand(const QString &description, const TCanvasItemList &items)
    : TViewCommand(description, items)
    , fHasValues(false)
{
}

TStackValuesCommand::TStackValuesCommand(const QString &description, const TCanvasItemList &items,
                                         const QMap<int, double> &values)
    : TViewCommand(description, items)
    , fValues(values)
    , fOldValues(items.size())
    , fHasValues(true)
{
}

void TStackValuesCommand::doCmd()
{
    if (!fHasValues) {
        TViewCommand::doCmd();
        return;
    }
    fChanged = false;
    TCanvasItemsCommand::doCmd(); // NOLINT(bugprone-parent-virtual-call): values are no view, so the step above would
                                  // void it
    setVoidFlag(!fChanged);
}

void TStackValuesCommand::doCmdItem(TCanvasItem *item, int index)
{
    if (!fHasValues) {
        TViewCommand::doCmdItem(item, index);
        return;
    }
    T1DStackedPlotProperties *properties = stackedPropertiesOf(item);
    if (!properties)
        return;
    for (auto it = fValues.constBegin(); it != fValues.constEnd(); ++it) {
        const int id = item->stackedContext()->idOf(it.key());
        if (id < 0)
            continue;
        const double old = stackValue(*properties, quint32(id));
        fOldValues[index].insert(it.key(), old);
        setStackValue(*properties, quint32(id), it.value());
        fChanged = fChanged || stackValue(*properties, quint32(id)) != old;
    }
}

void TStackValuesCommand::undoCmdItem(TCanvasItem *item, int index)
{
    if (!fHasValues) {
        TViewCommand::undoCmdItem(item, index);
        return;
    }
    T1DStackedPlotProperties *properties = stackedPropertiesOf(item);
    if (!properties)
        return;
    const QMap<int, double> &old = fOldValues.at(index);
    for (auto it = old.constBegin(); it != old.constEnd(); ++it)
        setStackValue(*properties, quint32(item->stackedContext()->idOf(it.key())), it.value());
}

THistoryCommand *TStackValuesCommand::itemHistoryCommand(TCanvasItem *item)
{
    THistoryCommand *entry = TViewCommand::itemHistoryCommand(item);
    entry->setViewOnly(isViewOnly());
    return entry;
}

void TStackValuesCommand::describe(THistoryCommand &entry) const
{
    for (auto it = fValues.constBegin(); it != fValues.constEnd(); ++it)
        entry.addParam(tr("Spectrum %1").arg(it.key() + 1), it.value(), QString());
}
