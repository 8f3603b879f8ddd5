#pragma once

#include "TYrexCommand.h"
#include "TYrexSnapshot.h"
#include "commands/IRunSuccessor.h"
#include "commands/TPlotSnapshot.h"

#include <memory>
#include <vector>

class TYrexSpectrum;

/// Base of the commands that change whole spectra. Undo reads back a snapshot of each item's complete state, of which
/// only the compressed form is kept.
class TYrexListCommand : public TYrexCommand, public IRunSuccessor
{
    Q_OBJECT

public:
    TYrexListCommand(const QString &description, const TCanvasItemList &items);

    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;

    /// Applies the section [from, to] of a chain to one spectrum.
    virtual void applyToRange(TCanvasYrexSpectrum *, int, TYrexSpectrum *, int, int, int) {}
    virtual void applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) = 0;
    /// Lets the plot follow: updated, or with `refreshed` fitted where the curves left the view.
    virtual void finishItem(TCanvasYrexSpectrum *item, int index, bool refreshed);
    virtual void saveItem(TCanvasYrexSpectrum *item, int index);
    virtual void restoreItem(TCanvasYrexSpectrum *item, int index);

    /// The spectra of each item that are meant in place of those in use, by index.
    void setTargets(const QVector<QVector<int>> &targets) { fTargets = targets; }

    /// Within an edit run all commands undo to the same state: it is stored and compressed once.
    void takeFrom(TCommand &predecessor) override;
    /// The bytes of all snapshots, compressed; waits for that.
    qint64 snapshotBytes() const;

protected:
    /// The spectra of an item that are meant.
    QVector<int> targetsOf(const TCanvasYrexSpectrum *item, int index) const;
    /// Adds them to a step, for all items.
    void tellTargets(TScriptStep &step) const;

private:
    QVector<QVector<int>> fTargets;                         // by item; empty: those in use
    std::vector<std::shared_ptr<TYrexSnapshot>> fSnapshots; // by item; shared while commands of a run change places
    QVector<TPlotSnapshot> fPlots;                          // by item
    bool fIsTakenOver = false;                              // until the next do step is over
};
