#include "TYrexAutoBaseline.h"

#include "BaselineSamples.h"
#include "BaselineVectors.h"
#include "ChainHelpers.h"
#include "TYrexProcIds.h"
#include "numerics/MatrixUtils.h"

#include <algorithm>
#include <cmath>
#include <limits>

using Vector = std::vector<double>;

namespace {

constexpr double cNaN = std::numeric_limits<double>::quiet_NaN();

Vector arplsOf(const Vector &y, double lambda, double ratio)
{
    Vector z(y.size(), cNaN);
    TYrexAutoBaseline::arpls(int(y.size()), y.data(), z.data(), lambda, ratio);
    return z;
}

void expectNear(const Vector &found, const Vector &expected, double tolerance, const char *what)
{
    ASSERT_EQ(found.size(), expected.size()) << what;
    for (size_t i = 0; i < found.size(); ++i)
        ASSERT_NEAR(found[i], expected[i], tolerance) << what << " at " << i;
}

QVector<double> toQt(const Vector &values)
{
    return QVector<double>(values.begin(), values.end());
}

} // namespace

TEST(Arpls, reproducesReferenceRuns)
{
    const Vector &y = BaselineVectors::cBands;
    expectNear(arplsOf(y, 100.0, 1e-3), BaselineVectors::cArpls100, 1e-10, "lambda 100");
    expectNear(arplsOf(y, 1e4, 1e-6), BaselineVectors::cArpls10000, 1e-10, "lambda 1e4");
    EXPECT_EQ(arplsOf(Vector(6, 0.0), 1000.0, 1e-6), Vector(6, 0.0)); // no residual is negative
    EXPECT_EQ(arplsOf(y, 1e4, 1e-6), arplsOf(y, 1e4, 1e-6));          // the kept work space leaves no trace
}

TEST(Arpls, keepsLinesAndEndsWithAnyInput)
{
    for (const int n : {3, 4, 8, 9, 5000, 100000}) {
        Vector y(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i)
            y[size_t(i)] = 2.0 - 0.003 * i;
        expectNear(arplsOf(y, 1e6, 1e-6), y, 1e-12 * n, "line");
    }
    for (const Vector &y : {Vector{}, Vector{5.0}, Vector{5.0, -1.0}})
        EXPECT_EQ(arplsOf(y, 1e6, 1e-6), y);
    Vector bad = BaselineVectors::cShort;
    for (const double lambda : {0.0, -1.0, cNaN})
        EXPECT_EQ(arplsOf(bad, lambda, 1e-6), bad);
    bad[2] = std::numeric_limits<double>::infinity();
    EXPECT_EQ(arplsOf(bad, 1e4, 1e-6), bad);
    for (const double ratio : {0.0, cNaN}) {
        for (const double value : arplsOf({1e300, -1e300, 0.0, 5.0, -7.0, 1e308, 1e-308, 0.0, 2.0}, 1e300, ratio))
            EXPECT_FALSE(std::isnan(value));
    }
}

class AutoBaseline : public ChainTest
{
protected:
    static QVariantMap map(int algorithm, double factor, bool showOnly = false)
    {
        return actionMap(cProcAutoBaseline, true,
                         {{"alsbaselinealgorithm", algorithm},
                          {"alsbaselinelog10lambda", factor},
                          {"alsbaselineratio", 1e-6},
                          {"alsbaselineshowonly", showOnly}});
    }
    const BaselineSample fSample{2, 1000, 5, 10.0, 0.001, 0};
};

TEST_F(AutoBaseline, passesTheFactorAsAPowerOrAsItStands)
{
    const int n = int(fSample.fY.size());
    Vector z(fSample.fY.size());
    for (const int algorithm : {77, 78, 81}) {
        if (algorithm == 77)
            TYrexAutoBaseline::arpls(n, fSample.fY.data(), z.data(), 1000000.0, 1e-6);
        else if (algorithm == 78)
            Utils::Matrix::iarplss(n, fSample.fY.data(), z.data(), 1000000.0, 1e-6);
        else
            Utils::Matrix::snipBC(n, fSample.fY.data(), z.data(), 6.0);
        for (const int unit : {12, 13, 14, 18, 50}) {
            TYrexSpectrum spectrum;
            fill(spectrum, toQt(fSample.fY), unit);
            TYrexAutoBaseline::autoBaseline(spectrum, map(algorithm, 6.0));
            for (int i = 0; i < n; ++i)
                ASSERT_EQ(spectrum.values().at(i), fSample.fY[size_t(i)] - z[size_t(i)]) << algorithm << " at " << i;
            EXPECT_EQ(spectrum.preview(), nullptr);
        }
    }
}

TEST_F(AutoBaseline, takesTransmittanceToFullScale)
{
    for (const int unit : {10, 11}) {
        const double top = unit == 10 ? 1.0 : 100.0;
        QVector<double> y;
        for (const double value : fSample.fY)
            y.append(top * (0.9 - 0.4 * value));
        for (const int algorithm : {77, 78, 81}) {
            TYrexSpectrum spectrum;
            fill(spectrum, y, unit);
            TYrexAutoBaseline::autoBaseline(spectrum, map(algorithm, 5.0));
            const QVector<double> &found = spectrum.values();
            for (int i = 0; i < y.size(); ++i) // the peaks still point down, from the top of the scale
                ASSERT_NEAR(found.at(i), top * (1.0 - 0.4 * (fSample.fY[size_t(i)] - fSample.fBaseline[size_t(i)])),
                            0.05 * top)
                    << "unit " << unit << " method " << algorithm << " at " << i;

            TYrexSpectrum shown;
            fill(shown, y, unit);
            TYrexAutoBaseline::autoBaseline(shown, map(algorithm, 5.0, true));
            EXPECT_EQ(shown.values(), y);
            ASSERT_EQ(shown.previewSize(), y.size());
            for (int i = 0; i < y.size(); ++i) // the shown curve is what the correction takes to full scale
                ASSERT_NEAR(shown.preview()[i] + found.at(i), y.at(i) + top, 1e-10 * top);
        }
    }
}

