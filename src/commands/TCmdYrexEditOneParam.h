#pragma once

#include "TYrexParamsCommand.h"

/// Sets one parameter of spectra.
class TCmdYrexEditOneParam : public TYrexParamsCommand
{
    Q_OBJECT

public:
    /// Reaches the selected spectra of the items (without a selection the current one), or with `currentOnly` the
    /// current one, or with `selectionOnly` those that are selected when it is done. Spectra that lack the parameter
    /// are left as they are. Whether a parameter may be written is the caller's affair.
    TCmdYrexEditOneParam(const TCanvasItemList &items, int id, const QString &value, bool currentOnly,
                         bool selectionOnly);
    /// Reaches the spectrum at that index; an index out of range does nothing.
    TCmdYrexEditOneParam(const TCanvasItemList &items, int id, const QString &value, int specIndex);

    TScriptStep scriptStep() const override;
    void applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

protected:
    QVector<int> targetsIn(const TCanvasYrexSpectrum &item) const override;

private:
    static constexpr int cByFamily = -1;

    int fId;
    QString fValue;
    int fSpecIndex = cByFamily;
};
