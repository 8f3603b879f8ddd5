#include "TFileMenus.h"

#include "TActionTable.h"
#include "TFileController.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>

TFileMenus::TFileMenus(TActionTable &actions, TFileController &files, QObject *parent)
    : QObject(parent)
    , fFiles(files)
    , fRecent(actions.menu("recent"))
    , fSamples(actions.menu("samples"))
{
    fRecent->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(fRecent, &QMenu::aboutToShow, this, &TFileMenus::fillRecent);
    connect(fRecent, &QMenu::customContextMenuRequested, this, &TFileMenus::showRecentMenu);
    connect(fSamples, &QMenu::aboutToShow, this, &TFileMenus::fillSamples);
}

void TFileMenus::fillRecent()
{
    fRecent->clear();
    const auto add = [this](const QStringList &paths) {
        for (const QString &path : paths) {
            const QFileInfo info(path);
            QAction *action =
                fRecent->addAction(info.fileName().replace('&', "&&"), &fFiles, [this, path] { fFiles.open({path}); });
            const QString place = QDir::toNativeSeparators(path);
            action->setData(path);
            action->setEnabled(info.exists());
            action->setToolTip(info.exists() ? place : tr("%1 is no longer there.").arg(place));
        }
    };
    add(fFiles.recentDocuments());
    fRecent->addSeparator();
    add(fFiles.recentFiles());
    if (fRecent->actions().size() == 1)
        fRecent->addAction(tr("Nothing yet"))->setEnabled(false);
}

void TFileMenus::showRecentMenu(const QPoint &place)
{
    const QAction *action = fRecent->actionAt(place);
    const QString path = action ? action->data().toString() : QString();
    if (path.isEmpty())
        return;
    auto *menu = new QMenu(fRecent);
    menu->setObjectName("recentContextMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Remove from List"), this, [this, path] {
        fFiles.forgetRecent(path);
        fRecent->close(); // its entries are others now
    });
    menu->popup(fRecent->mapToGlobal(place));
}

void TFileMenus::fillSamples()
{
    fSamples->clear();
    for (const QString &path : TFileController::samples())
        fSamples->addAction(QFileInfo(path).completeBaseName(), &fFiles, [this, path] { fFiles.open({path}); });
    if (fSamples->isEmpty())
        fSamples->addAction(tr("The samples are not installed"))->setEnabled(false);
}
