#include "TYrexProcessingCommand.h"

#include "TYrexSpectrum.h"

void TYrexProcessingCommand::applyToSpectrum(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum,
                                             int specIndex)
{
    setSpectrumParams(item, index, spectrum, specIndex);
    spectrum->process(0, 0, 0);
}

void TYrexProcessingCommand::applyToRange(TCanvasYrexSpectrum *item, int index, TYrexSpectrum *spectrum, int specIndex,
                                          int from, int to)
{
    setSpectrumParams(item, index, spectrum, specIndex);
    spectrum->process(0, from, to);
}
