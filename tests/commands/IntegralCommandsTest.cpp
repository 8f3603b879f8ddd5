// The commands on integrals: what they change, how far they reach in a stack, and that undo and redo come back.
#include "DoneEntry.h"
#include "TCmdYrexDeleteIntegrals.h"
#include "TCmdYrexEditArrayedIntegrals.h"
#include "TCmdYrexEditIntegral.h"
#include "TCmdYrexEditIntegrals.h"
#include "TCmdYrexEditIntegralsNormalization.h"
#include "TCmdYrexIntegralCurveMove.h"
#include "TCmdYrexIntegralElementMove.h"
#include "TCmdYrexIntegralNormalize.h"
#include "TCmdYrexManualIntegration.h"
#include "TStackItem.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr int cUnit = cUnitWavenumber;
const double cNaN = std::numeric_limits<double>::quiet_NaN();

double xAt(double index)
{
    return 4000.0 - 180.0 * index;
}

/// A stack of 21 points with regions from point a to b, drawn in all spectra.
struct TIntegrated : TStackItem
{
    explicit TIntegrated(int count, const QVector<QPair<double, double>> &regions = {{2, 6}, {10, 14}})
        : TStackItem(count, 21)
    {
        for (const auto &region : regions)
            draw(region.first, region.second);
    }
    bool draw(double a, double b)
    {
        return history().push(new TCmdYrexManualIntegration({item}, 0, xAt(a), xAt(b), cUnit, cUnitAbsorbance));
    }
    TYrexIntegrationRegions &regions(int index = 0) { return item->stack().at(index)->integrals(); }
    TYrexIntegrationRegion &region(int place, int index = 0) { return *regions(index).at(place); }
    TCommand *edit(int place, int edge, double x)
    {
        return new TCmdYrexEditIntegral(item, region(place).id, edge, x, cUnit);
    }
    /// Undone after a step whose own undo replaced all spectra.
    ::testing::AssertionResult swapsAfterAnUndo(TCommand *command)
    {
        const auto result = swaps(command);
        const QByteArray done = bytes();
        if (!result || !draw(0, 20))
            return result;
        for (int i = 0; i < 2; ++i)
            history().stack()->undo();
        history().stack()->redo();
        return bytes() == done ? result : ::testing::AssertionFailure() << "lost its spectra";
    }
    std::string names() { return doneNames(history()); }
    void groupFirstTwo()
    {
        for (int i = 0; i < item->stack().count(); ++i)
            item->stack().at(i)->setSpectrumClass(i < 2 ? "near" : "far");
        stack().setDisplayMode(groupedMode);
    }
};

} // namespace

TEST(IntegralCommands, theFirstRegionIsTheReference)
{
    TIntegrated stack(1, {});
    EXPECT_TRUE(stack.swaps(new TCmdYrexManualIntegration({stack.item}, 0, xAt(2), xAt(6), cUnit, cUnitAbsorbance)));
    EXPECT_TRUE(stack.region(0).reference);
    EXPECT_EQ(stack.regions().integralValue(&stack.region(0), false), 1.0);
    EXPECT_EQ(stack.names(), "Integral|Units|Mode|From|To");
    EXPECT_TRUE(stack.swaps(new TCmdYrexManualIntegration({stack.item}, 0, 99999, xAt(10), cUnit, cUnitAbsorbance)));
    EXPECT_EQ(stack.region(1).boundA, 0.0) << "held inside the data";
    for (const double x : {99999.0, cNaN, std::numeric_limits<double>::infinity()})
        EXPECT_FALSE(stack.history().push(new TCmdYrexManualIntegration({stack.item}, 0, x, x, cUnit, 12)));
}

