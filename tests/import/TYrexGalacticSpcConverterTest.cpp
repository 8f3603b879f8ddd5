#include "TYrexGalacticSpcConverter.h"

#include "GalacticDate.h"
#include "SpcBuilder.h"
#include "StandInItem.h"
#include "TReaderFixture.h"
#include "TYrexUnits.h"
#include "canvas/TCanvasItemList.h"
#include "consts/Consts.h"

using namespace SpcBuilder;

namespace {

class SpcConverter : public TReaderFixture
{
protected:
    QString file(const TBytes &bytes) { return fileOf(bytes.bytes(), QStringLiteral("a.spc")); }

    int read(const TBytes &bytes) { return fConverter.convert(file(bytes), nullptr); }

    bool takes(const TBytes &bytes) { return fConverter.canImport(file(bytes)); }

    const TYrexSpectrum &spectrum(int index = 0) { return *fConverter.spectra().at(index); }

    TYrexGalacticSpcConverter fConverter;
};

TBytes oneSpectrum(const QVector<float> &values = {0.5f, 0.25f, 2.0f})
{
    TBytes bytes = newHeader(values.size(), 4000.0, 400.0);
    return addSubfile(bytes, values, 7.5f, 3);
}

/// A file with the X array `x` and one subfile for each row of values.
TBytes unevenFile(const QVector<float> &x, const QVector<QVector<float>> &rows)
{
    TBytes bytes = newHeader(x.size(), double(x.first()), double(x.last()), rows.size());
    bytes.put(0, quint8(0x80));
    addValues(bytes, x);
    for (const QVector<float> &row : rows)
        addSubfile(bytes, row);
    return bytes;
}

/// A map with a log, in which everything that a file can have stands.
TBytes mapWithLog()
{
    TBytes bytes = newHeader(3, 1.0, 3.0, 3);
    bytes.put(32, quint32(2004u << 20 | 5u << 16 | 6u << 11 | 7u << 6 | 8u)).putText(88, "header memo");
    for (int k = 0; k < 3; ++k)
        addSubfile(bytes, {1.0f, 2.0f, float(k)}, 0.5f * float(k), k);
    return addLog(bytes, "Memo = \"log memo\"\r\nCOMMENT=note\r\nSCANS=16\r\nlwn", 4);
}

} // namespace

TEST_F(SpcConverter, newFilesAreTakenByExperimentAndXType)
{
    const auto refused = [this](quint8 experiment, quint8 xType) {
        return fConverter.refusal(file(oneSpectrum().put(2, experiment).put(28, xType)));
    };
    for (const quint8 experiment : {0, 4, 5, 7, 11, 12, 13, 14})
        EXPECT_EQ(refused(experiment, 1), "") << int(experiment);
    for (const quint8 experiment : {1, 2, 3, 6, 8, 9, 10, 15, 20, 32, 255})
        EXPECT_NE(refused(experiment, 1), "") << int(experiment);
    EXPECT_EQ(refused(0, 13), "");
    EXPECT_EQ(refused(4, 8), "");
    EXPECT_EQ(refused(4, 5), "") << "only a general experiment needs an optical axis";
    for (const quint8 xType : {4, 6, 10})
        EXPECT_NE(refused(4, xType), "") << int(xType);
    EXPECT_EQ(refused(9, 1), "experiment type 9, Mass Spectrum, at offset 2 is no optical spectrum");
    EXPECT_EQ(refused(0, 5), "for experiment type 0 the X type 5, Minutes, at offset 28 is no axis of an optical "
                             "spectrum");
    EXPECT_FALSE(takes(oneSpectrum().put(0, quint8(0xC0))));
    EXPECT_TRUE(takes(oneSpectrum().put(0, quint8(0x80))));
    EXPECT_FALSE(takes(oneSpectrum().put(24, qint32(100000))));
    EXPECT_TRUE(takes(oneSpectrum().put(24, qint32(99999))));
    EXPECT_FALSE(takes(oneSpectrum().put(1, quint8(0x4C))));
    EXPECT_FALSE(fConverter.canImport(fFolder.filePath("missing.spc")));
    EXPECT_FALSE(fConverter.canImport(fFolder.path()));
}

