#include "widgets/WStackedItemsTable.h"

#include "plot/T1DStackedPlotProperties.h"
#include "settings/TNumberFormat.h"
#include "widgets/GuiUtils.h"
#include "widgets/IStackedItemsEdits.h"
#include "widgets/TColumnMemory.h"
#include "widgets/TOwnKeys.h"
#include "widgets/TStackedItemsTableModel.h"
#include "widgets/TTableDelegate.h"
#include "widgets/TTableProxy.h"
#include "widgets/WTableTools.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolButton>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

namespace {

// px at first
constexpr int cTitleWidth = 240;
constexpr int cClassWidth = 80;
constexpr int cMostWidth = 240;

constexpr int cRowRoom = 8; // px above and below the text of a row

/// The keys by which columns are remembered; the marks have none, since they stay where they are.
const QStringList &columnKeys()
{
    static const QStringList cKeys{QString(), "show",   "use",    "number", QString(), "title", "class",
                                   "value",   "factor", "offset", "date",   "points",  "format"};
    return cKeys;
}

/// Offers the classes in use; any other text makes a new one.
class TClassDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &place) const override
    {
        auto *box = new QComboBox(parent);
        box->setEditable(true);
        const auto *proxy = static_cast<const TTableProxy *>(place.model());
        box->addItems(static_cast<const TStackedItemsTableModel *>(proxy->sourceModel())->classNames());
        return box;
    }
    void setEditorData(QWidget *editor, const QModelIndex &place) const override
    {
        static_cast<QComboBox *>(editor)->setCurrentText(place.data(Qt::EditRole).toString());
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &place) const override
    {
        model->setData(place, static_cast<QComboBox *>(editor)->currentText(), Qt::EditRole);
    }
};

/// Typing finds titles, whatever the current column.
class TStackView : public QTableView
{
public:
    using QTableView::QTableView;

    void keyboardSearch(const QString &search) override
    {
        const int column = currentIndex().column();
        if (currentIndex().isValid())
            selectionModel()->setCurrentIndex(currentIndex().sibling(currentIndex().row(), cTitleColumn),
                                              QItemSelectionModel::NoUpdate);
        QTableView::keyboardSearch(search);
        if (currentIndex().isValid() && column >= 0)
            selectionModel()->setCurrentIndex(currentIndex().sibling(currentIndex().row(), column),
                                              QItemSelectionModel::NoUpdate);
    }

private:
    static constexpr int cTitleColumn = TStackedItemsTableModel::cTitle;
};

} // namespace

WStackedItemsTable::WStackedItemsTable(QWidget *parent)
    : QWidget(parent)
    , fModel(new TStackedItemsTableModel(this))
    , fProxy(new TTableProxy(this))
    , fView(new TStackView(this))
    , fTools(new WTableTools(fView, fProxy, this))
    , fColumns(new TColumnMemory(fView, QStringLiteral("StackedSpectra"), &columnKeys))
    , fMode(new QComboBox(this))
    , fColors(new QComboBox(this))
    , fSort(new QToolButton(this))
    , fFromTitles(new QToolButton(this))
    , fEmpty(new QLabel(tr("One spectrum. Drop another on the plot to make a stack."), this))
{
    auto *tools = new QHBoxLayout;
    const auto labelled = [this, tools](const QString &text, const QString &tip, QComboBox *box) {
        auto *label = new QLabel(text, this);
        label->setBuddy(box);
        box->setAccessibleName(text);
        box->setToolTip(tip);
        tools->addWidget(label);
        tools->addWidget(box);
    };
    labelled(tr("Mode"), tr("How the spectra stand to each other."), fMode);
    labelled(tr("Colours"), tr("From what the colours of the curves are made."), fColors);
    tools->addWidget(fSort);
    tools->addWidget(fFromTitles);
    tools->addStretch();
    tools->addWidget(fTools);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(tools);
    column->addWidget(fView);
    column->addWidget(fEmpty);
    fEmpty->setAlignment(Qt::AlignCenter);
    fEmpty->setWordWrap(true);
    fEmpty->setEnabled(false); // the grey of disabled things
    makeToolRow();
    makeSortMenu();
    makeView();
    makeHeader();
    makeKeys();
    connect(fModel, &QAbstractItemModel::modelReset, this, &WStackedItemsTable::showState);
    connect(fModel, &QAbstractItemModel::dataChanged, this, &WStackedItemsTable::showState);
    connect(fProxy, &QAbstractItemModel::modelReset, this, &WStackedItemsTable::fitColumns);
    fColumns->restore();
    showState();
}

