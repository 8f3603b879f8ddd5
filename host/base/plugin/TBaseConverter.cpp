#include "plugin/TBaseConverter.h"

#include "consts/Consts.h"
#include "plugin/IConverterHost.h"
#include "plugin/IPluginInfo.h"
#include "utils/CommonUtils.h"
#include "utils/FSUtils.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <new>

namespace {

QStringList translated(const QStringList &filters)
{
    QStringList titles;
    for (const QString &filter : filters)
        titles.append(QCoreApplication::translate("Converters", filter.toUtf8().constData()));
    return titles;
}

bool anyContains(const QStringList &list, const QString &text)
{
    for (const QString &entry : list) {
        if (entry.contains(text, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

} // namespace

TBaseConverter::TBaseConverter(const QStringList &importFilters, const QStringList &exportFilters, QObject *plugin)
    : fImportFilterTitles(translated(importFilters))
    , fExportFilterTitles(translated(exportFilters))
    , fImportFilters(importFilters)
    , fExportFilters(exportFilters)
    , fPlugin(plugin)
{
}

IPluginInfo *TBaseConverter::pluginInfo() const
{
    return fPlugin ? qobject_cast<IPluginInfo *>(fPlugin) : nullptr;
}

int TBaseConverter::importFile(const QString &fileName, ICanvas *parent)
{
    fItems.clear();
    fProblem.clear();
    fInteractive = parent != nullptr;
    try {
        const int code = convert(fileName, parent);
        if (!Utils::Common::has_no_error(code))
            return code;
        if (fFlags & cRecordProvenance) {
            recordProvenance(provenance(fileName));
            afterProvenance();
        }
        afterImport();
        return code;
    } catch (const std::bad_alloc &) {
        setProblem(QCoreApplication::translate("TBaseConverter", "there is not enough memory to read it"));
        return cConverterOutOfMemory;
    }
}

QVariantMap TBaseConverter::metaData(const QString &, const QStringList &)
{
    const IPluginInfo *info = pluginInfo();
    return {{Consts::Converter::cPluginName, info ? info->pluginName() : QString()}};
}

bool TBaseConverter::acceptsFilter(const QString &filter, bool forImport) const
{
    if (filter.isEmpty())
        return forImport && !(fFlags & cNeedsFilter);
    return forImport ? anyContains(fImportFilterTitles, filter) || anyContains(fImportFilters, filter)
                     : anyContains(fExportFilterTitles, filter) || anyContains(fExportFilters, filter);
}

void TBaseConverter::buildWildcards()
{
    static const QRegularExpression cPatterns("^(.*)\\(([a-zA-Z0-9_.,*? +;#\\-\\[\\]@\\{\\}/!<>\\$%&=^~:\\|]*)\\)$");
    for (const QString &filter : fImportFilters) {
        const QRegularExpressionMatch match = cPatterns.match(filter);
        const QString patterns = match.hasMatch() ? match.captured(2) : filter;
        for (const QString &part : patterns.split(' ', Qt::SkipEmptyParts))
            fWildcards.append(QRegularExpression(QRegularExpression::wildcardToRegularExpression(part),
                                                 QRegularExpression::CaseInsensitiveOption));
    }
}

bool TBaseConverter::acceptsFile(const QString &fileName, const QString &filter)
{
    if (!(fFlags & cTestsFileName) || !filter.isEmpty())
        return true;
    const QFileInfo info(fileName);
    if (fileName.isEmpty() || !info.isFile())
        return false;
    if (fWildcards.isEmpty())
        buildWildcards();
    for (const QRegularExpression &wildcard : qAsConst(fWildcards)) {
        if (wildcard.match(info.fileName()).hasMatch())
            return true;
    }
    return false;
}

void TBaseConverter::nameCommand(QByteArray &title) const
{
    title = "Import Item";
}

void TBaseConverter::recordProvenance(const QVariantMap &info)
{
    if (IConverterHost *host = IConverterHost::current())
        host->commitImport(fItems, info, [this](QByteArray &title) { nameCommand(title); });
}

QVariantMap TBaseConverter::provenance(const QString &fileName) const
{
    if (fileName.isEmpty())
        return {};
    QVariantMap map{{"Filename", fileName}};
    const QVariantMap sums = checksums(fileName);
    if (!sums.isEmpty())
        map.insert("md5sum", sums);
    return map;
}

QVariantMap TBaseConverter::checksums(const QString &fileName) const
{
    const QFileInfo info(fileName);
    if (info.isDir())
        return {{QDir(info.absolutePath()).dirName(), Utils::FS::directoryMD5Sum(fileName, true)}};
    const QByteArray sum = Utils::FS::md5Sum(fileName);
    if (sum.isEmpty())
        return {};
    return {{info.fileName(), QString::fromLatin1(sum)}};
}

QVariant TBaseConverter::hostRequest(int what, const QVariant &a, const QVariant &b)
{
    IConverterHost *host = IConverterHost::current();
    return host ? host->request(what, a, b, 0) : QVariant();
}

void TBaseConverter::scriptRequest(const QVariant &a, const QVariant &b)
{
    if (IConverterHost *host = IConverterHost::current())
        host->scriptRequest(a, b);
}
