#include "TYrexSPParamsParser.h"

#include "TYrexSidecar.h"
#include "utils/StringUtils.h"

#include <QIODevice>

namespace {

const QString cMarker = QStringLiteral("SP_METADATA");
const QString cSeparator = QStringLiteral(": ");
const QString cLastLine = QStringLiteral("Comment_end");
constexpr int cAllDimensions = -1;

struct TKeyOfParam
{
    int fId;
    const char *fKey; // null: code fills it
};

const TKeyOfParam cKeys[] = {{TSpectrumParam::cTitle, "description"},
                             {TSpectrumParam::cComment, "comment"},
                             {4600, "date"},
                             {TSpectrumParam::cOperator, "analyst"},
                             {TSpectrumParam::cXUnits, nullptr},
                             {TSpectrumParam::cYUnits, nullptr},
                             {TSpectrumParam::cOrigXUnits, nullptr},
                             {TSpectrumParam::cOrigYUnits, nullptr},
                             {TSpectrumParam::cOriginalSize, nullptr},
                             {TSpectrumParam::cPointCount, nullptr},
                             {TSpectrumParam::cInstrument, "instrument_model"},
                             {4602, "instrument_serial_number"},
                             {4603, "instrument_software_version"},
                             {4601, "image_name"},
                             {4604, "accumulations"},
                             {4605, "detector"},
                             {4606, "source"},
                             {4607, "beam_splitter"},
                             {4608, "apodization"},
                             {4609, "spectrum_type"},
                             {4610, "beam_type"},
                             {4611, "phase_correction"},
                             {4612, "ir_accessory"},
                             {4613, "igram_type"},
                             {4614, "scan_direction"},
                             {4615, "background_scans"}};

} // namespace

TYrexSPParamsParser::TYrexSPParamsParser()
    : TBinaryParamsParser(QDataStream::LittleEndian)
{
    setTemplates(TYrexSPParamsParser::defaultTemplates());
}

TSpectrumParamsTemplate TYrexSPParamsParser::defaultTemplates() const
{
    TSpectrumParamsTemplate entries = TParamsParser::defaultTemplates();
    for (const TKeyOfParam &entry : cKeys)
        entries.set(entry.fKey ? TSpectrumParam(entry.fId, entry.fKey, cMarker, cAllDimensions)
                               : TSpectrumParam(entry.fId, QString(), QString(), cAllDimensions));
    entries.set(TSpectrumParam(TSpectrumParam::cSeriesValue, QString(), QString(), 2));
    return entries;
}

bool TYrexSPParamsParser::isParseable(const QString &source) const
{
    return source.endsWith(cMarker, Qt::CaseInsensitive);
}

void TYrexSPParamsParser::loadSource(const QString &source, const QString &path)
{
    if (source != cMarker)
        return;
    fTexts.clear();
    const std::unique_ptr<QIODevice> device = sourceDevice(source, path);
    if (!device)
        return;
    const QString text = Utils::String::normalizedEOL(QString::fromLatin1(device->read(TYrexSidecar::cReadLimit)));
    for (const QString &line : text.split('\n')) {
        if (line.contains(cLastLine))
            break;
        const int separator = line.indexOf(cSeparator);
        if (separator >= 0)
            fTexts.insert(line.left(separator), line.mid(separator + cSeparator.size()));
    }
}

void TYrexSPParamsParser::reset()
{
    TBinaryParamsParser::reset();
    fTexts.clear();
}

QString TYrexSPParamsParser::value(const QString &source, const QString &key, const QString &path)
{
    const QString text = TBinaryParamsParser::value(source, key, path);
    return text.isNull() && source == cMarker ? fTexts.value(key) : text;
}
