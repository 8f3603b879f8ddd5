#include "TYrexOpusConverter.h"

#include "OpusBuilder.h"
#include "TOpusNativeLibrary.h"
#include "TReaderFixture.h"
#include "TYrexUnits.h"

namespace {

constexpr quint32 cAb = 0x100F;
constexpr quint32 cOriginal = 0x40000000;
constexpr quint32 cSeries = 0x00100000;
constexpr quint32 cCompact = 0x00200000;
constexpr quint32 cHistory = 0x40680000;

using B = OpusBuilder;

class OpusConverter : public TReaderFixture
{
protected:
    QString file(const TBytes &bytes) { return fileOf(bytes.bytes(), QStringLiteral("a.7")); }
    int read(const TBytes &bytes) { return fConverter.convert(file(bytes), nullptr); }
    int read(const OpusBuilder &builder) { return read(builder.file()); }

    const TYrexSpectrum &spectrum(int index = 0) { return *fConverter.spectra().at(index); }
    QStringList titles()
    {
        QStringList list;
        for (const TYrexSpectrum *one : fConverter.spectra())
            list.append(one->title());
        return list;
    }

    TYrexOpusConverter fConverter;
};

/// Everything that a usual file has.
OpusBuilder usualFile()
{
    OpusBuilder builder;
    builder.addSpectrum(0x0407, {1, 2, 3, 4}, 4000.0, 1000.0, B::wavenumbers("2019/05/03"));
    builder.add(0xA0, B::text("SNM", "soil\nno.\x80 5") + B::number("CNT", 7) + B::number("DBL", 0.1) +
                          B::text("a-b", "no name") + B::end() + B::text("ZZZ", "stale"));
    builder.addSpectrum(cAb, {0.5f, 0.25f, 0.125f}, 4000.0, 1000.0, B::number("CSF", 2.0) + B::wavenumbers());
    builder.addSpectrum(0x0807, {9, 9}, 0.0, 1.0, B::text("DXU", "PNT", 3));
    builder.add(cHistory, QByteArray(100, '\0') + QByteArray("first\tstep\0\0second", 18) + '\0');
    return builder;
}

/// The library behind the interface refuses some calls.
class TFailingLibrary : public TOpusNativeLibrary
{
public:
    int joinKey(qint32, QByteArray *) override { return cUnknownBlock; }
    int parameterCount(qint32, qint32, int *) override { return cUnknownBlock; }
    int blockName(qint32, char *) override { return cUnknownBlock; }
};

/// Gives points in any order, as another library might.
class TUnsortedLibrary : public TOpusNativeLibrary
{
public:
    static QVector<double> &axis()
    {
        static QVector<double> x;
        return x;
    }
    int points(qint32 handle, qint32 block, double *x, double *y) override
    {
        const int code = TOpusNativeLibrary::points(handle, block, x, y);
        std::copy(axis().begin(), axis().end(), x);
        return code;
    }
};

template <typename TLibrary>
std::unique_ptr<IOpusLibrary> make()
{
    return std::unique_ptr<IOpusLibrary>(new TLibrary);
}

} // namespace

TEST_F(OpusConverter, ReadsSpectraWithUnitsDatesAndTitles)
{
    ASSERT_EQ(read(usualFile()), 0);
    EXPECT_EQ(titles(), QStringList({"ScSm", "AbRa"}));
    EXPECT_EQ(fConverter.readFlags() & TYrexSpectrumConverter::cGroup, 0u);
    const TYrexSpectrum &ab = spectrum(1);
    EXPECT_EQ(ab.values(), QVector<double>({0.25, 0.5, 1.0})) << "ascending x, scaled";
    EXPECT_EQ(ab.absOrgData(), ab.values());
    EXPECT_EQ(ab.firstX(), 1000.0);
    EXPECT_EQ(ab.lastX(), 4000.0);
    EXPECT_EQ(ab.origXUnits(), cUnitWavenumber);
    EXPECT_EQ(ab.yUnits(), cUnitAbsorbance);
    EXPECT_EQ(ab.fileFormat(), 41);
    EXPECT_EQ(ab.acquisitionDate(), QDateTime(QDate(2019, 5, 3), QTime(13, 34, 44, 641)));
    EXPECT_EQ(spectrum(0).dateText(), "2019-05-03 13:34:44.641") << "year first";
    EXPECT_EQ(spectrum(0).yUnits(), cUnitArbitrary);
}

