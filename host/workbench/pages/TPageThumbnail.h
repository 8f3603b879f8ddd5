#pragma once

#include <QPixmap>

class TCanvasItem;
class TPage;

/// A small picture of a page: paper, and its items as an overview without axes, at their full range.
QPixmap pageThumbnail(const TPage &page, const QSize &size, double devicePixelRatio);
/// The curves of one item, so small that only their shape is told.
QPixmap itemSparkline(TCanvasItem &item, const QSize &size, double devicePixelRatio);
