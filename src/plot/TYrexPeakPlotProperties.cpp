#include "TYrexPeakPlotProperties.h"

#include "plot/PainterUtils.h"
#include "plot/TBasePlotProperties.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"

namespace {
constexpr int cMarkFontSize = 24; // canvas units
constexpr int cMaxDecimals = 8;   // a number is written with as many as a file says
} // namespace

TYrexPeakPlotProperties::TYrexPeakPlotProperties()
    : font(Utils::Painter::plotFont(cMarkFontSize))
    , pen(QBrush(Qt::darkBlue), TBasePlotProperties::cDefPenWidth, Qt::SolidLine, Qt::FlatCap)
{
}

void TYrexPeakPlotProperties::store(TDataStream &stream) const
{
    stream << qint32(flags) << font << pen;
    stream << qint8(reserved) << qint8(orientation) << qint8(position) << qint8(units) << decimals;
    stream << curveColor << otherColor << content << margin;
}

void TYrexPeakPlotProperties::load(TDataStream &stream)
{
    TYrexPeakPlotProperties read;
    qint32 flagWord = 0;
    qint8 bytes[4] = {};
    stream >> flagWord;
    Utils::Stream::read(stream, read.font);
    Utils::Stream::read(stream, read.pen);
    for (qint8 &byte : bytes)
        stream >> byte;
    stream >> read.decimals;
    Utils::Stream::read(stream, read.curveColor);
    Utils::Stream::read(stream, read.otherColor);
    stream >> read.content >> read.margin;
    if (!stream.isGood())
        return;
    read.flags = quint32(flagWord);
    read.reserved = bytes[0];
    read.orientation = bytes[1];
    read.position = bytes[2];
    read.units = bytes[3];
    read.decimals = qBound(0, read.decimals, cMaxDecimals);
    if (!(read.margin >= 0.0 && read.margin <= 1.0))
        read.margin = margin;
    *this = read;
}
