#include "TJCAMPYrexConverter.h"

#include "SpectrumBuilder.h"
#include "StandInItem.h"
#include "TJCAMPYrexInterpreter.h"
#include "TReaderFixture.h"
#include "TYrexUnits.h"
#include "consts/Consts.h"
#include "jcamp/TJCAMPBlock.h"
#include "jcamp/TJCAMPExportData.h"
#include "jcamp/TJCAMPFileMarking.h"
#include "jcamp/TJCAMPWriter.h"
#include "jcampDate.h"
#include "log/TLogger.h"
#include "plugin/TFileNode.h"

#include <QBuffer>
#include <limits>

namespace {

/// Cuts files into blocks and offers them to the converter, as the host does.
class JcampConverter : public TReaderFixture
{
protected:
    void SetUp() override
    {
        fSink = TLogger::addSink([this](const TLogEntry &entry) { fLog += entry.fText + '\n'; });
    }
    void TearDown() override { TLogger::removeSink(fSink); }

    /// The code of the last block that the converter knows, -1 when there is none.
    int read(const QByteArray &text)
    {
        const TJCAMPFileMarking marking(fileOf(text, "data.jdx"));
        int code = -1;
        fFactory.fItems.clear();
        fLog.clear();
        fConverter.clear();
        for (TJCAMPBlock *block : marking.blocks()) {
            fConverter.setBlock(block, marking.path());
            if (!fConverter.metaData(block, {}).isEmpty())
                code = fConverter.importFile(marking.path(), nullptr);
        }
        TCanvasItemList items = fConverter.allImportedItems();
        fConverter.blocksImported(items);
        fConverter.setBlock(nullptr, QString());
        return code;
    }
    const TYrexSpectrumList &spectra() const
    {
        static const TYrexSpectrumList cNone;
        return fFactory.fItems.empty() ? cNone : fFactory.fItems.front()->fSpectra;
    }
    const TYrexSpectrum &first() const { return *spectra().first(); }

    /// What comes back of spectra that are written and read.
    void sendRound(const TYrexSpectrumList &sent, TJCAMPWriter::TForm form = TJCAMPWriter::cDIFDUP)
    {
        TStandInItem item(sent);
        fConverter.beginExport({&item});
        ASSERT_EQ(fConverter.exportItems({&item}, fFolder.filePath("out.jdx")), 0);
        QList<TJCAMPExportData> data;
        ASSERT_TRUE(fConverter.exportItem(data, 0));
        fConverter.endExport();
        QBuffer buffer(&fWritten);
        buffer.open(QIODevice::WriteOnly);
        ASSERT_TRUE(TJCAMPWriter(&buffer, form).writeFile(data, "all"));
        ASSERT_EQ(read(fWritten), 0) << fConverter.problem().toStdString();
    }

    /// What the view of a file says of its first block.
    QString seen(const QByteArray &text)
    {
        const TJCAMPFileMarking marking(text, "x");
        TFileNode node;
        node.fName = "block";
        fConverter.inspectBlock(marking.blocks().first(), node);
        return node.text();
    }

    TJCAMPYrexConverter fConverter;
    QString fLog;
    int fSink = 0;
    TStandInFactory fFactory;
    QByteArray fWritten;
};

QByteArray block(const QByteArray &labels, const QByteArray &data = "##NPOINTS=3\n##XYDATA=(X++(Y..Y))\n400 10 20 30\n")
{
    return "##TITLE=one\n##JCAMP-DX=4.24\n" + labels + "##FIRSTX=400\n##LASTX=404\n" + data + "##END=\n";
}

const QByteArray cInfrared = "##DATA TYPE=INFRARED SPECTRUM\n##XUNITS=1/CM\n##YUNITS=ABSORBANCE\n";

QByteArray transmittance(const QByteArray &unit, const QByteArray &more)
{
    return block("##DATA TYPE=INFRARED SPECTRUM\n##XUNITS=1/CM\n##YUNITS=" + unit + "\n" + more);
}

} // namespace