TEST_F(OpusConverter, KeepsHistoryAndParametersInTheSidecar)
{
    const QString path = file(usualFile().file());
    ASSERT_EQ(fConverter.convert(path, nullptr), 0);
    EXPECT_EQ(param(spectrum(), TSpectrumParam::cHistory), "first step|second|");
    EXPECT_EQ(param(spectrum(), TSpectrumParam::cInstrument), "[[[Sample]]] SNM:soil no.\u20AC 5|CNT:7|DBL:0.1| ");
    EXPECT_EQ(param(spectrum(), TSpectrumParam::cTitle), "ScSm");
    const QVariantMap values = fConverter.metaData(path, {"1022", "502", "1008", "OPUS_METADATA(HIST)"});
    EXPECT_EQ(values.value("1022").toString(), "first step|second|");
    EXPECT_EQ(values.value("OPUS_METADATA(HIST)").toString(), "first step|second|");
    EXPECT_EQ(values.value("502").toString(), "4");
    EXPECT_EQ(values.value("1008").toString(), "2019-05-03 13:34:44.641");
    EXPECT_EQ(fConverter.spectra().size(), 2) << "as the import left them";
}

TEST_F(OpusConverter, SuppliesYUnitsThatTheFileLacks)
{
    OpusBuilder builder;
    builder.addSpectrum(0x140F, {0.5f, 0.25f}, 1.0, 2.0).addSpectrum(0x180F, {1, 2}, 1.0, 2.0);
    builder.addSpectrum(0x300F, {1, 2}, 1.0, 2.0).addSpectrum(0x280F, {1, 2}, 1.0, 2.0, B::text("DXU", "nm"));
    ASSERT_EQ(read(builder), 0);
    EXPECT_EQ(titles(), QStringList({"TrRa", "KmRa", "ReRa", "RmRa"}));
    EXPECT_EQ(spectrum(0).yUnits(), cUnitPercentTransmittance);
    EXPECT_EQ(spectrum(0).values(), QVector<double>({50.0, 25.0})) << "percent";
    EXPECT_EQ(spectrum(1).yUnits(), cUnitKubelkaMunk);
    EXPECT_EQ(spectrum(2).yUnits(), cUnitReflectance);
    EXPECT_EQ(spectrum(3).yUnits(), cUnitArbitrary);
    EXPECT_EQ(spectrum(3).xUnits(), cUnitNanometers);
    EXPECT_EQ(spectrum(0).xUnits(), cUnitArbitrary) << "no DXU";

    OpusBuilder own;
    own.addSpectrum(0x140F, {0.5f, 0.25f}, 1.0, 2.0, B::text("DYU", "transmission"));
    ASSERT_EQ(read(own), 0);
    EXPECT_EQ(spectrum().yUnits(), cUnitPercentTransmittance);
    EXPECT_EQ(spectrum().values(), QVector<double>({0.5, 0.25})) << "as the file says";
}

TEST_F(OpusConverter, TakesTheRewrittenBlockOfTwo)
{
    OpusBuilder builder;
    builder.addSpectrum(cAb, {1, 1}, 1.0, 2.0, B::text("DAT", "2020/01/02"));
    builder.addSpectrum(cAb | cOriginal, {2, 2}, 1.0, 2.0, B::text("DAT", "2019/01/02"));
    ASSERT_EQ(read(builder), 0);
    ASSERT_EQ(fConverter.spectra().size(), 1);
    EXPECT_EQ(spectrum().values().first(), 1.0);
    EXPECT_EQ(spectrum().dateText(), "2020-01-02");

    OpusBuilder unpaired; // the rewritten one has no status block, so the other stands
    unpaired.add(cAb, B::floats({1, 1})).addSpectrum(cAb | cOriginal, {2, 2}, 1.0, 2.0);
    ASSERT_EQ(read(unpaired), 0);
    ASSERT_EQ(fConverter.spectra().size(), 1);
    EXPECT_EQ(spectrum().values().first(), 2.0);
}

