#include "TTitleController.h"

#include "TActionTable.h"
#include "TDocumentController.h"
#include "WDocumentView.h"
#include "WTitleEditor.h"
#include "canvas/TCanvasSpectrum.h"
#include "canvas/TDocument.h"
#include "commands/TCmdEditTitle.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/T1DStackedPlot.h"

namespace {

constexpr double cTitleHeight = 48.0; // canvas units, where no title is drawn

int activeIndex(TCanvasSpectrum &item)
{
    const IStackedItemCtx *stack = item.stackedContext();
    return stack ? qMax(0, stack->activeIndex()) : 0;
}

/// The title of a row of a class is the class' name.
bool isClassName(const TMouseSpot &spot)
{
    const auto *plot = dynamic_cast<const T1DStackedPlot *>(spot.plot);
    const IStackedItemCtx *stack = spot.item->stackedContext();
    return plot && plot->isGrouped() && stack && !stack->className(spot.area.index()).isEmpty();
}

} // namespace

TTitleController::TTitleController(TActionTable &actions, TDocumentController &documents, QObject *parent)
    : QObject(parent)
    , fSelection(documents)
{
    actions.on(
        "editTitle", [this] { editActive(); }, [this] { return whyNot(); });
    connect(&documents, &TDocumentController::viewAdded, this, [this](WDocumentView *view) {
        connect(view, &WDocumentView::doubleClicked, this, [this, view](const TMouseSpot &spot) {
            if (!spot.onTitle || !spot.spectrum)
                return;
            if (spot.area.type() != TPlotHotArea::stackedTitle)
                edit(view, spot.spectrum, activeIndex(*spot.spectrum), spot.plot->titleRect());
            else if (!isClassName(spot))
                edit(view, spot.spectrum, spot.area.index(), spot.area.rect());
        });
    });
}

QString TTitleController::whyNot() const
{
    TCanvasSpectrum *item = fSelection.first();
    const bool canEdit = item && !item->titleToEdit(activeIndex(*item)).isNull();
    return canEdit ? QString() : tr("Needs a selected plot with a title.");
}

void TTitleController::editActive()
{
    WDocumentView *view = fSelection.documents().view();
    TCanvasSpectrum *item = fSelection.first();
    if (!view || !item)
        return;
    const int active = activeIndex(*item);
    const auto *plot = dynamic_cast<const T1DStackedPlot *>(item->activePlot());
    QRectF rect = item->activePlot()->titleRect();
    if (plot && plot->isArrayed() && rect.isEmpty())
        rect = plot->stackedLabelRects().value(active);
    if (rect.isEmpty())
        rect = QRectF(0.0, 0.0, item->rect().width(), cTitleHeight);
    edit(view, item, active, rect);
}

void TTitleController::edit(WDocumentView *view, TCanvasSpectrum *item, int spectrum, const QRectF &rect)
{
    const QString text = item->titleToEdit(spectrum);
    if (text.isNull())
        return;
    auto *editor = new WTitleEditor(text, *view);
    const TSecurePtr<TCanvasSpectrum> edited(item);
    connect(editor, &WTitleEditor::edited, this, [view, edited, spectrum](const QString &title) {
        if (TCanvasSpectrum *still = edited.get())
            view->history().push(new TCmdEditTitle(still, spectrum, title.trimmed()));
    });
    editor->showOver(view->itemToView(*item).mapRect(rect));
}
