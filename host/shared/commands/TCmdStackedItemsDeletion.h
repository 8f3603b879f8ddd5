#pragma once

#include "commands/TCanvasItemsCommand.h"
#include "commands/TPlotSnapshot.h"
#include "commands/TStackState.h"

#include <QVector>

/// Takes spectra out of stacks. A stack keeps one: when all are named, the active one stays. Undo brings contents,
/// places and looks back; the spectra get new ids.
class TCmdStackedItemsDeletion : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    TCmdStackedItemsDeletion(const TCanvasItemList &items, const QVector<int> &indices);

    TScriptStep scriptStep() const override;
    void doCmd() override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool cmdItemApplicable(TCanvasItem *item) const override;
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;

private:
    struct TTaken
    {
        int index = -1;
        QByteArray bytes;
    };
    struct TBefore
    {
        TStackState stack;
        TPlotSnapshot plots;
        QVector<TTaken> taken; // by descending index
    };

    QVector<int> fIndices;
    QVector<TBefore> fBefore; // one per item
    bool fChanged = false;
};
