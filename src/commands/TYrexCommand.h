#pragma once

#include "TYrexItemsCommand.h"

/// Base of the commands on whole items.
class TYrexCommand : public TYrexItemsCommand
{
    Q_OBJECT

public:
    using TYrexItemsCommand::TYrexItemsCommand;
};
