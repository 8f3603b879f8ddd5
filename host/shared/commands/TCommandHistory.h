#pragma once

#include <QList>
#include <QString>
#include <QUndoStack>

class TCommand;
class THistoryCommand;

/// The undo stack of a document, and the entries that tell what was done.
class TCommandHistory
{
public:
    TCommandHistory() = default;
    TCommandHistory(const TCommandHistory &) = delete;
    TCommandHistory &operator=(const TCommandHistory &) = delete;

    /// Takes over a command, runs it and puts it on the stack. A command that is void before or after it ran is
    /// deleted, and false is returned.
    bool push(TCommand *command);
    /// Everything pushed in between is one undo step. Groups do not nest into view; an empty one leaves nothing.
    void beginMerged(const QString &text = QString());
    void endMerged();

    QUndoStack *stack() { return &fStack; }
    /// The entries of all commands on the stack, in the order in which they were done.
    QList<THistoryCommand *> entries() const;

private:
    class TStackEntry;

    QList<TStackEntry *> fEntries; // owned by the stack; stands before it, since its entries sign off here
    QUndoStack fStack;
    int fMergeDepth = 0;
    bool fMergedAny = false;
    QString fMergedText;
};
