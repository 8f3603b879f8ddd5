#include "TYrexStackedItemCtx.h"
#include "TDAYrexItemCtx.h"
#include "TStackItem.h"
#include "plot/T1DStackedBasePlotter.h"

#include <QDateTime>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>
#include <limits>

TEST(TYrexStackedItemCtx, withoutAnItemEverythingIsEmpty)
{
    TYrexStackedItemCtx none(nullptr);
    QByteArray bytes;
    none.setActiveIndex(0);
    none.move({0});
    none.setVisibleRange(0, 5, false);
    none.setClass(0, {});
    none.setClasses({});
    none.restoreClasses({});
    none.setAllColors({Qt::red});
    none.setDisplayMode(groupedMode);
    none.regenerate(1);
    none.update();
    EXPECT_EQ(none.activeIndex(), -1);
    EXPECT_EQ(none.idOf(0), -1);
    EXPECT_EQ(none.anchor(), -1);
    EXPECT_EQ(none.rowOf(0), -1);
    EXPECT_EQ(none.indexOfRow(0), -1);
    EXPECT_EQ(none.pointedIndex(QPoint(1, 1)), -1);
    EXPECT_EQ(none.count(), 0);
    EXPECT_FALSE(none.take(0, bytes));
    EXPECT_FALSE(none.insert(0, bytes));
    EXPECT_FALSE(none.allVisible());
    EXPECT_FALSE(none.selectionEmpty());
    EXPECT_TRUE(none.ids(false, false).isEmpty());
    EXPECT_TRUE(none.visibleOrder().isEmpty());
    EXPECT_EQ(none.factor(0), 1.0);
    EXPECT_EQ(none.relativeFactor(0), 1.0);
    EXPECT_EQ(none.offsetText(0, 2), "");
    EXPECT_FALSE(none.color(0).isValid());
    EXPECT_EQ(none.colorSetting(), 2);
    EXPECT_EQ(none.displayMode(), 0);
    EXPECT_EQ(none.zoomShare(1), 0.0);
}

TEST(TYrexStackedItemCtx, hiddenSpectraPassTheActivePlaceOn)
{
    TStackItem stack(4);
    IStackedItemCtx &ctx = stack.stack();
    ctx.setVisible(2, false);
    ctx.makeCurrent(2);
    EXPECT_EQ(ctx.activeIndex(), 3);
    ctx.setVisible(3, false);
    ctx.makeCurrent(3);
    EXPECT_EQ(ctx.activeIndex(), 0) << "wrapping round";
    ctx.setVisibleRange(3, 0, false);
    ctx.makeCurrent(1);
    EXPECT_EQ(ctx.activeIndex(), 1) << "with all hidden it stays";
    EXPECT_TRUE(ctx.visibleOrder().isEmpty());
    EXPECT_TRUE(ctx.ids(true, false).isEmpty());
    ctx.setVisibleRange(-3, 99, true);
    EXPECT_TRUE(ctx.allVisible());
}

TEST(TYrexStackedItemCtx, numbersAreRelativeToTheActiveSpectrum)
{
    TStackItem stack(3);
    IStackedItemCtx &ctx = stack.stack();
    T1DStackedPlotProperties &own = stack.plot().stackedProperties();
    own.setFactor(1, 6.0);
    own.setOffset(1, 0.5);
    EXPECT_EQ(ctx.offsetText(1, 2), "0.50") << "the active one has none";
    EXPECT_EQ(ctx.relativeFactor(1), 6.0);
    own.setFactor(0, 2.0);
    own.setOffset(0, 0.75);
    EXPECT_EQ(ctx.offsetText(1, 3), "-0.250");
    EXPECT_EQ(ctx.offsetText(2, 1), "-0.8");
    EXPECT_EQ(ctx.relativeFactor(1), 3.0);
    EXPECT_EQ(ctx.relativeFactor(2), 0.5);
    stack.item->spectra().at(1)->setSeriesValue(4.5);
    stack.item->spectra().at(2)->params().append(TSpectrumParam(13, QString(), QString(), -1));
    stack.item->spectra().at(2)->setParamValue(13, 1, "7.25");
    EXPECT_EQ(ctx.arrayedValue(1), 4.5);
    EXPECT_EQ(ctx.arrayedValue(2), 7.25);
}

