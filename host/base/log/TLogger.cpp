#include "log/TLogger.h"

#include <QMap>
#include <cstdio>

namespace {

struct TLogState
{
    QMap<int, TLogger::TSink> fSinks;
    int fLastSink = 0;
    int fStderrLevel = TLogger::cError;
    bool fInSinks = false;
};

TLogState &state()
{
    static TLogState theState;
    return theState;
}

const char *levelName(int level)
{
    switch (level) {
    case TLogger::cError:
        return "error";
    case TLogger::cInformation:
        return "info";
    default:
        return "debug";
    }
}

void writeToStderr(const TLogEntry &entry)
{
    const QByteArray text = entry.fText.toLocal8Bit();
    if (entry.fLevel <= TLogger::cFatal)
        std::fprintf(stderr, "%s\n", text.constData());
    else
        std::fprintf(stderr, "%s %s: %s\n", entry.fCategory.toLocal8Bit().constData(), levelName(entry.fLevel),
                     text.constData());
    std::fflush(stderr);
}

} // namespace

void TLogger::printToLogger(const QString &category, const QString &text, int level)
{
    TLogState &log = state();
    const TLogEntry entry{QDateTime::currentDateTime(), category, text, level};
    if (level <= log.fStderrLevel)
        writeToStderr(entry);
    if (log.fInSinks)
        return;
    log.fInSinks = true;
    const QMap<int, TSink> sinks = log.fSinks; // a sink may remove itself
    for (const TSink &sink : sinks)
        sink(entry);
    log.fInSinks = false;
}

void TLogger::setStderrLevel(int level)
{
    state().fStderrLevel = level;
}

int TLogger::stderrLevel()
{
    return state().fStderrLevel;
}

int TLogger::addSink(const TSink &sink)
{
    const int number = ++state().fLastSink;
    state().fSinks.insert(number, sink);
    return number;
}

void TLogger::removeSink(int number)
{
    state().fSinks.remove(number);
}
