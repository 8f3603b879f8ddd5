#include "exchange/PagePrinting.h"

#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "utils/TFileWriter.h"

#include <QCoreApplication>
#include <QFile>
#include <QPaintEngine>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTextDocument>
#include <algorithm>
#include <cerrno>
#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr double cUnitsPerMm = 10.0;
constexpr double cUnitsPerInch = 254.0;
constexpr double cSameSize = 0.005; // a paper is hardly cut better
const char cEnd[] = "%%EOF\n";      // of every PDF file
constexpr int cPart = 64 * 1024;

/// A file without a place on any disk. QPrinter writes to names only, and notices no write that fails.
class TMemoryFile
{
public:
    TMemoryFile()
    {
        fFile.open(memfd_create("pages", MFD_CLOEXEC), QIODevice::ReadWrite, QFileDevice::AutoCloseHandle);
    }

    QString name() const { return QStringLiteral("/proc/self/fd/%1").arg(fFile.handle()); }
    /// Whether the writer has closed a whole PDF file; else the reason why not, where it is known.
    bool isWhole(QString &error)
    {
        const qint64 size = fFile.size();
        fFile.seek(std::max(qint64(0), size - qint64(sizeof cEnd) + 1));
        if (fFile.readAll() == cEnd)
            return true;
        if (pwrite(fFile.handle(), cEnd, 1, size) < 0) // the next byte meets the same
            error = qt_error_string(errno);
        return false;
    }
    void copyTo(QIODevice &target)
    {
        fFile.seek(0);
        while (!fFile.atEnd())
            target.write(fFile.read(cPart));
    }

private:
    QFile fFile;
};

QString noPrinter()
{
    return QCoreApplication::translate("PagePrinting", "The printer does not take the job.");
}

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

bool PagePrinting::run(QPrinter &printer, const std::function<bool()> &draw, QString &error)
{
    error = noPrinter();
    const QString path = printer.outputFileName();
    const bool isPreview = printer.paintEngine()->type() == QPaintEngine::Picture;
    if (path.isEmpty() || isPreview)
        return draw();
    TFileWriter file(path);
    bool isPrinted = file.open(); // a place that cannot be written needs no drawing
    if (isPrinted) {
        TMemoryFile memory;
        printer.setOutputFileName(memory.name());
        isPrinted = draw();
        printer.setOutputFileName(path);
        if (!isPrinted || !memory.isWhole(error))
            return false;
        memory.copyTo(*file.device());
        isPrinted = file.commit(); // which knows of every byte that was not written
    }
    error = isPrinted ? QString() : QStringLiteral("%1: %2").arg(path, file.error());
    return isPrinted;
}

namespace {

bool drawPages(QPrinter &printer, const QList<TPage *> &pages)
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
        const double factor = resolution * PagePrinting::scale(printer, page);
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

} // namespace

bool PagePrinting::print(QPrinter &printer, const QList<TPage *> &pages, QString &error)
{
    return run(
        printer, [&] { return drawPages(printer, pages); }, error);
}

bool PagePrinting::printText(QPrinter &printer, const QTextDocument &text, QString &error)
{
    const auto draw = [&] {
        text.print(&printer);
        return true;
    };
    return run(printer, draw, error);
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
    return print(output, document.pages(), error);
}
