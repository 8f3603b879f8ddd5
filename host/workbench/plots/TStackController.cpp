#include "TStackController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "WDocumentView.h"
#include "canvas/ItemPlaces.h"
#include "canvas/TCanvasSpectrum.h"
#include "canvas/TDocument.h"
#include "canvas/TItemFragment.h"
#include "commands/TCmdCreateItem.h"
#include "commands/TCmdStackedItemsArrange.h"
#include "commands/TCmdStackedItemsDeletion.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/T1DStackedPlot.h"
#include "ui/PlotSteps.h"

#include <QMenu>

namespace {

constexpr double cSpacingStep = 1.1;

} // namespace

TStackController::TStackController(TActionTable &actions, TDocumentController &documents, QObject *parent)
    : QObject(parent)
    , fActions(actions)
    , fSelection(documents)
{
    addDisplayModes();
    addColors();
    addActive();
    addVisibility();
    addSelection();
}

void TStackController::addDisplayModes()
{
    const auto add = [this](const QString &name, int mode) {
        fActions.on(
            name, [this, mode] { fSelection.push(fSelection.first()->displayModeCommand(fSelection.items(), mode)); },
            [this] { return fSelection.noStack(); },
            [this, mode] {
                const T1DStackedPlot *plot = fSelection.stackedPlot();
                return plot && plot->stackedProperties().displayMode() == mode;
            });
    };
    add("modeActive", activeOnlyMode);
    add("modeOverlay", overlayMode);
    add("modeStacked", stackedMode);
    add("modeHiddenLines", hiddenLinesMode);
    add("modeQueued", queuedMode);
    add("modeGrouped", groupedMode);
    const auto space = [this](const QString &name, double factor) {
        fActions.on(
            name,
            [this, factor] {
                PlotSteps::changeSpacing(fSelection.documents().document()->history(), fSelection.items(), factor);
            },
            [this] {
                const T1DStackedPlot *plot = fSelection.stackedPlot();
                return plot && plot->hasRows() ? QString() : tr("Needs a stack in a display with rows.");
            });
    };
    space("spacingUp", cSpacingStep);
    space("spacingDown", 1.0 / cSpacingStep);
}

void TStackController::addColors()
{
    const auto add = [this](const QString &name, int setting) {
        fActions.on(
            name,
            [this, setting] {
                fSelection.setProperties({{QStringLiteral("stack.colorSetting"), setting}});
            },
            [this] { return fSelection.noStack(); },
            [this, setting] {
                const T1DStackedPlot *plot = fSelection.stackedPlot();
                return plot && plot->stackedProperties().colorSetting() == setting;
            });
    };
    add("colorsSingle", singleColorSetting);
    add("colorsGradient", gradientSetting);
    add("colorsHue", hueSetting);
}

void TStackController::addActive()
{
    const auto needsStack = [this] { return fSelection.noStack(); };
    const auto step = [this](const QString &name, int places) {
        fActions.on(
            name,
            [this, places] {
                const TCanvasItemList list = fSelection.items();
                TDocumentController &documents = fSelection.documents();
                if (PlotSteps::stepActive(documents.document()->history(), list, places))
                    documents.view()->stackChanged(canvasItem(list.first()));
            },
            [this] { return fSelection.noStack(); });
    };
    step("activePrevious", -1);
    step("activeNext", 1);
    fActions.on(
        "removeActive", [this] { removeActive(); }, needsStack);
    fActions.on(
        "extractActive", [this] { extractActive(); }, needsStack);
}

void TStackController::addVisibility()
{
    fActions.on(
        "hideActive",
        [this] {
            const IStackedItemCtx *stack = fSelection.stack();
            fSelection.push(new TCmdStackedItemsArrange({fSelection.first()}, {stack->activeIndex()}, false));
        },
        [this] { return fSelection.noStack(); });
    fActions.on(
        "showAllSpectra",
        [this] {
            fSelection.push(new TCmdStackedItemsArrange({fSelection.first()}, fSelection.stack()->order(), true));
        },
        [this] {
            const IStackedItemCtx *stack = fSelection.stack();
            return stack && !stack->allVisible() ? QString() : tr("No spectrum is hidden.");
        });
}

void TStackController::addSelection()
{
    const auto needsStack = [this] { return fSelection.noStack(); };
    fActions.on(
        "selectAllSpectra", [this] { select([](int) { return true; }); }, needsStack);
    fActions.on(
        "selectNoSpectra",
        [this] {
            const int active = fSelection.stack()->activeIndex();
            select([active](int index) { return index == active; }); // the selection is never empty
        },
        needsStack);
    fActions.on(
        "invertSpectra",
        [this] {
            const IStackedItemCtx *stack = fSelection.stack();
            const QList<quint32> ids = stack->ids(false, true);
            select([stack, ids](int index) { return !ids.contains(quint32(stack->idOf(index))); });
        },
        needsStack);
}

void TStackController::select(const std::function<bool(int)> &isWanted)
{
    IStackedItemCtx *stack = fSelection.stack();
    QVector<int> wanted;
    for (int i = 0; stack && i < stack->count(); ++i) {
        if (isWanted(i))
            wanted.append(i);
    }
    if (wanted.isEmpty())
        return;
    stack->setSelected(wanted);
    fSelection.first()->update();
    fSelection.documents().view()->stackChanged(fSelection.first());
}

void TStackController::fillClassMenu(QMenu *menu)
{
    menu->clear();
    const IStackedItemCtx *stack = fSelection.stack();
    for (const QString &name : stack ? stack->classNames() : QStringList()) {
        QString text = name;
        menu->addAction(text.replace('&', "&&"), this, [this, name] {
            const IStackedItemCtx *present = fSelection.stack();
            select([present, name](int index) { return present->className(index) == name; });
        });
    }
    if (menu->isEmpty())
        menu->addAction(tr("No spectrum has a class"))->setEnabled(false);
}

void TStackController::removeActive()
{
    fSelection.push(
        new TCmdStackedItemsDeletion(TCanvasItemList{fSelection.first()}, {fSelection.stack()->activeIndex()}));
}

void TStackController::extractActive()
{
    TCanvasSpectrum *source = fSelection.first();
    const TCanvasItemList sources{source};
    const int active = fSelection.stack()->activeIndex();
    const QString shownTitle = fSelection.stack()->title(active);
    const QList<TCanvasItem *> copies = TItemFragment::load(TItemFragment::store(sources));
    if (copies.isEmpty())
        return;
    TCanvasItem *copy = copies.first();
    IStackedItemCtx *rest = copy->stackedContext();
    QByteArray left; // the source has them
    for (int i = rest ? rest->count() - 1 : -1; i >= 0; --i) {
        if (i != active)
            rest->take(i, left);
    }
    if (rest && rest->count() == 1 && rest->title(0) != shownTitle)
        copy->swapTitle(0, shownTitle); // a name by its place in the stack would be lost with the place
    TDocument *document = fSelection.documents().document();
    copy->setLayoutPolicy(TCanvasItem::cOwnRect, false);
    copy->setRect(emptiestCorner(*source->canvas()));
    TCommandHistory &history = document->history();
    history.beginMerged(tr("Extract Spectrum"));
    history.push(new TCmdStackedItemsDeletion(sources, {active}));
    history.push(
        new TCmdCreateItem(TCmdCreateItem::cOther, {copy}, document, source->canvas(), source->provenance(), 1));
    history.endMerged();
}
