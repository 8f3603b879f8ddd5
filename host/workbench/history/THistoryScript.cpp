#include "THistoryScript.h"

#include "ScriptHabits.h"
#include "canvas/TDocument.h"
#include "commands/TCommandHistory.h"
#include "exchange/ExportFile.h"
#include "script/TScriptWriter.h"
#include "settings/TDefaultsIni.h"
#include "utils/CommonUtils.h"
#include "widgets/GuiUtils.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>

namespace {

constexpr char cEnding[] = ".js";

QString tr(const char *text)
{
    return QCoreApplication::translate("THistoryScript", text);
}

QString nameOf(const TDocument &document)
{
    return document.path().isEmpty() ? tr("a new document") : QFileInfo(document.path()).fileName();
}

/// Whether it speaks of items that it does not make itself.
bool needsDocument(const QVector<TScriptWriter::TUndoStep> &steps)
{
    QSet<QUuid> made;
    for (const TScriptWriter::TUndoStep &step : steps) {
        for (const TScriptStep &command : step.fCommands) {
            for (const TScriptItem &item : command.items()) {
                if (item.fPlace >= 0 && !made.contains(item.fId))
                    return true;
            }
            for (const QUuid &id : command.made())
                made.insert(id);
        }
    }
    return false;
}

} // namespace

QString THistoryScript::text(const TDocument &document, const QList<int> &steps, const QDir &folder)
{
    const TCommandHistory &history = document.history();
    QVector<TScriptWriter::TUndoStep> told;
    for (int i = 0; i < history.count(); ++i) {
        if (!steps.isEmpty() && !steps.contains(i))
            continue;
        const TCommandHistory::TStep step = history.step(i);
        told.append({step.fText, step.fScript});
    }
    if (told.isEmpty())
        return QString();
    QString remark =
        tr("Steps of %1, %2").arg(nameOf(document), Utils::Common::now().toLocalTime().date().toString(Qt::ISODate));
    if (needsDocument(told))
        remark += '\n' + tr("It works on the items of the open document, as they stood before these steps.");
    return TScriptWriter::script(told, remark, folder);
}

QString THistoryScript::save(const TDocument &document, const QList<int> &steps, QWidget *parent)
{
    TDefaultsIni settings;
    const QString folder = settings.value(ScriptHabits::cFolderKey, QDir::homePath()).toString();
    const QString base = document.path().isEmpty() ? tr("history") : QFileInfo(document.path()).completeBaseName();
    QString path = QFileDialog::getSaveFileName(parent, tr("Save History as Script"),
                                                QDir(folder).filePath(base + cEnding), tr("Scripts") + " (*.js)");
    if (path.isEmpty())
        return QString();
    if (QFileInfo(path).suffix().isEmpty())
        path += cEnding;
    const QDir place = QFileInfo(path).absoluteDir();
    QString error;
    const QByteArray script = text(document, steps, place).toUtf8();
    if (!ExportFile::write(path, script, &error)) {
        Utils::Gui::message(parent, QMessageBox::Warning, tr("Save History as Script"), error);
        return QString();
    }
    ScriptHabits::remember(script);
    settings.setValue(ScriptHabits::cFolderKey, place.absolutePath());
    return path;
}
