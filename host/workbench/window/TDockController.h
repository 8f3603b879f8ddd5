#pragma once

#include "services/TDockPlace.h"

#include <QByteArray>
#include <QObject>
#include <QVector>

class QDockWidget;
class TActionTable;
class TCanvasItem;
class TDocumentController;
class WMainWindow;
class WPluginDockWidget;

/// The docks of the window: where they stand at first, their keys, and what they show.
class TDockController : public QObject
{
    Q_OBJECT

public:
    explicit TDockController(WMainWindow &window);

    /// Takes a dock over. Those that come once the menus stand are listed at once.
    void add(QDockWidget *dock, const TDockPlace &place);
    /// The menus stand: the docks get their entries, in the order of their keys.
    void connectDocuments(TActionTable &actions, TDocumentController &documents);
    /// All docks where they stand at the first start.
    void setFirstLayout();
    bool isHidingAll() const { return !fStateBeforeHiding.isEmpty(); }
    void hideAll(bool hide);
    /// The layout as it is to be remembered.
    QByteArray state() const;
    bool restoreState(const QByteArray &state);
    /// The docks of items turn to this one.
    void setItem(TCanvasItem *item);

private:
    struct TDock
    {
        QDockWidget *fDock;
        TDockPlace fPlace;
    };

    void addToMenu(const TDock &dock);
    void shareColumn(QDockWidget *dock);
    void toggle(QDockWidget *dock);
    /// The item in use may have changed.
    void refreshItem();
    QList<WPluginDockWidget *> itemDocks() const;

    WMainWindow &fWindow;
    TActionTable *fActions = nullptr;
    TDocumentController *fDocuments = nullptr;
    QVector<TDock> fDocks;
    QByteArray fStateBeforeHiding;
};