TEST_F(OpusConverter, TakesTheVersionWhoseLimitsAgreeThenTheLatest)
{
    const auto limits = [](double lowest, double highest) {
        return B::number("MNY", lowest) + B::number("MXY", highest);
    };
    OpusBuilder agreeing;
    agreeing.addSpectrum(cAb, {1, 2}, 1.0, 2.0, limits(1.0, 2.0)).addSpectrum(cAb, {3, 4}, 1.0, 2.0, limits(9.0, 9.0));
    ASSERT_EQ(read(agreeing), 0);
    ASSERT_EQ(fConverter.spectra().size(), 1);
    EXPECT_EQ(spectrum().values().first(), 1.0);

    OpusBuilder later;
    later.addSpectrum(cAb, {1, 2}, 1.0, 2.0).addSpectrum(cAb, {3, 4}, 1.0, 2.0);
    later.add(cAb, B::floats({5})); // shorter than announced
    ASSERT_EQ(read(later), 0);
    ASSERT_EQ(fConverter.spectra().size(), 1);
    EXPECT_EQ(spectrum().values().first(), 3.0);
}

TEST_F(OpusConverter, ReadsSeriesAsOneStack)
{
    OpusBuilder builder;
    builder.addSpectrum(0x040B, {7, 7}, 1.0, 2.0); // a single-channel spectrum gives way to the series
    builder.add(cSeries | cAb, B::series({{1, 2, 3}, {4, 5, 6}}, 2.0, 30.0, 10.0));
    builder.add(cSeries | cAb | 0x10, B::status(3, 300.0, 100.0, B::wavenumbers()));
    ASSERT_EQ(read(builder), 0);
    ASSERT_EQ(fConverter.spectra().size(), 2);
    EXPECT_EQ(fConverter.readFlags() & TYrexSpectrumConverter::cGroup, quint32(TYrexSpectrumConverter::cGroup));
    EXPECT_EQ(spectrum(1).values(), QVector<double>({8, 10, 12})) << "in file order, scaled by the info record";
    EXPECT_EQ(spectrum(1).firstX(), 300.0);
    EXPECT_EQ(spectrum(1).lastX(), 100.0);
    EXPECT_EQ(spectrum(1).seriesValue(), 2.0);
    EXPECT_EQ(spectrum(1).yUnits(), cUnitAbsorbance);
    EXPECT_EQ(spectrum(1).xUnits(), cUnitWavenumber);

    OpusBuilder unpaired; // the axis stands in the info record
    unpaired.add(cSeries | cAb, B::series({{1, 2, 3}}, 0.0, 30.0, 10.0));
    ASSERT_EQ(read(unpaired), 0);
    ASSERT_EQ(fConverter.spectra().size(), 1);
    EXPECT_EQ(spectrum().firstX(), 30.0);
    EXPECT_EQ(spectrum().values(), QVector<double>({1, 2, 3})) << "a scale of 0 is none";
}

