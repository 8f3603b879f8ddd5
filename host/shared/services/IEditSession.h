#pragma once

class TCommand;

/// An edit that goes on for a while and reaches the history of the document as one step when it ends. As long as it
/// is in front (IGuiHost::setEditSession), undo and redo are those of its own steps.
class IEditSession
{
public:
    virtual ~IEditSession() = default;
    virtual bool canUndo() const = 0;
    virtual bool canRedo() const = 0;
    virtual void undo() = 0;
    virtual void redo() = 0;
    /// The document is about to be saved or closed, so the session ends; the user is asked what becomes of its changes.
    /// False when the user wants to stay.
    virtual bool leave() = 0;
    /// Whether a command may change the document while the session goes on; any other ends the session first.
    virtual bool allows(const TCommand &command) const = 0;
    /// A copy of the document is made while the session goes on: it is to hold the items as they were before the
    /// session. Nothing is drawn or edited until comeBack.
    virtual void stepAside() = 0;
    virtual void comeBack() = 0;
};
