#include "SpectrumBuilder.h"
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "plot/PainterUtils.h"
#include "plot/TTypesetter.h"
#include "stream/TDataStream.h"

#include <QImage>
#include <QPainter>
#include <QPicture>
#include <QRandomGenerator>
#include <gtest/gtest.h>
#include <limits>

namespace {

using TPeak = TYrexDPLib::TYrexDPPeak;

/// An item whose x is its point index and whose axes show exactly its points and heights 0 to 10.
class TMarksTest : public testing::Test
{
protected:
    explicit TMarksTest(int xUnit = cUnitRamanShift, double first = 0.0, double last = 1000.0)
        : item({newSpectrum(values(), first, last, xUnit, cUnitAbsorbance)}, nullptr, nullptr)
        , plot(*item.activeYrexPlot())
    {
        plot.titleProperties().visible = false;
        plot.setFullScale(vertDir, 0.0, 10.0);
        plot.setScaleToFull(cBothDirs);
    }

    static QVector<double> values()
    {
        QVector<double> y(1001, 1.0);
        return y;
    }

    void draw()
    {
        QImage image(700, 500, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        item.setRect(QRectF(0, 0, 1400, 1000));
        painter.scale(0.5, 0.5);
        item.paint(painter);
    }

    TPeak &addPeak(double position, double intensity, bool positive = true)
    {
        auto *peak = new TPeak;
        peak->position = position;
        peak->intensity = intensity;
        peak->positive = positive;
        item.currentSpectrum()->peaks().append(peak);
        return *peak;
    }

    QUuid addRegion(double from, double to)
    {
        TYrexIntegrationRegion region(from, to, TYrexIntegrationRegion::cManual);
        item.currentSpectrum()->integrals().appendCalculated(region, *item.currentSpectrum(), cUnitAbsorbance);
        return region.id;
    }

    QVector<QRectF> rectsOf(const QUuid &id, int subType) const
    {
        QVector<QRectF> rects;
        for (const TPlotHotArea &area : plot.hotAreasOf(id)) {
            if (area.subType() == subType)
                rects.append(area.rect());
        }
        return rects;
    }

    QRectF curves() const { return plot.plotter()->getPlotCurvesRect(); }
    double place(double x) const
    {
        double result = 0.0;
        EXPECT_TRUE(plot.plotter()->scale2Canvas(horzDir, x, result)) << x;
        return result;
    }

    TCanvasYrexSpectrum item;
    T1DYrexPlot &plot;
};

class TDescendingMarksTest : public TMarksTest
{
protected:
    TDescendingMarksTest()
        : TMarksTest(cUnitWavenumber, 4000.0, 3000.0)
    {
    }
};

void expectNear(const QRectF &rect, const QRectF &wanted)
{
    EXPECT_NEAR(rect.left(), wanted.left(), 1e-6);
    EXPECT_NEAR(rect.top(), wanted.top(), 1e-6);
    EXPECT_NEAR(rect.width(), wanted.width(), 1e-6);
    EXPECT_NEAR(rect.height(), wanted.height(), 1e-6);
}

bool overlap(const QVector<QRectF> &rects)
{
    for (int i = 0; i < rects.size(); ++i) {
        for (int k = 0; k < i; ++k) {
            if (rects.at(i).adjusted(0.01, 0.01, -0.01, -0.01).intersects(rects.at(k)))
                return true;
        }
    }
    return false;
}

} // namespace

TEST_F(TMarksTest, aSegmentStandsAboveTheBottomWithThreeHandles)
{
    const QUuid id = addRegion(200, 400);
    draw();
    const TTypesetter text(Utils::Painter::fontSizeInPixels(plot.integralProperties().font));
    const QRectF r = curves();
    const double y = r.bottom() - r.height() * 0.02 - text.height() - 30.0;
    const double a = place(200);
    const double b = place(400);
    ASSERT_EQ(rectsOf(id, T1DYrexPlot::cSegmentArea).size(), 1);
    expectNear(rectsOf(id, T1DYrexPlot::cSegmentArea).first(), QRectF(a, y - 10, b - a, 20));
    const double shift = 0.67 * 16;
    expectNear(rectsOf(id, T1DYrexPlot::cSegmentLeft).first(), QRectF(a - shift, y - shift, 24, 24));
    expectNear(rectsOf(id, T1DYrexPlot::cSegmentRight).first(), QRectF(b - shift, y - shift, 24, 24));
    expectNear(rectsOf(id, T1DYrexPlot::cSegmentMiddle).first(), QRectF((a + b) / 2 - shift, y - shift, 24, 24));
    const QVector<QRectF> labels = rectsOf(id, T1DYrexPlot::cLabelArea);
    ASSERT_EQ(labels.size(), 1);
    const double width = text.width("1.00");
    expectNear(labels.first(), QRectF((a + b) / 2 - text.height() / 2, y + 35, text.height(), width));
    EXPECT_EQ(plot.hitTest(QPointF(a, y)).subType(), int(T1DYrexPlot::cSegmentLeft)) << "handles come first";

    plot.integralProperties().flags &= ~quint32(TYrexIntegralPlotProperties::cShowSegment);
    draw();
    EXPECT_TRUE(rectsOf(id, T1DYrexPlot::cSegmentArea).isEmpty());
    EXPECT_TRUE(rectsOf(id, T1DYrexPlot::cSegmentLeft).isEmpty());
    EXPECT_EQ(rectsOf(id, T1DYrexPlot::cLabelArea).size(), 1) << "labels stand without segments";
}

TEST_F(TMarksTest, theCurveIsTheRunningSumInItsBand)
{
    const QUuid small = addRegion(100, 200);
    const QUuid large = addRegion(500, 900);
    draw();
    const QRectF r = curves();
    const double base = r.top() + 0.3 * r.height();
    const QRectF curve = rectsOf(large, T1DYrexPlot::cCurveArea).value(0);
    EXPECT_NEAR(curve.bottom(), base, 1e-6);
    // samples are 1, the area of 401 of them is 401, and the sum of the 400 steps rises by half of the height
    EXPECT_NEAR(curve.height(), 0.5 * 0.4 * r.height() * 400.0 / 401.0, 1e-6);
    EXPECT_NEAR(curve.left(), place(500), 1e-6);
    EXPECT_NEAR(curve.right(), place(900), 1e-6);
    const QRectF smallCurve = rectsOf(small, T1DYrexPlot::cCurveArea).value(0);
    EXPECT_NEAR(smallCurve.height(), 0.5 * 0.4 * r.height() * (101.0 / 401.0) * 100.0 / 101.0, 1e-6);
    expectNear(rectsOf(large, T1DYrexPlot::cCurveTop).value(0),
               QRectF(curve.center().x() - 10.72, curve.top() - 10.72, 24, 24));
    expectNear(rectsOf(large, T1DYrexPlot::cCurveBottom).value(0),
               QRectF(curve.center().x() - 10.72, base - 10.72, 24, 24));

    plot.integralProperties().labelPosition = 1;
    plot.integralProperties().labelOrientation = 1;
    draw();
    const TTypesetter text(Utils::Painter::fontSizeInPixels(plot.integralProperties().font));
    expectNear(rectsOf(large, T1DYrexPlot::cLabelArea).value(0),
               QRectF(place(900), curve.top() - text.height() / 2, text.width("3.97"), text.height()));

    plot.integralProperties().flags &= ~quint32(TYrexIntegralPlotProperties::cShowCurve);
    draw();
    const QRectF label = rectsOf(large, T1DYrexPlot::cLabelArea).value(0);
    EXPECT_FALSE(label.isEmpty()) << "without a curve the label goes to the row";
    EXPECT_GT(label.top(), r.center().y());
}

TEST_F(TMarksTest, anIntegralWithoutEnoughSamplesOrRoomShowsNoCurve)
{
    const QUuid thin = addRegion(300, 301);
    draw();
    EXPECT_TRUE(rectsOf(thin, T1DYrexPlot::cCurveArea).isEmpty());
    EXPECT_EQ(rectsOf(thin, T1DYrexPlot::cSegmentArea).size(), 1);
    plot.integralProperties().rangeMargin = 1.0; // the row would stand above the curves
    draw();
    EXPECT_TRUE(plot.hotAreasOf(thin).isEmpty());
    plot.integralProperties().rangeMargin = 0.02;
    draw();
    EXPECT_FALSE(plot.hotAreasOf(thin).isEmpty());
    plot.integralProperties().flags &= ~quint32(TYrexIntegralPlotProperties::cShowIntegrals);
    plot.setState(TBasePlot::cKeepHotAreas, true);
    item.currentSpectrum()->integrals().clear();
    draw();
    EXPECT_FALSE(plot.hotAreasOf(thin).isEmpty()) << "a picture leaves the hot areas of the screen alone";
}

TEST(TYrexIntegralCurve, transmittanceIsSummedAsAbsorbanceWithinLimits)
{
    EXPECT_EQ(TYrexIntegralCurve::summed(0.1, cUnitTransmittance), 1.0);
    EXPECT_EQ(TYrexIntegralCurve::summed(10.0, cUnitPercentTransmittance), 1.0);
    for (const double bad : {0.0, -3.0, 1e-9, std::nan("")})
        EXPECT_EQ(TYrexIntegralCurve::summed(bad, cUnitTransmittance), 4.0) << bad;
    EXPECT_EQ(TYrexIntegralCurve::summed(120.0, cUnitPercentTransmittance), 0.0);
    EXPECT_EQ(TYrexIntegralCurve::summed(-3.0, cUnitAbsorbance), -3.0);
    EXPECT_EQ(TYrexIntegralCurve::summed(std::nan(""), cUnitAbsorbance), 0.0);
}

TEST_F(TDescendingMarksTest, cutsLeaveSegmentsOnEitherSide)
{
    const QUuid id = addRegion(100, 500); // 3900 to 3500
    ASSERT_TRUE(plot.hideRange(horzDir, TRange(3800, 3700)));
    draw();
    const QRectF segment = rectsOf(id, T1DYrexPlot::cSegmentArea).value(0);
    EXPECT_NEAR(segment.left(), place(3900), 1e-6);
    EXPECT_NEAR(segment.right(), place(3500), 1e-6);
    // the label belongs to the piece in the middle of the list, ascending in values: 3800 to 3900
    const QRectF label = rectsOf(id, T1DYrexPlot::cLabelArea).value(0);
    EXPECT_NEAR(label.center().x(), (place(3900) + place(3800)) / 2, 1e-6);
    // the sum runs on through the hidden range: with wavenumbers from left to right
    const QRectF curve = rectsOf(id, T1DYrexPlot::cCurveArea).value(0);
    EXPECT_NEAR(curve.left(), place(3900), 1e-6);
    EXPECT_NEAR(curve.height(), 0.5 * 0.4 * curves().height() * 400.0 / 401.0, 1e-6);
    plot.setScale(horzDir, 3400, 3000);
    draw();
    EXPECT_TRUE(plot.hotAreasOf(id).isEmpty()) << "out of view";
}

TEST_F(TDescendingMarksTest, anotherUnitShowsTheSameCurve)
{
    const QUuid id = addRegion(100, 500);
    draw();
    const QRectF before = rectsOf(id, T1DYrexPlot::cCurveArea).value(0);
    plot.changeUnits(horzDir, cUnitNanometers, false);
    plot.setFullScale(vertDir, 0.0, 10.0);
    draw();
    const QRectF after = rectsOf(id, T1DYrexPlot::cCurveArea).value(0);
    EXPECT_NEAR(after.left(), place(1e7 / 3900), 1e-6);
    EXPECT_NEAR(after.right(), place(1e7 / 3500), 1e-6);
    EXPECT_NEAR(after.height(), before.height(), 1e-6);
}

TEST_F(TMarksTest, stripsHaveTheirPlacesAndKeepClearOfTheCurve)
{
    const TPeak peak = addPeak(300, 1.0);
    TYrexPeakPlotProperties &looks = plot.peakProperties();
    const TTypesetter text(Utils::Painter::fontSizeInPixels(looks.font));
    const double width = text.width("300.00 ");
    const double high = text.ascent() - text.descent();
    for (const int position : {0, 1, 3, 4}) {
        for (const int orientation : {0, 1}) {
            looks.position = position;
            looks.orientation = orientation;
            looks.margin = 0.1;
            draw();
            const QRectF r = curves();
            const double extent = orientation == 1 ? text.height() : width;
            const double depth = 0.1 * r.height() + 15 + extent + 45;
            const bool isBelow = position == 1;
            const double foot = isBelow ? r.bottom() - depth + 45 + extent : r.top() + depth - 45;
            const double x = place(300);
            ASSERT_EQ(rectsOf(peak.id, 1).size(), 1) << position;
            expectNear(rectsOf(peak.id, 1).first(),
                       orientation == 1 ? QRectF(x - width / 2, foot - text.height(), width, text.height())
                                        : QRectF(x + text.height() / 4 - high, foot - width, high, width));
            const QRectF area = plot.plotter()->adjustedPlotArea();
            EXPECT_NEAR(isBelow ? r.bottom() - area.bottom() : area.top() - r.top(), depth, 1e-6);
            EXPECT_FALSE(rectsOf(peak.id, 1).first().intersects(area));
        }
    }
    EXPECT_EQ(plot.hotAreasOf(peak.id).first().priority(), -1);
    looks.flags &= ~quint32(TYrexPeakPlotProperties::cShowLabels);
    draw();
    EXPECT_TRUE(plot.hotAreasOf(peak.id).isEmpty());
    EXPECT_EQ(plot.plotter()->adjustedPlotArea(), curves());
}

TEST_F(TMarksTest, labelsAtThePeakStandAboveOrBelowItOrNotAtAll)
{
    QVector<double> y = values();
    y[200] = 5.0;
    y[600] = 9.9;
    item.currentSpectrum()->setValues(y);
    const TPeak peak = addPeak(200, 5.0);
    const TPeak valley = addPeak(400, 1.0, false);
    const TPeak high = addPeak(600, 9.9);
    plot.peakProperties().position = 2;
    plot.peakProperties().orientation = 1;
    plot.setFullScale(vertDir, -5.0, 10.0);
    plot.setScaleToFull(vertDir);
    draw();
    const TTypesetter text(Utils::Painter::fontSizeInPixels(plot.peakProperties().font));
    const double width = text.width("200.00 ");
    const QPointF anchor = plot.plotter()->scale2Canvas(QPointF(200, 5.0));
    expectNear(rectsOf(peak.id, 1).value(0),
               QRectF(anchor.x() - width / 2, anchor.y() - 30 - text.height(), width, text.height()));
    const QPointF low = plot.plotter()->scale2Canvas(QPointF(400, 1.0));
    EXPECT_NEAR(rectsOf(valley.id, 1).value(0).top(), low.y() + 30, 1e-6);
    EXPECT_TRUE(plot.hotAreasOf(high.id).isEmpty()) << "the top of the plot would cut it";
}

TEST(TYrexMarks, anOverlayHasThemOnTheCurveThatItDraws)
{
    QVector<double> y(1001, 1.0);
    y[200] = 3.0;
    TYrexSpectrum *first = newSpectrum(y, 0.0, 1000.0, cUnitRamanShift, cUnitAbsorbance);
    TYrexSpectrum *second = newSpectrum(y, 0.0, 1000.0, cUnitRamanShift, cUnitAbsorbance);
    TPeak peak;
    peak.position = 200;
    peak.intensity = 3.0;
    peak.positive = true;
    first->peaks().append(new TPeak(peak));
    TCanvasYrexSpectrum item({first, second}, nullptr, nullptr);
    item.setRect(QRectF(0, 0, 1400, 1000));
    T1DYrexPlot &plot = *item.activeYrexPlot();
    item.stackedContext()->makeCurrent(0);
    plot.titleProperties().visible = false;
    plot.peakProperties().position = 2;
    plot.peakProperties().orientation = 1;
    const auto footOfLabel = [&] { // above the height that it belongs to
        plot.setFullScale(vertDir, -10.0, 10.0);
        plot.setScaleToFull(cBothDirs);
        QImage image(700, 500, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(0.5, 0.5);
        item.paint(painter);
        const QVector<TPlotHotArea> areas = plot.hotAreasOf(peak.id);
        return areas.isEmpty() ? qQNaN() : areas.first().rect().bottom();
    };
    const auto above = [&](double height) { return plot.plotter()->scale2Canvas(QPointF(200, height)).y() - 30; };
    plot.setStackedDisplayMode(overlayMode);
    plot.stackedProperties().setFactor(quint32(item.stackedContext()->idOf(0)), 2.0);
    plot.stackedProperties().setOffset(quint32(item.stackedContext()->idOf(0)), -0.5);
    double foot = footOfLabel(); // the draw gives the plot its places
    EXPECT_NEAR(foot, above(2.0 * 3.0 - 0.5), 1e-6);
    plot.fitToHeight();
    EXPECT_GE(plot.intensityAxis().getFullScale().hi(), 5.5) << "the fit sees the curve as it is drawn";
    plot.setStackedDisplayMode(activeOnlyMode);
    foot = footOfLabel();
    EXPECT_NEAR(foot, above(3.0), 1e-6) << "alone it stands as it is";
}

TEST_F(TMarksTest, hiddenPeaksHaveNoLabels)
{
    const TPeak shown = addPeak(300, 1.0);
    const TPeak hidden = addPeak(500, 1.0);
    const TPeak limit = addPeak(600, 1.0);
    plot.hideRange(horzDir, TRange(400, 600));
    for (int position = 0; position < 5; ++position) {
        plot.peakProperties().position = position;
        draw();
        EXPECT_EQ(plot.hotAreasOf(shown.id).size(), 1);
        EXPECT_TRUE(plot.hotAreasOf(hidden.id).isEmpty());
        const int wanted = position == 2 ? 0 : 1; // at the peak itself the hidden range would cut the label
        EXPECT_EQ(plot.hotAreasOf(limit.id).size(), wanted) << "limits belong to what is visible";
    }
}

TEST_F(TMarksTest, noTwoLabelsOverlapWhateverThePeaks)
{
    QRandomGenerator random(17);
    for (int round = 0; round < 40; ++round) {
        TYrexDPLib::deleteAllPeaks(item.currentSpectrum()->peaks());
        item.currentSpectrum()->integrals().clear();
        QVector<double> y(1001);
        for (double &value : y)
            value = 10.0 * random.generateDouble();
        item.currentSpectrum()->setValues(y);
        const int count = 1 + int(random.bounded(90));
        for (int i = 0; i < count; ++i) {
            addPeak(random.bounded(1000), 0.0, random.bounded(4) > 0).annotation = QString(int(random.bounded(5)), 'w');
            const double from = random.bounded(900);
            addRegion(from, from + 3 + random.bounded(90));
        }
        plot.showAll();
        if (round % 3 == 0)
            plot.hideRange(horzDir, TRange(450, 450 + random.bounded(200)));
        plot.peakProperties().position = round % 5;
        plot.peakProperties().orientation = round / 5 % 2;
        plot.integralProperties().labelOrientation = round / 7 % 2;
        draw();
        QVector<QRectF> peaks;
        QVector<QRectF> labels;
        for (const TPlotHotArea &area : plot.hotAreas().hotAreasBy(TPlotHotArea::peak))
            peaks.append(area.rect());
        for (const TPlotHotArea &area : plot.hotAreas().hotAreasBy(TPlotHotArea::integral)) {
            if (area.subType() == T1DYrexPlot::cLabelArea)
                labels.append(area.rect());
        }
        EXPECT_FALSE(peaks.isEmpty()) << round;
        EXPECT_FALSE(overlap(peaks)) << round;
        EXPECT_FALSE(overlap(labels)) << round;
    }
}

TEST_F(TMarksTest, theBaselineHasAHotAreaPerPoint)
{
    TYrexSpectrum &spectrum = *item.currentSpectrum();
    QVector<TYrexBaselinePoint> &points = spectrum.procParams().multipoint().points;
    for (const double x : {100.0, 500.0, 900.0}) {
        TYrexBaselinePoint point;
        point.x = x;
        point.y = 2.0;
        points.append(point);
    }
    draw();
    EXPECT_TRUE(plot.hotAreas().hotAreasBy(TPlotHotArea::baselinePoint).isEmpty()) << "no preview, no points";
    spectrum.allocPreview(1001);
    spectrum.zeroPreview();
    plot.hideRange(horzDir, TRange(450, 550));
    draw();
    const QVector<TPlotHotArea> areas = plot.hotAreas().hotAreasBy(TPlotHotArea::baselinePoint);
    ASSERT_EQ(areas.size(), 3);
    EXPECT_TRUE(areas.at(1).rect().isEmpty()) << "hidden, but it keeps its index";
    EXPECT_EQ(plot.hitTest(plot.plotter()->scale2Canvas(QPointF(900, 2.0))).index(), 2);
    EXPECT_EQ(areas.at(0).rect().center(), plot.plotter()->scale2Canvas(QPointF(100, 2.0)));
}

TEST_F(TMarksTest, highlightsFillTheAreasAndShowTheHandles)
{
    const QUuid id = addRegion(200, 400);
    draw();
    QImage image(1400, 1000, QImage::Format_RGB32);
    const auto highlighted = [&] {
        image.fill(Qt::white);
        QPainter painter(&image);
        plot.drawHighlights(painter);
    };
    highlighted();
    const QPoint inSegment = (rectsOf(id, T1DYrexPlot::cSegmentArea).first().center() + QPointF(40, 0)).toPoint();
    const QPoint inHandle = rectsOf(id, T1DYrexPlot::cCurveTop).first().center().toPoint();
    const QPoint inCentre = rectsOf(id, T1DYrexPlot::cSegmentMiddle).first().center().toPoint();
    EXPECT_EQ(image.pixel(inSegment), qRgb(255, 255, 255));
    plot.setIntegralHighlighted(id, true);
    highlighted();
    EXPECT_EQ(image.pixelColor(inHandle), QColor(245, 160, 0));
    EXPECT_EQ(image.pixel(inCentre), qRgb(255, 255, 255)) << "the handle in the middle is hollow";
    EXPECT_NEAR(image.pixelColor(inSegment).blue(), 153, 3) << "40 % over white";
}

TEST_F(TMarksTest, theHighlightCursorNeedsAVisiblePlace)
{
    draw();
    T1DYrexPlotter &plotter = *static_cast<T1DYrexPlotter *>(plot.plotter());
    uint drawn = 0;
    const auto boundsOf = [&](const QPointF &pos, int mode, const QString &text = QString()) {
        QPicture picture;
        QPainter painter(&picture);
        plotter.drawHighlightCursor(painter, pos, text, mode);
        painter.end();
        drawn = picture.size();
        return QRectF(picture.boundingRect());
    };
    const QRectF r = curves();
    EXPECT_TRUE(boundsOf(QPointF(300, 5), 0).isEmpty());
    const QRectF line = boundsOf(QPointF(300, 5), 1);
    EXPECT_NEAR(line.top(), r.top(), 3.0);
    EXPECT_NEAR(line.bottom(), r.bottom() + 15, 3.0);
    const QRectF ring = boundsOf(QPointF(300, 5), 2);
    EXPECT_NEAR(ring.width(), 60, 5.0);
    EXPECT_NEAR(ring.center().x(), place(300), 2.0);
    const uint withoutText = drawn;
    boundsOf(QPointF(300, 5), 2, "300.0");
    EXPECT_GT(drawn, withoutText);
    plot.hideRange(horzDir, TRange(200, 400));
    EXPECT_TRUE(boundsOf(QPointF(300, 5), 3).isEmpty());
}

TEST_F(TMarksTest, theSimplePlotterKnowsTheBaselineOfItsUnit)
{
    plot.setAxisUnits(vertDir, cUnitPercentTransmittance);
    const std::unique_ptr<TBasePlotter> simple(plot.plotter()->createSimplePlotter());
    EXPECT_EQ(simple->baselineScaleValue(), 100.0);
    EXPECT_NE(simple->id(), plot.plotter()->id());
    plot.setAxisUnits(vertDir, cUnitTransmittance);
    EXPECT_EQ(simple->baselineScaleValue(), 100.0) << "of the moment when it was made";
}

TEST(TYrexMarkProperties, wildNumbersOfAFileAreNotTakenOver)
{
    TYrexPeakPlotProperties peaks;
    peaks.decimals = 1000000000;
    peaks.margin = std::numeric_limits<double>::infinity();
    TYrexIntegralPlotProperties integrals;
    integrals.decimals = -5;
    TYrexIntegralPlotProperties wild;
    wild.curveMargin = std::numeric_limits<double>::quiet_NaN();
    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        peaks.store(out);
        integrals.store(out);
        wild.store(out);
    }
    TDataStream in(bytes);
    TYrexPeakPlotProperties readPeaks;
    readPeaks.load(in);
    EXPECT_EQ(readPeaks.decimals, 8);
    EXPECT_EQ(readPeaks.margin, 0.0);
    TYrexIntegralPlotProperties read;
    read.load(in);
    EXPECT_EQ(read.decimals, 0);
    read.load(in);
    EXPECT_EQ(read.curveMargin, 0.3);
    EXPECT_EQ(read.decimals, 0) << "a block that cannot be right changes nothing";
    TDataStream cut(bytes.left(20));
    readPeaks.load(cut);
    EXPECT_EQ(readPeaks.decimals, 8);
}
