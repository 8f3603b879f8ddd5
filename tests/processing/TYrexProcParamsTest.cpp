#include "TYrexProcParams.h"

#include "ChainHelpers.h"
#include "TYrexProcDefaults.h"
#include "TYrexProcParamsParser.h"

#include <QTemporaryDir>

namespace {

const QVector<int> cDefaultIds = {50, 22, 35, 21, 64, 39, 73, 69, 3, 0, 26};

} // namespace

class ProcParams : public ChainTest
{
};

TEST_F(ProcParams, aNewChainIsTheDefaultChainWithNothingApplied)
{
    const TYrexProcParams params;
    EXPECT_EQ(ids(params), cDefaultIds);
    EXPECT_FALSE(params.isAnyApplied());
    const QVariantMap smoothing = params.action(params.indexOfAction(3));
    EXPECT_EQ(smoothing.value("smoothmethod"), QVariant(45));
    EXPECT_EQ(smoothing.value("smoothparam"), QVariant(5.0));
    EXPECT_EQ(smoothing.size(), 2 + 6);
    EXPECT_EQ(params.defaultMap(68), actionMap(68, false)); // known, though in no default chain
    EXPECT_EQ(params.multipoint().algorithm, 2);
    EXPECT_EQ(params.multipoint().lambda, 500);
}

TEST_F(ProcParams, theTableNamesTenEnumeratedKeysAndEveryOptionHasALabel)
{
    QStringList keys = {"yrexProcOpId"};
    for (const TYrexProcKey &key : TYrexProcDefaults::table()) {
        EXPECT_EQ(TYrexProcParams::isEnumKey(key.fKey), key.isEnumerated()) << key.fKey.toStdString();
        if (!key.isEnumerated())
            continue;
        keys.append(key.fKey);
        EXPECT_TRUE(key.fOptions.contains(key.fDefault.toInt())) << key.fKey.toStdString();
        for (const int option : key.fOptions)
            EXPECT_FALSE(TYrexProcParams::label(option).isEmpty()) << option;
    }
    EXPECT_EQ(keys.size(), 10);
    EXPECT_FALSE(TYrexProcParams::isEnumKey("apply"));
}

TEST_F(ProcParams, defaultsLieInTheirRanges)
{
    for (const TYrexProcKey &key : TYrexProcDefaults::table()) {
        EXPECT_GE(key.fDefault.toDouble(), key.fMin) << key.fKey.toStdString();
        EXPECT_LE(key.fDefault.toDouble(), key.fMax) << key.fKey.toStdString();
    }
}

TEST_F(ProcParams, labelsExistForNinetyThreeIdsAndNoOther)
{
    for (int id = 0; id <= 92; ++id)
        EXPECT_FALSE(TYrexProcParams::label(id).isEmpty()) << id;
    EXPECT_TRUE(TYrexProcParams::label(-1).isEmpty());
    EXPECT_TRUE(TYrexProcParams::label(93).isEmpty());
    const QVector<QPair<int, int>> shared = {{6, 7}, {8, 35}, {10, 31}, {42, 45}, {44, 47}, {16, 82}, {88, 89}};
    for (const auto &pair : shared)
        EXPECT_EQ(TYrexProcParams::label(pair.first), TYrexProcParams::label(pair.second)) << pair.first;
    // the first of each decade: a text too many or too few would shift them
    const QVector<QPair<int, QString>> fixed = {
        {0, "Derivative"},    {10, "Noise Factor"},          {20, "Visualize Resampling Result"},
        {30, "Downwards"},    {40, "Derivative Order"},      {50, "Intensity Units Conversion"},
        {60, "Auto"},         {70, "Largest Peak"},          {80, "Algorithm"},
        {90, "Full X Range"}, {92, "Auto Smoothing Factor"}, {42, QString::fromUtf8("Savitzky–Golay")}};
    for (const auto &entry : fixed)
        EXPECT_EQ(TYrexProcParams::label(entry.first), entry.second);
    for (const int credit : {61, 79, 83})
        EXPECT_EQ(TYrexProcParams::label(credit).count('\n'), 1) << credit;
}

