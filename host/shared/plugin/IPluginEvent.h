#pragma once

#include <QByteArray>
#include <QtPlugin>

class QEvent;

/// Events that a plug-in may take before the canvas does, and events of the host.
class IPluginEvent
{
public:
    virtual ~IPluginEvent() = default;
    /// True when the plug-in took the event.
    virtual bool filterEvent(QEvent *event) = 0;
    /// An event of the host by name, Consts::Events.
    virtual void hostEvent(const QByteArray &name) = 0;
};

#define cIPluginEventIID "com.dornveld.kelmora-qt.IPluginEvent/1.0"
Q_DECLARE_INTERFACE(IPluginEvent, cIPluginEventIID)
