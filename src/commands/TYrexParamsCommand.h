#pragma once

#include "TYrexSpectrumListCommand.h"
#include "TYrexVoidUnlessChanged.h"

/// Base of the commands that change parameters: the plot follows where these were units.
class TYrexParamsCommand : public TYrexVoidUnlessChanged<TYrexSpectrumListCommand>
{
    Q_OBJECT

public:
    using TYrexVoidUnlessChanged::TYrexVoidUnlessChanged;

    void doItem(TCanvasYrexSpectrum *item, int index) override;

private:
    void showUnits(TCanvasYrexSpectrum &item) const;
};
