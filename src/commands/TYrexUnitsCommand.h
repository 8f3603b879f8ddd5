#pragma once

#include "commands/TPlotSnapshot.h"
#include "commands/TSpectraCommand.h"
#include "plot/TAxisDir.h"

#include <QVector>

class TCanvasYrexSpectrum;

/// What the two commands that show an axis of plots in another unit share: the units before, the plots as they were,
/// which undo puts back byte by byte (scales that were converted there and back are not quite what they were), and the
/// history.
class TYrexUnitsCommand : public TSpectraCommand
{
    Q_OBJECT

public:
    TYrexUnitsCommand(const QString &description, TAxisDir axis, int unit, const TCanvasItemList &items);

    void doCmd() override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool cmdItemApplicable(TCanvasItem *item) const override;
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;

protected:
    /// A step on those items that are changed.
    TScriptStep unitsStep(const QString &name) const;
    int unit() const { return fUnit; }
    /// The unit of a plot before the first do step.
    int oldUnit(int itemIndex, int plotIndex) const { return fOldUnits.at(itemIndex).value(plotIndex); }
    int shownUnit(const TBasePlot &plot) const;
    /// To be called when a do step changed something beside the plot's unit.
    void setChanged() { fChanged = true; }
    virtual void saveSpectra(TCanvasYrexSpectrum &item, int index) = 0;
    virtual void restoreSpectra(TCanvasYrexSpectrum &item, int index) = 0;

private:
    TAxisDir fAxis;
    int fUnit;
    QVector<QVector<int>> fOldUnits; // by item and plot
    QVector<TPlotSnapshot> fPlots;   // by item
    bool fChanged = false;
};
