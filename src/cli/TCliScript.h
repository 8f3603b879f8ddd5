#pragma once

#include "ICliCommand.h"

/// zarnu script: runs a script without a window.
class TCliScript : public ICliCommand
{
public:
    TCliSyntax syntax() const override;
    int run(const TCliArguments &arguments, const TCliEnvironment &environment) override;
};
