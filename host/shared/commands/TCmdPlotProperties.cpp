#include "commands/TCmdPlotProperties.h"

#include "canvas/TCanvasItem.h"
#include "commands/ScriptWords.h"
#include "contexts/IStackedItemCtx.h"
#include "history/THistoryCommand.h"
#include "properties/TPropertiesBag.h"

#include <algorithm>

namespace {

QVariantMap fieldsOf(const TPropertiesBag &kind, const TCanvasItem &item)
{
    const std::unique_ptr<TPropertiesBag> bag = kind.create();
    bag->fillFrom(item);
    return bag->values();
}

} // namespace

TCmdPlotProperties::TCmdPlotProperties(const TCanvasItemList &items, std::unique_ptr<TPropertiesBag> bag)
    : TCanvasItemsCommand(tr("Set Plot Properties"), items)
    , fBag(std::move(bag))
    , fBefore(items.size())
{
    setMergeableFlag(true);
    const QVariantMap fields = fBag ? fBag->appliedFields() : QVariantMap();
    for (auto it = fields.constBegin(); it != fields.constEnd(); ++it) {
        if (it.value().userType() == QMetaType::QColor)
            fBag->setValue(it.key(), ScriptWords::plainColor(it.value().value<QColor>()));
    }
}

TCmdPlotProperties::~TCmdPlotProperties() = default;

bool TCmdPlotProperties::cmdItemApplicable(TCanvasItem *item) const
{
    return fBag && fBag->isApplicable(*item);
}

void TCmdPlotProperties::doCmd()
{
    fChanged = false;
    TCanvasItemsCommand::doCmd();
    setVoidFlag(!fChanged);
}

void TCmdPlotProperties::doCmdItem(TCanvasItem *item, int index)
{
    TBefore &before = fBefore[index];
    before.fields = fieldsOf(*fBag, *item);
    before.plots.capture(item);
    if (const IStackedItemCtx *stack = item->stackedContext())
        before.displayMode = stack->displayMode();
    fBag->applyTo(*item);
    fChanged = fChanged || fieldsOf(*fBag, *item) != before.fields;
}

void TCmdPlotProperties::undoCmdItem(TCanvasItem *item, int index)
{
    const TBefore &before = fBefore.at(index);
    const std::unique_ptr<TPropertiesBag> bag = fBag->create(); // some fields stand in bags only, not with the plot
    for (auto it = before.fields.constBegin(); it != before.fields.constEnd(); ++it)
        bag->setValue(it.key(), it.value());
    bag->applyTo(*item);
    if (IStackedItemCtx *stack = item->stackedContext())
        stack->setDisplayMode(before.displayMode); // the grouping of the spectra goes with the mode
    before.plots.restore(item);
}

THistoryCommand *TCmdPlotProperties::itemHistoryCommand(TCanvasItem *item)
{
    auto *entry = new THistoryCommand(description(), item, QString());
    entry->addParamMapDiff(tr("Properties"), fieldsOf(*fBag, *item), fBefore.at(items().indexOf(item)).fields,
                           QString());
    return entry;
}

TScriptStep TCmdPlotProperties::scriptStep() const
{
    QVariantMap fields = fBag ? fBag->appliedFields() : QVariantMap();
    const auto isIt = [this](ICanvasItem *item) { return item && cmdItemApplicable(canvasItem(item)); };
    const auto first = std::find_if(items().begin(), items().end(), isIt);
    if (first == items().end())
        return TScriptStep();
    const QVariantMap known = fieldsOf(*fBag, *canvasItem(*first));
    for (auto it = fields.begin(); it != fields.end();) {
        QVariant value = it.value();
        const bool isField = known.contains(it.key()) && value.convert(known.value(it.key()).userType());
        it = isField ? it + 1 : fields.erase(it); // others set nothing
    }
    return TScriptStep("setProperties").on(items()).with("properties", fields);
}
