#include "plot/TCurveReducer.h"
#include "SeriesBuilder.h"
#include "plot/TColumnFiller.h"
#include "plot/TCurveCache.h"
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr double cNaN = std::numeric_limits<double>::quiet_NaN();

T1DPlotData<double> view(const QVector<double> &values)
{
    return T1DPlotData<double>(values.constData(), values.size());
}

QVector<int> kept(const QVector<double> &x, const QVector<double> &y, const TLinearMap &column)
{
    const TCurveReducer reducer(view(x), view(y));
    return reducer.indices(column, -1e9, 1e9, reducer.isMonotonic());
}

QImage filled(const QVector<QPointF> &points, int width, int height, double pen)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    TColumnFiller filler(image.rect(), pen);
    filler.addLine(points);
    filler.paint(painter, Qt::black);
    return image;
}

QVector<QPointF> points(const QVector<double> &x, const QVector<double> &y)
{
    QVector<QPointF> result;
    for (int i = 0; i < x.size(); ++i)
        result.append(QPointF(x.at(i), y.at(i)));
    return result;
}

} // namespace

TEST(TCurveReducer, keepsFirstLowestHighestAndLastOfEachColumn)
{
    const QVector<double> y = {-0.802, -1.324, -0.248, 0.42,   1.136,  0.11,   -0.553, -0.785, 0.749,  1.635,
                               0.273,  -1.233, -0.958, 1.6,    0.203,  -1.732, -0.084, -1.163, -0.629, -0.488,
                               -0.713, 0.553,  -0.063, -0.589, 0.41,   0.83,   -1.643, -0.257, -0.981, -0.173,
                               -1.289, 0.021,  -0.038, -0.304, -1.048, -0.396, -1.091, -1.355, 0.225,  -1.109};
    const QVector<int> expected = {0,  1,  4,  5,  6,  9,  11, 12, 13, 15, 16, 17, 21,
                                   22, 23, 25, 26, 27, 28, 30, 31, 33, 34, 37, 38, 39};
    const QVector<double> x = SeriesBuilder::evenSteps(0, 39, 40);
    EXPECT_EQ(kept(x, y, {0.18125, 0.0}), expected);

    // a falling axis walks the same points
    QVector<double> falling = x;
    for (double &value : falling)
        value = -value;
    EXPECT_EQ(kept(falling, y, {-0.18125, 0.0}), expected);
}

TEST(TCurveReducer, partsAtGapsAndKeepsThin)
{
    const QVector<double> x = SeriesBuilder::evenSteps(0, 9, 10);
    const QVector<double> y = {cNaN, 1, 2, cNaN, cNaN, 3, HUGE_VAL, 4, 5, cNaN};
    EXPECT_EQ(kept(x, y, {1.0, 0.0}), (QVector<int>{1, 2, -1, 5, -1, 7, 8}));
    EXPECT_EQ(kept(x, QVector<double>(10, 1.0), {0.4, 0.0}), (QVector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}))
        << "three or fewer in a column";
    EXPECT_TRUE(kept({}, {}, {1.0, 0.0}).isEmpty());
}

TEST(TCurveReducer, denseColumnsKeepWhatThinOnesWould)
{
    constexpr int cCount = 5000;
    const QVector<double> x = SeriesBuilder::evenSteps(0, 10, cCount);
    QVector<double> y = SeriesBuilder::noise(cCount, 3);
    y[700] = y[702] = 5.0; // the first of equals counts
    y[1200] = cNaN;
    y[3600] = -HUGE_VAL;
    QVector<double> apart; // a stride of 2 is walked point by point
    for (const double value : qAsConst(y))
        apart << value << 0.0;
    const TCurveReducer dense(view(x), view(y));
    const TCurveReducer walked(view(x), T1DPlotData<double>(apart.constData(), cCount, 2));
    for (const double columns : {1.0, 7.3, 100.0}) {
        const QVector<int> indices = dense.indices({columns, 0.2}, 0.0, 1e9, true);
        EXPECT_EQ(indices, walked.indices({columns, 0.2}, 0.0, 1e9, true)) << columns;
        EXPECT_EQ(indices.count(TCurveReducer::cBreak), 2);
    }
}

TEST(TCurveReducer, takesOnePointBeyondEachEnd)
{
    const QVector<double> x = SeriesBuilder::evenSteps(0, 99, 100);
    for (const double sign : {1.0, -1.0}) {
        QVector<double> values = x;
        for (double &value : values)
            value *= sign;
        const TCurveReducer reducer(view(values), view(x));
        const QVector<int> indices = reducer.indices({sign, 0.0}, 20.5, 30.5, true);
        EXPECT_EQ(indices.first(), 20) << sign;
        EXPECT_EQ(indices.last(), 31) << sign;
        EXPECT_EQ(reducer.indices({sign, 0.0}, 20.2, 20.4, true), (QVector<int>{20, 21})) << "between two points";
    }
}

