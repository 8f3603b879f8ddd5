#include "TYrexPluginGui.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexPlotProperties.h"
#include "TYrexActions.h"
#include "TYrexHighlightHandler.h"
#include "TYrexHotAreasHandler.h"
#include "TYrexMarkEditor.h"
#include "TYrexPlotTexts.h"
#include "TYrexSpectrumPropertiesBag.h"
#include "TYrexUnits.h"
#include "WYrexSpectrumPropertiesPage.h"
#include "WYrexStackOptionsDialog.h"
#include "WYrexZoomDialog.h"
#include "YrexActionTables.h"
#include "YrexFactories.h"
#include "YrexPageTables.h"
#include "YrexPropertyValues.h"
#include "canvas/TDocument.h"
#include "commands/TCmdZoomSpectra.h"
#include "commands/TCommandHistory.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "settings/TDefaultsIni.h"
#include "tables/TTableContent.h"
#include "tables/TTableFactories.h"
#include "ui/PlotSteps.h"
#include "ui/TPluginMouseModeHandler.h"
#include "ui/TUpdateItem.h"
#include "widgets/WPluginDockWidget.h"

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
    if (host->tables())
        YrexPageTables::addTo(*host->tables(), *host);
    fHighlights = std::make_unique<TYrexHighlightHandler>(*host);
    fMarks = std::make_unique<TYrexMarkEditor>(*host);
    fActions = std::make_unique<TYrexActions>(*host, *fHighlights, *fMarks);
    connect(fHighlights.get(), &TYrexHighlightHandler::changed, this, &TYrexPluginGui::tellHighlights);
}

void TYrexPluginGui::registerFactories(IGuiHost &gui)
{
    if (!fHost)
        return;
    YrexFactories::addDocks(gui, *fHost, *fHighlights);
    YrexFactories::addModes(gui, *fHost, *fHighlights);
    addHotAreas(gui);
}

void TYrexPluginGui::addHotAreas(IGuiHost &gui)
{
    fHotAreas = new TYrexHotAreasHandler(*fHost, *fHighlights);
    gui.mouseModes()->appendHotAreas(fHotAreas); // the window's from now on
    connect(fHotAreas, &TYrexHotAreasHandler::hotAreaHighlighted, this, &TYrexPluginGui::onHotAreaHighlighted);
    connect(fHotAreas, &TYrexHotAreasHandler::hotAreaMouseBtnReleased, this,
            &TYrexPluginGui::onHotAreaMouseBtnReleased);
    connect(fHotAreas, &TYrexHotAreasHandler::hotAreaFocusOut, this, &TYrexPluginGui::onHotAreaFocusOut);
    connect(fHotAreas, &TYrexHotAreasHandler::editPeakWanted, this,
            [this](TCanvasSpectrum *item, const QUuid &peak) { fMarks->editPeak(yrexItem(item), peak); });
    connect(fHotAreas, &TYrexHotAreasHandler::editIntegralWanted, this,
            [this](TCanvasSpectrum *item, const QUuid &integral, int subType) {
                fMarks->editIntegral(yrexItem(item), integral, subType);
            });
    fMarks->setShowBand([areas = fHotAreas](TCanvasYrexSpectrum *item, double from, double to) {
        if (areas)
            areas->showBand(item, from, to);
    });
}

TBaseTable *TYrexPluginGui::createTable(TTableProperties *properties, TCanvasItem *item)
{
    return properties && fHost ? YrexPageTables::createTable(*fHost, *properties, item) : nullptr;
}

QString TYrexPluginGui::tableReport(TTableProperties *properties, TCanvasItem *item, const QString &format)
{
    TTableContent content;
    if (!properties || !fHost || !fHost->tables() || !fHost->tables()->fill(*properties, item, content))
        return QString();
    return format == QLatin1String("html") ? content.html() : content.plainText();
}

