#pragma once

#include "commands/TCanvasItemsCommand.h"
#include "commands/TPlotSnapshot.h"

#include <QVariantMap>
#include <QVector>
#include <memory>

class TPropertiesBag;

/// Gives items the fields of a properties bag.
class TCmdPlotProperties : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    TCmdPlotProperties(const TCanvasItemList &items, std::unique_ptr<TPropertiesBag> bag);
    ~TCmdPlotProperties() override;

    TScriptStep scriptStep() const override;
    void doCmd() override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool cmdItemApplicable(TCanvasItem *item) const override;
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;

private:
    struct TBefore
    {
        QVariantMap fields;
        int displayMode = 0;
        TPlotSnapshot plots;
    };

    std::unique_ptr<TPropertiesBag> fBag;
    QVector<TBefore> fBefore; // one per item
    bool fChanged = false;
};
