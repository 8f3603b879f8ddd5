#pragma once

#include "TYrexDataAnalysisHandler.h"
#include "canvas/TSecurePtr.h"
#include "ui/TMMAct.h"

#include <QCoreApplication>
#include <memory>

class TCanvasItem;
class TCanvasYrexSpectrum;

/// A drag over a stretch of the horizontal axis makes a region of data analysis; limits of regions are moved, names
/// edited. There is one mode for each kind of region, which leaves those of other kinds alone: so the same band is
/// drawn over for another kind.
class TMMActYrexDARegion : public TMMAct
{
    Q_DECLARE_TR_FUNCTIONS(TMMActYrexDARegion)

    class TDeleteKey;

public:
    /// `kind` is one of TDARegion.
    TMMActYrexDARegion(const QUuid &id, int kind, IGuiHost &gui);
    ~TMMActYrexDARegion() override;

    QCursor cursor(const TMouseSpot &spot) const override;
    bool mousePress(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseMove(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseRelease(QMouseEvent *event, const TMouseSpot &spot) override;
    bool mouseDoubleClick(QMouseEvent *event, const TMouseSpot &spot) override;
    bool keyPress(QKeyEvent *event) override;
    bool cancelGesture() override;
    void enter(const QByteArray &argument) override;
    void leave() override;
    void paint(QPainter &painter) override;
    QString hint() const override;

private:
    TCanvasYrexSpectrum *item() const; // of the drag
    TYrexDataAnalysisHandler::TLimit limitAt(const TMouseSpot &spot) const;
    double shownX(const TCanvasYrexSpectrum &item, double itemX) const;
    double heldX(const TCanvasYrexSpectrum &item, const QPointF &viewPos) const;
    bool hasMoved() const;
    QString valueText(TCanvasYrexSpectrum &item, double from, double to) const;

    int fKind;
    TYrexDataAnalysisHandler fHandler;
    TSecurePtr<TCanvasItem> fItem;           // of the drag
    TSecurePtr<TCanvasItem> fPointed;        // under the mouse
    TYrexDataAnalysisHandler::TLimit fLimit; // that is dragged; none for a new region
    TYrexDataAnalysisHandler::TLimit fHovered;
    std::unique_ptr<TDeleteKey> fDeleteKey; // while the mode is on
    double fFrom = 0.0;                     // item coordinates
    double fTo = 0.0;
    QPointF fPos;        // of the mouse in the view
    double fPixel = 1.0; // in canvas units
};
