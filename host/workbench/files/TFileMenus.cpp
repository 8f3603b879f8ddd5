#include "TFileMenus.h"

#include "TActionTable.h"
#include "TFileController.h"
#include "TRecentMenu.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>

TFileMenus::TFileMenus(TActionTable &actions, TFileController &files, QObject *parent)
    : QObject(parent)
    , fFiles(files)
    , fSamples(actions.menu("samples"))
{
    new TRecentMenu(
        actions.menu("recent"),
        [this] {
            return QList<QStringList>{fFiles.recentDocuments(), fFiles.recentFiles()};
        },
        [this](const QString &path) { fFiles.open({path}); },
        [this](const QString &path) { fFiles.forgetRecent(path); });
    connect(fSamples, &QMenu::aboutToShow, this, &TFileMenus::fillSamples);
}

void TFileMenus::fillSamples()
{
    fSamples->clear();
    for (const QString &path : TFileController::samples())
        fSamples->addAction(QFileInfo(path).completeBaseName(), &fFiles, [this, path] { fFiles.open({path}); });
    if (fSamples->isEmpty())
        fSamples->addAction(tr("The samples are not installed"))->setEnabled(false);
}
