#include "TYrexOmnicSpaConverter.h"

#include "OmnicBuilder.h"
#include "TOmnicFile.h"
#include "TReaderFixture.h"
#include "TYrexUnits.h"

#include <limits>

namespace {

class OmnicConverter : public TReaderFixture
{
protected:
    int convert(const QByteArray &bytes)
    {
        return fConverter.importFile(fileOf(bytes, QStringLiteral("data.spa")), nullptr);
    }
    QString refusalOf(const QByteArray &bytes) { return fConverter.refusal(fileOf(bytes, QStringLiteral("data.spa"))); }
    const TYrexSpectrum &spectrum(int index = 0) const { return *fConverter.spectra().at(index); }

    TYrexOmnicSpaConverter fConverter;
};

/// Experiment information whose bytes at the place of an axis are no axis.
QVector<TOmnicBlock> information(float first, float last)
{
    TBytes bytes(40);
    return {{130, bytes.put(16, first).put(20, last).bytes()}};
}

TEST_F(OmnicConverter, ReadsASingleSpectrum)
{
    ASSERT_EQ(convert(omnicSingle()), 0);
    ASSERT_EQ(fConverter.spectra().size(), 1);
    EXPECT_EQ(fConverter.readFlags(), 0u);
    const TYrexSpectrum &one = spectrum();
    EXPECT_EQ(one.values(), (QVector<double>{1.0, 2.0, 3.0, 4.5}));
    EXPECT_EQ(one.absOrgData(), one.values());
    EXPECT_EQ(one.orgData(), one.values());
    EXPECT_EQ(one.firstX(), 4000.0);
    EXPECT_EQ(one.lastX(), 400.0);
    EXPECT_EQ(one.xUnits(), cUnitWavenumber);
    EXPECT_EQ(one.origYUnits(), cUnitPercentTransmittance);
    EXPECT_EQ(one.fileFormat(), 40);
    EXPECT_EQ(one.title(), "Sample A");
    EXPECT_EQ(param(one, 1008), "2021-12-17T15:32:06");
    EXPECT_EQ(param(one, 1023), "Sample A");
    EXPECT_EQ(param(one, 1012), "first comment");
    EXPECT_EQ(param(one, 1022), "Collect    Background");
    EXPECT_EQ(param(one, 2004), "Percent Transmittance");
}

TEST_F(OmnicConverter, NoTimeGivesNoDateAndACommentWithoutPlaceIsLeftOut)
{
    ASSERT_EQ(convert(omnicFile(
                  "t", 0, {{2, omnicDescription(1, 3, 12, 200.0f, 800.0f)}, {4, "lost", 0}, {3, omnicFloats({1.0f})}})),
              0);
    EXPECT_TRUE(spectrum().dateText().isEmpty());
    EXPECT_TRUE(param(spectrum(), 1012).isEmpty());
    EXPECT_TRUE(param(spectrum(), 1022).isEmpty());
    EXPECT_EQ(spectrum().xUnits(), cUnitNanometers);
    EXPECT_EQ(spectrum().yUnits(), cUnitArbitrary);
}

TEST_F(OmnicConverter, AGroupIsOneItemOnTheAxisBehindTheFirstValues)
{
    ASSERT_EQ(convert(omnicGroup({})), 0);
    ASSERT_EQ(fConverter.spectra().size(), 3);
    EXPECT_EQ(fConverter.readFlags(), quint32(TYrexSpectrumConverter::cGroup));
    const QStringList titles{"Part 0", "Part 0", "Part 2"};
    const QStringList dates{"2021-12-17T15:32:06", "", "2021-12-17T15:32:08"};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(spectrum(i).seriesValue(), i);
        EXPECT_EQ(spectrum(i).values(), (QVector<double>{double(i), i + 0.5}));
        EXPECT_EQ(spectrum(i).firstX(), 3999.0); // of the second description, which follows the values
        EXPECT_EQ(spectrum(i).lastX(), 401.0);
        EXPECT_EQ(spectrum(i).title(), titles.at(i));
        EXPECT_EQ(spectrum(i).dateText(), dates.at(i));
        EXPECT_EQ(spectrum(i).yUnits(), cUnitAbsorbance);
    }
    const QString marker = QStringLiteral("OMNIC_METADATA");
    EXPECT_EQ(spectrum(0).paramsBundle()[marker].data().constData(),
              spectrum(2).paramsBundle()[marker].data().constData());
}

