#include "TViewInput.h"
#include "TWindowFixture.h"
#include "canvas/TItemGraphics.h"
#include "consts/Consts.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/T1DStackedPlot.h"
#include "ui/TMMActCrosshairs.h"

namespace {

class MouseTest : public TWindowFixture
{
protected:
    TRange horz() { return plot()->horzAxis().getScale(); }
    TRange vert() { return plot()->vertAxis().getScale(); }
    void wheel(const QPoint &place, int angle, Qt::KeyboardModifiers keys = {})
    {
        QWheelEvent event(place, view()->viewport()->mapToGlobal(place), {}, QPoint(0, angle), Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view()->viewport(), &event);
        settle();
    }
    int steps() { return document()->history().stack()->index(); }
};

} // namespace

TEST_F(MouseTest, aBoxZoomsToItsLimitsAndBackspaceComesBack)
{
    open(writeCsv("one.csv"));
    const TRange before = horz();
    const double from =
        plot()->plotter()->canvas2Scale(horzDir, view()->itemToView(*item()).inverted().map(QPointF(at(0.2, 0.1))).x());
    drag(at(0.2, 0.1), at(0.6, 0.9));
    EXPECT_EQ(lastStep(), "Zoom");
    EXPECT_NEAR(horz().lo(), from, 1e-9 * before.span());
    EXPECT_LT(vert().span(), plot()->vertAxis().getFullScale().span());
    key(Qt::Key_Backspace);
    EXPECT_EQ(horz(), before);
    key(Qt::Key_Backspace, Qt::ShiftModifier);
    EXPECT_NE(horz(), before);
    key(Qt::Key_Home);
    EXPECT_EQ(horz(), before);
}

TEST_F(MouseTest, aFlatBoxZoomsOneAxisAndATinyOneIsAClick)
{
    open(writeCsv("one.csv"));
    const TRange height = vert();
    const TRange width = horz();
    drag(at(0.3, 0.5), at(0.6, 0.505));
    EXPECT_EQ(vert(), height);
    EXPECT_LT(horz().span(), width.span());
    const TRange zoomed = horz();
    drag(at(0.3, 0.5), at(0.6, 0.5)); // level to the pixel
    EXPECT_LT(horz().span(), zoomed.span());
    const int before = steps();
    drag(at(0.5, 0.5), at(0.505, 0.505));
    EXPECT_EQ(steps(), before);
}

TEST_F(MouseTest, escapeAndTheRightButtonGiveABoxUp)
{
    open(writeCsv("one.csv"));
    const int before = steps();
    QTest::mousePress(view()->viewport(), Qt::LeftButton, {}, at(0.2, 0.2));
    moveTo(at(0.7, 0.7), Qt::LeftButton);
    key(Qt::Key_Escape);
    QTest::mouseRelease(view()->viewport(), Qt::LeftButton, {}, at(0.7, 0.7));
    EXPECT_EQ(steps(), before);
}

TEST_F(MouseTest, theWheelKeepsWhatIsUnderTheCursorAndARunIsOneStep)
{
    open(writeCsv("one.csv"));
    const QPoint place = at(0.25, 0.5);
    const auto under = [&] { return view()->spotAt(place).scalePos.x(); };
    const double before = under();
    const TRange width = horz();
    wheel(place, 120);
    wheel(place, 120);
    EXPECT_NEAR(under(), before, 1e-6 * width.span());
    EXPECT_NEAR(horz().span(), width.span() / (1.25 * 1.25), 1e-6 * width.span());
    document()->history().stack()->undo();
    EXPECT_EQ(horz(), width);
    const TRange height = vert();
    wheel(place, 120, Qt::ControlModifier); // intensity: 0 stays, the top comes down
    EXPECT_NEAR(vert().span(), height.span() / 1.1, 1e-9);
}

TEST_F(MouseTest, aPanIsOneStepAndUndoRestoresToTheBit)
{
    open(writeCsv("one.csv"));
    const TRange width = horz();
    const int before = steps();
    drag(at(0.5, 0.5), at(0.6, 0.4), Qt::MiddleButton);
    EXPECT_EQ(steps(), before + 1);
    EXPECT_LT(horz().a, width.a); // the curves follow the hand to the right
    document()->history().stack()->undo();
    EXPECT_EQ(horz(), width);
}

TEST_F(MouseTest, modesAreEnteredByTheirKeyAndLeftByEscape)
{
    open(writeCsv("one.csv"));
    TPluginMouseModeHandler &modes = fWindow->modes().modes();
    key(Qt::Key_P);
    EXPECT_EQ(modes.mode(), Consts::Common::panModeID);
    EXPECT_TRUE(fWindow->status().hint().startsWith("Pan"));
    QTest::mousePress(view()->viewport(), Qt::LeftButton, {}, at(0.5, 0.5));
    moveTo(at(0.6, 0.5), Qt::LeftButton);
    const TRange full = plot()->horzAxis().getFullScale();
    EXPECT_NE(horz(), full);
    key(Qt::Key_Escape); // first the drag ...
    EXPECT_EQ(horz(), full);
    EXPECT_EQ(modes.mode(), Consts::Common::panModeID);
    key(Qt::Key_Escape); // ... then the mode
    EXPECT_TRUE(modes.mode().isNull());
    key(Qt::Key_C);
    key(Qt::Key_C); // the same again leaves, too
    EXPECT_TRUE(modes.mode().isNull());
}

