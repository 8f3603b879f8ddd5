#include "TYrexProcDefaults.h"

#include "TYrexProcIds.h"
#include "settings/TDefaultsIni.h"
#include "utils/VariantUtils.h"

#include <QHash>
#include <algorithm>

namespace {

constexpr double cNoBound = std::numeric_limits<double>::infinity();
constexpr double cNoRangeGiven = -999999.0; // the user has not chosen a range yet
constexpr bool cInSettings = true;
constexpr bool cFixed = false;

TYrexProcKey plainKey(int action, const char *key, const QVariant &value, bool inSettings)
{
    TYrexProcKey entry;
    entry.fAction = action;
    entry.fKey = QString::fromLatin1(key);
    entry.fDefault = value;
    if (inSettings)
        entry.fSettingsKey = QStringLiteral("Zarnu/ProcessingParams/%1").arg(entry.fKey);
    return entry;
}

TYrexProcKey rangeKey(int action, const char *key, const QVariant &value, double min, double max)
{
    TYrexProcKey entry = plainKey(action, key, value, cInSettings);
    entry.fMin = min;
    entry.fMax = max;
    return entry;
}

TYrexProcKey windowKey(int action, const char *key, int value)
{
    TYrexProcKey entry = rangeKey(action, key, value, 3, 101);
    entry.fOddOnly = true;
    return entry;
}

TYrexProcKey optionKey(int action, const char *key, int value, const QVector<int> &options, bool inSettings = true)
{
    TYrexProcKey entry = plainKey(action, key, value, inSettings);
    entry.fOptions = options;
    return entry;
}

QVector<TYrexProcKey> buildTable()
{
    return {
        rangeKey(cProcGsdPeakPicking, "yrexgsdresamplinglambda", 1.0, 1.0, 1000.0),
        rangeKey(cProcGsdPeakPicking, "yrexgsdresamplingfactor", 0, 0, 100),
        plainKey(cProcGsdPeakPicking, "yrexgsdresamplingshow", false, cInSettings),

        optionKey(cProcDerivative, "derivativeapprox", cDerivativeSavitzkyGolay,
                  {cDerivativeCentered, cDerivativeSavitzkyGolay, cDerivativeRobustNoise}),
        rangeKey(cProcDerivative, "derivativeorder", 1, 1, 4),
        rangeKey(cProcDerivative, "derivativerobustnoiselambda", 10, 0, cNoBound),
        windowKey(cProcDerivative, "derivativesgkerlen", 9),
        rangeKey(cProcDerivative, "derivativesgpolydeg", 4, 1, 6),
        plainKey(cProcDerivative, "derivativeinvertsign", false, cInSettings),

        optionKey(cProcSmoothing, "smoothmethod", cSmoothSavitzkyGolay,
                  {cSmoothExponential, cSmoothNonlocalMeans, cSmoothMedianWiener, cSmoothSavitzkyGolay}),
        rangeKey(cProcSmoothing, "smoothparam", 5.0, 0.05, 1e6),
        rangeKey(cProcSmoothing, "nlmnoisefactor", 0.5, 0.05, 1e6),
        optionKey(cProcSmoothing, "nlmmode", cNlmBlockwise, {cNlmBlockwise, cNlmPixelwise, cNlmFastPixelwise}),
        windowKey(cProcSmoothing, "sgsmoothingkerlen", 9),
        // beyond 20 the sums of powers of the normal equations carry no digit of the data any more
        rangeKey(cProcSmoothing, "sgsmoothinggpolydeg", 4, 0, 20),

        optionKey(cProcAutoPeakPicking, "yrexstdpppsign", cPeaksAuto,
                  {cPeaksBoth, cPeaksUpwards, cPeaksDownwards, cPeaksAuto}, cFixed),
        plainKey(cProcAutoPeakPicking, "yrexstdppnoisefactor", 1.0, cInSettings),
        rangeKey(cProcAutoPeakPicking, "yrexstdppsensitivity", 1.0, 0.01, 10.0),
        rangeKey(cProcAutoPeakPicking, "yrexstdppmaxnbrpeaks", 1000, 1, 100000),
        plainKey(cProcAutoPeakPicking, "yrexstdppuseparabolic", true, cInSettings),

        optionKey(cProcScatterCorrection, "msccorrmode", cScatterFull,
                  {cScatterFull, cScatterOffset, cScatterAmplification}),

        optionKey(cProcNormalization, cKeyNormMode, cNormLargestPeak,
                  {cNormLargestPeak, cNormIntegral, cNormVectorLength}),
        plainKey(cProcNormalization, cKeyNormRangeFrom, cNoRangeGiven, cInSettings),
        plainKey(cProcNormalization, "normalizationrangeto", cNoRangeGiven, cInSettings),
        rangeKey(cProcNormalization, "normalizationvalue", 1.0, -1e10, 1e10),
        plainKey(cProcNormalization, "normalizationfullrange", true, cInSettings),

        optionKey(cProcQuotientNormalization, "normpqnreference", cQuotientMedian, {cQuotientMean, cQuotientMedian}),

        rangeKey(cProcAutoBaseline, cKeyBaselineLambda, 6.0, 0.01, 15.0),
        rangeKey(cProcAutoBaseline, cKeyBaselineRatio, 1e-6, 1e-6, 1.0),
        plainKey(cProcAutoBaseline, cKeyBaselineShowOnly, false, cFixed),
        optionKey(cProcAutoBaseline, cKeyBaselineAlgorithm, cBaselineIAsLs,
                  {cBaselineAsLs, cBaselineIAsLs, cBaselineSnip}),

        optionKey(cProcUnitConversion, cKeyToYUnits, cToAbsorbance,
                  {cToTransmittance, cToPercentTransmittance, cToAbsorbance, cToReflectance, cToKubelkaMunk}),
        plainKey(cProcUnitConversion, "yrexuckmscatteringcoef", 1.0, cInSettings),
        rangeKey(cProcUnitConversion, cKeyMaxAbsorbance, 4.0, 1.0, 6.0),
    };
}

QVariantMap emptyMap(int action)
{
    return {{QLatin1String(cKeyOpId), action}, {QLatin1String(cKeyApply), false}};
}

const QVector<TYrexProcKey> &extraKeys()
{
    static const QVector<TYrexProcKey> keys = {
        plainKey(cProcAutoBaseline, cKeyBaselineAutoLambda, QVariant(QVariant::Bool), cFixed),
        plainKey(cProcMultipointBaseline, cKeyMultipointBaseline, QVariant(QVariant::List), cFixed),
    };
    return keys;
}

QHash<int, QVariantMap> buildMaps()
{
    QHash<int, QVariantMap> maps;
    for (const int id : TYrexProcDefaults::actionIds())
        maps.insert(id, emptyMap(id));
    for (const TYrexProcKey &key : TYrexProcDefaults::table())
        maps[key.fAction].insert(key.fKey, key.fDefault);
    return maps;
}

} // namespace