TEST_F(JcampConverter, readsABlockWithItsAxisAndParameters)
{
    ASSERT_EQ(read(block(cInfrared + "##YFACTOR=0.5\n##FIRSTY=5\n##ORIGIN=here\n##OWNER=us\n##DATE=18/07/24\n"
                                     "##TIME=10:11:12\n##$username=Ann\n")),
              0);
    ASSERT_EQ(spectra().size(), 1);
    EXPECT_EQ(first().values(), QVector<double>({5.0, 10.0, 15.0}));
    EXPECT_EQ(first().absOrgData(), first().values());
    EXPECT_EQ(first().fileFormat(), 36);
    EXPECT_EQ(first().firstX(), 400.0);
    EXPECT_EQ(first().lastX(), 404.0);
    EXPECT_EQ(first().yFactor(), 0.5);
    EXPECT_EQ(first().firstY(), 5.0);
    EXPECT_EQ(first().origXUnits(), cUnitWavenumber);
    EXPECT_EQ(first().yUnits(), cUnitAbsorbance);
    EXPECT_EQ(first().title(), "one");
    EXPECT_EQ(param(first(), 1002), "here");
    EXPECT_EQ(param(first(), 1003), "us");
    EXPECT_EQ(param(first(), 1010), "Ann");
    EXPECT_EQ(param(first(), 1020), "INFRARED SPECTRUM");
    EXPECT_EQ(first().acquisitionDate(), QDateTime(QDate(2018, 7, 24), QTime(10, 11, 12)));
    EXPECT_FALSE(fConverter.canImport(fFolder.filePath("data.jdx")));
}

TEST_F(JcampConverter, knowsUnitsByTheirTexts)
{
    const struct
    {
        const char *fText;
        bool fIsRaman;
        int fUnit;
    } cX[] = {{"1/CM", true, 3},
              {"1/CM", false, 0},
              {"cm-1", false, 0},
              {"NANOMETERS", false, 2},
              {"MICROMETERS", false, 1},
              {"um", false, 1},
              {"Wavelength (nm)", false, 2},
              {"HZ", false, 50},
              {"CM^-1", false, 50},
              {"", false, 50}};
    for (const auto &one : cX)
        EXPECT_EQ(TJCAMPYrexInterpreter::xUnitOf(one.fText, one.fIsRaman), one.fUnit) << one.fText;
    const QMap<QByteArray, int> y{{"% TRANSMITTANCE", 10},
                                  {"Reflectance", 13},
                                  {"absorbance units", 12},
                                  {"ARBITRARY UNITS", 50},
                                  {"COUNTS PER S", 14},
                                  {"Transmission (%)", 50},
                                  {"", 50},
                                  {"COUNTS ARBITRARY", 50}};
    for (auto it = y.begin(); it != y.end(); ++it)
        EXPECT_EQ(TJCAMPYrexInterpreter::yUnitOf(it.key()), it.value()) << it.key().toStdString();
    ASSERT_EQ(read(block("##DATA TYPE=RAMAN SPECTRUM\n##XUNITS=1/CM\n##YUNITS=COUNTS\n")), 0);
    EXPECT_EQ(first().xUnits(), cUnitRamanShift);
    EXPECT_EQ(param(first(), 2001), "1/CM");
}

TEST_F(JcampConverter, makesFractionsOfPercent)
{
    ASSERT_EQ(read(transmittance("% TRANSMITTANCE", "##MAXY=100\n")), 0);
    EXPECT_EQ(first().values(), QVector<double>({0.1, 0.2, 0.3}));
    EXPECT_EQ(first().origYUnits(), cUnitTransmittance);
    ASSERT_EQ(read(transmittance("TRANSMITTANCE", "")), 0);
    EXPECT_EQ(first().values().last(), 1.0) << "by its own largest value";
    ASSERT_EQ(read(transmittance("TRANSMITTANCE", "##YFACTOR=0.01\n##MAXY=1.0\n")), 0);
    EXPECT_EQ(first().values().last(), 30 * 0.01);
    ASSERT_EQ(read(transmittance("TRANSMITTANCE", "##YFACTOR=-1\n##MAXY=-10\n")), 0);
    EXPECT_EQ(first().values().last(), -30.0);
    EXPECT_EQ(first().yUnits(), cUnitArbitrary);
    ASSERT_EQ(read(transmittance("REFLECTANCE", "##MAXY=100\n")), 0);
    EXPECT_EQ(first().values().last(), 30.0);
}

