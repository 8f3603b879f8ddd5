#include "TDockController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "WDocumentView.h"
#include "WMainWindow.h"
#include "canvas/TCanvasItem.h"
#include "widgets/WPluginDockWidget.h"

#include <QAction>
#include <QMenu>
#include <algorithm>

namespace {

constexpr int cStateVersion = 2;

} // namespace

TDockController::TDockController(WMainWindow &window)
    : QObject(&window)
    , fWindow(window)
{
}

void TDockController::add(QDockWidget *dock, const TDockPlace &place)
{
    dock->setParent(&fWindow);
    const auto before = [](const TDockPlace &a, const TDockPlace &b) {
        return a.fArea != b.fArea ? a.fArea < b.fArea : a.fOrder < b.fOrder;
    };
    const auto behind =
        std::upper_bound(fDocks.begin(), fDocks.end(), place,
                         [&before](const TDockPlace &a, const TDock &b) { return before(a, b.fPlace); });
    fDocks.insert(behind, {dock, place});
    fWindow.addDockWidget(place.fArea, dock);
    if (!place.fIsShown)
        dock->hide();
    if (fActions)
        addToMenu({dock, place});
}

void TDockController::connectDocuments(TActionTable &actions, TDocumentController &documents)
{
    fActions = &actions;
    fDocuments = &documents;
    QVector<TDock> docks = fDocks;
    std::stable_sort(docks.begin(), docks.end(), [](const TDock &a, const TDock &b) {
        return a.fPlace.fKey.isEmpty() != b.fPlace.fKey.isEmpty() ? b.fPlace.fKey.isEmpty()
                                                                  : a.fPlace.fKey < b.fPlace.fKey;
    });
    for (const TDock &dock : qAsConst(docks))
        addToMenu(dock);
    connect(&documents, &TDocumentController::contentChanged, this, &TDockController::refreshItem);
    connect(&documents, &TDocumentController::viewAdded, this, [this](WDocumentView *view) {
        connect(view, &WDocumentView::activeSpectrumChanged, this, &TDockController::refreshItem);
    });
}

void TDockController::addToMenu(const TDock &dock)
{
    QAction *action = fActions->menu("docks")->addAction(dock.fDock->windowTitle(), this,
                                                         [this, widget = dock.fDock] { toggle(widget); });
    action->setShortcut(QKeySequence(dock.fPlace.fKey, QKeySequence::PortableText));
    action->setObjectName("dock." + dock.fDock->objectName());
    action->setCheckable(true);
    connect(dock.fDock, &QDockWidget::visibilityChanged, action, &QAction::setChecked);
    fWindow.addAction(action);
}

/// The dock's key brings it to the front and gives it the focus, and hides it when it is there already.
void TDockController::toggle(QDockWidget *dock)
{
    const bool isCovered = dock->visibleRegion().isEmpty();
    if (dock->isVisible() && !isCovered) {
        dock->hide();
        if (fDocuments->view())
            fDocuments->view()->setFocus();
        return;
    }
    dock->show();
    dock->raise();
    shareColumn(dock);
    if (dock->widget())
        dock->widget()->setFocus();
}

/// A dock that opens below another one at a side gets half of the height, as far as the other can give way.
void TDockController::shareColumn(QDockWidget *dock)
{
    const Qt::DockWidgetArea area = fWindow.dockWidgetArea(dock);
    if (dock->isFloating() || (area != Qt::LeftDockWidgetArea && area != Qt::RightDockWidgetArea))
        return;
    QList<QDockWidget *> column;
    for (const TDock &other : qAsConst(fDocks)) {
        const bool isSeen = other.fDock == dock || !other.fDock->visibleRegion().isEmpty();
        if (fWindow.dockWidgetArea(other.fDock) == area && other.fDock->isVisible() && isSeen &&
            (other.fDock == dock || !fWindow.tabifiedDockWidgets(dock).contains(other.fDock)))
            column.append(other.fDock);
    }
    QList<int> heights;
    for (int i = 0; i < column.size(); ++i)
        heights.append(fWindow.height() / column.size());
    if (column.size() > 1)
        fWindow.resizeDocks(column, heights, Qt::Vertical);
}

void TDockController::setFirstLayout()
{
    QDockWidget *last = nullptr;
    Qt::DockWidgetArea area = Qt::NoDockWidgetArea;
    for (const TDock &dock : qAsConst(fDocks)) {
        dock.fDock->setFloating(false);
        fWindow.addDockWidget(dock.fPlace.fArea, dock.fDock);
        const bool isTab = last && area == dock.fPlace.fArea && area == Qt::BottomDockWidgetArea;
        if (isTab)
            fWindow.tabifyDockWidget(last, dock.fDock);
        last = dock.fDock;
        area = dock.fPlace.fArea;
        dock.fDock->setVisible(dock.fPlace.fIsShown);
    }
    for (const TDock &dock : qAsConst(fDocks)) {
        const bool isTall = dock.fPlace.fArea == Qt::LeftDockWidgetArea || dock.fPlace.fArea == Qt::RightDockWidgetArea;
        if (dock.fPlace.fSize > 0)
            fWindow.resizeDocks({dock.fDock}, {dock.fPlace.fSize}, isTall ? Qt::Horizontal : Qt::Vertical);
    }
    fStateBeforeHiding.clear();
}

void TDockController::hideAll(bool hide)
{
    if (!hide) {
        fWindow.restoreState(fStateBeforeHiding, cStateVersion);
        fStateBeforeHiding.clear();
        return;
    }
    fStateBeforeHiding = fWindow.saveState(cStateVersion);
    for (const TDock &dock : qAsConst(fDocks))
        dock.fDock->hide();
}

QByteArray TDockController::state() const
{
    return fStateBeforeHiding.isEmpty() ? fWindow.saveState(cStateVersion) : fStateBeforeHiding;
}

bool TDockController::restoreState(const QByteArray &state)
{
    return !state.isEmpty() && fWindow.restoreState(state, cStateVersion);
}

QList<WPluginDockWidget *> TDockController::itemDocks() const
{
    return fWindow.findChildren<WPluginDockWidget *>();
}

void TDockController::setItem(TCanvasItem *item)
{
    for (WPluginDockWidget *dock : itemDocks()) {
        dock->setItem(item);
        dock->selectionChanged();
    }
}

void TDockController::refreshItem()
{
    for (WPluginDockWidget *dock : itemDocks()) {
        if (dock->item())
            dock->itemChanged(dock->item());
    }
}
