#include "WYrexIntegralsDock.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexDeleteIntegrals.h"
#include "TCmdYrexEditIntegralsNormalization.h"
#include "TYrexHighlightHandler.h"
#include "TYrexIntegralsSpectraModel.h"
#include "TYrexIntegralsTableModel.h"
#include "YrexPageTables.h"
#include "commands/TCmdEditRegions.h"
#include "commands/TCmdZoomSpectra.h"
#include "contexts/DARegions.h"
#include "contexts/IDARegionsItem.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "tables/TTableProperties.h"
#include "utils/CommonUtils.h"
#include "widgets/TBaseTable.h"
#include "widgets/TDoubleSpinBox.h"
#include "widgets/WTableTools.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace {

constexpr double cMostNormalization = 1e12;
constexpr int cNormalizationDecimals = 6;
constexpr double cFirstTotal = 100.0;
constexpr int cLabelRest = 3;        // px: a mnemonic makes the last letter stand out of the width of the text
constexpr int cBoxWidth = 120;       // px
constexpr double cZoomMargin = 0.25; // of the integral, to each side
constexpr double cSameLimit = 1e-9;  // relative

bool isSameLimit(double a, double b)
{
    return std::abs(a - b) <= cSameLimit * std::max(std::abs(a), std::abs(b));
}

} // namespace

WYrexIntegralsDock::WYrexIntegralsDock(IPluginHost &host, TYrexHighlightHandler &highlights, QWidget *parent)
    : WYrexTableDock(QStringLiteral("yrexIntegralsTable"), tr("Integrals Table"), host, parent)
    , fHighlights(highlights)
    , fModel(new TYrexIntegralsTableModel(host, this))
    , fSpectra(new TYrexIntegralsSpectraModel(this))
    , fTable(new TBaseTable(QStringLiteral("Integrals"), fModel, this))
    , fSpectraTable(new TBaseTable(QStringLiteral("IntegralsOfSpectra"), fSpectra, this))
    , fViews(new QStackedWidget(this))
    , fNormalization(new TDoubleSpinBox(this))
    , fTotal(new TDoubleSpinBox(this))
    , fSetTotal(new QToolButton(this))
    , fByRegions(new QRadioButton(tr("&Regions"), this))
    , fBySpectra(new QRadioButton(tr("&Spectra x Regions"), this))
    , fRatio(new QToolButton(this))
    , fOver(new QComboBox(this))
    , fUnder(new QComboBox(this))
    , fPlot(new QToolButton(this))
    , fNormalizationRun(host)
{
    const QString empty = tr("No integrals. Press i and drag over a band.");
    fTable->setEmptyText(empty);
    fSpectraTable->setEmptyText(empty);
    fViews->addWidget(fTable);
    fViews->addWidget(fSpectraTable);
    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(makeTop());
    column->addWidget(fViews, 1);
    makeRatio();
    setContent(content, fTable->view());
    connectTable();
    connectTop();
    refresh();
}

QWidget *WYrexIntegralsDock::makeTop()
{
    auto *top = new QWidget(this);
    auto *row = new QHBoxLayout(top);
    row->setContentsMargins(0, 0, 0, 0);
    const auto labelled = [row, top](const QString &text, TDoubleSpinBox *box) {
        auto *label = new QLabel(text, top);
        label->setBuddy(box);
        label->setContentsMargins(0, 0, cLabelRest, 0);
        row->addWidget(label);
        row->addWidget(box);
        box->setAccessibleName(QString(text).remove('&'));
        box->setDecimals(cNormalizationDecimals);
        box->setRange(0.0, cMostNormalization);
        box->setKeyboardTracking(false);
        box->setLogSteps(true);
        box->setFixedWidth(cBoxWidth); // its range would make it wider than any value
    };
    fNormalization->setObjectName(QStringLiteral("normalizationSpinBox"));
    fNormalization->setToolTip(tr("Areas over this value are the integrals. Above 0; 1 to begin with."));
    labelled(tr("&Normalization"), fNormalization);
    fTotal->setObjectName(QStringLiteral("totalSpinBox"));
    fTotal->setToolTip(tr("What the integrals are to add up to. Above 0; 100 to begin with."));
    labelled(tr("&Total"), fTotal);
    fTotal->setValue(cFirstTotal);
    fSetTotal->setText(tr("Set"));
    fSetTotal->setToolTip(tr("Chooses the normalization so that the integrals add up to the total."));
    row->addWidget(fSetTotal);
    row->addStretch();
    row->addWidget(fByRegions);
    row->addWidget(fBySpectra);
    fByRegions->setChecked(true);
    fByRegions->setToolTip(tr("The integrals of the active spectrum."));
    fBySpectra->setToolTip(tr("A row for each visible spectrum, a column for each region of the active one."));
    return top;
}

