#pragma once

#include "TYrexItemsCommand.h"

/// Base of the light commands on spectra: they keep what they need for undo themselves.
class TYrexSpectrumCommand : public TYrexItemsCommand
{
    Q_OBJECT

public:
    using TYrexItemsCommand::TYrexItemsCommand;

    THistoryCommand *itemHistoryCommand(TCanvasItem *item) final;
    /// The history entry of an item; one with the description here.
    virtual THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item);
};