TEST(IntegralCommands, aRegionIsDrawnInTheSelectedSpectra)
{
    for (const int mode : {activeOnlyMode, overlayMode, stackedMode, groupedMode}) {
        TIntegrated stack(3, {});
        stack.stack().setDisplayMode(mode);
        stack.item->stack().setDeselected(1, true);
        EXPECT_TRUE(stack.swapsAfterAnUndo(
            new TCmdYrexManualIntegration({stack.item}, 0, xAt(6), xAt(2), cUnit, cUnitAbsorbance)));
        EXPECT_EQ(stack.regions(0).count(), 1);
        EXPECT_EQ(stack.regions(1).count(), 0);
        EXPECT_EQ(stack.regions(2).count(), 1);
        EXPECT_NE(stack.region(0, 0).area, stack.region(0, 2).area);
        EXPECT_EQ(stack.names(), "#3 Integral|Units|Mode|From|To");
    }
}

TEST(IntegralCommands, boundsDoNotCrossEachOther)
{
    TIntegrated stack(1);
    EXPECT_TRUE(stack.swapsAfterAnUndo(stack.edit(0, 1, xAt(3))));
    EXPECT_EQ(stack.region(0).boundA, 3.0);
    const double area = stack.region(0).area;
    EXPECT_TRUE(stack.swaps(stack.edit(0, 3, xAt(8))));
    EXPECT_EQ(stack.region(0).boundB, 8.0);
    EXPECT_GT(stack.region(0).area, area);
    for (TCommand *refused : {stack.edit(0, 1, xAt(8)), stack.edit(0, 1, xAt(9)), stack.edit(0, 3, xAt(2)),
                              stack.edit(0, 2, xAt(4)), stack.edit(0, 3, cNaN)})
        EXPECT_FALSE(stack.history().push(refused));
    EXPECT_FALSE(stack.history().push(new TCmdYrexEditIntegral(stack.item, QUuid::createUuid(), 1, xAt(3), cUnit)));
    EXPECT_FALSE(stack.history().push(new TCmdYrexEditIntegral(nullptr, stack.region(0).id, 1, xAt(3), cUnit)));
    stack.draw(19, 16);
    EXPECT_TRUE(stack.swaps(stack.edit(2, 1, xAt(17)))) << "bounds in falling order";
    EXPECT_FALSE(stack.history().push(stack.edit(2, 1, xAt(15))));
    const TYrexIntegrationRegion whole(1.0, 4.0, TYrexIntegrationRegion::cAutomatic);
    const QUuid id = stack.region(0).id;
    EXPECT_TRUE(stack.swapsAfterAnUndo(new TCmdYrexEditIntegral({stack.item}, whole, id)));
    EXPECT_EQ(stack.region(0).id, id);
    EXPECT_TRUE(stack.region(0).reference);
    EXPECT_EQ(stack.region(0).mode, int(TYrexIntegrationRegion::cManual));
    EXPECT_EQ(stack.region(0).boundB, 4.0);
}

TEST(IntegralCommands, editsReachTheGroupAndNoFurther)
{
    TIntegrated stack(3);
    EXPECT_TRUE(stack.swaps(stack.edit(0, 3, xAt(7))));
    EXPECT_EQ(stack.region(0, 1).boundB, 6.0) << "without groups";
    stack.groupFirstTwo();
    EXPECT_TRUE(stack.swapsAfterAnUndo(stack.edit(0, 1, xAt(1))));
    EXPECT_EQ(stack.region(0, 1).boundA, 1.0);
    EXPECT_GT(stack.region(0, 1).area, stack.region(0, 2).area - 20.0);
    EXPECT_EQ(stack.region(1, 1).boundA, 10.0) << "does not overlap";
    EXPECT_EQ(stack.region(0, 2).boundA, 2.0) << "another group";
}

