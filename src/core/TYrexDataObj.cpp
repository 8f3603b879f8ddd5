#include "TYrexDataObj.h"

#include "TYrexUnits.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <QCoreApplication>
#include <cmath>
#include <limits>

TYrexDataView TYrexDataObj::baselinePointData(int axis, int unit, int specIndex)
{
    if (axis == 0)
        return baselineXData(unit, specIndex);
    return axis == 1 ? baselineYData(unit, specIndex) : TYrexDataView();
}

TYrexDataView TYrexDataObj::previewData(int axis, int unit, int specIndex)
{
    return axis == 1 ? previewYData(unit, specIndex) : TYrexDataView();
}

TYrexDataView TYrexDataObj::axisData(int axis, int unit, int specIndex)
{
    if (axis == 0)
        return xData(unit, specIndex);
    return axis == 1 ? yData(unit, specIndex) : TYrexDataView();
}

TYrexDataView TYrexDataObj::surfaceData(int axis, int unitX, int unitY, int a, int b)
{
    if (axis == 0)
        return surfaceXData(unitX, unitY, a, b);
    return axis == 1 ? surfaceYData(unitX, unitY, a, b) : TYrexDataView();
}

TYrexIntegrationRegions TYrexDataObj::integrals(int unit, int specIndex) const
{
    return integralRegions(unit, specIndex);
}

QVector<TYrexDPLib::TYrexDPPeak> TYrexDataObj::peaks(int unit, int specIndex) const
{
    return peakList(unit, specIndex);
}

IYrexPlotData::TPair TYrexDataObj::xRange(int unit) const
{
    constexpr double cHalfWidthAtZero = 0.1;
    constexpr double cShareOfAPoint = 0.75; // a single point gets an axis from three quarters of it
    const double low = xMin(unit);
    const double high = xMax(unit);
    if (low != high)
        return {low, high};
    if (high == 0.0)
        return {-cHalfWidthAtZero, cHalfWidthAtZero};
    return {high * cShareOfAPoint, high};
}

IYrexPlotData::TPair TYrexDataObj::yRange(int yUnit) const
{
    constexpr double cMargin = 0.02;
    const double a = yMin();
    const double b = yMax();
    double margin = std::fabs(a - b) * cMargin;
    if (margin == 0.0)
        margin = cMargin;
    TPair range = b > a ? TPair(a - margin, b + margin) : TPair(a + margin, b - margin);
    if (yUnit == cUnitTransmittance || yUnit == cUnitPercentTransmittance)
        std::swap(range.first, range.second);
    return range;
}

IYrexPlotData::TPair TYrexDataObj::axisRange(int axis, int unit, int yUnit)
{
    constexpr double cLargest = std::numeric_limits<double>::max();
    switch (axis) {
    case 0:
        return xRange(unit);
    case 1:
        return yRange(yUnit);
    case 2:
        return {0.0, double(displayIndices().size())};
    default:
        return {-cLargest, cLargest};
    }
}

QString TYrexDataObj::axisTitle(int yAxis) const
{
    if (yAxis == 0)
        return QCoreApplication::translate("TYrexDataObj", "X Axis");
    return yAxis == 1 ? QCoreApplication::translate("TYrexDataObj", "Y Axis") : QString();
}

void TYrexDataObj::store(TDataStream &stream) const
{
    stream << qint32(fProperties.size());
    for (auto it = fProperties.constEnd(); it != fProperties.constBegin();) {
        --it;
        stream << it.key() << it.value();
    }
    stream << fId << qint32(kind());
    {
        TDataStreamAdaptor empty(stream);
        empty.startStore();
    }
    TDataStreamAdaptor body(stream);
    body.startStore();
    storeBody(stream);
    body.endStore();
}

void TYrexDataObj::loadProperties(TDataStream &stream)
{
    constexpr int cMinEntrySize = 9; // an empty key and an invalid value
    fProperties.clear();
    const int count = stream.readCount(cMinEntrySize);
    for (int i = 0; i < count && stream.isGood(); ++i) {
        QString key;
        QVariant value;
        stream >> key;
        stream.readVariant(value);
        fProperties.insert(key, value);
    }
    if (!stream.isGood())
        fProperties.clear();
}

void TYrexDataObj::load(TDataStream &stream)
{
    loadProperties(stream);
    qint32 kind = 0;
    stream >> fId >> kind;
    if (stream.isGood())
        fKind = kind;
    TDataStreamAdaptor(stream).skipData();
    TDataStreamAdaptor body(stream);
    if (body.hasData())
        loadBody(stream);
    body.skipData();
}
