#include "SeriesBuilder.h"
#include "TTestPlot.h"
#include "plot/ColorUtils.h"
#include "plot/T1DLabelArranger.h"
#include "plot/TSecondAxisTicks.h"
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <gtest/gtest.h>

// What stands beside and over the curves of several spectra.

namespace {

const QRectF cItem(0.0, 0.0, 1600.0, 1000.0);

/// Flat curves at 1, 2, 3 .. on axes from 0 to one more than there are.
void fillFlat(TTestPlot &plot, int curves)
{
    plot.x = {4000, 400};
    QVector<int> all;
    for (int i = 0; i < curves; ++i) {
        plot.ys.append({i + 1.0, i + 1.0});
        all.append(i);
    }
    plot.title.visible = false;
    plot.fit();
    plot.setRect(cItem);
    plot.stackedProperties().generateColorsVector(TStackedClassProperties(), all);
}

QImage canvas()
{
    QImage image(int(cItem.width()), int(cItem.height()), QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

T1DStackedBasePlotter::TSeries seriesOf(const QVector<QVector<double>> &values)
{
    T1DStackedBasePlotter::TSeries series;
    for (const QVector<double> &each : values)
        series.append(T1DPlotData<double>(each.constData(), each.size()));
    return series;
}

T1DStackedBasePlotter::TSeries sameX(const TTestPlot &plot)
{
    return T1DStackedBasePlotter::TSeries(plot.ys.size(), T1DPlotData<double>(plot.x.constData(), plot.x.size()));
}

} // namespace

TEST(T1DStackedBasePlotter, rowsFollowTheDisplayOrderAndColoursThePlotIndex)
{
    TTestPlot plot;
    fillFlat(plot, 3);
    plot.setStackedDisplayMode(stackedMode);
    QImage image = canvas();
    QMap<int, QRectF> titles;
    {
        QPainter painter(&image);
        plot.plotter()->drawStack(painter, sameX(plot), seriesOf(plot.ys), {0, 1, 2}, false, {2, 0, 1});
        plot.title.visible = true;
        plot.plotter()->drawStackedTitles(painter, {"a", "b", "c"}, {0, 1, 2}, plot.title, QColor(), titles, {2, 0, 1});
    }
    const int wantedRow[] = {2, 0, 1};
    for (int curve = 0; curve < 3; ++curve) {
        plot.plotter()->setStackMatrix(wantedRow[curve]);
        const QPoint pos = plot.plotter()->scale2Canvas(QPointF(2000, curve + 1.0)).toPoint();
        plot.plotter()->unsetStackMatrix();
        EXPECT_EQ(image.pixelColor(pos), Utils::Color::paletteColor(curve));
        EXPECT_EQ(plot.plotter()->indexOfPointedStackedCurve(pos), curve);
    }
    EXPECT_GT(titles.value(2).top(), titles.value(0).top()) << "the curve with index 0 stands in the last row";
    EXPECT_GT(titles.value(1).top(), titles.value(2).top());
}

TEST(T1DStackedBasePlotter, selectedRowsHaveMarksFilledOrHollow)
{
    TTestPlot plot;
    fillFlat(plot, 4);
    plot.setStackedDisplayMode(stackedMode);
    QImage image = canvas();
    QPainter painter(&image);
    plot.plotter()->drawStack(painter, sameX(plot), seriesOf(plot.ys), {0, 1, 2, 3}, false);
    // row 0: two of its three members are not selected; row 2: none is
    plot.plotter()->drawSelectedStackedMark(painter, 1, {0, 0, 2, 7, -1}, {3, 3, 1, 1, 1});
    painter.end();
    const double left = plot.plotter()->getPlotCurvesRect().left() - plot.properties().plotAreaMargin;
    const auto colorBeside = [&](int row, double distance) {
        const double foot = plot.plotter()->getArrayedCurveRect(row).bottom();
        return image.pixelColor(QPointF(left - distance, foot).toPoint());
    };
    const QColor &mark = Utils::Color::cSelectionColors.first();
    EXPECT_EQ(colorBeside(1, 20), mark) << "the active row";
    EXPECT_EQ(colorBeside(3, 10), mark);
    EXPECT_NE(colorBeside(3, 20), mark) << "smaller than that of the active row";
    EXPECT_EQ(colorBeside(0, 9), QColor(Qt::white)) << "hollow";
    EXPECT_EQ(colorBeside(0, 14), mark) << "its rim";

    image.fill(Qt::white);
    painter.begin(&image);
    plot.plotter()->drawSelectedStackedMark(painter, 1, {}, {});
    painter.end();
    EXPECT_EQ(colorBeside(1, 20), mark);
    EXPECT_EQ(colorBeside(3, 10), QColor(Qt::white)) << "that all are selected needs no telling";
    EXPECT_EQ(colorBeside(2, 10), QColor(Qt::white)) << "no mark";
}

TEST(T1DStackedBasePlotter, dashesTellCurvesApartWhenColoursDoNot)
{
    TTestPlot plot;
    fillFlat(plot, 10);
    plot.setStackedDisplayMode(overlayMode);
    const TTestPlotter *plotter = plot.plotter();
    EXPECT_EQ(plotter->arrayedPen(7, 1.0).style(), Qt::SolidLine);
    EXPECT_EQ(plotter->arrayedPen(0, 1.0).color(), plotter->arrayedPen(8, 1.0).color());
    EXPECT_NE(plotter->arrayedPen(8, 1.0).style(), Qt::SolidLine);
    EXPECT_EQ(plotter->arrayedPen(0, 1.6).widthF(), 1.6 * plot.properties().curvePen.widthF());
    plot.setState(TBasePlot::cBlackAndWhite, true);
    QVector<QVector<qreal>> cues;
    for (int i = 0; i < 4; ++i) {
        const QVector<qreal> cue = plotter->arrayedPen(i, 1.0).dashPattern();
        EXPECT_FALSE(cues.contains(cue)) << i;
        cues.append(cue);
    }
    EXPECT_EQ(plotter->ink(Utils::Color::paletteColor(1)), QColor(Qt::black));
    EXPECT_NE(plotter->ink(Utils::Color::paletteColor(5)), QColor(Qt::black));
    plot.setState(TBasePlot::cBlackAndWhite, false);
    plot.stackedProperties().setColorMode(sequentialColors);
    EXPECT_EQ(plotter->arrayedPen(8, 1.0).style(), Qt::SolidLine) << "a ramp needs no second cue";
}

TEST(T1DStackedBasePlotter, manyCurvesLookAsIfDrawnOneByOne)
{
    TTestPlot plot;
    plot.x = SeriesBuilder::evenSteps(4000, 400, 700);
    QVector<int> orders;
    for (int i = 0; i < TCurveLayer::cWorthIt + 1; ++i) {
        plot.ys.append(SeriesBuilder::absorbance(plot.x, 0.02, i));
        orders.append(i);
    }
    plot.title.visible = false;
    plot.fit();
    plot.setRect(cItem);
    plot.setStackedDisplayMode(overlayMode);
    plot.stackedProperties().generateColorsVector({QString(), QColor(), sequentialColors}, orders);
    QImage together = canvas();
    QImage single = canvas();
    {
        QPainter painter(&together);
        plot.plotter()->drawOverlay(painter, sameX(plot), seriesOf(plot.ys), orders, -1);
        QPainter other(&single);
        for (const int i : qAsConst(orders))
            plot.plotter()->drawActive(other, sameX(plot).first(), seriesOf(plot.ys).at(i), i);
    }
    int largest = 0;
    for (int y = 0; y < together.height(); ++y) {
        for (int x = 0; x < together.width(); ++x) {
            const QColor l = together.pixelColor(x, y);
            const QColor r = single.pixelColor(x, y);
            largest = std::max(
                {largest, std::abs(l.red() - r.red()), std::abs(l.green() - r.green()), std::abs(l.blue() - r.blue())});
        }
    }
    EXPECT_LE(largest, 6) << "roundings of half-covered pixels, layer upon layer";
}

TEST(T1DStackedBasePlotter, theLegendTakesTheEmptiestCorner)
{
    for (const bool obstacle : {false, true}) {
        TTestPlot plot;
        fillFlat(plot, 2);
        plot.setFullScale(vertDir, 0.0, 3.0);
        plot.setScaleToFull(vertDir);
        plot.setStackedDisplayMode(overlayMode);
        plot.x = SeriesBuilder::evenSteps(4000, 400, 500);
        plot.ys = {QVector<double>(500, 2.8), QVector<double>(500, 0.2)};
        for (int i = 250; i < 500; ++i)
            plot.ys[0][i] = 1.5; // at the right the curve leaves the top
        QImage image = canvas();
        QPainter painter(&image);
        const QRectF area = plot.plotter()->getPlotCurvesRect();
        const QRectF corner(area.center().x(), area.top(), area.width() / 2, area.height() / 4);
        const QVector<QRectF> obstacles(obstacle ? 10 : 0, corner);
        plot.plotter()->drawLegend(painter, sameX(plot), seriesOf(plot.ys), {"first", "second"}, {0, 1}, 0, obstacles);
        painter.end();
        int dark = 0;
        for (int y = int(corner.top()); y < int(corner.bottom()); ++y) {
            for (int x = int(corner.left()); x < int(corner.right()); ++x)
                dark += qGray(image.pixel(x, y)) < 200 ? 1 : 0;
        }
        EXPECT_EQ(dark > 0, !obstacle);
    }
}

TEST(ColorUtils, darkPaperTakesPaletteToPaletteAndMirrorsTheRest)
{
    using namespace Utils::Color;
    for (int i = 0; i < cPaletteSize; ++i)
        EXPECT_EQ(onDarkPaper(paletteColor(i)), paletteColor(i, true)) << i;
    EXPECT_EQ(onDarkPaper(Qt::black), QColor(0xF2, 0xF2, 0xF2));
    EXPECT_EQ(onDarkPaper(Qt::darkBlue), QColor(0x8F, 0xB8, 0xFF));
    EXPECT_EQ(onDarkPaper(Qt::darkGreen), QColor(0x6F, 0xD3, 0x9B));
    EXPECT_EQ(onDarkPaper(Qt::blue), QColor(0x6C, 0xA8, 0xFF));
    const QColor white = onDarkPaper(Qt::white); // L 100 becomes 15
    EXPECT_NEAR(white.red(), 38, 2);
    EXPECT_NEAR(white.red(), white.blue(), 1);
    EXPECT_GT(onDarkPaper(QColor(90, 10, 10)).lightness(), 120);
    EXPECT_EQ(onDarkPaper(QColor(90, 10, 10, 77)).alpha(), 77);
    EXPECT_FALSE(onDarkPaper(QColor()).isValid());
    const QVector<QColor> light = sequential(5);
    const QVector<QColor> dark = sequential(5, true);
    for (int i = 0; i < 5; ++i) {
        const QColor mapped = onDarkPaper(light.at(i));
        EXPECT_NEAR(mapped.red(), dark.at(i).red(), 5) << i;
        EXPECT_NEAR(mapped.green(), dark.at(i).green(), 5) << i;
    }
}

TEST(TSecondAxisTicks, wavelengthsBesideWavenumbersHaveRoundNumbersWithRoom)
{
    struct TCase
    {
        double from, to; // wavenumbers
        double factor;   // 1e4: micrometres, 1e7: nanometres
    };
    for (const TCase &each : {TCase{4000, 400, 1e4}, TCase{1800, 600, 1e4}, TCase{12500, 4000, 1e7},
                              TCase{1700, 1690, 1e4}, TCase{50000, 12500, 1e7}}) {
        const auto place = [&](double value, double &at) {
            at = 1500.0 * (each.from - each.factor / value) / (each.from - each.to);
            return at >= -1e-6 && at <= 1500.0 + 1e-6;
        };
        const TSecondAxisTicks ticks(TRange(each.factor / each.from, each.factor / each.to), place,
                                     [](const QString &text) { return 15.0 * text.size(); });
        EXPECT_GE(ticks.major().size(), 3) << each.from;
        EXPECT_EQ(ticks.labels().size(), ticks.major().size());
        double last = -1e9;
        for (int i = 0; i < ticks.major().size(); ++i) {
            double at = 0.0;
            ASSERT_TRUE(place(ticks.major().at(i), at));
            EXPECT_GE(std::abs(at - last), 1.8 * 15.0 * ticks.labels().at(i).size() - 1e-6);
            EXPECT_NEAR(ticks.labels().at(i).toDouble(), ticks.major().at(i), 1e-9) << "what it says is where it is";
            last = at;
        }
    }
    const auto nowhere = [](double, double &) { return false; };
    EXPECT_TRUE(TSecondAxisTicks(TRange(2.5, 25), nowhere, [](const QString &) { return 10.0; }).major().isEmpty());
    EXPECT_TRUE(
        TSecondAxisTicks(TRange(2.5, HUGE_VAL), nowhere, [](const QString &) { return 10.0; }).major().isEmpty());
}

TEST(T1DLabelArranger, noTwoLabelsOverlapAndTheDroppedAreTheWeakest)
{
    QRandomGenerator random(3);
    for (int round = 0; round < 300; ++round) {
        T1DLabelArranger arranger;
        const int count = 1 + int(random.bounded(60));
        for (int i = 0; i < count; ++i) {
            T1DLabelInfo label;
            label.anchor = QPointF(random.bounded(1000.0), random.bounded(500.0));
            label.width = 5.0 + random.bounded(60.0);
            label.height = 20.0;
            label.weight = random.bounded(20);
            label.below = random.bounded(2) == 0;
            arranger.append(label);
        }
        const int orientation = round % 2;
        const int mode = round % 3 == 0 ? T1DLabelArranger::atPeak : T1DLabelArranger::peakStrip;
        arranger.arrange(QRectF(0, 0, 1000, 500), orientation, mode);
        QVector<QRectF> boxes;
        double lightest = 1e9;
        double heaviestDropped = -1.0;
        for (const T1DLabelInfo &label : arranger.labels()) {
            if (!label.hasRoom) {
                heaviestDropped = std::max(heaviestDropped, label.weight);
                continue;
            }
            lightest = std::min(lightest, label.weight);
            if (mode == T1DLabelArranger::atPeak) {
                QRectF box = label.originalRect(orientation == 1);
                if (label.below)
                    box.translate(0.0, box.height() + T1DLabelInfo::cFootDistance);
                boxes.append(box);
            } else {
                const double extent = orientation == 1 ? label.height : label.width;
                boxes.append(QRectF(label.pos - extent / 2, 0.0, extent, 20.0));
            }
        }
        for (int i = 0; i < boxes.size(); ++i) {
            EXPECT_TRUE(QRectF(-1e-6, -1e-6, 1000 + 2e-6, 500 + 2e-6).contains(boxes.at(i))) << round;
            for (int k = 0; k < i; ++k)
                EXPECT_FALSE(boxes.at(i).adjusted(1e-6, 1e-6, -1e-6, -1e-6).intersects(boxes.at(k))) << round;
        }
        if (mode == T1DLabelArranger::peakStrip) {
            EXPECT_LE(heaviestDropped, lightest) << round;
        }
    }
}
