#pragma once

#include "TYrexSpectrumCommand.h"
#include "commands/TPlotSnapshot.h"

#include <QVariant>
#include <QVector>

/// Changes which spectrum of stacks is the active one, or how stacks are displayed. Which one is active is a way of
/// looking at a stack; the display mode belongs to the document.
class TCmdYrexItemStateChanged : public TYrexSpectrumCommand
{
    Q_OBJECT

public:
    enum TKind { cCycleActive = 0, cStackedMode = 1, cSetActive = 2 };

    /// `value` by the kind: true for forwards, a TStackedDisplayMode (activeOnlyMode for a number that is none), the
    /// index of a spectrum. Cycling passes over spectra that are deselected or hidden.
    TCmdYrexItemStateChanged(int kind, const QVariant &value, const TCanvasItemList &items);

    /// The index of a spectrum for each item; an item that has none of that index stays as it is.
    TCmdYrexItemStateChanged(const QVector<int> &active, const TCanvasItemList &items);

    TScriptStep scriptStep() const override;
    bool isViewOnly() const override { return fKind != cStackedMode; }
    void doCmd() override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    /// Items with spectra, and with a plot for the display mode.
    bool isApplicable(TCanvasYrexSpectrum *item) const override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    void setMode(TCanvasYrexSpectrum *item, int index);
    void setActive(TCanvasYrexSpectrum *item, int index, int active);
    /// The spectrum that becomes the active one of that item.
    int nextActive(const TCanvasYrexSpectrum &item) const;
    int stepFrom(const TCanvasYrexSpectrum &item) const;

    int fKind;
    QVariant fValue;
    QVector<int> fActive;          // by item; empty: as the value says
    QVector<QVariant> fOldValues;  // by item: the mode, or the index
    QVector<TPlotSnapshot> fPlots; // by item: a mode brings scales of its own along
    bool fUpdates = false;         // the do step ends with the item's update
    bool fChanged = false;
};
