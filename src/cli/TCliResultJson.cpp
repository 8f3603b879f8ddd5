#include "TCliResultJson.h"

#include "TCanvasYrexSpectrum.h"
#include "TCliInput.h"
#include "TJsonWriter.h"
#include "TYrexChainJson.h"
#include "TYrexUnits.h"
#include "canvas/TDocument.h"
#include "canvas/TStoredHistoryEntry.h"

#include <QSet>

namespace {

/// The x value of a fractional point index, in the unit that the axis is shown in.
double shownX(const TYrexSpectrum &spectrum, double position)
{
    return yrexConvertX(spectrum.firstX() + position * spectrum.xStep(), spectrum.origXUnits(), spectrum.xUnits());
}

void writePeaks(TJsonWriter &json, const TYrexSpectrum &spectrum)
{
    json.key("peaks");
    json.beginArray();
    for (const TYrexDPLib::TYrexDPPeak *peak : spectrum.peaks()) {
        json.beginObject(TJsonWriter::cFlat);
        json.pair("position", peak->position);
        json.pair("x", shownX(spectrum, peak->position));
        json.pair("width", peak->width);
        json.pair("intensity", peak->intensity);
        json.pair("positive", peak->positive);
        json.pair("auto", (peak->flags & TYrexDPLib::cAutoPicked) != 0);
        json.pair("annotation", peak->annotation);
        json.endObject();
    }
    json.endArray();
}

void writeIntegrals(TJsonWriter &json, const TYrexSpectrum &spectrum)
{
    const TYrexIntegrationRegions &regions = spectrum.integrals();
    json.key("integrals");
    json.beginObject();
    json.pair("normValue", regions.normValue());
    json.key("regions");
    json.beginArray();
    for (int i = 0; i < regions.count(); ++i) {
        const TYrexIntegrationRegion &region = *regions.at(i);
        json.beginObject(TJsonWriter::cFlat);
        json.pair("boundA", region.boundA);
        json.pair("boundB", region.boundB);
        json.pair("from", shownX(spectrum, region.boundA));
        json.pair("to", shownX(spectrum, region.boundB));
        json.pair("area", region.area);
        json.pair("value", regions.integralValue(&region, false));
        json.pair("reference", region.reference);
        json.pair("mode", int(region.mode));
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

void writeParams(TJsonWriter &json, const TYrexSpectrum &spectrum)
{
    json.key("params");
    json.beginObject();
    QSet<int> written; // an id has an entry for each dimension; a name stands in an object once
    for (const TSpectrumParam &param : spectrum.params()) {
        if (written.contains(param.id()))
            continue;
        written.insert(param.id());
        json.pair(QString::number(param.id()), param.value());
    }
    json.endObject();
}

} // namespace

const char TCliResultJson::cBegin[] = "[\n  ";
const char TCliResultJson::cSeparator[] = ",\n  ";
const char TCliResultJson::cEnd[] = "\n]\n";

QByteArray TCliResultJson::array(const QByteArrayList &objects)
{
    return cBegin + objects.join(cSeparator) + cEnd;
}

void TCliResultJson::writeSpectrum(TJsonWriter &json, const TYrexSpectrum &spectrum) const
{
    json.beginObject();
    json.pair("title", spectrum.title());
    json.pair("comment", spectrum.comment());
    json.pair("date", spectrum.dateText());
    json.pair("class", spectrum.spectrumClass());
    json.pair("seriesValue", spectrum.seriesValue());
    json.pair("pointCount", spectrum.pointCount());
    json.pair("firstX", spectrum.firstX());
    json.pair("lastX", spectrum.lastX());
    json.pair("origXUnits", spectrum.origXUnits());
    json.pair("origYUnits", spectrum.origYUnits());
    json.pair("xUnits", spectrum.xUnits());
    json.pair("yUnits", spectrum.yUnits());
    json.pair("orgDataModified", spectrum.orgDataModified());
    if (fParts & cData) {
        json.key("data");
        json.numbers(spectrum.values().constData(), spectrum.values().size());
    }
    if ((fParts & cProcessing) && spectrum.preview()) {
        json.key("preview");
        json.numbers(spectrum.preview(), qMin(spectrum.previewSize(), spectrum.pointCount()));
    }
    if (fParts & cProcessing) {
        json.key("chain");
        json.json(TYrexChainJson::toJson(spectrum.procParams().actions()));
    }
    writePeaks(json, spectrum);
    writeIntegrals(json, spectrum);
    if (fParts & cParams)
        writeParams(json, spectrum);
    json.endObject();
}

void TCliResultJson::writeItems(TJsonWriter &json, const TCliInput &input) const
{
    json.key("items");
    json.beginArray();
    for (ICanvasItem *entry : input.fItems) {
        const TCanvasYrexSpectrum *item = yrexItem(entry);
        json.beginObject();
        json.pair("stacked", item->isStacked());
        json.key("spectra");
        json.beginArray();
        for (const TYrexSpectrum *spectrum : item->spectra())
            writeSpectrum(json, *spectrum);
        json.endArray();
        json.endObject();
    }
    json.endArray();
}

void TCliResultJson::writeProvenance(TJsonWriter &json, const TCliInput &input) const
{
    const QVariantMap facts = input.provenance();
    json.key("provenance");
    json.beginObject();
    for (const char *name : {"Filename", "md5sum", "version"}) {
        if (facts.contains(name))
            json.pair(name, facts.value(name));
    }
    if (!fChain.isEmpty()) {
        json.key("chain");
        json.json(TYrexChainJson::toJson(fChain));
    }
    json.endObject();
}

void TCliResultJson::writeHistory(TJsonWriter &json) const
{
    json.key("history");
    json.beginArray();
    for (const TStoredHistoryEntry &entry : fDocument.historyEntries()) {
        json.beginObject();
        json.pair("description", entry.fDescription);
        if (entry.fUndone)
            json.pair("undone", true);
        json.key("params");
        json.beginArray();
        for (const THistoryParameter &param : entry.fParams) {
            json.beginObject();
            json.pair("name", param.fName);
            json.pair("value", param.fText.isEmpty() ? param.fValue : QVariant(param.fText));
            json.endObject();
        }
        json.endArray();
        json.endObject();
    }
    json.endArray();
}

QByteArray TCliResultJson::object(const TCliInput &input) const
{
    TJsonWriter json(1);
    json.beginObject();
    json.pair("file", input.fFile);
    // codes of the host have their top bit set and are shown as they are written in words: not negative
    json.pair("status", QVariant(quint32(input.fCode)));
    if (!input.isOk()) {
        json.pair("error", input.fReason.simplified());
        json.endObject();
        return json.text();
    }
    json.pair("format", input.fFormat);
    json.pair("formatName", input.fFormatName);
    writeItems(json, input);
    writeProvenance(json, input);
    writeHistory(json);
    json.endObject();
    return json.text();
}
