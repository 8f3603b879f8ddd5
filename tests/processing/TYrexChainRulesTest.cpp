#include "TYrexChainRules.h"

#include "TYrexProcDefaults.h"
#include "TYrexProcIds.h"
#include "TYrexUnits.h"

#include <gtest/gtest.h>

namespace {

QVariantMap entry(int id, bool applied = false)
{
    QVariantMap map = TYrexProcDefaults::tableMap(id);
    map.insert(cKeyApply, applied);
    return map;
}

QVariantList defaultChain()
{
    QVariantList chain;
    for (const int id : TYrexProcDefaults::defaultChain())
        chain.append(entry(id));
    return chain;
}

int rowOf(const QVariantList &chain, int id)
{
    for (int row = 0; row < chain.size(); ++row) {
        if (chain.at(row).toMap().value(cKeyOpId) == id)
            return row;
    }
    return -1;
}

QVector<int> ids(const QVariantList &chain)
{
    QVector<int> all;
    for (const QVariant &action : chain)
        all.append(action.toMap().value(cKeyOpId).toInt());
    return all;
}

} // namespace

TEST(TYrexChainRules, aChainKeepsOneActionOfEachKind)
{
    QVariantList chain = defaultChain();
    for (int row = 0; row < chain.size(); ++row)
        EXPECT_FALSE(TYrexChainRules::canRemove(chain, {row})) << row;
    for (const int id : {cProcAutoPeakPicking, cProcMultipointBaseline, cProcUnitConversion})
        EXPECT_FALSE(TYrexChainRules::canDuplicate(chain, {rowOf(chain, id)})) << id;
    EXPECT_FALSE(TYrexChainRules::canDuplicate(chain, {}));
    EXPECT_FALSE(TYrexChainRules::canDuplicate(chain, {chain.size()}));
    const int smoothing = rowOf(chain, cProcSmoothing);
    EXPECT_TRUE(TYrexChainRules::canDuplicate(chain, {smoothing, smoothing + 1}));
    TYrexChainRules::duplicate(chain, {smoothing});
    EXPECT_TRUE(TYrexChainRules::canRemove(chain, {smoothing}));
    EXPECT_TRUE(TYrexChainRules::canRemove(chain, {smoothing + 1}));
    EXPECT_FALSE(TYrexChainRules::canRemove(chain, {smoothing, smoothing + 1}));
    chain.append(entry(cProcFirstIntegration));
    EXPECT_TRUE(TYrexChainRules::canRemove(chain, {chain.size() - 1}));
}

TEST(TYrexChainRules, rowsAreCopiedRemovedAndMovedWhereTheyStand)
{
    QVariantList chain{entry(cProcSmoothing), entry(cProcDerivative), entry(cProcInvertSign)};
    const QVector<int> before = ids(chain);
    TYrexChainRules::duplicate(chain, {2, 0});
    EXPECT_EQ(ids(chain),
              (QVector<int>{cProcSmoothing, cProcSmoothing, cProcDerivative, cProcInvertSign, cProcInvertSign}));
    TYrexChainRules::remove(chain, {0, 4, 9});
    EXPECT_EQ(ids(chain), before);
    EXPECT_FALSE(TYrexChainRules::move(chain, 0, -1));
    EXPECT_FALSE(TYrexChainRules::move(chain, 2, 3));
    EXPECT_TRUE(TYrexChainRules::move(chain, 0, 2));
    EXPECT_EQ(ids(chain), (QVector<int>{cProcDerivative, cProcInvertSign, cProcSmoothing}));
}