TEST_F(OpusConverter, ReadsCompactShortAndIntegerBlocks)
{
    OpusBuilder builder;
    builder.add(cCompact | cAb, B::floats({9, 9, 1, 2})).add(cCompact | cAb | 0x10, B::status(2, 1.0, 2.0));
    builder.add(0x180F, B::floats({1, 2, 3})).add(0x181F, B::status(5, 1.0, 5.0));
    builder.add(0x280F, TBytes().add(qint32(-3)).add(qint32(70000)).bytes());
    builder.add(0x281F, B::number("DPF", 2) + B::number("NPT", 2) + B::number("FXV", 1.0) + B::number("LXV", 2.0));
    ASSERT_EQ(read(builder), 0);
    ASSERT_EQ(fConverter.spectra().size(), 3);
    EXPECT_EQ(spectrum(0).values(), QVector<double>({1, 2}));
    EXPECT_EQ(spectrum(1).values(), QVector<double>({1, 2, 3}));
    EXPECT_EQ(spectrum(1).lastX(), 3.0) << "the step stays";
    EXPECT_EQ(spectrum(2).values(), QVector<double>({-3, 70000}));
}

TEST_F(OpusConverter, RefusesInWords)
{
    const auto refusal = [this](const TBytes &bytes) { return fConverter.refusal(file(bytes)); };
    EXPECT_EQ(refusal(usualFile().file()), "");
    EXPECT_EQ(refusal(TBytes().addText("PEPE 2D")), "expected 0A 0A FE FE at offset 0, found 50 45 50 45");
    EXPECT_EQ(refusal(TBytes()), "the file is empty");
    EXPECT_TRUE(refusal(usualFile().file().put(12, qint32(1 << 20)))
                    .startsWith("expected the offset of the directory at offset 12, found 1048576"));
    OpusBuilder interferogram;
    interferogram.addSpectrum(0x0807, {1, 2}, 0.0, 1.0);
    EXPECT_EQ(refusal(interferogram.file()), "expected a spectrum or a series of spectra, found none in 2 blocks");
    EXPECT_EQ(read(interferogram), 52);
    EXPECT_EQ(fConverter.problem(), refusal(interferogram.file()));
    EXPECT_EQ(read(TBytes().addText("PEPE 2D")), 51);
    EXPECT_EQ(fConverter.problem(), "expected 0A 0A FE FE at offset 0, found 50 45 50 45");
    EXPECT_TRUE(fConverter.acceptsFilter("", true));
}

TEST_F(OpusConverter, DropsEntriesThatLeaveTheFileAlone)
{
    TBytes bytes = usualFile().file();
    bytes.put(36 + 8, quint32(0x7FFFFFF0)); // the values of the first spectrum
    ASSERT_EQ(read(bytes), 0);
    EXPECT_EQ(titles(), QStringList({"AbRa"}));
    const QString told = fConverter.inspect(file(bytes)).text();
    EXPECT_TRUE(told.contains("expected a block within the file")) << told.toStdString();

    for (const double lastX : {std::nan(""), double(INFINITY)}) {
        OpusBuilder builder;
        builder.addSpectrum(cAb, {1, 2}, 1.0, lastX).addSpectrum(0x0407, {1, 2}, 1.0, 2.0);
        ASSERT_EQ(read(builder), 0);
        EXPECT_EQ(titles(), QStringList({"ScSm"}));
    }
}

TEST_F(OpusConverter, TellsWhatEachBlockIs)
{
    TBytes bytes = usualFile().file();
    const QString told = fConverter.inspect(file(bytes)).text();
    for (const char *text : {"the spectrum \"AbRa\", with the block at offset", "not a kind of spectrum that is shown",
                             "0x00000807, interferogram, sample, amplitude", "SNM", "0x40680000", "NPT"})
        EXPECT_TRUE(told.contains(text)) << text << "\n" << told.toStdString();
    EXPECT_TRUE(fConverter.inspect(fileOf("xy", "b.0")).isEmpty());
}

TEST_F(OpusConverter, GoesOnWithWhatTheLibraryGives)
{
    TYrexOpusConverter failing(nullptr, make<TFailingLibrary>);
    ASSERT_EQ(failing.convert(file(usualFile().file()), nullptr), 0);
    ASSERT_EQ(failing.spectra().size(), 2);
    EXPECT_EQ(failing.spectra().at(1)->values().size(), 3);
    EXPECT_EQ(failing.spectra().at(1)->xUnits(), cUnitArbitrary);
}

