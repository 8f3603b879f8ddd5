#pragma once

#include <QByteArray>
#include <QList>
#include <QVector>

class TCanvasItem;

/// Everything that the plots of an item hold of their own: axes, properties, colours. For undo.
class TPlotSnapshot
{
public:
    void capture(TCanvasItem *item);
    /// Nothing for an item whose number of plots changed.
    /// What belongs to a spectrum goes to the one that stands in its place now, since one that was deleted came back
    /// under another id.
    void restore(TCanvasItem *item) const;
    bool operator==(const TPlotSnapshot &other) const { return fPlots == other.fPlots; }

private:
    QList<QByteArray> fPlots;
    QVector<quint32> fIds; // of the stack, by index
};