TEST_F(SpcConverter, oldFilesAreTakenByPointsAndXType)
{
    const auto taken = [this](float points, quint8 xType, qint16 exponent = 5) {
        return takes(oldHeader(points, 1.0f, 2.0f, exponent).put(16, xType));
    };
    EXPECT_TRUE(taken(1.5f, 1) && taken(999999.0f, 13) && taken(2.0f, 3));
    EXPECT_FALSE(taken(1.0f, 1) || taken(1e6f, 1) || taken(std::nanf(""), 1) || taken(-3.0f, 1));
    EXPECT_FALSE(taken(2.0f, 0) || taken(2.0f, 4) || taken(2.0f, 14));
    EXPECT_FALSE(taken(2.0f, 1, 9)) << "the byte of the experiment is looked at here too";
}

TEST_F(SpcConverter, aSingleSpectrumWithItsHeader)
{
    ASSERT_EQ(read(oneSpectrum().put(32, quint32(1988u << 20 | 5u << 16 | 23u << 11 | 14u << 6 | 59u))), 0);
    ASSERT_EQ(fConverter.spectra().size(), 1);
    EXPECT_EQ(fConverter.readFlags(), 0u);
    EXPECT_EQ(spectrum().values(), (QVector<double>{0.5, 0.25, 2.0}));
    EXPECT_EQ(spectrum().orgData(), spectrum().values());
    EXPECT_EQ(spectrum().absOrgData(), spectrum().values());
    EXPECT_EQ(spectrum().pointCount(), 3);
    EXPECT_EQ(spectrum().firstX(), 4000.0);
    EXPECT_EQ(spectrum().lastX(), 400.0);
    EXPECT_EQ(spectrum().fileFormat(), 39);
    EXPECT_EQ(spectrum().seriesValue(), 7.5);
    EXPECT_EQ(spectrum().dateText(), "1988-05-23T14:59:00");
    EXPECT_EQ(spectrum().paramsBundle()["spchdr"].size(), 512);
    EXPECT_EQ(spectrum().paramsBundle()["subhdr"].size(), 32);
    EXPECT_FALSE(spectrum().paramsBundle().contains("logtext"));
}

TEST_F(SpcConverter, axisTypesAreUnits)
{
    const auto units = [this](TBytes bytes) {
        EXPECT_EQ(read(bytes), 0);
        EXPECT_EQ(spectrum().origXUnits(), spectrum().xUnits());
        EXPECT_EQ(spectrum().origYUnits(), spectrum().yUnits());
        return QPair<int, int>(spectrum().xUnits(), spectrum().yUnits());
    };
    using TUnits = QPair<int, int>;
    const auto newUnits = [&units](quint8 x, quint8 y) { return units(oneSpectrum().put(28, x).put(29, y)); };
    EXPECT_EQ(newUnits(0, 2), TUnits(50, 12));
    EXPECT_EQ(newUnits(2, 3), TUnits(1, 15));
    EXPECT_EQ(newUnits(3, 4), TUnits(2, 14));
    EXPECT_EQ(newUnits(13, 12), TUnits(3, 18));
    EXPECT_EQ(newUnits(17, 129), TUnits(0, 13));
    EXPECT_EQ(newUnits(1, 77), TUnits(0, 50));
    const TBytes old = oldHeader(2.0f, 1.0f, 2.0f, 0).zeros(8);
    EXPECT_EQ(units(TBytes(old).put(17, quint8(12))), TUnits(0, 50));
    EXPECT_EQ(units(TBytes(old).put(17, quint8(128))), TUnits(0, 10));
}

