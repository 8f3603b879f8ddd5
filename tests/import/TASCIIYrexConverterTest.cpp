#include "TASCIIYrexConverter.h"

#include "IYrexExportView.h"
#include "TASCIIYrexParamsParser.h"
#include "TYrexParamsParsers.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "canvas/TCanvasItemList.h"
#include "consts/Consts.h"
#include "params/TParamsParsers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

/// An item on a page that shows given numbers.
class TShownItem : public ICanvasItem, public IYrexExportView
{
public:
    int rtti() const override { return fRtti; }
    QUuid uniqueId() const override { return QUuid(); }
    bool isActive() const override { return fActive; }
    bool isSelectedForEdit() const override { return fActive; }

    bool hasExportData() const override { return fHasData; }
    bool hasSpectrumPlot() const override { return fHasPlot; }
    int shownXUnits() const override { return cUnitWavenumber; }
    int shownYUnits() const override { return cUnitAbsorbance; }
    QVector<QPair<double, double>> visibleRanges() const override { return fRanges; }
    int exportSpectrumCount() const override { return fY.size(); }
    void exportSeries(int index, QVector<double> *x, QVector<double> *y) const override
    {
        *x = fX;
        *y = fY.at(index);
    }

    int fRtti = 115;
    bool fActive = true;
    bool fHasData = true;
    bool fHasPlot = true;
    QVector<QPair<double, double>> fRanges{{0.0, 10.0}};
    QVector<double> fX{3.0, 2.0, 1.0};
    QVector<QVector<double>> fY{{30.0, 20.0, 10.0}};
};

class AsciiConverter : public ::testing::Test
{
protected:
    QString fileOf(const QByteArray &bytes, const QString &name = QStringLiteral("data.csv"))
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    QString path(const QString &name) const { return fDir.filePath(name); }

    static QByteArray contentOf(const QString &fileName)
    {
        QFile file(fileName);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QTemporaryDir fDir;
    TASCIIYrexConverter fConverter;
};

QByteArray rows(int count, int columns)
{
    QByteArray text;
    for (int row = 0; row < count; ++row) {
        text += QByteArray::number(400.0 + row, 'f', 1);
        for (int c = 1; c < columns; ++c)
            text += ',' + QByteArray::number(row * 0.5 + c, 'f', 2);
        text += '\n';
    }
    return text;
}

} // namespace

TEST_F(AsciiConverter, takesPartOnlyWhenItsFilterWasChosen)
{
    EXPECT_FALSE(fConverter.acceptsFilter(QString(), true));
    EXPECT_FALSE(fConverter.acceptsFilter(QString(), false));
    EXPECT_TRUE(fConverter.acceptsFilter("*.csv", true));
    EXPECT_TRUE(fConverter.acceptsFilter("*.TXT", false));
    EXPECT_FALSE(fConverter.acceptsFilter("*.spc", true));
}

TEST_F(AsciiConverter, looksAtTheFirst128KiB)
{
    const QByteArray header("a header line\n");
    EXPECT_TRUE(fConverter.canImport(fileOf(header.repeated(9000) + rows(20, 2))));
    EXPECT_FALSE(fConverter.canImport(fileOf(header.repeated(9400) + rows(20, 2))));
    EXPECT_FALSE(fConverter.canImport(fDir.path()));
    EXPECT_FALSE(fConverter.canImport(path("missing.csv")));
}

TEST_F(AsciiConverter, twoColumnsMakeASpectrum)
{
    ASSERT_EQ(fConverter.importFile(fileOf(rows(11, 2)), nullptr), 0);
    ASSERT_EQ(fConverter.spectra().size(), 1);
    EXPECT_EQ(fConverter.readFlags(), 0u);
    const TYrexSpectrum &spectrum = *fConverter.spectra().first();
    EXPECT_EQ(spectrum.pointCount(), 11);
    EXPECT_EQ(spectrum.firstX(), 400.0);
    EXPECT_EQ(spectrum.lastX(), 410.0);
    EXPECT_EQ(spectrum.xFactor(), 1.0);
    EXPECT_EQ(spectrum.yFactor(), 1.0);
    EXPECT_EQ(spectrum.firstY(), 0.0);
    EXPECT_EQ(spectrum.fileFormat(), 37);
    for (const int unit : {spectrum.origXUnits(), spectrum.origYUnits(), spectrum.xUnits(), spectrum.yUnits()})
        EXPECT_EQ(unit, cUnitArbitrary);
    EXPECT_EQ(spectrum.values().last(), 6.0);
    EXPECT_EQ(spectrum.orgData(), spectrum.values());
    EXPECT_EQ(spectrum.absOrgData(), spectrum.values());
    EXPECT_EQ(spectrum.paramText(TSpectrumParam::cXUnits, 1), "Arbitrary");
    EXPECT_EQ(spectrum.paramText(TSpectrumParam::cPointCount, 1), "11");
}

