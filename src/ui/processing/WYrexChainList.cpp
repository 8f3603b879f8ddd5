#include "WYrexChainList.h"

#include "TYrexChainRules.h"
#include "TYrexProcIds.h"
#include "TYrexProcParams.h"
#include "widgets/GuiUtils.h"
#include "widgets/TOwnKeys.h"

#include <QApplication>
#include <QDropEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

namespace {

constexpr double cLongTime = 50.0; // ms; shorter runs are not worth a word
constexpr int cTimeRole = Qt::UserRole;
constexpr int cMargin = 6;
constexpr int cLeastRows = 4;

QString timeText(double ms)
{
    if (ms <= cLongTime)
        return QString();
    return ms < 1000.0 ? QString("%1 ms").arg(qRound(ms)) : QString("%1 s").arg(ms / 1000.0, 0, 'f', 1);
}

/// Draws the run time of a row at its right.
class TRowDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QString time = timeText(index.data(cTimeRole).toDouble());
        if (time.isEmpty()) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        const bool isSelected = option.state & QStyle::State_Selected;
        painter->save();
        QStyleOptionViewItem name = option; // which ends where the time begins
        name.textElideMode = Qt::ElideRight;
        name.rect.setRight(option.rect.right() - option.fontMetrics.horizontalAdvance(time) - 2 * cMargin);
        if (isSelected)
            painter->fillRect(option.rect, option.palette.brush(QPalette::Highlight));
        QStyledItemDelegate::paint(painter, name, index);
        painter->setFont(option.font);
        painter->setPen(isSelected ? option.palette.color(QPalette::HighlightedText)
                                   : option.palette.color(QPalette::Disabled, QPalette::Text));
        painter->drawText(option.rect.adjusted(0, 0, -cMargin, 0), Qt::AlignRight | Qt::AlignVCenter, time);
        painter->restore();
    }
};

} // namespace

WYrexChainList::WYrexChainList(QWidget *parent)
    : QListWidget(parent)
{
    setObjectName("listWidgetProcessingActions");
    setAccessibleName(tr("Processing actions"));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragDropMode(QAbstractItemView::InternalMove);
    setDefaultDropAction(Qt::MoveAction);
    setUniformItemSizes(true);
    setItemDelegate(new TRowDelegate(this));
    setMinimumHeight(cLeastRows * fontMetrics().height());
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QListWidget::itemChanged, this, &WYrexChainList::noteChange);
    makeKeys();
}

void WYrexChainList::makeKeys()
{
    auto *keys = new TOwnKeys(this);
    keys->add(QKeySequence(Qt::Key_Space), [this] {
        for (QListWidgetItem *item : selectedItems())
            item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    });
    keys->add(QKeySequence(Qt::ALT + Qt::Key_Up), [this] { emit stepWanted(-1); });
    keys->add(QKeySequence(Qt::ALT + Qt::Key_Down), [this] { emit stepWanted(1); });
    keys->add(QKeySequence(Qt::CTRL + Qt::Key_Delete), [this] { emit removeWanted(); });
}

void WYrexChainList::setChain(const QVariantList &chain, const QVector<TYrexChainRow> &rows)
{
    const QScopedValueRollback<bool> filling(fIsFilling, true);
    bool isSame = count() == chain.size();
    for (int row = 0; isSame && row < chain.size(); ++row)
        isSame = item(row)->type() == chain.at(row).toMap().value(cKeyOpId).toInt();
    if (!isSame) {
        const QSignalBlocker blocker(this);
        const QVector<int> selected = selectedRows();
        const int current = currentRow();
        clear();
        for (const QVariant &action : chain) {
            const int id = action.toMap().value(cKeyOpId).toInt();
            addItem(new QListWidgetItem(TYrexProcParams::label(id), nullptr, id));
        }
        setCurrentRow(current, QItemSelectionModel::NoUpdate);
        for (const int row : selected) {
            if (item(row))
                item(row)->setSelected(true);
        }
    }
    for (int row = 0; row < chain.size(); ++row)
        showRow(item(row), chain.at(row).toMap(), rows.value(row));
}

void WYrexChainList::showRow(QListWidgetItem *item, const QVariantMap &action, const TYrexChainRow &row)
{
    item->setHidden(row.fIsHidden);
    QFont font = item->font();
    font.setItalic(row.fIsVarious);
    item->setData(cTimeRole, row.fTime);
    if (row.fIsHidden) {
        item->setFlags(Qt::NoItemFlags);
        item->setToolTip(tr("Processing action not intended for single spectrum"));
        item->setCheckState(Qt::Unchecked);
        font.setWeight(QFont::Normal);
        item->setSelected(false);
    } else {
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled);
        item->setCheckState(action.value(cKeyApply).toBool() ? Qt::Checked : Qt::Unchecked);
        const QString values = TYrexChainRules::summary(action);
        item->setToolTip(Utils::Gui::dataTip(values.isEmpty() ? item->text() : values));
    }
    item->setFont(font);
}

QVector<int> WYrexChainList::selectedRows() const
{
    QVector<int> rows;
    for (const QListWidgetItem *item : selectedItems())
        rows.append(row(item));
    std::sort(rows.begin(), rows.end());
    return rows;
}

void WYrexChainList::setBoldRow(int bold)
{
    const QScopedValueRollback<bool> filling(fIsFilling, true);
    for (int i = 0; i < count(); ++i) {
        QFont font = item(i)->font();
        font.setWeight(i == bold ? QFont::Bold : QFont::Normal);
        item(i)->setFont(font);
    }
}

bool WYrexChainList::isChecked(int row) const
{
    return item(row) && item(row)->checkState() == Qt::Checked;
}

int WYrexChainList::hiddenCount() const
{
    int hidden = 0;
    for (int i = 0; i < count(); ++i)
        hidden += item(i)->isHidden();
    return hidden;
}

void WYrexChainList::noteChange(QListWidgetItem *item)
{
    if (!fIsFilling)
        emit checkChanged(row(item), item->checkState() == Qt::Checked);
}

/// The order is the chain's; the list follows it.
void WYrexChainList::dropEvent(QDropEvent *event)
{
    const QVector<int> rows = selectedRows();
    if (event->source() != this || rows.size() != 1) {
        event->ignore();
        return;
    }
    const QModelIndex target = indexAt(event->pos());
    int to = target.isValid() ? target.row() : count() - 1;
    const bool isBelow = target.isValid() && event->pos().y() > visualRect(target).center().y();
    if (target.isValid() && to > rows.first() && !isBelow)
        --to;
    else if (target.isValid() && to < rows.first() && isBelow)
        ++to;
    event->setDropAction(Qt::IgnoreAction); // nothing is taken out of here by the view
    event->accept();
    if (to != rows.first())
        emit moveWanted(rows.first(), to);
}
