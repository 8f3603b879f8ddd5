#include "SeriesBuilder.h"
#include "TTestPlot.h"
#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <gtest/gtest.h>

namespace {

constexpr double cWidth = 1600.0; // canvas units: 160 mm
constexpr double cHeight = 1000.0;

void setUp(TTestPlot &plot, int curves)
{
    plot.x = SeriesBuilder::evenSteps(4000.0, 400.0, 3601);
    for (int i = 0; i < curves; ++i)
        plot.ys.append(SeriesBuilder::absorbance(plot.x, 0.004, i));
    plot.text = QStringLiteral("Ethyl acetoacetate, film on ZnSe, 4 cm^-1, 64 scans");
    plot.setAxisLabel(horzDir, QStringLiteral("Wavenumber [cm^-1]"));
    plot.setAxisLabel(vertDir, QStringLiteral("Absorbance"));
    QVector<int> all;
    for (int i = 0; i < curves; ++i) {
        all.append(i);
        plot.titles.append(QStringLiteral("Sample %1").arg(i + 1));
    }
    plot.stackedProperties().generateColorsVector(TStackedClassProperties(), all);
    plot.fit();
}

QImage rendered(TTestPlot &plot, int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(width / cWidth, height / cHeight);
    plot.draw(painter, QRectF(0.0, 0.0, cWidth, cHeight));
    return image;
}

/// With YREX_PICTURES set to a folder, pictures are left there to be looked at.
void keep(TTestPlot &plot, const QString &name)
{
    const QString folder = qEnvironmentVariable("YREX_PICTURES");
    if (folder.isEmpty())
        return;
    rendered(plot, 1600, 1000).save(folder + "/" + name + ".png");
    QSvgGenerator svg;
    svg.setFileName(folder + "/" + name + ".svg");
    svg.setViewBox(QRectF(0.0, 0.0, cWidth, cHeight));
    svg.setSize(QSize(600, 375));
    QPainter painter(&svg);
    plot.draw(painter, QRectF(0.0, 0.0, cWidth, cHeight));
    painter.end();
    QPdfWriter pdf(folder + "/" + name + ".pdf");
    pdf.setResolution(1200);
    pdf.setPageSize(QPageSize(QSizeF(cWidth / 10, cHeight / 10), QPageSize::Millimeter));
    pdf.setPageMargins(QMarginsF());
    painter.begin(&pdf);
    painter.scale(pdf.width() / cWidth, pdf.height() / cHeight);
    plot.draw(painter, QRectF(0.0, 0.0, cWidth, cHeight));
    painter.end();
}

} // namespace

TEST(Picture, curveAndAxesStandWhereTheScalesSay)
{
    TTestPlot plot;
    setUp(plot, 1);
    const QImage image = rendered(plot, 1600, 1000);
    const QRectF curves = plot.plotter()->getPlotCurvesRect();
    ASSERT_TRUE(QRectF(0, 0, cWidth, cHeight).contains(curves));
    const QRgb curve = plot.properties().curvePen.color().rgb();
    for (const int i : {0, 500, 1000, 2288, 3000, 3600}) { // on slopes and on the highest band
        const QPointF pos = plot.plotter()->scale2Canvas(QPointF(plot.x.at(i), plot.ys.at(0).at(i)));
        const QPoint pixel(qBound(int(curves.left()) + 1, int(pos.x()), int(curves.right()) - 1), int(pos.y()));
        EXPECT_EQ(image.pixel(pixel), curve) << i;
    }
    const double margin = plot.properties().plotAreaMargin;
    double x = 0.0;
    ASSERT_TRUE(plot.plotter()->scale2Canvas(horzDir, 2000.0, x));
    EXPECT_LT(qGray(image.pixel(qRound(x - 0.5), int(curves.bottom() + margin + 10))), 80) << "a tick";
    EXPECT_EQ(image.pixel(qRound(x) + 8, int(curves.bottom() + margin + 10)), qRgb(255, 255, 255));
    EXPECT_LT(qGray(image.pixel(700, qRound(curves.bottom() + margin - 0.5))), 80) << "the axis line";
    keep(plot, "single");
}

