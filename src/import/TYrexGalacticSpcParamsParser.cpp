#include "TYrexGalacticSpcParamsParser.h"

#include "GalacticDate.h"
#include "TSpcNames.h"
#include "params/TTemplateFunctions.h"

#include <QIODevice>

namespace {

const QString cLogSource = QStringLiteral("logtext");
const QString cHeaderSource = QStringLiteral("spchdr"); // end of the names of both main headers
const QString cOldHeaderSource = QStringLiteral("ospchdr");
const QString cSubheaderSource = QStringLiteral("subhdr");
const QString cTemplateSource = QStringLiteral("header");
const QString cTemplateSubSource = QStringLiteral("subheader");

constexpr int cFirstDimension = 0;
constexpr int cSecondDimension = 1;
constexpr int cLabelDimension = 2;
constexpr int cAllDimensions = -1;

struct TEntry
{
    int fId;
    const char *fExpression;
};

constexpr TEntry cHeaderEntries[] = {
    {TSpectrumParam::cTitle, "=Str.firstNotEmptyString(spchdr(string;88;130),ospchdr(string;64;130))"},
    {TSpectrumParam::cExperiment, "=Str.firstNotEmptyString(spchdr(byte;2),ospchdr(byte;2))"},
    {TSpectrumParam::cXUnits, "=Str.firstNotEmptyString(spchdr(byte;28),ospchdr(byte;16))"},
    {TSpectrumParam::cOrigXUnits, "=Str.firstNotEmptyString(spchdr(byte;28),ospchdr(byte;16))"},
    {TSpectrumParam::cYUnits, "=Str.firstNotEmptyString(spchdr(byte;29),ospchdr(byte;17))"},
    {TSpectrumParam::cOrigYUnits, "=Str.firstNotEmptyString(spchdr(byte;29),ospchdr(byte;17))"},
    {2041, "=Str.firstNotEmptyString(spchdr(string;36;9))"},
    {2042, "=Str.firstNotEmptyString(spchdr(string;45;9))"}};

constexpr char cDateExpression[] = "=galacticDate(spchdr(int32;32),ospchdr(int16;18),ospchdr(int32;20))";

constexpr char cPointsExpression[] = "=Str.firstNotEmptyString(spchdr(int32;4),ospchdr(float;4))";

constexpr TEntry cSubheaderEntries[] = {{TSpectrumParam::cSubfileIndex, "=Str.firstNotEmptyString(subhdr(word;2))"},
                                        {TSpectrumParam::cSubfileZ, "=Str.firstNotEmptyString(subhdr(float;4))"},
                                        {TSpectrumParam::cSubfileNextZ, "=Str.firstNotEmptyString(subhdr(float;8))"},
                                        {TSpectrumParam::cSubfileNoise, "=Str.firstNotEmptyString(subhdr(float;12))"},
                                        {TSpectrumParam::cSubfileW, "=Str.firstNotEmptyString(subhdr(float;24))"}};

constexpr TEntry cLogEntries[] = {{2022, "MEMO"},   {2023, "COMMENT"}, {2025, "MODEL"},     {2024, "USER"},
                                  {2021, "NAME"},   {2020, "RES"},     {2026, "SCANS"},     {2027, "SCANSBG"},
                                  {2028, "NAMEBG"}, {2029, "LWN"},     {2030, "RAMANFREQ"}, {2031, "RAMANPWR"},
                                  {2032, "DET"},    {2033, "SRC"},     {2034, "BSPLITTER"}, {2035, "PHASE"},
                                  {2036, "SPEED"},  {2037, "GAIN"},    {2038, "HIGHPASS"},  {2039, "LOWPASS"}};

template <int N>
void setEntries(TSpectrumParamsTemplate *entries, const TEntry (&table)[N], const QString &source, int dim)
{
    for (const TEntry &entry : table)
        entries->set(TSpectrumParam(entry.fId, QString::fromLatin1(entry.fExpression), source, dim));
}

/// Codes of 100 and more lie 100 before their text, one less than the published codes would have it: stored parameters
/// carry these texts.
QString yTypeText(int code, const QString &asRead)
{
    constexpr int cLastDirect = 26;
    constexpr int cShift = 100;
    constexpr int cFirstUnknown = 132;
    if (code <= cLastDirect)
        return spcYTypeName(code);
    return code < cFirstUnknown ? spcYTypeName(code - cShift) : asRead;
}

/// The text of the code in a header field that holds one; any other field as it was read.
QString translated(const QString &key, bool old, const QString &asRead)
{
    constexpr int cLastExperiment = 14;
    constexpr int cLastXType = 30;
    bool ok = false;
    const int code = asRead.toInt(&ok);
    if (!ok || code < 0)
        return asRead;
    if (key == QLatin1String("byte;2") && code <= cLastExperiment)
        return spcExperimentName(code);
    if (key == QLatin1String(old ? "byte;16" : "byte;28") && code <= cLastXType)
        return spcXTypeName(code);
    if (key == QLatin1String(old ? "byte;17" : "byte;29"))
        return yTypeText(code, asRead);
    return asRead;
}

} // namespace

