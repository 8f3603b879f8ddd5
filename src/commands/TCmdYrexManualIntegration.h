#pragma once

#include "TYrexIntegrationRegion.h"
#include "TYrexSpectrumListCommand.h"
#include "TYrexVoidUnlessChanged.h"

#include <QMap>

/// Adds an integration region to the selected spectra of the items.
class TCmdYrexManualIntegration : public TYrexVoidUnlessChanged<TYrexSpectrumListCommand>
{
    Q_OBJECT

public:
    /// `kind` 0 is a range given in x, in `xUnit` and in either order. Limits beyond the data move to its ends; a
    /// spectrum that the range misses, and a limit that is no number, add nothing. Areas are taken in `yUnit`;
    /// cUnitArbitrary takes the unit of each spectrum.
    TCmdYrexManualIntegration(const TCanvasItemList &items, int kind, double fromX, double toX, int xUnit, int yUnit);

    /// Whether the range misses one of the spectra that it would reach now.
    bool missesAny() const;

    TScriptStep scriptStep() const override;
    void applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    bool misses(const TYrexSpectrum &spectrum) const;

    qint32 fKind;
    double fFromX;
    double fToX;
    qint32 fXUnit;
    qint32 fYUnit;
    qint32 fReferenceIndex = -1;
    QVector<QMap<int, TYrexIntegrationRegion>> fRegions; // by item and index of the spectrum, as they were made
};
