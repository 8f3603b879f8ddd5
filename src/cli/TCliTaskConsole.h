#pragma once

#include "plugin/IConsole.h"

#include <QStringList>

/// Keeps what is printed for one input, for the process that prints it in its turn.
class TCliTaskConsole : public IConsole
{
public:
    void out(const QByteArray &bytes) override { fOutput += bytes; }
    void err(const QString &line) override { fErrors += line; }
    void progress(const QString &, int, int) override {}
    void setQuiet(bool) override {}

    const QByteArray &output() const { return fOutput; }
    const QStringList &errors() const { return fErrors; }

private:
    QByteArray fOutput;
    QStringList fErrors;
};
