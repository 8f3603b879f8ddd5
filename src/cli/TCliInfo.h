#pragma once

#include "TCliFileCommand.h"

/// zarnu info: what is in files, as text or JSON.
class TCliInfo : public TCliFileCommand
{
public:
    TCliSyntax syntax() const override;

protected:
    bool prepare(const TCliArguments &arguments, const TCliEnvironment &environment, QString &error) override;
    TCliInput open(const QString &file, const QString &format, const TCliEnvironment &environment) override;
    void work(TCliInput &input, int index, const TCliEnvironment &environment, QByteArray &out) override;
    int jsonParts() const override { return fParts; }

private:
    int fParts = 0;
    bool fIsJson = false;
    bool fHeaderOnly = false;
    QByteArray fHeaderText; // of the input at hand
};
