#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "commands/ItemsStep.h"
#include "commands/ScriptWords.h"
#include "commands/TCmdCreateItem.h"
#include "commands/TCmdDeleteItems.h"
#include "commands/TCmdEditRegions.h"
#include "commands/TCmdEditTitle.h"
#include "commands/TCmdItemOrder.h"
#include "commands/TCmdItemsToPage.h"
#include "commands/TCmdList.h"
#include "commands/TCmdMoveItem.h"
#include "commands/TCmdPlaceTable.h"
#include "contexts/IDARegionsItem.h"
#include "exchange/TFileStacks.h"
#include "exchange/TScratchImport.h"
#include "script/TStepCall.h"
#include "script/steps/HostSteps.h"
#include "services/IPluginHost.h"
#include "services/IScriptHost.h"
#include "tables/TCanvasTable.h"
#include "utils/CommonUtils.h"

namespace {

QVector<QRectF> rectsOf(TStepCall &call, const TCanvasItemList &items)
{
    const QVector<QRectF> rects = call.rects("rects");
    if (rects.size() != items.size())
        call.fail("rects", TStepCall::tr("expected one for each item"));
    return rects;
}

TCommand *moveItems(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    return new TCmdMoveItem(items, rectsOf(call, items));
}

TCommand *moveItemsToPage(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    TPage *page = call.page("page");
    return new TCmdItemsToPage(items, page, rectsOf(call, items));
}

/// On the page that the call names, else on a new one.
TCommand *put(TStepCall &call, const QList<TCanvasItem *> &made)
{
    TCanvasItemList items;
    for (TCanvasItem *item : made)
        items.append(item);
    TPage *page = call.has("page") ? call.page("page") : nullptr;
    return new TCmdCreateItem(TCmdCreateItem::cOther, items, &call.document(), page, {},
                              TCmdCreateItem::cLaidOut | TCmdCreateItem::cOnNewPage);
}

TCommand *copyItems(TStepCall &call)
{
    const TCanvasItemList items = call.items();
    const QVector<QRectF> rects = call.has("rects") ? rectsOf(call, items) : QVector<QRectF>();
    return put(call, ItemsStep::copies(items, rects));
}

TCommand *insertItems(TStepCall &call)
{
    const QByteArray data = call.bytes("data");
    const QVector<ICanvasItem *> links = call.has("links") ? call.itemsOrNull("links") : QVector<ICanvasItem *>();
    const QList<TCanvasItem *> items = ItemsStep::inserted(data, links);
    if (items.isEmpty())
        call.fail("data", TStepCall::tr("there are no items in it"));
    return put(call, items);
}

/// The page of that place, which may be that behind the last one, for a new one; without, the last one if it is empty.
/// Null: a new one.
TPage *pageForFiles(TStepCall &call)
{
    const QList<TPage *> &pages = call.document().pages();
    if (call.has("page"))
        return call.integer("page") == pages.size() ? nullptr : call.page("page");
    return !pages.isEmpty() && pages.last()->items().isEmpty() ? pages.last() : nullptr;
}

/// Files whose spectra do not share one horizontal unit make several stacks.
TCommand *openAsStack(TStepCall &call)
{
    TPage *page = pageForFiles(call);
    const IScriptHost &scripts = *call.host().scripts();
    const QString format = call.text("format", QString());
    TFileStacks files(scripts.plugins());
    for (const QString &path : call.files("files")) {
        auto file = std::make_unique<TScratchImport>(scripts.importDriver(), path, format);
        if (!file->isOk())
            call.fail("files", QString("%1: %2").arg(path, file->result().fReason));
        else
            files.add(std::move(file));
    }
    auto *list = new TCmdList(TStepCall::tr("Open as Stack"));
    for (const TFileStacks::TStack &stack : files.take()) {
        auto *command = new TCmdCreateItem(TCmdCreateItem::cImport, stack.fItems, &call.document(), page,
                                           stack.fProvenance, TCmdCreateItem::cOnNewPage);
        if (stack.fIsWhole)
            command->setStackedFiles(stack.fPaths, format);
        list->append(command);
        page = nullptr;
    }
    return list;
}

TCommand *placeTable(TStepCall &call)
{
    TCanvasItem *source = canvasItem(call.item());
    const QVariantMap fields = call.map("table");
    const QRectF rect = call.rect("rect");
    if (!source || !source->canvas())
        return nullptr;
    return new TCmdPlaceTable(TCmdPlaceTable::table(*source, fields, rect), source->canvas());
}

TCommand *setTitle(TStepCall &call)
{
    TCanvasItem *item = canvasItem(call.item());
    const int spectrum = call.integer("spectrum", 0);
    return new TCmdEditTitle(item, spectrum, call.text("title"));
}

TDARegion regionOf(TStepCall &call, const QVariantMap &fields, const QVector<TDARegion> &before)
{
    TDARegion region;
    region.id = Utils::Common::createUuid();
    if (fields.contains("was")) {
        const int was = fields.value("was").toInt();
        if (was >= 0 && was < before.size())
            region.id = before.at(was).id;
        else
            call.fail("regions", TStepCall::tr("there is no such region"));
    }
    region.name = fields.value("name").toString();
    if (!ScriptWords::regionKinds().value(fields.value("kind").toString(), region.kind))
        call.fail("regions", TStepCall::tr("expected one of %1").arg(ScriptWords::regionKinds().list()));
    bool isFrom = false;
    bool isTo = false;
    region.from = fields.value("from").toDouble(&isFrom);
    region.to = fields.value("to").toDouble(&isTo);
    if (!isFrom || !isTo)
        call.fail("regions", TStepCall::tr("expected objects with name, kind, from and to"));
    if (fields.contains("color"))
        region.color = QColor(fields.value("color").toString());
    return region;
}

TCommand *setRegions(TStepCall &call)
{
    TCanvasItem *item = canvasItem(call.item());
    if (!item || !item->regionsItem()) {
        call.fail(TStepCall::tr("items"), TStepCall::tr("it keeps no regions"));
        return nullptr;
    }
    const QVector<TDARegion> before = item->regionsItem()->daRegions();
    QVector<TDARegion> regions;
    for (const QVariant &entry : call.list("regions"))
        regions.append(regionOf(call, entry.toMap(), before));
    return new TCmdEditRegions(item, regions);
}

TCommand *order(TStepCall &call, TCmdItemOrder::TTarget target)
{
    return new TCmdItemOrder(call.items(), target);
}

} // namespace

