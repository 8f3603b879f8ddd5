#include "WPageNavigator.h"

#include "widgets/TOwnKeys.h"

#include <QMouseEvent>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <algorithm>

namespace {

constexpr int cMinWidth = 80;
constexpr int cMaxWidth = 320;
constexpr int cPadding = 12;
constexpr int cIndentation = 16;
constexpr double cPaperRatio = 2100.0 / 2970.0;

class TPagesView : public QTreeView
{
public:
    using QTreeView::QTreeView;

    void setDragEnd(const std::function<void()> &dragEnd) { fDragEnd = dragEnd; }

protected:
    void startDrag(Qt::DropActions actions) override
    {
        QTreeView::startDrag(actions);
        fDragEnd();
    }

private:
    std::function<void()> fDragEnd;
};

/// The thumbnail of a page stands above its title.
class TPageDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setThumbnailSize(const QSize &size) { fSize = size; }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->textElideMode = Qt::ElideRight;
        if (index.parent().isValid()) {
            option->decorationSize = TPageModel::cSparkline;
            return;
        }
        option->decorationSize = fSize;
        option->decorationPosition = QStyleOptionViewItem::Top;
        option->displayAlignment = Qt::AlignHCenter | Qt::AlignTop;
    }
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const int line = option.fontMetrics.height();
        return index.parent().isValid() ? QSize(0, qMax(line, TPageModel::cSparkline.height()) + 4)
                                        : QSize(fSize.width(), fSize.height() + line + cPadding);
    }

private:
    QSize fSize{140, 99};
};

} // namespace

WPageNavigator::WPageNavigator(QWidget *parent)
    : WPluginDockWidget("pageNavigator", tr("Pages"), parent)
    , fView(new TPagesView(this))
{
    makeView();
    setWidget(fView);
    fModel.setSeen([this](const TPage *page) {
        return fView->isVisible() && fView->viewport()->rect().intersects(fView->visualRect(fModel.indexOf(page)));
    });
    connect(&fModel, &TPageModel::renamed, this, &WPageNavigator::pageRenamed);
    connect(&fModel, &TPageModel::moved, this, &WPageNavigator::pagesMoved);
    connect(&fModel, &QAbstractItemModel::modelAboutToBeReset, this, &WPageNavigator::keepState);
    connect(&fModel, &QAbstractItemModel::modelReset, this, &WPageNavigator::restoreState);
    connect(fView->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex &index) {
        fIsChoiceDue = fIsPressed && !fIsQuiet;
        if (!fIsPressed && !fIsQuiet)
            choose(index);
    });
    connect(fView, &QWidget::customContextMenuRequested, this,
            [this](const QPoint &place) { emit menuWanted(fView->viewport()->mapToGlobal(place)); });
}

/// A drag took the release of the button; the page that is shown stays the current one.
void WPageNavigator::endDrag()
{
    fIsPressed = false;
    fIsChoiceDue = false;
    const QScopedValueRollback<bool> quiet(fIsQuiet, true);
    if (fModel.page(fView->currentIndex()) != fShown && fModel.indexOf(fShown).isValid())
        fView->setCurrentIndex(fModel.indexOf(fShown));
}

void WPageNavigator::choose(const QModelIndex &index)
{
    fIsChoiceDue = false;
    TPage *page = fModel.page(index);
    if (!page)
        return;
    if (TCanvasItem *item = fModel.item(index))
        emit itemChosen(item);
    else
        emit pageChosen(page);
}

bool WPageNavigator::eventFilter(QObject *object, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        fIsPressed = static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton;
        break;
    case QEvent::MouseButtonRelease:
        fIsPressed = false;
        if (fIsChoiceDue)
            choose(fView->currentIndex());
        break;
    default:
        break;
    }
    return WPluginDockWidget::eventFilter(object, event);
}

