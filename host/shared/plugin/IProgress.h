#pragma once

#include <QString>
#include <QtPlugin>

/// How long work makes itself known.
class IProgress
{
public:
    virtual ~IProgress() = default;
    virtual void beginBusy() = 0;
    virtual void endBusy() = 0;
    virtual void logMessage(const QString &text) = 0;
};

#define cIProgressIID "com.dornveld.kelmora-qt.IProgress/1.0"
Q_DECLARE_INTERFACE(IProgress, cIProgressIID)
