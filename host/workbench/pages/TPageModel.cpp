#include "TPageModel.h"

#include "TPageThumbnail.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "consts/Consts.h"
#include "ui/TDragAndDropHandler.h"
#include "widgets/GuiUtils.h"

#include <QIcon>
#include <QMimeData>
#include <algorithm>

namespace {

const QString cPagesMime = QStringLiteral("application/x-kelmora-pages");

/// The same picture in every state, so that a chosen page is not tinted.
QIcon icon(const QPixmap &pixmap)
{
    QIcon same;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected, QIcon::Active})
        same.addPixmap(pixmap, mode);
    return same;
}

QString firstLine(const QString &text)
{
    return text.section('\n', 0, 0).trimmed();
}

QString titleOf(const TPage &page)
{
    if (!page.title().isEmpty() || page.items().isEmpty())
        return page.title();
    return firstLine(page.items().first()->title(true));
}

} // namespace

TPageModel::TPageModel(QObject *parent)
    : QAbstractItemModel(parent)
{
    fTimer.setSingleShot(true);
    connect(&fTimer, &QTimer::timeout, this, &TPageModel::drawNext);
}

void TPageModel::setDocument(TDocument *document)
{
    if (fDocument) {
        for (TPage *page : fDocument->pages())
            page->disconnect(this);
        fDocument->disconnect(this);
    }
    fDocument = document;
    if (document)
        connect(document, &TDocument::pagesChanged, this, &TPageModel::reload);
    fThumbnails.clear();
    fSparklines.clear();
    fStale.clear();
    reload();
}

void TPageModel::watchPages()
{
    fItemCounts.clear();
    fPages = fDocument ? fDocument->pages() : QList<TPage *>();
    for (TPage *page : qAsConst(fPages)) {
        fItemCounts.insert(page, page->items().size());
        watch(page);
        if (!fThumbnails.contains(page))
            fStale.insert(page);
    }
    if (!fStale.isEmpty() && !fTimer.isActive())
        fTimer.start(0);
}

void TPageModel::watch(TPage *page)
{
    page->disconnect(this);
    const auto changed = [this, page](TCanvasItem *item) {
        fSparklines.remove(item);
        itemsChanged(page);
    };
    connect(page, &TPage::changed, this, changed);
    connect(page, &TPage::itemAdded, this, changed);
    connect(page, &TPage::itemRemoved, this, changed);
    connect(page, &TPage::pageChanged, this, [this, page] { itemsChanged(page); });
    connect(page, &QObject::destroyed, this, [this, page] {
        fThumbnails.remove(page);
        fStale.remove(page);
    });
}

void TPageModel::reload()
{
    beginResetModel();
    watchPages();
    endResetModel();
}

/// Items that came or went are told at once, since rows have to be those of the page.
void TPageModel::itemsChanged(TPage *page)
{
    if (!indexOf(page).isValid())
        return;
    if (fItemCounts.value(page) != page->items().size())
        reload();
    fStale.insert(page);
    fTimer.start(cDelay);
}

void TPageModel::drawNext()
{
    if (!fDocument)
        return;
    const TPage *next = nullptr;
    for (const TPage *page : qAsConst(fPages)) {
        if (!fStale.contains(page))
            continue;
        const bool isSeen = !fIsSeen || fIsSeen(page);
        if (isSeen || !next)
            next = page;
        if (isSeen)
            break;
    }
    if (!next) {
        fStale.clear(); // pages that are gone
        return;
    }
    fThumbnails.insert(next, pageThumbnail(*next, fSize, fRatio));
    fStale.remove(next);
    const QModelIndex place = indexOf(next);
    emit dataChanged(place, place);
    if (!next->items().isEmpty())
        emit dataChanged(index(0, 0, place), index(next->items().size() - 1, 0, place));
    if (!fStale.isEmpty())
        fTimer.start(0); // what the user does comes in between
}

void TPageModel::setThumbnailSize(const QSize &size, double devicePixelRatio)
{
    if (size == fSize && qFuzzyCompare(fRatio, devicePixelRatio))
        return;
    fSize = size;
    fRatio = devicePixelRatio;
    fThumbnails.clear();
    fSparklines.clear();
    watchPages();
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, 0));
}

QModelIndex TPageModel::index(int row, int column, const QModelIndex &parent) const
{
    if (row < 0 || column != 0 || row >= rowCount(parent))
        return QModelIndex();
    return createIndex(row, column, parent.isValid() ? quintptr(parent.row() + 1) : 0); // 0: a page
}

QModelIndex TPageModel::parent(const QModelIndex &index) const
{
    return index.isValid() && index.internalId() > 0 ? createIndex(int(index.internalId()) - 1, 0, quintptr(0))
                                                     : QModelIndex();
}

