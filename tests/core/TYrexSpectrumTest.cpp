#include "SpectrumBuilder.h"
#include "TYrexUnits.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

QByteArray stored(const TYrexSpectrum &spectrum)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    spectrum.store(stream);
    return bytes;
}

/// A record in which every stored field differs from its default.
std::unique_ptr<TYrexSpectrum> fullSpectrum()
{
    auto spectrum = makeSpectrum({1.0, 2.5, -3.0, 4.0}, 4000.0, 400.0, cUnitWavenumber, cUnitTransmittance);
    spectrum->data()[1] = 7.0;
    spectrum->setUnits(cUnitMicrometers, cUnitAbsorbance);
    spectrum->setOrgDataModified(true);
    spectrum->setFileFormat(39);
    spectrum->paramsBundle().setFileFormat(39);
    spectrum->setSeriesValue(2.5);
    spectrum->paramsBundle().addParamsBlob("head", "a.spc", 0, QByteArray("bytes"));
    spectrum->params().append(TSpectrumParam(1001, QString(), QString(), -1));
    spectrum->setParamValue(1001, 1, " A title ");
    spectrum->setSpectrumClass("B");
    auto *peak = new TYrexDPLib::TYrexDPPeak;
    peak->position = 1.25;
    peak->annotation = "band";
    spectrum->peaks().append(peak);
    spectrum->integrals().append(TYrexIntegrationRegion(0.5, 2.5, 2));
    return spectrum;
}

void setUnitParam(TYrexSpectrum &spectrum, int id, const QString &text)
{
    if (!spectrum.params().getParam(id))
        spectrum.params().append(TSpectrumParam(id, QString(), QString(), -1));
    spectrum.setParamValue(id, 1, text);
}

} // namespace

TEST(TYrexSpectrum, isBornEmpty)
{
    const TYrexSpectrum spectrum;
    EXPECT_EQ(spectrum.pointCount(), 0);
    EXPECT_EQ(spectrum.fileFormat(), 23);
    EXPECT_EQ(spectrum.pqnFactor(), 1.0);
    EXPECT_TRUE(spectrum.peaks().isEmpty());
    EXPECT_EQ(spectrum.integrals().count(), 0);
    EXPECT_EQ(spectrum.preview(), nullptr);
    EXPECT_TRUE(spectrum.title().isEmpty());
}

TEST(TYrexSpectrum, cloneHasTheStoredFieldsAndNoPreview)
{
    const auto spectrum = fullSpectrum();
    spectrum->allocPreview(4);
    const auto clone = spectrum->clone();
    EXPECT_EQ(stored(*clone), stored(*spectrum));
    EXPECT_EQ(clone->preview(), nullptr);
    EXPECT_EQ(clone->multiPointBaseline(), nullptr);
    EXPECT_EQ(clone->title(), "A title");
    EXPECT_EQ(clone->spectrumClass(), "B");
    spectrum->setFileFormat(40);
    EXPECT_EQ(spectrum->clone()->paramsBundle().fileFormat(), 40) << "the record's format goes to the bundle too";
    EXPECT_EQ(clone->values(), spectrum->values());
    EXPECT_EQ(clone->orgData(), spectrum->orgData());
    ASSERT_EQ(clone->peaks().size(), 1);
    EXPECT_EQ(clone->peaks().first()->id, spectrum->peaks().first()->id);
}

TEST(TYrexSpectrum, loadingSharesEqualGenerationsAgain)
{
    const auto spectrum = makeSpectrum({1, 2, 3}, 0, 2);
    const auto clone = spectrum->clone();
    EXPECT_EQ(clone->values().constData(), clone->orgData().constData());
    EXPECT_EQ(clone->orgData().constData(), clone->absOrgData().constData());
}

TEST(TYrexSpectrum, anEmptyDataBlockStillGivesTheLaterItems)
{
    const auto spectrum = fullSpectrum();
    const QByteArray bytes = stored(*spectrum);
    TDataStream measure(bytes);
    TDataStreamAdaptor(measure).skipData();
    QByteArray without;
    {
        TDataStream out(&without, QIODevice::WriteOnly);
        TDataStreamAdaptor(out).startStore();
    }
    TDataStream stream(without + bytes.mid(int(measure.devicePosition())));
    TYrexSpectrum read;
    read.load(stream);
    EXPECT_TRUE(stream.isGood());
    EXPECT_TRUE(read.values().isEmpty());
    EXPECT_EQ(read.title(), "A title");
    EXPECT_EQ(read.integrals().count(), 1);
}

TEST(TYrexSpectrum, everyCutOfTheStreamLoadsWithoutMoreThanItHolds)
{
    const QByteArray bytes = stored(*fullSpectrum());
    for (int length = 0; length < bytes.size(); ++length) {
        TDataStream stream(bytes.left(length));
        TYrexSpectrum read;
        read.load(stream);
        EXPECT_LE(read.pointCount(), read.values().size()) << length;
        read.process(1, 0, 100);
    }
}

TEST(TYrexSpectrum, clearedDataAndDamageKeepWhatIsLeft)
{
    const auto cleared = makeSpectrum({1, 2, 3}, 0, 2);
    cleared->setFileFormat(36);
    cleared->clearData();
    const auto copy = cleared->clone();
    EXPECT_EQ(copy->pointCount(), 3);
    copy->process(cProcessForced, 0, 0);
    EXPECT_EQ(copy->values(), QVector<double>({1, 2, 3}));

    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        cleared->store(out);
    }
    for (int length = 0; length < bytes.size(); ++length) {
        TDataStream in(bytes.left(length));
        TYrexSpectrum read;
        read.load(in);
        EXPECT_TRUE(read.fileFormat() == TYrexSpectrum::cNoFormat || read.fileFormat() == 36) << length;
    }
}