TEST_F(OmnicConverter, ASenselessAxisGivesWayToTheFirstDescription)
{
    const float none = std::numeric_limits<float>::quiet_NaN();
    const QVector<QPair<float, float>> senseless{{1.9e31f, 6.7e22f}, {1.8e-40f, 500.0f}, {0.0f, 0.0f}, {none, 1.0f}};
    for (const auto &range : senseless) {
        SCOPED_TRACE(testing::Message() << range.first << ' ' << range.second);
        ASSERT_EQ(convert(omnicGroup(information(range.first, range.second))), 0);
        EXPECT_EQ(spectrum(2).firstX(), 4000.0);
        EXPECT_EQ(spectrum(2).lastX(), 400.0);
    }
    ASSERT_EQ(convert(omnicGroup(information(0.0f, 1e9f))), 0); // zero is an end as good as any
    EXPECT_EQ(spectrum().lastX(), 1e9);
    EXPECT_TRUE(fConverter.inspect(fileOf(omnicGroup(information(0.0f, 0.0f)), "g.spg"))
                    .text()
                    .contains("4000 to 400  (of the first description"));
}

TEST_F(OmnicConverter, LargeAndFullDirectories)
{
    QVector<TOmnicBlock> blocks{{2, omnicDescription(2, 1, 17, 4000.0f, 400.0f)}, {27, "what was done"}};
    while (blocks.size() < 15)
        blocks.append({106, QByteArray(4, '\0')});
    blocks.append({3, omnicFloats({1.0f, 2.0f})});
    ASSERT_EQ(convert(omnicFile("full", 1, blocks)), 0); // no empty entry ends the walk
    EXPECT_EQ(param(spectrum(), 1022), "what was done");
    EXPECT_EQ(spectrum().lastX(), 400.0);

    while (blocks.size() < 20)
        blocks.append({106, QByteArray(), 1});
    const QByteArray large = TBytes().addText(omnicFile("large", 1, blocks)).put(564, qint32(0)).bytes();
    EXPECT_EQ(refusalOf(large), QString()); // the point count's place lies within the directory
    ASSERT_EQ(convert(large), 0);
    EXPECT_EQ(spectrum().firstX(), 4000.0);
}

TEST_F(OmnicConverter, RefusesInWords)
{
    const auto with = [](int offset, auto value) { return TBytes().addText(omnicSingle()).put(offset, value).bytes(); };
    EXPECT_EQ(refusalOf(omnicSingle()), QString());
    EXPECT_TRUE(refusalOf(with(18, '\n')).contains("CR LF at offset 0, found the bytes 53 70"));
    EXPECT_TRUE(refusalOf("").contains("found the end of the file"));
    EXPECT_TRUE(refusalOf(with(294, qint16(-2))).contains("above 0 at offset 294, found -2"));
    EXPECT_TRUE(refusalOf(with(564, qint32(0))).contains("above 0 at offset 564, found 0"));
    EXPECT_TRUE(refusalOf(with(304 + 4 * 16, quint16(259))).contains("data block (type 3) among the 5 directory"));
    EXPECT_TRUE(fConverter.refusal(fFolder.path()).contains("cannot be opened"));
    EXPECT_TRUE(fConverter.inspect(fileOf("some text", "a.txt")).isEmpty());
    EXPECT_FALSE(fConverter.inspect(fileOf(with(18, '\n'), "a.spa")).isEmpty());
}

