#include "YrexStepTargets.h"

#include "TCanvasYrexSpectrum.h"
#include "commands/TScriptStep.h"

#include <algorithm>

namespace {

QVariantList listOf(const QVector<int> &indices)
{
    QVariantList list;
    for (const int index : indices)
        list.append(index);
    return list;
}

/// Each of them once, in their order.
bool isWhole(const QVector<int> &indices, int count)
{
    for (int i = 0; i < count; ++i) {
        if (indices.value(i, -1) != i)
            return false;
    }
    return true;
}

} // namespace

void YrexStepTargets::tell(TScriptStep &step, const TCanvasItemList &items, const QVector<QVector<int>> &targets)
{
    QVariantList lists;
    bool isAll = true;
    for (int i = 0; i < items.size(); ++i) {
        const TCanvasYrexSpectrum *item = yrexItem(items.at(i));
        isAll = isAll && item && isWhole(targets.value(i), item->stack().count());
        lists.append(QVariant(listOf(targets.value(i))));
    }
    if (isAll)
        return;
    const bool isOne = std::all_of(targets.begin(), targets.end(),
                                   [&targets](const QVector<int> &one) { return one == targets.first(); });
    step.with("spectra", isOne ? lists.value(0) : QVariant(lists));
}
