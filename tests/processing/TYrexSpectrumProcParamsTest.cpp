// The engine: when it runs, what it runs, and what surrounds the run.
#include "TYrexSpectrumProcParams.h"

#include "ChainHelpers.h"
#include "TYrexMultipointBaseline.h"
#include "TYrexProcSteps.h"
#include "stream/TDataStream.h"

class Engine : public ChainTest
{
protected:
    void SetUp() override
    {
        ChainTest::SetUp();
        fill(fSpectrum, {1.0, 2.0, 3.0, 4.0}, 12);
    }
    void setChain(const QVariantList &actions)
    {
        TYrexProcParams params;
        params.setActions(actions);
        fSpectrum.procParams() = params;
    }
    TYrexDPLib::TYrexDPPeak *addPeak(qint32 flags)
    {
        fSpectrum.peaks().append(new TYrexDPLib::TYrexDPPeak);
        fSpectrum.peaks().last()->flags = flags;
        return fSpectrum.peaks().last();
    }
    void setMultipointKey(const char *key)
    {
        fSpectrum.procParams().setDefaultMap(35, actionMap(35, false, {{key, false}})); // its presence alone counts
    }
    QVector<double> values() const { return fSpectrum.values(); }

    TYrexSpectrum fSpectrum;
};

namespace {

const QVector<double> cOriginal = {1.0, 2.0, 3.0, 4.0};
const QVector<double> cInverted = {-1.0, -2.0, -3.0, -4.0};
const QVector<double> cByHand = {9.0, 9.0, 9.0, 9.0};

} // namespace

TEST_F(Engine, appliesActionsInChainOrder)
{
    setChain({actionMap(68, true), actionMap(69, true), actionMap(69, false),
              actionMap(50, true, {{"yrexuctoyunits", 53}, {"yrexucmaxabs", 4.0}})});
    fSpectrum.process(0, 0, 1);
    EXPECT_EQ(values(), QVector<double>({0.0, -1.0, -3.0, -6.0}));
    EXPECT_EQ(fSpectrum.orgData(), cOriginal);
    fSpectrum.process(0, 2, 3); // goes on from there
    EXPECT_EQ(values(), QVector<double>({100.0, 1000.0, 100000.0, 100000000.0}));
    EXPECT_EQ(fSpectrum.yUnits(), 11);
    fSpectrum.process(0, 0, 1);
    EXPECT_EQ(fSpectrum.yUnits(), 12); // reset, and the label with it
    EXPECT_EQ(fSpectrum.paramText(2002, 1), "Absorbance");
}

TEST_F(Engine, passesOverUnknownAndUnappliedActions)
{
    setChain({actionMap(69, false), actionMap(1234, true), QVariantMap(), actionMap(69, true)});
    fSpectrum.process(0, 0, 3);
    EXPECT_EQ(values(), cInverted);
}

TEST_F(Engine, doesNothingWhenNothingIsOrWasApplied)
{
    setChain({actionMap(69, false)});
    fSpectrum.setValues(cByHand);
    fSpectrum.integrals().append(TYrexIntegrationRegion(0.0, 1.0, 2));
    addPeak(1);
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(values(), cByHand);
    EXPECT_EQ(fSpectrum.peaks().size(), 1);
    EXPECT_EQ(fSpectrum.integrals().at(0)->area, 0.0);

    fSpectrum.process(1, 0, 0); // forced
    EXPECT_EQ(values(), cOriginal);
    EXPECT_TRUE(fSpectrum.peaks().isEmpty());
    EXPECT_EQ(fSpectrum.integrals().at(0)->area, 3.0);
}

TEST_F(Engine, switchingTheLastActionOffResetsOnce)
{
    setChain({actionMap(69, true)});
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(values(), cInverted);
    setChain({actionMap(69, false)});
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(values(), cOriginal);
    fSpectrum.setValues(cByHand);
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(values(), cByHand);
}

