#pragma once

#include "ui/IPlotView.h"

#include <QByteArray>
#include <QCursor>
#include <QString>
#include <QUuid>

class QKeyEvent;
class QMouseEvent;
class QPainter;
class QWheelEvent;

/// A mouse mode: what press, move and release do while it is on. The event operations return whether they took the
/// event; what is not taken does what it does without a mode.
class TMMAct
{
public:
    explicit TMMAct(const QUuid &id)
        : fId(id)
    {
    }
    virtual ~TMMAct() = default;
    TMMAct(const TMMAct &) = delete;
    TMMAct &operator=(const TMMAct &) = delete;

    const QUuid &id() const { return fId; }
    /// The view that the mode works on; not owned, null while it is not on.
    void setView(IPlotView *view) { fView = view; }

    virtual QCursor cursor(const TMouseSpot &) const { return QCursor(Qt::ArrowCursor); }
    virtual bool mousePress(QMouseEvent *, const TMouseSpot &) { return false; }
    virtual bool mouseMove(QMouseEvent *, const TMouseSpot &) { return false; }
    virtual bool mouseRelease(QMouseEvent *, const TMouseSpot &) { return false; }
    virtual bool mouseDoubleClick(QMouseEvent *, const TMouseSpot &) { return false; }
    virtual bool keyPress(QKeyEvent *) { return false; }
    virtual bool keyRelease(QKeyEvent *) { return false; }
    /// Whether a key is its own now, although it is a shortcut of the window or moves the focus.
    virtual bool wantsKey(const QKeyEvent &) const { return false; }
    virtual bool wheel(QWheelEvent *, const TMouseSpot &) { return false; }
    /// The pointer went out of the view.
    virtual void pointerLeft() {}
    /// The mode begins, with an argument that tells variants apart; and ends.
    virtual void enter(const QByteArray &) {}
    virtual void leave() { cancelGesture(); }
    /// Puts back what a drag under way has done; false when there is none.
    virtual bool cancelGesture() { return false; }
    /// Where a cross of its own stands that keys move, in pixels of the view; false without one.
    virtual bool pointerPlace(QPointF &) const { return false; }
    /// Shows the menu of what the mode has selected, which the keyboard asked for; false when it has none.
    virtual bool showKeyMenu() { return false; }
    /// Draws over the page, in pixels of the view.
    virtual void paint(QPainter &) {}
    /// What the mode waits for, for the status bar; it begins with the mode's name.
    virtual QString hint() const { return QString(); }

protected:
    IPlotView *view() const { return fView; }

private:
    QUuid fId;
    IPlotView *fView = nullptr;
};