TEST_F(ProcParams, aRunLeavesItsValuesAsTheNextDefaultsWithTheirTypes)
{
    QTemporaryDir folder;
    TDefaultsIni::setStore(folder.filePath("settings.ini"));
    TYrexProcParams params;
    const int smoothing = params.indexOfAction(3);
    QVariantMap map = params.action(smoothing);
    map.insert("smoothparam", 7.25);
    map.insert("apply", true);
    params.setAction(smoothing, map);
    const int peaks = params.indexOfAction(26);
    map = params.action(peaks);
    map.insert("yrexstdpppsign", 29); // not kept in the settings
    map.insert("yrexstdppuseparabolic", false);
    params.setAction(peaks, map);
    params.multipoint().lambda = 80;
    params.storeDefaults();
    params.storeMultipointDefaults();
    TDefaultsIni::sync();
    TDefaultsIni::setStore(folder.filePath("settings.ini")); // texts now, as an INI file holds them

    const TYrexProcParams next;
    EXPECT_EQ(next.action(smoothing).value("smoothparam"), QVariant(7.25));
    EXPECT_EQ(next.action(smoothing).value("smoothparam").type(), QVariant::Double);
    EXPECT_EQ(next.action(smoothing).value("sgsmoothingkerlen").type(), QVariant::Int);
    EXPECT_FALSE(next.isApplied(smoothing));
    EXPECT_EQ(next.action(peaks).value("yrexstdpppsign"), QVariant(60));
    EXPECT_EQ(next.action(peaks).value("yrexstdppuseparabolic"), QVariant(false));
    EXPECT_EQ(next.multipoint().lambda, 80);
    EXPECT_EQ(TDefaultsIni().value("Zarnu/ProcessingParams/smoothparam", 0.0), QVariant(7.25));
    TDefaultsIni::setStore(TDefaultsIni::memory);
}

TEST_F(ProcParams, aCopyTakesEverythingButTheAutomaticPointCount)
{
    TYrexProcParams params;
    params.setActions({actionMap(69, true)});
    params.setDefaultMap(35, actionMap(35, false, {{"mpbcsetup", true}}));
    params.multipoint().points.append({3.0, 4.0, 1});
    params.multipoint().active = true;
    params.multipoint().autoPointCount = 9;
    const TYrexProcParams copy(params);
    EXPECT_EQ(copy.actions(), params.actions());
    EXPECT_TRUE(copy.defaultMap(35).contains("mpbcsetup"));
    EXPECT_EQ(copy.multipoint().points, params.multipoint().points);
    EXPECT_TRUE(copy.multipoint().active);
    EXPECT_EQ(copy.multipoint().autoPointCount, -1);
}

TEST_F(ProcParams, onlyIdenticalChainsAreShared)
{
    const auto isShared = [](const TYrexProcParams &a, const TYrexProcParams &b) {
        return a.actions().isSharedWith(b.actions());
    };
    const QVariantList values = {5, 5.0, 5.0 + 1e-15, QVariant(), QVariantList{0.0}, QVariantList{-0.0}};
    for (int i = 0; i < values.size(); ++i) {
        for (int j = 0; j < values.size(); ++j) {
            TYrexProcParams a;
            TYrexProcParams b;
            a.setActions({actionMap(69, true, {{"value", values[i]}})});
            b.setActions({actionMap(69, true, {{"value", values[j]}})});
            b.shareActions(a);
            EXPECT_EQ(isShared(a, b), i == j) << i << " " << j;
        }
    }
}

TEST_F(ProcParams, setApplyNothingKeepsOrderAndKeys)
{
    TYrexProcParams params;
    params.setActions({actionMap(69, true), actionMap(3, true, {{"odd", 1}}), actionMap(69, false)});
    params.setApplyNothing();
    EXPECT_FALSE(params.isAnyApplied());
    EXPECT_EQ(ids(params), QVector<int>({69, 3, 69}));
    EXPECT_EQ(params.action(1).value("odd"), QVariant(1));
}

