#include "commands/TCommandHistory.h"

#include "commands/IRunSuccessor.h"
#include "commands/TCommand.h"
#include "history/THistoryCommand.h"

#include <QSet>
#include <QUndoCommand>
#include <algorithm>
#include <vector>

namespace {

constexpr qint64 cNeverSaved = -1; // no step has that stamp

} // namespace

/// A command's place on the stack, with those that joined it. They were run before they got there, so the first redo
/// does nothing.
class TCommandHistory::TStackEntry : public QUndoCommand
{
public:
    TStackEntry(TCommandHistory &history, std::unique_ptr<TCommand> command, const TScriptStep &script)
        : QUndoCommand(command->description())
        , fHistory(history)
        , fGesture(history.gesture())
    {
        fHistory.fEntries.append(this);
        take(std::move(command), script);
    }
    ~TStackEntry() override
    {
        fHistory.fEntries.removeOne(this);
        if (!isEmpty())
            last().removeHistoryCommand();
    }
    void undo() override
    {
        for (auto it = fCommands.rbegin(); it != fCommands.rend(); ++it)
            (*it)->revert();
        if (!isEmpty())
            last().undoHistoryCommand();
        fHistory.changed();
    }
    void redo() override
    {
        if (isDone())
            return;
        for (const std::unique_ptr<TCommand> &command : fCommands)
            command->execute();
        last().redoHistoryCommand();
        fHistory.changed();
    }
    /// Takes over a command that was run.
    void take(std::unique_ptr<TCommand> command, const TScriptStep &script)
    {
        fScript.append(script);
        fNumber = ++fHistory.fPushed;
        if (!command->isViewOnly())
            fStamp = ++fHistory.fLastStamp;
        setText(command->description());
        fCommands.push_back(std::move(command));
    }
    /// Undoes and gives up the last command; the next one takes its place.
    void dropLast(TCommand &next)
    {
        last().revert();
        if (auto *successor = dynamic_cast<IRunSuccessor *>(&next))
            successor->takeFrom(last());
        last().removeHistoryCommand();
        fCommands.pop_back();
        fScript.removeLast();
    }
    bool isDone() const { return !fCommands.empty() && last().isDone(); }
    bool isEmpty() const { return fCommands.empty(); }
    /// The last command's entries tell of all.
    QList<THistoryCommand *> entries() const
    {
        return fCommands.empty() ? QList<THistoryCommand *>() : last().historyCmdList();
    }
    int gesture() const { return fGesture; }
    /// 0 for a step that changed views only.
    qint64 stamp() const { return fStamp; }
    int number() const { return fNumber; }
    TCommand &last() const { return *fCommands.back(); }
    const QVector<TScriptStep> &script() const { return fScript; }

private:
    TCommandHistory &fHistory;
    std::vector<std::unique_ptr<TCommand>> fCommands;
    QVector<TScriptStep> fScript; // one per command
    int fGesture;
    qint64 fStamp = 0;
    int fNumber = 0;
};

void TCommandHistory::changed()
{
    if (fChanged)
        fChanged();
}

qint64 TCommandHistory::stamp() const
{
    for (int i = fEntries.size() - 1; i >= 0; --i) {
        if (fEntries.at(i)->isDone() && fEntries.at(i)->stamp() != 0)
            return fEntries.at(i)->stamp();
    }
    return 0;
}

void TCommandHistory::setClean()
{
    fCleanStamp = stamp();
    fStack.setClean();
    changed();
}

void TCommandHistory::setUnsaved()
{
    fCleanStamp = cNeverSaved;
    fStack.resetClean();
    changed();
}

int TCommandHistory::unsavedSteps() const
{
    return int(std::count_if(fEntries.begin(), fEntries.end(), [this](const TStackEntry *entry) {
        // done since, or undone since
        return entry->stamp() != 0 && entry->isDone() == (entry->stamp() > fCleanStamp);
    }));
}

void TCommandHistory::beginGesture()
{
    ++fGesture;
    fInGesture = true;
    fIsEditRun = false;
}

void TCommandHistory::beginEditRun()
{
    beginGesture();
    fIsEditRun = true;
}

void TCommandHistory::endGesture()
{
    fInGesture = false;
    fIsEditRun = false;
}

