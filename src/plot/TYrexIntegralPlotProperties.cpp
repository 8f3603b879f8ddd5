#include "TYrexIntegralPlotProperties.h"

#include "plot/PainterUtils.h"
#include "plot/TBasePlotProperties.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

namespace {
constexpr int cMarkFontSize = 24; // canvas units
}

TYrexIntegralPlotProperties::TYrexIntegralPlotProperties()
    : pen(QBrush(Qt::darkGreen), TBasePlotProperties::cDefPenWidth, Qt::SolidLine, Qt::FlatCap)
    , font(Utils::Painter::plotFont(cMarkFontSize))
{
}

void TYrexIntegralPlotProperties::store(TDataStream &stream) const
{
    {
        TDataStreamAdaptor block(stream);
        block.startStore();
        stream << qint32(flags) << pen << labelColor << font << qint8(labelPosition) << qint8(labelOrientation);
        stream << rangeMargin << decimals << curveMargin << curveMaxHeight;
        block.endStore();
    }
    TDataStreamAdaptor empty(stream);
    empty.startStore();
}

void TYrexIntegralPlotProperties::load(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        qint32 flagWord = 0;
        qint8 place = 0;
        qint8 direction = 0;
        stream >> flagWord;
        Utils::Stream::read(stream, pen);
        Utils::Stream::read(stream, labelColor);
        Utils::Stream::read(stream, font);
        stream >> place >> direction >> rangeMargin >> decimals >> curveMargin >> curveMaxHeight;
        flags = quint32(flagWord);
        labelPosition = place;
        labelOrientation = direction;
    }
    block.skipData();
    TDataStreamAdaptor(stream).skipData();
}
