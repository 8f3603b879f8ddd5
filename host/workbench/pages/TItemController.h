#pragma once

#include "canvas/TCanvasItemList.h"

#include <QObject>
#include <QRectF>
#include <functional>

class TActionTable;
class TDocumentController;

/// The actions on items as a whole: delete, select, arrange, align.
class TItemController : public QObject
{
    Q_OBJECT

public:
    TItemController(TActionTable &actions, TDocumentController &documents, QObject *parent);

private:
    using TPlace = std::function<QRectF(const QRectF &item, const QRectF &frame)>;

    TCanvasItemList items() const;
    /// Places each selected item within the bounds of all, or within the page's margins when there is one only.
    void place(const TPlace &place);
    void tile();

    TDocumentController &fDocuments;
};
