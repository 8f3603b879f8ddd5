#include "TYrexStepValues.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexSpectrumPlaces.h"
#include "TYrexUnits.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

QVariant listOf(const QVector<int> &numbers)
{
    QVariantList list;
    for (const int number : numbers)
        list.append(number);
    return list;
}

} // namespace

QVariant YrexStepValues::unit(int code)
{
    const QString name = yrexUnitScriptName(code);
    int found = -1;
    return yrexUnitFromScriptName(name, found) && found == code ? QVariant(name) : QVariant(code);
}

bool YrexStepValues::readNumber(const QVariant &value, double &number)
{
    if (value.userType() != QMetaType::Double && value.userType() != QMetaType::Int)
        return false;
    number = value.toDouble();
    return true;
}

bool YrexStepValues::readWhole(const QVariant &value, int &number)
{
    double given = 0.0;
    if (!readNumber(value, given) || given != std::floor(given) || std::abs(given) > std::numeric_limits<int>::max())
        return false;
    number = int(given);
    return true;
}

QVariant YrexStepValues::byItem(const QVector<QVector<int>> &lists)
{
    if (std::all_of(lists.begin(), lists.end(), [&lists](const QVector<int> &list) { return list == lists.first(); }))
        return listOf(lists.value(0));
    QVariantList all;
    for (const QVector<int> &list : lists)
        all.append(listOf(list));
    return all;
}

TScriptStep YrexStepValues::withSpectrum(TScriptStep step, const TYrexSpectrumPlaces &places,
                                         const TCanvasItemList &items)
{
    const QVariant told = places.told(items);
    return told.isValid() ? step.with("spectrum", told) : step;
}

TScriptStep YrexStepValues::withSpectra(TScriptStep step, const QVector<QVector<int>> &spectra,
                                        const TCanvasItemList &items)
{
    bool hasChoice = false;
    for (int i = 0; i < items.size(); ++i)
        hasChoice = hasChoice || yrexItem(items.at(i))->stack().count() != 1 || spectra.value(i) != QVector<int>{0};
    return hasChoice ? step.with("spectra", byItem(spectra)) : step;
}
