// The hand on marks: peaks and integrals are highlighted, dragged and deleted.
#include "TMarksFixture.h"
#include "stream/TDataStream.h"

#include <QPainter>

namespace {

class HotAreasTest : public TMarksFixture
{
};

/// The limits in "Integral 1150.0 .. 1250.0, ...".
QPair<double, double> limitsOf(const QString &text)
{
    const QStringList words = text.section(',', 0, 0).split(' ');
    return {words.value(1).toDouble(), words.value(3).toDouble()};
}

} // namespace

TEST_F(HotAreasTest, marksTellWhatTheyAre)
{
    openMarks();
    const QVector<QPoint> peaks = peakLabels();
    ASSERT_EQ(peaks.size(), 2);
    const QString peak = readoutAt(peaks.first()); // wavenumbers fall to the right
    EXPECT_TRUE(peak.startsWith("Peak 1200")) << peak.toStdString();
    EXPECT_TRUE(peak.endsWith(", manual")) << peak.toStdString();
    EXPECT_TRUE(peak.contains(" cm-1, 0.5"));
    const QVector<QPoint> segments = integralAreas(cMiddle);
    ASSERT_EQ(segments.size(), 2);
    const QString integral = readoutAt(segments.last());
    EXPECT_NEAR(limitsOf(integral).first, 540.0, 1.0) << integral.toStdString();
    EXPECT_NEAR(limitsOf(integral).second, 660.0, 1.0);
    EXPECT_TRUE(integral.contains("1.000 (reference), area ")) << integral.toStdString();
    EXPECT_FALSE(readoutAt(at(0.5, 0.4)).startsWith("Integral"));
}

TEST_F(HotAreasTest, whatIsClickedStaysHighlightedAndIsDeletedBeforeTheItem)
{
    openMarks();
    const QVector<QPoint> peaks = peakLabels();
    EXPECT_FALSE(action("yrexDeleteCurPeak")->isEnabled());
    EXPECT_EQ(action("yrexDeleteCurPeak")->toolTip(), "Needs highlighted peaks.");
    click(peaks.first());
    moveTo(at(0.5, 0.4));
    EXPECT_TRUE(action("yrexAnnotateCurPeak")->isEnabled());
    click(peaks.last(), Qt::ControlModifier);
    EXPECT_FALSE(action("yrexAnnotateCurPeak")->isEnabled()) << "two are highlighted";
    click(integralAreas(cMiddle).first(), Qt::ControlModifier);
    key(Qt::Key_Delete);
    EXPECT_TRUE(peakLabels().isEmpty());
    EXPECT_EQ(integralAreas(cMiddle).size(), 1);
    EXPECT_EQ(steps(), 1) << "marks of both kinds in one step";
    EXPECT_EQ(document()->items().size(), 1);
    action("undo")->trigger();
    EXPECT_EQ(peakLabels().size(), 2);
    EXPECT_EQ(integralAreas(cMiddle).size(), 2);
    moveTo(at(0.5, 0.4));
    key(Qt::Key_Delete);
    EXPECT_TRUE(document()->items().isEmpty()) << "nothing was highlighted any more";
}

TEST_F(HotAreasTest, deleteIsForTheItemThatWasChosenSince)
{
    openMarks();
    click(peakLabels().first());
    moveTo(at(0.5, 0.4));
    action("duplicate")->trigger();
    settle();
    ASSERT_EQ(document()->items().size(), 2);
    key(Qt::Key_Delete);
    EXPECT_EQ(document()->items().size(), 1) << "the copy, not the peak of the other item";
    EXPECT_EQ(peakLabels().size(), 2);
}

TEST_F(HotAreasTest, marksThatAreGoneTakeNoKey)
{
    openMarks();
    click(peakLabels().first());
    moveTo(at(0.5, 0.4));
    action("yrexDeleteAllPeaksVisible")->trigger();
    settle();
    ASSERT_TRUE(peakLabels().isEmpty());
    key(Qt::Key_Delete);
    EXPECT_TRUE(document()->items().isEmpty());
}

TEST_F(HotAreasTest, aMarkUnderTheMouseCountsOnlyWhileNoOthersAreHighlighted)
{
    openMarks();
    const QVector<QPoint> peaks = peakLabels();
    moveTo(peaks.first());
    EXPECT_TRUE(action("yrexAnnotateCurPeak")->isEnabled());
    moveTo(at(0.5, 0.4));
    EXPECT_FALSE(action("yrexAnnotateCurPeak")->isEnabled());
    click(peaks.first());
    moveTo(peaks.last());
    key(Qt::Key_Delete);
    const QVector<QPoint> left = peakLabels();
    ASSERT_EQ(left.size(), 1);
    EXPECT_TRUE(readoutAt(left.first()).startsWith("Peak 600"));
}

