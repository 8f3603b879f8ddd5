#include "plot/TAxisProperties.h"
#include "plot/ColorUtils.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

TAxisProperties::TAxisProperties()
    : gridColor(Utils::Color::cGridColor)
{
}

void TAxisProperties::store(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    stream << ticks.step << qint32(ticks.minorCount) << qint32(ticks.numberForm) << qint32(ticks.decimals)
           << quint8(majorGrid) << quint8(minorGrid) << gridColor << majorGridWidth << minorGridWidth
           << qint32(gridStyle);
    TDataStreamAdaptor more(stream);
    more.startStore();
    stream << quint8(reversed);
    more.endStore();
    block.endStore();
}

void TAxisProperties::load(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        TAxisProperties read;
        qint32 minorCount = -1;
        qint32 form = autoNumbers;
        qint32 decimals = 2;
        quint8 major = 0;
        quint8 minor = 0;
        qint32 style = Qt::SolidLine;
        stream >> read.ticks.step >> minorCount >> form >> decimals >> major >> minor;
        Utils::Stream::read(stream, read.gridColor);
        stream >> read.majorGridWidth >> read.minorGridWidth >> style;
        TDataStreamAdaptor more(stream); // older documents end here
        if (more.hasData()) {
            quint8 isReversed = 0;
            stream >> isReversed;
            read.reversed = isReversed != 0;
        }
        more.skipData();
        read.ticks.minorCount = qBound(-1, int(minorCount), 9);
        read.ticks.numberForm = qBound(int(autoNumbers), int(form), int(scientificNumbers));
        read.ticks.decimals = qBound(0, int(decimals), 8);
        read.majorGrid = major != 0;
        read.minorGrid = minor != 0;
        read.gridStyle = Qt::PenStyle(qBound(int(Qt::NoPen), int(style), int(Qt::DashDotDotLine)));
        const bool isSound = std::isfinite(read.ticks.step) && read.majorGridWidth >= 0.0 && read.minorGridWidth >= 0.0;
        if (stream.isGood() && isSound)
            *this = read;
    }
    block.skipData();
}

bool TAxisProperties::operator==(const TAxisProperties &other) const
{
    return ticks.step == other.ticks.step && ticks.minorCount == other.ticks.minorCount &&
           ticks.numberForm == other.ticks.numberForm && reversed == other.reversed &&
           ticks.decimals == other.ticks.decimals && majorGrid == other.majorGrid && minorGrid == other.minorGrid &&
           gridColor == other.gridColor && majorGridWidth == other.majorGridWidth &&
           minorGridWidth == other.minorGridWidth && gridStyle == other.gridStyle;
}
