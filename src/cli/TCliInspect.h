#pragma once

#include "ICliCommand.h"

class QString;

/// "zarnu inspect": why files open or do not.
class TCliInspect : public ICliCommand
{
public:
    TCliSyntax syntax() const override;
    int run(const TCliArguments &arguments, const TCliEnvironment &environment) override;

private:
    static bool inspect(const QString &file, const QString &format, const TCliEnvironment &environment);
};
