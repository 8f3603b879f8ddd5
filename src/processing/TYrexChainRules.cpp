#include "TYrexChainRules.h"

#include "TYrexProcDefaults.h"
#include "TYrexProcIds.h"
#include "TYrexProcParams.h"
#include "TYrexUnitConversion.h"
#include "TYrexUnits.h"

#include <QCoreApplication>
#include <QHash>
#include <QLocale>
#include <algorithm>
#include <functional>

namespace {

constexpr int cSingleActions[] = {cProcAutoPeakPicking, cProcMultipointBaseline, cProcUnitConversion};
constexpr int cLastingActions[] = {cProcMultipointBaseline, cProcAutoBaseline,          cProcAutoPeakPicking,
                                   cProcSmoothing,          cProcStandardNormalVariate, cProcInvertSign,
                                   cProcNormalization,      cProcScatterCorrection,     cProcQuotientNormalization,
                                   cProcDerivative};
// these give figures of no physical unit
constexpr int cArbitraryActions[] = {cProcDerivative, cProcStandardNormalVariate, cProcNormalization,
                                     cProcScatterCorrection, cProcQuotientNormalization};

template <size_t tCount>
bool isOneOf(const int (&ids)[tCount], int id)
{
    return std::find(std::begin(ids), std::end(ids), id) != std::end(ids);
}

int idAt(const QVariantList &chain, int row)
{
    return chain.value(row).toMap().value(QLatin1String(cKeyOpId), -1).toInt();
}

bool isApplied(const QVariant &action)
{
    return action.toMap().value(QLatin1String(cKeyApply)).toBool();
}

/// The label of each key whose control has one.
const QHash<QString, int> &keyLabels()
{
    static const QHash<QString, int> cLabels{{cKeyBaselineAlgorithm, 80},
                                             {cKeyBaselineLambda, 23},
                                             {cKeyBaselineRatio, 24},
                                             {cKeyBaselineShowOnly, 25},
                                             {cKeyBaselineAutoLambda, 91},
                                             {"normpqnreference", 74},
                                             {cKeyToYUnits, 51},
                                             {cKeyMaxAbsorbance, 57},
                                             {"yrexuckmscatteringcoef", 59},
                                             {"yrexstdpppsign", 27},
                                             {"yrexstdppnoisefactor", 31},
                                             {"yrexstdppsensitivity", 32},
                                             {"yrexstdppmaxnbrpeaks", 33},
                                             {"yrexstdppuseparabolic", 34},
                                             {"normalizationfullrange", 90},
                                             {cKeyNormRangeFrom, 84},
                                             {"normalizationrangeto", 85},
                                             {"normalizationvalue", 86},
                                             {cKeySmoothParam, 16},
                                             {cKeyNlmNoiseFactor, 10},
                                             {cKeyNlmMode, 11},
                                             {cKeySmoothDegree, 47},
                                             {cKeySmoothWindow, 46},
                                             {"derivativeapprox", 49},
                                             {"derivativeorder", 40},
                                             {"derivativerobustnoiselambda", 41},
                                             {"derivativesgpolydeg", 44},
                                             {"derivativesgkerlen", 43},
                                             {"derivativeinvertsign", 48}};
    return cLabels;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("TYrexChainRules", text);
}

} // namespace

bool TYrexChainRules::canDuplicate(const QVariantList &chain, const QVector<int> &rows)
{
    return !rows.isEmpty() && std::none_of(rows.begin(), rows.end(), [&chain](int row) {
        return row < 0 || row >= chain.size() || isOneOf(cSingleActions, idAt(chain, row));
    });
}

bool TYrexChainRules::canRemove(const QVariantList &chain, const QVector<int> &rows)
{
    if (!canDuplicate(chain, rows))
        return false;
    QVector<int> staying;
    for (int row = 0; row < chain.size(); ++row) {
        if (!rows.contains(row))
            staying.append(idAt(chain, row));
    }
    return std::all_of(std::begin(cLastingActions), std::end(cLastingActions),
                       [&staying](int id) { return staying.contains(id); });
}

void TYrexChainRules::remove(QVariantList &chain, QVector<int> rows)
{
    std::sort(rows.begin(), rows.end(), std::greater<int>());
    for (const int row : qAsConst(rows)) {
        if (row >= 0 && row < chain.size())
            chain.removeAt(row);
    }
}

void TYrexChainRules::duplicate(QVariantList &chain, QVector<int> rows)
{
    std::sort(rows.begin(), rows.end());
    int copies = 0;
    for (const int row : qAsConst(rows)) {
        if (row < 0 || row + copies >= chain.size())
            continue;
        chain.insert(row + copies, QVariant(chain.at(row + copies)));
        ++copies;
    }
}

bool TYrexChainRules::move(QVariantList &chain, int from, int to)
{
    if (from == to || from < 0 || to < 0 || from >= chain.size() || to >= chain.size())
        return false;
    chain.move(from, to);
    return true;
}

bool TYrexChainRules::needsStack(int action)
{
    return action == cProcScatterCorrection || action == cProcQuotientNormalization;
}

void TYrexChainRules::switchOffStackActions(QVariantList &chain)
{
    for (QVariant &entry : chain) {
        QVariantMap map = entry.toMap();
        if (!isApplied(entry) || !needsStack(map.value(QLatin1String(cKeyOpId)).toInt()))
            continue;
        map.insert(QLatin1String(cKeyApply), false);
        entry = map;
    }
}

