#include "SeriesBuilder.h"
#include "TTestPlot.h"
#include "stream/TDataStream.h"
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace {

const QRectF cItem(0.0, 0.0, 1600.0, 1000.0);

void fill(TTestPlot &plot, int curves, int points = 400)
{
    plot.x = SeriesBuilder::evenSteps(4000.0, 400.0, points);
    for (int i = 0; i < curves; ++i)
        plot.ys.append(SeriesBuilder::absorbance(plot.x, 0.0, i));
    plot.setAxisLabel(horzDir, "x");
    plot.setAxisLabel(vertDir, "Absorbance");
    plot.fit();
    plot.setRect(cItem);
}

void drawView(TTestPlot &plot, double scale = 0.5)
{
    QImage image(int(cItem.width() * scale), int(cItem.height() * scale), QImage::Format_RGB32);
    QPainter painter(&image);
    painter.scale(scale, scale);
    plot.draw(painter, cItem);
}

QByteArray stored(const TBasePlot &plot)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    plot.store(stream);
    return bytes;
}

} // namespace

TEST(TBasePlot, fullScaleByDirectionDropsCutsAndByAxisKeepsThem)
{
    TTestPlot plot;
    fill(plot, 1);
    ASSERT_TRUE(plot.hideRange(horzDir, TRange(2700, 1900)));
    plot.setFullScale(plot.hAxis(), plot.hRanges(), 4100, 300);
    EXPECT_EQ(plot.horzRanges().toVector(), (QVector<TRange>{{300, 1900}, {2700, 4100}}));
    EXPECT_EQ(plot.horzAxis().getScale(), TRange(4000, 400));
    plot.setFullScale(horzDir, 4000, 400);
    EXPECT_EQ(plot.horzRanges().toVector(), (QVector<TRange>{{400, 4000}}));
    EXPECT_FALSE(plot.hideRange(horzDir, TRange(0, 5000)));
    plot.hideRange(horzDir, TRange(1000, 500));
    plot.showRange(horzDir, TRange(700, 100));
    EXPECT_EQ(plot.horzRanges().toVector(), (QVector<TRange>{{400, 700}, {1000, 4000}}));
    plot.showAll();
    EXPECT_FALSE(plot.horzRanges().hasCuts(plot.horzAxis().getFullScale()));
}

TEST(TBasePlot, aPanMovesTheCurvesAndTheOppositeRestores)
{
    TTestPlot plot;
    fill(plot, 1);
    plot.setScale(horzDir, 3000, 1000);
    const double pixel = 2000.0 / plot.plotter()->getPlotCurvesRect().width();
    plot.panMove(horzDir, 50.0); // to the right: what stood left of the view comes in
    EXPECT_NEAR(plot.horzAxis().getScale().a, 3000 + 50 * pixel, 1e-9);
    plot.panMove(horzDir, -50.0);
    EXPECT_NEAR(plot.horzAxis().getScale().a, 3000, 1e-9);
    EXPECT_NEAR(plot.horzAxis().getScale().b, 1000, 1e-9);

    const TRange before = plot.vertAxis().getScale();
    plot.panMove(vertDir, 100.0); // up: lower values come in
    EXPECT_LT(plot.vertAxis().getScale().a, before.a);
    plot.panMove(vertDir, -100.0);
    EXPECT_NEAR(plot.vertAxis().getScale().b, before.b, 1e-12);

    plot.hideRange(horzDir, TRange(2500, 2000));
    for (const double way : {900.0, -3000.0}) { // across the cut and beyond the full scale
        plot.panMove(horzDir, way);
        plot.panMove(horzDir, -way);
        EXPECT_NEAR(plot.horzAxis().getScale().a, 3000, 1e-6) << way;
        EXPECT_NEAR(plot.horzAxis().getScale().b, 1000, 1e-6) << way;
    }
    plot.panMove(horzDir, 900.0);
    double visible = 0.0;
    for (const TRange &piece : plot.horzRanges().adjustTo(plot.horzAxis().getScale()).toVector())
        visible += piece.span();
    EXPECT_NEAR(visible, 1500.0, 1e-6) << "what is in view keeps its span across the cut";
}