void TYrexPluginGui::onHotAreaHighlighted(const TPlotHotArea &aArea, TCanvasSpectrum *aItem)
{
    const TCanvasYrexSpectrum *item = yrexItem(aItem);
    const bool isPeak = aArea.type() == TPlotHotArea::peak;
    if (!item || !item->currentSpectrum() || (!isPeak && aArea.type() != TPlotHotArea::integral))
        return;
    fHighlights->hover(item->uniqueId(), aArea.id(), isPeak);
    if (isPeak)
        emit yrexPeakLabelHighlighted(item->uniqueId(),
                                      TYrexDPLib::indexOfId(item->currentSpectrum()->peaks(), aArea.id()));
    else
        emit yrexIntegralHighlighted(item->uniqueId(), aArea.id());
}

void TYrexPluginGui::onHotAreaFocusOut()
{
    fHighlights->clearHover();
}

/// What is highlighted stands already; tables and actions follow it.
void TYrexPluginGui::onHotAreaMouseBtnReleased(const TPlotHotArea &, TCanvasSpectrum *)
{
    fHost->gui()->updateActions();
}

void TYrexPluginGui::tellHighlights()
{
    const TCanvasYrexSpectrum *item = fHighlights->item();
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    if (!spectrum)
        return;
    for (const QUuid &id : fHighlights->peaks())
        emit yrexPeakHighlighted(item->uniqueId(), TYrexDPLib::indexOfId(spectrum->peaks(), id));
    for (const QUuid &id : fHighlights->integrals())
        emit yrexIntegralHighlighted(item->uniqueId(), id);
}

void TYrexPluginGui::annotateYrexPeak(QUuid aSpecId, QUuid aPeakId)
{
    if (fMarks)
        fMarks->editPeak(yrexItem(fHost->document()->item(aSpecId)), aPeakId);
}

void TYrexPluginGui::highlightPeak(QUuid aSpecId, QUuid aPeakId)
{
    highlightPeaks(aSpecId, {aPeakId});
}

void TYrexPluginGui::highlightPeaks(QUuid aSpecId, QSet<QUuid> aPeakIds)
{
    if (fHighlights)
        fHighlights->highlightPeaks(aSpecId, aPeakIds);
}

void TYrexPluginGui::highlightIntegral(QUuid aSpecId, QUuid aIntgId)
{
    if (fHighlights)
        fHighlights->highlightIntegrals(aSpecId, {aIntgId});
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
    if (!fHost || !fHost->gui() || !fActions || !fActions->run(name))
        return false;
    const bool isOfMarks = name.contains(QLatin1String("Peak")) || name.contains(QLatin1String("Integra"));
    if (isOfMarks && !itemWithoutMarks().isNull())
        tellHiddenMarks();
    return true;
}

/// The id of the active item when it has marks that its display mode leaves out; else null.
QUuid TYrexPluginGui::itemWithoutMarks() const
{
    const TCanvasYrexSpectrum *item = yrexItem(fHost->itemList().isRttiActive(TCanvasYrexSpectrum::cRtti));
    const T1DYrexPlot *plot = item ? item->activeYrexPlot() : nullptr;
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    const bool hasMarks = spectrum && (!spectrum->peaks().isEmpty() || !spectrum->integrals().isEmpty());
    if (!hasMarks || !plot || !plot->isArrayed())
        return QUuid();
    const int mode = plot->stackedProperties().displayMode();
    return mode == activeOnlyMode || mode == overlayMode ? QUuid() : item->uniqueId();
}

void TYrexPluginGui::tellHiddenMarks() const
{
    fHost->gui()->statusMessage(tr("Marks show in Active Only and Overlay."));
}

