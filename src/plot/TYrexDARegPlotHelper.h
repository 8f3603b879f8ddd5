#pragma once

#include "contexts/TDARegionsPlotHelper.h"

class TCanvasYrexSpectrum;

/// Draws the regions of data analysis over spectra in whatever unit their axis shows.
class TYrexDARegPlotHelper : public TDARegionsPlotHelper
{
public:
    /// `item` is not owned and may be null.
    explicit TYrexDARegPlotHelper(const TCanvasYrexSpectrum *item)
        : fItem(item)
    {
    }
    QVector<TDARegion> shownRegions(const QVector<TDARegion> &regions, int index) const override;

private:
    const TCanvasYrexSpectrum *fItem;
};
