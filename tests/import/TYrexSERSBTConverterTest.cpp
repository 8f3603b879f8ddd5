#include "TYrexSERSBTConverter.h"

#include "StandInItem.h"
#include "TReaderFixture.h"
#include "TYrexUnits.h"

namespace {

const QByteArray cHead = "FileVersion = 2.0\nRamanShiftUnits: cm-1\nDate = 2024-05-06\n";
const QByteArray cSweep = "BeginLFASweepPos 2 1\n0 5\n1 1\n";
const QByteArray cLfa = "BeginLFASpectralData, 3, 2, 1\n300 1 -1\n100 3 -3\n200 2 -2\nEndLFASpectralData\n";
const QByteArray cNonLfa = "BeginNonLFASpectralData 2 1 2\n 10 5 6\n-10 7 8\nEndNonLFASpectralData\n";
const QByteArray cSource = "BeginNonLFASourceOn 1 2\n1 0\n";

class SersbtConverter : public TReaderFixture
{
protected:
    int read(const QByteArray &text) { return fConverter.convert(fileOf(text, "a.meas"), nullptr); }
    QString problemOf(const QByteArray &text)
    {
        EXPECT_EQ(read(text), 52);
        EXPECT_TRUE(fConverter.spectra().isEmpty());
        return fConverter.problem();
    }
    const TYrexSpectrum &spectrum(int index = 0) { return *fConverter.spectra().at(index); }

    TYrexSERSBTConverter fConverter;
};

} // namespace

TEST_F(SersbtConverter, ReadsBothSeriesOnAscendingX)
{
    ASSERT_EQ(read(cHead + cSweep + "BeginLFAADCGain 2 1\n7 8\n" + cLfa + cNonLfa + cSource), 0);
    ASSERT_EQ(fConverter.spectra().size(), 4);
    EXPECT_EQ(spectrum(0).title(), "LFA spectra - spec 1");
    EXPECT_EQ(spectrum(1).title(), "LFA spectra - spec 2");
    EXPECT_EQ(spectrum(1).values(), QVector<double>({-3, -2, -1}));
    EXPECT_EQ(spectrum(1).firstX(), 100.0);
    EXPECT_EQ(spectrum(1).lastX(), 300.0);
    EXPECT_EQ(spectrum(1).seriesValue(), 2.0);
    EXPECT_EQ(spectrum(1).xUnits(), cUnitRamanShift);
    EXPECT_EQ(spectrum(1).yUnits(), cUnitArbitrary);
    EXPECT_EQ(param(spectrum(1), TSpectrumParam::cXUnits), "Raman Shift");
    EXPECT_EQ(spectrum(1).acquisitionDate(), QDateTime(QDate(2024, 5, 6), QTime(0, 0)));
    EXPECT_EQ(spectrum(3).title(), "Non LFA spectra - spec 2");
    EXPECT_EQ(spectrum(3).values(), QVector<double>({8, 6}));
    EXPECT_EQ(spectrum(3).seriesValue(), 2.0);
}

TEST_F(SersbtConverter, MakesAnItemOfEachSeries)
{
    TStandInFactory factory;
    ASSERT_EQ(read(cHead + cNonLfa + cLfa + cSweep), 0) << "blocks in any order";
    ASSERT_EQ(factory.fItems.size(), 2u);
    EXPECT_EQ(factory.fItems[0]->fSpectra.first()->title(), "LFA spectra - spec 1");
    EXPECT_EQ(factory.fItems[1]->fSpectra.at(1)->title(), "Non LFA spectra - spec 2");

    factory.fItems.clear();
    ASSERT_EQ(read(cHead + cNonLfa), 0);
    ASSERT_EQ(factory.fItems.size(), 1u);
    EXPECT_EQ(factory.fItems[0]->fSpectra.size(), 2);
}

TEST_F(SersbtConverter, KeepsParameters)
{
    const QString path = fileOf(cHead + "Laser = 785 nm\nalone\nLaser: 1064\xC2\xB5\n" + cNonLfa, "a.meas");
    ASSERT_EQ(fConverter.convert(path, nullptr), 0);
    const QString all = "Date: 2024-05-06| FileVersion: 2.0| Laser: 1064\u00B5| RamanShiftUnits: cm-1| ";
    EXPECT_EQ(param(spectrum(), TSpectrumParam::cInstrument), all);
    EXPECT_EQ(fConverter.metaData(path, {"SERSBT_METADATA(MISCPAR)"}).value("SERSBT_METADATA(MISCPAR)"), all);
}

TEST_F(SersbtConverter, TakesTheLastOfEqualX)
{
    ASSERT_EQ(read("FileVersion 1\nBeginNonLFASpectralData 3 1 1\n1 5\n2 6\n1 7\nEndNonLFASpectralData\n"), 0);
    EXPECT_EQ(spectrum().values(), QVector<double>({7, 6}));
    EXPECT_EQ(spectrum().pointCount(), 2);
    EXPECT_EQ(spectrum().xUnits(), cUnitArbitrary);
    const QVector<QPair<QByteArray, int>> cUnits = {
        {"nm", cUnitNanometers}, {"um", cUnitMicrometers}, {"NM", cUnitArbitrary}};
    for (const auto &unit : cUnits) {
        ASSERT_EQ(read(QByteArray("FileVersion 1\r\nRamanShiftUnits ") + unit.first + "\r\n" + cNonLfa), 0);
        EXPECT_EQ(spectrum().xUnits(), unit.second);
    }
}

