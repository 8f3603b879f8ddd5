#include "TPrintController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "exchange/PagePrinting.h"
#include "settings/TDefaultsIni.h"
#include "widgets/GuiUtils.h"

#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <algorithm>

namespace {

constexpr char cPaperKey[] = "Kelmora/Print/Paper";
constexpr int cPaperNumbers = 7;
constexpr double cSmallestPaper = 10.0; // mm
constexpr double cLargestPaper = 5000.0;

/// Width and height of the upright sheet, 1 for landscape, then the margins left, top, right, bottom; in mm.
QVariantList numbersOf(const QPageLayout &paper)
{
    const QSizeF size = paper.pageSize().size(QPageSize::Millimeter);
    const QMarginsF margins = paper.margins(QPageLayout::Millimeter);
    return {size.width(),    size.height(), int(paper.orientation() == QPageLayout::Landscape),
            margins.left(),  margins.top(), margins.right(),
            margins.bottom()};
}

/// Not valid for what numbersOf did not make.
QPageLayout paperOf(const QVariantList &numbers)
{
    if (numbers.size() != cPaperNumbers)
        return QPageLayout();
    QVector<double> mm;
    for (const QVariant &number : numbers)
        mm.append(number.toDouble());
    const auto isFit = [](double side) { return side >= cSmallestPaper && side <= cLargestPaper; };
    if (!isFit(mm[0]) || !isFit(mm[1]))
        return QPageLayout();
    const QPageSize size(QSizeF(mm[0], mm[1]), QPageSize::Millimeter); // finds the name of a known size
    return QPageLayout(size, mm[2] > 0.0 ? QPageLayout::Landscape : QPageLayout::Portrait,
                       QMarginsF(mm[3], mm[4], mm[5], mm[6]), QPageLayout::Millimeter);
}

} // namespace

TPrintController::TPrintController(TActionTable &actions, TDocumentController &documents, QWidget *window)
    : QObject(window)
    , fDocuments(documents)
    , fWindow(window)
    , fPaper(paperOf(TDefaultsIni().value(cPaperKey).toList()))
{
    actions.on("pageSetup", [this] { pageSetup(); });
    actions.on("printPreview", [this] { preview(); });
    actions.on("print", [this] { printDialog(); });
}

void TPrintController::prepare(QPrinter *printer) const
{
    const TDocument &document = *fDocuments.document();
    printer->setFullPage(true); // pages have margins of their own
    printer->setDocName(TDocumentController::titleOf(document));
    printer->setFromTo(0, 0);
    if (fPaper.isValid()) {
        printer->setPageLayout(fPaper);
        printer->setFullPage(true);
        return;
    }
    PagePrinting::setPaper(*printer, *document.pages().first());
}

double TPrintController::scale(const QPrinter &printer, int page) const
{
    return PagePrinting::scale(printer, *fDocuments.document()->pages().at(page));
}

bool TPrintController::print(QPrinter *printer) const
{
    const QList<TPage *> pages = fDocuments.document()->pages();
    int first = 0;
    int last = pages.size() - 1;
    if (printer->printRange() == QPrinter::PageRange && printer->fromPage() > 0) {
        first = std::min(printer->fromPage() - 1, last);
        last = qBound(first, printer->toPage() - 1, last);
    } else if (printer->printRange() == QPrinter::CurrentPage) {
        first = last = std::max(0, pages.indexOf(fDocuments.page()));
    }
    QString error;
    if (PagePrinting::print(*printer, pages.mid(first, last - first + 1), error))
        return true;
    Utils::Gui::message(
        fWindow, QMessageBox::Warning, tr("Print"),
        tr("%1 could not be printed. %2").arg(TDocumentController::titleOf(*fDocuments.document()), error));
    return false;
}

void TPrintController::setPaper(const QPageLayout &paper)
{
    fPaper = paper;
    TDefaultsIni().setValue(cPaperKey, numbersOf(paper));
}

void TPrintController::pageSetup()
{
    QPrinter printer(QPrinter::HighResolution);
    prepare(&printer);
    QPageSetupDialog dialog(&printer, fWindow);
    if (dialog.exec() == QDialog::Accepted)
        setPaper(printer.pageLayout());
}

void TPrintController::preview()
{
    QPrinter printer(QPrinter::HighResolution);
    prepare(&printer);
    QPrintPreviewDialog dialog(&printer, fWindow);
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this, [this, &dialog](QPrinter *to) {
        print(to);
        double smallest = 1.0;
        for (int i = 0; i < fDocuments.document()->pages().size(); ++i)
            smallest = std::min(smallest, scale(*to, i));
        dialog.setWindowTitle(smallest < 1.0
                                  ? tr("Print Preview - scaled to %1 % to fit the paper").arg(qRound(smallest * 100.0))
                                  : tr("Print Preview - true size"));
    });
    dialog.exec();
}

void TPrintController::printDialog()
{
    QPrinter printer(QPrinter::HighResolution);
    prepare(&printer);
    QPrintDialog dialog(&printer, fWindow);
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage);
    if (dialog.exec() == QDialog::Accepted)
        print(&printer);
}