TEST(TBasePlot, intensityScalingKeepsTheBaseline)
{
    TTestPlot plot;
    fill(plot, 1);
    plot.setFullScale(vertDir, -1.0, 3.0);
    plot.setScaleToFull(vertDir);
    plot.changeIntensity(true, 2.0 / TBasePlot::cDefIntensityFactor);
    EXPECT_NEAR(plot.vertAxis().getScale().a, -0.5, 1e-12);
    EXPECT_NEAR(plot.vertAxis().getScale().b, 1.5, 1e-12);
    EXPECT_NEAR(plot.intensityFactor(), 2.0, 1e-12);
    plot.changeIntensity(false, 2.0 / TBasePlot::cDefIntensityFactor);
    EXPECT_NEAR(plot.vertAxis().getFullScale().b, 3.0, 1e-12);
    EXPECT_NEAR(plot.intensityFactor(), 1.0, 1e-12);
    EXPECT_EQ(plot.vertRanges().count(), 1);
}

TEST(T1DStackedPlot, aViewAndTheStreamBringEverythingBack)
{
    TTestPlot plot;
    fill(plot, 3);
    plot.setStackedDisplayMode(stackedMode);
    plot.stackedProperties().setAngle(20);
    plot.properties().frame = boxFrame;
    plot.setScale(horzDir, 1800, 900);
    plot.setScale(plot.intensityAxis(), 0.1, 0.6);
    plot.hideRange(horzDir, TRange(1500, 1200));
    plot.setIntensityFactor(1.5);
    const TPlotData view = plot.getPlotData();
    EXPECT_TRUE(view.isValid());

    TTestPlot read;
    read.ys = plot.ys;
    const QByteArray bytes = stored(plot);
    TDataStream in(bytes);
    read.load(in);
    EXPECT_TRUE(read.getPlotData() == view);
    EXPECT_TRUE(read.properties() == plot.properties());
    EXPECT_TRUE(read.stackedProperties() == plot.stackedProperties());
    EXPECT_EQ(read.horzAxis().label(), "x");
    EXPECT_EQ(stored(read), bytes) << "open and save unchanged";

    plot.setStackedScaleToFull();
    plot.showAll();
    plot.setIntensityFactor(1.0);
    EXPECT_FALSE(plot.getPlotData() == view);
    plot.setPlotData(TPlotData());
    plot.setPlotData(view);
    EXPECT_TRUE(plot.getPlotData() == view);

    for (int length = 0; length < bytes.size(); length += 7) { // no crash, no empty list of ranges
        TTestPlot cut;
        TDataStream stream(bytes.left(length));
        cut.load(stream);
        EXPECT_FALSE(cut.horzRanges().isEmpty());
    }
}

TEST(T1DStackedPlot, theFullViewIsUndone)
{
    TTestPlot plot;
    fill(plot, 1);
    plot.setScale(horzDir, 1800, 900);
    QByteArray changes;
    {
        TDataStream out(&changes, QIODevice::WriteOnly);
        plot.setupFullView(out);
    }
    EXPECT_FALSE(plot.horzAxis().isVisible());
    EXPECT_EQ(plot.horzAxis().getScale(), TRange(4000, 400));
    TDataStream in(changes);
    plot.resetFullView(in);
    EXPECT_TRUE(plot.horzAxis().isVisible());
    EXPECT_EQ(plot.horzAxis().getScale(), TRange(1800, 900));
    EXPECT_EQ(plot.properties().frame, int(axesFrame));
}

