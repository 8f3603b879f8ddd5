#pragma once

#include "canvas/TCanvasItemList.h"

class QByteArray;
class QMimeData;

/// Items on the clipboard, in all forms at once: as items, plots, picture and numbers. Callers own the mime data.
namespace TItemsMime {

constexpr int cMaxPoints = 200000; // of numbers that go along with a picture
/// "." or "," in numbers that are copied; the point without a setting.
constexpr char cDecimalSignKey[] = "Kelmora/Clipboard/DecimalSign";

/// Items as they stand on their page; at least one.
QMimeData *ofItems(const TCanvasItemList &items);
/// Only the numbers of the items that have some, a table after the other; null when there are none.
QMimeData *numbersOf(const TCanvasItemList &items);
/// The items of such data, for TCmdPasteItems; empty without.
QByteArray fragment(const QMimeData *data);
/// Text that may be a table of numbers, its columns separated by tabs where there are several forms; empty without.
QByteArray table(const QMimeData *data);

} // namespace TItemsMime
