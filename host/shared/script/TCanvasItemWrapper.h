#pragma once

#include "canvas/TCanvasItem.h"
#include "canvas/TSecurePtr.h"

#include <QObject>
#include <QRectF>
#include <QScriptValue>
#include <QScriptable>

/// An item of a document, as scripts see it. It does not keep the item alive; one that is no longer in a document is
/// not valid, but comes back with an undo.
class TCanvasItemWrapper : public QObject, protected QScriptable
{
    Q_OBJECT
    Q_PROPERTY(QString id READ id)
    Q_PROPERTY(QString type READ type)
    Q_PROPERTY(QScriptValue rect READ rect WRITE setRect)

public:
    explicit TCanvasItemWrapper(TCanvasItem *item);

    /// Null once the item is deleted.
    TCanvasItem *item() const;
    QString id() const;
    QString type() const;
    /// Place on the page: an object with x, y, width and height in millimetres; undefined without an item.
    QScriptValue rect() const;
    void setRect(const QScriptValue &rect);

public slots:
    /// Whether the item is there and stands in a document.
    bool isValid() const;
    /// Makes it the selected item.
    void select();
    /// Draws it anew.
    virtual void update();

private:
    TSecurePtr<TCanvasItem> fItem;
};

Q_DECLARE_METATYPE(TCanvasItem *)
