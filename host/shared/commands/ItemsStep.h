#pragma once

#include "commands/TScriptStep.h"

#include <QByteArray>
#include <QVector>

class TCanvasItem;
class TDocument;

/// How scripts put items on pages that come from no file.
namespace ItemsStep {

constexpr int cNewPage = -1;

/// The step for items that were put on a page of a document just now: as copies where that is all they are
/// ("copyItems"), else with their data ("insertItems"). `page` is the page's place, or cNewPage.
TScriptStep insertion(const TCanvasItemList &items, const TDocument &document, int page);

/// Copies of items, which the caller owns, with places of their own where `rects` has one for each.
QList<TCanvasItem *> copies(const TCanvasItemList &items, const QVector<QRectF> &rects);
/// Items from the data of such a step, which the caller owns; their links lead to `linked` where that has an item, one
/// entry for each link of each item. Empty for damaged bytes.
QList<TCanvasItem *> inserted(const QByteArray &data, const QVector<ICanvasItem *> &linked);

} // namespace ItemsStep
