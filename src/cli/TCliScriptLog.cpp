#include "TCliScriptLog.h"

#include "TCanvasYrexSpectrum.h"
#include "TCliInput.h"
#include "TCliTarget.h"
#include "commands/TCommandHistory.h"
#include "exchange/ExportFile.h"

#include <QFileInfo>
#include <QUndoStack>

namespace {

constexpr double cPageWidth = 297.0; // mm, in which pictures are laid out
constexpr double cMmPerInch = 25.4;

} // namespace

bool TCliScriptLog::plan(const QString &path, bool replaces, const QStringList &inputs, QString &error)
{
    if (path.isEmpty())
        return true;
    const QFileInfo place(path);
    error = TCliTarget::obstacle(path, replaces);
    if (error.isEmpty() && !place.absoluteDir().exists())
        error = QString("there is no folder %1").arg(place.path());
    const QString source = TCliTarget::sourceObstacle(path, TCliTarget::keysOf(inputs));
    if (!source.isEmpty())
        error = source;
    if (!error.isEmpty()) {
        error = "--save-script: " + error;
        return false;
    }
    fPath = place.absoluteFilePath();
    return true;
}

void TCliScriptLog::add(const QString &function, const QVariantList &arguments)
{
    fSteps.append({QString(), {TScriptStep::function(function, arguments)}});
}

void TCliScriptLog::begin(const TCliInput &input)
{
    if (fHasInput)
        add("newDocument", {});
    fHasInput = true;
    if (input.fIsDocument) // other files are opened by steps of the history
        add("openDocument", {TScriptStep::path(input.fFile)});
}

void TCliScriptLog::addSteps(const TCommandHistory &history)
{
    for (int i = 0; i < history.count(); ++i) {
        const TCommandHistory::TStep step = history.step(i);
        fSteps.append({step.fText, step.fScript});
    }
}

void TCliScriptLog::addData(const TCliTarget &target, const TCliInput &input, int index)
{
    if (target.isStandardOutput() || target.form() == "json")
        return;
    if (target.form() == "klm") {
        add("saveDocument", {TScriptStep::path(target.path(index))});
        return;
    }
    const QStringList paths = target.itemPaths(index, input.fItems.size());
    for (int i = 0; i < paths.size(); ++i)
        add("exportData", {TScriptStep::item(input.fItems.at(i)), TScriptStep::path(paths.at(i))});
}

void TCliScriptLog::addPictures(const TCliTarget &target, const TCliInput &input, int index, const QSize &size)
{
    const QVariantMap looks{{"width", cPageWidth},
                            {"height", cPageWidth * size.height() / size.width()},
                            {"dpi", size.width() * cMmPerInch / cPageWidth},
                            {"background", "shown"}};
    const QStringList paths = target.itemPaths(index, input.fItems.size());
    for (int i = 0; i < paths.size(); ++i)
        add("exportPicture", {TScriptStep::item(input.fItems.at(i)), TScriptStep::path(paths.at(i)), looks});
}

bool TCliScriptLog::write(const QString &remark, QString &error) const
{
    const QString text = TScriptWriter::script(fSteps, remark, QFileInfo(fPath).absoluteDir());
    return ExportFile::write(fPath, text.toUtf8(), &error);
}
