#include "exchange/PagePrinting.h"

#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "utils/TFileWriter.h"

#include <QCoreApplication>
#include <QPaintEngine>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTextDocument>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <new>
#include <thread>
#include <unistd.h>

namespace {

constexpr double cUnitsPerMm = 10.0;
constexpr double cUnitsPerInch = 254.0;
constexpr double cSameSize = 0.005; // a paper is hardly cut better
constexpr int cPart = 64 * 1024;

/// A place in the file system that keeps in memory what is written to it. QPrinter writes to names only, and notices no
/// write that fails.
class TMemoryFile
{
public:
    TMemoryFile()
    {
        if (pipe2(fEnds, O_CLOEXEC) != 0)
            return;
        fReader = std::thread([this] { readAll(); });
    }
    ~TMemoryFile() { bytes(); }
    TMemoryFile(const TMemoryFile &) = delete;
    TMemoryFile &operator=(const TMemoryFile &) = delete;

    QString name() const { return QStringLiteral("/proc/self/fd/%1").arg(fEnds[1]); }
    /// What was written; to be called once the writer has closed the file. Null when that did not fit into memory.
    QByteArray bytes()
    {
        if (fReader.joinable()) {
            close(fEnds[1]); // the last end to write to, so that the reader meets the end
            fReader.join();
            close(fEnds[0]);
        }
        return fBytes;
    }

private:
    void readAll()
    {
        char part[cPart]; // on the stack: what this thread throws would end the program
        bool isWhole = true;
        for (;;) {
            const ssize_t size = read(fEnds[0], part, sizeof part);
            if (size < 0 && errno == EINTR)
                continue;
            if (size <= 0)
                return;
            try {
                if (isWhole)
                    fBytes.append(part, int(size));
            } catch (const std::bad_alloc &) {
                isWhole = false; // and goes on, since the writer would wait for ever
                fBytes = QByteArray();
            }
        }
    }

    int fEnds[2] = {-1, -1};
    std::thread fReader;
    QByteArray fBytes = QByteArray("");
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
        const QByteArray bytes = memory.bytes();
        if (bytes.isNull())
            error = QCoreApplication::translate("PagePrinting", "The pages do not fit into memory.");
        if (!isPrinted || bytes.isEmpty())
            return false;
        isPrinted = file.device()->write(bytes) == bytes.size() && file.commit();
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
