#include "WPageNavigator.h"

#include <QListView>
#include <QResizeEvent>
#include <QScrollBar>

namespace {

constexpr int cMinWidth = 80;
constexpr int cMaxWidth = 320;
constexpr int cPadding = 12;
constexpr double cPaperRatio = 2100.0 / 2970.0;

} // namespace

WPageNavigator::WPageNavigator(QWidget *parent)
    : WPluginDockWidget("pageNavigator", tr("Pages"), parent)
    , fList(new QListView(this))
{
    fList->setViewMode(QListView::IconMode);
    fList->setFlow(QListView::TopToBottom);
    fList->setWrapping(false);
    fList->setMovement(QListView::Static);
    fList->setResizeMode(QListView::Adjust);
    fList->setFrameShape(QFrame::NoFrame);
    fList->setSpacing(cPadding / 2);
    fList->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    fList->setModel(&fModel);
    fList->setEditTriggers(QAbstractItemView::EditKeyPressed);
    setWidget(fList);
    connect(&fModel, &TPageModel::renamed, this, &WPageNavigator::pageRenamed);
    connect(fList->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex &index) {
        if (TPage *page = fModel.page(index))
            emit pageChosen(page);
    });
}

void WPageNavigator::setDocument(TDocument *document)
{
    const QSignalBlocker quiet(this); // the page that is shown is told next
    fModel.setDocument(document);
}

void WPageNavigator::setPage(TPage *page)
{
    const QModelIndex index = fModel.indexOf(page);
    if (index.isValid() && fList->currentIndex() != index)
        fList->setCurrentIndex(index);
}

void WPageNavigator::renameCurrent()
{
    show();
    raise();
    fList->setFocus();
    fList->edit(fList->currentIndex());
}

void WPageNavigator::resizeEvent(QResizeEvent *event)
{
    WPluginDockWidget::resizeEvent(event);
    const int room = fList->width() - fList->verticalScrollBar()->sizeHint().width() - 2 * cPadding;
    const int width = qBound(cMinWidth, room, cMaxWidth);
    const QSize size(width, qRound(width * cPaperRatio));
    fList->setIconSize(size);
    fList->setGridSize(size + QSize(cPadding, cPadding + fontMetrics().height()));
    fModel.setThumbnailSize(size, devicePixelRatioF());
}
