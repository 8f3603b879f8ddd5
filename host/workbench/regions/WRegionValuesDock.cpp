#include "WRegionValuesDock.h"

#include "TDocumentController.h"
#include "TRegionsModel.h"
#include "WDocumentView.h"
#include "WRegionChart.h"
#include "canvas/TCanvasSpectrum.h"
#include "commands/TCmdEditRegions.h"
#include "commands/TCommandHistory.h"
#include "contexts/IDARegionsItem.h"
#include "numerics/LinearFit.h"
#include "plot/TTypesetter.h"
#include "settings/TNumberFormat.h"
#include "tables/HostTables.h"
#include "tables/TRegionValuesModel.h"
#include "tables/TTableProperties.h"
#include "tables/TablePlacing.h"
#include "widgets/TOwnKeys.h"
#include "widgets/TTableProxy.h"
#include "widgets/WTableTools.h"

#include <QColorDialog>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace {

constexpr int cMargin = 6;
constexpr int cRowRoom = 8; // px above and below the text of a row
constexpr int cDigits = 5;
// px at first
constexpr int cRegionsWidth = 320;
constexpr int cValuesWidth = 420;
constexpr int cChartWidth = 420;

/// Offers the kinds of regions.
class TKindDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        auto *box = new QComboBox(parent);
        for (const int kind : {TDARegion::cSum, TDARegion::cHighestPeak})
            box->addItem(TRegionsModel::kindName(kind), kind);
        return box;
    }
    void setEditorData(QWidget *editor, const QModelIndex &place) const override
    {
        auto *box = static_cast<QComboBox *>(editor);
        box->setCurrentIndex(box->findData(place.data(Qt::EditRole)));
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &place) const override
    {
        model->setData(place, static_cast<QComboBox *>(editor)->currentData(), Qt::EditRole);
    }
};

} // namespace

WRegionValuesDock::WRegionValuesDock(TDocumentController &documents, QWidget *parent)
    : WPluginDockWidget("regionValues", tr("Region Values"), parent)
    , fDocuments(documents)
    , fModel(new TRegionValuesModel(this))
    , fProxy(new TTableProxy(this))
    , fRegions(new TRegionsModel(this))
    , fEmpty(new QLabel(tr("Press R and drag over a band of a stack."), this))
    , fBody(new QWidget(this))
    , fX(new QComboBox(fBody))
    , fLine(new QComboBox(fBody))
    , fDivisor(new QComboBox(fBody))
    , fRegionsView(new QTableView(fBody))
    , fView(new QTableView(fBody))
    , fTools(new WTableTools(fView, fProxy, fBody))
    , fChart(new WRegionChart(fBody))
    , fFacts(new QLabel(fBody))
{
    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(cMargin, cMargin, cMargin, cMargin);
    column->addWidget(fEmpty, 1);
    column->addWidget(fBody, 1);
    fEmpty->setAlignment(Qt::AlignCenter);
    fEmpty->setEnabled(false); // the grey of disabled things
    makeToolRow();
    makeRegions();
    makeTable();
    makeKeys();
    connectHover();
    setWidget(page);
    page->setFocusProxy(fView);
    connect(&documents, &TDocumentController::documentShown, this, &WRegionValuesDock::refresh);
    refresh();
}

void WRegionValuesDock::makeToolRow()
{
    auto *row = new QHBoxLayout;
    const auto add = [this, row](const QString &text, QComboBox *box, const QString &name, const QString &tip) {
        auto *label = new QLabel(text, fBody);
        label->setBuddy(box);
        box->setObjectName(name);
        box->setToolTip(tip);
        box->setAccessibleName(tip);
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        row->addWidget(label);
        row->addWidget(box);
    };
    add(tr("x"), fX, "x", tr("What stands on the horizontal axis of the chart."));
    add(QString(), fLine, "line", tr("The line through the points of the chart."));
    add(tr("Divide by"), fDivisor, "divisor", tr("The region by whose values the others are divided."));
    fLine->addItem(tr("No Line"), cNoLine);
    fLine->addItem(tr("Straight Line"), cStraightLine);
    fLine->addItem(tr("Line Through Zero"), cLineThroughZero);
    row->addStretch();
    row->addWidget(fTools);
    auto *panes = new QSplitter(fBody);
    panes->setChildrenCollapsible(false);
    panes->addWidget(fRegionsView);
    panes->addWidget(fView);
    auto *right = new QWidget(panes);
    auto *rightColumn = new QVBoxLayout(right);
    rightColumn->setContentsMargins(0, 0, 0, 0);
    rightColumn->addWidget(fChart, 1);
    rightColumn->addWidget(fFacts);
    panes->setSizes({cRegionsWidth, cValuesWidth, cChartWidth});
    panes->setStretchFactor(1, 1);
    panes->setStretchFactor(2, 1);
    fFacts->setObjectName("facts");
    fFacts->setTextInteractionFlags(Qt::TextSelectableByMouse);
    fFacts->setWordWrap(true);
    auto *column = new QVBoxLayout(fBody);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(row);
    column->addWidget(panes, 1);
    const auto activated = QOverload<int>::of(&QComboBox::activated);
    connect(fX, activated, this, &WRegionValuesDock::showValues);
    connect(fDivisor, activated, this, &WRegionValuesDock::showValues);
    connect(fLine, activated, this, &WRegionValuesDock::showChart);
}

