// The commands on peaks: what they change, and that undo and redo come back to the byte.
#include "DoneEntry.h"
#include "TCmdYrexDeletePeaks.h"
#include "TCmdYrexEditPeak.h"
#include "TCmdYrexManualIntegration.h"
#include "TCmdYrexManualPeakPicking.h"
#include "TCmdYrexPeakByPeak.h"
#include "TCmdYrexProcessing.h"
#include "TStackItem.h"
#include "TYrexProcIds.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using TPeak = TYrexDPLib::TYrexDPPeak;
constexpr double cNoLevel = std::numeric_limits<double>::quiet_NaN();

TPeak peakAt(double position)
{
    TPeak peak;
    peak.position = position;
    return peak;
}

TYrexSpectrum &spectrumOf(TStackItem &stack, int index = 0)
{
    return *stack.item->stack().at(index);
}

void addPeaks(TStackItem &stack, const QVector<double> &positions)
{
    for (TYrexSpectrum *spectrum : stack.item->spectra()) {
        for (const double position : positions)
            spectrum->peaks().append(new TPeak(peakAt(position)));
    }
}

QVector<double> positions(TStackItem &stack, int index = 0)
{
    QVector<double> list;
    for (const TPeak *peak : spectrumOf(stack, index).peaks())
        list.append(peak->position);
    return list;
}

/// With a step in between whose undo replaces all spectra of the item by new ones.
::testing::AssertionResult swapsAfterAnUndo(TStackItem &stack, TCommand *command)
{
    const auto result = stack.swaps(command);
    if (!result)
        return result;
    const QByteArray done = stack.bytes();
    stack.history().push(new TCmdYrexManualIntegration({stack.item}, 0, 4000, 400, cUnitWavenumber, cUnitAbsorbance));
    QUndoStack &steps = *stack.history().stack();
    steps.undo();
    if (stack.bytes() != done)
        return ::testing::AssertionFailure() << "the step behind left something";
    steps.undo();
    steps.redo();
    return stack.bytes() == done ? ::testing::AssertionSuccess() : ::testing::AssertionFailure() << "lost its spectra";
}

} // namespace

TEST(PeakCommands, deletingByIdPassesOverWhatIsNotThere)
{
    for (const int mode : {activeOnlyMode, overlayMode, stackedMode, groupedMode}) {
        TStackItem stack(3, 21);
        addPeaks(stack, {3.0, 7.0, 5.0});
        stack.stack().setDisplayMode(mode);
        stack.stack().setActiveIndex(1);
        const TYrexDPLib::TYrexDPPeakList &peaks = spectrumOf(stack, 1).peaks();
        EXPECT_FALSE(stack.history().push(new TCmdYrexDeletePeaks({stack.item}, {QUuid::createUuid()})));
        const QSet<QUuid> ids{peaks.at(0)->id, peaks.at(2)->id, QUuid::createUuid()};
        EXPECT_TRUE(swapsAfterAnUndo(stack, new TCmdYrexDeletePeaks({stack.item}, ids)));
        EXPECT_EQ(positions(stack, 1), QVector<double>({7.0}));
        EXPECT_EQ(positions(stack, 0).size(), 3);
        EXPECT_EQ(doneNames(stack.history()), "Peak|Center [cm-1]|Height|UUID|Peak|Center [cm-1]|Height|UUID");
        EXPECT_EQ(doneParams(stack.history()).at(1).fValue.toDouble(), 4000.0 - 3 * 180.0);
    }
}

TEST(PeakCommands, undoFindsItsSpectrumWhenAnotherOneIsCurrent)
{
    TStackItem stack(3, 21);
    addPeaks(stack, {3.0, 7.0});
    const QByteArray before = stack.bytes();
    const QUuid id = spectrumOf(stack, 0).peaks().first()->id;
    stack.history().push(new TCmdYrexDeletePeaks({stack.item}, {id}));
    stack.item->stack().setCurrent(2); // what is no step of the history
    stack.history().stack()->undo();
    stack.item->stack().setCurrent(0);
    EXPECT_EQ(stack.bytes(), before);
}

