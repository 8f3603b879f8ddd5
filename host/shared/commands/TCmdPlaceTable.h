#pragma once

#include "commands/TCmdCreateItem.h"

class TCanvasTable;

/// Puts a table on a page. While it is undone it owns the table.
class TCmdPlaceTable : public TCmdCreateItem
{
    Q_OBJECT

public:
    /// The table has its place on the page already.
    TCmdPlaceTable(TCanvasTable *table, TPage *page);
};
