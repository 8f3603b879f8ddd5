#pragma once

class QString;

/// The progress bar of long work.
class IProgressBar
{
public:
    virtual ~IProgressBar() = default;
    virtual void begin(const QString &what, int steps) = 0;
    /// False when the user cancelled.
    virtual bool step(int done) = 0;
    virtual void end() = 0;
};