void WStackedItemsTable::makeToolRow()
{
    fMode->addItem(tr("Active Only"), activeOnlyMode);
    fMode->addItem(tr("Stacked"), stackedMode);
    fMode->addItem(tr("Overlay"), overlayMode);
    fMode->addItem(tr("Stacked, Hidden Lines"), hiddenLinesMode);
    fMode->addItem(tr("Queued"), queuedMode);
    fMode->addItem(tr("Grouped"), groupedMode);
    fColors->addItem(tr("Single Color"), singleColorSetting);
    fColors->addItem(tr("Gradient"), gradientSetting);
    fColors->addItem(tr("Hue Color"), hueSetting);
    const auto activated = QOverload<int>::of(&QComboBox::activated);
    connect(fMode, activated, this, [this](int at) { fModel->setDisplayMode(fMode->itemData(at).toInt()); });
    connect(fColors, activated, this, [this](int at) { fModel->setColorSetting(fColors->itemData(at).toInt()); });
    connect(fTools, &WTableTools::decimalsChosen, fModel, &TStackedItemsTableModel::setDecimals);
    fFromTitles->setText(tr("Values from Titles"));
    fFromTitles->setToolTip(tr("Takes the number at the end of each title as the spectrum's value."));
    connect(fFromTitles, &QToolButton::clicked, fModel, &TStackedItemsTableModel::takeValuesFromTitles);
}

void WStackedItemsTable::makeSortMenu()
{
    auto *menu = new QMenu(this);
    const auto sort = [this, menu](const QString &text, TStackedItemsTableModel::TSortKey key) {
        menu->addAction(text, this, [this, key] { fModel->sortBy(key); });
    };
    sort(tr("Title"), TStackedItemsTableModel::cByTitle);
    sort(tr("Value"), TStackedItemsTableModel::cByValue);
    sort(tr("Class"), TStackedItemsTableModel::cByClass);
    sort(tr("Date"), TStackedItemsTableModel::cByDate);
    menu->addSeparator();
    QAction *split = menu->addAction(tr("Split by Class"), fModel, &TStackedItemsTableModel::splitByClass);
    menu->addAction(tr("Reset Factors and Offsets"), fModel, &TStackedItemsTableModel::resetFactorsAndOffsets);
    connect(menu, &QMenu::aboutToShow, this,
            [this, split] { split->setEnabled(fModel->canEdit(IStackedItemsEdits::cSplit)); });
    fSort->setText(tr("Sort by"));
    fSort->setMenu(menu);
    fSort->setPopupMode(QToolButton::InstantPopup);
}

void WStackedItemsTable::makeView()
{
    fProxy->setSourceModel(fModel);
    fView->setModel(fProxy);
    // not by any key, which finds titles
    fView->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    fView->setSelectionBehavior(QAbstractItemView::SelectRows);
    fView->setDragDropMode(QAbstractItemView::InternalMove);
    fView->setDragDropOverwriteMode(false);
    fView->setItemDelegate(new TTableDelegate(this));
    fView->setItemDelegateForColumn(TStackedItemsTableModel::cClass, new TClassDelegate(this));
    fView->verticalHeader()->hide();
    fView->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + cRowRoom);
    for (int column = TStackedItemsTableModel::cDate; column < TStackedItemsTableModel::cColumnCount; ++column)
        fView->setColumnHidden(column, true);
    connect(fView, &QTableView::clicked, this, &WStackedItemsTable::onClicked);
    connect(fProxy, &QAbstractItemModel::layoutChanged, this, &WStackedItemsTable::followOrder);
    connect(fProxy, &QAbstractItemModel::rowsInserted, this, &WStackedItemsTable::followOrder);
    connect(fProxy, &QAbstractItemModel::rowsRemoved, this, &WStackedItemsTable::followOrder);
}

