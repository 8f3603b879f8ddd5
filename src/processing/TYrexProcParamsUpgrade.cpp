// Brings chains of older versions up to the present set of actions.
#include "TYrexProcDefaults.h"
#include "TYrexProcParams.h"

namespace {

// places of inserted actions: those of the default chain
constexpr int cScatterPlace = 4;
constexpr int cNormalizationPlace = 5;
constexpr int cQuotientPlace = 6;

bool isRemovedAction(int id)
{
    return id == cProcOldBaselineA || id == cProcOldBaselineB || id == cProcGsdPeakPicking || id == cProcOldGsdLambda ||
           id == cProcOldGsdFactor || id == cProcOldGsdShow;
}

bool isNormalizationMode(const QVariantMap &map)
{
    const int mode = map.value(QLatin1String(cKeyNormMode)).toInt();
    return mode == cNormLargestPeak || mode == cNormIntegral || mode == cNormVectorLength;
}

} // namespace

void TYrexProcParams::upgrade()
{
    for (int i = fActions.size() - 1; i >= 0; --i) {
        if (isRemovedAction(actionId(i)))
            fActions.removeAt(i);
    }
    upgradeBaseline();
    if (indexOfAction(cProcAutoPeakPicking) < 0) {
        setDefaultMap(cProcAutoPeakPicking, TYrexProcDefaults::tableMap(cProcAutoPeakPicking));
        fActions.append(defaultMap(cProcAutoPeakPicking));
    }
    upgradeNormalization();
    // The order of these matters: each place counts what was inserted before.
    const auto insertMissing = [this](int id, int place) {
        if (indexOfAction(id) < 0)
            fActions.insert(qMin(place, fActions.size()), TYrexProcDefaults::tableMap(id));
    };
    insertMissing(cProcScatterCorrection, cScatterPlace);
    insertMissing(cProcInvertSign, fActions.size());
    insertMissing(cProcQuotientNormalization, cQuotientPlace);
}

void TYrexProcParams::upgradeBaseline()
{
    const int index = indexOfAction(cProcAutoBaseline);
    if (index < 0) {
        setDefaultMap(cProcAutoBaseline, TYrexProcDefaults::tableMap(cProcAutoBaseline));
        fActions.prepend(defaultMap(cProcAutoBaseline));
        return;
    }
    QVariantMap map = action(index);
    if (!map.contains(QLatin1String(cKeyBaselineAlgorithm))) {
        map.insert(QLatin1String(cKeyBaselineAlgorithm), int(cBaselineAsLs)); // the only method of that time
        fActions[index] = map;
    }
}

void TYrexProcParams::upgradeNormalization()
{
    QVariantMap fresh = defaultMap(cProcNormalization);
    const int first = indexOfAction(cProcNormalization);
    if (first < 0) {
        fresh.insert(QLatin1String(cKeyApply), false);
        fActions.insert(qMin(cNormalizationPlace, fActions.size()), fresh);
        return;
    }
    const QVariantMap found = action(first);
    if (isNormalizationMode(found) && found.contains(QLatin1String(cKeyNormRangeFrom)))
        return;
    for (int i = first; i < fActions.size(); ++i) {
        if (actionId(i) != cProcNormalization)
            continue;
        const QVariantMap old = action(i);
        QVariantMap map = fresh;
        map.insert(QLatin1String(cKeyApply), old.value(QLatin1String(cKeyApply)).toBool());
        if (isNormalizationMode(found) && isNormalizationMode(old))
            map.insert(QLatin1String(cKeyNormMode), old.value(QLatin1String(cKeyNormMode)));
        fActions[i] = map;
    }
}
