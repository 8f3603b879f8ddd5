#pragma once

#include "canvas/TCanvasItemList.h"
#include "commands/TCommand.h"

#include <QVariantMap>
#include <QVector>

class TDocument;
class TPage;

/// Puts new items on a page. While it is undone it owns them.
class TCmdCreateItem : public TCommand
{
    Q_OBJECT

public:
    enum TReason { cOther = 0, cImport = 5 };

    /// Without a document there is a page. Page null: the page on which an item says it stands, else the document's
    /// current empty page, else a new one. `info` tells where the items came from. Flag 1: the items are laid out
    /// already and keep their rectangles.
    TCmdCreateItem(int reason, const TCanvasItemList &items, TDocument *document, TPage *page, const QVariantMap &info,
                   int flag);
    ~TCmdCreateItem() override;

    void doHistoryCommand() override;
    void doCmd() override;
    void undoCmd() override;

private:
    TPage *targetPage(TPage *page);

    TCanvasItemList fItems;
    TDocument *fDocument;
    TPage *fPage;
    TPage *fNewPage = nullptr; // made by this command; owned while undone
    QVariantMap fInfo;
    bool fLaidOut;
};
