#include "TYrexSpecDataObj.h"
#include "SpectrumBuilder.h"
#include "TYrexUnits.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <gtest/gtest.h>

namespace {

QByteArray stored(const TYrexSpecDataObj &data)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    data.store(stream);
    return bytes;
}

void writeIds(TDataStream &stream, const QList<quint32> &ids)
{
    stream << qint32(ids.size());
    for (const quint32 id : ids)
        stream << id;
}

} // namespace

TEST(TYrexSpecDataObj, xDataAccumulatesStepsAndConverts)
{
    TYrexSpecDataObj data(QUuid(), {newSpectrum(QVector<double>(1001, 1.0), 0.1, 1.1, cUnitWavenumber)});
    const TYrexDataView x = data.axisData(0, cUnitWavenumber, -1);
    ASSERT_TRUE(x.isValid());
    EXPECT_FALSE(x.descending);
    double expected = 0.1;
    const double step = (1.1 - 0.1) / 1000;
    for (int i = 0; i < 1000; ++i)
        expected += step;
    EXPECT_EQ(x.values[1000], expected) << "the sum of steps, rounding included";
    EXPECT_TRUE(data.axisData(0, cUnitMicrometers, 0).descending);
    EXPECT_FALSE(data.axisData(2, 0, 0).isValid());
}

TEST(TYrexSpecDataObj, rangesFollowUnitsAndTransmittanceRunsUpsideDown)
{
    TYrexSpecDataObj data(QUuid(), {newSpectrum({1.0, 3.0}, 4000.0, 400.0, cUnitWavenumber)});
    EXPECT_EQ(data.axisRange(0, cUnitWavenumber, 12), IYrexPlotData::TPair(4000.0, 400.0)) << "from high to low";
    EXPECT_EQ(data.axisRange(0, cUnitMicrometers, 12), IYrexPlotData::TPair(2.5, 25.0));
    data.axisData(1, 50, 0);
    EXPECT_EQ(data.axisRange(1, 0, cUnitAbsorbance), IYrexPlotData::TPair(0.96, 3.04));
    EXPECT_EQ(data.axisRange(1, 0, cUnitTransmittance), IYrexPlotData::TPair(3.04, 0.96));
    EXPECT_EQ(data.axisRange(2, 50, 0), IYrexPlotData::TPair(0.0, 1.0));

    TYrexSpecDataObj nanometres(QUuid(), {newSpectrum({1.0, 3.0}, 400.0, 800.0, cUnitNanometers)});
    EXPECT_EQ(nanometres.axisRange(0, cUnitNanometers, 12), IYrexPlotData::TPair(400.0, 800.0));
}

TEST(TYrexSpecDataObj, aSinglePointStillHasARange)
{
    TYrexSpecDataObj zero(QUuid(), {newSpectrum({1.0}, 0.0, 0.0)});
    EXPECT_EQ(zero.axisRange(0, 50, 50), IYrexPlotData::TPair(-0.1, 0.1));
    TYrexSpecDataObj hundred(QUuid(), {newSpectrum({1.0}, 100.0, 100.0)});
    EXPECT_EQ(hundred.axisRange(0, 50, 50), IYrexPlotData::TPair(75.0, 100.0));
}

TEST(TYrexSpecDataObj, titlesComeFromTheCurrentSpectrumsUnits)
{
    TYrexSpecDataObj data(QUuid(), {newSpectrum({1, 2}, 0, 1, cUnitWavenumber, cUnitPercentTransmittance)});
    EXPECT_EQ(data.axisTitle(0), "Wavenumber [cm^-1]");
    EXPECT_EQ(data.axisTitle(1), "% Transmittance");
    EXPECT_EQ(data.axisTitle(2), QString());
    data.stack().at(0)->setUnits(99, 99);
    EXPECT_EQ(data.axisTitle(0), QString());
}

TEST(TYrexSpecDataObj, emptyObjectAnswersWithoutFailing)
{
    TYrexSpecDataObj data;
    EXPECT_FALSE(data.axisData(0, 0, -1).isValid());
    EXPECT_FALSE(data.axisData(1, 0, 3).isValid());
    EXPECT_FALSE(data.hasPeaks());
    EXPECT_TRUE(data.peaks(0, -1).isEmpty());
    EXPECT_EQ(data.integrals(0, -1).count(), 0);
    EXPECT_EQ(data.axisRange(0, 0, 0), IYrexPlotData::TPair(-0.1, 0.1));
}

