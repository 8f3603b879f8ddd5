#pragma once

#include "TYrexProcParams.h"
#include "canvas/TCanvasItemList.h"
#include "commands/TCommand.h"

#include <QVector>

class TCanvasYrexSpectrum;

/// Gives a chain to the selected spectra of items and runs it. Undo reads back a compressed snapshot of each item.
class TCmdYrexProcessing : public TCommand
{
    Q_OBJECT

public:
    TCmdYrexProcessing(const TCanvasItemList &items, const TYrexProcParams &newParams);

    void doHistoryCommand() override;
    void doCmd() override;
    void undoCmd() override;

private:
    void saveItem(const TCanvasYrexSpectrum &item, int index);
    void applyTo(TCanvasYrexSpectrum &item);

    QList<TCanvasYrexSpectrum *> fItems;
    QVector<QByteArray> fSnapshots; // compressed, by item
    TYrexProcParams fNewParams;
    TYrexProcParams fOldParams; // of the main item's current spectrum, for the history
};
