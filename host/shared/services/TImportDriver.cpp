#include "services/TImportDriver.h"

#include "plugin/IConverter.h"
#include "plugin/IPluginConverter.h"
#include "utils/CommonUtils.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <new>

namespace {

constexpr int cSniffSize = 0x20000; // 128 KiB
constexpr char cTextFormat[] = "csv";

thread_local QString sFormatAskedFor;
thread_local QString sShownName;

} // namespace

TImportDriver::TImportDriver(const QList<QObject *> &plugins)
{
    for (QObject *plugin : plugins) {
        if (const auto *source = qobject_cast<IPluginConverter *>(plugin))
            fConverters += source->converters();
    }
}

IConverter *TImportDriver::converterByName(const QString &name) const
{
    for (IConverter *converter : fConverters) {
        if (converter->formatName() == name)
            return converter;
    }
    return nullptr;
}

IConverter *TImportDriver::converterFor(const QString &fileName) const
{
    const QString suffix = QFileInfo(fileName).suffix();
    const QStringList filters = suffix.isEmpty() ? QStringList{QString()} : QStringList{"*." + suffix, QString()};
    for (const QString &filter : filters) {
        for (IConverter *converter : fConverters) {
            if (converter->acceptsFilter(filter, true) && converter->acceptsFile(fileName, filter) &&
                converter->canImport(fileName))
                return converter;
        }
    }
    return looksLikeText(fileName) ? converterByName(cTextFormat) : nullptr;
}

TImportResult TImportDriver::import(const QString &fileName, ICanvas *page, const QString &format,
                                    const QString &shownName) const
{
    TImportResult result;
    const QFileInfo info(fileName);
    if (!info.exists()) {
        result.fCode = cConverterFileNotOpened;
        result.fReason = QCoreApplication::translate("TImportDriver", "there is no such file");
        return result;
    }
    try {
        result.fConverter = format.isEmpty() ? converterFor(fileName) : converterByName(format);
        if (!result.fConverter) {
            result.fCode = info.isReadable() ? int(cConverterNotSupported) : int(cConverterFileNotOpened);
            result.fReason = info.isReadable() ? refusals(fileName) : reason(result.fCode);
            return result;
        }
    } catch (const std::bad_alloc &) { // importFile has its own
        result.fCode = cConverterOutOfMemory;
        result.fReason = QCoreApplication::translate("TImportDriver", "there is not enough memory to look into it");
        return result;
    }
    sFormatAskedFor = format;
    sShownName = shownName;
    result.fCode = result.fConverter->importFile(fileName, page);
    sFormatAskedFor.clear();
    sShownName.clear();
    result.fItems = result.fConverter->importedItems();
    if (!Utils::Common::has_no_error(result.fCode)) {
        result.fReason = result.fConverter->problem();
        if (result.fReason.isEmpty())
            result.fReason = reason(result.fCode);
    }
    return result;
}

QString TImportDriver::shownName()
{
    return sShownName;
}

QString TImportDriver::formatAskedFor()
{
    return sFormatAskedFor;
}

/// The words of the converters to whose filter the file's ending belongs; without one the ending tells nothing.
QString TImportDriver::refusals(const QString &fileName) const
{
    QStringList words{QCoreApplication::translate("TImportDriver", "no format takes this file")};
    const QRegularExpression pattern("\\*\\." + QRegularExpression::escape(QFileInfo(fileName).suffix()) + "[ )]",
                                     QRegularExpression::CaseInsensitiveOption);
    for (IConverter *converter : fConverters) {
        if (converter->importFilterList().filter(pattern).isEmpty())
            continue;
        const QString why = converter->refusal(fileName);
        if (!why.isEmpty())
            words.append(QString("%1: %2").arg(converter->formatName(), why));
    }
    return words.join("; ");
}

TFileNode TImportDriver::inspect(const QString &fileName, const QString &format) const
{
    TFileNode file;
    file.fName = QFileInfo(fileName).fileName();
    file.fValue = QString("%1 bytes").arg(QFileInfo(fileName).size());
    const IConverter *taker = format.isEmpty() ? converterFor(fileName) : converterByName(format);
    for (IConverter *converter : fConverters) {
        const QString why = converter->refusal(fileName);
        const QString says = converter == taker ? "takes the file"
                             : why.isEmpty()    ? "would take it, behind others"
                                                : why;
        file.add(converter->formatName(), says);
    }
    for (IConverter *converter : fConverters) {
        const bool wanted =
            taker ? converter == taker : converter->formatName() != cTextFormat || looksLikeText(fileName);
        const TFileNode inside = wanted ? converter->inspect(fileName) : TFileNode();
        if (!inside.isEmpty())
            file.fRows.append(inside);
    }
    return file;
}

QString TImportDriver::reason(int code)
{
    const auto text = [](const char *source) { return QCoreApplication::translate("TImportDriver", source); };
    switch (code) {
    case cConverterNotSupported:
        return text(QT_TRANSLATE_NOOP("TImportDriver", "the kind of file is not supported"));
    case cConverterNothingToExport:
        return text(QT_TRANSLATE_NOOP("TImportDriver", "there is nothing to write"));
    case cConverterBlockRefused:
        return text(QT_TRANSLATE_NOOP("TImportDriver", "the data block could not be read as a spectrum"));
    case cConverterFileNotOpened:
        return text(QT_TRANSLATE_NOOP("TImportDriver", "the file cannot be opened"));
    case cConverterContentUnusable:
        return text(QT_TRANSLATE_NOOP("TImportDriver", "the file holds no usable data"));
    case cConverterOutOfMemory:
        return text(QT_TRANSLATE_NOOP("TImportDriver", "the file announces more data than memory can hold"));
    case cConverterNaNFound:
        return text(
            QT_TRANSLATE_NOOP("TImportDriver", "a spectrum was left out since it holds values that are no numbers"));
    default:
        return text(QT_TRANSLATE_NOOP("TImportDriver", "the file could not be read"));
    }
}

bool TImportDriver::looksLikeText(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = file.read(cSniffSize);
    for (const char c : head) {
        const auto byte = uchar(c);
        if (byte < 0x20 && c != '\t' && c != '\n' && c != '\r' && c != '\f')
            return false;
    }
    return !head.isEmpty();
}
