#pragma once

#include "ui/TMMAct.h"
#include "ui/TPanGesture.h"
#include "ui/TZoomBox.h"

#include <QTimer>

/// What the mouse does on a plot while no mode is on: a drag zooms, on an axis it pans; the wheel zooms; a click makes
/// a curve the active one; a double click shows everything.
class TPlotHand : public QObject, public TMMAct
{
    Q_OBJECT

public:
    TPlotHand();

    QCursor cursor(const TMouseSpot &spot) const override;
    bool mousePress(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseMove(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseRelease(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseDoubleClick(QMouseEvent *event, const TMouseSpot &spot) override;
    bool keyPress(QKeyEvent *event) override;
    bool keyRelease(QKeyEvent *event) override;
    bool wheel(QWheelEvent *event, const TMouseSpot &spot) override;
    bool cancelGesture() override;
    void paint(QPainter &painter) override;
    QString hint() const override;
    /// Space is held: a left drag pans, in every mode.
    bool isPanning() const { return fSpaceHeld || fPan.isActive(); }
    /// The items that keys act on.
    void setItems(const TCanvasItemList &items) { fItems = items; }

private:
    bool startPan(const TMouseSpot &spot);
    void click(QMouseEvent *event, const TMouseSpot &spot);
    void hover(const TMouseSpot &spot);
    void beginRun();
    void endRun();
    bool isIntensityWheel(const QWheelEvent &event, const TMouseSpot &spot) const;
    int wheelMask(const QWheelEvent &event, const TMouseSpot &spot) const;

    TZoomBox fBox;
    TPanGesture fPan;
    QTimer fRunEnd; // a run of wheel events is one gesture
    bool fInRun = false;
    TCanvasItemList fItems;
    TPlotPlace fPlace = placeOutside;
    bool fOnTitle = false;
    bool fSpaceHeld = false;
};
