// The modes that set and delete marks: gestures in the window, what they leave and what undo puts back.
#include "TWindowFixture.h"
#include "canvas/TItemGraphics.h"
#include "contexts/IStackedItemCtx.h"
#include "stream/TDataStream.h"

#include <QSet>

namespace {

class MarkModesTest : public TWindowFixture
{
protected:
    /// A spectrum of 401 points from `first` on, with three peaks at its quarters.
    QString writeBands(const QString &name, const QByteArray &xUnits = "1/CM", double first = 400.0, double step = 1.0,
                       const QByteArray &yUnits = "ABSORBANCE")
    {
        constexpr int cCount = 401;
        QFile file(fFolder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("##TITLE= " + name.toLatin1() +
                   "\n##JCAMP-DX= 4.24\n##DATA TYPE= INFRARED SPECTRUM\n##XUNITS= " + xUnits + "\n##YUNITS= " + yUnits +
                   "\n##XFACTOR= 1\n##YFACTOR= 0.0001\n##FIRSTX= " + QByteArray::number(first) +
                   "\n##LASTX= " + QByteArray::number(first + step * (cCount - 1)) +
                   "\n##NPOINTS= " + QByteArray::number(cCount) + "\n##XYDATA= (X++(Y..Y))\n");
        for (int i = 0; i < cCount; ++i) {
            double y = 0.05;
            for (int peak = 1; peak <= 3; ++peak)
                y += (0.2 + 0.2 * peak) / (1.0 + std::pow((i - 100 * peak) / 8.0, 2));
            if (yUnits != "ABSORBANCE")
                y = std::pow(10.0, -y);
            file.write(QByteArray::number(first + step * i) + ' ' + QByteArray::number(qRound(y * 10000.0)) + '\n');
        }
        file.write("##END=\n");
        return file.fileName();
    }
    /// The marks of a kind that answer to the mouse on the item as it is drawn.
    int marks(TPlotHotArea::TPlotHotAreaType type)
    {
        fWindow->grab();
        QSet<QUuid> ids;
        for (double y = 0.0; y < item()->rect().height(); y += 12.0) {
            for (double x = 0.0; x < item()->rect().width(); x += 12.0) {
                const TPlotHotArea &area = item()->areaAt(QPointF(x, y));
                if (area.type() == type)
                    ids.insert(area.id());
            }
        }
        return ids.size();
    }
    int peaks() { return marks(TPlotHotArea::peak); }
    int integrals() { return marks(TPlotHotArea::integral); }
    QByteArray bytes()
    {
        QByteArray state;
        TDataStream stream(&state, QIODevice::WriteOnly);
        item()->store(stream);
        return state;
    }
    QUuid mode() { return fWindow->modes().mode(); }
    int steps() { return document()->history().stack()->index(); }
    QString hint() { return fWindow->status().hint(); }
    /// A place of the view by shown x and share of the height.
    QPoint atX(double x, double height)
    {
        double place = 0.0;
        EXPECT_TRUE(plot()->plotter()->scale2Canvas(horzDir, x, place));
        const QRectF curves = plot()->plotter()->getPlotCurvesRect();
        return view()->itemToView(*item()).map(QPointF(place, curves.top() + height * curves.height())).toPoint();
    }
    void press(const QPoint &place, Qt::KeyboardModifiers keys = {})
    {
        QTest::mousePress(view()->viewport(), Qt::LeftButton, keys, place);
    }
    void release(const QPoint &place, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseRelease(view()->viewport(), Qt::LeftButton, keys, place);
        settle();
    }
    void click(const QPoint &place, Qt::KeyboardModifiers keys = {})
    {
        press(place, keys);
        release(place, keys);
    }
    void integrate(double from, double to)
    {
        key(Qt::Key_I);
        drag(atX(from, 0.5), atX(to, 0.5));
        key(Qt::Key_Escape);
    }
    /// Whether undo gives back what was, and redo what came of it.
    void expectUndoOfOneStep(const QByteArray &before, int stepsBefore)
    {
        EXPECT_EQ(steps(), stepsBefore + 1);
        const QByteArray after = bytes();
        EXPECT_NE(after, before);
        document()->history().stack()->undo();
        EXPECT_EQ(bytes(), before);
        document()->history().stack()->redo();
        EXPECT_EQ(bytes(), after);
    }
};

struct TAxisCase
{
    const char *fUnits;
    double fFirst;
    double fStep;
};

class MarkUnitsTest : public MarkModesTest, public ::testing::WithParamInterface<TAxisCase>
{
};

} // namespace

TEST_P(MarkUnitsTest, bandsAreIntegratedAndTheModeStaysOn)
{
    const TAxisCase &axis = GetParam();
    open(writeBands("bands.dx", axis.fUnits, axis.fFirst, axis.fStep));
    const QByteArray before = bytes();
    const int stepsBefore = steps();
    key(Qt::Key_I);
    const QUuid on = mode();
    EXPECT_FALSE(on.isNull());
    press(atX(580, 0.5));
    moveTo(atX(620, 0.5), Qt::LeftButton);
    EXPECT_TRUE(hint().startsWith("From 5")) << hint().toStdString();
    EXPECT_TRUE(hint().endsWith("Release to add, Escape to cancel."));
    release(atX(620, 0.5));
    EXPECT_EQ(mode(), on);
    EXPECT_EQ(integrals(), 1);
    expectUndoOfOneStep(before, stepsBefore);
    key(Qt::Key_I);
    EXPECT_TRUE(mode().isNull());
}

INSTANTIATE_TEST_SUITE_P(Axes, MarkUnitsTest,
                         ::testing::Values(TAxisCase{"1/CM", 400.0, 1.0}, TAxisCase{"1/CM", 800.0, -1.0},
                                           TAxisCase{"NANOMETERS", 400.0, 1.0}));

TEST_F(MarkModesTest, dipsOfTransmittanceArePickedBelowTheThreshold)
{
    open(writeBands("dips.dx", "1/CM", 400.0, 1.0, "TRANSMITTANCE"));
    key(Qt::Key_K);
    press(atX(450, 0.1));
    moveTo(atX(750, 0.5), Qt::LeftButton);
    EXPECT_TRUE(hint().contains(", below ")) << hint().toStdString();
    release(atX(750, 0.05));
    EXPECT_EQ(peaks(), 3);
}

TEST_F(MarkModesTest, gesturesThatGoNowhereOrAreGivenUpLeaveNoStep)
{
    open(writeBands("one.dx"));
    const int before = steps();
    for (const auto &keys : {QPair<int, Qt::KeyboardModifier>{Qt::Key_I, Qt::NoModifier},
                             QPair<int, Qt::KeyboardModifier>{Qt::Key_K, Qt::NoModifier}}) {
        key(keys.first, keys.second);
        const QUuid on = mode();
        click(atX(600, 0.5));
        press(atX(500, 0.5));
        moveTo(atX(700, 0.5), Qt::LeftButton);
        key(Qt::Key_Escape); // the drag, not the mode
        release(atX(700, 0.5));
        press(atX(500, 0.5));
        moveTo(atX(700, 0.5), Qt::LeftButton);
        QTest::mouseClick(view()->viewport(), Qt::RightButton, {}, atX(700, 0.5));
        release(atX(700, 0.5));
        EXPECT_EQ(steps(), before);
        EXPECT_EQ(mode(), on);
    }
    key(Qt::Key_Escape);
    EXPECT_TRUE(mode().isNull());
}

TEST_F(MarkModesTest, integralsAreDeletedByClickAndBandUntilTheModeHasNothingLeft)
{
    open(writeBands("one.dx"));
    integrate(480, 520);
    integrate(580, 620);
    integrate(680, 720);
    ASSERT_EQ(integrals(), 3);
    key(Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
    const QByteArray before = bytes();
    const int stepsBefore = steps();
    click(atX(545, 0.5)); // beside all of them
    EXPECT_EQ(steps(), stepsBefore);
    click(atX(600, 0.5));
    EXPECT_EQ(integrals(), 2);
    expectUndoOfOneStep(before, stepsBefore);
    EXPECT_FALSE(mode().isNull());
    drag(atX(500, 0.5), atX(700, 0.5)); // touches both
    EXPECT_EQ(integrals(), 0);
    EXPECT_TRUE(mode().isNull());
}

TEST_F(MarkModesTest, theBoxPicksBeyondItsThresholdAndAltDeletes)
{
    open(writeBands("one.dx"));
    const QByteArray before = bytes();
    const int stepsBefore = steps();
    key(Qt::Key_K);
    EXPECT_EQ(hint(), "Drag a box: its free edge is the threshold. Takes maxima.");
    double row = 0.0;
    ASSERT_TRUE(plot()->plotter()->scale2Canvas(vertDir, 0.55, row)); // the lowest peak ends at 0.46
    const QRectF curves = plot()->plotter()->getPlotCurvesRect();
    const double height = (row - curves.top()) / curves.height();
    press(atX(450, 0.9));
    moveTo(atX(750, height), Qt::LeftButton);
    EXPECT_TRUE(hint().contains("2 peaks. Release to pick.")) << hint().toStdString();
    release(atX(750, height));
    EXPECT_EQ(peaks(), 2);
    expectUndoOfOneStep(before, stepsBefore);

    press(atX(550, 0.9), Qt::AltModifier);
    QMouseEvent move(QEvent::MouseMove, atX(650, 0.5), Qt::NoButton, Qt::LeftButton, Qt::AltModifier);
    QCoreApplication::sendEvent(view()->viewport(), &move);
    EXPECT_TRUE(hint().endsWith("1 peak. Release to delete.")) << hint().toStdString();
    release(atX(650, 0.5), Qt::AltModifier);
    EXPECT_EQ(peaks(), 1);
}

TEST_F(MarkModesTest, aClickSnapsToThePeakAndTheSecondTakesItAway)
{
    open(writeBands("one.dx", "NANOMETERS"));
    const QByteArray before = bytes();
    const int stepsBefore = steps();
    key(Qt::Key_K, Qt::ControlModifier);
    click(atX(594, 0.8));
    EXPECT_EQ(peaks(), 1);
    expectUndoOfOneStep(before, stepsBefore);
    moveTo(atX(606, 0.8)); // from the other side the same extreme
    EXPECT_EQ(hint(), "Click removes this peak.");
    click(atX(606, 0.8));
    EXPECT_EQ(peaks(), 0);
    click(atX(606, 0.8), Qt::ShiftModifier); // freely: the point itself
    click(atX(594, 0.8));
    EXPECT_EQ(peaks(), 2);
    EXPECT_FALSE(mode().isNull());
}

TEST_F(MarkModesTest, peaksAreDeletedByClickAndBand)
{
    open(writeBands("one.dx"));
    key(Qt::Key_K);
    drag(atX(450, 0.5), atX(750, 0.95));
    key(Qt::Key_Escape);
    ASSERT_EQ(peaks(), 3);
    key(Qt::Key_K, Qt::ShiftModifier);
    const QByteArray before = bytes();
    const int stepsBefore = steps();
    click(atX(550, 0.6)); // no peak within reach
    EXPECT_EQ(steps(), stepsBefore);
    double row = 0.0;
    ASSERT_TRUE(plot()->plotter()->scale2Canvas(vertDir, 0.67, row));
    const QRectF curves = plot()->plotter()->getPlotCurvesRect();
    click(atX(600, (row - curves.top()) / curves.height()));
    EXPECT_EQ(peaks(), 2);
    expectUndoOfOneStep(before, stepsBefore);
    EXPECT_FALSE(mode().isNull());
    drag(atX(450, 0.5), atX(750, 0.5));
    EXPECT_EQ(peaks(), 0);
    EXPECT_TRUE(mode().isNull());
}

TEST_F(MarkModesTest, aStackIsIntegratedWhereItIsSelectedAndPickedThroughout)
{
    open(writeCsv("stack.csv", 3));
    item()->stackedContext()->setSelected({0, 2});
    key(Qt::Key_I);
    moveTo(at(0.5, 0.5));
    EXPECT_TRUE(hint().endsWith(" Applies to 2 selected spectra.")) << hint().toStdString();
    const QByteArray before = bytes();
    const int stepsBefore = steps();
    drag(at(0.4, 0.5), at(0.6, 0.5));
    expectUndoOfOneStep(before, stepsBefore);
    key(Qt::Key_K);
    moveTo(at(0.5, 0.5));
    EXPECT_TRUE(hint().endsWith(" Picks in all 3 spectra.")) << hint().toStdString();
    for (const int displayed : {int(Qt::Key_S), int(Qt::Key_S)}) { // in rows and out of them again
        const QByteArray picked = bytes();
        const int stepsNow = steps();
        drag(at(0.3, 0.9), at(0.7, 0.95));
        expectUndoOfOneStep(picked, stepsNow);
        key(displayed);
    }
}

TEST_F(MarkModesTest, theModeLooksOnWhileThePageIsPannedAndZoomed)
{
    open(writeBands("one.dx"));
    key(Qt::Key_I);
    const QUuid on = mode();
    const TRange full = plot()->horzAxis().getScale();
    QWheelEvent wheel(at(0.5, 0.5), view()->viewport()->mapToGlobal(at(0.5, 0.5)), {}, QPoint(0, 120), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view()->viewport(), &wheel);
    const TRange zoomed = plot()->horzAxis().getScale();
    EXPECT_LT(zoomed.span(), full.span());
    QTest::keyPress(view(), Qt::Key_Space);
    drag(at(0.5, 0.5), at(0.6, 0.5));
    QTest::keyRelease(view(), Qt::Key_Space);
    EXPECT_NE(plot()->horzAxis().getScale(), zoomed);
    EXPECT_EQ(integrals(), 0);
    EXPECT_EQ(mode(), on);
    auto *graphics = dynamic_cast<TItemGraphics *>(item()->graphics());
    ASSERT_NE(graphics, nullptr);
    fWindow->grab();
    const int draws = graphics->drawCount();
    press(at(0.4, 0.5));
    moveTo(at(0.7, 0.5), Qt::LeftButton);
    fWindow->grab();
    EXPECT_EQ(graphics->drawCount(), draws); // previews draw no curve anew
    key(Qt::Key_Escape);
    release(at(0.7, 0.5));
}