void WRegionValuesDock::makeRegions()
{
    fRegionsView->setObjectName("regions");
    fRegionsView->setAccessibleName(tr("Regions"));
    fRegionsView->setModel(fRegions);
    fRegionsView->setItemDelegateForColumn(TRegionsModel::cKind, new TKindDelegate(this));
    fRegionsView->setSelectionBehavior(QAbstractItemView::SelectRows);
    fRegionsView->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    fRegionsView->setContextMenuPolicy(Qt::CustomContextMenu);
    fRegionsView->verticalHeader()->hide();
    fRegionsView->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + cRowRoom);
    fRegionsView->horizontalHeader()->setHighlightSections(false);
    fRegionsView->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(fRegions, &TRegionsModel::edited, this, &WRegionValuesDock::editRegion);
    connect(fRegionsView, &QTableView::customContextMenuRequested, this, &WRegionValuesDock::regionsMenu);
    connect(fRegionsView, &QTableView::clicked, this, [this](const QModelIndex &place) {
        if (place.column() == TRegionsModel::cColor)
            chooseColor(place.row());
    });
    connect(fRegionsView->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &WRegionValuesDock::showChart);
}

void WRegionValuesDock::makeTable()
{
    fProxy->setSourceModel(fModel);
    fView->setObjectName("values");
    fView->setAccessibleName(tr("Region Values"));
    fView->setModel(fProxy);
    fView->setSelectionBehavior(QAbstractItemView::SelectRows);
    fView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    fView->setMouseTracking(true);
    fView->verticalHeader()->hide();
    fView->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + cRowRoom);
    QHeaderView *header = fView->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionsClickable(true);
    header->setHighlightSections(false);
    connect(header, &QHeaderView::sectionClicked, this, [this, header](int section) {
        fProxy->cycleSort(section);
        header->setSortIndicatorShown(fProxy->sortColumn() >= 0);
        if (fProxy->sortColumn() >= 0)
            header->setSortIndicator(fProxy->sortColumn(), fProxy->sortOrder());
    });
    connect(fTools, &WTableTools::decimalsChosen, fModel, &TRegionValuesModel::setDecimals);
    fTools->offerPlacing([this] { placeOnPage(fTools->shownProperties(HostTables::cRegions)); }, tr("Table"));
    fTools->offerPlacing([this] { placeOnPage(TTableProperties(HostTables::cRegionChart)); }, tr("Chart"));
}

void WRegionValuesDock::placeOnPage(TTableProperties properties)
{
    const int region = chartRegion();
    if (!fDocuments.document() || region < 0 || region >= fModel->values().regions().size())
        return;
    if (properties.table() == HostTables::cRegions)
        properties.setColumns({}); // regions that are drawn later belong to it as well
    properties.setOption(HostTables::cX, fX->currentData().toString());
    properties.setOption(HostTables::cXTitle, fX->currentText());
    properties.setOption(HostTables::cDivisor, fDivisor->currentData().toUuid());
    properties.setOption(HostTables::cRegion, fModel->values().regions().at(region).id);
    properties.setOption(HostTables::cLine, fLine->currentData().toInt());
    TablePlacing::place(item(), properties, fDocuments.document()->history());
}

