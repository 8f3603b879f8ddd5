#pragma once

#include "canvas/TCanvasItem.h"
#include "canvas/TShownSeries.h"

/// What tables, docks and script wrappers need of any kind of spectrum item.
class TCanvasBaseSpectrum : public TCanvasItem
{
public:
    using TCanvasItem::TCanvasItem;

    /// What was done to the data of the current spectrum since they were read, as JSON in one line; empty for an item
    /// that keeps no record of it.
    virtual QByteArray chainText() const { return QByteArray(); }
    /// The numbers of the spectra that are shown, in display order: visible ranges, shown units.
    virtual QVector<TShownSeries> shownSeries() const { return {}; }
};
