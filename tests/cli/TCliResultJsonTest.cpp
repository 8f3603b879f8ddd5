#include "TCliResultJson.h"

#include "SpectrumBuilder.h"
#include "TCanvasYrexSpectrum.h"
#include "TCliFixture.h"
#include "TCliInput.h"
#include "TYrexUnits.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "history/THistoryCommand.h"

#include <limits>

namespace {

class TCliResultJsonTest : public TCliInProcess
{
protected:
    void SetUp() override
    {
        TCliInProcess::SetUp();
        // ten points from 1000 to 2000 in wavenumbers, shown in micrometres
        fSpectrum = newSpectrum(QVector<double>(11, 1.0 / 3.0), 1000.0, 2000.0, cUnitWavenumber, cUnitAbsorbance);
        fSpectrum->setUnits(cUnitMicrometers, cUnitAbsorbance);
        auto *item = new TCanvasYrexSpectrum({fSpectrum}, nullptr, nullptr);
        fDocument.appendPage()->insertItem(item);
        fInput.fFile = "demo.csv";
        fInput.fItems = {item};
    }

    QJsonObject object(int parts)
    {
        const TCliResultJson json(fDocument, parts);
        return parsed(TCliResultJson::array({json.object(fInput)})).at(0).toObject();
    }
    QJsonObject spectrum(int parts)
    {
        return object(parts)["items"].toArray().at(0).toObject()["spectra"].toArray().at(0).toObject();
    }

    TDocument fDocument;
    TYrexSpectrum *fSpectrum = nullptr; // owned by the item
    TCliInput fInput;
};

} // namespace

TEST_F(TCliResultJsonTest, peaksAndRegionsAreInTheShownUnit)
{
    auto *peak = new TYrexDPLib::TYrexDPPeak;
    peak->position = 10.0; // 2000 1/cm, 5 um
    peak->intensity = -0.25;
    peak->positive = false;
    peak->flags = TYrexDPLib::cAutoPicked;
    fSpectrum->peaks().append(peak);
    fSpectrum->integrals().append(TYrexIntegrationRegion(0.0, 6.0, 2));
    fSpectrum->integrals().at(0)->area = -3.0;
    fSpectrum->integrals().setNormValue(2.0);

    const QJsonObject json = spectrum(TCliResultJson::cNone);
    const QJsonObject shown = json["peaks"].toArray().at(0).toObject();
    EXPECT_EQ(shown["position"].toDouble(), 10.0);
    EXPECT_EQ(shown["x"].toDouble(), 5.0);
    EXPECT_EQ(shown["intensity"].toDouble(), -0.25);
    EXPECT_FALSE(shown["positive"].toBool());
    EXPECT_TRUE(shown["auto"].toBool());
    const QJsonObject region = json["integrals"].toObject()["regions"].toArray().at(0).toObject();
    EXPECT_EQ(region["from"].toDouble(), 10.0);
    EXPECT_EQ(region["to"].toDouble(), 6.25);
    EXPECT_EQ(region["area"].toDouble(), -3.0);
    EXPECT_EQ(region["value"].toDouble(), 1.5); // shown without its sign
    EXPECT_TRUE(region["reference"].toBool());
    EXPECT_EQ(json["firstX"].toDouble(), 1000.0); // the axis stays in its own unit
    EXPECT_EQ(json["xUnits"].toInt(), int(cUnitMicrometers));
}

TEST_F(TCliResultJsonTest, onlyTheAskedPartsAreThere)
{
    fSpectrum->allocPreview(11);
    fSpectrum->zeroPreview();
    const QJsonObject few = spectrum(TCliResultJson::cNone);
    for (const char *key : {"data", "preview", "chain", "params"})
        EXPECT_FALSE(few.contains(QLatin1String(key))) << key;
    const QJsonObject all = spectrum(TCliResultJson::cAll);
    EXPECT_EQ(all["data"].toArray().size(), 11);
    EXPECT_EQ(all["data"].toArray().at(3).toDouble(), 1.0 / 3.0);
    EXPECT_EQ(all["preview"].toArray().size(), 11);
    EXPECT_EQ(all["chain"].toArray().size(), 11);
    EXPECT_TRUE(all["params"].isObject());
    fSpectrum->freePreview();
    EXPECT_FALSE(spectrum(TCliResultJson::cAll).contains("preview"));
}

TEST_F(TCliResultJsonTest, valuesThatAreNoNumbersAreStrings)
{
    fSpectrum->data()[0] = std::numeric_limits<double>::infinity();
    fSpectrum->data()[1] = std::numeric_limits<double>::quiet_NaN();
    const QJsonArray data = spectrum(TCliResultJson::cData)["data"].toArray();
    EXPECT_EQ(data.at(0).toString(), "inf");
    EXPECT_EQ(data.at(1).toString(), "nan");
}

TEST_F(TCliResultJsonTest, aFailureHasItsCodeAndNoItems)
{
    fInput.fail(int(0x80000002), "too\nlarge");
    const QJsonObject json = object(TCliResultJson::cAll);
    EXPECT_EQ(json["status"].toDouble(), 2147483650.0);
    EXPECT_EQ(json["error"].toString(), "too large");
    EXPECT_FALSE(json.contains("items"));
}
