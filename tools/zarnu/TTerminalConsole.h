#pragma once

#include "plugin/IConsole.h"

/// The standard streams of the process. The progress bar shows on standard error when that is a terminal.
class TTerminalConsole : public IConsole
{
public:
    TTerminalConsole();
    ~TTerminalConsole() override;
    TTerminalConsole(const TTerminalConsole &) = delete;
    TTerminalConsole &operator=(const TTerminalConsole &) = delete;

    void out(const QByteArray &bytes) override;
    void err(const QString &line) override;
    void progress(const QString &what, int done, int total) override;
    void setQuiet(bool quiet) override { fQuiet = quiet; }
    bool isStopWanted() const override;
    /// Whether all output could be written; false on a full disk or a closed pipe.
    bool isGood();

private:
    void clearBar();

    bool fIsTerminal;
    bool fQuiet = false;
    bool fHasBar = false;
    bool fGood = true;
};
