#pragma once

#include "plot/TPlotData.h"

#include <QMap>
#include <QUuid>

/// The view of an item: that of each of its plots.
class TViewHistoryEntry
{
public:
    void addPlotData(const QUuid &plotId, const TPlotData &data) { fPlots.insert(plotId, data); }
    /// Invalid for a plot that the entry does not know.
    TPlotData getPlotData(const QUuid &plotId) const { return fPlots.value(plotId); }
    bool isEmpty() const { return fPlots.isEmpty(); }
    bool operator==(const TViewHistoryEntry &other) const { return fPlots == other.fPlots; }
    bool operator!=(const TViewHistoryEntry &other) const { return !(*this == other); }

private:
    QMap<QUuid, TPlotData> fPlots;
};
