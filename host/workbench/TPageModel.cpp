#include "TPageModel.h"

#include "TPageThumbnail.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"

#include <QIcon>

namespace {

constexpr int cDelay = 250; // milliseconds

/// The same picture in every state, so that a chosen page is not tinted.
QIcon icon(const QPixmap &pixmap)
{
    QIcon same;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected, QIcon::Active})
        same.addPixmap(pixmap, mode);
    return same;
}

} // namespace

TPageModel::TPageModel(QObject *parent)
    : QAbstractListModel(parent)
{
    fTimer.setSingleShot(true);
    fTimer.setInterval(cDelay);
    connect(&fTimer, &QTimer::timeout, this, &TPageModel::showChanged);
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
    reload();
}

void TPageModel::watchPages()
{
    if (!fDocument)
        return;
    for (TPage *page : fDocument->pages()) {
        page->disconnect(this);
        const auto changed = [this, page] { pageChanged(page); };
        connect(page, &TPage::changed, this, changed);
        connect(page, &TPage::itemAdded, this, changed);
        connect(page, &TPage::itemRemoved, this, changed);
        connect(page, &TPage::pageChanged, this, changed);
        connect(page, &QObject::destroyed, this, [this, page] { fThumbnails.remove(page); });
    }
}

void TPageModel::reload()
{
    beginResetModel();
    watchPages();
    endResetModel();
}

void TPageModel::pageChanged(TPage *page)
{
    fStale.insert(page);
    fTimer.start();
}

void TPageModel::showChanged()
{
    for (const TPage *page : qAsConst(fStale))
        fThumbnails.remove(page);
    fStale.clear();
    if (rowCount() > 0)
        emit dataChanged(index(0), index(rowCount() - 1));
}

void TPageModel::setThumbnailSize(const QSize &size, double devicePixelRatio)
{
    if (size == fSize && qFuzzyCompare(fRatio, devicePixelRatio))
        return;
    fSize = size;
    fRatio = devicePixelRatio;
    fThumbnails.clear();
    showChanged();
}

TPage *TPageModel::page(const QModelIndex &index) const
{
    return fDocument && index.isValid() ? fDocument->pages().value(index.row()) : nullptr;
}

QModelIndex TPageModel::indexOf(const TPage *page) const
{
    const int row = fDocument && page ? fDocument->pages().indexOf(const_cast<TPage *>(page)) : -1;
    return row < 0 ? QModelIndex() : index(row);
}

int TPageModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !fDocument ? 0 : fDocument->pages().size();
}

QVariant TPageModel::data(const QModelIndex &index, int role) const
{
    const TPage *one = page(index);
    if (!one)
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return one->title().isEmpty() ? QString::number(index.row() + 1)
                                      : QString("%1  %2").arg(index.row() + 1).arg(one->title());
    case Qt::EditRole:
        return one->title();
    case Qt::DecorationRole:
        if (!fThumbnails.contains(one))
            fThumbnails.insert(one, pageThumbnail(*one, fSize, fRatio));
        return icon(fThumbnails.value(one));
    case Qt::TextAlignmentRole:
        return int(Qt::AlignCenter);
    default:
        return QVariant();
    }
}

Qt::ItemFlags TPageModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractListModel::flags(index);
    return page(index) ? flags | Qt::ItemIsEditable : flags;
}

bool TPageModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    TPage *one = page(index);
    const QString title = value.toString().trimmed();
    if (!one || role != Qt::EditRole || title == one->title())
        return false;
    emit renamed(one, title);
    return true;
}
