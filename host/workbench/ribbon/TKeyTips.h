#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>

class QAbstractButton;
class QKeyEvent;
class QLabel;
class WRibbon;

/// Keys for the ribbon. Alt alone shows the numbers of the tabs; a number brings its page forward and shows a letter at
/// each of its buttons; a letter presses the button. Escape, Alt again or a click ends it. Belongs to the ribbon.
class TKeyTips : public QObject
{
    Q_OBJECT

public:
    explicit TKeyTips(WRibbon &ribbon);

    /// Whether tips are seen.
    bool isActive() const { return fState != cNone; }

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    enum TState { cNone, cTabs, cButtons };

    void altReleased(const QKeyEvent &event);
    bool keyPressed(int key, Qt::KeyboardModifiers modifiers);
    void showTabs();
    void showButtons();
    void end();
    bool isFocusTaken() const;
    void giveFocusBack();

    WRibbon &fRibbon;
    TState fState = cNone;
    bool fIsAltAlone = false;
    bool fIsMouseDown = false;
    QHash<QChar, QAbstractButton *> fButtons;
    QList<QLabel *> fTips;
    QPointer<QWidget> fFocusBefore; // had the keyboard before the tips
};
