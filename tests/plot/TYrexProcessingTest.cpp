// The processing command on stacks, and the command that names units.
#include "SpectrumBuilder.h"
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexProcessing.h"
#include "TCmdYrexSetOrigUnits.h"
#include "TYrexUnits.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "commands/TCommandHistory.h"
#include "history/THistoryCommand.h"
#include "stream/TDataStream.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

constexpr int cPoints = 200;

/// Spectra that are one another's images under an offset and a factor.
TYrexSpectrumList affineCopies(int count)
{
    TYrexSpectrumList spectra;
    for (int k = 0; k < count; ++k) {
        QVector<double> y(cPoints);
        for (int i = 0; i < cPoints; ++i)
            y[i] = 0.1 * k + (1.0 + 0.2 * k) * (1.5 + std::sin(0.07 * i) + 0.3 * std::cos(0.31 * i));
        spectra.append(newSpectrum(y, 4000, 400, cUnitWavenumber, cUnitAbsorbance));
    }
    return spectra;
}

TYrexProcParams applying(const QList<int> &ids)
{
    TYrexProcParams params;
    for (const int id : ids) {
        const int index = params.indexOfAction(id);
        QVariantMap action = params.action(index);
        action["apply"] = true;
        params.setAction(index, action);
    }
    return params;
}

double spread(const TYrexStack &stack)
{
    double largest = 0.0;
    for (int k = 1; k < stack.count(); ++k) {
        for (int i = 0; i < cPoints; ++i)
            largest = std::max(largest, std::fabs(stack.at(k)->values().at(i) - stack.at(0)->values().at(i)));
    }
    return largest;
}

QByteArray bytesOf(const TCanvasYrexSpectrum &item)
{
    QByteArray bytes;
    item.storeDataState(bytes);
    return bytes;
}

class TYrexProcessing : public ::testing::Test
{
protected:
    TYrexProcessing()
        : fItem(new TCanvasYrexSpectrum(affineCopies(5), nullptr, nullptr))
    {
        fDocument.appendPage()->insertItem(fItem);
    }
    void push(TCommand *command) { fDocument.history().push(command); }
    void run(const QList<int> &ids) { push(new TCmdYrexProcessing(fDocument.items(), applying(ids))); }

    TDocument fDocument;
    TCanvasYrexSpectrum *fItem;
};

} // namespace

TEST_F(TYrexProcessing, scatterCorrectionMakesAffineCopiesEqual)
{
    EXPECT_GT(spread(fItem->stack()), 0.5);
    run({64});
    EXPECT_LT(spread(fItem->stack()), 1e-9);
    EXPECT_EQ(fItem->currentSpectrum()->yUnits(), cUnitArbitrary);
    EXPECT_EQ(fItem->activeYrexPlot()->yUnits(), cUnitArbitrary) << "the axis follows";
}

TEST_F(TYrexProcessing, aStackActionSeesTheDataAtItsStage)
{
    // with the sign inverted in front of it, the figures must be those of the inverted spectra
    TYrexProcParams params = applying({64, 69});
    QVariantList actions = params.actions();
    actions.prepend(actions.takeAt(params.indexOfAction(69)));
    params.setActions(actions);
    push(new TCmdYrexProcessing(fDocument.items(), params));
    EXPECT_LT(spread(fItem->stack()), 1e-9);
    EXPECT_LT(fItem->stack().at(0)->values().at(0), 0.0);
}

TEST_F(TYrexProcessing, quotientNormalisationMakesScaledCopiesEqual)
{
    for (int k = 0; k < fItem->stack().count(); ++k) {
        TYrexSpectrum *spectrum = fItem->stack().at(k);
        for (int i = 0; i < cPoints; ++i)
            spectrum->data()[i] = (1.0 + k) * (2.0 + std::sin(0.07 * i));
        spectrum->copyDataToOrgData();
    }
    run({73});
    EXPECT_LT(spread(fItem->stack()), 1e-6) << "the factor is rounded to single precision";
    EXPECT_NEAR(fItem->stack().at(3)->pqnFactor(), 4.0 / 3.0, 1e-6);
}

TEST_F(TYrexProcessing, undoGivesBackEveryByteAndRedoTheResult)
{
    const QByteArray before = bytesOf(*fItem);
    run({64, 39});
    const QByteArray after = bytesOf(*fItem);
    EXPECT_NE(after, before);
    fDocument.history().stack()->undo();
    EXPECT_EQ(bytesOf(*fItem), before);
    fDocument.history().stack()->redo();
    EXPECT_EQ(bytesOf(*fItem), after);
}

