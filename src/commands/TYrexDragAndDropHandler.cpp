#include "TYrexDragAndDropHandler.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexInsert.h"
#include "TCmdYrexReplace.h"
#include "TCmdZarnuInsertGroupedSpectrum.h"
#include "YrexGathering.h"
#include "canvas/TDocument.h"
#include "ui/IPlotView.h"

#include <QCoreApplication>
#include <QDragMoveEvent>
#include <cmath>

namespace {

constexpr int cMostLetters = 60; // of the name of a class in a label

QString translated(const char *text)
{
    return QCoreApplication::translate("TYrexDragAndDropHandler", text);
}

/// Modes in which each spectrum (or class) has a row of its own.
bool hasRows(const TCanvasYrexSpectrum &item)
{
    const T1DYrexPlot *plot = item.activeYrexPlot();
    if (!plot || !item.isStacked())
        return false;
    switch (plot->stackedProperties().displayMode()) {
    case stackedMode:
    case bitmapMode:
    case hiddenLinesMode:
    case groupedMode:
        return true;
    default:
        return false;
    }
}

bool isGrouped(const TCanvasYrexSpectrum &item)
{
    return hasRows(item) && item.activeYrexPlot()->isGrouped();
}

/// The spectrum of a row as it is drawn; of a class any of its members that is seen.
int indexOfDrawnRow(TCanvasYrexSpectrum &item, int row)
{
    if (!isGrouped(item))
        return TYrexStackedItemCtx(&item).indexOfRow(row);
    const QVector<QVector<int>> classes =
        item.dataObj() ? item.dataObj()->displayGroups(true) : QVector<QVector<int>>();
    return classes.value(row).value(0, item.stack().current());
}

} // namespace

TYrexDragAndDropHandler::TYrexDragAndDropHandler()
    : TDragAndDropHandler(TCanvasYrexSpectrum::cRtti)
{
}

int TYrexDragAndDropHandler::acceptItems(TCanvasItem *target, const TCanvasItemList &dragged) const
{
    const TCanvasYrexSpectrum *item = yrexItem(target);
    const TYrexSpectrum *own = item ? item->currentSpectrum() : nullptr;
    if (!own || dragged.isEmpty())
        return cNothing;
    for (ICanvasItem *entry : dragged) {
        const TCanvasYrexSpectrum *other = yrexItem(entry);
        const TYrexSpectrum *spectrum = other ? other->currentSpectrum() : nullptr;
        if (!spectrum || spectrum->xUnits() != own->xUnits())
            return cNothing;
    }
    return cInsert | cReplace;
}

void TYrexDragAndDropHandler::reset()
{
    fDropIndex = 0;
    fDropAction = cNoAction;
    TDragAndDropHandler::reset();
}

/// A class takes what is dropped on its row.
QString TYrexDragAndDropHandler::classLabel() const
{
    const TCanvasYrexSpectrum *item = fDropAction == cReplacement ? yrexItem(pointedItem()) : nullptr;
    const TYrexSpectrum *spectrum = item && isGrouped(*item) ? item->stack().at(fDropIndex) : nullptr;
    if (!spectrum)
        return QString();
    const QString name = spectrum->spectrumClass().simplified().left(cMostLetters);
    return name.isEmpty() ? translated("Insert without a class") : translated("Insert into class %1").arg(name);
}

QString TYrexDragAndDropHandler::highlightText() const
{
    QString intoClass = classLabel();
    if (!intoClass.isEmpty())
        return intoClass;
    return fDropAction == cReplacement ? translated("Replace") : translated("Insert");
}

QString TYrexDragAndDropHandler::label() const
{
    QString intoClass = classLabel();
    if (!intoClass.isEmpty())
        return highlights().isEmpty() ? QString() : intoClass;
    const QString text = fDropAction == cReplacement ? translated("Replace spectrum %1")
                         : fIsAbove                  ? translated("Insert above spectrum %1")
                                                     : translated("Insert below spectrum %1");
    return highlights().isEmpty() ? QString() : text.arg(fPointedIndex + 1);
}

QRectF TYrexDragAndDropHandler::rowRect(const TCanvasYrexSpectrum &item, int row) const
{
    const auto *plotter = static_cast<const T1DYrexPlotter *>(item.activePlotter());
    const QRectF rect = hasRows(item) ? plotter->getArrayedCurveRect(row) : plotter->getPlotCurvesRect();
    return view()->itemToView(item).mapRect(rect).normalized();
}