QString TYrexProcKey::typeName() const
{
    if (isEnumerated())
        return QStringLiteral("option");
    switch (fDefault.type()) {
    case QVariant::Bool:
        return QStringLiteral("true or false");
    case QVariant::Int:
        return QStringLiteral("whole number");
    case QVariant::Double:
        return QStringLiteral("number");
    default:
        return QStringLiteral("list of numbers");
    }
}

const QVector<int> &TYrexProcDefaults::actionIds()
{
    static const QVector<int> ids = {cProcGsdPeakPicking,
                                     cProcDerivative,
                                     cProcSmoothing,
                                     cProcAutoPeakPicking,
                                     cProcStandardNormalVariate,
                                     cProcScatterCorrection,
                                     cProcNormalization,
                                     cProcQuotientNormalization,
                                     cProcAutoBaseline,
                                     cProcMultipointBaseline,
                                     cProcUnitConversion,
                                     cProcFirstIntegration,
                                     cProcInvertSign};
    return ids;
}

bool TYrexProcDefaults::isAction(int id)
{
    return actionIds().contains(id);
}

const QVector<int> &TYrexProcDefaults::defaultChain()
{
    static const QVector<int> ids = {
        cProcUnitConversion,    cProcAutoBaseline,  cProcMultipointBaseline,    cProcStandardNormalVariate,
        cProcScatterCorrection, cProcNormalization, cProcQuotientNormalization, cProcInvertSign,
        cProcSmoothing,         cProcDerivative,    cProcAutoPeakPicking};
    return ids;
}

const QVector<TYrexProcKey> &TYrexProcDefaults::table()
{
    static const QVector<TYrexProcKey> keys = buildTable();
    return keys;
}

QVector<TYrexProcKey> TYrexProcDefaults::keysOf(int action, bool withExtra)
{
    QVector<TYrexProcKey> keys = table();
    if (withExtra)
        keys += extraKeys();
    keys.erase(
        std::remove_if(keys.begin(), keys.end(), [action](const TYrexProcKey &key) { return key.fAction != action; }),
        keys.end());
    return keys;
}

const TYrexProcKey *TYrexProcDefaults::findKey(int action, const QString &key)
{
    for (const QVector<TYrexProcKey> *keys : {&table(), &extraKeys()}) {
        for (const TYrexProcKey &entry : *keys) {
            if (entry.fAction == action && entry.fKey == key)
                return &entry;
        }
    }
    return nullptr;
}

bool TYrexProcDefaults::isEnumKey(const QString &key)
{
    return key == QLatin1String(cKeyOpId) || std::any_of(table().begin(), table().end(), [&key](const TYrexProcKey &e) {
               return e.isEnumerated() && e.fKey == key;
           });
}

QVariantMap TYrexProcDefaults::tableMap(int action)
{
    static const QHash<int, QVariantMap> maps = buildMaps();
    return maps.value(action, emptyMap(action));
}

QVariantMap TYrexProcDefaults::settingsMap(int action)
{
    const TDefaultsIni settings;
    QVariantMap map = tableMap(action);
    for (const TYrexProcKey &key : table()) {
        if (key.fAction != action || !key.isInSettings())
            continue;
        const QVariant stored = settings.value(key.fSettingsKey, key.fDefault);
        if (!Utils::Variant::isSame(stored, key.fDefault)) // untouched maps stay shared by all chains
            map.insert(key.fKey, stored);
    }
    return map;
}
