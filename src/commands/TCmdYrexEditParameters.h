#pragma once

#include "TYrexParamsCommand.h"

#include <QMap>

/// Sets parameters of the selected spectra of the items.
class TCmdYrexEditParameters : public TYrexParamsCommand
{
    Q_OBJECT

public:
    /// The texts by the parameter's id. Spectra that lack a parameter do without.
    TCmdYrexEditParameters(const TCanvasItemList &items, const QMap<int, QString> &values);

    TScriptStep scriptStep() const override;
    void applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    QMap<int, QString> fValues;
};
