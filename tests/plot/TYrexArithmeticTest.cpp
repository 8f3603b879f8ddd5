// The commands that change the data on which chains stand.
#include "SpectrumBuilder.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexArithmeticOp.h"
#include "TCmdYrexArithmeticSetOrgDataToAbsOrg.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "commands/TCommandHistory.h"
#include "history/THistoryCommand.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

class TYrexArithmetic : public ::testing::Test
{
protected:
    TYrexArithmetic()
        : fSample(new TCanvasYrexSpectrum({newSpectrum({1, 2, 3}, 4000, 400), newSpectrum({4, 5, 6}, 4000, 400)},
                                          nullptr, nullptr))
        , fReference(new TCanvasYrexSpectrum({newSpectrum({0.5, 1, 2}, 4000, 400)}, nullptr, nullptr))
    {
        TPage *page = fDocument.appendPage();
        page->insertItem(fSample);
        page->insertItem(fReference);
    }
    bool add(double factor) { return push(new TCmdYrexArithmeticOp({fSample}, fReference, factor)); }
    bool push(TCommand *command) { return fDocument.history().push(command); }
    QUndoStack *steps() { return fDocument.history().stack(); }
    QByteArray bytes() const
    {
        QByteArray state;
        fSample->storeFullState(state);
        return state;
    }
    const TYrexSpectrum &spectrum(int index) const { return *fSample->stack().at(index); }

    TDocument fDocument;
    TCanvasYrexSpectrum *fSample;
    TCanvasYrexSpectrum *fReference;
};

} // namespace

TEST_F(TYrexArithmetic, everySelectedSpectrumGetsTheReferenceAdded)
{
    const QByteArray before = bytes();
    ASSERT_TRUE(add(-2.0));
    EXPECT_EQ(spectrum(0).values(), QVector<double>({0, 0, -1}));
    EXPECT_EQ(spectrum(1).values(), QVector<double>({3, 3, 2}));
    EXPECT_EQ(spectrum(1).orgData(), spectrum(1).values());
    EXPECT_EQ(spectrum(1).absOrgData(), QVector<double>({4, 5, 6}));
    EXPECT_TRUE(spectrum(0).orgDataModified());
    EXPECT_EQ(steps()->undoText(), "Spectrum (reference) subtracted times a Factor");
    const THistoryCommand *entry = fDocument.history().entries().last();
    ASSERT_EQ(entry->params().size(), 2);
    EXPECT_EQ(entry->params().at(0).fName, "Reference");
    EXPECT_EQ(entry->params().at(1).fValue.toString(), "2");
    const QByteArray after = bytes();
    for (int round = 0; round < 3; ++round) {
        steps()->undo();
        EXPECT_EQ(bytes(), before);
        fReference->currentSpectrum()->data()[0] += 1.0; // whatever becomes of the reference
        steps()->redo();
        EXPECT_EQ(bytes(), after);
    }
    ASSERT_TRUE(add(0.5));
    EXPECT_EQ(steps()->undoText(), "Spectrum (reference) added times a Factor");
    ASSERT_TRUE(add(0.0));
    EXPECT_EQ(steps()->undoText(), "Spectrum (reference) subtracted times a Factor");
}

TEST_F(TYrexArithmetic, anUntitledReferenceIsNamedByItsFile)
{
    fReference->currentSpectrum()->paramsBundle().setFileName("folder/solvent.csv");
    ASSERT_TRUE(add(-1.0));
    const THistoryCommand *entry = fDocument.history().entries().last();
    EXPECT_EQ(entry->params().at(0).fValue.toString(), "solvent");
    EXPECT_EQ(entry->params().size(), 2) << "the axes are the same";
}

TEST_F(TYrexArithmetic, otherPlacesAreToldInHistoryAndScript)
{
    fReference->currentSpectrum()->setAxis(4000, 1000, 1.0, 0.0, 1.0);
    const TScriptStep step = TCmdYrexArithmeticOp({fSample}, fReference, -1.0).scriptStep();
    EXPECT_TRUE(std::any_of(step.arguments().begin(), step.arguments().end(),
                            [](const auto &argument) { return argument.first == "pointByPoint"; }));
    ASSERT_TRUE(add(-1.0));
    EXPECT_EQ(fDocument.history().entries().last()->params().last().fValue.toString(),
              "the x axes differ by up to 600");
}

TEST_F(TYrexArithmetic, theResetGivesBackWhatWasReadAndUndoTheDifference)
{
    ASSERT_TRUE(add(-1.0));
    const QByteArray subtracted = bytes();
    ASSERT_TRUE(push(new TCmdYrexArithmeticSetOrgDataToAbsOrg({fSample})));
    EXPECT_EQ(steps()->undoText(), "Spectrum data reset to absolute original data");
    EXPECT_EQ(spectrum(0).values(), QVector<double>({1, 2, 3}));
    EXPECT_EQ(spectrum(1).orgData(), QVector<double>({4, 5, 6}));
    EXPECT_FALSE(spectrum(1).orgDataModified());
    EXPECT_TRUE(fDocument.history().entries().last()->params().isEmpty());
    const QByteArray reset = bytes();
    steps()->undo();
    EXPECT_EQ(bytes(), subtracted);
    steps()->redo();
    EXPECT_EQ(bytes(), reset);
}

TEST_F(TYrexArithmetic, theResetRunsTheChainOnTheDataThatWereRead)
{
    ASSERT_TRUE(add(-1.0));
    TYrexSpectrum *first = fSample->stack().at(0);
    const int sign = first->procParams().indexOfAction(69); // inverts
    QVariantMap action = first->procParams().action(sign);
    action["apply"] = true;
    first->procParams().params().setAction(sign, action);
    ASSERT_TRUE(push(new TCmdYrexArithmeticSetOrgDataToAbsOrg({fSample})));
    EXPECT_EQ(spectrum(0).values(), QVector<double>({-1, -2, -3}));
}

TEST_F(TYrexArithmetic, whatDoesNotFitIsNoStep)
{
    auto *longer = new TCanvasYrexSpectrum({newSpectrum({1, 2, 3, 4}, 4000, 400)}, nullptr, nullptr);
    fDocument.pages().first()->insertItem(longer);
    const QByteArray before = bytes();
    EXPECT_FALSE(push(new TCmdYrexArithmeticOp({fSample}, longer, 1.0)));
    EXPECT_FALSE(push(new TCmdYrexArithmeticOp({fSample}, nullptr, 1.0)));
    EXPECT_FALSE(push(new TCmdYrexArithmeticOp({}, fReference, 1.0)));
    EXPECT_EQ(bytes(), before);
    fSample->addSpectra({newSpectrum({7, 8}, 4000, 400)}); // one of a stack is left alone
    fSample->stack().setCurrent(0);
    ASSERT_TRUE(add(1.0));
    EXPECT_EQ(spectrum(2).values(), QVector<double>({7, 8}));
    EXPECT_FALSE(spectrum(2).orgDataModified());
}
