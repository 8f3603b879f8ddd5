#pragma once

#include "contexts/TDARegion.h"

#include <QPair>
#include <QVector>

class IDAItemCtx;

/// An item that keeps regions for data analysis.
class IDARegionsItem
{
public:
    virtual ~IDARegionsItem() = default;

    virtual IDAItemCtx *daContext() const = 0;
    virtual QVector<TDARegion> daRegions() const = 0;
    /// The item does not draw itself anew; that is for the command.
    virtual void setDARegions(const QVector<TDARegion> &regions) = 0;
    /// With limits in the unit that the item shows.
    virtual QVector<TDARegion> shownDARegions() const = 0;
    /// The limit of a region from a place on the horizontal axis as it is shown.
    virtual double toRegionLimit(double shownX) const = 0;
    /// Parameters that are a number in every spectrum: the programmatic name and the one that users see.
    virtual QVector<QPair<QString, QString>> numericParams() const = 0;
};
