#pragma once

#include "ui/TMMAct.h"
#include "ui/TZoomBox.h"

/// Zoom-in mode: a box zooms into it, a click shows everything. Zoom-out mode: a click shows twice as much about it.
class TMMActZoom : public TMMAct
{
public:
    enum TKind { cIn, cOut };

    explicit TMMActZoom(TKind kind);

    QCursor cursor(const TMouseSpot &spot) const override;
    bool mousePress(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseMove(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseRelease(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseDoubleClick(QMouseEvent *event, const TMouseSpot &spot) override;
    bool cancelGesture() override;
    void paint(QPainter &painter) override;
    QString hint() const override;

private:
    TKind fKind;
    TZoomBox fBox;
};