TEST_F(JcampConverter, takesMissingValuesForZero)
{
    ASSERT_EQ(read(block(cInfrared, "##NPOINTS=5\n##XYDATA=(X++(Y..Y))\n400 10 ? 30\n")), 0);
    EXPECT_EQ(first().values(), QVector<double>({10.0, 0.0, 30.0, 0.0, 0.0}));
}

TEST_F(JcampConverter, stacksTheBlocksOfAFile)
{
    const QByteArray link = "##TITLE=all\n##DATA TYPE=LINK\n##BLOCKS=3\n" + block(cInfrared) +
                            "##TITLE=x\n##DATA TYPE=NMR SPECTRUM\n##XYDATA=(X++(Y..Y))\n1 2 3\n##END=\n" +
                            block(cInfrared + "##YFACTOR=2\n") + block(cInfrared) + "##END=\n";
    ASSERT_EQ(read(link), 0);
    ASSERT_EQ(fFactory.fItems.size(), 1u);
    ASSERT_EQ(spectra().size(), 3);
    EXPECT_EQ(spectra().at(1)->values().first(), 20.0);
    EXPECT_EQ(fConverter.allImportedItems().size(), 1);
}

TEST_F(JcampConverter, readsFilesOfTheLambdaSeriesWithoutADataType)
{
    const QByteArray lambda = "##SPECTROMETER/DATA SYSTEM=PERKIN-ELMER LAMBDA SERIES/PECSS\n";
    ASSERT_EQ(read(block(lambda + "##XUNITS=NANOMETERS\n##YUNITS=ABSORBANCE\n")), 0);
    EXPECT_EQ(first().origXUnits(), cUnitNanometers);
    EXPECT_EQ(read(block("##XUNITS=NANOMETERS\n##YUNITS=ABSORBANCE\n")), -1);
}

TEST_F(JcampConverter, givesThePeaksOfTheFirstTableToAllSpectra)
{
    const QByteArray type = "##DATA TYPE=INFRARED SPECTRUM\n";
    const QByteArray table = "##TITLE=p\n" + type +
                             "##DATA CLASS=PEAK TABLE\n##NPOINTS=4\n##PEAK TABLE=(XY..XY)\n"
                             "402,0.5 404,0.25\n$$ nothing\n406.1,7\n380,8 $$ outside\n##END=\n";
    const QByteArray second = "##TITLE=q\n" + type + "##NPOINTS=1\n##PEAK TABLE=(XY..XY)\n400,1\n##END=\n";
    ASSERT_EQ(read(block(cInfrared) + table + block(type + "##XUNITS=1/CM\n##YUNITS=TRANSMITTANCE\n") + second), 0);
    ASSERT_EQ(spectra().size(), 2);
    for (const TYrexSpectrum *spectrum : spectra()) {
        const auto &peaks = spectrum->peaks();
        ASSERT_EQ(peaks.size(), 4);
        EXPECT_EQ(peaks.at(0)->position, 1.0);
        EXPECT_EQ(peaks.at(0)->intensity, 0.5);
        EXPECT_EQ(peaks.at(0)->positive, spectrum == spectra().first());
        EXPECT_EQ(peaks.at(1)->position, 2.0) << "the last point";
        EXPECT_EQ(peaks.at(2)->position, 2.0) << "one point behind the end counts for the last";
        EXPECT_EQ(peaks.at(2)->intensity, 7.0);
        EXPECT_EQ(peaks.at(3)->position, -10.0);
        EXPECT_EQ(peaks.at(3)->intensity, 0.0);
        EXPECT_NE(peaks.at(0)->id, peaks.at(1)->id);
    }
    EXPECT_EQ(read("##TITLE=p\n##DATA TYPE=PEAK TABLE\n##PEAK TABLE=(XY..XY)\n1,2\n##END=\n"), 50);
}

