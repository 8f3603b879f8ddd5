#pragma once

#include <QByteArray>
#include <QString>

/// Where a command line program writes: results to one stream, everything else to the other.
class IConsole
{
public:
    virtual ~IConsole() = default;
    virtual void out(const QByteArray &bytes) = 0;
    virtual void err(const QString &line) = 0;
    /// Shows how far the work is: a bar on a terminal, nothing otherwise.
    virtual void progress(const QString &what, int done, int total) = 0;
    virtual void setQuiet(bool quiet) = 0;
    /// The program that started this one and holds its standard input wants no further files: it closed it or wrote to
    /// it. Tells something for a program that was started so only.
    virtual bool isStopWanted() const { return false; }
};
