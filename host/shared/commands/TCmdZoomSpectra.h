#pragma once

#include "commands/TViewCommand.h"
#include "plot/TRange.h"

#include <QRectF>

/// Shows a box of spectra, or all of them.
class TCmdZoomSpectra : public TViewCommand
{
    Q_OBJECT

public:
    enum TFlag { cBox = 0, cFullView = 1 };

    /// `rect` in scale units of each item's active plot; without width (height) that axis stays, without both it is the
    /// full view.
    TCmdZoomSpectra(const TCanvasItemList &items, const QRectF &rect, int flag);
    /// The same with the limits themselves; a range without span is none.
    TCmdZoomSpectra(const TCanvasItemList &items, const TRange &x, const TRange &y);

    TScriptStep scriptStep() const override;

protected:
    void changeView(TCanvasSpectrum &item, TBasePlot &activePlot) override;
    void describe(THistoryCommand &entry) const override;

private:
    TRange fX; // ascending
    TRange fY;
    bool fFullView;
};
