#pragma once

#include "TYrexProcParams.h"
#include "TYrexProcessingCommand.h"
#include "commands/ICommandRemarks.h"

#include <QList>

/// Gives a chain to the selected spectra of items and runs it, section by section, with the figures that stack actions
/// need computed in between.
class TCmdYrexProcessing : public TYrexProcessingCommand, public ICommandRemarks
{
    Q_OBJECT

public:
    TCmdYrexProcessing(const TCanvasItemList &items, const TYrexProcParams &newParams);

    void doCmd() override;
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void setSpectrumParams(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) override;
    /// The chain is told as a change of that of the first item's first target.
    TScriptStep scriptStep() const override;
    /// One entry, for the first item: what changed in the chain. None for a chain that is the same.
    void doHistoryCommand() override;

    /// Spectra that stack actions could not compare with the others.
    QStringList remarks() const override { return fRemarks; }

    /// The spectra of the first item that were meant when the command was made.
    int targetCount() const { return fTargetCount; }
    int pointCount() const { return fPointCount; }

private:
    void runPrepass(TCanvasYrexSpectrum *item, int index, int action, bool isFirst);
    QVector<TYrexSpectrum *> targetSpectra(TCanvasYrexSpectrum *item, int index) const;

    TYrexProcParams fNewParams;
    int fTargetCount = 0;
    int fPointCount = 0;
    QStringList fRemarks;
    TYrexProcParams fOldParams; // of the main item's current spectrum before the do step, for the history
};
