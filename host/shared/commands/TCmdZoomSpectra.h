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
    /// The stretches of both axes that are shown, in scale units; one without span stays as it is.
    struct TBox
    {
        TRange fX;
        TRange fY;
    };

    /// `rect` in scale units of each item's active plot; without width (height) that axis stays, without both it is the
    /// full view.
    TCmdZoomSpectra(const TCanvasItemList &items, const QRectF &rect, int flag);
    /// The same with the limits themselves; a range without span is none.
    TCmdZoomSpectra(const TCanvasItemList &items, const TRange &x, const TRange &y);
    /// Each item shows a box of its own; one behind the last box stays as it is.
    TCmdZoomSpectra(const TCanvasItemList &items, const QVector<TBox> &boxes);

    /// How scripts come to what items show now, for steps whose effect depends on the size of the plot: with `horz`
    /// and `vert` of those axes.
    static TScriptStep stepTo(const TCanvasItemList &items, bool horz, bool vert);

    TScriptStep scriptStep() const override;

protected:
    void changeView(TCanvasSpectrum &item, TBasePlot &activePlot) override;
    void describe(THistoryCommand &entry) const override;

private:
    TBox boxOf(const TCanvasSpectrum &item) const;

    QVector<TBox> fBoxes; // by item, or one for all; limits ascend
    bool fIsForEach = false;
    bool fFullView = false;
};