TEST_F(MouseTest, rangesAreHiddenAndShownByTheirModes)
{
    open(writeCsv("one.csv"));
    const TRange full = plot()->horzAxis().getFullScale();
    key(Qt::Key_X);
    drag(at(0.4, 0.5), at(0.6, 0.5));
    EXPECT_TRUE(plot()->horzRanges().hasCuts(full));
    key(Qt::Key_X, Qt::ShiftModifier);
    QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, at(0.1, 0.5));
    EXPECT_FALSE(plot()->horzRanges().hasCuts(full));
}

TEST_F(MouseTest, theCrosshairCopiesAPointOfTheCurve)
{
    open(writeCsv("one.csv"));
    key(Qt::Key_C);
    auto *cross = dynamic_cast<TMMActCrosshairs *>(fWindow->modes().modes().current());
    ASSERT_NE(cross, nullptr);
    moveTo(at(0.5, 0.2));
    key(Qt::Key_Right); // onto a point of the data
    const QStringList values = cross->values().split('\t');
    ASSERT_EQ(values.size(), 2);
    const double x = values.first().toDouble();
    EXPECT_DOUBLE_EQ(x, std::round(x / 10.0) * 10.0);
    EXPECT_NEAR(values.last().toDouble(), 1.0 / (1.0 + std::pow((x / 10.0 - 60) / 10.0, 2)), 1e-6);
}

TEST_F(MouseTest, hoverReadsTheCurveAndDrawsNothingAnew)
{
    open(writeCsv("stack.csv", 3));
    auto *graphics = dynamic_cast<TItemGraphics *>(item()->graphics());
    ASSERT_NE(graphics, nullptr);
    fWindow->grab();
    const int draws = graphics->drawCount();
    const QPointF peak = plot()->plotter()->scale2Canvas(QPointF(600, 2));
    moveTo(view()->itemToView(*item()).map(peak).toPoint());
    EXPECT_EQ(dynamic_cast<T1DStackedPlot *>(plot())->pointedIndex(), 1);
    EXPECT_TRUE(fWindow->status().readout().contains("#2 of 3"));
    fWindow->grab();
    EXPECT_EQ(graphics->drawCount(), draws);
}

TEST_F(MouseTest, aClickOnACurveMakesItActiveAndControlTurnsItsSelectionOver)
{
    open(writeCsv("stack.csv", 3));
    IStackedItemCtx *stack = item()->stackedContext();
    ASSERT_NE(stack, nullptr);
    const auto peakOf = [this](int curve) {
        return view()->itemToView(*item()).map(plot()->plotter()->scale2Canvas(QPointF(600, curve + 1))).toPoint();
    };
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, peakOf(2));
    EXPECT_EQ(stack->activeIndex(), 2);
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::ControlModifier, peakOf(1));
    EXPECT_EQ(stack->ids(false, true).size(), 2);
    EXPECT_EQ(fWindow->status().selection(), "2/3");
}

TEST_F(MouseTest, displayModesAndHiddenSpectraCanBeUndone)
{
    open(writeCsv("stack.csv", 3));
    auto *stacked = dynamic_cast<T1DStackedPlot *>(plot());
    const int before = stacked->stackedProperties().displayMode();
    key(Qt::Key_S);
    EXPECT_TRUE(stacked->isStacked());
    key(Qt::Key_H);
    EXPECT_FALSE(item()->stackedContext()->allVisible());
    document()->history().stack()->undo();
    EXPECT_TRUE(item()->stackedContext()->allVisible());
    document()->history().stack()->undo();
    EXPECT_EQ(stacked->stackedProperties().displayMode(), before);
}

TEST_F(MouseTest, arrangedItemsMoveSnapAndResizeAsSingleSteps)
{
    open(writeCsv("one.csv"));
    const QRectF before = item()->rect();
    fWindow->actionTable().action("arrangeItems")->trigger();
    drag(at(0.5, 0.5), at(0.5, 0.5) + QPoint(60, 3)); // three pixels snap back to the margin
    EXPECT_GT(item()->rect().left(), before.left());
    EXPECT_NEAR(item()->rect().top(), before.top(), 1e-9);
    const QRectF moved = item()->rect();
    const QPoint corner = view()->itemToView(*item()).map(QPointF(moved.width(), moved.height())).toPoint();
    drag(corner, corner - QPoint(100, 80));
    EXPECT_LT(item()->rect().width(), moved.width());
    EXPECT_EQ(item()->rect().topLeft(), moved.topLeft());
    document()->history().stack()->undo();
    document()->history().stack()->undo();
    EXPECT_EQ(item()->rect(), before);
    key(Qt::Key_Escape);
    EXPECT_FALSE(view()->input().itemHand().isArranging());
    key(Qt::Key_Delete);
    EXPECT_TRUE(document()->items().isEmpty());
}
