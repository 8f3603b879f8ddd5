#pragma once

#include "TYrexListCommand.h"

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
    /// One entry for each item, without parameters.
    void doHistoryCommand() override;

private:
    QVariant fHistoryText;
    QVariant fPreviousHistoryText;
};
