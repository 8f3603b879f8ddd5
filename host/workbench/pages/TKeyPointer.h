#pragma once

#include <QEvent>
#include <QPointF>

class IPlotView;
class QKeyEvent;
class QMouseEvent;
class QPainter;
class QUuid;
class TCanvasItem;
class TMMAct;
class TPluginMouseModeHandler;

/// A pointer that keys move, so that every mouse mode works without a mouse. The crosshair mode brings it; modes that
/// are entered from there keep it, until the mouse is moved. Arrows move it by points of the active spectrum and by
/// pixels (Shift: ten), Enter presses and releases, Shift+Enter presses and holds until the next Enter. It makes events
/// of the mouse, so a mode cannot tell them apart.
class TKeyPointer
{
public:
    /// The view is not owned and lives longer.
    explicit TKeyPointer(IPlotView &view);

    /// Another mode is on; null: none. `active` is the item on which the pointer stands at first.
    void modeChanged(const TMMAct *mode, const TCanvasItem *active);
    /// Whether it took the key.
    bool keyPress(const QKeyEvent &event, TMMAct *mode, const TCanvasItem *active);
    /// Goes when the mouse itself was used.
    void mouseUsed(const QMouseEvent &event);
    /// The mode has moved its own cross.
    void follow(const TMMAct *mode);
    /// The drag under way was given up.
    void drop() { fIsHeld = false; }

    /// Whether keys move it now, in a mode that shows no cross of its own.
    bool isShown(const TMMAct *mode) const;
    bool isOn() const { return fIsOn; }
    /// In pixels of the view.
    const QPointF &place() const { return fPlace; }
    void paint(QPainter &painter, const TMMAct *mode) const;

private:
    static bool isCross(const TMMAct &mode);
    void putOn(const TCanvasItem *item);
    void move(int key, bool far, const TCanvasItem *item);
    bool nextPoint(bool right, int count, QPointF &place) const;
    void send(QEvent::Type type, Qt::KeyboardModifiers keys = {}) const;

    IPlotView &fView;
    QPointF fPlace;
    bool fIsOn = false;
    bool fIsPlaced = false;
    bool fIsHeld = false;
};
