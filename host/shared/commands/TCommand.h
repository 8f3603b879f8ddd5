#pragma once

#include "commands/TScriptStep.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUuid>

class THistoryCommand;
class THistoryItem;

/// One undoable step. It is made, pushed on the history, which runs it, and lives there; only execute and revert set
/// the done flag. A command owns what it took out of the document while it is done, and what it put in while it is
/// undone.
class TCommand : public QObject
{
    Q_OBJECT

public:
    explicit TCommand(const QString &description)
        : fDescription(description)
    {
    }

    QString description() const { return fDescription; }
    void setDescription(const QString &description) { fDescription = description; }
    bool isDone() const { return fDone; }
    bool isMergeable() const { return fMergeable; }
    void setMergeableFlag(bool mergeable) { fMergeable = mergeable; }
    /// A command that turned out to have nothing to do.
    void setVoidFlag(bool isVoid) { fVoid = isVoid; }

    /// Writes the command's entries; called once, after the first do step, since that makes what they tell.
    virtual void doHistoryCommand() {}
    /// The command was undone: its entries turn grey.
    virtual void undoHistoryCommand();
    /// The command was done again.
    virtual void redoHistoryCommand();
    /// The command goes; its entries with it.
    virtual void removeHistoryCommand();
    virtual bool isVoid() const { return fVoid; }
    /// Whether it changes no more than how things are seen. Such a step can be undone, but leaves nothing to save.
    virtual bool isViewOnly() const { return false; }
    virtual QList<THistoryCommand *> historyCmdList() const { return fHistory; }
    /// What a script calls to do this command again, asked before it runs for the first time; an empty step when it
    /// cannot be told.
    virtual TScriptStep scriptStep() const { return TScriptStep(); }
    /// Adds what is known only once the command ran for the first time.
    virtual void completeScriptStep(TScriptStep &) const {}
    virtual void doCmd() = 0;
    virtual void undoCmd() = 0;
    /// Whether `next` may join this undo step. Here: both mergeable, of one class.
    virtual bool mergeCommand(TCommand *next);

    /// Whether it sets what its predecessor set, so that within an edit run it takes the place of one that accepts it
    /// instead of following it.
    virtual bool replacesInEditRun() const { return false; }

    /// Does or undoes the step and notes which; nothing else sets the done flag.
    void execute();
    void revert();

protected:
    /// Takes over an entry of the history.
    void appendHistoryCommand(THistoryCommand *command, THistoryItem *item);

private:
    QString fDescription;
    QList<THistoryCommand *> fHistory; // children of this object
    QUuid fIdSeed;                     // what a do step makes has the same ids each time
    bool fDone = false;
    bool fMergeable = false;
    bool fVoid = false;
};
