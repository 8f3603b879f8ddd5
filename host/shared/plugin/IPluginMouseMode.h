#pragma once

#include <QByteArray>
#include <QCursor>
#include <QList>
#include <QPoint>
#include <QUuid>
#include <QtPlugin>

/// The mouse modes of a plug-in; one mode at a time, the null id is none.
class IPluginMouseMode
{
public:
    virtual ~IPluginMouseMode() = default;
    virtual void setMode(const QUuid &mode, const QByteArray &argument) = 0;
    virtual QUuid currentMode() const = 0;
    virtual QList<QUuid> modes() const = 0;
    virtual QCursor cursor(const QPoint &place) const = 0;
};

#define cIPluginMouseModeIID "com.dornveld.kelmora-qt.IPluginMouseMode/1.0"
Q_DECLARE_INTERFACE(IPluginMouseMode, cIPluginMouseModeIID)
