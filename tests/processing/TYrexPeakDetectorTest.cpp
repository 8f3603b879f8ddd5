#include "TYrexPeakDetector.h"

#include <QVector>
#include <QtAlgorithms>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

using TYrexPeakDetector::cMaxima;
using TYrexPeakDetector::cMinima;

constexpr double cNaN = std::numeric_limits<double>::quiet_NaN();
constexpr int cAll = std::numeric_limits<int>::max();

struct TFound
{
    int fPosition;
    double fWidth;
};

QVector<TFound> detect(const QVector<double> &w, float delta, float minHeight, int direction, int maxPeaks = cAll,
                       bool refine = false)
{
    TYrexDPLib::TYrexDPPeakList list;
    TYrexPeakDetector::detectPeaks(w.constData(), w.size(), list, maxPeaks, delta, minHeight, refine, direction);
    QVector<TFound> found;
    for (const TYrexDPLib::TYrexDPPeak *peak : list)
        found.append({int(peak->position), peak->width});
    qDeleteAll(list);
    return found;
}

QVector<int> positions(const QVector<TFound> &found)
{
    QVector<int> list;
    for (const TFound &peak : found)
        list.append(peak.fPosition);
    return list;
}

/// The width by a plain walk from value to value.
double walkedWidth(const QVector<double> &y, int i)
{
    const int n = y.size();
    const double left = y[qMax(i - 1, 0)];
    const double right = y[qMin(i + 1, n - 1)];
    const double slope = (left - right) / 2.0;
    const double curvature = left + right - 2.0 * y[i];
    if (curvature == 0.0)
        return 0.0;
    const double half = (y[i] - slope / curvature / 2.0 * slope) / 2.0;
    const bool up = y[i] >= 0.0;
    double parts[2];
    bool crossed[2] = {false, false};
    for (const int side : {0, 1}) {
        double before = y[i];
        double fraction = 1.0;
        int steps = 1;
        for (;; ++steps) {
            const int at = side == 0 ? i + steps : i - steps;
            if (at < 0 || at >= n)
                break;
            const double v = y[at];
            if ((half > v) == up) {
                crossed[side] = true;
                if (before != v)
                    fraction = (half - v) / (before - v);
                break;
            }
            if ((before > v) != up)
                break;
            before = v;
        }
        parts[side] = steps - fraction;
    }
    if (crossed[0] == crossed[1])
        return parts[0] + parts[1];
    return 2.0 * (crossed[0] ? parts[0] : parts[1]);
}

/// Both hystereses side by side, as they were first written down.
QVector<TFound> walkedDetect(const QVector<double> &w, double delta, double minHeight, int direction)
{
    double H = 0, L = 0, T = 0, h = 0, l = 0, t = 0;
    int indexH = 0, indexh = 0;
    QVector<TFound> found;
    for (int i = 0; i <= w.size(); ++i) {
        const double down = i < w.size() ? w[i] : -std::numeric_limits<double>::max();
        const double up = i < w.size() ? w[i] : std::numeric_limits<double>::max();
        if (i == 0)
            H = L = T = h = l = t = down;
        bool max = false, min = false;
        const int maxAt = indexH, minAt = indexh;
        if (T > down) {
            T = down;
            max = H > delta + down && H > delta + L;
            if (L > down || max) {
                L = H = down;
                indexH = i;
            }
        } else if (down > H) {
            T = H = down;
            indexH = i;
        }
        if (up > t) {
            t = up;
            min = up - delta > h && l - delta > h;
            if (up > l || min) {
                l = h = up;
                indexh = i;
            }
        } else if (h > up) {
            t = h = up;
            indexh = i;
        }
        if (min && direction == 2 && w[minAt] < 0 && std::fabs(w[minAt]) > minHeight)
            found.append({minAt, walkedWidth(w, minAt)});
        else if (max && direction == 1 && w[maxAt] > 0 && std::fabs(w[maxAt]) > minHeight)
            found.append({maxAt, walkedWidth(w, maxAt)});
    }
    return found;
}

QVector<double> lorentzian(int n, double centre, double halfWidth)
{
    QVector<double> y;
    for (int i = 0; i < n; ++i)
        y.append(1.0 / (1.0 + (i - centre) * (i - centre) / (halfWidth * halfWidth)));
    return y;
}

} // namespace

TEST(PeakDetector, agreesWithThePlainWalkOnAnything)
{
    std::mt19937 random(11);
    for (int round = 0; round < 3000; ++round) {
        const int n = int(random() % 40);
        const int levels = 1 + int(random() % 9); // few levels make plateaus and ties
        QVector<double> w;
        for (int i = 0; i < n; ++i)
            w.append(round % 3 != 0 && random() % 60 == 0 ? cNaN
                                                          : double(int(random() % unsigned(levels)) - levels / 2));
        if (round % 3 == 0)
            std::sort(w.begin(), w.end()); // long flanks
        const float delta = float(int(random() % 7) - 2) * 0.75f;
        const float minHeight = float(random() % 3) * 0.5f;
        for (const int direction : {1, 2}) {
            const QVector<TFound> found = detect(w, delta, minHeight, direction);
            const QVector<TFound> judge = walkedDetect(w, double(delta), double(minHeight), direction);
            ASSERT_EQ(positions(found), positions(judge)) << "round " << round << " direction " << direction;
            for (int k = 0; k < found.size(); ++k)
                ASSERT_TRUE(found[k].fWidth == judge[k].fWidth ||
                            (std::isnan(found[k].fWidth) && std::isnan(judge[k].fWidth)))
                    << "round " << round << " direction " << direction << " peak at " << found[k].fPosition << ": "
                    << found[k].fWidth << " and " << judge[k].fWidth;
        }
    }
}

