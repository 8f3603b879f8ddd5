#include "T1DYrexPlot.h"
#include "SpectrumBuilder.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "stream/TDataStream.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

namespace {

/// An absorbance spectrum with one band, from high to low wavenumbers.
TYrexSpectrum *band(double height = 1.0)
{
    QVector<double> y(361, 0.01);
    for (int i = 100; i < 260; ++i) // flat beside the band
        y[i] += height * std::exp(-0.5 * std::pow((i - 180) / 10.0, 2));
    return newSpectrum(y, 4000.0, 400.0, cUnitWavenumber, cUnitAbsorbance);
}

QImage drawn(TCanvasYrexSpectrum &item)
{
    QImage image(800, 500, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    item.setRect(QRectF(0, 0, 2970, 2970 * 5 / 8.0));
    painter.scale(800 / item.rect().width(), 800 / item.rect().width());
    item.paint(painter);
    return image;
}

} // namespace

TEST(T1DYrexPlot, wavenumbersRunFromHighToLowWhateverTheData)
{
    for (const bool descending : {false, true}) {
        QVector<double> y(100, 1.0);
        y[50] = 2.0;
        TCanvasYrexSpectrum item({newSpectrum(y, descending ? 4000 : 400, descending ? 400 : 4000, cUnitWavenumber)},
                                 nullptr, nullptr);
        T1DYrexPlot *plot = item.activeYrexPlot();
        ASSERT_NE(plot, nullptr);
        EXPECT_EQ(plot->horzAxis().getScale(), TRange(4000, 400));
        plot->changeUnits(horzDir, cUnitMicrometers, false);
        EXPECT_EQ(plot->horzAxis().getScale(), TRange(2.5, 25));
    }
}

TEST(T1DYrexPlot, axisTitlesComeFromTheDataUnlessTheFlagIsCleared)
{
    TCanvasYrexSpectrum item({band()}, nullptr, nullptr);
    T1DYrexPlot *plot = item.activeYrexPlot();
    EXPECT_EQ(plot->horzAxis().label(), "Wavenumber [cm^-1]");
    EXPECT_EQ(plot->vertAxis().label(), "Absorbance");
    plot->setAxisUnits(vertDir, cUnitCounts);
    EXPECT_EQ(plot->vertAxis().label(), "Absorbance") << "the data know better";
    plot->setAxisLabelFlags(0);
    plot->setAxisUnits(vertDir, cUnitCounts);
    EXPECT_EQ(plot->vertAxis().label(), "Counts");
    plot->setAxisUnits(horzDir, cUnitFieldGauss);
    EXPECT_EQ(plot->horzAxis().label(), "Field (G)");
}

TEST(T1DYrexPlot, theVerticalFitTakesWhatIsInViewOfAllVisibleSpectra)
{
    TCanvasYrexSpectrum item({band(1.0), band(3.0)}, nullptr, nullptr);
    T1DYrexPlot *plot = item.activeYrexPlot();
    const double height = 3.0;
    EXPECT_NEAR(plot->intensityAxis().getScale().hi(), 3.01 + 0.08 * height, 1e-6);
    EXPECT_NEAR(plot->intensityAxis().getScale().lo(), 0.01 - 0.08 * height, 1e-6);
    item.stack().setHidden(1, true);
    plot->fitToHeight();
    EXPECT_NEAR(plot->intensityAxis().getScale().hi(), 1.01 + 0.08, 1e-6);
    plot->setScale(horzDir, 4000, 3000); // no band in view, a flat curve: the axis stays
    plot->fitToHeight();
    EXPECT_NEAR(plot->intensityAxis().getScale().hi(), 1.01 + 0.08, 1e-6);
}

TEST(T1DYrexPlot, theVerticalFitKnowsAllSpectraWhereTheAxisStartsAtZero)
{
    for (const int unit : {int(cUnitNanometers), int(cUnitArbitrary)}) {
        TYrexSpectrumList spectra;
        for (const double height : {1.0, 7.0, 3.0}) {
            QVector<double> y(51, 0.5);
            y[10] = height / 2;
            y[30] = height;
            spectra.append(newSpectrum(y, 0.0, 500.0, unit, cUnitAbsorbance));
        }
        TCanvasYrexSpectrum item(spectra, nullptr, nullptr);
        T1DYrexPlot &plot = *item.activeYrexPlot();
        plot.fitToHeight();
        EXPECT_NEAR(plot.intensityAxis().getScale().hi(), 7.0 + 0.08 * 6.5, 1e-6) << unit;
        plot.setScale(horzDir, 0.0, 200.0); // the highest points are out of view
        plot.fitToHeight();
        EXPECT_NEAR(plot.intensityAxis().getScale().hi(), 3.5 + 0.08 * 3.0, 1e-6) << unit;
    }
}

TEST(T1DYrexPlot, aGentleFitKeepsAScaleThatTheCurveFills)
{
    TCanvasYrexSpectrum item({band()}, nullptr, nullptr);
    T1DYrexPlot *plot = item.activeYrexPlot();
    plot->setScale(vertDir, -1.0, 5.0);
    plot->keepCurveInView();
    EXPECT_EQ(plot->vertAxis().getScale(), TRange(-1.0, 5.0));
    plot->setScale(vertDir, -100.0, 500.0);
    plot->keepCurveInView();
    EXPECT_NEAR(plot->vertAxis().getScale().hi(), 1.09, 1e-6);
}

TEST(T1DYrexPlot, storesAndLoadsTheSame)
{
    TCanvasYrexSpectrum item({band(), band(2.0)}, nullptr, nullptr);
    T1DYrexPlot *plot = item.activeYrexPlot();
    plot->changeUnits(horzDir, cUnitNanometers, false);
    plot->hideRange(horzDir, TRange(4000, 5000));
    plot->peakProperties().decimals = 4;
    plot->integralProperties().flags = 1;
    plot->titleProperties().format = "{File}";
    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        plot->store(out);
    }
    TCanvasYrexSpectrum other({band(), band(2.0)}, nullptr, nullptr);
    TDataStream in(bytes);
    other.activeYrexPlot()->load(in);
    EXPECT_TRUE(in.isGood());
    EXPECT_TRUE(in.atLimit());
    EXPECT_EQ(other.activeYrexPlot()->xUnits(), cUnitNanometers);
    EXPECT_EQ(other.activeYrexPlot()->peakProperties().decimals, 4);
    QByteArray again;
    {
        TDataStream out(&again, QIODevice::WriteOnly);
        other.activeYrexPlot()->store(out);
    }
    EXPECT_EQ(again, bytes);
}