TEST_F(SpcConverter, transmittanceAboveOneIsInPercent)
{
    const auto yUnit = [this](float highest) {
        EXPECT_EQ(read(oneSpectrum({0.1f, highest, -5.0f}).put(29, quint8(128))), 0);
        EXPECT_EQ(spectrum().origYUnits(), spectrum().yUnits());
        return spectrum().yUnits();
    };
    EXPECT_EQ(yUnit(92.0f), cUnitPercentTransmittance);
    EXPECT_EQ(yUnit(100.0f), cUnitPercentTransmittance);
    EXPECT_EQ(yUnit(0.92f), cUnitTransmittance);
    EXPECT_EQ(yUnit(1.0f), cUnitTransmittance);
    EXPECT_EQ(yUnit(104.0f), cUnitTransmittance);

    TBytes map = newHeader(2, 1.0, 2.0, 2).put(29, quint8(128));
    addSubfile(map, {50.0f, 60.0f});
    addSubfile(map, {0.5f, 0.6f});
    ASSERT_EQ(read(map), 0);
    EXPECT_EQ(spectrum(1).yUnits(), cUnitPercentTransmittance) << "the first spectrum decides for all";
    EXPECT_EQ(param(spectrum(1), 2002), yrexUnitDisplayName(cUnitPercentTransmittance));
}

TEST_F(SpcConverter, integerValuesAreFractionsOfAPowerOfTwo)
{
    TBytes words = newHeader(3, 1.0, 3.0).put(0, quint8(1)).put(3, quint8(0)).zeros(32);
    ASSERT_EQ(read(addValues<quint16>(words, {0, 0x8000, 0xFFFF})), 0);
    EXPECT_EQ(spectrum().values(), (QVector<double>{0.0, 0.5, 65535.0 / 65536.0}));

    TBytes longs = newHeader(3, 1.0, 3.0).put(3, qint8(-1)).zeros(32);
    ASSERT_EQ(read(addValues<qint32>(longs, {1 << 30, -(1 << 30), 1})), 0);
    EXPECT_EQ(spectrum().values(), (QVector<double>{0.125, -0.125, std::ldexp(1.0, -33)}));

    // 0x00018000 stands with its upper half first; negative numbers are read as large ones
    TBytes old = oldHeader(3.4f, 1.0f, 3.0f, 16);
    ASSERT_EQ(read(addValues<quint32>(old, {0x80000001u, 0xFFFFFFFFu, 0u, 7u})), 0);
    EXPECT_EQ(spectrum().values(), (QVector<double>{0x18000 / 65536.0, 65536.0 - 1.0 / 65536.0, 0.0}));
    EXPECT_EQ(spectrum().paramsBundle()["ospchdr"].size(), 256);

    TBytes huge = oldHeader(2.0f, 1.0f, 2.0f, 0x80);
    ASSERT_EQ(read(addValues<quint32>(huge, {0x00010000u, 0u})), 0);
    EXPECT_EQ(spectrum().values().first(), std::ldexp(1.0, 96)) << "128 is not -128, the mark of floats";
    TBytes half = oldHeader(1.5f, 1.0f, 2.0f, 32);
    ASSERT_EQ(read(addValues<quint32>(half, {0x00010000u, 0x00010000u})), 0);
    EXPECT_EQ(spectrum().values(), (QVector<double>{1.0, 0.0})) << "rounded up, read down";
}

TEST_F(SpcConverter, aMapIsAStackThatSharesItsHeader)
{
    ASSERT_EQ(read(mapWithLog()), 0);
    ASSERT_EQ(fConverter.spectra().size(), 3);
    EXPECT_EQ(fConverter.readFlags(), quint32(TYrexSpectrumConverter::cGroup));
    for (int k = 0; k < 3; ++k) {
        EXPECT_EQ(spectrum(k).values().last(), k);
        EXPECT_EQ(spectrum(k).seriesValue(), 0.5 * k);
        EXPECT_EQ(spectrum(k).dateText(), "2004-05-06T07:08:00");
        EXPECT_EQ(param(spectrum(k), 2047), QString::number(k));
        EXPECT_EQ(param(spectrum(k), 1001), "header memo");
    }
    EXPECT_EQ(spectrum(0).paramsBundle()["spchdr"].data().constData(),
              spectrum(2).paramsBundle()["spchdr"].data().constData());
    EXPECT_TRUE(spectrum(0).paramsBundle()["logtext"].data().startsWith("Memo"));
    EXPECT_FALSE(spectrum(1).paramsBundle().contains("logtext"));
    ASSERT_EQ(read(oneSpectrum()), 0);
    EXPECT_EQ(fConverter.readFlags(), 0u) << "a converter serves one file after another";
}

