#pragma once

#include "TYrexSpectrumCommand.h"
#include "canvas/TViewHistoryEntry.h"

#include <QVector>

/// Moves the view of spectra, and remembers the view before as one to come back to.
class TCmdYrexSpectrumPanning : public TYrexSpectrumCommand
{
    Q_OBJECT

public:
    enum TKind { cPan = 0 };

    /// Any kind but cPan remembers the view and moves nothing.
    TCmdYrexSpectrumPanning(int kind, const TCanvasItemList &items, bool mergeable);

    /// Adds to what the do step moves, in canvas units, positive right and up. Values that are no numbers add nothing.
    void addDelta(double dx, double dy);
    /// Whether the do step moves anything.
    bool hasMoved() const;

    bool isViewOnly() const override { return true; }
    TScriptStep scriptStep() const override;
    void completeScriptStep(TScriptStep &step) const override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    /// Items with a plot.
    bool isApplicable(TCanvasYrexSpectrum *item) const override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    int fKind;
    double fDeltaX = 0.0;
    double fDeltaY = 0.0;
    bool fMergeable;
    QVector<TViewHistoryEntry> fViews;    // by item
    QVector<TViewHistoryEntry> fNewViews; // by item, once done: the plot area may be another one by then
    QVector<bool> fPushed;                // by item
};