TEST(TYrexSpectrum, whatIsTouchedStartsAnewWithTheNextRun)
{
    const auto spectrum = makeSpectrum({1, 2, 3}, 0, 2);
    spectrum->process(0, 0, 0);
    spectrum->data()[1] = 9.0;
    spectrum->setTouched(true);
    const auto saved = spectrum->clone();
    EXPECT_EQ(saved->values().at(1), 9.0);
    for (TYrexSpectrum *one : {spectrum.get(), saved.get()}) {
        one->process(0, 0, 0);
        EXPECT_EQ(one->values().at(1), 2.0);
        EXPECT_FALSE(one->isTouched());
    }
}

TEST(TYrexSpectrum, whatStackActionsFoundGoesWithTheSpectrum)
{
    const auto spectrum = makeSpectrum({1, 2, 3}, 0, 2);
    spectrum->setMscCoefficients(0.25, 1.5);
    spectrum->setPqnFactor(3.0);
    const auto saved = spectrum->clone();
    EXPECT_EQ(saved->mscIntercept(), 0.25);
    EXPECT_EQ(saved->mscSlope(), 1.5);
    EXPECT_EQ(saved->pqnFactor(), 3.0);
    EXPECT_FALSE(saved->isTouched());
}

TEST(TYrexSpectrum, aPointCountBeyondTheDataIsCut)
{
    const auto spectrum = makeSpectrum({1, 2, 3}, 0, 2);
    spectrum->setPointCount(1000000);
    const auto clone = spectrum->clone();
    EXPECT_EQ(clone->pointCount(), 3);
}

TEST(TYrexSpectrum, theOriginalComesBackOnlyAfterArithmetic)
{
    const auto spectrum = makeSpectrum({1, 2, 3}, 0, 2);
    spectrum->data()[0] = 10;
    spectrum->copyDataToOrgData();
    spectrum->resetOrgDataToAbsOrgData();
    EXPECT_EQ(spectrum->orgData().first(), 10.0) << "the flag is clear";
    spectrum->setOrgDataModified(true);
    spectrum->resetOrgDataToAbsOrgData();
    EXPECT_EQ(spectrum->orgData().first(), 1.0);
}

TEST(TYrexSpectrum, statisticsKeepTheirStartValues)
{
    const auto spectrum = makeSpectrum({-5, -1, -7, -2, -9}, 0, 4);
    EXPECT_EQ(spectrum->maxValue(0, 0), std::numeric_limits<double>::min()) << "all values are negative";
    EXPECT_EQ(spectrum->minValue(0, 0), -9.0);
    EXPECT_EQ(spectrum->minValue(1, 4), -7.0) << "the end is exclusive";
    EXPECT_EQ(spectrum->minValue(3, 3), std::numeric_limits<double>::max());
    double min = 0, max = 0;
    spectrum->minMax(min, max);
    EXPECT_EQ(min, -9.0);
    EXPECT_EQ(max, std::numeric_limits<double>::min());
}

TEST(TYrexSpectrum, localMeanLevelIsCloseToTheMeanOfTheWindow)
{
    const auto spectrum = makeSpectrum({1, 2, 3, 4, 100}, 0, 4);
    EXPECT_NEAR(spectrum->localMeanLevel(1, 5, 2), 2.0, 1e-3);
    EXPECT_NEAR(spectrum->localMeanLevel(0, 5, 2), 1.5, 1e-3) << "cut at the start";
}

TEST(TYrexSpectrum, xIndexIsNeitherRoundedNorClamped)
{
    const auto spectrum = makeSpectrum(QVector<double>(11, 0.0), 4000.0, 2000.0, cUnitWavenumber);
    EXPECT_DOUBLE_EQ(spectrum->xIndexOf(cUnitWavenumber, 2000.0), 10.0);
    EXPECT_DOUBLE_EQ(spectrum->xIndexOf(cUnitMicrometers, 2.5), 0.0);
    EXPECT_DOUBLE_EQ(spectrum->xIndexOf(cUnitWavenumber, 3900.0), 0.5);
    EXPECT_DOUBLE_EQ(spectrum->xIndexOf(cUnitWavenumber, 1800.0), 11.0);
}

TEST(TYrexSpectrum, unitTextsAreReadMoreStrictlyForTheOriginalUnit)
{
    TYrexSpectrum spectrum;
    setUnitParam(spectrum, 2002, "%transmittance");
    setUnitParam(spectrum, 2004, "%Transmittance");
    EXPECT_EQ(spectrum.yUnits(), cUnitPercentTransmittance);
    EXPECT_EQ(spectrum.origYUnits(), cUnitArbitrary);
    setUnitParam(spectrum, 2004, "percent transmittance");
    EXPECT_EQ(spectrum.origYUnits(), cUnitArbitrary);
    setUnitParam(spectrum, 2004, "Percent Transmittance");
    EXPECT_EQ(spectrum.origYUnits(), cUnitPercentTransmittance);
    setUnitParam(spectrum, 2001, "Field (T)");
    EXPECT_EQ(spectrum.xUnits(), cUnitFieldTesla);
    setUnitParam(spectrum, 2001, "wavenumber");
    EXPECT_EQ(spectrum.xUnits(), cUnitFieldTesla) << "x texts are compared with their case";
}

TEST(TYrexSpectrum, anUnknownParameterIsNotSet)
{
    TYrexSpectrum spectrum;
    EXPECT_FALSE(spectrum.setParamValue(0, 1, "x"));
    EXPECT_FALSE(spectrum.setParamValue(1001, 1, "x")) << "absent";
    EXPECT_TRUE(spectrum.spectrumClass().isEmpty());
    spectrum.setSpectrumClass("  A ");
    EXPECT_EQ(spectrum.spectrumClass(), "A");
}
