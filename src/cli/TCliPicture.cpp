#include "TCliPicture.h"

#include "TCanvasYrexSpectrum.h"
#include "TCliEnvironment.h"
#include "TJsonWriter.h"
#include "TYrexChainJson.h"
#include "utils/CommonUtils.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <ctime>

namespace {

constexpr double cPageWidth = 2970.0; // canvas units of 0.1 mm, as an A4 page lying
constexpr double cUnitsPerMm = 10.0;
constexpr int cPdfDpi = 1200;
constexpr int cSvgDpi = 96; // a pixel is the pixel of style sheets

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

QString xmlText(const QString &text)
{
    return text.toHtmlEscaped();
}

} // namespace

TCliPicture::TCliPicture(TCanvasYrexSpectrum &item, const QSize &size, const QVariantMap &provenance)
    : fItem(item)
    , fSize(size)
    , fProvenance(provenance)
    , fTitle(item.title(false).isEmpty() ? item.title(true) : item.title(false))
{
    if (const TYrexSpectrum *spectrum = item.currentSpectrum())
        fChain =
            TYrexChainJson::toJson(spectrum->procParams().actions()).trimmed().replace("\n  ", " ").replace("\n", " ");
}

QSizeF TCliPicture::canvasSize() const
{
    return QSizeF(cPageWidth, cPageWidth * fSize.height() / fSize.width());
}

void TCliPicture::draw(QPainter &painter, const QSizeF &device) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    const QRectF before = fItem.rect();
    const QSizeF canvas = canvasSize();
    fItem.setRect(QRectF(QPointF(0.0, 0.0), canvas));
    painter.scale(device.width() / canvas.width(), device.height() / canvas.height());
    fItem.paint(painter);
    fItem.setRect(before);
}

QByteArray TCliPicture::provenanceText() const
{
    TJsonWriter json;
    json.beginObject(TJsonWriter::cFlat);
    for (auto it = fProvenance.begin(); it != fProvenance.end(); ++it)
        json.pair(it.key(), it.value());
    if (!fChain.isEmpty()) {
        json.key("chain");
        json.json(fChain);
    }
    json.endObject();
    return json.text();
}

QByteArray TCliPicture::png() const
{
    QImage image(fSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    const int dotsPerMetre = qRound(fSize.width() / (cPageWidth / cUnitsPerMm / 1000.0));
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    {
        QPainter painter(&image);
        draw(painter, fSize);
    }
    const QVariantMap sums = fProvenance.value("md5sum").toMap();
    image.setText("Title", fTitle);
    image.setText("Software", "zarnu " + TCliEnvironment::version());
    image.setText("Source", fProvenance.value("Filename").toString());
    image.setText("MD5", sums.isEmpty() ? QString() : sums.first().toString());
    image.setText("Chain", QString::fromUtf8(fChain));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray TCliPicture::svg() const
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setResolution(cSvgDpi);
    generator.setSize(fSize);
    generator.setViewBox(QRect(QPoint(0, 0), fSize));
    generator.setTitle(xmlText(fTitle));
    generator.setDescription(xmlText(QString::fromUtf8(provenanceText())));
    QPainter painter(&generator);
    draw(painter, fSize);
    painter.end();
    return bytes;
}

QByteArray TCliPicture::pdf() const
{
    const TUtcScope utc;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(cPdfDpi);
    writer.setPageSize(QPageSize(canvasSize() / cUnitsPerMm, QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(fTitle);
    writer.setCreator("zarnu " + TCliEnvironment::version());
    const QString description = xmlText(QString::fromUtf8(provenanceText()));
    writer.setDocumentXmpMetadata(
        QString(
            "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
            "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">"
            "<rdf:Description rdf:about=\"\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\" "
            "xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\">\n"
            "<dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">%1</rdf:li></rdf:Alt></dc:title>\n"
            "<dc:source>%2</dc:source>\n"
            "<dc:description><rdf:Alt><rdf:li xml:lang=\"x-default\">%3</rdf:li></rdf:Alt></dc:description>\n"
            "<xmp:CreatorTool>zarnu %4</xmp:CreatorTool>\n"
            "</rdf:Description></rdf:RDF></x:xmpmeta>\n<?xpacket end=\"r\"?>\n")
            .arg(xmlText(fTitle), xmlText(fProvenance.value("Filename").toString()), description,
                 TCliEnvironment::version())
            .toUtf8());
    QPainter painter(&writer);
    draw(painter, QSizeF(writer.width(), writer.height()));
    painter.end();
    setCreationDate(bytes, Utils::Common::now());
    return bytes;
}

QByteArray TCliPicture::bytes(const QString &form) const
{
    if (form == "svg")
        return svg();
    return form == "pdf" ? pdf() : png();
}
