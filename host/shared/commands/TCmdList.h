#pragma once

#include "commands/TCommand.h"

/// Commands that make one step: done in order, undone in reverse. It owns them. Those that turn out to have nothing to
/// do leave it, and without any left it is void.
class TCmdList : public TCommand
{
    Q_OBJECT

public:
    explicit TCmdList(const QString &description = QString())
        : TCommand(description)
    {
    }
    ~TCmdList() override { qDeleteAll(fCommands); }

    void append(TCommand *command) { fCommands.append(command); }
    /// How scripts do the whole list. Without, a list of one command is told as that command.
    void setScriptStep(const TScriptStep &step) { fStep = step; }
    bool isEmpty() const { return fCommands.isEmpty(); }
    int count() const { return fCommands.size(); }

    bool isVoid() const override { return TCommand::isVoid() || isEmpty(); }
    bool isViewOnly() const override;
    TScriptStep scriptStep() const override;
    void completeScriptStep(TScriptStep &step) const override;
    QList<THistoryCommand *> historyCmdList() const override;
    void doHistoryCommand() override;
    void undoHistoryCommand() override;
    void redoHistoryCommand() override;
    void removeHistoryCommand() override;
    void doCmd() override;
    void undoCmd() override;

private:
    QList<TCommand *> fCommands;
    TScriptStep fStep;
    bool fWasDone = false;
};