TEST(T1DYrexPlot, aDocumentWithoutIntegralPropertiesGetsTheDefaults)
{
    TCanvasYrexSpectrum item({band()}, nullptr, nullptr);
    QByteArray with;
    QByteArray integrals;
    {
        TDataStream out(&with, QIODevice::WriteOnly);
        item.activeYrexPlot()->store(out);
        TDataStream own(&integrals, QIODevice::WriteOnly);
        item.activeYrexPlot()->integralProperties().store(own);
    }
    constexpr int cBlockHeader = 12;
    const int tail = integrals.size() + 2 * cBlockHeader; // the section around them and the empty one before them
    TCanvasYrexSpectrum older({band()}, nullptr, nullptr);
    older.activeYrexPlot()->integralProperties().decimals = 5;
    TDataStream in(with.left(with.size() - tail));
    older.activeYrexPlot()->load(in);
    EXPECT_TRUE(in.isGood());
    EXPECT_EQ(older.activeYrexPlot()->peakProperties().flags, 0x700u);
    EXPECT_EQ(older.activeYrexPlot()->integralProperties().flags, 23u);
}

TEST(T1DYrexPlot, theSecondAxisTakesRoomAndStandsForLengthsOnly)
{
    TCanvasYrexSpectrum item({band()}, nullptr, nullptr);
    T1DYrexPlot *plot = item.activeYrexPlot();
    drawn(item);
    const double top = plot->plotter()->getPlotCurvesRect().top();
    plot->properties().secondAxis = cUnitMicrometers;
    EXPECT_TRUE(plot->hasSecondAxis());
    EXPECT_GT(plot->plotter()->getPlotCurvesRect().top(), top + 80);
    EXPECT_EQ(plot->secondAxisTitle(), "Wavelength [μm]");
    EXPECT_NEAR(plot->toSecondAxis(2000), 5.0, 1e-12);
    EXPECT_NEAR(plot->fromSecondAxis(5.0), 2000, 1e-9);
    plot->setAxisUnits(horzDir, cUnitMicrometers);
    EXPECT_FALSE(plot->hasSecondAxis()) << "the same unit twice";
    plot->setAxisUnits(horzDir, cUnitRamanShift);
    EXPECT_FALSE(plot->hasSecondAxis());
}

