#include "TYrexSERSBTParamsParser.h"

#include "TYrexSidecar.h"

#include <QIODevice>

namespace {

const QString cMarker = QStringLiteral("SERSBT_METADATA");
const QString cMiscKey = QStringLiteral("MISCPAR");

/// The texts of a file as UTF-8, or byte by byte where they are none.
QString decoded(const QString &text)
{
    const QString utf8 = QString::fromUtf8(text.toLatin1());
    return utf8.contains(QChar(QChar::ReplacementCharacter)) ? text : utf8;
}

} // namespace

TYrexSERSBTParamsParser::TYrexSERSBTParamsParser()
{
    setTemplates(TYrexSERSBTParamsParser::defaultTemplates());
}

TSpectrumParamsTemplate TYrexSERSBTParamsParser::defaultTemplates() const
{
    TSpectrumParamsTemplate entries = TASCIIYrexParamsParser::defaultTemplates();
    entries.set(TSpectrumParam(TSpectrumParam::cTitle, QString(), QString(), -1));
    entries.set(TSpectrumParam(TSpectrumParam::cInstrument, cMiscKey, cMarker, -1));
    // the reader knows the units, so their texts follow its codes
    for (const int id :
         {TSpectrumParam::cXUnits, TSpectrumParam::cYUnits, TSpectrumParam::cOrigXUnits, TSpectrumParam::cOrigYUnits})
        entries.set(TSpectrumParam(id, QString(), QString(), -1));
    entries.set(TSpectrumParam(TSpectrumParam::cDate, QString(), QString(), -1));
    entries.set(TSpectrumParam(TSpectrumParam::cSeriesValue, QString(), QString(), 2));
    return entries;
}

bool TYrexSERSBTParamsParser::isParseable(const QString &source) const
{
    return source == cMarker;
}

void TYrexSERSBTParamsParser::loadSource(const QString &source, const QString &path)
{
    if (source != cMarker)
        return;
    const std::unique_ptr<QIODevice> device = sourceDevice(source, path);
    const QMap<QString, QString> sections = TYrexSidecar::sections(device ? device->readAll() : QByteArray());
    fMiscParameters = decoded(sections.value("Misc_params"));
}

void TYrexSERSBTParamsParser::reset()
{
    TASCIIYrexParamsParser::reset();
    fMiscParameters.clear();
}

QString TYrexSERSBTParamsParser::value(const QString &source, const QString &key, const QString &path)
{
    const QString text = TASCIIYrexParamsParser::value(source, key, path);
    return text.isNull() && source == cMarker && key == cMiscKey ? fMiscParameters : text;
}