TEST_F(JcampConverter, putsUnevenPairsOntoAnEvenGrid)
{
    QByteArray even, uneven, down;
    for (int i = 0; i < 20; ++i) {
        const auto pair = [](double x) { return QByteArray::number(x) + ',' + QByteArray::number(3 * x) + '\n'; };
        even += pair(400 + 2 * i);
        uneven += pair(400 + 0.5 * i * i);
        down.prepend(pair(400 + 0.5 * i * i));
    }
    ASSERT_EQ(read(block(cInfrared, "##XYPOINTS=(XY..XY)\n" + even)), 0);
    EXPECT_EQ(first().pointCount(), 20);
    EXPECT_EQ(first().lastX(), 438.0);
    ASSERT_EQ(read(block(cInfrared, "##XYDATA=(XY..XY)\n" + uneven)), 0);
    EXPECT_EQ(first().pointCount(), 361); // 180.5 by the smallest step
    EXPECT_EQ(first().firstX(), 400.0);
    EXPECT_EQ(first().lastX(), 580.5);
    EXPECT_NEAR(first().values().at(100), 3 * 450.0, 1e-9);
    ASSERT_EQ(read(block(cInfrared, "##XYPOINTS=(XY..XY)\n" + down + down.mid(down.lastIndexOf('\n', -2) + 1))), 0)
        << "an x that comes twice";
    EXPECT_TRUE(fLog.contains("1 of 21 pairs have the X of the one before")) << fLog.toStdString();
    EXPECT_EQ(first().pointCount(), 361);
    EXPECT_EQ(first().firstX(), 580.5);
    EXPECT_NEAR(first().values().last(), 1200.0, 1e-9);
    EXPECT_EQ(read(block(cInfrared, "##XYPOINTS=(XY..XY)\n1,1 3,1 2,1 4,1\n")), 50);
    EXPECT_TRUE(fConverter.problem().contains("found 3 beside 2")) << fConverter.problem().toStdString();
}

TEST_F(JcampConverter, refusesWhatItCannotRead)
{
    EXPECT_EQ(fConverter.importFile(fileOf(block(cInfrared), "none.jdx"), nullptr), 1) << "no block";
    EXPECT_EQ(read(block(cInfrared, "##NPOINTS=0\n##XYDATA=(X++(Y..Y))\n")), 50);
    EXPECT_TRUE(spectra().isEmpty());
    const QByteArray greedy = block(cInfrared, "##NPOINTS=8000000\n##XYDATA=(X++(Y..Y))\n1 2\n");
    EXPECT_EQ(read(greedy), 0) << "little enough";
    EXPECT_EQ(read(greedy + greedy), int(0x80000002)) << "both together are not";
    EXPECT_EQ(spectra().size(), 1);
}

TEST_F(JcampConverter, blocksAmongLabelsKeepTheirOwn)
{
    const QByteArray peaks = "##TITLE=peaks\n##OWNER=other\n##DATA TYPE=INFRARED SPECTRUM\n"
                             "##PEAK TABLE=(XY..XY)\n402,5\n##END=\nnothing\n";
    ASSERT_EQ(read(block(cInfrared + peaks + "##ORIGIN=here\n")), 0);
    ASSERT_EQ(spectra().size(), 1);
    EXPECT_EQ(first().title(), "one");
    EXPECT_EQ(param(first(), 1002), "here");
    EXPECT_EQ(param(first(), 1003), QString());
    EXPECT_EQ(first().peaks().size(), 1);
    // each block among the labels of the one before; a copy from its start on would be the square of the file
    constexpr int cDepth = 3000;
    const QByteArray labels = "##TITLE=t\n##DATA TYPE=INFRARED SPECTRUM\n##COMMENT=" + QByteArray(40, 'x') + "\n";
    const QByteArray table = "##NPOINTS=1\n##XYDATA=(X++(Y..Y))\n1 2\n##END=\n";
    ASSERT_EQ(read(labels.repeated(cDepth) + table.repeated(cDepth)), 0);
    ASSERT_EQ(spectra().size(), cDepth);
    qint64 bytes = 0;
    for (const TYrexSpectrum *spectrum : spectra())
        bytes += spectrum->paramsBundle().blobs().first().size();
    EXPECT_LT(bytes, cDepth * 200);
}