TEST_F(Engine, onlyAcceptingTakesTheChainAsAppliedWithoutARun)
{
    setChain({actionMap(69, true)});
    fSpectrum.process(2, 0, 0);
    EXPECT_EQ(values(), cOriginal);
    EXPECT_TRUE(fSpectrum.procParams().lastApplied().isAnyApplied());
    fSpectrum.process(3, 0, 0); // wins over forcing
    EXPECT_EQ(values(), cOriginal);
}

TEST_F(Engine, aSectionRunsItsActionsOnlyAndIsNoCompleteRun)
{
    setChain({actionMap(69, true), actionMap(68, true)});
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(values(), cInverted);
    EXPECT_FALSE(fSpectrum.procParams().lastApplied().isAnyApplied());
    fSpectrum.process(0, 1, 1); // without a reset
    EXPECT_EQ(values(), QVector<double>({0.0, -1.0, -3.0, -6.0}));
    EXPECT_TRUE(fSpectrum.procParams().lastApplied().isAnyApplied());
    fSpectrum.process(0, 0, 99);
    EXPECT_EQ(values(), QVector<double>({0.0, -1.0, -3.0, -6.0}));
}

TEST_F(Engine, theResetDropsAutoPickedPeaksAndKeepsManualOnes)
{
    setChain({actionMap(69, true)});
    const QUuid manual = addPeak(0)->id;
    addPeak(1);
    fSpectrum.process(0, 0, 0);
    ASSERT_EQ(fSpectrum.peaks().size(), 1);
    EXPECT_EQ(fSpectrum.peaks().first()->id, manual);

    fill(fSpectrum, cOriginal, 77); // no intensity unit: the reset ends before label and peaks
    fSpectrum.setParamValue(2002, 1, "Absorbance");
    addPeak(1);
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(values(), cInverted);
    EXPECT_EQ(fSpectrum.peaks().size(), 2);
    EXPECT_EQ(fSpectrum.paramText(2002, 1), "Absorbance");
}

TEST_F(Engine, recomputesRegionsInThePresentUnit)
{
    const double bounds[][2] = {{1.0, 2.0}, {0.0, 3.0}, {0.0, 3.0}};
    const int modes[] = {1, 2, 4};
    for (int i = 0; i < 3; ++i)
        fSpectrum.integrals().append(TYrexIntegrationRegion(bounds[i][0], bounds[i][1], modes[i]));
    setChain({actionMap(50, true, {{"yrexuctoyunits", 52}, {"yrexucmaxabs", 4.0}})});
    fSpectrum.process(0, 0, 0);
    EXPECT_NEAR(fSpectrum.integrals().at(0)->area, 5.0, 1e-12); // summed in absorbance all the same
    EXPECT_NEAR(fSpectrum.integrals().at(1)->area, 10.0, 1e-12);
    EXPECT_EQ(fSpectrum.integrals().at(2)->area, 0.0); // of neither kind
}

TEST_F(Engine, quotientNormalizationScalesAndLeavesNoPhysicalUnit)
{
    fSpectrum.setPqnFactor(4.0);
    setChain({actionMap(73, true)});
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(values(), QVector<double>({0.25, 0.5, 0.75, 1.0}));
    EXPECT_EQ(fSpectrum.yUnits(), 50);
    EXPECT_EQ(fSpectrum.paramText(2002, 1), "Arbitrary");
}

TEST_F(Engine, subtractsAMultipointBaselineOfTheRightLength)
{
    const QVariantList baseline = {0.0, 0.5, 1.0, 0.0}; // 0 at the end knots: their neighbours count
    setChain({actionMap(35, true, {{"mpbaseline", baseline}})});
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(values(), QVector<double>({0.5, 1.5, 2.0, 3.0}));
    fill(fSpectrum, cOriginal, 10);
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(values(), QVector<double>({1.5, 2.5, 3.0, 4.0}));
    fill(fSpectrum, cOriginal, 11);
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(values(), QVector<double>({100.5, 101.5, 102.0, 103.0}));
    fill(fSpectrum, {1.0, 2.0}, 12);
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(values(), QVector<double>({1.0, 2.0}));
    fill(fSpectrum, {1.0}, 12);
    setChain({actionMap(35, true, {{"mpbaseline", QVariantList{0.25}}})});
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(values(), QVector<double>({0.75}));
}

