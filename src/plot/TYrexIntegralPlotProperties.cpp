#include "TYrexIntegralPlotProperties.h"

#include "plot/PainterUtils.h"
#include "plot/TBasePlotProperties.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <cmath>

namespace {
constexpr int cMarkFontSize = 24; // canvas units
constexpr int cMaxDecimals = 8;   // a number is written with as many as a file says

/// Fractions of the curves rectangle; marks may have been dragged out of it.
bool isPlace(double value)
{
    return std::fabs(value) <= 10.0;
}

} // namespace

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
        TYrexIntegralPlotProperties read;
        qint32 flagWord = 0;
        qint8 place = 0;
        qint8 direction = 0;
        stream >> flagWord;
        Utils::Stream::read(stream, read.pen);
        Utils::Stream::read(stream, read.labelColor);
        Utils::Stream::read(stream, read.font);
        stream >> place >> direction >> read.rangeMargin >> read.decimals >> read.curveMargin >> read.curveMaxHeight;
        read.flags = quint32(flagWord);
        read.labelPosition = place;
        read.labelOrientation = direction;
        read.decimals = qBound(0, read.decimals, cMaxDecimals);
        if (stream.isGood() && isPlace(read.rangeMargin) && isPlace(read.curveMargin) && isPlace(read.curveMaxHeight))
            *this = read;
    }
    block.skipData();
    TDataStreamAdaptor(stream).skipData();
}