TEST_F(OpusConverter, SortsPointsAndMakesUnevenOnesEven)
{
    OpusBuilder builder;
    builder.addSpectrum(cAb, {1, 2, 3, 4, 5}, 1.0, 5.0);
    const QString path = file(builder.file());
    TYrexOpusConverter converter(nullptr, make<TUnsortedLibrary>);

    TUnsortedLibrary::axis() = {3.0, 1.0, 2.0, 3.0, std::nan("")};
    ASSERT_EQ(converter.convert(path, nullptr), 0);
    EXPECT_EQ(converter.spectra().first()->values(), QVector<double>({2, 3, 4})) << "the later of equal x";
    EXPECT_EQ(converter.spectra().first()->pointCount(), 3);

    TUnsortedLibrary::axis() = {16.0, 8.0, 4.0, 2.0, 1.0}; // steps of 1 to 8
    ASSERT_EQ(converter.convert(path, nullptr), 0);
    const TYrexSpectrum &even = *converter.spectra().first();
    ASSERT_EQ(even.pointCount(), 15);
    EXPECT_EQ(even.values().at(0), 5.0);
    EXPECT_EQ(even.values().at(7), 2.0) << "x 8";
    EXPECT_EQ(even.lastX(), 16.0);

    TUnsortedLibrary::axis() = {1.0, 1.0 + 1e-15, 3.0, 9.0, 1e9};
    EXPECT_EQ(converter.convert(path, nullptr), int(0x80000002));
    EXPECT_TRUE(converter.problem().startsWith("expected at most")) << converter.problem().toStdString();
}

TEST_F(OpusConverter, ExportLeavesAnEmptyFile)
{
    const QString path = fFolder.filePath("out.0");
    EXPECT_EQ(fConverter.exportItems({}, path), 0);
    EXPECT_EQ(QFileInfo(path).size(), 0);
    EXPECT_EQ(fConverter.exportItems({}, fFolder.path()), 51);
}

TEST_F(OpusConverter, StaysSafeWhenCut)
{
    OpusBuilder builder = usualFile();
    builder.add(cSeries | cAb, B::series({{1, 2, 3}, {4, 5, 6}}, 1.0, 1.0, 3.0));
    expectSafeWhenCut(fConverter, builder.file().bytes(), "a.0", 24);
}

TEST(OpusNativeLibrary, GivesIsoDates)
{
    EXPECT_EQ(TOpusNativeLibrary::isoDate("03/05/2019"), "2019-05-03");
    EXPECT_EQ(TOpusNativeLibrary::isoDate("2012/11/09"), "2012-11-09");
    EXPECT_EQ(TOpusNativeLibrary::isoDate("2012/31/09"), "2012/31/09");
    EXPECT_EQ(TOpusNativeLibrary::isoTime("11:09:33 (GMT-6)"), "11:09:33.000");
    EXPECT_EQ(TOpusNativeLibrary::isoTime("10:31:19.-70"), "10:31:19.-70");
}

TEST(OpusTypeWord, NamesPairsAlike)
{
    const auto name = [](quint32 word) { return TOpusTypeWord(word).name(); };
    for (const quint32 word : {0x0407u, 0x040Bu, 0x0807u, 0x100Fu, 0xD80Fu, 0x2100Fu, 0x0010100Fu})
        EXPECT_EQ(name(word), name(TOpusTypeWord(word).statusWord()));
    EXPECT_EQ(name(0xD80F), "MtRa2Ch");
    EXPECT_EQ(name(0x2100F), "AbRa.d1");
    EXPECT_EQ(name(0x38), "Acquisition Rf");
    EXPECT_EQ(name(0xB0), "Lab");
    EXPECT_FALSE(TOpusTypeWord(0x0070100F).isData()) << "a report on absorbance";
    EXPECT_EQ(TOpusTypeWord(0x0060100F).extension(), 12);
}
