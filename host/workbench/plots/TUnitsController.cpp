#include "TUnitsController.h"

#include "TDocumentController.h"
#include "TUnitMemory.h"
#include "WDocumentView.h"
#include "WUnitBar.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "commands/TCommand.h"
#include "services/TKelmoraHost.h"

#include <QFileInfo>
#include <algorithm>

namespace {

QString nameOf(const QList<TUnitChoice> &choices, int code)
{
    const auto found = std::find_if(choices.begin(), choices.end(),
                                    [code](const TUnitChoice &choice) { return choice.fCode == code; });
    return found == choices.end() ? QString() : found->fName;
}

} // namespace

TUnitsController::TUnitsController(TKelmoraHost &host, TDocumentController &documents, TFileController &files)
    : QObject(&files)
    , fHost(host)
    , fDocuments(documents)
{
    connect(&files, &TFileController::imported, this, &TUnitsController::follow);
    connect(&documents, &TDocumentController::contentChanged, this, &TUnitsController::showOpenQuestions);
}

IPluginUnits *TUnitsController::pluginFor(const TImportedFile &file) const
{
    for (QObject *plugin : fHost.plugins()) {
        auto *units = qobject_cast<IPluginUnits *>(plugin);
        const auto isIts = [units](ICanvasItem *item) { return units->hasUnknownUnits(canvasItem(item)); };
        if (units && std::any_of(file.fItems.begin(), file.fItems.end(), isIts))
            return units;
    }
    return nullptr;
}

void TUnitsController::follow(const QList<TImportedFile> &files)
{
    QMap<IPluginUnits *, QList<TImportedFile>> open;
    for (const TImportedFile &file : files) {
        IPluginUnits *plugin = pluginFor(file);
        if (!plugin)
            continue;
        TImportedFile unknown{file.fPath, {}};
        for (ICanvasItem *item : file.fItems) {
            if (plugin->hasUnknownUnits(canvasItem(item)))
                unknown.fItems.append(item);
        }
        if (!setAsLastTime(*plugin, file, unknown.fItems))
            open[plugin].append(unknown);
    }
    for (auto it = open.constBegin(); it != open.constEnd(); ++it)
        ask(*it.key(), it.value());
}

bool TUnitsController::set(IPluginUnits &plugin, TDocument &document, const TCanvasItemList &items,
                           const TUnitPair &units)
{
    const QList<TCommand *> commands = plugin.setUnitsCommands(items, units);
    document.history().beginMerged();
    for (TCommand *command : commands)
        document.history().push(command);
    document.history().endMerged();
    return !commands.isEmpty();
}

bool TUnitsController::setAsLastTime(IPluginUnits &plugin, const TImportedFile &file, const TCanvasItemList &items)
{
    TUnitPair units;
    const QString ending = TUnitMemory::endingOf(file.fPath);
    if (!TUnitMemory::find(ending, units) || !set(plugin, *fDocuments.document(), items, units))
        return false;
    emit told(tr("%1: units set to %2 and %3, as chosen for .%4 files. Undo takes them back.")
                  .arg(QFileInfo(file.fPath).fileName(), nameOf(plugin.unitChoices(horzDir), units.fX),
                       nameOf(plugin.unitChoices(vertDir), units.fY), ending));
    return true;
}

void TUnitsController::ask(IPluginUnits &plugin, const QList<TImportedFile> &files)
{
    TQuestion question;
    question.fPlugin = &plugin;
    question.fDocument = fDocuments.document();
    for (const TImportedFile &file : files) {
        for (ICanvasItem *item : file.fItems)
            question.fItems.append(item->uniqueId());
        question.fEndings.append(TUnitMemory::endingOf(file.fPath));
    }
    const TImportedFile &first = files.first();
    auto *bar = new WUnitBar(plugin.unitChoices(horzDir), plugin.unitChoices(vertDir),
                             plugin.guessUnits(canvasItem(first.fItems.first()), first.fPath));
    question.fBar = bar;
    fDocuments.view()->addBar(bar);
    connect(bar, &WUnitBar::dismissed, bar, &QObject::deleteLater);
    connect(bar, &WUnitBar::accepted, this, [this, question] { answer(question); });
    fQuestions.append(question);
}

TCanvasItemList TUnitsController::unknownItems(const TQuestion &question) const
{
    TCanvasItemList items;
    for (const QUuid &id : question.fItems) {
        TCanvasItem *item = question.fDocument ? question.fDocument->item(id) : nullptr;
        if (item && question.fPlugin->hasUnknownUnits(item))
            items.append(item);
    }
    return items;
}

void TUnitsController::answer(const TQuestion &question)
{
    const TUnitPair units = question.fBar->units();
    for (const QString &ending : question.fEndings) {
        if (question.fBar->isRemembered())
            TUnitMemory::keep(ending, units);
    }
    question.fBar->deleteLater();
    const TCanvasItemList items = unknownItems(question);
    if (!items.isEmpty())
        set(*question.fPlugin, *question.fDocument, items, units);
    if (fDocuments.view())
        fDocuments.view()->setFocus();
}

/// A bar whose items were deleted, or got their units elsewhere, hides until undo brings the question back.
void TUnitsController::showOpenQuestions()
{
    for (int i = fQuestions.size() - 1; i >= 0; --i) {
        const TQuestion &question = fQuestions.at(i);
        if (!question.fBar)
            fQuestions.removeAt(i);
        else
            question.fBar->setVisible(!unknownItems(question).isEmpty());
    }
}