TEST(PeakCommands, peakByPeakReachesTheMainItemOnly)
{
    TStackItem first(1, 21);
    TStackItem main(2, 21);
    TStackItem last(1, 21);
    for (TStackItem *stack : {&first, &main, &last})
        addPeaks(*stack, {4.0, 9.0, 4.0 + 5e-07, 4.0 + 2e-06});
    main.item->setSelected(true);
    const TCanvasItemList items{first.item, main.item, last.item};
    EXPECT_TRUE(main.swaps(new TCmdYrexPeakByPeak(items, peakAt(4.0), 1, true)));
    EXPECT_EQ(positions(main), QVector<double>({9.0, 4.0 + 2e-06}));
    EXPECT_EQ(positions(first).size(), 4);
    EXPECT_EQ(positions(last).size(), 4);
    EXPECT_FALSE(main.history().push(new TCmdYrexPeakByPeak(items, peakAt(15.0), 1, true)));
    EXPECT_FALSE(main.history().push(new TCmdYrexPeakByPeak(items, peakAt(9.0), 2, true)));
    EXPECT_TRUE(swapsAfterAnUndo(main, new TCmdYrexPeakByPeak(items, peakAt(12.5), 0, false)));
    EXPECT_EQ(positions(main).last(), 12.5);
    EXPECT_EQ(main.history().stack()->undoText(), "Add Peak");
    EXPECT_FALSE(main.history().push(new TCmdYrexPeakByPeak({}, peakAt(1.0), 0, false)));
}

TEST(PeakCommands, anAnnotatedPeakOutlivesTheRunsOfTheChain)
{
    constexpr int cPoints = 200;
    TStackItem stack(1, cPoints);
    TYrexSpectrum &spectrum = spectrumOf(stack);
    QVector<double> y(cPoints);
    for (int i = 0; i < cPoints; ++i)
        y[i] = std::exp(-std::pow((i - 60) / 8.0, 2)) + std::exp(-std::pow((i - 140) / 8.0, 2)) + 1e-4 * (i % 3);
    spectrum.setValues(y);
    spectrum.copyDataToOrgData();
    const auto apply = [&](int action, bool applied) {
        TYrexProcParams params = spectrum.procParams().params();
        const int index = params.indexOfAction(action);
        QVariantMap map = params.action(index);
        map["apply"] = applied;
        params.setAction(index, map);
        EXPECT_TRUE(stack.history().push(new TCmdYrexProcessing({stack.item}, params)));
    };
    const auto annotate = [&](const QString &text) {
        return stack.history().push(new TCmdYrexEditPeak(0, TCmdYrexEditPeak::cAnnotation, text, {stack.item}));
    };
    apply(cProcAutoPeakPicking, true);
    ASSERT_EQ(spectrum.peaks().size(), 2);
    const TYrexDPLib::TYrexDPPeak second = *spectrum.peaks().last();
    EXPECT_TRUE(annotate("ring"));
    EXPECT_EQ(spectrum.peaks().first()->flags, 0);
    stack.history().stack()->undo();
    EXPECT_EQ(spectrum.peaks().first()->flags, qint32(TYrexDPLib::cAutoPicked));
    stack.history().stack()->redo();
    for (const bool smoothed : {true, false}) {
        apply(cProcSmoothing, smoothed);
        ASSERT_EQ(spectrum.peaks().size(), 2) << "the automatic one does not come back beside it";
        EXPECT_EQ(spectrum.peaks().first()->annotation, "ring");
    }
    EXPECT_EQ(spectrum.peaks().last()->position, second.position);
    EXPECT_TRUE(annotate(QString()));
    EXPECT_EQ(spectrum.peaks().first()->flags, 0) << "the user's from then on";
}

