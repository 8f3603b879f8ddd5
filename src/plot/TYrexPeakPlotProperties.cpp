#include "TYrexPeakPlotProperties.h"

#include "plot/PainterUtils.h"
#include "plot/TBasePlotProperties.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"

namespace {
constexpr int cMarkFontSize = 24; // canvas units
}

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
    qint32 flagWord = 0;
    qint8 bytes[4] = {};
    stream >> flagWord;
    Utils::Stream::read(stream, font);
    Utils::Stream::read(stream, pen);
    for (qint8 &byte : bytes)
        stream >> byte;
    stream >> decimals;
    Utils::Stream::read(stream, curveColor);
    Utils::Stream::read(stream, otherColor);
    stream >> content >> margin;
    flags = quint32(flagWord);
    reserved = bytes[0];
    orientation = bytes[1];
    position = bytes[2];
    units = bytes[3];
}
