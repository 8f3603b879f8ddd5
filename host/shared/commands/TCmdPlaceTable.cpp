#include "commands/TCmdPlaceTable.h"

#include "tables/TCanvasTable.h"

TCmdPlaceTable::TCmdPlaceTable(TCanvasTable *table, TPage *page)
    : TCmdCreateItem(cOther, {table}, nullptr, page, table->provenance(), 1)
{
    setDescription(tr("Place Table"));
}
