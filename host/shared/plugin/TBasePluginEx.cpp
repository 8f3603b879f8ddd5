#include "plugin/TBasePluginEx.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

bool TBasePluginEx::filterEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return mousePress(static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return mouseRelease(static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return mouseMove(static_cast<QMouseEvent *>(event));
    case QEvent::KeyPress:
        return keyPress(static_cast<QKeyEvent *>(event));
    case QEvent::KeyRelease:
        return keyRelease(static_cast<QKeyEvent *>(event));
    case QEvent::Wheel:
        return wheel(static_cast<QWheelEvent *>(event));
    case QEvent::ToolTip:
        return toolTip(static_cast<QHelpEvent *>(event));
    default:
        return false;
    }
}