TEST_F(HotAreasTest, aLimitFollowsTheMouseInOneStepAndStopsAtTheOther)
{
    openMarks();
    const QPoint left = integralAreas(cLeft).last(); // the upper limit of 540 .. 660
    const QPoint middle = integralAreas(cMiddle).last();
    drag(left, left - QPoint(30, 0));
    EXPECT_EQ(lastStep(), "Edit Integral");
    EXPECT_EQ(steps(), 1);
    const QPair<double, double> wider = limitsOf(readoutAt(middle));
    EXPECT_NEAR(wider.first, 540.0, 1.0);
    EXPECT_GT(wider.second, 670.0);
    const QPoint moved = integralAreas(cLeft).last();
    drag(moved, at(0.98, 0.9)); // far beyond the other one
    const QPair<double, double> narrow = limitsOf(readoutAt(integralAreas(cRight).last()));
    EXPECT_NEAR(narrow.first, 540.0, 1.0);
    EXPECT_NEAR(narrow.second, narrow.first + 2.0, 0.6) << "one point before it";
    action("undo")->trigger();
    action("undo")->trigger();
    EXPECT_NEAR(limitsOf(readoutAt(integralAreas(cMiddle).last())).second, 660.0, 1.0);
}

TEST_F(HotAreasTest, theMiddleHandleMovesTheRegionOrTheRows)
{
    openMarks();
    const QPoint middle = integralAreas(cMiddle).last();
    drag(middle, middle - QPoint(40, 2));
    const QPoint after = integralAreas(cMiddle).last();
    EXPECT_NEAR(after.x(), middle.x() - 40, 3);
    EXPECT_NEAR(after.y(), middle.y(), 2);
    const QPair<double, double> limits = limitsOf(readoutAt(after));
    EXPECT_NEAR(limits.second - limits.first, 120.0, 1.0) << "its width stays";
    drag(after, after - QPoint(1, 50));
    EXPECT_EQ(lastStep(), "Move Integrals Labels");
    const QVector<QPoint> rows = integralAreas(cMiddle);
    EXPECT_NEAR(rows.last().y(), after.y() - 50, 3);
    EXPECT_EQ(rows.first().y(), rows.last().y()) << "all rows";
    EXPECT_EQ(steps(), 2);
}

TEST_F(HotAreasTest, escapePutsEverythingBack)
{
    openMarks();
    const QPoint middle = integralAreas(cMiddle).last();
    const QImage before = view()->grab().toImage();
    QTest::mousePress(view()->viewport(), Qt::LeftButton, {}, middle);
    moveTo(middle - QPoint(0, 30), Qt::LeftButton);
    moveTo(middle - QPoint(0, 60), Qt::LeftButton);
    EXPECT_NE(view()->grab().toImage(), before) << "it is shown live";
    key(Qt::Key_Escape);
    EXPECT_EQ(steps(), 0);
    QTest::mouseRelease(view()->viewport(), Qt::LeftButton, {}, middle - QPoint(0, 60));
    EXPECT_EQ(integralAreas(cMiddle).last().y(), middle.y());
    EXPECT_EQ(steps(), 0);
    EXPECT_TRUE(action("yrexEditIntegral")->isEnabled());
    moveTo(at(0.5, 0.4));
    key(Qt::Key_Escape);
    EXPECT_FALSE(action("yrexEditIntegral")->isEnabled()) << "then the marks";
    EXPECT_TRUE(view()->selection().active());
    key(Qt::Key_Escape);
    EXPECT_FALSE(view()->selection().active()) << "then the item";
}

TEST_F(HotAreasTest, tabWalksTheMarks)
{
    openMarks();
    moveTo(at(0.5, 0.4));
    const auto readout = [this] { return fWindow->findChild<WStatusReadout *>()->readout(); };
    key(Qt::Key_Tab);
    EXPECT_TRUE(readout().startsWith("Peak 1200"));
    key(Qt::Key_Tab);
    EXPECT_TRUE(readout().startsWith("Peak 600"));
    key(Qt::Key_Tab);
    EXPECT_TRUE(readout().startsWith("Integral 11")) << readout().toStdString();
    QTest::keyClick(view(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(readout().startsWith("Peak 600"));
    key(Qt::Key_Delete);
    EXPECT_EQ(peakLabels().size(), 1);
}

TEST_F(HotAreasTest, noMarkAnswersInAModeThatDrawsBoxes)
{
    openMarks();
    action("zoomInMode")->trigger();
    const QPoint middle = integralAreas(cMiddle).last();
    drag(middle, middle - QPoint(0, 60));
    EXPECT_NE(lastStep(), "Move Integrals Labels");
    EXPECT_FALSE(readoutAt(middle).startsWith("Integral"));
}

TEST_F(HotAreasTest, aThumbnailLeavesThePlacesOfTheViewAlone)
{
    openMarks();
    fWindow->grab();
    const auto heightOf = [this](double y) {
        double place = 0.0;
        EXPECT_TRUE(plot()->plotter()->scale2Canvas(vertDir, y, place));
        return place;
    };
    QPixmap pixels(400, 300);
    QPainter painter(&pixels);
    const QRectF rect(QPointF(), item()->rect().size());
    plot()->draw(painter, rect);
    const double before = heightOf(0.5);
    QByteArray bytes;
    TDataStream out(&bytes, QIODevice::WriteOnly);
    plot()->setupFullView(out);
    plot()->draw(painter, rect);
    TDataStream in(bytes);
    plot()->resetFullView(in);
    EXPECT_DOUBLE_EQ(heightOf(0.5), before);
}