TEST(PeakCommands, annotationsAreSwapped)
{
    TStackItem stack(2, 21);
    addPeaks(stack, {4.0});
    EXPECT_TRUE(swapsAfterAnUndo(stack, new TCmdYrexEditPeak(0, 0, "nu(C-H)", {stack.item})));
    EXPECT_EQ(spectrumOf(stack).peaks().first()->annotation, "nu(C-H)");
    EXPECT_EQ(doneNames(stack.history()), "Peak|Annotation");
    for (const auto &refused : {std::make_tuple(0, 1, "x"), std::make_tuple(1, 0, "x"), std::make_tuple(-1, 0, "x"),
                                std::make_tuple(0, 0, "nu(C-H)")}) {
        EXPECT_FALSE(stack.history().push(
            new TCmdYrexEditPeak(std::get<0>(refused), std::get<1>(refused), std::get<2>(refused), {stack.item})));
    }
    TCmdYrexEditPeak twice(0, 0, "other", {stack.item});
    twice.execute();
    twice.revert();
    EXPECT_EQ(spectrumOf(stack).peaks().first()->annotation, "nu(C-H)");
}

TEST(PeakCommands, aRangeIsPickedAnewInTheWholeStack)
{
    TStackItem stack(4, 21);
    addPeaks(stack, {2.0, 8.0, 12.0, 18.0});
    stack.item->stack().setDeselected(3, true);
    const auto at = [](double index) { return 4000.0 - 180.0 * index; };
    const QRectF rect(QPointF(at(8.0), 0.0), QPointF(at(12.0), 5.0));
    const QRectF back(rect.topRight(), rect.bottomLeft());
    for (const QRectF &drag : {rect, back}) {
        EXPECT_TRUE(swapsAfterAnUndo(stack, new TCmdYrexManualPeakPicking({stack.item}, drag, false, 1.5)));
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(positions(stack, i), QVector<double>({2.0, 18.0, 10.0})) << i;
        EXPECT_EQ(spectrumOf(stack).peaks().last()->flags, 0);
        EXPECT_EQ(doneNames(stack.history()), "From|To|Region|Threshold");
        stack.history().stack()->undo();
    }
    EXPECT_TRUE(stack.swaps(new TCmdYrexManualPeakPicking({stack.item}, back, false, 1000.0)));
    EXPECT_EQ(positions(stack, 3), QVector<double>({2.0, 18.0}));
    stack.history().stack()->undo();
    EXPECT_TRUE(stack.swaps(new TCmdYrexManualPeakPicking({stack.item}, rect, true, 0.0)));
    EXPECT_EQ(stack.history().stack()->undoText(), "Delete peaks from visible range");
    EXPECT_FALSE(stack.history().push(new TCmdYrexManualPeakPicking({stack.item}, rect, true, 0.0)))
        << "nothing is left in the range";
    const QRectF nowhere(std::numeric_limits<double>::infinity(), 0.0, 1.0, 0.0);
    EXPECT_FALSE(stack.history().push(new TCmdYrexManualPeakPicking({stack.item}, nowhere, false, cNoLevel)));
}

TEST(PeakCommands, rangesAreInTheUnitThatThePlotShows)
{
    TStackItem stack(1, 21);
    stack.plot().changeUnits(horzDir, cUnitNanometers, false);
    const QRectF rect(QPointF(1e7 / 2300.0, 0.0), QPointF(1e7 / 2100.0, 0.0));
    EXPECT_TRUE(stack.swaps(new TCmdYrexManualPeakPicking({stack.item}, rect, false, cNoLevel)));
    EXPECT_EQ(positions(stack), QVector<double>({10.0}));
    const QSet<QUuid> ids{spectrumOf(stack).peaks().first()->id};
    EXPECT_TRUE(stack.swaps(new TCmdYrexDeletePeaks({stack.item}, ids)));
    EXPECT_EQ(doneParams(stack.history()).at(1).fName, "Center [nanometers]");
    EXPECT_NEAR(doneParams(stack.history()).at(1).fValue.toDouble(), 1e7 / 2200.0, 1e-6);
}
