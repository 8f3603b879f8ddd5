#include "exchange/TPictureExporter.h"

#include "canvas/TCanvasSpectrum.h"
#include "canvas/TPage.h"
#include "exchange/ExportFile.h"
#include "plot/ColorUtils.h"
#include "plot/PainterUtils.h"
#include "plot/TBasePlot.h"
#include "tables/TCanvasTable.h"
#include "utils/CommonUtils.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <ctime>

namespace {

constexpr double cUnitsPerMm = 10.0;
constexpr double cMmPerInch = 25.4;
constexpr int cPdfDpi = 1200;
constexpr int cPixelDpi = 96; // of pictures that are given in pixels: the pixel of style sheets
constexpr int cUnitDpi = 254; // a pixel is a canvas unit
constexpr double cHighestDpi = 2400.0;

/// While it lives, local time is UTC: the writer of PDF files puts the local time and its zone into them, and the zone
/// changes the length of the file.
class TUtcScope
{
public:
    TUtcScope()
        : fHadZone(qEnvironmentVariableIsSet("TZ"))
        , fZone(qgetenv("TZ"))
    {
        qputenv("TZ", "UTC");
        tzset();
    }
    ~TUtcScope()
    {
        if (fHadZone)
            qputenv("TZ", fZone);
        else
            qunsetenv("TZ");
        tzset();
    }
    TUtcScope(const TUtcScope &) = delete;
    TUtcScope &operator=(const TUtcScope &) = delete;

private:
    bool fHadZone;
    QByteArray fZone;
};

/// While it lives, the plots of the items have the background and the colours of a picture.
class TPlotsAsPicture
{
public:
    TPlotsAsPicture(const TCanvasItemList &items, TPictureExporter::TBackground background)
    {
        if (background == TPictureExporter::cAsShown)
            return;
        for (ICanvasItem *item : items) {
            auto *table = dynamic_cast<TCanvasTable *>(item);
            if (table && table->isOnDarkPaper()) {
                fDarkTables.append(table);
                table->setDarkPaper(false);
            }
            const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(item);
            if (!spectrum)
                continue;
            for (TBasePlot *plot : spectrum->plots()) {
                fKept.append({plot, plot->properties().background, bool(plot->stateWord() & TBasePlot::cDarkPaper)});
                plot->properties().background = QColor();
                plot->setState(TBasePlot::cDarkPaper, false);
            }
        }
    }
    ~TPlotsAsPicture()
    {
        for (const TKept &kept : qAsConst(fKept)) {
            kept.fPlot->properties().background = kept.fBackground;
            kept.fPlot->setState(TBasePlot::cDarkPaper, kept.fIsDark);
        }
        for (TCanvasTable *table : qAsConst(fDarkTables))
            table->setDarkPaper(true);
    }
    TPlotsAsPicture(const TPlotsAsPicture &) = delete;
    TPlotsAsPicture &operator=(const TPlotsAsPicture &) = delete;

private:
    struct TKept
    {
        TBasePlot *fPlot;
        QColor fBackground;
        bool fIsDark;
    };
    QList<TKept> fKept;
    QList<TCanvasTable *> fDarkTables;
};

/// Puts another time into a finished PDF file, whose writer takes it from the clock. The length stays, and with it
/// every offset in the file.
void setCreationDate(QByteArray &pdf, const QDateTime &time)
{
    static const QByteArray cKey = "/CreationDate (D:";
    const QByteArray date = time.toUTC().toString("yyyyMMddHHmmss").toLatin1();
    const int found = pdf.indexOf(cKey);
    if (found >= 0)
        pdf.replace(found + cKey.size(), date.size(), date);
}

/// UTF-8 with blanks where XML allows no character.
QByteArray soundXml(QByteArray text)
{
    for (char &c : text) {
        if (uchar(c) < ' ' && c != '\t' && c != '\n' && c != '\r')
            c = ' ';
    }
    text.replace("\xEF\xBF\xBE", "   ").replace("\xEF\xBF\xBF", "   ");
    return text;
}

QByteArray xmp(const TPictureOrigin &origin)
{
    const QString text =
        QString("<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
                "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">"
                "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">"
                "<rdf:Description rdf:about=\"\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\" "
                "xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\">\n"
                "<dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">%1</rdf:li></rdf:Alt></dc:title>\n"
                "<dc:source>%2</dc:source>\n"
                "<dc:description><rdf:Alt><rdf:li xml:lang=\"x-default\">%3</rdf:li></rdf:Alt></dc:description>\n"
                "<xmp:CreatorTool>%4</xmp:CreatorTool>\n"
                "</rdf:Description></rdf:RDF></x:xmpmeta>\n<?xpacket end=\"r\"?>\n")
            .arg(origin.fTitle.toHtmlEscaped(), origin.source().toHtmlEscaped(),
                 QString::fromUtf8(origin.description()).toHtmlEscaped(), origin.fProgram.toHtmlEscaped());
    return soundXml(text.toUtf8());
}

} // namespace

TPictureExporter::TPictureExporter(const QSizeF &canvas, const TDraw &draw, const TPictureOrigin &origin)
    : fCanvas(canvas.expandedTo(QSizeF(1.0, 1.0)))
    , fDraw(draw)
    , fOrigin(origin)
    , fSizeMm(fCanvas / cUnitsPerMm)
{
}

TPictureExporter TPictureExporter::ofItem(TCanvasItem &item, const QSizeF &canvas)
{
    const auto draw = [&item, canvas](QPainter &painter) {
        const QRectF before = item.rect();
        item.setRect(QRectF(QPointF(0.0, 0.0), canvas));
        item.paintPicture(painter);
        item.setRect(before);
    };
    TPictureExporter exporter(canvas, draw, TPictureOrigin::of(item));
    exporter.fItems.append(&item);
    return exporter;
}

