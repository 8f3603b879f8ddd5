#include "WYrexParamsDock.h"

#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexEditParameterTemplates.h"
#include "TSpectrumParamsDelegate.h"
#include "TSpectrumParamsTableModel.h"
#include "TYrexParamsParsers.h"
#include "WYrexParamTemplatesDialog.h"
#include "YrexPageTables.h"
#include "canvas/TPage.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"
#include "tables/TTableProperties.h"
#include "widgets/TBaseTable.h"
#include "widgets/TTableProxy.h"
#include "widgets/WTableTools.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QTableView>
#include <QToolButton>

namespace {

constexpr int cRowMargin = 6; // px

} // namespace

WYrexParamsDock::WYrexParamsDock(IPluginHost &host, QWidget *parent)
    : WYrexTableDock(QStringLiteral("parametersTable"), tr("Parameters"), host, parent)
    , fModel(new TSpectrumParamsTableModel(host, this))
    , fTable(new TBaseTable(QStringLiteral("Parameters"), fModel, this))
{
    fTable->setEmptyText(tr("No parameters."));
    fTable->view()->setItemDelegate(new TSpectrumParamsDelegate(fTable->view()));
    fTable->view()->setAlternatingRowColors(false); // headings divide it
    fTable->view()->setShowGrid(false);
    fTable->view()->setAccessibleName(tr("Parameters"));
    fTable->view()->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + cRowMargin);
    makeTools();
    setContent(fTable, fTable->view());
    connect(fTable, &TBaseTable::cellClicked, this,
            [this](const QModelIndex &place) { fModel->toggleGroup(place.row()); });
    connect(fTable, &TBaseTable::rowActivated, fModel, &TSpectrumParamsTableModel::toggleGroup);
    connect(fTable->view(), &QTableView::doubleClicked, this, [this](const QModelIndex &place) {
        if (place.column() == TSpectrumParamsTableModel::cParameter) // the name stands for its value
            fTable->editCell(fTable->currentRow(), TSpectrumParamsTableModel::cFirstValue);
    });
    connect(fTable, &TBaseTable::deleteWanted, fModel, &TSpectrumParamsTableModel::clear);
    connect(fTable, &TBaseTable::menuWanted, this, &WYrexParamsDock::openMenu);
    connect(fTable, &TBaseTable::placeWanted, this, &WYrexParamsDock::placeRows);
    refresh();
}

/// The selected rows, or all that are seen and say something.
void WYrexParamsDock::placeRows()
{
    QVector<int> chosen = fModel->idsOf(fTable->selectedRows());
    if (chosen.isEmpty()) {
        QVector<int> rows;
        for (int row = 0; row < fTable->proxy()->rowCount(); ++row) {
            const QModelIndex value = fTable->proxy()->index(row, TSpectrumParamsTableModel::cFirstValue);
            if (!value.data().toString().isEmpty())
                rows.append(fTable->proxy()->mapToSource(value).row());
        }
        chosen = fModel->idsOf(rows);
    }
    QVariantList ids;
    for (const int id : qAsConst(chosen))
        ids.append(id);
    TTableProperties properties(YrexPageTables::cParameters);
    properties.setDecimals(fTable->tools()->shownProperties(YrexPageTables::cParameters).decimals());
    properties.setOption(YrexPageTables::cIds, ids);
    placeOnPage(properties);
}

QToolButton *WYrexParamsDock::addTool(const QString &text, const QString &tip, bool isCheckable)
{
    auto *tool = new QToolButton(this);
    tool->setText(text);
    tool->setToolTip(tip);
    tool->setCheckable(isCheckable);
    tool->setAutoRaise(true);
    fTable->toolRow()->addWidget(tool);
    return tool;
}

void WYrexParamsDock::makeTools()
{
    QToolButton *all = addTool(tr("All"), tr("Shows hidden parameters as well, and those without a value."), true);
    connect(all, &QToolButton::toggled, fModel, &TSpectrumParamsTableModel::setAll);
    fCompare = addTool(tr("Compare"), tr("Shows a column for each spectrum in use; rows that differ are bold."), true);
    connect(fCompare, &QToolButton::toggled, this, &WYrexParamsDock::refresh);
    fTemplates = addTool(tr("Template..."), tr("Which parameters are read from files of this format, and how."), false);
    connect(fTemplates, &QToolButton::clicked, this, &WYrexParamsDock::editTemplates);
}

QString WYrexParamsDock::remark() const
{
    const TCanvasYrexSpectrum *shown = spectrumItem();
    const int used = shown ? shown->stack().selectedIndices(false, true).size() : 0;
    if (used > TSpectrumParamsTableModel::cMostCompared && fCompare->isChecked())
        return tr("the first %1 of %2 spectra").arg(TSpectrumParamsTableModel::cMostCompared).arg(used);
    return used > 1 ? tr("%1 spectra").arg(used) : QString();
}

/// Which spectra are in use is no step of the history, so nobody else tells.
void WYrexParamsDock::watchSelection(const TCanvasYrexSpectrum *item)
{
    TPage *page = item ? item->canvas() : nullptr;
    if (page == fPage)
        return;
    if (fPage)
        fPage->disconnect(this);
    fPage = page;
    if (page)
        connect(page, &TPage::changed, this, [this](TCanvasItem *changed) {
            if (changed && changed == fModel->item() && fModel->isStale())
                refresh();
        });
}

void WYrexParamsDock::read(TCanvasYrexSpectrum *item)
{
    watchSelection(item);
    const bool hasSeveral = item && item->stack().selectedIndices(false, true).size() > 1;
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    fCompare->setVisible(item && item->isStacked());
    fCompare->setEnabled(hasSeveral);
    fTemplates->setEnabled(spectrum && yrexParamsParsers().value(spectrum->fileFormat()));
    fModel->setComparing(hasSeveral && fCompare->isChecked());
    fModel->read(item);
}

void WYrexParamsDock::editTemplates()
{
    TCanvasYrexSpectrum *shown = fModel->item();
    const TYrexSpectrum *spectrum = shown ? shown->currentSpectrum() : nullptr;
    if (!spectrum || !yrexParamsParsers().value(spectrum->fileFormat()))
        return;
    WYrexParamTemplatesDialog dialog(*spectrum, this);
    if (dialog.exec() == QDialog::Accepted && dialog.isChanged() && fModel->item())
        push(new TCmdYrexEditParameterTemplates({fModel->item()}, dialog.templates()));
}

void WYrexParamsDock::openMenu(const QPoint &place)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const int row = fTable->currentRow();
    const bool isEditable =
        row >= 0 && fModel->flags(fModel->index(row, TSpectrumParamsTableModel::cFirstValue)) & Qt::ItemIsEditable;
    menu->addAction(tr("Edit"), this, [this, row] { fTable->editCell(row, TSpectrumParamsTableModel::cFirstValue); })
        ->setEnabled(isEditable);
    menu->addAction(tr("Clear"), this, [this] { fModel->clear(fTable->selectedRows()); })->setEnabled(isEditable);
    menu->addSeparator();
    menu->addAction(tr("Copy"), this, [this] { fTable->tools()->copy(false); });
    menu->addAction(tr("Copy with All Digits"), this, [this] { fTable->tools()->copy(true); });
    menu->addSeparator();
    menu->addAction(tr("Place on Page"), this, &WYrexParamsDock::placeRows);
    menu->addSeparator();
    menu->addAction(tr("Unfold All"), this, [this] { fModel->setAllFolded(false); });
    menu->addAction(tr("Fold All"), this, [this] { fModel->setAllFolded(true); });
    menu->popup(place);
}