TEST_F(AsciiConverter, moreColumnsMakeAStackOfThisFileOnly)
{
    ASSERT_EQ(fConverter.importFile(fileOf(rows(11, 4)), nullptr), 0);
    EXPECT_EQ(fConverter.spectra().size(), 3);
    EXPECT_EQ(fConverter.readFlags(), quint32(TYrexSpectrumConverter::cGroup));
    EXPECT_EQ(fConverter.spectra().last()->values().first(), 3.0);
    EXPECT_EQ(fConverter.spectra().last()->fileNumber(), 3);
    ASSERT_EQ(fConverter.importFile(fileOf(rows(11, 2)), nullptr), 0);
    EXPECT_EQ(fConverter.spectra().size(), 1);
    EXPECT_EQ(fConverter.spectra().first()->fileNumber(), 0) << "it came alone";
    EXPECT_EQ(fConverter.readFlags(), 0u);
}

TEST_F(AsciiConverter, refusesAndSaysWhy)
{
    EXPECT_EQ(fConverter.importFile(path("missing.csv"), nullptr), 51);
    EXPECT_EQ(fConverter.importFile(fileOf(QByteArray()), nullptr), 52);
    EXPECT_EQ(fConverter.importFile(fileOf("1.0 1.0\n2.0 1.0\n5.0 1.0\n3.0 1.0\n"), nullptr), 52);
    EXPECT_TRUE(fConverter.spectra().isEmpty());
    EXPECT_TRUE(fConverter.problem().contains("found 3 in row 4")) << qPrintable(fConverter.problem());
}

TEST_F(AsciiConverter, metaDataReadsNoSpectrum)
{
    const QVariantMap map = fConverter.metaData(fileOf(rows(20, 2)), {});
    EXPECT_EQ(map.value(Consts::Converter::cFileFormat).toString(), "CSV");
    EXPECT_FALSE(fConverter.metaData(fileOf("words\n"), {}).contains(Consts::Converter::cFileFormat));
    EXPECT_TRUE(fConverter.metaData(fDir.path(), {}).isEmpty());
    EXPECT_TRUE(fConverter.spectra().isEmpty());
}

TEST_F(AsciiConverter, metaDataKnowsParametersByTheirNumbers)
{
    const QString file = fileOf(rows(20, 2));
    ASSERT_EQ(fConverter.importFile(file, nullptr), 0);
    const TYrexSpectrumList before = fConverter.spectra();
    const QVariantMap map = fConverter.metaData(file, {"2001", "502", "4711"});
    EXPECT_EQ(map.value("2001").toString(), "Arbitrary");
    EXPECT_EQ(map.value("502").toString(), "20");
    EXPECT_FALSE(map.contains("4711"));
    EXPECT_EQ(fConverter.spectra(), before);
}

TEST_F(AsciiConverter, exportsWhatThePlotShows)
{
    TShownItem first, second;
    second.fX = {2.0, 3.0, 4.0};
    second.fY = {{0.5, 0.25, 0.125}, {1.5, 2.5, 3.5}};
    second.fRanges = {{3.0, 5.0}, {2.0, 2.0 + 1e-8}}; // a sliver is no range
    const QString out = path("out.csv");
    ASSERT_EQ(fConverter.exportItems({&first, &second}, out), 0);
    EXPECT_EQ(contentOf(out), "1,10,0.0,0.0\n"
                              "2,20,NaN,NaN\n"
                              "3,30,0.25,2.5\n"
                              "4,0.0,0.125,3.5\n");
}

