#pragma once

#include "canvas/TCanvasItem.h"
#include "contexts/ISpectrumItemCtx.h"

class TBasePlot;

/// The view steps on one plot of an item. Where the plot keeps fitting its height, every step along x ends with that.
/// A context that outlives its item does nothing.
class TSpectrumItemCtx : public ISpectrumItemCtx
{
public:
    /// Neither is owned; the plot is one of the item's.
    TSpectrumItemCtx(TCanvasItem *item, TBasePlot *plot);

    void fullZoomOut() override;
    void fitToHeight() override;
    void changeIntensity(bool up, double factor) override;
    void zoom(const QRectF &rect) override;
    void zoom(TAxisDir dir, double from, double to) override;
    /// Nothing on a queue, whose columns share one axis.
    void hideRange(const TRange &range) override;
    void showRange(const TRange &range) override;
    void restoreRanges() override;
    void pan(double dx, double dy) override;

protected:
    /// The plot, or null when its item is gone.
    TBasePlot *plot() const { return fItem ? fPlot : nullptr; }
    TCanvasItem *item() const { return fItem.get(); }

private:
    bool takesCuts() const;
    void showScale(TAxisDir dir, double from, double to);
    void refitAfterX();

    TSecurePtr<TCanvasItem> fItem;
    TBasePlot *fPlot;
};
