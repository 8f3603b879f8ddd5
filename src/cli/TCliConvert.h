#pragma once

#include "TCliFileCommand.h"
#include "TCliTarget.h"

/// zarnu convert: imports files and writes them in another form.
class TCliConvert : public TCliFileCommand
{
public:
    TCliSyntax syntax() const override;

protected:
    bool prepare(const TCliArguments &arguments, const TCliEnvironment &environment, QString &error) override;
    bool makeFolders(QString &error) override { return fTarget.makeFolder(error); }
    void work(TCliInput &input, int index, const TCliEnvironment &environment, QByteArray &out) override;
    int jsonParts() const override { return 0; }

private:
    TCliTarget fTarget;
};
