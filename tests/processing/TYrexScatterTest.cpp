#include "TYrexScatter.h"

#include "ChainHelpers.h"
#include "SpectrumBuilder.h"
#include "TYrexUnits.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

namespace {

constexpr double cNaN = std::numeric_limits<double>::quiet_NaN();

QVector<double> bands(int n)
{
    QVector<double> y;
    for (int i = 0; i < n; ++i)
        y.append(std::sin(0.1 * i) + 1.5 + 0.01 * i);
    return y;
}

QVector<double> affine(QVector<double> y, double offset, double factor)
{
    for (double &value : y)
        value = offset + factor * value;
    return y;
}

} // namespace

class Scatter : public ChainTest
{
protected:
    void add(const QVector<double> &y)
    {
        fOwned.push_back(makeSpectrum(y, 0.0, 1.0));
        fStack.append(fOwned.back().get());
    }
    QString quotients(int reference)
    {
        return TYrexScatter::pqnPrepass(fStack, actionMap(73, true, {{"normpqnreference", reference}}));
    }
    QVector<double> corrected(TYrexSpectrum &spectrum, int mode)
    {
        TYrexScatter::mscApply(spectrum, actionMap(64, true, {{"msccorrmode", mode}}));
        return spectrum.values();
    }

    std::vector<std::unique_ptr<TYrexSpectrum>> fOwned;
    QVector<TYrexSpectrum *> fStack;
};

TEST_F(Scatter, meanAndDeviationOfFewValues)
{
    double mean = -1.0;
    double deviation = -1.0;
    EXPECT_EQ(TYrexScatter::meanAndDeviation(0, nullptr, mean, deviation), 2);
    EXPECT_EQ(mean, -1.0);
    EXPECT_EQ(deviation, -1.0);
    const double values[] = {4.0, 1.0, 7.0};
    EXPECT_EQ(TYrexScatter::meanAndDeviation(1, values, mean, deviation), 0);
    EXPECT_EQ(mean, 4.0);
    EXPECT_EQ(deviation, 0.0);
    EXPECT_EQ(TYrexScatter::meanAndDeviation(3, values, mean, deviation), 0);
    EXPECT_EQ(mean, 4.0);
    EXPECT_EQ(deviation, 3.0);
}

TEST_F(Scatter, normalVariateHasMeanZeroAndDeviationOne)
{
    TYrexSpectrum spectrum;
    fill(spectrum, affine(bands(200), 1e6, 3.0), 12);
    TYrexScatter::snv(spectrum, {});
    double mean = -1.0;
    double deviation = -1.0;
    TYrexScatter::meanAndDeviation(200, spectrum.values().constData(), mean, deviation);
    EXPECT_NEAR(mean, 0.0, 1e-9);
    EXPECT_NEAR(deviation, 1.0, 1e-12);
    EXPECT_EQ(spectrum.yUnits(), 50);
    EXPECT_EQ(spectrum.paramText(2002, 1), "Arbitrary");

    for (const int n : {0, 1, 2, 1000}) { // a sum of 0.1 is rounded, the deviation must stay 0
        fill(spectrum, QVector<double>(n, 0.1), 12);
        TYrexScatter::snv(spectrum, {});
        EXPECT_EQ(spectrum.values(), QVector<double>(n, 0.0)) << n;
    }
}

TEST_F(Scatter, fitFindsTheLineOfEverySpectrum)
{
    const int count = 150; // more than are fitted at a time
    const QVector<double> shape = bands(300);
    double meanOffset = 0.0;
    double meanFactor = 0.0;
    for (int s = 0; s < count; ++s) {
        add(affine(shape, 0.02 * s - 1.0, 1.0 + 0.01 * s));
        meanOffset += (0.02 * s - 1.0) / count;
        meanFactor += (1.0 + 0.01 * s) / count;
    }
    TYrexScatter::mscPrepass(fStack);
    for (int s = 0; s < count; ++s) {
        const double slope = (1.0 + 0.01 * s) / meanFactor;
        EXPECT_NEAR(fStack[s]->mscSlope(), slope, 1e-12) << s;
        EXPECT_NEAR(fStack[s]->mscIntercept(), 0.02 * s - 1.0 - slope * meanOffset, 1e-11) << s;
        const QVector<double> y = corrected(*fStack[s], 65);
        for (int i = 0; i < shape.size(); ++i) // all spectra become the mean spectrum
            ASSERT_NEAR(y[i], meanOffset + meanFactor * shape[i], 1e-11) << s << " at " << i;
    }
}