TEST_F(AutoBaseline, leavesWhatHasNoBaseline)
{
    const QVector<double> y = toQt(fSample.fY);
    const auto check = [](const QVector<double> &values, int unit, const QVariantMap &action) {
        TYrexSpectrum spectrum;
        fill(spectrum, values, unit);
        spectrum.allocPreview(values.size());
        TYrexAutoBaseline::autoBaseline(spectrum, action);
        EXPECT_TRUE(std::equal(values.begin(), values.end(), spectrum.values().begin(),
                               [](double a, double b) { return a == b || (a != a && b != b); }));
        EXPECT_EQ(spectrum.preview(), nullptr); // no old curve stays on the screen
    };
    for (const int unit : {15, 16, 17, 0, -1}) {
        check(y, unit, map(78, 6.0));
        check(y, unit, map(77, 6.0, true));
    }
    check(y, 12, map(79, 6.0));
    check(y, 12, {});
    QVector<double> broken = y;
    broken[17] = cNaN;
    check(broken, 12, map(78, 6.0));
    check(broken, 10, map(81, 6.0, true));
    check({}, 12, map(77, 6.0));
}

TEST_F(AutoBaseline, raisesSmallFactors)
{
    const double cases[][3] = {{1.5, 4.5, 9.0}, {2.0, 4.0, 8.0}, {2.5, 5.0, 10.0}, {3.0, 3.0, 3.0}, {7.25, 7.25, 7.25}};
    for (const auto &test : cases) {
        EXPECT_EQ(TYrexAutoBaseline::raisedFactor(test[0], false), test[1]);
        EXPECT_EQ(TYrexAutoBaseline::raisedFactor(test[0], true), test[2]);
    }
}

TEST_F(AutoBaseline, searchesOnlyWhenAskedAndWithPeaks)
{
    TYrexSpectrum spectrum;
    fill(spectrum, toQt(fSample.fY), 12);
    spectrum.peaks().append(new TYrexDPLib::TYrexDPPeak);
    QVariantMap action = map(78, 6.0);
    TYrexAutoBaseline::searchLambda(spectrum, action);
    EXPECT_EQ(action, map(78, 6.0));
    EXPECT_EQ(spectrum.peaks().size(), 1);

    fill(spectrum, QVector<double>(500, 0.25), 12);
    TYrexDPLib::deleteAllPeaks(spectrum.peaks());
    action.insert("alsbaselineautolambda", true);
    TYrexAutoBaseline::searchLambda(spectrum, action);
    EXPECT_EQ(action.value("alsbaselinelog10lambda").toDouble(), 5.0);
    EXPECT_TRUE(spectrum.peaks().isEmpty());
}

TEST_F(AutoBaseline, findsAFactorThatFitsAndDropsAllPeaks)
{
    for (const int unit : {12, 11}) {
        Vector y = fSample.fY;
        if (unit == 11)
            std::transform(y.begin(), y.end(), y.begin(), [](double value) { return 90.0 - 40.0 * value; });
        for (const int algorithm : {77, 78, 81}) {
            TYrexSpectrum spectrum;
            fill(spectrum, toQt(y), unit);
            auto *manual = new TYrexDPLib::TYrexDPPeak; // with numbers that fit nowhere
            manual->position = 1e300;
            manual->width = -std::numeric_limits<double>::infinity();
            spectrum.peaks().append(manual);
            QVariantMap action = map(algorithm, 1.0, true);
            action.insert("alsbaselineautolambda", true);
            TYrexAutoBaseline::searchLambda(spectrum, action);
            EXPECT_TRUE(spectrum.peaks().isEmpty());
            TYrexAutoBaseline::autoBaseline(spectrum, action);
            Vector found(spectrum.preview(), spectrum.preview() + spectrum.previewSize());
            if (unit == 11)
                std::transform(found.begin(), found.end(), found.begin(), [](double z) { return (90.0 - z) / 40.0; });
            EXPECT_LT(fSample.error(found), 0.03)
                << unit << " " << algorithm << " " << action.value("alsbaselinelog10lambda").toDouble();
        }
    }
}

TEST_F(AutoBaseline, keepsTheFoundFactorInTheChainWhileShown)
{
    TYrexSpectrum spectrum;
    fill(spectrum, toQt(fSample.fY), 12);
    QVariantMap action = map(78, 1.0, true);
    action.insert("alsbaselineautolambda", true);
    spectrum.procParams().setActions({action, actionMap(cProcInvertSign, true)});
    spectrum.process(0, 0, 1);
    EXPECT_EQ(spectrum.values(), toQt(fSample.fY)); // nothing behind a shown baseline runs
    const double factor = spectrum.procParams().action(0).value("alsbaselinelog10lambda").toDouble();
    EXPECT_GE(factor, 3.0);
    EXPECT_EQ(spectrum.procParams().defaultMap(cProcAutoBaseline).value("alsbaselinelog10lambda").toDouble(), factor);
    ASSERT_EQ(spectrum.previewSize(), spectrum.pointCount());
    const Vector shown(spectrum.preview(), spectrum.preview() + spectrum.previewSize());

    action = spectrum.procParams().action(0);
    action.insert("alsbaselineshowonly", false);
    spectrum.procParams().setActions({action});
    spectrum.process(0, 0, 0);
    for (int i = 0; i < spectrum.pointCount(); ++i)
        ASSERT_EQ(spectrum.values().at(i), fSample.fY[size_t(i)] - shown[size_t(i)]);
}