int TYrexChainRules::shownBaseline(const QVariantList &chain)
{
    for (int row = 0; row < chain.size(); ++row) {
        if (idAt(chain, row) == cProcAutoBaseline && isApplied(chain.at(row)) &&
            chain.at(row).toMap().value(QLatin1String(cKeyBaselineShowOnly)).toBool())
            return row;
    }
    return -1;
}

QVector<int> TYrexChainRules::differingRows(const QVariantList &chain, const QVariantList &other)
{
    bool isAlike = chain.size() == other.size();
    for (int row = 0; isAlike && row < chain.size(); ++row)
        isAlike = idAt(chain, row) == idAt(other, row);
    QVector<int> rows;
    for (int row = 0; row < chain.size(); ++row) {
        if (!isAlike || chain.at(row) != other.at(row))
            rows.append(row);
    }
    return rows;
}

QPair<int, int> TYrexChainRules::derivativeDegrees(int order)
{
    switch (order) {
    case 1:
        return {1, 4};
    case 2:
        return {2, 5};
    case 3:
        return {3, 6};
    default:
        return {4, 5};
    }
}

int TYrexChainRules::derivativeWindow(int order, int degree)
{
    if (order == 1)
        return degree <= 2 ? 3 : 5;
    if (order == 2 || order == 3)
        return degree <= 4 ? 5 : 7;
    return 7;
}

int TYrexChainRules::derivativeOrders(int method)
{
    return method == cDerivativeSavitzkyGolay ? 4 : 2;
}

int TYrexChainRules::smoothingWindow(int degree)
{
    return degree <= 3 ? 5 : 7;
}

bool TYrexChainRules::isConvertible(int yUnit)
{
    return yUnit == cUnitTransmittance || yUnit == cUnitPercentTransmittance || yUnit == cUnitAbsorbance;
}

int TYrexChainRules::shownYUnit(const QVariantList &chain, int yUnit)
{
    static const QHash<int, int> cUnits{{cToTransmittance, cUnitTransmittance},
                                        {cToPercentTransmittance, cUnitPercentTransmittance},
                                        {cToAbsorbance, cUnitAbsorbance}};
    int unit = yUnit;
    for (int row = 0; row < chain.size(); ++row) {
        const int id = idAt(chain, row);
        if (!isApplied(chain.at(row)))
            continue;
        if (isOneOf(cArbitraryActions, id))
            return cUnitArbitrary;
        if (id == cProcUnitConversion)
            unit = cUnits.value(chain.at(row).toMap().value(QLatin1String(cKeyToYUnits)).toInt(), unit);
    }
    return unit;
}

int TYrexChainRules::endYUnit(const QVariantList &chain, int origYUnit)
{
    const int shown = shownBaseline(chain); // the walk stops there
    int unit = origYUnit;
    for (int row = 0; row < (shown < 0 ? chain.size() : shown); ++row) {
        const int id = idAt(chain, row);
        if (!isApplied(chain.at(row)))
            continue;
        const int target = chain.at(row).toMap().value(QLatin1String(cKeyToYUnits)).toInt();
        if (isOneOf(cArbitraryActions, id))
            unit = cUnitArbitrary;
        else if (id == cProcUnitConversion && yrexConvertIntensity(nullptr, 0, origYUnit, target, 0.0))
            unit = yrexTargetUnit(target);
    }
    return unit;
}

QString TYrexChainRules::keyLabel(const QString &key, const QVariantMap &action)
{
    constexpr int cSnipFactor = 82;
    constexpr int cSnipAuto = 92;
    if (key == QLatin1String(cKeyNormMode))
        return translated("Type");
    if (key == QLatin1String("msccorrmode"))
        return translated("Correction");
    if (key == QLatin1String(cKeySmoothMethod))
        return translated("Method");
    const bool isSnip = action.value(QLatin1String(cKeyBaselineAlgorithm)).toInt() == cBaselineSnip;
    if (isSnip && key == QLatin1String(cKeyBaselineLambda))
        return TYrexProcParams::label(cSnipFactor);
    if (isSnip && key == QLatin1String(cKeyBaselineAutoLambda))
        return TYrexProcParams::label(cSnipAuto);
    const int id = keyLabels().value(key, -1);
    QString label = id < 0 ? key : TYrexProcParams::label(id);
    while (label.endsWith(':'))
        label.chop(1);
    return label;
}

QString TYrexChainRules::valueText(const QString &key, const QVariant &value)
{
    if (TYrexProcParams::isEnumKey(key))
        return TYrexProcParams::label(value.toInt());
    if (value.type() == QVariant::Bool)
        return value.toBool() ? translated("yes") : translated("no");
    if (value.type() == QVariant::List)
        return translated("%1 values").arg(value.toList().size());
    if (value.type() == QVariant::Double)
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    return value.toString();
}

QString TYrexChainRules::summary(const QVariantMap &action)
{
    QStringList parts;
    const int id = action.value(QLatin1String(cKeyOpId)).toInt();
    for (const TYrexProcKey &key : TYrexProcDefaults::keysOf(id, true)) {
        if (action.contains(key.fKey))
            parts.append(
                QString("%1: %2").arg(keyLabel(key.fKey, action), valueText(key.fKey, action.value(key.fKey))));
    }
    return parts.join("; ");
}