TEST_F(SpcConverter, anXArrayIsResampledInSmallestSteps)
{
    QVector<float> x{0.0f};
    QVector<float> y{0.0f};
    for (int i = 1; i < 100; ++i) {
        x.append(x.last() + (i % 2 ? 1.0f : 2.0f));
        y.append(2.0f * x.last());
    }
    ASSERT_EQ(read(unevenFile(x, {y})), 0);
    ASSERT_EQ(spectrum().pointCount(), 148);
    for (int i = 0; i < 148; ++i)
        ASSERT_NEAR(spectrum().values()[i], 2.0 * i, 1e-9) << "a line stays one";
    EXPECT_EQ(spectrum().lastX(), 148.0);

    std::reverse(x.begin(), x.end());
    std::reverse(y.begin(), y.end());
    ASSERT_EQ(read(unevenFile(x, {y, y})), 0);
    ASSERT_EQ(spectrum(1).pointCount(), 148);
    EXPECT_EQ(spectrum(1).values().size(), 148);
    EXPECT_NEAR(spectrum(1).values().first(), 294.0, 1e-9) << "from first X to last X";
    EXPECT_NEAR(spectrum(1).values().last(), 0.0, 1e-9);
}

TEST_F(SpcConverter, xArraysThatMakeNoSense)
{
    const QVector<float> y{1, 2, 3, 4};
    // floats beside an exponent of integers
    TBytes misread = newHeader(4, 1.0, 6.0).put(0, quint8(0x80)).put(3, qint8(-1));
    addValues<float>(misread, {1, 2, 4, 6}).zeros(32);
    ASSERT_EQ(read(addValues<qint32>(misread, {0, 1 << 30, 0, 1 << 30})), 0);
    EXPECT_EQ(spectrum().pointCount(), 5);
    // 32-bit integers by the rule, though Y has 16 bits
    TBytes whole = newHeader(4, 1.0, 6.0).put(0, quint8(0x81)).put(3, qint8(32));
    addValues<qint32>(whole, {1, 2, 4, 6}).zeros(32);
    ASSERT_EQ(read(addValues<quint16>(whole, {1, 2, 3, 4})), 0);
    EXPECT_EQ(spectrum().pointCount(), 5);
    const float nan = std::nanf("");
    for (const QVector<float> &x : {QVector<float>{1, 2, 2, 4}, {1, 3, 2, 4}, {1, nan, 3, 4}, {1, 1 + 1e-6f, 3, 4}}) {
        ASSERT_EQ(read(unevenFile(x, {y})), 0);
        EXPECT_EQ(spectrum().values(), (QVector<double>{1, 2, 3, 4})) << "the even axis of the header";
        EXPECT_EQ(spectrum().pointCount(), 4);
    }
    ASSERT_EQ(read(unevenFile({4, 3, 2, 1}, {y})), 0) << "an even array";
    EXPECT_EQ(spectrum().values(), (QVector<double>{1, 2, 3, 4}));
}

TEST_F(SpcConverter, ownXValuesOfASubfileArePassedOver)
{
    TBytes bytes = newHeader(99, 1.0, 3.0).put(0, quint8(0x40)).zeros(32);
    bytes.put(512 + 1, qint8(-128)).put(512 + 16, qint32(3));
    addValues<float>(bytes, {1, 2, 4, 10, 20, 30});
    ASSERT_EQ(read(bytes), 0);
    EXPECT_EQ(spectrum().values(), (QVector<double>{10, 20, 30}));
    EXPECT_EQ(spectrum().pointCount(), 3);
    ASSERT_EQ(read(bytes.put(512 + 1, qint8(0))), 0);
    EXPECT_EQ(spectrum().values(), (QVector<double>{10, 20, 30})) << "float files leave the exponent of subfiles 0";
}