TEST(T1DStackedPlot, theModeDecidesWhichAxisStands)
{
    TTestPlot plot;
    fill(plot, 3);
    plot.setStackedDisplayMode(overlayMode);
    EXPECT_EQ(&plot.vertAxis(), &plot.intensityAxis());
    EXPECT_TRUE(plot.hasNumbers(vertDir));
    plot.setStackedDisplayMode(stackedMode);
    EXPECT_EQ(&plot.vertAxis(), &plot.stackIndexAxis());
    EXPECT_FALSE(plot.hasNumbers(vertDir));
    EXPECT_EQ(plot.axisTitle(vertDir), "Absorbance (offset)");
    EXPECT_EQ(plot.stackIndexScale(), TRange(0, 3));
    plot.setStackedDisplayMode(queuedMode);
    EXPECT_EQ(&plot.vertAxis(), &plot.intensityAxis());
    plot.setStackedDisplayMode(stackedMode);
    plot.ys.resize(1); // one spectrum is no stack
    EXPECT_EQ(&plot.vertAxis(), &plot.intensityAxis());
}

TEST(T1DStackedPlot, rowsStandAboveEachOtherAndStepRight)
{
    TTestPlot plot;
    fill(plot, 4);
    plot.setStackedDisplayMode(stackedMode);
    plot.title.visible = false;
    plot.stackedProperties().setAngle(10);
    plot.stackedProperties().setTopMargin(0.1);
    drawView(plot);
    TTestPlotter *plotter = plot.plotter();
    const QRectF whole = plotter->getPlotCurvesRect();
    ASSERT_EQ(plotter->rowCount(), 4);
    const double pitch = 0.9 * whole.height() / 4;
    for (int row = 0; row < 4; ++row) {
        const QRectF band = plotter->getArrayedCurveRect(row);
        EXPECT_NEAR(band.bottom(), whole.bottom() - row * pitch, 1e-6);
        EXPECT_NEAR(band.height(), pitch, 1e-6);
        EXPECT_NEAR(band.left() - whole.left(), row * pitch * std::tan(10 * M_PI / 180), 1e-6);
        EXPECT_LE(band.right(), whole.right() + 1e-6);
    }
    plotter->setStackMatrix(2);
    QPointF pos = plotter->scale2Canvas(QPointF(4000.0, plot.intensityAxis().getScale().a));
    EXPECT_NEAR(pos.x(), plotter->getArrayedCurveRect(2).left(), 1e-6);
    EXPECT_NEAR(pos.y(), plotter->getArrayedCurveRect(2).bottom(), 1e-6);
    const QPointF inPlot = plotter->canvasItem2Plot(pos);
    EXPECT_NEAR(inPlot.x(), whole.left(), 1e-6);
    EXPECT_NEAR(inPlot.y(), whole.bottom(), 1e-6);
    plotter->unsetStackMatrix();
    EXPECT_TRUE(plotter->getStackMatrix().isIdentity());
    // the horizontal axis is that of the front row
    double place = 0.0;
    ASSERT_TRUE(plotter->scale2Canvas(horzDir, 400.0, place));
    EXPECT_NEAR(place, plotter->getArrayedCurveRect(0).right(), 1e-6);

    plot.setStackedDisplayMode(overlayMode);
    EXPECT_EQ(plotter->getArrayedCurveRect(1), plotter->getPlotCurvesRect());
}

TEST(T1DStackedPlot, findsTheCurveUnderThePoint)
{
    TTestPlot plot;
    fill(plot, 2);
    plot.setStackedDisplayMode(overlayMode);
    plot.title.visible = false;
    drawView(plot);
    TTestPlotter *plotter = plot.plotter();
    for (const int curve : {0, 1}) {
        const int i = 75; // where the two stand well apart
        const QPointF pos = plotter->scale2Canvas(QPointF(plot.x.at(i), plot.ys.at(curve).at(i)));
        EXPECT_EQ(plotter->indexOfPointedStackedCurve(pos), curve);
    }
    const QRectF rect = plotter->getPlotCurvesRect();
    EXPECT_EQ(plotter->indexOfPointedStackedCurve(QPointF(rect.center().x(), rect.top() + 5)), -1);
    EXPECT_EQ(plotter->indexOfPointedStackedCurve(QPointF(-500, 0)), -1);

    // a picture of another size leaves what the view has drawn
    const double before = plot.viewScale();
    plot.setState(TBasePlot::cKeepHotAreas, true);
    drawView(plot, 0.1);
    EXPECT_EQ(plot.viewScale(), before);
    EXPECT_EQ(plot.viewReach(12, 15), 24.0);
}

