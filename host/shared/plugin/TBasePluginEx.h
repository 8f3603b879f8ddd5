#pragma once

#include "plugin/IPluginMouseMode.h"
#include "plugin/TBasePlugin.h"

class QHelpEvent;
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

/// A plug-in with mouse modes: events are handed to one operation for each kind. Those return whether they took the
/// event; here none does.
class TBasePluginEx : public TBasePlugin, public IPluginMouseMode
{
    Q_OBJECT
    Q_INTERFACES(IPluginMouseMode)

public:
    bool filterEvent(QEvent *event) override;

    void setMode(const QUuid &, const QByteArray &) override {}
    QUuid currentMode() const override { return QUuid(); }
    QList<QUuid> modes() const override { return {}; }
    QCursor cursor(const QPoint &) const override { return QCursor(); }

protected:
    virtual bool mousePress(QMouseEvent *) { return false; }
    virtual bool mouseRelease(QMouseEvent *) { return false; }
    virtual bool mouseMove(QMouseEvent *) { return false; }
    virtual bool keyPress(QKeyEvent *) { return false; }
    virtual bool keyRelease(QKeyEvent *) { return false; }
    virtual bool wheel(QWheelEvent *) { return false; }
    virtual bool toolTip(QHelpEvent *) { return false; }
};
