#include "TFileController.h"

#include "RecentPaths.h"
#include "TDocumentController.h"
#include "WDocumentView.h"
#include "WFileFacts.h"
#include "WInspectDialog.h"
#include "WOpenReport.h"
#include "WPastePreview.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TLoadReport.h"
#include "canvas/TPage.h"
#include "commands/TCmdCreateItem.h"
#include "contexts/IStackedItemCtx.h"
#include "exchange/ExportFile.h"
#include "exchange/TScratchImport.h"
#include "log/TLogger.h"
#include "plugin/IConverter.h"
#include "plugin/IPluginGathering.h"
#include "services/TImportDriver.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"
#include "utils/CommonUtils.h"
#include "utils/FSUtils.h"
#include "widgets/GuiUtils.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

constexpr char cOpenFolder[] = "Kelmora/Folders/Open";
constexpr QSize cOpenSize(960, 560);
constexpr char cRecentDocuments[] = "Kelmora/Recent/Documents";
constexpr char cRecentFiles[] = "Kelmora/Recent/Files";

} // namespace

TFileController::TFileController(TKelmoraHost &host, TDocumentController &documents, QWidget *window)
    : QObject(window)
    , fHost(host)
    , fDocuments(documents)
    , fWindow(window)
{
    connect(&documents, &TDocumentController::saved, this, &TFileController::addRecentDocument);
}

QStringList TFileController::spectrumPatterns() const
{
    QStringList patterns{"*.klm"};
    for (const IConverter *converter : fHost.importDriver().converters()) {
        for (const QString &filter : converter->importFilterList()) {
            const QRegularExpressionMatch inside = QRegularExpression("\\(([^)]*)\\)$").match(filter);
            patterns += inside.captured(1).split(' ', Qt::SkipEmptyParts);
        }
    }
    patterns.removeAll("*");
    patterns.removeAll("*.*");
    patterns.append("*.[0-9]*");
    patterns.removeDuplicates();
    return patterns;
}

QString TFileController::dialogFilters() const
{
    QStringList filters{QString("%1 (%2)").arg(tr("All spectra"), spectrumPatterns().join(' ')),
                        tr("Kelmora Documents") + " (*.klm)"};
    for (const IConverter *converter : fHost.importDriver().converters())
        filters += converter->importFilterList();
    filters.append(tr("All files") + " (*)");
    return filters.join(";;");
}

QStringList TFileController::askForFiles(const QString &title)
{
    const QString folder = TDefaultsIni().value(cOpenFolder, QDir::homePath()).toString();
    QFileDialog dialog(fWindow, title, folder, dialogFilters());
    dialog.setFileMode(QFileDialog::ExistingFiles);
    dialog.setOption(QFileDialog::DontUseNativeDialog); // which has no place for the facts
    auto *facts = new WFileFacts(fHost.importDriver(), &dialog);
    if (auto *grid = qobject_cast<QGridLayout *>(dialog.layout()))
        grid->addWidget(facts, 0, grid->columnCount(), grid->rowCount(), 1);
    connect(&dialog, &QFileDialog::currentChanged, facts, &WFileFacts::showFile);
    dialog.resize(cOpenSize);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    QStringList paths = dialog.selectedFiles();
    TDefaultsIni().setValue(cOpenFolder, QFileInfo(paths.first()).absolutePath());
    return paths;
}

void TFileController::openDialog()
{
    const QStringList paths = askForFiles(tr("Open"));
    if (!paths.isEmpty())
        open(paths);
}

void TFileController::openStackDialog()
{
    const QStringList paths = askForFiles(tr("Open as Stack"));
    if (!paths.isEmpty())
        openAsStack(paths);
}

QList<TOpenResult> TFileController::open(const QStringList &paths)
{
    QList<TOpenResult> results;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    for (const QString &path : paths)
        results.append(openOne(QFileInfo(path).absoluteFilePath()));
    QGuiApplication::restoreOverrideCursor();
    tellImported();
    reportFailures(results);
    return results;
}

QList<TOpenResult> TFileController::readForStacks(const QStringList &paths, TFileStacks &stacks)
{
    QList<TOpenResult> results;
    for (const QString &path : paths) {
        auto file = std::make_unique<TScratchImport>(fHost.importDriver(), path);
        TOpenResult result;
        result.fPath = path;
        result.fCode = file->result().fCode;
        result.fReason = file->result().fReason;
        result.fOk = file->isOk();
        result.fSpectra = file->spectrumCount();
        results.append(result);
        if (!result.fOk) {
            TLogger::printToLogger("Kelmora", QString("%1: %2").arg(path, result.fReason), TLogger::cError);
            continue;
        }
        addRecent(cRecentFiles, path);
        stacks.add(std::move(file));
    }
    return results;
}

