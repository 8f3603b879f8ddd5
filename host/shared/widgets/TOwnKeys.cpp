#include "widgets/TOwnKeys.h"

#include <QKeyEvent>
#include <QWidget>

TOwnKeys::TOwnKeys(QWidget *widget)
    : QObject(widget)
    , fWidget(widget)
{
    widget->installEventFilter(this);
}

void TOwnKeys::add(const QKeySequence &keys, const TRun &run)
{
    fKeys.append({keys, run});
}

void TOwnKeys::add(QKeySequence::StandardKey key, const TRun &run)
{
    for (const QKeySequence &keys : QKeySequence::keyBindings(key))
        add(keys, run);
}

const TOwnKeys::TKey *TOwnKeys::keyOf(const QKeyEvent &event) const
{
    const QKeySequence pressed(int(event.modifiers() & ~Qt::KeypadModifier) | event.key());
    for (const TKey &key : fKeys) {
        if (key.fKeys == pressed)
            return &key;
    }
    return nullptr;
}

bool TOwnKeys::eventFilter(QObject *object, QEvent *event)
{
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if ((!isOverride && event->type() != QEvent::KeyPress) || !fWidget->hasFocus())
        return QObject::eventFilter(object, event);
    const TKey *key = keyOf(*static_cast<QKeyEvent *>(event));
    if (!key)
        return false;
    if (isOverride) {
        event->accept(); // no shortcut: the key comes here
        return true;
    }
    if (!key->fRun)
        return false;
    key->fRun();
    return true;
}
