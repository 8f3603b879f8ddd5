#pragma once

#include "ui/TMMAct.h"
#include "ui/TPanGesture.h"

/// Pan mode: a drag moves the curves; Shift keeps to the horizontal axis, Ctrl to the vertical one.
class TMMActPan : public TMMAct
{
public:
    TMMActPan();

    QCursor cursor(const TMouseSpot &spot) const override;
    bool mousePress(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseMove(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseRelease(QMouseEvent *event, const TMouseSpot &spot) override;
    bool cancelGesture() override;
    QString hint() const override;

private:
    TPanGesture fPan;
};