TEST(TYrexChainRules, theAxisFollowsTheChain)
{
    QVariantMap conversion = entry(cProcUnitConversion, true);
    conversion.insert(cKeyToYUnits, int(cToAbsorbance));
    EXPECT_EQ(TYrexChainRules::shownYUnit({conversion}, cUnitTransmittance), cUnitAbsorbance);
    EXPECT_EQ(TYrexChainRules::shownYUnit({conversion, entry(cProcNormalization, true)}, cUnitTransmittance),
              cUnitArbitrary);
    EXPECT_EQ(TYrexChainRules::shownYUnit({entry(cProcDerivative, true), conversion}, cUnitTransmittance),
              cUnitArbitrary);
    EXPECT_EQ(TYrexChainRules::shownYUnit({entry(cProcDerivative), entry(cProcSmoothing, true)}, cUnitAbsorbance),
              cUnitAbsorbance);
    conversion.insert(cKeyToYUnits, int(cToReflectance));
    EXPECT_EQ(TYrexChainRules::shownYUnit({conversion}, cUnitTransmittance), cUnitTransmittance);
    EXPECT_EQ(TYrexChainRules::endYUnit({conversion}, cUnitTransmittance), cUnitReflectance);
    EXPECT_EQ(TYrexChainRules::endYUnit({conversion}, cUnitCounts), cUnitCounts) << "there is no such conversion";
    conversion.insert(cKeyToYUnits, int(cToAbsorbance));
    EXPECT_EQ(TYrexChainRules::endYUnit({entry(cProcDerivative, true), conversion}, cUnitTransmittance),
              cUnitAbsorbance)
        << "by the last one";
    QVariantMap shown = entry(cProcAutoBaseline, true);
    shown.insert(cKeyBaselineShowOnly, true);
    EXPECT_EQ(TYrexChainRules::endYUnit({shown, conversion}, cUnitTransmittance), cUnitTransmittance);
    for (const int unit : {cUnitTransmittance, cUnitPercentTransmittance, cUnitAbsorbance})
        EXPECT_TRUE(TYrexChainRules::isConvertible(unit));
    for (const int unit : {cUnitReflectance, cUnitCounts, cUnitIntensity, cUnitArbitrary})
        EXPECT_FALSE(TYrexChainRules::isConvertible(unit));
}

TEST(TYrexChainRules, windowsOfPolynomialsHoldThem)
{
    for (int order = 1; order <= 4; ++order) {
        const QPair<int, int> degrees = TYrexChainRules::derivativeDegrees(order);
        EXPECT_GE(degrees.first, order);
        for (int degree = degrees.first; degree <= degrees.second; ++degree)
            EXPECT_GT(TYrexChainRules::derivativeWindow(order, degree), degree) << order;
    }
    EXPECT_EQ(TYrexChainRules::derivativeDegrees(3).first, 3);
    EXPECT_EQ(TYrexChainRules::derivativeWindow(4, 4), 7);
    EXPECT_EQ(TYrexChainRules::derivativeWindow(1, 3), 5);
    EXPECT_EQ(TYrexChainRules::derivativeWindow(2, 5), 7);
    EXPECT_EQ(TYrexChainRules::derivativeOrders(cDerivativeRobustNoise), 2);
    EXPECT_EQ(TYrexChainRules::smoothingWindow(3), 5);
    EXPECT_EQ(TYrexChainRules::smoothingWindow(4), 7);
}

TEST(TYrexChainRules, stackActionsBaselinesAndDifferences)
{
    QVariantList chain{entry(cProcScatterCorrection, true), entry(cProcQuotientNormalization, true),
                       entry(cProcSmoothing, true), entry(cProcAutoBaseline)};
    QVariantList other = chain;
    TYrexChainRules::switchOffStackActions(other);
    EXPECT_EQ(TYrexChainRules::differingRows(chain, other), (QVector<int>{0, 1}));
    EXPECT_TRUE(TYrexChainRules::differingRows(chain, chain).isEmpty());
    other.removeFirst();
    EXPECT_EQ(TYrexChainRules::differingRows(chain, other).size(), 4);
    QVariantMap baseline = entry(cProcAutoBaseline, false);
    baseline.insert(cKeyBaselineShowOnly, true);
    chain[3] = baseline;
    EXPECT_EQ(TYrexChainRules::shownBaseline(chain), -1) << "one that takes no part";
    baseline.insert(cKeyApply, true);
    chain[3] = baseline;
    EXPECT_EQ(TYrexChainRules::shownBaseline(chain), 3);
}

TEST(TYrexChainRules, anActionIsToldInOneLine)
{
    QVariantMap baseline = entry(cProcAutoBaseline);
    baseline.insert(cKeyBaselineLambda, 0.1 + 0.2);
    const QString line = TYrexChainRules::summary(baseline);
    EXPECT_TRUE(line.contains("Asymmetry: 0.30000000000000004;")) << line.toStdString();
    EXPECT_TRUE(line.contains("Algorithm: PLS IAsLeastSquares"));
    baseline.insert(cKeyBaselineAlgorithm, int(cBaselineSnip));
    EXPECT_TRUE(TYrexChainRules::summary(baseline).contains("Smoothing Factor: "));
    EXPECT_TRUE(TYrexChainRules::summary(entry(cProcInvertSign)).isEmpty());
    EXPECT_EQ(TYrexChainRules::valueText(cKeyMultipointBaseline, QVariantList{1.0, 2.0}), "2 values");
}
