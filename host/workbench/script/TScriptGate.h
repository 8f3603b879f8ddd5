#pragma once

#include <QObject>

class QAction;
class QEvent;
class QWidget;

/// Keeps the hand of the user off the program while a script runs and lets events pass: only what stops the script, and
/// boxes that ask something on its way, get input. Painting and timers go on.
class TScriptGate : public QObject
{
    Q_OBJECT

public:
    /// `stop` is the action that ends a script, `console` the dock in which Escape does.
    TScriptGate(QWidget *window, QWidget *console, QAction *stop, QObject *parent);

    void setClosed(bool isClosed);
    bool isClosed() const { return fIsClosed; }
    bool eventFilter(QObject *object, QEvent *event) override;

signals:
    /// Escape in the console.
    void stopRequested();
    /// The window was to be closed.
    void closeRequested();

private:
    bool isAllowed(QWidget *widget, const QEvent &event) const;

    QWidget *fWindow;
    QWidget *fConsole;
    QAction *fStop;
    bool fIsClosed = false;
};
