#include "WHistoryPane.h"

#include "TDocumentController.h"
#include "THistoryModel.h"
#include "THistoryScript.h"
#include "WDocumentView.h"
#include "canvas/TCanvasItem.h"
#include "commands/TCommandHistory.h"
#include "settings/TDefaultsIni.h"
#include "widgets/TOwnKeys.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QProgressDialog>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>
#include <QTreeWidget>
#include <QUndoStack>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int cMargin = 6;
constexpr int cItemLetters = 9;
constexpr int cRowsWithDetails = 12; // of the height of a step
constexpr int cLeastWidth = 340;     // room for descriptions beside item and time
constexpr int cPatience = 500;       // ms until a way through many steps shows its progress

/// Draws the rule above what was done before the document was opened.
class TRuleDelegate : public QStyledItemDelegate
{
public:
    explicit TRuleDelegate(const THistoryModel &model, QObject *parent)
        : QStyledItemDelegate(parent)
        , fModel(model)
    {
    }
    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        if (!fModel.isRule(index.row()) || index.row() + 1 == fModel.rowCount())
            return;
        painter->setPen(option.palette.color(QPalette::Mid));
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    }

private:
    const THistoryModel &fModel;
};

QString shown(const QVariant &value)
{
    return value.type() == QVariant::StringList ? value.toStringList().join(", ") : value.toString();
}

} // namespace

WHistoryPane::WHistoryPane(TDocumentController &documents, QWidget *parent)
    : WPluginDockWidget("historyPane", tr("History"), parent)
    , fDocuments(documents)
    , fModel(new THistoryModel(this))
    , fView(new QTableView(this))
    , fDetails(new QTreeWidget(this))
    , fItems(new QComboBox(this))
    , fText(new QLineEdit(this))
    , fViewSteps(new QCheckBox(tr("Show view steps"), this))
    , fUpdate(new QTimer(this))
{
    fViewSteps->setChecked(TDefaultsIni().value(cViewStepsKey, false).toBool());
    fModel->setViewStepsShown(fViewSteps->isChecked());
    makeView();
    fDetails->setHeaderLabels({tr("Parameter"), tr("New"), tr("Old")});
    fDetails->setRootIsDecorated(false);
    auto *page = new QWidget(this);
    page->setMinimumWidth(cLeastWidth);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(cMargin, cMargin, cMargin, cMargin);
    column->setSpacing(cMargin);
    column->addLayout(makeFilter());
    auto *splitter = new QSplitter(Qt::Vertical, page);
    splitter->addWidget(fView);
    splitter->addWidget(fDetails);
    splitter->setStretchFactor(0, 2);
    splitter->setStretchFactor(1, 1);
    column->addWidget(splitter, 1);
    setWidget(page);
    page->setFocusProxy(fView);
    fUpdate->setSingleShot(true);
    fUpdate->setInterval(0);
    connect(fUpdate, &QTimer::timeout, this, &WHistoryPane::update);
    connect(&documents, &TDocumentController::documentShown, this, &WHistoryPane::showDocument);
}

QLayout *WHistoryPane::makeFilter()
{
    fText->setPlaceholderText(tr("Filter"));
    fText->setClearButtonEnabled(true);
    fItems->addItem(tr("All Items"));
    fItems->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto *row = new QHBoxLayout;
    row->addWidget(fItems, 1);
    row->addWidget(fText, 1);
    auto *rows = new QVBoxLayout;
    rows->addLayout(row);
    rows->addWidget(fViewSteps);
    connect(fText, &QLineEdit::textChanged, this, &WHistoryPane::updateFilter);
    connect(fItems, QOverload<int>::of(&QComboBox::activated), this, &WHistoryPane::updateFilter);
    connect(fViewSteps, &QCheckBox::toggled, this, [this](bool shown) {
        TDefaultsIni().setValue(cViewStepsKey, shown);
        fModel->setViewStepsShown(shown);
        update();
    });
    return rows;
}

void WHistoryPane::makeView()
{
    fView->setModel(fModel);
    fView->setItemDelegate(new TRuleDelegate(*fModel, this));
    fView->setSelectionBehavior(QAbstractItemView::SelectRows);
    fView->setShowGrid(false);
    fView->setTabKeyNavigation(false);
    fView->verticalHeader()->hide();
    fView->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    fView->verticalHeader()->setDefaultSectionSize(fView->fontMetrics().height() + cMargin);
    QHeaderView *header = fView->horizontalHeader();
    header->setSectionResizeMode(THistoryModel::cDescription, QHeaderView::Stretch);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setHighlightSections(false);
    fView->setColumnWidth(THistoryModel::cItem, fView->fontMetrics().averageCharWidth() * cItemLetters);
    fView->setColumnWidth(THistoryModel::cTime, fView->fontMetrics().horizontalAdvance("00 Mmm 00") + cMargin);
    fView->setContextMenuPolicy(Qt::CustomContextMenu);
    auto *keys = new TOwnKeys(fView);
    keys->add(QKeySequence::Copy, [this] { copy(); });
    for (const int key : {Qt::Key_Return, Qt::Key_Enter})
        keys->add(QKeySequence(key), [this] { goTo(fView->currentIndex().row()); });
    connect(fView, &QTableView::clicked, this, [this](const QModelIndex &index) {
        if (!(QApplication::keyboardModifiers() & (Qt::ControlModifier | Qt::ShiftModifier))) // those select
            goTo(index.row());
    });
    connect(fView, &QTableView::customContextMenuRequested, this, &WHistoryPane::showMenu);
    connect(fView->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &WHistoryPane::showDetails);
}

