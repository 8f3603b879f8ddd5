#pragma once

#include <QtGlobal>

/// The resident memory that a piece of work takes at its peak above what the process held before (Linux).
class TPeakMemory
{
public:
    /// Gives free heap pages back and starts to watch.
    TPeakMemory();
    /// Bytes above the start; -1 where the system does not tell.
    qint64 peak() const;
    /// Bytes that the process holds, free heap pages given back; -1 where the system does not tell.
    static qint64 now();

private:
    qint64 fStart;
};
