#pragma once

#include "TYrexIntegrationRegions.h"
#include "TYrexSpectrumCommand.h"
#include "TYrexVoidUnlessChanged.h"

#include <QHash>
#include <QMap>

/// Base of the commands that give spectra other lists of integration regions.
class TCmdYrexEditIntegralsBase : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    TScriptStep scriptStep() const override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

protected:
    using TRegionsByIndex = QMap<int, TYrexIntegrationRegions>;

    explicit TCmdYrexEditIntegralsBase(const TCanvasItemList &items);
    /// The regions that spectra of an item take, by index; an index that it has not is passed over.
    void setRegions(TCanvasYrexSpectrum *item, const TRegionsByIndex &regions);

private:
    static void put(const TRegionsByIndex &regions, const TCanvasYrexSpectrum &item);

    QHash<const TCanvasYrexSpectrum *, TRegionsByIndex> fNewRegions;
    QHash<const TCanvasYrexSpectrum *, TRegionsByIndex> fOldRegions; // as they stood when the command was made
};
