#pragma once

#include "canvas/TSecurePtr.h"
#include "ui/TMouseSpot.h"

#include <QTransform>

class QPainter;

/// The box that a drag spans in a plot. It becomes a band when it is thinner than a small share of the axis in one
/// direction (PlotHabits::boxThreshold), and nothing when it is so in both.
class TZoomBox
{
public:
    enum TShape { cNone, cHorz, cVert, cBoth };

    void start(const TMouseSpot &spot);
    /// Shift keeps to the horizontal axis, Ctrl to the vertical one.
    void moveTo(const QPointF &itemPos, Qt::KeyboardModifiers keys);
    void cancel() { fItem = TSecurePtr<TCanvasItem>(); }
    bool isActive() const { return bool(fItem); }
    TCanvasItem *item() const { return fItem.get(); }
    const QPointF &startPos() const { return fStart; }

    TShape shape() const;
    /// The box in item coordinates, a band over the whole height or width.
    QRectF rect() const;
    /// In scale units; a band has no height (width).
    QRectF scaleRect() const;
    void paint(QPainter &painter, const QTransform &itemToView) const;

private:
    QRectF curves() const;
    TBasePlot *plot() const;

    TSecurePtr<TCanvasItem> fItem;
    QPointF fStart;
    QPointF fEnd;
    Qt::KeyboardModifiers fKeys;
};