TEST_F(SpcConverter, filesThatCannotBe)
{
    EXPECT_EQ(fConverter.convert(fFolder.filePath("missing.spc"), nullptr), 51);
    EXPECT_EQ(read(oneSpectrum().put(1, quint8(0x4C))), 4);
    EXPECT_EQ(read(oneSpectrum().put(4, qint32(0)).put(24, qint32(0))), 4);
    EXPECT_EQ(read(oldHeader(2.0f, 1.0f, 2.0f, 5).put(0, quint8(4)).zeros(8)), 4);
    EXPECT_TRUE(fConverter.problem().contains("multifile")) << qPrintable(fConverter.problem());
    EXPECT_EQ(read(oneSpectrum().put(4, qint32(-3))), 52);
    EXPECT_EQ(fConverter.problem(), "expected the number of points at offset 4, found -3");
    EXPECT_EQ(read(oldHeader(std::nanf(""), 1.0f, 2.0f, 5)), 52);
    EXPECT_EQ(read(oneSpectrum().put(4, qint32(100000000))), int(0x80000002));
    EXPECT_TRUE(fConverter.spectra().isEmpty());
    EXPECT_EQ(read(oneSpectrum().put(24, qint32(0))), 0) << "no subfiles count as one";
    EXPECT_EQ(read(oneSpectrum().put(4, qint32(0))), 0) << "a subfile without points is a spectrum without points";
}

TEST_F(SpcConverter, aFileThatEndsEarly)
{
    const TBytes map = mapWithLog();
    const int secondValues = 512 + 44 + 32;
    ASSERT_EQ(fConverter.convert(fileOf(map.bytes().left(secondValues + 4), "cut.spc"), nullptr), 0);
    ASSERT_EQ(fConverter.spectra().size(), 2);
    EXPECT_EQ(spectrum(1).values(), (QVector<double>{1.0, 0.0, 0.0}));
    expectSafeWhenCut(fConverter, map.bytes(), "cut.spc", 31);
    expectSafeWhenCut(fConverter, unevenFile({1, 2, 4, 8}, {{1, 2, 3, 4}, {5, 6, 7, 8}}).bytes(), "cut.spc", 29);
    expectSafeWhenCut(fConverter, oldHeader(5.0f, 1.0f, 5.0f, 0).zeros(20).bytes(), "cut.spc", 23);
}

TEST(GalacticDate, onlyDatesThatCanBe)
{
    const auto packed = [](quint32 y, quint32 m, quint32 d, quint32 h, quint32 min) {
        const quint32 number = y << 20 | m << 16 | d << 11 | h << 6 | min;
        return galacticDate({QString::number(qint32(number)), QString(), QString()});
    };
    EXPECT_EQ(packed(1999, 12, 31, 23, 59), "1999-12-31T23:59:00");
    EXPECT_EQ(packed(2048, 1, 1, 0, 0), "2048-01-01T00:00:00") << "negative as a signed number";
    EXPECT_EQ(packed(115, 1, 25, 13, 48), "2015-01-25T13:48:00");
    EXPECT_TRUE(packed(0, 1, 1, 1, 1).isNull());
    EXPECT_TRUE(packed(1999, 0, 1, 1, 1).isNull());
    EXPECT_TRUE(packed(1999, 2, 29, 1, 1).isNull());
    EXPECT_TRUE(packed(1999, 2, 28, 25, 1).isNull());
    EXPECT_TRUE(packed(1330, 1, 11, 10, 24).isNull()) << "seconds since 1970, written by some";
    const auto old = [](int year) { return galacticDate({"0", QString::number(year), "320081413"}); };
    EXPECT_EQ(old(1992), "1992-05-14T20:19:00");
    EXPECT_EQ(old(20572), "1992-05-14T20:19:00") << "the upper bits are no part of the year";
    EXPECT_EQ(old(49), "2049-05-14T20:19:00");
    EXPECT_EQ(old(50), "1950-05-14T20:19:00");
    EXPECT_EQ(old(113), "2013-05-14T20:19:00");
    EXPECT_TRUE(galacticDate({QString(), "1992", "0"}).isNull());
    EXPECT_TRUE(galacticDate({}).isNull());
}

