#include "TYrexSPConverter.h"

#include "SpBuilder.h"
#include "TReaderFixture.h"
#include "TSpFile.h"
#include "TYrexUnits.h"

#include <QFileInfo>
#include <limits>

namespace {

class SPConverter : public TReaderFixture
{
protected:
    int convert(const QByteArray &bytes)
    {
        return fConverter.importFile(fileOf(bytes, QStringLiteral("data.sp")), nullptr);
    }
    const TYrexSpectrum &spectrum() const { return *fConverter.spectra().first(); }

    TYrexSPConverter fConverter;
};

TEST_F(SPConverter, ReadsASpectrumWithItsNameValues)
{
    ASSERT_EQ(convert(spSpectrum()), 0);
    ASSERT_EQ(fConverter.spectra().size(), 1);
    EXPECT_EQ(fConverter.readFlags(), 0u);
    const TYrexSpectrum &one = spectrum();
    EXPECT_EQ(one.values(), (QVector<double>{0.5, 1.5, 2.5}));
    EXPECT_EQ(one.absOrgData(), one.values());
    EXPECT_EQ(one.orgData(), one.values());
    EXPECT_EQ(one.firstX(), 4000.0);
    EXPECT_EQ(one.lastX(), 750.0);
    EXPECT_EQ(one.origXUnits(), cUnitArbitrary);
    EXPECT_EQ(one.yUnits(), cUnitAbsorbance);
    EXPECT_EQ(one.fileFormat(), 44);
    const QMap<int, QString> expected{{1001, "2D constant interval DataSet file"},
                                      {1012, "alias: one  two"},
                                      {1010, "m0"},
                                      {4600, "m2"},
                                      {1011, "m5"},
                                      {4604, "32"},
                                      {4605, "m11"},
                                      {4611, "m20"},
                                      {4615, "m32"},
                                      {502, "3"}};
    for (auto it = expected.begin(); it != expected.end(); ++it)
        EXPECT_EQ(param(one, it.key()), it.value()) << it.key();
    const QByteArray sidecar = one.paramsBundle()["SP_METADATA"].data();
    EXPECT_TRUE(sidecar.startsWith("signature: PEPE\ndescription: 2D constant interval DataSet file\naccumulations: "));
    EXPECT_TRUE(sidecar.contains("\ndata_size: 24\n"));
    EXPECT_TRUE(sidecar.endsWith("wavelength_step: -1625\nx_units: Wavenumber\ny_units: A\n"));
}

TEST_F(SPConverter, FewerNameValuesLeaveLaterKeysOut)
{
    ASSERT_EQ(convert(spSpectrum(6)), 0);
    EXPECT_EQ(param(spectrum(), 1011), "m5");
    EXPECT_TRUE(param(spectrum(), 4602).isEmpty());
    EXPECT_FALSE(spectrum().paramsBundle()["SP_METADATA"].data().contains("detector"));
}

TEST_F(SPConverter, FindsTheDataBlocksWithoutNameValuesToo)
{
    ASSERT_EQ(convert(spFile(spDataBlocks("nm", "%T"))), 0);
    EXPECT_EQ(spectrum().values().size(), 3);
    EXPECT_EQ(spectrum().xUnits(), cUnitNanometers);
    const QByteArray head = spSpectrum().left(44);
    ASSERT_EQ(convert(head + spBlock(122, spMembers(3)) + spDataBlocks("nm", "%T")), 0);
    EXPECT_EQ(spectrum().values().size(), 3);
    EXPECT_EQ(param(spectrum(), 4600), "m2");
}

TEST_F(SPConverter, UnitsByTheBeginningOfLabels)
{
    const QMap<QByteArray, int> x{{"CM-1 wavenumber", 0}, {"cm-1", 50},        {"Micrometers", 1},
                                  {"Nanometers", 2},      {"Shift / cm-1", 3}, {"RS", 3},
                                  {"Wavenumber", 50},     {"Raman Shift", 50}, {"", 50}};
    const QMap<QByteArray, int> y{{"A", 12}, {"T", 10}, {"%T", 11}, {"INT", 18}, {"%R", 50}, {"Refl", 13}, {"", 50}};
    for (auto it = x.begin(); it != x.end(); ++it)
        EXPECT_EQ(TSpFile::xUnit(it.key()), it.value()) << it.key().constData();
    for (auto it = y.begin(); it != y.end(); ++it)
        EXPECT_EQ(TSpFile::yUnit(it.key()), it.value()) << it.key().constData();
}

TEST_F(SPConverter, MissingBlocksAndWrongTypesLeaveTheirFieldsEmpty)
{
    ASSERT_EQ(
        convert(spFile(spHistory(spMembers(3)) + spBlock(35701, spText("3")) + spBlock(35713, spNumber("$u", 1)))), 0);
    EXPECT_EQ(spectrum().pointCount(), 0);
    EXPECT_TRUE(spectrum().values().isEmpty());
    EXPECT_TRUE(param(spectrum(), 1012).isEmpty());
}

TEST_F(SPConverter, RefusesInWords)
{
    EXPECT_EQ(fConverter.refusal(fileOf("PEPE", "a.sp")), QString());
    EXPECT_TRUE(fConverter.refusal(fileOf("PIPE", "a.sp")).contains("\"PEPE\" at offset 0, found the bytes 50 49"));
    EXPECT_TRUE(fConverter.refusal(fileOf("", "a.sp")).contains("an empty file"));
    EXPECT_TRUE(fConverter.refusal(fFolder.path()).contains("cannot be opened"));
    EXPECT_TRUE(fConverter.inspect(fileOf("PIPE", "a.sp")).isEmpty());
}

TEST_F(SPConverter, ValuesThatAreNotThereEndTheImport)
{
    const auto fails = [this](const QByteArray &bytes, const char *problem) {
        EXPECT_EQ(convert(bytes), 52);
        EXPECT_TRUE(fConverter.problem().contains(problem)) << qPrintable(fConverter.problem());
        EXPECT_TRUE(fConverter.spectra().isEmpty());
        EXPECT_TRUE(fConverter.inspect(fileOf(bytes, "data.sp")).text().contains(problem)) << problem;
    };
    EXPECT_EQ(fConverter.importFile(fFolder.filePath("none"), nullptr), 51);
    fails("PEPE", "first block at offset 44");
    fails(spSpectrum().chopped(1), "3 values of 8 bytes at offset");
    fails(spFile(spCount(35701, -1) + spData({1.0})), "0 or more at offset 58, found -1");
    fails(spFile(spCount(35701, 2000000000) + spData({1.0})), "found a data block of 8 bytes");
    fails(spFile(spCount(35701, 2)), "data block (id 35708) with 2 values, found none");
    fails(spFile(spPair(35698, std::numeric_limits<double>::infinity(), 1.0)), "first and last X at offset 58");
    fails(spFile(TBytes().add(quint16(35697)).add(qint32(-4)).bytes()), "found a size of -4");
}

TEST_F(SPConverter, WalksOnWhateverTheSizes)
{
    const QByteArray empty = spBlock(1, QByteArray());
    const QByteArray member = spNumber("$u", 1);
    ASSERT_EQ(convert(spFile(empty + empty + member + member)), 0);
    ASSERT_EQ(convert(spFile(spBlock(1, empty + member).replace(2, 1, "\x01") + spSpectrum())), 0);
    fConverter.inspect(fileOf(spFile(QByteArray(4000, '\0')), "zeros.sp")).text();
}

TEST_F(SPConverter, ShowsBlocksAndNameValues)
{
    const QString text = fConverter.inspect(fileOf(spSpectrum(), "a.sp")).text();
    for (const char *part :
         {"block 120", "block 122 name values", "x range, type 29981", "4000, 750", "(skipped: the values tell it)",
          "24 bytes of doubles from offset", "36 members", "9 accumulations", "(unit Absorbance)"})
        EXPECT_TRUE(text.contains(part)) << part << '\n' << qPrintable(text);
}

TEST_F(SPConverter, TellsParametersWithoutValues)
{
    const QString path = fileOf(spSpectrum(), QStringLiteral("a.sp"));
    const QVariantMap map = fConverter.metaData(path, {"SP_METADATA(detector)", "SP_METADATA(file_path)", "502"});
    EXPECT_EQ(map.value("SP_METADATA(detector)").toString(), "m11");
    EXPECT_EQ(map.value("SP_METADATA(file_path)").toString(), "C:\\data\\a.sp");
    EXPECT_EQ(map.value("502").toInt(), 3);
}

TEST_F(SPConverter, ExportLeavesAnEmptyFile)
{
    EXPECT_TRUE(fConverter.exportFilterList().isEmpty());
    const QString path = fFolder.filePath("out.sp");
    EXPECT_EQ(fConverter.exportItems({}, path), 0);
    EXPECT_EQ(QFileInfo(path).size(), 0);
    EXPECT_EQ(fConverter.exportItems({}, fFolder.path()), 51);
}

TEST_F(SPConverter, StandsCutFiles)
{
    expectSafeWhenCut(fConverter, spSpectrum(), QStringLiteral("cut.sp"), 7);
}

} // namespace
