#pragma once

#include "TYrexIntegrationRegion.h"
#include "TYrexSpectrumListCommand.h"
#include "TYrexSpectrumPlaces.h"
#include "TYrexVoidUnlessChanged.h"

#include <QUuid>
#include <memory>

/// Puts an edited region in the place of one of the current spectra's regions. Undo brings back the regions alone.
class TCmdYrexEditIntegralBase : public TYrexVoidUnlessChanged<TYrexSpectrumListCommand>
{
    Q_OBJECT

public:
    /// Other spectra than the current ones are told by `places`.
    TCmdYrexEditIntegralBase(const TCanvasItemList &items, const QUuid &regionId, const TYrexSpectrumPlaces &places);

    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) override;
    void saveItem(TCanvasYrexSpectrum *item, int index) override;
    void restoreItem(TCanvasYrexSpectrum *item, int index) override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

protected:
    const TYrexSpectrumPlaces &places() const { return fPlaces; }
    QUuid regionId() const { return fRegionId; }
    /// Null when there is nothing to edit.
    const TYrexIntegrationRegion *region() const { return fRegion.get(); }
    /// The region that takes the place, from then on a manual one.
    void setRegion(const TYrexIntegrationRegion &region);
    /// The region with that id becomes as the edited one, but stays itself and the reference, if it was; its area is
    /// computed anew. An id that the spectrum has not is passed over.
    void replaceRegion(TYrexSpectrum &spectrum, const QUuid &id, const TYrexIntegrationRegion &edited);

private:
    TYrexSpectrumPlaces fPlaces;
    std::unique_ptr<TYrexIntegrationRegion> fRegion;
    QUuid fRegionId;
    qint32 fFlags = 0;
    QVector<QVector<QByteArray>> fSaved; // the regions by item and spectrum
};
