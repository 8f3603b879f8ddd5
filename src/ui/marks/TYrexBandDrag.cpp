#include "TYrexBandDrag.h"

#include "TCanvasYrexSpectrum.h"

TYrexBandDrag::TYrexBandDrag(TCanvasYrexSpectrum *item, const QPointF &start, const TMake &make)
    : fItem(item)
    , fStart(start.y())
    , fMake(make)
{
}

TYrexBandDrag::~TYrexBandDrag()
{
    TYrexBandDrag::giveUp();
}

void TYrexBandDrag::giveUp()
{
    if (fShown && fItem)
        fShown->undoItem(fItem.get(), 0);
    fShown.reset();
}

void TYrexBandDrag::moveTo(const QPointF &itemPos, double, Qt::KeyboardModifiers)
{
    giveUp();
    if (!fItem)
        return;
    fWay = itemPos.y() - fStart;
    fShown.reset(fMake(fWay));
    if (fShown->isApplicable(fItem.get()))
        fShown->doItem(fItem.get(), 0);
    else
        fShown.reset();
}

TCommand *TYrexBandDrag::finish()
{
    giveUp();
    return fItem && fWay != 0.0 ? fMake(fWay) : nullptr;
}
