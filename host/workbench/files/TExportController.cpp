#include "TExportController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "WDocumentView.h"
#include "WExportDataDialog.h"
#include "WExportPictureDialog.h"
#include "canvas/TCanvasItem.h"
#include "exchange/ExportFile.h"
#include "plugin/IConverter.h"
#include "services/TImportDriver.h"
#include "services/TKelmoraHost.h"
#include "settings/TDefaultsIni.h"
#include "widgets/GuiUtils.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QRegularExpression>
#include <algorithm>

namespace {

constexpr char cExportFolder[] = "Kelmora/Folders/Export";
constexpr char cNumber[] = "{Number}";
constexpr char cTitle[] = "{Title}";
constexpr double cUnitsPerMm = 10.0; // canvas units
constexpr int cLongestTitle = 80;    // signs of a title in a file name

QString fileNamePart(const QString &text)
{
    static const QRegularExpression cBad("[/\\\\:*?\"<>|\\x00-\\x1f]+");
    return text.section('\n', 0, 0).replace(cBad, "_").trimmed().left(cLongestTitle);
}

QString exportFolder()
{
    return TDefaultsIni().value(cExportFolder, QDir::homePath()).toString();
}

} // namespace

TExportController::TExportController(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents,
                                     QWidget *window)
    : QObject(window)
    , fHost(host)
    , fDocuments(documents)
    , fWindow(window)
{
    actions.on(
        "exportPicture", [this] { exportPicture(); },
        [this] {
            return fDocuments.page() && !fDocuments.page()->items().isEmpty() ? QString() : tr("The page is empty.");
        });
    actions.on(
        "exportData", [this] { exportData(); },
        [this] { return selected().isEmpty() ? tr("Needs a selected item.") : QString(); });
}

TCanvasItemList TExportController::selected() const
{
    return fDocuments.view() ? fDocuments.view()->selection().items() : TCanvasItemList();
}

QString TExportController::proposedName() const
{
    const TCanvasItemList items = selected();
    const QString title = items.isEmpty() ? QString() : canvasItem(items.first())->title(true);
    const QString name = fileNamePart(title);
    return name.isEmpty() ? TDocumentController::titleOf(*fDocuments.document()) : name;
}

QList<TPictureExporter> TExportController::pictures(const TPictureRequest &request) const
{
    QList<TPictureExporter> pictures;
    const TCanvasItemList items = selected();
    if (request.fWhat == TPictureRequest::cItem && items.size() == 1) {
        TCanvasItem *item = canvasItem(items.first());
        const QSizeF size = request.fSizeMm.isEmpty() ? item->rect().size() : request.fSizeMm * cUnitsPerMm;
        pictures.append(TPictureExporter::ofItem(*item, size));
    } else if (request.fWhat == TPictureRequest::cItem && !items.isEmpty()) {
        pictures.append(TPictureExporter::ofItems(items));
    } else if (request.fWhat == TPictureRequest::cAllPages) {
        for (const TPage *page : fDocuments.document()->pages())
            pictures.append(TPictureExporter::ofPage(*page));
    } else {
        pictures.append(TPictureExporter::ofPage(*fDocuments.page()));
    }
    for (TPictureExporter &picture : pictures) {
        if (!request.fSizeMm.isEmpty())
            picture.setSizeMm(request.fSizeMm);
        picture.setResolution(request.fDpi);
        picture.setBackground(request.fBackground);
        picture.setTextAsText(request.fTextAsText);
    }
    return pictures;
}

QStringList TExportController::names(const QString &pattern, const QStringList &titles)
{
    QString whole = pattern;
    const bool isVaried = whole.contains(cNumber);
    if (!isVaried && titles.size() > 1) {
        const int dot = whole.lastIndexOf('.');
        whole.insert(dot < 0 ? whole.size() : dot, QString(" ") + cNumber);
    }
    QStringList names;
    for (int i = 0; i < titles.size(); ++i) {
        QString name = whole;
        name.replace(cNumber, QString::number(i + 1));
        name.replace(cTitle, fileNamePart(titles.at(i)));
        names.append(name);
    }
    return names;
}

bool TExportController::mayReplace(const QStringList &paths) const
{
    const int there =
        int(std::count_if(paths.begin(), paths.end(), [](const QString &path) { return QFileInfo::exists(path); }));
    if (there == 0)
        return true;
    Utils::Gui::TMessage message;
    message.fIcon = QMessageBox::Question;
    message.fTitle = tr("Replace Files");
    message.fText = there == 1 && paths.size() == 1
                        ? tr("%1 exists. Replace it?").arg(QFileInfo(paths.first()).fileName())
                        : tr("%n of the file(s) exist. Replace them?", nullptr, there);
    message.fButtons = QMessageBox::Yes | QMessageBox::Cancel;
    message.fDefault = QMessageBox::Cancel;
    return Utils::Gui::ask(fWindow, message) == QMessageBox::Yes;
}

