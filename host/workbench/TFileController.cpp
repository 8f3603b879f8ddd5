#include "TFileController.h"

#include "TDocumentController.h"
#include "WDocumentView.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "exchange/ExportFile.h"
#include "log/TLogger.h"
#include "plugin/IConverter.h"
#include "services/TImportDriver.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"
#include "utils/CommonUtils.h"
#include "widgets/GuiUtils.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {

constexpr char cOpenFolder[] = "Kelmora/Folders/Open";
constexpr char cRecentDocuments[] = "Kelmora/Recent/Documents";
constexpr char cRecentFiles[] = "Kelmora/Recent/Files";
constexpr int cReportWidth = 3; // failed files that the text names; the details have all

} // namespace

TFileController::TFileController(TKelmoraHost &host, TDocumentController &documents, QWidget *window)
    : QObject(window)
    , fHost(host)
    , fDocuments(documents)
    , fWindow(window)
{
    connect(&documents, &TDocumentController::saved, this, &TFileController::addRecentDocument);
}

QString TFileController::dialogFilters() const
{
    QStringList filters;
    QStringList patterns{"*.klm"};
    for (const IConverter *converter : fHost.importDriver().converters()) {
        for (const QString &filter : converter->importFilterList()) {
            filters.append(filter);
            const QRegularExpressionMatch inside = QRegularExpression("\\(([^)]*)\\)$").match(filter);
            patterns += inside.captured(1).split(' ', Qt::SkipEmptyParts);
        }
    }
    patterns.removeAll("*");
    patterns.removeAll("*.*");
    patterns.append("*.[0-9]*");
    patterns.removeDuplicates();
    filters.prepend(tr("Kelmora Documents") + " (*.klm)");
    filters.prepend(QString("%1 (%2)").arg(tr("All spectra"), patterns.join(' ')));
    filters.append(tr("All files") + " (*)");
    return filters.join(";;");
}

void TFileController::openDialog()
{
    const QString folder = TDefaultsIni().value(cOpenFolder, QDir::homePath()).toString();
    const QStringList paths = QFileDialog::getOpenFileNames(fWindow, tr("Open"), folder, dialogFilters());
    if (paths.isEmpty())
        return;
    TDefaultsIni().setValue(cOpenFolder, QFileInfo(paths.first()).absolutePath());
    open(paths);
}

QList<TOpenResult> TFileController::open(const QStringList &paths)
{
    QList<TOpenResult> results;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    for (const QString &path : paths)
        results.append(openOne(QFileInfo(path).absoluteFilePath()));
    QGuiApplication::restoreOverrideCursor();
    reportFailures(results);
    return results;
}

TOpenResult TFileController::openTable(const QByteArray &text)
{
    TOpenResult result;
    const QTemporaryDir folder; // the reader takes files, and the name becomes the title
    result.fPath = folder.filePath(tr("Pasted numbers") + ".csv");
    if (ExportFile::write(result.fPath, text, &result.fReason))
        result = importOne(result.fPath, "csv");
    reportFailures({result});
    return result;
}

TOpenResult TFileController::openOne(const QString &path)
{
    TOpenResult result;
    if (TDocument::isDocument(path)) {
        result.fPath = path;
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

TOpenResult TFileController::importOne(const QString &path, const QString &format)
{
    TOpenResult result;
    result.fPath = path;
    TPage *shown = fDocuments.page();
    TPage elsewhere; // none of the document: the command makes a new page then
    TPage *target = shown && shown->items().isEmpty() ? shown : &elsewhere;
    const TImportResult imported = fHost.importDriver().import(path, target, format);
    result.fCode = imported.fCode;
    result.fOk = Utils::Common::has_no_error(imported.fCode);
    result.fReason = imported.fReason;
    if (!result.fOk || imported.fItems.isEmpty())
        return result;
    TCanvasItem *item = canvasItem(imported.fItems.first());
    if (item->canvas()) {
        fDocuments.setPage(item->canvas());
        fDocuments.view()->selection().select(item);
    }
    return result;
}

void TFileController::reportFailures(const QList<TOpenResult> &results)
{
    QStringList failed;
    for (const TOpenResult &result : results) {
        if (!result.fOk)
            failed.append(tr("%1 could not be opened: %2 [%3]")
                              .arg(QFileInfo(result.fPath).fileName(), result.fReason)
                              .arg(result.fCode));
    }
    if (failed.isEmpty())
        return;
    QStringList text = failed.mid(0, cReportWidth);
    if (failed.size() > cReportWidth)
        text.append(tr("and %n more file(s)", nullptr, failed.size() - cReportWidth));
    Utils::Gui::message(fWindow, QMessageBox::Warning, tr("Open Report"), text.join("\n\n"),
                        failed.size() > cReportWidth ? failed.join('\n') : QString());
}

QStringList TFileController::recentDocuments() const
{
    return TDefaultsIni().value(cRecentDocuments, QStringList()).toStringList();
}

QStringList TFileController::recentFiles() const
{
    return TDefaultsIni().value(cRecentFiles, QStringList()).toStringList();
}

void TFileController::addRecentDocument(const QString &path)
{
    addRecent(cRecentDocuments, QFileInfo(path).absoluteFilePath());
}

void TFileController::addRecent(const QString &key, const QString &path)
{
    QStringList list = TDefaultsIni().value(key, QStringList()).toStringList();
    list.removeAll(path);
    list.prepend(path);
    TDefaultsIni().setValue(key, QStringList(list.mid(0, cMaxRecent)));
    emit recentChanged();
}

void TFileController::forgetRecent(const QString &path)
{
    for (const char *key : {cRecentDocuments, cRecentFiles}) {
        QStringList list = TDefaultsIni().value(key, QStringList()).toStringList();
        list.removeAll(path);
        TDefaultsIni().setValue(key, list);
    }
    emit recentChanged();
}

QStringList TFileController::samples()
{
    const QString program = QCoreApplication::applicationDirPath();
    // beside an installed program, and in the sources of one that was built there
    for (const char *place : {"/../share/kelmora/samples", "/../../../samples"}) {
        const QDir folder(QDir::cleanPath(program + place));
        QStringList paths;
        for (const char *name : {"polystyrene.csv", "raman.csv", "dye.csv", "nir.csv"}) {
            if (folder.exists(name))
                paths.append(folder.filePath(name));
        }
        if (!paths.isEmpty())
            return paths;
    }
    return {};
}
