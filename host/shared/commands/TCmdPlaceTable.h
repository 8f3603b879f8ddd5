#pragma once

#include "commands/TCmdCreateItem.h"

class TCanvasItem;
class TCanvasTable;

/// Puts a table on a page. While it is undone it owns the table.
class TCmdPlaceTable : public TCmdCreateItem
{
    Q_OBJECT

public:
    /// The table has its place on the page already.
    TCmdPlaceTable(TCanvasTable *table, TPage *page);

    void completeScriptStep(TScriptStep &step) const override;

    /// A table of an item from its fields as scripts tell them, which the caller owns.
    static TCanvasTable *table(TCanvasItem &source, const QVariantMap &fields, const QRectF &rect);

private:
    TCanvasTable *fTable; // lives as long as the command
};