TEST(TYrexStackedItemCtx, takeAndInsertKeepTheActiveSpectrum)
{
    TStackItem stack(3);
    IStackedItemCtx &ctx = stack.stack();
    ctx.setActiveIndex(2);
    QByteArray bytes;
    ASSERT_TRUE(ctx.take(0, bytes));
    EXPECT_EQ(ctx.title(ctx.activeIndex()), "C");
    ASSERT_TRUE(ctx.insert(99, bytes));
    EXPECT_EQ(ctx.title(2), "A");
    EXPECT_EQ(ctx.idOf(2), 3) << "the highest so far plus one";
    EXPECT_EQ(ctx.title(ctx.activeIndex()), "C");
    ASSERT_TRUE(ctx.insert(0, bytes));
    EXPECT_EQ(ctx.title(ctx.activeIndex()), "C");
    EXPECT_EQ(stack.plot().stackedProperties().colors().size(), 4);
    EXPECT_FALSE(ctx.insert(0, bytes.left(bytes.size() / 2)));
    EXPECT_EQ(ctx.count(), 4);
    stack.item->stack().setAnchor(1);
    ASSERT_TRUE(ctx.insert(2, bytes));
    EXPECT_EQ(ctx.anchor(), 1) << "before the place";
    ASSERT_TRUE(ctx.insert(1, bytes));
    EXPECT_EQ(ctx.anchor(), 2);
}

TEST(TYrexStackedItemCtx, rowsAreClassesWhenGrouped)
{
    TStackItem stack(4);
    IStackedItemCtx &ctx = stack.stack();
    EXPECT_TRUE(ctx.className(0).isNull());
    for (const int index : {1, 3})
        ctx.setClassName(index, "acid");
    ctx.setDisplayMode(groupedMode);
    EXPECT_EQ(ctx.rowOf(3), 1);
    EXPECT_EQ(ctx.indexOfRow(1), 1) << "the first of the class";
    ctx.setActiveIndex(3);
    EXPECT_EQ(ctx.indexOfRow(1), 3) << "the active one, when it is in the class";
    EXPECT_EQ(ctx.indexOfRow(2), -1);
    ctx.setDisplayMode(stackedMode);
    EXPECT_EQ(stack.item->stack().grouped(), 0);
    ctx.move({3, 3, 8});
    ctx.setVisible(0, false);
    EXPECT_EQ(ctx.order(), QVector<int>({3, 0, 1, 2}));
    EXPECT_EQ(ctx.indexOfRow(1), 1);
    EXPECT_EQ(ctx.rowOf(1), 1);
    ctx.refit();
    EXPECT_EQ(stack.plot().stackIndexScale(), TRange(0, 3)) << "a row for each that can be seen";
}

TEST(TYrexStackedItemCtx, coloursAndClasses)
{
    TStackItem stack(3);
    IStackedItemCtx &ctx = stack.stack();
    const QVector<QColor> made = ctx.colors();
    ctx.setAllColors({Qt::red, Qt::green});
    EXPECT_EQ(ctx.colors(), made) << "fewer than spectra";
    EXPECT_FALSE(stack.plot().stackedProperties().hasOwnColors());
    ctx.setAllColors({Qt::red, Qt::green, Qt::blue});
    EXPECT_TRUE(stack.plot().stackedProperties().hasOwnColors());
    EXPECT_EQ(ctx.color2(1), QColor(Qt::green));
    EXPECT_EQ(stack.item->curveColor(), QColor(Qt::red));
    ctx.setColorSetting(singleColorSetting);
    ctx.regenerate(hueSetting);
    EXPECT_EQ(ctx.colors(), made);
    EXPECT_EQ(ctx.colorSetting(), int(singleColorSetting));
    TStackedClassProperties acid;
    acid.name = "acid";
    ctx.setClass(1, acid);
    ctx.setClass(2, {});
    EXPECT_EQ(ctx.className(2), "");
    EXPECT_FALSE(ctx.className(2).isNull()) << "the parameter is made";
    EXPECT_EQ(ctx.classNames(), QStringList({"", "acid"}));
    ctx.setClassName(1, "base");
    ctx.dropClasses();
    EXPECT_TRUE(ctx.classes().isEmpty());
    ctx.generateColors(acid, {-1, 9});
    EXPECT_EQ(ctx.colors(), made);
}

