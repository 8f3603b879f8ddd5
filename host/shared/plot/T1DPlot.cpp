#include "plot/T1DPlot.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include <cmath>

T1DPlot::T1DPlot(int plotType, const QUuid &id)
    : TBasePlot(plotType, id)
    , fHorzRanges(fHorzAxis.getFullScale())
    , fIntensityRanges(fIntensityAxis.getFullScale())
{
}

QVector<T1DPlot::TAxisAndRanges> T1DPlot::allAxes()
{
    return {{&fHorzAxis, &fHorzRanges}, {&fIntensityAxis, &fIntensityRanges}};
}

void T1DPlot::store(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    for (const TAxisAndRanges &each : allAxes()) {
        TDataStreamAdaptor axisBlock(stream);
        axisBlock.startStore();
        each.axis->store(stream);
        each.ranges->store(stream);
        axisBlock.endStore();
    }
    properties().store(stream);
    storeMore(stream);
    block.endStore();
}

void T1DPlot::load(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        for (const TAxisAndRanges &each : allAxes()) {
            TDataStreamAdaptor axisBlock(stream);
            if (axisBlock.hasData()) {
                each.axis->load(stream);
                each.ranges->showAll(each.axis->getFullScale()); // the list that a plot keeps is never empty
                each.ranges->load(stream);
                if (each.ranges->isEmpty())
                    each.ranges->showAll(each.axis->getFullScale());
            }
            axisBlock.skipData();
        }
        properties().load(stream);
        loadMore(stream);
    }
    block.skipData();
}

void T1DPlot::storeMore(TDataStream &stream) const
{
    stream << intensityFactor();
}

void T1DPlot::loadMore(TDataStream &stream)
{
    double factor = 1.0;
    stream >> factor;
    if (stream.isGood() && std::isfinite(factor) && factor > 0.0)
        setIntensityFactor(factor);
}

TPlotData T1DPlot::getPlotData() const
{
    TPlotData data;
    for (const TAxisAndRanges &each : allAxes())
        data.axes.append({each.axis->getScale(), each.axis->getFullScale(), *each.ranges});
    data.intensityFactor = intensityFactor();
    return data;
}

void T1DPlot::setPlotData(const TPlotData &data)
{
    const QVector<TAxisAndRanges> all = allAxes();
    if (data.axes.size() != all.size())
        return;
    for (int i = 0; i < all.size(); ++i) {
        const TPlotData::TAxisView &view = data.axes.at(i);
        all.at(i).axis->setFullScale(view.fullScale.a, view.fullScale.b);
        all.at(i).axis->setScale(view.scale.a, view.scale.b);
        *all.at(i).ranges = view.ranges;
    }
    setIntensityFactor(data.intensityFactor);
}
