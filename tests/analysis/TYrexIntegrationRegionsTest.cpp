#include "TYrexIntegrationRegions.h"

#include "TYrexProcIds.h"
#include "TYrexSpectrum.h"
#include "settings/TDefaultsIni.h"
#include "stream/TDataStream.h"

#include <QDataStream>
#include <gtest/gtest.h>
#include <limits>

using TRegion = TYrexIntegrationRegion;

namespace {

TRegion regionOf(double area, bool reference = false)
{
    TRegion region;
    region.area = area;
    region.reference = reference;
    return region;
}

QByteArray stored(const TYrexIntegrationRegions &regions)
{
    QByteArray bytes;
    TDataStream out(&bytes, QIODevice::WriteOnly);
    regions.store(out);
    return bytes;
}

} // namespace

TEST(IntegrationRegions, theFirstRegionIsTheReference)
{
    TYrexIntegrationRegions regions;
    const TRegion first(1.0, 2.0, TRegion::cAutomatic);
    regions.append(first);
    regions.append(TRegion());
    EXPECT_TRUE(regions.at(0)->reference);
    EXPECT_FALSE(regions.at(1)->reference);
    EXPECT_EQ(regions.at(0)->id, first.id); // a copy with the identity
    EXPECT_NE(regions.at(1)->id, first.id);
    EXPECT_EQ(regions.indexOf(first.id), 0);
    EXPECT_EQ(regions.region(first.id), regions.at(0));
    regions.removeAt(0);
    EXPECT_FALSE(regions.at(0)->reference); // and then none is
    EXPECT_EQ(regions.indexOf(first.id), -1);
    EXPECT_EQ(regions.region(first.id), nullptr);
}

TEST(IntegrationRegions, areRemovedByPlaceAndByMode)
{
    TYrexIntegrationRegions regions;
    for (const int mode : {1, 2, 1, 4})
        regions.append(TRegion(0.0, double(regions.count()), mode));
    regions.removeAt(-1);
    regions.removeAt(4);
    EXPECT_EQ(regions.count(), 4);
    EXPECT_EQ(regions.takeAt(1).boundB, 1.0);
    EXPECT_EQ(regions.takeAt(17).mode, 2);
    regions.removeByMode(1);
    ASSERT_EQ(regions.count(), 1);
    EXPECT_EQ(regions.at(0)->mode, 4);
    regions.removeByMode(3); // both kinds: all of them, also those of neither
    EXPECT_TRUE(regions.isEmpty());
}

TEST(IntegrationRegions, normalizeToTheReference)
{
    struct
    {
        const char *fName;
        QVector<TRegion> fRegions;
        double fExpected;
        bool fFirstIsReference;
    } const cases[] = {
        {"none", {}, 2.0, false},
        {"one", {regionOf(-5.0), regionOf(3.0)}, 5.0, true},
        {"two of them", {regionOf(5.0), regionOf(-3.0, true)}, 8.0, true},
        {"without area", {regionOf(0.0), regionOf(3.0)}, 2.0, true},
    };
    for (const auto &test : cases) {
        TYrexIntegrationRegions regions;
        regions.setNormValue(2.0);
        regions.setNormValue(0.0); // ignored
        for (const TRegion &region : test.fRegions)
            regions.append(region);
        regions.normalizeToReference();
        EXPECT_EQ(regions.normValue(), test.fExpected) << test.fName;
        EXPECT_EQ(!regions.isEmpty() && regions.at(0)->reference, test.fFirstIsReference) << test.fName;
    }
    // no flag at all: the first takes it
    TYrexIntegrationRegions regions;
    regions.append(regionOf(7.0));
    regions.append(regionOf(3.0));
    regions.at(0)->reference = false;
    regions.normalizeToReference();
    EXPECT_TRUE(regions.at(0)->reference);
    EXPECT_EQ(regions.normValue(), 7.0);
}

TEST(IntegrationRegions, normalizeToATotalAndShowIntegrals)
{
    TYrexIntegrationRegions regions;
    EXPECT_EQ(regions.totalIntegral(true), 0.0);
    EXPECT_EQ(regions.maxArea(true), 0.0);
    regions.normalizeToTotal(100.0);
    EXPECT_EQ(regions.normValue(), 1.0);
    regions.append(regionOf(1.0));
    regions.append(regionOf(-3.0));
    regions.normalizeToTotal(0.0);
    EXPECT_EQ(regions.normValue(), 1.0);
    regions.normalizeToTotal(100.0);
    EXPECT_DOUBLE_EQ(regions.normValue(), 0.04);
    EXPECT_DOUBLE_EQ(regions.integralValue(regions.at(0), true), 25.0);
    EXPECT_DOUBLE_EQ(regions.integralValue(regions.at(1), false), 75.0);
    EXPECT_DOUBLE_EQ(regions.integralValue(regions.at(1), true), -75.0);
    EXPECT_EQ(regions.integralValue(nullptr, true), 0.0);
    EXPECT_DOUBLE_EQ(regions.totalIntegral(false), 100.0);
    EXPECT_DOUBLE_EQ(regions.totalIntegral(true), -50.0);
    EXPECT_EQ(regions.maxArea(true), 3.0);
    EXPECT_EQ(regions.maxArea(false), 1.0);
    regions.removeAt(0);
    EXPECT_EQ(regions.maxArea(false), -3.0);
}