TEST_F(Scatter, fitOfOneSpectrumIsTheIdentity)
{
    add(bands(50));
    TYrexScatter::mscPrepass(fStack);
    EXPECT_NEAR(fStack[0]->mscIntercept(), 0.0, 1e-13);
    EXPECT_NEAR(fStack[0]->mscSlope(), 1.0, 1e-13);
    quotients(75);
    EXPECT_EQ(fStack[0]->pqnFactor(), 1.0);
}

TEST_F(Scatter, correctionTakesOutWhatTheModeSays)
{
    for (const auto &one : {qMakePair(66, QVector<double>({-1.0, 1.0})), qMakePair(67, QVector<double>({0.5, 1.0})),
                            qMakePair(65, QVector<double>({-0.25, 0.25})), qMakePair(0, QVector<double>({2.0, 4.0}))}) {
        TYrexSpectrum spectrum;
        fill(spectrum, {2.0, 4.0}, 12);
        spectrum.setMscCoefficients(3.0, 4.0);
        EXPECT_EQ(corrected(spectrum, one.first), one.second) << one.first;
        EXPECT_EQ(spectrum.yUnits(), 50);
    }
}

TEST_F(Scatter, spectraThatCannotBeComparedKeepDataAndUnit)
{
    add(bands(19));
    add(bands(20));
    fStack.append(nullptr);
    add(affine(bands(20), 0.0, 3.0));
    fStack[0]->setMscCoefficients(7.0, 8.0); // of an earlier run
    fStack[0]->setPqnFactor(9.0);
    fStack[0]->setUnits(cUnitWavenumber, cUnitAbsorbance);
    const QString remark = "1 of 3 spectra are left as they are: they do not have the 20 points of the others";
    EXPECT_EQ(TYrexScatter::mscPrepass(fStack), remark) << "most have 20, though the first has not";
    EXPECT_EQ(quotients(75), remark);
    EXPECT_EQ(corrected(*fStack[0], 65), bands(19));
    TYrexScatter::pqnApply(*fStack[0], {});
    EXPECT_EQ(fStack[0]->values(), bands(19));
    EXPECT_EQ(fStack[0]->yUnits(), cUnitAbsorbance);
    EXPECT_NEAR(fStack[1]->mscSlope(), 0.5, 1e-13); // the mean is of the two that can be
    EXPECT_NEAR(fStack[3]->mscSlope(), 1.5, 1e-13);
    EXPECT_EQ(fStack[3]->pqnFactor(), 1.5);
    fStack.removeAt(1);
    EXPECT_EQ(TYrexScatter::mscPrepass(fStack),
              "1 of 2 spectra are left as they are: they do not have the 19 points of the others")
        << "of equally frequent counts that of the first";

    EXPECT_EQ(TYrexScatter::mscPrepass({}), "");
    EXPECT_EQ(TYrexScatter::pqnPrepass({}, {}), "");
    for (const QVector<double> &few : {QVector<double>{4.0}, QVector<double>()}) {
        fStack.clear();
        add(few);
        add(few);
        fStack[0]->setMscCoefficients(7.0, 8.0);
        EXPECT_EQ(TYrexScatter::mscPrepass(fStack),
                  "2 of 2 spectra are left as they are: they have less than two points");
        EXPECT_FALSE(quotients(76).isEmpty());
        EXPECT_EQ(corrected(*fStack[0], 65), few);
    }
}

