#pragma once

#include "TYrexListCommand.h"

/// Base of the commands that give a chain to spectra and run it.
class TYrexProcessingCommand : public TYrexListCommand
{
    Q_OBJECT

public:
    using TYrexListCommand::TYrexListCommand;

    bool replacesInEditRun() const override { return true; }
    /// Gives the chain to a spectrum without running it.
    virtual void setSpectrumParams(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) = 0;
    void applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex) override;
    void applyToRange(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex, int from,
                      int to) override;
};