TEST_F(ProcParams, theReportListsAppliedActionsWithLabelsForOptions)
{
    TYrexProcParams params;
    EXPECT_EQ(params.report().size(), 1);
    EXPECT_EQ(params.report().first().fTitle, "Zarnu Procesing Actions");
    EXPECT_EQ(params.report().first().fText, "None Applied");

    params.setActions(
        {actionMap(69, false), actionMap(39, true, {{"normalizationmode", 72}, {"normalizationvalue", 2.5}})});
    const auto report = params.report();
    ASSERT_EQ(report.size(), 1);
    EXPECT_EQ(report.first().fTitle, "Processing Action: Normalization");
    EXPECT_EQ(report.first().fParams,
              QVariantMap({{"normalizationmode", "Vector Length"}, {"normalizationvalue", 2.5}}));
}

// ---- upgrade ----

TEST_F(ProcParams, theUpgradeLeavesTheDefaultChainAlone)
{
    TYrexProcParams params;
    const QVariantList before = params.actions();
    params.upgrade();
    EXPECT_EQ(params.actions(), before);
}

TEST_F(ProcParams, theUpgradeRefillsAChainOfRemovedActions)
{
    TYrexProcParams params;
    params.setActions({actionMap(17, true), actionMap(6, true), actionMap(20, true)});
    params.upgrade();
    EXPECT_EQ(ids(params), QVector<int>({22, 26, 39, 64, 69, 73}));
    EXPECT_FALSE(params.isAnyApplied());
    params.upgrade(); // nothing more to do
    EXPECT_EQ(params.actionCount(), 6);
}

TEST_F(ProcParams, theUpgradePutsMissingActionsAtTheirPlaces)
{
    TYrexProcParams params;
    QVariantList actions = params.actions();
    for (const int id : {73, 39, 64, 22}) // from the end
        actions.removeAt(cDefaultIds.indexOf(id));
    params.setActions(actions);
    params.upgrade();
    // the baseline goes to the head, the others to the places that they have in the default chain
    EXPECT_EQ(ids(params), QVector<int>({22, 50, 35, 21, 64, 69, 73, 39, 3, 0, 26}));
}

TEST_F(ProcParams, anOldBaselineWithoutAlgorithmIsTheLeastSquaresOne)
{
    TYrexProcParams params;
    params.setActions({actionMap(22, true, {{"alsbaselinelog10lambda", 4.5}}), actionMap(22, true)});
    params.upgrade();
    EXPECT_EQ(params.action(0).value("alsbaselinealgorithm"), QVariant(77));
    EXPECT_EQ(params.action(0).value("alsbaselinelog10lambda"), QVariant(4.5));
    EXPECT_FALSE(params.action(1).contains("alsbaselinealgorithm")); // only the first one is looked at
}

TEST_F(ProcParams, oldNormalizationsAreReplacedAndKeepWhatStillMeansSomething)
{
    struct
    {
        const char *fName;
        QVariantMap fOld;
        int fMode;
        bool fFullMap;
    } const cases[] = {
        {"current", {{"normalizationmode", 71}, {"normalizationrangefrom", 5.0}}, 71, false},
        {"without range", {{"normalizationmode", 71}}, 71, true},
        {"mode of an older version", {{"normalizationmode", 3}, {"normalizationrangefrom", 5.0}}, 70, true},
        {"without mode", {}, 70, true},
    };
    for (const auto &test : cases) {
        TYrexProcParams params;
        params.setActions({actionMap(39, true, test.fOld), actionMap(69, false), actionMap(39, false, test.fOld)});
        params.upgrade();
        const int first = params.indexOfAction(39);
        EXPECT_TRUE(params.isApplied(first)) << test.fName;
        EXPECT_FALSE(params.isApplied(first + 2)) << test.fName;
        for (const int index : {first, first + 2}) {
            EXPECT_EQ(params.action(index).value("normalizationmode"), QVariant(test.fMode)) << test.fName;
            EXPECT_EQ(params.action(index).contains("normalizationvalue"), test.fFullMap) << test.fName;
        }
    }
}

TEST(ProcParamsParser, splitsAtEveryDot)
{
    TYrexProcParamsParser parser("actions.3..smoothparam");
    QStringList parts;
    for (; !parser.atEnd(); parser.next())
        parts.append(parser.current());
    EXPECT_EQ(parts, QStringList({"actions", "3", "", "smoothparam"}));
    EXPECT_FALSE(parser.next());
    EXPECT_TRUE(parser.current().isNull());
}
