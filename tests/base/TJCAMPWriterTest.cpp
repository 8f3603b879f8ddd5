#include "jcamp/TJCAMPWriter.h"
#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TBaseJCAMPParamsParser.h"
#include "jcamp/TJCAMPBlock.h"
#include "jcamp/TJCAMPDatasetInterpreter.h"
#include "jcamp/TJCAMPFileMarking.h"

#include <QBuffer>
#include <QRegularExpression>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

using namespace Consts::JCAMP;

QByteArray written(const QList<TJCAMPExportData> &spectra, TJCAMPWriter::TForm form = TJCAMPWriter::cDIFDUP)
{
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(TJCAMPWriter(&buffer, form).writeFile(spectra, "file"));
    for (const QByteArray &line : file.split('\n')) {
        EXPECT_LE(line.size(), 81) << line.constData();
        EXPECT_TRUE(line.isEmpty() || line.endsWith('\r'));
    }
    return file;
}

TJCAMPExportData dataOf(const QVector<double> &y, double firstX = 4000, double lastX = 399.7)
{
    TJCAMPExportData data;
    data.fTitle = "one";
    data.fDataType = Values::INFRAREDSPECTRUM;
    data.fXUnits = Values::ONECM;
    data.fYUnits = Values::ABSORBANCE;
    data.fFirstX = firstX;
    data.fLastX = lastX;
    data.fY = y;
    return data;
}

/// Writes in each form and expects the same range, and values within half a unit of the last digit.
void expectRoundTrip(const TJCAMPExportData &data)
{
    for (const auto form : {TJCAMPWriter::cAFFN, TJCAMPWriter::cPAC, TJCAMPWriter::cSQZ, TJCAMPWriter::cDIFDUP}) {
        const QByteArray file = written({data}, form);
        const TJCAMPFileMarking marking(file, "x");
        ASSERT_EQ(marking.blocks().size(), 1);
        TJCAMPDatasetInterpreter again(marking.blocks()[0], {Values::INFRAREDSPECTRUM});
        bool found = false;
        EXPECT_EQ(again.getDouble("FIRSTX", found), data.fFirstX);
        EXPECT_EQ(again.getDouble("LASTX", found), data.fLastX);
        ASSERT_EQ(again.nPoints(), data.nPoints());
        const double factor = again.getDouble("YFACTOR", found);
        QVector<double> y(data.nPoints());
        ASSERT_EQ(again.dataIterator()->readAll(y.data(), y.size()), y.size());
        EXPECT_EQ(again.dataIterator()->problem(), "") << file.constData();
        for (int i = 0; i < y.size(); ++i) {
            if (std::isfinite(data.fY[i]))
                ASSERT_EQ(y[i], double(std::llround(data.fY[i] / factor)) * factor) << form << " at " << i;
            else
                ASSERT_TRUE(std::isnan(y[i]));
        }
    }
}

} // namespace

TEST(TJCAMPWriter, readsBackWhatItWrote)
{
    std::mt19937_64 random(7);
    const auto number = [&](int limit) { return int(qint64(random() % (2 * quint64(limit) + 1)) - limit); };
    const double cNaN = std::numeric_limits<double>::quiet_NaN();
    for (int table = 0; table < 120; ++table) {
        const int limit = table % 3 == 0 ? 2 : table % 3 == 1 ? 5000 : 2147483647;
        QVector<double> y;
        const int count = table < 5 ? table : int(random() % 400);
        while (y.size() < count) {
            const double value = table % 4 == 3 && number(5) == 0 ? cNaN : number(limit) * (table % 2 ? 1e-9 : 1.0);
            for (int run = number(3) == 0 ? int(random() % 120) : 1; run > 0 && y.size() < count; --run)
                y.append(value);
        }
        expectRoundTrip(dataOf(y, number(1000000) * 1e-3, number(1000000) / 7.0));
    }
}

TEST(TJCAMPWriter, readsBackExtremes)
{
    const double cMax = std::numeric_limits<double>::max();
    const double cInf = std::numeric_limits<double>::infinity();
    expectRoundTrip(dataOf({}));
    expectRoundTrip(dataOf({5}));
    expectRoundTrip(dataOf({0, 0, 0}));
    expectRoundTrip(dataOf({cInf, -cInf}));
    expectRoundTrip(dataOf({cMax, -cMax, cMax}));
    expectRoundTrip(dataOf({5e-324, -1e-310, 1e-308}));
    expectRoundTrip(dataOf({1, 2, 3}, 1e-12, 3.3e-11));
    expectRoundTrip(dataOf({1, 2, 3}, -1e200, 1e200));
    expectRoundTrip(dataOf({1, 2, 3}, 0, 0));
    expectRoundTrip(dataOf({555, 555, 555, -2147483647}, 1, 4)); // the first one begins with E
}

