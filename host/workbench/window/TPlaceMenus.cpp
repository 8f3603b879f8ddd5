#include "TPlaceMenus.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "WDocumentView.h"

#include <QAction>
#include <QMenu>

TPlaceMenus::TPlaceMenus(TActionTable &actions, TDocumentController &documents, QObject *parent)
    : QObject(parent)
    , fActions(actions)
{
    connect(&documents, &TDocumentController::viewAdded, this, [this](WDocumentView *view) {
        connect(view, &WDocumentView::menuWanted, this,
                [this, view](const TMouseSpot &spot, const QPoint &place) { showMenu(view, spot, place); });
        connect(view, &WDocumentView::doubleClicked, this, &TPlaceMenus::doubleClick);
    });
}

QString TPlaceMenus::menuName(const TMouseSpot &spot)
{
    if (!spot.item)
        return QStringLiteral("paperContextMenu");
    switch (spot.place) {
    case placeOnHorzAxis:
        return QStringLiteral("horzAxisContextMenu");
    case placeOnVertAxis:
        return QStringLiteral("vertAxisContextMenu");
    case placeInCurves:
        return QStringLiteral("mainContextMenu");
    default:
        return QStringLiteral("rimContextMenu");
    }
}

void TPlaceMenus::showMenu(WDocumentView *view, const TMouseSpot &spot, const QPoint &place)
{
    if (spot.item && !view->selection().contains(spot.item))
        view->selection().select(spot.item); // the menu acts on what it points at
    fActions.updateStates();
    auto *menu = new QMenu(view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setToolTipsVisible(true);
    menu->setObjectName(menuName(spot));
    fActions.fillContextMenu(menuName(spot), menu);
    emit menuFilled(menu, spot);
    if (menu->isEmpty())
        delete menu;
    else
        menu->popup(place);
}

void TPlaceMenus::doubleClick(const TMouseSpot &spot)
{
    const bool isHorz = spot.place == placeOnHorzAxis;
    if (isHorz || spot.place == placeOnVertAxis)
        fActions.action(isHorz ? "horzLimits" : "vertLimits")->trigger();
}