TEST_F(JcampConverter, logsWhatWasOdd)
{
    ASSERT_EQ(read(block(cInfrared, "##NPOINTS=4\n##XYDATA=(X++(Y..Y))\n400A0J\n402A5\n")), 0);
    EXPECT_TRUE(fLog.contains("block at line 1: line 11: expected the check value 11, found 15")) << fLog.toStdString();
    ASSERT_EQ(read(block(cInfrared, "##XYDATA=(X++(Y..Y))\n400AZ99999999\n")), 0);
    EXPECT_TRUE(fLog.contains("behind the first 1048576")) << fLog.toStdString();
    ASSERT_EQ(read("##TITLE=\n" + cInfrared + "##XYDATA=(X++(Y..Y))\n400 1 2 3\n##END=\n"), 0);
    EXPECT_TRUE(fLog.contains("taken to be XFACTOR")) << fLog.toStdString();
    EXPECT_EQ(first().lastX(), 402.0);
    const QByteArray peaks = "##TITLE=\n" + cInfrared + "##PEAK TABLE=(XY..XY)\n";
    ASSERT_EQ(read(block(cInfrared) + peaks + "$$ none\n##END=\n" + peaks + "402,1 404\n##END=\n"), 0);
    EXPECT_EQ(first().peaks().size(), 1) << "a table of comments only is none";
    EXPECT_TRUE(fLog.contains("expected 2 numbers, found 1")) << fLog.toStdString();
    const QByteArray odd = block(cInfrared, "##NPOINTS=3\n##XYDATA=(X++(Y..Y))\n400 1\n");
    read(odd.repeated(60));
    EXPECT_EQ(fLog.count("expected 3 values"), 50);
    ASSERT_EQ(read(block(cInfrared)), 0);
    EXPECT_TRUE(fLog.isEmpty()) << fLog.toStdString();
}

TEST_F(JcampConverter, givesPeaksToAllSpectraOrNone)
{
    QByteArray peaks = "##TITLE=\n##DATA TYPE=INFRARED SPECTRUM\n##PEAK TABLE=(XY..XY)\n";
    peaks += QByteArray("404,1 ").repeated(10000) + "\n##END=\n";
    const QByteArray one = block(cInfrared, "##NPOINTS=1\n##XYDATA=(X++(Y..Y))\n404 1\n");
    ASSERT_EQ(read(one + peaks), 0);
    ASSERT_EQ(first().peaks().size(), 10000);
    EXPECT_EQ(first().peaks().first()->position, 0.0);
    EXPECT_EQ(first().peaks().first()->intensity, 1.0) << "at the X of a single point";
    ASSERT_EQ(read(one.repeated(200) + peaks), 0);
    for (const TYrexSpectrum *spectrum : spectra())
        ASSERT_TRUE(spectrum->peaks().isEmpty());
    EXPECT_TRUE(fLog.contains("10000 peaks for 200 spectra")) << fLog.toStdString();
}

TEST_F(JcampConverter, readsTheFirstLineOfBrokenLabels)
{
    ASSERT_EQ(read(block("##DATA TYPE=RAMAN SPECTRUM $$ x\nof a crystal\n##XUNITS=1/CM\nmore\n##YUNITS=COUNTS\n"
                         "##DATA CLASS=XYDATA\nmore\n")),
              0);
    EXPECT_EQ(first().xUnits(), cUnitRamanShift);
}

