#include "commands/TPlotSnapshot.h"

#include "canvas/TCanvasSpectrum.h"
#include "plot/TBasePlot.h"
#include "stream/TDataStream.h"

namespace {

QList<TBasePlot *> plotsOf(TCanvasItem *item)
{
    const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(item);
    return spectrum ? spectrum->plots() : QList<TBasePlot *>();
}

} // namespace

void TPlotSnapshot::capture(TCanvasItem *item)
{
    fPlots.clear();
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
    }
}
