#pragma once

#include "TYrexSpectrumCommand.h"

#include <QVector>

/// Shows or hides integrals, their labels or their curves.
class TCmdShowYrexItemFeature : public TYrexSpectrumCommand
{
    Q_OBJECT

public:
    enum TFeature { cIntegralLabels = 0, cIntegrals = 1, cIntegralCurves = 2 };

    /// All items get the opposite of what the main item shows now. A number that is no feature does nothing.
    TCmdShowYrexItemFeature(int feature, const TCanvasItemList &items);

    /// All items show it, or none does.
    TCmdShowYrexItemFeature(int feature, bool show, const TCanvasItemList &items);

    TScriptStep scriptStep() const override;
    void doCmd() override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override;
    /// Items with a plot.
    bool isApplicable(TCanvasYrexSpectrum *item) const override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

    /// Whether an item shows the feature; false for null, an item without plot or an unknown feature.
    static bool isShown(const TCanvasYrexSpectrum *item, int feature);

private:
    static void show(TCanvasYrexSpectrum *item, int feature, bool on);

    int fFeature;
    bool fShow;
    QVector<char> fOldStates; // by item
    bool fChanged = false;
};
