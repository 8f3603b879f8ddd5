#include "TYrexActions.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdSetYrexSpectrumHorizontalUnits.h"
#include "TCmdShowYrexItemFeature.h"
#include "TCmdYrexArithmeticOp.h"
#include "TCmdYrexArithmeticSetOrgDataToAbsOrg.h"
#include "TCmdYrexDeleteIntegrals.h"
#include "TCmdYrexDeletePeaks.h"
#include "TCmdYrexManualPeakPicking.h"
#include "TCmdYrexProcessing.h"
#include "TYrexHighlightHandler.h"
#include "TYrexMarkEditor.h"
#include "TYrexUnits.h"
#include "WYrexArithmeticDialog.h"
#include "YrexActionTables.h"
#include "commands/ICommandRemarks.h"
#include "commands/TCommandHistory.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "settings/TDefaultsIni.h"
#include "ui/IPlotView.h"
#include "ui/PlotSteps.h"
#include "ui/TPluginMouseModeHandler.h"
#include "widgets/GuiUtils.h"
#include "widgets/WPluginDockWidget.h"

#include <QAbstractScrollArea>
#include <limits>

namespace {

constexpr char cAddFactorKey[] = "Zarnu/Arithmetic/AddFactor";

/// The option of the conversion that stands for a unit; -1 for a unit that it does not reach.
int conversionOption(int unit)
{
    static const QHash<int, int> cOptions{{cUnitTransmittance, cToTransmittance},
                                          {cUnitPercentTransmittance, cToPercentTransmittance},
                                          {cUnitAbsorbance, cToAbsorbance},
                                          {cUnitReflectance, cToReflectance},
                                          {cUnitKubelkaMunk, cToKubelkaMunk}};
    return cOptions.value(unit, -1);
}

/// Where the item's rectangle is on the screen; null when it is in no view.
QRect screenRect(IPlotView *view, const TCanvasItem &item)
{
    const auto *area = dynamic_cast<QAbstractScrollArea *>(view);
    if (!area)
        return QRect();
    const QRect rect =
        view->itemToView(item).mapRect(QRectF(QPointF(), item.rect().size())).toRect() & area->viewport()->rect();
    return QRect(area->viewport()->mapToGlobal(rect.topLeft()), rect.size());
}

} // namespace

TYrexActions::TYrexActions(IPluginHost &host, TYrexHighlightHandler &highlights, TYrexMarkEditor &marks)
    : fHost(host)
    , fHighlights(highlights)
    , fMarks(marks)
{
    for (const TYrexActionCode &toggle : cProcessingToggles)
        add(toggle.fName, [this, code = toggle.fCode] { return toggleProcessing(code); });
    addUnits();
    addMarks();
    addModes();
    addDocks();
    addHighlighted();
    add("yrexArithmeticAdd", [this] { return arithmetic(); });
}

void TYrexActions::addUnits()
{
    for (const TYrexActionCode &unit : cHorizontalUnits)
        add(unit.fName, [this, code = unit.fCode] { return setHorizontalUnits(code); });
    for (const TYrexActionCode &unit : cVerticalUnits)
        add(unit.fName, [this, code = unit.fCode] { return setVerticalUnits(code); });
    add("yrexNextHorizontalUnits", [this] { return nextHorizontalUnits(); });
    add("yrexSwapAbsorbance", [this] { return swapAbsorbance(); });
}

void TYrexActions::addMarks()
{
    add("yrexPeaksShow", [this] { return togglePeaks(); });
    add("yrexDeleteAllPeaksVisible", [this] { return deleteVisiblePeaks(); });
    add("yrexIntegrateDeleteAll", [this] { return push(new TCmdYrexDeleteIntegrals(items())); });
    const auto show = [this](const char *name, int feature) {
        add(name, [this, feature] { return push(new TCmdShowYrexItemFeature(feature, items())); });
    };
    show("yrexIntegralsShow", TCmdShowYrexItemFeature::cIntegrals);
    show("yrexIntegralLabelsShow", TCmdShowYrexItemFeature::cIntegralLabels);
    show("yrexIntegralCurvesShow", TCmdShowYrexItemFeature::cIntegralCurves);
}

bool TYrexActions::has(const QString &name) const
{
    for (const TYrexModeAction &action : cModeActions) {
        if (name == action.fName)
            return fHost.gui() && fHost.gui()->mouseModes()->modes().contains(action.fMode);
    }
    const auto hasDock = [this](const char *dock) { return fHost.gui() && fHost.gui()->dock(dock); };
    for (const TYrexDockAction &action : cDockActions) {
        if (name == action.fName)
            return hasDock(action.fDock);
    }
    if (name == QLatin1String("yrexFullProcessing"))
        return hasDock(cProcessingDock);
    return name == QLatin1String("yrexViewIntegralsTable") ? hasDock("yrexIntegralsTable") : fRuns.contains(name);
}

void TYrexActions::addModes()
{
    for (const TYrexModeAction &action : cModeActions)
        add(action.fName, [this, mode = action.fMode] { return setMode(mode); });
}