TEST(IntegrationRegions, theReferenceMoves)
{
    TYrexIntegrationRegions regions;
    for (int i = 0; i < 3; ++i)
        regions.append(TRegion());
    EXPECT_EQ(regions.setReferenceIndex(3), -1);
    EXPECT_EQ(regions.setReferenceIndex(2), 0);
    EXPECT_FALSE(regions.at(0)->reference);
    EXPECT_TRUE(regions.at(2)->reference);
    regions.at(2)->reference = false;
    EXPECT_EQ(regions.setReferenceIndex(1), 3); // none had it
}

TEST(IntegrationRegions, sumWholePointsBetweenTheBounds)
{
    QVector<double> y(30);
    for (int i = 0; i < y.size(); ++i)
        y[i] = 1 << i; // every set of points has its own sum
    const auto area = [&y](double a, double b) {
        return TYrexIntegrationRegions::areaOf(y.constData(), y.size(), a, b, 12, 0.0);
    };
    const auto sum = [](int from, int to) { return double((1 << (to + 1)) - (1 << from)); };
    EXPECT_EQ(area(12.9, 12.9), sum(12, 12));
    EXPECT_EQ(area(20.2, 10.7), sum(10, 20));
    EXPECT_EQ(area(-0.5, 1.0), sum(0, 1)); // cut towards zero
    EXPECT_EQ(area(-5.0, 1.0), sum(0, 1));
    EXPECT_EQ(area(28.0, 1e300), sum(28, 29));
    EXPECT_EQ(area(30.0, 40.0), 0.0);
    EXPECT_EQ(area(-9.0, -1.0), 0.0);
    EXPECT_EQ(area(std::numeric_limits<double>::quiet_NaN(), 3.0), 0.0);
    EXPECT_EQ(TYrexIntegrationRegions::areaOf(nullptr, 0, 0.0, 5.0, 12, 0.0), 0.0);
}

TEST(IntegrationRegions, sumTransmittanceInAbsorbance)
{
    const double fraction[] = {0.1, 0.0, 10.0, -1.0, 0.01}; // 1, beyond, below 0, no logarithm, 2
    EXPECT_NEAR(TYrexIntegrationRegions::areaOf(fraction, 5, 0.0, 4.0, 10, 3.0), 1.0 + 3.0 + 0.0 + 3.0 + 2.0, 1e-12);
    const double percent[] = {10.0, 1.0};
    EXPECT_NEAR(TYrexIntegrationRegions::areaOf(percent, 2, 0.0, 1.0, 11, 1.5), 1.0 + 1.5, 1e-12);
}

TEST(IntegrationRegions, takeTheLargestAbsorbanceFromTheChain)
{
    TDefaultsIni::setStore(TDefaultsIni::memory);
    TYrexSpectrum spectrum;
    spectrum.setPointCount(2);
    spectrum.setValues({0.1, 0.001});
    TYrexIntegrationRegions regions;
    regions.appendCalculated(TRegion(0.0, 1.0, TRegion::cManual), spectrum, 10);
    EXPECT_NEAR(regions.at(0)->area, 4.0, 1e-12); // up to the default of 4
    EXPECT_EQ(regions.normValue(), regions.at(0)->area);

    TYrexProcParams params;
    const QVariantMap conversion = {{cKeyOpId, 50}, {cKeyMaxAbsorbance, 2.0}};
    const QVariantMap second = {{cKeyOpId, 50}, {cKeyMaxAbsorbance, 9.0}};
    params.setActions({conversion, second});
    spectrum.procParams() = params;
    regions.appendCalculated(TRegion(1.0, 1.0, TRegion::cManual), spectrum, 10);
    EXPECT_NEAR(regions.at(1)->area, 2.0, 1e-12);
    EXPECT_NEAR(regions.normValue(), 4.0, 1e-12); // only the first one normalises

    params.setActions({});
    spectrum.procParams() = params;
    TYrexIntegrationRegions::calculateArea(spectrum, *regions.at(1), 10);
    EXPECT_EQ(regions.at(1)->area, 0.0);
}