TEST(TYrexStackedItemCtx, findsThePointedCurveOfAStack)
{
    TStackItem stack(3, 101);
    IStackedItemCtx &ctx = stack.stack();
    EXPECT_EQ(ctx.pointedIndex(QPoint(700, 700)), -1) << "an overlay has no rows";
    ctx.setDisplayMode(stackedMode);
    ctx.refit();
    QImage image(1485, 1050, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.scale(0.5, 0.5);
    painter.translate(stack.item->rect().topLeft());
    stack.item->paint(painter);
    painter.end();
    stack.page->setWindowTransform(QTransform::fromScale(0.5, 0.5));
    auto &plotter = *static_cast<T1DStackedBasePlotter *>(stack.plot().plotter());
    for (int row = 0; row < 3; ++row) {
        plotter.setStackMatrix(row);
        const QPointF curve = plotter.scale2Canvas(QPointF(3990, stack.item->spectra().at(row)->values().first()));
        plotter.unsetStackMatrix();
        EXPECT_EQ(ctx.pointedIndex(stack.item->canvasItem2Wnd(curve)), row);
    }
    EXPECT_EQ(ctx.zoomShare(1), 3600.0);
    EXPECT_EQ(ctx.zoomShare(2), 0.0);
}

TEST(TDAYrexItemCtx, sumsARegionAndFindsItsHighestPeak)
{
    QVector<double> y(37, 1.0);
    y[9] = 5.0;
    y[18] = 9.0;
    TCanvasYrexSpectrum item({newSpectrum(y, 4000, 400, cUnitWavenumber, cUnitAbsorbance)}, nullptr, nullptr);
    IDAItemCtx &ctx = *item.daContext();
    auto *peak = new TYrexDPLib::TYrexDPPeak;
    item.currentSpectrum()->peaks().append(peak);
    double value = 0.0;
    TDARegion region;
    region.kind = TDARegion::cSum;
    EXPECT_TRUE(ctx.regionValue(0, region, 3900, 3700, value));
    EXPECT_EQ(value, 3.0) << "both ends included";
    EXPECT_TRUE(ctx.regionValue(0, region, 4e9, -4e9, value));
    EXPECT_EQ(value, 35.0 + 5.0 + 9.0);
    region.kind = TDARegion::cHighestPeak;
    EXPECT_TRUE(ctx.regionValue(0, region, 3500, 2800, value));
    EXPECT_EQ(value, 5.0);
    EXPECT_EQ(item.currentSpectrum()->peaks(), TYrexDPLib::TYrexDPPeakList({peak})) << "the spectrum's own list stays";
    region.kind = TDARegion::cNone;
    EXPECT_TRUE(ctx.regionValue(0, region, 2000, 2001, value));
    EXPECT_EQ(value, std::numeric_limits<double>::min()) << "one sample";
    EXPECT_FALSE(ctx.regionValue(0, region, 2000, 3000, value));
    EXPECT_FALSE(ctx.regionValue(1, region, 2000, 3000, value));
}

TEST(TDAYrexItemCtx, tellsOfTheSeries)
{
    TStackItem stack(2);
    TDAYrexItemCtx &ctx = *stack.item->daContext();
    bool arrayed = false;
    double value = 0.0;
    QDateTime date;
    EXPECT_FALSE(ctx.hasArrayedData(arrayed));
    EXPECT_TRUE(arrayed);
    EXPECT_EQ(ctx.indexOf(1), 1);
    EXPECT_EQ(ctx.indexOf(7), -1);
    EXPECT_TRUE(ctx.date(0, date));
    EXPECT_FALSE(ctx.date(5, date));
    EXPECT_TRUE(ctx.paramValue(0, "Title", value));
    EXPECT_FALSE(ctx.paramValue(0, "Owner", value));
    TDAYrexItemCtx none(nullptr);
    EXPECT_FALSE(none.isArrayed() || none.hasSpectra() || none.hasArrayedData(arrayed));
    EXPECT_EQ(none.count(), 0);
    EXPECT_EQ(none.arrayedValue(0), 0.0);
}

TEST(TCanvasYrexSpectrum, regionsAnswerBeforeThePlot)
{
    TStackItem stack(1);
    QImage image(300, 200, QImage::Format_RGB32);
    QPainter painter(&image);
    stack.item->paint(painter);
    const QPointF onAxis =
        stack.plot().plotter()->getAxisRect(horzDir, stack.plot().plotter()->getPlotCurvesRect()).center();
    const QPoint point = stack.item->canvasItem2Wnd(onAxis);
    EXPECT_EQ(stack.item->hotAreaAt(point).type(), TPlotHotArea::axis);
    TDARegion region;
    region.id = QUuid::createUuid();
    region.from = 2000;
    region.to = 2500;
    stack.plot().changeUnits(horzDir, cUnitMicrometers, false);
    EXPECT_EQ(stack.item->regionHelper().shownRegions({region}, 0).first().from, 5.0);
    EXPECT_TRUE(stack.item->regionHelper().shownRegions({region}, 4).isEmpty());
    stack.item->regionHelper().draw(painter, *stack.plot().plotter(), {region}, 0, stack.item->regionHotAreas());
    ASSERT_EQ(stack.item->regionHotAreas().count(), 2) << "both limits can be taken, what lies between not";
    const QRectF first = stack.item->regionHotAreas().at(0).rect();
    const QRectF second = stack.item->regionHotAreas().at(1).rect();
    for (const QRectF &limit : {first, second})
        EXPECT_EQ(stack.item->hotAreaAt(stack.item->canvasItem2Wnd(limit.center())).id(), region.id);
    const QPointF between = (first.center() + second.center()) / 2.0;
    EXPECT_NE(stack.item->hotAreaAt(stack.item->canvasItem2Wnd(between)).type(), TPlotHotArea::daRegion);
    stack.item->regionHotAreas().append(
        TPlotHotArea(QRectF(onAxis - QPointF(20, 20), QSizeF(40, 40)), 0, TPlotHotArea::daRegion, region.id));
    EXPECT_EQ(stack.item->hotAreaAt(point).type(), TPlotHotArea::daRegion);
    EXPECT_FALSE(stack.item->hotAreaAt(QPoint(-500, -500)).isValid());
}
