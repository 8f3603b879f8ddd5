#include "widgets/TBaseTable.h"

#include "widgets/GuiUtils.h"
#include "widgets/TBaseTableViewModel.h"
#include "widgets/TColumnMemory.h"
#include "widgets/TOwnKeys.h"
#include "widgets/TTableDelegate.h"
#include "widgets/TTableProxy.h"
#include "widgets/WTableTools.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMetaMethod>
#include <QScopedValueRollback>
#include <QTableView>
#include <QToolButton>
#include <QToolTip>
#include <QVBoxLayout>
#include <QVariantAnimation>
#include <algorithm>
#include <cmath>
#include <functional>

namespace {

constexpr int cMaxFirstWidth = 240; // px
constexpr int cRowRoom = 8;         // px above and below the text of a row
constexpr int cShakeTime = 240;     // ms
constexpr double cShakeWidth = 5.0; // px

/// Tells rows to which the keyboard came from those that were clicked or selected by the program.
class TKeyedView : public QTableView
{
public:
    using QTableView::QTableView;

    std::function<void()> fReached;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        const int before = currentIndex().row();
        QTableView::keyPressEvent(event);
        if (currentIndex().row() != before && fReached)
            fReached();
    }
};

} // namespace

TBaseTable::TBaseTable(const QString &name, TBaseTableViewModel *model, QWidget *parent)
    : QWidget(parent)
    , fModel(model)
    , fProxy(new TTableProxy(this))
    , fView(new TKeyedView(this))
    , fTools(new WTableTools(fView, fProxy, this))
    , fToolRow(new QHBoxLayout)
    , fEmpty(new QLabel(this))
{
    setObjectName(name + "Table");
    fProxy->setSourceModel(fModel);
    fView->setModel(fProxy);
    fColumns = new TColumnMemory(fView, name, [this] {
        QStringList keys;
        for (const TTableColumn &column : fModel->columns())
            keys.append(column.fKey);
        return keys;
    });
    auto *tools = new QHBoxLayout;
    tools->addLayout(fToolRow);
    tools->addStretch();
    tools->addWidget(fTools);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(tools);
    column->addWidget(fView, 1);
    column->addWidget(fEmpty, 1);
    fEmpty->setAlignment(Qt::AlignCenter);
    fEmpty->setWordWrap(true);
    fEmpty->setEnabled(false); // the grey of disabled things
    connect(fTools, &WTableTools::decimalsChosen, fModel, &TBaseTableViewModel::setDecimals);
    connect(fModel, &TBaseTableViewModel::refused, this, &TBaseTable::refuse);
    makeView();
    makeHeader();
    makeKeys();
    showState();
}

void TBaseTable::setEmptyText(const QString &text)
{
    fEmpty->setText(text);
}

void TBaseTable::connectNotify(const QMetaMethod &signal)
{
    if (signal == QMetaMethod::fromSignal(&TBaseTable::placeWanted))
        fTools->offerPlacing([this] { emit placeWanted(); });
}

void TBaseTable::makeView()
{
    // not by any key, which finds rows
    fView->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    fView->setSelectionBehavior(QAbstractItemView::SelectRows);
    fView->setSelectionMode(QAbstractItemView::ExtendedSelection);
    fView->setItemDelegate(new TTableDelegate(fView));
    fView->verticalHeader()->hide();
    fView->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + cRowRoom);
    fView->setContextMenuPolicy(Qt::CustomContextMenu);
    fView->setAlternatingRowColors(true);
    fView->setWordWrap(false);
    connect(fView, &QTableView::customContextMenuRequested, this,
            [this](const QPoint &point) { emit menuWanted(fView->viewport()->mapToGlobal(point)); });
    connect(fView, &QTableView::doubleClicked, this,
            [this](const QModelIndex &place) { emit rowActivated(fProxy->mapToSource(place).row()); });
    connect(fView, &QTableView::clicked, this,
            [this](const QModelIndex &place) { emit cellClicked(fProxy->mapToSource(place)); });
    static_cast<TKeyedView *>(fView)->fReached = [this] { emit rowReached(currentRow()); };
    connect(fView->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!fIsQuiet)
            emit rowsChosen();
    });
    // before and after all others that hear of a reset
    connect(fModel, &QAbstractItemModel::modelAboutToBeReset, this, &TBaseTable::keepSelection);
    connect(fProxy, &QAbstractItemModel::modelReset, this, &TBaseTable::giveSelectionBack);
}

