#pragma once

class TCommand;

/// A command that can go on from what its predecessor kept, when it takes that one's place within an edit run.
class IRunSuccessor
{
public:
    virtual ~IRunSuccessor() = default;
    /// The predecessor was undone and goes behind this call; the items stand as it found them.
    virtual void takeFrom(TCommand &predecessor) = 0;
};
