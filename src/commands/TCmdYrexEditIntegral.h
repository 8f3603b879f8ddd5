#pragma once

#include "TCmdYrexEditIntegralBase.h"

#include <QMap>
#include <QPair>

/// Moves a bound of an integration region, or gives a region other bounds.
class TCmdYrexEditIntegral : public TCmdYrexEditIntegralBase
{
    Q_OBJECT

public:
    /// The bound that is moved.
    enum TEdge : qint32 { cFirstBound = 1, cSecondBound = 3 };

    /// Moves a bound to x, which is in `unit`; beyond the data it moves to the end. A bound does not cross the other:
    /// then nothing happens. In a stack that is shown in groups, regions of the group's other spectra that overlap the
    /// region follow. Here and below, other spectra than the current ones are told by `places`.
    TCmdYrexEditIntegral(TCanvasYrexSpectrum *item, const QUuid &regionId, int edge, double x, int unit,
                         const TYrexSpectrumPlaces &places = TYrexSpectrumPlaces());
    /// Gives the region with that id the bounds of `region`, in the current spectra of the items.
    TCmdYrexEditIntegral(const TCanvasItemList &items, const TYrexIntegrationRegion &region, const QUuid &regionId,
                         const TYrexSpectrumPlaces &places = TYrexSpectrumPlaces());

    TScriptStep scriptStep() const override;
    void applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    void carryAlong(const TCanvasYrexSpectrum &item, const TYrexIntegrationRegion &edited, int edge, double bound);

    QString fTargetName;
    qint32 fEdge = 0; // 0 for one that gives both bounds
    double fX = 0.0;
    int fUnit = 0;
    QMap<int, QVector<QPair<QUuid, TYrexIntegrationRegion>>> fOverlapped; // by the spectrum's index
};
