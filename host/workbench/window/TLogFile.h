#pragma once

#include <QFile>
#include <QString>

struct TLogEntry;

/// Writes the log of the process to a file, with the logs of the last runs beside it, so that what went wrong can be
/// looked up and sent on.
class TLogFile
{
public:
    static constexpr int cKeptRuns = 3;
    static constexpr qint64 cMaxBytes = 5 * 1024 * 1024; // what comes later in a run is left out

    /// Begins the log of this run in a folder, which is made where it is missing.
    explicit TLogFile(const QString &folder);
    ~TLogFile();
    TLogFile(const TLogFile &) = delete;
    TLogFile &operator=(const TLogFile &) = delete;

    /// In the state folder of the user.
    static QString defaultFolder();

private:
    void write(const TLogEntry &entry);

    QFile fFile;
    int fSink = -1;
};