TEST(TYrexSpecDataObj, peaksAndRegionsComeInShownUnits)
{
    TYrexSpecDataObj data(QUuid(), {newSpectrum({0, 5, 9, 2, 1}, 1000.0, 1400.0, cUnitWavenumber)});
    auto *peak = new TYrexDPLib::TYrexDPPeak;
    peak->position = 2.5;
    peak->intensity = -1.0;
    data.stack().at(0)->peaks().append(peak);
    data.stack().at(0)->integrals().append(TYrexIntegrationRegion(1.0, 3.0, 2));
    EXPECT_TRUE(data.hasPeaks());
    const auto peaks = data.peaks(cUnitMicrometers, -1);
    ASSERT_EQ(peaks.size(), 1);
    EXPECT_DOUBLE_EQ(peaks.first().position, 8.0);
    EXPECT_EQ(peaks.first().intensity, 9.0) << "the present value, not the one at picking time";
    EXPECT_EQ(peaks.first().id, peak->id);
    const TYrexIntegrationRegions regions = data.integrals(cUnitWavenumber, -1);
    ASSERT_EQ(regions.count(), 1);
    EXPECT_DOUBLE_EQ(regions.at(0)->boundA, 1100.0);
    EXPECT_DOUBLE_EQ(data.stack().at(0)->integrals().at(0)->boundA, 1.0) << "a copy";
}

TEST(TYrexSpecDataObj, cachesOfSpectraThatWentArePurged)
{
    TYrexSpecDataObj data(QUuid(), {newSpectrum({1, 2}, 0, 1), newSpectrum({3, 4}, 0, 1)});
    data.axisData(0, 50, 0);
    data.axisData(1, 50, 1);
    EXPECT_EQ(data.cachedCount(), 2);
    delete data.stack().at(1);
    data.stack().removeAt(1);
    data.listChanged();
    EXPECT_EQ(data.cachedCount(), 1);
}

TEST(TYrexSpecDataObj, stackRoundTrips)
{
    TYrexSpecDataObj data(QUuid::createUuid(),
                          {newSpectrum({1, 2}, 0, 1), newSpectrum({3, 4}, 0, 1), newSpectrum({5, 6}, 0, 1)});
    data.properties().insert("b", 2.5);
    data.properties().insert("a", "text");
    data.stack().setHidden(1, true);
    data.stack().setDeselected(2, true);
    data.stack().setOrder({2, 0, 1});
    data.stack().setGrouped(7);
    const QByteArray bytes = stored(data);
    TYrexSpecDataObj read;
    TDataStream stream(bytes);
    read.load(stream);
    EXPECT_TRUE(stream.isGood());
    EXPECT_EQ(read.id(), data.id());
    EXPECT_EQ(read.stack().hidden(), data.stack().hidden());
    EXPECT_EQ(read.stack().deselected(), data.stack().deselected());
    EXPECT_EQ(read.stack().order(), data.stack().order());
    EXPECT_EQ(read.stack().grouped(), 1);
    EXPECT_EQ(stored(read), bytes);
}

TEST(TYrexSpecDataObj, olderStreamsSelectByTheListOfSelectedIds)
{
    QByteArray bytes;
    TDataStream out(&bytes, QIODevice::WriteOnly);
    writeIds(out, {0, 1, 2});
    writeIds(out, {});
    writeIds(out, {0, 2});
    writeIds(out, {0, 1, 2});
    TDataStreamAdaptor(out).startStore();
    {
        TDataStreamAdaptor spectra(out);
        spectra.startStore();
        out << qint32(3);
        for (int i = 0; i < 3; ++i)
            makeSpectrum({1, 2}, 0, 1)->store(out);
    }
    TYrexSpecDataObj read;
    TDataStream in(bytes);
    read.loadBody(in);
    EXPECT_TRUE(in.isGood());
    EXPECT_EQ(read.stack().count(), 3);
    EXPECT_EQ(read.stack().deselected(), QSet<quint32>({1}));
}

TEST(TYrexSpecDataObj, everyCutLoadsIntoASoundStack)
{
    TYrexSpecDataObj data(QUuid::createUuid(), {newSpectrum({1, 2}, 0, 1), newSpectrum({3, 4}, 0, 1)});
    data.stack().setDeselected(1, true);
    const QByteArray bytes = stored(data);
    for (int length = 0; length < bytes.size(); length += 3) {
        TYrexSpecDataObj read;
        TDataStream stream(bytes.left(length));
        read.load(stream);
        EXPECT_EQ(read.stack().ids().size(), read.stack().count()) << length;
        EXPECT_EQ(read.stack().order().size(), read.stack().count()) << length;
    }
}

TEST(TYrexSpecDataObj, viewsOfOneSpectrumHaveItsPointCount)
{
    TYrexSpecDataObj data(QUuid(), {newSpectrum({1, 2, 3, 4}, 0, 3)});
    data.stack().at(0)->setPointCount(2);
    EXPECT_EQ(data.xData(50, 0).count, 2);
    EXPECT_EQ(data.yData(50, 0).count, 2);
}