TEST_F(AsciiConverter, exportsNothingWithoutSpectra)
{
    const QString out = path("out.csv");
    TShownItem item, table;
    table.fRtti = 3;
    EXPECT_EQ(fConverter.exportItems({}, out), 5);
    EXPECT_EQ(fConverter.exportItems({&table}, out), 5);
    item.fHasPlot = false;
    EXPECT_EQ(fConverter.exportItems({&item}, out), 5) << "another kind of plot is passed over";
    item.fHasData = false;
    EXPECT_EQ(fConverter.exportItems({&item}, out), 5);
    EXPECT_FALSE(QFile::exists(out));
    item.fHasData = item.fHasPlot = true;
    EXPECT_EQ(fConverter.exportItems({&item}, fDir.path()), 51);

    EXPECT_TRUE(fConverter.canExport({&item}));
    item.fActive = false;
    EXPECT_FALSE(fConverter.canExport({&item}));
    EXPECT_FALSE(fConverter.canExport({&table}));
}

TEST_F(AsciiConverter, readsBackWhatItWrote)
{
    TShownItem item;
    item.fX = {1.0, 1.1, 1.2, 1.3};
    item.fY = {{1.0 / 3.0, 1e-20, -2.5, 0.1}, {7e300, 2.0 / 7.0, 0.0, 5.0}};
    const QString out = path("out.csv");
    ASSERT_EQ(fConverter.exportItems({&item}, out), 0);
    ASSERT_EQ(fConverter.importFile(out, nullptr), 0);
    ASSERT_EQ(fConverter.spectra().size(), 2);
    EXPECT_EQ(fConverter.spectra().at(0)->values(), item.fY[0]);
    EXPECT_EQ(fConverter.spectra().at(1)->values(), item.fY[1]);
}

TEST(AsciiParamsParser, findsTheRestOfALine)
{
    const QString text = "\nLaser Power: 5 mW\nTITLE=\"a b\"\nEmpty\nnote ;  x, y \nlast";
    const auto found = [&text](const char *key) { return TASCIIYrexParamsParser::findDelimitedValue(key, text); };
    EXPECT_EQ(found("laser power").toString(), "5 mW");
    EXPECT_EQ(found("Laser").toString(), "Power: 5 mW") << "the key may end before the line's name does";
    EXPECT_EQ(found("Title").toString(), "a b");
    EXPECT_EQ(found("note").toString(), ";  x, y") << "only the first sign of the separator goes";
    EXPECT_EQ(found("Empty").toString(), "");
    EXPECT_FALSE(found("Power").isValid()) << "a key stands at the start of a line";
    EXPECT_FALSE(found("last").isValid()) << "no separator";
    EXPECT_FALSE(found("absent").isValid());
}

TEST_F(AsciiConverter, headerLinesAreParameters)
{
    const QString file = fileOf("Operator: Ada\n" + rows(3, 2) + "Comment=\"last line\"");
    TParamsParser *parser = yrexParamsParsers().value(37);
    ASSERT_NE(parser, nullptr);
    parser->loadSource("header", file);
    EXPECT_EQ(parser->value("header", "OPERATOR", file), "Ada");
    EXPECT_EQ(parser->value("header", "comment", file), "last line");
    EXPECT_TRUE(parser->value("header", "absent", file).isNull());
    EXPECT_TRUE(parser->value("other", "operator", file).isNull());
    parser->reset();
    EXPECT_TRUE(parser->value("header", "operator", file).isNull());
}

TEST_F(AsciiConverter, namedParametersAreReadWithoutTheSpectrum)
{
    QByteArray bytes = "Operator: A. Nyone\nScans=16\n";
    for (int i = 0; i < 20; ++i)
        bytes += QByteArray::number(i) + ".5;" + QByteArray::number(i * i) + ".25\n";
    TASCIIYrexConverter converter;
    const QVariantMap map = converter.metaData(fileOf(bytes), {"header(Operator)", "header(scans)", "=formula(x)"});
    EXPECT_EQ(map.value(Consts::Converter::cFileFormat).toString(), "CSV");
    EXPECT_EQ(map.value("header(Operator)").toString(), "A. Nyone");
    EXPECT_EQ(map.value("header(scans)").toString(), "16");
    EXPECT_FALSE(map.contains("=formula(x)"));
    EXPECT_TRUE(converter.spectra().isEmpty());
}
