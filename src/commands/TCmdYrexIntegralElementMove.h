#pragma once

#include "TYrexIntegralBand.h"
#include "TYrexSpectrumCommand.h"
#include "TYrexVoidUnlessChanged.h"

#include <QVector>
#include <optional>

/// Moves the rows of integral labels, or the integral curves, or changes the height of the curves. Within a gesture
/// such moves make one step.
class TCmdYrexIntegralElementMove : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    enum TElement : qint32 { cLabels = 0, cCurves = 1, cCurveHeight = 2 };

    /// `displacement` in canvas units goes upwards for labels and downwards for curves, and is added to the height of
    /// the tallest curve. Nothing leaves the area of the curves.
    TCmdYrexIntegralElementMove(const TCanvasItemList &items, int element, double displacement);
    /// Gives the plots of the items these bands, one for each. `element` is what it is called by.
    TCmdYrexIntegralElementMove(const TCanvasItemList &items, int element, const QVector<TYrexIntegralBand> &bands);

    /// Tells the places where it left things, since the area on the screen is no part of a document.
    TScriptStep scriptStep() const override { return TYrexIntegralBand::scriptStep(items(), fOld); }
    void completeScriptStep(TScriptStep &step) const override { step = scriptStep(); }
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    bool isApplicable(TCanvasYrexSpectrum *item) const override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    qint32 fElement;
    double fDisplacement;
    QVector<TYrexIntegralBand> fOld; // by item, since rounding and the borders of the area would not take a move back
    QVector<std::optional<TYrexIntegralBand>> fNew; // by item, once done or told: the area may be another one by then
};
