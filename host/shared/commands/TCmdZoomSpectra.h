#pragma once

#include "commands/TViewCommand.h"

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

protected:
    void changeView(TCanvasSpectrum &item, TBasePlot &activePlot) override;
    void describe(THistoryCommand &entry) const override;

private:
    QRectF fRect;
    bool fFullView;
};
