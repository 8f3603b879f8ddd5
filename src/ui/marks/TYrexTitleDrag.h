#pragma once

#include "TYrexAreaDrag.h"
#include "canvas/TSecurePtr.h"

#include <QLineF>
#include <QVector>

class TCanvasYrexSpectrum;

/// Moves a spectrum of a stack by its title to another place among the rows. A line shows where it would come.
class TYrexTitleDrag : public TYrexAreaDrag
{
public:
    /// `spectrum` is the index of the title that is dragged.
    TYrexTitleDrag(TCanvasYrexSpectrum *item, int spectrum);

    void moveTo(const QPointF &itemPos, double pixel, Qt::KeyboardModifiers keys) override;
    void paint(QPainter &painter, const IPlotView &view) const override;
    TCommand *finish() override;
    Qt::CursorShape cursor() const override { return Qt::SizeVerCursor; }

private:
    /// The visible spectra as they stand on the item, from the first row on.
    QVector<int> order() const;

    TSecurePtr<TCanvasYrexSpectrum> fItem;
    int fSpectrum;
    int fGap = -1; // before which of `order` it would come; -1 before the first move
    QLineF fMark;  // item coordinates
};
