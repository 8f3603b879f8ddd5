#include "TPrintController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"

#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <algorithm>

namespace {

constexpr double cUnitsPerMm = 10.0;
constexpr double cUnitsPerInch = 254.0;
constexpr double cSameSize = 0.005; // a paper is hardly cut better

} // namespace

TPrintController::TPrintController(TActionTable &actions, TDocumentController &documents, QWidget *window)
    : QObject(window)
    , fDocuments(documents)
    , fWindow(window)
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
    const QSizeF size = document.pages().first()->size() / cUnitsPerMm;
    const bool isLandscape = size.width() > size.height();
    const QSizeF upright(std::min(size.width(), size.height()), std::max(size.width(), size.height()));
    printer->setPageSize(QPageSize(upright, QPageSize::Millimeter));
    printer->setPageOrientation(isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

double TPrintController::scale(const QPrinter &printer, int page) const
{
    const QSizeF paper = printer.pageLayout().fullRect(QPageLayout::Millimeter).size() * cUnitsPerMm;
    const QSizeF size = fDocuments.document()->pages().at(page)->size();
    const double fit = std::min(paper.width() / size.width(), paper.height() / size.height());
    return fit > 1.0 - cSameSize ? 1.0 : fit;
}

void TPrintController::print(QPrinter *printer) const
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
    QPainter painter;
    if (!painter.begin(printer))
        return;
    const double resolution = printer->resolution() / cUnitsPerInch;
    for (int i = first; i <= last; ++i) {
        if (i > first)
            printer->newPage();
        const TPage &page = *pages.at(i);
        const double factor = resolution * scale(*printer, i);
        const QRectF paper = printer->pageLayout().fullRectPixels(printer->resolution());
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate((paper.width() - page.size().width() * factor) / 2,
                          (paper.height() - page.size().height() * factor) / 2);
        painter.scale(factor, factor);
        page.paintItems(painter);
        painter.restore();
    }
}

void TPrintController::pageSetup()
{
    QPrinter printer(QPrinter::HighResolution);
    prepare(&printer);
    QPageSetupDialog dialog(&printer, fWindow);
    if (dialog.exec() == QDialog::Accepted)
        fPaper = printer.pageLayout();
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
