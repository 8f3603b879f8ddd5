#include "TCmdEditYrexArrayedData.h"

#include "TCanvasYrexSpectrum.h"
#include "TDAYrexItemCtx.h"
#include "history/THistoryCommand.h"

#include <algorithm>

namespace {

const QMap<int, QByteArray> &keyNames()
{
    static const QMap<int, QByteArray> cNames{{TCmdEditYrexArrayedData::cLabel, "Label"}};
    return cNames;
}

QVariantMap named(const TCmdEditYrexArrayedData::TValues &values)
{
    QVariantMap map;
    for (auto it = values.constBegin(); it != values.constEnd(); ++it)
        map.insert(QString::fromLatin1(keyNames().value(it.key(), QByteArray::number(it.key()))), it.value());
    return map;
}

} // namespace

TCmdEditYrexArrayedData::TCmdEditYrexArrayedData(const TCanvasItemList &items, const TValues &values)
    : TYrexVoidUnlessChanged(tr("Edit Arrayed Data"), items)
    , fValues(TCanvasItemsCommand::items().size(), values)
{
}

bool TCmdEditYrexArrayedData::isVoid() const
{
    const auto isEmpty = [](const TValues &values) { return values.isEmpty(); };
    return TYrexVoidUnlessChanged::isVoid() || std::all_of(fValues.begin(), fValues.end(), isEmpty);
}

void TCmdEditYrexArrayedData::doItem(TCanvasYrexSpectrum *item, int index)
{
    TDAYrexItemCtx *context = item->daContext();
    TValues &values = fValues[index];
    const TValues now = values;
    for (auto it = values.begin(); it != values.end(); ++it) {
        if (it.key() != cLabel)
            continue;
        const QString old = context->arrayedLabel();
        if (old != it.value().toString())
            noteChange();
        context->setArrayedLabel(it.value().toString());
        it.value() = old;
    }
    if (fItemHistory.contains(item)) // the history is told once
        return;
    auto *entry = new THistoryCommand(description(), item, QString());
    entry->setParent(this);
    entry->addParamMapDiff("Parameters", named(now), named(values), QString());
    fItemHistory.insert(item, entry);
}

TScriptStep TCmdEditYrexArrayedData::scriptStep() const
{
    return TScriptStep("setSeriesLabel").on(items()).with("label", fValues.value(0).value(cLabel).toString());
}

THistoryCommand *TCmdEditYrexArrayedData::makeItemHistory(TCanvasYrexSpectrum *item)
{
    return fItemHistory.value(item);
}
