#pragma once

#include "TBatchRequest.h"

#include <QObject>
#include <QProcess>
#include <QSet>

/// Runs the command line program on many files and follows it, so that the window goes on meanwhile and the results
/// are those of the command line.
class TBatchRunner : public QObject
{
    Q_OBJECT

public:
    explicit TBatchRunner(QObject *parent = nullptr);
    /// Ends a run; results are whole or not there.
    ~TBatchRunner() override;

    /// The command line program, which stands beside this one or where the system looks for programs; empty when it is
    /// not found.
    static QString program();
    /// Begins a run; nothing while one is under way.
    void start(const TBatchRequest &request);
    /// Files that are being worked on are finished, no further ones begun.
    void cancel();
    bool isRunning() const { return fProcess.state() != QProcess::NotRunning; }

signals:
    /// A file, by its place in the request, is done, or failed for that reason.
    void fileDone(int row);
    void fileFailed(int row, const QString &reason);
    /// A warning that belongs to a file, or to none (-1).
    void warned(int row, const QString &text);
    /// All is over. `error` tells why nothing was begun, or how the program ended when that was not of its own will.
    /// Files that were told of neither as done nor as failed were not worked on.
    void finished(const QString &error);

private:
    void read();
    void take(const QString &line);
    int rowOf(const QString &line, QString &rest) const;
    void end();

    QProcess fProcess;
    QByteArray fRest; // of a line whose end has not come yet
    QStringList fFiles;
    QSet<int> fTold; // rows that are done or failed
    QString fLastLine;
};