TEST(T1DYrexPlot, stackedTitlesAnswerWithTheIndexOfTheSpectrum)
{
    TYrexSpectrumList spectra;
    for (int i = 0; i < 3; ++i) {
        spectra.append(band(1.0 + i));
        spectra.last()->params().append(TSpectrumParam(1001, QString(), QString(), -1));
        spectra.last()->setParamValue(1001, 1, QString("number %1").arg(i));
    }
    TCanvasYrexSpectrum item(spectra, nullptr, nullptr);
    T1DYrexPlot *plot = item.activeYrexPlot();
    plot->setStackedDisplayMode(stackedMode);
    item.stack().setOrder({item.stack().idOf(2), item.stack().idOf(0), item.stack().idOf(1)});
    drawn(item);
    EXPECT_EQ(plot->rowTitles(), (QStringList{"number 2", "number 0", "number 1"}));
    QMap<int, double> tops;
    for (const TPlotHotArea &area : plot->hotAreas().hotAreasBy(TPlotHotArea::stackedTitle))
        tops.insert(area.index(), area.rect().top());
    ASSERT_EQ(tops.size(), 3);
    EXPECT_GT(tops.value(2), tops.value(0)) << "the first of the order stands lowest";
    EXPECT_GT(tops.value(0), tops.value(1));
    const QRectF axis = plot->plotter()->getAxisRect(vertDir, plot->plotter()->getPlotCurvesRect());
    EXPECT_NE(plot->hitTest(axis.center()).type(), TPlotHotArea::axis) << "the axis of rows is none to drag";

    plot->setState(TBasePlot::cKeepHotAreas, true);
    plot->setStackedDisplayMode(overlayMode);
    drawn(item);
    EXPECT_EQ(plot->hotAreas().hotAreasBy(TPlotHotArea::stackedTitle).size(), 3) << "left alone by a picture";
}

TEST(T1DYrexPlot, theOverviewHidesMarksAndComesBack)
{
    TCanvasYrexSpectrum item({band()}, nullptr, nullptr);
    T1DYrexPlot *plot = item.activeYrexPlot();
    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        plot->setupFullView(out);
    }
    EXPECT_EQ(plot->peakProperties().flags & 0x607, 0u);
    EXPECT_EQ(plot->integralProperties().flags & 1, 0u);
    TDataStream in(bytes);
    plot->resetFullView(in);
    EXPECT_EQ(plot->peakProperties().flags, 0x700u);
    EXPECT_EQ(plot->integralProperties().flags, 23u);
}

TEST(T1DYrexPlot, drawsTheBandWhereItStands)
{
    TCanvasYrexSpectrum item({band()}, nullptr, nullptr);
    const QImage image = drawn(item);
    const T1DYrexPlot *plot = item.activeYrexPlot();
    const QPointF top = plot->plotter()->scale2Canvas(QPointF(2200, 1.01)) * (800 / item.rect().width());
    int darkest = 255;
    for (int dy = -2; dy <= 2; ++dy)
        darkest = qMin(darkest, qGray(image.pixel(qRound(top.x()), qRound(top.y()) + dy)));
    EXPECT_LT(darkest, 160) << "the curve at the band's top";
    EXPECT_EQ(image.pixel(qRound(top.x()), qRound(top.y()) + 40), qRgb(255, 255, 255)) << "below it is paper";
    const QRectF axis = plot->plotter()->getAxisRect(horzDir, plot->plotter()->getPlotCurvesRect());
    EXPECT_EQ(plot->hitTest(axis.center()).type(), TPlotHotArea::axis);
}

TEST(T1DYrexPlot, withoutDataItDrawsNothingAndDoesNotFail)
{
    TCanvasYrexSpectrum item({band()}, nullptr, nullptr);
    T1DYrexPlot stranger(T1DYrexPlot::cSpectrumKind, QUuid::createUuid(), &item);
    EXPECT_EQ(stranger.data(), nullptr);
    stranger.resetView();
    stranger.changeUnits(horzDir, cUnitNanometers, false);
    stranger.keepCurveInView();
    QImage image(100, 100, QImage::Format_RGB32);
    QPainter painter(&image);
    stranger.draw(painter, QRectF(0, 0, 1000, 1000));
}

TEST(T1DYrexPlot, highlightedIntegralsAreAList)
{
    TCanvasYrexSpectrum item({band()}, nullptr, nullptr);
    T1DYrexPlot *plot = item.activeYrexPlot();
    const QUuid id = QUuid::createUuid();
    plot->setIntegralHighlighted(id, true);
    plot->setIntegralHighlighted(id, true);
    plot->setIntegralHighlighted(id, false);
    EXPECT_FALSE(plot->clearHighlightedIntegrals());
    plot->setIntegralHighlighted(id, true);
    EXPECT_TRUE(plot->clearHighlightedIntegrals());
}
