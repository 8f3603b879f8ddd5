#include "TYrexMultipointSession.h"
#include "SpectrumBuilder.h"
#include "TYrexUnits.h"
#include "stream/TDataStream.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

std::unique_ptr<TYrexSpectrum> sloped(int n = 501)
{
    QVector<double> y(n);
    for (int i = 0; i < n; ++i)
        y[i] = 10.0 + 0.02 * i + 5.0 / (1.0 + std::pow((i - n / 2) / 8.0, 2));
    return makeSpectrum(y, 4000, 400, cUnitWavenumber, cUnitCounts);
}

QByteArray bytesOf(const TYrexSpectrum &spectrum)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    spectrum.store(stream);
    return bytes;
}

void apply(TYrexSpectrum &spectrum, int action)
{
    TYrexProcParams params = spectrum.procParams().params();
    const int place = params.indexOfAction(action);
    QVariantMap map = params.action(place);
    map["apply"] = true;
    params.setAction(place, map);
    spectrum.procParams() = params;
    spectrum.process(0, 0, params.actionCount() - 1);
}

} // namespace

TEST(TYrexMultipointSession, aCancelledSessionLeavesEveryByte)
{
    const auto spectrum = sloped();
    apply(*spectrum, cProcSmoothing);
    apply(*spectrum, cProcAutoPeakPicking);
    ASSERT_FALSE(spectrum->peaks().isEmpty());
    const QByteArray before = bytesOf(*spectrum);
    TYrexMultipointSession session([&] { return spectrum.get(); });
    ASSERT_TRUE(session.begin());
    EXPECT_FALSE(session.isChanged());
    session.addPoint(20, 0, TYrexMultipointSession::cAverage);
    session.addPoint(400, 3, TYrexMultipointSession::cFree);
    session.setPreviewing(true);
    EXPECT_TRUE(session.isChanged());
    EXPECT_NE(bytesOf(*spectrum), before);
    session.cancel();
    EXPECT_EQ(bytesOf(*spectrum), before);
    EXPECT_EQ(spectrum->preview(), nullptr);
}

TEST(TYrexMultipointSession, pointsStandInTheOrderOfXAndMoveUpToTheirNeighbours)
{
    const auto spectrum = sloped();
    TYrexMultipointSession session([&] { return spectrum.get(); });
    ASSERT_TRUE(session.begin());
    session.addPoint(300, 7, 1);
    session.addPoint(100, 0, 2);
    EXPECT_EQ(session.addPoint(200.4, 0, 3), 1);
    EXPECT_NEAR(session.points().at(0).y, spectrum->values().at(100), 1e-9);
    session.beginDrag();
    session.movePoint(1, 150, 0);
    session.movePoint(1, 900, 0);
    session.endDrag();
    EXPECT_EQ(session.points().at(1).x, 299.0);
    session.undo(); // the drag is one step
    EXPECT_EQ(session.points().at(1).x, 200.0);
    session.beginDrag();
    session.movePoint(0, 5, 0);
    EXPECT_TRUE(session.cancelDrag());
    EXPECT_EQ(session.points().at(0).x, 100.0);
    session.redo();
    EXPECT_EQ(session.points().at(1).x, 299.0);
    EXPECT_EQ(session.addPoint(299, 1, 1), 1);
    EXPECT_EQ(session.points().size(), 3);
    while (session.canUndo())
        session.undo();
    EXPECT_TRUE(session.points().isEmpty());
    EXPECT_TRUE(session.curve().isEmpty());
    EXPECT_FALSE(session.isChanged());
}

TEST(TYrexMultipointSession, automaticPointsStayWithinTheirRangeAndNeverDouble)
{
    const auto spectrum = sloped(4001);
    TYrexMultipointSession session([&] { return spectrum.get(); });
    ASSERT_TRUE(session.begin());
    session.addAutomaticPoints(0, 1500);
    for (const TYrexBaselinePoint &point : session.points())
        EXPECT_LE(point.x, 1500.0);
    session.setPreviewing(true);
    session.addAutomaticPoints();
    const int count = session.points().size();
    EXPECT_EQ(session.addAutomaticPoints(), 0);
    EXPECT_EQ(session.points().size(), count);
    session.addBorderPoints();
    EXPECT_EQ(session.points().first().x, 0.0);
    EXPECT_EQ(session.points().last().x, 4000.0);
}

TEST(TYrexMultipointSession, thePreviewIsWhatApplyingGives)
{
    const auto spectrum = sloped();
    TYrexMultipointSession session([&] { return spectrum.get(); });
    ASSERT_TRUE(session.begin());
    session.addBorderPoints();
    session.addPoint(120, 0, 2);
    session.setPreviewing(true);
    const QVector<double> previewed = spectrum->values();
    const TYrexProcParams params = session.finish();
    spectrum->procParams() = params;
    spectrum->process(0, 0, params.actionCount() - 1);
    EXPECT_EQ(spectrum->values(), previewed);
    EXPECT_NEAR(spectrum->values().at(60), 0.0, 0.1);
    // opened again, the points come back over the data without the correction
    TYrexMultipointSession again([&] { return spectrum.get(); });
    ASSERT_TRUE(again.begin());
    EXPECT_EQ(again.points().size(), 3);
    EXPECT_GT(spectrum->values().at(60), 10.0);
    again.cancel();
    EXPECT_EQ(spectrum->values(), previewed);
}

TEST(TYrexMultipointSession, textCarriesPointsInTheUnitThatIsShown)
{
    const auto spectrum = sloped();
    TYrexMultipointSession session([&] { return spectrum.get(); });
    ASSERT_TRUE(session.begin());
    session.addPoint(100, 2.5, 1);
    session.addPoint(300, 0, 3);
    for (const int unit : {int(cUnitWavenumber), int(cUnitNanometers)}) {
        const QVector<TYrexBaselinePoint> read = session.pointsOf(session.text(unit), unit);
        ASSERT_EQ(read.size(), 2);
        EXPECT_EQ(read.at(0).x, 100.0);
        EXPECT_EQ(read.at(1).kind, 3);
    }
    EXPECT_TRUE(session.pointsOf("x\ty\n-5\t1\n4000\tnan\n", cUnitWavenumber).isEmpty());
    EXPECT_EQ(session.pointsOf("4000\t1\r\n4000\t2\r\n400\t1\t9\r\n", cUnitWavenumber).size(), 2);
}

TEST(TYrexMultipointSession, aSpectrumThatIsGoneOrRenewedDoesNoHarm)
{
    auto spectrum = sloped();
    TYrexMultipointSession session([&] { return spectrum.get(); });
    ASSERT_TRUE(session.begin());
    session.addPoint(100, 2.5, 1);
    spectrum = sloped();
    EXPECT_FALSE(session.isAlive());
    spectrum.reset();
    EXPECT_FALSE(session.isAlive());
    session.addPoint(10, 1, 1);
    session.addAutomaticPoints();
    session.addBorderPoints();
    session.setPreviewing(true);
    session.undo();
    session.cancel();
    TYrexMultipointSession none([] { return static_cast<TYrexSpectrum *>(nullptr); });
    EXPECT_FALSE(none.begin());
}
