#include "WStackedSpectraDock.h"

#include "TDocumentController.h"
#include "WDocumentView.h"
#include "canvas/TCanvasItem.h"
#include "contexts/IStackedItemCtx.h"
#include "services/TKelmoraHost.h"
#include "tables/HostTables.h"
#include "tables/TTableProperties.h"
#include "tables/TablePlacing.h"
#include "widgets/TStackedItemsTableModel.h"
#include "widgets/WStackedItemsTable.h"
#include "widgets/WTableTools.h"

#include <QKeyEvent>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

namespace {

constexpr int cMargin = 6;

} // namespace

WStackedSpectraDock::WStackedSpectraDock(TKelmoraHost &host, TDocumentController &documents, QWidget *parent)
    : WPluginDockWidget("ZarnuStackedSpectraTable", tr("Stacked Spectra"), parent)
    , fDocuments(documents)
    , fEdits(host)
    , fHeader(new QLabel(this))
    , fNothing(new QLabel(tr("No spectrum is active."), this))
    , fTable(new WStackedItemsTable(this))
{
    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(cMargin, cMargin, cMargin, cMargin);
    column->setSpacing(cMargin);
    column->addWidget(fHeader);
    column->addWidget(fNothing, 1);
    column->addWidget(fTable, 1);
    fHeader->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    fNothing->setAlignment(Qt::AlignCenter);
    fNothing->setEnabled(false); // the grey of disabled things
    setWidget(page);
    page->setFocusProxy(fTable->view());
    fTable->model()->setEdits(&fEdits);
    host.tables()->add(HostTables::cStack,
                       [&host](const TTableProperties &properties, TCanvasItem *shown, TTableContent &content) {
                           TStackEdits facts(host);
                           return HostTables::readStack(properties, shown, &facts, content);
                       });
    fTable->tools()->offerPlacing([this] { placeOnPage(); });
    connect(fTable->model(), &QAbstractItemModel::dataChanged, this, &WStackedSpectraDock::showHeader);
    connect(fTable->model(), &QAbstractItemModel::modelReset, this, &WStackedSpectraDock::showHeader);
    connect(&documents, &TDocumentController::contentChanged, this, &WStackedSpectraDock::showHeader);
    connect(&documents, &TDocumentController::documentShown, this, &WStackedSpectraDock::refresh);
    refresh();
}

void WStackedSpectraDock::placeOnPage()
{
    if (!fDocuments.document())
        return;
    TTableProperties properties = fTable->tools()->shownProperties(HostTables::cStack);
    QStringList columns = properties.columns();
    for (const int column :
         {TStackedItemsTableModel::cShow, TStackedItemsTableModel::cUse}) // they only are to be clicked
        columns.removeAll(QString::number(column));
    properties.setColumns(columns);
    TablePlacing::place(fTable->model()->item(), properties, fDocuments.document()->history());
}

void WStackedSpectraDock::refresh()
{
    TCanvasItem *shown = item() && item()->stackedContext() ? item() : nullptr;
    // the item is one of the document that is shown
    fTable->model()->setHistory(fDocuments.document() ? &fDocuments.document()->history() : nullptr);
    fTable->model()->setItem(shown);
    fTable->model()->refresh();
    showHeader();
}

void WStackedSpectraDock::showHeader()
{
    const TCanvasItem *shown = fTable->model()->item();
    IStackedItemCtx *stack = shown ? fTable->model()->item()->stackedContext() : nullptr;
    fNothing->setVisible(!stack);
    fTable->setVisible(stack != nullptr);
    fHeader->setVisible(stack != nullptr);
    if (!stack)
        return;
    const QString active = stack->title(stack->activeIndex());
    const QString name = shown->title(true).section('\n', 0, 0).trimmed(); // a line, however many spectra there are
    fHeader->setText(name.isEmpty() || name == active ? active : tr("%1: %2").arg(name, active));
}

void WStackedSpectraDock::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && fDocuments.view())
        fDocuments.view()->setFocus();
    else
        WPluginDockWidget::keyPressEvent(event);
}
