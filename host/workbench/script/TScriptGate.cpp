#include "TScriptGate.h"

#include "WScriptConsole.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QToolButton>

namespace {

/// Whether an event comes from the hand of the user.
bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::NativeGesture:
        return true;
    default:
        return false;
    }
}

} // namespace

TScriptGate::TScriptGate(QWidget *window, QWidget *console, QAction *stop, QObject *parent)
    : QObject(parent)
    , fWindow(window)
    , fConsole(console)
    , fStop(stop)
{
}

void TScriptGate::setClosed(bool isClosed)
{
    if (isClosed == fIsClosed)
        return;
    fIsClosed = isClosed;
    if (isClosed)
        qApp->installEventFilter(this);
    else
        qApp->removeEventFilter(this);
}

bool TScriptGate::isAllowed(QWidget *widget, const QEvent &event) const
{
    const auto *button = qobject_cast<const QToolButton *>(widget);
    if (widget->property(WScriptConsole::cWorksDuringScripts).toBool() || (button && button->defaultAction() == fStop))
        return true;
    // the output can be read meanwhile
    return fConsole->isAncestorOf(widget) && (event.type() == QEvent::Wheel || qobject_cast<QScrollBar *>(widget));
}

bool TScriptGate::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Close && object == fWindow) {
        event->ignore();
        emit closeRequested();
        return true;
    }
    // what stands before a modal box is kept off by Qt; windows hand their events on to widgets
    if (!isInput(event->type()) || QApplication::activeModalWidget() || object->isWindowType())
        return false;
    auto *widget = qobject_cast<QWidget *>(object);
    if (object == fStop || (widget && isAllowed(widget, *event)))
        return false;
    const bool isKey = event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape;
    if (isKey && widget && (widget == fConsole || fConsole->isAncestorOf(widget)))
        emit stopRequested();
    if (event->type() == QEvent::ShortcutOverride)
        event->ignore(); // so that the key of the stop action is looked for
    return true;
}
