#include "TCmdYrexProcessing.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "history/THistoryCommand.h"
#include "utils/VariantUtils.h"

namespace {

constexpr int cManyChanges = 3; // from here on the history tells the new chain, not the differences

int actionId(const QVariant &action)
{
    return action.toMap().value("yrexProcOpId").toInt();
}

bool isApplied(const QVariant &action)
{
    return action.toMap().value("apply").toBool();
}

QString labelOf(const QVariant &action)
{
    return TYrexProcParams::label(actionId(action));
}

/// The map with the labels of its options in place of their numbers.
QVariantMap readable(const QVariant &action)
{
    QVariantMap map = action.toMap();
    for (auto it = map.begin(); it != map.end(); ++it) {
        if (TYrexProcParams::isEnumKey(it.key()))
            it.value() = TYrexProcParams::label(it.value().toInt());
    }
    return map;
}

void addMove(THistoryCommand &entry, const QVariantList &now, int from, const QVariant &first, const QVariant &last)
{
    const QString name = TCmdYrexProcessing::tr("Zarnu Proc. Action Moved: %1");
    entry.addParam(name.arg(TCmdYrexProcessing::tr("Prev.")), labelOf(first), QString());
    entry.addParam(name.arg(TCmdYrexProcessing::tr("Curr.")), labelOf(last), QString());
    if (from == 0)
        return;
    const QVariant before = now.value(from - 1);
    const QString state = isApplied(before) ? TCmdYrexProcessing::tr("(Active)") : TCmdYrexProcessing::tr("(Inactive)");
    entry.addParam(TCmdYrexProcessing::tr("Previous Proc. Action in Sequence"),
                   QString("%1 %2").arg(labelOf(before), state), QString());
}

void addDifferences(THistoryCommand &entry, const QVariantList &old, const QVariantList &now, const QVariantMap &diff)
{
    const QStringList keys = Utils::Variant::diffKeys(diff);
    const QVariant first = diff.value(keys.first());
    const QVariant last = diff.value(keys.last());
    const int place = keys.first().toInt() - 1;
    if (old.size() > now.size()) {
        entry.addParam(TCmdYrexProcessing::tr("Zarnu Proc. Action Removed"), labelOf(old.value(place)), QString());
    } else if (old.size() < now.size()) {
        entry.addParam(TCmdYrexProcessing::tr("Zarnu Proc. Action Duplicated"), labelOf(now.value(place)), QString());
    } else if (actionId(first) != actionId(last)) {
        addMove(entry, now, place, first, last);
    } else {
        for (int i = 0; i < now.size(); ++i) {
            if (now.at(i) != old.at(i))
                entry.addParamMapDiff(TCmdYrexProcessing::tr("Zarnu Processing Action: %1").arg(labelOf(now.at(i))),
                                      readable(now.at(i)), readable(old.at(i)), QString());
        }
    }
}

} // namespace

TCmdYrexProcessing::TCmdYrexProcessing(const TCanvasItemList &items, const TYrexProcParams &newParams)
    : TCommand(tr("Processing"))
    , fNewParams(newParams)
{
    TCanvasYrexSpectrum *mainItem = nullptr;
    for (ICanvasItem *entry : items) {
        TCanvasYrexSpectrum *item = yrexItem(entry);
        if (!item)
            continue;
        fItems.append(item);
        if (!mainItem || item->isSelectedForEdit())
            mainItem = item;
    }
    fSnapshots.resize(fItems.size());
    if (mainItem && mainItem->currentSpectrum())
        fOldParams = mainItem->currentSpectrum()->procParams().params();
}

void TCmdYrexProcessing::saveItem(const TCanvasYrexSpectrum &item, int index)
{
    QByteArray state;
    item.storeFullState(state);
    fSnapshots[index] = qCompress(state, -1);
}

void TCmdYrexProcessing::applyTo(TCanvasYrexSpectrum &item)
{
    const int last = fNewParams.actionCount() - 1;
    for (const int index : item.stack().selectedIndices(false, true)) {
        TYrexSpectrum *spectrum = item.stack().at(index);
        if (!spectrum)
            continue;
        spectrum->procParams() = fNewParams;
        fNewParams.storeDefaults();
        if (last >= 0)
            spectrum->process(0, 0, last);
    }
    if (T1DYrexPlot *plot = item.activeYrexPlot()) {
        if (const TYrexSpectrum *spectrum = item.currentSpectrum())
            plot->changeUnits(TAxisDir(2), spectrum->yUnits(), false);
        plot->keepCurveInView();
    }
    item.update();
}

void TCmdYrexProcessing::doCmd()
{
    for (int i = 0; i < fItems.size(); ++i) {
        saveItem(*fItems.at(i), i);
        applyTo(*fItems.at(i));
    }
}

void TCmdYrexProcessing::undoCmd()
{
    for (int i = fItems.size() - 1; i >= 0; --i) {
        TCanvasYrexSpectrum *item = fItems.at(i);
        item->restoreFullState(qUncompress(fSnapshots.at(i)));
        T1DYrexPlot *plot = item->activeYrexPlot();
        if (plot && item->currentSpectrum())
            plot->changeUnits(TAxisDir(2), item->currentSpectrum()->yUnits(), false);
        item->update();
    }
}

void TCmdYrexProcessing::doHistoryCommand()
{
    const QVariantList &old = fOldParams.actions();
    const QVariantList &now = fNewParams.actions();
    const QVariantMap diff = Utils::Variant::variantDiff(old, now);
    if (diff.isEmpty() || fItems.isEmpty())
        return;
    auto *entry = new THistoryCommand(description(), fItems.first(), QString());
    if (diff.size() < cManyChanges) {
        addDifferences(*entry, old, now, diff);
    } else {
        for (const QVariant &action : now) {
            if (isApplied(action))
                entry->addParam(tr("New Zarnu Processing Action Applied"), labelOf(action), QString());
        }
    }
    appendHistoryCommand(entry, fItems.first());
}
