#pragma once

#include "TYrexListCommand.h"

#include <QMap>
#include <QPair>
#include <QVariant>

/// Takes back what arithmetic made of the selected spectra of items: their chains start from the data that were read.
class TCmdYrexArithmeticSetOrgDataToAbsOrg : public TYrexListCommand
{
    Q_OBJECT

public:
    explicit TCmdYrexArithmeticSetOrgDataToAbsOrg(const TCanvasItemList &items);

    void applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    bool isApplicable(TCanvasYrexSpectrum *item) const override;
    TScriptStep scriptStep() const override;
    /// One entry for each item, without parameters.
    void doHistoryCommand() override;

private:
    /// What stack actions found for a spectrum: no snapshot holds it, and a redo needs it again.
    struct TFigures
    {
        double fIntercept;
        double fSlope;
        double fFactor;
    };

    QMap<QPair<int, int>, TFigures> fFigures; // by item and spectrum
    QVariant fHistoryText;
    QVariant fPreviousHistoryText;
};
