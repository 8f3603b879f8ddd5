#pragma once

#include "canvas/ICanvas.h"

#include <QByteArray>
#include <QList>
#include <QMarginsF>
#include <QObject>
#include <QRectF>
#include <QSizeF>
#include <QTransform>
#include <QUuid>
#include <memory>

class QGraphicsScene;
class QPaintDevice;
class QPainter;
class TCanvasItem;

/// A page of a document, and what stands on it. Lengths are canvas units of 0.1 mm. The page owns its items.
class TPage : public QObject, public ICanvas
{
    Q_OBJECT

public:
    static constexpr double cLongSide = 2970.0; // A4
    static constexpr double cShortSide = 2100.0;
    static constexpr double cMargin = 100.0;

    explicit TPage(QObject *parent = nullptr);
    ~TPage() override;

    QUuid id() const { return fId; }
    void setId(const QUuid &id) { fId = id; }
    QSizeF size() const { return fSize; }
    void setSize(const QSizeF &size);
    QMarginsF margins() const { return fMargins; }
    void setMargins(const QMarginsF &margins) { fMargins = margins; }
    QString title() const { return fTitle; }
    void setTitle(const QString &title);
    /// What a newer writer put behind the page's items.
    QByteArray tail() const { return fTail; }
    void setTail(const QByteArray &tail) { fTail = tail; }

    const QList<TCanvasItem *> &items() const { return fItems; }
    /// Takes the item over, from another page where it stands on one; it stands at `index`, or last.
    void insertItem(TCanvasItem *item, int index = -1);
    /// Lets an item of the page stand at `index` among the others; later ones lie over earlier ones.
    void moveItem(TCanvasItem *item, int index);
    /// Gives the item up without deleting it.
    void takeItem(TCanvasItem *item);
    /// The item is being deleted.
    void forget(TCanvasItem *item) { fItems.removeAll(item); }
    /// The area inside the margins, in canvas units.
    QRectF contentRect() const;
    /// The room for one more item: the largest rectangle that is free of others, or the whole area inside the margins
    /// where none is large enough for a plot.
    QRectF offeredRect(const TCanvasItem *item) const;
    /// Draws the whole page so that it fills the device.
    void render(QPaintDevice *device) const;
    /// From canvas units to pixels of the window that shows the page; views keep it up to date. The identity without.
    QTransform windowTransform() const { return fWindowTransform; }
    void setWindowTransform(const QTransform &transform) { fWindowTransform = transform; }
    /// Draws the page's items as a picture, with a painter scaled to canvas units.
    void paintItems(QPainter &painter) const;
    void itemChanged(TCanvasItem *item);
    /// The scene that views show. It is made when first asked for; a program without windows never asks.
    QGraphicsScene *scene();
    bool hasScene() const { return fScene != nullptr; }

signals:
    void changed(TCanvasItem *item);
    void itemAdded(TCanvasItem *item);
    void itemRemoved(TCanvasItem *item);
    /// Size or title are others now.
    void pageChanged();

private:
    void orderScene();

    QUuid fId;
    QSizeF fSize{cLongSide, cShortSide};
    QMarginsF fMargins{cMargin, cMargin, cMargin, cMargin};
    QString fTitle;
    QByteArray fTail;
    QTransform fWindowTransform;
    QList<TCanvasItem *> fItems;
    std::unique_ptr<QGraphicsScene> fScene;
};
