#pragma once

#include "canvas/TSecurePtr.h"
#include "plot/TPlotHotArea.h"
#include "ui/TMMAct.h"

#include <QObject>

class TCanvasSpectrum;

/// Follows the hot area under the mouse and hands clicks and drags on it to what a module makes of them. It is asked
/// before the hand on the plot; what it does not answer goes on there.
class TBaseHotAreasHandler : public QObject, public TMMAct
{
    Q_OBJECT

public:
    TBaseHotAreasHandler();

    /// The mouse mode that is on; the null id is none.
    void setMode(const QUuid &mode);
    const QUuid &mode() const { return fMode; }
    /// The area under the mouse that answers; nullArea for none.
    const TPlotHotArea &area() const { return fArea; }
    /// The item of that area; null for none.
    TCanvasSpectrum *item() const { return fItem.get(); }
    bool isDragging() const { return fIsDragging; }

    /// Whether the area at that place does anything now.
    virtual bool answers(const TMouseSpot &spot) const = 0;
    /// Whether press, move and release on such an area belong to it; otherwise it is only followed.
    virtual bool takesMouse(const TPlotHotArea &) const { return true; }
    /// The place of the one mark that is highlighted, as if the mouse were on it; false for none.
    virtual bool markSpot(TMouseSpot &) const { return false; }
    /// Escape with no drag under way. Whether there was anything to give up.
    virtual bool escape() { return false; }
    /// What is under the mouse may have changed without it: what it says is told anew.
    void contentChanged();
    /// The mouse left the view.
    void leaveView() { follow(TPlotHotArea(), nullptr); }

    bool mousePress(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseMove(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseRelease(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseDoubleClick(QMouseEvent *event, const TMouseSpot &spot) override;
    bool cancelGesture() override;

signals:
    void hotAreaHighlighted(const TPlotHotArea &area, TCanvasSpectrum *item);
    /// A click on the area, or a press of the right button, before the menu opens.
    void hotAreaMouseBtnReleased(const TPlotHotArea &area, TCanvasSpectrum *item);
    void hotAreaFocusOut();

protected:
    /// A press turns into a drag; the spot is that of the press. False when the area is not dragged.
    virtual bool startDrag(const TMouseSpot &) { return false; }
    virtual void dragTo(const TMouseSpot &, Qt::KeyboardModifiers) {}
    virtual void finishDrag() {}
    /// Puts everything back.
    virtual void giveUpDrag() {}
    /// The keys and the button of the click that is told of.
    virtual void click(const TMouseSpot &, Qt::KeyboardModifiers, Qt::MouseButton) {}
    virtual bool doubleClick(const TMouseSpot &) { return false; }
    /// What the mouse says over the area.
    virtual void hover(const TMouseSpot &) {}

private:
    void follow(const TPlotHotArea &area, TCanvasSpectrum *item);
    void endPress();

    QUuid fMode;
    TPlotHotArea fArea;
    TSecurePtr<TCanvasSpectrum> fItem;
    TMouseSpot fPress; // good while pressed
    bool fIsPressed = false;
    bool fIsDragging = false;
    bool fWasDragged = false; // beyond a click, dragged or not
};