void TYrexActions::addDocks()
{
    for (const TYrexDockAction &action : cDockActions)
        add(action.fName, [this, name = action.fDock] { return showDock(name, !isDockVisible(fHost, name)); });
    add("yrexViewIntegralsTable", [this] { return showDock("yrexIntegralsTable", true); });
    add("yrexFullProcessing", [this] { return showDock(cProcessingDock, true); });
}

/// What is done with the marks that are highlighted.
void TYrexActions::addHighlighted()
{
    add("yrexAnnotateCurPeak", [this] {
        const QSet<QUuid> peaks = fHighlights.peaks();
        return peaks.size() == 1 && fMarks.editPeak(fHighlights.item(), *peaks.begin());
    });
    add("yrexEditIntegral", [this] {
        const QSet<QUuid> integrals = fHighlights.integrals();
        return integrals.size() == 1 && fMarks.editIntegral(fHighlights.item(), *integrals.begin(), 0);
    });
    add("yrexDeleteCurPeak", [this] {
        TCanvasYrexSpectrum *marked = fHighlights.item();
        return marked && !fHighlights.peaks().isEmpty() && push(new TCmdYrexDeletePeaks({marked}, fHighlights.peaks()));
    });
    add("yrexDeleteCurrentIntegral", [this] {
        TCanvasYrexSpectrum *marked = fHighlights.item();
        const TYrexSpectrum *spectrum = marked ? marked->currentSpectrum() : nullptr;
        QVector<int> places;
        for (const QUuid &id : fHighlights.integrals())
            places.append(spectrum ? spectrum->integrals().indexOf(id) : -1);
        places.removeAll(-1);
        return !places.isEmpty() && push(new TCmdYrexDeleteIntegrals({marked}, places));
    });
}

bool TYrexActions::isDockVisible(IPluginHost &host, const char *name)
{
    const QWidget *dock = host.gui() ? host.gui()->dock(name) : nullptr;
    return dock && !dock->isHidden();
}

bool TYrexActions::showDock(const char *name, bool show) const
{
    if (!fHost.gui()->dock(name))
        return false;
    fHost.gui()->showDock(name, show);
    fHost.gui()->updateActions();
    return true;
}

bool TYrexActions::setMode(const QUuid &mode) const
{
    fHost.gui()->setMouseMode(mode);
    const bool isOn = fHost.gui()->mouseMode() == mode;
    if (isOn && mode == YrexModes::peakByPeakModeID)
        fHost.gui()->statusMessage(tr("Press Shift to swap the modes: snap to peak/pick a peak freely."));
    return isOn;
}

bool TYrexActions::run(const QString &name) const
{
    const auto found = fRuns.constFind(name);
    return found != fRuns.constEnd() && item() && (*found)();
}

TCanvasYrexSpectrum *TYrexActions::item() const
{
    TCanvasItemList &selected = fHost.itemList();
    ICanvasItem *active = selected.isRttiActive(TCanvasYrexSpectrum::cRtti);
    return yrexItem(active ? active : selected.firstRtti(TCanvasYrexSpectrum::cRtti));
}

TCanvasItemList TYrexActions::items() const
{
    return fHost.itemList().getByRtti(TCanvasYrexSpectrum::cRtti);
}

bool TYrexActions::push(TCommand *command) const
{
    const bool isDone = fHost.history().push(command);
    const auto *partial = isDone ? dynamic_cast<const ICommandRemarks *>(command) : nullptr;
    if (fHost.gui()) {
        fHost.gui()->updateActions();
        if (partial && !partial->remarks().isEmpty())
            fHost.gui()->statusMessage(partial->remarks().join(QStringLiteral("; ")));
    }
    return isDone;
}

bool TYrexActions::toggleProcessing(int action) const
{
    const TYrexSpectrum *spectrum = item() ? item()->currentSpectrum() : nullptr;
    if (!spectrum)
        return false;
    TYrexProcParams params = spectrum->procParams().params();
    const int index = params.indexOfAction(action);
    if (index < 0)
        return false;
    QVariantMap map = params.action(index);
    const bool isApplied = !params.isApplied(index);
    map[QLatin1String(cKeyApply)] = isApplied;
    params.setAction(index, map);
    push(new TCmdYrexProcessing(items(), params));
    if (isApplied && action == cProcMultipointBaseline &&
        map.value(QLatin1String(cKeyMultipointBaseline)).toList().isEmpty())
        offerBaseline();
    if (isApplied && showDock(cProcessingDock, true))
        QMetaObject::invokeMethod(fHost.gui()->dock(cProcessingDock), "act_qlistwid", Q_ARG(int, action));
    return isApplied;
}

/// The action takes nothing away as long as there is no baseline.
void TYrexActions::offerBaseline() const
{
    if (!fHost.gui() || !fHost.gui()->dock(cMultipointDock))
        return;
    IPluginHost *host = &fHost; // the bar may outlive this object's window, not the host
    fHost.gui()->showWarningBar(tr("No multipoint baseline yet."), tr("Create"), [host] {
        if (host->gui())
            host->gui()->showDock(cMultipointDock, true);
    });
}

