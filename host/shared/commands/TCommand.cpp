#include "commands/TCommand.h"

#include "history/THistoryCommand.h"
#include "utils/CommonUtils.h"

void TCommand::undoHistoryCommand()
{
    for (THistoryCommand *entry : qAsConst(fHistory))
        entry->setUndone(true);
}

void TCommand::redoHistoryCommand()
{
    for (THistoryCommand *entry : qAsConst(fHistory))
        entry->setUndone(false);
}

void TCommand::removeHistoryCommand()
{
    qDeleteAll(fHistory);
    fHistory.clear();
}

bool TCommand::mergeCommand(TCommand *next)
{
    return next && fMergeable && next->fMergeable && next->metaObject() == metaObject();
}

void TCommand::execute()
{
    if (fIdSeed.isNull())
        fIdSeed = Utils::Common::createUuid();
    const Utils::Common::TUuidScope scope(fIdSeed.toByteArray());
    doCmd();
    fDone = true;
}

void TCommand::revert()
{
    undoCmd();
    fDone = false;
}

void TCommand::appendHistoryCommand(THistoryCommand *command, THistoryItem *)
{
    if (!command)
        return;
    command->setParent(this);
    fHistory.append(command);
}
