#pragma once

#include "canvas/TCanvasItemList.h"
#include "ui/TMMAct.h"

#include <QVector>

class TItemSelection;
class TPage;

/// What the mouse does with items as a whole: a press on the rim selects, a drag moves, handles resize. Edges snap to
/// the margins and the centre of the page and to other items.
class TItemHand : public TMMAct
{
public:
    static constexpr double cSnapPixels = 6.0;

    explicit TItemHand(TItemSelection &selection);

    void setPage(TPage *page) { fPage = page; }
    /// While items are arranged every drag on one moves it.
    void setArranging(bool arranging) { fArranging = arranging; }
    bool isArranging() const { return fArranging; }

    QCursor cursor(const TMouseSpot &spot) const override;
    bool mousePress(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseMove(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseRelease(QMouseEvent *event, const TMouseSpot &spot) override;
    bool cancelGesture() override;
    void paint(QPainter &painter) override;
    QString hint() const override;
    /// Whether the mouse is on a handle of a selected item.
    bool isOnHandle(const TMouseSpot &spot) const { return handleAt(spot) >= 0; }

private:
    enum TGesture { cIdle, cMove, cResize };
    struct TGuide
    {
        bool fIsVertical;
        double fPlace; // page coordinates
    };

    bool showsFrame(const TCanvasItem *item) const;
    int handleAt(const TMouseSpot &spot, TCanvasItem **item = nullptr) const;
    static QVector<QPointF> handles(const QRectF &rect);
    void moveItems(const QPointF &pagePos, bool snaps);
    void resizeItem(const QPointF &pagePos, bool keepsShape, bool snaps);
    /// What to add to one of the places so that it comes to a line; 0 when none is near.
    double snapped(const QVector<double> &places, bool vertical);
    QVector<double> snapLines(bool vertical) const;

    TItemSelection &fSelection;
    TPage *fPage = nullptr;
    TGesture fGesture = cIdle;
    int fHandle = -1;
    TCanvasItemList fItems;
    QVector<QRectF> fRects; // before the drag
    QPointF fStart;
    double fUnitsPerPixel = 1.0;
    bool fHasMoved = false;
    bool fArranging = false;
    const TCanvasItem *fHovered = nullptr; // compared only
    QVector<TGuide> fGuides;
};
