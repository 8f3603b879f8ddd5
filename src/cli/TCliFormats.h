#pragma once

#include "ICliCommand.h"

/// zarnu formats: the converters, with what they read and write.
class TCliFormats : public ICliCommand
{
public:
    TCliSyntax syntax() const override;
    int run(const TCliArguments &arguments, const TCliEnvironment &environment) override;
};
