#include "TKeyTips.h"

#include "WRibbon.h"
#include "WRibbonPage.h"
#include "WRibbonTabBar.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QTimer>
#include <QToolButton>

namespace {

constexpr int cTipSide = 17;

/// The first letter of the text that is free, else the first free one at all.
QChar freeLetter(const QString &text, const QHash<QChar, QAbstractButton *> &taken)
{
    const QString all = text.toUpper() + "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    for (const QChar c : all) {
        const bool isUsable = (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (isUsable && !taken.contains(c))
            return c;
    }
    return QChar();
}

} // namespace

TKeyTips::TKeyTips(WRibbon &ribbon)
    : QObject(&ribbon)
    , fRibbon(ribbon)
{
    qApp->installEventFilter(this);
}

bool TKeyTips::eventFilter(QObject *object, QEvent *event)
{
    const auto *widget = qobject_cast<QWidget *>(object);
    if (!widget || widget->window() != fRibbon.window())
        return false;
    switch (event->type()) {
    case QEvent::ShortcutOverride: // letters are shortcuts of the plot otherwise
        if (isActive() && static_cast<QKeyEvent *>(event)->key() != Qt::Key_Alt)
            event->accept();
        return false;
    case QEvent::KeyPress: {
        const auto *key = static_cast<QKeyEvent *>(event);
        fIsAltAlone =
            key->key() == Qt::Key_Alt && !key->isAutoRepeat() && key->modifiers() == Qt::AltModifier && !fIsMouseDown;
        if (fIsAltAlone && !isFocusTaken())
            fFocusBefore = fRibbon.window()->focusWidget();
        return key->key() != Qt::Key_Alt && isActive() && keyPressed(key->key(), key->modifiers());
    }
    case QEvent::KeyRelease:
        altReleased(*static_cast<QKeyEvent *>(event));
        return false;       // the menus take their keys as ever
    case QEvent::MouseMove: // Alt changes what the mouse does
    case QEvent::Wheel:
        fIsAltAlone = false;
        return false;
    case QEvent::MouseButtonRelease:
        fIsMouseDown = false;
        fIsAltAlone = false;
        return false;
    case QEvent::MouseButtonPress:
    case QEvent::WindowDeactivate:
        fIsMouseDown = event->type() == QEvent::MouseButtonPress;
        fIsAltAlone = false;
        if (isActive())
            end();
        return false;
    default:
        return false;
    }
}

/// Comes to the parents of the widget with the focus as well, and counts once.
void TKeyTips::altReleased(const QKeyEvent &event)
{
    if (event.key() != Qt::Key_Alt || !fIsAltAlone)
        return;
    fIsAltAlone = false;
    if (isActive())
        end();
    else
        showTabs();
}

/// Whether the key was one of the tips.
bool TKeyTips::keyPressed(int key, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & ~(Qt::KeypadModifier | Qt::ShiftModifier)) {
        end();
        return false;
    }
    if (key == Qt::Key_Escape && fState == cButtons) {
        end();
        showTabs();
        return true;
    }
    if (fState == cTabs) {
        const int tab = key - Qt::Key_1;
        end();
        if (tab < 0 || tab >= fRibbon.tabs().count()) {
            giveFocusBack();
            return false;
        }
        fRibbon.tabs().setFocus();
        fRibbon.choose(tab);
        showButtons();
        return true;
    }
    QAbstractButton *button = key < 0x80 ? fButtons.value(QChar(key)) : nullptr;
    end();
    giveFocusBack();
    if (button && button->isEnabled()) {
        auto *tool = qobject_cast<QToolButton *>(button);
        const bool dropsDown = tool && tool->menu() && tool->popupMode() == QToolButton::InstantPopup;
        if (dropsDown)
            QTimer::singleShot(0, tool, &QToolButton::showMenu); // it waits for the choice
        else
            button->click();
    }
    return true;
}

/// Whether Alt or the tips brought the keyboard where it is: to the menus or to the tabs.
bool TKeyTips::isFocusTaken() const
{
    const QWidget *focus = fRibbon.window()->focusWidget();
    return focus == &fRibbon.tabs() || qobject_cast<const QMenuBar *>(focus);
}

void TKeyTips::giveFocusBack()
{
    if (fFocusBefore && isFocusTaken())
        fFocusBefore->setFocus();
}

void TKeyTips::showTabs()
{
    fState = cTabs;
    fRibbon.tabs().showTips(true);
}

void TKeyTips::showButtons()
{
    WRibbonPage *page = fRibbon.page(fRibbon.currentPage());
    if (!page)
        return;
    fState = cButtons;
    for (QAbstractButton *button : page->findChildren<QAbstractButton *>()) {
        if (!button->isVisible())
            continue;
        const QString name = button->accessibleName().isEmpty() ? button->text() : button->accessibleName();
        const QChar letter = freeLetter(name, fButtons);
        if (letter.isNull())
            break;
        fButtons.insert(letter, button);
        auto *tip = new QLabel(letter, page);
        tip->setObjectName("keyTip");
        tip->setAlignment(Qt::AlignCenter);
        tip->setAutoFillBackground(true);
        tip->setBackgroundRole(QPalette::ToolTipText);
        tip->setForegroundRole(QPalette::ToolTipBase);
        tip->setEnabled(button->isEnabled());
        const QPoint place = button->mapTo(page, QPoint(2, button->height() - cTipSide));
        tip->setGeometry(place.x(), place.y(), cTipSide, cTipSide);
        tip->show();
        fTips.append(tip);
    }
}

void TKeyTips::end()
{
    fState = cNone;
    fRibbon.tabs().showTips(false);
    fButtons.clear();
    qDeleteAll(fTips);
    fTips.clear();
}
