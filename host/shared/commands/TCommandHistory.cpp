#include "commands/TCommandHistory.h"

#include "commands/TCommand.h"
#include "history/THistoryCommand.h"

#include <QUndoCommand>
#include <memory>

/// A command's place on the stack. It was run before it got there, so the first redo does nothing.
class TCommandHistory::TStackEntry : public QUndoCommand
{
public:
    TStackEntry(TCommandHistory &history, TCommand *command)
        : QUndoCommand(command->description())
        , fHistory(history)
        , fCommand(command)
    {
        fHistory.fEntries.append(this);
    }
    ~TStackEntry() override
    {
        fHistory.fEntries.removeOne(this);
        fCommand->removeHistoryCommand();
    }
    void undo() override
    {
        fCommand->revert();
        fCommand->undoHistoryCommand();
    }
    void redo() override
    {
        if (fCommand->isDone())
            return;
        fCommand->execute();
        fCommand->redoHistoryCommand();
    }
    const TCommand &command() const { return *fCommand; }

private:
    TCommandHistory &fHistory;
    std::unique_ptr<TCommand> fCommand;
};

bool TCommandHistory::push(TCommand *command)
{
    std::unique_ptr<TCommand> owned(command);
    if (!command || command->isVoid())
        return false;
    command->execute();
    if (command->isVoid()) // running it showed that there was nothing to do
        return false;
    command->doHistoryCommand();
    if (fMergeDepth > 0 && !fMergedAny) {
        fMergedAny = true;
        fStack.beginMacro(fMergedText.isEmpty() ? command->description() : fMergedText);
    }
    fStack.push(new TStackEntry(*this, owned.release()));
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
        entries += entry->command().historyCmdList();
    return entries;
}
