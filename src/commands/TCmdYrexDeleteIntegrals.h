#pragma once

#include "TYrexIntegrationRegions.h"
#include "TYrexSpectrumCommand.h"
#include "TYrexSpectrumPlaces.h"
#include "TYrexVoidUnlessChanged.h"

#include <QBitArray>
#include <QMap>
#include <QRectF>
#include <QUuid>

/// Deletes integration regions. In a stack that is shown in groups it reaches the group of the current spectrum,
/// otherwise the current spectrum alone.
class TCmdYrexDeleteIntegrals : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    /// All regions. Here and below, other spectra than the current ones are told by `places`.
    explicit TCmdYrexDeleteIntegrals(const TCanvasItemList &items,
                                     const TYrexSpectrumPlaces &places = TYrexSpectrumPlaces());
    /// The regions at those places of the current spectrum's list, and their likes in the other spectra; places
    /// outside the list are passed over.
    TCmdYrexDeleteIntegrals(const TCanvasItemList &items, const QVector<int> &regions,
                            const TYrexSpectrumPlaces &places = TYrexSpectrumPlaces());
    /// Those that a rectangle touches, left and right in x of `unit`; top and bottom do not matter.
    TCmdYrexDeleteIntegrals(const TCanvasItemList &items, const QRectF &rect, int unit);
    /// Those that a range touches, in x of `unit`.
    TCmdYrexDeleteIntegrals(const TCanvasItemList &items, double from, double to, int unit,
                            const TYrexSpectrumPlaces &places = TYrexSpectrumPlaces());

    TScriptStep scriptStep() const override { return fScript; }

    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    using TFound = QMap<int, QVector<QUuid>>; // region ids by the spectrum's index

    void setScript(TScriptStep step);
    void findRegions(const TCanvasYrexSpectrum &item, int index, const QVector<QRectF> &rects, bool exactly);
    static void dropHighlights(TCanvasYrexSpectrum &item);

    TYrexSpectrumPlaces fPlaces;
    TScriptStep fScript;
    QVector<QVector<TYrexIntegrationRegions>> fSaved; // by item and spectrum
    QVector<QBitArray> fMatches;                      // a bit per spectrum of each item
    QVector<TFound> fBySpectrum;                      // by item
    bool fAll = false;
};