/// The newest step, when the present gesture made it and it is done; null otherwise.
TCommandHistory::TStackEntry *TCommandHistory::newestOfGesture() const
{
    if (!fInGesture || fMergeDepth > 0 || fEntries.isEmpty())
        return nullptr;
    TStackEntry *newest = fEntries.last();
    return newest->isDone() && newest->gesture() == fGesture ? newest : nullptr;
}

/// False when the command makes a step of its own or follows its predecessor.
bool TCommandHistory::replaceInRun(std::unique_ptr<TCommand> &command)
{
    TStackEntry *newest = newestOfGesture();
    if (!fIsEditRun || !newest || !command->replacesInEditRun() || !newest->last().mergeCommand(command.get()))
        return false;
    newest->dropLast(*command);
    const TScriptStep script = run(*command);
    if (!command->isVoid()) {
        command->doHistoryCommand();
        newest->take(std::move(command), script);
    } else if (newest->isEmpty()) { // the run is back where it began
        newest->setObsolete(true);
        fStack.undo(); // which deletes an obsolete step
    }
    changed();
    if (fReplaced)
        fReplaced();
    return true;
}

TScriptStep TCommandHistory::run(TCommand &command) const
{
    const QList<QUuid> before = itemIds();
    TScriptStep script = command.scriptStep();
    command.execute();
    if (script.isEmpty())
        return script;
    command.completeScriptStep(script);
    script.setPlaces(before);
    QList<QUuid> made;
    const QSet<QUuid> known(before.begin(), before.end());
    for (const QUuid &id : itemIds()) {
        if (!known.contains(id))
            made.append(id);
    }
    script.setMade(made);
    return script;
}

bool TCommandHistory::joinGesture(std::unique_ptr<TCommand> &command, const TScriptStep &script)
{
    TStackEntry *newest = newestOfGesture();
    if (!newest || !newest->last().mergeCommand(command.get()))
        return false;
    newest->last().removeHistoryCommand(); // one entry, with the last parameters
    newest->take(std::move(command), script);
    return true;
}

bool TCommandHistory::push(TCommand *command)
{
    std::unique_ptr<TCommand> owned(command);
    if (!command || command->isVoid())
        return false;
    const auto guard = fPushGuard; // it may be taken away while it is asked
    if (guard && !command->isViewOnly() && !guard(*command))
        return false;
    if (replaceInRun(owned))
        return !owned; // a void command is left over
    const TScriptStep script = run(*command);
    if (command->isVoid()) // running it showed that there was nothing to do
        return false;
    command->doHistoryCommand();
    const bool isFirst = fMergeDepth == 0 || !fMergedAny;
    const bool isEdit = !command->isViewOnly();
    if (!joinGesture(owned, script)) {
        fEditCount += isFirst && isEdit;
        if (fMergeDepth > 0 && !fMergedAny) {
            fMergedAny = true;
            fStack.beginMacro(fMergedText.isEmpty() ? command->description() : fMergedText);
        }
        fStack.push(new TStackEntry(*this, std::move(owned), script));
    }
    changed();
    return true;
}

void TCommandHistory::beginMerged(const QString &text)
{
    if (fMergeDepth++ > 0)
        return;
    fMergedAny = false;
    fMergedText = text;
}

void TCommandHistory::endMerged()
{
    if (fMergeDepth == 0 || --fMergeDepth > 0)
        return;
    if (fMergedAny)
        fStack.endMacro();
}

QList<THistoryCommand *> TCommandHistory::entries() const
{
    QList<THistoryCommand *> entries;
    for (const TStackEntry *entry : fEntries)
        entries += entry->entries();
    return entries;
}

void TCommandHistory::addTo(TStep &step, const QUndoCommand *command)
{
    if (const auto *entry = dynamic_cast<const TStackEntry *>(command)) {
        step.fEntries += entry->entries();
        step.fScript += entry->script();
        step.fNumber = qMax(step.fNumber, entry->number());
        step.fIsViewOnly = step.fIsViewOnly && entry->stamp() == 0;
    }
    for (int i = 0; i < command->childCount(); ++i) {
        if (const QUndoCommand *child = command->child(i))
            addTo(step, child);
    }
}

TCommandHistory::TStep TCommandHistory::step(int index) const
{
    TStep step;
    if (const QUndoCommand *command = fStack.command(index)) {
        step.fText = command->text();
        step.fIsViewOnly = true;
        addTo(step, command);
    }
    return step;
}