TEST_F(SpcConverter, parametersOfHeadersAndLog)
{
    TBytes bytes = mapWithLog();
    bytes.putText(36, "4.00CM-1").putText(45, "HK 9\xB5").put(29, quint8(128));
    ASSERT_EQ(read(bytes), 0);
    const TYrexSpectrum &first = spectrum();
    EXPECT_EQ(param(first, 1001), "header memo");
    EXPECT_EQ(param(first, 2000), "FT-IR, FT-NIR, FT-Raman Spectrum or Igram (Can also be scanning IR.)");
    EXPECT_EQ(param(first, 2001), "Wavenumber (cm-1)");
    EXPECT_EQ(param(first, 2041), "4.00CM-1");
    EXPECT_EQ(param(first, 2042), QString("HK 9") + QChar(0xB5));
    EXPECT_EQ(param(first, 502), "3");
    EXPECT_EQ(param(first, 1008), "2004-05-06T07:08:00");
    EXPECT_FALSE(param(first, 1009).isEmpty());
    EXPECT_EQ(param(spectrum(2), 2043), "1");
    EXPECT_EQ(param(first, 2022), "log memo");
    EXPECT_EQ(param(first, 2023), "note");
    EXPECT_EQ(param(first, 2026), "16");
    EXPECT_TRUE(param(first, 2029).isEmpty()) << "a key without a value";

    const QVariantMap map = fConverter.metaData(file(bytes), {"2026", "1001", "logtext(comment)", "spchdr(byte;28)"});
    EXPECT_EQ(map.value("2026"), "16");
    EXPECT_EQ(map.value("1001"), "header memo");
    EXPECT_EQ(map.value("logtext(comment)"), "note");
    EXPECT_EQ(map.value("spchdr(byte;28)"), "Wavenumber (cm-1)");
    EXPECT_EQ(map.value(Consts::Converter::cTitleStr), "log memo");
    EXPECT_EQ(map.value(Consts::Converter::cTooltipStr), "note");
    EXPECT_EQ(map.value(Consts::Converter::cDimNum), 1);
    EXPECT_TRUE(map.value(Consts::Converter::cExperimentStr).toString().startsWith("FT-IR"));
    EXPECT_EQ(fConverter.spectra().size(), 3);

    const QVariantMap plain = fConverter.metaData(file(oneSpectrum().putText(88, "memo")), {});
    EXPECT_EQ(plain.value(Consts::Converter::cTitleStr), "memo");
    EXPECT_EQ(plain.value(Consts::Converter::cTooltipStr), "memo");
    const QVariantMap old = fConverter.metaData(file(oldHeader(2.0f, 1.0f, 2.0f, 5).putText(64, "old")), {"1001"});
    EXPECT_EQ(old.value("1001"), "old");
    EXPECT_FALSE(old.contains(Consts::Converter::cTitleStr));
}

TEST_F(SpcConverter, codesBecomeTexts)
{
    TParamsParser *parser = yrexParamsParsers().value(39);
    const auto text = [parser](int offset, quint8 code, const QString &source = "spchdr") {
        TParamsBundle bundle;
        bundle.addParamsBlob(source, QString(), 0, TBytes(512).put(offset, code).bytes());
        return parser->value(QString("%1(byte;%2)").arg(source).arg(offset), bundle);
    };
    EXPECT_EQ(text(2, 9), "Mass Spectrum ");
    EXPECT_EQ(text(2, 15), "15");
    EXPECT_EQ(text(28, 30), "Hours");
    EXPECT_EQ(text(28, 31), "31");
    EXPECT_EQ(text(29, 26), "Complex");
    EXPECT_EQ(text(29, 27), "") << "behind the end of the codes that stand for themselves";
    EXPECT_EQ(text(29, 128), "Reflectance");
    EXPECT_EQ(text(29, 130), "Emission");
    EXPECT_EQ(text(29, 131), "");
    EXPECT_EQ(text(29, 132), "132");
    EXPECT_EQ(text(16, 3), "3") << "no code in a new header";
    EXPECT_EQ(text(16, 3, "ospchdr"), "Nanometers (nm)");
    EXPECT_EQ(text(17, 2, "ospchdr"), "Absorbance");
    EXPECT_TRUE(parser->isParseable("subhdr") && parser->isParseable("ospchdr") && parser->isParseable("logtext"));
    EXPECT_FALSE(parser->isParseable("mylogtext") || parser->isParseable("header"));
}