TEST_F(Scatter, fitOfNaNsEndsInNaNs)
{
    add(bands(20));
    QVector<double> broken = bands(20);
    broken[4] = cNaN;
    add(broken);
    TYrexScatter::mscPrepass(fStack); // must not end in a value from the data
    EXPECT_TRUE(std::isnan(fStack[1]->mscSlope()));
}

TEST_F(Scatter, quotientsOfScaledCopiesAreTheirFactors)
{
    for (const double factor : {1.0, 2.0, 6.0})
        add(affine(bands(2001), 0.0, factor));
    quotients(75);
    EXPECT_EQ(fStack[0]->pqnFactor(), double(1.0f / 3.0f));
    EXPECT_EQ(fStack[1]->pqnFactor(), double(2.0f / 3.0f));
    EXPECT_EQ(fStack[2]->pqnFactor(), 2.0);
    add(affine(bands(2001), 0.0, 8.0));
    quotients(76); // the reference is the mean of the middle two, in single precision
    const QVector<double> factors = {0.25, 0.5, 1.5, 2.0};
    for (int s = 0; s < 4; ++s)
        EXPECT_NEAR(fStack[s]->pqnFactor(), factors[s], 1e-7) << s;
}

TEST_F(Scatter, quotientsAreMediansRoundedToSinglePrecision)
{
    add({1.0, 2.0, 3.0, 0.3});
    add({1.0, 2.0, 4.0, 0.1});
    add({1.0, 2.0, 9.0, 0.2});
    quotients(76);
    // reference 1, 2, 4, 0.2f; quotients 1, 1, 9/4, 0.2 / 0.2f
    EXPECT_EQ(fStack[2]->pqnFactor(), double(float((1.0 + qMax(1.0, 0.2 / double(0.2f))) / 2.0)));
    // 1, 1, 3/4, 1.5
    EXPECT_EQ(fStack[0]->pqnFactor(), 1.0);
    const double third = 1.0 / 3.0;
    fStack.clear();
    add({third, 7.0});
    add({third, 7.0});
    add({2.0 * third, 21.0});
    quotients(76);
    EXPECT_EQ(fStack[2]->pqnFactor(), double(float((2.0 * third / double(float(third)) + 3.0) / 2.0)));
}

TEST_F(Scatter, quotientsCopeWithZerosAndNaNs)
{
    add({0.0, 0.0, 0.0});
    add({0.0, 2.0, 4.0});
    add({0.0, 4.0, 8.0});
    quotients(75); // reference 0, 2, 4
    EXPECT_EQ(fStack[0]->pqnFactor(), 0.0);
    EXPECT_EQ(fStack[1]->pqnFactor(), 1.0);
    EXPECT_EQ(fStack[2]->pqnFactor(), 2.0);
    quotients(0); // no reference
    EXPECT_EQ(fStack[2]->pqnFactor(), 2.0);

    add({cNaN, cNaN, cNaN});
    add({1.0, cNaN, 4.0});
    quotients(76);
    EXPECT_EQ(fStack[3]->pqnFactor(), 1.0); // of the point whose reference is 0
    EXPECT_EQ(fStack[4]->pqnFactor(), 1.0);
    fStack = {fStack[3]};
    quotients(76);
    EXPECT_TRUE(std::isnan(fStack[0]->pqnFactor()));
}

TEST_F(Scatter, meanByThreadsIsSummedInTheOrderOfTheStack)
{
    // enough values for several threads, and sums in which the order of the spectra would show
    for (int s = 0; s < 1500; ++s)
        add(affine(bands(3001), 0.1 * s, 1.0 / (s + 1)));
    quotients(75);
    QVector<double> mean(3001, 0.0);
    for (const TYrexSpectrum *spectrum : fStack) {
        for (int i = 0; i < mean.size(); ++i)
            mean[i] += spectrum->values()[i];
    }
    QVector<double> ratios;
    for (int i = 0; i < mean.size(); ++i)
        ratios.append(fStack[7]->values()[i] / (mean[i] / 1500));
    std::sort(ratios.begin(), ratios.end());
    EXPECT_EQ(fStack[7]->pqnFactor(), double(float(ratios[1500])));
}
