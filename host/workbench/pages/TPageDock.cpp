#include "TPageDock.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "TStackMaker.h"
#include "WDocumentView.h"
#include "WPageNavigator.h"
#include "canvas/TCanvasItem.h"
#include "commands/TCmdPages.h"
#include "widgets/GuiUtils.h"

#include <QAction>
#include <QMenu>

TPageDock::TPageDock(WPageNavigator &dock, TActionTable &actions, TDocumentController &documents, TStackMaker &stacks)
    : QObject(&dock)
    , fDock(dock)
    , fActions(actions)
    , fDocuments(documents)
    , fStacks(stacks)
{
    connect(&documents, &TDocumentController::documentShown, &dock, &WPageNavigator::setDocument);
    connect(&documents, &TDocumentController::pageShown, &dock, &WPageNavigator::setPage);
    connect(&dock, &WPageNavigator::pageChosen, &documents, &TDocumentController::setPage);
    connect(&dock, &WPageNavigator::itemChosen, this, [this](TCanvasItem *item) {
        fDocuments.setPage(item->canvas());
        fDocuments.view()->selection().select(item);
    });
    connect(&dock, &WPageNavigator::pageRenamed, this, [this](TPage *page, const QString &title) {
        push(TCmdPages::renamePage(fDocuments.document(), page, title));
    });
    connect(&dock, &WPageNavigator::pagesMoved, this, [this](const QList<TPage *> &pages, int place) {
        push(TCmdPages::movePages(fDocuments.document(), pages, place));
    });
    connect(&dock, &WPageNavigator::deletionWanted, this, &TPageDock::deleteChosen);
    connect(&dock, &WPageNavigator::menuWanted, this, &TPageDock::showMenu);
    connect(&dock, &WPageNavigator::focusReturned, this, [this] { fDocuments.view()->setFocus(); });
}

void TPageDock::push(TCommand *command)
{
    fDocuments.document()->history().push(command);
}

void TPageDock::duplicateChosen()
{
    push(TCmdPages::duplicatePages(fDocuments.document(), fDock.chosenPages()));
}

void TPageDock::deleteChosen()
{
    push(TCmdPages::deletePages(fDocuments.document(), fDock.chosenPages()));
}

void TPageDock::showMenu(const QPoint &globalPlace)
{
    auto *menu = new QMenu(&fDock);
    menu->setObjectName("pagesContextMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setToolTipsVisible(true);
    const int chosen = fDock.chosenPages().size();
    menu->addAction(fActions.action("newPage"));
    menu->addAction(tr("&Duplicate"), this, &TPageDock::duplicateChosen);
    QAction *deletes = menu->addAction(tr("De&lete"), this, &TPageDock::deleteChosen);
    if (chosen == fDocuments.document()->pages().size()) {
        deletes->setEnabled(false);
        deletes->setToolTip(tr("A document keeps one page."));
    }
    if (chosen == 1)
        menu->addAction(fActions.action("renamePage"));
    menu->addSeparator();
    addStacking(menu);
    menu->addSeparator();
    menu->addAction(fActions.action("exportPicture"));
    menu->popup(globalPlace);
}

void TPageDock::addStacking(QMenu *menu)
{
    const TCanvasItemList items = TStackMaker::spectraOf(fDock.chosenPages());
    const QString whyNot = TStackMaker::whyNot(items);
    const QList<QAction *> actions{
        menu->addAction(tr("&Stack Selected"), this, [this, items] { fStacks.stack(items, true); }),
        menu->addAction(tr("S&uperimpose Selected"), this, [this, items] { fStacks.stack(items, false); }),
        menu->addAction(tr("&Compare"), this, [this, items] { fStacks.compare(items); })};
    for (QAction *action : actions) {
        action->setEnabled(whyNot.isEmpty());
        action->setToolTip(Utils::Gui::dataTip(whyNot));
    }
}
