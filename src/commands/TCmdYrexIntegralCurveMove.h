#pragma once

#include "TYrexIntegralBand.h"
#include "TYrexSpectrumCommand.h"
#include "TYrexVoidUnlessChanged.h"

#include <QRectF>
#include <QVector>
#include <optional>

/// Makes the integral curves of plots higher or lower: one edge of their band is dragged, the other stays.
class TCmdYrexIntegralCurveMove : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    /// `delta` is the way of the edge in canvas units, upwards positive. `rect` is the band of the curves in canvas
    /// units of the item when the drag began; one without height does nothing.
    TCmdYrexIntegralCurveMove(const TCanvasItemList &items, bool topEdge, double delta, const QRectF &rect);

    /// Tells the places where it left things, since the area on the screen is no part of a document.
    TScriptStep scriptStep() const override { return TYrexIntegralBand::scriptStep(items(), fOldSettings); }
    void completeScriptStep(TScriptStep &step) const override { step = scriptStep(); }
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    bool isApplicable(TCanvasYrexSpectrum *item) const override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    bool fTopEdge;
    double fDelta;
    QRectF fRect;
    QVector<TYrexIntegralBand> fOldSettings;                // by item
    QVector<std::optional<TYrexIntegralBand>> fNewSettings; // by item, once done: the area may be another one by then
};
