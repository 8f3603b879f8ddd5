#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <functional>

class QEventLoop;

/// What a process left behind.
struct TCliJobResult
{
    QByteArray fOutput; // without the end mark
    QByteArray fErrors;
    int fStatus = 0;
    bool fIsWhole = false; // it wrote its end mark
};

/// Runs a program several times with different arguments, some at once, and hands over what they wrote in the order of
/// the calls.
class TCliJobs
{
public:
    using TTaker = std::function<void(int index, const TCliJobResult &result)>;

    TCliJobs(const QString &program, int atOnce)
        : fProgram(program)
        , fAtOnce(atOnce)
    {
    }

    /// Asked whenever one has ended: when it says yes, no further ones start and the rest are never handed over.
    void setStopCheck(const std::function<bool()> &isStopWanted) { fIsStopWanted = isStopWanted; }
    /// Returns when all have ended and were handed over.
    void run(const QList<QStringList> &calls, const TTaker &taker);

    /// What a process writes behind its output when it came to its end.
    static QByteArray endMark();

private:
    void start(int index, QEventLoop &loop);
    void finish(int index, const TCliJobResult &result, QEventLoop &loop);

    QString fProgram;
    int fAtOnce;
    QList<QStringList> fCalls;
    TTaker fTaker;
    std::function<bool()> fIsStopWanted;
    int fNextToStart = 0;
    int fNextToHandOver = 0;
    QMap<int, TCliJobResult> fWaiting; // ended before their turn
};
