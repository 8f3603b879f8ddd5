#pragma once

#include "contexts/TDARegion.h"

#include <QVector>

class QPainter;
class TBasePlotter;
class TPlotHotAreas;

/// Draws the regions of data analysis over a plot. How limits become shown values is for the plug-in to tell.
class TDARegionsPlotHelper
{
public:
    virtual ~TDARegionsPlotHelper() = default;

    /// The regions with their limits in the units of the plot's horizontal axis, for the spectrum at an index; empty
    /// without one.
    virtual QVector<TDARegion> shownRegions(const QVector<TDARegion> &regions, int index) const = 0;

    /// A band for each region with its name at the top. Its two limits become hot areas of the list, by the region's id
    /// and DARegions::TLimitArea.
    void draw(QPainter &painter, const TBasePlotter &plotter, const QVector<TDARegion> &regions, int index,
              TPlotHotAreas &areas) const;
};
