#include "exchange/PagePrinting.h"

#include "canvas/TDocument.h"
#include "canvas/TPage.h"

#include <QCoreApplication>
#include <QFile>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>

namespace {

constexpr double cUnitsPerMm = 10.0;
constexpr double cUnitsPerInch = 254.0;
constexpr double cSameSize = 0.005; // a paper is hardly cut better

} // namespace

double PagePrinting::scale(const QPrinter &printer, const TPage &page)
{
    const QSizeF paper = printer.pageLayout().fullRect(QPageLayout::Millimeter).size() * cUnitsPerMm;
    const double fit = std::min(paper.width() / page.size().width(), paper.height() / page.size().height());
    return fit > 1.0 - cSameSize ? 1.0 : fit;
}

void PagePrinting::setPaper(QPrinter &printer, const TPage &page)
{
    const QSizeF size = page.size() / cUnitsPerMm;
    const bool isLandscape = size.width() > size.height();
    const QSizeF upright(std::min(size.width(), size.height()), std::max(size.width(), size.height()));
    printer.setFullPage(true);
    printer.setPageSize(QPageSize(upright, QPageSize::Millimeter));
    printer.setPageOrientation(isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait);
}

bool PagePrinting::print(QPrinter &printer, const QList<TPage *> &pages)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    const double resolution = printer.resolution() / cUnitsPerInch;
    const QRectF paper = printer.pageLayout().fullRectPixels(printer.resolution());
    for (int i = 0; i < pages.size(); ++i) {
        if (i > 0)
            printer.newPage();
        const TPage &page = *pages.at(i);
        const double factor = resolution * scale(printer, page);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate((paper.width() - page.size().width() * factor) / 2,
                          (paper.height() - page.size().height() * factor) / 2);
        painter.scale(factor, factor);
        page.paintItems(painter);
        painter.restore();
    }
    return painter.end();
}

bool PagePrinting::print(const TDocument &document, const QString &printer, bool isFile, QString &error)
{
    const auto fail = [&error](const QString &text) {
        error = text;
        return false;
    };
    if (document.pages().isEmpty())
        return fail(QCoreApplication::translate("PagePrinting", "The document has no pages."));
    QPrinter output(QPrinter::HighResolution);
    if (isFile) {
        QFile place(printer); // QPrinter does not say why a file cannot be written
        if (!place.open(QIODevice::WriteOnly))
            return fail(QStringLiteral("%1: %2").arg(printer, place.errorString()));
        place.close();
        output.setOutputFormat(QPrinter::PdfFormat);
        output.setOutputFileName(printer);
    } else {
        const QPrinterInfo info =
            printer.isEmpty() ? QPrinterInfo::defaultPrinter() : QPrinterInfo::printerInfo(printer);
        if (info.isNull())
            return fail(printer.isEmpty()
                            ? QCoreApplication::translate("PagePrinting", "There is no printer.")
                            : QCoreApplication::translate("PagePrinting", "There is no printer %1.").arg(printer));
        output.setPrinterName(info.printerName());
    }
    setPaper(output, *document.pages().first());
    return print(output, document.pages()) ||
           fail(QCoreApplication::translate("PagePrinting", "The printer does not take the job."));
}
