#include "plot/TStackedClassProperties.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

QVariantMap TStackedClassProperties::toVariantMap() const
{
    return {{QStringLiteral("Name"), name},
            {QStringLiteral("Color"), baseColor},
            {QStringLiteral("Color Mode"), colorMode}};
}

TStackedClassProperties TStackedClassProperties::fromVariantMap(const QVariantMap &map)
{
    TStackedClassProperties properties;
    properties.name = map.value(QStringLiteral("Name")).toString();
    const QVariant color = map.value(QStringLiteral("Color"));
    properties.baseColor = color.type() == QVariant::String ? QColor(color.toString()) : color.value<QColor>();
    bool isNumber = false;
    const int mode = map.value(QStringLiteral("Color Mode")).toInt(&isNumber);
    if (isNumber && mode >= oneColor && mode <= paletteColors)
        properties.colorMode = mode;
    return properties;
}

void TStackedClassProperties::store(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    stream << name << baseColor << qint32(colorMode);
    if (lineStyle != Qt::SolidLine) // documents without keep the bytes that they came with
        stream << qint32(lineStyle);
    block.endStore();
}

void TStackedClassProperties::load(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        TStackedClassProperties read;
        qint32 mode = paletteColors;
        stream >> read.name;
        Utils::Stream::read(stream, read.baseColor);
        stream >> mode;
        read.colorMode = qBound(int(oneColor), int(mode), int(paletteColors));
        qint32 line = Qt::SolidLine;
        if (stream.isGood() && !stream.atLimit())
            stream >> line;
        read.lineStyle = qBound(int(Qt::SolidLine), int(line), int(Qt::DashDotDotLine));
        if (stream.isGood())
            *this = read;
    }
    block.skipData();
}

bool TStackedClassProperties::operator==(const TStackedClassProperties &other) const
{
    return name == other.name && baseColor == other.baseColor && colorMode == other.colorMode &&
           lineStyle == other.lineStyle;
}