TEST(TJCAMPWriter, writesTheRecordsOfASpectrum)
{
    TJCAMPExportData data = dataOf({1, 2, 4, 4}, 1, 4);
    data.fLongDate = "2026/11/21 06:19:18";
    data.fComments = {{"", "free"}, {"END", "text"}};
    data.fPrivates = {{"Zarnu=Chain", "##not a record\n##nor this $$ kept"}};
    const QByteArray file = written({data});
    const TJCAMPFileMarking marking(file, "x");
    const TJCAMPBlock *block = marking.blocks().first();
    QByteArrayList labels;
    for (const TJCAMPRecord &record : block->records())
        labels.append(record.label(file));
    EXPECT_EQ(labels.join(','),
              "TITLE,JCAMP-DX,DATA TYPE,DATA CLASS,ORIGIN,OWNER,LONGDATE,,$END,$Zarnu_Chain,XUNITS,YUNITS,"
              "XFACTOR,YFACTOR,FIRSTX,LASTX,DELTAX,MAXX,MINX,MAXY,MINY,NPOINTS,FIRSTY,XYDATA,END");
    bool found = false;
    EXPECT_EQ(block->getString("JCAMP-DX", found), "5.01");
    EXPECT_EQ(block->getString("XUNITS", found), "1/CM");
    EXPECT_EQ(block->getString("DATATYPE", found), "INFRARED SPECTRUM");
    EXPECT_EQ(block->getString("DELTAX", found), "1");
    EXPECT_EQ(block->getString("MAXY", found), "4");
    EXPECT_EQ(block->getString("$Zarnu_Chain", found), "##not a record\n# #nor this $ $ kept");
    EXPECT_TRUE(file.endsWith("\r\n4B147483647\r\n##END=\r\n")) << file.constData();
    EXPECT_FALSE(written({dataOf({-0.0, -1.0}, -0.0, 1.0)}).contains("-0\r")) << "zero has no sign";
}

TEST(TJCAMPWriter, textsAreAsciiAndBroken)
{
    TJCAMPExportData data = dataOf({1});
    data.fTitle = QString::fromUtf8("caf\xC3\xA9 5 \xC2\xB5m \xE2\x82\xAC ") + QString("word ").repeated(40).trimmed();
    data.fOwner = QString(300, 'x');
    const TJCAMPFileMarking marking(written({data}), "x");
    TBaseJCAMPParamsParser parser;
    EXPECT_EQ(parser.value(marking.blocks()[0], "TITLE"), "cafe 5 um ? " + QString("word ").repeated(40).trimmed());
    EXPECT_EQ(parser.value(marking.blocks()[0], "OWNER").remove(' '), data.fOwner);
}

TEST(TJCAMPWriter, otherScriptsStayInUtf8WithARemark)
{
    const QString title = QString::fromUtf8("\xD0\xA1\xD0\xBF\xD0\xB8\xD1\x80\xD1\x82 5 %");
    const QString longWord = QString::fromUtf8("\xE8\xA9\xA6").repeated(70); // cut between letters only
    TJCAMPExportData data = dataOf({1});
    EXPECT_FALSE(written({data}).contains("UTF-8"));
    data.fTitle = title;
    data.fOwner = longWord;
    const QByteArray file = written({data, dataOf({2})});
    EXPECT_EQ(file.count("UTF-8"), 2) << "in the heads that need it: " << file.constData();
    for (const QByteArray &line : file.split('\n')) {
        EXPECT_LE(line.size(), 81);
        EXPECT_FALSE(QString::fromUtf8(line).contains(QChar::ReplacementCharacter)) << line.constData();
    }
    const TJCAMPFileMarking marking(file, "x");
    TBaseJCAMPParamsParser parser;
    EXPECT_EQ(parser.value(marking.blocks()[1], "TITLE"), title);
    EXPECT_EQ(parser.value(marking.blocks()[1], "OWNER").remove(QRegularExpression("\\s")), longWord);
    bool found = false;
    EXPECT_EQ(Utils::JCAMP::cutComment(QString::fromUtf8(marking.blocks()[1]->getString("JCAMP-DX", found))).trimmed(),
              "5.01");
}

TEST(TJCAMPWriter, severalSpectraAndPeaksStandInALink)
{
    TJCAMPExportData withPeaks = dataOf({1, 2}, 10, 20);
    withPeaks.fPeaks = {{10.123456789012345, -0.5, 0}, {20, 2, 1.5}};
    const TJCAMPFileMarking marking(written({withPeaks, dataOf({3})}), "x");
    ASSERT_EQ(marking.blocks().size(), 4);
    bool found = false;
    EXPECT_EQ(marking.blocks()[0]->getString("DATA TYPE", found), "LINK");
    EXPECT_EQ(marking.blocks()[0]->getString("BLOCKS", found), "3");
    EXPECT_EQ(marking.blocks()[0]->children().size(), 3);
    TJCAMPDatasetInterpreter peaks(marking.blocks()[2], {Values::INFRAREDSPECTRUM});
    EXPECT_TRUE(peaks.isValid());
    EXPECT_EQ(peaks.getString("DATA CLASS", found), "PEAK TABLE");
    EXPECT_EQ(peaks.pairs(), QVector<QPointF>({{10.123456789012345, -0.5}, {20, 2}}));
    withPeaks.fPeaks[0].fWidth = 1;
    const TJCAMPFileMarking wide(written({withPeaks}), "x");
    TJCAMPDatasetInterpreter triples(wide.blocks()[2], {Values::INFRAREDSPECTRUM});
    EXPECT_EQ(triples.pairs().size(), 2);
}
