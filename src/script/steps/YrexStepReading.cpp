#include "YrexStepReading.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexSpectrumListCommand.h"
#include "TYrexStepValues.h"
#include "TYrexUnits.h"
#include "YrexStepArguments.h"
#include "script/TStepCall.h"

#include <algorithm>

namespace {

bool isList(const QVariant &value)
{
    return value.userType() == QMetaType::QVariantList;
}

QVector<int> wholeNumbers(TStepCall &call, const QString &name, const QVariant &list)
{
    QVector<int> numbers;
    for (const QVariant &entry : list.toList()) {
        int number = 0;
        if (!YrexStepValues::readWhole(entry, number))
            call.fail(name, TStepCall::tr("expected whole numbers"));
        numbers.append(number);
    }
    return numbers;
}

bool hasSpectrum(ICanvasItem *item, int index)
{
    return index >= 0 && index < yrexItem(item)->stack().count();
}

} // namespace

TCanvasItemList YrexStepReading::items(TStepCall &call)
{
    return YrexStepArguments::items(call);
}

TCanvasItemList YrexStepReading::oneItem(TStepCall &call)
{
    const TCanvasItemList items = YrexStepReading::items(call);
    if (items.size() > 1)
        call.fail(TStepCall::tr("items"), TStepCall::tr("expected one item"));
    return items.isEmpty() ? TCanvasItemList() : TCanvasItemList{items.first()};
}

int YrexStepReading::unit(TStepCall &call, const QString &name, int without)
{
    int code = without;
    const QVariant given = call.any(name);
    if (call.has(name) && !yrexUnitFromScriptName(given.toString(), code) && !YrexStepValues::readWhole(given, code))
        call.fail(name, TStepCall::tr("expected the name of a unit"));
    return code;
}

QString YrexStepReading::text(TStepCall &call, const QString &name)
{
    const QString text = call.text(name, QString());
    return call.has(name) && text.isNull() ? QString("") : text;
}

QVector<QVector<int>> YrexStepReading::listsByItem(TStepCall &call, const QString &name, int count)
{
    const QVariantList given = call.list(name);
    if (std::none_of(given.begin(), given.end(), isList))
        return QVector<QVector<int>>(count, wholeNumbers(call, name, given));
    QVector<QVector<int>> lists;
    if (given.size() != count || !std::all_of(given.begin(), given.end(), isList))
        call.fail(name, TStepCall::tr("expected a list for each item"));
    for (int i = 0; i < count; ++i)
        lists.append(wholeNumbers(call, name, given.value(i)));
    return lists;
}

TYrexSpectrumPlaces YrexStepReading::places(TStepCall &call, const TCanvasItemList &items)
{
    const QVariant given = call.any("spectrum");
    if (!call.has("spectrum"))
        return TYrexSpectrumPlaces(items);
    QVector<int> indices(items.size(), 0);
    if (isList(given) && given.toList().size() != items.size())
        call.fail("spectrum", TStepCall::tr("expected one for each item"));
    for (int i = 0; i < items.size(); ++i) {
        const bool isIndex = YrexStepValues::readWhole(isList(given) ? given.toList().value(i) : given, indices[i]);
        const bool isNone = isIndex && indices.at(i) == -1 && yrexItem(items.at(i))->stack().count() == 0;
        if (!isIndex || !(isNone || hasSpectrum(items.at(i), indices.at(i))))
            call.fail("spectrum", TStepCall::tr("there is no such spectrum"));
    }
    return TYrexSpectrumPlaces(items, indices);
}

TYrexSpectrumListCommand *YrexStepReading::withSpectra(TStepCall &call, const TCanvasItemList &items,
                                                       TYrexSpectrumListCommand *command)
{
    if (!call.has("spectra"))
        return command;
    const QVector<QVector<int>> spectra = listsByItem(call, "spectra", items.size());
    for (int i = 0; i < items.size(); ++i) {
        for (const int index : spectra.at(i)) {
            if (!hasSpectrum(items.at(i), index))
                call.fail("spectra", TStepCall::tr("there is no such spectrum"));
            if (spectra.at(i).count(index) > 1)
                call.fail("spectra", TStepCall::tr("a spectrum is named twice"));
        }
    }
    command->setSpectra(spectra);
    return command;
}
