#include "tables/TTableFactories.h"

#include "tables/TTableProperties.h"

void TTableFactories::add(const QString &type, const QString &table, const TFactory &factory)
{
    fFactories.insert({type, table}, factory);
}

void TTableFactories::add(const QString &table, const TFactory &factory)
{
    add(TTableProperties::cType, table, factory);
    add(TTableProperties::cFormerType, table, factory);
}

bool TTableFactories::fill(const TTableProperties &properties, TCanvasItem *item, TTableContent &content) const
{
    const TFactory factory = fFactories.value({properties.type(), properties.table()});
    return item && factory && factory(properties, item, content);
}