TYrexGalacticSpcParamsParser::TYrexGalacticSpcParamsParser()
    : TBinaryParamsParser(QDataStream::LittleEndian)
{
    TTemplateFunctions::add(QStringLiteral("galacticDate"), galacticDate);
    setTemplates(TYrexGalacticSpcParamsParser::defaultTemplates());
}

TSpectrumParamsTemplate TYrexGalacticSpcParamsParser::defaultTemplates() const
{
    TSpectrumParamsTemplate entries = TParamsParser::defaultTemplates();
    setEntries(&entries, cHeaderEntries, cTemplateSource, cAllDimensions);
    entries.set(TSpectrumParam(TSpectrumParam::cPointCount, QString::fromLatin1(cPointsExpression), cTemplateSource,
                               cFirstDimension));
    entries.set(TSpectrumParam(TSpectrumParam::cOriginalSize, QString(), QString(), cSecondDimension));
    entries.set(TSpectrumParam(TSpectrumParam::cSeriesValue, QString(), QString(), cLabelDimension));
    entries.set(
        TSpectrumParam(TSpectrumParam::cDate, QString::fromLatin1(cDateExpression), cTemplateSource, cAllDimensions));
    entries.set(TSpectrumParam(TSpectrumParam::cModificationDate, QStringLiteral("_LASTMODIFIED_"),
                               QStringLiteral("datafile"), cAllDimensions));
    setEntries(&entries, cSubheaderEntries, cTemplateSubSource, cAllDimensions);
    setEntries(&entries, cLogEntries, cLogSource, cFirstDimension);
    return entries;
}

bool TYrexGalacticSpcParamsParser::isParseable(const QString &source) const
{
    return source.endsWith(cHeaderSource) || source.endsWith(cSubheaderSource) || source == cLogSource;
}

void TYrexGalacticSpcParamsParser::loadSource(const QString &source, const QString &path)
{
    if (source != cLogSource)
        return;
    const std::unique_ptr<QIODevice> device = sourceDevice(source, path);
    fLogText = QString::fromLatin1(device ? device->readAll() : QByteArray()) + QLatin1Char('\n');
}

void TYrexGalacticSpcParamsParser::reset()
{
    fLogText.clear();
}

QString TYrexGalacticSpcParamsParser::value(const QString &source, const QString &key, const QString &path)
{
    // the parent would take a field of any source
    QString known = TParamsParser::value(source, key, path); // NOLINT(bugprone-parent-virtual-call)
    if (!known.isNull())
        return known;
    if (source == cLogSource)
        return findAssignedValue(key, fLogText).toString();
    if (source.endsWith(cSubheaderSource))
        return TBinaryParamsParser::value(source, key, path);
    if (source.endsWith(cHeaderSource))
        return translated(key, source == cOldHeaderSource, TBinaryParamsParser::value(source, key, path));
    return QString();
}

QVariant TYrexGalacticSpcParamsParser::findAssignedValue(const QString &key, const QString &text)
{
    const int found = text.indexOf(key, 0, Qt::CaseInsensitive);
    const int sign = found < 0 ? -1 : text.indexOf(QLatin1Char('='), found + key.size());
    const int end = sign < 0 ? -1 : text.indexOf(QLatin1Char('\n'), sign);
    if (end < 0)
        return QVariant();
    const QString value = text.mid(sign + 1, end - sign - 1).trimmed();
    const QChar quote('"');
    if (value.size() >= 2 && value.startsWith(quote) && value.endsWith(quote))
        return value.mid(1, value.size() - 2);
    return value;
}
