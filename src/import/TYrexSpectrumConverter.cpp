#include "TYrexSpectrumConverter.h"

#include "IYrexItemFactory.h"
#include "TYrexParamsParsers.h"
#include "consts/Consts.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"
#include "utils/CommonUtils.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <cmath>

namespace {

void insertAll(const QVariantMap &values, QVariantMap *map)
{
    for (auto it = values.constBegin(); it != values.constEnd(); ++it)
        map->insert(it.key(), it.value());
}

} // namespace

TYrexSpectrumConverter::TYrexSpectrumConverter(const QString &filter, int format, QObject *plugin,
                                               const QStringList &exportFilters)
    : TBaseConverter({filter}, exportFilters, plugin)
    , fFormat(format)
{
}

TYrexSpectrumConverter::~TYrexSpectrumConverter()
{
    clearSpectra();
}

void TYrexSpectrumConverter::clearSpectra()
{
    for (TYrexSpectrum *spectrum : qAsConst(fSpectra)) {
        if (!fGiven.contains(spectrum))
            delete spectrum;
    }
    fSpectra.clear();
    fGiven.clear();
}

TYrexSpectrumList TYrexSpectrumConverter::takeSpectra()
{
    const TYrexSpectrumList spectra = fSpectra;
    fSpectra.clear();
    fGiven.clear();
    return spectra;
}

int TYrexSpectrumConverter::exportItems(const TCanvasItemList &, const QString &)
{
    return cConverterNotSupported;
}

std::unique_ptr<TYrexSpectrum> TYrexSpectrumConverter::headerSpectrum(const QString &fileName)
{
    TYrexSpectrumList kept;
    kept.swap(fSpectra);
    const quint32 keptFlags = fReadFlags;
    const QString keptProblem = problem();
    fHeaderOnly = true;
    readFile(fileName);
    fHeaderOnly = false;
    std::unique_ptr<TYrexSpectrum> first(fSpectra.isEmpty() ? nullptr : fSpectra.takeFirst());
    qDeleteAll(fSpectra);
    fSpectra.swap(kept);
    fReadFlags = keptFlags;
    setProblem(keptProblem);
    return first;
}

bool TYrexSpectrumConverter::headerBundle(const QString &fileName, TParamsBundle &bundle)
{
    const std::unique_ptr<TYrexSpectrum> first = headerSpectrum(fileName);
    if (first)
        bundle = first->paramsBundle();
    return first != nullptr;
}

QVariantMap TYrexSpectrumConverter::templateParameters(const QString &fileName, const QStringList &ids)
{
    QVariantMap map;
    const std::unique_ptr<TYrexSpectrum> first = headerSpectrum(fileName);
    if (!first)
        return map;
    finishSpectrum(first.get(), fileName, TParamsBundle::datafileBlob(fileName));
    for (const TSpectrumParam &param : first->params()) {
        const QString id = QString::number(param.id());
        if (ids.contains(id) && !map.contains(id))
            map.insert(id, param.value());
    }
    return map;
}

void TYrexSpectrumConverter::addXRange(const QString &fileName, QVariantMap &map)
{
    if (const std::unique_ptr<TYrexSpectrum> first = headerSpectrum(fileName))
        map.insert(Consts::Converter::cXRangeStr, QVariantList{first->firstX(), first->lastX()});
}

ICanvasItem *TYrexSpectrumConverter::createItem(const TYrexSpectrumList &spectra, ICanvas *parent)
{
    IYrexItemFactory *factory = IYrexItemFactory::current();
    if (!factory)
        return nullptr;
    giveAway(spectra); // also where memory ends while the item is made: its parts delete them then
    ICanvasItem *item = factory->createSpectrumItem(spectra, parent);
    for (TYrexSpectrum *spectrum : item ? TYrexSpectrumList() : spectra)
        fGiven.remove(spectrum);
    return item;
}

bool TYrexSpectrumConverter::finishSpectrum(TYrexSpectrum *spectrum, const QString &fileName,
                                            const TParamsBlob &datafile)
{
    if (fReadFlags & cRejectNaN) {
        const QVector<double> &y = spectrum->values();
        if (std::any_of(y.begin(), y.end(), [](double value) { return std::isnan(value); }))
            return false;
    }
    TParamsBundle &bundle = spectrum->paramsBundle();
    bundle.setFileName(fileName);
    bundle.addDatafileBlob(datafile);
    if (spectrum->fileFormat() == TYrexSpectrum::cNoFormat)
        spectrum->setFileFormat(fFormat);
    bundle.setFileFormat(spectrum->fileFormat());
    spectrum->reparseParams();
    return true;
}

