#pragma once

#include "TYrexSpectrumList.h"
#include "ui/TDragAndDropHandler.h"

class TCanvasYrexSpectrum;
class TYrexInsertionCommand;

/// Drags over spectrum items: a drop on the upper third of a spectrum inserts above it, on the lower third below it,
/// and in the middle it replaces it. A single spectrum has no middle.
class TYrexDragAndDropHandler : public TDragAndDropHandler
{
public:
    TYrexDragAndDropHandler();

    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    /// All items must share the x unit of the target's current spectrum.
    int acceptItems(TCanvasItem *target, const TCanvasItemList &dragged) const override;
    void reset() override;
    QString highlightText() const override;
    QString label() const override;

    int dropIndex() const { return fDropIndex; }
    int dropAction() const { return fDropAction; }

private:
    enum TDropAction { cNoAction = 0, cInsertion = 1, cReplacement = 2 };

    QString classLabel() const;
    void aim(TCanvasYrexSpectrum &item, const QPointF &viewPos);
    QRectF rowRect(const TCanvasYrexSpectrum &item, int row) const;
    int rowAt(const TCanvasYrexSpectrum &item, const QPointF &viewPos) const;
    TYrexInsertionCommand *command(TCanvasYrexSpectrum *item, const TYrexSpectrumList &clones) const;

    int fDropIndex = 0;
    int fDropAction = cNoAction;
    int fPointedIndex = 0; // the spectrum that the drag is over
    bool fIsAbove = false;
};