TPage *TPageModel::page(const QModelIndex &index) const
{
    const QModelIndex own = index.parent().isValid() ? index.parent() : index;
    return fDocument && own.isValid() ? fPages.value(own.row()) : nullptr;
}

TCanvasItem *TPageModel::item(const QModelIndex &index) const
{
    const TPage *own = index.parent().isValid() ? page(index) : nullptr;
    return own ? own->items().value(index.row()) : nullptr;
}

QModelIndex TPageModel::indexOf(const TPage *page) const
{
    const int row = fDocument && page ? fPages.indexOf(const_cast<TPage *>(page)) : -1;
    return row < 0 ? QModelIndex() : index(row, 0);
}

int TPageModel::rowCount(const QModelIndex &parent) const
{
    if (!fDocument)
        return 0;
    if (!parent.isValid())
        return fPages.size();
    return parent.parent().isValid() ? 0 : fItemCounts.value(page(parent));
}

int TPageModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant TPageModel::data(const QModelIndex &index, int role) const
{
    return index.parent().isValid() ? itemFacts(index, role) : pageData(index, role);
}

QVariant TPageModel::pageData(const QModelIndex &index, int role) const
{
    const TPage *one = page(index);
    if (!one)
        return QVariant();
    const QString number = QString::number(index.row() + 1);
    const QString title = titleOf(*one);
    switch (role) {
    case Qt::DisplayRole:
        return title.isEmpty() ? number : QString("%1  %2").arg(number, title);
    case Qt::ToolTipRole:
        return Utils::Gui::dataTip(title);
    case Qt::EditRole:
        return one->title();
    case Qt::DecorationRole: {
        QPixmap blank(fSize * fRatio);
        if (!fThumbnails.contains(one)) {
            blank.setDevicePixelRatio(fRatio);
            blank.fill(Qt::transparent);
        }
        return icon(fThumbnails.value(one, blank));
    }
    default:
        return QVariant();
    }
}

QVariant TPageModel::itemFacts(const QModelIndex &index, int role) const
{
    TCanvasItem *one = item(index);
    if (!one)
        return QVariant();
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        const QString title = firstLine(one->title(true));
        const QString shown = title.isEmpty() ? one->type() : title;
        return role == Qt::ToolTipRole ? Utils::Gui::dataTip(shown) : shown;
    }
    if (role != Qt::DecorationRole)
        return QVariant();
    if (!fSparklines.contains(one))
        fSparklines.insert(one, itemSparkline(*one, cSparkline, fRatio));
    return icon(fSparklines.value(one));
}

Qt::ItemFlags TPageModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::ItemIsDropEnabled; // pages are dropped between pages
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    return index.parent().isValid() ? flags | Qt::ItemNeverHasChildren | Qt::ItemIsDragEnabled
                                    : flags | Qt::ItemIsEditable | Qt::ItemIsDragEnabled;
}

bool TPageModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    TPage *one = index.parent().isValid() ? nullptr : page(index);
    const QString title = value.toString().trimmed();
    if (!one || role != Qt::EditRole || title == one->title())
        return false;
    emit renamed(one, title);
    return true;
}

QStringList TPageModel::mimeTypes() const
{
    return {cPagesMime, QString(Consts::Common::cPageNavigatorDragId)};
}

QMimeData *TPageModel::mimeData(const QModelIndexList &indexes) const
{
    QStringList rows;
    QList<TPage *> pages;
    TCanvasItemList items;
    for (const QModelIndex &index : indexes) {
        if (index.parent().isValid()) {
            items.append(item(index));
            continue;
        }
        rows.append(QString::number(index.row()));
        pages.append(page(index));
    }
    auto *data = new QMimeData;
    if (!rows.isEmpty()) // items alone have no place among pages
        data->setData(cPagesMime, rows.join(' ').toLatin1());
    if (fDocument)
        data->setData(Consts::Common::cPageNavigatorDragId, PageDrag::store(*fDocument, pages, items));
    return data;
}

bool TPageModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int, const QModelIndex &parent)
{
    if (!fDocument || !data || action != Qt::MoveAction || !data->hasFormat(cPagesMime))
        return false;
    QList<int> rows;
    for (const QByteArray &text : data->data(cPagesMime).split(' '))
        rows.append(text.toInt());
    std::sort(rows.begin(), rows.end());
    QList<TPage *> pages;
    for (const int one : qAsConst(rows)) {
        if (TPage *page = fPages.value(one))
            pages.append(page);
    }
    const int place = parent.isValid() || row < 0 ? rowCount() : row;
    emit moved(pages, place);
    return false; // the command moved them; the view has nothing to remove
}