TEST_F(SersbtConverter, RefusesInWords)
{
    const auto refusal = [this](const QByteArray &text, const QString &name = "a.meas") {
        return fConverter.refusal(fileOf(text, name));
    };
    EXPECT_EQ(refusal("FileVersion = 2.0\n"), "");
    EXPECT_EQ(refusal("FileVersion = 3.0\n"), "expected a file version not above 2 in line 1, found \"3.0\"");
    EXPECT_EQ(refusal("Version 1\n"), "expected \"FileVersion\" in line 1, found \"Version\"");
    EXPECT_EQ(refusal("FileVersion 1", "a.MEAS"), "expected a name that ends in \".meas\", found \"a.MEAS\"");
    EXPECT_FALSE(fConverter.acceptsFilter("", true));
    EXPECT_TRUE(fConverter.acceptsFilter("*.meas", true));
    EXPECT_TRUE(fConverter.exportFilterList().isEmpty());
    EXPECT_EQ(fConverter.convert(fFolder.filePath("none.meas"), nullptr), 51);
    EXPECT_EQ(problemOf(""), "the file is empty");
    EXPECT_TRUE(problemOf(cHead).endsWith("found neither"));
}

TEST_F(SersbtConverter, ChecksWhatBlocksAnnounce)
{
    EXPECT_EQ(problemOf(cHead + "BeginLFASweepPos 2 2\n0 5 1\n1 1\n"),
              "line 5: expected 4 integers of \"BeginLFASweepPos\", found 3");
    EXPECT_EQ(problemOf("BeginLFAADCGain 1 2\n1 x\n"), "line 2: expected an integer, found \"x\"");
    EXPECT_EQ(problemOf("BeginLFAADCGain -1 -2\n1 2\n"), "line 1: expected counts above 0 for \"BeginLFAADCGain\"");
    EXPECT_EQ(problemOf(cHead + cLfa),
              "line 4: expected \"BeginLFASweepPos\" of 2 x 1 as for \"BeginLFASpectralData\", found none");
    EXPECT_EQ(problemOf(cHead + cNonLfa + "BeginNonLFASourceOn 2 1\n1 0\n"),
              "line 8: expected \"BeginNonLFASpectralData\" of 2 x 1 as for \"BeginNonLFASourceOn\", found 1 x 2");
    EXPECT_EQ(problemOf("BeginNonLFASpectralData 3 1 1\n1 2\n2 3\nEndNonLFASpectralData\n"),
              "line 3: expected 3 rows of \"BeginNonLFASpectralData\", found 2");
    EXPECT_EQ(problemOf("BeginNonLFASpectralData 2 1 1\n1 2 3\n2 3\n"),
              "line 2: expected x and 1 intensities of \"BeginNonLFASpectralData\", found 3 numbers");
    EXPECT_EQ(problemOf("BeginNonLFASpectralData 2 1 1\n1 2\n2\n").left(26), "line 3: expected x and 1 i");
    EXPECT_EQ(problemOf("BeginNonLFASpectralData 1 1 1\n1 x\n"), "line 2: expected a number, found \"x\"");
    EXPECT_EQ(problemOf("BeginNonLFASpectralData 1 99999 99999\n1 2\n").left(40),
              "line 2: expected x and 9999800001 intens");
}

TEST_F(SersbtConverter, LeavesRowsOutThatNoBlockAnnounces)
{
    ASSERT_EQ(read("BeginNonLFASpectralData 2 1 1\n3 30\n1 10\n2 20\nEndNonLFASpectralData\n"), 0);
    ASSERT_EQ(fConverter.spectra().size(), 1);
    EXPECT_EQ(fConverter.spectra().first()->values(), QVector<double>({10.0, 20.0}));
    EXPECT_EQ(fConverter.spectra().first()->lastX(), 2.0);
}

TEST_F(SersbtConverter, TellsWhatItSees)
{
    const QString told =
        fConverter.inspect(fileOf(cHead + cSweep + cLfa + cLfa + "BeginNonLFASourceOn 1 2\n1 0\n", "a.meas")).text();
    for (const char *text : {"line 4", "BeginLFASweepPos", "3 points, 2 x 1 spectra", "100 to 300", "x unit 3",
                             "stood before", "as for \"BeginNonLFASourceOn\", found none"})
        EXPECT_TRUE(told.contains(text)) << text << "\n" << told.toStdString();
    EXPECT_TRUE(fConverter.inspect(fileOf("other", "a.meas")).isEmpty());
}

TEST_F(SersbtConverter, StaysSafeWhenCut)
{
    expectSafeWhenCut(fConverter, cHead + cSweep + cLfa + cNonLfa + cSource, "a.meas", 3);
}