void TExportController::tell(const QStringList &written, const QStringList &failures, int firstCode,
                             const QString &remark)
{
    if (!failures.isEmpty()) {
        QString text = failures.first() + '.';
        if (failures.size() > 1)
            text += ' ' + tr("Files that failed: %1.").arg(failures.size());
        text += ' ' + tr("Choose another name or folder, or for a picture a lower resolution.");
        if (firstCode != 0)
            text += ' ' + tr("(code %1)").arg(firstCode);
        Utils::Gui::message(fWindow, QMessageBox::Warning, tr("Export"), text,
                            failures.size() > 1 ? failures.join('\n') : QString());
    }
    if (written.isEmpty())
        return;
    const QString text = written.size() == 1 ? tr("%1 written").arg(QFileInfo(written.first()).fileName())
                                             : tr("%n file(s) written", nullptr, written.size());
    emit told(remark.isEmpty() ? text : text + ": " + remark);
}

QStringList TExportController::savePictures(const QList<TPictureExporter> &pictures, const QStringList &paths,
                                            TPictureExporter::TForm form)
{
    QStringList written;
    QStringList failures;
    if (!mayReplace(paths))
        return written;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    for (int i = 0; i < pictures.size() && i < paths.size(); ++i) {
        QString error;
        if (pictures.at(i).save(paths.at(i), form, &error))
            written.append(paths.at(i));
        else
            failures.append(error);
    }
    QGuiApplication::restoreOverrideCursor();
    tell(written, failures);
    return written;
}

void TExportController::exportPicture()
{
    const auto makePictures = [this](const TPictureRequest &request) { return pictures(request); };
    WExportPictureDialog dialog(makePictures, !selected().isEmpty(), fWindow);
    dialog.setName(proposedName());
    if (dialog.exec() != QDialog::Accepted)
        return;
    const TPictureRequest request = dialog.request();
    const QString ending = TPictureExporter::ending(request.fForm);
    QList<TPictureExporter> all = pictures(request);
    QStringList titles;
    for (TPictureExporter &picture : all)
        titles.append(picture.origin().fTitle);
    QStringList paths = names(dialog.name() + '.' + ending, titles);
    if (paths.size() == 1) { // asks by itself before it replaces
        const QString filter = QString("%1 (*.%2)").arg(ending.toUpper(), ending);
        QString path =
            QFileDialog::getSaveFileName(fWindow, tr("Export Picture"), QDir(exportFolder()).filePath(paths.first()),
                                         filter, nullptr, QFileDialog::DontConfirmOverwrite);
        if (path.isEmpty())
            return;
        if (QFileInfo(path).suffix().isEmpty())
            path += '.' + ending;
        paths = QStringList(path);
    } else {
        const QString folder = QFileDialog::getExistingDirectory(fWindow, tr("Export Picture"), exportFolder());
        if (folder.isEmpty())
            return;
        for (QString &path : paths)
            path = QDir(folder).filePath(path);
    }
    TDefaultsIni().setValue(cExportFolder, QFileInfo(paths.first()).absolutePath());
    savePictures(all, paths, request.fForm);
}

QStringList TExportController::saveData(IConverter &converter, TExportScope scope, const QString &path)
{
    const TCanvasItemList items = selected();
    QList<TCanvasItemList> parts;
    QStringList titles;
    if (scope == TExportScope::cSelectedItems) {
        parts.append(items);
    } else {
        for (ICanvasItem *item : items)
            parts.append(TCanvasItemList({item}));
        if (scope == TExportScope::cActiveItem)
            parts = parts.mid(0, 1); // the active one is the first
    }
    for (const TCanvasItemList &part : parts)
        titles.append(canvasItem(part.first())->title(true));
    const QString folder = QFileInfo(path).absolutePath();
    QStringList paths = names(QFileInfo(path).fileName(), titles);
    for (QString &name : paths)
        name = QDir(folder).filePath(name);
    QStringList written;
    QStringList failures;
    int firstCode = 0;
    QString remark;
    if (!mayReplace(paths))
        return written;
    for (int i = 0; i < parts.size(); ++i) {
        QString error;
        const int code = ExportFile::write(converter, parts.at(i), paths.at(i), &error);
        if (code == cConverterOk) {
            written.append(paths.at(i));
            if (remark.isEmpty())
                remark = converter.exportRemark();
            continue;
        }
        if (failures.isEmpty())
            firstCode = code;
        failures.append(error);
    }
    tell(written, failures, firstCode, remark);
    return written;
}

void TExportController::exportData()
{
    QList<IConverter *> writers;
    for (IConverter *converter : fHost.importDriver().converters()) {
        if (!converter->exportFilterList().isEmpty() && converter->canExport(selected()))
            writers.append(converter);
    }
    if (writers.isEmpty()) {
        Utils::Gui::message(
            fWindow, QMessageBox::Information, tr("Export Data"),
            tr("%1 cannot be exported: no format for data can write what is selected. Select items with "
               "spectra, or export a picture.")
                .arg(proposedName()));
        return;
    }
    QStringList filters;
    for (const IConverter *converter : writers)
        filters.append(converter->exportFilterList().first());
    WExportDataDialog dialog(filters, selected().size(), fWindow);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString filter = filters.at(dialog.form());
    const QString ending = QRegularExpression("\\*(\\.\\w+)").match(filter).captured(1);
    QString path =
        QFileDialog::getSaveFileName(fWindow, tr("Export Data"), QDir(exportFolder()).filePath(proposedName() + ending),
                                     filter, nullptr, QFileDialog::DontConfirmOverwrite);
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += ending;
    TDefaultsIni().setValue(cExportFolder, QFileInfo(path).absolutePath());
    saveData(*writers.at(dialog.form()), dialog.scope(), path);
}