void WStackedItemsTable::makeHeader()
{
    QHeaderView *header = fView->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Interactive);
    for (const int mark : {TStackedItemsTableModel::cActive, TStackedItemsTableModel::cSwatch})
        header->setSectionResizeMode(mark, QHeaderView::ResizeToContents);
    header->setHighlightSections(false);
    header->setSectionsMovable(true);
    header->setSectionsClickable(true);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QHeaderView::sectionClicked, this, &WStackedItemsTable::onHeaderClicked);
    connect(header, &QHeaderView::customContextMenuRequested, this, &WStackedItemsTable::onHeaderMenu);
}

void WStackedItemsTable::makeKeys()
{
    auto *keys = new TOwnKeys(fView);
    const auto add = [keys](int key, const TOwnKeys::TRun &run) { keys->add(QKeySequence(key), run); };
    add(Qt::Key_Space, [this] { toggleChecks(TStackedItemsTableModel::cShow); });
    add(Qt::CTRL + Qt::Key_Space, [this] { toggleChecks(TStackedItemsTableModel::cUse); });
    add(Qt::ALT + Qt::Key_Up, [this] { moveSelected(-1); });
    add(Qt::ALT + Qt::Key_Down, [this] { moveSelected(1); });
    add(Qt::Key_Delete, [this] {
        if (!selectedRows().isEmpty())
            fModel->deleteSpectra(selectedRows());
    });
    add(Qt::Key_Return, [this] { edit(); });
    add(Qt::Key_Enter, [this] { edit(); });
    add(Qt::Key_F2, [this] { edit(); });
    add(Qt::Key_Home, [this] { goTo(0); });
    add(Qt::Key_End, [this] { goTo(fProxy->rowCount() - 1); });
    keys->add(QKeySequence::Copy, [this] { fTools->copy(false); });
    keys->add(QKeySequence::Paste, [this] { pasteValues(); });
    keys->add(QKeySequence::SelectAll, [this] { fView->selectAll(); });
}

void WStackedItemsTable::goTo(int row)
{
    fView->setCurrentIndex(fProxy->index(row, qMax(0, fView->currentIndex().column())));
}

void WStackedItemsTable::edit()
{
    const QModelIndex place = fView->currentIndex();
    if (place.flags() & Qt::ItemIsEditable)
        fView->edit(place);
}

/// Columns are as wide as what they hold, but for those to which the user gave a width.
void WStackedItemsTable::fitColumns()
{
    if (fModel->rowCount() == 0)
        return;
    fColumns->arrange([this] {
        for (int column = 0; column < TStackedItemsTableModel::cColumnCount; ++column) {
            if (fColumns->hasWidth(column) || columnKeys().at(column).isEmpty() || fView->isColumnHidden(column))
                continue;
            fView->resizeColumnToContents(column);
            const int least = column == TStackedItemsTableModel::cTitle   ? cTitleWidth
                              : column == TStackedItemsTableModel::cClass ? cClassWidth
                                                                          : 0;
            fView->setColumnWidth(column, qBound(least, fView->columnWidth(column), cMostWidth));
        }
    });
}

/// Rows are moved by hand only while they stand as in the stack.
void WStackedItemsTable::followOrder()
{
    fView->setDragEnabled(fProxy->isPlain());
    fView->setAcceptDrops(fProxy->isPlain());
    QHeaderView *header = fView->horizontalHeader();
    header->setSortIndicatorShown(fProxy->sortColumn() >= 0);
    if (fProxy->sortColumn() >= 0)
        header->setSortIndicator(fProxy->sortColumn(), fProxy->sortOrder());
}