void WPageNavigator::makeView()
{
    fView->setHeaderHidden(true);
    fView->setFrameShape(QFrame::NoFrame);
    fView->setIndentation(cIndentation);
    fView->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    fView->setSelectionMode(QAbstractItemView::ExtendedSelection);
    fView->setDragDropMode(QAbstractItemView::InternalMove);
    fView->setDragDropOverwriteMode(false);
    fView->setDropIndicatorShown(true);
    fView->setEditTriggers(QAbstractItemView::EditKeyPressed);
    fView->setExpandsOnDoubleClick(false);
    fView->setContextMenuPolicy(Qt::CustomContextMenu);
    fView->setAccessibleName(tr("Pages"));
    fView->setItemDelegate(new TPageDelegate(fView));
    fView->setModel(&fModel);
    fView->viewport()->installEventFilter(this);
    static_cast<TPagesView *>(fView)->setDragEnd([this] { endDrag(); });
    auto *keys = new TOwnKeys(fView);
    keys->add(QKeySequence(Qt::Key_Delete), [this] { emit deletionWanted(); });
    keys->add(QKeySequence(Qt::Key_Escape), [this] { emit focusReturned(); });
    for (const int key : {int(Qt::Key_F2), int(Qt::Key_PageUp), int(Qt::Key_PageDown), int(Qt::CTRL) + Qt::Key_A})
        keys->keep(QKeySequence(key));
}

void WPageNavigator::setDocument(TDocument *document)
{
    const QScopedValueRollback<bool> quiet(fIsQuiet, true); // the page that is shown is told next
    fModel.setDocument(document);
}

void WPageNavigator::setPage(TPage *page)
{
    fShown = page;
    const QModelIndex index = fModel.indexOf(page);
    if (index.isValid() && fModel.page(fView->currentIndex()) != page)
        fView->setCurrentIndex(index);
}

QList<TPage *> WPageNavigator::chosenPages() const
{
    QList<QPair<int, TPage *>> chosen;
    QModelIndexList places = fView->selectionModel()->selectedIndexes();
    if (places.isEmpty())
        places.append(fView->currentIndex());
    for (const QModelIndex &place : qAsConst(places)) {
        TPage *page = fModel.page(place);
        const QPair<int, TPage *> entry(fModel.indexOf(page).row(), page);
        if (page && !chosen.contains(entry))
            chosen.append(entry);
    }
    std::sort(chosen.begin(), chosen.end());
    QList<TPage *> pages;
    for (const QPair<int, TPage *> &entry : qAsConst(chosen))
        pages.append(entry.second);
    return pages;
}

/// Rows that were open or selected are so again when pages moved.
void WPageNavigator::keepState()
{
    fOpen.clear();
    fSelected.clear();
    for (int row = 0; row < fModel.rowCount(); ++row) {
        const QModelIndex index = fModel.index(row, 0);
        if (fView->isExpanded(index))
            fOpen.append(fModel.page(index));
    }
    for (TPage *page : chosenPages())
        fSelected.append(page);
}

void WPageNavigator::restoreState()
{
    const QScopedValueRollback<bool> quiet(fIsQuiet, true);
    if (fModel.indexOf(fShown).isValid())
        fView->setCurrentIndex(fModel.indexOf(fShown));
    for (const TPage *page : qAsConst(fOpen))
        fView->setExpanded(fModel.indexOf(page), true);
    for (const TPage *page : qAsConst(fSelected))
        fView->selectionModel()->select(fModel.indexOf(page), QItemSelectionModel::Select);
}

void WPageNavigator::renameCurrent()
{
    show();
    raise();
    fView->setFocus();
    const QModelIndex index = fModel.indexOf(fModel.page(fView->currentIndex()));
    fView->setCurrentIndex(index);
    fView->edit(index);
}

void WPageNavigator::resizeEvent(QResizeEvent *event)
{
    WPluginDockWidget::resizeEvent(event);
    const int room = fView->width() - fView->verticalScrollBar()->sizeHint().width() - cIndentation - cPadding;
    const int width = qBound(cMinWidth, room, cMaxWidth);
    const QSize size(width, qRound(width * cPaperRatio));
    static_cast<TPageDelegate *>(fView->itemDelegate())->setThumbnailSize(size);
    fModel.setThumbnailSize(size, devicePixelRatioF());
    fView->doItemsLayout();
}