TEST(IntegralCommands, deletionReachesWhatTheRectangleTouches)
{
    TIntegrated stack(3);
    const QRectF rect(QPointF(xAt(12), 0.0), QPointF(xAt(5), 0.0));
    EXPECT_TRUE(stack.swapsAfterAnUndo(new TCmdYrexDeleteIntegrals({stack.item}, rect, cUnit)));
    EXPECT_EQ(stack.regions(0).count(), 0);
    EXPECT_EQ(stack.regions(1).count(), 2) << "only the current spectrum without groups";
    EXPECT_EQ(stack.names(), "Integrals");
    EXPECT_EQ(doneParams(stack.history()).first().fValue.toString(), "Zarnu Integrals Spectrum #1");
    stack.history().stack()->undo();
    const QRectF beside(QPointF(xAt(8), 0.0), QPointF(xAt(7), 0.0));
    EXPECT_FALSE(stack.history().push(new TCmdYrexDeleteIntegrals({stack.item}, beside, cUnit)));
    stack.groupFirstTwo();
    EXPECT_TRUE(stack.swapsAfterAnUndo(new TCmdYrexDeleteIntegrals({stack.item}, QVector<int>{1, 9, -1})));
    EXPECT_EQ(stack.regions(0).count(), 1);
    EXPECT_EQ(stack.regions(1).count(), 1) << "the same bounds in the same group";
    EXPECT_EQ(stack.regions(2).count(), 2);
    EXPECT_TRUE(stack.swaps(new TCmdYrexDeleteIntegrals({stack.item})));
    EXPECT_EQ(stack.regions(0).count() + stack.regions(1).count(), 0);
    EXPECT_FALSE(stack.history().push(new TCmdYrexDeleteIntegrals({stack.item})));
}

TEST(IntegralCommands, listsAreExchangedWhole)
{
    TIntegrated stack(3);
    TYrexIntegrationRegions other;
    other.append(TYrexIntegrationRegion(1, 19, TYrexIntegrationRegion::cAutomatic));
    other.setNormValue(7.0);
    EXPECT_TRUE(stack.swapsAfterAnUndo(new TCmdYrexEditIntegrals(stack.item, other)));
    EXPECT_EQ(stack.regions(0).count(), 1);
    EXPECT_EQ(stack.regions(0).normValue(), 7.0);
    EXPECT_FALSE(stack.history().push(new TCmdYrexEditIntegrals(stack.item, other))) << "the same once more";
    EXPECT_TRUE(stack.swaps(new TCmdYrexEditArrayedIntegrals(stack.item, {{1, other}, {2, {}}, {9, other}})));
    EXPECT_EQ(stack.regions(2).count(), 0);
    EXPECT_EQ(stack.names(), "#2 Integrals|#3 Integrals");
    EXPECT_FALSE(stack.history().push(new TCmdYrexEditIntegrals(nullptr, other)));
}

TEST(IntegralCommands, normalizationComesBack)
{
    TIntegrated stack(3);
    EXPECT_TRUE(stack.swapsAfterAnUndo(new TCmdYrexEditIntegralsNormalization({stack.item}, 4.0)));
    EXPECT_EQ(stack.regions(2).normValue(), 4.0);
    EXPECT_EQ(stack.names(), "#1 Normalization Factor|#2 Normalization Factor|#3 Normalization Factor");
    for (const double refused : {0.0, 4.0, cNaN})
        EXPECT_FALSE(stack.history().push(new TCmdYrexEditIntegralsNormalization({stack.item}, refused)));
    stack.region(0).reference = true;
    EXPECT_TRUE(stack.swapsAfterAnUndo(new TCmdYrexIntegralNormalize({stack.item}, 1, 2.5)));
    EXPECT_TRUE(stack.region(1).reference);
    EXPECT_FALSE(stack.region(0).reference);
    EXPECT_EQ(stack.regions(0).normValue(), 2.5);
    EXPECT_EQ(stack.regions(1).normValue(), 4.0);
    for (const int place : {-1, 2})
        EXPECT_FALSE(stack.history().push(new TCmdYrexIntegralNormalize({stack.item}, place, 1.0)));
    stack.region(1).reference = false;
    EXPECT_TRUE(stack.swaps(new TCmdYrexIntegralNormalize({stack.item}, 0, 2.5))) << "none had the flag";
}