bool TYrexActions::setVerticalUnits(int unit) const
{
    const TYrexSpectrum *spectrum = item() ? item()->currentSpectrum() : nullptr;
    const int option = conversionOption(unit);
    if (!spectrum || option < 0 || spectrum->yUnits() == unit)
        return false;
    TYrexProcParams params = spectrum->procParams().params();
    const int index = params.indexOfAction(cProcUnitConversion);
    if (index < 0)
        return false;
    QVariantMap map = params.action(index);
    map[QLatin1String(cKeyApply)] = unit != spectrum->origYUnits();
    map[QLatin1String(cKeyToYUnits)] = option;
    params.setAction(index, map);
    return push(new TCmdYrexProcessing(items(), params)); // the axis follows the spectrum
}

bool TYrexActions::swapAbsorbance() const
{
    const TYrexSpectrum *spectrum = item() ? item()->currentSpectrum() : nullptr;
    if (!spectrum)
        return false;
    if (spectrum->yUnits() != cUnitAbsorbance)
        return setVerticalUnits(cUnitAbsorbance);
    return setVerticalUnits(spectrum->origYUnits() == cUnitTransmittance ? cUnitTransmittance
                                                                         : cUnitPercentTransmittance);
}

bool TYrexActions::nextHorizontalUnits() const
{
    const T1DYrexPlot *plot = item() ? item()->activeYrexPlot() : nullptr;
    if (!plot)
        return false;
    constexpr int cCount = int(sizeof(cHorizontalUnits) / sizeof(cHorizontalUnits[0]));
    for (int i = 0; i < cCount; ++i) {
        if (cHorizontalUnits[i].fCode == plot->xUnits())
            return setHorizontalUnits(cHorizontalUnits[(i + cCount - 1) % cCount].fCode); // nm come before um
    }
    return false;
}

bool TYrexActions::setHorizontalUnits(int unit) const
{
    const TCanvasYrexSpectrum *active = item();
    const T1DYrexPlot *plot = active ? active->activeYrexPlot() : nullptr;
    if (!plot || plot->kind() != T1DYrexPlot::cSpectrumKind || plot->xUnits() == unit)
        return false;
    if (TCmdSetYrexSpectrumHorizontalUnits::spansZero(*active, unit)) {
        Utils::Gui::message(fHost.gui()->mainWindow(), QMessageBox::Warning, tr("X Range Contains Value Zero"),
                            tr("X units cannot be converted from/to Wavenumber/Wavelength as value zero is within X "
                               "spectrum bounds."));
        return false;
    }
    return push(new TCmdSetYrexSpectrumHorizontalUnits(unit, items()));
}

/// Those of the range that the active plot shows, in all selected items.
bool TYrexActions::deleteVisiblePeaks() const
{
    const T1DYrexPlot *plot = item() ? item()->activeYrexPlot() : nullptr;
    if (!plot)
        return false;
    const TRange scale = plot->horzAxis().getScale();
    const auto inUnitOf = [plot](double x, const T1DYrexPlot &other) {
        return yrexConvertX(x, plot->xUnits(), other.xUnits());
    };
    TCommandHistory &history = fHost.history();
    history.beginMerged(tr("Delete peaks from visible range"));
    bool isDone = false;
    for (ICanvasItem *entry : items()) { // each reads the range in the unit that it shows
        const TCanvasYrexSpectrum *other = yrexItem(entry);
        const T1DYrexPlot *shown = other ? other->activeYrexPlot() : nullptr;
        if (!shown)
            continue;
        const QRectF range(QPointF(inUnitOf(scale.a, *shown), 0.0), QPointF(inUnitOf(scale.b, *shown), 0.0));
        isDone = push(new TCmdYrexManualPeakPicking({entry}, range, true, std::numeric_limits<double>::quiet_NaN())) ||
                 isDone;
    }
    history.endMerged();
    return isDone;
}

bool TYrexActions::togglePeaks() const
{
    const T1DYrexPlot *plot = item() ? item()->activeYrexPlot() : nullptr;
    if (!plot)
        return false;
    const bool isShown = plot->peakProperties().flags & TYrexPeakPlotProperties::cShowLabels;
    return PlotSteps::setProperties(fHost.history(), items(), {{"peaks.labels", !isShown}});
}

bool TYrexActions::arithmetic() const
{
    TDefaultsIni settings;
    WYrexArithmeticDialog dialog(items(), settings.value(cAddFactorKey, 1.0).toDouble(), fHost.gui()->mainWindow());
    dialog.keepClearOf(screenRect(fHost.gui()->plotView(), *item()));
    if (dialog.exec() != QDialog::Accepted || !dialog.spectrumA())
        return false;
    settings.setValue(cAddFactorKey, dialog.factor());
    const TCanvasItemList sample{dialog.spectrumA()};
    if (dialog.isReset())
        return push(new TCmdYrexArithmeticSetOrgDataToAbsOrg(sample));
    return push(new TCmdYrexArithmeticOp(sample, dialog.spectrumB(), -dialog.factor()));
}
