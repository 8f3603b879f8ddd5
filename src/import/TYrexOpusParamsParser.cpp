#include "TYrexOpusParamsParser.h"

#include "TYrexSidecar.h"

#include <QIODevice>

namespace {

const QString cMarker = QStringLiteral("OPUS_METADATA");
const QString cHistoryKey = QStringLiteral("HIST");
const QString cMiscKey = QStringLiteral("MISCPAR");

} // namespace

TYrexOpusParamsParser::TYrexOpusParamsParser()
    : TBinaryParamsParser(QDataStream::LittleEndian)
{
    setTemplates(TYrexOpusParamsParser::defaultTemplates());
}

TSpectrumParamsTemplate TYrexOpusParamsParser::defaultTemplates() const
{
    TSpectrumParamsTemplate entries = TBinaryParamsParser::defaultTemplates();
    for (const int id : {TSpectrumParam::cTitle, TSpectrumParam::cXUnits, TSpectrumParam::cYUnits})
        entries.set(TSpectrumParam(id, QString(), QString(), -1));
    entries.set(TSpectrumParam(TSpectrumParam::cHistory, cHistoryKey, cMarker, -1));
    entries.set(TSpectrumParam(TSpectrumParam::cInstrument, cMiscKey, cMarker, -1));
    for (const int id : {TSpectrumParam::cOrigXUnits, TSpectrumParam::cOrigYUnits})
        entries.set(TSpectrumParam(id, QString(), QString(), -1));
    entries.set(TSpectrumParam(TSpectrumParam::cOriginalSize, QString(), QString(), 1));
    entries.set(TSpectrumParam(TSpectrumParam::cPointCount, QString(), QString(), 0));
    entries.set(TSpectrumParam(TSpectrumParam::cDate, QString(), QString(), -1));
    entries.set(TSpectrumParam(TSpectrumParam::cSeriesValue, QString(), QString(), 2));
    return entries;
}

bool TYrexOpusParamsParser::isParseable(const QString &source) const
{
    return source == cMarker;
}

void TYrexOpusParamsParser::loadSource(const QString &source, const QString &path)
{
    if (source != cMarker)
        return;
    const std::unique_ptr<QIODevice> device = sourceDevice(source, path);
    const QMap<QString, QString> sections = TYrexSidecar::sections(device ? device->readAll() : QByteArray());
    fTexts.clear();
    if (sections.contains("History"))
        fTexts.insert(cHistoryKey, sections.value("History"));
    if (sections.contains("Misc_params"))
        fTexts.insert(cMiscKey, sections.value("Misc_params"));
}

void TYrexOpusParamsParser::reset()
{
    fTexts.clear();
}

QString TYrexOpusParamsParser::value(const QString &source, const QString &key, const QString &path)
{
    const QString text = TBinaryParamsParser::value(source, key, path);
    return text.isNull() && source == cMarker ? fTexts.value(key) : text;
}