void WStackedItemsTable::showState()
{
    const bool isStack = fModel->rowCount() >= 2;
    fView->setVisible(isStack);
    fEmpty->setVisible(!isStack);
    for (QWidget *tool :
         {static_cast<QWidget *>(fMode), static_cast<QWidget *>(fColors), static_cast<QWidget *>(fSort)})
        tool->setEnabled(isStack);
    fFromTitles->setVisible(fModel->titlesEndInNumbers());
    fTools->setEnabled(isStack);
    const QSignalBlocker modeBlocker(fMode);
    const QSignalBlocker colorsBlocker(fColors);
    fMode->setCurrentIndex(fMode->findData(fModel->displayMode()));
    fColors->setCurrentIndex(fColors->findData(fModel->colorSetting()));
}

QVector<int> WStackedItemsTable::selectedRows() const
{
    QVector<int> rows;
    for (const QModelIndex &place : fView->selectionModel()->selectedRows())
        rows.append(fProxy->mapToSource(place).row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void WStackedItemsTable::onClicked(const QModelIndex &shown)
{
    const QModelIndex place = fProxy->mapToSource(shown);
    if (place.column() == TStackedItemsTableModel::cActive)
        fModel->activate(place.row());
    if (place.column() != TStackedItemsTableModel::cSwatch || !fModel->canEdit(IStackedItemsEdits::cColors))
        return;
    const QColor color = QColorDialog::getColor(fModel->color(place.row()), this);
    fModel->setColor(place.row(), color);
}

void WStackedItemsTable::onHeaderClicked(int column)
{
    if (column == TStackedItemsTableModel::cShow && QApplication::keyboardModifiers() & Qt::ControlModifier)
        fModel->showAll();
    else if (!fModel->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().isEmpty())
        fProxy->cycleSort(column);
    followOrder();
}

void WStackedItemsTable::onHeaderMenu(const QPoint &point)
{
    QMenu menu;
    for (int column = TStackedItemsTableModel::cTitle; column < TStackedItemsTableModel::cColumnCount; ++column) {
        QAction *action = menu.addAction(fModel->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        action->setCheckable(true);
        action->setChecked(!fView->isColumnHidden(column));
        connect(action, &QAction::toggled, this, [this, column](bool shown) {
            fColumns->setShown(column, shown);
            fitColumns();
        });
    }
    menu.exec(fView->horizontalHeader()->mapToGlobal(point));
}

void WStackedItemsTable::toggleChecks(int column)
{
    const QVector<int> rows = selectedRows();
    if (rows.isEmpty())
        return;
    const bool isOn = fModel->index(rows.first(), column).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    for (const int row : rows)
        fModel->setData(fModel->index(row, column), isOn ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void WStackedItemsTable::moveSelected(int step)
{
    const QVector<int> rows = selectedRows();
    if (!fProxy->isPlain() || rows.isEmpty() || rows.first() + step < 0 || rows.last() + step >= fModel->rowCount())
        return;
    fModel->moveRowsTo(rows, step < 0 ? rows.first() - 1 : rows.last() + 2);
    QItemSelection selection; // the order is another one, so the view forgot it
    for (const int row : rows)
        selection.select(fProxy->index(row + step, 0), fProxy->index(row + step, fProxy->columnCount() - 1));
    fView->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void WStackedItemsTable::pasteValues()
{
    const QModelIndex place = fProxy->mapToSource(fView->currentIndex());
    if (!place.isValid())
        return;
    QStringList texts;
    for (const QString &line : QApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts))
        texts.append(line.section('\t', 0, 0).trimmed());
    double number = 0.0;
    if (texts.size() > 1 && !TNumberFormat::read(texts.first(), number))
        texts.removeFirst(); // the header of the column
    if (!fProxy->isPlain())
        refuse(tr("Values are pasted in the order of the stack: sort and filter off first."));
    else if (place.column() != TStackedItemsTableModel::cValue)
        refuse(tr("Values are pasted into the column \"Value\": go to its first cell."));
    else if (!fModel->pasteValues(place.row(), texts))
        refuse(texts.isEmpty() ? tr("There is nothing to paste.") : tr("What is to be pasted are no numbers."));
}

void WStackedItemsTable::refuse(const QString &reason)
{
    const QRect cell = fView->visualRect(fView->currentIndex());
    QToolTip::showText(fView->viewport()->mapToGlobal(cell.bottomLeft()), Utils::Gui::dataTip(reason),
                       fView->viewport(), cell);
}
