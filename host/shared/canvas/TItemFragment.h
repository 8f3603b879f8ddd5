#pragma once

#include <QByteArray>
#include <QList>

class TCanvasItem;
class TCanvasItemList;

/// Items outside of a document: what the clipboard carries, and how pages are duplicated.
namespace TItemFragment {

/// An int32 count, then type number, id and block of each item, as in a document.
QByteArray store(const TCanvasItemList &items);
enum TKind { cCopies, cOriginals };
/// New items without a page, which the caller owns, each with an id of its own and, as copies, linked ("copyOf") to the
/// item that it was made from. Links among the items go over to the new ones. Empty for damaged bytes; items of an
/// unknown type are kept as their bytes.
QList<TCanvasItem *> load(const QByteArray &bytes, TKind kind = cCopies);

} // namespace TItemFragment
