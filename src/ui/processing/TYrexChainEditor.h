#pragma once

#include "TYrexProcParams.h"
#include "canvas/TCanvasItemList.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class IPluginHost;
class TDocument;

/// Gives chains to the selected items, as commands. Edits of one control that come shortly after each other are one
/// undo step. While runs take long, only the newest edit of those that came in the meantime runs.
class TYrexChainEditor : public QObject
{
    Q_OBJECT

public:
    static constexpr int cRunTime = 800; // ms after which a run of edits is over
    static constexpr int cLiveTime = 50; // ms; edits whose predecessor took longer may wait for others

    /// The host is not owned and lives longer.
    explicit TYrexChainEditor(IPluginHost &host, QObject *parent = nullptr);

    /// The items that an edit changes.
    TCanvasItemList items() const;
    /// Runs a chain. `run` stands for the control of a run of edits; null for an edit that is a step of its own.
    void edit(const TYrexProcParams &params, const QObject *run);
    /// A slider is held: its run goes on until it is let go.
    void setHeld(bool isHeld);
    /// Runs what waits.
    void flush();
    /// Commands of this editor are under way.
    bool isRunning() const { return fIsRunning; }
    /// An edit is under way or waits, so that the items are behind.
    bool isBusy() const { return fIsRunning || fIsWaiting; }
    /// How long the last run took, in milliseconds.
    int lastTime() const { return fLastTime; }

signals:
    /// A chain was run.
    void done();

private:
    void run(const TYrexProcParams &params, const TCanvasItemList &items);
    void push(const TYrexProcParams &params, const TCanvasItemList &items);
    void tell(const QStringList &remarks);
    void startRun(const QObject *run);
    void endRun();

    IPluginHost &fHost;
    const QObject *fRun = nullptr; // told apart only, never used
    QPointer<TDocument> fDocument; // of the run
    int fGesture = 0;
    bool fIsHeld = false;
    bool fIsRunning = false;
    bool fIsWaiting = false;
    TYrexProcParams fWaiting;
    QVector<QUuid> fWaitingItems;
    int fLastTime = 0;
    QTimer fEnd;
    QTimer fLater;
};