TEST(IntegrationRegions, sortForTheListAndForTables)
{
    TYrexIntegrationRegions regions;
    const double bounds[][2] = {{5.0, 6.0}, {1.0, 20.0}, {5.0, 2.0}};
    const double areas[] = {2.0, 3.0, 1.0};
    QVector<TRegion> records;
    for (int i = 0; i < 3; ++i) {
        records.append(TRegion(bounds[i][0], bounds[i][1], 2));
        records.last().area = areas[i];
        regions.append(records.last());
    }
    regions.sort();
    EXPECT_EQ(regions.at(0)->boundB, 20.0);

    struct
    {
        int fKey;
        bool fDescending;
        QVector<double> fOrder; // by area, which is unique
    } const cases[] = {
        {0, false, {3.0, 1.0, 2.0}}, {0, true, {2.0, 1.0, 3.0}},  {1, false, {1.0, 2.0, 3.0}},
        {2, true, {3.0, 2.0, 1.0}},  {3, false, {1.0, 2.0, 3.0}}, {4, true, {2.0, 3.0, 1.0}},
    };
    for (const auto &test : cases) {
        QVector<TRegion> sorted = records;
        TYrexIntegrationRegions::sortRecords(sorted, test.fKey, test.fDescending);
        QVector<double> order;
        for (const TRegion &region : sorted)
            order.append(region.area);
        EXPECT_EQ(order, test.fOrder) << test.fKey;
    }
}

TEST(IntegrationRegions, showThemselvesAsTextAndMap)
{
    EXPECT_EQ(TYrexIntegrationRegions::regionText(TRegion(1.26, 10.0, 2), 1), "1.3 .. 10.0");
    TYrexIntegrationRegions regions;
    regions.append(TRegion(1.0, 2.0, TRegion::cAutomatic));
    regions.append(TRegion(3.0, 4.0, TRegion::cManual));
    const QVariantMap map = regions.toVariantMap();
    EXPECT_EQ(map.value("Norm Value"), QVariant(1.0));
    const QVariantList list = map.value("Integrals").toList();
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list.at(0).toMap().value("Mode"), QVariant("Auto"));
    EXPECT_EQ(list.at(1).toMap().value("Mode"), QVariant("Manual"));
    EXPECT_EQ(list.at(1).toMap().value("BoundB"), QVariant(4.0));
    EXPECT_EQ(list.at(1).toMap().value("UUID"), QVariant(regions.at(1)->id.toByteArray()));
}

TEST(IntegrationRegions, areStoredInTheirLayout)
{
    TYrexIntegrationRegions regions;
    EXPECT_EQ(stored(regions).toHex(), "b10cda7a000000000000000c"
                                       "b10cda7a0000000000000000"
                                       "3ff000000000000000000000");
    regions.append(TRegion(1.5, 2.5, TRegion::cManual));
    regions.at(0)->area = 4.0;
    regions.at(0)->maximum = 8.0;
    QByteArray region;
    QDataStream out(&region, QIODevice::WriteOnly);
    out << quint32(0xB10CDA7A) << quint64(0) << 4.0 << 8.0 << 1.5 << 2.5 << qint8(1) << qint8(2) << regions.at(0)->id;
    EXPECT_EQ(stored(regions).mid(36).toHex(), region.toHex());
}

TEST(IntegrationRegions, comeBackFromAStreamAndSurviveDamage)
{
    TYrexIntegrationRegions regions;
    regions.append(TRegion(1.5, 2.5, TRegion::cAutomatic));
    regions.append(TRegion(3.5, 4.5, TRegion::cManual));
    regions.setNormValue(0.25);
    const QByteArray whole = stored(regions);

    TYrexIntegrationRegions read;
    TDataStream in(whole);
    read.load(in);
    EXPECT_TRUE(in.isGood() && in.atLimit());
    EXPECT_EQ(stored(read).toHex(), whole.toHex());

    for (int length = 0; length < whole.size(); ++length) {
        TDataStream cut(whole.left(length));
        read.load(cut);
        EXPECT_TRUE(read.isEmpty()) << length;
        EXPECT_NE(read.normValue(), 0.0) << length;
    }
    QByteArray tooMany = whole;
    tooMany.replace(32, 4, "\x7f\xff\xff\xff"); // the count
    TDataStream damaged(tooMany);
    read.load(damaged);
    EXPECT_TRUE(read.isEmpty());
    EXPECT_FALSE(damaged.isGood());
}

TEST(IntegrationRegions, areCopiedWithTheirIdentity)
{
    TYrexIntegrationRegions regions;
    regions.append(TRegion(1.5, 2.5, TRegion::cAutomatic));
    regions.setNormValue(3.0);
    TYrexIntegrationRegions copy(regions);
    copy.assign(copy); // keeps everything
    EXPECT_EQ(stored(copy), stored(regions));
    EXPECT_NE(copy.at(0), regions.at(0));
}
