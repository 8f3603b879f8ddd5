#include "commands/TCmdList.h"

#include <algorithm>

bool TCmdList::isViewOnly() const
{
    const auto isView = [](const TCommand *command) { return command->isViewOnly(); };
    return std::all_of(fCommands.begin(), fCommands.end(), isView);
}

QList<THistoryCommand *> TCmdList::historyCmdList() const
{
    QList<THistoryCommand *> entries;
    for (const TCommand *command : fCommands)
        entries += command->historyCmdList();
    return entries;
}

void TCmdList::doHistoryCommand()
{
    for (TCommand *command : qAsConst(fCommands))
        command->doHistoryCommand();
}

void TCmdList::undoHistoryCommand()
{
    for (TCommand *command : qAsConst(fCommands))
        command->undoHistoryCommand();
}

void TCmdList::redoHistoryCommand()
{
    for (TCommand *command : qAsConst(fCommands))
        command->redoHistoryCommand();
}

void TCmdList::removeHistoryCommand()
{
    for (TCommand *command : qAsConst(fCommands))
        command->removeHistoryCommand();
}

void TCmdList::doCmd()
{
    QList<TCommand *> done;
    for (TCommand *command : qAsConst(fCommands)) {
        const bool isAsked = !fWasDone; // what was done once is done again
        const bool isVoidBefore = isAsked && command->isVoid();
        if (!isVoidBefore)
            command->execute();
        if (isVoidBefore || (isAsked && command->isVoid()))
            delete command;
        else
            done.append(command);
    }
    fCommands = done;
    fWasDone = true;
}

void TCmdList::undoCmd()
{
    for (int i = fCommands.size() - 1; i >= 0; --i)
        fCommands.at(i)->revert();
}

TScriptStep TCmdList::scriptStep() const
{
    return fStep.isEmpty() && fCommands.size() == 1 ? fCommands.first()->scriptStep() : fStep;
}

void TCmdList::completeScriptStep(TScriptStep &step) const
{
    if (fStep.isEmpty() && fCommands.size() == 1)
        fCommands.first()->completeScriptStep(step);
}
