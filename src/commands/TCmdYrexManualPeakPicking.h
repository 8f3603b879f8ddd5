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
    static constexpr int cShownUnit = -1;

    /// Left and right of `rect` are the range, in the x unit that the plot shows and in any order; an item without a
    /// plot is left out. `level` is the threshold in y units; a NaN lets every peak through.
    TCmdYrexManualPeakPicking(const TCanvasItemList &items, const QRectF &rect, bool deleteOnly, double level);
    /// The range in x of `unit`; cShownUnit takes that of each plot.
    TCmdYrexManualPeakPicking(const TCanvasItemList &items, double from, double to, int unit, bool deleteOnly,
                              double level);

    TScriptStep scriptStep() const override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    void pickIn(TYrexSpectrum &spectrum, int unit);

    int toldUnit() const;

    QRectF fRect;
    double fFrom; // a rectangle does not keep its right edge exactly
    double fTo;
    int fUnit = cShownUnit;
    double fLevel;
    bool fDeleteOnly;
    QVector<TLists> fPicked; // by item, once done: peaks that are picked again would have other ids
};