TEST(T1DStackedPlot, stackedTitlesDoNotOverlap)
{
    TTestPlot plot;
    fill(plot, 30);
    plot.setStackedDisplayMode(stackedMode);
    for (int i = 0; i < 30; ++i)
        plot.titles.append(QString("Spectrum %1").arg(i));
    drawView(plot);
    const QList<QRectF> rects = plot.titleRects.values();
    ASSERT_GT(rects.size(), 5);
    for (int i = 0; i < rects.size(); ++i) {
        EXPECT_TRUE(cItem.contains(rects.at(i))) << i;
        for (int k = 0; k < i; ++k)
            EXPECT_FALSE(rects.at(i).adjusted(0.1, 0.1, -0.1, -0.1).intersects(rects.at(k))) << i << ", " << k;
    }
}

TEST(T1DStackedPlot, groupsShareARowAndAQueueStandsSideBySide)
{
    TTestPlot plot;
    plot.x = {4000, 400};
    plot.ys = {{0.2, 0.2}, {0.8, 0.8}, {0.5, 0.5}};
    plot.title.visible = false;
    plot.fit();
    plot.setRect(cItem);
    plot.stackedProperties().setAngle(30);
    plot.setStackedDisplayMode(groupedMode);
    TTestPlotter *plotter = plot.plotter();
    const auto member = [&](int curve, const QColor &color) {
        return T1DStackedBasePlotter::TGroupMember{T1DPlotData<double>(plot.x.constData(), 2),
                                                   T1DPlotData<double>(plot.ys.at(curve).constData(), 2),
                                                   QPen(color, 6.0)};
    };
    QImage image(1600, 1000, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    plotter->drawGroupedStack(painter, {{member(0, Qt::red), member(1, Qt::green)}, {member(2, Qt::blue)}});
    painter.end();
    ASSERT_EQ(plotter->rowCount(), 2);
    EXPECT_EQ(plotter->getArrayedCurveRect(0).left(), plotter->getArrayedCurveRect(1).left()) << "no skew";
    const auto colorAt = [&](int row, double value) {
        plotter->setStackMatrix(row);
        const QPointF pos = plotter->scale2Canvas(QPointF(2000.0, value));
        plotter->unsetStackMatrix();
        return image.pixelColor(pos.toPoint());
    };
    EXPECT_EQ(colorAt(0, 0.2), QColor(Qt::red));
    EXPECT_EQ(colorAt(0, 0.8), QColor(Qt::green));
    EXPECT_EQ(colorAt(1, 0.5), QColor(Qt::blue));

    plot.setStackedDisplayMode(queuedMode);
    drawView(plot);
    ASSERT_EQ(plotter->rowCount(), 3);
    const QRectF whole = plotter->getPlotCurvesRect();
    for (int column = 0; column < 3; ++column) {
        const QRectF rect = plotter->getArrayedCurveRect(column);
        EXPECT_EQ(rect.height(), whole.height());
        if (column > 0) {
            EXPECT_NEAR(rect.left() - plotter->getArrayedCurveRect(column - 1).right(), 40.0, 1e-6);
        }
    }
    EXPECT_NEAR(plotter->getArrayedCurveRect(2).right(), whole.right(), 1e-6);
    // each column holds the whole x range, and the pointed curve is that of the column
    plotter->setStackMatrix(1);
    const QPointF pos = plotter->scale2Canvas(QPointF(1000.0, 0.8));
    plotter->unsetStackMatrix();
    EXPECT_TRUE(plotter->getArrayedCurveRect(1).contains(pos));
    EXPECT_EQ(plotter->indexOfPointedStackedCurve(pos), 1);
}