void TBaseTable::makeHeader()
{
    QHeaderView *header = fView->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setSectionsMovable(true);
    header->setSectionsClickable(true);
    header->setHighlightSections(false);
    header->setStretchLastSection(true);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QHeaderView::customContextMenuRequested, this, &TBaseTable::onHeaderMenu);
    connect(header, &QHeaderView::sectionClicked, this, [this, header](int column) {
        fProxy->cycleSort(column);
        header->setSortIndicatorShown(fProxy->sortColumn() >= 0);
        if (fProxy->sortColumn() >= 0)
            header->setSortIndicator(fProxy->sortColumn(), fProxy->sortOrder());
    });
}

void TBaseTable::makeKeys()
{
    auto *keys = new TOwnKeys(fView);
    const auto add = [keys](int key, const TOwnKeys::TRun &run) { keys->add(QKeySequence(key), run); };
    const auto activate = [this] {
        if (currentRow() < 0)
            return;
        const QVariant id = fModel->rowId(currentRow());
        const int column = fProxy->mapToSource(fView->currentIndex()).column();
        emit rowActivated(currentRow());
        editCell(fModel->rowOfId(id), column); // the row may stand elsewhere by now
    };
    add(Qt::Key_Return, activate);
    add(Qt::Key_Enter, activate);
    add(Qt::Key_F2, [this] { editCell(currentRow(), fProxy->mapToSource(fView->currentIndex()).column()); });
    add(Qt::Key_Delete, [this] {
        if (!selectedRows().isEmpty())
            emit deleteWanted(selectedRows());
    });
    add(Qt::Key_Space, [this] {
        if (currentRow() >= 0)
            emit cellClicked(fProxy->mapToSource(fView->currentIndex()));
    });
    add(Qt::Key_Home, [this] { goTo(0); });
    add(Qt::Key_End, [this] { goTo(fProxy->rowCount() - 1); });
    keys->add(QKeySequence::Copy, [this] { fTools->copy(false); });
    keys->add(QKeySequence::SelectAll, [this] { fView->selectAll(); });
}

void TBaseTable::goTo(int row)
{
    if (row < 0 || row >= fProxy->rowCount())
        return;
    fView->setCurrentIndex(fProxy->index(row, qMax(0, fView->currentIndex().column())));
    emit rowReached(currentRow());
}