void WRegionValuesDock::makeKeys()
{
    auto *keys = new TOwnKeys(fView);
    keys->add(QKeySequence::Copy, [this] { fTools->copy(false); });
    keys->add(QKeySequence::SelectAll, [this] { fView->selectAll(); });
    auto *regionKeys = new TOwnKeys(fRegionsView);
    regionKeys->add(QKeySequence(Qt::Key_Delete), [this] { removeRegions(); });
    regionKeys->add(QKeySequence::SelectAll, [this] { fRegionsView->selectAll(); });
    const auto edit = [this] {
        const QModelIndex place = fRegionsView->currentIndex();
        if (place.column() == TRegionsModel::cColor)
            chooseColor(place.row());
        else if (place.isValid())
            fRegionsView->edit(place);
    };
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2})
        regionKeys->add(QKeySequence(key), edit);
}

void WRegionValuesDock::connectHover()
{
    connect(fChart, &WRegionChart::hovered, this, [this](int row) {
        hover(row);
        const QModelIndex place = fProxy->mapFromSource(fModel->index(row, 0));
        if (place.isValid()) {
            fView->selectRow(place.row());
            fView->scrollTo(place);
        } else {
            fView->clearSelection();
        }
    });
    connect(fView, &QTableView::entered, this,
            [this](const QModelIndex &place) { hover(fProxy->mapToSource(place).row()); });
    connect(fView, &QTableView::viewportEntered, this, [this] { hover(-1); });
    connect(fView->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &place) { hover(fProxy->mapToSource(place).row()); });
}

void WRegionValuesDock::hover(int row)
{
    auto *spectra = dynamic_cast<TCanvasSpectrum *>(item());
    const bool isThere = spectra && row >= 0 && row < fModel->values().rows().size();
    fChart->setHighlighted(isThere ? row : -1);
    if (fDocuments.view())
        fDocuments.view()->pointAt(isThere ? spectra : nullptr, isThere ? fModel->values().rows().at(row).fIndex : -1);
}

void WRegionValuesDock::refresh()
{
    IDARegionsItem *regions = item() ? item()->regionsItem() : nullptr;
    const bool isEmpty = !regions || regions->daRegions().isEmpty();
    fEmpty->setVisible(isEmpty);
    fBody->setVisible(!isEmpty);
    if (!isEmpty && !isVisible())
        return; // it is brought up to date when it is shown
    fillX();
    fillDivisors();
    showValues();
}

void WRegionValuesDock::fillX()
{
    const QVariant chosen = fX->currentData();
    fX->clear();
    fX->addItem(tr("Value"), QVariant::fromValue(QString()));
    fX->addItem(tr("Number"), QStringLiteral("#"));
    if (item() && item()->regionsItem()) {
        const QVector<QPair<QString, QString>> params = item()->regionsItem()->numericParams();
        for (const QPair<QString, QString> &param : params)
            fX->addItem(param.second, param.first);
    }
    fX->setCurrentIndex(std::max(0, fX->findData(chosen)));
}

void WRegionValuesDock::fillDivisors()
{
    const QVariant chosen = fDivisor->currentData();
    fDivisor->clear();
    fDivisor->addItem(tr("Nothing"), QUuid());
    if (item() && item()->regionsItem()) {
        const QVector<TDARegion> regions = item()->regionsItem()->daRegions();
        for (const TDARegion &region : regions)
            fDivisor->addItem(region.name, region.id);
    }
    fDivisor->setCurrentIndex(std::max(0, fDivisor->findData(chosen)));
}

TRegionValues::TX WRegionValuesDock::xSource() const
{
    const QString name = fX->currentData().toString();
    if (name.isEmpty())
        return {};
    return name == "#" ? TRegionValues::TX{TRegionValues::cNumber, QString()}
                       : TRegionValues::TX{TRegionValues::cParameter, name};
}

void WRegionValuesDock::showValues()
{
    const TRegionValues values(item(), xSource(), fDivisor->currentData().toUuid());
    fModel->setValues(values, fX->currentText());
    const bool isMore = values.regions().size() > fRegions->rowCount();
    fRegions->setRegions(values.regions());
    if (isMore || !fRegionsView->currentIndex().isValid()) // the newest region is the one to look at
        fRegionsView->setCurrentIndex(fRegions->index(fRegions->rowCount() - 1, TRegionsModel::cName));
    showChart();
}

int WRegionValuesDock::chartRegion() const
{
    return fRegionsView->currentIndex().row();
}

TLinearFit WRegionValuesDock::line() const
{
    const int form = fLine->currentData().toInt();
    if (form == cNoLine || chartRegion() < 0)
        return TLinearFit();
    const TRegionValues &values = fModel->values();
    return LinearFit::fit(values.xs(), values.values(chartRegion()),
                          form == cStraightLine ? LinearFit::cLine : LinearFit::cThroughZero);
}

