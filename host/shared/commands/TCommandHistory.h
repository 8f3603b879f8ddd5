#pragma once

#include "commands/TScriptStep.h"

#include <QList>
#include <QString>
#include <QUndoStack>
#include <functional>
#include <memory>

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
    /// A press to its release, a key held, a run of wheel events: within one, commands that accept each other
    /// (TCommand::mergeCommand) make one undo step. Outside of gestures nothing merges.
    void beginGesture();
    /// A gesture of edits that each set the same things anew, as those of a dock: within it a command that
    /// TCommand::replacesInEditRun says so of is preceded by the undo of its predecessor, which leaves the step, so
    /// that the step holds what one command holds. Ends with endGesture.
    void beginEditRun();
    void endGesture();
    /// The number of the present gesture; 0 outside of gestures.
    int gesture() const { return fInGesture ? fGesture : 0; }

    /// Whether anything but views changed since setClean.
    bool isModified() const { return stamp() != fCleanStamp; }
    /// What the document holds now is saved.
    void setClean();
    /// What the document holds now stands nowhere on the disk: it is modified until it is saved.
    void setUnsaved();
    /// Steps that changed more than views and would be lost with what is not saved.
    int unsavedSteps() const;
    /// New steps so far that changed more than views; undo and redo do not count.
    int editCount() const { return fEditCount; }
    /// Whether a gesture or a group of commands is under way, so that the document stands between two steps.
    bool isBusy() const { return fInGesture || fMergeDepth > 0; }
    /// Called after every step, its undo and redo.
    void setChangedHandler(const std::function<void()> &handler) { fChanged = handler; }

    /// Called when a command took the place of another within an edit run, of which the undo stack does not tell.
    void setReplacedHandler(const std::function<void()> &handler) { fReplaced = handler; }

    /// The ids of all items of the document, in its order; steps of scripts tell items by their places there.
    void setItemIds(const std::function<QList<QUuid>()> &itemIds) { fItemIds = itemIds; }

    /// Asked before a new command changes more than views; false gives the command up. For edits that go on for a
    /// while and would be mixed up with others.
    void setPushGuard(const std::function<bool(const TCommand &)> &guard) { fPushGuard = guard; }

    QUndoStack *stack() { return &fStack; }
    /// The entries of all commands on the stack, in the order in which they were done.
    QList<THistoryCommand *> entries() const;

    /// What the undo stack holds at one of its places.
    struct TStep
    {
        QString fText;
        QList<THistoryCommand *> fEntries; // not owned; of all commands of a group
        QVector<TScriptStep> fScript;      // one per command, in their order
        bool fIsViewOnly = false;
        int fNumber = 0; // of its newest command among all that were pushed so far, from 1
    };
    /// How many commands were pushed so far; undo and redo do not count.
    int pushedCount() const { return fPushed; }
    /// How many steps are done; those behind can be done again.
    int count() const { return fStack.index(); }
    /// `index` is that of the undo stack.
    TStep step(int index) const;

private:
    class TStackEntry;

    TStackEntry *newestOfGesture() const;
    bool replaceInRun(std::unique_ptr<TCommand> &command);
    bool joinGesture(std::unique_ptr<TCommand> &command, const TScriptStep &script);
    /// Runs a new command, and what a script calls to do so.
    TScriptStep run(TCommand &command) const;
    QList<QUuid> itemIds() const { return fItemIds ? fItemIds() : QList<QUuid>(); }
    static void addTo(TStep &step, const QUndoCommand *command);
    void changed();
    /// Names the state of the document: the last step done that changed more than views; 0 without one.
    qint64 stamp() const;

    std::function<void()> fReplaced;
    std::function<QList<QUuid>()> fItemIds;
    std::function<bool(const TCommand &)> fPushGuard;
    std::function<void()> fChanged; // stands before the stack, whose end calls it no more
    qint64 fLastStamp = 0;
    int fPushed = 0;
    qint64 fCleanStamp = 0;
    int fEditCount = 0;
    int fGesture = 0;
    bool fInGesture = false;
    bool fIsEditRun = false;
    QList<TStackEntry *> fEntries; // owned by the stack; stands before it, since its entries sign off here
    QUndoStack fStack;
    int fMergeDepth = 0;
    bool fMergedAny = false;
    QString fMergedText;
};
