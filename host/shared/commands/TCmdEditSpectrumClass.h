#pragma once

#include "commands/TCanvasItemsCommand.h"
#include "commands/TPlotSnapshot.h"
#include "plot/TStackedClassProperties.h"

#include <QVector>

/// Files spectra of stacks under a class.
class TCmdEditSpectrumClass : public TCanvasItemsCommand
{
    Q_OBJECT

public:
    /// Properties without a name take the class away.
    TCmdEditSpectrumClass(const TCanvasItemList &items, const QVector<int> &indices,
                          const TStackedClassProperties &properties);

    TScriptStep scriptStep() const override;
    void doCmd() override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool cmdItemApplicable(TCanvasItem *item) const override;
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;

private:
    struct TBefore
    {
        QMap<int, QString> names; // by index
        TPlotSnapshot plots;
    };

    QVector<int> fIndices;
    TStackedClassProperties fProperties;
    QVector<TBefore> fBefore; // one per item
    bool fChanged = false;
};
