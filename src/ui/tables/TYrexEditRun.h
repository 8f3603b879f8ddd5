#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

class IPluginHost;
class TDocument;

/// Edits of one control that come shortly after each other as one undo step: each further command takes the place of
/// the one before (TCommand::replacesInEditRun).
class TYrexEditRun : public QObject
{
    Q_OBJECT

public:
    static constexpr int cTime = 800; // ms after which the run is over

    /// The host is not owned and lives longer.
    explicit TYrexEditRun(IPluginHost &host, QObject *parent = nullptr);

    /// Before an edit: goes on with the run, or begins one.
    void goOn();
    /// The next edit is a step of its own.
    void end();

private:
    IPluginHost &fHost;
    QPointer<TDocument> fDocument; // of the run; null outside of runs
    int fGesture = 0;
    QTimer fEnd;
};
