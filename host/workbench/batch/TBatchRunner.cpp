#include "TBatchRunner.h"

#include <QStandardPaths>
#include <QThread>

namespace {

constexpr char cProgram[] = "zarnu";
constexpr char cPrefix[] = "zarnu: ";
constexpr char cWarning[] = "warning: ";
constexpr int cMostJobs = 8;
constexpr int cPatience = 3000; // ms for the files under way when the window goes
constexpr int cUsageError = 2;

} // namespace

TBatchRunner::TBatchRunner(QObject *parent)
    : QObject(parent)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("QT_QPA_PLATFORM"); // the screen of this program
    fProcess.setProcessEnvironment(environment);
    fProcess.setStandardOutputFile(QProcess::nullDevice());
    connect(&fProcess, &QProcess::readyReadStandardError, this, &TBatchRunner::read);
    connect(&fProcess, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, &TBatchRunner::end);
    connect(&fProcess, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) // every other error ends in finished
            emit finished(tr("The program %1 cannot be started: %2.").arg(cProgram, fProcess.errorString()));
    });
}

TBatchRunner::~TBatchRunner()
{
    fProcess.disconnect(this);
    if (!isRunning())
        return;
    cancel();
    if (!fProcess.waitForFinished(cPatience))
        fProcess.kill();
    fProcess.waitForFinished(cPatience);
}

QString TBatchRunner::program()
{
    const QString beside = QStandardPaths::findExecutable(cProgram, {QCoreApplication::applicationDirPath()});
    return beside.isEmpty() ? QStandardPaths::findExecutable(cProgram) : beside;
}

void TBatchRunner::start(const TBatchRequest &request)
{
    if (isRunning())
        return;
    fFiles = request.fFiles;
    fTold.clear();
    fRest.clear();
    fLastLine.clear();
    const int jobs = qBound(1, qMin(QThread::idealThreadCount(), fFiles.size()), cMostJobs);
    fProcess.start(program(), request.arguments() + QStringList{"--jobs", QString::number(jobs), "--follow"});
}

void TBatchRunner::cancel()
{
    fProcess.closeWriteChannel();
}

void TBatchRunner::read()
{
    fRest += fProcess.readAllStandardError();
    for (int end = fRest.indexOf('\n'); end >= 0; end = fRest.indexOf('\n')) {
        take(QString::fromLocal8Bit(fRest.left(end)));
        fRest.remove(0, end + 1);
    }
}

int TBatchRunner::rowOf(const QString &line, QString &rest) const
{
    for (int row = 0; row < fFiles.size(); ++row) {
        const QString start = fFiles.at(row) + ": ";
        if (fTold.contains(row) || !line.startsWith(start))
            continue;
        rest = line.mid(start.size());
        return row;
    }
    return -1;
}

void TBatchRunner::take(const QString &line)
{
    if (!line.startsWith(cPrefix))
        return;
    QString text = line.mid(int(qstrlen(cPrefix)));
    const bool isWarning = text.startsWith(cWarning);
    if (isWarning)
        text = text.mid(int(qstrlen(cWarning)));
    QString rest = text;
    const int row = rowOf(text, rest);
    if (isWarning) {
        emit warned(row, rest);
        return;
    }
    fLastLine = text;
    if (row < 0)
        return;
    fTold.insert(row);
    if (rest == "done")
        emit fileDone(row);
    else
        emit fileFailed(row, rest);
}

void TBatchRunner::end()
{
    read();
    const bool isNormal = fProcess.exitStatus() == QProcess::NormalExit;
    const bool isRefused = fProcess.exitCode() == cUsageError || (fProcess.exitCode() != 0 && fTold.isEmpty());
    QString error;
    if (!isNormal)
        error = tr("The program %1 ended before it was done.").arg(cProgram);
    if (isNormal && isRefused)
        error = fLastLine;
    emit finished(error);
}