TPictureExporter TPictureExporter::ofPage(const TPage &page)
{
    TCanvasItemList items;
    for (TCanvasItem *item : page.items())
        items.append(item);
    TPictureExporter exporter(
        page.size(), [&page](QPainter &painter) { page.paintItems(painter); }, TPictureOrigin::of(items));
    if (!page.title().isEmpty())
        exporter.fOrigin.fTitle = page.title();
    exporter.fItems = items;
    return exporter;
}

TPictureExporter TPictureExporter::ofItems(const TCanvasItemList &items)
{
    QRectF frame;
    TCanvasItemList ordered = items; // as they lie over each other on the page
    for (ICanvasItem *item : items)
        frame |= canvasItem(item)->rect();
    std::stable_sort(ordered.begin(), ordered.end(), [](ICanvasItem *a, ICanvasItem *b) {
        const TPage *page = canvasItem(a)->canvas();
        return page && page->items().indexOf(canvasItem(a)) < page->items().indexOf(canvasItem(b));
    });
    const auto draw = [ordered, frame](QPainter &painter) {
        for (ICanvasItem *item : ordered) {
            painter.save();
            painter.translate(canvasItem(item)->rect().topLeft() - frame.topLeft());
            canvasItem(item)->paintPicture(painter);
            painter.restore();
        }
    };
    TPictureExporter exporter(frame.size(), draw, TPictureOrigin::of(ordered));
    exporter.fItems = ordered;
    return exporter;
}

void TPictureExporter::setSizeMm(const QSizeF &size)
{
    fSizeMm = size.expandedTo(QSizeF(1.0, 1.0));
}

void TPictureExporter::setResolution(double dpi)
{
    fDpi = qBound(1.0, dpi, cHighestDpi);
}

void TPictureExporter::setPixels(const QSize &pixels)
{
    fPixels = pixels;
}

QSize TPictureExporter::pixels() const
{
    return fPixels.isEmpty() ? (fSizeMm * (fDpi / cMmPerInch)).toSize().expandedTo(QSize(1, 1)) : fPixels;
}

void TPictureExporter::draw(QPainter &painter, const QSizeF &device) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    const TPlotsAsPicture asPicture(fItems, fBackground);
    const Utils::Painter::TOutlinedText outlined(!fTextAsText && Utils::Painter::isVectorOutput(painter));
    const double scale = std::min(device.width() / fCanvas.width(), device.height() / fCanvas.height());
    painter.translate((device.width() - scale * fCanvas.width()) / 2, (device.height() - scale * fCanvas.height()) / 2);
    painter.scale(scale, scale);
    fDraw(painter);
}

QImage TPictureExporter::image() const
{
    const bool isOpaque = fBackground != cTransparent;
    QImage image(pixels(), isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(isOpaque ? Qt::white : Qt::transparent);
    const int dotsPerMetre = qRound(image.width() / (fSizeMm.width() / 1000.0));
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    QPainter painter(&image);
    draw(painter, image.size());
    return image;
}

QByteArray TPictureExporter::png() const
{
    QImage picture = image();
    if (picture.isNull())
        return QByteArray();
    picture.setText("Title", fOrigin.fTitle);
    picture.setText("Software", fOrigin.fProgram);
    picture.setText("Source", fOrigin.source());
    picture.setText("MD5", fOrigin.checksum());
    picture.setText("Chain", QString::fromUtf8(fOrigin.fChain));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return picture.save(&buffer, "PNG") ? bytes : QByteArray();
}

QByteArray TPictureExporter::svg() const
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const QSize size = fPixels.isEmpty() ? (fSizeMm * cUnitsPerMm).toSize() : fPixels;
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(fPixels.isEmpty() ? cUnitDpi : cPixelDpi);
    generator.setSize(size);
    generator.setViewBox(QRect(QPoint(0, 0), size));
    generator.setTitle(fOrigin.fTitle.toHtmlEscaped());
    generator.setDescription(QString::fromUtf8(fOrigin.description()).toHtmlEscaped());
    QPainter painter(&generator);
    if (fBackground == cWhite)
        painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
    draw(painter, size);
    painter.end();
    return soundXml(bytes);
}

QByteArray TPictureExporter::pdf() const
{
    const TUtcScope utc;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(cPdfDpi);
    writer.setPageSize(QPageSize(fSizeMm, QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(fOrigin.fTitle);
    writer.setCreator(fOrigin.fProgram);
    writer.setDocumentXmpMetadata(xmp(fOrigin));
    QPainter painter(&writer);
    draw(painter, QSizeF(writer.width(), writer.height()));
    painter.end();
    setCreationDate(bytes, Utils::Common::now());
    return bytes;
}

QByteArray TPictureExporter::bytes(TForm form) const
{
    if (form == cSvg)
        return svg();
    return form == cPdf ? pdf() : png();
}

bool TPictureExporter::save(const QString &path, TForm form, QString *error) const
{
    const QByteArray content = bytes(form);
    if (!content.isEmpty())
        return ExportFile::write(path, content, error);
    *error = QCoreApplication::translate("TPictureExporter",
                                         "%1 cannot be written: its %2 x %3 pixels do not fit into memory")
                 .arg(path)
                 .arg(pixels().width())
                 .arg(pixels().height());
    return false;
}

QString TPictureExporter::ending(TForm form)
{
    return form == cSvg ? QStringLiteral("svg") : form == cPdf ? QStringLiteral("pdf") : QStringLiteral("png");
}

TPictureExporter::TForm TPictureExporter::formOf(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    return suffix == "svg" ? cSvg : suffix == "pdf" ? cPdf : cPng;
}
