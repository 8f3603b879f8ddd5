#pragma once

#include "TYrexModePlot.h"
#include "canvas/TSecurePtr.h"
#include "ui/TMMAct.h"

#include <QCursor>

class IPluginHost;
class TYrexModePaint;

/// What a drag in a marking mode has covered so far.
struct TYrexModeDrag
{
    double fStartX = 0.0; // in the shown unit
    double fX = 0.0;
    QPointF fPos;        // of the pointer, pixels of the view
    double fWidth = 0.0; // pixels
    bool fIsClick = true;
    Qt::KeyboardModifiers fKeys;
};

/// Base of the modes that set and delete marks of spectra by clicks and by bands along x. It follows the pointer, knows
/// the drag, gives it up on Escape and the right button, and stays on after each mark.
class TMMActYrexMark : public TMMAct
{
public:
    /// The host is not owned and lives longer. `cursorFile` is a picture of the resources whose acting point is the top
    /// left pixel.
    TMMActYrexMark(const QUuid &id, IPluginHost &host, const char *cursorFile);

    /// The cursor of a picture of the resources, whose acting point is the top left pixel; a cross without the picture.
    static QCursor cursorFrom(const char *file);

    QCursor cursor(const TMouseSpot &spot) const override;
    bool mousePress(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseMove(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseRelease(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseDoubleClick(QMouseEvent *event, const TMouseSpot &spot) override;
    bool keyPress(QKeyEvent *event) override;
    bool keyRelease(QKeyEvent *event) override;
    void pointerLeft() override;
    void leave() override;
    bool cancelGesture() override;
    void paint(QPainter &painter) override;

protected:
    IPluginHost &host() const { return fHost; }
    bool isDragging() const { return bool(fDragged); }
    /// The plot of the drag under way, else that under the pointer; may not be valid.
    TYrexModePlot shownPlot() const;
    TYrexModeDrag drag(const TYrexModePlot &plot) const;
    const QPointF &pointer() const { return fPos; }
    Qt::KeyboardModifiers keys() const { return fKeys; }
    /// The selected items of the module when `item` is one of them, else that item alone.
    TCanvasItemList targetsOf(TCanvasItem *item) const;
    /// The item in use, else the first that is selected; null without.
    TCanvasYrexSpectrum *activeItem() const;
    /// Ends the mode when the active spectrum of the item in use has nothing left that it is for.
    void leaveIfDone() const;

    /// The x at which a drag begins and ends.
    virtual double xOf(const TYrexModePlot &plot, const QPointF &viewPos) const { return plot.xAt(viewPos); }
    /// A drag begins on that plot.
    virtual void begun(const TYrexModePlot &) {}
    /// The pointer or a key moved; a drag may be under way.
    virtual void moved(const TYrexModePlot &) {}
    /// The drag ended, and is no longer under way; a click is a drag that went nowhere.
    virtual void finished(const TYrexModePlot &plot, const TYrexModeDrag &drag) = 0;
    virtual void paintHover(const TYrexModePaint &paint, const TYrexModePlot &plot, const TMouseSpot &spot) = 0;
    virtual void paintDrag(const TYrexModePaint &paint, const TYrexModePlot &plot, const TYrexModeDrag &drag) = 0;
    /// Whether the spectrum has anything that the mode is for.
    virtual bool hasWork(const TYrexSpectrum &) const { return true; }
    /// Whether the second press of a double click begins a drag like the first; else it does nothing.
    virtual bool takesDoubleClicks() const { return false; }

private:
    TYrexModePlot draggedPlot() const;
    void setKey(const QKeyEvent &event, bool isDown);

    IPluginHost &fHost;
    QCursor fCursor;
    TSecurePtr<TCanvasItem> fDragged;
    QPointF fStartItemPos; // canvas units
    double fStartX = 0.0;
    QPointF fPos;
    bool fIsInside = false;
    Qt::KeyboardModifiers fKeys;
};
