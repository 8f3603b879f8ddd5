#include "TCliInput.h"

#include "TCanvasYrexSpectrum.h"
#include "TCliEnvironment.h"
#include "TCliSpool.h"
#include "canvas/TDocument.h"
#include "canvas/TLoadReport.h"
#include "canvas/TPage.h"
#include "plugin/IConverter.h"
#include "services/IBatchHost.h"
#include "services/TImportDriver.h"
#include "utils/CommonUtils.h"
#include "utils/FSUtils.h"

#include <QFileInfo>

namespace {

TDocument &freshDocument(const TCliEnvironment &environment)
{
    auto document = std::make_unique<TDocument>();
    TDocument &reference = *document;
    environment.fBatch.setDocument(std::move(document));
    return reference;
}

/// Whether a file is read for its checksum: not a large one that will be refused. A look at others takes longer than
/// the sum.
bool isWorthReading(const QString &file, const QString &format, const TCliEnvironment &environment)
{
    constexpr qint64 cLarge = 8 * 1024 * 1024;
    return QFileInfo(file).size() < cLarge || !format.isEmpty() || TDocument::isDocument(file) ||
           environment.fBatch.importDriver().converterFor(file);
}

void loadDocument(TCliInput &input, TDocument &document)
{
    input.fIsDocument = true;
    input.fFormatName = "Kelmora";
    TLoadReport report;
    if (!document.loadFrom(input.path(), report))
        return input.fail(cConverterContentUnusable, report.fError);
    input.fNotes += report.fWarnings;
    if (report.fTruncated)
        input.fNotes += "the document ends early; what stands before is read";
}

/// What was read from a copy says nothing of where that is.
void nameAsStream(const TCanvasItemList &items)
{
    for (ICanvasItem *item : items) {
        if (TCanvasYrexSpectrum *spectra = yrexItem(item)) {
            for (TYrexSpectrum *spectrum : spectra->spectra())
                spectrum->paramsBundle().setFileName(TCliSpool::cName);
        }
    }
}

void importFile(TCliInput &input, TDocument &document, const QString &format, const TCliEnvironment &environment)
{
    TPage *page = document.appendPage();
    const TImportResult result =
        environment.fBatch.importDriver().import(input.path(), page, format, input.fSpool ? input.fFile : QString());
    if (Utils::Common::has_no_error(result.fCode))
        return input.fSpool ? nameAsStream(result.fItems) : void();
    input.fail(result.fCode, result.fReason);
    // after a failure the items pass to the caller without a place on the page
    for (ICanvasItem *item : result.fItems) {
        if (!page->items().contains(canvasItem(item)))
            delete canvasItem(item);
    }
}

void collectItems(TCliInput &input, const TDocument &document)
{
    const TCanvasItemList all = document.items();
    input.fItems = all.getByRtti(TCanvasYrexSpectrum::cRtti);
    const int others = all.size() - input.fItems.size();
    if (others > 0)
        input.fNotes += QString("items of other kinds left out: %1").arg(others);
    if (input.fIsDocument || input.fItems.isEmpty())
        return;
    const TYrexSpectrum *spectrum = yrexItem(input.fItems.first())->spectra().value(0);
    input.fFormat = spectrum ? spectrum->fileFormat() : 0;
    input.fFormatName = Utils::Common::fileFormatToStr(input.fFormat);
}

} // namespace

void TCliInput::fail(int code, const QString &reason)
{
    fCode = code;
    fReason = reason;
}

QString TCliInput::path() const
{
    return fSpool ? fSpool->path() : fFile;
}

QVariantMap TCliInput::provenance() const
{
    QVariantMap map{{"Filename", fFile}, {"version", TCliEnvironment::version()}};
    if (!fSums.isEmpty())
        map.insert("md5sum", fSums);
    else if (!fMd5.isEmpty())
        map.insert("md5sum", QVariantMap{{QFileInfo(fFile).fileName(), QString::fromLatin1(fMd5)}});
    return map;
}

TCliInput TCliInputs::take(const QString &file, const TCliEnvironment &environment)
{
    TCliInput input;
    input.fFile = TCliSpool::shownName(file);
    if (TCliSpool::isStream(file)) {
        QString error;
        input.fSpool = std::make_shared<TCliSpool>();
        if (!input.fSpool->take(file, environment.fSpoolLimit, error))
            input.fail(cConverterFileNotOpened, error);
    }
    return input;
}

void TCliInputs::load(TCliInput &input, const QString &format, const TCliEnvironment &environment)
{
    if (isWorthReading(input.path(), format, environment))
        input.fMd5 = Utils::FS::md5Sum(input.path());
    Utils::Common::setDeterministic(input.fMd5.isEmpty() ? input.fFile.toUtf8() : input.fMd5);
    TDocument &document = freshDocument(environment);
    if (!input.isOk())
        return;
    if (format.isEmpty() && TDocument::isDocument(input.path()))
        loadDocument(input, document);
    else
        importFile(input, document, format, environment);
    if (input.isOk())
        collectItems(input, document);
}

TCliInput TCliInputs::open(const QString &file, const QString &format, const TCliEnvironment &environment)
{
    TCliInput input = take(file, environment);
    load(input, format, environment);
    return input;
}

QDateTime TCliInputs::newestTime(const QStringList &files)
{
    QDateTime newest = QDateTime::fromMSecsSinceEpoch(0, Qt::UTC);
    for (const QString &file : files) {
        if (TCliSpool::isStream(file))
            continue;
        const QDateTime time = QFileInfo(file).lastModified();
        if (time.isValid() && time > newest)
            newest = time;
    }
    return newest;
}
