#include "YrexParamRows.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "params/TSpectrumParam.h"
#include "utils/CommonUtils.h"

#include <QCoreApplication>
#include <QDir>
#include <QHash>
#include <QSet>
#include <algorithm>

namespace {

/// The parameters that users may set on spectra which their file gave none.
constexpr int cAlwaysThere[] = {TSpectrumParam::cTitle, TSpectrumParam::cClass, TSpectrumParam::cOrigXUnits,
                                TSpectrumParam::cOrigYUnits};

QString factName(int fact)
{
    switch (fact) {
    case YrexParamRows::cFile:
        return QCoreApplication::translate("YrexParamRows", "File");
    case YrexParamRows::cFileDate:
        return QCoreApplication::translate("YrexParamRows", "File Date");
    case YrexParamRows::cChecksum:
        return QCoreApplication::translate("YrexParamRows", "MD5");
    case YrexParamRows::cFormat:
        return QCoreApplication::translate("YrexParamRows", "Format");
    default:
        return QCoreApplication::translate("YrexParamRows", "Import Date");
    }
}

QString dateText(const QDateTime &date)
{
    return date.isValid() ? date.toLocalTime().toString("yyyy-MM-dd HH:mm:ss") : QString();
}

/// The checksum of one file among those of an item.
QString checksumOf(const TCanvasYrexSpectrum &item, const QString &file)
{
    const QVariantMap sums = item.provenance().value("md5sum").toMap();
    for (const QString &key : {file, QDir::fromNativeSeparators(file).section('/', -1)}) {
        if (sums.contains(key))
            return sums.value(key).toString();
    }
    return sums.size() == 1 ? sums.first().toString() : QString();
}

QString factOf(const TCanvasYrexSpectrum &item, const TYrexSpectrum &spectrum, int fact, const QDateTime &imported)
{
    const TParamsBundle &bundle = spectrum.paramsBundle();
    const QString file =
        bundle.fileName().isEmpty() ? item.provenance().value("Filename").toString() : bundle.fileName();
    switch (fact) {
    case YrexParamRows::cFile:
        return QDir::toNativeSeparators(file);
    case YrexParamRows::cFileDate:
        return dateText(QDateTime::fromString(bundle["datafile"].lastModified(), Qt::ISODate));
    case YrexParamRows::cChecksum:
        return checksumOf(item, file);
    case YrexParamRows::cFormat:
        return spectrum.fileFormat() == TYrexSpectrum::cNoFormat
                   ? QString()
                   : Utils::Common::fileFormatToStr(spectrum.fileFormat());
    default:
        return dateText(imported);
    }
}

QString textOf(const TCanvasYrexSpectrum &item, int index, int id)
{
    const TYrexSpectrum &spectrum = *item.stack().at(index);
    switch (id) {                // a file's own words for a unit say less than the unit that is reckoned with
    case TSpectrumParam::cTitle: // without one it goes by the name of its file
        return spectrum.title().isEmpty() ? item.spectrumTitle(index) : spectrum.paramText(id, 1);
    case TSpectrumParam::cXUnits:
        return yrexUnitDisplayName(spectrum.xUnits());
    case TSpectrumParam::cYUnits:
        return yrexUnitDisplayName(spectrum.yUnits());
    case TSpectrumParam::cOrigXUnits:
        return yrexUnitDisplayName(spectrum.origXUnits());
    case TSpectrumParam::cOrigYUnits:
        return yrexUnitDisplayName(spectrum.origYUnits());
    default:
        return spectrum.paramText(id, 1);
    }
}

TYrexParamRow rowOf(const TSpectrumParam &param)
{
    TYrexParamRow row;
    row.fId = param.id();
    row.fGroup = YrexParamGroups::groupOf(param.id());
    row.fName = param.translated_paramName();
    row.fType = param.paramType();
    row.fPrecision = param.precision();
    row.fIsLocked = param.isReadOnly();
    row.fIsHidden = !param.isVisible();
    return row;
}

} // namespace

bool TYrexParamRow::isEmpty() const
{
    return std::all_of(fTexts.begin(), fTexts.end(), [](const QString &text) { return text.isEmpty(); });
}

void TYrexParamRow::countDifferent()
{
    QSet<QString> texts;
    for (const QString &text : fTexts)
        texts.insert(text.isNull() ? QString("") : text);
    fDifferent = texts.size();
}

QVector<TYrexParamRow> YrexParamRows::of(const TCanvasYrexSpectrum &item, const QVector<int> &spectra,
                                         const QDateTime &imported)
{
    QVector<TYrexParamRow> rows;
    QSet<int> known;
    const auto add = [&](const TSpectrumParam &param) {
        if (!known.contains(param.id()))
            rows.append(rowOf(param));
        known.insert(param.id());
    };
    for (const int index : spectra) {
        for (const TSpectrumParam &param : item.stack().at(index)->params())
            add(param);
    }
    for (const int id : cAlwaysThere)
        add(TSpectrumParam(id, QString(), QString(), 1));
    std::stable_sort(rows.begin(), rows.end(), [](const TYrexParamRow &a, const TYrexParamRow &b) {
        return YrexParamGroups::placeOf(a.fId) < YrexParamGroups::placeOf(b.fId);
    });
    QVector<TYrexParamRow> facts;
    for (const int fact : {cFile, cFileDate, cChecksum, cFormat, cImported}) {
        TYrexParamRow row;
        row.fId = fact;
        row.fGroup = YrexParamGroups::cProvenance;
        row.fName = factName(fact);
        row.fIsLocked = true;
        facts.append(row);
    }
    rows = facts + rows;
    std::stable_sort(rows.begin(), rows.end(),
                     [](const TYrexParamRow &a, const TYrexParamRow &b) { return a.fGroup < b.fGroup; });
    for (TYrexParamRow &row : rows) {
        for (const int index : spectra) {
            const TYrexSpectrum &spectrum = *item.stack().at(index);
            row.fTexts.append(row.fId < 0 ? factOf(item, spectrum, row.fId, imported) : textOf(item, index, row.fId));
        }
        row.countDifferent();
    }
    return rows;
}
