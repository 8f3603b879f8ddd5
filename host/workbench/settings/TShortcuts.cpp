#include "TShortcuts.h"

#include "TActionTable.h"
#include "TMenuWalk.h"
#include "settings/TDefaultsIni.h"

#include <QAction>
#include <QCoreApplication>

namespace {

/// Keys that the plot answers by itself, without an action.
bool isFixedOnPlot(const QKeySequence &key)
{
    static const QList<int> cFixed{Qt::Key_Left,  Qt::Key_Right, Qt::Key_Up,      Qt::Key_Down,
                                   Qt::Key_Space, Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Escape};
    return key.count() > 0 && cFixed.contains(key[0]);
}

/// A letter, digit or sign with Shift at most, which is what one types into fields.
bool isTyped(const QKeySequence &key)
{
    const int code = key[0] & ~int(Qt::KeyboardModifierMask);
    const int modifiers = key[0] & int(Qt::KeyboardModifierMask);
    return (modifiers & ~int(Qt::ShiftModifier | Qt::KeypadModifier)) == 0 && code < Qt::Key_Escape;
}

} // namespace

TShortcuts::TShortcuts(const TActionTable &table, const QMenuBar &bar, QObject *parent)
    : QObject(parent)
    , fTable(table)
    , fBar(bar)
{
}

QVector<TMenuEntry> TShortcuts::entries() const
{
    return TMenuWalk::entries(fBar, fTable);
}

void TShortcuts::apply()
{
    const TDefaultsIni settings;
    for (const TMenuEntry &entry : entries()) {
        QAction *action = entry.fAction;
        if (!fDefaults.contains(action))
            fDefaults.insert(action, action->shortcuts());
        const QString key = cKey + action->objectName();
        if (!isFixed(*action) && settings.contains(key))
            action->setShortcuts(
                QKeySequence::listFromString(settings.value(key, QString()).toString(), QKeySequence::PortableText));
    }
}

QList<QKeySequence> TShortcuts::defaults(const QAction &action) const
{
    return fDefaults.value(&action, action.shortcuts());
}

bool TShortcuts::isChanged(const QAction &action) const
{
    return action.shortcuts() != defaults(action);
}

bool TShortcuts::isPlotAction(const QAction &action)
{
    return action.shortcutContext() == Qt::WidgetShortcut;
}

bool TShortcuts::isFixed(const QAction &action)
{
    const QVariant isCustomizable = action.property(TActionTable::cIsCustomizable);
    return isCustomizable.isValid() && !isCustomizable.toBool();
}

/// Keys of the window work on the plot as well, so the keys of both contexts are compared: Qt runs neither of two
/// actions whose keys meet.
QString TShortcuts::refusal(const QAction &action, const QKeySequence &key) const
{
    if (isFixed(action))
        return tr("The keys of \"%1\" are fixed.").arg(TMenuWalk::plainText(action.text()));
    if (key.isEmpty())
        return QString();
    const QString text = key.toString(QKeySequence::NativeText);
    if (isFixedOnPlot(key))
        return tr("%1 is fixed on the plot.").arg(text);
    if (!isPlotAction(action) && isTyped(key))
        return tr("%1 alone works on the plot only; add Ctrl or Alt.").arg(text);
    for (const TMenuEntry &entry : entries()) {
        if (entry.fAction != &action && entry.fAction->shortcuts().contains(key))
            return tr("%1 is the key of \"%2\" (%3).")
                .arg(text, TMenuWalk::plainText(entry.fAction->text()), entry.fPath.join(" > "));
    }
    return QString();
}

void TShortcuts::keep(QAction *action, const QList<QKeySequence> &keys)
{
    action->setShortcuts(keys);
    TDefaultsIni settings;
    const QString key = cKey + action->objectName();
    if (isChanged(*action))
        settings.setValue(key, QKeySequence::listToString(keys, QKeySequence::PortableText));
    else
        settings.remove(key);
}

bool TShortcuts::setKey(QAction *action, const QKeySequence &key)
{
    if (!refusal(*action, key).isEmpty())
        return false;
    QList<QKeySequence> keys = action->shortcuts();
    keys.removeAll(key);
    if (key.isEmpty())
        keys.clear();
    else if (keys.isEmpty() || action->shortcuts().first() == key)
        keys.prepend(key);
    else
        keys.first() = key;
    keep(action, keys);
    emit changed();
    return true;
}

QStringList TShortcuts::reset(const QList<QAction *> &actions)
{
    QStringList incomplete;
    for (QAction *action : actions) {
        if (!isFixed(*action))
            keep(action, {}); // so that they can change places with each other
    }
    for (QAction *action : actions) {
        if (isFixed(*action))
            continue;
        QList<QKeySequence> keys;
        for (const QKeySequence &key : defaults(*action)) {
            if (refusal(*action, key).isEmpty())
                keys.append(key);
        }
        keep(action, keys);
        if (isChanged(*action))
            incomplete.append(TMenuWalk::plainText(action->text()));
    }
    emit changed();
    return incomplete;
}

QStringList TShortcuts::resetAll()
{
    QList<QAction *> actions;
    for (const TMenuEntry &entry : entries())
        actions.append(entry.fAction);
    return reset(actions);
}

QString TShortcuts::html() const
{
    QString body;
    QString menu;
    for (const TMenuEntry &entry : entries()) {
        const QList<QKeySequence> keys = entry.fAction->shortcuts();
        if (keys.isEmpty())
            continue;
        const QString path = entry.fPath.join(" > ");
        if (path != menu)
            body += QString("<tr><td colspan=\"3\"><h3>%1</h3></td></tr>\n").arg(path.toHtmlEscaped());
        menu = path;
        body += QString("<tr><td><b>%1</b></td><td>%2</td><td>%3</td></tr>\n")
                    .arg(QKeySequence::listToString(keys, QKeySequence::NativeText).toHtmlEscaped(),
                         TMenuWalk::plainText(entry.fAction->text()).toHtmlEscaped(),
                         isPlotAction(*entry.fAction) ? tr("on the plot") : QString());
    }
    return QString("<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>%1</title></head>\n"
                   "<body style=\"font-family: sans-serif\"><h1>%1</h1>\n<table cellpadding=\"3\">\n%2</table>\n"
                   "</body></html>\n")
        .arg(tr("Keys of Kelmora"), body);
}
