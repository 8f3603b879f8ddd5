#include "TYrexOpusParamsParser.h"

#include "TYrexSidecar.h"

#include <QIODevice>
#include <QRegularExpression>
#include <QTextCodec>

namespace {

const QString cMarker = QStringLiteral("OPUS_METADATA");
const QString cHistoryKey = QStringLiteral("HIST");
const QString cMiscKey = QStringLiteral("MISCPAR");

/// The codec of the texts, which the file names as the number of a code page; without one that of Western Europe.
QTextCodec *codecOf(const QString &parameters)
{
    static const QRegularExpression cCodePage(QStringLiteral("[ |]CPG:(\\d{3,5})\\|"));
    const QString page = cCodePage.match(parameters).captured(1);
    QTextCodec *codec = page.isEmpty() ? nullptr : QTextCodec::codecForName("windows-" + page.toLatin1());
    return codec ? codec : QTextCodec::codecForName("windows-1252");
}

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
    const QTextCodec *codec = codecOf(sections.value("Misc_params"));
    const auto decoded = [codec](const QString &text) { return codec ? codec->toUnicode(text.toLatin1()) : text; };
    fTexts.clear();
    if (sections.contains("History"))
        fTexts.insert(cHistoryKey, decoded(sections.value("History")));
    if (sections.contains("Misc_params"))
        fTexts.insert(cMiscKey, decoded(sections.value("Misc_params")));
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
