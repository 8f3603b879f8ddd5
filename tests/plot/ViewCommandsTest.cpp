// The host's commands on the view of spectra, with items of this module.
#include "TStackItem.h"
#include "commands/TCmdChangeSpectraIntensity.h"
#include "commands/TCmdFitSpectraIntensityToHeight.h"
#include "commands/TCmdMoveItem.h"
#include "commands/TCmdPanSpectra.h"
#include "commands/TCmdSpectraCuts.h"
#include "commands/TCmdZoomSpectra.h"
#include "contexts/TStackedSpectrumItemCtx.h"
#include "history/THistoryCommand.h"

#include <gtest/gtest.h>

namespace {

using TTrait = TStackedSpectrumItemCtx<TYrexSpectrumList>::TStackedTrait;

TCanvasItemList listOf(const TStackItem &stack)
{
    return {stack.item};
}

} // namespace

TEST(ViewCommands, undoPutsTheViewBackAndLeavesTheDocumentUnmodified)
{
    for (const int mode : {activeOnlyMode, stackedMode, queuedMode, groupedMode}) {
        TStackItem stack(3);
        stack.stack().setDisplayMode(mode);
        stack.stack().refit();
        const TCanvasItemList items = listOf(stack);
        EXPECT_TRUE(stack.swaps(TTrait::zoom(items, QRectF(1000, 0.5, 1500, 1.5)))) << mode;
        EXPECT_TRUE(stack.swaps(TTrait::pan(items, 100, -50))) << mode;
        EXPECT_TRUE(stack.swaps(TTrait::changeIntensity(items, true, 2.0))) << mode;
        EXPECT_TRUE(stack.swaps(TTrait::fitToHeight(items))) << mode;
        if (mode != queuedMode) {
            EXPECT_TRUE(stack.swaps(TTrait::hideRange(items, TRange(1200, 1400)))) << mode;
        }
        EXPECT_TRUE(stack.swaps(TTrait::fullZoomOut(items))) << mode;
        EXPECT_FALSE(stack.document.isModified()) << "views alone leave nothing to save";
        for (const THistoryCommand *entry : stack.history().entries())
            EXPECT_TRUE(entry->isViewOnly());
    }
}

TEST(ViewCommands, zoomKeepsDirectionsAndFullViewKeepsCuts)
{
    TStackItem stack(1);
    const TCanvasItemList items = listOf(stack);
    stack.history().push(new TCmdZoomSpectra(items, QRectF(1000, 0, 500, 0), TCmdZoomSpectra::cBox));
    EXPECT_EQ(stack.plot().horzAxis().getScale(), TRange(1500, 1000)) << "wavenumbers run from high to low";
    const TRange height = stack.plot().vertAxis().getScale();
    stack.history().push(new TCmdZoomSpectra(items, QRectF(0, 1.5, 0, 0.5), TCmdZoomSpectra::cBox));
    EXPECT_EQ(stack.plot().horzAxis().getScale(), TRange(1500, 1000)) << "no width: x stays";
    EXPECT_EQ(stack.plot().vertAxis().getScale(), TRange(1.5, 2.0));
    EXPECT_NE(stack.plot().vertAxis().getScale(), height);
    stack.history().push(new TCmdSpectraCuts(items, TCmdSpectraCuts::cHide, TRange(2000, 2500)));
    stack.history().push(new TCmdZoomSpectra(items, QRectF(), TCmdZoomSpectra::cFullView));
    EXPECT_EQ(stack.plot().horzAxis().getScale(), stack.plot().horzAxis().getFullScale());
    EXPECT_FALSE(stack.plot().horzRanges().isVisible(2200));
    stack.history().push(new TCmdSpectraCuts(items, TCmdSpectraCuts::cRestoreAll, TRange()));
    EXPECT_TRUE(stack.plot().horzRanges().isVisible(2200));
}

TEST(ViewCommands, whatChangesNothingIsVoidAndNoViewToComeBackTo)
{
    TStackItem stack(3);
    const TCanvasItemList items = listOf(stack);
    stack.history().push(new TCmdZoomSpectra(items, QRectF(), TCmdZoomSpectra::cFullView));
    const int count = stack.history().stack()->count();
    const int views = stack.item->viewHistory().backCount();
    EXPECT_FALSE(stack.history().push(new TCmdZoomSpectra(items, QRectF(), TCmdZoomSpectra::cFullView)));
    EXPECT_FALSE(stack.history().push(new TCmdPanSpectra(items, 0.0, 0.0)));
    EXPECT_FALSE(stack.history().push(new TCmdSpectraCuts(items, TCmdSpectraCuts::cHide, TRange(-1e9, 1e9))));
    stack.stack().setDisplayMode(queuedMode);
    EXPECT_FALSE(stack.history().push(new TCmdSpectraCuts(items, TCmdSpectraCuts::cHide, TRange(1000, 1200))))
        << "a queue takes no cuts";
    EXPECT_EQ(stack.history().stack()->count(), count);
    EXPECT_EQ(stack.item->viewHistory().backCount(), views);
}

