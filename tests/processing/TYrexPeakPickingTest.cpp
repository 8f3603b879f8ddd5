#include "TYrexPeakPicking.h"

#include "ChainHelpers.h"
#include "TYrexPeakDetector.h"

#include <cmath>
#include <limits>
#include <random>

class PeakPicking : public ChainTest
{
protected:
    /// Gaussian lines of these heights, 100 points apart and 12 wide, with a little noise.
    void setLines(const QVector<double> &heights, double ground, int yUnit)
    {
        std::mt19937 random(5);
        std::normal_distribution<double> noise(0.0, 1e-3);
        QVector<double> y;
        for (int i = 0; i < 100 * (heights.size() + 1); ++i) {
            double value = ground + noise(random);
            for (int k = 0; k < heights.size(); ++k)
                value += heights[k] * std::exp(-std::pow((i - 100.0 * (k + 1)) / 12.0, 2));
            y.append(value);
        }
        fill(fSpectrum, y, yUnit);
    }
    void pick(int sign, int maxPeaks = 1000, double sensitivity = 1.0)
    {
        TYrexDPLib::deleteAllPeaks(fSpectrum.peaks());
        TYrexPeakPicking::autoPeakPicking(fSpectrum, actionMap(26, true,
                                                               {{"yrexstdpppsign", sign},
                                                                {"yrexstdppmaxnbrpeaks", maxPeaks},
                                                                {"yrexstdppsensitivity", sensitivity}}));
    }
    void setChainSign(int sign)
    {
        TYrexProcParams params;
        params.setActions({actionMap(26, false, {{"yrexstdpppsign", sign}})});
        fSpectrum.procParams() = params;
    }
    /// Which lines were found, within three points, those that point down with a minus; 0 for a peak beside the lines.
    QVector<int> lines() const
    {
        QVector<int> list;
        for (const TYrexDPLib::TYrexDPPeak *peak : fSpectrum.peaks()) {
            const int line = int(std::lround(peak->position / 100.0));
            const bool near = std::fabs(peak->position - 100.0 * line) < 3.5;
            EXPECT_EQ(peak->intensity, fSpectrum.values().at(int(peak->position)));
            list.append(!near ? 0 : peak->positive ? line : -line);
        }
        return list;
    }

    TYrexSpectrum fSpectrum;
};

TEST_F(PeakPicking, followsTheOptionAndElseTheUnit)
{
    struct TCase
    {
        int fSign;
        int fUnit;
        QVector<int> fLines;
    };
    const QVector<int> up = {1, 3};
    const QVector<int> down = {-2, 0}; // the ground behind the last line is lower than the line, up to the end
    const QVector<int> both = {-2, 0, 1, 3};
    const TCase cases[] = {{29, 10, up},   {30, 12, down}, {28, 12, both}, {60, 10, down}, {60, 11, down},
                           {60, 12, up},   {60, 13, up},   {60, 14, up},   {60, 15, up},   {60, 18, up},
                           {60, 50, both}, {60, 16, both}, {0, 12, both}};
    for (const TCase &one : cases) {
        setLines({1.0, -0.8, 0.6}, 1.0, one.fUnit);
        pick(one.fSign);
        EXPECT_EQ(lines(), one.fLines) << one.fSign << " in unit " << one.fUnit;
        for (const TYrexDPLib::TYrexDPPeak *peak : fSpectrum.peaks())
            EXPECT_EQ(peak->flags, TYrexDPLib::cAutoPicked);
    }
}

TEST_F(PeakPicking, limitsEachDirectionByItself)
{
    setLines({1.0, -0.8, 0.6, -0.7, 0.9, -0.5}, 1.0, 50);
    pick(60, 2);
    EXPECT_EQ(lines(), QVector<int>({-2, -4, 1, 3}));
    pick(60, 0);
    EXPECT_TRUE(lines().isEmpty());
}

TEST_F(PeakPicking, measuresTheWidthAboveTheShiftedGround)
{
    setLines({2000.0}, 0.0, 12); // the shift of 1 is small beside it
    pick(60);
    ASSERT_EQ(lines(), QVector<int>({1}));
    EXPECT_NEAR(fSpectrum.peaks().first()->width, 2.0 * 12.0 * std::sqrt(std::log(2.0)), 0.05);
}

TEST_F(PeakPicking, findsNothingInFlatShortOrBrokenData)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const QVector<double> &y : {QVector<double>{}, QVector<double>{1.0}, QVector<double>(500, 0.1),
                                     QVector<double>(20, nan), QVector<double>(20, infinity)}) {
        fill(fSpectrum, y, 50);
        pick(28);
        EXPECT_TRUE(fSpectrum.peaks().isEmpty()) << y.size();
    }
    QVector<double> y(300, 1.0);
    y[50] = nan;
    y[100] = 9.0;
    y[200] = infinity;
    fill(fSpectrum, y, 12);
    pick(29); // must end
    fill(fSpectrum, {1.0, 5.0, 1.0}, 12);
    pick(29);
    ASSERT_EQ(fSpectrum.peaks().size(), 1); // no block, so no noise
    EXPECT_EQ(fSpectrum.peaks().first()->position, 1.0);
}

