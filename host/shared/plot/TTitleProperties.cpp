#include "plot/TTitleProperties.h"
#include "plot/PainterUtils.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

TTitleProperties::TTitleProperties(const QString &titleFormat)
    : font(Utils::Painter::plotFont(36))
    , format(titleFormat)
{
}

void TTitleProperties::store(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    stream << quint8(visible) << color << font << format << qint32(position) << qint32(alignment) << offset.x()
           << offset.y() << quint8(stacked);
    block.endStore();
}

void TTitleProperties::load(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        TTitleProperties read;
        quint8 shown = 1;
        quint8 perSpectrum = 1;
        qint32 place = titleOnTop;
        qint32 side = alignTitleLeft;
        double x = 0.0;
        double y = 0.0;
        stream >> shown;
        Utils::Stream::read(stream, read.color);
        Utils::Stream::read(stream, read.font);
        stream >> read.format >> place >> side >> x >> y >> perSpectrum;
        read.visible = shown != 0;
        read.stacked = perSpectrum != 0;
        read.position = qBound(int(titleOnTop), int(place), int(titleInside));
        read.alignment = qBound(int(alignTitleLeft), int(side), int(alignTitleRight));
        read.offset = QPointF(x, y);
        if (stream.isGood() && std::isfinite(x) && std::isfinite(y))
            *this = read;
    }
    block.skipData();
}

bool TTitleProperties::operator==(const TTitleProperties &other) const
{
    return visible == other.visible && color == other.color && font == other.font && format == other.format &&
           position == other.position && alignment == other.alignment && offset == other.offset &&
           stacked == other.stacked;
}
