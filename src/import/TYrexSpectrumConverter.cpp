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

bool TYrexSpectrumConverter::headerBundle(const QString &, TParamsBundle &)
{
    return false;
}

ICanvasItem *TYrexSpectrumConverter::createItem(const TYrexSpectrumList &spectra, ICanvas *parent)
{
    IYrexItemFactory *factory = IYrexItemFactory::current();
    return factory ? factory->createSpectrumItem(spectra, parent) : nullptr;
}

bool TYrexSpectrumConverter::finishSpectrum(TYrexSpectrum *spectrum, const QString &fileName)
{
    if (fReadFlags & cRejectNaN) {
        const QVector<double> &y = spectrum->values();
        if (std::any_of(y.begin(), y.end(), [](double value) { return std::isnan(value); }))
            return false;
    }
    TParamsBundle &bundle = spectrum->paramsBundle();
    bundle.setFileName(fileName);
    bundle.addDatafileBlob(fileName);
    if (spectrum->fileFormat() == TYrexSpectrum::cNoFormat)
        spectrum->setFileFormat(fFormat);
    bundle.setFileFormat(spectrum->fileFormat());
    spectrum->reparseParams();
    return true;
}

void TYrexSpectrumConverter::adopt(const TYrexSpectrumList &spectra, ICanvas *parent)
{
    ICanvasItem *item = createItem(spectra, parent);
    if (item) {
        items().append(item);
        for (TYrexSpectrum *spectrum : spectra)
            fGiven.insert(spectrum);
        return;
    }
    for (TYrexSpectrum *spectrum : spectra) {
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
    for (TYrexSpectrum *spectrum : read) {
        if (!finishSpectrum(spectrum, fileName)) {
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
    QStringList remaining;
    for (const QString &key : keys) {
        if (!map.contains(key))
            remaining.append(key);
    }
    if (!remaining.isEmpty()) {
        const QVariantMap values = readParameters(fFormat, fileName, remaining);
        for (auto it = values.constBegin(); it != values.constEnd(); ++it)
            map.insert(it.key(), it.value());
    }
    return map;
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