void TYrexPluginGui::updateActions(TUpdateItem &update)
{
    if (fActions)
        fActions->update(update);
    if (!fHost || !fHost->gui())
        return;
    const TCanvasYrexSpectrum *item = yrexItem(fHost->itemList().isRttiActive(TCanvasYrexSpectrum::cRtti));
    const QUuid seen = item ? item->uniqueId() : QUuid();
    const QUuid without = itemWithoutMarks();
    if (!without.isNull() && seen == fSeenItem && without != fWithoutMarks) // its display mode was changed just now
        tellHiddenMarks();
    fSeenItem = seen;
    fWithoutMarks = without;
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

QString TYrexPluginGui::plotText(const TCanvasItem &item) const
{
    const auto *spectrum = dynamic_cast<const TCanvasYrexSpectrum *>(&item);
    return spectrum ? TYrexPlotTexts::plotText(*spectrum) : QString();
}

QVector<TAccessibleMark> TYrexPluginGui::plotMarks(const TCanvasItem &item) const
{
    const auto *spectrum = dynamic_cast<const TCanvasYrexSpectrum *>(&item);
    return spectrum ? TYrexPlotTexts::marks(*spectrum) : QVector<TAccessibleMark>();
}

bool TYrexPluginGui::showZoomDialog(const TCanvasItemList &items, TAxisDir axis)
{
    const TCanvasYrexSpectrum *first = items.isEmpty() ? nullptr : yrexItem(items.first());
    const T1DYrexPlot *plot = first ? first->activeYrexPlot() : nullptr;
    if (!plot || !fHost || !fHost->gui())
        return false;
    QVector<QUuid> ids; // items may go while the dialog is open
    for (ICanvasItem *entry : items) {
        if (const TCanvasYrexSpectrum *item = yrexItem(entry))
            ids.append(item->uniqueId());
    }
    auto *dialog = new WYrexZoomDialog(*plot, axis, fHost->gui()->mainWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this,
            [this, dialog, ids, unit = plot->xUnits()] { zoomTo(ids, dialog->rect(), unit); });
    connect(dialog, &QDialog::finished, this, [this] { fHost->gui()->focusPlot(); });
    dialog->open();
    return true;
}

/// Items that show another unit along x get the same range in theirs, all in one step.
void TYrexPluginGui::zoomTo(const QVector<QUuid> &ids, const QRectF &rect, int xUnit)
{
    if (rect.width() <= 0.0)
        return;
    QMap<int, TCanvasItemList> byUnit;
    for (const QUuid &id : ids) {
        TCanvasItem *item = fHost->document()->item(id);
        const TCanvasYrexSpectrum *spectrum = yrexItem(item);
        if (spectrum)
            byUnit[spectrum->shownXUnits()].append(item);
    }
    TCommandHistory &history = fHost->history();
    if (byUnit.size() > 1)
        history.beginMerged();
    for (auto it = byUnit.constBegin(); it != byUnit.constEnd(); ++it) {
        QRectF own = rect;
        own.setLeft(yrexConvertX(rect.left(), xUnit, it.key()));
        own.setRight(yrexConvertX(rect.right(), xUnit, it.key()));
        history.push(new TCmdZoomSpectra(it.value(), own, TCmdZoomSpectra::cBox));
    }
    if (byUnit.size() > 1)
        history.endMerged();
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

QString TYrexPluginGui::templateTitle() const
{
    return tr("Processing Template");
}

bool TYrexPluginGui::isTemplate(const QString &path) const
{
    return path.endsWith(QLatin1String(".kzp"), Qt::CaseInsensitive);
}

QStringList TYrexPluginGui::recentTemplates() const
{
    return TDefaultsIni().value(cRecentProcessingKey, QStringList()).toStringList();
}

QString TYrexPluginGui::templateProblem() const
{
    const bool hasSpectrum = fHost && !fHost->itemList().getByRtti(TCanvasYrexSpectrum::cRtti).isEmpty();
    return hasSpectrum ? QString() : tr("No spectrum is active.");
}

/// The dock does so, since it knows what may be edited now.
void TYrexPluginGui::openTemplate(const QString &path)
{
    WPluginDockWidget *dock = fHost && fHost->gui() ? fHost->gui()->dock(cProcessingDock) : nullptr;
    if (dock)
        QMetaObject::invokeMethod(dock, "open", Qt::DirectConnection, Q_ARG(QString, path));
}

bool TYrexPluginGui::applyFormat(const TCanvasItemList &items, const QVariantMap &fields)
{
    TYrexSpectrumPropertiesBag bag;
    for (auto it = fields.constBegin(); it != fields.constEnd(); ++it)
        bag.setValue(it.key(), it.value());
    return !bag.isEmpty() && fHost && fHost->history().push(new TCmdYrexPlotProperties(items, bag));
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
