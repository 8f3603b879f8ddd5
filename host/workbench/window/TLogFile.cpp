#include "TLogFile.h"

#include "TAutosaveFile.h"
#include "log/TLogger.h"

#include <QDir>

namespace {

/// The name of the log of a run: 0 is this one, 1 the one before.
QString nameOf(const QString &folder, int run)
{
    const QString name = run == 0 ? QString("kelmora.log") : QString("kelmora.%1.log").arg(run);
    return QDir(folder).filePath(name);
}

} // namespace

TLogFile::TLogFile(const QString &folder)
{
    QDir().mkpath(folder);
    QFile::remove(nameOf(folder, cKeptRuns));
    for (int run = cKeptRuns - 1; run >= 0; --run)
        QFile::rename(nameOf(folder, run), nameOf(folder, run + 1));
    fFile.setFileName(nameOf(folder, 0));
    if (!fFile.open(QIODevice::WriteOnly | QIODevice::Text)) {
        TLogger::printToLogger("Kelmora", QString("no log is kept: %1").arg(fFile.errorString()), TLogger::cError);
        return;
    }
    fSink = TLogger::addSink([this](const TLogEntry &entry) { write(entry); });
}

TLogFile::~TLogFile()
{
    if (fSink >= 0)
        TLogger::removeSink(fSink);
}

QString TLogFile::defaultFolder()
{
    return QDir(TAutosaveFile::defaultFolder()).filePath("log");
}

void TLogFile::write(const TLogEntry &entry)
{
    if (entry.fLevel > TLogger::cInformation || fFile.size() > cMaxBytes)
        return;
    const QString line = QString("%1 %2: %3\n").arg(entry.fTime.toString(Qt::ISODate), entry.fCategory, entry.fText);
    fFile.write(line.toUtf8());
    fFile.flush(); // the last lines before a crash are the ones that matter
}
