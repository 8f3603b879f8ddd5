#include "TYrexOmnicSpaParamsParser.h"

#include "TYrexSidecar.h"

#include <QIODevice>

namespace {

const QString cMarker = QStringLiteral("OMNIC_METADATA");
constexpr int cAllDimensions = -1;

} // namespace

TYrexOmnicSpaParamsParser::TYrexOmnicSpaParamsParser()
{
    setTemplates(TYrexOmnicSpaParamsParser::defaultTemplates());
}

TSpectrumParamsTemplate TYrexOmnicSpaParamsParser::defaultTemplates() const
{
    const TParamsParser common; // the text parser's own entries are not wanted
    TSpectrumParamsTemplate entries = common.defaultTemplates();
    const auto byCode = [&entries](int id, int dim) { entries.set(TSpectrumParam(id, QString(), QString(), dim)); };
    const auto byKey = [&entries](int id, const QString &key) {
        entries.set(TSpectrumParam(id, key, cMarker, cAllDimensions));
    };
    byCode(TSpectrumParam::cTitle, cAllDimensions);
    byKey(TSpectrumParam::cOriginalName, QStringLiteral("ORNAM"));
    byCode(TSpectrumParam::cDate, 1);
    byKey(TSpectrumParam::cComment, QStringLiteral("COMMT"));
    byKey(TSpectrumParam::cHistory, QStringLiteral("HIST"));
    for (const int id :
         {TSpectrumParam::cXUnits, TSpectrumParam::cYUnits, TSpectrumParam::cOrigXUnits, TSpectrumParam::cOrigYUnits})
        byCode(id, cAllDimensions);
    byCode(TSpectrumParam::cOriginalSize, 1);
    byCode(TSpectrumParam::cPointCount, 0);
    byCode(TSpectrumParam::cSeriesValue, 2);
    return entries;
}

bool TYrexOmnicSpaParamsParser::isParseable(const QString &source) const
{
    return source.endsWith(cMarker, Qt::CaseInsensitive);
}

void TYrexOmnicSpaParamsParser::loadSource(const QString &source, const QString &path)
{
    if (source != cMarker)
        return;
    const std::unique_ptr<QIODevice> device = sourceDevice(source, path);
    const QMap<QString, QString> sections =
        device ? TYrexSidecar::sections(device->read(TYrexSidecar::cReadLimit)) : QMap<QString, QString>();
    fTexts.clear();
    const auto take = [&](const QString &section, const QString &key) {
        if (sections.contains(section))
            fTexts.insert(key, sections.value(section));
    };
    take(QStringLiteral("OriginalName"), QStringLiteral("ORNAM"));
    take(QStringLiteral("Comment"), QStringLiteral("COMMT"));
    take(QStringLiteral("History"), QStringLiteral("HIST"));
}

void TYrexOmnicSpaParamsParser::reset()
{
    TASCIIYrexParamsParser::reset();
    fTexts.clear();
}

QString TYrexOmnicSpaParamsParser::value(const QString &source, const QString &key, const QString &path)
{
    QString text = TASCIIYrexParamsParser::value(source, key, path);
    if (!text.isNull() || source != cMarker)
        return text;
    return fTexts.value(key, QStringLiteral(""));
}
