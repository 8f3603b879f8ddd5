#include "TCmdYrexManualPeakPickingBase.h"

#include "TCanvasYrexSpectrum.h"

TCmdYrexManualPeakPickingBase::TCmdYrexManualPeakPickingBase(const QString &description, const TCanvasItemList &items)
    : TYrexVoidUnlessChanged(description, items)
{
    for (int i = 0; i < TCanvasItemsCommand::items().size(); ++i)
        fSavedLists.append(listsOf(*yrexItemAt(i)));
}

TCmdYrexManualPeakPickingBase::TLists TCmdYrexManualPeakPickingBase::listsOf(const TCanvasYrexSpectrum &item)
{
    TLists lists;
    for (const TYrexSpectrum *spectrum : item.spectra())
        lists.append(YrexPeakCopies::copyOf(spectrum->peaks()));
    return lists;
}

void TCmdYrexManualPeakPickingBase::putLists(const TLists &lists, const TCanvasYrexSpectrum &item)
{
    for (int i = 0; i < qMin(lists.size(), item.stack().count()); ++i)
        YrexPeakCopies::put(lists.at(i), item.stack().at(i)->peaks());
}

void TCmdYrexManualPeakPickingBase::undoItem(TCanvasYrexSpectrum *item, int index)
{
    putLists(savedLists(index), *item);
    item->update();
}
