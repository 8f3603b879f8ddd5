#include "WReportPreview.h"

#include "exchange/ExportFile.h"
#include "exchange/PagePrinting.h"
#include "widgets/GuiUtils.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>

namespace {

constexpr QSize cSize(640, 700);
constexpr double cPrintMargin = 20.0; // mm

} // namespace

WReportPreview::WReportPreview(const QString &title, const QString &html, const QString &plain, QWidget *parent)
    : QDialog(parent)
    , fHtml(html)
    , fPlain(plain)
{
    setObjectName("reportPreview");
    setWindowTitle(title);
    resize(cSize);
    auto *browser = new QTextBrowser(this);
    browser->setObjectName("report");
    browser->setAccessibleName(title);
    browser->setHtml(html);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    const auto add = [this, buttons](const char *name, const QString &text, const QString &toolTip, auto run) {
        QPushButton *button = buttons->addButton(text, QDialogButtonBox::ActionRole);
        button->setObjectName(name);
        button->setToolTip(toolTip);
        connect(button, &QPushButton::clicked, this, run);
    };
    add("copyButton", tr("&Copy"), tr("Puts the report on the clipboard, as table and as text."),
        [this] { copy(fHtml, fPlain); });
    add("saveButton", tr("&Save..."), tr("Writes the report as html or as text."), [this] { askForSave(); });
    add("printButton", tr("&Print..."), tr("Prints the report."), [this] { print(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *column = new QVBoxLayout(this);
    column->addWidget(browser);
    column->addWidget(buttons);
}

void WReportPreview::copy(const QString &html, const QString &plain)
{
    auto *mime = new QMimeData;
    mime->setHtml(html);
    mime->setText(plain);
    QGuiApplication::clipboard()->setMimeData(mime);
}

bool WReportPreview::saveTo(const QString &path, QString *error) const
{
    const bool isPlain = path.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive);
    return ExportFile::write(path, (isPlain ? fPlain : fHtml).toUtf8(), error);
}

void WReportPreview::askForSave()
{
    QFileDialog dialog(this, tr("Save Report"), QString(), tr("Html (*.html);;Text (*.txt)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix("html");
    connect(&dialog, &QFileDialog::filterSelected, &dialog, [&dialog](const QString &filter) {
        dialog.setDefaultSuffix(filter.contains(QLatin1String("*.txt")) ? "txt" : "html");
    });
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString path = dialog.selectedFiles().first();
    QString error;
    if (!saveTo(path, &error))
        Utils::Gui::message(this, QMessageBox::Critical, tr("Save Report"),
                            tr("%1. Choose another folder.").arg(error));
}

void WReportPreview::print()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPageMargins(QMarginsF(cPrintMargin, cPrintMargin, cPrintMargin, cPrintMargin), QPageLayout::Millimeter);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    QTextDocument document;
    document.setHtml(fHtml);
    QString error;
    if (!PagePrinting::printText(printer, document, error))
        Utils::Gui::message(this, QMessageBox::Warning, tr("Print"), error);
}
