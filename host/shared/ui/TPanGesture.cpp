#include "ui/TPanGesture.h"

#include "canvas/TCanvasItemList.h"
#include "canvas/TCanvasSpectrum.h"
#include "plot/TBasePlot.h"

void TPanGesture::start(const TMouseSpot &spot, int mask)
{
    fItem = TSecurePtr<TCanvasItem>(spot.plot ? spot.item : nullptr);
    fStart = spot.itemPos;
    fDelta = QPointF();
    fMask = mask;
    if (spot.plot)
        fStartView = spot.plot->getPlotData();
}

TBasePlot *TPanGesture::plot() const
{
    const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(fItem.get());
    return spectrum ? spectrum->activePlot() : nullptr;
}

void TPanGesture::moveTo(const QPointF &itemPos)
{
    TBasePlot *moved = plot();
    if (!moved)
        return;
    fDelta =
        QPointF(fMask & horzDir ? itemPos.x() - fStart.x() : 0.0, fMask & vertDir ? fStart.y() - itemPos.y() : 0.0);
    moved->setPlotData(fStartView);
    moved->panMoveHorz(fDelta.x());
    moved->panMoveVert(fDelta.y());
    fItem->update();
}

TCommand *TPanGesture::finish()
{
    TBasePlot *moved = plot();
    TCanvasItem *item = fItem.get();
    fItem = TSecurePtr<TCanvasItem>();
    if (!moved)
        return nullptr;
    moved->setPlotData(fStartView);
    if (fDelta.isNull())
        return nullptr;
    return item->panCommand({item}, fDelta.x(), fDelta.y());
}

void TPanGesture::cancel()
{
    if (TBasePlot *moved = plot()) {
        moved->setPlotData(fStartView);
        fItem->update();
    }
    fItem = TSecurePtr<TCanvasItem>();
}