void WYrexIntegralsDock::makeRatio()
{
    fRatio->setText(tr("Ratio"));
    fRatio->setCheckable(true);
    fRatio->setAutoRaise(true);
    fRatio->setToolTip(tr("Adds a column with the ratio of two regions."));
    fOver->setToolTip(tr("The region above the line."));
    fOver->setAccessibleName(tr("Region above the line"));
    fUnder->setToolTip(tr("The region below the line."));
    fUnder->setAccessibleName(tr("Region below the line"));
    for (QWidget *tool :
         {static_cast<QWidget *>(fRatio), static_cast<QWidget *>(fOver), static_cast<QWidget *>(fUnder)})
        fSpectraTable->toolRow()->addWidget(tool);
    fOver->hide();
    fUnder->hide();
    fPlot->setText(tr("Plot"));
    fPlot->setAutoRaise(true);
    fPlot->setToolTip(tr("Makes a region for data analysis of each integral and shows their values as a chart."));
    fSpectraTable->toolRow()->addWidget(fPlot);
    connect(fPlot, &QToolButton::clicked, this, &WYrexIntegralsDock::plotRegions);
    connect(fRatio, &QToolButton::toggled, this, &WYrexIntegralsDock::followRatio);
    for (QComboBox *box : {fOver, fUnder})
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &WYrexIntegralsDock::followRatio);
}

void WYrexIntegralsDock::connectTable()
{
    connect(fTable, &TBaseTable::rowsChosen, this, &WYrexIntegralsDock::chooseRows);
    connect(fTable, &TBaseTable::deleteWanted, this, &WYrexIntegralsDock::deleteRows);
    connect(fTable, &TBaseTable::menuWanted, this, &WYrexIntegralsDock::openMenu);
    connect(fTable, &TBaseTable::cellClicked, this, [this](const QModelIndex &place) {
        if (place.column() == TYrexIntegralsTableModel::cReference && !fModel->makeReference(place.row()) &&
            !place.data(TBaseTableViewModel::cRadioRole).toBool())
            fTable->refuse(place, tr("An integral without area cannot be the reference."));
    });
    connect(&fHighlights, &TYrexHighlightHandler::changed, this, &WYrexIntegralsDock::showHighlights);
    connect(fTable, &TBaseTable::placeWanted, this,
            [this] { placeOnPage(fTable->tools()->shownProperties(YrexPageTables::cIntegrals)); });
    connect(fSpectraTable, &TBaseTable::placeWanted, this, [this] {
        TTableProperties properties = fSpectraTable->tools()->shownProperties(YrexPageTables::cIntegralsOfSpectra);
        properties.setOption(YrexPageTables::cOver, fRatio->isChecked() ? fOver->currentIndex() : -1);
        properties.setOption(YrexPageTables::cUnder, fRatio->isChecked() ? fUnder->currentIndex() : -1);
        placeOnPage(properties);
    });
}

void WYrexIntegralsDock::connectTop()
{
    connect(fNormalization, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &WYrexIntegralsDock::setNormalization);
    connect(fSetTotal, &QToolButton::clicked, this, &WYrexIntegralsDock::setTotal);
    connect(fBySpectra, &QRadioButton::toggled, this, [this](bool isOn) {
        fViews->setCurrentWidget(isOn ? fSpectraTable : fTable);
        widget()->setFocusProxy(isOn ? fSpectraTable->view() : fTable->view());
    });
}

QString WYrexIntegralsDock::remark() const
{
    const TCanvasYrexSpectrum *shown = spectrumItem();
    return shown && shown->isStacked() ? tr("%1 spectra").arg(shown->stack().count()) : QString();
}

void WYrexIntegralsDock::read(TCanvasYrexSpectrum *item)
{
    if (item != fModel->item())
        fNormalizationRun.end();
    fModel->read(item);
    fSpectra->read(item);
    const bool hasRows = fModel->rowCount() > 0;
    for (QWidget *control :
         {static_cast<QWidget *>(fNormalization), static_cast<QWidget *>(fTotal), static_cast<QWidget *>(fSetTotal)})
        control->setEnabled(hasRows);
    const QSignalBlocker quiet(fNormalization);
    fNormalization->setValue(fModel->normValue());
    for (QComboBox *box : {fOver, fUnder}) {
        const QSignalBlocker blocker(box);
        const int before = box->count() >= 2 ? box->currentIndex() : -1;
        box->clear();
        box->addItems(fSpectra->regionNames());
        const int first = box == fOver ? 0 : qMin(1, box->count() - 1);
        box->setCurrentIndex(before >= 0 && before < box->count() ? before : first);
    }
    fRatio->setEnabled(fOver->count() >= 2);
    fPlot->setEnabled(hasRows);
    followRatio();
    showHighlights();
}

