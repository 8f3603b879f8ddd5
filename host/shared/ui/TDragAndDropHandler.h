#pragma once

#include "canvas/TCanvasItemList.h"
#include "canvas/TSecurePtr.h"

#include <QMimeData>
#include <QRectF>
#include <QString>
#include <QVector>

class IPlotView;
class QDragEnterEvent;
class QDragLeaveEvent;
class QDragMoveEvent;
class QDropEvent;
class QPainter;
class TCanvasItem;
class TDocument;
class TPage;

/// What a drag of pages and items carries. The items stay where they are; a drop looks them up by their ids.
namespace PageDrag {

/// The process, the document, and the ids of pages and of single items.
QByteArray store(const TDocument &document, const QList<TPage *> &pages, const TCanvasItemList &items);
/// The items, with those of the pages; none for a drag of another process or document.
TCanvasItemList items(const QByteArray &bytes, const TDocument &document);

} // namespace PageDrag

/// A drag within the program of items that stand in no document.
class TLooseItemsMime : public QMimeData
{
    Q_OBJECT

public:
    /// The items are not owned and outlive this.
    explicit TLooseItemsMime(const TCanvasItemList &items);
    const TCanvasItemList &items() const { return fItems; }

private:
    TCanvasItemList fItems;
};

/// Drags of items over items of one type. It shows where a drop would go by rectangles in the view's coordinates; an
/// event that it answers with such a rectangle is accepted, one that it refuses is ignored.
class TDragAndDropHandler
{
public:
    enum TAccept { cNothing = 0, cInsert = 1, cReplace = 2 };

    explicit TDragAndDropHandler(int rtti)
        : fRtti(rtti)
    {
    }
    virtual ~TDragAndDropHandler() = default;

    /// The view that is shown and its document; not owned. Before any event.
    void setView(IPlotView *view, TDocument *document);
    virtual void dragEnterEvent(QDragEnterEvent *event);
    virtual void dragMoveEvent(QDragMoveEvent *event) = 0;
    virtual void dragLeaveEvent(QDragLeaveEvent *event);
    virtual void dropEvent(QDropEvent *event) = 0;
    /// What may be done with the items over the target, as bits.
    virtual int acceptItems(TCanvasItem *target, const TCanvasItemList &dragged) const = 0;
    /// Forgets the drag: Escape, leave, drop.
    virtual void reset();

    const QVector<QRectF> &highlights() const { return fHighlights; }
    /// What stands in the highlights, and what a label at the mouse tells.
    virtual QString highlightText() const { return QString(); }
    virtual QString label() const { return QString(); }
    /// Why the drag is refused where it is; empty when it is not.
    QString refusal() const { return fRefusal; }
    TCanvasItem *pointedItem() const { return fPointed.get(); }
    void paint(QPainter &painter, const QPalette &palette) const;

protected:
    int rtti() const { return fRtti; }
    IPlotView *view() const { return fView; }
    TDocument *document() const { return fDocument; }
    static bool isItemDrag(const QMimeData *mime);
    /// The item of the handler's type under a place of the view, or null.
    TCanvasItem *itemAt(const QPointF &viewPos) const;
    void setPointedItem(TCanvasItem *item);
    TCanvasItemList draggedItems(const QMimeData *mime) const;
    void setHighlights(const QVector<QRectF> &rects);
    void refuse(const QString &reason);

private:
    int fRtti;
    IPlotView *fView = nullptr;
    TDocument *fDocument = nullptr;
    TSecurePtr<TCanvasItem> fPointed;
    QVector<QRectF> fHighlights;
    QString fRefusal;
};
