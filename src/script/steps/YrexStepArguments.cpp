#include "YrexStepArguments.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "script/TStepCall.h"

#include <cmath>

namespace {

const char cSpectra[] = "spectra";

QVector<int> indicesOf(TStepCall &call, const QVariantList &list, const TCanvasYrexSpectrum &item)
{
    QVector<int> indices;
    for (const QVariant &entry : list) {
        const bool isNumber = entry.userType() == QMetaType::Double || entry.userType() == QMetaType::Int;
        const double index = isNumber ? entry.toDouble() : -1.0;
        if (index != std::floor(index) || index < 0 || index >= item.stack().count()) {
            call.fail(cSpectra, TStepCall::tr("there is no spectrum %1").arg(entry.toString()));
            return {};
        }
        if (!indices.contains(int(index)))
            indices.append(int(index));
    }
    return indices;
}

QVariantList everyIndex(const TCanvasYrexSpectrum &item)
{
    QVariantList list;
    for (int i = 0; i < item.stack().count(); ++i)
        list.append(i);
    return list;
}

} // namespace

TCanvasItemList YrexStepArguments::items(TStepCall &call)
{
    TCanvasItemList all = call.items();
    for (ICanvasItem *entry : qAsConst(all)) {
        if (yrexItem(entry))
            continue;
        call.fail(TStepCall::tr("items"), TStepCall::tr("expected items with spectra"));
        return {};
    }
    return all;
}

TCanvasYrexSpectrum *YrexStepArguments::item(TStepCall &call)
{
    const TCanvasItemList all = items(call);
    return all.isEmpty() ? nullptr : yrexItem(all.first());
}

QVector<QVector<int>> YrexStepArguments::targets(TStepCall &call, const TCanvasItemList &items)
{
    const bool isGiven = call.has(cSpectra);
    const QVariantList given = isGiven ? call.list(cSpectra) : QVariantList();
    const bool isForEach = !given.isEmpty() && given.first().userType() == QMetaType::QVariantList;
    if (isForEach && given.size() != items.size())
        call.fail(cSpectra, TStepCall::tr("expected a list for each item"));
    QVector<QVector<int>> targets;
    for (int i = 0; i < items.size(); ++i) {
        const TCanvasYrexSpectrum &item = *yrexItem(items.at(i));
        targets.append(indicesOf(call,
                                 !isGiven    ? everyIndex(item)
                                 : isForEach ? given.value(i).toList()
                                             : given,
                                 item));
    }
    return targets;
}

int YrexStepArguments::word(TStepCall &call, const QString &name, const QStringList &words)
{
    const int place = words.indexOf(call.text(name));
    if (place < 0)
        call.fail(name, TStepCall::tr("expected one of %1").arg(words.join(", ")));
    return place;
}

int YrexStepArguments::unit(TStepCall &call, const QString &name, TAxisDir axis)
{
    int code = cUnitArbitrary;
    const QString text = call.text(name);
    const bool isKnown = yrexUnitFromScriptName(text, code);
    if (!isKnown || (code != cUnitArbitrary && yrexIsHorizontalUnit(code) != (axis == horzDir)))
        call.fail(name, TStepCall::tr("\"%1\" is no unit of this axis").arg(text));
    return code;
}
