#pragma once

#include "TYrexSnapshot.h"
#include "TYrexSpectrumCommand.h"
#include "commands/TPlotSnapshot.h"

#include <vector>

class TYrexSpectrum;

/// Base of the commands that edit parameters and integrals of several spectra. Undo reads back a snapshot of the data.
class TYrexSpectrumListCommand : public TYrexSpectrumCommand
{
    Q_OBJECT

public:
    TYrexSpectrumListCommand(const QString &description, const TCanvasItemList &items);

    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;

    virtual void applyToRange(TCanvasYrexSpectrum *, int, TYrexSpectrum *, int, int, int) {}
    virtual void applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) = 0;
    /// Tells the plot the units of the current spectrum and lets it find its scale.
    virtual void finishItem(TCanvasYrexSpectrum *item, int index, bool refreshed);
    virtual void saveItem(TCanvasYrexSpectrum *item, int index);
    virtual void restoreItem(TCanvasYrexSpectrum *item, int index);

    /// The indices of the spectra that it reaches, by item, instead of those that its family finds; -1 and others that
    /// an item has not are passed over.
    void setSpectra(const QVector<QVector<int>> &spectra) { fSpectra = spectra; }

protected:
    /// The spectra that it would reach now, by item.
    QVector<QVector<int>> targets() const;
    /// Applies the command to the spectra that it is meant for: the current one, or those selected.
    void applyToTargets(TCanvasYrexSpectrum *item, int index);
    virtual QVector<int> targetsIn(const TCanvasYrexSpectrum &item) const;
    /// Only the stack's current spectrum is reached.
    void setCurrentOnly(bool currentOnly) { fCurrentOnly = currentOnly; }
    /// Each target is tested once more against the selection before it is used.
    void setSelectionOnly(bool selectionOnly) { fSelectionOnly = selectionOnly; }

private:
    std::vector<TYrexSnapshot> fSnapshots; // by item
    QVector<TPlotSnapshot> fPlots;         // by item
    QVector<QVector<int>> fSpectra;        // by item; empty when the family finds them
    bool fSelectionOnly = false;
    bool fCurrentOnly = false;
};
