#pragma once

#include "canvas/TSecurePtr.h"

#include <QDockWidget>

class TCanvasItem;

/// A dock that shows something of the item in use. Its object name is the name by which plug-ins find it.
class WPluginDockWidget : public QDockWidget
{
    Q_OBJECT

public:
    WPluginDockWidget(const QString &name, const QString &title, QWidget *parent = nullptr);

    /// Turns to an item, or to none; the same item again does nothing.
    void setItem(TCanvasItem *item);
    /// The item was changed: what is shown of it is brought up to date. Other items are passed over.
    void itemChanged(TCanvasItem *item);
    /// The item that is shown; null when there is none, and when it is gone.
    TCanvasItem *item() const { return fItem.get(); }
    /// Other items may be selected than before; the item that is shown is the same or was told already.
    virtual void selectionChanged() {}
    /// Shows the present item anew.
    virtual void refresh() {}
    /// Lets go of what belongs to a plug-in.
    virtual void onPluginDestroyed() { setItem(nullptr); }

private:
    TSecurePtr<TCanvasItem> fItem;
    bool fHasItem = false; // so that an item that went is told from none
};