void WHistoryPane::showDocument(TDocument *document)
{
    if (fModel->document())
        fModel->document()->history().stack()->disconnect(this);
    if (fModel->document())
        fModel->document()->disconnect(this);
    fModel->setDocument(document);
    const auto later = [this] {
        if (isVisible())
            fUpdate->start();
    };
    if (document) {
        connect(document, &TDocument::historyChanged, this, later);
        connect(document->history().stack(), &QUndoStack::indexChanged, this, later);
    }
    update();
}

void WHistoryPane::showEvent(QShowEvent *event)
{
    WPluginDockWidget::showEvent(event);
    update();
}

/// In a low pane the steps have the room.
void WHistoryPane::resizeEvent(QResizeEvent *event)
{
    WPluginDockWidget::resizeEvent(event);
    fDetails->setVisible(height() >= cRowsWithDetails * fView->verticalHeader()->defaultSectionSize());
}

void WHistoryPane::update()
{
    fModel->refresh();
    updateItems();
    const int present = fModel->presentRow();
    if (present >= 0) {
        fView->setCurrentIndex(fModel->index(present, 0));
        fView->scrollTo(fModel->index(present, 0));
    }
    showDetails();
}

void WHistoryPane::updateFilter()
{
    fModel->setFilter(fItems->currentIndex() > 0 ? fItems->currentText() : QString(), fText->text());
    update();
}

/// The item that is chosen stays, also where no step speaks of it any more.
void WHistoryPane::updateItems()
{
    const QString chosen = fItems->currentIndex() > 0 ? fItems->currentText() : QString();
    QStringList names = fModel->itemNames();
    if (!chosen.isEmpty() && !names.contains(chosen))
        names.append(chosen);
    while (fItems->count() > 1)
        fItems->removeItem(1);
    fItems->addItems(names);
    fItems->setCurrentIndex(chosen.isEmpty() ? 0 : 1 + names.indexOf(chosen));
}

void WHistoryPane::showDetails()
{
    fDetails->clear();
    const QList<TStoredHistoryEntry> entries = fModel->entries(fView->currentIndex().row());
    for (const TStoredHistoryEntry &entry : entries) {
        QTreeWidgetItem *parent = fDetails->invisibleRootItem();
        if (entries.size() > 1) {
            parent = new QTreeWidgetItem(parent, {entry.fDescription});
            parent->setFirstColumnSpanned(true);
        }
        for (const THistoryParameter &param : entry.fParams) {
            const QString value = param.fText.isEmpty() ? shown(param.fValue) : param.fText;
            new QTreeWidgetItem(parent, {param.fName, value, shown(param.fOldValue)});
        }
    }
    fDetails->expandAll();
    fDetails->resizeColumnToContents(0);
}

void WHistoryPane::goTo(int row)
{
    const int target = fModel->stackIndex(row);
    TDocument *document = fModel->document();
    if (target < 0 || !document || document->history().isBusy())
        return;
    QUndoStack *stack = document->history().stack();
    const int steps = qAbs(target - stack->index());
    QProgressDialog progress(tr("Going to \"%1\"...").arg(fModel->index(row, 0).data().toString()), tr("Cancel"), 0,
                             steps, this);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(cPatience);
    for (int done = 0; done < steps && !progress.wasCanceled(); ++done) {
        if (stack->index() > target)
            stack->undo();
        else
            stack->redo();
        progress.setValue(done + 1);
    }
}

void WHistoryPane::copy() const
{
    QStringList lines;
    QModelIndexList rows = fView->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    for (const QModelIndex &row : qAsConst(rows)) {
        QStringList cells;
        for (int column = 0; column < fModel->columnCount(); ++column)
            cells.append(row.sibling(row.row(), column).data().toString());
        lines.append(cells.join('\t'));
    }
    if (!lines.isEmpty())
        QApplication::clipboard()->setText(lines.join('\n') + '\n');
}

/// The row of the present state is selected anyway: alone it chooses nothing.
QList<int> WHistoryPane::chosenSteps() const
{
    QList<int> rows;
    for (const QModelIndex &row : fView->selectionModel()->selectedRows())
        rows.append(row.row());
    const bool isChoice = rows.size() > 1 || (rows.size() == 1 && rows.first() != fModel->presentRow());
    return isChoice ? fModel->doneSteps(rows) : QList<int>();
}

void WHistoryPane::copyAsScript() const
{
    if (fModel->document())
        QApplication::clipboard()->setText(THistoryScript::text(*fModel->document(), chosenSteps()));
}

void WHistoryPane::saveAsScript()
{
    if (fModel->document())
        THistoryScript::save(*fModel->document(), chosenSteps(), this);
}

void WHistoryPane::showMenu(const QPoint &place)
{
    auto *menu = new QMenu(fView);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction *copies = menu->addAction(tr("&Copy"), this, &WHistoryPane::copy);
    copies->setEnabled(fView->selectionModel()->hasSelection());
    menu->addSeparator();
    const bool hasSteps = fModel->document() && fModel->document()->history().count() > 0;
    menu->addAction(tr("&Save as Script..."), this, &WHistoryPane::saveAsScript)->setEnabled(hasSteps);
    menu->addAction(tr("Copy as Sc&ript"), this, &WHistoryPane::copyAsScript)->setEnabled(hasSteps);
    menu->popup(fView->viewport()->mapToGlobal(place));
}

void WHistoryPane::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && fDocuments.view())
        fDocuments.view()->setFocus();
    else
        WPluginDockWidget::keyPressEvent(event);
}
