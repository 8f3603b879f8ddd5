#pragma once

#include "canvas/TCanvasItemList.h"
#include "commands/TCmdChangeSpectraIntensity.h"
#include "commands/TCmdFitSpectraIntensityToHeight.h"
#include "commands/TCmdPanSpectra.h"
#include "commands/TCmdSpectraCuts.h"
#include "commands/TCmdZoomSpectra.h"
#include "contexts/TSpectrumItemCtx.h"
#include "data/TStackedData.h"

/// The view steps of an item with a stack: its spectra share one plot, so that a step acts on all of them.
template <typename TList>
class TStackedSpectrumItemCtx : public TSpectrumItemCtx
{
public:
    /// The steps as commands for a set of items; the caller owns them, usually by pushing them on the history.
    struct TStackedTrait
    {
        static TCommand *fullZoomOut(const TCanvasItemList &items)
        {
            return new TCmdZoomSpectra(items, QRectF(), TCmdZoomSpectra::cFullView);
        }
        static TCommand *zoom(const TCanvasItemList &items, const QRectF &rect)
        {
            return new TCmdZoomSpectra(items, rect, TCmdZoomSpectra::cBox);
        }
        static TCommand *pan(const TCanvasItemList &items, double dx, double dy)
        {
            return new TCmdPanSpectra(items, dx, dy);
        }
        static TCommand *fitToHeight(const TCanvasItemList &items)
        {
            return new TCmdFitSpectraIntensityToHeight(items);
        }
        static TCommand *changeIntensity(const TCanvasItemList &items, bool up, double factor)
        {
            return new TCmdChangeSpectraIntensity(items, up, factor);
        }
        static TCommand *hideRange(const TCanvasItemList &items, const TRange &range)
        {
            return new TCmdSpectraCuts(items, TCmdSpectraCuts::cHide, range);
        }
        static TCommand *showRange(const TCanvasItemList &items, const TRange &range)
        {
            return new TCmdSpectraCuts(items, TCmdSpectraCuts::cShow, range);
        }
        static TCommand *restoreRanges(const TCanvasItemList &items)
        {
            return new TCmdSpectraCuts(items, TCmdSpectraCuts::cRestoreAll, TRange());
        }
    };

    /// None is owned; all belong to the item.
    TStackedSpectrumItemCtx(TCanvasItem *item, TStackedData<TList> *stack, TBasePlot *plot)
        : TSpectrumItemCtx(item, plot)
        , fStack(stack)
    {
    }

    /// The spectra on which a step acts; null when the item is gone.
    TStackedData<TList> *stack() const { return item() ? fStack : nullptr; }

private:
    TStackedData<TList> *fStack;
};
