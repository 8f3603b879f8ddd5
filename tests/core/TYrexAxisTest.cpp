#include "TYrexAxis.h"

#include "SpectrumBuilder.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

TYrexAxis axis(double first, double last, int count = 11, int unit = cUnitWavenumber)
{
    TYrexAxis made;
    made.fFirst = first;
    made.fLast = last;
    made.fCount = count;
    made.fUnit = unit;
    return made;
}

std::string difference(const TYrexAxis &one, const TYrexAxis &reference)
{
    return TYrexAxis::difference({one}, reference).toStdString();
}

} // namespace

TEST(TYrexAxis, isThatOfTheStoredPoints)
{
    const auto spectrum = makeSpectrum(QVector<double>(11, 1.0), 400, 500, cUnitNanometers, cUnitAbsorbance);
    spectrum->setUnits(cUnitWavenumber, cUnitAbsorbance); // only how it is shown
    const TYrexAxis made(*spectrum);
    EXPECT_EQ(made.step(), 10.0);
    EXPECT_TRUE(made.isSameAs(axis(400, 500, 11, cUnitNanometers)));
}

TEST(TYrexAxis, isTheSameWithinATenthOfTheSmallerStep)
{
    EXPECT_TRUE(axis(400, 500).isSameAs(axis(400.9, 500)));
    EXPECT_FALSE(axis(400, 500).isSameAs(axis(401.1, 500)));
    EXPECT_FALSE(axis(400, 500).isSameAs(axis(400, 498.9)));
    EXPECT_FALSE(axis(400, 500).isSameAs(axis(500, 400))) << "turned round";
    EXPECT_FALSE(axis(0, 100).isSameAs(axis(0, 100, 12)));
    EXPECT_FALSE(axis(0, 100).isSameAs(axis(0, 100, 11, cUnitRamanShift)));
    for (const TYrexAxis &small : {axis(5, 5, 1), axis(5, 5, 4)}) { // no step to measure by
        EXPECT_TRUE(small.isSameAs(small));
        EXPECT_FALSE(small.isSameAs(axis(5, 5 + 1e-12, small.fCount)));
    }
    EXPECT_FALSE(axis(std::nan(""), 5).isSameAs(axis(std::nan(""), 5)));
    EXPECT_FALSE(axis(0, INFINITY).isSameAs(axis(0, INFINITY)));
}

TEST(TYrexAxis, theDifferenceIsToldInWords)
{
    EXPECT_EQ(difference(axis(400, 500), axis(400, 500)), "");
    EXPECT_EQ(difference(axis(400, 500, 10), axis(400, 500)), "the numbers of points differ, 10 and 11");
    EXPECT_EQ(difference(axis(400, 500, 11, cUnitNanometers), axis(400, 500)),
              "the x units differ, Nanometers and Wavenumber");
    EXPECT_EQ(difference(axis(400, 4000), axis(500, 3200)), "the x axes differ by up to 800 cm-1");
    const QString worst = TYrexAxis::difference({axis(400, 500), axis(400, 503), axis(400, 502)}, axis(400, 500));
    EXPECT_EQ(worst, "the x axes differ by up to 3 cm-1");
}
