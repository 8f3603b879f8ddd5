#include "TYrexPluginGui.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexActions.h"
#include "TYrexHighlightHandler.h"
#include "WYrexSpectrumPropertiesPage.h"
#include "WYrexStackOptionsDialog.h"
#include "YrexFactories.h"
#include "YrexPropertyValues.h"
#include "canvas/TDocument.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "ui/PlotSteps.h"
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
    if (!host)
        return;
    fHighlights = std::make_unique<TYrexHighlightHandler>(*host);
    fActions = std::make_unique<TYrexActions>(*host, *fHighlights);
}

void TYrexPluginGui::registerFactories(IGuiHost &gui)
{
    if (!fHost)
        return;
    YrexFactories::addDocks(gui, *fHost, *fHighlights);
    YrexFactories::addModes(gui, *fHost, *fHighlights);
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

bool TYrexPluginGui::hasPropertiesPages(const TCanvasItem &item) const
{
    return TYrexSpectrumPropertiesBag().isApplicable(item);
}

WPropertiesPages *TYrexPluginGui::createPropertiesPages(QWidget *parent)
{
    return fHost && fHost->gui() ? new WYrexSpectrumPropertiesPage(*fHost, parent) : nullptr;
}

QVariantMap TYrexPluginGui::formatOf(const TCanvasItem &item) const
{
    const auto *spectrum = dynamic_cast<const TCanvasYrexSpectrum *>(&item);
    return spectrum && hasPropertiesPages(item) ? YrexPropertyValues::formatOf(*spectrum) : QVariantMap();
}

void TYrexPluginGui::adjustStackedItems(const TCanvasItemList &items)
{
    if (!fHost || !fHost->gui())
        return;
    QVector<QUuid> stacks; // items may go while the dialog is open
    for (ICanvasItem *entry : items) {
        const TCanvasYrexSpectrum *item = yrexItem(entry);
        if (item && item->isStacked())
            stacks.append(item->uniqueId());
    }
    auto *dialog =
        new WYrexStackOptionsDialog(stackAngle(), oneStackPerYUnit(), !stacks.isEmpty(), fHost->gui()->mainWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog, stacks] {
        setStackSettings(dialog->angle(), dialog->oneStackPerYUnit());
        TCanvasItemList present;
        for (const QUuid &id : stacks) {
            if (TCanvasItem *item = fHost->document()->item(id))
                present.append(item);
        }
        if (dialog->appliesToPresent() && !present.isEmpty())
            PlotSteps::setProperties(fHost->history(), present, {{"stack.angle", dialog->angle()}});
    });
    dialog->open();
}
