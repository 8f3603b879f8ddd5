#include "tables/TCanvasTable.h"

#include "canvas/DocumentBytes.h"
#include "canvas/TCanvasItemList.h"
#include "canvas/TDocument.h"
#include "plot/ColorUtils.h"
#include "plot/PainterUtils.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include "tables/TTableLayout.h"

#include <QCoreApplication>
#include <QPainter>
#include <cmath>

const QByteArray TCanvasTable::cSourceRole = QByteArrayLiteral("source");

namespace {

constexpr double cFarthestPlace = 1e6; // canvas units, 100 m
constexpr double cPixel = 2.6;         // canvas units of a logical pixel at 96 dpi
const QSizeF cChartSize(1000.0, 700.0);
const QColor cDarkInk(0xF2, 0xF2, 0xF2);

TCanvasTable::TReader gReader;

} // namespace

TCanvasTable::TCanvasTable()
    : TCanvasItem(cRtti, nullptr, QString())
{
}

void TCanvasTable::setReader(const TReader &reader)
{
    gReader = reader;
}

void TCanvasTable::setTableProperties(const TTableProperties &properties)
{
    fTable = properties;
    fIsStale = true;
}

void TCanvasTable::setSource(TCanvasItem *source)
{
    link(this, cSourceRole, source->uniqueId());
    readFrom(source);
}

TCanvasItem *TCanvasTable::source() const
{
    const QList<QUuid> ids = links(cSourceRole);
    const auto *document = canvas() ? qobject_cast<TDocument *>(canvas()->parent()) : nullptr;
    return document && !ids.isEmpty() ? document->item(ids.first()) : nullptr;
}

void TCanvasTable::readFrom(TCanvasItem *item) const
{
    fIsStale = false;
    TTableContent content;
    if (item && gReader && fTable.isKnown() && gReader(fTable, item, content))
        fContent = content;
}

const TTableContent &TCanvasTable::content() const
{
    if (fIsStale)
        readFrom(source());
    return fContent;
}

QSizeF TCanvasTable::naturalSize() const
{
    return content().fIsChart ? cChartSize : TTableLayout(fContent, fTable.fontSize()).size();
}

void TCanvasTable::setDarkPaper(bool dark)
{
    fIsDark = dark;
}

QString TCanvasTable::title(bool) const
{
    return fContent.fTitle.isEmpty() ? QCoreApplication::translate("TCanvasTable", "Table") : fContent.fTitle;
}

QString TCanvasTable::type() const
{
    return fTable.type();
}

void TCanvasTable::update()
{
    fIsStale = true;
    TCanvasItem::update();
}

void TCanvasTable::linkedItemChanged(TCanvasItem *)
{
    fIsStale = true;
    refreshGraphics(); // it is read when it is drawn
}

void TCanvasTable::linkedItemLeaves(TCanvasItem *item)
{
    if (fIsStale)
        readFrom(item);
}

void TCanvasTable::paintChart(QPainter &painter, const QColor &ink, const QColor &paper)
{
    TValueChart::TLook look;
    look.fFont = Utils::Painter::fontSizeInPixels(Utils::Painter::plotFont(fTable.fontSize()));
    look.fInk = ink;
    look.fPaper = paper;
    look.fUnit = cPixel;
    look.fOnDark = fIsDark;
    fContent.fChart.draw(painter, QRectF(QPointF(), rect().size()), look);
}

void TCanvasTable::paint(QPainter &painter)
{
    const TTableContent &shown = content();
    const QColor ink = fIsDark ? cDarkInk : QColor(Qt::black);
    const QColor paper = fIsDark ? Utils::Color::cDarkPaper : QColor(Qt::white);
    const QSizeF room = rect().size();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (shown.fIsChart) {
        painter.fillRect(QRectF(QPointF(), room), paper);
        paintChart(painter, ink, paper);
    } else {
        // what lies below does not run through the numbers
        painter.fillRect(QRectF(QPointF(), naturalSize().boundedTo(room)), paper);
        TTableLayout(shown, fTable.fontSize()).draw(painter, room, ink, fIsDark);
    }
    painter.restore();
}

void TCanvasTable::store(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    const QRectF place = rect();
    stream << uniqueId() << name() << place.x() << place.y() << place.width() << place.height();
    stream << qint32(layoutPolicy()) << stateFlags() << subtypeText();
    storeLinks(stream);
    fTable.store(stream);
    content().store(stream);
    stream << QVariant(provenance());
    writeRawBytes(stream, fTail);
    block.endStore();
}

void TCanvasTable::loadPlace(TDataStream &stream)
{
    QUuid id;
    QString name;
    QString subtype;
    double x = 0.0, y = 0.0, width = 0.0, height = 0.0;
    qint32 policy = 0;
    quint8 flags = 0;
    stream >> id >> name >> x >> y >> width >> height >> policy >> flags >> subtype;
    for (const double length : {x, y, width, height}) {
        if (!(std::abs(length) <= cFarthestPlace))
            stream.setStatus(QDataStream::ReadCorruptData);
    }
    if (width < 0.0 || height < 0.0)
        stream.setStatus(QDataStream::ReadCorruptData);
    if (!stream.isGood())
        return;
    setUniqueId(id);
    setName(name);
    setRect(QRectF(x, y, width, height));
    setLayoutPolicy(policy, false);
    setStateFlags(flags);
    setSubtypeText(subtype);
}

void TCanvasTable::load(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (!block.hasData())
        return;
    loadPlace(stream);
    loadLinks(stream);
    fTable.load(stream);
    fContent.load(stream);
    QVariant origin;
    if (stream.readVariant(origin))
        provenance() = origin.toMap();
    if (stream.isGood())
        fTail = readRestOfBlock(stream);
    block.skipData();
    fIsStale = false;
}
