#include "TYrexPluginGui.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexActions.h"
#include "services/IPluginHost.h"
#include "ui/TUpdateItem.h"

TYrexPluginGui::TYrexPluginGui() = default;
TYrexPluginGui::~TYrexPluginGui() = default;

void TYrexPluginGui::registered(IPluginHost *host)
{
    init(host);
}

void TYrexPluginGui::init(IPluginHost *host)
{
    TYrexPlugin::registered(host);
    if (host)
        fActions = std::make_unique<TYrexActions>(*host);
}

bool TYrexPluginGui::isInvalid(const QString &invalidator) const
{
    return invalidator.contains(QLatin1String("RELEASE"), Qt::CaseInsensitive) ||
           invalidator.contains(QLatin1String("YES_SHOWSTACKED"), Qt::CaseInsensitive);
}

bool TYrexPluginGui::hasAction(const QString &name) const
{
    return fActions && fActions->has(name);
}

bool TYrexPluginGui::executeAction(const QString &name)
{
    return fHost && fHost->gui() && fActions && fActions->run(name);
}

void TYrexPluginGui::updateActions(TUpdateItem &update)
{
    if (fActions)
        fActions->update(update);
}

QString TYrexPluginGui::contextMenuName(const TMouseSpot &spot) const
{
    const TCanvasYrexSpectrum *item = yrexItem(spot.item);
    if (!item)
        return QString();
    const T1DYrexPlot *plot = item->activeYrexPlot();
    const bool isSpectrum = plot && plot->kind() == T1DYrexPlot::cSpectrumKind && item->currentSpectrum();
    if (!isSpectrum)
        return item->activePlot() ? QStringLiteral("yrexUnknowPlotContextMenu") : QString();
    if (spot.place == placeOnHorzAxis)
        return QStringLiteral("yrexSpecHAxisContextMenu");
    if (spot.place == placeOnVertAxis)
        return QStringLiteral("yrexSpecVAxisContextMenu");
    switch (spot.area.type()) {
    case TPlotHotArea::integral:
        return QStringLiteral("yrexIntegralsContextMenu");
    case TPlotHotArea::peak:
        return QStringLiteral("yrexPeakMenu");
    default:
        return QStringLiteral("yrex1DSpectrumContextMenu");
    }
}
