#pragma once

#include "ICliCommand.h"

class QString;
class TYrexProcParams;

/// zarnu chain: shows, checks and writes chains. Each way of calling it is a word behind the name: default, show, save,
/// keys.
class TCliChain : public ICliCommand
{
public:
    TCliSyntax syntax() const override;
    int run(const TCliArguments &arguments, const TCliEnvironment &environment) override;

private:
    static int runDefault(const TCliArguments &arguments, const TCliEnvironment &environment);
    static int runShow(const TCliArguments &arguments, const TCliEnvironment &environment);
    static int runSave(const TCliArguments &arguments, const TCliEnvironment &environment);
    static int runKeys(const TCliArguments &arguments, const TCliEnvironment &environment);
    static bool load(const TCliArguments &arguments, const TCliEnvironment &environment, TYrexProcParams &chain);
};
