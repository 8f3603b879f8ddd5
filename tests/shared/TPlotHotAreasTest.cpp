#include "plot/TPlotHotAreas.h"
#include <gtest/gtest.h>

TEST(TPlotHotAreas, thePriorityThenTheLastOneAnswers)
{
    TPlotHotAreas areas;
    areas.append(TPlotHotArea(QRectF(0, 0, 100, 100), TPlotHotArea::axis, TPlotHotArea::cHorzSubType));
    areas.append(TPlotHotArea(QRectF(0, 0, 50, 50), 4, TPlotHotArea::baselinePoint, 0));
    areas.append(TPlotHotArea(QRectF(0, 0, 50, 50), QUuid::createUuidV5(QUuid(), QString("p")), TPlotHotArea::peak, 1));
    areas.last().setPriority(-1);
    EXPECT_EQ(areas.hit(QPointF(20, 20)).type(), TPlotHotArea::baselinePoint);
    EXPECT_EQ(areas.hit(QPointF(20, 20)).index(), 4);
    EXPECT_EQ(areas.hit(QPointF(80, 80)).type(), TPlotHotArea::axis);
    EXPECT_TRUE(TPlotHotArea::isHVSubType(areas.hit(QPointF(80, 80)), true));
    EXPECT_FALSE(TPlotHotArea::isHVSubType(areas.hit(QPointF(80, 80)), false));

    areas.append(TPlotHotArea(QRectF(10, 10, 4, 4), QUuid(), TPlotHotArea::integral, 0x010));
    areas.last().setPriority(2);
    areas.append(TPlotHotArea(QRectF(0, 0, 100, 100), TPlotHotArea::axis, TPlotHotArea::cVertSubType));
    EXPECT_EQ(areas.hit(QPointF(12, 12)).subType(), 0x010);
    EXPECT_EQ(areas.hit(QPointF(80, 80)).subType(), TPlotHotArea::cVertSubType);
    EXPECT_EQ(areas.hitList(QPointF(12, 12)), (QVector<int>{0, 1, 2, 3, 4}));

    areas.clearBy(TPlotHotArea::axis);
    EXPECT_EQ(areas.count(), 3);
    EXPECT_EQ(areas.hotAreasBy(TPlotHotArea::peak).size(), 1);
    EXPECT_EQ(areas.hitList(areas.at(1).id()), (QVector<int>{1}));
}

TEST(TPlotHotAreas, growByTheReachAndIgnoreEmptyOnes)
{
    TPlotHotAreas areas;
    areas.append(TPlotHotArea(QRectF(50, 50, 0, 20), 1, TPlotHotArea::curve, 0));
    EXPECT_FALSE(areas.hit(QPointF(50, 60)).isValid());
    areas.append(TPlotHotArea(QRectF(50, 50, 10, 10), 2, TPlotHotArea::curve, QUuid()));
    EXPECT_TRUE(areas.hit(QPointF(46, 46)).isValid());
    areas.setReach(2.0);
    EXPECT_FALSE(areas.hit(QPointF(46, 46)).isValid());
    EXPECT_FALSE(areas.at(7).isValid());
}
