#pragma once

#include <QByteArray>
#include <QRectF>

class QPainter;
class TPage;

/// Share of the page's sides that an item in a corner takes.
constexpr double cCornerShare = 0.45;

/// The corner of a part of a page where least is drawn: the room for one more item, in canvas units. A null part is the
/// page inside its margins.
QRectF emptiestCorner(const TPage &page, const QRectF &part = QRectF());

/// The largest rectangle of `area` that none of the others touches; null when there is none, or too many others to
/// look for it.
QRectF largestFreeRect(const QRectF &area, const QVector<QRectF> &taken);

/// The role of the link from an enlarged part to the item that it was taken from.
extern const QByteArray cExpansionRole;

/// Draws two thin lines from each enlarged part on the page to the stretch of the plot that it shows. The painter is
/// scaled to the page's canvas units.
void drawExpansionTies(QPainter &painter, const TPage &page);