void WRegionValuesDock::showChart()
{
    const TRegionValues &values = fModel->values();
    const int region = chartRegion();
    const bool isThere = region >= 0 && region < values.regions().size();
    const TLinearFit fit = line();
    TValueChart chart;
    chart.setPoints(isThere ? values.xs() : QVector<double>(), isThere ? values.values(region) : QVector<double>(),
                    isThere ? values.regions().at(region).color : QColor());
    chart.setTitles(TTypesetter::escaped(fX->currentText()),
                    isThere ? TTypesetter::escaped(values.header(region)) : QString());
    chart.setLine(fit);
    fChart->setChart(chart);
    const auto number = [](double value) { return TNumberFormat::shown(QString::number(value, 'g', cDigits)); };
    QString facts;
    if (fit.isValid) {
        facts = tr("Slope %1").arg(number(fit.slope));
        if (fLine->currentData().toInt() == cStraightLine)
            facts += tr("   Intercept %1").arg(number(fit.intercept));
        facts += tr("   r² %1   Standard error %2   Points %3")
                     .arg(TNumberFormat::fixed(fit.r2, cDigits), number(fit.standardError))
                     .arg(fit.count);
    } else if (isThere && fLine->currentData().toInt() != cNoLine) {
        facts = tr("There are too few points of different x for a line.");
    }
    fFacts->setText(facts);
    fFacts->setVisible(!facts.isEmpty());
}

void WRegionValuesDock::pushRegions(const QVector<TDARegion> &regions)
{
    if (item() && fDocuments.document())
        fDocuments.document()->history().push(new TCmdEditRegions(item(), regions));
}

void WRegionValuesDock::editRegion(int row, const TDARegion &region, bool hasLimits)
{
    IDARegionsItem *owner = item() ? item()->regionsItem() : nullptr;
    QVector<TDARegion> regions = owner ? owner->daRegions() : QVector<TDARegion>();
    if (row >= regions.size() || regions.at(row).id != region.id)
        return;
    TDARegion &stored = regions[row];
    stored.name = region.name;
    stored.kind = region.kind;
    stored.color = region.color;
    if (hasLimits) {
        const TDARegion before = fRegions->regions().at(row);
        const TDARegion own = owner->shownDARegions().at(row);
        // the limit that was not edited stays as it is, to the last digit
        const auto limit = [&](double shown, double shownBefore) {
            if (shown != shownBefore)
                return owner->toRegionLimit(shown);
            return shown == own.from ? stored.from : stored.to;
        };
        const double a = limit(region.from, before.from);
        const double b = limit(region.to, before.to);
        if (!std::isfinite(a) || !std::isfinite(b))
            return;
        stored.from = std::min(a, b);
        stored.to = std::max(a, b);
    }
    pushRegions(regions);
}

void WRegionValuesDock::removeRegions()
{
    QVector<TDARegion> regions =
        item() && item()->regionsItem() ? item()->regionsItem()->daRegions() : QVector<TDARegion>();
    for (int row = regions.size() - 1; row >= 0; --row) {
        if (fRegionsView->selectionModel()->isRowSelected(row, QModelIndex()))
            regions.remove(row);
    }
    pushRegions(regions);
}

void WRegionValuesDock::chooseColor(int row)
{
    const QModelIndex place = fRegions->index(row, TRegionsModel::cColor);
    const QColor color = QColorDialog::getColor(place.data(Qt::DecorationRole).value<QColor>(), this);
    fRegions->setData(place, color);
}

void WRegionValuesDock::regionsMenu(const QPoint &place)
{
    const QModelIndex at = fRegionsView->indexAt(place);
    if (!at.isValid())
        return;
    QMenu menu;
    menu.addAction(tr("Colour..."), this, [this, at] { chooseColor(at.row()); });
    menu.addAction(tr("Remove"), this, &WRegionValuesDock::removeRegions);
    menu.exec(fRegionsView->viewport()->mapToGlobal(place));
}

void WRegionValuesDock::showEvent(QShowEvent *event)
{
    WPluginDockWidget::showEvent(event);
    refresh();
}

void WRegionValuesDock::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && fDocuments.view())
        fDocuments.view()->setFocus();
    else
        WPluginDockWidget::keyPressEvent(event);
}
