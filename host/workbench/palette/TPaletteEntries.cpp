#include "TPaletteEntries.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "TFileController.h"
#include "TMenuWalk.h"
#include "WDocumentView.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "plugin/IPluginTemplates.h"
#include "services/TKelmoraHost.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QSet>
#include <algorithm>

namespace {

const QString cOpenerName = QStringLiteral("commandPalette");

QString tr(const char *text)
{
    return QCoreApplication::translate("TPaletteEntries", text);
}

/// A table's dock and the action of a module that shows it have one name: the one that can be used stands for both.
void dropDoubles(QVector<TPaletteEntry> &entries)
{
    QSet<QString> usable;
    for (const TPaletteEntry &entry : qAsConst(entries)) {
        if (entry.fIsEnabled)
            usable.insert(entry.fTitle);
    }
    const auto isDouble = [&usable](const TPaletteEntry &entry) {
        return !entry.fIsEnabled && usable.contains(entry.fTitle);
    };
    entries.erase(std::remove_if(entries.begin(), entries.end(), isDouble), entries.end());
}

void addActions(QVector<TPaletteEntry> &entries, const QMenuBar &bar, TActionTable &table)
{
    table.updateStates(); // so that they tell why they cannot be used now
    for (const TMenuEntry &one : TMenuWalk::entries(bar, table)) {
        QAction *action = one.fAction;
        if (action->objectName() == cOpenerName || !action->isVisible())
            continue;
        TPaletteEntry entry;
        entry.fId = "action/" + action->objectName();
        entry.fTitle = TMenuWalk::plainText(action->text());
        entry.fPath = one.fPath.join(" > ");
        entry.fShortcut = action->shortcut().toString(QKeySequence::NativeText);
        entry.fIsEnabled = action->isEnabled();
        entry.fReason = action->isEnabled() ? QString() : action->statusTip();
        entry.fIsCheckable = action->isCheckable();
        entry.fIsChecked = action->isChecked();
        entry.fRun = [action = QPointer<QAction>(action)] {
            if (action)
                action->trigger();
        };
        entries.append(entry);
    }
    dropDoubles(entries);
}

void addFiles(QVector<TPaletteEntry> &entries, const QStringList &paths, const QString &menu, TFileController &files)
{
    for (const QString &path : paths) {
        const QFileInfo info(path);
        TPaletteEntry entry;
        entry.fId = "file/" + path;
        entry.fTitle = info.fileName();
        entry.fPath = menu + " > " + QDir::toNativeSeparators(info.path());
        entry.fIsEnabled = info.exists();
        entry.fReason = entry.fIsEnabled ? QString() : tr("The file is no longer there.");
        entry.fRun = [&files, path] { files.open({path}); };
        entries.append(entry);
    }
}

void addTemplates(QVector<TPaletteEntry> &entries, const TKelmoraHost &host)
{
    for (QObject *plugin : host.plugins()) {
        auto *templates = qobject_cast<IPluginTemplates *>(plugin);
        if (!templates)
            continue;
        for (const QString &path : templates->recentTemplates()) {
            const QFileInfo info(path);
            TPaletteEntry entry;
            entry.fId = "template/" + path;
            entry.fTitle = info.fileName();
            entry.fPath = templates->templateTitle() + " > " + QDir::toNativeSeparators(info.path());
            entry.fReason = info.exists() ? templates->templateProblem() : tr("The file is no longer there.");
            entry.fIsEnabled = entry.fReason.isEmpty();
            entry.fRun = [templates, path] { templates->openTemplate(path); };
            entries.append(entry);
        }
    }
}

void addSamples(QVector<TPaletteEntry> &entries, TFileController &files)
{
    for (const QString &path : TFileController::samples()) {
        TPaletteEntry entry;
        entry.fTitle = QFileInfo(path).completeBaseName();
        entry.fId = "sample/" + entry.fTitle;
        entry.fPath = tr("File > Samples");
        entry.fRun = [&files, path] { files.open({path}); };
        entries.append(entry);
    }
}

void addPages(QVector<TPaletteEntry> &entries, TDocumentController &documents)
{
    for (int i = 0; i < documents.count(); ++i) {
        TDocument *document = documents.viewAt(i)->document();
        const QList<TPage *> pages = document->pages();
        for (int place = 0; place < pages.size(); ++place) {
            const QString title = pages.at(place)->title();
            TPaletteEntry entry;
            entry.fTitle = title.isEmpty() ? tr("Page %1").arg(place + 1) : tr("Page %1: %2").arg(place + 1).arg(title);
            entry.fPath = TDocumentController::titleOf(*document);
            entry.fIsCheckable = true;
            entry.fIsChecked = pages.at(place) == documents.page();
            entry.fRun = [&documents, i, page = pages.at(place)] {
                documents.show(i);
                documents.setPage(page); // does nothing for one that has gone
            };
            entries.append(entry);
        }
    }
}

} // namespace

QVector<TPaletteEntry> paletteEntries(const QMenuBar &bar, TActionTable &table, TDocumentController &documents,
                                      TFileController &files, const TKelmoraHost &host)
{
    QVector<TPaletteEntry> entries;
    addActions(entries, bar, table);
    addSamples(entries, files);
    addFiles(entries, files.recentDocuments() + files.recentFiles(), tr("File > Open Recent"), files);
    addTemplates(entries, host);
    addPages(entries, documents);
    return entries;
}
