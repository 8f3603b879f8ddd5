#include "TCliEnvironment.h"

#include "plugin/IConsole.h"

QString TCliEnvironment::failureLine(const QString &file, const QString &reason, int code)
{
    // codes of the host are readable only by their bits
    const QString number = code < 0 ? "0x" + QString::number(quint32(code), 16) : QString::number(code);
    return QString("zarnu: %1: %2 (code %3)").arg(file, reason.simplified(), number);
}

void TCliEnvironment::warn(const QString &text) const
{
    fConsole.err("zarnu: warning: " + text.simplified());
}

int TCliEnvironment::refuse(const QString &text) const
{
    fConsole.err("zarnu: " + text.simplified());
    return cCliUsageError;
}

QString TCliEnvironment::version()
{
    return QStringLiteral(YREX_VERSION);
}
