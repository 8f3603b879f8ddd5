// The persistence of T1DYrexPlot. The order of the items is part of the document file format.
#include "T1DYrexPlot.h"

#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

void T1DYrexPlot::setupFullView(TDataStream &stream)
{
    T1DStackedPlot::setupFullView(stream);
    fIntegralProperties.store(stream);
    fIntegralProperties.flags &= ~quint32(TYrexIntegralPlotProperties::cShowIntegrals);
    fPeakProperties.store(stream);
    fPeakProperties.flags &= ~quint32(TYrexPeakPlotProperties::cHiddenInOverview);
}

void T1DYrexPlot::resetFullView(TDataStream &stream)
{
    T1DStackedPlot::resetFullView(stream);
    fIntegralProperties.load(stream);
    fPeakProperties.load(stream);
    reserveLabelStrips(); // an overview has no labels: places of the view are asked for again
}

void T1DYrexPlot::store(TDataStream &stream) const
{
    T1DStackedPlot::store(stream);
    stream << fXUnits << fYUnits << fAxisLabelFlags << qint32(horzAxis().posPolicy())
           << qint32(intensityAxis().posPolicy());
    stream << qint8(fPlotKind);
    fTitleProperties.store(stream);
    fPeakProperties.store(stream);
    TDataStreamAdaptor outer(stream);
    outer.startStore();
    {
        TDataStreamAdaptor empty(stream);
        empty.startStore();
    }
    fIntegralProperties.store(stream);
    outer.endStore();
}

void T1DYrexPlot::load(TDataStream &stream)
{
    T1DStackedPlot::load(stream);
    qint8 kind = 0;
    qint32 horzPolicy = axisAtBottom;
    qint32 vertPolicy = axisAtLeft;
    stream >> fXUnits >> fYUnits >> fAxisLabelFlags >> horzPolicy >> vertPolicy >> kind;
    fPlotKind = kind;
    if (stream.isGood()) {
        setAxisPosPolicy(horzDir, horzPolicy);
        setAxisPosPolicy(vertDir, vertPolicy);
    }
    fTitleProperties.load(stream);
    fPeakProperties.load(stream);
    TDataStreamAdaptor outer(stream);
    if (outer.hasData()) {
        TDataStreamAdaptor(stream).skipData();
        fIntegralProperties.load(stream);
    }
    outer.skipData();
}
