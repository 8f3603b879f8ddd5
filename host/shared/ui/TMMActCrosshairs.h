#pragma once

#include "canvas/TSecurePtr.h"
#include "plot/TPlotReadout.h"
#include "ui/TMMAct.h"

/// A cross that follows the pointer on the active curve (Shift: freely) and tells its values. A drag measures, a click
/// pins the cross, the arrow keys move it from point to point, Ctrl+C copies the values.
class TMMActCrosshairs : public TMMAct
{
public:
    TMMActCrosshairs();

    QCursor cursor(const TMouseSpot &spot) const override;
    bool mousePress(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseMove(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseRelease(QMouseEvent *event, const TMouseSpot &spot) override;
    bool keyPress(QKeyEvent *event) override;
    /// Copying, which is the window's otherwise.
    bool wantsKey(const QKeyEvent &event) const override;
    void leave() override;
    bool cancelGesture() override;
    void paint(QPainter &painter) override;
    QString hint() const override;
    bool pointerPlace(QPointF &viewPos) const override;

    /// The values at the cross, tab between them; empty without a cross.
    QString values() const;

private:
    struct TCross
    {
        bool fIsSet = false;
        QPointF fScale;
        TPlotReadout fReadout;
    };

    TBasePlot *plot() const;
    TCross crossAt(const TMouseSpot &spot, bool free) const;
    void drawCross(QPainter &painter, const TCross &cross, const QString &text) const;
    QString measured() const;

    TSecurePtr<TCanvasItem> fItem;
    TCross fCross;
    TCross fStart; // of a drag
    bool fPinned = false;
};
