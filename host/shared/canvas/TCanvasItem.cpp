#include "canvas/TCanvasItem.h"

#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "stream/TDataStream.h"
#include "utils/CommonUtils.h"

const QByteArray TCanvasItem::cCopyRole = QByteArrayLiteral("copyOf");

TCanvasItem::TCanvasItem(int rtti, TPage *page, const QString &name)
    : fRtti(rtti)
    , fId(Utils::Common::createUuid())
    , fName(name)
    , fProperties(*this)
{
    setCanvas(page);
}

TCanvasItem::~TCanvasItem()
{
    if (canvas())
        canvas()->forget(this);
}

QString TCanvasItem::title(bool) const
{
    return fName;
}

void TCanvasItem::setRect(const QRectF &rect)
{
    fRect = rect;
    placeGraphics();
}

void TCanvasItem::setLayoutPolicy(int policy, bool update)
{
    fPolicy = policy;
    if (update && policy == cFollowsPage && canvas())
        setRect(canvas()->contentRect());
}

void TCanvasItem::update()
{
    if (canvas())
        canvas()->itemChanged(this);
}

bool TCanvasItem::pushView(const QString &text, bool mergeable)
{
    auto *document = canvas() ? qobject_cast<TDocument *>(canvas()->parent()) : nullptr;
    TViewHistoryEntry view;
    captureView(view);
    return fViewHistory.push(view, text, mergeable, document ? document->history().gesture() : 0);
}

bool TCanvasItem::goToFormerView()
{
    TViewHistoryEntry view;
    captureView(view);
    if (!fViewHistory.goBack(TViewHistoryEntry(view), view))
        return false;
    restoreView(view);
    update();
    return true;
}

bool TCanvasItem::goToLaterView()
{
    TViewHistoryEntry view;
    captureView(view);
    if (!fViewHistory.goForward(TViewHistoryEntry(view), view))
        return false;
    restoreView(view);
    update();
    return true;
}

void TCanvasItem::link(TCanvasItem *item, const QByteArray &role, const QUuid &id)
{
    QList<QUuid> &ids = item->fLinks[role];
    if (!ids.contains(id))
        ids.append(id);
}

bool TCanvasItem::isLinkedTo(const QUuid &id) const
{
    for (auto it = fLinks.constBegin(); it != fLinks.constEnd(); ++it) {
        if (it.key() != cCopyRole && it.value().contains(id))
            return true;
    }
    return false;
}

void TCanvasItem::followCopies(const QMap<QUuid, QUuid> &copies)
{
    for (auto it = fLinks.begin(); it != fLinks.end(); ++it) {
        if (it.key() == cCopyRole)
            continue;
        for (QUuid &id : it.value())
            id = copies.value(id, id);
    }
}

QList<QUuid> TCanvasItem::linkedIds() const
{
    QList<QUuid> ids;
    for (const QList<QUuid> &each : fLinks)
        ids += each;
    return ids;
}

void TCanvasItem::replaceLinks(const QMap<QUuid, QUuid> &others)
{
    for (QList<QUuid> &ids : fLinks) {
        for (QUuid &id : ids)
            id = others.value(id, id);
    }
}

quint8 TCanvasItem::stateFlags() const
{
    return quint8((fActive ? cActive : 0) | (fSelected ? cSelected : 0) | (fLocked ? cLocked : 0));
}

void TCanvasItem::setStateFlags(quint8 flags)
{
    fActive = flags & cActive;
    fSelected = flags & cSelected;
    fLocked = flags & cLocked;
}

void TCanvasItem::storeLinks(TDataStream &stream) const
{
    stream << qint32(fLinks.size());
    for (auto it = fLinks.constBegin(); it != fLinks.constEnd(); ++it) {
        stream << it.key() << qint32(it.value().size());
        for (const QUuid &id : it.value())
            stream << id;
    }
}

void TCanvasItem::loadLinks(TDataStream &stream)
{
    constexpr int cIdSize = 16;
    fLinks.clear();
    const int count = stream.readCount(2 * int(sizeof(qint32)));
    for (int i = 0; i < count && stream.isGood(); ++i) {
        QByteArray role;
        stream >> role;
        const int idCount = stream.readCount(cIdSize);
        QList<QUuid> &ids = fLinks[role];
        for (int k = 0; k < idCount && stream.isGood(); ++k) {
            QUuid id;
            stream >> id;
            ids.append(id);
        }
    }
}
