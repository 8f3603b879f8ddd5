#pragma once

#include "canvas/TSecurePtr.h"
#include "ui/TMMAct.h"

/// Hides the stretch of the horizontal axis over which a drag goes, or shows hidden ones again.
class TMMActCuts : public TMMAct
{
public:
    enum TKind { cHide, cShow };

    explicit TMMActCuts(TKind kind);

    QCursor cursor(const TMouseSpot &spot) const override;
    bool mousePress(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseMove(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseRelease(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseDoubleClick(QMouseEvent *event, const TMouseSpot &spot) override;
    bool cancelGesture() override;
    void paint(QPainter &painter) override;
    QString hint() const override;

private:
    QPointF itemPos(const TMouseSpot &spot) const;
    void showCutAt(const TMouseSpot &spot);
    void paintBand(QPainter &painter) const;
    void paintGaps(QPainter &painter) const;

    TKind fKind;
    TSecurePtr<TCanvasItem> fItem;  // of the drag
    TSecurePtr<TCanvasItem> fShown; // whose gaps are shown
    double fFrom = 0.0;             // item coordinates
    double fTo = 0.0;
    bool fOnQueue = false;
};
