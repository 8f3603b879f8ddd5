#pragma once

#include "commands/TCommand.h"

#include <QHash>
#include <QMarginsF>
#include <QRectF>
#include <QSizeF>
#include <QUuid>

class TCanvasItem;
class TDocument;
class TPage;

/// Changes the pages of a document: which there are, their order, titles and sizes. It owns the pages that it took out
/// while it is done, and those that it put in while it is undone.
class TCmdPages : public TCommand
{
    Q_OBJECT

public:
    /// An empty page of the size of its neighbour; it becomes the current one. The caller owns the commands.
    static TCmdPages *newPage(TDocument *document, int index);
    /// A document keeps one page: void when all are named.
    static TCmdPages *deletePages(TDocument *document, const QList<TPage *> &pages);
    /// A copy behind each page.
    static TCmdPages *duplicatePages(TDocument *document, const QList<TPage *> &pages);
    /// The page stands at `index` afterwards.
    static TCmdPages *movePage(TDocument *document, TPage *page, int index);
    /// The pages, in their order, stand before the page that is at `place` beforehand; behind all at the end.
    static TCmdPages *movePages(TDocument *document, const QList<TPage *> &pages, int place);
    static TCmdPages *renamePage(TDocument *document, TPage *page, const QString &title);
    /// Items that follow their page are laid out anew.
    static TCmdPages *resizePages(TDocument *document, const QList<TPage *> &pages, const QSizeF &size,
                                  const QMarginsF &margins);

    ~TCmdPages() override;
    void doHistoryCommand() override;
    TScriptStep scriptStep() const override { return fStep; }
    void doCmd() override;
    void undoCmd() override;
    bool isVoid() const override { return TCommand::isVoid() || fBefore == fAfter; }

private:
    struct TPageState
    {
        QString title;
        QSizeF size;
        QMarginsF margins;
        bool operator==(const TPageState &other) const
        {
            return title == other.title && size == other.size && margins == other.margins;
        }
    };
    struct TState
    {
        QList<TPage *> pages;
        QHash<TPage *, TPageState> states;
        TPage *current = nullptr;
        bool operator==(const TState &other) const { return pages == other.pages && states == other.states; }
    };

    TCmdPages(const QString &description, TDocument *document);
    static TPageState stateOf(const TPage &page);
    static QVariantList placesOf(const TDocument &document, const QList<TPage *> &pages);
    void apply(const TState &state);
    void followPages();

    TDocument *fDocument;
    TState fBefore;
    TState fAfter;
    TScriptStep fStep;
    QHash<TCanvasItem *, QRectF> fOldRects; // of items that follow a page whose size changes
};