TEST_F(TYrexProcessing, withNothingSelectedTheCurrentSpectrumStandsAlone)
{
    for (int k = 0; k < fItem->stack().count(); ++k)
        fItem->stack().setDeselected(k, true);
    const QVector<double> other = fItem->stack().at(1)->values();
    run({69});
    EXPECT_LT(fItem->stack().at(0)->values().at(0), 0.0);
    EXPECT_EQ(fItem->stack().at(1)->values(), other);
}

TEST_F(TYrexProcessing, theHistoryTellsAMove)
{
    run({69});
    TYrexProcParams moved = applying({69});
    QVariantList actions = moved.actions();
    const int from = moved.indexOfAction(69);
    actions.swapItemsAt(from, from - 1);
    moved.setActions(actions);
    push(new TCmdYrexProcessing(fDocument.items(), moved));
    const QList<THistoryCommand *> entries = fDocument.history().entries();
    ASSERT_EQ(entries.size(), 2);
    QStringList names;
    for (const THistoryParameter &param : entries.last()->params())
        names.append(param.fName);
    EXPECT_TRUE(names.contains("Previous Proc. Action in Sequence")) << names.join(" | ").toStdString();
}

TEST_F(TYrexProcessing, unitsAreNamedAndTakenBack)
{
    TDocument document;
    auto *item = new TCanvasYrexSpectrum({newSpectrum({1, 2, 3}, 400, 4000), newSpectrum({1, 2, 3}, 400, 4000)},
                                         nullptr, nullptr);
    document.appendPage()->insertItem(item);
    const QByteArray before = bytesOf(*item);
    const TRange arbitrary = item->activeYrexPlot()->horzAxis().getScale();
    document.history().push(
        new TCmdYrexSetOrigUnits(document.items(), horzDir, cUnitWavenumber, TCmdYrexSetOrigUnits::cAllSpectra));
    EXPECT_EQ(item->stack().at(1)->origXUnits(), cUnitWavenumber);
    EXPECT_EQ(item->stack().at(1)->xUnits(), cUnitWavenumber);
    EXPECT_EQ(item->stack().at(1)->origYUnits(), cUnitArbitrary);
    EXPECT_EQ(item->activeYrexPlot()->horzAxis().getScale(), TRange(4000, 400)) << "from high to low now";
    EXPECT_EQ(item->activeYrexPlot()->horzAxis().label(), "Wavenumber [cm^-1]");
    EXPECT_EQ(document.history().entries().last()->description(), "Set Zarnu Original X Units");
    document.history().stack()->undo();
    EXPECT_EQ(bytesOf(*item), before);
    EXPECT_EQ(item->activeYrexPlot()->horzAxis().getScale(), arbitrary);
    document.history().push(
        new TCmdYrexSetOrigUnits(document.items(), horzDir, cUnitNanometers, TCmdYrexSetOrigUnits::cAllSpectra));
    EXPECT_EQ(item->activeYrexPlot()->horzAxis().getScale(), TRange(400, 4000)) << "the numbers stay";
    EXPECT_EQ(item->activeYrexPlot()->horzAxis().getFullScale(), TRange(400, 4000));
    document.history().push(
        new TCmdYrexSetOrigUnits(document.items(), vertDir, cUnitAbsorbance, TCmdYrexSetOrigUnits::cCurrentSpectrum));
    EXPECT_EQ(item->stack().at(0)->origYUnits(), cUnitAbsorbance);
    EXPECT_EQ(item->stack().at(1)->origYUnits(), cUnitArbitrary);
}

TEST_F(TYrexProcessing, anEditRunIsOneStepWithTheChangesSinceItsStart)
{
    const QByteArray before = bytesOf(*fItem);
    TCommandHistory &history = fDocument.history();
    history.beginEditRun();
    for (const QList<int> &ids : {QList<int>{64}, QList<int>{39}}) {
        auto *command = new TCmdYrexProcessing(fDocument.items(), applying(ids));
        command->setMergeableFlag(true);
        push(command);
    }
    history.endGesture();
    EXPECT_EQ(history.stack()->count(), 1);
    ASSERT_EQ(history.entries().size(), 1);
    ASSERT_EQ(history.entries().first()->params().size(), 1) << "against the chain before the run";
    EXPECT_TRUE(history.entries().first()->params().first().fName.contains(TYrexProcParams::label(39)));
    const QByteArray after = bytesOf(*fItem);
    history.stack()->undo();
    EXPECT_EQ(bytesOf(*fItem), before);
    history.stack()->redo();
    EXPECT_EQ(bytesOf(*fItem), after);
    history.stack()->undo();
    EXPECT_EQ(bytesOf(*fItem), before) << "the snapshot of the first command of the run serves the last";
}