TEST(Picture, nothingIsCutAtTheBorderInAnySize)
{
    TTestPlot plot;
    setUp(plot, 1);
    for (double &value : plot.ys[0])
        value = (value - 0.5) * 3e6;
    plot.fit();
    plot.text += plot.text + plot.text;
    for (const double scale : {0.25, 1.0, 2.0}) {
        const QImage image = rendered(plot, int(cWidth * scale), int(cHeight * scale));
        for (int column = 0; column < image.width(); ++column) {
            ASSERT_EQ(image.pixel(column, 0), qRgb(255, 255, 255)) << scale;
            ASSERT_EQ(image.pixel(column, image.height() - 1), qRgb(255, 255, 255)) << scale;
        }
        for (int row = 0; row < image.height(); ++row) {
            ASSERT_EQ(image.pixel(0, row), qRgb(255, 255, 255)) << scale;
            ASSERT_EQ(image.pixel(image.width() - 1, row), qRgb(255, 255, 255)) << scale;
        }
    }
    EXPECT_EQ(plot.plotter()->axisTicks(vertDir).exponent(), 6);
}

TEST(Picture, theLayoutDoesNotDependOnTheDevice)
{
    TTestPlot plot;
    setUp(plot, 1);
    rendered(plot, 1600, 1000);
    const QRectF curves = plot.plotter()->getPlotCurvesRect();
    rendered(plot, 371, 233);
    EXPECT_EQ(plot.plotter()->getPlotCurvesRect(), curves);
    plot.setScale(horzDir, 1800.0, 900.0); // a zoom moves nothing
    EXPECT_EQ(plot.plotter()->getPlotCurvesRect(), curves);
    plot.title.visible = false;
    EXPECT_LT(plot.plotter()->getPlotCurvesRect().top(), curves.top());
}

TEST(Picture, hiddenRangesAreLeftOut)
{
    TTestPlot plot;
    setUp(plot, 1);
    plot.hideRange(horzDir, TRange(2700, 1900));
    const QImage image = rendered(plot, 1600, 1000);
    TTestPlotter *plotter = plot.plotter();
    double left = 0.0;
    double right = 0.0;
    double hidden = -1.0;
    ASSERT_TRUE(plotter->scale2Canvas(horzDir, 2700.0, left));
    ASSERT_TRUE(plotter->scale2Canvas(horzDir, 1900.0, right));
    EXPECT_FALSE(plotter->scale2Canvas(horzDir, 2300.0, hidden));
    EXPECT_NEAR(right - left, TBasePlotter::cCutGap, 1e-9);
    const QRectF curves = plotter->getPlotCurvesRect();
    for (int row = int(curves.top()); row < int(curves.bottom()); ++row)
        EXPECT_EQ(image.pixel(int((left + right) / 2), row), qRgb(255, 255, 255)) << row;
    const TRanges visible = plot.horzRanges().adjustTo(plot.horzAxis().getScale());
    const QVector<TRange> places = plotter->rangesToCanvasUnits(horzDir, visible, curves.left(), curves.right());
    ASSERT_EQ(places.size(), 2); // in the order of the values, so the right one first
    EXPECT_NEAR(places.at(0).a, right, 1e-9);
    EXPECT_NEAR(places.at(0).b, curves.right(), 1e-9);
    EXPECT_NEAR(places.at(1).b, left, 1e-9);
    EXPECT_EQ(plotter->clippingRanges().size(), 2);
}

TEST(Picture, theActiveCurveOfAnOverlayLiesOnTopAndIsWider)
{
    TTestPlot plot;
    plot.x = {4000, 400};
    plot.ys = {{0.5, 0.5}, {0.5, 0.5}, {0.8, 0.8}};
    plot.stackedProperties().setColors({Qt::red, Qt::green, Qt::blue});
    plot.setStackedDisplayMode(overlayMode);
    plot.fit();
    for (const int active : {0, 1}) {
        plot.active = active;
        const QImage image = rendered(plot, 1600, 1000);
        const QPointF pos = plot.plotter()->scale2Canvas(QPointF(2000, 0.5));
        EXPECT_EQ(image.pixelColor(pos.toPoint()), QColor(active == 0 ? Qt::red : Qt::green));
        const auto thickness = [&](double value, const QColor &color) {
            const QPoint middle = plot.plotter()->scale2Canvas(QPointF(2000, value)).toPoint();
            int count = 0;
            for (int row = middle.y() - 10; row <= middle.y() + 10; ++row)
                count += image.pixelColor(middle.x(), row) == color;
            return count;
        };
        EXPECT_GT(thickness(0.5, active == 0 ? Qt::red : Qt::green), thickness(0.8, Qt::blue));
    }
}

