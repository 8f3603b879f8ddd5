#include "WYrexPeaksDock.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexDeletePeaks.h"
#include "TCmdYrexItemStateChanged.h"
#include "TYrexHighlightHandler.h"
#include "TYrexPeaksTableModel.h"
#include "YrexPageTables.h"
#include "canvas/TDocument.h"
#include "commands/TCmdZoomSpectra.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "tables/TTableProperties.h"
#include "widgets/TBaseTable.h"
#include "widgets/TTableProxy.h"
#include "widgets/WTableTools.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTableView>
#include <QToolButton>

namespace {

constexpr double cZoomWidths = 3.0;  // of the peak, to each side
constexpr double cZoomPoints = 10.0; // at least
constexpr double cZoomShare = 0.1;   // of the axis at most: broad bands have wide feet

} // namespace

WYrexPeaksDock::WYrexPeaksDock(IPluginHost &host, TYrexHighlightHandler &highlights, QWidget *parent)
    : WYrexTableDock(QStringLiteral("yrexPeaksTable"), tr("Peaks Table"), host, parent)
    , fHighlights(highlights)
    , fModel(new TYrexPeaksTableModel(host, this))
    , fTable(new TBaseTable(QStringLiteral("Peaks"), fModel, this))
    , fAll(new QToolButton(this))
{
    fTable->setEmptyText(tr("No peaks. Pick with k, Ctrl+k or Auto Peak Picking."));
    fAll->setText(tr("All Spectra"));
    fAll->setToolTip(tr("Shows the peaks of all visible spectra of the stack, not of the active one alone."));
    fAll->setCheckable(true);
    fAll->setAutoRaise(true);
    fTable->toolRow()->addWidget(fAll);
    setContent(fTable, fTable->view());
    connect(fAll, &QToolButton::toggled, fModel, &TYrexPeaksTableModel::setAllSpectra);
    connect(fTable, &TBaseTable::rowsChosen, this, &WYrexPeaksDock::chooseRows);
    connect(fTable, &TBaseTable::rowReached, this, &WYrexPeaksDock::showPeak);
    connect(fTable, &TBaseTable::rowActivated, this, &WYrexPeaksDock::activateRow);
    connect(fTable, &TBaseTable::deleteWanted, this, &WYrexPeaksDock::deleteRows);
    connect(fTable, &TBaseTable::menuWanted, this, &WYrexPeaksDock::openMenu);
    connect(fTable, &TBaseTable::placeWanted, this, [this] {
        TTableProperties properties = fTable->tools()->shownProperties(YrexPageTables::cPeaks);
        properties.setOption(YrexPageTables::cAllSpectra, fAll->isChecked());
        placeOnPage(properties);
    });
    connect(&highlights, &TYrexHighlightHandler::changed, this, &WYrexPeaksDock::showHighlights);
    refresh();
}

void WYrexPeaksDock::read(TCanvasYrexSpectrum *item)
{
    const bool isStack = item && item->isStacked();
    fAll->setVisible(isStack);
    fModel->setAllSpectra(isStack && fAll->isChecked());
    fModel->read(item);
    showHighlights();
}

void WYrexPeaksDock::showHighlights()
{
    const TCanvasYrexSpectrum *shown = fModel->item();
    if (fIsChoosing || !shown || !isVisible())
        return;
    fTable->selectIds(fHighlights.item() == shown ? fModel->rowIdsOf(fHighlights.peaks()) : QVariantList());
}

void WYrexPeaksDock::chooseRows()
{
    const TCanvasYrexSpectrum *shown = fModel->item();
    if (!shown)
        return;
    const QScopedValueRollback<bool> choosing(fIsChoosing, true);
    fHighlights.highlightPeaks(shown->uniqueId(), fModel->activePeaks(fTable->selectedRows()));
}

/// Moves the view along x until the peak is in its middle, if it cannot be seen.
void WYrexPeaksDock::showPeak(int row)
{
    TCanvasYrexSpectrum *shown = fModel->item();
    const T1DYrexPlot *plot = shown ? shown->activeYrexPlot() : nullptr;
    if (!plot || row < 0 || row >= fModel->rowCount())
        return;
    const TRange scale = plot->horzAxis().getScale();
    const double x = fModel->position(row);
    if (x >= scale.lo() && x <= scale.hi())
        return;
    const double width = scale.hi() - scale.lo();
    push(new TCmdZoomSpectra({shown}, QRectF(x - 0.5 * width, 0.0, width, 0.0), TCmdZoomSpectra::cBox));
}

