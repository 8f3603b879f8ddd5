#include "TCliJobs.h"

#include <QEventLoop>
#include <QProcess>

namespace {

TCliJobResult resultOf(QProcess &process)
{
    TCliJobResult result;
    result.fOutput = process.readAllStandardOutput();
    result.fErrors = process.readAllStandardError();
    result.fStatus = process.exitCode();
    result.fIsWhole = process.exitStatus() == QProcess::NormalExit && result.fOutput.endsWith(TCliJobs::endMark());
    if (result.fIsWhole)
        result.fOutput.chop(TCliJobs::endMark().size());
    return result;
}

} // namespace

QByteArray TCliJobs::endMark()
{
    return QByteArray("\0zarnu: done\n", 13); // no text holds a zero
}

void TCliJobs::start(int index, QEventLoop &loop)
{
    auto *process = new QProcess(&loop);
    process->setStandardInputFile(QProcess::nullDevice());
    QObject::connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &loop,
                     [this, index, process, &loop] {
                         finish(index, resultOf(*process), loop);
                         process->deleteLater();
                     });
    QObject::connect(process, &QProcess::errorOccurred, &loop,
                     [this, index, process, &loop](QProcess::ProcessError error) {
                         if (error != QProcess::FailedToStart) // every other error ends in finished
                             return;
                         TCliJobResult result;
                         result.fErrors = process->errorString().toLocal8Bit();
                         finish(index, result, loop);
                         process->deleteLater();
                     });
    process->start(fProgram, fCalls.at(index), QIODevice::ReadOnly);
}

void TCliJobs::finish(int index, const TCliJobResult &result, QEventLoop &loop)
{
    fWaiting.insert(index, result);
    while (fWaiting.contains(fNextToHandOver)) {
        fTaker(fNextToHandOver, fWaiting.take(fNextToHandOver));
        ++fNextToHandOver;
    }
    if (fIsStopWanted && fIsStopWanted())
        fCalls = fCalls.mid(0, fNextToStart);
    if (fNextToStart < fCalls.size())
        start(fNextToStart++, loop);
    else if (fNextToHandOver == fCalls.size())
        loop.quit();
}

void TCliJobs::run(const QList<QStringList> &calls, const TTaker &taker)
{
    fCalls = calls;
    fTaker = taker;
    fNextToStart = 0;
    fNextToHandOver = 0;
    if (calls.isEmpty())
        return;
    QEventLoop loop;
    const int atFirst = qMin(fAtOnce, calls.size());
    while (fNextToStart < atFirst)
        start(fNextToStart++, loop);
    if (fNextToHandOver < fCalls.size())
        loop.exec();
}
