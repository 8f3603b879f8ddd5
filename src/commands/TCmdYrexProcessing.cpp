#include "TCmdYrexProcessing.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexChainSections.h"
#include "TYrexProcIds.h"
#include "TYrexScatter.h"
#include "YrexChainStep.h"
#include "history/THistoryCommand.h"
#include "log/TLogger.h"
#include "utils/VariantUtils.h"

namespace {

constexpr int cManyChanges = 3; // from here on the history tells the new chain, not the differences

int idOf(const QVariant &action)
{
    return action.toMap().value(cKeyOpId).toInt();
}

bool isApplied(const QVariant &action)
{
    return action.toMap().value(cKeyApply).toBool();
}

QString labelOf(const QVariant &action)
{
    return TYrexProcParams::label(idOf(action));
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
    const int place = keys.first().toInt() - 1;
    const int other = keys.last().toInt() - 1;
    const bool isMove = idOf(old.value(place)) == idOf(now.value(other)) &&
                        idOf(old.value(other)) == idOf(now.value(place)) &&
                        idOf(now.value(place)) != idOf(now.value(other));
    if (old.size() > now.size()) {
        entry.addParam(TCmdYrexProcessing::tr("Zarnu Proc. Action Removed"), labelOf(old.value(place)), QString());
    } else if (old.size() < now.size()) {
        entry.addParam(TCmdYrexProcessing::tr("Zarnu Proc. Action Duplicated"), labelOf(now.value(place)), QString());
    } else if (isMove) {
        addMove(entry, now, place, now.value(place), now.value(other));
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
    : TYrexProcessingCommand(tr("Processing"), items)
    , fNewParams(newParams)
{
    const TCanvasYrexSpectrum *first = yrexItemAt(0);
    if (!first)
        return;
    fTargetCount = first->stack().selectedIndices(false, true).size();
    fPointCount = first->stack().isEmpty() ? 0 : first->stack().at(0)->pointCount();
}

void TCmdYrexProcessing::doCmd()
{
    // not when it is made: within an edit run its predecessor is undone first
    if (mainItem() && mainItem()->currentSpectrum())
        fOldParams = mainItem()->currentSpectrum()->procParams().params();
    fRemarks.clear();
    TYrexProcessingCommand::doCmd();
}

void TCmdYrexProcessing::setSpectrumParams(TCanvasYrexSpectrum *, int, TYrexSpectrum *spectrum, int)
{
    spectrum->procParams() = fNewParams;
    fNewParams.storeDefaults();
}

QVector<TYrexSpectrum *> TCmdYrexProcessing::targetSpectra(TCanvasYrexSpectrum *item, int index) const
{
    QVector<TYrexSpectrum *> spectra;
    for (const int specIndex : targetsOf(item, index)) {
        if (TYrexSpectrum *spectrum = item->stack().at(specIndex))
            spectra.append(spectrum);
    }
    return spectra;
}

void TCmdYrexProcessing::runPrepass(TCanvasYrexSpectrum *item, int index, int action, bool isFirst)
{
    const QVector<TYrexSpectrum *> spectra = targetSpectra(item, index);
    if (isFirst) { // no section has run yet that would have reset the data
        for (TYrexSpectrum *spectrum : spectra)
            spectrum->copyOrgDataToData();
    }
    const int id = fNewParams.actionId(action);
    const QString remark = id == cProcScatterCorrection ? TYrexScatter::mscPrepass(spectra)
                                                        : TYrexScatter::pqnPrepass(spectra, fNewParams.action(action));
    if (remark.isEmpty())
        return;
    fRemarks.append(QStringLiteral("%1: %2").arg(TYrexProcParams::label(id), remark));
    TLogger::printToLogger(QStringLiteral("YREX"), fRemarks.last());
}

void TCmdYrexProcessing::doItem(TCanvasYrexSpectrum *item, int index)
{
    saveItem(item, index);
    const QVector<TYrexChainSection> sections = yrexChainSections(fNewParams.actions());
    for (const TYrexChainSection &section : sections) {
        if (section.fPrepass >= 0)
            runPrepass(item, index, section.fPrepass, section.fFrom == 0);
        for (const int specIndex : targetsOf(item, index)) {
            if (TYrexSpectrum *spectrum = item->stack().at(specIndex))
                applyToRange(item, index, spectrum, specIndex, section.fFrom, section.fTo);
        }
    }
    finishItem(item, index, true);
    item->update();
}

TScriptStep TCmdYrexProcessing::scriptStep() const
{
    TScriptStep step = TScriptStep("process").on(items());
    const TCanvasYrexSpectrum *item = yrexItemAt(0);
    const TYrexSpectrum *first = item ? item->stack().at(targetsOf(item, 0).value(0, -1)) : nullptr;
    YrexChainStep::tell(step, first ? first->procParams().params() : TYrexProcParams(), fNewParams);
    tellTargets(step);
    return step;
}

void TCmdYrexProcessing::doHistoryCommand()
{
    const QVariantList &old = fOldParams.actions();
    const QVariantList &now = fNewParams.actions();
    const QVariantMap diff = Utils::Variant::variantDiff(old, now);
    if (diff.isEmpty() || items().isEmpty())
        return;
    auto *entry = new THistoryCommand(description(), canvasItem(items().first()), QString());
    if (diff.size() < cManyChanges) {
        addDifferences(*entry, old, now, diff);
    } else {
        for (const QVariant &action : now) {
            if (isApplied(action))
                entry->addParam(tr("New Zarnu Processing Action Applied"), labelOf(action), QString());
        }
    }
    appendHistoryCommand(entry, canvasItem(items().first()));
}
