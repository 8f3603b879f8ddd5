#include "commands/TPlotSnapshot.h"

#include "canvas/TCanvasSpectrum.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/T1DStackedPlot.h"
#include "stream/TDataStream.h"

namespace {

QList<TBasePlot *> plotsOf(TCanvasItem *item)
{
    const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(item);
    return spectrum ? spectrum->plots() : QList<TBasePlot *>();
}

QVector<quint32> idsOf(TCanvasItem *item)
{
    QVector<quint32> ids;
    const IStackedItemCtx *stack = item->stackedContext();
    for (int i = 0; stack && i < stack->count(); ++i)
        ids.append(quint32(stack->idOf(i)));
    return ids;
}

void moveValues(T1DStackedPlotProperties &properties, const QVector<quint32> &from, const QVector<quint32> &to)
{
    QVector<double> factors;
    QVector<double> offsets;
    for (const quint32 id : from) {
        factors.append(properties.factor(id));
        offsets.append(properties.offset(id));
    }
    for (const quint32 id : from) {
        properties.setFactor(id, 1.0);
        properties.setOffset(id, 0.0);
    }
    for (int i = 0; i < to.size(); ++i) {
        properties.setFactor(to.at(i), factors.at(i));
        properties.setOffset(to.at(i), offsets.at(i));
    }
}

} // namespace

void TPlotSnapshot::capture(TCanvasItem *item)
{
    fPlots.clear();
    fIds = idsOf(item);
    for (const TBasePlot *plot : plotsOf(item)) {
        QByteArray bytes;
        TDataStream stream(&bytes, QIODevice::WriteOnly);
        plot->store(stream);
        fPlots.append(bytes);
    }
}

void TPlotSnapshot::restore(TCanvasItem *item) const
{
    const QList<TBasePlot *> plots = plotsOf(item);
    if (plots.size() != fPlots.size())
        return;
    for (int i = 0; i < plots.size(); ++i) {
        TDataStream stream(fPlots.at(i));
        plots.at(i)->load(stream);
        auto *stacked = dynamic_cast<T1DStackedPlot *>(plots.at(i));
        const QVector<quint32> ids = idsOf(item);
        if (stacked && ids != fIds && ids.size() == fIds.size())
            moveValues(stacked->stackedProperties(), fIds, ids);
    }
}
