#include "TRecentMenu.h"
#include "widgets/GuiUtils.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>

TRecentMenu::TRecentMenu(QMenu *menu, const TLists &lists, const TTake &open, const TTake &forget)
    : QObject(menu)
    , fMenu(menu)
    , fLists(lists)
    , fOpen(open)
    , fForget(forget)
{
    fMenu->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(fMenu, &QMenu::aboutToShow, this, &TRecentMenu::fill);
    connect(fMenu, &QMenu::customContextMenuRequested, this, &TRecentMenu::showContextMenu);
}

void TRecentMenu::fill()
{
    fMenu->clear();
    bool isEmpty = true;
    for (const QStringList &paths : fLists()) {
        fMenu->addSeparator(); // one at an end is not shown
        for (const QString &path : paths)
            addPath(path);
        isEmpty = isEmpty && paths.isEmpty();
    }
    if (isEmpty)
        fMenu->addAction(tr("Nothing yet"))->setEnabled(false);
}

void TRecentMenu::addPath(const QString &path)
{
    const QFileInfo info(path);
    QAction *action = fMenu->addAction(info.fileName().replace('&', "&&"), this, [this, path] { fOpen(path); });
    const QString place = QDir::toNativeSeparators(path);
    action->setData(path);
    action->setEnabled(info.exists());
    action->setToolTip(Utils::Gui::dataTip(info.exists() ? place : tr("%1 is no longer there.").arg(place)));
}

void TRecentMenu::showContextMenu(const QPoint &place)
{
    const QAction *action = fMenu->actionAt(place);
    const QString path = action ? action->data().toString() : QString();
    if (path.isEmpty())
        return;
    auto *menu = new QMenu(fMenu);
    menu->setObjectName("recentContextMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Remove from List"), this, [this, path] {
        fForget(path);
        fMenu->close(); // its entries are others now
    });
    menu->popup(fMenu->mapToGlobal(place));
}