void WYrexPeaksDock::activateRow(int row)
{
    TCanvasYrexSpectrum *shown = fModel->item();
    if (!shown || row < 0 || row >= fModel->rowCount())
        return;
    const int spectrum = fModel->spectrumOf(row);
    showPeak(row);
    if (spectrum == shown->stack().current())
        return;
    push(new TCmdYrexItemStateChanged(TCmdYrexItemStateChanged::cSetActive, spectrum, {shown}));
    chooseRows();
}

void WYrexPeaksDock::zoomTo(int row)
{
    TCanvasYrexSpectrum *shown = fModel->item();
    if (!shown || !shown->activeYrexPlot() || row < 0)
        return;
    const double most = cZoomShare * shown->activeYrexPlot()->horzAxis().getFullScale().span();
    const double half = qMax(qMin(cZoomWidths * fModel->width(row), most), cZoomPoints * fModel->step(row));
    push(new TCmdZoomSpectra({shown}, QRectF(fModel->position(row) - half, 0.0, 2.0 * half, 0.0),
                             TCmdZoomSpectra::cBox));
}

void WYrexPeaksDock::deleteRows(const QVector<int> &rows)
{
    TCanvasYrexSpectrum *shown = fModel->item();
    const QSet<QUuid> peaks = fModel->activePeaks(rows);
    if (!shown || peaks.isEmpty())
        return;
    bool hasAuto = false;
    for (const int row : rows)
        hasAuto = hasAuto || (fModel->isAuto(row) && fModel->spectrumOf(row) == shown->stack().current());
    if (push(new TCmdYrexDeletePeaks({shown}, peaks)) && hasAuto)
        offerNoAutoPicking();
}

void WYrexPeaksDock::offerNoAutoPicking()
{
    IGuiHost *gui = host().gui();
    QAction *picking = gui ? gui->action(QStringLiteral("yrexAutoPeakPicking")) : nullptr;
    const TYrexProcParams &chain = spectrumItem()->currentSpectrum()->procParams();
    const int index = chain.indexOfAction(cProcAutoPeakPicking);
    if (!picking || index < 0 || !chain.isApplied(index))
        return;
    const QString text = tr("Peaks of Auto Peak Picking come back at the next run of the chain.");
    gui->statusMessage(text);
    const QUuid id = spectrumItem()->uniqueId();
    gui->showWarningBar(text, tr("Switch Auto Peak Picking Off"), [&host = host(), picking, id] {
        TCanvasItem *item = host.document() ? host.document()->item(id) : nullptr;
        if (!item)
            return;
        host.gui()->showItem(item); // another one may have been chosen since
        host.gui()->updateActions();
        if (picking->isChecked())
            picking->trigger();
    });
}

void WYrexPeaksDock::copyList()
{
    QVector<int> rows;
    const QVector<int> selected = fTable->selectedRows();
    for (int i = 0; i < fTable->proxy()->rowCount(); ++i) { // as they stand in the table
        const int row = fTable->proxy()->mapToSource(fTable->proxy()->index(i, 0)).row();
        if (selected.isEmpty() || selected.contains(row))
            rows.append(row);
    }
    QGuiApplication::clipboard()->setText(fModel->listText(rows));
}

void WYrexPeaksDock::openMenu(const QPoint &place)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const int row = fTable->currentRow();
    const QVector<int> rows = fTable->selectedRows();
    const bool hasOne = row >= 0 && rows.contains(row);
    const bool isOfActive = !fModel->activePeaks(rows).isEmpty();
    menu->addAction(tr("Annotate"), this, [this, row] { fTable->editCell(row, TYrexPeaksTableModel::cAnnotation); })
        ->setEnabled(hasOne && fModel->spectrumOf(row) == fModel->item()->stack().current());
    menu->addAction(tr("Delete"), this, [this] { deleteRows(fTable->selectedRows()); })->setEnabled(isOfActive);
    menu->addSeparator();
    menu->addAction(tr("Copy"), this, [this] { fTable->tools()->copy(false); });
    menu->addAction(tr("Copy as List"), this, &WYrexPeaksDock::copyList);
    menu->addSeparator();
    menu->addAction(tr("Zoom to Peak"), this, [this, row] { zoomTo(row); })->setEnabled(hasOne);
    menu->popup(place);
}
