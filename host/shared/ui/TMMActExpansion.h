#pragma once

#include "canvas/TSecurePtr.h"
#include "ui/TMMAct.h"

/// A drag over a stretch of the horizontal axis makes a new item that shows it enlarged, in the emptiest corner of the
/// page.
class TMMActExpansion : public TMMAct
{
public:
    TMMActExpansion();

    QCursor cursor(const TMouseSpot &spot) const override;
    bool mousePress(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseMove(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseRelease(QMouseEvent *event, const TMouseSpot &spot) override;
    bool cancelGesture() override;
    void paint(QPainter &painter) override;
    QString hint() const override;

private:
    QRectF band() const; // item coordinates
    void createExpansion(TCanvasSpectrum &source, double from, double to);

    TSecurePtr<TCanvasItem> fItem; // of the drag
    double fFrom = 0.0;            // item coordinates
    double fTo = 0.0;
};
