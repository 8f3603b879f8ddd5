#pragma once

#include "ui/TMouseSpot.h"

#include <QObject>

class QMenu;
class TActionTable;
class TDocumentController;
class WDocumentView;

/// What a right click and a double click do beside the curves, by what stands there: context menus and dialogs.
class TPlaceMenus : public QObject
{
    Q_OBJECT

public:
    TPlaceMenus(TActionTable &actions, TDocumentController &documents, QObject *parent);

    /// The name of the context menu for a place.
    static QString menuName(const TMouseSpot &spot);

signals:
    /// The menu is filled and will be shown; plug-ins may add to it.
    void menuFilled(QMenu *menu, const TMouseSpot &spot);

private:
    void showMenu(WDocumentView *view, const TMouseSpot &spot, const QPoint &place);
    void doubleClick(const TMouseSpot &spot);

    TActionTable &fActions;
};