void TFileController::placeStacks(const QList<TFileStacks::TStack> &stacks)
{
    TDocument *document = fDocuments.document();
    document->history().beginMerged(tr("Open as Stack"));
    for (const TFileStacks::TStack &stack : stacks) {
        auto *command =
            new TCmdCreateItem(TCmdCreateItem::cImport, stack.fItems, document, nullptr, stack.fProvenance, 0);
        if (stack.fIsWhole)
            command->setStackedFiles(stack.fPaths);
        document->history().push(command);
        fImported.append({stack.fPaths.first(), stack.fItems});
    }
    document->history().endMerged();
    if (!stacks.isEmpty())
        select(canvasItem(stacks.first().fItems.first()));
}

QList<TOpenResult> TFileController::openAsStack(const QStringList &paths)
{
    QStringList data;
    QStringList documents;
    for (const QString &path : paths)
        (TDocument::isDocument(path) ? documents : data).append(QFileInfo(path).absoluteFilePath());
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    TFileStacks files(fHost.plugins());
    QList<TOpenResult> results = readForStacks(data, files);
    const QList<TFileStacks::TStack> stacks = files.take();
    placeStacks(stacks);
    tellImported();
    for (const QString &path : qAsConst(documents))
        results.append(openOne(path));
    QGuiApplication::restoreOverrideCursor();
    QStringList units;
    for (const TFileStacks::TStack &stack : stacks)
        units.append(stack.fUnit.isEmpty() ? tr("other") : stack.fUnit);
    if (stacks.size() > 1)
        emit told(
            tr("The files do not share one horizontal unit: %1 stacks (%2)").arg(stacks.size()).arg(units.join(", ")));
    else if (!stacks.isEmpty())
        emit told(stacks.first().fPaths.size() == 1 ? tr("One file opened")
                                                    : tr("One stack of %1 files").arg(stacks.first().fPaths.size()));
    reportFailures(results);
    return results;
}

void TFileController::openTable(const QByteArray &text)
{
    const QTemporaryDir folder; // the reader takes files, and the name becomes the title
    TOpenResult result;
    result.fPath = tr("Pasted numbers");
    const QString path = folder.filePath(result.fPath + ".csv");
    std::unique_ptr<TScratchImport> table;
    if (ExportFile::write(path, text, &result.fReason)) {
        table = std::make_unique<TScratchImport>(fHost.importDriver(), path, "csv");
        result.fCode = table->result().fCode;
        result.fReason = table->result().fReason;
        result.fOk = table->isOk() && !table->result().fItems.isEmpty();
    }
    if (!result.fOk)
        return reportFailures({result});
    auto *preview = new WPastePreview(std::move(table), fHost, fWindow);
    preview->setAttribute(Qt::WA_DeleteOnClose);
    connect(preview, &QDialog::accepted, this, [this, preview, text] { placeTable(preview->table(), text); });
    preview->open();
}

/// The file of the reader is gone, and nothing is to name it.
void TFileController::placeTable(TScratchImport &table, const QByteArray &text)
{
    const QString source = tr("clipboard");
    const QString sum = QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex());
    const TCanvasItemList items = table.take();
    for (ICanvasItem *item : items) {
        for (QObject *plugin : fHost.plugins()) {
            if (const auto *gathering = qobject_cast<IPluginGathering *>(plugin))
                gathering->nameSource(canvasItem(item), source);
        }
    }
    TDocument *document = fDocuments.document();
    auto *command = new TCmdCreateItem(TCmdCreateItem::cImport, items, document, nullptr,
                                       {{"Filename", source}, {"md5sum", QVariantMap{{source, sum}}}}, 0);
    command->setDescription(tr("Paste Numbers"));
    document->history().push(command);
    fImported.append({source + ".csv", items});
    select(canvasItem(items.first()));
    tellImported();
}

void TFileController::select(TCanvasItem *item)
{
    if (!item || !item->canvas())
        return;
    fDocuments.setPage(item->canvas());
    fDocuments.view()->selection().select(item);
}

void TFileController::tellImported()
{
    const QList<TImportedFile> files = fImported;
    fImported.clear();
    if (!files.isEmpty())
        emit imported(files);
}

TOpenResult TFileController::openOne(const QString &path)
{
    TOpenResult result;
    if (TDocument::isDocument(path)) {
        result.fPath = path;
        result.fIsDocument = true;
        tellImported(); // while their document is still the one that is shown
        result.fOk = fDocuments.open(path, &result.fReason);
        if (result.fOk)
            addRecentDocument(path);
    } else {
        result = importOne(path);
        if (result.fOk)
            addRecent(cRecentFiles, path);
    }
    const QString name = QFileInfo(path).fileName();
    const QString text = result.fOk ? tr("%1 opened").arg(name) : tr("%1: %2").arg(name, result.fReason);
    TLogger::printToLogger("Kelmora", text, result.fOk ? TLogger::cInformation : TLogger::cError);
    if (result.fOk)
        emit told(text);
    return result;
}

