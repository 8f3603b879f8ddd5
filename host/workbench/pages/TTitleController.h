#pragma once

#include "TPlotSelection.h"

#include <QObject>

class TActionTable;
class TCanvasSpectrum;
class WDocumentView;

/// Lets titles be edited where they stand.
class TTitleController : public QObject
{
    Q_OBJECT

public:
    TTitleController(TActionTable &actions, TDocumentController &documents, QObject *parent);

private:
    /// `spectrum` is an index; `rect` in item coordinates.
    void edit(WDocumentView *view, TCanvasSpectrum *item, int spectrum, const QRectF &rect);
    /// The title of the item's active spectrum, wherever it would stand.
    void editActive();
    QString whyNot() const;

    TPlotSelection fSelection;
};