QVector<int> TBaseTable::selectedRows() const
{
    QVector<int> rows;
    for (const QModelIndex &place : fView->selectionModel()->selectedRows())
        rows.append(fProxy->mapToSource(place).row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

QVariantList TBaseTable::selectedIds() const
{
    QVariantList ids;
    for (const int row : selectedRows())
        ids.append(fModel->rowId(row));
    return ids;
}

void TBaseTable::selectIds(const QVariantList &ids)
{
    if (ids == selectedIds())
        return;
    const QScopedValueRollback<bool> quiet(fIsQuiet, true);
    QItemSelection selection;
    QModelIndex first;
    for (const QVariant &id : ids) {
        const QModelIndex place = fProxy->mapFromSource(fModel->index(fModel->rowOfId(id), 0));
        if (!place.isValid())
            continue;
        selection.select(place, place.sibling(place.row(), fProxy->columnCount() - 1));
        if (!first.isValid() || place.row() < first.row())
            first = place;
    }
    fView->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!first.isValid())
        return;
    fView->selectionModel()->setCurrentIndex(first.sibling(first.row(), qMax(0, fView->currentIndex().column())),
                                             QItemSelectionModel::NoUpdate);
    fView->scrollTo(first);
}

int TBaseTable::currentRow() const
{
    return fProxy->mapToSource(fView->currentIndex()).row();
}

void TBaseTable::editCell(int row, int column)
{
    const auto isFree = [this, row](int at) {
        return !fView->isColumnHidden(at) && (fModel->index(row, at).flags() & Qt::ItemIsEditable);
    };
    if (row < 0 || row >= fModel->rowCount())
        return;
    for (int at = 0; (column < 0 || !isFree(column)) && at < fModel->columnCount(); ++at) {
        if (isFree(at))
            column = at;
    }
    const QModelIndex place = fProxy->mapFromSource(fModel->index(row, column));
    if (column < 0 || !isFree(column) || !place.isValid())
        return;
    fView->selectionModel()->setCurrentIndex(place, QItemSelectionModel::NoUpdate);
    fView->edit(place);
}

void TBaseTable::refuse(const QModelIndex &place, const QString &reason)
{
    const QModelIndex shown = fProxy->mapFromSource(place);
    const QRect cell = fView->visualRect(shown);
    QToolTip::showText(fView->viewport()->mapToGlobal(cell.bottomLeft()), Utils::Gui::dataTip(reason),
                       fView->viewport(), cell);
    shake();
}

void TBaseTable::shake()
{
    const QPoint home = fView->pos();
    auto *animation = new QVariantAnimation(fView);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    animation->setDuration(cShakeTime);
    connect(animation, &QVariantAnimation::valueChanged, fView, [this, home](const QVariant &value) {
        const double t = value.toDouble();
        fView->move(home + QPoint(qRound(cShakeWidth * std::sin(6.0 * M_PI * t) * (1.0 - t)), 0));
    });
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void TBaseTable::keepSelection()
{
    fKeptIds = selectedIds();
    fKeptCurrent = fModel->rowId(currentRow());
    fKeptColumn = qMax(0, fView->currentIndex().column());
    fIsQuiet = true;
}

void TBaseTable::giveSelectionBack()
{
    arrangeColumns();
    showState();
    selectIds(fKeptIds);
    const QModelIndex current = fProxy->mapFromSource(fModel->index(fModel->rowOfId(fKeptCurrent), 0));
    if (current.isValid())
        fView->selectionModel()->setCurrentIndex(current.sibling(current.row(), fKeptColumn),
                                                 QItemSelectionModel::NoUpdate);
    fIsQuiet = false;
}

void TBaseTable::arrangeColumns()
{
    fColumns->arrange([this] {
        for (int column = 0; column < fModel->columnCount(); ++column)
            fView->setColumnHidden(column, !fModel->columns().at(column).fIsShown);
        if (fModel->rowCount() == 0)
            return;
        for (int column = 0; column < fModel->columnCount(); ++column) {
            fView->resizeColumnToContents(column);
            fView->setColumnWidth(
                column, qBound(fModel->columns().at(column).fLeastWidth, fView->columnWidth(column), cMaxFirstWidth));
        }
    });
    fColumns->restore();
}

void TBaseTable::showState()
{
    const bool isEmpty = fModel->rowCount() == 0;
    fView->setVisible(!isEmpty);
    fEmpty->setVisible(isEmpty);
    fTools->setEnabled(!isEmpty);
}

void TBaseTable::onHeaderMenu(const QPoint &point)
{
    QMenu menu;
    int shown = 0;
    for (int column = 0; column < fModel->columnCount(); ++column)
        shown += !fView->isColumnHidden(column);
    for (int column = 0; column < fModel->columnCount(); ++column) {
        const TTableColumn &of = fModel->columns().at(column);
        if (!of.fIsOptional)
            continue;
        QAction *action = menu.addAction(of.fTitle);
        action->setCheckable(true);
        action->setChecked(!fView->isColumnHidden(column));
        action->setEnabled(!action->isChecked() || shown > 1); // a table without columns has no header to ask
        connect(action, &QAction::toggled, this, [this, column](bool on) { fColumns->setShown(column, on); });
    }
    menu.exec(fView->horizontalHeader()->mapToGlobal(point));
}
