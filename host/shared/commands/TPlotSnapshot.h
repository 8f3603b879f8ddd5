#pragma once

#include <QByteArray>
#include <QList>

class TCanvasItem;

/// Everything that the plots of an item hold of their own: axes, properties, colours. For undo.
class TPlotSnapshot
{
public:
    void capture(TCanvasItem *item);
    /// Nothing for an item whose number of plots changed.
    void restore(TCanvasItem *item) const;

private:
    QList<QByteArray> fPlots;
};