TEST(Picture, whiteWashHidesWhatLiesBehind)
{
    TTestPlot plot;
    plot.x = SeriesBuilder::evenSteps(0, 100, 201);
    plot.ys = {QVector<double>(201, 0.0), QVector<double>(201, 0.0)};
    for (int i = 0; i < 201; ++i)
        plot.ys[0][i] = std::exp(-std::pow((plot.x.at(i) - 50.0) / 10.0, 2)); // rises over the foot of the second
    plot.stackedProperties().setColors({Qt::red, Qt::blue});
    plot.stackedProperties().setSpacing(40);
    plot.fit();
    for (const int mode : {int(stackedMode), int(hiddenLinesMode)}) {
        plot.setStackedDisplayMode(mode);
        const QImage image = rendered(plot, 1600, 1000);
        plot.plotter()->setStackMatrix(1);
        const QPoint behind = plot.plotter()->scale2Canvas(QPointF(50.0, 0.0)).toPoint();
        plot.plotter()->unsetStackMatrix();
        EXPECT_EQ(image.pixelColor(behind), QColor(mode == stackedMode ? Qt::blue : Qt::white)) << mode;
    }
}

TEST(Picture, svgKeepsTextAsTextAndOnePathPerCurve)
{
    TTestPlot plot;
    setUp(plot, 1);
    plot.x = SeriesBuilder::evenSteps(4000.0, 400.0, 300001);
    plot.ys[0] = SeriesBuilder::absorbance(plot.x, 0.01);
    QBuffer buffer;
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setViewBox(QRectF(0.0, 0.0, cWidth, cHeight));
    QPainter painter(&svg);
    plot.draw(painter, QRectF(0.0, 0.0, cWidth, cHeight));
    painter.end();
    const QString text = QString::fromUtf8(buffer.data());
    for (const QString &part : {QString(">Absorbance</text>"), QString(">Wavenumber [cm</text>"),
                                QString(">") + QChar(0x2212) + "1</text>", QString(">4000</text>")})
        EXPECT_TRUE(text.contains(part)) << part.toStdString();
    EXPECT_EQ(text.count("<path"), 1);
    EXPECT_FALSE(text.contains("nan"));
    EXPECT_LT(text.size(), 4 * 8000 * 20); // four points a column of 1200 dpi, not 300,000
    EXPECT_TRUE(text.contains(plot.properties().curvePen.color().name()));
}

TEST(Picture, overlayInEveryFormat)
{
    TTestPlot plot;
    setUp(plot, 5);
    plot.setStackedDisplayMode(overlayMode);
    keep(plot, "overlay");
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&buffer);
    pdf.setResolution(1200);
    QPainter painter(&pdf);
    painter.scale(5.0, 5.0);
    plot.draw(painter, QRectF(0.0, 0.0, cWidth, cHeight));
    painter.end();
    EXPECT_TRUE(buffer.data().contains("LiberationSans")) << "text with its font";
}

TEST(Picture, aPlotWithoutDataOrRoomDraws)
{
    TTestPlot plot;
    plot.setAxisLabel(horzDir, "Wavenumber [cm^-1]");
    plot.text = "Empty";
    rendered(plot, 1600, 1000);
    QImage image(50, 50, QImage::Format_RGB32);
    QPainter painter(&image);
    plot.draw(painter, QRectF(0.0, 0.0, 20.0, 15.0));
    plot.draw(painter, QRectF());
    TTestPlot flat;
    flat.x = {1000.0, 1000.0};
    flat.ys = {{3.0, 3.0}};
    flat.fit();
    rendered(flat, 320, 200);
    EXPECT_TRUE(std::isfinite(flat.plotter()->scale2Canvas(QPointF(1000.0, 3.0)).y()));
}
