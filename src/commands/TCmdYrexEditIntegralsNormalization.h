#pragma once

#include "TYrexSpectrumCommand.h"
#include "TYrexVoidUnlessChanged.h"

#include <QVector>

/// Sets the value by which areas become shown integrals, in all spectra of the items.
class TCmdYrexEditIntegralsNormalization : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    /// A value of 0, or one that is no finite number, does nothing.
    TCmdYrexEditIntegralsNormalization(const TCanvasItemList &items, double value);

    TScriptStep scriptStep() const override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    bool replacesInEditRun() const override { return true; }
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    double fNormValue;
    QVector<QVector<double>> fOldValues; // by item and spectrum
};