TEST_F(SpcConverter, writesAHeaderWithoutValues)
{
    TStandInItem item({new TYrexSpectrum});
    TStandInItem other({});
    TYrexSpectrum &record = *item.fSpectra.first();
    record.params().append(TSpectrumParam(TSpectrumParam::cAcqTime, QString(), QString(), 0));
    record.params().append(TSpectrumParam(TSpectrumParam::cTitle, QString(), QString(), 0));
    record.params().append(TSpectrumParam(TSpectrumParam::cDate, QString(), QString(), 0));
    record.setParamValue(TSpectrumParam::cAcqTime, 1, " 12  s ");
    record.setParamValue(TSpectrumParam::cTitle, 1, QString(128, 'a') + QChar(0xE9));
    record.setParamValue(TSpectrumParam::cDate, 1, "2004-05-06T07:08:00");
    record.setPointCount(7);
    record.setAxis(400.0, 700.5, 1.0, 0.0, 1.0);
    const QString out = fFolder.filePath("out.spc");
    EXPECT_EQ(fConverter.exportItems({}, out), 5);
    EXPECT_EQ(fConverter.exportItems({&item}, fFolder.path()), 51);
    ASSERT_EQ(fConverter.exportItems({&item, &other}, out), 0);
    QFile written(out);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    TBytes expected(512 + 32 + 64);
    expected.put(1, quint8(0x4B)).put(2, quint8(4)).put(4, qint32(7)).put(8, 400.0).put(16, 700.5);
    expected.put(32, quint32(2004u << 20 | 5u << 16 | 6u << 11 | 7u << 6 | 8u)).put(248, qint32(544));
    expected.putText(88, QByteArray(128, 'a')).addText("ACQTIME=12 s\r\n"); // no half of a character
    EXPECT_EQ(written.readAll(), expected.bytes());

    EXPECT_TRUE(fConverter.canExport({&item}));
    EXPECT_FALSE(fConverter.canExport({&item, &other}) || fConverter.canExport({}));
    EXPECT_FALSE(fConverter.acceptsFilter("SPC", false));
    EXPECT_TRUE(fConverter.acceptsFilter("spc", true) && fConverter.acceptsFilter(QString(), true));
}

TEST_F(SpcConverter, inspectionTellsWhatIsWrong)
{
    const auto inside = [this](const TBytes &bytes) { return fConverter.inspect(file(bytes)).text(); };
    const QString good = inside(mapWithLog());
    for (const char *part : {"subfile 2", "SCANS", "header memo", "2004-05-06T07:08:00"})
        EXPECT_TRUE(good.contains(part)) << part << qPrintable(good);
    EXPECT_TRUE(inside(oneSpectrum().put(2, quint8(9))).contains("Mass Spectrum"));
    EXPECT_TRUE(inside(oneSpectrum().put(24, qint32(500))).contains("expected 500, the file ends behind 1"));
    EXPECT_TRUE(inside(oneSpectrum().put(248, qint32(5000))).contains("log"));
    EXPECT_TRUE(inside(unevenFile({1, 2, 4, 8}, {{1, 2, 3, 4}})).contains("resampled to 7 points"));
    EXPECT_TRUE(fConverter.inspect(file(TBytes(512))).isEmpty());
    TBytes many = newHeader(1, 1.0, 2.0, 300);
    for (int k = 0; k < 300; ++k)
        addSubfile(many, {1.0f});
    EXPECT_TRUE(inside(many).contains("200 more"));
}