TEST_F(JcampConverter, viewsTellWhichBlocksAreRefused)
{
    EXPECT_TRUE(seen(block(cInfrared)).contains("a spectrum"));
    for (const char *data :
         {"##NPOINTS=0\n##XYDATA=(X++(Y..Y))\n", "##XYPOINTS=(XY..XY)\n1,1 3,1 2,1\n",
          "##NPOINTS=99999999\n##XYDATA=(X++(Y..Y))\n1 2\n", "##DATA CLASS=XYDATA\n##PEAK TABLE=(XY..XY)\n1,2\n"}) {
        const QString text = seen(block(cInfrared, data));
        EXPECT_TRUE(text.contains("refused") && !text.contains("a spectrum")) << text.toStdString();
    }
    EXPECT_TRUE(seen("##TITLE=p\n##DATA TYPE=PEAK TABLE\n##PEAK TABLE=(XY..XY)\n1,2\n").contains("refused"));
    EXPECT_TRUE(seen("##TITLE=p\n" + cInfrared + "##PEAK TABLE=(XY..XY)\n1,2\n").contains("its peaks go"));
}

TEST_F(JcampConverter, ordersDatesByTrust)
{
    const QMap<QString, QString> texts{{"2020/06/16", "2020-06-16"},
                                       {"2020/06/16 10:11:29.50 +0200", "2020-06-16T10:11:29.500+02:00"},
                                       {"2003/1/2  06:26:16+0000", "2003-01-02T06:26:16+00:00"},
                                       {"95/11/30", "1995-11-30"},
                                       {"81/ 1/ 3", "1981-01-03"},
                                       {"03/30/90", "1990-03-30"},
                                       {"28/8/2023", "2023-08-28"},
                                       {"69/01/02", "2069-01-02"},
                                       {"3/30/90 12:26:16 am", "1990-03-30T00:26:16"},
                                       {"3/30/90 6:26 P.M.", "1990-03-30T18:26:00"},
                                       {"3/30/90 18:26 PM", "1990-03-30T18:26:00"},
                                       {"March 2017", QString()},
                                       {"2017", QString()},
                                       {"2017/13/40", QString()}};
    for (auto it = texts.begin(); it != texts.end(); ++it)
        EXPECT_EQ(jcampDate({it.key()}), it.value()) << it.key().toStdString();
    EXPECT_EQ(jcampDate({"95/11/30", "", "", "", "", "14:47"}), "1995-11-30T14:47:00");
    EXPECT_EQ(jcampDate({"95/11/30", "", "", "", "", "6:26:16 PM"}), "1995-11-30T18:26:16");
    EXPECT_EQ(jcampDate({"", "", "", "", "", "2020/06/16 10:11"}), "2020-06-16T10:11:00") << "a TIME with a date";
    EXPECT_EQ(jcampDate({"95/11/30", "", "", "", "", "2020/06/16 10:11"}), "1995-11-30T10:11:00");
    EXPECT_TRUE(jcampDate({"", "", "", "", "", "10.24.56"}).isNull());
    EXPECT_EQ(jcampDate({"no", "", "28/8/2023", "", "", "25:00"}), "2023-08-28");
    EXPECT_EQ(jcampDate({"95/11/30", "", "", "", "1996/01/02 03:04", "14:47"}), "1996-01-02T03:04:00");
    EXPECT_TRUE(jcampDate({"", ""}).isNull());
}

TEST_F(JcampConverter, tellsParametersWithoutReadingValues)
{
    const TJCAMPFileMarking marking(fileOf(block(cInfrared), "data.jdx"));
    fConverter.setBlock(marking.blocks().first(), marking.path());
    const QVariantMap map = fConverter.metaData(marking.blocks().first(), {"1020", "header(XUNITS)", "TITLE"});
    EXPECT_EQ(map.value(Consts::Converter::cFileFormat).toString(), "JCAMP-DX");
    EXPECT_EQ(map.value("1020").toString(), "INFRARED SPECTRUM");
    EXPECT_EQ(map.value("header(XUNITS)").toString(), "1/CM");
    EXPECT_EQ(map.value("TITLE").toString(), "one");
    EXPECT_TRUE(fConverter.spectra().isEmpty());
    fConverter.clear();
}