void WYrexIntegralsDock::followRatio()
{
    const bool isOn = fRatio->isChecked() && fOver->count() >= 2;
    fOver->setVisible(isOn);
    fUnder->setVisible(isOn);
    fSpectra->setRatio(isOn ? fOver->currentIndex() : -1, isOn ? fUnder->currentIndex() : -1);
}

/// Integrals and regions are lists of their own: what is a region already stays as it is.
void WYrexIntegralsDock::plotRegions()
{
    TCanvasYrexSpectrum *shown = fModel->item();
    IDARegionsItem *keeper = shown ? shown->regionsItem() : nullptr;
    if (!keeper || !host().gui())
        return;
    QVector<TDARegion> regions = keeper->daRegions();
    for (int row = 0; row < fModel->rowCount(); ++row) {
        TDARegion region;
        region.kind = TDARegion::cSum;
        const double first = keeper->toRegionLimit(fModel->from(row));
        const double last = keeper->toRegionLimit(fModel->to(row));
        region.from = std::min(first, last);
        region.to = std::max(first, last);
        const bool isThere = std::any_of(regions.begin(), regions.end(), [&region](const TDARegion &one) {
            return one.kind == region.kind && isSameLimit(one.from, region.from) && isSameLimit(one.to, region.to);
        });
        if (isThere || !std::isfinite(region.from) || !std::isfinite(region.to))
            continue;
        region.id = Utils::Common::createUuid();
        region.name = DARegions::nextName(regions);
        region.color = DARegions::nextColor(regions);
        regions.append(region);
    }
    push(new TCmdEditRegions(shown, regions));
    host().gui()->showDock(QStringLiteral("regionValues"), true);
}

void WYrexIntegralsDock::showHighlights()
{
    const TCanvasYrexSpectrum *shown = fModel->item();
    if (fIsChoosing || !shown || !isVisible())
        return;
    fTable->selectIds(fHighlights.item() == shown ? fModel->rowIdsOf(fHighlights.integrals()) : QVariantList());
}

void WYrexIntegralsDock::chooseRows()
{
    const TCanvasYrexSpectrum *shown = fModel->item();
    if (!shown)
        return;
    const QScopedValueRollback<bool> choosing(fIsChoosing, true);
    fHighlights.highlightIntegrals(shown->uniqueId(), fModel->idsOf(fTable->selectedRows()));
}

/// 0 is refused: the box goes back to the value that counts.
void WYrexIntegralsDock::setNormalization(double value)
{
    if (fModel->item() && value > 0.0) {
        fNormalizationRun.goOn();
        push(new TCmdYrexEditIntegralsNormalization({fModel->item()}, value));
    }
    const QSignalBlocker quiet(fNormalization);
    fNormalization->setValue(fModel->normValue());
}

void WYrexIntegralsDock::setTotal()
{
    const double areas = fModel->total() * fModel->normValue();
    fNormalizationRun.end();
    if (fModel->item() && fTotal->value() > 0.0 && areas > 0.0)
        push(new TCmdYrexEditIntegralsNormalization({fModel->item()}, areas / fTotal->value()));
}

void WYrexIntegralsDock::zoomTo(int row)
{
    const double low = qMin(fModel->from(row), fModel->to(row));
    const double width = qAbs(fModel->to(row) - fModel->from(row));
    push(new TCmdZoomSpectra({fModel->item()},
                             QRectF(low - cZoomMargin * width, 0.0, (1.0 + 2.0 * cZoomMargin) * width, 0.0),
                             TCmdZoomSpectra::cBox));
}

void WYrexIntegralsDock::deleteRows(const QVector<int> &rows)
{
    if (fModel->item() && !rows.isEmpty())
        push(new TCmdYrexDeleteIntegrals({fModel->item()}, fModel->placesOf(rows)));
}

void WYrexIntegralsDock::openMenu(const QPoint &place)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const int row = fTable->currentRow();
    const bool hasOne = row >= 0 && fTable->selectedRows().contains(row);
    menu->addAction(tr("Delete"), this, [this] { deleteRows(fTable->selectedRows()); })->setEnabled(hasOne);
    QAction *dialog = host().gui() ? host().gui()->action(QStringLiteral("yrexEditIntegral")) : nullptr;
    menu->addAction(tr("Edit..."), this,
                    [this, dialog, row] {
                        if (dialog && dialog->isEnabled())
                            dialog->trigger(); // of the one that is highlighted
                        else
                            fTable->editCell(row, TYrexIntegralsTableModel::cFrom);
                    })
        ->setEnabled(hasOne);
    menu->addAction(tr("Copy"), this, [this] { fTable->tools()->copy(false); });
    menu->addSeparator();
    menu->addAction(tr("Zoom to Integral"), this, [this, row] { zoomTo(row); })->setEnabled(hasOne);
    menu->addSeparator();
    menu->addAction(tr("Delete All"), this, [this] { push(new TCmdYrexDeleteIntegrals({fModel->item()})); });
    menu->popup(place);
}
