#include "plot/TBasePlotProperties.h"
#include "plot/ColorUtils.h"
#include "plot/PainterUtils.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

TBasePlotProperties::TBasePlotProperties()
    : curvePen(Utils::Color::paletteColor(0), cDefCurveWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
    , axesFont(Utils::Painter::plotFont(28))
    , axesTitleFont(Utils::Painter::plotFont(32))
{
}

void TBasePlotProperties::store(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    stream << curvePen << fillAlpha << quint8(showMarkers) << quint8(isBaseLineShown);
    stream << background << qint32(frame) << marginLeft << marginTop << marginRight << marginBottom << plotAreaMargin
           << quint8(keepFitting) << quint8(antialiasing);
    stream << axesColor << axesFont << axesTitleFont << axesLineWidth << qint32(tickDirection);
    horzAxis.store(stream);
    vertAxis.store(stream);
    {
        TDataStreamAdaptor more(stream);
        more.startStore();
        stream << quint8(showLegend) << qint32(secondAxis);
    }
    block.endStore();
}

void TBasePlotProperties::load(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        TBasePlotProperties read;
        quint8 markers = 0;
        quint8 baseLine = 0;
        quint8 fitting = 0;
        quint8 smooth = 1;
        qint32 frameKind = axesFrame;
        qint32 ticks = ticksOut;
        Utils::Stream::read(stream, read.curvePen);
        stream >> read.fillAlpha >> markers >> baseLine;
        Utils::Stream::read(stream, read.background);
        stream >> frameKind >> read.marginLeft >> read.marginTop >> read.marginRight >> read.marginBottom >>
            read.plotAreaMargin >> fitting >> smooth;
        Utils::Stream::read(stream, read.axesColor);
        Utils::Stream::read(stream, read.axesFont);
        Utils::Stream::read(stream, read.axesTitleFont);
        stream >> read.axesLineWidth >> ticks;
        read.horzAxis.load(stream);
        read.vertAxis.load(stream);
        TDataStreamAdaptor more(stream); // older documents end here
        if (more.hasData()) {
            quint8 legend = 0;
            qint32 second = cNoSecondAxis;
            stream >> legend >> second;
            read.showLegend = legend != 0;
            read.secondAxis = second;
        }
        more.skipData();
        read.showMarkers = markers != 0;
        read.isBaseLineShown = baseLine != 0;
        read.keepFitting = fitting != 0;
        read.antialiasing = smooth != 0;
        read.frame = qBound(int(noFrame), int(frameKind), int(boxFrame));
        read.tickDirection = qBound(int(ticksOut), int(ticks), int(ticksBoth));
        bool isSound = read.fillAlpha >= 0.0 && read.fillAlpha <= 1.0 && read.axesLineWidth >= 0.0;
        for (const double length : {read.marginLeft, read.marginTop, read.marginRight, read.marginBottom,
                                    read.plotAreaMargin, read.axesLineWidth})
            isSound = isSound && std::isfinite(length);
        if (stream.isGood() && isSound)
            *this = read;
    }
    block.skipData();
}

bool TBasePlotProperties::operator==(const TBasePlotProperties &other) const
{
    return curvePen == other.curvePen && fillAlpha == other.fillAlpha && showMarkers == other.showMarkers &&
           isBaseLineShown == other.isBaseLineShown && background == other.background && frame == other.frame &&
           marginLeft == other.marginLeft && marginTop == other.marginTop && marginRight == other.marginRight &&
           marginBottom == other.marginBottom && plotAreaMargin == other.plotAreaMargin &&
           keepFitting == other.keepFitting && antialiasing == other.antialiasing && axesColor == other.axesColor &&
           axesFont == other.axesFont && axesTitleFont == other.axesTitleFont && axesLineWidth == other.axesLineWidth &&
           tickDirection == other.tickDirection && showLegend == other.showLegend && secondAxis == other.secondAxis &&
           horzAxis == other.horzAxis && vertAxis == other.vertAxis;
}