TEST_F(Engine, theMultipointDockHoldsTheWalkAtItsAction)
{
    const QVariantMap multipoint = actionMap(35, false, {{"mpbaseline", QVariantList{1.0, 1.0, 1.0, 1.0}}});
    setChain({actionMap(69, true), multipoint, actionMap(68, true)});
    setMultipointKey("mpbcsetup");
    fSpectrum.process(0, 0, 2);
    EXPECT_EQ(values(), cInverted); // the stage at which points are picked
    EXPECT_FALSE(fSpectrum.procParams().lastApplied().isAnyApplied());

    setMultipointKey("mpbcpreview");
    fSpectrum.process(0, 0, 2);
    EXPECT_EQ(values(), QVector<double>({-2.0, -3.0, -4.0, -5.0}));

    setChain({actionMap(69, false), multipoint}); // previewing is reason enough to run
    setMultipointKey("mpbcpreview");
    fSpectrum.process(0, 0, 1);
    EXPECT_EQ(values(), QVector<double>({0.0, 1.0, 2.0, 3.0}));
    fSpectrum.process(0, 0, 0); // the walk ends before the action
    EXPECT_EQ(values(), cOriginal);

    setChain({actionMap(35, true, {{"mpbaseline", multipoint.value("mpbaseline")}}), actionMap(69, true)});
    setMultipointKey("mpbcpreview"); // applied: no preview, but no complete run either
    fSpectrum.process(0, 0, 1);
    EXPECT_EQ(values(), QVector<double>({0.0, -1.0, -2.0, -3.0}));
    EXPECT_FALSE(fSpectrum.procParams().lastApplied().isAnyApplied());
}

TEST_F(Engine, freesThePreviewWhenNoBaselineRan)
{
    fSpectrum.allocPreview(4);
    setChain({actionMap(69, true)});
    fSpectrum.process(0, 0, 0);
    EXPECT_EQ(fSpectrum.preview(), nullptr);
}

TEST_F(Engine, toleratesEmptyAndInconsistentSpectra)
{
    setChain({actionMap(69, true)});
    TYrexSpectrum empty;
    empty.procParams() = fSpectrum.procParams().params();
    empty.process(1, 0, 0);
    EXPECT_TRUE(empty.values().isEmpty());
    fSpectrum.setPointCount(1000); // more than there are values
    fSpectrum.process(1, 0, 0);
    EXPECT_EQ(values(), cOriginal);
    fSpectrum.setPointCount(4);
    fSpectrum.clearData();
    fSpectrum.process(1, 1, 1); // a section of nothing
    EXPECT_TRUE(values().isEmpty());
    TYrexSpectrumProcParams alone;
    alone.process(1, 0, 0);
}

TEST_F(Engine, keepsBothParameterSetsInTheStream)
{
    setChain({actionMap(69, true)});
    fSpectrum.process(0, 0, 0);
    setChain({actionMap(3, true, {{"smoothparam", 2.5}})});
    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        fSpectrum.procParams().store(out);
        out << qint32(4711);
    }
    TYrexSpectrumProcParams read;
    TDataStream in(bytes);
    read.load(in);
    qint32 behind = 0;
    in >> behind;
    EXPECT_EQ(behind, 4711);
    EXPECT_EQ(read.action(read.indexOfAction(3)).value("smoothparam"), QVariant(2.5));
    EXPECT_TRUE(read.lastApplied().isApplied(read.lastApplied().indexOfAction(69)));
    EXPECT_FALSE(read.lastApplied().isApplied(read.lastApplied().indexOfAction(3)));
}
