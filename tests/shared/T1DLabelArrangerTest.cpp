#include "plot/T1DLabelArranger.h"
#include <cmath>
#include <gtest/gtest.h>

namespace {

T1DLabelInfo label(double anchor, double width, double weight = 1.0)
{
    T1DLabelInfo info;
    info.anchor = QPointF(anchor, 50.0);
    info.width = width;
    info.height = 10.0;
    info.weight = weight;
    return info;
}

QVector<T1DLabelInfo> arranged(const QVector<T1DLabelInfo> &labels, double lo, double hi,
                               int mode = T1DLabelArranger::peakStrip, double gap = 0.0)
{
    T1DLabelArranger arranger(gap);
    for (const T1DLabelInfo &each : labels)
        arranger.append(each);
    arranger.arrange(QRectF(lo, 0.0, hi - lo, 100.0), T1DLabelArranger::horizontalText, mode);
    return arranger.labels();
}

} // namespace

TEST(T1DLabelArranger, findsTheLeastShifts)
{
    struct TCase
    {
        QVector<double> anchors, widths, weights, centres; // NaN: no room
    };
    const double none = std::nan("");
    const TCase cCases[] = {
        {{10, 12, 30}, {8, 8, 8}, {}, {7, 15, 30}},
        {{1, 2, 99}, {10, 10, 10}, {}, {5, 15, 95}},
        {{50, 50, 50, 20}, {30, 30, 30, 30}, {4, 1, 3, 2}, {45, none, 75, 15}},
        {{5, 40, 41, 42, 90}, {12, 9, 9, 9, 20}, {}, {6, 32, 41, 50, 90}},
    };
    for (const TCase &each : cCases) {
        QVector<T1DLabelInfo> labels;
        for (int i = 0; i < each.anchors.size(); ++i)
            labels.append(label(each.anchors.at(i), each.widths.at(i), each.weights.value(i, 1.0)));
        const QVector<T1DLabelInfo> result = arranged(labels, 0, 100);
        for (int i = 0; i < labels.size(); ++i) {
            EXPECT_EQ(result.at(i).hasRoom, !std::isnan(each.centres.at(i))) << i;
            if (result.at(i).hasRoom) {
                EXPECT_NEAR(result.at(i).pos, each.centres.at(i), 1e-9) << i;
            }
        }
    }
}

TEST(T1DLabelArranger, keepsTheCallersOrderAndTheGap)
{
    const QVector<T1DLabelInfo> result =
        arranged({label(80, 10), label(20, 10), label(22, 10)}, 0, 100, T1DLabelArranger::peakStrip, 4.0);
    EXPECT_NEAR(result.at(0).pos, 80.0, 1e-9);
    EXPECT_NEAR(result.at(1).pos, 14.0, 1e-9);
    EXPECT_NEAR(result.at(2).pos, 28.0, 1e-9);
}

TEST(T1DLabelArranger, integralLabelsWeighTheSame)
{
    // the rightmost goes, though it is the heaviest
    const QVector<T1DLabelInfo> result =
        arranged({label(10, 40, 1), label(50, 40, 1), label(90, 40, 9)}, 0, 100, T1DLabelArranger::integralStrip);
    EXPECT_TRUE(result.at(0).hasRoom);
    EXPECT_TRUE(result.at(1).hasRoom);
    EXPECT_FALSE(result.at(2).hasRoom);
    EXPECT_FALSE(arranged({label(10, 200)}, 0, 100).first().hasRoom);
    EXPECT_TRUE(arranged({}, 0, 100).isEmpty());
}

TEST(T1DLabelArranger, atThePeakTheHeavierStands)
{
    QVector<T1DLabelInfo> labels = {label(30, 20, 1), label(40, 20, 5), label(70, 20, 2), label(95, 20, 9)};
    labels[2].anchor.setY(95.0); // its box would stand elsewhere: no overlap
    const QVector<T1DLabelInfo> result = arranged(labels, 0, 100, T1DLabelArranger::atPeak);
    EXPECT_FALSE(result.at(0).hasRoom);
    EXPECT_TRUE(result.at(1).hasRoom);
    EXPECT_EQ(result.at(1).pos, 40.0);
    EXPECT_TRUE(result.at(2).hasRoom);
    EXPECT_FALSE(result.at(3).hasRoom) << "leaves the rectangle";
}

TEST(T1DLabelInfo, standsClearOfTheTickAboveAndBelow)
{
    T1DLabelInfo info = label(100, 40);
    EXPECT_EQ(info.originalRect(false), QRectF(80, 10, 40, 10)); // foot 30 above the anchor at 50
    EXPECT_EQ(info.originalRect(true), QRectF(95, -20, 10, 40));
    info.below = true;
    const QRectF shifted = info.originalRect(false).translated(0, 10 + 30);
    EXPECT_EQ(shifted.top(), 50 + 30) << "after the shift of a valley's label";
}