TEST_F(PeakPicking, ofARangeKeepsTheLevelAndStaysThroughARun)
{
    setLines({1.0, 0.3, 0.8}, 0.0, 12);
    TYrexPeakPicking::pickInRange(fSpectrum, 350.2, 49.7, 0.5); // any order
    EXPECT_EQ(lines(), QVector<int>({1, 3}));
    TYrexPeakPicking::pickInRange(fSpectrum, 150.0, 250.0, 0.1);
    EXPECT_EQ(lines(), QVector<int>({1, 3, 2})); // appended
    fSpectrum.process(1, 0, 0);
    EXPECT_EQ(fSpectrum.peaks().size(), 3);
    TYrexPeakPicking::pickInRange(fSpectrum, 99.6, 100.4, 0.0); // one point
    TYrexPeakPicking::pickInRange(fSpectrum, -9.0, -5.0, 0.0);
    TYrexPeakPicking::pickInRange(fSpectrum, 1e300, std::numeric_limits<double>::infinity(), 0.0);
    TYrexPeakPicking::pickInRange(fSpectrum, std::numeric_limits<double>::quiet_NaN(), 0.0, 0.0);
    EXPECT_EQ(fSpectrum.peaks().size(), 3);
    TYrexDPLib::deleteAllPeaks(fSpectrum.peaks());
    TYrexPeakPicking::pickInRange(fSpectrum, -1e300, 1e300, 0.5); // held to the data
    EXPECT_EQ(lines(), QVector<int>({1, 3}));
}

TEST_F(PeakPicking, ofARangeTakesMinimaBelowTheLevelInTransmittance)
{
    setLines({-0.5, -0.1, -0.7}, 1.0, 10);
    TYrexPeakPicking::pickInRange(fSpectrum, 0.0, 400.0, 0.6);
    EXPECT_EQ(lines(), QVector<int>({-1, -3}));
}

TEST_F(PeakPicking, ofARangeReadsTheDirectionOfTheChain)
{
    const QVector<int> up = {1};
    const QVector<int> down = {-2};
    struct TCase
    {
        int fSign;
        int fUnit;
        QVector<int> fLines;
    };
    // the intensity is none of its upward units, the arbitrary one is
    for (const TCase &one : {TCase{29, 10, up}, TCase{30, 12, down}, TCase{28, 12, up}, TCase{60, 50, up},
                             TCase{60, 18, down}, TCase{0, 12, down}}) {
        setLines({0.5, -0.5}, 1.0, one.fUnit);
        setChainSign(one.fSign);
        TYrexDPLib::deleteAllPeaks(fSpectrum.peaks());
        TYrexPeakPicking::pickInRange(fSpectrum, 40.0, 260.0, one.fLines == up ? 1.3 : 0.7);
        EXPECT_EQ(lines(), one.fLines) << one.fSign << " in unit " << one.fUnit;
    }
}

TEST_F(PeakPicking, nearAPointFillsARecord)
{
    setLines({1.0, -0.8}, 1.0, 12);
    TYrexDPLib::TYrexDPPeak peak;
    const QPair<double, double> found = TYrexPeakPicking::peakNear(fSpectrum, 120.0, 1.1, &peak, false);
    EXPECT_NEAR(found.first, 100.0, 3.0);
    EXPECT_EQ(found.second, fSpectrum.values().at(int(found.first)));
    EXPECT_EQ(peak.position, found.first);
    EXPECT_EQ(peak.intensity, found.second);
    EXPECT_TRUE(peak.positive);

    setChainSign(30);
    EXPECT_NEAR(TYrexPeakPicking::peakNear(fSpectrum, 185.0, 0.9, &peak, false).first, 200.0, 3.0);
    EXPECT_FALSE(peak.positive);
    EXPECT_EQ(TYrexPeakPicking::peakNear(fSpectrum, 184.5, 0.9, &peak, true).first, 185.0);
    EXPECT_EQ(peak.intensity, fSpectrum.values().at(185));
    EXPECT_NEAR(TYrexPeakPicking::peakNear(fSpectrum, 185.0, 0.9, nullptr, true).first, 200.0, 3.0);
}

TEST_F(PeakPicking, nearAPointOutsideTheDataFindsNothing)
{
    fill(fSpectrum, {1.0, 2.0, 1.0, 0.5}, 12);
    TYrexDPLib::TYrexDPPeak peak;
    EXPECT_EQ(TYrexPeakPicking::peakNear(fSpectrum, 4.0, 0.0, nullptr, false), qMakePair(1.0, 2.0)); // the last point
    EXPECT_EQ(TYrexPeakPicking::peakNear(fSpectrum, 4.6, 0.0, &peak, true), qMakePair(5.0, 0.0));
    EXPECT_EQ(TYrexPeakPicking::peakNear(fSpectrum, -0.6, 0.0, &peak, true), qMakePair(-1.0, 0.0));
    EXPECT_EQ(peak.position, 0.0);
    fill(fSpectrum, {}, 12);
    EXPECT_EQ(TYrexPeakPicking::peakNear(fSpectrum, 0.0, 0.0, &peak, false), qMakePair(0.0, 0.0));
}

TEST(BlockVariance, isTheMeanSquaredDeviationFromTheMedian)
{
    const float values[] = {1.0f, 2.0f, 9.0f};
    EXPECT_EQ(TYrexPeakPicking::blockVariance(values, 3), 50.0f / 3.0f);
    EXPECT_EQ(TYrexPeakPicking::blockVariance(values, 0), 0.0f);
}