TEST_F(JcampConverter, whatItWritesComesBack)
{
    QVector<double> y;
    for (int i = 0; i < 500; ++i)
        y.append(std::sin(i * 0.05) * 0.4 + 0.5);
    const struct
    {
        int fX;
        int fY;
        double fScale;
    } cases[] = {{0, 12, 1.0}, {3, 14, 1e6}, {2, 13, 1.0},   {1, 18, -3.0}, {50, 50, 1e-9}, {0, 10, 1.0},
                 {0, 10, 1.2}, {0, 11, 100}, {0, 10, -0.01}, {2, 15, 1.0},  {16, 50, 7.0},  {17, 12, 0.0}};
    for (const auto &one : cases) {
        SCOPED_TRACE(QString("%1:%2 * %3").arg(one.fX).arg(one.fY).arg(one.fScale).toStdString());
        QVector<double> scaled;
        for (const double value : y)
            scaled.append(value * one.fScale);
        for (const auto form : {TJCAMPWriter::cDIFDUP, TJCAMPWriter::cAFFN}) {
            sendRound({newSpectrum(scaled, 3999.123456789, 400.1, one.fX, one.fY)}, form);
            ASSERT_EQ(spectra().size(), 1);
            EXPECT_EQ(first().origXUnits(), one.fX);
            EXPECT_EQ(first().origYUnits(), one.fY);
            EXPECT_EQ(first().yUnits(), one.fY);
            EXPECT_NEAR(first().firstX(), 3999.123456789, 1e-9);
            EXPECT_NEAR(first().lastX(), 400.1, 1e-9);
            ASSERT_EQ(first().pointCount(), y.size());
            for (int i = 0; i < y.size(); ++i)
                ASSERT_NEAR(first().values().at(i), scaled.at(i), std::fabs(one.fScale) * 1e-9) << i;
        }
    }
}

TEST_F(JcampConverter, writesStacksAndPeaksAsCompoundFiles)
{
    TYrexSpectrumList sent{newSpectrum({1.0, 2.0, 3.0}, 1.0, 3.0, 0, 12),
                           newSpectrum({3.0, 2.0, 1.0}, 1.0, 3.0, 0, 12)};
    auto *peak = new TYrexDPLib::TYrexDPPeak;
    peak->position = 1.0;
    peak->intensity = 2.0;
    sent.first()->peaks().append(peak);
    sendRound(sent);
    ASSERT_EQ(spectra().size(), 2);
    EXPECT_EQ(spectra().at(1)->values().first(), 3.0);
    ASSERT_EQ(first().peaks().size(), 1);
    EXPECT_EQ(first().peaks().first()->position, 1.0);
    EXPECT_EQ(first().peaks().first()->intensity, 2.0);
}

TEST_F(JcampConverter, writesTheDataTypeThatTheFileHad)
{
    ASSERT_EQ(read(block("##DATA TYPE=UV-VISIBLE SPECTRUM\n##XUNITS=NANOMETERS\n##YUNITS=ABSORBANCE\n"
                         "##LONGDATE=2020/06/16 10:11:29 -0130\n##ORIGIN=here\n")),
              0);
    auto read = std::move(fFactory.fItems);
    sendRound({read.front()->fSpectra.first()->clone().release()});
    EXPECT_TRUE(param(first(), 1020).startsWith("UV"));
    EXPECT_EQ(first().acquisitionDate(), read.front()->fSpectra.first()->acquisitionDate());
    EXPECT_EQ(first().acquisitionDate().offsetFromUtc(), -5400);
    EXPECT_EQ(param(first(), 1002), "here");
}

TEST_F(JcampConverter, standsCutFiles)
{
    TYrexSpectrumList sent;
    for (int k = 0; k < 2; ++k) {
        sent.append(newSpectrum({1.0, 2.0, 3.0, 3.0, 3.0, -7.0}, 1.0, 6.0, 0, 10));
        sent.last()->peaks().append(new TYrexDPLib::TYrexDPPeak);
    }
    sendRound(sent);
    const QByteArray whole = fWritten;
    for (int size = 0; size <= whole.size(); size += 7) {
        SCOPED_TRACE(size);
        read(whole.left(size));
        for (const TYrexSpectrum *spectrum : spectra())
            ASSERT_EQ(spectrum->values().size(), spectrum->pointCount());
    }
}
