// Loads bytes as a document: strictly, tolerantly when the first byte is odd, or from a file through recoverFrom when
// its second bit is set. What was read is asked for its titles, fitted, drawn and stored; when it was read whole or
// recovered, it has to read back to the same bytes and the same items.
#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "canvas/TCanvasItemList.h"
#include "canvas/TDocument.h"
#include "canvas/TLoadReport.h"
#include "canvas/TPage.h"
#include "stream/TDataStream.h"
#include "tables/TCanvasTable.h"

#include <QGuiApplication>
#include <QImage>
#include <QTemporaryFile>
#include <cstdlib>

/// Fonts that fontconfig keeps to the end are its own.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}

QScreen *gOffscreenScreen = nullptr; // the platform never deletes it; pointed at, it is no leak

namespace {

constexpr int cPicture = 64; // pixels on the longer side; every row of code is run, and few pixels are filled

TCanvasItem *makeItem(int rtti)
{
    if (rtti == TCanvasTable::cRtti)
        return new TCanvasTable;
    return rtti == TCanvasYrexSpectrum::cRtti ? new TCanvasYrexSpectrum({}, nullptr, nullptr) : nullptr;
}

QByteArray stored(const TDocument &document)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    document.store(stream);
    return bytes;
}

bool load(TDocument &document, const QByteArray &bytes, bool tolerant)
{
    TDataStream stream(bytes);
    stream.setTolerant(tolerant);
    TLoadReport report;
    return document.load(stream, report);
}

/// The way of the command that opens a damaged file; what is recovered is a new document of its own.
bool recover(TDocument &document, const QByteArray &bytes)
{
    static QTemporaryFile cFile;
    if (!cFile.isOpen() && !cFile.open())
        std::abort();
    if (!cFile.resize(0) || !cFile.seek(0) || cFile.write(bytes) != bytes.size() || !cFile.flush())
        std::abort();
    const QUuid id = document.id();
    TLoadReport report;
    const bool any = document.recoverFrom(cFile.fileName(), report);
    if (document.id() == id || !document.path().isEmpty() || (any && report.fItems > document.items().size()))
        std::abort(); // saving it would replace the file that it came from, or it tells of more than there is
    return any;
}

void look(const TDocument &document)
{
    for (ICanvasItem *entry : document.items()) {
        const TCanvasItem *item = canvasItem(entry);
        item->title(true);
        item->title(false);
        item->subtype();
        item->descriptiveText();
        if (TCanvasYrexSpectrum *spectra = yrexItem(entry)) {
            spectra->visibleRanges();
            if (T1DYrexPlot *plot = spectra->activeYrexPlot()) {
                const TPlotData view = plot->getPlotData();
                plot->keepCurveInView();
                plot->setPlotData(view); // looking changes nothing
            }
        }
    }
    for (const TPage *page : document.pages()) {
        const QSize size = page->size().scaled(cPicture, cPicture, Qt::KeepAspectRatio).toSize();
        QImage picture(size.expandedTo({1, 1}), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::white);
        page->render(&picture);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication cApplication(*argc, *argv);
    gOffscreenScreen = QGuiApplication::primaryScreen();
    TDocument::setItemFactory(makeItem);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data) + 1, int(size) - 1);
    TDocument document;
    const bool whole = data[0] & 2 ? recover(document, bytes) : load(document, bytes, data[0] & 1);
    look(document);
    const QByteArray first = stored(document);
    if (!whole)
        return 0;
    TDocument again;
    if (!load(again, first, false) || stored(again) != first || again.items().size() != document.items().size())
        std::abort(); // saving what was opened would lose something
    return 0;
}