void TYrexSpectrumConverter::giveNumbers()
{
    for (int i = 0; i < fSpectra.size() && fSpectra.size() > 1; ++i)
        fSpectra.at(i)->setFileNumber(i + 1);
}

void TYrexSpectrumConverter::giveAway(const TYrexSpectrumList &spectra)
{
    for (TYrexSpectrum *spectrum : spectra)
        fGiven.insert(spectrum);
}

void TYrexSpectrumConverter::adopt(const TYrexSpectrumList &spectra, ICanvas *parent)
{
    ICanvasItem *item = createItem(spectra, parent);
    if (item) {
        items().append(item);
        return;
    }
    for (TYrexSpectrum *spectrum : spectra) {
        if (fGiven.contains(spectrum)) // it went to an item that was there before
            continue;
        fSpectra.removeOne(spectrum);
        delete spectrum;
    }
}

int TYrexSpectrumConverter::convert(const QString &fileName, ICanvas *parent)
{
    clearSpectra();
    const int code = readFile(fileName);
    if (!Utils::Common::has_no_error(code))
        return code;
    int result = cConverterOk;
    const TYrexSpectrumList read = fSpectra;
    const TParamsBlob datafile = TParamsBundle::datafileBlob(fileName);
    giveNumbers();
    for (TYrexSpectrum *spectrum : read) {
        if (!finishSpectrum(spectrum, fileName, datafile)) {
            fSpectra.removeOne(spectrum);
            delete spectrum;
            result = cConverterNaNFound;
        } else if (!(fReadFlags & cGroup) && parent) {
            adopt({spectrum}, parent);
        }
    }
    if ((fReadFlags & cGroup) && !fSpectra.isEmpty() && IYrexItemFactory::current())
        adopt(TYrexSpectrumList(fSpectra), parent);
    return result;
}

QVariantMap TYrexSpectrumConverter::metaData(const QString &fileName, const QStringList &keys)
{
    if (!QFileInfo(fileName).isFile())
        return {};
    QVariantMap map = TBaseConverter::metaData(fileName, keys);
    if (!canImport(fileName))
        return map;
    map.insert(Consts::Converter::cFileFormat, Utils::Common::fileFormatToStr(fFormat));
    addParameters(fileName, keys, map);
    return map;
}

void TYrexSpectrumConverter::addParameters(const QString &fileName, const QStringList &keys, QVariantMap &map)
{
    QStringList remaining;
    QStringList ids;
    for (const QString &key : keys) {
        bool isId = false;
        key.toInt(&isId);
        if (isId)
            ids.append(key);
        else if (key == QLatin1String(Consts::Converter::cXRangeStr))
            addXRange(fileName, map);
        else if (!map.contains(key))
            remaining.append(key);
    }
    if (!remaining.isEmpty())
        insertAll(readParameters(fFormat, fileName, remaining), &map);
    if (!ids.isEmpty())
        insertAll(templateParameters(fileName, ids), &map);
}

QVariantMap TYrexSpectrumConverter::readParameters(int format, const QString &path, const QStringList &entries)
{
    TParamsParser *parser = yrexParamsParsers().value(format);
    if (!parser)
        return {};
    QStringList distinct = entries;
    distinct.removeDuplicates();
    using TPair = QPair<QString, QString>;
    QList<TPair> pairs;
    QMap<QString, TPair> byEntry;
    for (const QString &entry : qAsConst(distinct)) {
        TPair pair;
        if (TParamsParser::isFormula(entry) || !TParamsParser::parseParamStr(entry, pair.first, pair.second))
            continue;
        pairs.append(pair);
        byEntry.insert(entry, pair);
    }
    if (pairs.isEmpty())
        return {};
    TParamsBundle bundle;
    bundle.setFileName(path);
    if (headerBundle(path, bundle))
        parser->setBundle(&bundle);
    const QFileInfo info(path);
    const QDir dir(info.isDir() ? info.absoluteFilePath() : info.absolutePath());
    QStringList sources;
    for (const TPair &pair : qAsConst(pairs))
        sources.append(pair.first);
    sources.removeDuplicates();
    QVariantMap result;
    for (const QString &source : qAsConst(sources)) {
        QStringList arguments;
        for (const TPair &pair : qAsConst(pairs)) {
            if (pair.first == source)
                arguments.append(pair.second);
        }
        const QVariantList values = parser->valuesFromDir(source, arguments, dir);
        for (int i = 0; i < values.size(); ++i)
            result.insert(byEntry.key(TPair(source, arguments.value(i))), values.at(i));
    }
    parser->setBundle(nullptr);
    return result;
}
