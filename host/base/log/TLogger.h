#pragma once

#include <QDateTime>
#include <QString>
#include <functional>

/// One line of the log.
struct TLogEntry
{
    QDateTime fTime; // local time
    QString fCategory;
    QString fText;
    int fLevel = 2;
};

/// The log of the process: categories ("YREX"), four levels, and any number of listeners beside standard error.
class TLogger
{
public:
    enum TLevel { cFatal = 0, cError = 1, cInformation = 2, cDebug = 3 };
    using TSink = std::function<void(const TLogEntry &)>;

    /// Hands the text to standard error, when its level is shown there, and to every sink. A fatal text stands on
    /// standard error alone, without category. What a sink logs itself goes to standard error only.
    static void printToLogger(const QString &category, const QString &text, int level = cInformation);

    /// Levels up to this one are shown on standard error; -1 shows none. At first errors and fatal texts.
    static void setStderrLevel(int level);
    static int stderrLevel();

    /// Adds a listener of all levels; the answer is the number for removeSink.
    static int addSink(const TSink &sink);
    static void removeSink(int number);
};
