#pragma once

#include "TCmdYrexManualPeakPickingBase.h"

#include <QRectF>

class TYrexSpectrum;

/// Picks the peaks of a range anew in all spectra of the items, or deletes them. Peaks that are picked so stay when
/// the chain runs again.
class TCmdYrexManualPeakPicking : public TCmdYrexManualPeakPickingBase
{
    Q_OBJECT

public:
    /// Left and right of `rect` are the range, in the x unit that the plot shows and in any order; an item without a
    /// plot is left out. `level` is the threshold in y units; a NaN lets every peak through.
    TCmdYrexManualPeakPicking(const TCanvasItemList &items, const QRectF &rect, bool deleteOnly, double level);

    void doItem(TCanvasYrexSpectrum *item, int index) override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    void pickIn(TYrexSpectrum &spectrum, int unit);

    QRectF fRect;
    double fLevel;
    bool fDeleteOnly;
    QVector<TLists> fPicked; // by item, once done: peaks that are picked again would have other ids
};