TEST(TCurveReducer, seesWhatTurnsBack)
{
    EXPECT_TRUE(TCurveReducer(view({3, 2, 2, 1}), view({0, 0, 0, 0})).isMonotonic());
    EXPECT_FALSE(TCurveReducer(view({1, 3, 2, 4}), view({0, 0, 0, 0})).isMonotonic());
    EXPECT_FALSE(TCurveReducer(view({1, cNaN, 2}), view({0, 0, 0})).isMonotonic());
}

TEST(TColumnFiller, aReducedCurveCoversTheSamePixels)
{
    for (const double pen : {1.0, 1.9, 6.0}) {
        for (const int count : {30, 700, 20000, 200000}) {
            const QVector<double> x = SeriesBuilder::evenSteps(-5.3, 310.7, count);
            QVector<double> y = SeriesBuilder::noise(count, 99);
            for (int i = 0; i < count; ++i)
                y[i] = 60.0 + 70.0 * y.at(i) * y.at(i) * y.at(i) + 30.0 * std::sin(x.at(i) / 20.0);
            const auto reduced =
                TCurveCache::reduce(view(x), view(y), {1.0, 0.0}, {1.0, 0.0}, -10, 310, 1.0 / TColumnFiller::cParts);
            ASSERT_EQ(reduced->lines.size(), 1);
            EXPECT_LE(reduced->lines.first().size(), std::min(count, 4 * 4 * 320));
            EXPECT_EQ(filled(points(x, y), 300, 120, pen), filled(reduced->lines.first(), 300, 120, pen))
                << "pen " << pen << ", points " << count;
        }
    }
}

TEST(TColumnFiller, drawsSmoothLinesLikeAStroker)
{
    const QVector<double> x = SeriesBuilder::evenSteps(10, 290, 400);
    QVector<double> y;
    for (const double value : x)
        y.append(60.0 - 45.0 * std::exp(-std::pow((value - 150.0) / 12.0, 2)) + 20.0 * std::sin(value / 30.0));
    for (const double pen : {1.2, 2.4, 6.0}) {
        const QImage own = filled(points(x, y), 300, 120, pen);
        QImage reference(300, 120, QImage::Format_RGB32);
        reference.fill(Qt::white);
        QPainter painter(&reference);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::black, pen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF(points(x, y)));
        painter.end();
        double ink = 0.0;
        double referenceInk = 0.0;
        int worst = 0;
        for (int row = 0; row < own.height(); ++row) {
            for (int column = 0; column < own.width(); ++column) {
                const int mine = 255 - qGray(own.pixel(column, row));
                const int theirs = 255 - qGray(reference.pixel(column, row));
                ink += mine;
                referenceInk += theirs;
                worst = std::max(worst, std::abs(mine - theirs));
            }
        }
        EXPECT_NEAR(ink / referenceInk, 1.0, 0.03) << "pen " << pen;
        EXPECT_LT(worst, 80) << "pen " << pen; // of 255
    }
}

TEST(TColumnFiller, staysWithinItsClipWhateverTheHeights)
{
    QImage image(100, 60, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    TColumnFiller filler(QRect(20, 10, 50, 30), 3.0);
    filler.addLine({{0, -1e9}, {40, 1e9}, {45, -1e9}, {200, 25}});
    filler.paint(painter, Qt::black);
    painter.end();
    bool isInked = false;
    for (int row = 0; row < 60; ++row) {
        for (int column = 0; column < 100; ++column) {
            const bool isDark = image.pixel(column, row) != 0xFFFFFFFF;
            isInked = isInked || isDark;
            if (!QRect(20, 10, 50, 30).contains(column, row)) {
                EXPECT_FALSE(isDark) << column << ", " << row;
            }
        }
    }
    EXPECT_TRUE(isInked);
}

TEST(TCurveCache, seesDataThatWereChangedInPlace)
{
    const QVector<double> x = SeriesBuilder::evenSteps(0, 100, 5000);
    QVector<double> y(5000, 0.0);
    TCurveCache cache;
    const auto get = [&] { return cache.reduced(view(x), view(y), {1.0, 0.0}, {1.0, 0.0}, 0, 100, 0.25); };
    const auto first = get();
    EXPECT_EQ(get(), first) << "kept";
    for (const double value : {1.0, -0.0, cNaN, 1e-300}) {
        const auto before = get();
        y[3127] = value;
        EXPECT_NE(get(), before) << value;
    }
}