TEST(ViewCommands, keepFittingEndsEveryStepAlongXWithTheFit)
{
    TStackItem stack(1, 101);
    stack.plot().properties().keepFitting = true;
    const TRange before = stack.plot().vertAxis().getScale();
    TSpectrumItemCtx context(stack.item, &stack.plot());
    context.zoom(horzDir, 400, 1400);
    EXPECT_NE(stack.plot().vertAxis().getScale(), before);
    context.fullZoomOut();
    EXPECT_EQ(stack.plot().vertAxis().getScale(), before);
}

TEST(ViewCommands, formerViewsCanBeWalkedBackAndForth)
{
    TStackItem stack(1);
    const auto zoomTo = [&stack](double from) {
        stack.history().push(new TCmdZoomSpectra({stack.item}, QRectF(from, 0, 100, 0), TCmdZoomSpectra::cBox));
    };
    const TRange full = stack.plot().horzAxis().getScale();
    zoomTo(1000);
    zoomTo(1001);
    EXPECT_TRUE(stack.item->goToFormerView());
    EXPECT_EQ(stack.plot().horzAxis().getScale(), TRange(1100, 1000));
    EXPECT_TRUE(stack.item->goToFormerView());
    EXPECT_EQ(stack.plot().horzAxis().getScale(), full);
    EXPECT_FALSE(stack.item->goToFormerView());
    EXPECT_TRUE(stack.item->goToLaterView());
    EXPECT_TRUE(stack.item->goToLaterView());
    EXPECT_EQ(stack.plot().horzAxis().getScale(), TRange(1101, 1001));
    EXPECT_FALSE(stack.item->goToLaterView());
    for (int i = 0; i < 2 * TViewHistory::cMaxEntries; ++i)
        zoomTo(1002 + i);
    EXPECT_EQ(stack.item->viewHistory().backCount(), TViewHistory::cMaxEntries);
}

TEST(ViewCommands, oneGestureIsOneStepAndOneFormerView)
{
    TStackItem stack(1);
    const QByteArray before = stack.bytes();
    stack.history().beginGesture();
    for (int i = 0; i < 5; ++i)
        stack.history().push(new TCmdPanSpectra({stack.item}, 10.0, 1.0));
    stack.history().endGesture();
    EXPECT_EQ(stack.history().stack()->count(), 1);
    EXPECT_EQ(stack.history().entries().size(), 1);
    EXPECT_EQ(stack.item->viewHistory().backCount(), 1);
    stack.history().push(new TCmdPanSpectra({stack.item}, 10.0, 1.0));
    EXPECT_EQ(stack.history().stack()->count(), 2) << "outside of gestures nothing merges";
    stack.history().stack()->undo();
    stack.history().stack()->undo();
    EXPECT_EQ(stack.bytes(), before);
    EXPECT_EQ(stack.item->viewHistory().backCount(), 0);
}

TEST(ViewCommands, editsAmongViewsDecideAboutTheStar)
{
    TStackItem stack(1);
    TCommandHistory &history = stack.history();
    QVector<bool> told;
    QObject::connect(&stack.document, &TDocument::modifiedChanged, [&told](bool modified) { told.append(modified); });
    history.push(new TCmdPanSpectra({stack.item}, 5.0, 0.0));
    history.push(new TCmdMoveItem({stack.item}, {QRectF(0, 0, 100, 100)}));
    EXPECT_TRUE(stack.document.isModified());
    history.setClean();
    history.push(new TCmdPanSpectra({stack.item}, 5.0, 0.0));
    history.stack()->undo();
    EXPECT_FALSE(stack.document.isModified());
    history.stack()->undo();
    EXPECT_TRUE(stack.document.isModified()) << "the move is on disk, and undone here";
    history.push(new TCmdMoveItem({stack.item}, {QRectF(0, 0, 100, 100)}));
    EXPECT_TRUE(stack.document.isModified()) << "another step than the one that was saved";
    EXPECT_EQ(told, QVector<bool>({true, false, true}));
}

TEST(SpectrumItemCtx, outlivesItsItem)
{
    auto stack = std::make_unique<TStackItem>(2);
    TStackedSpectrumItemCtx<TYrexSpectrumList> context(stack->item, &stack->item->stack(), &stack->plot());
    EXPECT_NE(context.stack(), nullptr);
    stack.reset();
    context.fullZoomOut();
    context.zoom(QRectF(1, 1, 1, 1));
    context.hideRange(TRange(1, 2));
    context.showRange(TRange(1, 2));
    context.restoreRanges();
    context.pan(1, 1);
    context.changeIntensity(true, 1);
    context.fitToHeight();
    EXPECT_EQ(context.stack(), nullptr);
}