TOpenResult TFileController::importOne(const QString &path)
{
    TOpenResult result;
    result.fPath = path;
    TPage *shown = fDocuments.page();
    TPage elsewhere; // none of the document: the command makes a new page then
    TPage *target = shown && shown->items().isEmpty() ? shown : &elsewhere;
    const TImportResult imported = fHost.importDriver().import(path, target);
    result.fCode = imported.fCode;
    result.fOk = Utils::Common::has_no_error(imported.fCode);
    result.fReason = imported.fReason;
    if (!result.fOk || imported.fItems.isEmpty())
        return result;
    fImported.append({path, imported.fItems});
    for (ICanvasItem *one : imported.fItems) {
        const IStackedItemCtx *stack = canvasItem(one)->stackedContext();
        result.fSpectra += stack ? stack->count() : 1;
    }
    select(canvasItem(imported.fItems.first()));
    return result;
}

/// A document tells where it is damaged in a box of its own, since it can be opened in part.
void TFileController::reportFailures(const QList<TOpenResult> &results)
{
    bool anyData = false;
    for (const TOpenResult &result : results) {
        if (!result.fOk && result.fIsDocument)
            offerWhatIsWhole(result);
        anyData |= !result.fOk && !result.fIsDocument;
    }
    if (!anyData)
        return;
    auto *report = new WOpenReport(fHost.importDriver(), results, fWindow);
    report->setAttribute(Qt::WA_DeleteOnClose);
    report->open();
}

void TFileController::offerWhatIsWhole(const TOpenResult &result)
{
    auto whole = std::make_unique<TDocument>();
    TLoadReport report;
    const bool isAny = whole->recoverFrom(result.fPath, report) && report.fItems > 0;
    Utils::Gui::TMessage message;
    message.fIcon = QMessageBox::Warning;
    message.fTitle = tr("Open Document");
    // the tolerant reader goes on behind a length that is too large, and so it finds the place of the damage
    QString why = report.fError.isEmpty() ? result.fReason : report.fError;
    if (!why.endsWith('.'))
        why += '.';
    message.fText = tr("%1 could not be opened. %2 Nothing was changed.").arg(QFileInfo(result.fPath).fileName(), why);
    message.fDefault = QMessageBox::Ok;
    if (isAny) {
        message.fButtons = QMessageBox::Open | QMessageBox::Cancel;
        message.fLabels.insert(QMessageBox::Open, tr("Open What Can Be Read"));
        message.fDefault = QMessageBox::Cancel;
    }
    if (Utils::Gui::ask(fWindow, message) != QMessageBox::Open || !isAny)
        return;
    for (const QString &warning : qAsConst(report.fWarnings))
        TLogger::printToLogger("Kelmora", QString("%1: %2").arg(result.fPath, warning));
    fDocuments.take(std::move(whole));
    emit told(tr("Items of %1 that could be read: %2").arg(QFileInfo(result.fPath).fileName()).arg(report.fItems));
}

void TFileController::inspectDialog()
{
    const QString folder = TDefaultsIni().value(cOpenFolder, QDir::homePath()).toString();
    const QString path = QFileDialog::getOpenFileName(fWindow, tr("Inspect File"), folder);
    if (!path.isEmpty())
        inspect(path);
}

void TFileController::inspect(const QString &path)
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    auto *dialog = new WInspectDialog(path, fHost.importDriver().inspect(path), fWindow);
    QGuiApplication::restoreOverrideCursor();
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show(); // it may stand beside the window
}

QStringList TFileController::recentDocuments() const
{
    return RecentPaths::list(cRecentDocuments);
}

QStringList TFileController::recentFiles() const
{
    return RecentPaths::list(cRecentFiles);
}

void TFileController::addRecentDocument(const QString &path)
{
    addRecent(cRecentDocuments, QFileInfo(path).absoluteFilePath());
}

void TFileController::addRecent(const QString &key, const QString &path)
{
    RecentPaths::add(key, path, cMaxRecent);
    emit recentChanged();
}

void TFileController::forgetRecent(const QString &path)
{
    for (const char *key : {cRecentDocuments, cRecentFiles})
        RecentPaths::forget(key, path);
    emit recentChanged();
}

QStringList TFileController::samples()
{
    const QString place = Utils::FS::sharedFolder("samples");
    if (place.isEmpty())
        return {};
    const QDir folder(place);
    QStringList paths;
    for (const char *name : {"polystyrene.csv", "raman.csv", "dye.csv", "nir.csv"}) {
        if (folder.exists(name))
            paths.append(folder.filePath(name));
    }
    return paths;
}