QVector<TStepKind> itemSteps()
{
    return {
        {"moveItems", "items, {rects: [{x, y, width, height}]}",
         "Moves and resizes items on their pages, in units of 0.1 mm.", moveItems},
        {"moveItemsToPage", "items, {page, rects: [{x, y, width, height}]}",
         "Moves items to another page, in units of 0.1 mm.", moveItemsToPage},
        {"copyItems", "items, {page, rects: [{x, y, width, height}]}",
         "Puts copies of items on a page, or on a new one.", copyItems},
        {"insertItems", "{data, page, links: [item]}",
         "Puts items on a page, or on a new one, from the bytes that a document would hold of them.", insertItems},
        {"openAsStack", "{files: [path], format, page}",
         "Opens files as one stacked item, on the last page if that is empty, else on a new one.", openAsStack},
        {"deleteItems", "items", "Takes items off their pages.",
         [](TStepCall &call) { return new TCmdDeleteItems(call.items()); }},
        {"placeTable", "item, {table: {table, columns, sort, filter, decimals, fontSize}, rect}",
         "Puts a table of an item on its page, in units of 0.1 mm.", placeTable},
        {"bringToFront", "items", "Brings items to the front of their pages.",
         [](TStepCall &call) { return order(call, TCmdItemOrder::cToFront); }},
        {"sendToBack", "items", "Sends items to the back of their pages.",
         [](TStepCall &call) { return order(call, TCmdItemOrder::cToBack); }},
        {"setTitle", "item, {spectrum, title}", "Sets the title of a spectrum.", setTitle},
        {"setRegions", "item, {regions: [{name, kind, from, to, color, was}]}",
         "Gives an item regions for data analysis, in 1/cm; those with the place that they had stay the same.",
         setRegions},
    };
}
