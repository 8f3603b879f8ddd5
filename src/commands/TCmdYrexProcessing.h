#pragma once

#include "TYrexProcParams.h"
#include "TYrexProcessingCommand.h"

#include <QList>

/// Gives a chain to the selected spectra of items and runs it, section by section, with the figures that stack actions
/// need computed in between.
class TCmdYrexProcessing : public TYrexProcessingCommand
{
    Q_OBJECT

public:
    TCmdYrexProcessing(const TCanvasItemList &items, const TYrexProcParams &newParams);

    void doCmd() override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void setSpectrumParams(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) override;
    /// One entry, for the first item: what changed in the chain. None for a chain that is the same.
    void doHistoryCommand() override;

    /// The spectra of the first item that were meant when the command was made.
    int targetCount() const { return fTargetCount; }
    int pointCount() const { return fPointCount; }

private:
    void runPrepass(TCanvasYrexSpectrum *item, int action, bool isFirst);
    QVector<TYrexSpectrum *> targetSpectra(TCanvasYrexSpectrum *item);

    TYrexProcParams fNewParams;
    int fTargetCount = 0;
    int fPointCount = 0;
    QVector<int> fTargets;      // indices, taken afresh for each section
    TYrexProcParams fOldParams; // of the main item's current spectrum before the do step, for the history
};