TEST_F(OmnicConverter, BlocksThatAreNotThereEndTheImport)
{
    EXPECT_EQ(fConverter.importFile(fFolder.filePath("none"), nullptr), 51);
    EXPECT_EQ(convert("Spectral Data File\r\n"), 52);
    EXPECT_TRUE(fConverter.problem().contains("304 bytes at offset 0"));
    const TOmnicBlock description{2, omnicDescription(2, 1, 17, 4000.0f, 400.0f)};
    const TOmnicBlock data{3, omnicFloats({1.0f, 2.0f})};
    EXPECT_EQ(convert(omnicFile("t", 1, {description, {27, "h", 5000}, data})), 52);
    EXPECT_TRUE(fConverter.problem().contains("type 27 at offset 5000 by the directory entry at offset 320"))
        << qPrintable(fConverter.problem());
    EXPECT_EQ(convert(omnicFile("t", 1, {description, {3, "", 700, 4000}})), 52);
    EXPECT_TRUE(fConverter.problem().contains("4000 bytes of type 3 at offset 700"))
        << qPrintable(fConverter.problem());
    EXPECT_EQ(convert(omnicFile("t", 1, {data, {1, ""}, {107, "", 9000}, data})), 52);
    EXPECT_EQ(convert(omnicFile("t", 1, {description, {106, "none"}})), 0);
    EXPECT_TRUE(fConverter.spectra().isEmpty());
}

TEST_F(OmnicConverter, EntriesThatShareABlockDoNotMultiplyIt)
{
    QVector<TOmnicBlock> blocks{{3, QByteArray(400000, '\0')}};
    while (blocks.size() < 400)
        blocks.append({3, "", 304 + 16 * 400, 400000});
    EXPECT_EQ(convert(omnicFile("t", 1, blocks)), int(0x80000002));
    EXPECT_TRUE(fConverter.spectra().isEmpty());
}

TEST_F(OmnicConverter, TellsParametersWithoutValues)
{
    const QString path = fileOf(omnicGroup({}), QStringLiteral("g.spg"));
    const QVariantMap map = fConverter.metaData(path, {"OMNIC_METADATA(ORNAM)", "OMNIC_METADATA(none)", "502", "1001"});
    EXPECT_EQ(map.value("OMNIC_METADATA(ORNAM)").toString(), "Group");
    EXPECT_EQ(map.value("OMNIC_METADATA(none)").toString(), "");
    EXPECT_EQ(map.value("502").toInt(), 2);
    EXPECT_EQ(map.value("1001").toString(), "Part 0");
    EXPECT_TRUE(fConverter.spectra().isEmpty());
}

TEST_F(OmnicConverter, UnitCodes)
{
    const QMap<int, int> x{{1, 0}, {3, 2}, {4, 1}, {32, 3}, {2, 50}, {0, 50}};
    const QMap<int, int> y{{11, 13}, {21, 13}, {16, 11}, {17, 12}, {20, 15}, {31, 18}, {12, 50}, {22, 50}, {26, 50}};
    for (auto it = x.begin(); it != x.end(); ++it)
        EXPECT_EQ(TOmnicFile::xUnit(it.key()), it.value());
    for (auto it = y.begin(); it != y.end(); ++it)
        EXPECT_EQ(TOmnicFile::yUnit(it.key()), it.value());
}

TEST_F(OmnicConverter, ShowsWhatStandsInAFile)
{
    const QString text = fConverter.inspect(fileOf(omnicSingle(), "a.spa")).text();
    for (const char *part :
         {"type 2 description", "first x                   4000  (in the x unit)", "(Percent Transmittance)",
          "type 130 experiment information  (skipped: the spectrum does not depend on it)", "4 floats",
          "Collect Background", "x axis                        4000 to 400"})
        EXPECT_TRUE(text.contains(part)) << part << '\n' << qPrintable(text);
}

TEST_F(OmnicConverter, StandsCutFiles)
{
    expectSafeWhenCut(fConverter, omnicSingle(), QStringLiteral("cut.spa"), 7);
    expectSafeWhenCut(fConverter, omnicGroup(information(0.0f, 0.0f)), QStringLiteral("cut.spg"), 13);
}

} // namespace
