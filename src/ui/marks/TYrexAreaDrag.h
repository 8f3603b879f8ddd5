#pragma once

#include <QPointF>
#include <Qt>

class IPlotView;
class QPainter;
class TCommand;

/// A drag of a hot area. What it shows while it goes on is put back before its one command is done.
class TYrexAreaDrag
{
public:
    TYrexAreaDrag() = default;
    virtual ~TYrexAreaDrag() = default;
    TYrexAreaDrag(const TYrexAreaDrag &) = delete;
    TYrexAreaDrag &operator=(const TYrexAreaDrag &) = delete;

    /// The mouse is at this place of the item, in canvas units. `pixel` is the size of a pixel of the view there.
    virtual void moveTo(const QPointF &itemPos, double pixel, Qt::KeyboardModifiers keys) = 0;
    /// Draws over the page, in pixels of the view.
    virtual void paint(QPainter &, const IPlotView &) const {}
    /// Puts everything back.
    virtual void giveUp() {}
    /// Puts everything back and makes the command that does it; the caller owns it. Null where nothing was moved.
    virtual TCommand *finish() = 0;
    virtual Qt::CursorShape cursor() const = 0;
};