/// The row under the mouse, else the nearest.
int TYrexDragAndDropHandler::rowAt(const TCanvasYrexSpectrum &item, const QPointF &viewPos) const
{
    const int rows = static_cast<const T1DYrexPlotter *>(item.activePlotter())->rowCount();
    int found = 0;
    double nearest = -1.0;
    for (int row = 0; row < rows; ++row) {
        const QRectF rect = rowRect(item, row);
        const double distance = qMax(0.0, std::fabs(viewPos.y() - rect.center().y()) - rect.height() / 2);
        if (nearest < 0.0 || distance < nearest) {
            nearest = distance;
            found = row;
        }
    }
    return found;
}

/// Chooses what a drop does and where its band stands.
void TYrexDragAndDropHandler::aim(TCanvasYrexSpectrum &item, const QPointF &viewPos)
{
    const bool isRows = hasRows(item);
    const int row = isRows ? rowAt(item, viewPos) : 0;
    const int rows = isRows ? static_cast<const T1DYrexPlotter *>(item.activePlotter())->rowCount() : 1;
    int index = 0;
    if (item.isStacked())
        index = isRows ? indexOfDrawnRow(item, row) : item.stack().current();
    QRectF rect = rowRect(item, row);
    double third = rect.height() / 3;
    double upper = rect.top() + third;
    double lower = rect.top() + 2 * third;
    if (item.stack().count() == 1) {
        upper = lower = rect.center().y();
        third = rect.height();
    }
    fPointedIndex = index;
    fDropIndex = index;
    fIsAbove = viewPos.y() <= upper;
    fDropAction = fIsAbove || viewPos.y() >= lower ? cInsertion : cReplacement;
    if (fIsAbove) {
        ++fDropIndex;
        double edge = rect.top();
        if (row + 1 < rows) { // the border of the two rows
            rect = rowRect(item, row + 1);
            edge = rect.bottom();
        }
        rect.setHeight(third);
        rect.moveCenter(QPointF(rect.center().x(), edge));
    } else if (fDropAction == cInsertion) {
        const double edge = rect.bottom();
        rect.setHeight(third);
        rect.moveCenter(QPointF(rect.center().x(), edge));
    }
    if (!rect.isEmpty() && !highlights().contains(rect))
        setHighlights({rect});
}

void TYrexDragAndDropHandler::dragMoveEvent(QDragMoveEvent *event)
{
    event->ignore();
    if (!isItemDrag(event->mimeData()))
        return;
    TCanvasYrexSpectrum *item = yrexItem(itemAt(event->pos()));
    TCanvasItemList dragged = draggedItems(event->mimeData());
    dragged.removeAll(item); // a page that is dragged over its own plot
    reset();
    if (!item || dragged.isEmpty() || !item->activeYrexPlot())
        return;
    setPointedItem(item);
    if (!(acceptItems(item, dragged) & (cInsert | cReplace))) {
        refuse(translated("Horizontal units differ."));
        return;
    }
    aim(*item, event->pos());
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

TYrexInsertionCommand *TYrexDragAndDropHandler::command(TCanvasYrexSpectrum *item,
                                                        const TYrexSpectrumList &clones) const
{
    const int mode = item->activeYrexPlot()->stackedProperties().displayMode();
    if (fDropAction == cInsertion) {
        auto *insertion = new TCmdYrexInsert(item, clones, fDropIndex, item->isStacked() ? mode : int(stackedMode));
        insertion->setShownAbove(fIsAbove);
        return insertion;
    }
    const TYrexSpectrum *pointed = item->stack().at(fDropIndex);
    if (item->isStacked() && mode == groupedMode)
        return new TCmdZarnuInsertGroupedSpectrum(item, clones, pointed ? pointed->spectrumClass() : QString());
    return new TCmdYrexReplace(item, clones, fDropIndex);
}

void TYrexDragAndDropHandler::dropEvent(QDropEvent *event)
{
    event->ignore();
    TCanvasItem *pointed = isItemDrag(event->mimeData()) ? pointedItem() : nullptr;
    TCanvasYrexSpectrum *item = document() && pointed ? yrexItem(document()->item(pointed->uniqueId())) : nullptr;
    TYrexSpectrumList clones;
    TCanvasItemList dragged = draggedItems(event->mimeData());
    dragged.removeAll(item);
    for (ICanvasItem *entry : dragged) {
        const TCanvasYrexSpectrum *source = yrexItem(entry);
        if (source && item && fDropAction != cNoAction)
            clones += YrexGathering::copiesOf(*source);
    }
    TYrexInsertionCommand *insertion = item && !clones.isEmpty() ? command(item, clones) : nullptr;
    if (insertion)
        insertion->setSources(dragged);
    if (insertion && view()->history().push(insertion)) {
        view()->selectItem(item, false);
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
    reset();
}
