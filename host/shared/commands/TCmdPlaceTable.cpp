#include "commands/TCmdPlaceTable.h"

#include "contexts/IDARegionsItem.h"
#include "stream/TDataStream.h"
#include "tables/HostTables.h"
#include "tables/TCanvasTable.h"

#include <algorithm>
#include <memory>

namespace {

QVector<TDARegion> regionsOf(TCanvasItem &source)
{
    return source.regionsItem() ? source.regionsItem()->daRegions() : QVector<TDARegion>();
}

/// Regions are told by their place among those of the item.
QVariant told(const QVariant &value, TCanvasItem &source)
{
    if (value.userType() == QMetaType::QStringList)
        return QVariantList(value.toList());
    if (value.userType() != QMetaType::QUuid)
        return value;
    const QVector<TDARegion> regions = regionsOf(source);
    const auto isIt = [&value](const TDARegion &region) { return region.id == value.toUuid(); };
    const auto found = std::find_if(regions.begin(), regions.end(), isIt);
    return found == regions.end() ? -1 : int(found - regions.begin());
}

/// Scripts know one kind of numbers and one kind of lists.
QVariant fromScript(const QString &key, const QVariant &value, TCanvasItem &source)
{
    if (key == HostTables::cRegion || key == HostTables::cDivisor)
        return regionsOf(source).value(value.toInt()).id;
    if (value.userType() == QMetaType::Double)
        return value.toInt();
    if (value.userType() != QMetaType::QVariantList)
        return value;
    QVariantList list = value.toList();
    const auto isText = [](const QVariant &entry) { return entry.userType() == QMetaType::QString; };
    if (std::all_of(list.constBegin(), list.constEnd(), isText))
        return value.toStringList();
    for (QVariant &entry : list)
        entry = fromScript(QString(), entry, source);
    return list;
}

QByteArray storedBytes(const TCanvasTable &table)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    table.store(stream);
    return bytes;
}

} // namespace

TCmdPlaceTable::TCmdPlaceTable(TCanvasTable *table, TPage *page)
    : TCmdCreateItem(cOther, {table}, nullptr, page, table->provenance(), cLaidOut)
    , fTable(table)
{
    setDescription(tr("Place Table"));
}

TCanvasTable *TCmdPlaceTable::table(TCanvasItem &source, const QVariantMap &fields, const QRectF &rect)
{
    TTableProperties properties;
    for (auto it = fields.constBegin(); it != fields.constEnd(); ++it)
        properties.setOption(it.key(), fromScript(it.key(), it.value(), source));
    auto table = std::make_unique<TCanvasTable>();
    table->setTableProperties(properties);
    table->setSource(&source);
    table->setRect(rect);
    return table.release();
}

void TCmdPlaceTable::completeScriptStep(TScriptStep &step) const
{
    TCanvasItem *source = fTable->source();
    if (!source || source->canvas() != fTable->canvas())
        return TCmdCreateItem::completeScriptStep(step);
    QVariantMap fields;
    const QVariantMap own = fTable->tableProperties().fields();
    for (auto it = own.constBegin(); it != own.constEnd(); ++it)
        fields.insert(it.key(), told(it.value(), *source));
    const std::unique_ptr<TCanvasTable> again(table(*source, fields, fTable->rect()));
    again->setUniqueId(fTable->uniqueId());
    if (storedBytes(*again) != storedBytes(*fTable))
        return TCmdCreateItem::completeScriptStep(step); // with its data
    step = TScriptStep("placeTable").on({source}).with("table", fields).with("rect", TScriptStep::rect(fTable->rect()));
    step.setMadeName("table");
}