namespace {

struct TDrawn : TIntegrated
{
    TDrawn()
        : TIntegrated(1)
    {
        QImage image(400, 300, QImage::Format_ARGB32);
        QPainter painter(&image);
        plot().draw(painter, QRectF(0, 0, 400, 300));
    }
    QRectF area() const { return plot().plotter()->adjustedPlotArea(); }
    TYrexIntegralPlotProperties &places() { return plot().integralProperties(); }
};

} // namespace

TEST(IntegralCommands, curvesGrowFromTheEdgeThatStays)
{
    TDrawn drawn;
    const double height = drawn.area().height();
    const double base = drawn.area().top() + drawn.places().curveMargin * height;
    const QRectF band(10.0, base - 0.2 * height, 100.0, 0.2 * height);
    EXPECT_TRUE(drawn.swaps(new TCmdYrexIntegralCurveMove({drawn.item}, true, 0.1 * height, band)));
    EXPECT_NEAR(drawn.places().curveMaxHeight, 0.6, 1e-12);
    EXPECT_NEAR(drawn.places().curveMargin, 0.3, 1e-12) << "the base stays";
    drawn.history().stack()->undo();
    EXPECT_TRUE(drawn.swaps(new TCmdYrexIntegralCurveMove({drawn.item}, false, -0.1 * height, band)));
    EXPECT_NEAR(drawn.places().curveMaxHeight, 0.6, 1e-12);
    EXPECT_NEAR(drawn.places().curveMargin, 0.4, 1e-12) << "the top stays";
    EXPECT_EQ(drawn.names(), "Integral Curve Max Height|Integral Curve Pos");
    EXPECT_TRUE(drawn.swaps(new TCmdYrexIntegralCurveMove({drawn.item}, true, -height, band)));
    EXPECT_GT(drawn.places().curveMaxHeight, 0.0) << "something is left to drag";
    EXPECT_FALSE(drawn.history().push(new TCmdYrexIntegralCurveMove({drawn.item}, true, 0.0, band)));
    EXPECT_FALSE(drawn.history().push(new TCmdYrexIntegralCurveMove({drawn.item}, true, 5.0, QRectF())));
}

TEST(IntegralCommands, movesOfAGestureAreOneStep)
{
    TDrawn drawn;
    const double height = drawn.area().height();
    const double cuts[] = {drawn.places().rangeMargin, drawn.places().curveMargin, drawn.places().curveMaxHeight};
    for (const int element : {0, 1, 2}) {
        EXPECT_TRUE(drawn.swaps(new TCmdYrexIntegralElementMove({drawn.item}, element, 0.05 * height)));
        const TYrexIntegralPlotProperties &places = drawn.places();
        EXPECT_NEAR((element == 0   ? places.rangeMargin
                     : element == 1 ? places.curveMargin
                                    : places.curveMaxHeight),
                    cuts[element] + 0.05, 1e-12);
    }
    EXPECT_EQ(drawn.history().stack()->undoText(), "Set Integrals Curves Height");
    const QByteArray before = drawn.bytes();
    const int steps = drawn.history().stack()->count();
    drawn.history().beginGesture();
    for (int i = 0; i < 5; ++i)
        drawn.history().push(new TCmdYrexIntegralElementMove({drawn.item}, 0, 0.3 * height));
    drawn.history().endGesture();
    EXPECT_EQ(drawn.places().rangeMargin, 1.0) << "held inside";
    EXPECT_EQ(drawn.history().stack()->count(), steps + 1);
    drawn.history().stack()->undo();
    EXPECT_EQ(drawn.bytes(), before);
    for (const double refused : {0.0, cNaN})
        EXPECT_FALSE(drawn.history().push(new TCmdYrexIntegralElementMove({drawn.item}, 0, refused)));
    EXPECT_FALSE(drawn.history().push(new TCmdYrexIntegralElementMove({drawn.item}, 3, 5.0)));
}