TEST(PeakDetector, seesAPeakAtTheEndOnlyThroughTheClosingSample)
{
    EXPECT_EQ(positions(detect({1.0, 2.0, 3.0}, 0.5f, 0.0f, cMaxima)), QVector<int>({2}));
    EXPECT_EQ(positions(detect({-1.0, -2.0, -3.0}, 0.5f, 0.0f, cMinima)), QVector<int>({2}));
    EXPECT_TRUE(detect({}, 0.0f, 0.0f, cMaxima).isEmpty());
    EXPECT_TRUE(detect({2.0}, 0.0f, 0.0f, cMaxima).isEmpty()); // nothing before it to stand out from
    EXPECT_TRUE(detect({2.0, 2.0, 2.0, 2.0}, 0.0f, 0.0f, cMaxima).isEmpty());
    EXPECT_TRUE(detect({-2.0, -2.0}, 0.0f, 0.0f, cMinima).isEmpty());
}

TEST(PeakDetector, keepsTheLeftmostPeaksOfALongList)
{
    QVector<double> w;
    for (int i = 0; i < 41; ++i)
        w.append(i % 2 == 1 ? 1.0 + i : 0.5); // the higher ones are on the right
    EXPECT_EQ(positions(detect(w, 0.1f, 0.0f, cMaxima, 3)), QVector<int>({1, 3, 5}));
    EXPECT_TRUE(detect(w, 0.1f, 0.0f, cMaxima, 0).isEmpty());
    EXPECT_TRUE(detect(w, 0.1f, 0.0f, cMaxima, -4).isEmpty());
}

TEST(PeakDetector, measuresTheFullWidthOfALorentzian)
{
    const QVector<double> y = lorentzian(2001, 1000.0, 50.0);
    const QVector<TFound> found = detect(y, 0.1f, 0.1f, cMaxima);
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0].fPosition, 1000);
    EXPECT_NEAR(found[0].fWidth, 100.0, 1e-3);

    double height = 0.0;
    double width = 0.0;
    const QVector<double> off = lorentzian(2001, 1000.3, 50.0);
    const double position = TYrexPeakDetector::peakShape(off.constData(), off.size(), 1000, height, width, 1, 0);
    EXPECT_NEAR(position, 1000.3, 1e-3);
    EXPECT_NEAR(height, 1.0, 1e-6);
    EXPECT_NEAR(width, 100.0, 1e-2); // the flanks are interpolated linearly
}

TEST(PeakDetector, doublesTheFlankThatReachesTheHalfHeight)
{
    double height = -1.0;
    double width = -1.0;
    const QVector<double> y = {9.0, 8.0, 10.0, 4.0, 1.0}; // the left flank turns up again
    TYrexPeakDetector::peakShape(y.constData(), y.size(), 2, height, width, 1, 0);
    EXPECT_DOUBLE_EQ(height, 10.25);
    EXPECT_NEAR(width, 2.0 * (10.0 - 5.125) / 6.0, 1e-12);

    const QVector<double> line = {1.0, 2.0, 3.0};
    height = width = -1.0;
    EXPECT_EQ(TYrexPeakDetector::peakShape(line.constData(), 3, 1, height, width, 1, 0), 1.0);
    EXPECT_EQ(height, -1.0);
    EXPECT_EQ(width, -1.0);
}

TEST(PeakDetector, measuresEveryPeakOfALongFlankInOneGo)
{
    // a negative delta makes a peak of every point of a slope; walking down from each would take the square of that
    QVector<double> slope;
    for (int i = 0; i < 50000; ++i)
        slope.append(-1e6 - std::sqrt(double(50000 - i)));
    EXPECT_GT(detect(slope, -10.0f, 0.0f, cMinima).size(), 40000);
}

TEST(NearestExtreme, takesTheNearerHill)
{
    const auto nearest = [](const QVector<double> &y, int i, double level, int mode) {
        return TYrexPeakDetector::nearestExtreme(y.constData(), y.size(), i, level, 1, mode);
    };
    const QVector<double> y = {0.0, 1.0, 5.0, 1.0, 0.5, 0.2, 0.4, 3.0, 0.1, 0.0};
    EXPECT_EQ(nearest(y, 6, 0.0, 1), 7);
    EXPECT_EQ(nearest(y, 4, 0.0, 1), 2);
    EXPECT_EQ(nearest(y, 5, 0.0, 1), 7); // climbs to the right at two steps, to the left at three
    EXPECT_EQ(nearest(y, 7, 0.0, 2), 5); // downwards; the climb to the right ends at the edge
    EXPECT_EQ(nearest(y, -5, 0.0, 1), 2);
    EXPECT_EQ(nearest({}, 3, 0.0, 1), 0);

    const QVector<double> noisy = {0.0, 0.1, 0.0, 6.0, 0.1, 0.2, 0.1, 0.3, 0.2, 0.1, 7.0, 0.0};
    EXPECT_EQ(nearest(noisy, 7, 0.0, 1), 7);
    EXPECT_EQ(nearest(noisy, 7, 1.0, 1), 10); // what lies below the level is flat ground
    EXPECT_EQ(nearest(noisy, 6, 1.0, 1), 3);
    EXPECT_EQ(nearest({1.0, 2.0, 3.0, 4.0}, 1, 0.0, 1), 1); // nothing but the edge
}
