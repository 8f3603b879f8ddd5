#pragma once

#include <QString>

class IBatchHost;
class IConsole;
class IPluginHost;

/// Exit statuses of the program.
enum TCliStatus : int {
    cCliAllDone = 0,
    cCliInputFailed = 1, // at least one input failed, the others were done
    cCliUsageError = 2
};

/// What a command works with.
struct TCliEnvironment
{
    IPluginHost &fHost;
    IBatchHost &fBatch;
    IConsole &fConsole;
    qint64 fSpoolLimit = 0; // bytes of an input that can be read only once

    /// The line of an input that failed: "zarnu: FILE: REASON (code N)".
    static QString failureLine(const QString &file, const QString &reason, int code);
    /// Writes a line about something that stops nothing.
    void warn(const QString &text) const;
    /// Writes the line of a usage error and returns its status.
    int refuse(const QString &text) const;
    /// Version of the program.
    static QString version();
};
