#pragma once

#include "commands/TCommand.h"
#include "history/THistoryCommand.h"

/// A command of two function objects, for edits that need no class of their own. Both hold what they need by value, and
/// find what they change by its place, since other commands' undo may make records anew.
template <class Do, class Undo>
class TUndoableCommandTemplate : public TCommand
{
public:
    /// `item` is not owned and may be null; it has to live until the first do step is done.
    TUndoableCommandTemplate(const QString &description, const Do &doStep, const Undo &undoStep,
                             const QList<THistoryParameter> &params, THistoryItem *item)
        : TCommand(description)
        , fDo(doStep)
        , fUndo(undoStep)
        , fParams(params)
        , fItem(item)
    {
    }

    /// What a script calls to do the same.
    void setScriptStep(const TScriptStep &step) { fScript = step; }
    TScriptStep scriptStep() const override { return fScript; }
    void doCmd() override { fDo(); }
    void undoCmd() override { fUndo(); }
    void doHistoryCommand() override
    {
        auto *entry = new THistoryCommand(description(), fItem, QString());
        for (const THistoryParameter &param : fParams) {
            if (param.fOldValue.isValid())
                entry->addChange(param.fName, param.fValue, param.fOldValue);
            else
                entry->addParam(param.fName, param.fValue, param.fText);
        }
        appendHistoryCommand(entry, fItem);
    }

private:
    Do fDo;
    Undo fUndo;
    QList<THistoryParameter> fParams;
    THistoryItem *fItem;
    TScriptStep fScript;
};
