#pragma once

#include <QPixmap>

class TPage;

/// A small picture of a page: paper, and its items as an overview without axes, at their full range.
QPixmap pageThumbnail(const TPage &page, const QSize &size, double devicePixelRatio);
