#pragma once

#include "canvas/TCanvasItemList.h"

#include <QPointF>
#include <QString>

class QMimeData;
class TDocumentController;

/// Pages and items that are dragged onto the paper of the page that is shown: their items go there, or copies of them.
class TPageDrop
{
public:
    TPageDrop(TDocumentController &documents, const QMimeData &mime, bool copies);

    /// Without items that could go there.
    bool isEmpty() const { return fItems.isEmpty(); }
    QString label() const;
    /// One step; `place` is where items that leave room stand, in canvas units. Whether anything was done.
    bool run(const QPointF &place) const;

private:
    QRectF rectFor(const QRectF &own, const QPointF &place) const;

    TDocumentController &fDocuments;
    bool fCopies;
    TCanvasItemList fItems;
};
