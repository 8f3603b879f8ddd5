#pragma once

#include "TYrexSpectrumCommand.h"
#include "commands/TPlotSnapshot.h"

#include <QByteArray>
#include <QVector>

class TYrexSpectrumPropertiesBag;

/// Gives items the fields of a properties bag.
class TCmdYrexPlotProperties : public TYrexSpectrumCommand
{
    Q_OBJECT

public:
    /// The fields that the bag applies are copied; all others stay as they are.
    TCmdYrexPlotProperties(const TCanvasItemList &items, const TYrexSpectrumPropertiesBag &bag);

    /// Tells what becomes another in any of the items.
    TScriptStep scriptStep() const override;
    void doCmd() override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    /// Items with a plot.
    bool isApplicable(TCanvasYrexSpectrum *item) const override;
    /// A slider that is drawn, or a number that is stepped, sets one field again and again.
    bool replacesInEditRun() const override { return true; }
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    QByteArray fNewProps;          // a stored bag
    QVector<QByteArray> fOldProps; // by item
    QVector<TPlotSnapshot> fPlots; // by item: colours and scales follow from fields
    QVector<int> fOldModes;        // by item
    bool fChanged = false;
};
