#pragma once

#include "canvas/TCanvasItem.h"
#include "canvas/TSecurePtr.h"
#include "script/ScriptUtils.h"
#include "script/TScriptObjects.h"

#include <QObject>
#include <QRectF>
#include <QScriptValue>
#include <QScriptable>

/// An item of a document, as scripts see it. It does not keep the item alive; one that is no longer in a document is
/// not valid, but comes back with an undo.
class TCanvasItemWrapper : public QObject, public IScriptHandle, protected QScriptable
{
    Q_OBJECT
    Q_PROPERTY(QString id READ id WRITE refuseWrite)
    Q_PROPERTY(QString type READ type WRITE refuseWrite)
    Q_PROPERTY(QScriptValue rect READ rect WRITE setRect)
    Q_PROPERTY(THistoryItem *historyItem READ historyItem SCRIPTABLE false)
    Q_PROPERTY(QString objectName READ objectName SCRIPTABLE false)

public:
    explicit TCanvasItemWrapper(TCanvasItem *item);

    /// Null once the item is deleted.
    TCanvasItem *item() const;
    /// The same for the history.
    THistoryItem *historyItem() const { return item(); }
    const void *thing() const override { return item(); }
    QString id() const;
    QString type() const;
    /// Place on the page: an object with x, y, width and height in millimetres; undefined without an item.
    QScriptValue rect() const;
    void setRect(const QScriptValue &rect);

    /// Of what scripts may only read.
    template <class T>
    void refuseWrite(const T &)
    {
        Utils::Script::refuseWriting(context());
    }

public slots:
    /// Whether the item is there and stands in a document.
    bool isValid() const;
    /// Makes it the selected item.
    void select();
    /// Draws it anew.
    virtual void update();
    /// What JSON.stringify writes: an object with id, type and title.
    virtual QScriptValue toJSON() const;

private:
    TSecurePtr<TCanvasItem> fItem;
};

Q_DECLARE_METATYPE(TCanvasItem *)
