#include "TYrexSpectrumPlaces.h"

#include "TCanvasYrexSpectrum.h"
#include "canvas/TCanvasItemList.h"

#include <algorithm>

TYrexSpectrumPlaces::TYrexSpectrumPlaces(const TCanvasItemList &items)
    : fIsTold(true)
{
    for (ICanvasItem *entry : items) {
        if (const TCanvasYrexSpectrum *item = yrexItem(entry))
            fIndices.insert(item, item->stack().current());
    }
}

TYrexSpectrumPlaces::TYrexSpectrumPlaces(const TCanvasItemList &items, const QVector<int> &indices)
    : fIsTold(true)
{
    for (int i = 0; i < qMin(items.size(), indices.size()); ++i) {
        if (const TCanvasYrexSpectrum *item = yrexItem(items.at(i)))
            fIndices.insert(item, indices.at(i));
    }
}

TYrexSpectrumPlaces TYrexSpectrumPlaces::orCurrentOf(const TCanvasItemList &items) const
{
    return fIsTold ? *this : TYrexSpectrumPlaces(items);
}

QVariant TYrexSpectrumPlaces::told(const TCanvasItemList &items) const
{
    QVariantList indices;
    bool hasChoice = false;
    for (ICanvasItem *entry : items) {
        const TCanvasYrexSpectrum *item = yrexItem(entry);
        indices.append(index(item));
        hasChoice = hasChoice || (item && item->stack().count() > 1);
    }
    if (!hasChoice)
        return QVariant();
    const bool isOne = std::count(indices.begin(), indices.end(), indices.first()) == indices.size();
    return isOne ? indices.first() : QVariant(indices);
}

TYrexSpectrum *TYrexSpectrumPlaces::spectrum(const TCanvasYrexSpectrum *item) const
{
    return item ? item->stack().at(index(item)) : nullptr;
}
